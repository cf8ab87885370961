// The entries a form file may hold for a field: each property the control stores, in the kind it writes it
// and with the values its writer (or the edit box) accepts, as the table of stored properties gives them.
#include "formfile/FormEntryRules.h"

#include "base/Enums.h"
#include "base/Settings.h"
#include "base/Utf8.h"
#include "control/PropertyTable.h"
#include "formfile/FormText.h"
#include "validation/Conversions.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace quillmar {
namespace {

using formtext::Json;
using formtext::Quoted;
using formtext::Shown;
using formtext::SingleAsDouble;
using quillmar::FromUtf8;
using quillmar::KindName;
using quillmar::MemoryPropertyStore;

std::string KindFault(Variant::Kind expected, Variant::Kind got) {
    return "expected a value of type " + std::string(KindName(expected)) + ", got type "
        + std::string(KindName(got));
}

std::optional<std::string> RangeFault(const StoredProperty& rule, int64_t value) {
    if (InRange(rule, value)) return std::nullopt;
    std::string range = rule.max == kNoUpperBound
        ? std::to_string(rule.min) + " or more"
        : std::to_string(rule.min) + " to " + std::to_string(rule.max);
    if (rule.also) range += " or " + std::to_string(*rule.also);
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

// The index of an item key "1N", "2N" ... (digits without a leading zero, then "N"); 0 for any other key.
int64_t ItemIndex(std::u16string_view key) {
    if (key.size() < 2 || key.size() > 6 || key.back() != u'N' || key.front() == u'0') return 0;
    int64_t index = 0;
    for (const char16_t c : key.substr(0, key.size() - 1)) {
        if (c < u'0' || c > u'9') return 0;
        index = index * 10 + (c - u'0');
    }
    return index;
}

// A list's store: "NEl", the count as an Integer (absent for none), and the items "1N" to its count,
// nothing else; an action list's items are action flag words, a value list's single values.
std::optional<std::string> ListFault(const Variant& value, bool actions) {
    const auto nested = MemoryPropertyStore::FromBytes(value.AsBytes());
    if (!nested) return "expected a value of type ByteArray holding a property store";
    const Variant* count = nested->Find(u"NEl");
    if (count && count->kind() != Variant::Kind::Integer)
        return "item \"NEl\": " + KindFault(Variant::Kind::Integer, count->kind());
    const int64_t items = count ? count->AsInteger() : 0;
    if (actions && items != 3) return "expected 3 actions, got " + std::to_string(items);
    if (items < 0) return "item \"NEl\": expected 0 or more, got " + std::to_string(items);
    for (const auto& entry : nested->Entries())
        if (entry.key != u"NEl" && ItemIndex(entry.key) == 0)
            return "item " + Quoted(entry.key) + ": not a key of a list (\"NEl\", \"1N\", \"2N\" ...)";
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

// The keys of the font store, each with the kind the control writes it in.
constexpr std::pair<std::u16string_view, Variant::Kind> kFontKeys[] = {
    { u"Name", Variant::Kind::String },
    { u"Size", Variant::Kind::Single },
    { u"Bold", Variant::Kind::Boolean },
    { u"Italic", Variant::Kind::Boolean },
    { u"Underline", Variant::Kind::Boolean },
    { u"Strikethru", Variant::Kind::Boolean },
};

// A font's store: the font's own keys only, each of its kind; a key left out keeps the field's font.
std::optional<std::string> FontFault(const Variant& value) {
    const auto nested = MemoryPropertyStore::FromBytes(value.AsBytes());
    if (!nested) return "expected a value of type ByteArray holding a property store";
    for (const auto& [key, item] : nested->Entries()) {
        const auto* known = std::find_if(std::begin(kFontKeys), std::end(kFontKeys),
            [&key = key](const auto& font) { return font.first == key; });
        if (known == std::end(kFontKeys))
            return "item " + Quoted(key)
                + ": not a key of a font (\"Name\", \"Size\", \"Bold\", \"Italic\", \"Underline\", "
                  "\"Strikethru\")";
        if (item.kind() != known->second)
            return "item " + Quoted(key) + ": " + KindFault(known->second, item.kind());
    }
    return std::nullopt;
}

// A value as the field's checks take it for a limit or a default of a field of `type`: the number, or the
// days of a date (time) of the type's own class; nullopt when it bounds nothing.
std::optional<double> RangeValueOf(const Variant& value, int32_t type, const LocaleInfo& locale) {
    if (value.IsEmpty() || value.IsEmptyString()) return std::nullopt;
    if (IsNumericType(type)) return NumericValueOf(value, locale);
    if (!IsDateTimeType(type) || ClassifyDateTime(value, locale) != (type == vldDate ? DateClass : TimeClass))
        return std::nullopt;
    return DateTimeOf(value, locale);
}

std::string ShownValue(const Variant& value, const LocaleInfo& locale) {
    return Quoted(TextOf(value, locale));
}

} // namespace

std::optional<std::string> EntryFault(std::u16string_view key, const Variant& value) {
    const StoredProperty* rule = FindStoredProperty(key);
    if (!rule) return "not a property of the field";
    const Variant::Kind kind = value.kind();
    const auto expect = [kind](Variant::Kind expected) -> std::optional<std::string> {
        if (kind == expected) return std::nullopt;
        return KindFault(expected, kind);
    };
    switch (rule->kind) {
    case PropertyKind::Boolean:
        return expect(Variant::Kind::Boolean);
    case PropertyKind::String:
        return expect(Variant::Kind::String);
    case PropertyKind::Character:
        if (auto fault = expect(Variant::Kind::String)) return fault;
        if (value.AsString().size() > 1)
            return "expected at most one character, got " + Quoted(value.AsString());
        return std::nullopt;
    case PropertyKind::Integer:
        if (auto fault = expect(Variant::Kind::Integer)) return fault;
        return RangeFault(*rule, value.AsInteger());
    case PropertyKind::Long:
        if (auto fault = expect(Variant::Kind::Long)) return fault;
        return RangeFault(*rule, value.AsLong());
    case PropertyKind::Colour:
        return expect(Variant::Kind::Long);
    case PropertyKind::PointSize: {
        if (auto fault = expect(Variant::Kind::Single)) return fault;
        const float size = value.AsSingle();
        if (std::isfinite(size) && size > 0 && size <= static_cast<float>(rule->max)) return std::nullopt;
        return "expected a point size above 0 and at most " + std::to_string(rule->max) + ", got "
            + Shown(Json(SingleAsDouble(size)));
    }
    case PropertyKind::Value:
        if (IsSingleValue(kind)) return std::nullopt;
        return "expected a single value, got type " + std::string(KindName(kind));
    case PropertyKind::FontStore:
        if (auto fault = expect(Variant::Kind::Bytes)) return fault;
        return FontFault(value);
    case PropertyKind::Picture:
        return expect(Variant::Kind::Bytes);
    case PropertyKind::ValueList:
    case PropertyKind::ActionList:
        if (auto fault = expect(Variant::Kind::Bytes)) return fault;
        return ListFault(value, rule->kind == PropertyKind::ActionList);
    }
    return std::nullopt;
}

RangeCollision FindRangeCollision(int32_t type, const Variant& minValue, const Variant& maxValue,
    const Variant& defaultValue, const LocaleInfo& locale) {
    const auto min = RangeValueOf(minValue, type, locale);
    const auto max = RangeValueOf(maxValue, type, locale);
    const auto value = RangeValueOf(defaultValue, type, locale);
    if (min && max && *min > *max) return RangeCollision::MinAboveMax;
    if (value && max && *value > *max) return RangeCollision::DefaultAboveMax;
    if (value && min && *value < *min) return RangeCollision::DefaultBelowMin;
    return RangeCollision::None;
}

std::optional<EntriesFault> FieldEntriesFault(const MemoryPropertyStore& entries, const LocaleInfo& locale) {
    for (const auto& [key, value] : entries.Entries())
        if (auto fault = EntryFault(key, value))
            return EntriesFault { "entry " + Quoted(key), std::move(*fault) };
    const Variant* type = entries.Find(u"MustBeType");
    const Variant none;
    const auto entry = [&](std::u16string_view key) -> const Variant& {
        const Variant* found = entries.Find(key);
        return found ? *found : none;
    };
    const Variant& min = entry(u"MinValue");
    const Variant& max = entry(u"MaxValue");
    const Variant& value = entry(u"DefaultValue");
    switch (FindRangeCollision(type ? type->AsLong() : vldUnspecified, min, max, value, locale)) {
    case RangeCollision::None:
        return std::nullopt;
    case RangeCollision::MinAboveMax:
        return EntriesFault { R"(entries "MinValue" and "MaxValue")",
            "the minimum " + ShownValue(min, locale) + " lies above the maximum " + ShownValue(max, locale) };
    case RangeCollision::DefaultAboveMax:
        return EntriesFault { R"(entries "DefaultValue" and "MaxValue")",
            "the default value " + ShownValue(value, locale) + " lies above the maximum "
                + ShownValue(max, locale) };
    case RangeCollision::DefaultBelowMin:
        return EntriesFault { R"(entries "DefaultValue" and "MinValue")",
            "the default value " + ShownValue(value, locale) + " lies below the minimum "
                + ShownValue(min, locale) };
    }
    return std::nullopt;
}

} // namespace quillmar
