#include "control/FormFile.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

namespace quillmar {
namespace {

using standalone::MemoryPropertyStore;

const std::filesystem::path kExample = std::filesystem::path(QUILLMAR_EXAMPLES_DIR) / "orders.qform.json";

// The hosts and controls of a loaded form, as a form application owns them.
class RunningForm {
public:
    explicit RunningForm(bool userMode = true)
        : m_userMode(userMode) { }

    Quillmar& Make(const FormControl& field) {
        auto& host = *m_hosts.emplace_back(std::make_unique<standalone::StandaloneHost>("en_US"));
        host.container.userMode = m_userMode;
        host.container.name = field.name;
        return *m_controls.emplace_back(std::make_unique<Quillmar>(host.Services()));
    }
    std::optional<std::string> Build(const FormDocument& document, std::string_view source) {
        return BuildFormControls(
            document, source, [this](const FormControl& field) -> Quillmar& { return Make(field); });
    }
    Quillmar& operator[](size_t index) { return *m_controls[index]; }

private:
    bool m_userMode;
    std::vector<std::unique_ptr<standalone::StandaloneHost>> m_hosts;
    std::vector<std::unique_ptr<Quillmar>> m_controls;
};

struct ExampleField {
    const char16_t* name;
    MustBeTypeConstants type;
    const char16_t* valid;
    const char16_t* invalid;
    int32_t broken; // one of the constraints the invalid text breaks
};

// The example form in field order, each with a text it accepts and one that breaks its main rule.
const ExampleField kExampleFields[] = {
    { u"CustomerName", vldString, u"John Smith", u"john smith", vldCCMustBeProperCase },
    { u"CustomerCode", vldString, u"AB-1234", u"AB-12", vldCCCustomMask },
    { u"OrderNumber", vldLong, u"123456", u"99999", vldCCMinValue },
    { u"OrderDate", vldDate, u"6/15/2024", u"6/15/1999", vldCCMinValue },
    { u"DeliveryTime", vldTime, u"10:30", u"19:00", vldCCMaxValue },
    { u"Quantity", vldInteger, u"12", u"13", vldCCMustNotBeValues },
    { u"Discount", vldByte, u"15", u"101", vldCCMaxValue },
    { u"UnitPrice", vldCurrency, u"1,234.50", u"2.555", vldCCMaxNumberOfDecimals },
    { u"Weight", vldSingle, u"2.5", u"-1", vldCCMustBePositive },
    { u"ScaleFactor", vldDouble, u"1.5E3", u"1", vldCCMustNotBeValues },
    { u"Adjustment", vldDouble, u"-5", u"5", vldCCMustBeNegative },
    { u"Reference", vldString, u"abc", u"abc1", vldCCOnlyLetters },
    { u"Phone", vldString, u"+1 (555) 123", u"555-CALL", vldCCValidCharactersSet },
    { u"Notes", vldString, u"Deliver after 5", u"<b>", vldCCExtraExcludedCharacters },
};

TEST(FormFile, ExampleFormLoadsWithEveryRuleInPlace) {
    const FormResult loaded = LoadFormFile(kExample);
    ASSERT_TRUE(loaded.document) << loaded.error;
    const FormDocument& document = *loaded.document;
    ASSERT_EQ(document.controls.size(), std::size(kExampleFields));
    RunningForm form;
    ASSERT_EQ(form.Build(document, kExample.string()), std::nullopt);
    for (size_t i = 0; i < document.controls.size(); ++i) {
        const ExampleField& expected = kExampleFields[i];
        SCOPED_TRACE(testing::PrintToString(std::u16string(expected.name)));
        EXPECT_EQ(document.controls[i].name, expected.name);
        Quillmar& control = form[i];
        EXPECT_EQ(control.MustBeType(), expected.type);
        control.SetText(expected.valid);
        EXPECT_EQ(control.CheckInput(), 0);
        control.SetText(expected.invalid);
        EXPECT_NE(control.CheckInput() & expected.broken, 0);
    }
    EXPECT_EQ(form[10].ErrorMessageMode(), vldCustom);
    EXPECT_EQ(form[13].settings().Actions,
        (VariantArray { Variant(), int32_t { 9 }, int32_t { 33 }, int32_t { 16 } }));
}

TEST(FormFile, ExampleFormSavesBackByteForByte) {
    std::ifstream file(kExample, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    FormResult loaded = ParseFormJson(text.str(), "orders.qform.json");
    ASSERT_TRUE(loaded.document) << loaded.error;
    RunningForm form;
    ASSERT_EQ(form.Build(*loaded.document, "orders.qform.json"), std::nullopt);
    FormDocument collected = *loaded.document;
    for (FormControl& field : collected.controls)
        field.properties = MemoryPropertyStore();
    size_t next = 0;
    CollectFormControls(collected, [&](const FormControl&) -> const Quillmar& { return form[next++]; });
    EXPECT_EQ(FormToJson(collected), text.str());
}

TEST(FormFile, EveryKindOfValueSurvivesTheFile) {
    FormDocument document { u"T\u00eftle \"1\"", 640, 480, {} };
    FormControl field { u"All", u"\U0001F600", -5, 7, 100, 21, {} };
    const Variant values[]
        = { Variant(), true, u"a\"b\\c\n\u00e9\U0001F600", uint8_t { 255 }, int16_t { -32768 },
              int32_t { INT32_MIN }, 0.1f, 3.4e38f, 0.1, -1e-300, Currency { INT64_MIN }, Currency { -1 },
              Currency { 123400 }, Date { -1.25 }, ByteArray(), ByteArray { 0 }, ByteArray { 0, 255 },
              ByteArray { 0, 255, 1 }, VariantArray { Variant(), VariantArray { u"x", Date { 2 } } } };
    for (size_t i = 0; i < std::size(values); ++i)
        field.properties.WriteProperty(
            u"E" + std::u16string(1, static_cast<char16_t>(u'a' + i)), values[i], Variant());
    document.controls.push_back(field);
    document.controls.push_back(FormControl { u"Empty", u"", 0, 0, 0, 0, {} });

    const auto path = std::filesystem::temp_directory_path() / "quillmar-every-kind.qform.json";
    ASSERT_EQ(SaveFormFile(path, document), std::nullopt);
    const FormResult loaded = LoadFormFile(path);
    std::filesystem::remove(path);
    ASSERT_TRUE(loaded.document) << loaded.error;
    EXPECT_EQ(*loaded.document, document);
}

std::string FormWith(std::string_view properties, std::string_view geometry = R"("top": 0, )") {
    return R"({"title": "T", "width": 10, "height": 10, "controls": [{"name": "Quantity", "label": "Q", "left": 0, )"
        + std::string(geometry) + R"("width": 10, "height": 10, "properties": {)" + std::string(properties)
        + "}}]}";
}

struct DamagedCase {
    const char* what;
    std::string json;
    std::vector<std::string> parts;
};

const DamagedCase kDamaged[] = {
    { "not JSON", R"({"title": )", { "broken.qform.json: not a JSON document", "line 1, column 11" } },
    { "not an object", "[]", { "broken.qform.json: not a form" } },
    { "no title", R"({"width": 1})", { "missing field \"title\"" } },
    { "control without geometry", FormWith("", ""), { "control \"Quantity\": missing field \"top\"" } },
    { "wrong value type", FormWith(R"("MaxValue": {"type": "Double", "value": "abc"})"),
        { R"(control "Quantity", entry "MaxValue": expected a value of type Double, got "abc")" } },
    { "Long out of range", FormWith(R"("MaxLength": {"type": "Long", "value": 3000000000})"),
        { R"(entry "MaxLength": expected a value of type Long, got 3000000000)" } },
    { "unknown type", FormWith(R"("MaxLength": {"type": "Decimal", "value": 1})"),
        { R"(unknown type "Decimal")" } },
    { "truncated base64", FormWith(R"("MouseIcon": {"type": "ByteArray", "value": "AAE"})"),
        { R"(entry "MouseIcon": invalid base64)" } },
    // Well-formed base64 whose bytes are no property store: the list would otherwise load empty, silently.
    { "list bytes damaged", FormWith(R"("Actions": {"type": "ByteArray", "value": "AAE="})"),
        { R"(entry "Actions": expected a value of type ByteArray holding a property store)" } },
    { "repeated name",
        R"({"title": "T", "width": 1, "height": 1, "controls": [)"
        R"({"name": "A", "label": "", "left": 0, "top": 0, "width": 1, "height": 1, "properties": {}},)"
        R"({"name": "A", "label": "", "left": 0, "top": 0, "width": 1, "height": 1, "properties": {}}]})",
        { R"(control "A": the name is used by an earlier control)" } },
    { "deep nesting", R"({"title": )" + std::string(1000, '[') + std::string(1000, ']') + "}",
        { "nesting deeper than 64 levels" } },
};

TEST(FormFile, DamagedFormsGiveOneClearLine) {
    for (const DamagedCase& c : kDamaged) {
        SCOPED_TRACE(c.what);
        const FormResult result = ParseFormJson(c.json, "broken.qform.json");
        EXPECT_FALSE(result.document);
        EXPECT_EQ(result.error.rfind("broken.qform.json: ", 0), 0u) << result.error;
        EXPECT_EQ(result.error.find('\n'), std::string::npos);
        for (const std::string& part : c.parts)
            EXPECT_NE(result.error.find(part), std::string::npos) << result.error;
    }
}

TEST(FormFile, RefusedValueNamesTheControlAndTheEntry) {
    FormResult parsed
        = ParseFormJson(FormWith(R"("MustBeType": {"type": "Long", "value": 42})"), "orders.qform.json");
    ASSERT_TRUE(parsed.document) << parsed.error;
    FormControl first = parsed.document->controls[0];
    first.name = u"Price";
    first.properties = MemoryPropertyStore();
    parsed.document->controls.insert(parsed.document->controls.begin(), first);
    RunningForm form;
    EXPECT_EQ(form.Build(*parsed.document, "orders.qform.json"),
        R"(orders.qform.json: control "Quantity", entry "MustBeType": )"
        "the stored value was refused with error 380 (invalid property value)");
}

TEST(FormFile, MissingFileNamesThePath) {
    const FormResult result = LoadFormFile("no/such/form.qform.json");
    EXPECT_FALSE(result.document);
    EXPECT_EQ(result.error.rfind("no/such/form.qform.json: cannot be read", 0), 0u) << result.error;
}

} // namespace
} // namespace quillmar
