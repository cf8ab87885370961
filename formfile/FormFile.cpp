#include "formfile/FormFile.h"

#include "base/Utf8.h"
#include "formfile/FormEntryRules.h"
#include "formfile/FormText.h"

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

using formtext::Base64Decode;
using formtext::Base64Encode;
using formtext::CurrencyFrom;
using formtext::CurrencyText;
using formtext::Json;
using formtext::Quoted;
using formtext::Shown;
using formtext::SingleAsDouble;
using quillmar::FromUtf8;
using quillmar::KindFromName;
using quillmar::KindName;
using quillmar::MemoryPropertyStore;
using quillmar::ToUtf8;

constexpr uintmax_t kMaxFormBytes = uintmax_t { 16 } << 20;
constexpr int kMaxDepth = 64;
// Entries that hold nested property stores; bytes that are no store mean the file is damaged.
constexpr std::array<std::u16string_view, 3> kStoreEntries = { u"Font", u"MustNotBeValues", u"Actions" };

// Where a fault lies: the source, then the control and the entry once they are known. `entry` is as a line
// names it: `entry "MaxLength"`, or `entries "MinValue" and "MaxValue"`.
struct Location {
    std::string_view source;
    std::string control;
    std::string entry;

    [[nodiscard]] std::string Line(std::string_view what) const {
        std::string line(source);
        line += ": ";
        if (!control.empty()) line += "control " + control + (entry.empty() ? ": " : ", ");
        if (!entry.empty()) line += entry + ": ";
        line += what;
        // A fault's own description never breaks the line either.
        for (char& c : line)
            if (static_cast<unsigned char>(c) < 0x20) c = ' ';
        return line;
    }
};

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

// The names of the fields of a form, of one of its controls and of an entry, in the order a form file
// writes them.
constexpr std::array<const char*, 6> kFormFields
    = { "title", "width", "height", "showRefusalTips", "showInlineState", "controls" };
constexpr std::array<const char*, 8> kControlFields
    = { "name", "label", "toolTip", "left", "top", "width", "height", "properties" };
constexpr std::array<const char*, 2> kEntryFields = { "type", "value" };

// The first field of `object` that is none of `known`, as "field "x" is not one <owner> has (a, b ...)",
// so that a misspelt name is refused rather than ignored; nullopt when every field is known.
template <size_t N>
std::optional<std::string> UnknownField(
    const Json& object, const std::array<const char*, N>& known, std::string_view owner) {
    for (const auto& [key, value] : object.items()) {
        if (std::find(known.begin(), known.end(), key) != known.end()) continue;
        std::string names;
        for (const char* name : known)
            names += (names.empty() ? "" : ", ") + std::string(name);
        return "field " + Quoted(key) + " is not one " + std::string(owner) + " has (" + names + ")";
    }
    return std::nullopt;
}

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

    /// A true-or-false field that may be left out, reading then as false.
    std::optional<bool> OptionalFlag(const char* name) {
        const auto found = m_object.find(name);
        if (found == m_object.end()) return false;
        if (found->is_boolean()) return found->get<bool>();
        Fail(std::string("field \"") + name + "\": expected true or false, got " + Shown(*found));
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
        where.entry = "entry " + Quoted(key);
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
    if (auto unknown = UnknownField(object, kControlFields, "a control")) {
        fields.Fail(*unknown);
        return std::nullopt;
    }
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

FormResult ParseFormJson(std::string_view json, std::string_view sourceName, const LocaleInfo& locale) {
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
    if (auto unknown = UnknownField(root, kFormFields, "a form")) return Failure(where.Line(*unknown));
    FormDocument document;
    const auto title = fields.Text("title");
    const auto width = fields.Integer("width", false);
    const auto height = fields.Integer("height", false);
    const auto refusalTips = fields.OptionalFlag("showRefusalTips");
    const auto inlineState = fields.OptionalFlag("showInlineState");
    const Json* controls = fields.Field("controls");
    if (!title || !width || !height || !refusalTips || !inlineState || !controls)
        return Failure(std::move(error));
    if (!controls->is_array())
        return Failure(where.Line("field \"controls\": expected an array, got " + Shown(*controls)));
    if (controls->size() > kMaxFormFields)
        return Failure(where.Line("more than " + std::to_string(kMaxFormFields) + " controls"));
    document.title = *title;
    document.width = *width;
    document.height = *height;
    document.showRefusalTips = *refusalTips;
    document.showInlineState = *inlineState;
    for (size_t i = 0; i < controls->size(); ++i) {
        auto control = ReadControl((*controls)[i], i, where, error);
        if (!control) return Failure(std::move(error));
        document.controls.push_back(std::move(*control));
    }
    if (auto fault = CheckFormDocument(document, sourceName, locale)) return Failure(std::move(*fault));
    return { std::move(document), {} };
}

std::optional<std::string> CheckFormDocument(
    const FormDocument& document, std::string_view sourceName, const LocaleInfo& locale) {
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
        if (auto fault = FieldEntriesFault(control.properties, locale)) {
            where.entry = std::move(fault->entries);
            return where.Line(fault->what);
        }
    }
    return std::nullopt;
}

FormResult LoadFormFile(const std::filesystem::path& path, const LocaleInfo& locale) {
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
    return ParseFormJson(text, source, locale);
}

// Laid out by hand so that each entry stays on one line: a form reads as a list of fields and properties.
std::string FormToJson(const FormDocument& document) {
    const auto text = [](std::u16string_view value) { return Json(ToUtf8(value)).dump(); };
    std::string out = "{\n";
    out += "  \"title\": " + text(document.title) + ",\n";
    out += "  \"width\": " + std::to_string(document.width) + ",\n";
    out += "  \"height\": " + std::to_string(document.height) + ",\n";
    // The hints are written only when on, so a form that never used them reads as it always did.
    if (document.showRefusalTips) out += "  \"showRefusalTips\": true,\n";
    if (document.showInlineState) out += "  \"showInlineState\": true,\n";
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
            const Location where { sourceName, Quoted(field.name), "entry " + Quoted(store.LastKey()) };
            return where.Line(DescribeError(error.number()));
        }
    }
    return std::nullopt;
}

void CollectFormControls(FormDocument& document, const FormControlSource& controlOf) {
    for (FormControl& field : document.controls) {
        quillmar::MemoryPropertyStore properties;
        controlOf(field).WriteProperties(properties);
        field.properties = std::move(properties);
    }
}

} // namespace quillmar
