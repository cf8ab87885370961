#include "input/KeySifting.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillmar {
namespace {

struct SiftCase {
    const char* name;
    std::function<void(Settings&, TypeFlags&)> declare;
    std::u16string text;
    int32_t selStart, selLength;
    char16_t key;
    int16_t expectedKey; // 0: nothing inserted
    bool beep;
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

const SiftCase kCases[] = {
    { "minus inside moves to the front", Integer, u"123", 3, 0, u'-', 0, false, u"-123" },
    { "minus at the front", Integer, u"123", 0, 0, u'-', u'-', false },
    { "second minus", Integer, u"-123", 4, 0, u'-', 0, true },
    { "minus in a positive field", [](Settings& s, TypeFlags& f) { Integer(s, f), s.MustBePositive = true; },
        u"1", 0, 0, u'-', 0, true },
    { "negative field gets its minus",
        [](Settings& s, TypeFlags& f) { Double(s, f), s.MustBeNegative = true; }, u"", 0, 0, u'5', u'5',
        false, u"-" },
    { "second separator inside the selection", Double, u"1.5", 0, 3, u'.', 0, true },
    { "decimal in an integer", Integer, u"1", 1, 0, u'.', 0, true },
    { "letter in a number", Double, u"1", 1, 0, u'a', 0, true },
    { "exponent", Scientific, u"1", 1, 0, u'e', u'e', false },
    { "plus after the exponent", Scientific, u"1e", 2, 0, u'+', u'+', false },
    { "plus elsewhere", Scientific, u"1", 1, 0, u'+', 0, true },
    { "minus after the exponent stays", Scientific, u"1E", 2, 0, u'-', u'-', false },
    { "second exponent", Scientific, u"1e5", 3, 0, u'e', 0, true },
    { "exponent without mantissa", Scientific, u"", 0, 0, u'e', 0, true },
    { "thousands twice", GroupedInteger, u"1,", 2, 0, u',', 0, true },
    { "thousands first", GroupedInteger, u"1", 0, 0, u',', 0, true },
    { "thousands", GroupedInteger, u"1", 1, 0, u',', u',', false },
    { "byte minus", [](Settings&, TypeFlags& f) { f.NumericMode = f.TypeIsByte = true; }, u"", 0, 0, u'-', 0,
        true },
    { "upper and lower: lower wins",
        [](Settings& s, TypeFlags&) { s.MustBeUpperCase = s.MustBeLowerCase = true; }, u"", 0, 0, u'Q', u'q',
        false },
    { "upper", [](Settings& s, TypeFlags&) { s.MustBeUpperCase = true; }, u"", 0, 0, u'\u00e9', u'\u00c9',
        false },
    { "included digit", [](Settings& s, TypeFlags&) { s.NoDigits = true, s.ExtraIncludedCharacters = u"5"; },
        u"", 0, 0, u'5', u'5', false },
    { "other digit", [](Settings& s, TypeFlags&) { s.NoDigits = true, s.ExtraIncludedCharacters = u"5"; },
        u"", 0, 0, u'6', 0, true },
    { "Enter in a letters field", [](Settings& s, TypeFlags&) { s.OnlyLetters = true; }, u"", 0, 0, u'\r', 0,
        true },
    { "accented letter", [](Settings& s, TypeFlags&) { s.OnlyLetters = true; }, u"", 0, 0, u'\u00e8',
        u'\u00e8', false },
    { "space among letters", [](Settings& s, TypeFlags&) { s.OnlyLetters = true; }, u"a", 1, 0, u' ', 0,
        true },
    { "space allowed", [](Settings& s, TypeFlags&) { s.OnlyLettersWithSpace = true; }, u"a", 1, 0, u' ', u' ',
        false },
    { "time letter", [](Settings&, TypeFlags& f) { f.TypeIsTime = true; }, u"10:30 ", 6, 0, u'p', u'p',
        false },
    { "time shape", [](Settings&, TypeFlags& f) { f.TypeIsTime = true; }, u"10:3", 4, 0, u':', u':', false },
    { "time out of shape", [](Settings&, TypeFlags& f) { f.TypeIsTime = true; }, u"10:30", 5, 0, u'0', 0,
        true },
    { "date letter", [](Settings&, TypeFlags& f) { f.TypeIsDate = true; }, u"1", 1, 0, u'x', 0, true },
    { "date over a selection", [](Settings&, TypeFlags& f) { f.TypeIsDate = true; }, u"12/31", 3, 2, u'1',
        u'1', false },
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
        EXPECT_EQ(outcome.beep, c.beep);
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

// Each refusal names its rule; what the field does with the key is the table above.
TEST(SiftKeyPress, NamesTheRuleThatRefused) {
    struct Row {
        const char* name;
        std::function<void(Settings&, TypeFlags&)> declare;
        std::u16string text;
        char16_t key;
        Refusal expected;
    };
    const auto date = [](Settings&, TypeFlags& f) { f.TypeIsDate = true; };
    const auto letters = [](Settings& s, TypeFlags&) { s.OnlyLetters = true; };
    const Row rows[] = {
        { "accepted", Integer, u"1", u'2', Refusal::None },
        { "letter in a number", Double, u"1", u'a', Refusal::NumberCharacter },
        { "decimal in an integer", Integer, u"1", u'.', Refusal::WholeNumber },
        { "second separator", Double, u"1.5", u'.', Refusal::SecondDecimalSeparator },
        { "thousands twice", GroupedInteger, u"1,", u',', Refusal::GroupSeparatorPlace },
        { "second minus", Integer, u"-1", u'-', Refusal::SecondMinus },
        { "minus in a positive field",
            [](Settings& s, TypeFlags& f) { Integer(s, f), s.MustBePositive = true; }, u"1", u'-',
            Refusal::PositiveNumber },
        { "plus elsewhere", Scientific, u"1", u'+', Refusal::ExponentSign },
        { "second exponent", Scientific, u"1e5", u'e', Refusal::NumberShape },
        { "letter in a date", date, u"1", u'x', Refusal::DateCharacter },
        { "thirty-second day", date, u"1/3", u'2', Refusal::DateShape },
        { "letter in a time", [](Settings&, TypeFlags& f) { f.TypeIsTime = true; }, u"1", u'x',
            Refusal::TimeCharacter },
        { "digit among letters", letters, u"a", u'1', Refusal::OnlyLetters },
        { "space among letters", [](Settings& s, TypeFlags&) { s.OnlyLettersWithSpace = s.NoDigits = true; },
            u"a", u'1', Refusal::NoDigits }, // the digit rule comes before the letter rule
        { "excluded before the valid set",
            [](Settings& s, TypeFlags&) { s.ExtraExcludedCharacters = u"x", s.ValidCharactersSet = u"ab"; },
            u"", u'x', Refusal::ExcludedCharacter },
        { "outside the valid set", [](Settings& s, TypeFlags&) { s.ValidCharactersSet = u"ab"; }, u"", u'c',
            Refusal::CharacterSet },
    };
    const LocaleInfo english = LocaleInfo::FromName("en_US");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Settings settings;
        TypeFlags flags;
        row.declare(settings, flags);
        const int32_t end = static_cast<int32_t>(row.text.size());
        const KeyPressOutcome outcome = SiftKeyPress(row.key, row.text, end, 0, settings, flags, english);
        EXPECT_EQ(outcome.refusal, row.expected);
        EXPECT_EQ(outcome.beep, row.expected != Refusal::None);
    }
}

TEST(RefusalText, WordsTheRule) {
    Settings settings;
    settings.MaxNumberOfDecimals = 2;
    EXPECT_EQ(RefusalText(Refusal::TooManyDecimals, settings), u"At most 2 decimals");
    settings.MaxNumberOfDecimals = 1;
    EXPECT_EQ(RefusalText(Refusal::TooManyDecimals, settings), u"At most 1 decimal");
    EXPECT_EQ(RefusalText(Refusal::None, settings), u"");
    // Every other refusal has words of its own.
    for (int r = static_cast<int>(Refusal::TimeCharacter);
         r <= static_cast<int>(Refusal::OnlyLettersWithSpace); ++r)
        EXPECT_FALSE(RefusalText(static_cast<Refusal>(r), settings).empty()) << r;
}

} // namespace
} // namespace quillmar
