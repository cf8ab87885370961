#include "formfile/ReadableValues.h"

#include "base/Enums.h"
#include "formfile/EntryJson.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace quillmar::formtext {

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
static std::optional<int64_t> Digits(std::string_view text) {
    if (text.empty() || text.size() > 9) return std::nullopt;
    int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

// "HH:MM:SS" with up to nine decimals of the second, as seconds.
static std::optional<long double> SecondsFrom(std::string_view text) {
    // A time written by hand may leave out the seconds: "08:00" is "08:00:00".
    if (text.size() == 5 && text[2] == ':') return SecondsFrom(std::string(text) + ":00");
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

const std::span<const NamedConstant> kActionConstants = kActionNames;

} // namespace quillmar::formtext
