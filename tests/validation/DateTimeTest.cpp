#include "validation/DateTime.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <tuple>

namespace quillmar {
namespace {

const LocaleInfo& Locale(const std::string& name) {
    static std::map<std::string, LocaleInfo> cache;
    auto found = cache.find(name);
    if (found == cache.end()) found = cache.emplace(name, LocaleInfo::FromName(name)).first;
    return found->second;
}

std::string Narrow(std::u16string_view text) {
    return std::string(text.begin(), text.end());
}

TEST(DateTimeTest, SerialsOfKnownDates) {
    // Year, month and day, and the serial if the date exists.
    const std::tuple<int, int, int, std::optional<double>> rows[] = { { 1899, 12, 30, 0 }, { 1900, 1, 1, 2 },
        { 2000, 1, 1, 36526 }, { 100, 1, 1, -657434 }, { 9999, 12, 31, 2958465 },
        { 99, 12, 31, std::nullopt }, { 10000, 1, 1, std::nullopt }, { 2004, 13, 1, std::nullopt } };
    for (const auto& [year, month, day, expected] : rows) {
        SCOPED_TRACE(year);
        EXPECT_EQ(SerialFromDate(year, month, day), expected);
    }
}

// A text that parses; year 0 means no date, seconds -1 means no time.
struct AcceptedRow {
    const char* locale;
    const char16_t* text;
    int year, month, day, seconds;
};

const AcceptedRow kAccepted[] = {
    // One text, three readings by the locale's order.
    { "en_US", u"03/04/2005", 2005, 3, 4, -1 }, { "en_GB", u"03/04/2005", 2005, 4, 3, -1 },
    { "ja_JP", u"05/04/03", 2005, 4, 3, -1 }, { "en_GB", u"31/12/2004", 2004, 12, 31, -1 },
    // Any of the three separators is accepted whatever the locale writes.
    { "de_DE", u"31/12/2004", 2004, 12, 31, -1 }, { "fr_FR", u"31.12-2004", 2004, 12, 31, -1 },
    // A four-digit first number is a year in every locale.
    { "en_US", u"2004-12-31", 2004, 12, 31, -1 }, { "en_GB", u"2004-12-31", 2004, 12, 31, -1 },
    { "ja_JP", u"2004-12-31", 2004, 12, 31, -1 },
    // Leap days by the four- and the four-hundred-year rule; two-digit years up to 29 are in this century.
    { "en_US", u"2/29/2004", 2004, 2, 29, -1 }, { "en_US", u"2/29/2000", 2000, 2, 29, -1 },
    { "en_US", u"1/2/29", 2029, 1, 2, -1 }, { "en_US", u"1/2/30", 1930, 1, 2, -1 },
    // Three digits are a literal year, and first they put the year first.
    { "en_US", u"1/2/100", 100, 1, 2, -1 }, { "en_GB", u"100/1/2", 100, 1, 2, -1 },
    // Times, with or without a day period, and dates with times.
    { "en_US", u"10:30 pm", 0, 0, 0, 22 * 3600 + 1800 }, { "en_US", u"12:00 AM", 0, 0, 0, 0 },
    { "en_US", u"12:30 p", 0, 0, 0, 12 * 3600 + 1800 }, { "en_US", u"1:00PM", 0, 0, 0, 13 * 3600 },
    { "en_US", u" \t0:00:59\u00A0", 0, 0, 0, 59 }, { "de_DE", u"23:59:59", 0, 0, 0, 86399 },
    { "en_GB", u"10:30 PM", 0, 0, 0, 22 * 3600 + 1800 },
    { "ja_JP", u"10:30 午後", 0, 0, 0, 22 * 3600 + 1800 },
    { "en_US", u"3/4/2005 10:30:15 PM", 2005, 3, 4, 22 * 3600 + 1815 },
    { "de_DE", u"04.03.2005  22:30", 2005, 3, 4, 22 * 3600 + 1800 },
    // Before the epoch the time still counts forward: -1.25.
    { "en_US", u"12/29/1899 6:00", 1899, 12, 29, 6 * 3600 }
};

TEST(DateTimeTest, AcceptedTexts) {
    for (const AcceptedRow& row : kAccepted) {
        SCOPED_TRACE(row.locale + (" " + Narrow(row.text)));
        double expected = row.year ? SerialFromDate(row.year, row.month, row.day).value_or(NAN) : 0;
        if (row.seconds >= 0) {
            const double time = row.seconds / 86400.0;
            expected = expected < 0 ? expected - time : expected + time;
        }
        const std::optional<ParsedDateTime> parsed = ParseDateTime(row.text, Locale(row.locale));
        ASSERT_TRUE(parsed);
        EXPECT_EQ(parsed->days, expected);
        EXPECT_EQ(parsed->hasDate, row.year != 0);
        EXPECT_EQ(parsed->hasTime, row.seconds >= 0);
        EXPECT_EQ(TextToDateTime(row.text, Locale(row.locale)).days, expected);
    }
}

const std::pair<const char*, const char16_t*> kRejected[] = {
    // Neither a date nor a time: the shape, a field's range or the calendar is wrong.
    { "en_US", u"" }, { "en_US", u"   " }, { "en_US", u"5" }, { "de_DE", u"1.5" }, { "en_US", u"12/5" },
    { "en_US", u"10:60" }, { "en_US", u"25:00" }, { "en_US", u"100:00" }, { "en_US", u"1/2/3/4" },
    { "en_US", u"10:30 xm" }, { "en_US", u"13:00 PM" }, { "en_US", u"10:30 PM PM" },
    { "en_US", u"10:30 1/2/2003" }, { "en_US", u"1/2/2003x" }, { "en_US", u"31/12/2004" },
    { "en_US", u"2/29/1900" }, { "en_US", u"2/29/2005" }, { "en_US", u"4/31/2005" },
    { "en_US", u"1/2/0099" }, // a four-digit year below 100 is not widened like a two-digit one
    { "en_US", u"1/2/20050" },
    { "ja_JP", u"03/04/2005" }, // the year comes first in Japanese, so 2005 is the day
    { "en_US", u"000000000000000000001/2/2003" }
};

TEST(DateTimeTest, RejectedTexts) {
    for (const auto& [locale, text] : kRejected) {
        SCOPED_TRACE(locale + (" " + Narrow(text)));
        EXPECT_FALSE(IsDateText(text, Locale(locale)));
        EXPECT_EQ(TextToDateTime(text, Locale(locale)).days, 0);
    }
    EXPECT_FALSE(IsDateText(std::u16string(300, u' ') + u"1/2/2003", Locale("en_US")));
}

const std::tuple<const char*, double, const char16_t*> kFormats[] = {
    // Each locale's order and separators, the day periods and the first year.
    { "en_US", 38415.9375, u"3/4/2005 10:30:00 PM" }, { "de_DE", 38415.9375, u"04.03.2005 22:30:00" },
    { "fr_FR", 38415, u"04/03/2005" }, { "ja_JP", 38415.25, u"2005/03/04 06:00:00" },
    { "en_GB", 0.25, u"06:00:00" }, { "en_US", 0, u"12:00:00 AM" }, { "en_US", 0.5, u"12:00:00 PM" },
    { "en_US", -1.25, u"12/29/1899 6:00:00 AM" }, { "en_US", -657434, u"1/1/0100" },
    // Half a second before midnight rounds into the next day.
    { "en_US", 1 - 0.4 / 86400, u"12/31/1899" },
    // Out of range: no text.
    { "en_US", 2958466, u"" }, { "en_US", -657435, u"" },
    { "en_US", std::numeric_limits<double>::quiet_NaN(), u"" }
};

TEST(DateTimeTest, FormatsInTheLocaleOrder) {
    for (const auto& [locale, value, expected] : kFormats) {
        SCOPED_TRACE(locale + (" " + std::to_string(value)));
        EXPECT_EQ(FormatDateTime(Date { value }, Locale(locale)), expected);
    }
}

TEST(DateTimeTest, FormattedTextParsesBackExactly) {
    constexpr int64_t kFirst = -657434;
    constexpr int64_t kLast = 2958465;
    std::mt19937_64 random(20050304);
    std::uniform_int_distribution<int64_t> days(kFirst, kLast);
    std::uniform_int_distribution<int> seconds(0, 86399);
    for (const char* name : { "en_US", "de_DE", "fr_FR", "en_GB", "ja_JP" }) {
        const LocaleInfo& locale = Locale(name);
        for (int i = 0; i < 3000; ++i) {
            const double day = i % 3 == 1 ? 0 : static_cast<double>(days(random));
            const double time = i % 3 == 0 ? 0 : seconds(random) / 86400.0;
            const double value = day < 0 ? day - time : day + time;
            const std::u16string text = FormatDateTime(Date { value }, locale);
            SCOPED_TRACE(std::string(name) + " " + std::to_string(value) + " " + Narrow(text));
            const std::optional<ParsedDateTime> parsed = ParseDateTime(text, locale);
            ASSERT_TRUE(parsed);
            EXPECT_EQ(parsed->days, value);
            EXPECT_EQ(parsed->hasDate, day != 0);
            EXPECT_EQ(parsed->hasTime, day == 0 || time != 0);
            EXPECT_EQ(text.find(u':') != std::u16string::npos, parsed->hasTime);
        }
    }
}

} // namespace
} // namespace quillmar
