#include "input/Shapes.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

struct ShapeCase {
    std::u16string text;
    bool expected;
};

// Beginnings of dates in month-day-year order pass; what can no longer become a date fails.
const ShapeCase kAmericanDates[] = {
    { u"", true }, { u"1", true }, { u"12/", true }, { u"13/", false }, // no thirteenth month
    { u"0/", false }, { u"12/31/2004", true }, { u"2/30/", false }, // no month has it
    { u"2/29/", true }, { u"12/32", false }, { u"12/31/20045", false }, { u"1/2/3/", false }, // a fourth part
    { u"2004-12-31", true }, // a four-digit year first reads year, month, day
    { u"099-", false }, // a three-digit year below 100
    { u"12//", false }, { u"12a", false }, { u"1.2-2004", true }, // any of the three separators
};

const ShapeCase kTimes[] = {
    { u"", true },
    { u"1", true },
    { u"23:59:59", true },
    { u"24", false },
    { u"10:60", false },
    { u"10:30 pm", true },
    { u"10:30pm", true },
    { u"10:30 P", true },
    { u"10:30 pmx", false },
    { u"10:30  ", false }, // two spaces
    { u"13:00 PM", false }, // a 12-hour clock has no hour 13
    { u"10::", false },
    { u"10:30:00:", false },
    { u"100", false },
    { u"10 pm", false }, // minutes come first
    { u"a", false },
    { u"10:30 m", false },
};

TEST(DateShapeTest, FollowsTheLocaleOrder) {
    const LocaleInfo american = LocaleInfo::FromName("en_US");
    for (const ShapeCase& c : kAmericanDates) {
        SCOPED_TRACE(std::string(c.text.begin(), c.text.end()));
        EXPECT_EQ(DateShapeTest(c.text, american), c.expected);
    }
    const LocaleInfo german = LocaleInfo::FromName("de_DE");
    EXPECT_TRUE(DateShapeTest(u"31.12.2004", german));
    EXPECT_FALSE(DateShapeTest(u"12.31", german));
    EXPECT_TRUE(DateShapeTest(u"9.011", german)); // the parser reads a day or month with leading zeros
    EXPECT_FALSE(DateShapeTest(u"31.12.2004", american));
}

TEST(TimeShapeTest, AcceptsBeginningsOfTimesOnly) {
    for (const ShapeCase& c : kTimes) {
        SCOPED_TRACE(std::string(c.text.begin(), c.text.end()));
        EXPECT_EQ(TimeShapeTest(c.text), c.expected);
    }
}

TEST(WholeTextTest, FollowsTheTypeFlags) {
    const LocaleInfo english = LocaleInfo::FromName("en_US");
    Settings settings;
    settings.OnlyLetters = true;
    settings.ExtraIncludedCharacters.push_back(u'-');
    TypeFlags text;
    EXPECT_TRUE(WholeTextTest(u"Jean-Luc", text, settings, english));
    EXPECT_FALSE(WholeTextTest(u"Jean Luc", text, settings, english));
    // A sign rule on a text field makes it numeric without a numeric type: the double's rules apply.
    TypeFlags signedText;
    signedText.NumericMode = true;
    EXPECT_TRUE(WholeTextTest(u"-1.5", signedText, settings, english));
    EXPECT_FALSE(WholeTextTest(u"1-", signedText, settings, english));
}

} // namespace
} // namespace quillmar
