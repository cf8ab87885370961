#pragma once

// The readable notation's values that reading and writing share: the named constants of the enumerations,
// the kinds of keys, dates and times as ISO text, and money as it is written. Internal to form files.
#include "base/Variant.h"
#include "control/PropertyTable.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillmar::formtext {

/// The longest list a list property stores.
inline constexpr size_t kMaxListItems = std::numeric_limits<int16_t>::max();

/// One named constant of an enumeration.
struct NamedConstant {
    std::string_view name;
    int32_t value;
};

/// The corrective actions by name.
extern const std::span<const NamedConstant> kActionConstants;

/// The named constants of a property whose values are an enumeration with names; empty for the others.
[[nodiscard]] std::span<const NamedConstant> ConstantsOf(std::u16string_view key);
/// The constant of that name, or null.
[[nodiscard]] const NamedConstant* ConstantNamed(std::span<const NamedConstant> names, std::string_view name);
/// The constant of that value, or null.
[[nodiscard]] const NamedConstant* ConstantValued(std::span<const NamedConstant> names, int64_t value);
/// The names, comma-separated, for a message.
[[nodiscard]] std::string NameList(std::span<const NamedConstant> names);

/// The kind of a value of a property, or of a font's key (`inFont`); any single value for a key of neither.
[[nodiscard]] PropertyKind KindOfKey(std::u16string_view key, bool inFont);

/// The days of "YYYY-MM-DD", optionally followed by "T" and "HH:MM:SS" with up to nine decimals of the
/// second, or of a time alone when `timeOnly`; nullopt for any other text.
[[nodiscard]] std::optional<double> DaysFrom(std::string_view text, bool timeOnly);
/// The date or time as ISO text that reads back as exactly `days`, with as few decimals of the second as
/// that takes; `timeOnly` is set for a time of day alone. nullopt when no such text exists.
[[nodiscard]] std::optional<std::string> DateText(double days, bool& timeOnly);
/// A currency amount with at least two decimals, as money is written.
[[nodiscard]] std::string MoneyText(Currency amount);

} // namespace quillmar::formtext
