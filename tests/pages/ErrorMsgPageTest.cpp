#include "pages/ErrorMsgPage.h"
#include "control/Enums.h"
#include "host/standalone/MemoryPropertyStore.h"
#include "pages/PageTestSupport.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

#include <algorithm>
#include <string>
#include <vector>

namespace quillmar::pages {
namespace {

// The style options by `ErrorMessageModeConstants` value, from 1.
const char* const kModes[] = { "optAutoBasic", "optAutoAdvanced", "optCustom" };

class ErrorMsgPageTest : public PageTest {
protected:
    ErrorMsgPageTest() { frame.AddPage(page); }

    QRadioButton* Option(const char* name) { return Find<QRadioButton>(name); }
    QRadioButton* Icon(int index) { return Option(("optIcon" + std::to_string(index)).c_str()); }
    QCheckBox* Show() { return Find<QCheckBox>("chkShowErrorMessage"); }
    QPlainTextEdit* Message() { return Find<QPlainTextEdit>("txtErrorMessage"); }
    QLineEdit* Title() { return Find<QLineEdit>("txtMessageBoxTitle"); }
    void Apply() { QTest::mouseClick(frame.ApplyButton(), Qt::LeftButton); }
    void TypeOver(QLineEdit* edit, const QString& text) {
        QTest::mouseClick(edit, Qt::LeftButton);
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(edit, text);
    }
    // The mode and icon the options show: 0 and -1 for none set; 99 for two icons.
    int ShownMode() {
        for (int mode = 1; mode <= 3; ++mode)
            if (Option(kModes[mode - 1])->isChecked()) return mode;
        return 0;
    }
    int ShownIcon() {
        int shown = -1;
        for (int icon = 0; icon < 5; ++icon)
            if (Icon(icon)->isChecked()) shown = shown == -1 ? icon : 99;
        return shown;
    }

    ErrorMsgPage* page = new ErrorMsgPage(frame.Services());
};

TEST_F(ErrorMsgPageTest, LoadsFromTheFirstSelectedControl) {
    struct Load {
        int mode, icon;
        bool show;
        const char16_t* message;
        const char* shown;
    };
    const Load loads[] = {
        { vldAutoBasic, vldMBICritical, true, u"Bad entry", "Bad entry" },
        { vldCustom, vldMBINone, false, u"Line one\r\nLine two", "Line one\nLine two" },
        { vldAutoAdvanced, vldMBIQuestion, true, u"", "" },
        { vldCustom, vldMBIInformation, true, u"x", "x" },
        { vldAutoBasic, vldMBIExclamation, false, u"", "" },
    };
    auto* first = AddControl("first");
    auto* second = AddControl("second");
    second->SetErrorMessage("other");
    second->SetMessageBoxTitle("other");
    Open({ first, second });
    for (const Load& row : loads) {
        SCOPED_TRACE(row.shown);
        first->SetErrorMessageMode(row.mode);
        first->SetMessageBoxIcon(row.icon);
        first->SetShowErrorMessage(row.show);
        first->control().SetErrorMessage(row.message);
        first->SetMessageBoxTitle(QStringLiteral("Title %1").arg(row.icon));
        second->SetErrorMessageMode(row.mode % 3 + 1);
        second->SetMessageBoxIcon((row.icon + 1) % 5);
        second->SetShowErrorMessage(!row.show);
        frame.SetSelectedControls({ first, second });
        EXPECT_EQ(ShownMode(), row.mode);
        EXPECT_EQ(ShownIcon(), row.icon);
        EXPECT_EQ(Show()->isChecked(), row.show);
        EXPECT_EQ(Message()->toPlainText(), row.shown);
        EXPECT_EQ(Title()->text(), QStringLiteral("Title %1").arg(row.icon));
        EXPECT_FALSE(page->Changed());
    }
}

TEST_F(ErrorMsgPageTest, ApplyWritesEverySelectedControlInSelectionOrder) {
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    std::vector<std::string> log;
    for (auto* field : { a, b }) {
        field->SetMustBeType(vldInteger);
        field->SetShowErrorMessage(false);
        QObject::connect(
            field, &qt::QuillmarEdit::PropertyChanged, field, [&log, field](const QString& name) {
                log.push_back((field->objectName() + ":" + name).toStdString());
            });
    }
    Open({ b, a });
    Click(Show());
    Click(Option("optCustom"));
    Click(Icon(vldMBICritical));
    TypeOver(Title(), "Order entry");
    // A line broken in the box is stored with the system's line break.
    QTest::mouseClick(Message()->viewport(), Qt::LeftButton);
    QTest::keyClicks(Message(), "Too many items.");
    QTest::keyClick(Message(), Qt::Key_Return);
    QTest::keyClicks(Message(), "At most\u00a010.");
    ASSERT_TRUE(page->Changed());
    log.clear();
    Apply();

    for (auto* field : { a, b }) {
        SCOPED_TRACE(field->objectName().toStdString());
        EXPECT_EQ(field->ErrorMessage(), QStringLiteral(u"Too many items.\r\nAt most\u00a010."));
        EXPECT_EQ(field->MessageBoxTitle(), "Order entry");
        EXPECT_TRUE(field->ShowErrorMessage());
        EXPECT_EQ(field->ErrorMessageMode(), vldCustom);
        EXPECT_EQ(field->MessageBoxIcon(), vldMBICritical);
    }
    std::vector<std::string> expected;
    for (const std::string control : { "b:", "a:" })
        for (const char* name :
            { "ErrorMessage", "MessageBoxTitle", "ShowErrorMessage", "ErrorMessageMode", "MessageBoxIcon" })
            expected.push_back(control + name);
    EXPECT_EQ(log, expected);
    EXPECT_FALSE(page->Changed());
}

TEST_F(ErrorMsgPageTest, TheChosenIconIsWritten) {
    auto* field = AddControl("field");
    Open({ field });
    for (int icon = 0; icon < 5; ++icon) {
        SCOPED_TRACE(icon);
        field->SetMessageBoxIcon((icon + 2) % 5);
        frame.SetSelectedControls({ field });
        Click(Icon(icon));
        EXPECT_EQ(ShownIcon(), icon);
        EXPECT_TRUE(page->Changed());
        Apply();
        EXPECT_EQ(field->MessageBoxIcon(), icon);
    }
}

TEST_F(ErrorMsgPageTest, AStoredMessageIsWrittenBackAsItWas) {
    auto* field = AddControl("field");
    field->SetErrorMessage(QStringLiteral(u"Valeur\u00a0:\r\n\r\ncomprise entre 1 et 9 "));
    Open({ field });
    TypeOver(Title(), "!");
    Apply();
    EXPECT_EQ(field->ErrorMessage(), QStringLiteral(u"Valeur\u00a0:\r\n\r\ncomprise entre 1 et 9 "));
    EXPECT_EQ(field->MessageBoxTitle(), "!");
}

TEST_F(ErrorMsgPageTest, AStoredStyleAndIconThePageDoesNotOfferShowNoOption) {
    auto* plain = AddControl("plain");
    auto* stored = AddControl("stored");
    standalone::MemoryPropertyStore store;
    store.WriteProperty(u"ErrorMessageMode", int32_t { 7 }, Variant());
    store.WriteProperty(u"MessageBoxIcon", int32_t { 9 }, Variant());
    stored->control().ReadProperties(store);
    Open({ plain });
    frame.SetSelectedControls({ stored });
    EXPECT_EQ(ShownMode(), 0);
    EXPECT_EQ(ShownIcon(), -1);
    // The style is left as it is; with no icon set the field gets none.
    TypeOver(Title(), "T");
    Apply();
    EXPECT_EQ(stored->ErrorMessageMode(), 7);
    EXPECT_EQ(stored->MessageBoxIcon(), vldMBINone);
    EXPECT_EQ(stored->MessageBoxTitle(), "T");
}

TEST_F(ErrorMsgPageTest, TheMessageFieldsFollowTheSwitchAndTheStyle) {
    struct Step {
        const char* name;
        int type, mode; // a load of a field with these settings, unless the step clicks
        bool show;
        const char* click;
        bool fields, custom, showBox;
    };
    const Step steps[] = {
        { "no message", vldInteger, vldCustom, false, nullptr, false, false, true },
        { "checked: custom text on", 0, 0, false, "chkShowErrorMessage", true, true, true },
        { "basic: custom text off", 0, 0, false, "optAutoBasic", true, false, true },
        { "unchecked: all off", 0, 0, false, "chkShowErrorMessage", false, false, true },
        { "checked: custom text stays off", 0, 0, false, "chkShowErrorMessage", true, false, true },
        { "custom: custom text on", 0, 0, false, "optCustom", true, true, true },
        { "advanced shown", vldDate, vldAutoAdvanced, true, nullptr, true, false, true },
        { "unspecified: no switch", vldUnspecified, vldCustom, true, nullptr, true, true, false },
        { "unspecified, no message", vldUnspecified, vldAutoBasic, false, nullptr, false, false, false },
    };
    auto* field = AddControl("field");
    Open({ field });
    for (const Step& step : steps) {
        SCOPED_TRACE(step.name);
        page->SetChanged(false);
        if (step.click) {
            Click(Find<QAbstractButton>(step.click));
        } else {
            field->SetMustBeType(step.type);
            field->SetErrorMessageMode(step.mode);
            field->SetShowErrorMessage(step.show);
            frame.SetSelectedControls({ field });
        }
        for (const char* name : { "fraErrorMessageMode", "optAutoBasic", "optAutoAdvanced", "optCustom",
                 "fraMessageBoxIcon", "optIcon0", "optIcon4", "lblMessageBoxTitle", "txtMessageBoxTitle" })
            EXPECT_EQ(Find<QWidget>(name)->isEnabled(), step.fields) << name;
        for (const char* name : { "lblErrorMessage", "txtErrorMessage" })
            EXPECT_EQ(Find<QWidget>(name)->isEnabled(), step.custom) << name;
        EXPECT_EQ(Show()->isEnabled(), step.showBox);
        // The author's clicks mark the page, loads do not.
        EXPECT_EQ(page->Changed(), step.click != nullptr);
    }
}

} // namespace
} // namespace quillmar::pages
