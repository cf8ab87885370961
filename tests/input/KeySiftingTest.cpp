#include "input/KeySifting.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillmar {
namespace {

using R = Refusal;

// A refused key beeps and names its rule; an accepted one may still come with a text the control writes.
struct SiftCase {
    const char* name;
    std::function<void(Settings&, TypeFlags&)> declare;
    std::u16string text;
    int32_t selStart, selLength;
    char16_t key;
    int16_t expectedKey; // 0: nothing inserted
    Refusal refusal;
    std::u16string editedText = u""; // the text the control writes itself, when it does
};

void Integer(Settings&, TypeFlags& f) {
    f.NumericMode = f.TypeIsInteger = true;
}
void Double(Settings&, TypeFlags& f) {
    f.NumericMode = f.TypeIsDouble = true;
}
void Scientific(Settings& s, TypeFlags& f) {
    Double(s, f);
    s.AllowScientificFormat = true;
}
void GroupedInteger(Settings& s, TypeFlags& f) {
    Integer(s, f);
    s.ThousandSeparator = vldTSAllowed;
}
void DateField(Settings&, TypeFlags& f) {
    f.TypeIsDate = true;
}
void TimeField(Settings&, TypeFlags& f) {
    f.TypeIsTime = true;
}
void Letters(Settings& s, TypeFlags&) {
    s.OnlyLetters = true;
}

const SiftCase kCases[] = {
    { "minus inside moves to the front", Integer, u"123", 3, 0, u'-', 0, R::None, u"-123" },
    { "minus at the front", Integer, u"123", 0, 0, u'-', u'-', R::None },
    { "second minus", Integer, u"-123", 4, 0, u'-', 0, R::SecondMinus },
    { "minus in a positive field", [](Settings& s, TypeFlags& f) { Integer(s, f), s.MustBePositive = true; },
        u"1", 0, 0, u'-', 0, R::PositiveNumber },
    { "negative field gets its minus",
        [](Settings& s, TypeFlags& f) { Double(s, f), s.MustBeNegative = true; }, u"", 0, 0, u'5', u'5',
        R::None, u"-" },
    { "second separator inside the selection", Double, u"1.5", 0, 3, u'.', 0, R::SecondDecimalSeparator },
    { "decimal in an integer", Integer, u"1", 1, 0, u'.', 0, R::WholeNumber },
    { "letter in a number", Double, u"1", 1, 0, u'a', 0, R::NumberCharacter },
    { "exponent", Scientific, u"1", 1, 0, u'e', u'e', R::None },
    { "plus after the exponent", Scientific, u"1e", 2, 0, u'+', u'+', R::None },
    { "plus elsewhere", Scientific, u"1", 1, 0, u'+', 0, R::ExponentSign },
    { "minus after the exponent stays", Scientific, u"1E", 2, 0, u'-', u'-', R::None },
    { "second exponent", Scientific, u"1e5", 3, 0, u'e', 0, R::NumberShape },
    { "exponent without mantissa", Scientific, u"", 0, 0, u'e', 0, R::NumberShape },
    { "thousands twice", GroupedInteger, u"1,", 2, 0, u',', 0, R::GroupSeparatorPlace },
    { "thousands first", GroupedInteger, u"1", 0, 0, u',', 0, R::GroupSeparatorPlace },
    { "thousands", GroupedInteger, u"1", 1, 0, u',', u',', R::None },
    { "byte minus", [](Settings&, TypeFlags& f) { f.NumericMode = f.TypeIsByte = true; }, u"", 0, 0, u'-', 0,
        R::NumberCharacter },
    { "upper and lower: lower wins",
        [](Settings& s, TypeFlags&) { s.MustBeUpperCase = s.MustBeLowerCase = true; }, u"", 0, 0, u'Q', u'q',
        R::None },
    { "upper", [](Settings& s, TypeFlags&) { s.MustBeUpperCase = true; }, u"", 0, 0, u'\u00e9', u'\u00c9',
        R::None },
    { "included digit", [](Settings& s, TypeFlags&) { s.NoDigits = true, s.ExtraIncludedCharacters = u"5"; },
        u"", 0, 0, u'5', u'5', R::None },
    { "other digit", [](Settings& s, TypeFlags&) { s.NoDigits = true, s.ExtraIncludedCharacters = u"5"; },
        u"", 0, 0, u'6', 0, R::NoDigits },
    { "Enter in a letters field", Letters, u"", 0, 0, u'\r', 0, R::OnlyLetters },
    { "accented letter", Letters, u"", 0, 0, u'\u00e8', u'\u00e8', R::None },
    { "space among letters", Letters, u"a", 1, 0, u' ', 0, R::OnlyLetters },
    { "digit among letters", Letters, u"a", 1, 0, u'1', 0, R::OnlyLetters },
    { "space allowed", [](Settings& s, TypeFlags&) { s.OnlyLettersWithSpace = true; }, u"a", 1, 0, u' ', u' ',
        R::None },
    // The digit rule comes before the letter rule, and the excluded characters before the valid set.
    { "digit among letters with space",
        [](Settings& s, TypeFlags&) { s.OnlyLettersWithSpace = s.NoDigits = true; }, u"a", 1, 0, u'1', 0,
        R::NoDigits },
    { "excluded before the valid set",
        [](Settings& s, TypeFlags&) { s.ExtraExcludedCharacters = u"x", s.ValidCharactersSet = u"ab"; }, u"",
        0, 0, u'x', 0, R::ExcludedCharacter },
    { "outside the valid set", [](Settings& s, TypeFlags&) { s.ValidCharactersSet = u"ab"; }, u"", 0, 0, u'c',
        0, R::CharacterSet },
    { "time letter", TimeField, u"10:30 ", 6, 0, u'p', u'p', R::None },
    { "time shape", TimeField, u"10:3", 4, 0, u':', u':', R::None },
    { "letter in a time", TimeField, u"1", 1, 0, u'x', 0, R::TimeCharacter },
    { "time out of shape", TimeField, u"10:30", 5, 0, u'0', 0, R::TimeShape },
    { "date letter", DateField, u"1", 1, 0, u'x', 0, R::DateCharacter },
    { "thirty-second day", DateField, u"1/3", 3, 0, u'2', 0, R::DateShape },
    { "date over a selection", DateField, u"12/31", 3, 2, u'1', u'1', R::None },
};

TEST(SiftKeyPress, RefusesKeysThatCannotLeadToValidInput) {
    const LocaleInfo english = LocaleInfo::FromName("en_US");
    for (const SiftCase& c : kCases) {
        SCOPED_TRACE(c.name);
        Settings settings;
        TypeFlags flags;
        c.declare(settings, flags);
        const KeyPressOutcome outcome = SiftKeyPress(
            static_cast<int16_t>(c.key), c.text, c.selStart, c.selLength, settings, flags, english);
        EXPECT_EQ(outcome.keyAscii, c.expectedKey);
        EXPECT_EQ(outcome.refusal, c.refusal);
        EXPECT_EQ(outcome.beep, c.refusal != R::None);
        EXPECT_EQ(outcome.edit ? outcome.edit->text : u"", c.editedText);
    }
}

TEST(SiftKeyPress, UsesTheLocaleDecimalSeparator) {
    const LocaleInfo german = LocaleInfo::FromName("de_DE");
    Settings settings;
    TypeFlags flags;
    flags.NumericMode = flags.TypeIsDouble = true;
    EXPECT_EQ(SiftKeyPress(u',', u"1", 1, 0, settings, flags, german).keyAscii, u',');
    EXPECT_EQ(SiftKeyPress(u'.', u"1", 1, 0, settings, flags, german).keyAscii, 0);
    // French groups with a narrow no-break space; a typed space stands for it.
    settings.ThousandSeparator = vldTSAllowed;
    const LocaleInfo french = LocaleInfo::FromName("fr_FR");
    EXPECT_EQ(SiftKeyPress(u' ', u"1", 1, 0, settings, flags, french).keyAscii, 0x202F);
    EXPECT_EQ(SiftKeyPress(u' ', u"1\u202F", 2, 0, settings, flags, french).keyAscii, 0);
}

TEST(RefusalText, WordsTheRule) {
    const LocaleInfo en = LocaleInfo::FromName("en_US");
    Settings settings;
    settings.MaxNumberOfDecimals = 1;
    EXPECT_EQ(RefusalText(Refusal::TooManyDecimals, settings, en), u"At most 1 decimal");
    EXPECT_EQ(RefusalText(Refusal::None, settings, en), u"");
    // The characters the author allowed besides a letter rule, or as the field's set, are named.
    settings.ExtraIncludedCharacters = u"-'.";
    EXPECT_EQ(RefusalText(Refusal::OnlyLetters, settings, en), u"Only letters and - ' . can be typed here");
    EXPECT_EQ(RefusalText(Refusal::OnlyLettersWithSpace, settings, en),
        u"Only letters, spaces and - ' . can be typed here");
    settings.ExtraIncludedCharacters.clear();
    settings.ValidCharactersSet = u"0123456789 +-()";
    EXPECT_EQ(
        RefusalText(Refusal::CharacterSet, settings, en), u"Only 0\u20139 space + - ( ) can be typed here");
    settings.ValidCharactersSet = u"abcdefghijklmnopqrstuvwxyz!\"#$%&";
    EXPECT_EQ(RefusalText(Refusal::CharacterSet, settings, en),
        u"Only the field's own characters can be typed here");
    // Every other refusal has words of its own.
    for (int r = static_cast<int>(Refusal::TimeCharacter); r <= static_cast<int>(Refusal::PastedNumber); ++r)
        EXPECT_FALSE(RefusalText(static_cast<Refusal>(r), settings, en).empty()) << r;
}

// A refused paste shows how the field writes numbers, in the locale's own form.
TEST(RefusalText, PastedNumberShowsTheFieldsNumbers) {
    const struct {
        MustBeTypeConstants type;
        bool grouped;
        const char* locale;
        const char16_t* expected;
    } rows[] = {
        { vldCurrency, true, "en_US", u"Numbers here are written like 1,234.50" },
        { vldCurrency, false, "en_US", u"Numbers here are written like 1234.50" },
        { vldInteger, false, "en_US", u"Numbers here are written like 1234" },
        { vldLong, true, "de_DE", u"Numbers here are written like 1.234" },
        { vldDouble, true, "de_DE", u"Numbers here are written like 1.234,50" },
        { vldDouble, true, "fr_FR", u"Numbers here are written like 1\u202F234,50" },
        { vldByte, true, "en_US", u"Numbers here are written like 123" },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.locale << ", type " << row.type);
        Settings settings;
        settings.MustBeType = row.type;
        settings.ThousandSeparator = row.grouped ? vldTSAllowed : vldTSForbidden;
        EXPECT_EQ(
            RefusalText(Refusal::PastedNumber, settings, LocaleInfo::FromName(row.locale)), row.expected);
    }
}

} // namespace
} // namespace quillmar
