// Saving and loading the control's properties: writing follows the table of stored properties, reading its
// own order through the writers; the two lists and the font are encoded as nested stores.
#include "control/Quillmar.h"

#include "base/ListEncoding.h"

#include "base/MemoryPropertyStore.h"
#include "control/PropertyTable.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string>

namespace quillmar {
namespace {

using quillmar::MemoryPropertyStore;

constexpr float kStoredFontSize = 8.25f;
constexpr char16_t kStoredFontName[] = u"MS Sans Serif";
// The highest index a list entry can declare: its count is stored as a 16-bit integer.
constexpr size_t kMaxListUpperBound = std::numeric_limits<int16_t>::max();

// A stored value read as a number of another kind: a Boolean, a number or a date by its value, rounded to
// the nearest integer and held within the target's range; anything else (a text, an array, NaN) gives the
// fallback. A number out of range is held at the nearest bound, so that a writer with a range check still
// refuses it.
template <typename Int> Int IntegerFrom(const Variant& value, Int fallback) {
    const auto number = value.ToDouble();
    if (!number || std::isnan(*number)) return fallback;
    const double rounded = std::nearbyint(*number);
    if (rounded <= static_cast<double>(std::numeric_limits<Int>::min()))
        return std::numeric_limits<Int>::min();
    if (rounded >= static_cast<double>(std::numeric_limits<Int>::max()))
        return std::numeric_limits<Int>::max();
    return static_cast<Int>(rounded);
}

bool BooleanFrom(const Variant& value, bool fallback) {
    if (value.kind() == Variant::Kind::Boolean) return value.AsBoolean();
    const auto number = value.ToDouble();
    return number ? *number != 0 : fallback;
}

float SingleFrom(const Variant& value, float fallback) {
    const auto number = value.ToDouble();
    if (!number || !std::isfinite(*number)) return fallback;
    const double limit = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(*number, -limit, limit));
}

std::u16string StringFrom(const Variant& value, std::u16string_view fallback) {
    return value.IsString() ? value.AsString() : std::u16string(fallback);
}

// Colours are stored as the Long with the colour's bit pattern; any number that fits 32 bits, signed or
// unsigned, is taken by its bits.
uint32_t ColourFrom(const Variant& value, uint32_t fallback) {
    if (value.kind() == Variant::Kind::Long) return static_cast<uint32_t>(value.AsLong());
    const auto number = value.ToDouble();
    if (!number || std::isnan(*number)) return fallback;
    const double rounded = std::nearbyint(*number);
    if (rounded < std::numeric_limits<int32_t>::min() || rounded > std::numeric_limits<uint32_t>::max())
        return fallback;
    return static_cast<uint32_t>(static_cast<int64_t>(rounded));
}

Variant ColourValue(uint32_t colour) {
    return static_cast<int32_t>(colour);
}

bool ReadBoolean(const PropertyStore& store, std::u16string_view key, bool readDefault) {
    return BooleanFrom(store.ReadProperty(key, readDefault), readDefault);
}

int16_t ReadInteger(const PropertyStore& store, std::u16string_view key, int16_t readDefault) {
    return IntegerFrom<int16_t>(store.ReadProperty(key, readDefault), readDefault);
}

int32_t ReadLong(const PropertyStore& store, std::u16string_view key, int32_t readDefault) {
    return IntegerFrom<int32_t>(store.ReadProperty(key, readDefault), readDefault);
}

std::u16string ReadString(
    const PropertyStore& store, std::u16string_view key, std::u16string_view readDefault) {
    return StringFrom(store.ReadProperty(key, readDefault), readDefault);
}

std::u16string IndexKey(size_t index) {
    std::u16string key;
    for (const char digit : std::to_string(index))
        key.push_back(static_cast<char16_t>(digit));
    key.push_back(u'N');
    return key;
}

// The font as a nested store with every field written, so that two equal fonts give equal bytes.
ByteArray EncodeFont(const FontDesc& font) {
    MemoryPropertyStore nested;
    nested.WriteProperty(u"Name", font.name, Variant());
    nested.WriteProperty(u"Size", font.size, Variant());
    nested.WriteProperty(u"Bold", font.bold, Variant());
    nested.WriteProperty(u"Italic", font.italic, Variant());
    nested.WriteProperty(u"Underline", font.underline, Variant());
    nested.WriteProperty(u"Strikethru", font.strikethru, Variant());
    return nested.ToBytes();
}

// A field missing or unreadable in the stored font keeps the fallback font's value.
FontDesc DecodeFont(const Variant& stored, const FontDesc& fallback) {
    if (stored.kind() != Variant::Kind::Bytes) return fallback;
    const auto nested = MemoryPropertyStore::FromBytes(stored.AsBytes());
    if (!nested) return fallback;
    FontDesc font;
    font.name = ReadString(*nested, u"Name", fallback.name);
    font.size = SingleFrom(nested->ReadProperty(u"Size", fallback.size), fallback.size);
    font.bold = ReadBoolean(*nested, u"Bold", fallback.bold);
    font.italic = ReadBoolean(*nested, u"Italic", fallback.italic);
    font.underline = ReadBoolean(*nested, u"Underline", fallback.underline);
    font.strikethru = ReadBoolean(*nested, u"Strikethru", fallback.strikethru);
    return font;
}

// The value an entry is written against, in the kind the entry is written in; the font's default, the
// container's ambient font, is the caller's.
Variant WriteDefaultOf(const StoredProperty& property) {
    switch (property.kind) {
    case PropertyKind::Boolean:
        return property.writeDefault.number != 0;
    case PropertyKind::Integer:
        return static_cast<int16_t>(property.writeDefault.number);
    case PropertyKind::Long:
        return static_cast<int32_t>(property.writeDefault.number);
    case PropertyKind::Colour:
        return ColourValue(static_cast<uint32_t>(property.writeDefault.number));
    case PropertyKind::PointSize:
        return static_cast<float>(property.writeDefault.number);
    case PropertyKind::String:
    case PropertyKind::Character:
    case PropertyKind::Value:
        return property.writeDefault.text;
    case PropertyKind::Picture:
        return ByteArray();
    case PropertyKind::FontStore:
    case PropertyKind::ValueList:
    case PropertyKind::ActionList:
        break;
    }
    return Variant();
}

// The value of a property as it is stored: the rules as the control holds them, the edit box's properties
// as the box holds them now.
Variant StoredValue(const Quillmar& control, PropertyId id) {
    const Settings& s = control.settings();
    switch (id) {
    case PropertyId::MustBePositive:
        return s.MustBePositive;
    case PropertyId::MustBeNegative:
        return s.MustBeNegative;
    case PropertyId::Beeping:
        return s.Beeping;
    case PropertyId::MustBeUpperCase:
        return s.MustBeUpperCase;
    case PropertyId::MustBeLowerCase:
        return s.MustBeLowerCase;
    case PropertyId::NoDigits:
        return s.NoDigits;
    case PropertyId::OnlyLetters:
        return s.OnlyLetters;
    case PropertyId::AllowScientificFormat:
        return s.AllowScientificFormat;
    case PropertyId::MaxLength:
        return control.MaxLength();
    case PropertyId::FinalValidationActive:
        return s.FinalValidationActive;
    case PropertyId::ValidCharactersSet:
        return s.ValidCharactersSet;
    case PropertyId::Font:
        return EncodeFont(control.Font());
    case PropertyId::Text:
        return control.Text();
    case PropertyId::OnlyLettersWithSpace:
        return s.OnlyLettersWithSpace;
    case PropertyId::ExtraExcludedCharacters:
        return s.ExtraExcludedCharacters;
    case PropertyId::ExtraIncludedCharacters:
        return s.ExtraIncludedCharacters;
    case PropertyId::RequiredField:
        return s.RequiredField;
    case PropertyId::ThousandSeparator:
        return int16_t { s.ThousandSeparator };
    case PropertyId::MaxNumberOfDecimals:
        return s.MaxNumberOfDecimals;
    case PropertyId::CustomMask:
        return s.CustomMask;
    case PropertyId::DefaultValue:
        return s.DefaultValue;
    case PropertyId::MinValue:
        return s.MinValue;
    case PropertyId::MaxValue:
        return s.MaxValue;
    case PropertyId::MustNotBeZero:
        return s.MustNotBeZero;
    case PropertyId::MustNotBeValues:
        return EncodeList(s.MustNotBeValues);
    case PropertyId::Actions:
        return EncodeList(s.Actions);
    case PropertyId::ShowErrorMessage:
        return s.ShowErrorMessage;
    case PropertyId::ValidationMode:
        return int16_t { s.ValidationMode };
    case PropertyId::MustBeProperCase:
        return s.MustBeProperCase;
    case PropertyId::MessageBoxTitle:
        return s.MessageBoxTitle;
    case PropertyId::ErrorMessageMode:
        return int16_t { s.ErrorMessageMode };
    case PropertyId::MustBeType:
        return int32_t { s.MustBeType };
    case PropertyId::OnErrorSelectEntireField:
        return s.OnErrorSelectEntireField;
    case PropertyId::InputSifting:
        return int16_t { s.InputSifting };
    case PropertyId::MaxRelativeAccuracy:
        return s.MaxRelativeAccuracy;
    case PropertyId::MessageBoxIcon:
        return int16_t { s.MessageBoxIcon };
    case PropertyId::ErrorMessage:
        return s.ErrorMessage;
    case PropertyId::Enabled:
        return control.Enabled();
    case PropertyId::SelLength:
        return control.SelLength();
    case PropertyId::SelStart:
        return control.SelStart();
    case PropertyId::ShowAsUnderstood:
        return s.ShowAsUnderstood;
    case PropertyId::Alignment:
        return control.Alignment();
    case PropertyId::Appearance:
        return control.Appearance();
    case PropertyId::BackColor:
        return ColourValue(control.BackColor());
    case PropertyId::ForeColor:
        return ColourValue(control.ForeColor());
    case PropertyId::BorderStyle:
        return control.BorderStyle();
    case PropertyId::Locked:
        return control.Locked();
    case PropertyId::PasswordChar:
        return control.PasswordChar();
    case PropertyId::RightToLeft:
        return control.RightToLeft();
    case PropertyId::MousePointer:
        return control.MousePointer();
    case PropertyId::MouseIcon: {
        // An icon without bytes counts as none: both are the empty byte array, the entry's default.
        const PictureRef icon = control.MouseIcon();
        return icon ? icon->data : ByteArray();
    }
    case PropertyId::FontBold:
        return control.FontBold();
    case PropertyId::FontUnderline:
        return control.FontUnderline();
    case PropertyId::FontStrikethru:
        return control.FontStrikethru();
    case PropertyId::FontSize:
        return control.FontSize();
    case PropertyId::FontName:
        return control.FontName();
    case PropertyId::FontItalic:
        return control.FontItalic();
    case PropertyId::OLEDragMode:
        return control.OLEDragMode();
    case PropertyId::OLEDropMode:
        return control.OLEDropMode();
    }
    return Variant();
}

} // namespace

ByteArray EncodeList(const VariantArray& list) {
    MemoryPropertyStore nested;
    const size_t upperBound = std::min(list.empty() ? 0 : list.size() - 1, kMaxListUpperBound);
    nested.WriteProperty(u"NEl", static_cast<int16_t>(upperBound), int16_t { 0 });
    for (size_t i = 1; i <= upperBound; ++i)
        nested.WriteProperty(IndexKey(i), list[i], Variant());
    return nested.ToBytes();
}

VariantArray DecodeList(const Variant& stored) {
    VariantArray list(1);
    if (stored.kind() != Variant::Kind::Bytes || stored.AsBytes().empty()) return list;
    const auto nested = MemoryPropertyStore::FromBytes(stored.AsBytes());
    if (!nested) return list;
    const int16_t upperBound = IntegerFrom<int16_t>(nested->ReadProperty(u"NEl", int16_t { 0 }), 0);
    if (upperBound < 1) return list;
    // The list takes its declared length first (at most 32,767 slots); a slot missing from the store ends
    // the reading, and it and the slots after it stay Empty.
    list.resize(static_cast<size_t>(upperBound) + 1);
    for (size_t i = 1; i < list.size(); ++i) {
        const Variant* slot = nested->Find(IndexKey(i));
        if (!slot) break;
        list[i] = *slot;
    }
    return list;
}

void Quillmar::InitProperties() {
    m_settings = Settings();
    ClearTypeFlags();
    WriteText(m_host.container.ExtenderName().value_or(std::u16string()));
}

void Quillmar::ReadProperties(const PropertyStore& store) {
    EditBox& box = m_host.editBox;
    Settings& s = m_settings;
    const auto editFont = [&box](auto apply) {
        FontDesc font = box.Font();
        apply(font);
        box.SetFont(font);
    };

    s.MustBePositive = ReadBoolean(store, u"MustBePositive", false);
    s.MustBeNegative = ReadBoolean(store, u"MustBeNegative", false);
    s.Beeping = ReadBoolean(store, u"Beeping", true);
    s.MustBeUpperCase = ReadBoolean(store, u"MustBeUpperCase", false);
    s.MustBeLowerCase = ReadBoolean(store, u"MustBeLowerCase", false);
    s.NoDigits = ReadBoolean(store, u"NoDigits", false);
    s.OnlyLetters = ReadBoolean(store, u"OnlyLetters", false);
    s.AllowScientificFormat = ReadBoolean(store, u"AllowScientificFormat", false);
    box.SetMaxLength(ReadLong(store, u"MaxLength", 0));
    s.FinalValidationActive = ReadBoolean(store, u"FinalValidationActive", true);
    s.ValidCharactersSet = ReadString(store, u"ValidCharactersSet", u"");
    const FontDesc ambientFont = m_host.container.AmbientFont();
    // A missing font reads as the ambient font; decoding falls back to it, so it need not be encoded first.
    box.SetFont(DecodeFont(store.ReadProperty(u"Font", Variant()), ambientFont));
    s.OnlyLettersWithSpace = ReadBoolean(store, u"OnlyLettersWithSpace", false);
    s.ExtraExcludedCharacters = ReadString(store, u"ExtraExcludedCharacters", u"");
    s.ExtraIncludedCharacters = ReadString(store, u"ExtraIncludedCharacters", u"");
    s.RequiredField = ReadBoolean(store, u"RequiredField", false);
    s.ThousandSeparator
        = static_cast<ThousandSeparatorConstants>(ReadInteger(store, u"ThousandSeparator", 0));
    s.MaxNumberOfDecimals = ReadInteger(store, u"MaxNumberOfDecimals", 0);
    s.CustomMask = ReadString(store, u"CustomMask", u"");
    s.DefaultValue = store.ReadProperty(u"DefaultValue", u"");
    s.MinValue = store.ReadProperty(u"MinValue", u"");
    s.MaxValue = store.ReadProperty(u"MaxValue", u"");
    s.MustNotBeZero = ReadBoolean(store, u"MustNotBeZero", false);
    s.MustNotBeValues = DecodeList(store.ReadProperty(u"MustNotBeValues", Variant()));
    s.Actions = DecodeList(store.ReadProperty(u"Actions", Variant()));
    if (s.Actions.size() != 4) s.Actions = Settings::InitialActions();
    s.ShowErrorMessage = ReadBoolean(store, u"ShowErrorMessage", true);
    s.ValidationMode
        = static_cast<ValidationModeConstants>(ReadInteger(store, u"ValidationMode", vldAutomatic));
    s.MustBeProperCase = ReadBoolean(store, u"MustBeProperCase", false);
    s.MessageBoxTitle = ReadString(store, u"MessageBoxTitle", u"Invalid Entry");
    s.ErrorMessageMode
        = static_cast<ErrorMessageModeConstants>(ReadInteger(store, u"ErrorMessageMode", vldAutoAdvanced));
    SetMustBeType(ReadLong(store, u"MustBeType", vldUnspecified));
    s.OnErrorSelectEntireField = ReadBoolean(store, u"OnErrorSelectEntireField", false);
    s.InputSifting = static_cast<InputSiftingConstants>(ReadInteger(store, u"InputSifting", vldStrong));
    s.MaxRelativeAccuracy = ReadInteger(store, u"MaxRelativeAccuracy", 0);
    s.MessageBoxIcon = static_cast<MsgBoxIcons>(ReadInteger(store, u"MessageBoxIcon", vldMBIExclamation));
    s.ErrorMessage = ReadString(store, u"ErrorMessage", u"");
    SetText(ReadString(store, u"Text", m_host.container.ExtenderName().value_or(std::u16string())));
    SetEnabled(ReadBoolean(store, u"Enabled", true));
    box.SetSelLength(ReadLong(store, u"SelLength", 0));
    box.SetSelStart(ReadLong(store, u"SelStart", 0));
    s.ShowAsUnderstood = ReadBoolean(store, u"ShowAsUnderstood", true);
    box.SetAlignment(ReadInteger(store, u"Alignment", 0));
    box.SetAppearance(ReadInteger(store, u"Appearance", vld3D));
    box.SetBackColor(
        ColourFrom(store.ReadProperty(u"BackColor", ColourValue(kSystemWindowColour)), kSystemWindowColour));
    box.SetForeColor(ColourFrom(
        store.ReadProperty(u"ForeColor", ColourValue(kSystemWindowTextColour)), kSystemWindowTextColour));
    box.SetBorderStyle(ReadInteger(store, u"BorderStyle", vldFixedSingle));
    box.SetLocked(ReadBoolean(store, u"Locked", false));
    box.SetPasswordChar(ReadString(store, u"PasswordChar", u""));
    box.SetRightToLeft(ReadBoolean(store, u"RightToLeft", false));
    box.SetMousePointer(ReadInteger(store, u"MousePointer", 0));
    const Variant icon = store.ReadProperty(u"MouseIcon", Variant());
    const bool hasIcon = icon.kind() == Variant::Kind::Bytes && !icon.AsBytes().empty();
    SetMouseIcon(hasIcon ? std::make_shared<const Picture>(Picture { icon.AsBytes() }) : PictureRef());
    const bool bold = ReadBoolean(store, u"FontBold", false);
    editFont([bold](FontDesc& f) { f.bold = bold; });
    const bool underline = ReadBoolean(store, u"FontUnderline", false);
    editFont([underline](FontDesc& f) { f.underline = underline; });
    const bool strikethru = ReadBoolean(store, u"FontStrikethru", false);
    editFont([strikethru](FontDesc& f) { f.strikethru = strikethru; });
    const float size = SingleFrom(store.ReadProperty(u"FontSize", kStoredFontSize), kStoredFontSize);
    editFont([size](FontDesc& f) { f.size = size; });
    std::u16string name = ReadString(store, u"FontName", kStoredFontName);
    editFont([&name](FontDesc& f) { f.name = std::move(name); });
    const bool italic = ReadBoolean(store, u"FontItalic", false);
    editFont([italic](FontDesc& f) { f.italic = italic; });
    box.SetOLEDragMode(ReadInteger(store, u"OLEDragMode", 0));
    box.SetOLEDropMode(ReadInteger(store, u"OLEDropMode", 0));
}

void Quillmar::WriteProperties(PropertyStore& store) const {
    const ByteArray ambientFont = EncodeFont(m_host.container.AmbientFont());
    for (const StoredProperty& property : kStoredProperties)
        store.WriteProperty(property.key, StoredValue(*this, property.id),
            property.kind == PropertyKind::FontStore ? Variant(ambientFont) : WriteDefaultOf(property));
}

} // namespace quillmar
