#include "validation/Conversions.h"
#include "validation/Rules.h"

#include "support/ValueGenerator.h"

#include <gtest/gtest.h>

#include <random>

namespace quillmar {
namespace {

using testing::GenerateValue;
using testing::kPropertyLocales;

constexpr int kValuesPerType = 4000;

TEST(NumberRoundTrip, FormattedValuesParseBackToTheSameValue) {
    for (const char* name : kPropertyLocales) {
        const LocaleInfo locale = LocaleInfo::FromName(name);
        std::mt19937_64 random(20261122);
        for (int32_t type = vldByte; type <= vldCurrency; ++type) {
            Settings settings;
            settings.MustBeType = static_cast<MustBeTypeConstants>(type);
            settings.AllowScientificFormat = type == vldSingle || type == vldDouble;
            for (int i = 0; i < kValuesPerType; ++i) {
                const Variant value = GenerateValue(type, random);
                const std::u16string text = TextOf(value, locale);
                SCOPED_TRACE(std::string(name) + " type " + std::to_string(type) + " "
                    + std::string(text.begin(), text.end()));
                ASSERT_EQ(ConvertToType(text, type, locale), value);
                ASSERT_EQ(EvaluateRules(text, settings, locale, 0), 0);
            }
        }
    }
}

TEST(DateRoundTrip, FormattedDatesAndTimesAreValidInTheirFields) {
    for (const char* name : kPropertyLocales) {
        const LocaleInfo locale = LocaleInfo::FromName(name);
        std::mt19937_64 random(7);
        for (const int32_t type : { vldDate, vldTime }) {
            Settings settings;
            settings.MustBeType = static_cast<MustBeTypeConstants>(type);
            for (int i = 0; i < kValuesPerType; ++i) {
                const Variant value = GenerateValue(type, random);
                const std::u16string text = TextOf(value, locale);
                SCOPED_TRACE(std::string(name) + " " + std::string(text.begin(), text.end()));
                ASSERT_EQ(ClassifyDateTime(text, locale), type == vldTime ? TimeClass : DateClass);
                ASSERT_EQ(ConvertToType(text, type, locale), value);
                ASSERT_EQ(EvaluateRules(text, settings, locale, 0), 0);
            }
        }
    }
}

} // namespace
} // namespace quillmar
