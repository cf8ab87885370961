#include "control/FormFile.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <system_error>

namespace quillmar {
namespace {

using Json = nlohmann::ordered_json;
using standalone::FromUtf8;
using standalone::KindFromName;
using standalone::KindName;
using standalone::MemoryPropertyStore;
using standalone::ToUtf8;

constexpr uintmax_t kMaxFormBytes = uintmax_t { 16 } << 20;
constexpr int kMaxDepth = 64;
constexpr size_t kShownValueLength = 40;
// Entries that hold nested property stores; bytes that are no store mean the file is damaged.
constexpr std::array<std::u16string_view, 3> kStoreEntries = { u"Font", u"MustNotBeValues", u"Actions" };
constexpr std::string_view kBase64Alphabet
    = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string Shown(const Json& value) {
    std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
    if (text.size() > kShownValueLength) text = text.substr(0, kShownValueLength) + "...";
    return text;
}

// A name in double quotes, its line breaks and other control characters escaped as JSON writes them, so that
// an error stays one line whatever a damaged file holds.
std::string Quoted(std::string_view utf8) {
    return Json(std::string(utf8)).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Quoted(std::u16string_view text) {
    return Quoted(ToUtf8(text));
}

// Where a fault lies: the source, then the control and the entry once they are known.
struct Location {
    std::string_view source;
    std::string control;
    std::string entry;

    [[nodiscard]] std::string Line(std::string_view what) const {
        std::string line(source);
        line += ": ";
        if (!control.empty()) line += "control " + control + (entry.empty() ? ": " : ", ");
        if (!entry.empty()) line += "entry " + entry + ": ";
        line += what;
        // A fault's own description never breaks the line either.
        for (char& c : line)
            if (static_cast<unsigned char>(c) < 0x20) c = ' ';
        return line;
    }
};

std::string Base64Encode(const ByteArray& bytes) {
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    for (size_t i = 0; i < bytes.size(); i += 3) {
        const size_t count = std::min<size_t>(3, bytes.size() - i);
        uint32_t group = uint32_t { bytes[i] } << 16;
        if (count > 1) group |= uint32_t { bytes[i + 1] } << 8;
        if (count > 2) group |= bytes[i + 2];
        for (size_t k = 0; k < 4; ++k)
            out.push_back(k <= count ? kBase64Alphabet[(group >> (18 - 6 * k)) & 0x3F] : '=');
    }
    return out;
}

// Strict base64 with padding: groups of four characters, "=" only at the end of the last group.
std::optional<ByteArray> Base64Decode(std::string_view text, std::string& fault) {
    if (text.size() % 4 != 0) {
        fault = "invalid base64: the length " + std::to_string(text.size()) + " is not a multiple of 4";
        return std::nullopt;
    }
    ByteArray bytes;
    bytes.reserve(text.size() / 4 * 3);
    for (size_t i = 0; i < text.size(); i += 4) {
        size_t padding = 0;
        if (i + 4 == text.size() && text[i + 3] == '=') padding = text[i + 2] == '=' ? 2 : 1;
        uint32_t group = 0;
        for (size_t k = 0; k < 4 - padding; ++k) {
            const size_t digit = kBase64Alphabet.find(text[i + k]);
            if (digit == std::string_view::npos) {
                fault = "invalid base64: unexpected character at offset " + std::to_string(i + k);
                return std::nullopt;
            }
            group = (group << 6) | static_cast<uint32_t>(digit);
        }
        group <<= 6 * padding;
        bytes.push_back(static_cast<uint8_t>(group >> 16));
        if (padding < 2) bytes.push_back(static_cast<uint8_t>(group >> 8));
        if (padding < 1) bytes.push_back(static_cast<uint8_t>(group));
    }
    return bytes;
}

std::string CurrencyText(Currency amount) {
    const bool negative = amount.ticks < 0;
    const uint64_t magnitude
        = negative ? 0 - static_cast<uint64_t>(amount.ticks) : static_cast<uint64_t>(amount.ticks);
    std::string text = (negative ? "-" : "") + std::to_string(magnitude / 10000);
    if (const uint64_t fraction = magnitude % 10000; fraction != 0) {
        std::string digits = std::to_string(fraction);
        digits.insert(0, 4 - digits.size(), '0');
        digits.erase(digits.find_last_not_of('0') + 1);
        text += "." + digits;
    }
    return text;
}

// "-12.3456": an optional minus, digits, and optionally a point and one to four digits.
std::optional<Currency> CurrencyFrom(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative) text.remove_prefix(1);
    const size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction
        = point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
    const auto isDigits
        = [](std::string_view s) { return s.find_first_not_of("0123456789") == std::string_view::npos; };
    if (whole.empty() || !isDigits(whole) || !isDigits(fraction) || fraction.size() > 4
        || (point != std::string_view::npos && fraction.empty()))
        return std::nullopt;
    const uint64_t limit = negative ? uint64_t { 1 } << 63 : (uint64_t { 1 } << 63) - 1;
    uint64_t ticks = 0;
    for (size_t i = 0; i < whole.size() + 4; ++i) {
        const char digit = i < whole.size()
            ? whole[i]
            : (i - whole.size() < fraction.size() ? fraction[i - whole.size()] : '0');
        const auto value = static_cast<uint64_t>(digit - '0');
        if (ticks > (limit - value) / 10) return std::nullopt;
        ticks = ticks * 10 + value;
    }
    return Currency { negative ? static_cast<int64_t>(0 - ticks) : static_cast<int64_t>(ticks) };
}

// A float written by its shortest text, so that 0.1f reads "0.1" in the file and comes back as 0.1f.
double SingleAsDouble(float value) {
    if (!std::isfinite(value)) return value;
    std::array<char, 32> buffer {};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    double result = value;
    std::from_chars(buffer.data(), written.ptr, result);
    return result;
}

Json EntryToJson(const Variant& value);
std::optional<MemoryPropertyStore> StoreFromJson(const Json& entries, std::string& fault);

Json ValueToJson(const Variant& value) {
    switch (value.kind()) {
    case Variant::Kind::Empty:
        return nullptr;
    case Variant::Kind::Boolean:
        return value.AsBoolean();
    case Variant::Kind::String:
        return ToUtf8(value.AsString());
    case Variant::Kind::Byte:
        return value.AsByte();
    case Variant::Kind::Integer:
        return value.AsInteger();
    case Variant::Kind::Long:
        return value.AsLong();
    case Variant::Kind::Single:
        return SingleAsDouble(value.AsSingle());
    case Variant::Kind::Double:
        return value.AsDouble();
    case Variant::Kind::Currency:
        return CurrencyText(value.AsCurrency());
    case Variant::Kind::Date:
        return value.AsDate().days;
    case Variant::Kind::Bytes:
        return Base64Encode(value.AsBytes());
    case Variant::Kind::Array: {
        Json items = Json::array();
        for (const Variant& item : value.AsArray())
            items.push_back(EntryToJson(item));
        return items;
    }
    }
    return nullptr;
}

Json EntryToJson(const Variant& value) {
    Json entry = Json::object();
    entry["type"] = std::string(KindName(value.kind()));
    entry["value"] = ValueToJson(value);
    return entry;
}

template <typename Int> std::optional<Int> IntegerOf(const Json& value) {
    if (value.is_number_unsigned()) {
        const auto number = value.get<uint64_t>();
        if (number > static_cast<uint64_t>(std::numeric_limits<Int>::max())) return std::nullopt;
        return static_cast<Int>(number);
    }
    if (!value.is_number_integer()) return std::nullopt;
    const auto number = value.get<int64_t>();
    if (number < std::numeric_limits<Int>::min() || number > std::numeric_limits<Int>::max())
        return std::nullopt;
    return static_cast<Int>(number);
}

std::optional<Variant> EntryFromJson(const Json& entry, std::string& fault);

// The value of one kind, or the fault in `fault`.
std::optional<Variant> ValueFromJson(Variant::Kind kind, const Json& value, std::string& fault) {
    std::optional<Variant> result;
    switch (kind) {
    case Variant::Kind::Empty:
        if (value.is_null()) result = Variant();
        break;
    case Variant::Kind::Boolean:
        if (value.is_boolean()) result = Variant(value.get<bool>());
        break;
    case Variant::Kind::String:
        if (value.is_string())
            if (auto text = FromUtf8(value.get_ref<const std::string&>())) result = Variant(std::move(*text));
        break;
    case Variant::Kind::Byte:
        if (const auto number = IntegerOf<uint8_t>(value)) result = Variant(*number);
        break;
    case Variant::Kind::Integer:
        if (const auto number = IntegerOf<int16_t>(value)) result = Variant(*number);
        break;
    case Variant::Kind::Long:
        if (const auto number = IntegerOf<int32_t>(value)) result = Variant(*number);
        break;
    case Variant::Kind::Single:
        if (value.is_number() && std::fabs(value.get<double>()) <= std::numeric_limits<float>::max())
            result = Variant(static_cast<float>(value.get<double>()));
        break;
    case Variant::Kind::Double:
        if (value.is_number()) result = Variant(value.get<double>());
        break;
    case Variant::Kind::Currency:
        if (value.is_string())
            if (const auto amount = CurrencyFrom(value.get_ref<const std::string&>()))
                result = Variant(*amount);
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

// One entry on one line; a nested store of a store entry as its readable entries, any other bytes as base64.
std::string ReadableEntryText(std::u16string_view key, const Variant& value) {
    std::string text = "{\"type\": \"" + std::string(KindName(value.kind())) + "\", \"value\": ";
    const auto nested = IsStoreEntry(key) && value.kind() == Variant::Kind::Bytes
        ? MemoryPropertyStore::FromBytes(value.AsBytes())
        : std::nullopt;
    if (nested) {
        text += "{";
        const auto& entries = nested->Entries();
        for (size_t i = 0; i < entries.size(); ++i)
            text += (i == 0 ? "" : ", ") + Json(ToUtf8(entries[i].key)).dump() + ": "
                + ReadableEntryText(u"", entries[i].value);
        text += "}";
    } else {
        text += ValueToJson(value).dump();
    }
    return text + "}";
}

// Parses JSON text, refusing nesting deeper than kMaxDepth; the fault is one line without the parser's bytes.
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

// Reads the fields of one JSON object, recording the first fault.
class FieldReader {
public:
    FieldReader(const Json& object, const Location& where, std::string& error)
        : m_object(object)
        , m_where(where)
        , m_error(error) { }

    const Json* Field(const char* name) {
        const auto found = m_object.find(name);
        if (found != m_object.end()) return &*found;
        Fail(std::string("missing field \"") + name + "\"");
        return nullptr;
    }

    std::optional<std::u16string> Text(const char* name) {
        const Json* field = Field(name);
        if (!field) return std::nullopt;
        if (field->is_string())
            if (auto text = FromUtf8(field->get_ref<const std::string&>())) return text;
        Fail(std::string("field \"") + name + "\": expected a text, got " + Shown(*field));
        return std::nullopt;
    }

    std::optional<int32_t> Integer(const char* name, bool allowNegative) {
        const Json* field = Field(name);
        if (!field) return std::nullopt;
        const auto number = IntegerOf<int32_t>(*field);
        if (number && (allowNegative || *number >= 0)) return number;
        Fail(std::string("field \"") + name + "\": expected " + (allowNegative ? "an" : "a non-negative")
            + " integer, got " + Shown(*field));
        return std::nullopt;
    }

    void Fail(std::string_view what) {
        if (m_error.empty()) m_error = m_where.Line(what);
    }

private:
    const Json& m_object;
    const Location& m_where;
    std::string& m_error;
};

bool ReadEntries(const Json& properties, Location& where, MemoryPropertyStore& store, std::string& error) {
    if (!properties.is_object()) {
        error = where.Line("field \"properties\": expected an object, got " + Shown(properties));
        return false;
    }
    for (const auto& [key, entry] : properties.items()) {
        where.entry = Quoted(key);
        const auto key16 = FromUtf8(key);
        std::string fault = "the key is not UTF-8";
        auto value = key16 ? EntryFromJson(entry, fault) : std::nullopt;
        if (value && std::find(kStoreEntries.begin(), kStoreEntries.end(), *key16) != kStoreEntries.end()
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

std::optional<FormControl> ReadControl(
    const Json& object, size_t index, Location& where, std::string& error) {
    where.control = std::to_string(index + 1);
    if (!object.is_object()) {
        error = where.Line("expected an object, got " + Shown(object));
        return std::nullopt;
    }
    FieldReader fields(object, where, error);
    FormControl control;
    const auto name = fields.Text("name");
    if (!name) return std::nullopt;
    if (name->empty()) {
        fields.Fail("the name is empty");
        return std::nullopt;
    }
    where.control = Quoted(*name);
    control.name = *name;
    const auto label = fields.Text("label");
    const auto toolTip = object.contains("toolTip") ? fields.Text("toolTip") : std::u16string();
    const auto left = fields.Integer("left", true);
    const auto top = fields.Integer("top", true);
    const auto width = fields.Integer("width", false);
    const auto height = fields.Integer("height", false);
    const Json* properties = fields.Field("properties");
    if (!label || !toolTip || !left || !top || !width || !height || !properties) return std::nullopt;
    control.label = *label;
    control.toolTip = *toolTip;
    control.left = *left;
    control.top = *top;
    control.width = *width;
    control.height = *height;
    if (!ReadEntries(*properties, where, control.properties, error)) return std::nullopt;
    return control;
}

// The two lists: in a form file their bytes are written as the entries of the store they hold.
bool IsListEntry(std::u16string_view key) {
    return key == u"MustNotBeValues" || key == u"Actions";
}

// One entry of a form file on one line. A list whose bytes are exactly those its store's entries give back
// is written as those entries; anything else as its value, base64 for bytes, so that every entry reads back
// into the same bytes.
std::string FormEntryText(std::u16string_view key, const Variant& value) {
    if (IsListEntry(key) && value.kind() == Variant::Kind::Bytes)
        if (const auto nested = MemoryPropertyStore::FromBytes(value.AsBytes());
            nested && nested->ToBytes() == value.AsBytes())
            return ReadableEntryText(key, value);
    return "{\"type\": \"" + std::string(KindName(value.kind()))
        + "\", \"value\": " + ValueToJson(value).dump() + "}";
}

// What an entry may hold: the kind the control writes it in and the values its writer (or the edit box)
// accepts.
enum class Holds {
    Boolean,
    Text,
    Character, // a text of at most one character
    Integer, // a 16-bit integer within [min, max], or `also`
    Long, // a 32-bit integer within [min, max]
    Colour, // a 32-bit integer, any bit pattern
    FontSize, // a single above 0 and at most max points
    Value, // any single value: Empty, a text, a number, a date
    Font, // bytes holding a property store
    Picture, // any bytes
    ValueList, // bytes holding the store of a list of single values
    ActionList, // bytes holding the store of a list of three action flag words
};

struct EntryRule {
    std::u16string_view key;
    Holds holds;
    int32_t min = 0;
    int32_t max = 0;
    int32_t also = 0; // one more accepted value, outside [min, max]; equal to min when there is none
};

constexpr int32_t kInt32Max = std::numeric_limits<int32_t>::max();

// Every entry `WriteProperties` writes, with the values the control's writers and the edit box accept.
constexpr EntryRule kEntryRules[] = {
    { u"MustBePositive", Holds::Boolean }, { u"MustBeNegative", Holds::Boolean },
    { u"Beeping", Holds::Boolean }, { u"MustBeUpperCase", Holds::Boolean },
    { u"MustBeLowerCase", Holds::Boolean }, { u"NoDigits", Holds::Boolean },
    { u"OnlyLetters", Holds::Boolean }, { u"AllowScientificFormat", Holds::Boolean },
    { u"MaxLength", Holds::Long, 0, kInt32Max }, { u"FinalValidationActive", Holds::Boolean },
    { u"ValidCharactersSet", Holds::Text }, { u"Font", Holds::Font }, { u"Text", Holds::Text },
    { u"OnlyLettersWithSpace", Holds::Boolean }, { u"ExtraExcludedCharacters", Holds::Text },
    { u"ExtraIncludedCharacters", Holds::Text }, { u"RequiredField", Holds::Boolean },
    { u"ThousandSeparator", Holds::Integer, vldTSForbidden, vldTSAllowed },
    { u"MaxNumberOfDecimals", Holds::Integer, 0, 32 }, { u"CustomMask", Holds::Text },
    { u"DefaultValue", Holds::Value }, { u"MinValue", Holds::Value }, { u"MaxValue", Holds::Value },
    { u"MustNotBeZero", Holds::Boolean }, { u"MustNotBeValues", Holds::ValueList },
    { u"Actions", Holds::ActionList }, { u"ShowErrorMessage", Holds::Boolean },
    { u"ValidationMode", Holds::Integer, vldAutomatic, vldSemiAutomatic },
    { u"MustBeProperCase", Holds::Boolean }, { u"MessageBoxTitle", Holds::Text },
    { u"ErrorMessageMode", Holds::Integer, vldAutoBasic, vldCustom, vldAutoBasic },
    { u"MustBeType", Holds::Long, vldUnspecified, vldTime }, { u"OnErrorSelectEntireField", Holds::Boolean },
    { u"InputSifting", Holds::Integer, vldNone, vldStrong },
    { u"MaxRelativeAccuracy", Holds::Integer, 0, 32 },
    { u"MessageBoxIcon", Holds::Integer, vldMBINone, vldMBIQuestion }, { u"ErrorMessage", Holds::Text },
    { u"Enabled", Holds::Boolean }, { u"SelLength", Holds::Long, 0, kInt32Max },
    { u"SelStart", Holds::Long, 0, kInt32Max }, { u"ShowAsUnderstood", Holds::Boolean },
    { u"Alignment", Holds::Integer, 0, 2 }, // left, right, centre
    { u"Appearance", Holds::Integer, vldFlat, vld3D }, { u"BackColor", Holds::Colour },
    { u"ForeColor", Holds::Colour }, { u"BorderStyle", Holds::Integer, vldNoBorder, vldFixedSingle },
    { u"Locked", Holds::Boolean }, { u"PasswordChar", Holds::Character }, { u"RightToLeft", Holds::Boolean },
    { u"MousePointer", Holds::Integer, 0, 15, 99 }, // the standard pointers, and 99 for the field's icon
    { u"MouseIcon", Holds::Picture }, { u"FontBold", Holds::Boolean }, { u"FontUnderline", Holds::Boolean },
    { u"FontStrikethru", Holds::Boolean }, { u"FontSize", Holds::FontSize, 0, 2048 },
    { u"FontName", Holds::Text }, { u"FontItalic", Holds::Boolean },
    { u"OLEDragMode", Holds::Integer, 0, 1 }, // manual, automatic
    { u"OLEDropMode", Holds::Integer, 0, 2 }, // none, manual, automatic
};

const EntryRule* RuleOf(std::u16string_view key) {
    for (const EntryRule& rule : kEntryRules)
        if (rule.key == key) return &rule;
    return nullptr;
}

std::string KindFault(Variant::Kind expected, Variant::Kind got) {
    return "expected a value of type " + std::string(KindName(expected)) + ", got type "
        + std::string(KindName(got));
}

std::optional<std::string> RangeFault(const EntryRule& rule, int64_t value) {
    if ((value >= rule.min && value <= rule.max) || (rule.also != rule.min && value == rule.also))
        return std::nullopt;
    std::string range = rule.max == kInt32Max ? std::to_string(rule.min) + " or more"
                                              : std::to_string(rule.min) + " to " + std::to_string(rule.max);
    if (rule.also != rule.min) range += " or " + std::to_string(rule.also);
    return "expected " + range + ", got " + std::to_string(value);
}

bool IsSingleValue(Variant::Kind kind) {
    return kind != Variant::Kind::Bytes && kind != Variant::Kind::Array;
}

std::optional<int64_t> WholeNumber(const Variant& value) {
    switch (value.kind()) {
    case Variant::Kind::Byte:
        return value.AsByte();
    case Variant::Kind::Integer:
        return value.AsInteger();
    case Variant::Kind::Long:
        return value.AsLong();
    default:
        return std::nullopt;
    }
}

// A list's store: "NEl", the count as an Integer (absent for none), and the items "1N" to its count,
// nothing else; each item passes `itemFault`.
std::optional<std::string> ListFault(const Variant& value, bool actions) {
    const auto nested = MemoryPropertyStore::FromBytes(value.AsBytes());
    if (!nested) return "expected a value of type ByteArray holding a property store";
    const Variant* count = nested->Find(u"NEl");
    if (count && count->kind() != Variant::Kind::Integer)
        return "item \"NEl\": " + KindFault(Variant::Kind::Integer, count->kind());
    const int64_t items = count ? count->AsInteger() : 0;
    if (actions && items != 3) return "expected 3 actions, got " + std::to_string(items);
    if (items < 0) return "item \"NEl\": expected 0 or more, got " + std::to_string(items);
    if (nested->Entries().size() != static_cast<size_t>(items) + (count ? 1 : 0))
        return "expected \"NEl\" and the items \"1N\" to \"" + std::to_string(items) + "N\" only";
    for (int64_t i = 1; i <= items; ++i) {
        const std::string key = std::to_string(i) + "N";
        const Variant* item = nested->Find(*FromUtf8(key));
        if (!item) return "item " + Quoted(key) + " is missing";
        if (!actions && !IsSingleValue(item->kind()))
            return "item " + Quoted(key) + ": expected a single value, got type "
                + std::string(KindName(item->kind()));
        if (!actions) continue;
        const auto flags = WholeNumber(*item);
        const auto action = flags.value_or(0) & ~int64_t { vldACChecked };
        if (!flags || *flags < 0
            || (action != vldACReturnPrevious && action != vldACInsertDefault
                && action != vldACInsertClosest))
            return "item " + Quoted(key) + ": expected an action (8, 16 or 32, plus 1 when checked), got "
                + (flags ? std::to_string(*flags) : "type " + std::string(KindName(item->kind())));
    }
    return std::nullopt;
}

// What is wrong with one entry of a field; nullopt when the control takes it as it is.
std::optional<std::string> EntryFault(std::u16string_view key, const Variant& value) {
    const EntryRule* rule = RuleOf(key);
    if (!rule) return "not a property of the field";
    const Variant::Kind kind = value.kind();
    const auto expect = [kind](Variant::Kind expected) -> std::optional<std::string> {
        if (kind == expected) return std::nullopt;
        return KindFault(expected, kind);
    };
    switch (rule->holds) {
    case Holds::Boolean:
        return expect(Variant::Kind::Boolean);
    case Holds::Text:
        return expect(Variant::Kind::String);
    case Holds::Character:
        if (auto fault = expect(Variant::Kind::String)) return fault;
        if (value.AsString().size() > 1)
            return "expected at most one character, got " + Quoted(value.AsString());
        return std::nullopt;
    case Holds::Integer:
        if (auto fault = expect(Variant::Kind::Integer)) return fault;
        return RangeFault(*rule, value.AsInteger());
    case Holds::Long:
        if (auto fault = expect(Variant::Kind::Long)) return fault;
        return RangeFault(*rule, value.AsLong());
    case Holds::Colour:
        return expect(Variant::Kind::Long);
    case Holds::FontSize: {
        if (auto fault = expect(Variant::Kind::Single)) return fault;
        const float size = value.AsSingle();
        if (std::isfinite(size) && size > 0 && size <= static_cast<float>(rule->max)) return std::nullopt;
        return "expected a point size above 0 and at most " + std::to_string(rule->max) + ", got "
            + Shown(Json(SingleAsDouble(size)));
    }
    case Holds::Value:
        if (IsSingleValue(kind)) return std::nullopt;
        return "expected a single value, got type " + std::string(KindName(kind));
    case Holds::Font:
        if (auto fault = expect(Variant::Kind::Bytes)) return fault;
        if (!MemoryPropertyStore::FromBytes(value.AsBytes()))
            return "expected a value of type ByteArray holding a property store";
        return std::nullopt;
    case Holds::Picture:
        return expect(Variant::Kind::Bytes);
    case Holds::ValueList:
    case Holds::ActionList:
        if (auto fault = expect(Variant::Kind::Bytes)) return fault;
        return ListFault(value, rule->holds == Holds::ActionList);
    }
    return std::nullopt;
}

// Names that differ only in ASCII case name the same column of the form's table.
bool SameName(std::u16string_view a, std::u16string_view b) {
    const auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; };
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [&](char16_t x, char16_t y) {
        return lower(x) == lower(y);
    });
}

std::optional<std::string> GeometryFault(const FormControl& control) {
    const auto within = [](int32_t value, int32_t min) { return value >= min && value <= kMaxFormExtent; };
    if (within(control.left, -kMaxFormExtent) && within(control.top, -kMaxFormExtent)
        && within(control.width, 0) && within(control.height, 0))
        return std::nullopt;
    return "the place or size lies outside " + std::to_string(kMaxFormExtent) + " pixels";
}

FormResult Failure(std::string error) {
    return { std::nullopt, std::move(error) };
}

// A store that only reads, remembering the last key asked for: a writer that refuses a value does so
// right after its entry was read.
class TracingStore final : public PropertyStore {
public:
    explicit TracingStore(const PropertyStore& inner)
        : m_inner(inner) { }
    [[nodiscard]] Variant ReadProperty(std::u16string_view key, const Variant& defaultValue) const override {
        m_lastKey = key;
        return m_inner.ReadProperty(key, defaultValue);
    }
    void WriteProperty(std::u16string_view, const Variant&, const Variant&) override { }
    [[nodiscard]] const std::u16string& LastKey() const noexcept { return m_lastKey; }

private:
    const PropertyStore& m_inner;
    mutable std::u16string m_lastKey;
};

std::string DescribeError(int number) {
    switch (number) {
    case PropertyError::InvalidPropertyValue:
        return "the stored value was refused with error 380 (invalid property value)";
    case PropertyError::NotSettableAtRunTime:
        return "the stored value was refused with error 382 (not settable at run time)";
    case PropertyError::NotAvailableAtRunTime:
        return "the stored value was refused with error 393 (not available at run time)";
    default:
        return "the stored value was refused with error " + std::to_string(number);
    }
}

} // namespace

FormResult ParseFormJson(std::string_view json, std::string_view sourceName) {
    Location where { sourceName, {}, {} };
    if (json.size() > kMaxFormBytes) return Failure(where.Line("the form is larger than 16 MiB"));
    std::string fault;
    const std::optional<Json> parsed = ParseLimited(json, fault);
    if (!parsed) return Failure(where.Line(fault.starts_with("nesting") ? "not a form: " + fault : fault));
    const Json& root = *parsed;
    if (!root.is_object())
        return Failure(where.Line("not a form: expected a JSON object, got " + Shown(root)));

    std::string error;
    FieldReader fields(root, where, error);
    FormDocument document;
    const auto title = fields.Text("title");
    const auto width = fields.Integer("width", false);
    const auto height = fields.Integer("height", false);
    const Json* controls = fields.Field("controls");
    if (!title || !width || !height || !controls) return Failure(std::move(error));
    if (!controls->is_array())
        return Failure(where.Line("field \"controls\": expected an array, got " + Shown(*controls)));
    if (controls->size() > kMaxFormFields)
        return Failure(where.Line("more than " + std::to_string(kMaxFormFields) + " controls"));
    document.title = *title;
    document.width = *width;
    document.height = *height;
    for (size_t i = 0; i < controls->size(); ++i) {
        auto control = ReadControl((*controls)[i], i, where, error);
        if (!control) return Failure(std::move(error));
        document.controls.push_back(std::move(*control));
    }
    if (auto fault = CheckFormDocument(document, sourceName)) return Failure(std::move(*fault));
    return { std::move(document), {} };
}

std::optional<std::string> CheckFormDocument(const FormDocument& document, std::string_view sourceName) {
    Location where { sourceName, {}, {} };
    if (document.controls.size() > kMaxFormFields)
        return where.Line("more than " + std::to_string(kMaxFormFields) + " controls");
    if (document.width > kMaxFormExtent || document.height > kMaxFormExtent || document.width < 0
        || document.height < 0)
        return where.Line("the form's size lies outside " + std::to_string(kMaxFormExtent) + " pixels");
    for (size_t i = 0; i < document.controls.size(); ++i) {
        const FormControl& control = document.controls[i];
        where.control = control.name.empty() ? std::to_string(i + 1) : Quoted(control.name);
        where.entry.clear();
        if (control.name.empty()) return where.Line("the name is empty");
        for (size_t k = 0; k < i; ++k)
            if (SameName(document.controls[k].name, control.name))
                return where.Line(
                    "the name is used by an earlier control (" + Quoted(document.controls[k].name) + ")");
        if (auto fault = GeometryFault(control)) return where.Line(*fault);
        for (const auto& [key, value] : control.properties.Entries()) {
            where.entry = Quoted(key);
            if (auto fault = EntryFault(key, value)) return where.Line(*fault);
        }
    }
    return std::nullopt;
}

FormResult LoadFormFile(const std::filesystem::path& path) {
    const std::string source = path.string();
    const Location where { source, {}, {} };
    std::error_code code;
    const uintmax_t size = std::filesystem::file_size(path, code);
    if (code) return Failure(where.Line("cannot be read: " + code.message()));
    if (size > kMaxFormBytes) return Failure(where.Line("the form is larger than 16 MiB"));
    std::ifstream file(path, std::ios::binary);
    std::string text(static_cast<size_t>(size), '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (!file || static_cast<uintmax_t>(file.gcount()) != size) return Failure(where.Line("cannot be read"));
    return ParseFormJson(text, source);
}

// Laid out by hand so that each entry stays on one line: a form reads as a list of fields and properties.
std::string FormToJson(const FormDocument& document) {
    const auto text = [](std::u16string_view value) { return Json(ToUtf8(value)).dump(); };
    std::string out = "{\n";
    out += "  \"title\": " + text(document.title) + ",\n";
    out += "  \"width\": " + std::to_string(document.width) + ",\n";
    out += "  \"height\": " + std::to_string(document.height) + ",\n";
    out += "  \"controls\": [";
    for (size_t i = 0; i < document.controls.size(); ++i) {
        const FormControl& control = document.controls[i];
        out += i == 0 ? "\n    {\n" : ",\n    {\n";
        out += "      \"name\": " + text(control.name) + ",\n";
        out += "      \"label\": " + text(control.label) + ",\n";
        out += "      \"toolTip\": " + text(control.toolTip) + ",\n";
        out += "      \"left\": " + std::to_string(control.left) + ", \"top\": " + std::to_string(control.top)
            + ", \"width\": " + std::to_string(control.width)
            + ", \"height\": " + std::to_string(control.height) + ",\n";
        out += "      \"properties\": {";
        const auto& entries = control.properties.Entries();
        for (size_t k = 0; k < entries.size(); ++k) {
            out += k == 0 ? "\n        " : ",\n        ";
            out += text(entries[k].key) + ": " + FormEntryText(entries[k].key, entries[k].value);
        }
        out += entries.empty() ? "}\n    }" : "\n      }\n    }";
    }
    out += document.controls.empty() ? "]\n}\n" : "\n  ]\n}\n";
    return out;
}

std::optional<std::string> SaveFormFile(const std::filesystem::path& path, const FormDocument& document) {
    const std::string source = path.string();
    const Location where { source, {}, {} };
    std::filesystem::path partial = path;
    partial += ".partial";
    {
        std::ofstream file(partial, std::ios::binary | std::ios::trunc);
        file << FormToJson(document);
        file.close();
        if (!file) return where.Line("cannot be written");
    }
    std::error_code code;
    std::filesystem::rename(partial, path, code);
    if (code) {
        std::filesystem::remove(partial, code);
        return where.Line("cannot be written");
    }
    return std::nullopt;
}

EntriesResult EntriesFromJson(std::string_view json, std::string_view sourceName) {
    const Location where { sourceName, {}, {} };
    std::string fault;
    const std::optional<Json> root = ParseLimited(json, fault);
    if (!root) return { std::nullopt, where.Line(fault) };
    if (!root->is_object())
        return { std::nullopt, where.Line("expected a JSON object, got " + Shown(*root)) };
    Location entryWhere = where;
    std::string error;
    MemoryPropertyStore entries;
    if (!ReadEntries(*root, entryWhere, entries, error)) return { std::nullopt, std::move(error) };
    return { std::move(entries), {} };
}

std::string EntriesToJson(const MemoryPropertyStore& entries) {
    std::string out = "{";
    const auto& list = entries.Entries();
    for (size_t i = 0; i < list.size(); ++i)
        out += (i == 0 ? "\n  " : ",\n  ") + Json(ToUtf8(list[i].key)).dump() + ": "
            + ReadableEntryText(list[i].key, list[i].value);
    return out + (list.empty() ? "}" : "\n}");
}

std::optional<std::string> BuildFormControls(
    const FormDocument& document, std::string_view sourceName, const FormControlFactory& makeControl) {
    for (const FormControl& field : document.controls) {
        Quillmar& control = makeControl(field);
        TracingStore store(field.properties);
        try {
            control.ReadProperties(store);
        } catch (const PropertyError& error) {
            const Location where { sourceName, Quoted(field.name), Quoted(store.LastKey()) };
            return where.Line(DescribeError(error.number()));
        }
    }
    return std::nullopt;
}

void CollectFormControls(FormDocument& document, const FormControlSource& controlOf) {
    for (FormControl& field : document.controls) {
        standalone::MemoryPropertyStore properties;
        controlOf(field).WriteProperties(properties);
        field.properties = std::move(properties);
    }
}

} // namespace quillmar
