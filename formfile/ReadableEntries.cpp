#include "formfile/ReadableEntries.h"

#include "base/Enums.h"
#include "base/ListEncoding.h"
#include "base/Utf8.h"
#include "control/PropertyTable.h"
#include "formfile/EntryJson.h"
#include "formfile/ReadableValues.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <limits>
#include <span>

namespace quillmar::formtext {
namespace {

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
    const NamedConstant* action = ConstantValued(kActionConstants, item.AsLong() & ~int32_t { vldACChecked });
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
    case Variant::Kind::String:
        if (value.is_string()) return TextFromJson(value, fault);
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
        ? ConstantNamed(kActionConstants, action->get_ref<const std::string&>())
        : nullptr;
    if (!constant) {
        fault = "field \"action\": expected one of " + NameList(kActionConstants) + ", got "
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
