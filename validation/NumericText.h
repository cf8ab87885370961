#pragma once

#include "base/LocaleInfo.h"
#include "validation/Numbers.h"

#include <cstdint>
#include <string_view>

namespace quillmar {

/// True when the text is a number, or the beginning of one, of the numeric `MustBeTypeConstants` type:
/// only the type's characters ("0123456789" for a byte; digits, a leading "-", the decimal separator for
/// single, double and currency, and `thousandsSeparator` between digits of the whole part for every signed
/// type; with `allowScientific` for single and double, an exponent instead of grouping), a minus sign only
/// in front (or right after the "E"), one decimal separator, the scientific shape; and nothing that can no
/// longer become a value of the type: integral texts beyond the type's range, complete texts that do not
/// convert to the type. The empty text passes. Runs in time linear in the text's length.
[[nodiscard]] bool NumericWholeTextTest(std::u16string_view text, int32_t type, bool allowScientific,
    std::u16string_view thousandsSeparator, const LocaleInfo& locale);

/// `NumericWholeTextTest` for a text whose `ParseNumber` outcome the caller already has: `number` holds its
/// digits, or is null when the text is not a number. Gives the same answer and allocates nothing.
[[nodiscard]] bool NumericWholeTextTest(std::u16string_view text, int32_t type, bool allowScientific,
    std::u16string_view thousandsSeparator, const LocaleInfo& locale, const NumberDigits* number);

/// True when the text is a number in exponent notation or the beginning of one: a mantissa of digits with
/// at most one decimal separator and an optional leading "-", then at most one "E" or "e" after at least
/// one mantissa digit, an optional sign directly after it, and digits.
[[nodiscard]] bool ScientificShapeTest(std::u16string_view text, const LocaleInfo& locale);

} // namespace quillmar
