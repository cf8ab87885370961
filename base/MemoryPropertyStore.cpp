#include "base/MemoryPropertyStore.h"

#include "base/Utf8.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace quillmar {
namespace {

using Json = nlohmann::json;

constexpr std::array<std::string_view, 12> kKindNames = { "Empty", "Boolean", "String", "Byte", "Integer",
    "Long", "Single", "Double", "Currency", "Date", "ByteArray", "Array" };

// Builds the CBOR items into a tree and refuses, by stopping the reader, anything the store never writes
// (maps) and anything that would make the tree deeper or larger than the limits. The reader itself
// recurses once per nesting level, so the depth has to be refused while reading, not afterwards.
class BoundedTreeBuilder {
public:
    explicit BoundedTreeBuilder(size_t byteCount)
        : m_byteCount(byteCount) { }

    bool null() { return Add(Json(nullptr)); }
    bool boolean(bool value) { return Add(Json(value)); }
    bool number_integer(Json::number_integer_t value) { return Add(Json(value)); }
    bool number_unsigned(Json::number_unsigned_t value) { return Add(Json(value)); }
    bool number_float(Json::number_float_t value, const Json::string_t&) { return Add(Json(value)); }
    bool string(Json::string_t& value) { return Add(Json(std::move(value))); }
    bool binary(Json::binary_t& value) { return Add(Json::binary(std::move(value))); }
    bool start_object(std::size_t) { return false; }
    bool key(Json::string_t&) { return false; }
    bool end_object() { return false; }
    bool start_array(std::size_t count) {
        if (m_open.size() >= MemoryPropertyStore::MaxDepth) return false;
        // Every item takes at least one byte, and each item read so far, this array's head included, took
        // one: a declared count beyond what is left cannot be met and is refused before the items are read.
        const size_t read = m_items + 1;
        const size_t left = read < m_byteCount ? m_byteCount - read : 0;
        if (count != kIndefiniteCount && count > left) return false;
        if (!Add(Json::array())) return false;
        m_open.push_back(m_last);
        return true;
    }
    bool end_array() {
        m_open.pop_back();
        return true;
    }
    bool parse_error(std::size_t, const std::string&, const Json::exception&) { return false; }

    Json root;

private:
    bool Add(Json value) {
        if (++m_items > MemoryPropertyStore::MaxItems) return false;
        if (m_open.empty()) {
            root = std::move(value);
            m_last = &root;
        } else {
            Json& array = *m_open.back();
            array.push_back(std::move(value));
            m_last = &array.back();
        }
        return true;
    }

    // How the reader reports an array whose length is not declared.
    static constexpr size_t kIndefiniteCount = static_cast<size_t>(-1);

    size_t m_byteCount;
    std::vector<Json*> m_open;
    Json* m_last = nullptr;
    size_t m_items = 0;
};

template <typename Int> std::optional<Int> IntegerOf(const Json& payload) {
    if (payload.is_number_unsigned()) {
        const auto value = payload.get<Json::number_unsigned_t>();
        if (value > static_cast<Json::number_unsigned_t>(std::numeric_limits<Int>::max()))
            return std::nullopt;
        return static_cast<Int>(value);
    }
    if (payload.is_number_integer()) {
        const auto value = payload.get<Json::number_integer_t>();
        if (value < static_cast<Json::number_integer_t>(std::numeric_limits<Int>::min())
            || value > static_cast<Json::number_integer_t>(std::numeric_limits<Int>::max()))
            return std::nullopt;
        return static_cast<Int>(value);
    }
    return std::nullopt;
}

Json EncodeValue(const Variant& value);

Json EncodePair(const Variant& value) {
    return Json::array({ std::string(KindName(value.kind())), EncodeValue(value) });
}

Json EncodeValue(const Variant& value) {
    switch (value.kind()) {
    case Variant::Kind::Empty:
        return Json(nullptr);
    case Variant::Kind::Boolean:
        return Json(value.AsBoolean());
    case Variant::Kind::String:
        return Json(ToUtf8(value.AsString()));
    case Variant::Kind::Byte:
        return Json(value.AsByte());
    case Variant::Kind::Integer:
        return Json(value.AsInteger());
    case Variant::Kind::Long:
        return Json(value.AsLong());
    case Variant::Kind::Single:
        return Json(static_cast<double>(value.AsSingle()));
    case Variant::Kind::Double:
        return Json(value.AsDouble());
    case Variant::Kind::Currency:
        return Json(value.AsCurrency().ticks);
    case Variant::Kind::Date:
        return Json(value.AsDate().days);
    case Variant::Kind::Bytes:
        return Json::binary(value.AsBytes());
    case Variant::Kind::Array: {
        Json items = Json::array();
        for (const Variant& item : value.AsArray())
            items.push_back(EncodePair(item));
        return items;
    }
    }
    return Json(nullptr);
}

std::optional<Variant> DecodeValue(const Json& kindName, const Json& payload);

std::optional<Variant> DecodeArray(const Json& payload) {
    if (!payload.is_array()) return std::nullopt;
    VariantArray items;
    items.reserve(payload.size());
    for (const Json& pair : payload) {
        if (!pair.is_array() || pair.size() != 2) return std::nullopt;
        auto item = DecodeValue(pair[0], pair[1]);
        if (!item) return std::nullopt;
        items.push_back(std::move(*item));
    }
    return Variant(std::move(items));
}

std::optional<Variant> DecodeValue(const Json& kindName, const Json& payload) {
    if (!kindName.is_string()) return std::nullopt;
    const auto kind = KindFromName(kindName.get_ref<const Json::string_t&>());
    if (!kind) return std::nullopt;
    switch (*kind) {
    case Variant::Kind::Empty:
        if (!payload.is_null()) return std::nullopt;
        return Variant();
    case Variant::Kind::Boolean:
        if (!payload.is_boolean()) return std::nullopt;
        return Variant(payload.get<bool>());
    case Variant::Kind::String: {
        if (!payload.is_string()) return std::nullopt;
        auto text = FromUtf8(payload.get_ref<const Json::string_t&>());
        if (!text) return std::nullopt;
        return Variant(std::move(*text));
    }
    case Variant::Kind::Byte:
        if (const auto value = IntegerOf<uint8_t>(payload)) return Variant(*value);
        return std::nullopt;
    case Variant::Kind::Integer:
        if (const auto value = IntegerOf<int16_t>(payload)) return Variant(*value);
        return std::nullopt;
    case Variant::Kind::Long:
        if (const auto value = IntegerOf<int32_t>(payload)) return Variant(*value);
        return std::nullopt;
    case Variant::Kind::Currency:
        if (const auto value = IntegerOf<int64_t>(payload)) return Variant(Currency { *value });
        return std::nullopt;
    case Variant::Kind::Single: {
        if (!payload.is_number_float()) return std::nullopt;
        const double value = payload.get<double>();
        // A finite double beyond the float range has no float to become.
        if (std::isfinite(value) && std::fabs(value) > std::numeric_limits<float>::max()) return std::nullopt;
        return Variant(static_cast<float>(value));
    }
    case Variant::Kind::Double:
        if (!payload.is_number_float()) return std::nullopt;
        return Variant(payload.get<double>());
    case Variant::Kind::Date:
        if (!payload.is_number_float()) return std::nullopt;
        return Variant(Date { payload.get<double>() });
    case Variant::Kind::Bytes:
        if (!payload.is_binary()) return std::nullopt;
        return Variant(ByteArray(payload.get_binary()));
    case Variant::Kind::Array:
        return DecodeArray(payload);
    }
    return std::nullopt;
}

} // namespace

Variant MemoryPropertyStore::ReadProperty(std::u16string_view key, const Variant& defaultValue) const {
    const Variant* value = Find(key);
    return value ? *value : defaultValue;
}

void MemoryPropertyStore::WriteProperty(
    std::u16string_view key, const Variant& value, const Variant& defaultValue) {
    const auto found = m_index.find(key);
    if (!defaultValue.IsEmpty() && value == defaultValue) {
        if (found == m_index.end()) return;
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(found->second));
        Reindex();
        return;
    }
    if (found != m_index.end()) {
        m_entries[found->second].value = value;
        return;
    }
    m_index.emplace(std::u16string(key), m_entries.size());
    m_entries.push_back({ std::u16string(key), value });
}

const Variant* MemoryPropertyStore::Find(std::u16string_view key) const {
    const auto found = m_index.find(key);
    return found == m_index.end() ? nullptr : &m_entries[found->second].value;
}

void MemoryPropertyStore::Reindex() {
    m_index.clear();
    for (size_t i = 0; i < m_entries.size(); ++i)
        m_index.emplace(m_entries[i].key, i);
}

ByteArray MemoryPropertyStore::ToBytes() const {
    Json entries = Json::array();
    for (const auto& [key, value] : m_entries)
        entries.push_back(
            Json::array({ ToUtf8(key), std::string(KindName(value.kind())), EncodeValue(value) }));
    return Json::to_cbor(entries);
}

std::optional<MemoryPropertyStore> MemoryPropertyStore::FromBytes(std::span<const uint8_t> bytes) {
    if (bytes.size() > MaxBytes) return std::nullopt;
    BoundedTreeBuilder builder(bytes.size());
    try {
        if (!Json::sax_parse(bytes.begin(), bytes.end(), &builder, Json::input_format_t::cbor))
            return std::nullopt;
    } catch (const Json::exception&) {
        return std::nullopt;
    }
    const Json& root = builder.root;
    if (!root.is_array()) return std::nullopt;
    MemoryPropertyStore store;
    store.m_entries.reserve(root.size());
    for (const Json& entry : root) {
        if (!entry.is_array() || entry.size() != 3 || !entry[0].is_string()) return std::nullopt;
        auto key = FromUtf8(entry[0].get_ref<const Json::string_t&>());
        if (!key || store.m_index.contains(*key)) return std::nullopt;
        auto value = DecodeValue(entry[1], entry[2]);
        if (!value) return std::nullopt;
        store.m_index.emplace(*key, store.m_entries.size());
        store.m_entries.push_back({ std::move(*key), std::move(*value) });
    }
    return store;
}

std::string_view KindName(Variant::Kind kind) noexcept {
    const auto index = static_cast<size_t>(kind);
    return index < kKindNames.size() ? kKindNames[index] : std::string_view();
}

std::optional<Variant::Kind> KindFromName(std::string_view name) noexcept {
    for (size_t i = 0; i < kKindNames.size(); ++i)
        if (kKindNames[i] == name) return static_cast<Variant::Kind>(i);
    return std::nullopt;
}

} // namespace quillmar
