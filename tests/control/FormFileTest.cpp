#include "control/FormFile.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <tuple>

namespace quillmar {
namespace {

using standalone::MemoryPropertyStore;

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

TEST(FormFile, EveryKindOfValueSurvivesTheFileUntilItIsRemoved) {
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
    EXPECT_EQ(LoadFormFile(path).error.rfind(path.string() + ": cannot be read", 0), 0u); // names the path
}

std::string FormWith(std::string_view properties, std::string_view geometry = R"("top": 0, )") {
    return R"({"title": "T", "width": 10, "height": 10, "controls": [{"name": "Quantity", "label": "Q", "left": 0, )"
        + std::string(geometry) + R"("width": 10, "height": 10, "properties": {)" + std::string(properties)
        + "}}]}";
}

const std::pair<std::string, std::vector<std::string>> kDamaged[] = {
    { R"({"title": )", { "broken.qform.json: not a JSON document", "line 1, column 11" } },
    { "[]", { "broken.qform.json: not a form" } },
    { R"({"width": 1})", { "missing field \"title\"" } },
    { FormWith("", ""), { "control \"Quantity\": missing field \"top\"" } },
    { FormWith(R"("MaxLength": {"type": "Long", "value": 3000000000})"),
        { R"(control "Quantity", entry "MaxLength": expected a value of type Long, got 3000000000)" } },
    { FormWith(R"("MaxLength": {"type": "Decimal", "value": 1})"), { R"(unknown type "Decimal")" } },
    { FormWith(R"("MouseIcon": {"type": "ByteArray", "value": "AAE"})"),
        { R"(entry "MouseIcon": invalid base64)" } },
    // Well-formed base64 whose bytes are no property store: the list would otherwise load empty, silently.
    { FormWith(R"("Actions": {"type": "ByteArray", "value": "AAE="})"),
        { R"(entry "Actions": expected a value of type ByteArray holding a property store)" } },
    { R"({"title": "T", "width": 1, "height": 1, "controls": [)"
      R"({"name": "A", "label": "", "left": 0, "top": 0, "width": 1, "height": 1, "properties": {}},)"
      R"({"name": "A", "label": "", "left": 0, "top": 0, "width": 1, "height": 1, "properties": {}}]})",
        { R"(control "A": the name is used by an earlier control)" } },
    { R"({"title": )" + std::string(1000, '[') + std::string(1000, ']') + "}",
        { "nesting deeper than 64 levels" } },
};

TEST(FormFile, DamagedFormsGiveOneClearLine) {
    for (const auto& [json, parts] : kDamaged) {
        SCOPED_TRACE(parts[0]);
        const FormResult result = ParseFormJson(json, "broken.qform.json");
        EXPECT_FALSE(result.document);
        EXPECT_EQ(result.error.rfind("broken.qform.json: ", 0), 0u) << result.error;
        EXPECT_EQ(result.error.find('\n'), std::string::npos);
        for (const std::string& part : parts)
            EXPECT_NE(result.error.find(part), std::string::npos) << result.error;
    }
}

TEST(FormFile, RefusedValueNamesTheControlAndTheEntry) {
    FormResult parsed
        = ParseFormJson(FormWith(R"("MustBeType": {"type": "Long", "value": 42})"), "orders.qform.json");
    ASSERT_TRUE(parsed.document) << parsed.error;
    auto& controls = parsed.document->controls;
    controls.insert(controls.begin(), FormControl { u"Price", u"", 0, 0, 10, 10, {} });
    RunningForm form;
    EXPECT_EQ(form.Build(*parsed.document, "orders.qform.json"),
        R"(orders.qform.json: control "Quantity", entry "MustBeType": )"
        "the stored value was refused with error 380 (invalid property value)");
}

} // namespace
} // namespace quillmar
