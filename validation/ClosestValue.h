#pragma once

#include "base/LocaleInfo.h"
#include "base/Settings.h"
#include "base/Variant.h"

#include <cstdint>
#include <string_view>

namespace quillmar {

/// The valid value closest to the text of a number, date or time field: the text's own value (a double for
/// numbers, a `Date` for dates and times), or the limit itself, as stored, when the value lies beyond
/// `MaxValue` or `MinValue` (limits of the field's kind only); for an integral type then that value rounded
/// (ties to even), plus one, minus one; under a sign rule then 0, and for an integral type 1 and -1. The
/// first candidate whose text passes the rule checker is returned; Empty for text fields, for texts that
/// are not of the field's kind and when nothing passes.
[[nodiscard]] Variant FindClosestValue(
    std::u16string_view text, const Settings& settings, const LocaleInfo& locale, int32_t maxLength);

} // namespace quillmar
