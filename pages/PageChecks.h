#pragma once

#include "base/LocaleInfo.h"
#include "base/Variant.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::pages {

/// How a page compares a limit or a default value: as a number, or as a date-time in days.
enum class ValueKind { Number, Date };

/// The date kind for `vldDate` and `vldTime`, the number kind for every other type.
[[nodiscard]] ValueKind KindOfType(int32_t type) noexcept;

/// A value converted by kind: the double of a value that passes the numeric conversion, or the days of a
/// value that passes the date conversion; nullopt when it does not (Empty and the empty text included).
[[nodiscard]] std::optional<double> ConvertByKind(
    const Variant& value, ValueKind kind, const LocaleInfo& locale);

/// Where a value lies against the limits that bound it.
enum class RangePosition {
    Inside,
    /// Above the maximum (which is compared first).
    AboveMax,
    /// Below the minimum.
    BelowMin,
    /// The value, or a limit it is compared with, does not convert by kind.
    Unreadable,
};

/// Where `value` lies against `max` and then `min`, each converted by kind (`ConvertByKind`); a null limit
/// bounds nothing. The one comparison both pages make: a default value against the limits, and (with no
/// minimum) a minimum against a maximum, which lies `AboveMax` when the two exclude each other.
[[nodiscard]] RangePosition PositionInRange(
    const Variant& value, const Variant* min, const Variant* max, ValueKind kind, const LocaleInfo& locale);

/// The 0-based positions of the forbidden-list items that are no value of a field of the type: those in
/// which the rule checker, under the type's default rules, finds a broken rule. Every item fits a text type
/// and `vldUnspecified`.
[[nodiscard]] std::vector<size_t> ItemsNotOfType(
    const std::vector<std::u16string>& items, int32_t type, const LocaleInfo& locale);

/// What a limit's text holds: nothing usable, a number, a date, or a time (a date text with ":").
enum class LimitClass { None, Number, Date, Time };

/// The class of a limit: a number when it is numeric; otherwise, when it passes the date conversion, a time
/// when its text holds ":" and a date when it does not; otherwise none.
[[nodiscard]] LimitClass ClassifyLimit(const Variant& limit, const LocaleInfo& locale);

/// True when a limit of that class can bound a field of the type: a date for `vldDate`, a time for
/// `vldTime`, a number for every other type. The checks skip an incompatible limit without a word.
[[nodiscard]] bool IsLimitCompatible(const Variant& limit, int32_t type, const LocaleInfo& locale);

/// The 0-based position in the forbidden-values list (slot 0 unused, items from slot 1) of the first item
/// that matches the default value, -1 when none does. For `vldUnspecified` and `vldString` an item matches
/// when its text equals the default's exactly (case-sensitive); for the other types when both are numbers of
/// equal value, or else both dates (times) of equal date-time.
[[nodiscard]] int FindDefaultInList(
    const VariantArray& list, const Variant& defaultValue, int32_t type, const LocaleInfo& locale);

/// The caption of the forbidden-values frame for a list of `count` items: "MustNotBe&Values" for none,
/// "MustNotBe&Values (1 item)", "MustNotBe&Values (n items)".
[[nodiscard]] std::u16string ForbiddenListCaption(size_t count);

/// The fields of the General page that depend on the type (the default value, the required flag and the
/// forbidden-values editor): usable for every type but `vldUnspecified`.
[[nodiscard]] bool GeneralTypedFieldsEnabled(int32_t type) noexcept;

/// Which fields of the Number/Date,Time page a type offers. Every field is off for `vldUnspecified`.
struct NumDTEnables {
    /// `txtMinValue`, `txtMaxValue`: every type but `vldString`.
    bool range = false;
    /// `chkMustBePositive`, `chkMustBeNegative`: integer, long, single, double, currency.
    bool sign = false;
    /// `chkMustNotBeZero`: every type but `vldString`, `vldDate` and `vldTime`.
    bool notZero = false;
    /// `chkAllowScientificFormat`: single and double.
    bool scientific = false;
    /// `txtMaxNumberOfDecimals`, `txtMaxRelativeAccuracy`: single, double, currency.
    bool decimals = false;
    /// `cboSep1000`: integer, long, single, double, currency.
    bool thousands = false;
    friend bool operator==(const NumDTEnables&, const NumDTEnables&) = default;
};

/// The fields of the Number/Date,Time page the type offers.
[[nodiscard]] NumDTEnables NumDTEnablesFor(int32_t type) noexcept;

/// The six check boxes of the Text page, in two groups of three that exclude each other: the character rules
/// (`OnlyLettersWithSpace`, `OnlyLetters`, `NoDigits`) and the case rules (`MustBeProperCase`,
/// `MustBeLowerCase`, `MustBeUpperCase`).
enum class TextRule {
    OnlyLettersWithSpace,
    OnlyLetters,
    NoDigits,
    MustBeProperCase,
    MustBeLowerCase,
    MustBeUpperCase
};

/// The two boxes of its group that checking `rule` unchecks, in the order they are unchecked.
[[nodiscard]] std::array<TextRule, 2> ExcludedBy(TextRule rule) noexcept;

/// The Text page is usable for `vldString` only.
[[nodiscard]] bool TextPageEnabled(int32_t type) noexcept;

/// The Behavior page's sifting options: off for `vldUnspecified`, whose text the field never examines as a
/// whole and which the Text page gives no character rules to sift by.
[[nodiscard]] bool SiftingEnabled(int32_t type) noexcept;

/// Which fields of the Error Message page are usable.
struct MessageFieldEnables {
    /// The two frames, the mode options, the title label and box.
    bool messageFields = false;
    /// The custom message's label and box.
    bool customMessage = false;
    /// The show-message check box.
    bool showErrorMessage = false;
    friend bool operator==(const MessageFieldEnables&, const MessageFieldEnables&) = default;
};

/// The Error Message page's fields for a field of the type, with the show-message box checked or not and the
/// custom option set or not: no message fields without a message, the custom text only for a custom message,
/// and no show-message box for `vldUnspecified`, which is never validated.
[[nodiscard]] MessageFieldEnables MessageFieldsEnabled(
    int32_t type, bool showErrorMessage, bool custom) noexcept;

} // namespace quillmar::pages
