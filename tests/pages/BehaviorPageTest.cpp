#include "pages/BehaviorPage.h"
#include "control/Enums.h"
#include "pages/PageTestSupport.h"

#include <QListWidget>
#include <QStyle>
#include <QStyleOptionViewItem>

#include <cctype>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::pages {
namespace {

using standalone::ShownMessage;
using Shown = std::vector<std::string>;

const VariantArray kInitial { Variant(), 33, 9, 17 };

// The list as the page should show it, one letter an item: C closest, P previous, D default, F "Return
// focus"; upper case checked, lower case unchecked.
Shown Expected(std::string_view codes) {
    const char* texts[] = { "Insert closest value if possible", "Return previous value if valid",
        "Insert default value if exist", "Return focus" };
    Shown items;
    for (const char code : codes) {
        const size_t index = std::string_view("CPDF").find(static_cast<char>(std::toupper(code)));
        items.push_back((std::isupper(code) ? "+" : "-") + std::string(texts[index]));
    }
    return items;
}

class BehaviorPageTest : public PageTest {
protected:
    BehaviorPageTest() { frame.AddPage(page); }

    QListWidget* List() { return Find<QListWidget>("lstActions"); }
    QAbstractButton* Button(const char* name) { return Find<QAbstractButton>(name); }
    // The list as the page shows it: each item's text after "+" when checked, "-" when not.
    Shown ShownItems() {
        Shown items;
        for (int i = 0; i < List()->count(); ++i) {
            const QListWidgetItem* item = List()->item(i);
            items.push_back((item->checkState() == Qt::Checked ? "+" : "-") + item->text().toStdString());
        }
        return items;
    }
    // Clicks the item's text, which selects it.
    void Select(int row) {
        QTest::mouseClick(
            List()->viewport(), Qt::LeftButton, {}, List()->visualItemRect(List()->item(row)).center());
    }
    // Clicks the check box of the current item.
    void ClickCheckBox() {
        QStyleOptionViewItem option;
        option.initFrom(List());
        option.rect = List()->visualItemRect(List()->currentItem());
        option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
        const QRect box
            = List()->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, List());
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, box.center());
    }
    // Plays the steps: U and D click the move buttons, X clicks the current item's check box, a space
    // toggles it from the keyboard, and the arrows v and ^ change the current item.
    void Play(std::string_view steps) {
        for (const char step : steps) {
            if (step == 'U' || step == 'D')
                Click(Button(step == 'U' ? "cmdUP" : "cmdDown"));
            else if (step == 'X')
                ClickCheckBox();
            else
                QTest::keyClick(List(),
                    step == ' '       ? Qt::Key_Space
                        : step == 'v' ? Qt::Key_Down
                                      : Qt::Key_Up);
        }
        QApplication::processEvents();
    }
    BehaviorPage* page = new BehaviorPage(frame.Services());
};

struct LoadRow {
    VariantArray actions;
    const char* shown;
    int mode, sifting;
    bool selectEntireField, finalValidation, beeping, showAsUnderstood;
};

TEST_F(BehaviorPageTest, LoadsTheFirstSelectedControlAtEveryNotice) {
    const LoadRow rows[] = {
        { kInitial, "CPDF", vldAutomatic, vldStrong, false, true, true, true },
        { { Variant(), 16, 33, 8 }, "dCpF", vldSemiAutomatic, vldWeak, true, false, false, false },
        // "Return focus" is checked even when no stored action is.
        { { Variant(), 8, 32, 16 }, "pcdF", vldAutomatic, vldNone, true, true, false, true },
    };
    auto* first = AddControl("first");
    auto* second = AddControl("second");
    second->control().SetActions({ Variant(), 41, 8, 16 });
    Open({ first, second });
    for (const LoadRow& row : rows) {
        SCOPED_TRACE(row.shown);
        first->control().SetActions(row.actions);
        first->SetValidationMode(row.mode);
        first->SetInputSifting(row.sifting);
        first->SetOnErrorSelectEntireField(row.selectEntireField);
        first->SetFinalValidationActive(row.finalValidation);
        first->SetBeeping(row.beeping);
        first->SetShowAsUnderstood(row.showAsUnderstood);
        // Within the same second: this page loads at every notice.
        frame.SetSelectedControls({ first, second });
        EXPECT_EQ(ShownItems(), Expected(row.shown));
        const std::pair<const char*, bool> marks[] = { { "optAutomatic", row.mode == vldAutomatic },
            { "optSemiAutomatic", row.mode == vldSemiAutomatic }, { "optNone", row.sifting == vldNone },
            { "optWeak", row.sifting == vldWeak }, { "optStrong", row.sifting == vldStrong },
            { "chkOnErrorSelectEntireField", row.selectEntireField },
            { "chkFinalValidationActive", row.finalValidation }, { "chkBeeping", row.beeping },
            { "chkShowAsUnderstood", row.showAsUnderstood } };
        for (const auto& [name, checked] : marks)
            EXPECT_EQ(Button(name)->isChecked(), checked) << name;
        EXPECT_FALSE(frame.ApplyButton()->isEnabled());
        EXPECT_EQ(alerts.beeps, 0);
    }
}

const ShownMessage kCannotMove { u"This action cannot be moved!", u"Quillmar", IconInformation };
const ShownMessage kCannotUncheck { u"This action cannot be unchecked!\r\n"
                                    u"(If validation active, this action is always present.)",
    u"Quillmar", IconInformation };

struct MoveRow {
    const char* name;
    int select;
    const char* steps;
    const char* shown;
    int current;
    bool changed;
    VariantArray stored; // what Apply leaves in both fields
    std::vector<ShownMessage> messages = {};
};

TEST_F(BehaviorPageTest, MovesAndCheckMarksAloneEnableApplyWhileReturnFocusStaysLastAndChecked) {
    const MoveRow rows[] = {
        { "second up", 1, "U", "PCDF", 0, true, { Variant(), 9, 33, 17 } },
        // The moved item stays selected, so a second click moves it on.
        { "first down twice", 0, "DD", "PDCF", 2, true, { Variant(), 9, 17, 33 } },
        { "first up", 0, "U", "CPDF", 0, false, kInitial },
        { "last action down", 2, "D", "CPDF", 2, false, kInitial },
        { "up after an arrow key", 2, "^U", "PCDF", 0, true, { Variant(), 9, 33, 17 } },
        { "unchecked with space", 1, " ", "CpDF", 1, true, { Variant(), 33, 8, 17 } },
        // The check mark travels with its action.
        { "unchecked by its box, then moved", 2, "XU", "CdPF", 1, true, { Variant(), 33, 16, 9 } },
        // A change undone is still a change.
        { "unchecked and checked again", 0, "X ", "CPDF", 0, true, kInitial },
        { "Return focus up", 3, "U", "CPDF", 3, false, kInitial, { kCannotMove } },
        { "Return focus down", 2, "vD", "CPDF", 3, false, kInitial },
        { "Return focus unchecked with space", 2, "v ", "CPDF", 3, false, kInitial, { kCannotUncheck } },
        { "Return focus unchecked by its box", 3, "X", "CPDF", 3, false, kInitial, { kCannotUncheck } },
    };
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    Open({ b, a });
    for (const MoveRow& row : rows) {
        SCOPED_TRACE(row.name);
        for (auto* field : { a, b })
            field->control().SetActions(kInitial);
        frame.SetSelectedControls({ b, a });
        alerts = {};
        Select(row.select);
        Play(row.steps);
        EXPECT_EQ(ShownItems(), Expected(row.shown));
        EXPECT_EQ(List()->currentRow(), row.current);
        EXPECT_EQ(alerts.messages, row.messages);
        EXPECT_EQ(alerts.beeps, 0);
        EXPECT_EQ(frame.ApplyButton()->isEnabled(), row.changed);
        Click(frame.ApplyButton());
        EXPECT_EQ(b->control().Actions(), row.stored);
        EXPECT_EQ(a->control().Actions(), row.stored);
    }
}

TEST_F(BehaviorPageTest, ApplyWritesEverySelectedControlInSelectionOrder) {
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    a->SetMustBeType(vldDouble);
    b->SetMustBeType(vldString);
    std::vector<std::string> log;
    for (auto* field : { a, b })
        QObject::connect(
            field, &qt::QuillmarEdit::PropertyChanged, field, [&log, field](const QString& name) {
                log.push_back((field->objectName() + ":" + name).toStdString());
            });
    Open({ b, a });
    log.clear();
    for (const char* name : { "optSemiAutomatic", "optWeak", "chkOnErrorSelectEntireField", "chkBeeping",
             "chkShowAsUnderstood", "chkFinalValidationActive" })
        Click(Button(name));
    Click(frame.ApplyButton());
    for (auto* field : { a, b }) {
        SCOPED_TRACE(field->objectName().toStdString());
        EXPECT_EQ(field->control().Actions(), kInitial);
        EXPECT_EQ(field->ValidationMode(), vldSemiAutomatic);
        EXPECT_EQ(field->InputSifting(), vldWeak);
        EXPECT_TRUE(field->OnErrorSelectEntireField());
        EXPECT_FALSE(field->Beeping() || field->ShowAsUnderstood() || field->FinalValidationActive());
    }
    std::vector<std::string> expected;
    for (const std::string control : { "b:", "a:" })
        for (const char* name : { "Actions", "OnErrorSelectEntireField", "FinalValidationActive", "Beeping",
                 "ShowAsUnderstood", "ValidationMode", "InputSifting" })
            expected.push_back(control + name);
    EXPECT_EQ(log, expected);
    EXPECT_FALSE(page->Changed());
}

struct UsableRow {
    int32_t firstType, secondType;
    bool finalValidation;
    int clicks; // on chkFinalValidationActive
    bool validation, sifting;
};

TEST_F(BehaviorPageTest, TheValidationControlsFollowTheSwitchAndTheSiftingOptionsTheFirstType) {
    const UsableRow rows[] = {
        { vldLong, vldUnspecified, true, 0, true, true },
        { vldLong, vldUnspecified, false, 0, false, true },
        { vldString, vldString, false, 1, true, true },
        { vldDate, vldDate, true, 1, false, true },
        { vldDate, vldDate, true, 2, true, true },
        // The sifting options are the first selected field's, whatever the others are.
        { vldUnspecified, vldString, true, 0, true, false },
        { vldUnspecified, vldUnspecified, false, 1, true, false },
    };
    auto* first = AddControl("first");
    auto* second = AddControl("second");
    Open({ first, second });
    for (const UsableRow& row : rows) {
        SCOPED_TRACE(testing::Message() << row.firstType << " " << row.finalValidation << " " << row.clicks);
        first->SetMustBeType(row.firstType);
        second->SetMustBeType(row.secondType);
        first->SetFinalValidationActive(row.finalValidation);
        frame.SetSelectedControls({ first, second });
        for (int i = 0; i < row.clicks; ++i)
            Click(Button("chkFinalValidationActive"));
        for (const char* name : { "optAutomatic", "optSemiAutomatic", "chkOnErrorSelectEntireField",
                 "chkShowAsUnderstood", "lstActions", "cmdUP", "cmdDown" })
            EXPECT_EQ(Find<QWidget>(name)->isEnabled(), row.validation) << name;
        for (const char* name : { "optNone", "optWeak", "optStrong" })
            EXPECT_EQ(Find<QWidget>(name)->isEnabled(), row.sifting) << name;
        // The switch itself and the beep act whatever the others say.
        EXPECT_TRUE(Button("chkFinalValidationActive")->isEnabled() && Button("chkBeeping")->isEnabled());
        // An option that is off still shows the field's level.
        EXPECT_TRUE(Button("optStrong")->isChecked());
        EXPECT_EQ(page->Changed(), row.clicks > 0);
        frame.Apply();
    }
}

} // namespace
} // namespace quillmar::pages
