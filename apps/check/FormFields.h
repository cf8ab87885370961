#pragma once

#include "formfile/FieldRules.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::check {

/// True for a column that quillmar-forms adds to the records it stores beside the form's fields
/// ("SubmittedAt"): a column of no field, but no surprise either.
[[nodiscard]] bool IsRecordColumn(std::string_view column) noexcept;

/// The one line saying that no column of the data is named after a field of the form, naming the form's
/// fields; nullopt when at least one column is (a check of no value would pass what it never checked).
[[nodiscard]] std::optional<std::string> NoFieldColumn(
    const std::vector<CheckedField>& fields, const std::vector<std::string>& columns);

} // namespace quillmar::check
