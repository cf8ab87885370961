#include "input/PasteText.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quillmar {
namespace {

enum class Field {
    Integer,
    GroupedLong,
    Double,
    GroupedDouble,
    Currency,
    GroupedCurrency,
    UnsiftedCurrency,
    Date,
    Time,
    Text
};

struct PasteCase {
    const char* name;
    Field field;
    const char* locale;
    std::u16string pasted;
    /// What goes in; nullopt when the paste is refused whole.
    std::optional<std::u16string> expected;
};

void Declare(Field field, Settings& settings, TypeFlags& flags) {
    switch (field) {
    case Field::GroupedLong:
        settings.ThousandSeparator = vldTSAllowed;
        flags.NumericMode = flags.TypeIsLong = true;
        break;
    case Field::Integer:
        flags.NumericMode = flags.TypeIsInteger = true;
        break;
    case Field::GroupedDouble:
        settings.ThousandSeparator = vldTSAllowed;
        [[fallthrough]];
    case Field::Double:
        flags.NumericMode = flags.TypeIsDouble = true;
        break;
    case Field::UnsiftedCurrency:
        settings.InputSifting = vldNone;
        [[fallthrough]];
    case Field::GroupedCurrency:
        settings.ThousandSeparator = vldTSAllowed;
        [[fallthrough]];
    case Field::Currency:
        flags.NumericMode = flags.TypeIsCurrency = true;
        break;
    case Field::Date:
        flags.TypeIsDate = true;
        break;
    case Field::Time:
        flags.TypeIsTime = true;
        break;
    case Field::Text:
        break;
    }
}

const PasteCase kCases[] = {
    { "grouping allowed keeps the group", Field::GroupedLong, "en_US", u"1,234", u"1,234" },
    { "grouping forbidden drops the group", Field::Integer, "en_US", u"1,234", u"1234" },
    { "surrounding spaces, tab and line break", Field::Integer, "en_US", u" \t42 \r\n", u"42" },
    { "full-width digits", Field::Integer, "en_US", u"\uFF11\uFF12\uFF13", u"123" },
    { "full-width sign", Field::Integer, "en_US", u"\uFF0D\uFF15", u"-5" },
    { "minus sign", Field::Integer, "en_US", u"\u22125", u"-5" },
    { "en dash", Field::Integer, "en_US", u"\u20135", u"-5" },
    { "narrow no-break space to the locale's dot", Field::GroupedDouble, "de_DE", u"1\u202F234,5",
        u"1.234,5" },
    { "narrow no-break space dropped", Field::Double, "de_DE", u"1\u202F234,5", u"1234,5" },
    { "Swiss apostrophe", Field::GroupedLong, "en_US", u"1\u2019234'567", u"1,234,567" },
    { "no-break space to fr_FR's narrow one", Field::GroupedLong, "fr_FR", u"1\u00A0234", u"1\u202F234" },
    { "dollar", Field::Currency, "en_US", u"$12.50", u"12.50" },
    { "euro after the number", Field::Currency, "de_DE", u"12,50\u00A0\u20AC", u"12,50" },
    { "currency code", Field::Currency, "en_US", u"USD 7", u"7" },
    { "dollar outside a currency field", Field::Double, "en_US", u"$12.50", std::nullopt },
    // Hostile pastes: nothing of a number is left, so nothing goes in.
    { "only spaces", Field::Integer, "en_US", u" \u3000 ", std::nullopt },
    { "only a currency symbol", Field::Currency, "en_US", u" $ ", std::nullopt },
    { "a space not between digits", Field::GroupedLong, "en_US", u"1 ,2", std::nullopt },
    { "mixed digit scripts", Field::Integer, "en_US", u"1\u0662\u0663\uFF14", u"1234" },
    { "lone surrogate", Field::Integer, "en_US", u"1\xD800 2", std::nullopt },
    { "lone surrogate kept in a date", Field::Date, "en_US", u"1\xD800 2", u"1\xD800 2" },
    { "digit outside the basic plane", Field::Integer, "en_US", u"\U0001D7D9", u"1" },
    // A paste that reads only as another number is refused, whether its marks would stay or go.
    { "foreign decimal comma, grouping allowed", Field::GroupedCurrency, "en_US", u"1 234,50", std::nullopt },
    { "foreign decimal comma, grouping forbidden", Field::Currency, "en_US", u"1 234,50", std::nullopt },
    { "misgrouped", Field::GroupedLong, "en_US", u"1,2,3", std::nullopt },
    { "too short a last group", Field::GroupedLong, "en_US", u"12,34", std::nullopt },
    { "Indian groups", Field::GroupedLong, "en_IN", u"12,34,567", u"12,34,567" },
    { "western groups in en_IN", Field::GroupedLong, "en_IN", u"1,234,567", std::nullopt },
    { "space groups with a German comma", Field::GroupedDouble, "de_DE", u"1 234,50", u"1.234,50" },
    { "decimals in a whole-number field", Field::Integer, "en_US", u"12.5", std::nullopt },
    { "a beginning: the sign", Field::Integer, "en_US", u"-", u"-" },
    { "a beginning: the separator", Field::GroupedDouble, "en_US", u"1,234.", u"1,234." },
    { "no sifting: as pasted", Field::UnsiftedCurrency, "en_US", u" $1 234,50 ", u" $1 234,50 " },
    { "date: full-width digits and dashes", Field::Date, "en_US", u" \uFF12\uFF10\uFF12\uFF14\u20111\u20132 ",
        u"2024-1-2" },
    { "date: spaces inside stay", Field::Date, "en_US", u"1 2", u"1 2" },
    { "time", Field::Time, "en_US", u"\uFF11\uFF17\uFF1A\uFF13\uFF10 ", u"17:30" },
    { "text untouched", Field::Text, "en_US", u" \uFF11\u2212 ", u" \uFF11\u2212 " },
};

TEST(PastedText, ReadsAsTypedInTheField) {
    for (const PasteCase& row : kCases) {
        SCOPED_TRACE(row.name);
        Settings settings;
        TypeFlags flags;
        Declare(row.field, settings, flags);
        EXPECT_EQ(
            NormalizePastedText(row.pasted, settings, flags, LocaleInfo::FromName(row.locale)), row.expected);
    }
}

TEST(PastedText, LongTextTakesLinearWork) {
    Settings settings;
    settings.ThousandSeparator = vldTSAllowed;
    TypeFlags flags;
    flags.NumericMode = flags.TypeIsCurrency = true;
    std::u16string pasted = u"$0.";
    for (int i = 0; i < 200000; ++i)
        pasted += u"\uFF11$";
    const auto normalized = NormalizePastedText(pasted, settings, flags, LocaleInfo::FromName("en_US"));
    ASSERT_TRUE(normalized.has_value());
    EXPECT_EQ(normalized->size(), 200002u);
    EXPECT_EQ(normalized->substr(0, 5), u"0.111");
}

} // namespace
} // namespace quillmar
