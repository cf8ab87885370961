#include "formfile/FormFile.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <tuple>

namespace quillmar {
namespace {

using quillmar::MemoryPropertyStore;

const std::filesystem::path kExample = std::filesystem::path(QUILLMAR_EXAMPLES_DIR) / "orders.qform.json";

// The hosts and controls of a loaded form, as a form application owns them.
struct RunningForm {
    std::optional<std::string> Build(const FormDocument& document, std::string_view source) {
        return BuildFormControls(document, source, [this](const FormControl& field) -> Quillmar& {
            auto& host = *hosts.emplace_back(std::make_unique<standalone::StandaloneHost>("en_US"));
            host.container.name = field.name;
            return *controls.emplace_back(std::make_unique<Quillmar>(host.Services()));
        });
    }
    Quillmar& operator[](size_t index) { return *controls[index]; }

    std::vector<std::unique_ptr<standalone::StandaloneHost>> hosts;
    std::vector<std::unique_ptr<Quillmar>> controls;
};

// The example form in field order: each field's type, a text it accepts and one that breaks its main rule.
const std::tuple<const char16_t*, MustBeTypeConstants, const char16_t*, const char16_t*, int32_t>
    kExampleFields[] = {
        { u"CustomerName", vldString, u"John Smith", u"john smith", vldCCMustBeProperCase },
        { u"CustomerCode", vldString, u"AB-1234", u"AB-12", vldCCCustomMask },
        { u"OrderNumber", vldString, u"012345", u"12345", vldCCCustomMask },
        { u"OrderDate", vldDate, u"6/15/2024", u"6/15/1999", vldCCMinValue },
        { u"DeliveryTime", vldTime, u"10:30", u"19:00", vldCCMaxValue },
        { u"Quantity", vldInteger, u"12", u"501", vldCCMaxValue },
        { u"Discount", vldDouble, u"12.5", u"12.505", vldCCMaxNumberOfDecimals },
        { u"UnitPrice", vldCurrency, u"1,234.50", u"2.555", vldCCMaxNumberOfDecimals },
        { u"Weight", vldSingle, u"2.5", u"-1", vldCCMustBePositive },
        { u"ScaleFactor", vldDouble, u"1.5E3", u"1", vldCCMustNotBeValues },
        { u"Adjustment", vldCurrency, u"-5.25", u"5", vldCCMustBeNegative },
        { u"Reference", vldString, u"abc", u"abc1", vldCCOnlyLetters },
        { u"Phone", vldString, u"+1 (555) 123", u"555-CALL", vldCCValidCharactersSet },
        { u"Notes", vldString, u"Deliver after 5", u"<b>", vldCCExtraExcludedCharacters },
    };

TEST(FormFile, ExampleFormLoadsEveryRuleAndSavesBackByteForByte) {
    std::ifstream file(kExample, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    // Constants by name, dates as ISO text, the lists as their items.
    for (const char* written : { R"("MustBeType": "vldDate")", R"("MinValue": {"Date": "2020-01-01"})",
             R"("MinValue": {"Time": "08:00:00"})", R"("MustNotBeValues": ["0", "1"])",
             R"("Actions": [{"action": "vldACInsertClosest", "checked": false}, )" })
        EXPECT_NE(text.str().find(written), std::string::npos) << written;
    const FormResult loaded = ParseFormJson(text.str(), "orders.qform.json");
    ASSERT_TRUE(loaded.document) << loaded.error;
    ASSERT_EQ(loaded.document->controls.size(), std::size(kExampleFields));
    RunningForm form;
    ASSERT_EQ(form.Build(*loaded.document, "orders.qform.json"), std::nullopt);
    FormDocument collected = *loaded.document;
    for (FormControl& field : collected.controls)
        field.properties = MemoryPropertyStore();
    size_t next = 0;
    CollectFormControls(collected, [&](const FormControl&) -> const Quillmar& { return form[next++]; });
    EXPECT_EQ(FormToJson(collected), text.str());
    for (size_t i = 0; i < std::size(kExampleFields); ++i) {
        const auto& [name, type, valid, invalid, broken] = kExampleFields[i];
        SCOPED_TRACE(testing::PrintToString(std::u16string(name)));
        EXPECT_EQ(collected.controls[i].name, name);
        EXPECT_EQ(form[i].MustBeType(), type);
        form[i].SetText(valid);
        EXPECT_EQ(form[i].CheckInput(), 0);
        form[i].SetText(invalid);
        EXPECT_NE(form[i].CheckInput() & broken, 0);
    }
    EXPECT_EQ(form[10].ErrorMessageMode(), vldCustom);
    EXPECT_EQ(form[13].settings().Actions,
        (VariantArray { Variant(), int32_t { 8 }, int32_t { 32 }, int32_t { 16 } }));
}

TEST(FormFile, EveryFormOfTheRepositorySavesBackByteForByte) {
    const std::filesystem::path root = kExample.parent_path().parent_path();
    size_t forms = 0;
    for (const char* folder : { "examples", "tests" })
        for (const auto& file : std::filesystem::recursive_directory_iterator(root / folder)) {
            if (!file.path().string().ends_with(".qform.json")) continue;
            SCOPED_TRACE(file.path().string());
            ++forms;
            std::ifstream stream(file.path(), std::ios::binary);
            std::stringstream text;
            text << stream.rdbuf();
            const FormResult loaded = LoadFormFile(file.path(), LocaleInfo::FromName("en_US"));
            ASSERT_TRUE(loaded.document) << loaded.error;
            EXPECT_EQ(FormToJson(*loaded.document), text.str());
        }
    EXPECT_GE(forms, 2u);
}

// A saved field leaves out what reads back the same: the form's font, an empty forbidden list.
TEST(FormFile, OnlyWhatDiffersFromTheReadDefaultIsSaved) {
    const FormResult loaded = ParseFormJson(
        R"({"title": "T", "width": 10, "height": 10, "font": {"name": "DejaVu Sans", "size": 9.0}, "controls": [)"
        R"({"name": "A", "label": "", "left": 0, "top": 0, "width": 1, "height": 1, "properties": {}},)"
        R"({"name": "B", "label": "", "left": 0, "top": 0, "width": 1, "height": 1, "properties": )"
        R"({"FontName": "Liberation Serif", "MustNotBeValues": []}}]})",
        "fonts.qform.json");
    ASSERT_TRUE(loaded.document) << loaded.error;
    RunningForm form;
    ASSERT_EQ(form.Build(*loaded.document, "fonts.qform.json"), std::nullopt);
    EXPECT_EQ(form[0].FontName(), u"DejaVu Sans");
    EXPECT_EQ(form[0].FontSize(), 9.0f);
    EXPECT_EQ(form[1].FontName(), u"Liberation Serif");
    FormDocument collected = *loaded.document;
    size_t next = 0;
    CollectFormControls(collected, [&](const FormControl&) -> const Quillmar& { return form[next++]; });
    const std::string json = FormToJson(collected);
    EXPECT_NE(json.find(R"("font": {"name": "DejaVu Sans", "size": 9.0},)"), std::string::npos) << json;
    EXPECT_EQ(json.find("FontSize"), std::string::npos) << json;
    EXPECT_EQ(json.find("MustNotBeValues"), std::string::npos) << json;
    EXPECT_EQ(json.find(R"("FontName")"), json.rfind(R"("FontName": "Liberation Serif")")) << json;
    EXPECT_NE(json.find(R"("FontName")"), std::string::npos) << json;
}

ByteArray ListBytes(const VariantArray& items) {
    MemoryPropertyStore list;
    if (items.size() > 1) list.WriteProperty(u"NEl", static_cast<int16_t>(items.size() - 1), Variant());
    for (size_t i = 1; i < items.size(); ++i)
        list.WriteProperty(std::u16string(1, static_cast<char16_t>(u'0' + i)) + u"N", items[i], Variant());
    return list.ToBytes();
}

TEST(FormFile, EveryKindOfValueSurvivesTheFileUntilItIsRemoved) {
    FormDocument document { u"T\u00eftle \"1\"", 640, 480, {} };
    const Variant values[] = { Variant(), true, u"a\"b\\c\n\u00e9\U0001F600", uint8_t { 255 },
        int16_t { -32768 }, int32_t { INT32_MIN }, 0.1f, 3.4e38f, 0.1, -1e-300, Currency { INT64_MIN },
        Currency { -1 }, Currency { 123400 }, Currency { 123456 }, Date { -1.25 }, Date { 45292.5 },
        Date { 45292 + 43200.123 / 86400 }, Date { 0.25 }, Date { -0.25 }, Date { 1e-300 }, Date { -0.0 } };
    const ByteArray icons[] = { ByteArray { 0 }, ByteArray { 0, 255 }, ByteArray { 0, 255, 1 } };
    const ByteArray lists[] = {
        ListBytes({ Variant(), u"0", 13, 2.5, Date { 45000 }, Currency { 5 } }), ListBytes({ Variant() }),
        ByteArray { 0x98, 0x00 }, // an empty store in a longer CBOR form than its entries give back
    };
    for (size_t i = 0; i < std::size(values); ++i) {
        FormControl field { u"F" + std::u16string(1, static_cast<char16_t>(u'a' + i)), u"\U0001F600", -5, 7,
            100, 21, {},
            i == 0 ? u"" : u"Tip \"" + std::u16string(1, static_cast<char16_t>(u'a' + i)) + u"\"\n" };
        field.properties.WriteProperty(u"DefaultValue", values[i], Variant());
        field.properties.WriteProperty(u"MouseIcon", icons[i % std::size(icons)], Variant());
        field.properties.WriteProperty(u"MustNotBeValues", lists[i % std::size(lists)], Variant());
        document.controls.push_back(field);
    }
    document.controls.push_back(FormControl { u"Empty", u"", 0, 0, 0, 0, {}, u"" });

    const auto path = std::filesystem::temp_directory_path() / "quillmar-every-kind.qform.json";
    ASSERT_EQ(SaveFormFile(path, document), std::nullopt);
    const FormResult loaded = LoadFormFile(path);
    std::filesystem::remove(path);
    ASSERT_TRUE(loaded.document) << loaded.error;
    EXPECT_EQ(*loaded.document, document);
    const std::string json = FormToJson(document);
    // Every currency digit and the fraction of a second are kept; a date no text gives back exactly is its
    // count of days; list bytes that are no list's own are base64.
    for (const char* written :
        { R"("DefaultValue": {"Currency": "12.3456"})", R"("DefaultValue": {"Currency": "12.34"})",
            R"("DefaultValue": {"Date": "2024-01-01T12:00:00.123"})",
            R"("DefaultValue": {"Time": "06:00:00"})", R"("DefaultValue": {"Date": "1899-12-29T06:00:00"})",
            R"("DefaultValue": {"Date": -0.25})", R"("DefaultValue": {"Date": -0.0})",
            R"("MustNotBeValues": {"ByteArray": "mAA="})", R"("MustNotBeValues": [])" })
        EXPECT_NE(json.find(written), std::string::npos) << written;
    EXPECT_EQ(LoadFormFile(path).error.rfind(path.string() + ": cannot be read", 0), 0u); // names the path
}

std::string FormWith(std::string_view properties, std::string_view geometry = R"("top": 0, )") {
    return R"({"title": "T", "width": 10, "height": 10, "controls": [{"name": "Quantity", "label": "Q", "left": 0, )"
        + std::string(geometry) + R"("width": 10, "height": 10, "properties": {)" + std::string(properties)
        + "}}]}";
}

std::string Entry(std::string_view key, std::string_view type, std::string_view value) {
    return "\"" + std::string(key) + R"(": {"type": ")" + std::string(type) + R"(", "value": )"
        + std::string(value) + "}";
}

std::string TwoNamed(std::string_view first, std::string_view second) {
    const auto field = [](std::string_view name) {
        return R"({"name": ")" + std::string(name)
            + R"(", "label": "", "left": 0, "top": 0, "width": 1, "height": 1, "properties": {}})";
    };
    return R"({"title": "T", "width": 1, "height": 1, "controls": [)" + field(first) + "," + field(second)
        + "]}";
}

// The same entry in the type-tagged notation and in the readable notation a form is saved in.
const std::pair<std::string, std::string> kNotations[] = {
    { Entry("MustBeType", "Long", "3"), R"("MustBeType": "vldInteger")" },
    { Entry("InputSifting", "Integer", "1"), R"("InputSifting": "vldWeak")" },
    { Entry("MessageBoxIcon", "Integer", "4"), R"("MessageBoxIcon": "vldMBIQuestion")" },
    // No named constants: stays a number.
    { Entry("Alignment", "Integer", "2"), R"("Alignment": 2)" },
    { Entry("Beeping", "Boolean", "false"), R"("Beeping": false)" },
    { Entry("FontSize", "Single", "9.75"), R"("FontSize": 9.75)" },
    { Entry("PasswordChar", "String", R"("*")"), R"("PasswordChar": "*")" },
    { Entry("MinValue", "Date", "45292.0"), R"("MinValue": {"Date": "2024-01-01"})" },
    { Entry("MaxValue", "Date", "0.3333333333333333"), R"("MaxValue": {"Time": "08:00:00"})" },
    { Entry("DefaultValue", "Currency", R"("12.5")"), R"("DefaultValue": {"Currency": "12.50"})" },
    { Entry("DefaultValue", "Long", "7"), R"("DefaultValue": {"Long": 7})" },
    { Entry("DefaultValue", "Double", "7.5"), R"("DefaultValue": 7.5)" },
    { Entry("MustNotBeValues", "ByteArray",
          R"({"NEl": {"type": "Integer", "value": 2}, "1N": {"type": "String", "value": "N/A"}, )"
          R"("2N": {"type": "Date", "value": 45651.0}})"),
        R"("MustNotBeValues": ["N/A", {"Date": "2024-12-25"}])" },
    { Entry("Actions", "ByteArray",
          R"({"NEl": {"type": "Integer", "value": 3}, "1N": {"type": "Long", "value": 33}, )"
          R"("2N": {"type": "Long", "value": 8}, "3N": {"type": "Long", "value": 16}})"),
        R"("Actions": [{"action": "vldACInsertClosest", "checked": true}, {"action": "vldACReturnPrevious", )"
        R"("checked": false}, {"action": "vldACInsertDefault", "checked": false}])" },
    { Entry("Font", "ByteArray",
          R"({"Name": {"type": "String", "value": "DejaVu Sans"}, "Size": {"type": "Single", "value": 10.5}})"),
        R"("Font": {"Name": "DejaVu Sans", "Size": 10.5})" },
};

TEST(FormFile, TypeTaggedEntriesLoadIntoTheSameControlsAndSaveReadable) {
    for (const auto& [tagged, readable] : kNotations) {
        SCOPED_TRACE(readable);
        const auto locale = LocaleInfo::FromName("en_US");
        const FormResult old = ParseFormJson(FormWith(tagged), "old.qform.json", locale);
        const FormResult now = ParseFormJson(FormWith(readable), "new.qform.json", locale);
        ASSERT_TRUE(old.document) << old.error;
        ASSERT_TRUE(now.document) << now.error;
        EXPECT_EQ(*old.document, *now.document);
        EXPECT_NE(FormToJson(*old.document).find(readable), std::string::npos);
        RunningForm oldForm;
        RunningForm newForm;
        ASSERT_EQ(oldForm.Build(*old.document, "old.qform.json"), std::nullopt);
        ASSERT_EQ(newForm.Build(*now.document, "new.qform.json"), std::nullopt);
        MemoryPropertyStore oldStore;
        MemoryPropertyStore newStore;
        oldForm[0].WriteProperties(oldStore);
        newForm[0].WriteProperties(newStore);
        EXPECT_EQ(oldStore.Entries(), newStore.Entries());
    }
}

// A time written by hand may leave out its seconds.
TEST(FormFile, HandWrittenTimesMayLeaveOutTheSeconds) {
    const auto locale = LocaleInfo::FromName("en_US");
    for (const auto& [brief, full] : { std::pair { R"({"Time": "08:00"})", R"({"Time": "08:00:00"})" },
             std::pair { R"({"Date": "2024-01-01T08:30"})", R"({"Date": "2024-01-01T08:30:00"})" } }) {
        const FormResult written
            = ParseFormJson(FormWith(std::string(R"("MinValue": )") + brief), "a", locale);
        const FormResult saved = ParseFormJson(FormWith(std::string(R"("MinValue": )") + full), "b", locale);
        ASSERT_TRUE(written.document) << written.error;
        ASSERT_TRUE(saved.document) << saved.error;
        EXPECT_EQ(*written.document, *saved.document);
    }
}

const std::string kQuantity = R"(broken.qform.json: control "Quantity", )";

// Every message names the file; where a field and an entry are at fault, those too.
const std::pair<std::string, std::string> kBroken[] = {
    { R"({"title": )", "broken.qform.json: not a JSON document: parse error at line 1, column 11" },
    { "[]", "broken.qform.json: not a form" },
    { R"({"width": 1})", "broken.qform.json: missing field \"title\"" },
    { R"({"title": "T", "width": 1, "height": 1, "showInlineState": 1, "controls": []})",
        "broken.qform.json: field \"showInlineState\": expected true or false, got 1" },
    { FormWith("", ""), kQuantity.substr(0, kQuantity.size() - 2) + ": missing field \"top\"" },
    { FormWith(Entry("MaxLength", "Long", "3000000000")),
        kQuantity + R"(entry "MaxLength": expected a value of type Long, got 3000000000)" },
    { FormWith(Entry("MaxLength", "Decimal", "1")),
        kQuantity + R"(entry "MaxLength": unknown type "Decimal")" },
    // Well-formed base64 whose bytes are no property store: the list would otherwise load empty, silently.
    { FormWith(Entry("Actions", "ByteArray", R"("AAE=")")),
        kQuantity + R"(entry "Actions": expected a value of type ByteArray holding a property store)" },
    { TwoNamed("A", "A"), R"(broken.qform.json: control "A": the name is used by an earlier control ("A"))" },
    // Database columns ignore case.
    { TwoNamed("Qty", "qty"), R"(broken.qform.json: control "qty": the name is used by an earlier control)" },
    { R"({"title": )" + std::string(1000, '[') + std::string(1000, ']') + "}",
        "broken.qform.json: not a form: nesting deeper than 64 levels" },
    { FormWith(Entry("ErrorMessageMode", "Integer", "0")),
        kQuantity + R"(entry "ErrorMessageMode": expected 1 to 3, got 0)" },
    { FormWith(Entry("MousePointer", "Integer", "98")),
        kQuantity + R"(entry "MousePointer": expected 0 to 15 or 99, got 98)" },
    { FormWith(Entry("MaxNumberOfDecimals", "Integer", "33")),
        kQuantity + R"(entry "MaxNumberOfDecimals": expected 0 to 32, got 33)" },
    { FormWith(Entry("Actions", "ByteArray",
          R"({"NEl": {"type": "Integer", "value": 2}, "1N": {"type": "Long", "value": 33}, )"
          R"("2N": {"type": "Long", "value": 9}})")),
        kQuantity + R"(entry "Actions": expected 3 actions, got 2)" },
    { FormWith(Entry("Actions", "ByteArray",
          R"({"NEl": {"type": "Integer", "value": 3}, "1N": {"type": "Long", "value": 33}, )"
          R"("2N": {"type": "Long", "value": 9}, "3N": {"type": "Long", "value": 2}})")),
        kQuantity
            + R"(entry "Actions": item "3N": expected an action (8, 16 or 32, plus 1 when checked), got 2)" },
    { FormWith(Entry("MustNotBeValues", "ByteArray",
          R"({"NEl": {"type": "Integer", "value": 2}, "1N": {"type": "String", "value": "0"}, )"
          R"("3N": {"type": "String", "value": "1"}})")),
        kQuantity + R"(entry "MustNotBeValues": item "2N" is missing)" },
    { FormWith(Entry("MustNotBeValues", "ByteArray", R"({"NEl": {"type": "Long", "value": 0}})")),
        kQuantity
            + R"(entry "MustNotBeValues": item "NEl": expected a value of type Integer, got type Long)" },
    { FormWith("", R"("top": 10001, )"),
        kQuantity.substr(0, kQuantity.size() - 2) + ": the place or size lies outside 10000 pixels" },
    // A misspelt name at any level is refused, not ignored (the option would silently be off).
    { R"({"title": "T", "width": 1, "height": 1, "showInlineStat": true, "controls": []})",
        R"(broken.qform.json: field "showInlineStat" is not one a form has ($schema, title, width, height, )" },
    { FormWith("", R"("top": 0, "tooltip": "Q", )"),
        kQuantity.substr(0, kQuantity.size() - 2)
            + R"(: field "tooltip" is not one a control has (name, label, toolTip, )" },
    { FormWith(R"("MaxLength": {"type": "Long", "value": 3, "comment": "x"})"),
        kQuantity + R"(entry "MaxLength": field "comment" is not one an entry has (type, value))" },
    { FormWith(Entry("MustNotBeValues", "ByteArray",
          R"({"NEl": {"type": "Integer", "value": 1}, "1N": {"type": "Long", "value": 1, "kind": "x"}})")),
        kQuantity + R"(entry "MustNotBeValues": entry "1N": field "kind" is not one an entry has)" },
    { FormWith(Entry("Font", "ByteArray",
          R"({"Name": {"type": "String", "value": "Sans"}, "Colour": {"type": "Long", "value": 1}})")),
        kQuantity + R"(entry "Font": item "Colour": not a key of a font)" },
    // Limits that leave no value, as the Number/Date,Time and General pages refuse them, read in the locale.
    { FormWith(Entry("DefaultValue", "String", R"("1,000.5")") + ", " + Entry("MaxValue", "Double", "500")
          + ", " + Entry("MustBeType", "Long", "6")),
        kQuantity
            + R"(entries "DefaultValue" and "MaxValue": the default value "1,000.5" lies above the maximum "500")" },
    { R"({"title": "T", "width": 1, "height": 1, "font": {"name": "Sans"}, "controls": []})",
        R"(broken.qform.json: field "font": field "size": expected a point size above 0 and at most 2048, got )"
        R"(nothing)" },
    { R"({"title": "T", "width": 1, "height": 1, "font": {"name": "Sans", "size": 9, "bold": true}, )"
      R"("controls": []})",
        R"(broken.qform.json: field "font": field "bold" is not one a font has (name, size))" },
    { R"({"$schema": 1, "title": "T", "width": 1, "height": 1, "controls": []})",
        R"(broken.qform.json: field "$schema": expected a text, got 1)" },
    // The readable notation is refused as the type-tagged one is.
    { FormWith(R"("MaxLength": "3")"),
        kQuantity + R"(entry "MaxLength": expected a value of type Long, got type String)" },
    { FormWith(R"("MaxLength": 3000000000)"),
        kQuantity + R"(entry "MaxLength": expected a value of type Long, got type Double)" },
    { FormWith(R"("MaxLength": -1)"), kQuantity + R"(entry "MaxLength": expected 0 or more, got -1)" },
    { FormWith(R"("MustBeType": 42)"), kQuantity + R"(entry "MustBeType": expected 0 to 9, got 42)" },
    { FormWith(R"("MustBeType": "vldDecimal")"),
        kQuantity + R"(entry "MustBeType": expected one of vldUnspecified, vldString, )" },
    // A constant of another property.
    { FormWith(R"("InputSifting": "vldAutomatic")"),
        kQuantity + R"(entry "InputSifting": expected one of vldNone, vldWeak, vldStrong or a number, )" },
    { FormWith(R"("MaxLenght": 3)"), kQuantity + R"(entry "MaxLenght": not a property of the field)" },
    { FormWith(R"("PasswordChar": "**")"),
        kQuantity + R"(entry "PasswordChar": expected at most one character, got "**")" },
    { FormWith(R"("FontSize": 0)"),
        kQuantity + R"(entry "FontSize": expected a point size above 0 and at most 2048, got 0.0)" },
    { FormWith(R"("MouseIcon": "AAE")"), kQuantity + R"(entry "MouseIcon": invalid base64)" },
    { FormWith(R"("MinValue": {"Date": "2024-02-30"})"),
        kQuantity + R"(entry "MinValue": expected a date such as "2024-01-01" or )" },
    { FormWith(R"("MinValue": {"Time": "24:00:00"})"),
        kQuantity + R"(entry "MinValue": expected a time such as "08:00:00", got "24:00:00")" },
    { FormWith(R"("MinValue": {"Currency": "1.23456"})"),
        kQuantity + R"(entry "MinValue": expected a value of type Currency, got "1.23456")" },
    { FormWith(R"("MinValue": {"Decimal": 1})"),
        kQuantity + R"(entry "MinValue": expected a single value, or an object naming its type)" },
    { FormWith(R"("MinValue": {"Date": "2024-01-01", "note": "x"})"),
        kQuantity + R"(entry "MinValue": expected a single value, or an object naming its type)" },
    { FormWith(R"("MinValue": {"ByteArray": ""})"),
        kQuantity + R"(entry "MinValue": expected a single value, got type ByteArray)" },
    { FormWith(R"("MustNotBeValues": ["a", [1]])"),
        kQuantity + R"(entry "MustNotBeValues": item 2: expected a single value, or an object naming)" },
    { FormWith(R"("MustNotBeValues": {"ByteArray": "AAE="})"),
        kQuantity
            + R"(entry "MustNotBeValues": expected a value of type ByteArray holding a property store)" },
    { FormWith(R"("Actions": [{"action": "vldACInsertClosest", "checked": true}])"),
        kQuantity + R"(entry "Actions": expected 3 actions, got 1)" },
    { FormWith(R"("Actions": [{"action": "vldACInsertNearest", "checked": true}])"),
        kQuantity + R"(entry "Actions": item 1: field "action": expected one of vldACReturnPrevious, )" },
    { FormWith(R"("Actions": [{"action": "vldACInsertClosest"}])"),
        kQuantity + R"(entry "Actions": item 1: field "checked": expected true or false, got nothing)" },
    { FormWith(R"("Actions": [{"action": "vldACInsertClosest", "checked": true, "note": "x"}])"),
        kQuantity + R"(entry "Actions": item 1: field "note" is not one an action has (action, checked))" },
    { FormWith(R"("Font": {"Name": "Sans", "Colour": 1})"),
        kQuantity + R"(entry "Font": item "Colour": not a key of a font)" },
    { FormWith(R"("Font": {"Bold": "yes"})"),
        kQuantity + R"(entry "Font": item "Bold": expected a value of type Boolean, got type String)" },
    { FormWith(R"("MinValue": 10, "MaxValue": "5", "MustBeType": "vldInteger")"),
        kQuantity + R"(entries "MinValue" and "MaxValue": the minimum "10" lies above the maximum "5")" },
    { FormWith(
          R"("DefaultValue": "12/31/2019", "MinValue": {"Date": "2020-01-01"}, "MustBeType": "vldDate")"),
        kQuantity
            + R"(entries "DefaultValue" and "MinValue": the default value "12/31/2019" lies below the minimum )"
              R"("1/1/2020")" },
};

// A fault the shape of the JSON shows, which the form file's schema refuses too; not bad JSON, names used
// twice, bytes that hold no store or limits that exclude each other.
bool IsShapeFault(std::string_view message) {
    for (const char* other : { "not a JSON document", "nesting deeper", "used by an earlier control",
             "holding a property store", "entries \"" })
        if (message.find(other) != std::string_view::npos) return false;
    return true;
}

TEST(FormFile, BrokenFormsGiveOneLineNamingTheFileTheFieldAndTheProperty) {
    const auto shapes = std::filesystem::temp_directory_path() / "quillmar-refused-shapes.jsonl";
    std::ofstream refused(shapes, std::ios::binary);
    for (const auto& [json, message] : kBroken) {
        SCOPED_TRACE(message);
        const FormResult result = ParseFormJson(json, "broken.qform.json", LocaleInfo::FromName("en_US"));
        EXPECT_FALSE(result.document);
        EXPECT_EQ(result.error.substr(0, message.size()), message);
        EXPECT_EQ(result.error.find('\n'), std::string::npos);
        if (IsShapeFault(message)) refused << json << "\n";
    }
    refused.close();
    // The schema refuses each of those shapes (each line a form), so an editor flags them as they are typed.
    const std::string check = "python3 " + kExample.parent_path().parent_path().string()
        + "/tools/check-form-schema.py --refuses " + shapes.string();
    ASSERT_EQ(std::system(check.c_str()), 0) << check; // the lines stay for a look when it fails
    std::filesystem::remove(shapes);
}

TEST(FormFile, RefusedValueNamesTheControlAndTheEntry) {
    FormDocument document { u"", 10, 10, {} };
    document.controls.push_back(FormControl { u"Price", u"", 0, 0, 10, 10, {}, u"" });
    document.controls.push_back(FormControl { u"Quantity", u"", 0, 0, 10, 10, {}, u"" });
    document.controls[1].properties.WriteProperty(u"MustBeType", int32_t { 42 }, Variant());
    RunningForm form;
    EXPECT_EQ(form.Build(document, "orders.qform.json"),
        R"(orders.qform.json: control "Quantity", entry "MustBeType": )"
        "the stored value was refused with error 380 (invalid property value)");
}

} // namespace
} // namespace quillmar
