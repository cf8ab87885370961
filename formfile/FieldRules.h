#pragma once

#include "base/LocaleInfo.h"
#include "validation/MessageCatalogue.h"
#include "validation/PreparedRules.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

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

/// What the field's final validation shows for `value`, which broke the constraints `bits` (never 0) and was
/// left as it is (no corrective action, so no action line): the author's own `ErrorMessage` as it stands
/// under `vldCustom` (an empty one shows an empty box), otherwise the message its mode composes. Lines are
/// joined with "\r\n". The composed message is in the language of `catalogue`.
[[nodiscard]] std::u16string ShownMessage(std::u16string_view value, int32_t bits, const PreparedRules& rules,
    const MessageCatalogue& catalogue = EnglishMessages());

} // namespace quillmar
