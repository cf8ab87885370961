#include "formfile/FormEntries.h"

#include "base/Utf8.h"
#include "formfile/EntryJson.h"
#include "formfile/ReadableEntries.h"

#include <cmath>

namespace quillmar {
namespace formtext {

std::optional<Variant> PlainValueFromJson(Variant::Kind kind, const Json& value) {
    switch (kind) {
    case Variant::Kind::Empty:
        if (value.is_null()) return Variant();
        break;
    case Variant::Kind::Boolean:
        if (value.is_boolean()) return Variant(value.get<bool>());
        break;
    case Variant::Kind::Byte:
        if (const auto number = IntegerOf<uint8_t>(value)) return Variant(*number);
        break;
    case Variant::Kind::Integer:
        if (const auto number = IntegerOf<int16_t>(value)) return Variant(*number);
        break;
    case Variant::Kind::Long:
        if (const auto number = IntegerOf<int32_t>(value)) return Variant(*number);
        break;
    case Variant::Kind::Single:
        if (value.is_number() && std::fabs(value.get<double>()) <= std::numeric_limits<float>::max())
            return Variant(static_cast<float>(value.get<double>()));
        break;
    case Variant::Kind::Double:
        if (value.is_number()) return Variant(value.get<double>());
        break;
    case Variant::Kind::Currency:
        if (value.is_string())
            if (const auto amount = CurrencyFrom(value.get_ref<const std::string&>()))
                return Variant(*amount);
        break;
    default:
        break;
    }
    return std::nullopt;
}

namespace {

constexpr int kMaxDepth = 64;
// Entries that hold nested property stores; bytes that are no store mean the file is damaged.
constexpr std::array<std::u16string_view, 3> kStoreEntries = { u"Font", u"MustNotBeValues", u"Actions" };
constexpr std::array<const char*, 2> kEntryFields = { "type", "value" };

std::optional<Variant> EntryFromJson(const Json& entry, std::string& fault);
std::optional<MemoryPropertyStore> StoreFromJson(const Json& entries, std::string& fault);

// The value of one kind, or the fault in `fault`.
std::optional<Variant> ValueFromJson(Variant::Kind kind, const Json& value, std::string& fault) {
    std::optional<Variant> result;
    switch (kind) {
    case Variant::Kind::String:
        if (value.is_string())
            if (auto text = FromUtf8(value.get_ref<const std::string&>())) result = Variant(std::move(*text));
        break;
    case Variant::Kind::Empty:
    case Variant::Kind::Boolean:
    case Variant::Kind::Byte:
    case Variant::Kind::Integer:
    case Variant::Kind::Long:
    case Variant::Kind::Single:
    case Variant::Kind::Double:
    case Variant::Kind::Currency:
        result = PlainValueFromJson(kind, value);
        break;
    case Variant::Kind::Date:
        if (value.is_number()) result = Variant(Date { value.get<double>() });
        break;
    case Variant::Kind::Bytes:
        // A nested store may be written as its readable entries instead of base64.
        if (value.is_object()) {
            if (auto nested = StoreFromJson(value, fault)) return Variant(nested->ToBytes());
            return std::nullopt;
        }
        if (!value.is_string()) break;
        if (auto bytes = Base64Decode(value.get_ref<const std::string&>(), fault))
            return Variant(std::move(*bytes));
        return std::nullopt;
    case Variant::Kind::Array: {
        if (!value.is_array()) break;
        VariantArray items;
        for (size_t i = 0; i < value.size(); ++i) {
            auto item = EntryFromJson(value[i], fault);
            if (!item) {
                fault = "item " + std::to_string(i) + ": " + fault;
                return std::nullopt;
            }
            items.push_back(std::move(*item));
        }
        return Variant(std::move(items));
    }
    }
    if (!result) fault = "expected a value of type " + std::string(KindName(kind)) + ", got " + Shown(value);
    return result;
}

std::optional<Variant> EntryFromJson(const Json& entry, std::string& fault) {
    if (!entry.is_object()) {
        fault = "expected an object with \"type\" and \"value\", got " + Shown(entry);
        return std::nullopt;
    }
    const auto type = entry.find("type");
    const auto value = entry.find("value");
    if (type == entry.end() || value == entry.end()) {
        fault = std::string("missing field \"") + (type == entry.end() ? "type" : "value") + "\"";
        return std::nullopt;
    }
    if (auto unknown = UnknownField(entry, kEntryFields, "an entry")) {
        fault = std::move(*unknown);
        return std::nullopt;
    }
    const auto kind = type->is_string() ? KindFromName(type->get_ref<const std::string&>()) : std::nullopt;
    if (!kind) {
        fault = "unknown type " + Shown(*type);
        return std::nullopt;
    }
    return ValueFromJson(*kind, *value, fault);
}

std::optional<MemoryPropertyStore> StoreFromJson(const Json& entries, std::string& fault) {
    MemoryPropertyStore store;
    for (const auto& [key, entry] : entries.items()) {
        const auto key16 = FromUtf8(key);
        if (!key16) {
            fault = "the key " + Quoted(key) + " is not UTF-8";
            return std::nullopt;
        }
        auto value = EntryFromJson(entry, fault);
        if (!value) {
            fault = "entry " + Quoted(key) + ": " + fault;
            return std::nullopt;
        }
        store.WriteProperty(*key16, *value, Variant());
    }
    return store;
}

bool IsStoreEntry(std::u16string_view key) {
    return std::find(kStoreEntries.begin(), kStoreEntries.end(), key) != kStoreEntries.end();
}

} // namespace

std::optional<Json> ParseLimited(std::string_view json, std::string& fault) {
    bool tooDeep = false;
    const Json::parser_callback_t limitDepth = [&tooDeep](int depth, Json::parse_event_t event, Json&) {
        const bool opens
            = event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start;
        if (depth < kMaxDepth || !opens) return true;
        tooDeep = true;
        return false;
    };
    Json root;
    try {
        root = Json::parse(json.begin(), json.end(), limitDepth);
    } catch (const Json::parse_error& error) {
        std::string what = error.what();
        if (const size_t end = what.find("] "); end != std::string::npos) what.erase(0, end + 2);
        // The parser quotes the bytes it last read, which need not be text; the position says enough.
        if (const size_t quote = what.find("; last read:"); quote != std::string::npos) what.erase(quote);
        fault = "not a JSON document: " + what;
        return std::nullopt;
    } catch (const Json::exception& error) {
        fault = std::string("not a JSON document: ") + error.what();
        return std::nullopt;
    }
    if (tooDeep) {
        fault = "nesting deeper than " + std::to_string(kMaxDepth) + " levels";
        return std::nullopt;
    }
    return root;
}

bool ReadEntries(const Json& properties, Location& where, MemoryPropertyStore& store, std::string& error) {
    if (!properties.is_object()) {
        error = where.Line("field \"properties\": expected an object, got " + Shown(properties));
        return false;
    }
    for (const auto& [key, entry] : properties.items()) {
        where.entry = "entry " + Quoted(key);
        const auto key16 = FromUtf8(key);
        std::string fault = "the key is not UTF-8";
        // An entry of the older notation names its type; the readable notation gives the value itself.
        auto value = !key16            ? std::nullopt
            : IsTypeTaggedEntry(entry) ? EntryFromJson(entry, fault)
                                       : ReadableEntryFromJson(*key16, entry, fault);
        if (value && IsStoreEntry(*key16)
            && (value->kind() != Variant::Kind::Bytes || !MemoryPropertyStore::FromBytes(value->AsBytes()))) {
            fault = "expected a value of type ByteArray holding a property store";
            value.reset();
        }
        if (!value) {
            error = where.Line(fault);
            return false;
        }
        store.WriteProperty(*key16, *value, Variant());
    }
    where.entry.clear();
    return true;
}

} // namespace formtext

using formtext::Json;
using formtext::Location;

EntriesResult EntriesFromJson(std::string_view json, std::string_view sourceName) {
    const Location where { sourceName, {}, {} };
    std::string fault;
    const std::optional<Json> root = formtext::ParseLimited(json, fault);
    if (!root) return { std::nullopt, where.Line(fault) };
    if (!root->is_object())
        return { std::nullopt, where.Line("expected a JSON object, got " + formtext::Shown(*root)) };
    Location entryWhere = where;
    std::string error;
    MemoryPropertyStore entries;
    if (!formtext::ReadEntries(*root, entryWhere, entries, error)) return { std::nullopt, std::move(error) };
    return { std::move(entries), {} };
}

std::string EntriesToJson(const MemoryPropertyStore& entries) {
    std::string out = "{";
    const auto& list = entries.Entries();
    for (size_t i = 0; i < list.size(); ++i)
        out += (i == 0 ? "\n  " : ",\n  ") + Json(ToUtf8(list[i].key)).dump() + ": "
            + formtext::ReadableEntryText(list[i].key, list[i].value);
    return out + (list.empty() ? "}" : "\n}");
}

} // namespace quillmar
