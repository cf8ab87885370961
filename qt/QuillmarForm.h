#pragma once

#include <quillmar/QtExport.h>

#include <quillmar/formfile/FormDocument.h>
#include <quillmar/qt/QuillmarEdit.h>

#include <QLabel>
#include <QRect>
#include <QString>
#include <QWidget>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::qt {

/// The width of the label that a built form puts to the left of each field.
inline constexpr int kFormLabelWidth = 104;
/// The space between a built form's label and its field.
inline constexpr int kFormLabelGap = 8;

/// Where the label of a field at `field` goes: to its left, as high as the field, its text right-aligned.
[[nodiscard]] inline QRect FormLabelGeometry(const QRect& field) {
    return { field.left() - kFormLabelWidth - kFormLabelGap, field.top(), kFormLabelWidth, field.height() };
}

/// The widgets of a form built from its document, one label and one field per control, in document order.
struct FormWidgets {
    std::vector<QLabel*> labels; ///< The labels, one per field, in the same order.
    /// The fields, in tab order; each named (`objectName`) after its control.
    std::vector<QuillmarEdit*> fields;
    /// The line that says why nothing was built (the form file does not read, or a field refused a stored
    /// value: the line names the source, the field and the entry); nullopt when the form was built.
    std::optional<std::string> error;
};

/// Builds the form `document` inside `parent`: for each control a `QuillmarEdit` at the control's geometry
/// with its tool tip and every property of its entries, and a label (the control's label and a colon, the
/// field its buddy) at `FormLabelGeometry`, in the application's font; the fields follow each other in tab
/// order and take the form's refusal-tip and inline-state switches. The fields take `parent`'s font as
/// their ambient font. When a field refuses a stored value, nothing stays built and the error (naming
/// `sourceName`) says why.
[[nodiscard]] QUILLMAR_QT_EXPORT FormWidgets BuildForm(
    const FormDocument& document, QWidget& parent, std::string_view sourceName);

/// Reads the form file at `path` and builds it inside `parent` (see `BuildForm`); a file that does not read
/// builds nothing and gives the error line.
[[nodiscard]] QUILLMAR_QT_EXPORT FormWidgets LoadForm(const QString& path, QWidget& parent);

/// The text of the label whose buddy is `field` (or its edit box), as a person reads it: "&Quantity:" gives
/// "Quantity". Empty when the field has no label.
[[nodiscard]] QUILLMAR_QT_EXPORT QString LabelOf(const QuillmarEdit& field);

/// A field of a form whose text is not valid now.
struct InvalidField {
    QuillmarEdit* field = nullptr; ///< The field itself.
    /// Its label (`LabelOf`), else its accessible name, else its object name.
    QString label;
    /// What the field would show for its text (`QuillmarEdit::CurrentErrorMessage`).
    QString message;
};

/// The fields inside `form` whose text is not valid now, in tab order, each with its label and message.
/// Nothing is corrected and no message is shown: a form calls this before it takes the values (a Submit
/// or an OK button) and lists what is left to correct.
[[nodiscard]] QUILLMAR_QT_EXPORT std::vector<InvalidField> InvalidFields(const QWidget& form);

} // namespace quillmar::qt
