#pragma once

#include "control/FormFile.h"
#include "host/qt/QuillmarEdit.h"

#include <QString>
#include <QWidget>

#include <optional>
#include <string>
#include <vector>

namespace quillmar::forms {

/// A form in run mode: each field with its label at the place the form gives it, in the form's tab order,
/// every rule live, and a Submit button that validates every field and sums up what needs attention.
class FormWindow : public QWidget {
    Q_OBJECT

public:
    /// Builds the window's fields from the document; `Load` reads their properties.
    explicit FormWindow(const FormDocument& document, QWidget* parent = nullptr);

    /// Loads every field's properties; the error line (naming `sourceName`, the field and the entry) when a
    /// field refuses a stored value.
    [[nodiscard]] std::optional<std::string> Load(std::string_view sourceName);

    /// The fields in tab order.
    [[nodiscard]] const std::vector<qt::QuillmarEdit*>& Fields() const { return m_fields; }

    /// Validates every field in tab order (each shows its own message and corrections) and returns the
    /// labels of those still invalid.
    QStringList Submit();

private:
    FormDocument m_document;
    std::vector<qt::QuillmarEdit*> m_fields;
};

} // namespace quillmar::forms
