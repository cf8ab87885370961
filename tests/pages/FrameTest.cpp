#include "PageTestSupport.h"

#include "pages/FieldPages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>

namespace quillmar::pages {
namespace {

// A page that logs what the frame asks of it and refuses its apply when told to, with the focus on its field.
class ScriptedPage final : public PropertyPage {
public:
    ScriptedPage(const QString& caption, PageServices services, QStringList& log)
        : PropertyPage(caption, services)
        , log(log) {
        connect(field, &QLineEdit::textEdited, this, [this] { MarkChanged(); });
    }
    void SelectionChanged() override { log << Caption() + " loads " + QString::number(Selection().Count()); }
    void ApplyChanges() override {
        log << Caption() + " applies";
        if (!refuse) return;
        SetChanged(true);
        FocusField(field);
    }
    QLineEdit* field = new QLineEdit(this);
    bool refuse = false;
    QStringList& log;
};

class Frame : public PageTest {
protected:
    Frame() {
        for (const char* caption : { "First", "Second", "Third" })
            pages.push_back(Add(new ScriptedPage(QString::fromLatin1(caption), frame.Services(), notices)));
    }
    void Edit(ScriptedPage* page) {
        frame.findChild<QTabWidget*>()->setCurrentWidget(page);
        QTest::keyClicks(page->field, QStringLiteral("x"));
    }
    std::vector<ScriptedPage*> pages;
};

TEST_F(Frame, AppliesChangedPagesInTabOrderShowsTheFirstThatRefusedAndCancelAppliesNothing) {
    Open({ AddControl("Quillmar1"), AddControl("Quillmar2") });
    EXPECT_EQ(notices, QStringList({ "First loads 2", "Second loads 2", "Third loads 2" }));
    notices.clear();
    Edit(pages[2]);
    Edit(pages[1]);
    Edit(pages[0]);
    pages[1]->refuse = pages[2]->refuse = true;
    Click(frame.OkButton());
    // A refusal does not stop the later pages; OK then keeps the dialog open on the first page that refused.
    EXPECT_EQ(notices, QStringList({ "First applies", "Second applies", "Third applies" }));
    EXPECT_TRUE(frame.isVisible());
    EXPECT_EQ(frame.findChild<QTabWidget*>()->currentWidget(), pages[1]);
    EXPECT_EQ(QApplication::focusWidget(), pages[1]->field);
    notices.clear();
    pages[1]->refuse = pages[2]->refuse = false;
    Click(frame.OkButton());
    // The first is done; once none refused, every page loads again.
    EXPECT_EQ(notices,
        QStringList(
            { "Second applies", "Third applies", "First loads 2", "Second loads 2", "Third loads 2" }));
    EXPECT_FALSE(frame.isVisible());
    // Cancel closes without applying.
    Open({ AddControl("Quillmar3") });
    Edit(pages[0]);
    notices.clear();
    Click(frame.CancelButton());
    EXPECT_TRUE(notices.empty());
    EXPECT_FALSE(frame.isVisible());
}

// Fields configured through the pages save and load back with every property as the pages left them: a
// number through the number page, a code through the text page, both through the other three.
using FieldPages = PageTest;

TEST_F(FieldPages, ConfiguredFieldsSurviveSavingAndLoading) {
    AddFieldPages(frame);
    auto* tabs = frame.findChild<QTabWidget*>();
    const auto typeIn
        = [&](const char* name, const QString& text) { TypeInto(Find<qt::QuillmarEdit>(name), text); };
    const auto check = [&](const char* name) { Click(Find<QAbstractButton>(name)); };
    for (const int32_t type : { vldLong, vldString }) {
        SCOPED_TRACE(type);
        const char* name = type == vldLong ? "OrderNumber" : "CustomerCode";
        qt::QuillmarEdit* field = AddControl(name);
        Open({ field });
        Find<QComboBox>("cboMustBeType")->setCurrentIndex(type);
        Click(frame.ApplyButton()); // the pages load again, and offer what the type offers
        if (type == vldLong) {
            typeIn("txtDefaultValue", QStringLiteral("150000"));
            check("chkRequiredField");
            typeIn("txtAddNew", QStringLiteral("123456"));
            check("cmdAddNew");
            tabs->setCurrentIndex(1);
            typeIn("txtMinValue", QStringLiteral("100000"));
            typeIn("txtMaxValue", QStringLiteral("999999"));
            check("chkMustBePositive");
        } else {
            tabs->setCurrentIndex(2);
            QTest::keyClicks(Find<QLineEdit>("txtCustomMask"), QStringLiteral("[A-Z][A-Z]-####"));
            check("chkMustBeUpperCase");
        }
        tabs->setCurrentIndex(3);
        auto* actions = Find<QListWidget>("lstActions");
        QTest::mouseClick(
            actions->viewport(), Qt::LeftButton, {}, actions->visualItemRect(actions->item(0)).center());
        check("cmdDown");
        QTest::keyClick(actions, Qt::Key_Space); // the moved action is switched off
        check("optWeak");
        check("chkBeeping");
        tabs->setCurrentIndex(4);
        check("optCustom");
        QTest::keyClicks(Find<QWidget>("txtErrorMessage"), QStringLiteral("Please check this entry."));
        check("optIcon3");
        Click(frame.OkButton());
        ASSERT_FALSE(frame.isVisible()) << "the pages refused";
        EXPECT_TRUE(alerts.messages.empty());

        quillmar::MemoryPropertyStore saved, again;
        field->control().WriteProperties(saved);
        qt::QuillmarEdit* loaded = AddControl(name);
        loaded->control().ReadProperties(saved);
        loaded->control().WriteProperties(again);
        EXPECT_EQ(saved, again);
        const Quillmar& c = loaded->control();
        EXPECT_EQ(c.MustBeType(), type);
        EXPECT_EQ(c.Actions(), (VariantArray { Variant(), 9, 32, 17 }));
        EXPECT_TRUE(c.InputSifting() == vldWeak && !c.Beeping() && c.ErrorMessageMode() == vldCustom);
        EXPECT_EQ(c.ErrorMessage(), u"Please check this entry.");
        EXPECT_EQ(c.MessageBoxIcon(), vldMBIInformation);
        if (type == vldLong) {
            EXPECT_TRUE(c.RequiredField() && c.MustBePositive());
            EXPECT_EQ(c.DefaultValue(), Variant(150000.0));
            EXPECT_EQ(c.MinValue(), Variant(100000.0));
            EXPECT_EQ(c.MaxValue(), Variant(999999.0));
            EXPECT_EQ(c.MustNotBeValues(), (VariantArray { Variant(), u"123456" }));
        } else {
            EXPECT_EQ(c.CustomMask(), u"[A-Z][A-Z]-####");
            EXPECT_TRUE(c.MustBeUpperCase());
        }
    }
}

// The titles of the message boxes shown so far, in order.
QStringList Titles(const standalone::RecordingAlerts& alerts) {
    QStringList titles;
    for (const ShownMessage& message : alerts.messages)
        titles << QString::fromStdU16String(message.title);
    return titles;
}

// Two guarded fields of one page, both invalid. Leaving the first for the second, by a click or by Tab,
// shows the first's message once and keeps the focus there; the second, which the focus only passed
// through, is neither validated nor corrected. Once the first is corrected and left, a real leave of the
// second shows the second's own message.
TEST_F(FieldPages, TwoInvalidGuardedFieldsNeverFight) {
    AddFieldPages(frame);
    struct Row {
        const char* page;
        int32_t type;
        const char *first, *firstText, *firstFixed, *second;
        QString secondText;
        QStringList titles;
    };
    const Row rows[] = {
        // Both typed while the type is String, then the type becomes Double.
        { "General", vldString, "txtAddNew", "xyz", "1.5", "txtDefaultValue", "abc",
            { "Property Page: AddNew", "Property Page: AddNew", "Property Page: DefaultValue" } },
        // A count above 32 that the field itself loaded; it corrects only when it is really left.
        { "Number/Date,Time", vldDouble, "txtMinValue", "-", "1", "txtMaxNumberOfDecimals", "40",
            { "Property Page: MinValue", "Property Page: MinValue", "Invalid Entry: MaxNumberOfDecimals" } },
    };
    auto* tabs = frame.findChild<QTabWidget*>();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.page);
        qt::QuillmarEdit* control = AddControl("field");
        control->SetMustBeType(row.type);
        try {
            control->control().SetMaxNumberOfDecimals(40); // the control keeps it, though refused
        } catch (const PropertyError&) { }
        Open({ control });
        auto* first = Find<qt::QuillmarEdit>(row.first);
        auto* second = Find<qt::QuillmarEdit>(row.second);
        tabs->setCurrentWidget(first->parentWidget()->inherits("QGroupBox")
                ? first->parentWidget()->parentWidget()
                : first->parentWidget());
        ASSERT_EQ(tabs->tabText(tabs->currentIndex()), row.page);
        if (row.type == vldString) {
            TypeInto(first, row.firstText);
            TypeInto(second, row.secondText);
            ChooseType(vldDouble);
        }
        TypeInto(first, row.firstText);
        alerts = {};
        QTest::mouseClick(second->lineEdit(), Qt::LeftButton);
        QTest::qWait(50);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::qWait(50);
        EXPECT_EQ(Titles(alerts), row.titles.mid(0, 2));
        EXPECT_EQ(QApplication::focusWidget(), first->lineEdit());
        EXPECT_EQ(second->Text(), row.secondText);
        TypeInto(first, row.firstFixed);
        QTest::mouseClick(second->lineEdit(), Qt::LeftButton);
        QTest::qWait(50);
        QTest::mouseClick(first->lineEdit(), Qt::LeftButton);
        QTest::qWait(100);
        EXPECT_EQ(Titles(alerts), row.titles);
        EXPECT_EQ(QApplication::focusWidget(), second->lineEdit());
        Click(frame.CancelButton());
    }
}

// A field that refuses to be left keeps the focus, and its page stays in sight: choosing another tab shows
// the field's message once, and the frame stays on the field's page.
TEST_F(FieldPages, AFieldThatRefusesToBeLeftKeepsItsPageInSight) {
    AddFieldPages(frame);
    auto* tabs = frame.findChild<QTabWidget*>();
    auto* bar = tabs->findChild<QTabBar*>();
    const std::tuple<int, const char*, int, const char*> rows[] = {
        { 1, "txtMinValue", 0, "Property Page: MinValue" },
        { 0, "txtDefaultValue", 1, "Property Page: DefaultValue" },
    };
    for (const auto& [page, name, other, title] : rows) {
        SCOPED_TRACE(name);
        qt::QuillmarEdit* control = AddControl("field");
        control->SetMustBeType(vldInteger);
        Open({ control });
        alerts = {};
        tabs->setCurrentIndex(page);
        auto* field = Find<qt::QuillmarEdit>(name);
        TypeInto(field, "-"); // the start of a number, not yet one
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(other).center());
        QTest::qWait(50);
        EXPECT_EQ(Titles(alerts), QStringList { title });
        EXPECT_EQ(tabs->currentIndex(), page);
        EXPECT_EQ(QApplication::focusWidget(), field->lineEdit());
        EXPECT_TRUE(field->lineEdit()->isVisible());
        Click(frame.CancelButton());
    }
}

// After an accepted Apply every page loads again, without the beep of a second load within one second and
// without staying in its loading state: the number page offers what the type just applied offers, and takes
// edits. After a refused Apply nothing loads again, though the type is written: the pages keep what the
// author typed and what they offered.
TEST_F(FieldPages, AnAcceptedApplyLoadsEveryPageAgain) {
    AddFieldPages(frame);
    auto* tabs = frame.findChild<QTabWidget*>();
    for (const bool refused : { false, true }) {
        SCOPED_TRACE(refused ? "refused" : "accepted");
        qt::QuillmarEdit* control = AddControl("field");
        if (refused) {
            control->SetMustBeType(vldLong);
            control->control().SetMaxValue(u"20");
        }
        Open({ control });
        alerts = {};
        ChooseType(vldDouble);
        if (refused) TypeInto(Find<qt::QuillmarEdit>("txtDefaultValue"), "25");
        Click(frame.ApplyButton());
        EXPECT_EQ(control->MustBeType(), vldDouble);
        EXPECT_EQ(alerts.beeps, refused ? 1 : 0); // the range message's beep
        EXPECT_EQ(Find<qt::QuillmarEdit>("txtDefaultValue")->Text(), refused ? "25" : "");
        auto* scientific = Find<QCheckBox>("chkAllowScientificFormat");
        EXPECT_EQ(scientific->isEnabled(), !refused);
        if (refused) {
            Click(frame.CancelButton());
            continue;
        }
        tabs->setCurrentIndex(1);
        Click(scientific);
        EXPECT_TRUE(frame.ApplyButton()->isEnabled());
        Click(frame.OkButton());
        EXPECT_TRUE(control->AllowScientificFormat());
        EXPECT_EQ(alerts.beeps, 0);
    }
}

} // namespace
} // namespace quillmar::pages
