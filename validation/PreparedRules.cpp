#include "validation/PreparedRules.h"

#include "validation/ColumnCheck.h"

#include "validation/Conversions.h"
#include "validation/DateTime.h"
#include "validation/NumberScan.h"
#include "validation/NumericText.h"
#include "validation/Pattern.h"
#include "validation/Rules.h"

#include <algorithm>
#include <atomic>
#include <cassert>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace quillmar {
namespace {

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

// A text's unit as a UTF-16 unit: bytes are read as the ASCII characters they are.
template <typename Char> char16_t UnitOf(Char c) {
    if constexpr (sizeof(Char) == 1)
        return static_cast<unsigned char>(c);
    else
        return c;
}

template <typename Char> bool SameText(std::u16string_view a, std::basic_string_view<Char> b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (a[i] != UnitOf(b[i])) return false;
    return true;
}

// The case rule a code point breaks under a simple case mapping, as the checker compares a text with its
// mapped form: a mapping that would change the length leaves the code point as it is.
bool ChangedBy(UChar32 c, UChar32 (*map)(UChar32)) {
    const UChar32 mapped = map(c);
    return mapped != c && U16_LENGTH(mapped) == U16_LENGTH(c);
}

// A mask without `*` takes exactly one character per unit, so a text matches it when it has as many
// characters and each is one its unit takes. Per unit, the ASCII characters it takes, found by matching each
// against the unit alone (a list ends at its first `]`); empty for a mask with a `*` or an unclosed list.
std::vector<std::array<uint8_t, 128>> AsciiUnitsOf(std::u16string_view mask) {
    std::vector<std::array<uint8_t, 128>> units;
    for (size_t p = 0; p < mask.size();) {
        size_t end = p + 1;
        if (mask[p] == u'*') return {};
        if (mask[p] == u'[') {
            const size_t close = mask.find(u']', p + 1 < mask.size() && mask[p + 1] == u'!' ? p + 2 : p + 1);
            if (close == std::u16string_view::npos) return {};
            end = close + 1;
        }
        std::array<uint8_t, 128> takes {};
        for (char16_t c = 0; c < 128; ++c)
            takes[c] = MatchPattern(std::u16string_view(&c, 1), mask.substr(p, end - p)) ? 1 : 0;
        units.push_back(takes);
        p = end;
    }
    return units;
}

// `SerialFromDate` of a year of four digits (years 100 to 9999 have serials; none lies before the common
// era): the days before the year, then the days before the month from a table.
std::optional<double> ShortDateSerial(int year, int month, int day) noexcept {
    static constexpr int kDaysBefore[] = { 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365 };
    if (year < 100 || month < 1 || month > 12 || day < 1) return std::nullopt;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const int leapDay = leap && month > 2 ? 1 : 0;
    if (day > kDaysBefore[month] - kDaysBefore[month - 1] + (leap && month == 2 ? 1 : 0)) return std::nullopt;
    const int before = year - 1;
    // 693593 days run from 1 January of year 1 to 30 December 1899, day zero of the serials.
    return static_cast<double>(365 * before + before / 4 - before / 100 + before / 400
        + kDaysBefore[month - 1] + leapDay + day - 1 - 693593);
}

// The most common date texts, month and day of one or two digits in the locale's order (month first or day
// first), then a four-digit year, with any date separators between them ("3/14/2024"), read in one pass as
// the date reader reads them: false for any other text, which the date reader then takes. `days` is the
// date's serial, or nullopt for a day that no month has.
template <typename Char>
bool ReadShortDate(std::basic_string_view<Char> text, const LocaleInfo& locale, std::optional<double>& days) {
    if (locale.dateOrder == DateOrder::YearMonthDay) return false;
    size_t i = 0;
    const auto group = [&](size_t most, int& value) {
        const size_t start = i;
        value = 0;
        for (; i < text.size() && i - start < most && IsDigit(UnitOf(text[i])); ++i)
            value = value * 10 + (text[i] - '0');
        return i > start;
    };
    const auto separator = [&] {
        return i < text.size() && (text[i] == u'/' || text[i] == u'-' || text[i] == u'.') && (++i, true);
    };
    int first = 0;
    int second = 0;
    int year = 0;
    if (!group(2, first) || !separator() || !group(2, second) || !separator()) return false;
    const size_t yearStart = i;
    if (!group(4, year) || i - yearStart != 4 || i != text.size()) return false;
    days = locale.dateOrder == DateOrder::MonthDayYear ? ShortDateSerial(year, first, second)
                                                       : ShortDateSerial(year, second, first);
    return true;
}

std::atomic<uint64_t> g_preparedCount { 0 };

// The designators the short way for times knows, in the order of `m_designators`.
constexpr std::u16string_view kDesignators[] = { u"AM", u"PM", u"am", u"pm" };

// Which of `kDesignators` the two units are; -1 for none.
int DesignatorIndex(char16_t first, char16_t second) {
    const int upper = second == u'M' ? 0 : second == u'm' ? 2 : -1;
    if (upper < 0) return -1;
    if (first == kDesignators[upper][0]) return upper;
    if (first == kDesignators[upper + 1][0]) return upper + 1;
    return -1;
}

} // namespace

PreparedRules::PreparedRules(const Settings& settings, const LocaleInfo& locale, int32_t maxLength)
    : m_identity(++g_preparedCount)
    , m_settings(settings)
    , m_kind(IsDateTimeType(settings.MustBeType)   ? Kind::DateTime
              : IsNumericType(settings.MustBeType) ? Kind::Number
                                                   : Kind::Text)
    , m_locale(locale)
    , m_maxLength(maxLength) {
    const int32_t type = settings.MustBeType;
    const VariantArray& forbidden = settings.MustNotBeValues;
    if (IsDateTimeType(type)) {
        const int wantedClass = type == vldDate ? DateClass : TimeClass;
        auto limitOf = [&](const Variant& limit) -> std::optional<double> {
            if (limit.IsEmpty() || limit.IsEmptyString()) return std::nullopt;
            const auto days = DateTimeOf(limit, locale);
            if (!days || ClassifyDateTime(limit, locale) != wantedClass) return std::nullopt;
            return days;
        };
        m_minimum = limitOf(settings.MinValue);
        m_maximum = limitOf(settings.MaxValue);
        for (size_t i = 1; i < forbidden.size(); ++i)
            if (const auto days = DateTimeOf(forbidden[i], locale)) m_forbiddenValues.push_back(*days);
        // Asked of the date and time reader itself: one o'clock with the designator is 1:00 or 13:00.
        for (size_t i = 0; type == vldTime && i < std::size(kDesignators); ++i) {
            const auto parsed = ParseDateTime(u"1:00 " + std::u16string(kDesignators[i]), locale);
            if (parsed && parsed->days == 3600 / 86400.0) m_designators[i] = 1;
            if (parsed && parsed->days == 13 * 3600 / 86400.0) m_designators[i] = 2;
        }
    } else if (IsNumericType(type)) {
        m_minimum = NumericValueOf(settings.MinValue, locale);
        m_maximum = NumericValueOf(settings.MaxValue, locale);
        for (size_t i = 1; i < forbidden.size(); ++i)
            if (const auto value = NumericValueOf(forbidden[i], locale)) m_forbiddenValues.push_back(*value);
        m_thousands = ThousandsSeparator(settings.ThousandSeparator, locale);
        // Grouped numbers go the short way where the type's whole-text test takes the separator too (not a
        // byte, not a number that may have an exponent) and the separator cannot be read as anything else
        // in a number: not a digit, sign, blank, exponent mark or the decimal separator.
        const char16_t separator = locale.groupSeparator;
        const bool takesGroups = GroupingOf(settings.ThousandSeparator) == Grouping::Locale
            && locale.groupingSize > 0 && type != vldByte
            && !(settings.AllowScientificFormat && (type == vldSingle || type == vldDouble));
        if (takesGroups && separator != 0 && separator != locale.decimalSeparator && !IsDigit(separator)
            && std::u16string_view(u"+-eE \t").find(separator) == std::u16string_view::npos) {
            m_plainGroupSeparator = separator;
            m_primaryGroup = static_cast<size_t>(locale.groupingSize);
            m_secondaryGroup = static_cast<size_t>(std::max(locale.secondaryGroupingSize, 0));
        }
    } else {
        for (size_t i = 1; i < forbidden.size(); ++i)
            m_forbiddenTexts.push_back(TextOf(forbidden[i], locale));
        m_maskUnits = AsciiUnitsOf(settings.CustomMask);
        m_anyCharacterRule = !settings.ExtraExcludedCharacters.empty() || !settings.ValidCharactersSet.empty()
            || settings.NoDigits || settings.OnlyLetters || settings.OnlyLettersWithSpace;
        for (char16_t c = 0; c < 128; ++c) {
            int32_t bits = m_anyCharacterRule ? CharacterRules(c, settings) : 0;
            // In ASCII the simple case mappings only swap the 26 letters.
            if (settings.MustBeUpperCase && c >= u'a' && c <= u'z') bits |= vldCCMustBeUpperCase;
            if (settings.MustBeLowerCase && c >= u'A' && c <= u'Z') bits |= vldCCMustBeLowerCase;
            m_asciiBits[c] = bits;
            m_anyAsciiBits |= bits != 0;
        }
    }
}

int32_t PreparedRules::Evaluate(std::u16string_view text) const noexcept {
    if (text.empty()) return m_settings.RequiredField ? vldCCRequiredField : 0;
    switch (m_kind) {
    case Kind::DateTime:
        return DateTimeRules(text);
    case Kind::Number:
        return NumericRules(text);
    case Kind::Text:
        break;
    }
    return TextRules(text);
}

int32_t PreparedRules::EvaluateAscii(std::string_view text) const noexcept {
    if (text.empty()) return m_settings.RequiredField ? vldCCRequiredField : 0;
    int32_t result = -1;
    switch (m_kind) {
    case Kind::DateTime:
        result = ShortDateTimeRules(text);
        break;
    case Kind::Number:
        result = PlainNumberRules(text);
        break;
    case Kind::Text:
        // A mask with `*` is matched by the pattern matcher, which reads UTF-16.
        if (m_settings.CustomMask.empty() || !m_maskUnits.empty()) result = TextRules(text);
        break;
    }
    return result >= 0 ? result : EvaluateWidened(text);
}

void PreparedRules::CheckRuns(
    const ColumnRuns& column, size_t from, size_t to, int32_t* bits) const noexcept {
    const int32_t empty = m_settings.RequiredField ? vldCCRequiredField : 0;
    const auto each = [&](auto shortWay) {
        for (size_t i = from; i < to; ++i) {
            const TextRun run = column.runs[i];
            if (run.wide) {
                bits[i] = Evaluate(std::u16string_view(column.units.data() + run.offset, run.size));
                continue;
            }
            const std::string_view text(column.bytes.data() + run.offset, run.size);
            const int32_t result = text.empty() ? empty : shortWay(text);
            bits[i] = result >= 0 ? result : EvaluateWidened(text);
        }
    };
    if (m_settings.MustBeType == vldUnspecified) {
        std::fill(bits + from, bits + to, 0);
        return;
    }
    switch (m_kind) {
    case Kind::DateTime:
        each([this](std::string_view text) { return ShortDateTimeRules(text); });
        break;
    case Kind::Number:
        each([this](std::string_view text) { return PlainNumberRules(text); });
        break;
    case Kind::Text:
        if (m_settings.CustomMask.empty() || !m_maskUnits.empty())
            each([this](std::string_view text) { return AsciiTextRules(text); });
        else
            each([](std::string_view) { return -1; });
        break;
    }
}

int32_t PreparedRules::EvaluateWidened(std::string_view text) const noexcept {
    char16_t units[256];
    if (text.size() <= std::size(units)) {
        std::transform(text.begin(), text.end(), units, UnitOf<char>);
        return Evaluate(std::u16string_view(units, text.size()));
    }
    std::u16string widened(text.size(), u'\0');
    std::transform(text.begin(), text.end(), widened.begin(), UnitOf<char>);
    return Evaluate(widened);
}

int32_t PreparedRules::DayRules(double days) const noexcept {
    int32_t result = 0;
    if (m_minimum && days < *m_minimum) result |= vldCCMinValue;
    if (m_maximum && days > *m_maximum) result |= vldCCMaxValue;
    for (const double forbidden : m_forbiddenValues)
        if (forbidden == days) result |= vldCCMustNotBeValues;
    return result;
}

// The bits of a short time or a short date; -1 for a text that is neither, which goes the full way.
template <typename Char>
int32_t PreparedRules::ShortDateTimeRules(std::basic_string_view<Char> text) const noexcept {
    const bool wantDate = m_settings.MustBeType == vldDate;
    const int32_t typeBit = wantDate ? vldCCMustBeDate : vldCCMustBeTime;
    std::optional<double> days;
    if (!wantDate && ReadShortTime(text, days)) {
        if (!days) return typeBit;
    } else if (!ReadShortDate(text, m_locale, days)) {
        return -1;
    } else if (!days || !wantDate) {
        return typeBit;
    }
    return DayRules(*days);
}

int32_t PreparedRules::DateTimeRules(std::u16string_view text) const noexcept {
    if (const int32_t result = ShortDateTimeRules(text); result >= 0) return result;
    const bool wantDate = m_settings.MustBeType == vldDate;
    const auto parsed = ParseDateTime(text, m_locale);
    const bool isTime = text.find(u':') != std::u16string_view::npos;
    if (!parsed || isTime == wantDate) return wantDate ? vldCCMustBeDate : vldCCMustBeTime;
    return DayRules(parsed->days);
}

bool PreparedRules::HasTooManyDecimals(std::u16string_view text) const noexcept {
    // The text matches "*<separator>" followed by one digit more than allowed, then "*": some separator is
    // directly followed by that many digits. Runs after different separators are disjoint, so this is linear.
    const size_t wanted = static_cast<size_t>(m_settings.MaxNumberOfDecimals) + 1;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != m_locale.decimalSeparator) continue;
        size_t run = 0;
        while (i + 1 + run < text.size() && run < wanted && IsDigit(text[i + 1 + run]))
            ++run;
        if (run == wanted) return true;
    }
    return false;
}

// The rules of a number's value, whatever its text.
int32_t PreparedRules::ValueRules(double value) const noexcept {
    int32_t result = 0;
    if (value < 0 && m_settings.MustBePositive) result |= vldCCMustBePositive;
    if (value > 0 && m_settings.MustBeNegative) result |= vldCCMustBeNegative;
    if (value == 0 && m_settings.MustNotBeZero) result |= vldCCMustNotBeZero;
    for (const double item : m_forbiddenValues)
        if (item == value) result |= vldCCMustNotBeValues;
    if (m_minimum && value < *m_minimum) result |= vldCCMinValue;
    if (m_maximum && value > *m_maximum) result |= vldCCMaxValue;
    return result;
}

// The most common number texts, "-123", "-1,234" and "-1,234.56" (the locale's decimal separator, at most
// 15 digits, the locale's group separator only where its grouping puts one, sign only where the type takes
// one), judged in one pass. Their value is exact: the digits make an integer below 2^53, divided once by an
// exact power of ten, which rounds as the full reading does. Their shape passes the type's whole-text test
// save for the integral types' ranges and the currency's, which 15 digits cannot leave once the whole part is
// short enough. -1 for any other text, which goes the full way.
template <typename Char>
int32_t PreparedRules::PlainNumberRules(std::basic_string_view<Char> text) const noexcept {
    const int32_t type = m_settings.MustBeType;
    const bool integral = type == vldByte || type == vldInteger || type == vldLong;
    if (!integral && type != vldDouble && type != vldCurrency) return -1;
    size_t i = 0;
    const bool negative = text[0] == '-';
    if (negative) {
        if (type == vldByte) return -1;
        i = 1;
    }
    uint64_t mantissa = 0;
    size_t wholeDigits = 0;
    // The grouping rule as the number reader keeps it: the first group holds 1 to a secondary group's digits,
    // every later one but the last exactly a secondary group's, the last exactly the primary size; so no
    // separator stands first, last or beside another.
    size_t groupDigits = 0;
    size_t separators = 0;
    for (; i < text.size(); ++i) {
        const char16_t c = UnitOf(text[i]);
        if (IsDigit(c)) {
            mantissa = mantissa * 10 + static_cast<uint64_t>(c - u'0');
            ++wholeDigits;
            ++groupDigits;
        } else if (c == m_plainGroupSeparator && m_plainGroupSeparator != 0) {
            if (groupDigits == 0
                || (separators == 0 ? groupDigits > m_secondaryGroup : groupDigits != m_secondaryGroup))
                return -1;
            ++separators;
            groupDigits = 0;
        } else {
            break;
        }
    }
    if (separators > 0 && groupDigits != m_primaryGroup) return -1;
    if (wholeDigits == 0 || wholeDigits > 15) return -1;
    const uint64_t whole = mantissa;
    size_t fractionDigits = 0;
    if (i < text.size()) {
        if (integral || UnitOf(text[i]) != m_locale.decimalSeparator) return -1;
        for (++i; i < text.size() && IsDigit(UnitOf(text[i])); ++i, ++fractionDigits)
            mantissa = mantissa * 10 + static_cast<uint64_t>(text[i] - '0');
        if (i < text.size() || fractionDigits == 0 || wholeDigits + fractionDigits > 15) return -1;
    }
    if (type == vldCurrency && wholeDigits > 14) return -1;
    static constexpr double kPowers[]
        = { 1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15 };
    int32_t result = 0;
    if (m_minimum || m_maximum || !m_forbiddenValues.empty()) {
        double value = static_cast<double>(mantissa);
        if (fractionDigits > 0) value /= kPowers[fractionDigits];
        result = ValueRules(negative ? -value : value);
    } else {
        // Without limits or forbidden values only the sign matters, which the digits give: a fraction of
        // fifteen digits at most never rounds to zero.
        result = ValueRules(mantissa == 0 ? 0.0 : negative ? -1.0 : 1.0);
    }
    if (integral) {
        const uint64_t limit = type == vldByte ? 255
            : type == vldInteger               ? (negative ? 32768 : 32767)
                                               : (negative ? UINT64_C(2147483648) : UINT64_C(2147483647));
        if (whole > limit) result |= TypeBit(type);
    }
    if (m_settings.MaxNumberOfDecimals > 0
        && fractionDigits > static_cast<size_t>(m_settings.MaxNumberOfDecimals))
        result |= vldCCMaxNumberOfDecimals;
    return result;
}

int32_t PreparedRules::NumericRules(std::u16string_view text) const noexcept {
    if (const int32_t plain = PlainNumberRules(text); plain >= 0) return plain;
    ScannedNumber number;
    switch (ScanNumber(text, m_locale, GroupingOf(m_settings.ThousandSeparator), number)) {
    case NumberScanResult::NotNumber:
        return vldCCMustBeNumber;
    case NumberScanResult::TooManyDigits:
        return EvaluateRules(text, m_settings, m_locale, m_maxLength);
    case NumberScanResult::Number:
        break;
    }
    int32_t result = ValueRules(number.value);
    if (!NumericWholeTextTest(text, m_settings.MustBeType, m_settings.AllowScientificFormat, m_thousands,
            m_locale, &number.digits))
        result |= TypeBit(m_settings.MustBeType);
    if (m_settings.MaxNumberOfDecimals > 0 && HasTooManyDecimals(text)) result |= vldCCMaxNumberOfDecimals;
    if (!m_settings.AllowScientificFormat
        && std::any_of(text.begin(), text.end(), [](char16_t c) { return c == u'e' || c == u'E'; }))
        result |= vldCCAllowScientificFormat;
    return result;
}

// The case rules broken by the code point that starts at `at` (a code unit of 128 or above), whose end
// `at` moves to.
int32_t PreparedRules::CaseRulesOfCodePoint(std::u16string_view text, size_t& at) const noexcept {
    UChar32 c;
    int32_t next = static_cast<int32_t>(at);
    U16_NEXT(text.data(), next, static_cast<int32_t>(text.size()), c);
    at = static_cast<size_t>(next);
    int32_t result = 0;
    if (m_settings.MustBeUpperCase && ChangedBy(c, u_toupper)) result |= vldCCMustBeUpperCase;
    if (m_settings.MustBeLowerCase && ChangedBy(c, u_tolower)) result |= vldCCMustBeLowerCase;
    return result;
}

// The most common time texts, "9:05", "9:05:30", "9:05 AM" (one or two digits each, one space before a
// designator the locale is known to read), read in one pass as the date and time reader reads them: false for
// any other text, which that reader then takes. `days` is the fraction of the day, or nullopt for an hour,
// minute or second out of range.
template <typename Char>
bool PreparedRules::ReadShortTime(
    std::basic_string_view<Char> text, std::optional<double>& days) const noexcept {
    size_t i = 0;
    const auto group = [&](int& value) {
        const size_t start = i;
        value = 0;
        for (; i < text.size() && i - start < 2 && IsDigit(UnitOf(text[i])); ++i)
            value = value * 10 + (text[i] - '0');
        return i > start;
    };
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (!group(hour) || i == text.size() || text[i++] != ':' || !group(minute)) return false;
    if (i < text.size() && text[i] == ':' && (++i, !group(second))) return false;
    int designator = 0;
    if (i < text.size()) {
        if (text[i] != ' ' || text.size() - i != 3) return false;
        const int index = DesignatorIndex(UnitOf(text[i + 1]), UnitOf(text[i + 2]));
        designator = index < 0 ? 0 : m_designators[static_cast<size_t>(index)];
        if (designator == 0) return false;
    }
    days = std::nullopt;
    if (minute > 59 || second > 59 || hour > (designator == 0 ? 23 : 12)) return true;
    if (designator != 0) hour = hour % 12 + (designator == 2 ? 12 : 0);
    days = (hour * 3600 + minute * 60 + second) / 86400.0;
    return true;
}

// The text rules of an ASCII text in one pass: the characters' and case rules through the table, the mask
// unit by unit (a text of bytes comes here only under no mask or a mask without `*`), the proper case at the
// first character and after each space.
int32_t PreparedRules::AsciiTextRules(std::string_view text) const noexcept {
    int32_t result = 0;
    if (m_maxLength > 0 && text.size() > static_cast<size_t>(m_maxLength)) result |= vldCCMaxLength;
    const bool masked = !m_settings.CustomMask.empty();
    const auto unit = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    // Separate short loops without branches: each part is skipped where the field has no such rule.
    if (masked) {
        uint8_t matches = text.size() == m_maskUnits.size() ? 1 : 0;
        for (size_t i = 0; matches != 0 && i < text.size(); ++i)
            matches &= m_maskUnits[i][unit(i)];
        if (matches == 0) result |= vldCCCustomMask;
    }
    if (m_anyAsciiBits)
        for (size_t i = 0; i < text.size(); ++i)
            result |= m_asciiBits[unit(i)];
    if (m_settings.MustBeProperCase) {
        bool improper = false;
        for (size_t i = 0; i < text.size(); ++i)
            improper |= (i == 0 || text[i - 1] == ' ') && unit(i) >= 'a' && unit(i) <= 'z';
        if (improper) result |= vldCCMustBeProperCase;
    }
    for (const std::u16string& item : m_forbiddenTexts)
        if (SameText(item, text)) result |= vldCCMustNotBeValues;
    return result;
}

// A text of bytes comes here only under a mask without `*`, and holds only ASCII.
template <typename Char> bool PreparedRules::MatchesMask(std::basic_string_view<Char> text) const noexcept {
    if constexpr (sizeof(Char) == 2)
        if (m_maskUnits.empty()) return MatchPattern(text, m_settings.CustomMask);
    if (text.size() != m_maskUnits.size()) return false;
    for (size_t i = 0; i < text.size(); ++i) {
        const char16_t c = UnitOf(text[i]);
        if constexpr (sizeof(Char) == 2)
            if (c >= 128) return MatchPattern(text, m_settings.CustomMask);
        if (m_maskUnits[i][c] == 0) return false;
    }
    return true;
}

template <typename Char> int32_t PreparedRules::TextRules(std::basic_string_view<Char> text) const noexcept {
    if constexpr (sizeof(Char) == 1) return AsciiTextRules(text);
    int32_t result = 0;
    if (!m_settings.CustomMask.empty() && !MatchesMask(text)) result |= vldCCCustomMask;
    if (m_maxLength > 0 && text.size() > static_cast<size_t>(m_maxLength)) result |= vldCCMaxLength;
    // One pass for the character rules and the upper- and lower-case rules: ASCII through the table, the
    // rest unit by unit for the characters and code point by code point for the case.
    const bool anyCaseRule = m_settings.MustBeUpperCase || m_settings.MustBeLowerCase;
    size_t caseDoneUpTo = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const char16_t c = UnitOf(text[i]);
        if (c < 128) {
            result |= m_asciiBits[c];
            continue;
        }
        if constexpr (sizeof(Char) == 2) { // bytes are all ASCII
            if (m_anyCharacterRule) result |= CharacterRules(c, m_settings);
            // A surrogate pair is one code point for the case rules, already judged at its first unit.
            if (anyCaseRule && i >= caseDoneUpTo) {
                size_t end = i;
                result |= CaseRulesOfCodePoint(text, end);
                caseDoneUpTo = end;
            }
        }
    }
    if (m_settings.MustBeProperCase) {
        // Only the first code point and those after a space are mapped to upper case.
        for (size_t at = 0; at < text.size(); ++at) {
            if (at != 0 && text[at - 1] != ' ') continue;
            const char16_t c = UnitOf(text[at]);
            bool changed = c >= u'a' && c <= u'z';
            if constexpr (sizeof(Char) == 2) {
                if (c >= 128) {
                    UChar32 point;
                    int32_t next = static_cast<int32_t>(at);
                    U16_NEXT(text.data(), next, static_cast<int32_t>(text.size()), point);
                    changed = ChangedBy(point, u_toupper);
                }
            }
            if (changed) {
                result |= vldCCMustBeProperCase;
                break;
            }
        }
    }
    for (const std::u16string& item : m_forbiddenTexts)
        if (SameText(item, text)) result |= vldCCMustNotBeValues;
    return result;
}

} // namespace quillmar
