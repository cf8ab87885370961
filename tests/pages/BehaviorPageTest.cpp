#include "pages/BehaviorPage.h"
#include "pages/PageTestSupport.h"

#include <QListWidget>

#include <string>
#include <tuple>
#include <vector>

namespace quillmar::pages {
namespace {

const VariantArray kInitial { Variant(), 33, 9, 17 };

class BehaviorPageTest : public PageTest {
protected:
    QAbstractButton* Button(const char* name) { return Find<QAbstractButton>(name); }
    // The list as the page shows it, each item by the first letter of its second word ("Insert closest
    // value": c, then p, d and "Return focus" f), upper case when checked.
    std::string Shown() {
        QString items;
        for (int i = 0; i < list->count(); ++i) {
            const QChar letter = list->item(i)->text().at(7);
            items += list->item(i)->checkState() == Qt::Checked ? letter.toUpper() : letter;
        }
        return items.toStdString();
    }

    BehaviorPage* page = Add(new BehaviorPage(frame.Services()));
    QListWidget* list = Find<QListWidget>("lstActions");
};

TEST_F(BehaviorPageTest, LoadsTheFirstSelectedAndWritesEverySelected) {
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    b->SetMustBeType(vldLong);
    b->control().SetActions({ Variant(), 16, 33, 8 });
    b->SetValidationMode(vldSemiAutomatic);
    b->SetInputSifting(vldWeak);
    b->SetOnErrorSelectEntireField(true);
    b->SetShowAsUnderstood(false);
    b->SetFinalValidationActive(false);
    Open({ b, a });
    EXPECT_EQ(Shown(), "dCpF"); // the rest loaded is written back
    Click(Button("optNone"));
    Click(frame.ApplyButton());
    EXPECT_EQ(a->control().Actions(), (VariantArray { Variant(), 16, 33, 8 }));
    EXPECT_EQ(a->ValidationMode(), vldSemiAutomatic);
    EXPECT_EQ(a->InputSifting(), vldNone);
    EXPECT_TRUE(a->OnErrorSelectEntireField());
    EXPECT_FALSE(a->ShowAsUnderstood() || a->FinalValidationActive());
}

const ShownMessage kCannotMove { u"This action cannot be moved!", u"Quillmar", IconInformation };
const ShownMessage kCannotUncheck { u"This action cannot be unchecked!\r\n"
                                    u"(If validation active, this action is always present.)",
    u"Quillmar", IconInformation };

TEST_F(BehaviorPageTest, MovesAndCheckMarksAloneEnableApplyWhileReturnFocusStaysLastAndChecked) {
    // The row clicked; the steps (U and D click the move buttons, a space toggles the current item's check
    // mark); the list shown then; what Apply leaves in both fields (kInitial: Apply stays off); the messages.
    const std::tuple<int, const char*, const char*, VariantArray, std::vector<ShownMessage>> rows[] = {
        { 1, "U", "PCDF", { Variant(), 9, 33, 17 }, {} },
        { 0, "D", "PCDF", { Variant(), 9, 33, 17 }, {} },
        // The moved item stays current and keeps its check mark.
        { 2, " UU", "dCPF", { Variant(), 16, 33, 9 }, {} },
        { 2, "D", "CPDF", kInitial, {} }, // the last action down
        { 3, "U", "CPDF", kInitial, { kCannotMove } },
        { 3, " ", "CPDF", kInitial, { kCannotUncheck } },
    };
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    Open({ b, a });
    for (const auto& [select, steps, shown, stored, messages] : rows) {
        SCOPED_TRACE(testing::Message() << select << " " << steps);
        for (auto* field : { a, b })
            field->control().SetActions(kInitial);
        frame.SetSelectedControls({ b, a });
        alerts = {};
        QTest::mouseClick(
            list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(select)).center());
        for (const char* step = steps; *step; ++step)
            if (*step == ' ')
                QTest::keyClick(list, Qt::Key_Space);
            else
                Click(Button(*step == 'U' ? "cmdUP" : "cmdDown"));
        EXPECT_EQ(Shown(), shown);
        EXPECT_EQ(alerts.messages, messages);
        EXPECT_EQ(alerts.beeps, 0);
        EXPECT_EQ(frame.ApplyButton()->isEnabled(), stored != kInitial);
        Click(frame.ApplyButton());
        EXPECT_EQ(b->control().Actions(), stored);
        EXPECT_EQ(a->control().Actions(), stored);
    }
}

TEST_F(BehaviorPageTest, TheValidationControlsFollowTheSwitchAndTheSiftingOptionsTheFirstType) {
    // The first field's type and final validation, the clicks on chkFinalValidationActive, then whether the
    // validation controls and the sifting options are on.
    const std::tuple<int32_t, bool, int, bool, bool> rows[] = {
        { vldLong, false, 0, false, true },
        { vldString, false, 1, true, true },
        { vldDate, true, 1, false, true },
        // The sifting options are the first selected field's, whatever the others are.
        { vldUnspecified, true, 0, true, false },
    };
    auto* first = AddControl("first");
    auto* second = AddControl("second");
    second->SetMustBeType(vldString);
    Open({ first, second });
    for (const auto& [type, finalValidation, clicks, validation, sifting] : rows) {
        SCOPED_TRACE(testing::Message() << type << " " << finalValidation << " " << clicks);
        first->SetMustBeType(type);
        first->SetFinalValidationActive(finalValidation);
        frame.SetSelectedControls({ first, second });
        for (int i = 0; i < clicks; ++i)
            Click(Button("chkFinalValidationActive"));
        for (const char* name : { "optAutomatic", "optSemiAutomatic", "chkOnErrorSelectEntireField",
                 "chkShowAsUnderstood", "lstActions", "cmdUP", "cmdDown" })
            EXPECT_EQ(Find<QWidget>(name)->isEnabled(), validation) << name;
        for (const char* name : { "optNone", "optWeak", "optStrong" })
            EXPECT_EQ(Find<QWidget>(name)->isEnabled(), sifting) << name;
    }
}

} // namespace
} // namespace quillmar::pages
