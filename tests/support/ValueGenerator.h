#pragma once

#include "base/Enums.h"
#include "base/Variant.h"

#include <bit>
#include <cmath>
#include <random>

namespace quillmar::testing {

/// The locales every round-trip and typing property runs under: two with a decimal point, two with a
/// comma, month-first and day-first dates among them.
inline constexpr const char* kPropertyLocales[] = { "en_US", "de_DE", "fr_FR", "en_GB" };

/// A value of the numeric, date or time type, drawn from the whole range and from everyday numbers.
inline Variant GenerateValue(int32_t type, std::mt19937_64& random) {
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
        const float value = everyday ? static_cast<float>(static_cast<int32_t>(bits >> 40) % 100000) / 100.0f
                                     : std::bit_cast<float>(static_cast<uint32_t>(bits >> 16));
        return std::isfinite(value) ? value : 1.5f;
    }
    case vldDouble: {
        const double value = everyday
            ? static_cast<double>(static_cast<int64_t>(bits >> 20) % 10000000) / 1000.0
            : std::bit_cast<double>(random());
        return std::isfinite(value) ? value : 2.5;
    }
    case vldCurrency:
        return Currency { everyday ? static_cast<int64_t>(bits >> 30) - (int64_t { 1 } << 33)
                                   : static_cast<int64_t>(random()) };
    case vldTime:
        return Date { static_cast<double>(bits % 86400) / 86400.0 };
    default: {
        // Whole days from the year 120 to 8300, never day zero (which reads as a time).
        const double days = static_cast<double>(static_cast<int64_t>(bits % 3000000) - 650000);
        return Date { days == 0 ? 1 : days };
    }
    }
}

} // namespace quillmar::testing
