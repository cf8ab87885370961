#include "pages/TextPage.h"
#include "control/Enums.h"
#include "pages/PageTestSupport.h"

#include <QCheckBox>
#include <QLineEdit>

#include <algorithm>
#include <string>
#include <vector>

namespace quillmar::pages {
namespace {

// The properties the page edits, in the order it writes them; each control is named by a prefix and its
// property.
const char* const kTexts[]
    = { "CustomMask", "ExtraIncludedCharacters", "ExtraExcludedCharacters", "ValidCharactersSet" };
const char* const kRules[] = { "OnlyLettersWithSpace", "OnlyLetters", "NoDigits", "MustBeProperCase",
    "MustBeLowerCase", "MustBeUpperCase" };

class TextPageTest : public PageTest {
protected:
    TextPageTest() { frame.AddPage(page); }

    template <typename Widget> Widget* Control(const char* prefix, const char* property) {
        return Find<Widget>((std::string(prefix) + property).c_str());
    }
    // The rules whose boxes are checked, in page order.
    std::vector<std::string> Checked() {
        std::vector<std::string> rules;
        for (const char* rule : kRules)
            if (Control<QCheckBox>("chk", rule)->isChecked()) rules.push_back(rule);
        return rules;
    }
    void Click(const char* rule) { PageTest::Click(Control<QCheckBox>("chk", rule)); }
    // Types over a box's whole text, as an author does.
    void TypeOver(const char* property, const QString& text) {
        auto* edit = Control<QLineEdit>("txt", property);
        QTest::mouseClick(edit, Qt::LeftButton);
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
    }
    void Apply() { QTest::mouseClick(frame.ApplyButton(), Qt::LeftButton); }
    // Records the field's notices in `log` as "field:Property".
    void Log(qt::QuillmarEdit* field) {
        QObject::connect(
            field, &qt::QuillmarEdit::PropertyChanged, field, [this, field](const QString& name) {
                log.push_back((field->objectName() + ":" + name).toStdString());
            });
    }
    // The first notice of each property in order: the page's writes, not the interlocks that follow them.
    std::vector<std::string> FirstNotices() const {
        std::vector<std::string> notices;
        for (const std::string& entry : log)
            if (std::find(notices.begin(), notices.end(), entry) == notices.end()) notices.push_back(entry);
        return notices;
    }
    static std::vector<std::string> Writes(std::initializer_list<std::string> fields) {
        std::vector<std::string> writes;
        for (const std::string& field : fields) {
            for (const char* name : kTexts)
                writes.push_back(field + ":" + name);
            for (const char* name : kRules)
                writes.push_back(field + ":" + name);
        }
        return writes;
    }

    TextPage* page = new TextPage(frame.Services());
    std::vector<std::string> log;
};

TEST_F(TextPageTest, LoadsFromTheFirstSelectedControl) {
    auto* first = AddControl("first");
    auto* second = AddControl("second");
    for (auto* field : { first, second })
        field->SetMustBeType(vldString);
    first->SetCustomMask("##-??");
    first->SetExtraIncludedCharacters("-");
    first->SetExtraExcludedCharacters("x");
    first->SetValidCharactersSet("0123456789-abc");
    second->SetCustomMask("*");
    second->SetOnlyLettersWithSpace(true);
    second->SetMustBeLowerCase(true);
    Open({ first, second });
    EXPECT_EQ(Control<QLineEdit>("txt", "CustomMask")->text(), "##-??");
    EXPECT_EQ(Control<QLineEdit>("txt", "ExtraIncludedCharacters")->text(), "-");
    EXPECT_EQ(Control<QLineEdit>("txt", "ExtraExcludedCharacters")->text(), "x");
    EXPECT_EQ(Control<QLineEdit>("txt", "ValidCharactersSet")->text(), "0123456789-abc");
    // Each rule reaches its own box.
    for (const char* rule : kRules) {
        SCOPED_TRACE(rule);
        first->setProperty(rule, true);
        frame.SetSelectedControls({ first, second });
        EXPECT_EQ(Checked(), std::vector<std::string> { rule });
        first->setProperty(rule, false);
    }
    EXPECT_FALSE(page->Changed());
}

TEST_F(TextPageTest, ApplyWritesEverySelectedControlInSelectionOrder) {
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    for (auto* field : { a, b }) {
        field->SetMustBeType(vldString);
        field->SetNoDigits(true);
        field->SetMustBeLowerCase(true);
        Log(field);
    }
    Open({ b, a });
    TypeOver("CustomMask", "[A-Z]*");
    TypeOver("ExtraIncludedCharacters", "'");
    TypeOver("ExtraExcludedCharacters", "Q");
    TypeOver("ValidCharactersSet", "ABCQ'");
    Click("OnlyLetters");
    Click("MustBeUpperCase");
    ASSERT_TRUE(page->Changed());
    log.clear();
    Apply();

    for (auto* field : { a, b }) {
        SCOPED_TRACE(field->objectName().toStdString());
        EXPECT_EQ(field->CustomMask(), "[A-Z]*");
        EXPECT_EQ(field->ExtraIncludedCharacters(), "'");
        EXPECT_EQ(field->ExtraExcludedCharacters(), "Q");
        EXPECT_EQ(field->ValidCharactersSet(), "ABCQ'");
        for (const char* rule : kRules)
            EXPECT_EQ(field->property(rule).toBool(),
                std::string(rule) == "OnlyLetters" || std::string(rule) == "MustBeUpperCase")
                << rule;
    }
    EXPECT_EQ(FirstNotices(), Writes({ "b", "a" }));
    EXPECT_FALSE(page->Changed());
}

TEST_F(TextPageTest, CheckingARuleUnchecksTheOthersOfItsGroupOnly) {
    struct Step {
        const char* click;
        std::vector<std::string> checked;
    };
    // Every rule is checked once while each other rule of its group is checked; the two groups combine.
    const Step steps[] = {
        { "OnlyLetters", { "OnlyLetters" } },
        { "MustBeUpperCase", { "OnlyLetters", "MustBeUpperCase" } },
        { "NoDigits", { "NoDigits", "MustBeUpperCase" } },
        { "MustBeLowerCase", { "NoDigits", "MustBeLowerCase" } },
        { "OnlyLettersWithSpace", { "OnlyLettersWithSpace", "MustBeLowerCase" } },
        { "MustBeProperCase", { "OnlyLettersWithSpace", "MustBeProperCase" } },
        { "OnlyLetters", { "OnlyLetters", "MustBeProperCase" } },
        { "MustBeUpperCase", { "OnlyLetters", "MustBeUpperCase" } },
        { "OnlyLettersWithSpace", { "OnlyLettersWithSpace", "MustBeUpperCase" } },
        { "MustBeProperCase", { "OnlyLettersWithSpace", "MustBeProperCase" } },
        { "NoDigits", { "NoDigits", "MustBeProperCase" } },
        { "MustBeLowerCase", { "NoDigits", "MustBeLowerCase" } },
        { "OnlyLetters", { "OnlyLetters", "MustBeLowerCase" } },
        { "MustBeUpperCase", { "OnlyLetters", "MustBeUpperCase" } },
        // Unchecking a rule leaves the others as they are.
        { "OnlyLetters", { "MustBeUpperCase" } },
        { "MustBeUpperCase", {} },
    };
    auto* field = AddControl("field");
    field->SetMustBeType(vldString);
    Open({ field });
    for (const Step& step : steps) {
        SCOPED_TRACE(step.click);
        Click(step.click);
        EXPECT_EQ(Checked(), step.checked);
        EXPECT_TRUE(page->Changed());
    }
}

TEST_F(TextPageTest, OtherTypesShowTheSettingsDisabledAndStillWriteThemBack) {
    auto* first = AddControl("first");
    auto* second = AddControl("second");
    Log(first);
    Open({ first, second });
    for (const int32_t type : { vldUnspecified, vldString, vldInteger, vldDate }) {
        SCOPED_TRACE(testing::Message() << "type " << type);
        first->SetMustBeType(type);
        first->SetCustomMask("##");
        first->SetOnlyLetters(true);
        second->SetCustomMask("?");
        second->SetNoDigits(true);
        frame.SetSelectedControls({ first, second });
        for (const char* text : kTexts)
            for (const char* prefix : { "txt", "lbl" })
                EXPECT_EQ(Control<QWidget>(prefix, text)->isEnabled(), type == vldString) << prefix << text;
        for (const char* rule : kRules)
            EXPECT_EQ(Control<QWidget>("chk", rule)->isEnabled(), type == vldString) << rule;
        EXPECT_EQ(Control<QLineEdit>("txt", "CustomMask")->text(), "##");
        EXPECT_EQ(Checked(), std::vector<std::string> { "OnlyLetters" });

        log.clear();
        page->ApplyChanges();
        EXPECT_EQ(FirstNotices(), Writes({ "first" }));
        EXPECT_EQ(second->CustomMask(), "##");
        EXPECT_TRUE(second->OnlyLetters());
        EXPECT_FALSE(second->NoDigits());
    }
}

TEST_F(TextPageTest, AnEmptiedBoxClearsItsProperty) {
    auto* field = AddControl("field");
    field->SetMustBeType(vldString);
    Open({ field });
    for (const char* text : kTexts) {
        SCOPED_TRACE(text);
        for (const char* other : kTexts)
            field->setProperty(other, QStringLiteral("ab"));
        frame.SetSelectedControls({ field });
        ASSERT_FALSE(page->Changed());
        TypeOver(text, "");
        EXPECT_TRUE(page->Changed());
        Apply();
        for (const char* other : kTexts)
            EXPECT_EQ(field->property(other).toString(), other == text ? "" : "ab") << other;
    }
}

} // namespace
} // namespace quillmar::pages
