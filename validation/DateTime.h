#pragma once

#include "base/LocaleInfo.h"
#include "base/Variant.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// A date and/or time read from a text.
struct ParsedDateTime {
    /// The date-time as days from 30 December 1899 (see `Date`).
    double days = 0;
    bool hasDate = false;
    bool hasTime = false;
};

/// The one date and time parser of the system. Accepts, with blanks around and between the parts:
/// a date of three numbers in the locale's order of day, month and year separated by "/", "-" or "."
/// (a first number of four digits is a year and makes the order year, month, day); a time of hours and
/// minutes, optionally seconds, separated by ":", optionally followed by an AM/PM designator ("AM", "PM",
/// "A", "P" in either case, or the locale's own); or a date followed by a time. Years of one or two digits
/// fall in 1930-2029; years run from 100 to 9999. A time alone lies on day zero; a date alone at midnight.
/// Anything else (including overlong texts and out-of-range parts) gives nullopt; never throws.
[[nodiscard]] std::optional<ParsedDateTime> ParseDateTime(std::u16string_view text, const LocaleInfo& locale);

/// True when `ParseDateTime` accepts the text.
[[nodiscard]] bool IsDateText(std::u16string_view text, const LocaleInfo& locale);

/// The date-time of the text; day zero at midnight when the text is not a date or time.
[[nodiscard]] Date TextToDateTime(std::u16string_view text, const LocaleInfo& locale);

/// The days from 30 December 1899 of a calendar date; nullopt for an invalid date or a year outside 100-9999.
[[nodiscard]] std::optional<double> SerialFromDate(int year, int month, int day) noexcept;

/// A proleptic Gregorian calendar date.
struct CivilDate {
    int64_t year;
    int month;
    int day;
};

/// The calendar date of a whole day number counted from 30 December 1899 (day 0; -1 is 29 December 1899).
[[nodiscard]] CivilDate CivilDateOfSerial(int64_t serialDay) noexcept;

/// The locale's own text of a date-time: the short date with a four-digit year when the whole part is
/// not zero, the time with seconds (12-hour with the locale's designator where the locale uses one)
/// when the fraction is not zero or the whole part is zero, both separated by a space otherwise.
/// The text always parses back to the same value; a time's text always holds ":".
/// A value outside the years 100-9999 gives the empty text.
[[nodiscard]] std::u16string FormatDateTime(Date value, const LocaleInfo& locale);

} // namespace quillmar
