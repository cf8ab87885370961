#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/base/MemoryPropertyStore.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// The entries of one field read from JSON, or the one line that says why there are none.
struct [[nodiscard]] EntriesResult {
    /// The entries in the text's order; nullopt when reading failed.
    std::optional<quillmar::MemoryPropertyStore> entries;
    /// Empty on success; otherwise one line naming the source, where relevant the entry, and what is wrong.
    std::string error;
};

/// Reads one field's entries from a JSON object in the notation of a form file's "properties": each entry in
/// the readable notation (`"MustBeType": "vldInteger"`, `"MinValue": {"Date": "2024-01-01"}`, the lists as
/// arrays; see `formtext::ReadableEntryFromJson`) or in the older type-tagged one ({"type": kind, "value":
/// value}, a list's store as its "NEl" and "1N" ... entries). The entries "Font", "MustNotBeValues" and
/// "Actions" must hold a property store. Never throws.
[[nodiscard]] QUILLMAR_CORE_EXPORT EntriesResult EntriesFromJson(
    std::string_view json, std::string_view sourceName);

/// One field's entries as a JSON object, one entry per line, in store order, in the readable notation, which
/// `EntriesFromJson` reads back: `EntriesFromJson(EntriesToJson(s), ...)` gives `s` back.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::string EntriesToJson(const quillmar::MemoryPropertyStore& entries);

} // namespace quillmar
