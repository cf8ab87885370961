#pragma once

// The form window the Qt field's tests drive: fields whose beeps and message boxes are recorded instead of
// sounded and shown, and the steps a person takes with them.
#include "qt/QtConversions.h"
#include "qt/QuillmarEdit.h"
#include "support/QtApplication.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

// Failures show texts as text, line breaks as \\n.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << QString(text).replace(u'\n', QStringLiteral("\\n")).toStdString() << '"';
}

namespace quillmar::qt {

// Lets events run until the condition holds or two seconds pass; GoogleTest asserts on the answer.
template <typename Condition> bool WaitFor(Condition condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < 2000)
        QTest::qWait(10);
    return condition();
}

struct Shown {
    QString text, title;
    int icon;
};

// A form window with fields whose beeps and message boxes are recorded instead of sounded and shown.
class Form : public ::testing::Test {
protected:
    static void SetUpTestSuite() { support::StartQtApplication("qt_tests"); }

    QuillmarEdit* AddField(const char* name, int32_t type, InputSiftingConstants sifting) {
        auto* field = new QuillmarEdit(&window);
        field->setObjectName(QString::fromLatin1(name));
        field->SetLocaleName(QStringLiteral("en_US"));
        field->SetBeepHandler([this] { ++beeps; });
        field->SetMessageBoxHandler([this](const QString& t, const QString& title, int icon) {
            shown.push_back({ t, title, icon });
        });
        field->SetMustBeType(type);
        field->SetInputSifting(sifting);
        layout->addWidget(field);
        return field;
    }

    void ShowAndFocus(QuillmarEdit* field) {
        window.show();
        window.activateWindow(); // again, after a popup menu closed
        QApplication::setActiveWindow(&window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
    }

    // Opens the edit box's context menu, tells whether the action is enabled and, if asked, chooses it.
    static bool FromMenu(QLineEdit* edit, const char* name, bool choose) {
        QContextMenuEvent open(QContextMenuEvent::Keyboard, QPoint(2, 2), edit->mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(edit, &open);
        auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        auto* action = popup ? popup->findChild<QAction*>(QString::fromLatin1(name)) : nullptr;
        const bool enabled = action && action->isEnabled();
        if (popup) popup->close(); // as a click does, before the action runs
        if (enabled && choose) action->trigger();
        return enabled;
    }

    // Drops `text` on the edit box at `at`, as a drag from another program ends.
    static void Drop(QLineEdit* edit, const QString& text, QPoint at) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(edit, &enter); // makes the edit box the drop's target
        QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(edit, &drop);
    }

    QWidget window;
    QVBoxLayout* layout = new QVBoxLayout(&window);
    int beeps = 0;
    std::vector<Shown> shown;
};

} // namespace quillmar::qt
