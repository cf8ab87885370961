#include "formfile/FormJson.h"

#include "base/Utf8.h"
#include "formfile/EntryJson.h"
#include "formfile/FormCheck.h"
#include "formfile/ReadableEntries.h"

#include <fstream>
#include <system_error>

namespace quillmar {
namespace {

using formtext::IntegerOf;
using formtext::Json;
using formtext::Location;
using formtext::ParseLimited;
using formtext::Quoted;
using formtext::ReadableEntryText;
using formtext::ReadEntries;
using formtext::Shown;
using formtext::UnknownField;

constexpr uintmax_t kMaxFormBytes = uintmax_t { 16 } << 20;

// The names of the fields of a form and of one of its controls, in the order a form file writes them.
constexpr std::array<const char*, 8> kFormFields
    = { "$schema", "title", "width", "height", "font", "showRefusalTips", "showInlineState", "controls" };
constexpr std::array<const char*, 2> kFontFields = { "name", "size" };
constexpr std::array<const char*, 8> kControlFields
    = { "name", "label", "toolTip", "left", "top", "width", "height", "properties" };

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

// The form's font, {"name": "DejaVu Sans", "size": 9.0}; left out, the font a field reads when it stores
// none.
std::optional<FormFont> ReadFont(const Json& root, const Location& where, std::string& error) {
    const auto found = root.find("font");
    if (found == root.end()) return FormFont();
    const auto fail = [&](std::string_view what) -> std::optional<FormFont> {
        error = where.Line("field \"font\": " + std::string(what));
        return std::nullopt;
    };
    if (!found->is_object())
        return fail("expected an object with \"name\" and \"size\", got " + Shown(*found));
    if (auto unknown = UnknownField(*found, kFontFields, "a font")) return fail(*unknown);
    FormFont font;
    const auto name = found->find("name");
    const auto size = found->find("size");
    const auto text = name != found->end() && name->is_string()
        ? FromUtf8(name->get_ref<const std::string&>())
        : std::nullopt;
    if (!text || text->empty())
        return fail("field \"name\": expected the name of a font, got "
            + (name == found->end() ? std::string("nothing") : Shown(*name)));
    if (size == found->end() || !size->is_number() || !(size->get<double>() > 0)
        || size->get<double>() > 2048)
        return fail("field \"size\": expected a point size above 0 and at most 2048, got "
            + (size == found->end() ? std::string("nothing") : Shown(*size)));
    font.name = *text;
    font.size = static_cast<float>(size->get<double>());
    return font;
}

FormResult Failure(std::string error) {
    return { std::nullopt, std::move(error) };
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
    if (const auto schema = root.find("$schema"); schema != root.end() && !schema->is_string())
        return Failure(where.Line("field \"$schema\": expected a text, got " + Shown(*schema)));
    const auto font = ReadFont(root, where, error);
    if (!font) return Failure(std::move(error));
    document.font = *font;
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
    out += "  \"$schema\": \"" + std::string(kFormSchemaName) + "\",\n";
    out += "  \"title\": " + text(document.title) + ",\n";
    out += "  \"width\": " + std::to_string(document.width) + ",\n";
    out += "  \"height\": " + std::to_string(document.height) + ",\n";
    out += "  \"font\": {\"name\": " + text(document.font.name)
        + ", \"size\": " + Json(formtext::SingleAsDouble(document.font.size)).dump() + "},\n";
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
            out += text(entries[k].key) + ": " + ReadableEntryText(entries[k].key, entries[k].value);
        }
        out += entries.empty() ? "}\n    }" : "\n      }\n    }";
    }
    out += document.controls.empty() ? "]\n}\n" : "\n  ]\n}\n";
    return out;
}

} // namespace quillmar
