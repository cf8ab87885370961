#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/base/PropertyStore.h>
#include <quillmar/base/Variant.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// One entry of a property store: its key and its value.
struct PropertyEntry {
    std::u16string key; ///< The property's name as stored ("MustBeType").
    Variant value; ///< The stored value.
    /// The same key and value.
    friend bool operator==(const PropertyEntry&, const PropertyEntry&) = default;
};

/// A property store in memory: entries kept in the order they were first written, so that the same writes
/// always give the same bytes. The bytes are CBOR (RFC 8949): an array of entries, each entry an array of
/// the key (text), the value's kind (text, `KindName`) and the value; Empty is null, a Boolean true or
/// false, a String UTF-8 text, Byte, Integer, Long and Currency (ten-thousandths) integers, Single, Double
/// and Date (days) floats, a byte array a byte string, and an array of variants an array of [kind, value]
/// pairs.
class QUILLMAR_CORE_EXPORT MemoryPropertyStore final : public PropertyStore {
public:
    /// The largest byte array `FromBytes` accepts.
    static constexpr size_t MaxBytes = size_t { 4 } << 20;
    /// The deepest nesting of CBOR arrays `FromBytes` accepts (each nested array of variants takes two).
    static constexpr size_t MaxDepth = 32;
    /// The most CBOR items `FromBytes` accepts.
    static constexpr size_t MaxItems = size_t { 1 } << 18;

    /// The entry's value, or `defaultValue` when there is no such entry.
    [[nodiscard]] Variant ReadProperty(std::u16string_view key, const Variant& defaultValue) const override;
    /// Stores the entry in place (a new key goes last); a value equal to a non-Empty `defaultValue` removes
    /// the entry instead.
    void WriteProperty(std::u16string_view key, const Variant& value, const Variant& defaultValue) override;

    /// The entry's value, or nullptr when there is no such entry. Valid until the next write.
    [[nodiscard]] const Variant* Find(std::u16string_view key) const;
    /// The entries in store order.
    [[nodiscard]] const std::vector<PropertyEntry>& Entries() const noexcept { return m_entries; }

    /// The entries as CBOR bytes. A lone UTF-16 surrogate in a text is stored as U+FFFD.
    [[nodiscard]] ByteArray ToBytes() const;
    /// The store the bytes describe; nullopt, quietly, for anything that is not such a store: not CBOR,
    /// trailing bytes, an unknown kind, a value that does not fit its kind, invalid UTF-8, a repeated key,
    /// CBOR maps or tags, more than `MaxBytes` bytes, `MaxDepth` levels or `MaxItems` items. Never throws;
    /// memory stays proportional to the size of the bytes. `FromBytes(s.ToBytes())` equals `s`.
    [[nodiscard]] static std::optional<MemoryPropertyStore> FromBytes(std::span<const uint8_t> bytes);

    /// The same entries in the same order (and so the same bytes).
    friend bool operator==(const MemoryPropertyStore& a, const MemoryPropertyStore& b) {
        return a.m_entries == b.m_entries;
    }

private:
    void Reindex();

    std::vector<PropertyEntry> m_entries;
    std::map<std::u16string, size_t, std::less<>> m_index;
};

/// The name of a variant kind as stores and form files spell it: "Empty", "Boolean", "String", "Byte",
/// "Integer", "Long", "Single", "Double", "Currency", "Date", "ByteArray", "Array".
[[nodiscard]] QUILLMAR_CORE_EXPORT std::string_view KindName(Variant::Kind kind) noexcept;
/// The kind of a `KindName`; nullopt for any other text (names are case-sensitive).
[[nodiscard]] QUILLMAR_CORE_EXPORT std::optional<Variant::Kind> KindFromName(std::string_view name) noexcept;

} // namespace quillmar
