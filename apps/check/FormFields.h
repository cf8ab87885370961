#pragma once

#include "host/LocaleInfo.h"
#include "validation/PreparedRules.h"

#include <filesystem>
#include <memory>
#include <string>
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

} // namespace quillmar::check
