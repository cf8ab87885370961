#pragma once

#include "formfile/FormFile.h"

#include <QRect>
#include <QSize>
#include <QStringList>

#include <optional>
#include <string>
#include <vector>

class QMimeData;

namespace quillmar::forms {

/// The clipboard type of fields copied in the designer: the text of a form file holding only them.
inline constexpr char kFieldsMimeType[] = "application/x-quillmar-fields+json";

/// The fields as clipboard data: a form file holding them (in their order, the form `formSize` large), as
/// the designer's own type and as plain text for a text editor.
[[nodiscard]] QMimeData* FieldsToMime(const std::vector<FormControl>& fields, QSize formSize);

/// What the clipboard holds for the designer.
struct ClipboardFields {
    /// The fields, empty when the clipboard holds none.
    std::vector<FormControl> fields;
    /// Empty, or the one line saying why fields of the designer's type do not read.
    std::string error;
};

/// Reads the fields of the designer's type from `data` (plain text is not read: it may be anything), with
/// the checks of a form file.
[[nodiscard]] ClipboardFields FieldsFromMime(const QMimeData* data);

/// Fits pasted fields into a form whose fields are named `taken` and placed at `occupied`, `form` large:
/// a taken name becomes the first free one of its stem and a number from 2 ("Quantity" gives "Quantity2",
/// "Quillmar3" gives "Quillmar2" when that is free), and the fields move together by 16 pixels down and
/// right until none lies exactly where a field of the form lies (a cut and pasted field comes back where it
/// was, a copy lands beside its original), staying on the form.
[[nodiscard]] std::vector<FormControl> FitPastedFields(std::vector<FormControl> pasted,
    const QStringList& taken, const std::vector<QRect>& occupied, QSize form);

} // namespace quillmar::forms
