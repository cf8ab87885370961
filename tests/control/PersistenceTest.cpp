#include "control/Quillmar.h"
#include "host/standalone/MemoryPropertyStore.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <tuple>

namespace quillmar {
namespace {

using standalone::MemoryPropertyStore;
using standalone::PropertyEntry;
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

const VariantArray kInitialActions = { Variant(), int32_t { 33 }, int32_t { 9 }, int32_t { 17 } };

TEST(Persistence, ListsTravelAsNestedStores) {
    struct Case {
        VariantArray list;
        Entries nested;
    };
    const Case cases[] = {
        { { Variant(), u"0", u"13", u"99" },
            { { u"NEl", int16_t { 3 } }, { u"1N", u"0" }, { u"2N", u"13" }, { u"3N", u"99" } } },
        { VariantArray(1), {} }, // an empty list: the entry is still written, with no keys inside
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.nested.size());
        Field saved;
        saved.control.SetMustNotBeValues(c.list);
        const MemoryPropertyStore store = Saved(saved.control);
        const Variant* entry = store.Find(u"MustNotBeValues");
        ASSERT_TRUE(entry && entry->kind() == Variant::Kind::Bytes);
        const auto nested = MemoryPropertyStore::FromBytes(entry->AsBytes());
        ASSERT_TRUE(nested);
        EXPECT_EQ(nested->Entries(), c.nested);
        Field loaded;
        loaded.control.ReadProperties(store);
        EXPECT_EQ(loaded.control.MustNotBeValues(), c.list);
    }
}

struct ListCase {
    const char* what;
    Variant stored;
    VariantArray forbidden;
    VariantArray actions;
};

const ListCase kListCases[] = {
    { "absent", Variant(), VariantArray(1), kInitialActions },
    { "not a byte array", u"1N", VariantArray(1), kInitialActions },
    { "no bytes", ByteArray(), VariantArray(1), kInitialActions },
    { "not a store", ByteArray { 0xFF, 0x00 }, VariantArray(1), kInitialActions },
    { "three actions",
        Nested({ { u"NEl", int16_t { 3 } }, { u"1N", int32_t { 9 } }, { u"2N", int32_t { 16 } },
            { u"3N", int32_t { 33 } } }),
        { Variant(), int32_t { 9 }, int32_t { 16 }, int32_t { 33 } },
        { Variant(), int32_t { 9 }, int32_t { 16 }, int32_t { 33 } } },
    { "two actions",
        Nested({ { u"NEl", int16_t { 2 } }, { u"1N", int32_t { 9 } }, { u"2N", int32_t { 16 } } }),
        { Variant(), int32_t { 9 }, int32_t { 16 } }, kInitialActions },
    // The count is only a claim: a missing slot ends the list, so the bytes bound its size.
    { "count above the slots", Nested({ { u"NEl", int16_t { 32767 } }, { u"1N", u"a" } }),
        { Variant(), u"a" }, kInitialActions },
    { "negative count", Nested({ { u"NEl", int16_t { -5 } }, { u"1N", u"a" } }), VariantArray(1),
        kInitialActions },
    { "count as a text", Nested({ { u"NEl", u"1" }, { u"1N", u"a" } }), VariantArray(1), kInitialActions },
};

TEST(Persistence, ListsLoadQuietlyWhateverTheBytesHold) {
    for (const ListCase& c : kListCases) {
        SCOPED_TRACE(c.what);
        Field loaded;
        loaded.control.ReadProperties(
            StoreOf({ { u"MustNotBeValues", c.stored }, { u"Actions", c.stored } }));
        EXPECT_EQ(loaded.control.MustNotBeValues(), c.forbidden);
        EXPECT_EQ(loaded.control.Actions(), c.actions);
    }
}

struct LoadCase {
    const char* what;
    Entries entries;
    std::function<Variant(const Quillmar&)> probe;
    Variant expected;
};

const LoadCase kLoadCases[] = {
    { "byte type drops the negative rule",
        { { u"MustBeNegative", true }, { u"MustBeType", int32_t { vldByte } } },
        [](const Quillmar& c) { return Variant(c.MustBeNegative()); }, false },
    { "other rules load raw", { { u"MustBeUpperCase", true }, { u"MustBeLowerCase", true } },
        [](const Quillmar& c) { return Variant(c.MustBeUpperCase() && c.MustBeLowerCase()); }, true },
    { "no text entry shows the name", {}, [](const Quillmar& c) { return Variant(c.Text()); }, u"Quantity" },
    { "no font name entry", {}, [](const Quillmar& c) { return Variant(c.FontName()); }, u"MS Sans Serif" },
    { "no font size entry", {}, [](const Quillmar& c) { return Variant(c.FontSize()); }, 8.25f },
    // Values of an unexpected kind are coerced where a number makes sense, else the default is used.
    { "Boolean from a Long", { { u"Beeping", int32_t { 0 } } },
        [](const Quillmar& c) { return Variant(c.Beeping()); }, false },
    { "Boolean from a text", { { u"Beeping", u"no" } },
        [](const Quillmar& c) { return Variant(c.Beeping()); }, true },
    { "Long from a Double", { { u"MaxLength", 12.6 } },
        [](const Quillmar& c) { return Variant(c.MaxLength()); }, int32_t { 13 } },
    { "Integer held at its bound", { { u"MaxNumberOfDecimals", int32_t { 100000 } } },
        [](const Quillmar& c) { return Variant(c.MaxNumberOfDecimals()); }, int16_t { 32767 } },
    { "colour from an unsigned number", { { u"BackColor", 4278190080.0 } },
        [](const Quillmar& c) { return Variant(static_cast<double>(c.BackColor())); }, 4278190080.0 },
    { "font size from a text", { { u"FontSize", u"big" } },
        [](const Quillmar& c) { return Variant(c.FontSize()); }, 8.25f },
};

TEST(Persistence, LoadingAppliesEachEntryAsSaved) {
    for (const LoadCase& c : kLoadCases) {
        SCOPED_TRACE(c.what);
        Field loaded;
        loaded.control.ReadProperties(StoreOf(c.entries));
        EXPECT_EQ(c.probe(loaded.control), c.expected);
    }
}

TEST(Persistence, TheNameShownAsTextSurvivesSaveAndLoad) {
    const char16_t* texts[] = { u"Quantity", u"Text1", u"" };
    for (const char16_t* text : texts) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(text)));
        Field saved;
        saved.control.InitProperties();
        if (std::u16string_view(text) != u"Quantity") saved.control.SetText(text);
        Field loaded;
        loaded.control.ReadProperties(Saved(saved.control));
        // "Text1" is the text's write default, so it is left out and loads back as the name.
        EXPECT_EQ(loaded.control.Text(), std::u16string_view(text) == u"" ? u"" : u"Quantity");
    }
}

TEST(Persistence, InitialisingResetsEverythingQuietly) {
    const std::optional<std::u16string> names[] = { u"Price", std::nullopt };
    for (const auto& name : names) {
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

Variant RandomVariant(std::mt19937& rng, int depth) {
    const auto bits = [&rng] { return static_cast<int32_t>(rng()); };
    switch (rng() % (depth > 0 ? 12 : 11)) {
    case 0:
        return Variant();
    case 1:
        return rng() % 2 == 0;
    case 2: {
        const char16_t* texts[]
            = { u"", u"13", u"\u00e9t\u00e9", u"\U0001F600", u"a\"b\\c", u"\u4e2d\u6587" };
        return texts[rng() % std::size(texts)];
    }
    case 3:
        return static_cast<uint8_t>(bits());
    case 4:
        return static_cast<int16_t>(bits());
    case 5:
        return bits();
    case 6:
        return std::uniform_real_distribution<float>(-1e6f, 1e6f)(rng);
    case 7:
        return std::uniform_real_distribution<double>(-1e300, 1e300)(rng);
    case 8:
        return Currency { (int64_t { bits() } << 32) | static_cast<uint32_t>(bits()) };
    case 9:
        return Date { std::uniform_real_distribution<double>(-1e5, 1e6)(rng) };
    case 10:
        return ByteArray(rng() % 9, static_cast<uint8_t>(bits()));
    default: {
        VariantArray items(rng() % 4);
        for (Variant& item : items)
            item = RandomVariant(rng, depth - 1);
        return items;
    }
    }
}

// Set through the writers in an order that leaves each set as loading rebuilds it: the sign and scientific
// rules before the type, whose writer has the last word on them, and the limits after it.
void Randomize(Field& field, std::mt19937& rng) {
    Quillmar& c = field.control;
    const auto coin = [&rng] { return rng() % 2 == 0; };
    const auto pick = [&rng](size_t n) { return static_cast<int16_t>(rng() % n); };
    // "Text1" is left out: it loads back as the name, which a test of its own covers.
    const char16_t* texts[] = { u"", u"abc", u"12", u"-3.5", u"1/2/2003", u"10:30",
        u"\u00dcn\u00efc\u00f6d\u00e9", u"\U0001F600 x" };
    const auto text = [&] { return std::u16string(texts[pick(std::size(texts))]); };
    c.SetMustBePositive(coin());
    c.SetMustBeNegative(coin());
    c.SetAllowScientificFormat(coin());
    c.SetMustBeType(pick(10));
    c.SetDefaultValue(text());
    c.SetMinValue(text());
    c.SetMaxValue(text());
    for (auto set : { &Quillmar::SetBeeping, &Quillmar::SetMustBeUpperCase, &Quillmar::SetMustBeLowerCase,
             &Quillmar::SetMustBeProperCase, &Quillmar::SetNoDigits, &Quillmar::SetOnlyLetters,
             &Quillmar::SetOnlyLettersWithSpace, &Quillmar::SetFinalValidationActive,
             &Quillmar::SetRequiredField, &Quillmar::SetMustNotBeZero, &Quillmar::SetShowErrorMessage,
             &Quillmar::SetOnErrorSelectEntireField, &Quillmar::SetShowAsUnderstood, &Quillmar::SetLocked,
             &Quillmar::SetRightToLeft, &Quillmar::SetEnabled })
        (c.*set)(coin());
    for (auto set : { &Quillmar::SetValidCharactersSet, &Quillmar::SetExtraExcludedCharacters,
             &Quillmar::SetExtraIncludedCharacters, &Quillmar::SetCustomMask, &Quillmar::SetMessageBoxTitle,
             &Quillmar::SetErrorMessage })
        (c.*set)(text());
    c.SetThousandSeparator(pick(2));
    c.SetMaxNumberOfDecimals(pick(33));
    c.SetValidationMode(pick(2));
    c.SetErrorMessageMode(1 + pick(3));
    c.SetInputSifting(pick(3));
    c.SetMaxRelativeAccuracy(pick(33));
    c.SetMessageBoxIcon(pick(5));
    VariantArray forbidden(1 + pick(5));
    for (size_t i = 1; i < forbidden.size(); ++i)
        forbidden[i] = RandomVariant(rng, 2);
    c.SetMustNotBeValues(forbidden);
    VariantArray actions = Settings::InitialActions();
    std::shuffle(actions.begin() + 1, actions.end(), rng);
    for (size_t i = 1; i < actions.size(); ++i)
        actions[i] = int32_t { actions[i].AsLong() & ~(coin() ? 0 : vldACChecked) };
    c.SetActions(actions);
    c.SetMaxLength(pick(50));
    c.SetAlignment(pick(3));
    c.SetAppearance(pick(2));
    c.SetBorderStyle(pick(2));
    c.SetPasswordChar(coin() ? u"*" : u"");
    c.SetMousePointer(pick(16));
    c.SetOLEDragMode(pick(2));
    c.SetOLEDropMode(pick(3));
    if (coin())
        c.SetMouseIcon(std::make_shared<const Picture>(
            Picture { ByteArray(1 + pick(64), static_cast<uint8_t>(rng())) }));
    // The font and the colours change only through a loaded form, so they are set on the box directly. A
    // font size of 0 is left out: it is the size's write default, which loads back as 8.25.
    const float sizes[] = { 8.25f, 10.0f, 0.1f, 72.5f };
    field.host.editBox.SetFont(
        FontDesc { coin() ? u"Arial" : u"\u5b8b\u4f53", sizes[pick(4)], coin(), coin(), coin(), coin() });
    field.host.editBox.SetBackColor(static_cast<uint32_t>(rng()));
    field.host.editBox.SetForeColor(static_cast<uint32_t>(rng()));
    const std::u16string shown = text();
    c.SetText(shown);
    c.SetSelStart(pick(shown.size() + 1));
}

auto BoxOf(const Quillmar& c) {
    return std::make_tuple(c.Text(), c.SelStart(), c.SelLength(), c.MaxLength(), c.Alignment(),
        c.Appearance(), c.BorderStyle(), c.Locked(), c.PasswordChar(), c.RightToLeft(), c.MousePointer(),
        c.MouseIcon() ? c.MouseIcon()->data : ByteArray(), c.Font(), c.BackColor(), c.ForeColor(),
        c.OLEDragMode(), c.OLEDropMode(), c.Enabled());
}

TEST(Persistence, GeneratedPropertySetsSurviveSaveAndLoad) {
    std::mt19937 rng(20240611);
    for (int i = 0; i < 300; ++i) {
        SCOPED_TRACE(i);
        Field saved;
        Randomize(saved, rng);
        const ByteArray bytes = Saved(saved.control).ToBytes();
        const auto store = MemoryPropertyStore::FromBytes(bytes);
        ASSERT_TRUE(store);
        Field loaded;
        loaded.control.ReadProperties(*store);
        EXPECT_EQ(Saved(loaded.control).ToBytes(), bytes);
        EXPECT_EQ(loaded.control.settings(), saved.control.settings());
        EXPECT_EQ(BoxOf(loaded.control), BoxOf(saved.control));
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

TEST(MemoryPropertyStoreBytes, RefuseWhatIsNoStore) {
    const ByteArray valid = StoreOf({ { u"a", u"text" }, { u"b", VariantArray { 1.5, u"x" } } }).ToBytes();
    const std::pair<const char*, ByteArray> cases[] = {
        { "nothing", {} },
        { "truncated", ByteArray(valid.begin(), valid.end() - 1) },
        { "trailing byte", Concat(valid, { 0x00 }) },
        { "a map", Cbor({ { "a", 1 } }) },
        { "a tag", { 0xC1, 0x80 } },
        { "deep nesting", Concat(ByteArray(100000, 0x81), { 0x80 }) },
        { "array claiming 2^64 items", { 0x9B, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF } },
        { "byte string claiming 2^64 bytes",
            Concat(ByteArray(valid.begin(), valid.begin() + 4),
                { 0x5B, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF }) },
        { "overlong UTF-8 key", OneEntry("\xC0\x80", "Empty", nullptr) },
        { "surrogate in UTF-8", OneEntry("a", "String", "\xED\xA0\x80") },
        { "repeated key",
            Cbor(nlohmann::json::array({ { "a", "Empty", nullptr }, { "a", "Empty", nullptr } })) },
        { "unknown kind", OneEntry("a", "Decimal", 1) },
        { "Byte above 255", OneEntry("a", "Byte", 300) },
        { "Integer above 32767", OneEntry("a", "Integer", 40000) },
        { "Single beyond the float range", OneEntry("a", "Single", 1e300) },
        { "Double as an integer", OneEntry("a", "Double", 1) },
        { "entry without a value", Cbor(nlohmann::json::array({ { "a", "Empty" } })) },
        { "array item not a pair",
            OneEntry("a", "Array", nlohmann::json::array({ nlohmann::json::array({ "Empty" }) })) },
        { "too many bytes", ByteArray(MemoryPropertyStore::MaxBytes + 1, 0x80) },
    };
    for (const auto& [what, bytes] : cases) {
        SCOPED_TRACE(what);
        EXPECT_FALSE(MemoryPropertyStore::FromBytes(bytes));
    }
}

// Damaged copies of generated stores and plain noise: decoding never crashes, and whatever decodes encodes
// to bytes that decode to the same store again.
TEST(MemoryPropertyStoreBytes, SurviveDamagedAndRandomBytes) {
    std::mt19937 rng(7);
    for (int i = 0; i < 4000; ++i) {
        SCOPED_TRACE(i);
        ByteArray bytes;
        if (i % 4 == 0) {
            bytes.resize(rng() % 64);
            for (uint8_t& byte : bytes)
                byte = static_cast<uint8_t>(rng());
        } else {
            MemoryPropertyStore store;
            for (int k = static_cast<int>(rng() % 6); k > 0; --k)
                store.WriteProperty(u"k" + std::u16string(1, static_cast<char16_t>(u'a' + k)),
                    RandomVariant(rng, 3), Variant());
            bytes = store.ToBytes();
            ASSERT_EQ(MemoryPropertyStore::FromBytes(bytes), store);
            for (int k = static_cast<int>(rng() % 4); k >= 0 && !bytes.empty(); --k) {
                const size_t at = rng() % bytes.size();
                if (rng() % 3 == 0)
                    bytes.resize(at);
                else
                    bytes[at] = static_cast<uint8_t>(rng());
            }
        }
        const auto decoded = MemoryPropertyStore::FromBytes(bytes);
        if (!decoded) continue;
        const ByteArray again = decoded->ToBytes();
        const auto redecoded = MemoryPropertyStore::FromBytes(again);
        ASSERT_TRUE(redecoded);
        EXPECT_EQ(redecoded->ToBytes(), again);
    }
}

} // namespace
} // namespace quillmar
