#pragma once

#include <quillmar/PagesExport.h>

#include <quillmar/qt/QuillmarEdit.h>

#include <QList>
#include <QPointer>

namespace quillmar::pages {

/// The fields the author selected in the designer, in selection order. A field destroyed while selected
/// reads as nullptr.
class QUILLMAR_PAGES_EXPORT SelectedControls {
public:
    /// No field selected.
    SelectedControls() = default;
    /// The given fields, in the order given.
    explicit SelectedControls(const QList<qt::QuillmarEdit*>& fields) {
        for (qt::QuillmarEdit* field : fields)
            m_fields.append(field);
    }
    /// How many fields were selected, destroyed ones included.
    [[nodiscard]] int Count() const { return static_cast<int>(m_fields.size()); }
    /// The field at a 0-based index; nullptr outside 0 to `Count() - 1`.
    [[nodiscard]] qt::QuillmarEdit* Item(int index) const {
        return index >= 0 && index < Count() ? m_fields[index].data() : nullptr;
    }

private:
    QList<QPointer<qt::QuillmarEdit>> m_fields;
};

} // namespace quillmar::pages
