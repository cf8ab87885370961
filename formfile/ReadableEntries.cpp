#include "formfile/ReadableEntries.h"

#include "base/Enums.h"
#include "base/ListEncoding.h"
#include "base/Utf8.h"
#include "control/PropertyTable.h"
#include "formfile/EntryJson.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <limits>
#include <span>

namespace quillmar::formtext {
namespace {

// The longest list a list property stores.
constexpr size_t kMaxListItems = std::numeric_limits<int16_t>::max();

struct NamedConstant {
    std::string_view name;
    int32_t value;
};

constexpr NamedConstant kTypeNames[] = { { "vldUnspecified", vldUnspecified }, { "vldString", vldString },
    { "vldByte", vldByte }, { "vldInteger", vldInteger }, { "vldLong", vldLong }, { "vldSingle", vldSingle },
    { "vldDouble", vldDouble }, { "vldCurrency", vldCurrency }, { "vldDate", vldDate },
    { "vldTime", vldTime } };
constexpr NamedConstant kValidationModeNames[]
    = { { "vldAutomatic", vldAutomatic }, { "vldSemiAutomatic", vldSemiAutomatic } };
constexpr NamedConstant kErrorMessageModeNames[] = { { "vldAutoBasic", vldAutoBasic },
    { "vldAutoAdvanced", vldAutoAdvanced }, { "vldCustom", vldCustom } };
constexpr NamedConstant kSiftingNames[]
    = { { "vldNone", vldNone }, { "vldWeak", vldWeak }, { "vldStrong", vldStrong } };
constexpr NamedConstant kIconNames[] = { { "vldMBINone", vldMBINone },
    { "vldMBIExclamation", vldMBIExclamation }, { "vldMBICritical", vldMBICritical },
    { "vldMBIInformation", vldMBIInformation }, { "vldMBIQuestion", vldMBIQuestion } };
constexpr NamedConstant kSeparatorNames[]
    = { { "vldTSForbidden", vldTSForbidden }, { "vldTSAllowed", vldTSAllowed } };
constexpr NamedConstant kAppearanceNames[] = { { "vldFlat", vldFlat }, { "vld3D", vld3D } };
constexpr NamedConstant kBorderNames[]
    = { { "vldNoBorder", vldNoBorder }, { "vldFixedSingle", vldFixedSingle } };
constexpr NamedConstant kActionNames[] = { { "vldACReturnPrevious", vldACReturnPrevious },
    { "vldACInsertDefault", vldACInsertDefault }, { "vldACInsertClosest", vldACInsertClosest } };

// The properties whose values are an enumeration with named constants; the others stay numbers.
struct PropertyConstants {
    std::u16string_view key;
    std::span<const NamedConstant> names;
};
constexpr PropertyConstants kPropertyConstants[] = {
    { u"MustBeType", kTypeNames },
    { u"ValidationMode", kValidationModeNames },
    { u"ErrorMessageMode", kErrorMessageModeNames },
    { u"InputSifting", kSiftingNames },
    { u"MessageBoxIcon", kIconNames },
    { u"ThousandSeparator", kSeparatorNames },
    { u"Appearance", kAppearanceNames },
    { u"BorderStyle", kBorderNames },
};

std::span<const NamedConstant> ConstantsOf(std::u16string_view key) {
    for (const auto& property : kPropertyConstants)
        if (property.key == key) return property.names;
    return {};
}

const NamedConstant* ConstantNamed(std::span<const NamedConstant> names, std::string_view name) {
    const auto found
        = std::find_if(names.begin(), names.end(), [name](const auto& c) { return c.name == name; });
    return found == names.end() ? nullptr : &*found;
}

const NamedConstant* ConstantValued(std::span<const NamedConstant> names, int64_t value) {
    const auto found
        = std::find_if(names.begin(), names.end(), [value](const auto& c) { return c.value == value; });
    return found == names.end() ? nullptr : &*found;
}

std::string NameList(std::span<const NamedConstant> names) {
    std::string list;
    for (const auto& constant : names)
        list += (list.empty() ? "" : ", ") + std::string(constant.name);
    return list;
}

// The kinds of the font's keys.
constexpr std::pair<std::u16string_view, PropertyKind> kFontKeys[] = {
    { u"Name", PropertyKind::String },
    { u"Size", PropertyKind::PointSize },
    { u"Bold", PropertyKind::Boolean },
    { u"Italic", PropertyKind::Boolean },
    { u"Underline", PropertyKind::Boolean },
    { u"Strikethru", PropertyKind::Boolean },
};

// The kind of a value of a property, or of a font's key; any single value for a key of neither.
PropertyKind KindOfKey(std::u16string_view key, bool inFont) {
    if (inFont) {
        const auto* found = std::find_if(std::begin(kFontKeys), std::end(kFontKeys),
            [key](const auto& font) { return font.first == key; });
        return found == std::end(kFontKeys) ? PropertyKind::Value : found->second;
    }
    const StoredProperty* rule = FindStoredProperty(key);
    return rule ? rule->kind : PropertyKind::Value;
}

// Dates: days from 30 December 1899, the time of day as the fraction, taken away from a day before that date.

constexpr int64_t DaysFromCivil(int64_t year, int64_t month, int64_t day) {
    year -= month <= 2 ? 1 : 0;
    const int64_t era = (year >= 0 ? year : year - 399) / 400;
    const int64_t yearOfEra = year - era * 400;
    const int64_t dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

constexpr int64_t kSerialZero = DaysFromCivil(1899, 12, 30);

struct Civil {
    int64_t year;
    int64_t month;
    int64_t day;
};

constexpr Civil CivilFromDays(int64_t days) {
    days += 719468;
    const int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const int64_t dayOfEra = days - era * 146097;
    const int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int64_t shifted = (5 * dayOfYear + 2) / 153;
    const int64_t month = shifted < 10 ? shifted + 3 : shifted - 9;
    return { yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, dayOfYear - (153 * shifted + 2) / 5 + 1 };
}

// Digits only, as a number; nullopt for an empty text or any other character.
std::optional<int64_t> Digits(std::string_view text) {
    if (text.empty() || text.size() > 9) return std::nullopt;
    int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

// "HH:MM:SS" with up to nine decimals of the second, as seconds.
std::optional<long double> SecondsFrom(std::string_view text) {
    if (text.size() < 8 || text[2] != ':' || text[5] != ':') return std::nullopt;
    const auto hours = Digits(text.substr(0, 2));
    const auto minutes = Digits(text.substr(3, 2));
    const auto seconds = Digits(text.substr(6, 2));
    if (!hours || !minutes || !seconds || *hours > 23 || *minutes > 59 || *seconds > 59) return std::nullopt;
    long double total = static_cast<long double>(*hours * 3600 + *minutes * 60 + *seconds);
    if (text.size() > 8) {
        const auto fraction = text[8] == '.' ? Digits(text.substr(9)) : std::nullopt;
        if (!fraction) return std::nullopt;
        total += static_cast<long double>(*fraction)
            / std::pow(10.0L, static_cast<long double>(text.size() - 9));
    }
    return total;
}

// "YYYY-MM-DD", optionally followed by "T" and a time; or a time alone when `timeOnly`.
std::optional<double> DaysFrom(std::string_view text, bool timeOnly) {
    int64_t day = 0;
    if (!timeOnly) {
        if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
        const auto year = Digits(text.substr(0, 4));
        const auto month = Digits(text.substr(5, 2));
        const auto dayOfMonth = Digits(text.substr(8, 2));
        if (!year || !month || !dayOfMonth || *month < 1 || *month > 12 || *dayOfMonth < 1)
            return std::nullopt;
        day = DaysFromCivil(*year, *month, *dayOfMonth);
        const Civil back = CivilFromDays(day);
        if (back.month != *month || back.day != *dayOfMonth) return std::nullopt;
        day -= kSerialZero;
        text.remove_prefix(10);
        if (text.empty()) return static_cast<double>(day);
        if (text.front() != 'T') return std::nullopt;
        text.remove_prefix(1);
    }
    const auto seconds = SecondsFrom(text);
    if (!seconds) return std::nullopt;
    const long double fraction = *seconds / 86400.0L;
    return static_cast<double>(day < 0 ? day - fraction : day + fraction);
}

// The date or time as ISO text that reads back as exactly `days`, with as few decimals of the second as
// that takes; `timeOnly` set for a time of day alone. nullopt when no such text exists.
std::optional<std::string> DateText(double days, bool& timeOnly) {
    if (!std::isfinite(days) || std::fabs(days) > 3e6 || (days == 0 && std::signbit(days)))
        return std::nullopt;
    const double whole = std::trunc(days);
    const Civil civil = CivilFromDays(static_cast<int64_t>(whole) + kSerialZero);
    if (civil.year < 1 || civil.year > 9999) return std::nullopt;
    const long double seconds = std::fabs(static_cast<long double>(days) - whole) * 86400.0L;
    timeOnly = whole == 0 && seconds != 0;
    char date[16];
    std::snprintf(date, sizeof date, "%04d-%02d-%02d", static_cast<int>(civil.year),
        static_cast<int>(civil.month), static_cast<int>(civil.day));
    if (seconds == 0) return std::string(date);
    int64_t scale = 1;
    for (int decimals = 0; decimals <= 9; ++decimals, scale *= 10) {
        const auto units = static_cast<int64_t>(std::llround(seconds * static_cast<long double>(scale)));
        if (units >= 86400 * scale) break;
        const int64_t whole = units / scale;
        char time[32];
        std::snprintf(time, sizeof time, "%02d:%02d:%02d", static_cast<int>(whole / 3600),
            static_cast<int>(whole / 60 % 60), static_cast<int>(whole % 60));
        std::string text = timeOnly ? std::string(time) : std::string(date) + "T" + time;
        if (decimals > 0) {
            std::string fraction = std::to_string(units % scale);
            text += "." + std::string(static_cast<size_t>(decimals) - fraction.size(), '0') + fraction;
        }
        const auto back = DaysFrom(text, timeOnly);
        if (back && *back == days) return text;
    }
    return std::nullopt;
}

// A currency amount with at least two decimals, as money is written.
std::string MoneyText(Currency amount) {
    std::string text = CurrencyText(amount);
    const size_t point = text.find('.');
    if (point == std::string::npos) return text + ".00";
    if (text.size() - point == 2) text += '0';
    return text;
}

std::string JsonText(std::u16string_view text) {
    return Json(ToUtf8(text)).dump();
}

std::string KindValueText(const Variant& value);
std::string SlotText(const Variant& value);

std::string TaggedText(const Variant& value) {
    if (value.kind() == Variant::Kind::Date) {
        bool timeOnly = false;
        if (const auto text = DateText(value.AsDate().days, timeOnly))
            return std::string(timeOnly ? "{\"Time\": " : "{\"Date\": ") + Json(*text).dump() + "}";
    }
    return "{\"" + std::string(KindName(value.kind())) + "\": " + KindValueText(value) + "}";
}

// A value as the plain JSON of its own kind, as a kind's tag holds it.
std::string KindValueText(const Variant& value) {
    switch (value.kind()) {
    case Variant::Kind::Empty:
        return "null";
    case Variant::Kind::Boolean:
        return value.AsBoolean() ? "true" : "false";
    case Variant::Kind::String:
        return JsonText(value.AsString());
    case Variant::Kind::Byte:
        return std::to_string(value.AsByte());
    case Variant::Kind::Integer:
        return std::to_string(value.AsInteger());
    case Variant::Kind::Long:
        return std::to_string(value.AsLong());
    case Variant::Kind::Single:
        return Json(SingleAsDouble(value.AsSingle())).dump();
    case Variant::Kind::Double:
        return Json(value.AsDouble()).dump();
    case Variant::Kind::Currency:
        return Json(MoneyText(value.AsCurrency())).dump();
    case Variant::Kind::Date:
        return Json(value.AsDate().days).dump();
    case Variant::Kind::Bytes:
        return Json(Base64Encode(value.AsBytes())).dump();
    case Variant::Kind::Array: {
        std::string items;
        for (const Variant& item : value.AsArray())
            items += (items.empty() ? "" : ", ") + SlotText(item);
        return "[" + items + "]";
    }
    }
    return "null";
}

// A value where any single value may stand: Empty, a text, true or false and a Double plain, others tagged.
std::string SlotText(const Variant& value) {
    switch (value.kind()) {
    case Variant::Kind::Empty:
    case Variant::Kind::Boolean:
    case Variant::Kind::String:
    case Variant::Kind::Double:
        return KindValueText(value);
    default:
        return TaggedText(value);
    }
}

std::string ValueText(std::u16string_view key, PropertyKind kind, const Variant& value);

// The items of a list whose bytes are exactly those the items give back; nullopt for any other bytes.
std::optional<VariantArray> ListItems(const Variant& value) {
    if (!MemoryPropertyStore::FromBytes(value.AsBytes())) return std::nullopt;
    VariantArray list = DecodeList(value);
    if (EncodeList(list) != value.AsBytes()) return std::nullopt;
    list.erase(list.begin());
    return list;
}

std::optional<std::string> ActionText(const Variant& item) {
    if (item.kind() != Variant::Kind::Long) return std::nullopt;
    const NamedConstant* action = ConstantValued(kActionNames, item.AsLong() & ~int32_t { vldACChecked });
    if (!action || item.AsLong() < 0) return std::nullopt;
    return "{\"action\": \"" + std::string(action->name)
        + "\", \"checked\": " + ((item.AsLong() & vldACChecked) != 0 ? "true" : "false") + "}";
}

std::optional<std::string> ListText(const Variant& value, bool actions) {
    const auto items = ListItems(value);
    if (!items) return std::nullopt;
    std::string text;
    for (const Variant& item : *items) {
        const auto itemText = actions ? ActionText(item) : std::optional(SlotText(item));
        if (!itemText) return std::nullopt;
        text += (text.empty() ? "" : ", ") + *itemText;
    }
    return "[" + text + "]";
}

std::optional<std::string> FontText(const Variant& value) {
    const auto font = MemoryPropertyStore::FromBytes(value.AsBytes());
    if (!font || font->ToBytes() != value.AsBytes()) return std::nullopt;
    std::string text;
    for (const auto& [key, item] : font->Entries())
        text
            += (text.empty() ? "" : ", ") + JsonText(key) + ": " + ValueText(key, KindOfKey(key, true), item);
    return "{" + text + "}";
}

bool IsPlainKind(PropertyKind kind, Variant::Kind valueKind) {
    switch (kind) {
    case PropertyKind::Boolean:
        return valueKind == Variant::Kind::Boolean;
    case PropertyKind::String:
    case PropertyKind::Character:
        return valueKind == Variant::Kind::String;
    case PropertyKind::Integer:
        return valueKind == Variant::Kind::Integer;
    case PropertyKind::Long:
    case PropertyKind::Colour:
        return valueKind == Variant::Kind::Long;
    case PropertyKind::PointSize:
        return valueKind == Variant::Kind::Single;
    case PropertyKind::Value:
        return true;
    case PropertyKind::FontStore:
    case PropertyKind::Picture:
    case PropertyKind::ValueList:
    case PropertyKind::ActionList:
        return valueKind == Variant::Kind::Bytes;
    }
    return false;
}

std::string ValueText(std::u16string_view key, PropertyKind kind, const Variant& value) {
    if (!IsPlainKind(kind, value.kind())) return TaggedText(value);
    std::optional<std::string> text;
    switch (kind) {
    case PropertyKind::Value:
        return SlotText(value);
    case PropertyKind::Integer:
    case PropertyKind::Long: {
        const int64_t number = kind == PropertyKind::Integer ? value.AsInteger() : value.AsLong();
        if (const NamedConstant* constant = ConstantValued(ConstantsOf(key), number))
            return "\"" + std::string(constant->name) + "\"";
        return std::to_string(number);
    }
    case PropertyKind::FontStore:
        text = FontText(value);
        break;
    case PropertyKind::ValueList:
    case PropertyKind::ActionList:
        text = ListText(value, kind == PropertyKind::ActionList);
        break;
    default:
        return KindValueText(value);
    }
    return text ? *text : TaggedText(value);
}

// Reading.

std::optional<Variant> SlotFromJson(const Json& value, std::string& fault);

std::optional<Variant> TextFromJson(const Json& value, std::string& fault) {
    if (auto text = FromUtf8(value.get_ref<const std::string&>())) return Variant(std::move(*text));
    fault = "the text " + Shown(value) + " is not UTF-8";
    return std::nullopt;
}

// The value of `kind` as the plain JSON of that kind holds it (in a kind's tag); `time` for a "Time" tag.
std::optional<Variant> KindFromJson(Variant::Kind kind, bool time, const Json& value, std::string& fault) {
    std::optional<Variant> result;
    switch (kind) {
    case Variant::Kind::Empty:
        if (value.is_null()) result = Variant();
        break;
    case Variant::Kind::Boolean:
        if (value.is_boolean()) result = Variant(value.get<bool>());
        break;
    case Variant::Kind::String:
        if (value.is_string()) return TextFromJson(value, fault);
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
        if (value.is_number() && !time) result = Variant(Date { value.get<double>() });
        if (value.is_string())
            if (const auto days = DaysFrom(value.get_ref<const std::string&>(), time))
                result = Variant(Date { *days });
        break;
    case Variant::Kind::Bytes:
        if (!value.is_string()) break;
        if (auto bytes = Base64Decode(value.get_ref<const std::string&>(), fault))
            return Variant(std::move(*bytes));
        return std::nullopt;
    case Variant::Kind::Array: {
        if (!value.is_array()) break;
        VariantArray items;
        for (size_t i = 0; i < value.size(); ++i) {
            auto item = SlotFromJson(value[i], fault);
            if (!item) {
                fault = "item " + std::to_string(i + 1) + ": " + fault;
                return std::nullopt;
            }
            items.push_back(std::move(*item));
        }
        return Variant(std::move(items));
    }
    }
    if (!result) {
        const std::string expected = time ? "a time such as \"08:00:00\""
            : kind == Variant::Kind::Date ? "a date such as \"2024-01-01\" or \"2024-01-01T08:00:00\""
                                          : "a value of type " + std::string(KindName(kind));
        fault = "expected " + expected + ", got " + Shown(value);
    }
    return result;
}

// An object of one field naming a kind; nullopt when `value` is no such object.
std::optional<std::optional<Variant>> TaggedFromJson(const Json& value, std::string& fault) {
    if (!value.is_object() || value.size() != 1) return std::nullopt;
    const std::string& tag = value.begin().key();
    const bool time = tag == "Time";
    const auto kind = time ? std::optional(Variant::Kind::Date) : KindFromName(tag);
    if (!kind) return std::nullopt;
    return KindFromJson(*kind, time, value.begin().value(), fault);
}

// Where any single value may stand: null, a text, true or false, a number (a Double), or a tagged value.
std::optional<Variant> SlotFromJson(const Json& value, std::string& fault) {
    if (auto tagged = TaggedFromJson(value, fault)) return *tagged;
    if (value.is_null()) return Variant();
    if (value.is_boolean()) return Variant(value.get<bool>());
    if (value.is_string()) return TextFromJson(value, fault);
    if (value.is_number()) return Variant(value.get<double>());
    fault = "expected a single value, or an object naming its type such as {\"Date\": \"2024-01-01\"}, got "
        + Shown(value);
    return std::nullopt;
}

std::optional<Variant> ValueFromJson(
    std::u16string_view key, PropertyKind kind, const Json& value, std::string& fault);

std::optional<Variant> FontFromJson(const Json& value, std::string& fault) {
    MemoryPropertyStore font;
    for (const auto& [key, item] : value.items()) {
        const auto key16 = FromUtf8(key);
        if (!key16) {
            fault = "the key " + Quoted(key) + " is not UTF-8";
            return std::nullopt;
        }
        auto read = ValueFromJson(*key16, KindOfKey(*key16, true), item, fault);
        if (!read) {
            fault = "item " + Quoted(key) + ": " + fault;
            return std::nullopt;
        }
        font.WriteProperty(*key16, *read, Variant());
    }
    return Variant(font.ToBytes());
}

std::optional<Variant> ActionFromJson(const Json& value, std::string& fault) {
    constexpr std::array<const char*, 2> kActionFields = { "action", "checked" };
    if (!value.is_object()) {
        fault = "expected an object with \"action\" and \"checked\", got " + Shown(value);
        return std::nullopt;
    }
    if (auto unknown = UnknownField(value, kActionFields, "an action")) {
        fault = std::move(*unknown);
        return std::nullopt;
    }
    const auto action = value.find("action");
    const auto checked = value.find("checked");
    const NamedConstant* constant = action != value.end() && action->is_string()
        ? ConstantNamed(kActionNames, action->get_ref<const std::string&>())
        : nullptr;
    if (!constant) {
        fault = "field \"action\": expected one of " + NameList(kActionNames) + ", got "
            + (action == value.end() ? std::string("nothing") : Shown(*action));
        return std::nullopt;
    }
    if (checked == value.end() || !checked->is_boolean()) {
        fault = "field \"checked\": expected true or false, got "
            + (checked == value.end() ? std::string("nothing") : Shown(*checked));
        return std::nullopt;
    }
    return Variant(int32_t { constant->value | (checked->get<bool>() ? vldACChecked : 0) });
}

std::optional<Variant> ListFromJson(const Json& value, bool actions, std::string& fault) {
    if (value.size() > kMaxListItems) {
        fault = "more than " + std::to_string(kMaxListItems) + " items";
        return std::nullopt;
    }
    VariantArray list(1);
    for (size_t i = 0; i < value.size(); ++i) {
        auto item = actions ? ActionFromJson(value[i], fault) : SlotFromJson(value[i], fault);
        if (!item) {
            fault = "item " + std::to_string(i + 1) + ": " + fault;
            return std::nullopt;
        }
        list.push_back(std::move(*item));
    }
    return Variant(EncodeList(list));
}

// The integer of a property, or of one of its named constants.
std::optional<Variant> IntegerFromJson(
    std::u16string_view key, bool isLong, const Json& value, std::string& fault) {
    const auto names = ConstantsOf(key);
    if (value.is_string() && !names.empty()) {
        const NamedConstant* constant = ConstantNamed(names, value.get_ref<const std::string&>());
        if (!constant) {
            fault = "expected one of " + NameList(names) + " or a number, got " + Shown(value);
            return std::nullopt;
        }
        return isLong ? Variant(constant->value) : Variant(static_cast<int16_t>(constant->value));
    }
    if (isLong)
        if (const auto number = IntegerOf<int32_t>(value)) return Variant(*number);
    if (!isLong)
        if (const auto number = IntegerOf<int16_t>(value)) return Variant(*number);
    return std::nullopt;
}

std::optional<Variant> ValueFromJson(
    std::u16string_view key, PropertyKind kind, const Json& value, std::string& fault) {
    if (auto tagged = TaggedFromJson(value, fault)) return *tagged;
    std::optional<Variant> plain;
    switch (kind) {
    case PropertyKind::Boolean:
    case PropertyKind::String:
    case PropertyKind::Character:
    case PropertyKind::Value:
        break;
    case PropertyKind::Integer:
    case PropertyKind::Long:
    case PropertyKind::Colour:
        plain = IntegerFromJson(key, kind != PropertyKind::Integer, value, fault);
        if (!plain && !fault.empty()) return std::nullopt;
        break;
    case PropertyKind::PointSize:
        if (value.is_number()) return KindFromJson(Variant::Kind::Single, false, value, fault);
        break;
    case PropertyKind::FontStore:
        if (value.is_object()) return FontFromJson(value, fault);
        break;
    case PropertyKind::Picture:
        if (value.is_string()) return KindFromJson(Variant::Kind::Bytes, false, value, fault);
        break;
    case PropertyKind::ValueList:
    case PropertyKind::ActionList:
        if (value.is_array()) return ListFromJson(value, kind == PropertyKind::ActionList, fault);
        break;
    }
    if (plain) return plain;
    // Plain JSON of another kind reads as what it is, and the entry's checks then refuse its kind.
    return SlotFromJson(value, fault);
}

} // namespace

bool IsTypeTaggedEntry(const Json& entry) {
    return entry.is_object() && entry.contains("type");
}

std::optional<Variant> ReadableEntryFromJson(std::u16string_view key, const Json& value, std::string& fault) {
    fault.clear();
    return ValueFromJson(key, KindOfKey(key, false), value, fault);
}

std::string ReadableEntryText(std::u16string_view key, const Variant& value) {
    return ValueText(key, KindOfKey(key, false), value);
}

} // namespace quillmar::formtext
