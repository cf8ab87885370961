#pragma once

#include "base/LocaleInfo.h"
#include "validation/PreparedRules.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::check {

/// One field of a form, ready for checking: its name (UTF-8) and its prepared rules.
struct CheckedField {
    std::string name;
    PreparedRules rules;
};

/// The fields of a form file, or the one line that says why there are none.
struct FormFields {
    std::vector<CheckedField> fields;
    /// Empty on success.
    std::string error;
};

/// Loads the form file the way a form host does (each field's properties read into a control, so every
/// interlock runs) and prepares each field's rules under `locale` with its edit box's `MaxLength`.
[[nodiscard]] FormFields LoadFormFields(const std::filesystem::path& form, const LocaleInfo& locale);

/// The index in `fields` of the field named `name`, or -1.
[[nodiscard]] int FindField(const std::vector<CheckedField>& fields, std::string_view name) noexcept;

/// True for a column that quillmar-forms adds to the records it stores beside the form's fields
/// ("SubmittedAt"): a column of no field, but no surprise either.
[[nodiscard]] bool IsRecordColumn(std::string_view column) noexcept;

/// The one line saying that no column of the data is named after a field of the form, naming the form's
/// fields; nullopt when at least one column is (a check of no value would pass what it never checked).
[[nodiscard]] std::optional<std::string> NoFieldColumn(
    const std::vector<CheckedField>& fields, const std::vector<std::string>& columns);

} // namespace quillmar::check
