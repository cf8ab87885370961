#include "validation/Conversions.h"
#include "validation/Rules.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

namespace quillmar {
namespace {

constexpr const char* kLocales[] = { "en_US", "de_DE", "fr_FR", "en_GB" };
constexpr int kValuesPerType = 4000;

// A value of the type, drawn from the whole range and from the small, everyday numbers.
Variant Generate(int32_t type, std::mt19937_64& random) {
    const uint64_t bits = random();
    const bool everyday = bits & 1;
    switch (type) {
    case vldByte:
        return static_cast<uint8_t>(bits >> 8);
    case vldInteger:
        return static_cast<int16_t>(bits >> 8);
    case vldLong:
        return static_cast<int32_t>(bits >> 8);
    case vldSingle: {
        float value = everyday ? static_cast<float>(static_cast<int32_t>(bits >> 40) % 100000) / 100.0f
                               : std::bit_cast<float>(static_cast<uint32_t>(bits >> 16));
        return std::isfinite(value) ? value : 1.5f;
    }
    case vldDouble: {
        double value = everyday ? static_cast<double>(static_cast<int64_t>(bits >> 20) % 10000000) / 1000.0
                                : std::bit_cast<double>(random());
        return std::isfinite(value) ? value : 2.5;
    }
    default:
        return Currency { everyday ? static_cast<int64_t>(bits >> 30) - (int64_t { 1 } << 33)
                                   : static_cast<int64_t>(random()) };
    }
}

TEST(NumberRoundTrip, FormattedValuesParseBackToTheSameValue) {
    for (const char* name : kLocales) {
        const LocaleInfo locale = LocaleInfo::FromName(name);
        std::mt19937_64 random(20261122);
        for (int32_t type = vldByte; type <= vldCurrency; ++type) {
            Settings settings;
            settings.MustBeType = static_cast<MustBeTypeConstants>(type);
            settings.AllowScientificFormat = type == vldSingle || type == vldDouble;
            for (int i = 0; i < kValuesPerType; ++i) {
                const Variant value = Generate(type, random);
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
    for (const char* name : kLocales) {
        const LocaleInfo locale = LocaleInfo::FromName(name);
        std::mt19937_64 random(7);
        for (int i = 0; i < kValuesPerType; ++i) {
            const bool time = i % 2;
            const double days = time ? static_cast<double>(random() % 86400) / 86400.0
                                     : static_cast<double>(static_cast<int64_t>(random() % 3000000) - 650000);
            if (!time && days == 0) continue;
            const Variant value = Date { days };
            const std::u16string text = TextOf(value, locale);
            SCOPED_TRACE(std::string(name) + " " + std::string(text.begin(), text.end()));
            Settings settings;
            settings.MustBeType = time ? vldTime : vldDate;
            ASSERT_EQ(ClassifyDateTime(text, locale), time ? TimeClass : DateClass);
            ASSERT_EQ(ConvertToType(text, settings.MustBeType, locale), value);
            ASSERT_EQ(EvaluateRules(text, settings, locale, 0), 0);
        }
    }
}

} // namespace
} // namespace quillmar
