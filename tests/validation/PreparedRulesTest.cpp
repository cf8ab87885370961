// The prepared checker against the interactive one: generated texts of every type, under a decimal point and
// a decimal comma, give the bits a field's CheckInput gives while it holds the same text.
#include "base/Utf8.h"
#include "formfile/FormFile.h"
#include "host/standalone/StandaloneHost.h"
#include "support/ValueGenerator.h"
#include "validation/ColumnCheck.h"
#include "validation/Conversions.h"
#include "validation/Rules.h"

#include <deque>
#include <gtest/gtest.h>

namespace quillmar {
namespace {

// Units that make texts interesting for the checks: digits and the characters of numbers, dates and times,
// both separators, spaces locales group with, letters whose case maps specially or to another length, a
// surrogate pair and lone surrogates.
constexpr char16_t kAlphabet[] = { u'0', u'1', u'2', u'5', u'9', u'-', u'+', u'e', u'E', u'.', u',', u':',
    u' ', u'/', u'a', u'A', u'z', u'Z', u'\t', 0x00A0, 0x202F, 0x00E9, 0x00C9, 0x00DF, 0x0130, 0x01C5, 0x03A3,
    0xFB00, 0xD83D, 0xDE00, 0x00FF, 0 };

std::u16string Mutate(std::u16string text, std::mt19937_64& random) {
    const size_t edits = random() % 4;
    for (size_t e = 0; e < edits; ++e) {
        const char16_t unit = kAlphabet[random() % (std::size(kAlphabet) - 1)];
        const size_t at = text.empty() ? 0 : random() % (text.size() + 1);
        switch (random() % 3) {
        case 0:
            text.insert(at, 1, unit);
            break;
        case 1:
            if (at < text.size()) text.erase(at, 1);
            break;
        default:
            if (at < text.size()) text[at] = unit;
        }
    }
    // Now and then a number with more digits than the allocation-free path keeps.
    if (random() % 50 == 0) text.insert(0, 70, u'9');
    return text;
}

std::u16string RandomText(std::mt19937_64& random) {
    std::u16string text;
    const size_t length = random() % 12;
    for (size_t i = 0; i < length; ++i)
        text += kAlphabet[random() % (std::size(kAlphabet) - 1)];
    return text;
}

// A text a person might type into a field of the type: a generated value's own text, mutated.
std::u16string GenerateText(int32_t type, const LocaleInfo& locale, std::mt19937_64& random) {
    if (!IsNumericType(type) && !IsDateTimeType(type)) return RandomText(random);
    return Mutate(TextOf(testing::GenerateValue(type, random), locale), random);
}

constexpr int kTextsPerField = 4000;

// `Evaluate` of the text; an ASCII text read from its bytes must give the same bits.
int32_t Judged(const PreparedRules& rules, std::u16string_view text) {
    if (std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 128; })) {
        const std::string bytes(text.begin(), text.end());
        EXPECT_EQ(rules.EvaluateAscii(bytes), rules.Evaluate(text)) << "read from bytes: " << bytes;
    }
    return rules.Evaluate(text);
}

class PreparedRulesAgreement : public ::testing::TestWithParam<const char*> { };

TEST_P(PreparedRulesAgreement, EveryFieldOfTheExampleFormGivesCheckInputsBits) {
    const LocaleInfo locale = LocaleInfo::FromName(GetParam());
    const FormResult form = LoadFormFile(QUILLMAR_EXAMPLES_DIR "/orders.qform.json");
    ASSERT_TRUE(form.document) << form.error;
    struct Field {
        explicit Field(const LocaleInfo& locale) { host.locale.Set(locale); }
        standalone::StandaloneHost host;
        Quillmar control { host.Services() };
    };
    std::deque<Field> fields;
    ASSERT_FALSE(BuildFormControls(*form.document, "orders",
        [&](const FormControl&) -> Quillmar& { return fields.emplace_back(locale).control; }));
    std::mt19937_64 random(20240611);
    for (Field& field : fields) {
        // Without sifting the field keeps whatever text it is given, as when data is imported into it.
        field.control.SetInputSifting(vldNone);
        const PreparedRules rules(field.control.settings(), locale, field.control.MaxLength());
        const int32_t type = field.control.settings().MustBeType;
        for (int i = 0; i < kTextsPerField; ++i) {
            const std::u16string text = GenerateText(type, locale, random);
            field.host.editBox.SetText(text);
            ASSERT_EQ(field.host.editBox.Text(), text);
            ASSERT_EQ(field.control.MustBeType() == vldUnspecified ? 0 : Judged(rules, text),
                field.control.CheckInput())
                << "type " << type << ", text " << quillmar::ToUtf8(text);
        }
    }
}

// Settings the example form does not hold: every character and case rule, forbidden values of each kind,
// the exponent form, limits given as text.
std::vector<Settings> HandMadeSettings() {
    std::vector<Settings> all;
    Settings text;
    text.MustBeType = vldString;
    text.ValidCharactersSet = u"abcdefghijklmnopqrstuvwxyz \u00E9";
    text.ValidCharactersSet += char16_t { 0xD83D };
    text.ExtraExcludedCharacters = u"z";
    text.ExtraIncludedCharacters = u"-z\u00C9";
    text.NoDigits = true;
    text.MustBeLowerCase = true;
    text.MustNotBeValues = { {}, u"aa", 12.5, u"" };
    all.push_back(text);
    text = Settings {};
    text.MustBeType = vldUnspecified;
    text.OnlyLetters = true;
    text.MustBeUpperCase = true;
    text.MustBeProperCase = true;
    text.CustomMask = u"[!0-9]*?";
    all.push_back(text);
    for (const int32_t type : { vldByte, vldInteger, vldLong, vldSingle, vldDouble, vldCurrency }) {
        Settings number;
        number.MustBeType = static_cast<MustBeTypeConstants>(type);
        number.AllowScientificFormat = type == vldSingle || type == vldDouble;
        number.ThousandSeparator
            = type == vldCurrency || type == vldLong || type == vldDouble ? vldTSAllowed : vldTSForbidden;
        number.MustBeNegative = type == vldDouble;
        number.MustNotBeZero = true;
        number.MaxNumberOfDecimals = 2;
        number.MinValue = u"-1000";
        number.MaxValue = 250.0;
        number.MustNotBeValues = { {}, u"13", 7, u"abc" };
        all.push_back(number);
    }
    Settings date;
    date.MustBeType = vldDate;
    date.MinValue = u"1/1/2000";
    date.MaxValue = Date { 73050 };
    date.MustNotBeValues = { {}, Date { 45000 }, u"12:00" };
    all.push_back(date);
    return all;
}

TEST_P(PreparedRulesAgreement, HandMadeSettingsGiveEvaluateRulesBits) {
    const LocaleInfo locale = LocaleInfo::FromName(GetParam());
    std::mt19937_64 random(7);
    for (const Settings& settings : HandMadeSettings()) {
        for (const int32_t maxLength : { 0, 5 }) {
            const PreparedRules rules(settings, locale, maxLength);
            for (int i = 0; i < kTextsPerField / 2; ++i) {
                const std::u16string text = GenerateText(settings.MustBeType, locale, random);
                ASSERT_EQ(Judged(rules, text), EvaluateRules(text, settings, locale, maxLength))
                    << "type " << settings.MustBeType << ", text " << quillmar::ToUtf8(text);
            }
        }
    }
}

// Numbers, dates and times at the edges of the short ways plain number texts, short dates and short times
// take (signs, leading zeros, the decimal separator of either locale, 15 and 16 digits, the ranges of the
// integral types and of the currency; days no month has, two- and five-digit years, either date order;
// designators, hours past 12 or 23; group separators where the locale's grouping puts them and everywhere it
// does not: first, last, doubled, before the decimal separator or in the fraction, groups of the wrong size,
// western groups in en_IN, the other locales' separators, spaces standing for a space-like separator), and
// texts just beside those shapes, which must go the full way.
constexpr const char16_t* kEdgeTexts[] = { u"0", u"-0", u"00", u"007", u"-007", u"0.0", u"-0.00", u"1.5",
    u"1,5", u"12.345", u"12,345", u"-12.34", u"255", u"256", u"-1", u"32767", u"32768", u"-32768", u"-32769",
    u"2147483647", u"2147483648", u"-2147483648", u"-2147483649", u"999999999999999", u"9999999999999999",
    u"99999999999999.9", u"922337203685477", u"92233720368547", u"-92233720368547.75", u"0.000000000000001",
    u"0.1234567890123456", u"123456789012345.6", u"1.", u".5", u"-", u"-.5", u"1e5", u"+5", u"5-", u" 5",
    u"5 ", u"1.2.3", u"13", u"7", u"7.0", u"250", u"250.001", u"-1000", u"-1000.5", u"1,234", u"1.234",
    u"1,234.5", u"0.005", u"100.00", u"\uFF11", u"2/29/2024", u"2/29/2023", u"29.2.2024", u"13/1/2024",
    u"1/13/2024", u"31.12.2099", u"12-31-1999", u"1/1/0099", u"1/1/99", u"1/1/2024 ", u" 1/1/2024",
    u"1/1/20245", u"001/1/2024", u"1/1/2024 9:00", u"12:00", u"0/1/2024", u"1/0/2024", u"4/31/2024",
    u"31/4/2024", u"1/1/2000", u"1//2024", u"9:05", u"9:05 AM", u"9:05 am", u"9:05 Am", u"12:00 AM",
    u"12:00 PM", u"13:00 PM", u"0:00 AM", u"23:59:59", u"24:00", u"9:60", u"9:05:60", u"9:5", u"09:05",
    u"9:05  AM", u"9:05 AM ", u"9:05AM", u"123:00", u"9:005", u"9:05:", u"9:", u"9:05 A",
    u"9:05 \u5348\u524D", u"9:05xPM", u"8:00 AM", u"6:00 PM", u"6:00:01 PM", u"1,234,567", u"12,34,567",
    u"1,23,45,678.5", u"123,45,678", u"1,23", u"1,2345", u"1234,567", u",123", u"123,", u"1,,234", u"-,123",
    u"1,234,", u"1,234.", u"1,234.567", u"1,234,56", u"0,001", u"000,001", u"-1,000", u"-1,000.5", u"32,768",
    u"2,147,483,648", u"-2,147,483,648", u"922,337,203,685,477", u"99,999,999,999,999",
    u"9,999,999,999,999,999", u"1.234.567", u"1.234,56", u"12.34.567", u"1.234,", u"1,5,6", u"1.5,6",
    u"1,234e5", u"1 234", u"1\u00A0234", u"1\u202F234,5", u"1\u202F234\u202F567", u"-1\u00A0000", u"1,234 ",
    u"+1,234", u"1,2,3", u"aa", u"12.5", u"12,5", u"Ab Cd", u"ab cd", u"AB", u"2/29/2100", u"29.2.2000",
    u"12/31/9999", u"1/1/0100", u"12/31/0099", u"3/1/1900" };

TEST_P(PreparedRulesAgreement, EdgeNumbersDatesAndTimesGiveEvaluateRulesBits) {
    const LocaleInfo locale = LocaleInfo::FromName(GetParam());
    std::vector<Settings> all = HandMadeSettings();
    for (const int32_t type :
        { vldByte, vldInteger, vldLong, vldSingle, vldDouble, vldCurrency, vldDate, vldTime }) {
        Settings bare;
        bare.MustBeType = static_cast<MustBeTypeConstants>(type);
        all.push_back(bare);
        if (!IsNumericType(type)) continue;
        bare.ThousandSeparator = vldTSAllowed;
        all.push_back(bare);
        // Sign rules without limits, which the digits alone decide.
        bare.MustNotBeZero = true;
        (type % 2 == 0 ? bare.MustBePositive : bare.MustBeNegative) = true;
        all.push_back(bare);
    }
    Settings daytime;
    daytime.MustBeType = vldTime;
    daytime.MinValue = u"8:00";
    daytime.MaxValue = u"18:00";
    all.push_back(daytime);
    for (const Settings& settings : all) {
        const PreparedRules rules(settings, locale, 0);
        // A long text no short way takes is widened on the heap rather than on the stack.
        const std::u16string longText = u"1" + std::u16string(300, u'0');
        for (const std::u16string_view text : kEdgeTexts)
            EXPECT_EQ(Judged(rules, text), EvaluateRules(text, settings, locale, 0))
                << "type " << settings.MustBeType << ", text " << quillmar::ToUtf8(text);
        EXPECT_EQ(Judged(rules, longText), EvaluateRules(longText, settings, locale, 0));
    }
}

// Masks without a star, which the prepared checker matches unit by unit, beside texts that meet them, miss
// them by one character or by length, or hold characters beyond ASCII.
TEST(PreparedRules, MasksWithoutAStarMatchAsMatchPatternDoes) {
    const struct {
        const char16_t* mask;
        std::vector<const char16_t*> texts;
    } rows[] = {
        { u"[A-Z][A-Z]-####",
            { u"AB-1234", u"Ab-1234", u"AB-123", u"AB-12345", u"AB_1234", u"\u00C9B-1234" } },
        { u"[!a-c]?#", { u"d\u00E91", u"a11", u"\u00E9x1", u"dx", u"dxx" } },
        { u"[]x", { u"x", u"]x", u"" } }, // the empty list takes no character
        { u"[!]x", { u"ax", u"\u00E9x", u"x" } },
        { u"[[]]", { u"[]", u"]]" } },
        { u"[a-]", { u"a", u"-", u"b" } },
        { u"[z-a]x", { u"zx", u"ax" } }, // malformed: matches nothing
        { u"[ab", { u"a", u"[ab" } }, // unclosed
        { u"\u00E9#", { u"\u00E91", u"e1" } },
    };
    const LocaleInfo locale = LocaleInfo::FromName("en_US");
    for (const auto& row : rows) {
        Settings settings;
        settings.MustBeType = vldString;
        settings.CustomMask = row.mask;
        const PreparedRules rules(settings, locale, 0);
        for (const char16_t* text : row.texts)
            EXPECT_EQ(Judged(rules, text), EvaluateRules(text, settings, locale, 0))
                << quillmar::ToUtf8(row.mask) << " " << quillmar::ToUtf8(text);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Locales, PreparedRulesAgreement, ::testing::Values("en_US", "de_DE", "ja_JP", "en_IN", "fr_FR"));

TEST(CheckColumn, AnUnspecifiedFieldTakesEveryTextAsCheckInputDoes) {
    Settings settings;
    settings.RequiredField = true;
    const PreparedRules rules(settings, LocaleInfo::FromName("en_US"), 0);
    const std::u16string_view texts[] = { u"", u"x" };
    int32_t bits[2] = { -1, -1 };
    CheckColumn(rules, texts, bits);
    EXPECT_EQ(bits[0], 0);
    EXPECT_EQ(bits[1], 0);
    EXPECT_EQ(rules.Evaluate(u""), vldCCRequiredField);
}

// A column read from bytes, its texts repeated so that the memo looks them up: texts equal in their first 8
// or 16 bytes, texts longer than the memo keeps, a text that ends the bytes, wide texts; then the same memo
// under other rules, which must judge them afresh.
TEST(CheckColumn, RepeatedTextsGiveCheckInputsBitsThroughTheMemo) {
    const LocaleInfo locale = LocaleInfo::FromName("en_US");
    Settings text;
    text.MustBeType = vldString;
    text.MustNotBeValues = { {}, u"abcdefgh1", u"abcdefgh12345678" };
    text.RequiredField = true;
    Settings number;
    number.MustBeType = vldInteger;
    number.MaxValue = 5.0;
    const char* const kTexts[] = { "abcdefgh1", "abcdefgh2", "abcdefgh12345678", "abcdefgh12345679",
        "abcdefgh123456789", "7", "3", "", "abcdefgh" };
    std::string bytes;
    std::vector<TextRun> runs;
    std::mt19937_64 random(3);
    for (int i = 0; i < 5000; ++i) {
        const std::string_view pick = kTexts[random() % std::size(kTexts)];
        runs.push_back({ static_cast<uint32_t>(bytes.size()), static_cast<uint32_t>(pick.size()), 0 });
        bytes += pick;
    }
    const std::u16string units = u"\u00E9t\u00E9";
    runs.push_back({ 0, 3, 1 });
    ColumnMemo memo;
    for (const Settings& settings : { text, number, text }) {
        const PreparedRules rules(settings, locale, settings.MustBeType == vldString ? 12 : 0);
        std::vector<int32_t> bits(runs.size(), -1);
        std::vector<int32_t> unremembered(runs.size(), -1);
        CheckColumn(rules, { bytes, units, runs }, bits, &memo);
        CheckColumn(rules, { bytes, units, runs }, unremembered);
        ASSERT_EQ(bits, unremembered);
        for (size_t i = 0; i < runs.size(); ++i) {
            const std::u16string run = runs[i].wide ? units.substr(runs[i].offset, runs[i].size)
                                                    : std::u16string(bytes.begin() + runs[i].offset,
                                                        bytes.begin() + runs[i].offset + runs[i].size);
            ASSERT_EQ(bits[i], rules.CheckInput(run)) << "text " << quillmar::ToUtf8(run);
        }
    }
}

} // namespace
} // namespace quillmar
