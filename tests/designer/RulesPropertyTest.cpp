#include <QApplication>
#include <QMetaEnum>

#include "support/QtApplication.h"

#include <quillmar/base/MemoryPropertyStore.h>
#include <quillmar/qt/QuillmarEdit.h>

#include <gtest/gtest.h>

#include <functional>

namespace quillmar::qt {
namespace {

using quillmar::MemoryPropertyStore;

class RulesProperty : public ::testing::Test {
protected:
    static void SetUpTestSuite() { support::StartQtApplication("designer_tests", "en_US.UTF-8"); }

    static MemoryPropertyStore Stored(const QuillmarEdit& field) {
        MemoryPropertyStore store;
        field.control().WriteProperties(store);
        return store;
    }
};

struct RulesRow {
    const char* what;
    std::function<void(QuillmarEdit&)> declare;
};

// Fields are in user mode: the lists travel in the text although their writers refuse them at run time.
const RulesRow kRulesRows[] = {
    { "integer with limits and forbidden values",
        [](QuillmarEdit& f) {
            f.SetMustBeType(vldInteger);
            f.SetMinValue(QStringLiteral("1"));
            f.SetMaxValue(500.0);
            f.SetUserMode(false);
            f.SetMustNotBeValues({ {}, QStringLiteral("13"), 666 });
        } },
    { "date with a lower limit",
        [](QuillmarEdit& f) {
            f.SetMustBeType(vldDate);
            f.SetMinValue(QStringLiteral("1/1/2000"));
        } },
    { "mask, case and a custom message",
        [](QuillmarEdit& f) {
            f.SetCustomMask(QStringLiteral("[A-Z][A-Z]-####"));
            f.SetMustBeUpperCase(true);
            f.SetErrorMessageMode(vldCustom);
            f.SetErrorMessage(QStringLiteral("Two letters, a dash, \"four\" digits\n"));
        } },
    { "actions reordered, one unchecked",
        [](QuillmarEdit& f) {
            f.SetUserMode(false);
            f.SetActions({ {}, 9, 32, 17 });
        } },
};

TEST_F(RulesProperty, TextCarriesEveryRuleToAnotherField) {
    for (const auto& [what, declare] : kRulesRows) {
        SCOPED_TRACE(what);
        QuillmarEdit source, target;
        declare(source);
        source.SetUserMode(true);
        source.SetText(QStringLiteral("7"));
        target.SetText(QStringLiteral("7"));
        const QString rules = source.rules();
        EXPECT_EQ(target.LoadRules(rules), QString());
        EXPECT_EQ(target.rules(), rules);
        EXPECT_EQ(Stored(target), Stored(source));
    }
}

TEST_F(RulesProperty, ListsAreWrittenAsTheirValuesAndTheTypeTaggedTextStillReads) {
    QuillmarEdit field;
    kRulesRows[0].declare(field);
    const QString rules = field.rules();
    for (const char* written : { R"("MustNotBeValues": ["13", {"Long": 666}])",
             R"("MustBeType": "vldInteger")", R"("MaxValue": 500.0)" })
        EXPECT_TRUE(rules.contains(QString::fromUtf8(written))) << rules.toStdString();
    QuillmarEdit old;
    EXPECT_EQ(old.LoadRules(QStringLiteral(R"({"MinValue": {"type": "Double", "value": 1},
        "MaxValue": {"type": "Double", "value": 500},
        "MustNotBeValues": {"type": "ByteArray", "value": {"NEl": {"type": "Integer", "value": 2},
            "1N": {"type": "String", "value": "13"}, "2N": {"type": "Long", "value": 666}}},
        "MustBeType": {"type": "Long", "value": 3}})")),
        QString());
    EXPECT_EQ(old.rules().toStdString(), rules.toStdString());
}

// A form file lists the limits before the type; the type is still applied first, as a form loads a field,
// and a text too long for the new rules is checked against them once they are in place.
TEST_F(RulesProperty, TypeComesFirstTextLastAndOtherPropertiesStay) {
    QuillmarEdit field;
    field.SetMustBePositive(true);
    field.SetFontBold(true);
    field.SetMaxLength(9);
    field.SetText(QStringLiteral("600"));
    EXPECT_EQ(field.LoadRules(QStringLiteral(R"({
        "MinValue": "1",
        "MaxValue": 500,
        "MustBeType": "vldInteger"})")),
        QString());
    EXPECT_EQ(field.MustBeType(), vldInteger);
    EXPECT_EQ(field.MinValue(), QVariant(QStringLiteral("1")));
    EXPECT_EQ(field.MaxValue(), QVariant(500.0));
    EXPECT_FALSE(field.MustBePositive()) << "a rule the text leaves out takes its default";
    EXPECT_TRUE(field.FontBold());
    EXPECT_EQ(field.MaxLength(), 9);
    EXPECT_EQ(field.Text(), QStringLiteral("600"));
    EXPECT_EQ(field.CheckInput(), vldCCMaxValue);
}

TEST_F(RulesProperty, RefusedTextSaysWhyAndChangesNothing) {
    const struct {
        const char* text;
        const char* error;
    } rows[] = {
        { "{\"MustBeType\": ", "not a JSON document" },
        { "[1]", "expected a JSON object" },
        { R"({"FontBold": {"type": "Boolean", "value": true}})", "entry \"FontBold\" is not a rule" },
        { R"({"MinValue": {"type": "Dollar", "value": 1}})", "unknown type" },
        // The entries are checked as a form file's are, before any of them reaches the field.
        { R"({"MustBePositive": {"type": "Boolean", "value": true}, "MustBeType": {"type": "Long", "value": 42}})",
            "entry \"MustBeType\": expected 0 to 9, got 42" },
        { R"({"MessageBoxIcon": {"type": "Integer", "value": 9}})",
            "entry \"MessageBoxIcon\": expected 0 to 4, got 9" },
        { R"({"MessageBoxIcon": "vldMBIWarning"})",
            "entry \"MessageBoxIcon\": expected one of vldMBINone, " },
        { R"({"MinValue": {"type": "String", "value": "500"}, "MaxValue": {"type": "Double", "value": 1}, )"
          R"("MustBeType": {"type": "Long", "value": 3}})",
            "entries \"MinValue\" and \"MaxValue\": the minimum \"500\" lies above the maximum \"1\"" },
    };
    for (const auto& [text, error] : rows) {
        SCOPED_TRACE(text);
        QuillmarEdit field;
        field.setObjectName(QStringLiteral("Quantity"));
        kRulesRows[2].declare(field);
        field.SetText(QStringLiteral("AB-1234"));
        const MemoryPropertyStore before = Stored(field);
        const QString said = field.LoadRules(QString::fromUtf8(text));
        EXPECT_TRUE(said.startsWith(QStringLiteral("rules of \"Quantity\": "))) << said.toStdString();
        EXPECT_TRUE(said.contains(QString::fromUtf8(error))) << said.toStdString();
        EXPECT_EQ(Stored(field), before);
        EXPECT_NO_THROW(field.setRules(QString::fromUtf8(text)));
        EXPECT_EQ(Stored(field), before);
    }
}

TEST_F(RulesProperty, DesignerShowsTheRulesAsOneTextAndTheEditBoxProperties) {
    const QMetaObject& meta = QuillmarEdit::staticMetaObject;
    QuillmarEdit field;
    kRulesRows[0].declare(field);
    kRulesRows[2].declare(field);
    const MemoryPropertyStore stored = Stored(field);
    const QString rules = field.rules();
    int hidden = 0;
    for (const auto& entry : stored.Entries()) {
        const QString name = QString::fromStdU16String(entry.key);
        if (!rules.contains('"' + name + '"')) continue;
        SCOPED_TRACE(name.toStdString());
        EXPECT_FALSE(meta.property(meta.indexOfProperty(name.toLatin1())).isDesignable());
        ++hidden;
    }
    EXPECT_EQ(hidden, 9) << "the rules the two rows declare";
    for (const char* shown : { "rules", "Text", "MaxLength", "Appearance", "FontBold" })
        EXPECT_TRUE(meta.property(meta.indexOfProperty(shown)).isDesignable()) << shown;
}

TEST_F(RulesProperty, EnumeratedPropertiesGoByTheirNames) {
    const struct {
        const char* property;
        const char* key;
        int value;
    } rows[] = {
        { "MustBeType", "vldInteger", 3 },
        { "InputSifting", "vldWeak", 1 },
        { "MessageBoxIcon", "vldMBICritical", 2 },
        { "ErrorMessageMode", "vldCustom", 3 },
        { "ValidationMode", "vldSemiAutomatic", 1 },
        { "ThousandSeparator", "vldTSAllowed", 1 },
        { "Appearance", "vldFlat", 0 },
        { "BorderStyle", "vldNoBorder", 0 },
    };
    for (const auto& [property, key, value] : rows) {
        SCOPED_TRACE(property);
        QuillmarEdit field;
        EXPECT_TRUE(field.setProperty(property, QString::fromLatin1(key)));
        const QVariant read = field.property(property);
        EXPECT_TRUE(read.metaType().flags().testFlag(QMetaType::IsEnumeration));
        EXPECT_EQ(read.toString(), QString::fromLatin1(key));
        EXPECT_EQ(read.toInt(), value);
    }
    EXPECT_STREQ(QMetaEnum::fromType<MustBeTypeConstants>().valueToKey(vldTime), "vldTime");
    // A number is still taken as a number; one out of range is refused without an exception.
    QuillmarEdit field;
    EXPECT_TRUE(field.setProperty("MustBeType", 6));
    EXPECT_EQ(field.MustBeType(), vldDouble);
    int refused = 0;
    QObject::connect(&field, &QuillmarEdit::PropertyRefused, [&](const QString&, const QVariant&, int error) {
        EXPECT_EQ(error, 380);
        ++refused;
    });
    EXPECT_NO_THROW(field.setProperty("MustBeType", 42));
    EXPECT_EQ(field.MustBeType(), vldDouble);
    EXPECT_EQ(refused, 1);
}

} // namespace
} // namespace quillmar::qt
