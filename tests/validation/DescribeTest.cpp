#include "validation/Describe.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillmar {
namespace {

struct DescribeCase {
    const char* name;
    std::function<void(Settings&)> declare;
    int32_t maxLength;
    std::u16string expected;
    const char* locale = "en_US";
};

Settings Typed(MustBeTypeConstants type, Variant min = std::u16string(), Variant max = std::u16string()) {
    Settings s;
    s.MustBeType = type;
    s.MinValue = std::move(min);
    s.MaxValue = std::move(max);
    return s;
}

const DescribeCase kDescriptions[] = {
    { "integer range", [](Settings& s) { s = Typed(vldInteger, u"1", u"100"); }, 0,
        u"An integer between 1 and 100" },
    { "sign worded without the matching bound",
        [](Settings& s) { s = Typed(vldLong, u"", u"100"), s.MustBePositive = true; }, 0,
        u"A positive integer <= 100" },
    { "sign implied by the bound", [](Settings& s) { s = Typed(vldDouble, u"0"), s.MustBePositive = true; },
        0, u"A number >= 0" },
    { "decimals", [](Settings& s) { s = Typed(vldCurrency), s.MaxNumberOfDecimals = 2; }, 0,
        u"A number, at most 2 decimals" },
    { "one decimal", [](Settings& s) { s = Typed(vldSingle), s.MaxNumberOfDecimals = 1; }, 0,
        u"A number, at most 1 decimal" },
    { "date range", [](Settings& s) { s = Typed(vldDate, u"1/1/2000", u"12/31/2099"); }, 0,
        u"A date between 1/1/2000 and 12/31/2099" },
    { "date without bounds", [](Settings& s) { s = Typed(vldDate); }, 0, u"A date" },
    { "a date bound in a time field does not count",
        [](Settings& s) { s = Typed(vldTime, u"1/1/2000", u"17:00"); }, 0, u"A time before 17:00" },
    { "mask by example", [](Settings& s) { s.CustomMask = u"[A-Z][A-Z]-####"; }, 0, u"Like AB-1234" },
    { "text rules in order",
        [](Settings& s) { s.OnlyLetters = s.MustBeUpperCase = true, s.CustomMask = u"??*"; }, 8,
        u"Letters only, upper case, at most 8 characters, like AB" },
    { "lower case wins", [](Settings& s) { s.MustBeUpperCase = s.MustBeLowerCase = s.NoDigits = true; }, 1,
        u"No digits, lower case, at most 1 character" },
    { "plain text says nothing", [](Settings&) {}, 0, u"" },
    { "characters added to a letter rule",
        [](Settings& s) { s.OnlyLettersWithSpace = true, s.ExtraIncludedCharacters = u"-'."; }, 0,
        u"Letters, spaces and - ' . only" },
    { "a valid set and its added character",
        [](Settings& s) { s.ValidCharactersSet = u"0123456789 +-", s.ExtraIncludedCharacters = u"()"; }, 20,
        u"Only 0\u20139 space + - ( ), at most 20 characters" },
    // The words stay; the numbers and dates are the locale's.
    { "German decimal range", [](Settings& s) { s = Typed(vldDouble, 0.5, 1234.5); }, 0,
        u"A number between 0,5 and 1234,5", "de_DE" },
    { "German currency", [](Settings& s) { s = Typed(vldCurrency, u"", 99.99), s.MaxNumberOfDecimals = 2; },
        0, u"A number <= 99,99, at most 2 decimals", "de_DE" },
    { "German date range", [](Settings& s) { s = Typed(vldDate, Date { 36526 }, Date { 73050 }); }, 0,
        u"A date between 01.01.2000 and 31.12.2099", "de_DE" },
    { "German time", [](Settings& s) { s = Typed(vldTime, Date { 0.375 }); }, 0, u"A time after 09:00:00",
        "de_DE" },
};

TEST(DescribeRules, WordsTheFieldsRules) {
    for (const DescribeCase& row : kDescriptions) {
        SCOPED_TRACE(row.name);
        Settings settings;
        row.declare(settings);
        EXPECT_EQ(DescribeRules(settings, LocaleInfo::FromName(row.locale), row.maxLength), row.expected);
    }
}

TEST(MaskExample, FitsTheMask) {
    struct Row {
        std::u16string mask, expected;
    };
    const Row rows[] = {
        { u"[A-Z][A-Z]-####", u"AB-1234" },
        { u"##########", u"1234567890" }, // the digits wrap round to 0
        { u"[a-z]?[0-9]*x", u"aB1x" },
        { u"[!A-Z0-9]", u"a" },
        { u"[\u00E0-\u00FF]", u"\u00E0" }, // a list of no ASCII character shows its own
        { u"A[]", u"" }, // no text matches an empty list
        { u"[A-", u"" }, // malformed
        { u"", u"" },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.mask.begin(), row.mask.end()));
        EXPECT_EQ(MaskExample(row.mask), row.expected);
    }
}

TEST(CharacterList, NamesEachCharacterOnce) {
    struct Row {
        std::u16string set, expected;
    };
    const Row rows[] = {
        { u"0123456789 +-()", u"0\u20139 space + - ( )" },
        { u"abcxyzAB--", u"a\u2013c x\u2013z A B -" }, // two in a row stay apart; a repeat once
        { u"9012", u"9 0\u20132" }, // a run goes up by one
        { u"\U0001F600\u00E9", u"\U0001F600 \u00E9" },
        { u"a\tb", u"" },
        { u"ABCDEFGHIJKLMNOPQRSTUVWXYZ", u"" }, // too many to list
        { u"", u"" },
    };
    for (const Row& row : rows)
        EXPECT_EQ(CharacterList(row.set), row.expected);
}

TEST(PlaceholderText, ShowsAnExampleInTheLocalesFormat) {
    struct Row {
        const char* name;
        const char* locale;
        Settings settings;
        std::u16string expected;
    };
    Settings masked;
    masked.CustomMask = u"[A-Z][A-Z]-####";
    const Row rows[] = {
        { "American short date", "en_US", Typed(vldDate), u"12/31/25" },
        { "German short date", "de_DE", Typed(vldDate), u"31.12.25" },
        { "Japanese short date", "ja_JP", Typed(vldDate), u"2025/12/31" },
        { "German time", "de_DE", Typed(vldTime), u"17:30" },
        { "range", "en_US", Typed(vldInteger, u"1", u"100"), u"1 \u2013 100" },
        { "lower bound", "en_US", Typed(vldDouble, u"0.5"), u"\u2265 0.5" },
        { "upper bound", "en_US", Typed(vldByte, u"", u"9"), u"\u2264 9" },
        { "unbounded number", "en_US", Typed(vldInteger), u"" },
        { "mask", "en_US", masked, u"AB-1234" },
        { "plain text", "en_US", Settings {}, u"" },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(PlaceholderText(row.settings, LocaleInfo::FromName(row.locale), 2025), row.expected);
    }
    // Twelve-hour locales end the time with their own designator.
    const std::u16string american = PlaceholderText(Typed(vldTime), LocaleInfo::FromName("en_US"), 2025);
    EXPECT_EQ(american.substr(0, 4), u"5:30");
    EXPECT_EQ(american.substr(american.size() - 2), u"PM");
}

} // namespace
} // namespace quillmar
