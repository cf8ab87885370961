#pragma once

#include "base/Enums.h"
#include "host/standalone/StandaloneHost.h"
#include "pages/PropertyPageFrame.h"
#include "qt/QuillmarEdit.h"
#include "support/QtApplication.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace quillmar::pages {

using standalone::ShownMessage;

/// A clock the test sets.
class ManualClock final : public Clock {
public:
    [[nodiscard]] int SecondsOfDay() const override { return seconds; }
    int seconds = 10 * 3600;
};

/// A form being designed, with fields as a designer holds them (design mode, en_US), and the property-page
/// frame over it whose beeps, message boxes and questions are recorded (questions answered from
/// `alerts.answers`). Each test adds the pages it drives with `Add`.
class PageTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { support::StartQtApplication("pages_tests"); }

    PageTest() { frame.SetLocaleName(QStringLiteral("en_US")); }

    /// Adds a page to the frame.
    template <typename Page> Page* Add(Page* page) {
        frame.AddPage(page);
        return page;
    }

    /// A new field on the form, initialised as a newly placed one and held in design mode.
    qt::QuillmarEdit* AddControl(const char* name) {
        auto* field = new qt::QuillmarEdit(&form);
        field->setObjectName(QString::fromLatin1(name));
        field->SetLocaleName(QStringLiteral("en_US"));
        field->SetUserMode(false);
        field->control().InitProperties();
        formLayout->addWidget(field);
        return field;
    }

    /// Shows the frame as the active window on the selected fields. A second passes first, so every opening
    /// loads the pages rather than beeping as a second load within one second does.
    void Open(const QList<qt::QuillmarEdit*>& selected) {
        ++clock.seconds;
        frame.SetSelectedControls(selected);
        frame.show();
        QApplication::setActiveWindow(&frame);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    }

    /// A control of the frame by its name; a misspelt name fails the test rather than crashing the program.
    template <typename Widget> Widget* Find(const char* name) {
        auto* widget = frame.findChild<Widget*>(QString::fromLatin1(name));
        if (!widget) throw std::runtime_error(std::string("no control named ") + name);
        return widget;
    }

    /// Clicks the focus into an embedded field, selects its text and types over it; events then settle.
    void TypeInto(qt::QuillmarEdit* field, const QString& text) {
        QTest::mouseClick(field->lineEdit(), Qt::LeftButton);
        QTest::keyClick(field->lineEdit(), Qt::Key_A, Qt::ControlModifier);
        if (text.isEmpty())
            QTest::keyClick(field->lineEdit(), Qt::Key_Delete);
        else
            QTest::keyClicks(field->lineEdit(), text);
        QApplication::processEvents();
    }

    /// Picks a type in the type list, the focus on the list first as a hand leaves it.
    void ChooseType(int32_t type) {
        auto* list = Find<QComboBox>("cboMustBeType");
        list->setFocus();
        QApplication::processEvents();
        list->setCurrentIndex(type);
    }

    /// Clicks a button as a hand does: pressed, events settle (a field left for the button validates), then
    /// released. A check box or option button is clicked on its indicator, which a wide one may not have at
    /// its centre.
    void Click(QAbstractButton* button) {
        const bool indicator = button->inherits("QCheckBox") || button->inherits("QRadioButton");
        const QPoint at = indicator ? QPoint(6, button->height() / 2) : button->rect().center();
        QTest::mousePress(button, Qt::LeftButton, {}, at);
        QApplication::processEvents();
        QTest::mouseRelease(button, Qt::LeftButton, {}, at);
        QApplication::processEvents();
    }

    /// Logs the fields' property notices as "field:Property" in `notices`, of the named properties only when
    /// `only` names any.
    void Log(const QList<qt::QuillmarEdit*>& fields, const QStringList& only = {}) {
        for (qt::QuillmarEdit* field : fields)
            QObject::connect(
                field, &qt::QuillmarEdit::PropertyChanged, field, [=, this](const QString& name) {
                    if (only.isEmpty() || only.contains(name)) notices << field->objectName() + ":" + name;
                });
    }

    QStringList notices;
    standalone::RecordingAlerts alerts;
    ManualClock clock;
    QWidget form;
    QVBoxLayout* formLayout = new QVBoxLayout(&form);
    PropertyPageFrame frame { alerts, clock };
};

} // namespace quillmar::pages
