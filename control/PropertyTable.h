#pragma once

#include "base/Enums.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string_view>

namespace quillmar {

/// Every property the control stores, in the order `Quillmar::WriteProperties` writes them (the order of
/// `kStoredProperties`).
enum class PropertyId : uint8_t {
    MustBePositive,
    MustBeNegative,
    Beeping,
    MustBeUpperCase,
    MustBeLowerCase,
    NoDigits,
    OnlyLetters,
    AllowScientificFormat,
    MaxLength,
    FinalValidationActive,
    ValidCharactersSet,
    Font,
    Text,
    OnlyLettersWithSpace,
    ExtraExcludedCharacters,
    ExtraIncludedCharacters,
    RequiredField,
    ThousandSeparator,
    MaxNumberOfDecimals,
    CustomMask,
    DefaultValue,
    MinValue,
    MaxValue,
    MustNotBeZero,
    MustNotBeValues,
    Actions,
    ShowErrorMessage,
    ValidationMode,
    MustBeProperCase,
    MessageBoxTitle,
    ErrorMessageMode,
    MustBeType,
    OnErrorSelectEntireField,
    InputSifting,
    MaxRelativeAccuracy,
    MessageBoxIcon,
    ErrorMessage,
    Enabled,
    SelLength,
    SelStart,
    ShowAsUnderstood,
    Alignment,
    Appearance,
    BackColor,
    ForeColor,
    BorderStyle,
    Locked,
    PasswordChar,
    RightToLeft,
    MousePointer,
    MouseIcon,
    FontBold,
    FontUnderline,
    FontStrikethru,
    FontSize,
    FontName,
    FontItalic,
    OLEDragMode,
    OLEDropMode,
};

/// What a stored entry holds: the kind of value the control writes it as, and so the only kind a form file
/// may give it.
enum class PropertyKind : uint8_t {
    /// A Boolean.
    Boolean,
    /// A String.
    Text,
    /// A String of at most one character.
    Character,
    /// A 16-bit Integer within the entry's range.
    Integer,
    /// A 32-bit Long within the entry's range.
    Long,
    /// A Long holding a colour's 32 bits, any bit pattern.
    Colour,
    /// A Single point size above 0 and at most the entry's `max`.
    FontSize,
    /// Any single value: Empty, a text, a number, a date.
    Value,
    /// Bytes holding the font as a property store; written against the container's ambient font.
    Font,
    /// Any bytes; no picture is an empty byte array.
    Picture,
    /// Bytes holding the store of a list of single values; always written.
    ValueList,
    /// Bytes holding the store of a list of three action flag words; always written.
    ActionList,
};

/// The colours a field has until a form sets others: the system's window and window text colours.
inline constexpr uint32_t kSystemWindowColour = 0x80000005;
inline constexpr uint32_t kSystemWindowTextColour = 0x80000008;

/// The facts of one stored property.
struct StoredProperty {
    PropertyId id;
    /// The entry's key, the property's name.
    std::u16string_view key;
    PropertyKind kind;
    /// True for the rules the control holds itself (its `Settings`); the other entries belong to the edit
    /// box, the text or the enabled state.
    bool rule = false;
    /// The value an entry is written against (and left out when equal to) for the Boolean, Integer, Long and
    /// Colour kinds (a colour by its bits) and the FontSize kind (in points).
    int64_t writeDefault = 0;
    /// The value an entry is written against for the Text, Character and Value kinds.
    std::u16string_view writeDefaultText = u"";
    /// The values the writer (or the edit box) accepts for the Integer and Long kinds: [min, max], and
    /// `also`.
    int32_t min = 0;
    int32_t max = 0;
    std::optional<int32_t> also = std::nullopt;
};

inline constexpr int32_t kNoUpperBound = std::numeric_limits<int32_t>::max();

/// Every stored property, in the order the control writes them. Reading takes its own order.
inline constexpr StoredProperty kStoredProperties[] = {
    { .id = PropertyId::MustBePositive,
        .key = u"MustBePositive",
        .kind = PropertyKind::Boolean,
        .rule = true },
    { .id = PropertyId::MustBeNegative,
        .key = u"MustBeNegative",
        .kind = PropertyKind::Boolean,
        .rule = true },
    { .id = PropertyId::Beeping,
        .key = u"Beeping",
        .kind = PropertyKind::Boolean,
        .rule = true,
        .writeDefault = true },
    { .id = PropertyId::MustBeUpperCase,
        .key = u"MustBeUpperCase",
        .kind = PropertyKind::Boolean,
        .rule = true },
    { .id = PropertyId::MustBeLowerCase,
        .key = u"MustBeLowerCase",
        .kind = PropertyKind::Boolean,
        .rule = true },
    { .id = PropertyId::NoDigits, .key = u"NoDigits", .kind = PropertyKind::Boolean, .rule = true },
    { .id = PropertyId::OnlyLetters, .key = u"OnlyLetters", .kind = PropertyKind::Boolean, .rule = true },
    { .id = PropertyId::AllowScientificFormat,
        .key = u"AllowScientificFormat",
        .kind = PropertyKind::Boolean,
        .rule = true },
    { .id = PropertyId::MaxLength, .key = u"MaxLength", .kind = PropertyKind::Long, .max = kNoUpperBound },
    { .id = PropertyId::FinalValidationActive,
        .key = u"FinalValidationActive",
        .kind = PropertyKind::Boolean,
        .rule = true,
        .writeDefault = true },
    { .id = PropertyId::ValidCharactersSet,
        .key = u"ValidCharactersSet",
        .kind = PropertyKind::Text,
        .rule = true },
    { .id = PropertyId::Font, .key = u"Font", .kind = PropertyKind::Font },
    // A text of exactly "Text1" is left out, and so loads back as the control's name.
    { .id = PropertyId::Text, .key = u"Text", .kind = PropertyKind::Text, .writeDefaultText = u"Text1" },
    { .id = PropertyId::OnlyLettersWithSpace,
        .key = u"OnlyLettersWithSpace",
        .kind = PropertyKind::Boolean,
        .rule = true },
    { .id = PropertyId::ExtraExcludedCharacters,
        .key = u"ExtraExcludedCharacters",
        .kind = PropertyKind::Text,
        .rule = true },
    { .id = PropertyId::ExtraIncludedCharacters,
        .key = u"ExtraIncludedCharacters",
        .kind = PropertyKind::Text,
        .rule = true },
    { .id = PropertyId::RequiredField, .key = u"RequiredField", .kind = PropertyKind::Boolean, .rule = true },
    { .id = PropertyId::ThousandSeparator,
        .key = u"ThousandSeparator",
        .kind = PropertyKind::Integer,
        .rule = true,
        .min = vldTSForbidden,
        .max = vldTSAllowed },
    { .id = PropertyId::MaxNumberOfDecimals,
        .key = u"MaxNumberOfDecimals",
        .kind = PropertyKind::Integer,
        .rule = true,
        .max = 32 },
    { .id = PropertyId::CustomMask, .key = u"CustomMask", .kind = PropertyKind::Text, .rule = true },
    { .id = PropertyId::DefaultValue, .key = u"DefaultValue", .kind = PropertyKind::Value, .rule = true },
    { .id = PropertyId::MinValue, .key = u"MinValue", .kind = PropertyKind::Value, .rule = true },
    { .id = PropertyId::MaxValue, .key = u"MaxValue", .kind = PropertyKind::Value, .rule = true },
    { .id = PropertyId::MustNotBeZero, .key = u"MustNotBeZero", .kind = PropertyKind::Boolean, .rule = true },
    { .id = PropertyId::MustNotBeValues,
        .key = u"MustNotBeValues",
        .kind = PropertyKind::ValueList,
        .rule = true },
    { .id = PropertyId::Actions, .key = u"Actions", .kind = PropertyKind::ActionList, .rule = true },
    { .id = PropertyId::ShowErrorMessage,
        .key = u"ShowErrorMessage",
        .kind = PropertyKind::Boolean,
        .rule = true,
        .writeDefault = true },
    { .id = PropertyId::ValidationMode,
        .key = u"ValidationMode",
        .kind = PropertyKind::Integer,
        .rule = true,
        .writeDefault = vldAutomatic,
        .min = vldAutomatic,
        .max = vldSemiAutomatic },
    { .id = PropertyId::MustBeProperCase,
        .key = u"MustBeProperCase",
        .kind = PropertyKind::Boolean,
        .rule = true },
    { .id = PropertyId::MessageBoxTitle,
        .key = u"MessageBoxTitle",
        .kind = PropertyKind::Text,
        .rule = true,
        .writeDefaultText = u"Invalid Entry" },
    { .id = PropertyId::ErrorMessageMode,
        .key = u"ErrorMessageMode",
        .kind = PropertyKind::Integer,
        .rule = true,
        .writeDefault = vldAutoAdvanced,
        .min = vldAutoBasic,
        .max = vldCustom },
    { .id = PropertyId::MustBeType,
        .key = u"MustBeType",
        .kind = PropertyKind::Long,
        .rule = true,
        .writeDefault = vldUnspecified,
        .min = vldUnspecified,
        .max = vldTime },
    { .id = PropertyId::OnErrorSelectEntireField,
        .key = u"OnErrorSelectEntireField",
        .kind = PropertyKind::Boolean,
        .rule = true },
    { .id = PropertyId::InputSifting,
        .key = u"InputSifting",
        .kind = PropertyKind::Integer,
        .rule = true,
        .writeDefault = vldStrong,
        .min = vldNone,
        .max = vldStrong },
    { .id = PropertyId::MaxRelativeAccuracy,
        .key = u"MaxRelativeAccuracy",
        .kind = PropertyKind::Integer,
        .rule = true,
        .max = 32 },
    { .id = PropertyId::MessageBoxIcon,
        .key = u"MessageBoxIcon",
        .kind = PropertyKind::Integer,
        .rule = true,
        .writeDefault = vldMBIExclamation,
        .min = vldMBINone,
        .max = vldMBIQuestion },
    { .id = PropertyId::ErrorMessage, .key = u"ErrorMessage", .kind = PropertyKind::Text, .rule = true },
    { .id = PropertyId::Enabled, .key = u"Enabled", .kind = PropertyKind::Boolean, .writeDefault = true },
    { .id = PropertyId::SelLength, .key = u"SelLength", .kind = PropertyKind::Long, .max = kNoUpperBound },
    { .id = PropertyId::SelStart, .key = u"SelStart", .kind = PropertyKind::Long, .max = kNoUpperBound },
    { .id = PropertyId::ShowAsUnderstood,
        .key = u"ShowAsUnderstood",
        .kind = PropertyKind::Boolean,
        .rule = true,
        .writeDefault = true },
    // Left, right, centre.
    { .id = PropertyId::Alignment, .key = u"Alignment", .kind = PropertyKind::Integer, .max = 2 },
    { .id = PropertyId::Appearance,
        .key = u"Appearance",
        .kind = PropertyKind::Integer,
        .writeDefault = vld3D,
        .min = vldFlat,
        .max = vld3D },
    { .id = PropertyId::BackColor,
        .key = u"BackColor",
        .kind = PropertyKind::Colour,
        .writeDefault = kSystemWindowColour },
    { .id = PropertyId::ForeColor,
        .key = u"ForeColor",
        .kind = PropertyKind::Colour,
        .writeDefault = kSystemWindowTextColour },
    { .id = PropertyId::BorderStyle,
        .key = u"BorderStyle",
        .kind = PropertyKind::Integer,
        .writeDefault = vldFixedSingle,
        .min = vldNoBorder,
        .max = vldFixedSingle },
    { .id = PropertyId::Locked, .key = u"Locked", .kind = PropertyKind::Boolean },
    { .id = PropertyId::PasswordChar, .key = u"PasswordChar", .kind = PropertyKind::Character },
    { .id = PropertyId::RightToLeft, .key = u"RightToLeft", .kind = PropertyKind::Boolean },
    // The standard pointers, and 99 for the field's own icon.
    { .id = PropertyId::MousePointer,
        .key = u"MousePointer",
        .kind = PropertyKind::Integer,
        .max = 15,
        .also = 99 },
    { .id = PropertyId::MouseIcon, .key = u"MouseIcon", .kind = PropertyKind::Picture },
    { .id = PropertyId::FontBold, .key = u"FontBold", .kind = PropertyKind::Boolean },
    { .id = PropertyId::FontUnderline, .key = u"FontUnderline", .kind = PropertyKind::Boolean },
    { .id = PropertyId::FontStrikethru, .key = u"FontStrikethru", .kind = PropertyKind::Boolean },
    // Written against 0 points, which no font has, so the size is always written.
    { .id = PropertyId::FontSize, .key = u"FontSize", .kind = PropertyKind::FontSize, .max = 2048 },
    { .id = PropertyId::FontName, .key = u"FontName", .kind = PropertyKind::Text },
    { .id = PropertyId::FontItalic, .key = u"FontItalic", .kind = PropertyKind::Boolean },
    // Manual, automatic.
    { .id = PropertyId::OLEDragMode, .key = u"OLEDragMode", .kind = PropertyKind::Integer, .max = 1 },
    // None, manual, automatic.
    { .id = PropertyId::OLEDropMode, .key = u"OLEDropMode", .kind = PropertyKind::Integer, .max = 2 },
};

namespace detail {
constexpr bool RowsFollowIds() {
    for (size_t i = 0; i < std::size(kStoredProperties); ++i)
        if (static_cast<size_t>(kStoredProperties[i].id) != i) return false;
    return static_cast<size_t>(PropertyId::OLEDropMode) + 1 == std::size(kStoredProperties);
}
static_assert(RowsFollowIds(), "kStoredProperties holds one row per PropertyId, in the order of the ids");
} // namespace detail

/// The facts of `id`.
[[nodiscard]] constexpr const StoredProperty& PropertyFacts(PropertyId id) noexcept {
    return kStoredProperties[static_cast<size_t>(id)];
}

/// The facts of the property stored under `key` (case-sensitive); nullptr when no property is stored so.
[[nodiscard]] constexpr const StoredProperty* FindStoredProperty(std::u16string_view key) noexcept {
    for (const StoredProperty& property : kStoredProperties)
        if (property.key == key) return &property;
    return nullptr;
}

/// True when `value` lies within the property's [min, max] or equals its `also`.
[[nodiscard]] constexpr bool InRange(const StoredProperty& property, int64_t value) noexcept {
    return (value >= property.min && value <= property.max) || (property.also && value == *property.also);
}

} // namespace quillmar
