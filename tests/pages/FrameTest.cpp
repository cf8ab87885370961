#include "PageTestSupport.h"

#include "pages/FieldPages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>

#include <functional>
#include <string>
#include <vector>

namespace quillmar::pages {
namespace {

// A page that logs what the frame asks of it and refuses its apply when told to, with the focus on its field.
class ScriptedPage final : public PropertyPage {
public:
    ScriptedPage(const QString& caption, PageServices services, std::vector<std::string>& log)
        : PropertyPage(caption, services)
        , m_log(log) {
        field = new QLineEdit(this);
        connect(field, &QLineEdit::textEdited, this, [this] { MarkChanged(); });
    }
    void SelectionChanged() override {
        m_log.push_back(Caption().toStdString() + " loads " + std::to_string(Selection().Count()));
    }
    void ApplyChanges() override {
        m_log.push_back(Caption().toStdString() + " applies");
        if (!refuse) return;
        SetChanged(true);
        FocusField(field);
    }
    QLineEdit* field = nullptr;
    bool refuse = false;

private:
    std::vector<std::string>& m_log;
};

class Frame : public PageTest {
protected:
    Frame() {
        for (const char* caption : { "First", "Second", "Third" }) {
            pages.push_back(new ScriptedPage(QString::fromLatin1(caption), frame.Services(), log));
            frame.AddPage(pages.back());
        }
    }
    void Edit(ScriptedPage* page) {
        frame.findChild<QTabWidget*>()->setCurrentWidget(page);
        QTest::keyClicks(page->field, QStringLiteral("x"));
    }
    std::vector<ScriptedPage*> pages;
    std::vector<std::string> log;
};

TEST_F(Frame, AppliesChangedPagesInTabOrderAndShowsTheFirstThatRefused) {
    Open({ AddControl("Quillmar1"), AddControl("Quillmar2") });
    EXPECT_EQ(log, (std::vector<std::string> { "First loads 2", "Second loads 2", "Third loads 2" }));
    EXPECT_FALSE(frame.ApplyButton()->isEnabled());
    log.clear();
    Edit(pages[2]);
    Edit(pages[1]);
    Edit(pages[0]);
    EXPECT_TRUE(frame.ApplyButton()->isEnabled());
    pages[1]->refuse = pages[2]->refuse = true;
    Click(frame.OkButton());
    // A refusal does not stop the later pages; OK then keeps the dialog open on the first page that refused.
    EXPECT_EQ(log, (std::vector<std::string> { "First applies", "Second applies", "Third applies" }));
    EXPECT_TRUE(frame.isVisible());
    EXPECT_EQ(frame.findChild<QTabWidget*>()->currentWidget(), pages[1]);
    EXPECT_EQ(QApplication::focusWidget(), pages[1]->field);
    EXPECT_TRUE(frame.ApplyButton()->isEnabled());
    log.clear();
    pages[1]->refuse = pages[2]->refuse = false;
    Click(frame.ApplyButton());
    EXPECT_EQ(log, (std::vector<std::string> { "Second applies", "Third applies" })); // the first is done
    EXPECT_FALSE(frame.ApplyButton()->isEnabled());
    Click(frame.OkButton());
    EXPECT_FALSE(frame.isVisible());
}

TEST_F(Frame, CancelClosesWithoutApplying) {
    Open({ AddControl("Quillmar1") });
    Edit(pages[0]);
    log.clear();
    Click(frame.CancelButton());
    EXPECT_TRUE(log.empty());
    EXPECT_FALSE(frame.isVisible());
}

// Fields configured through the pages save and load back with every property as the pages left them: a
// number through the number page, a code through the text page, both through the other three.
using FieldPages = PageTest;

TEST_F(FieldPages, ConfiguredFieldsSurviveSavingAndLoading) {
    AddFieldPages(frame);
    auto* tabs = frame.findChild<QTabWidget*>();
    const auto typeIn = [&](const char* name, const QString& text) {
        if (auto* field = frame.findChild<qt::QuillmarEdit*>(QString::fromLatin1(name)))
            return TypeInto(field, text);
        auto* box = Find<QWidget>(name);
        box->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(box, text);
    };
    const auto check = [&](const char* name) { Click(Find<QAbstractButton>(name)); };
    struct Row {
        const char* name;
        int32_t type;
        std::function<void()> ownPages; // General's entries and the page of the type
    };
    const Row rows[] = {
        { "OrderNumber", vldLong,
            [&] {
                typeIn("txtDefaultValue", QStringLiteral("150000"));
                check("chkRequiredField");
                typeIn("txtAddNew", QStringLiteral("123456"));
                Click(Find<QPushButton>("cmdAddNew"));
                tabs->setCurrentIndex(1);
                typeIn("txtMinValue", QStringLiteral("100000"));
                typeIn("txtMaxValue", QStringLiteral("999999"));
                check("chkMustBePositive");
            } },
        { "CustomerCode", vldString,
            [&] {
                tabs->setCurrentIndex(2);
                typeIn("txtCustomMask", QStringLiteral("[A-Z][A-Z]-####"));
                check("chkMustBeUpperCase");
            } },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        qt::QuillmarEdit* field = AddControl(row.name);
        ++clock.seconds;
        Open({ field });
        tabs->setCurrentIndex(0);
        Find<QComboBox>("cboMustBeType")->setCurrentIndex(row.type);
        Click(frame.ApplyButton());
        ++clock.seconds;
        frame.SetSelectedControls({ field }); // the pages now offer what the type offers
        row.ownPages();
        tabs->setCurrentIndex(3);
        auto* actions = Find<QListWidget>("lstActions");
        QTest::mouseClick(
            actions->viewport(), Qt::LeftButton, {}, actions->visualItemRect(actions->item(0)).center());
        Click(Find<QPushButton>("cmdDown"));
        QTest::keyClick(actions, Qt::Key_Space); // the moved action is switched off
        check("optWeak");
        check("chkBeeping");
        tabs->setCurrentIndex(4);
        check("optCustom");
        typeIn("txtErrorMessage", QStringLiteral("Please check this entry."));
        check("optIcon3");
        Click(frame.OkButton());
        ASSERT_FALSE(frame.isVisible()) << "the pages refused";
        EXPECT_TRUE(alerts.messages.empty());

        standalone::MemoryPropertyStore saved;
        field->control().WriteProperties(saved);
        qt::QuillmarEdit* loaded = AddControl(row.name);
        loaded->control().ReadProperties(saved);
        standalone::MemoryPropertyStore again;
        loaded->control().WriteProperties(again);
        EXPECT_EQ(saved, again);
        const Quillmar& c = loaded->control();
        EXPECT_EQ(c.MustBeType(), row.type);
        EXPECT_EQ(c.Actions(), (VariantArray { Variant(), 9, 32, 17 }));
        EXPECT_EQ(c.InputSifting(), vldWeak);
        EXPECT_FALSE(c.Beeping());
        EXPECT_EQ(c.ErrorMessageMode(), vldCustom);
        EXPECT_EQ(c.ErrorMessage(), u"Please check this entry.");
        EXPECT_EQ(c.MessageBoxIcon(), vldMBIInformation);
        if (row.type == vldLong) {
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
