#include "base/MemoryPropertyStore.h"
#include "control/Quillmar.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace quillmar {
namespace {

using quillmar::MemoryPropertyStore;
using quillmar::PropertyEntry;
using Entries = std::vector<PropertyEntry>;

// A control on a form being designed, so that the two lists can be read back through their readers.
struct Field {
    explicit Field(std::optional<std::u16string> name = u"Quantity") {
        host.container.userMode = false;
        host.container.name = std::move(name);
    }
    standalone::StandaloneHost host { "en_US" };
    Quillmar control { host.Services() };
};

MemoryPropertyStore Saved(const Quillmar& control) {
    MemoryPropertyStore store;
    control.WriteProperties(store);
    return store;
}

MemoryPropertyStore StoreOf(const Entries& entries) {
    MemoryPropertyStore store;
    for (const auto& [key, value] : entries)
        store.WriteProperty(key, value, Variant());
    return store;
}

ByteArray Nested(const Entries& entries) {
    return StoreOf(entries).ToBytes();
}

// Every entry at a value other than its default, in the write order: the text right after the font. The
// selection length is missing because moving the caret, which loading does next, clears any selection. A
// colour is the Long with the colour's bits (0xFF000000 for the back colour).
const Entries kEveryEntry = { { u"MustBePositive", true }, { u"MustBeNegative", true }, { u"Beeping", false },
    { u"MustBeUpperCase", true }, { u"MustBeLowerCase", true }, { u"NoDigits", true },
    { u"OnlyLetters", true }, { u"AllowScientificFormat", true }, { u"MaxLength", int32_t { 5 } },
    { u"FinalValidationActive", false }, { u"ValidCharactersSet", u"ab" },
    { u"Font",
        Nested({ { u"Name", u"Arial" }, { u"Size", 10.0f }, { u"Bold", true }, { u"Italic", true },
            { u"Underline", true }, { u"Strikethru", true } }) },
    { u"Text", u"ab" }, { u"OnlyLettersWithSpace", true }, { u"ExtraExcludedCharacters", u"x" },
    { u"ExtraIncludedCharacters", u"y" }, { u"RequiredField", true }, { u"ThousandSeparator", int16_t { 1 } },
    { u"MaxNumberOfDecimals", int16_t { 3 } }, { u"CustomMask", u"##" }, { u"DefaultValue", u"1" },
    { u"MinValue", 1.0 }, { u"MaxValue", Currency { 20000 } }, { u"MustNotBeZero", true },
    { u"MustNotBeValues", Nested({ { u"NEl", int16_t { 1 } }, { u"1N", u"7" } }) },
    { u"Actions",
        Nested({ { u"NEl", int16_t { 3 } }, { u"1N", int32_t { 9 } }, { u"2N", int32_t { 17 } },
            { u"3N", int32_t { 32 } } }) },
    { u"ShowErrorMessage", false }, { u"ValidationMode", int16_t { 1 } }, { u"MustBeProperCase", true },
    { u"MessageBoxTitle", u"Order" }, { u"ErrorMessageMode", int16_t { 3 } },
    { u"MustBeType", int32_t { vldInteger } }, { u"OnErrorSelectEntireField", true },
    { u"InputSifting", int16_t { 1 } }, { u"MaxRelativeAccuracy", int16_t { 4 } },
    { u"MessageBoxIcon", int16_t { 3 } }, { u"ErrorMessage", u"Wrong." }, { u"Enabled", false },
    { u"SelStart", int32_t { 1 } }, { u"ShowAsUnderstood", false }, { u"Alignment", int16_t { 2 } },
    { u"Appearance", int16_t { 0 } }, { u"BackColor", int32_t { -16777216 } },
    { u"ForeColor", int32_t { 255 } }, { u"BorderStyle", int16_t { 0 } }, { u"Locked", true },
    { u"PasswordChar", u"*" }, { u"RightToLeft", true }, { u"MousePointer", int16_t { 2 } },
    { u"MouseIcon", ByteArray { 0, 1, 2 } }, { u"FontBold", true }, { u"FontUnderline", true },
    { u"FontStrikethru", true }, { u"FontSize", 10.0f }, { u"FontName", u"Arial" }, { u"FontItalic", true },
    { u"OLEDragMode", int16_t { 1 } }, { u"OLEDropMode", int16_t { 2 } } };

TEST(Persistence, EveryEntryComesBackInWriteOrder) {
    Field loaded;
    loaded.control.ReadProperties(StoreOf(Entries(kEveryEntry.rbegin(), kEveryEntry.rend())));
    EXPECT_EQ(Saved(loaded.control).Entries(), kEveryEntry);
}

// "Text1" is the text's write default, so it is left out (and loads back as the name); the caret stays after
// it. Both lists are always written, the empty one as a store without keys.
TEST(Persistence, NewControlWritesOnlyTheListsAndTheBoxFont) {
    Field field;
    field.control.SetText(u"Text1");
    EXPECT_EQ(Saved(field.control).Entries(),
        (Entries { { u"MustNotBeValues", Nested({}) },
            { u"Actions",
                Nested({ { u"NEl", int16_t { 3 } }, { u"1N", int32_t { 33 } }, { u"2N", int32_t { 9 } },
                    { u"3N", int32_t { 17 } } }) },
            { u"SelStart", int32_t { 5 } }, { u"FontSize", 8.25f }, { u"FontName", u"MS Sans Serif" } }));
}

TEST(Persistence, LoadingCoercesValuesOfAnotherKind) {
    Field field;
    field.control.ReadProperties(StoreOf({ { u"MustBeNegative", true }, { u"MustBeUpperCase", true },
        { u"MustBeLowerCase", true }, { u"Beeping", int32_t { 0 } }, { u"ShowErrorMessage", u"no" },
        { u"MaxLength", 12.6 }, { u"MaxNumberOfDecimals", int32_t { 100000 } },
        { u"MustBeType", int32_t { vldByte } }, { u"BackColor", 4278190080.0 }, { u"FontSize", u"big" },
        { u"Actions",
            Nested({ { u"NEl", int16_t { 2 } }, { u"1N", int32_t { 9 } }, { u"2N", int32_t { 16 } } }) } }));
    const Quillmar& c = field.control;
    EXPECT_FALSE(c.MustBeNegative()); // the byte type, read later, drops the negative rule
    EXPECT_TRUE(c.MustBeUpperCase() && c.MustBeLowerCase()); // other rules load raw
    EXPECT_FALSE(c.Beeping()); // a Boolean from a Long
    EXPECT_TRUE(c.ShowErrorMessage()); // a text is no Boolean: the default
    EXPECT_EQ(c.MaxLength(), 13); // a Long from a Double, rounded
    EXPECT_EQ(c.MaxNumberOfDecimals(), 32767); // held at the Integer's bound
    EXPECT_EQ(c.BackColor(), 0xFF000000u); // a colour from an unsigned number
    EXPECT_EQ(c.FontSize(), 8.25f); // a text is no size
    EXPECT_EQ(c.FontName(), u"MS Sans Serif"); // missing entries take their default
    EXPECT_EQ(c.Text(), u"Quantity"); // no text shows the name
    EXPECT_EQ(c.Actions(), Settings::InitialActions()); // a list of two is no set of actions
}

// Whatever the bytes hold, a list loads quietly: unreadable bytes as a list without items.
TEST(Persistence, ListsLoadQuietlyWhateverTheBytesHold) {
    const std::pair<Variant, VariantArray> cases[] = {
        { u"1N", VariantArray(1) }, // not a byte array
        { ByteArray { 0xFF, 0x00 }, VariantArray(1) }, // not a store
        // The list takes its declared length; a missing slot ends the reading and leaves the rest Empty.
        { Nested({ { u"NEl", int16_t { 3 } }, { u"1N", u"a" }, { u"3N", u"c" } }),
            { Variant(), u"a", Variant(), Variant() } },
        { Nested({ { u"NEl", int16_t { -5 } }, { u"1N", u"a" } }), VariantArray(1) },
        { Nested({ { u"NEl", u"1" }, { u"1N", u"a" } }), VariantArray(1) }, // a count that is no number
    };
    for (size_t row = 0; row < std::size(cases); ++row) {
        SCOPED_TRACE(row);
        Field loaded;
        loaded.control.ReadProperties(StoreOf({ { u"MustNotBeValues", cases[row].first } }));
        EXPECT_EQ(loaded.control.MustNotBeValues(), cases[row].second);
    }
    // Actions that lost their last entry keep the author's first two.
    Field loaded;
    loaded.control.ReadProperties(StoreOf({ { u"Actions",
        Nested({ { u"NEl", int16_t { 3 } }, { u"1N", int32_t { 9 } }, { u"2N", int32_t { 17 } } }) } }));
    EXPECT_EQ(
        loaded.control.Actions(), (VariantArray { Variant(), int32_t { 9 }, int32_t { 17 }, Variant() }));
}

TEST(Persistence, InitialisingResetsEverythingQuietly) {
    for (const auto& name : { std::optional<std::u16string>(u"Price"), std::optional<std::u16string>() }) {
        Field field(name);
        field.control.SetMustBeType(vldDate);
        field.control.SetMessageBoxTitle(u"Other");
        field.host.container.notifications.clear();
        field.control.InitProperties();
        EXPECT_EQ(field.control.settings(), Settings());
        EXPECT_FALSE(field.control.state().TypeIsDate);
        EXPECT_EQ(field.control.Text(), name.value_or(u""));
        EXPECT_TRUE(field.host.container.notifications.empty());
        EXPECT_FALSE(field.control.state().InternalTextChange);
    }
}

ByteArray Cbor(const nlohmann::json& json) {
    return nlohmann::json::to_cbor(json);
}

ByteArray OneEntry(const char* key, const char* kind, const nlohmann::json& value) {
    return Cbor(nlohmann::json::array({ nlohmann::json::array({ key, kind, value }) }));
}

ByteArray Concat(ByteArray head, const ByteArray& tail) {
    head.insert(head.end(), tail.begin(), tail.end());
    return head;
}

TEST(MemoryPropertyStoreBytes, KeepKindsAndOrder) {
    // [["b", "Integer", 5], ["a", "ByteArray", h'01']]: any CBOR reader sees the entries as written.
    const ByteArray bytes = { 0x82, 0x83, 0x61, 'b', 0x67, 'I', 'n', 't', 'e', 'g', 'e', 'r', 0x05, 0x83,
        0x61, 'a', 0x69, 'B', 'y', 't', 'e', 'A', 'r', 'r', 'a', 'y', 0x41, 0x01 };
    const auto store = MemoryPropertyStore::FromBytes(bytes);
    ASSERT_TRUE(store);
    EXPECT_EQ(store->Entries(), (Entries { { u"b", int16_t { 5 } }, { u"a", ByteArray { 1 } } }));
    EXPECT_EQ(store->ToBytes(), bytes);
}

const ByteArray kValid = StoreOf({ { u"a", u"text" }, { u"b", VariantArray { 1.5, u"x" } } }).ToBytes();
using Json = nlohmann::json;

const std::pair<const char*, ByteArray> kNoStores[] = {
    // Each fails a check of its own, from the reader's framing to the decoding of one value.
    { "nothing", {} }, { "truncated", ByteArray(kValid.begin(), kValid.end() - 1) },
    { "trailing byte", Concat(kValid, { 0x00 }) }, { "a map", Cbor({ { "a", 1 } }) },
    { "a tag", { 0xC1, 0x80 } }, { "deep nesting", Concat(ByteArray(100000, 0x81), { 0x80 }) },
    { "array claiming 2^64 items", { 0x9B, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF } },
    { "byte string claiming 2^64 bytes",
        Concat(ByteArray(kValid.begin(), kValid.begin() + 4),
            { 0x5B, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF }) },
    { "overlong UTF-8 key", OneEntry("\xC0\x80", "Empty", nullptr) },
    { "surrogate in UTF-8", OneEntry("a", "String", "\xED\xA0\x80") },
    { "repeated key", Cbor(Json::array({ { "a", "Empty", nullptr }, { "a", "Empty", nullptr } })) },
    { "unknown kind", OneEntry("a", "Decimal", 1) }, { "Byte above 255", OneEntry("a", "Byte", 300) },
    { "Integer above 32767", OneEntry("a", "Integer", 40000) },
    { "Single beyond the float range", OneEntry("a", "Single", 1e300) },
    { "Double as an integer", OneEntry("a", "Double", 1) },
    { "entry without a value", Cbor(Json::array({ { "a", "Empty" } })) },
    { "array item not a pair", OneEntry("a", "Array", Json::array({ Json::array({ "Empty" }) })) },
    { "too many bytes", ByteArray(MemoryPropertyStore::MaxBytes + 1, 0x80) }
};

TEST(MemoryPropertyStoreBytes, RefuseWhatIsNoStore) {
    for (const auto& [what, bytes] : kNoStores) {
        SCOPED_TRACE(what);
        EXPECT_FALSE(MemoryPropertyStore::FromBytes(bytes));
    }
}

} // namespace
} // namespace quillmar
