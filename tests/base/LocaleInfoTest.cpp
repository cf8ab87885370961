#include "base/LocaleInfo.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace quillmar {
namespace {

struct LocaleFacts {
    const char* name;
    const char* expectedName;
    char16_t decimalSeparator;
    char16_t groupSeparator;
    DateOrder dateOrder;
    char16_t dateSeparator;
    bool padDay;
    bool twelveHour;
};

const LocaleFacts kLocaleFacts[] = {
    { "en_US", "en_US", u'.', u',', DateOrder::MonthDayYear, u'/', false, true },
    { "de_DE", "de_DE", u',', u'.', DateOrder::DayMonthYear, u'.', true, false },
    // French groups digits with a narrow no-break space.
    { "fr_FR", "fr_FR", u',', u'\u202F', DateOrder::DayMonthYear, u'/', true, false },
    { "en_GB", "en_GB", u'.', u',', DateOrder::DayMonthYear, u'/', true, false },
    { "ja_JP", "ja_JP", u'.', u',', DateOrder::YearMonthDay, u'/', true, false },
    // The encoding and the modifier of a POSIX locale name are not part of the ICU name.
    { "fr_FR.UTF-8", "fr_FR", u',', u'\u202F', DateOrder::DayMonthYear, u'/', true, false },
    { "de_DE@euro", "de_DE", u',', u'.', DateOrder::DayMonthYear, u'.', true, false },
    // The C locale and an unset name read as American English.
    { "C.UTF-8", "en_US", u'.', u',', DateOrder::MonthDayYear, u'/', false, true },
    { "", "en_US", u'.', u',', DateOrder::MonthDayYear, u'/', false, true },
};

TEST(LocaleInfoTest, ReadsTheFactsOfNamedLocales) {
    for (const LocaleFacts& row : kLocaleFacts) {
        SCOPED_TRACE(row.name);
        const LocaleInfo info = LocaleInfo::FromName(row.name);
        EXPECT_EQ(info.name, row.expectedName);
        EXPECT_EQ(info.decimalSeparator, row.decimalSeparator);
        EXPECT_EQ(info.groupSeparator, row.groupSeparator);
        EXPECT_EQ(info.dateOrder, row.dateOrder);
        EXPECT_EQ(info.dateSeparator, row.dateSeparator);
        EXPECT_EQ(info.padDay, row.padDay);
        EXPECT_EQ(info.padMonth, row.padDay);
        EXPECT_EQ(info.twelveHour, row.twelveHour);
    }
}

TEST(LocaleInfoTest, ReadsTheLocaleDesignators) {
    EXPECT_EQ(LocaleInfo::FromName("en_US").pm, u"PM");
    EXPECT_EQ(LocaleInfo::FromName("en_GB").pm, u"pm");
    EXPECT_EQ(LocaleInfo::FromName("ja_JP").am, u"午前");
}

// Hosts ask for the facts at every use, from any thread, and form files can name any number of locales:
// the answer for a name stays the same however many other names were asked for before or at once.
TEST(LocaleInfoTest, AnswersStayTheSameAcrossThreadsAndManyNames) {
    const LocaleInfo german = LocaleInfo::FromName("de_DE");
    std::vector<std::thread> threads;
    std::vector<int> mismatches(4, 0);
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([t, &german, &mismatches] {
            for (int i = 0; i < 100; ++i) {
                (void)LocaleInfo::FromName("xx_" + std::to_string(t * 100 + i));
                if (LocaleInfo::FromName("de_DE.UTF-8") != german) ++mismatches[t];
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(mismatches, std::vector<int>(4, 0));
    EXPECT_EQ(LocaleInfo::FromName("fr_FR").groupSeparator, u'\u202F');
}

// Sets the locale variables for one test and puts the previous values back afterwards.
class EnvironmentTest : public testing::Test {
protected:
    static constexpr const char* kVariables[] = { "LC_ALL", "LC_NUMERIC", "LANG" };

    void SetUp() override {
        for (int i = 0; i < 3; ++i) {
            const char* value = std::getenv(kVariables[i]);
            if (value) m_saved[i] = value;
            unsetenv(kVariables[i]);
        }
    }
    void TearDown() override {
        for (int i = 0; i < 3; ++i) {
            if (m_saved[i])
                setenv(kVariables[i], m_saved[i]->c_str(), 1);
            else
                unsetenv(kVariables[i]);
        }
    }

private:
    std::optional<std::string> m_saved[3];
};

TEST_F(EnvironmentTest, LcAllWinsOverLang) {
    setenv("LANG", "de_DE.UTF-8", 1);
    EXPECT_EQ(LocaleInfo::FromEnvironment().name, "de_DE");
    setenv("LC_ALL", "fr_FR.UTF-8", 1);
    EXPECT_EQ(LocaleInfo::FromEnvironment().name, "fr_FR");
    // An empty LC_ALL counts as unset.
    setenv("LC_ALL", "", 1);
    EXPECT_EQ(LocaleInfo::FromEnvironment().name, "de_DE");
}

TEST_F(EnvironmentTest, NoVariableGivesAmericanEnglish) {
    EXPECT_EQ(LocaleInfo::FromEnvironment(), LocaleInfo::FromName("en_US"));
}

} // namespace
} // namespace quillmar
