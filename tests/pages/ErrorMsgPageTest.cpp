#include "pages/ErrorMsgPage.h"
#include "pages/PageTestSupport.h"

#include <QPlainTextEdit>

#include <string>

namespace quillmar::pages {
namespace {

class ErrorMsgPageTest : public PageTest {
protected:
    QAbstractButton* Button(const std::string& name) { return Find<QAbstractButton>(name.c_str()); }

    ErrorMsgPage* page = Add(new ErrorMsgPage(frame.Services()));
};

TEST_F(ErrorMsgPageTest, LoadsTheFirstSelectedAndWritesEverySelected) {
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    b->SetErrorMessageMode(vldCustom);
    b->SetMessageBoxTitle("Order entry");
    b->SetErrorMessage(QStringLiteral(u"Value\u00a0:\r\n\r\nfrom 1 to 9 "));
    Open({ b, a });
    // A line broken in the box is stored with the system's line break, as the stored ones are written back.
    auto* message = Find<QPlainTextEdit>("txtErrorMessage");
    message->moveCursor(QTextCursor::End);
    QTest::keyClick(message, Qt::Key_Return);
    QTest::keyClicks(message, "Thanks.");
    Click(frame.ApplyButton());
    EXPECT_EQ(a->ErrorMessage(), QStringLiteral(u"Value\u00a0:\r\n\r\nfrom 1 to 9 \r\nThanks."));
    EXPECT_EQ(a->MessageBoxTitle(), "Order entry");
    EXPECT_EQ(a->ErrorMessageMode(), vldCustom);
    // The chosen icon is written.
    for (int icon = 0; icon < 5; ++icon) {
        Click(Button("optIcon" + std::to_string(icon)));
        Click(frame.ApplyButton());
        EXPECT_EQ(a->MessageBoxIcon(), icon);
    }
}

TEST_F(ErrorMsgPageTest, TheMessageFieldsFollowTheSwitchAndTheStyle) {
    // Which are on, "1" or "0": the message fields, the custom text, the switch.
    const auto expectOn = [&](const char* on) {
        for (const char* name : { "fraErrorMessageMode", "optAutoBasic", "optCustom", "fraMessageBoxIcon",
                 "optIcon0", "lblMessageBoxTitle", "txtMessageBoxTitle" })
            EXPECT_EQ(Find<QWidget>(name)->isEnabled(), on[0] == '1') << name;
        for (const char* name : { "lblErrorMessage", "txtErrorMessage" })
            EXPECT_EQ(Find<QWidget>(name)->isEnabled(), on[1] == '1') << name;
        EXPECT_EQ(Button("chkShowErrorMessage")->isEnabled(), on[2] == '1');
    };
    auto* field = AddControl("field");
    field->SetMustBeType(vldInteger);
    field->SetErrorMessageMode(vldCustom);
    field->SetShowErrorMessage(false);
    Open({ field });
    expectOn("001");
    // Checked, basic, unchecked, checked again (the custom text stays off), custom.
    const std::pair<const char*, const char*> clicks[]
        = { { "chkShowErrorMessage", "111" }, { "optAutoBasic", "101" }, { "chkShowErrorMessage", "001" },
              { "chkShowErrorMessage", "101" }, { "optCustom", "111" } };
    for (const auto& [click, on] : clicks) {
        SCOPED_TRACE(click);
        Click(Button(click));
        expectOn(on);
    }
    // A field that is never validated has no switch.
    field->SetMustBeType(vldUnspecified);
    field->SetShowErrorMessage(true);
    frame.SetSelectedControls({ field });
    expectOn("110");
}

} // namespace
} // namespace quillmar::pages
