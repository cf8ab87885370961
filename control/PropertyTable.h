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
    String,
    /// A String of at most one character.
    Character,
    /// A 16-bit Integer within the entry's range.
    Integer,
    /// A 32-bit Long within the entry's range.
    Long,
    /// A Long holding a colour's 32 bits, any bit pattern.
    Colour,
    /// A Single point size above 0 and at most the entry's `max`.
    PointSize,
    /// Any single value: Empty, a text, a number, a date.
    Value,
    /// Bytes holding the font as a property store; written against the container's ambient font.
    FontStore,
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

/// The value an entry is written against: a number for the Boolean (0 or 1), Integer, Long, Colour (its
/// bits) and PointSize kinds, a text for the String, Character and Value kinds; unused by the other kinds.
struct WriteDefault {
    constexpr WriteDefault(int64_t value) noexcept
        : number(value) { }
    template <size_t N>
    constexpr WriteDefault(const char16_t (&value)[N]) noexcept
        : text(value, N - 1) { }
    int64_t number = 0;
    std::u16string_view text;
};

/// The facts of one stored property.
struct StoredProperty {
    PropertyId id;
    /// The entry's key, the property's name.
    std::u16string_view key;
    PropertyKind kind;
    /// True for the rules the control holds itself (its `Settings`); the other entries belong to the edit
    /// box, the text or the enabled state.
    bool rule;
    /// The value the entry is written against, and left out when it equals.
    WriteDefault writeDefault;
    /// The values the writer (or the edit box) accepts for the Integer, Long and PointSize kinds: [min, max]
    /// and `also`.
    int32_t min = 0;
    int32_t max = 0;
    std::optional<int32_t> also = std::nullopt;
};

inline constexpr int32_t kNoUpperBound = std::numeric_limits<int32_t>::max();

// clang-format off
// A row whose key is its id's name.
#define QM_ROW(id, ...) StoredProperty { PropertyId::id, u"" #id, __VA_ARGS__ }

namespace property_rows {
using enum PropertyKind;

/// Every stored property, in the order the control writes them. Reading takes its own order.
inline constexpr StoredProperty kStoredProperties[] = {
    // id                            kind        rule   write default, min, max, also
    QM_ROW(MustBePositive,           Boolean,    true,  false),
    QM_ROW(MustBeNegative,           Boolean,    true,  false),
    QM_ROW(Beeping,                  Boolean,    true,  true),
    QM_ROW(MustBeUpperCase,          Boolean,    true,  false),
    QM_ROW(MustBeLowerCase,          Boolean,    true,  false),
    QM_ROW(NoDigits,                 Boolean,    true,  false),
    QM_ROW(OnlyLetters,              Boolean,    true,  false),
    QM_ROW(AllowScientificFormat,    Boolean,    true,  false),
    QM_ROW(MaxLength,                Long,       false, 0,                  0, kNoUpperBound),
    QM_ROW(FinalValidationActive,    Boolean,    true,  true),
    QM_ROW(ValidCharactersSet,       String,     true,  u""),
    QM_ROW(Font,                     FontStore,  false, 0),
    // A text of exactly "Text1" is left out, and so loads back as the control's name.
    QM_ROW(Text,                     String,     false, u"Text1"),
    QM_ROW(OnlyLettersWithSpace,     Boolean,    true,  false),
    QM_ROW(ExtraExcludedCharacters,  String,     true,  u""),
    QM_ROW(ExtraIncludedCharacters,  String,     true,  u""),
    QM_ROW(RequiredField,            Boolean,    true,  false),
    QM_ROW(ThousandSeparator,        Integer,    true,  0,                  vldTSForbidden, vldTSAllowed),
    QM_ROW(MaxNumberOfDecimals,      Integer,    true,  0,                  0, 32),
    QM_ROW(CustomMask,               String,     true,  u""),
    QM_ROW(DefaultValue,             Value,      true,  u""),
    QM_ROW(MinValue,                 Value,      true,  u""),
    QM_ROW(MaxValue,                 Value,      true,  u""),
    QM_ROW(MustNotBeZero,            Boolean,    true,  false),
    QM_ROW(MustNotBeValues,          ValueList,  true,  0),
    QM_ROW(Actions,                  ActionList, true,  0),
    QM_ROW(ShowErrorMessage,         Boolean,    true,  true),
    QM_ROW(ValidationMode,           Integer,    true,  vldAutomatic,       vldAutomatic, vldSemiAutomatic),
    QM_ROW(MustBeProperCase,         Boolean,    true,  false),
    QM_ROW(MessageBoxTitle,          String,     true,  u"Invalid Entry"),
    QM_ROW(ErrorMessageMode,         Integer,    true,  vldAutoAdvanced,    vldAutoBasic, vldCustom),
    QM_ROW(MustBeType,               Long,       true,  vldUnspecified,     vldUnspecified, vldTime),
    QM_ROW(OnErrorSelectEntireField, Boolean,    true,  false),
    QM_ROW(InputSifting,             Integer,    true,  vldStrong,          vldNone, vldStrong),
    QM_ROW(MaxRelativeAccuracy,      Integer,    true,  0,                  0, 32),
    QM_ROW(MessageBoxIcon,           Integer,    true,  vldMBIExclamation,  vldMBINone, vldMBIQuestion),
    QM_ROW(ErrorMessage,             String,     true,  u""),
    QM_ROW(Enabled,                  Boolean,    false, true),
    QM_ROW(SelLength,                Long,       false, 0,                  0, kNoUpperBound),
    QM_ROW(SelStart,                 Long,       false, 0,                  0, kNoUpperBound),
    QM_ROW(ShowAsUnderstood,         Boolean,    true,  true),
    // Left, right, centre.
    QM_ROW(Alignment,                Integer,    false, 0,                  0, 2),
    QM_ROW(Appearance,               Integer,    false, vld3D,              vldFlat, vld3D),
    QM_ROW(BackColor,                Colour,     false, kSystemWindowColour),
    QM_ROW(ForeColor,                Colour,     false, kSystemWindowTextColour),
    QM_ROW(BorderStyle,              Integer,    false, vldFixedSingle,     vldNoBorder, vldFixedSingle),
    QM_ROW(Locked,                   Boolean,    false, false),
    QM_ROW(PasswordChar,             Character,  false, u""),
    QM_ROW(RightToLeft,              Boolean,    false, false),
    // The standard pointers, and 99 for the field's own icon.
    QM_ROW(MousePointer,             Integer,    false, 0,                  0, 15, 99),
    QM_ROW(MouseIcon,                Picture,    false, 0),
    QM_ROW(FontBold,                 Boolean,    false, false),
    QM_ROW(FontUnderline,            Boolean,    false, false),
    QM_ROW(FontStrikethru,           Boolean,    false, false),
    // Written against 0 points, which no font has, so the size is always written.
    QM_ROW(FontSize,                 PointSize,  false, 0,                  0, 2048),
    QM_ROW(FontName,                 String,     false, u""),
    QM_ROW(FontItalic,               Boolean,    false, false),
    // Manual, automatic.
    QM_ROW(OLEDragMode,              Integer,    false, 0,                  0, 1),
    // None, manual, automatic.
    QM_ROW(OLEDropMode,              Integer,    false, 0,                  0, 2),
};
} // namespace property_rows
using property_rows::kStoredProperties;

#undef QM_ROW
// clang-format on

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
