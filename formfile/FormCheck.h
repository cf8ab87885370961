#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/base/LocaleInfo.h>
#include <quillmar/formfile/FormDocument.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// Checks a form as the control would take it: at most `kMaxFormFields` fields, each named (not empty, no
/// two names equal ignoring ASCII case, as database columns are), placed within `kMaxFormExtent`, and its
/// entries as `FieldEntriesFault` takes them: each a property the control writes, of the kind it writes it
/// in, with a value its writer accepts (a `MaxLength` of 0 or more, a `MustBeType` of 0 to 9, a
/// `MessageBoxIcon` of 0 to 4 ...; the two lists a property store with "NEl" and the items "1N" to its
/// count, `Actions` exactly three flag words), and limits and a default value that leave room for each other
/// when read under `locale` (the locale the form's fields will follow). Returns nullopt, or one line naming
/// `sourceName`, the control and the entry or entries, and what is wrong.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::optional<std::string> CheckFormDocument(const FormDocument& document,
    std::string_view sourceName, const LocaleInfo& locale = LocaleInfo::FromEnvironment());

} // namespace quillmar
