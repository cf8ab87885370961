#include "PageTestSupport.h"

#include "pages/FieldPages.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
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
    EXPECT_EQ(notices, QStringList({ "Second applies", "Third applies" })); // the first is done
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
        ++clock.seconds;
        Open({ field });
        Find<QComboBox>("cboMustBeType")->setCurrentIndex(type);
        Click(frame.ApplyButton());
        ++clock.seconds;
        frame.SetSelectedControls({ field }); // the pages now offer what the type offers
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

        standalone::MemoryPropertyStore saved, again;
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

} // namespace
} // namespace quillmar::pages
