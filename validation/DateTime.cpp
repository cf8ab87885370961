#include "validation/DateTime.h"

#include <cmath>
#include <cstdint>

namespace quillmar {

namespace {

constexpr int kMinYear = 100;
constexpr int kMaxYear = 9999;
constexpr int kSecondsPerDay = 86400;
// Longer texts are refused before any scanning: no date-time is written with this many characters.
constexpr size_t kMaxTextLength = 256;
constexpr int kMaxDateDigits = 4;
constexpr int kMaxTimeDigits = 2;

// Days from 1970-01-01 of a proleptic Gregorian date, counted in 400-year eras.
constexpr int64_t DaysFromCivil(int64_t year, int64_t month, int64_t day) noexcept {
    year -= month <= 2;
    const int64_t era = (year >= 0 ? year : year - 399) / 400;
    const int64_t yearOfEra = year - era * 400;
    const int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

constexpr CivilDate CivilFromDays(int64_t days) noexcept {
    days += 719468;
    const int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const int64_t dayOfEra = days - era * 146097;
    const int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int64_t shiftedMonth = (5 * dayOfYear + 2) / 153;
    const int day = static_cast<int>(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
    const int month = static_cast<int>(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
    return { yearOfEra + era * 400 + (month <= 2), month, day };
}

constexpr int64_t kEpoch = DaysFromCivil(1899, 12, 30);
constexpr int64_t kFirstSerial = DaysFromCivil(kMinYear, 1, 1) - kEpoch;
constexpr int64_t kLastSerial = DaysFromCivil(kMaxYear, 12, 31) - kEpoch;

constexpr bool IsLeapYear(int year) noexcept {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

constexpr int DaysInMonth(int year, int month) noexcept {
    constexpr int kDays[] = { 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

bool IsBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\u00A0';
}
bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
bool IsDateSeparator(char16_t c) {
    return c == u'/' || c == u'-' || c == u'.';
}

char16_t AsciiLower(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

bool EqualsIgnoringAsciiCase(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (AsciiLower(a[i]) != AsciiLower(b[i])) return false;
    return true;
}

// A left-to-right reader over the text; every step advances, so a parse is linear in the length.
class Scanner {
public:
    explicit Scanner(std::u16string_view text)
        : m_text(text) { }

    bool AtEnd() const { return m_pos == m_text.size(); }
    char16_t Peek() const { return AtEnd() ? u'\0' : m_text[m_pos]; }
    std::u16string_view Rest() const { return m_text.substr(m_pos); }
    void Advance() { ++m_pos; }

    void SkipBlanks() {
        while (!AtEnd() && IsBlank(m_text[m_pos]))
            ++m_pos;
    }

    // A maximal run of digits of at most `maxDigits`; a longer run is refused rather than split.
    struct Number {
        int value;
        int digits;
    };
    std::optional<Number> ReadNumber(int maxDigits) {
        Number number { 0, 0 };
        while (!AtEnd() && IsDigit(m_text[m_pos])) {
            if (++number.digits > maxDigits) return std::nullopt;
            number.value = number.value * 10 + (m_text[m_pos] - u'0');
            ++m_pos;
        }
        if (number.digits == 0) return std::nullopt;
        return number;
    }

private:
    std::u16string_view m_text;
    size_t m_pos = 0;
};

int ExpandYear(Scanner::Number year) {
    if (year.digits > 2) return year.value;
    return year.value < 30 ? 2000 + year.value : 1900 + year.value;
}

// Reads the second and third groups of a date whose first group is already read.
std::optional<double> ReadDate(Scanner& scanner, Scanner::Number first, const LocaleInfo& locale) {
    Scanner::Number groups[3] = { first, {}, {} };
    for (int i = 1; i < 3; ++i) {
        if (!IsDateSeparator(scanner.Peek())) return std::nullopt;
        scanner.Advance();
        std::optional<Scanner::Number> group = scanner.ReadNumber(kMaxDateDigits);
        if (!group) return std::nullopt;
        groups[i] = *group;
    }
    DateOrder order = first.digits > 2 ? DateOrder::YearMonthDay : locale.dateOrder;
    switch (order) {
    case DateOrder::MonthDayYear:
        return SerialFromDate(ExpandYear(groups[2]), groups[0].value, groups[1].value);
    case DateOrder::DayMonthYear:
        return SerialFromDate(ExpandYear(groups[2]), groups[1].value, groups[0].value);
    case DateOrder::YearMonthDay:
        return SerialFromDate(ExpandYear(groups[0]), groups[1].value, groups[2].value);
    }
    return std::nullopt;
}

enum class Designator { None, Am, Pm, Invalid };

// The rest of the text after a time: nothing, or a designator followed only by blanks.
Designator ReadDesignator(std::u16string_view rest, const LocaleInfo& locale) {
    while (!rest.empty() && IsBlank(rest.front()))
        rest.remove_prefix(1);
    while (!rest.empty() && IsBlank(rest.back()))
        rest.remove_suffix(1);
    if (rest.empty()) return Designator::None;
    if (!locale.am.empty() && EqualsIgnoringAsciiCase(rest, locale.am)) return Designator::Am;
    if (!locale.pm.empty() && EqualsIgnoringAsciiCase(rest, locale.pm)) return Designator::Pm;
    if (EqualsIgnoringAsciiCase(rest, u"AM") || EqualsIgnoringAsciiCase(rest, u"A")) return Designator::Am;
    if (EqualsIgnoringAsciiCase(rest, u"PM") || EqualsIgnoringAsciiCase(rest, u"P")) return Designator::Pm;
    return Designator::Invalid;
}

// Reads the rest of a time whose hour is already read, through to the end of the text; the fraction
// of the day it names.
std::optional<double> ReadTime(Scanner& scanner, Scanner::Number hour, const LocaleInfo& locale) {
    if (hour.digits > kMaxTimeDigits || scanner.Peek() != u':') return std::nullopt;
    scanner.Advance();
    std::optional<Scanner::Number> minute = scanner.ReadNumber(kMaxTimeDigits);
    if (!minute || minute->value > 59) return std::nullopt;
    int second = 0;
    if (scanner.Peek() == u':') {
        scanner.Advance();
        std::optional<Scanner::Number> seconds = scanner.ReadNumber(kMaxTimeDigits);
        if (!seconds || seconds->value > 59) return std::nullopt;
        second = seconds->value;
    }
    int hours = hour.value;
    switch (ReadDesignator(scanner.Rest(), locale)) {
    case Designator::None:
        if (hours > 23) return std::nullopt;
        break;
    case Designator::Am:
        if (hours > 12) return std::nullopt;
        hours %= 12;
        break;
    case Designator::Pm:
        if (hours > 12) return std::nullopt;
        hours = hours % 12 + 12;
        break;
    case Designator::Invalid:
        return std::nullopt;
    }
    // Formatting recovers the seconds from exactly this quotient, which keeps the round trip exact.
    return (hours * 3600 + minute->value * 60 + second) / static_cast<double>(kSecondsPerDay);
}

void AppendNumber(std::u16string& text, int64_t value, int width) {
    char16_t digits[20];
    int count = 0;
    do {
        digits[count++] = static_cast<char16_t>(u'0' + value % 10);
        value /= 10;
    } while (value > 0);
    for (int i = count; i < width; ++i)
        text += u'0';
    while (count > 0)
        text += digits[--count];
}

void AppendDate(std::u16string& text, int64_t serial, const LocaleInfo& locale) {
    const CivilDate date = CivilFromDays(serial + kEpoch);
    // A separator the parser does not accept would break the round trip.
    const char16_t separator = IsDateSeparator(locale.dateSeparator) ? locale.dateSeparator : u'/';
    const int dayWidth = locale.padDay ? 2 : 1;
    const int monthWidth = locale.padMonth ? 2 : 1;
    switch (locale.dateOrder) {
    case DateOrder::MonthDayYear:
        AppendNumber(text, date.month, monthWidth);
        text += separator;
        AppendNumber(text, date.day, dayWidth);
        text += separator;
        AppendNumber(text, date.year, 4);
        break;
    case DateOrder::DayMonthYear:
        AppendNumber(text, date.day, dayWidth);
        text += separator;
        AppendNumber(text, date.month, monthWidth);
        text += separator;
        AppendNumber(text, date.year, 4);
        break;
    case DateOrder::YearMonthDay:
        AppendNumber(text, date.year, 4);
        text += separator;
        AppendNumber(text, date.month, monthWidth);
        text += separator;
        AppendNumber(text, date.day, dayWidth);
        break;
    }
}

// The time is always written with ":" whatever the locale's own time separator, because the parser
// recognises a time by it.
void AppendTime(std::u16string& text, int seconds, const LocaleInfo& locale) {
    const int hour = seconds / 3600;
    const int minute = seconds / 60 % 60;
    const int second = seconds % 60;
    if (locale.twelveHour) {
        AppendNumber(text, hour % 12 == 0 ? 12 : hour % 12, 1);
    } else {
        AppendNumber(text, hour, 2);
    }
    text += u':';
    AppendNumber(text, minute, 2);
    text += u':';
    AppendNumber(text, second, 2);
    if (locale.twelveHour) {
        const std::u16string& designator = hour < 12 ? locale.am : locale.pm;
        text += u' ';
        if (designator.empty())
            text += hour < 12 ? u"AM" : u"PM";
        else
            text += designator;
    }
}

} // namespace

std::optional<double> SerialFromDate(int year, int month, int day) noexcept {
    if (year < kMinYear || year > kMaxYear || month < 1 || month > 12) return std::nullopt;
    if (day < 1 || day > DaysInMonth(year, month)) return std::nullopt;
    return static_cast<double>(DaysFromCivil(year, month, day) - kEpoch);
}

std::optional<ParsedDateTime> ParseDateTime(std::u16string_view text, const LocaleInfo& locale) {
    if (text.size() > kMaxTextLength) return std::nullopt;
    Scanner scanner(text);
    scanner.SkipBlanks();
    std::optional<Scanner::Number> first = scanner.ReadNumber(kMaxDateDigits);
    if (!first) return std::nullopt;

    ParsedDateTime result;
    if (scanner.Peek() == u':') {
        std::optional<double> time = ReadTime(scanner, *first, locale);
        if (!time) return std::nullopt;
        result.days = *time;
        result.hasTime = true;
        return result;
    }

    std::optional<double> date = ReadDate(scanner, *first, locale);
    if (!date) return std::nullopt;
    result.days = *date;
    result.hasDate = true;
    scanner.SkipBlanks();
    if (scanner.AtEnd()) return result;

    // The date's last number took every digit, so a time can only start after blanks.
    std::optional<Scanner::Number> hour = scanner.ReadNumber(kMaxTimeDigits);
    if (!hour) return std::nullopt;
    std::optional<double> time = ReadTime(scanner, *hour, locale);
    if (!time) return std::nullopt;
    // Before the epoch the whole part counts back while the time still counts forward.
    result.days = *date < 0 ? *date - *time : *date + *time;
    result.hasTime = true;
    return result;
}

bool IsDateText(std::u16string_view text, const LocaleInfo& locale) {
    return ParseDateTime(text, locale).has_value();
}

Date TextToDateTime(std::u16string_view text, const LocaleInfo& locale) {
    std::optional<ParsedDateTime> parsed = ParseDateTime(text, locale);
    return Date { parsed ? parsed->days : 0.0 };
}

std::u16string FormatDateTime(Date value, const LocaleInfo& locale) {
    // Checked before any conversion to an integer, which would be undefined for huge values.
    if (!std::isfinite(value.days) || value.days < static_cast<double>(kFirstSerial) - 1
        || value.days > static_cast<double>(kLastSerial) + 1)
        return {};
    const double whole = std::trunc(value.days);
    int64_t day = static_cast<int64_t>(whole);
    int64_t seconds = std::llround(std::fabs(value.days - whole) * kSecondsPerDay);
    if (seconds >= kSecondsPerDay) {
        seconds -= kSecondsPerDay;
        ++day;
    }
    if (day < kFirstSerial || day > kLastSerial) return {};

    std::u16string text;
    if (day != 0) AppendDate(text, day, locale);
    if (day == 0 || seconds != 0) {
        if (!text.empty()) text += u' ';
        AppendTime(text, static_cast<int>(seconds), locale);
    }
    return text;
}

CivilDate CivilDateOfSerial(int64_t serialDay) noexcept {
    return CivilFromDays(serialDay + kEpoch);
}

} // namespace quillmar
