#pragma once

#include "base/MemoryPropertyStore.h"

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

/// Reads one field's entries from a JSON object in the notation of a form file's "properties": each entry
/// {"type": kind, "value": value}. The value of a ByteArray entry may also be a JSON object of entries in
/// the same notation, which stands for the bytes of the property store holding them (the readable form of
/// a list: {"NEl": {"type": "Integer", "value": 2}, "1N": ..., "2N": ...}); form files accept it too. The
/// entries "Font", "MustNotBeValues" and "Actions" must hold a property store. Never throws.
[[nodiscard]] EntriesResult EntriesFromJson(std::string_view json, std::string_view sourceName);

/// One field's entries as a JSON object, one entry per line, in store order, readable by `EntriesFromJson`:
/// the nested stores of "Font", "MustNotBeValues" and "Actions" are written as their entries rather than
/// as base64, so that a list reads as its values. `EntriesFromJson(EntriesToJson(s), ...)` gives `s` back.
[[nodiscard]] std::string EntriesToJson(const quillmar::MemoryPropertyStore& entries);

} // namespace quillmar
