#include "qt/QuillmarEdit.h"
#include "host/standalone/StandaloneHost.h"
#include "qt/QtConversions.h"
#include "qt/QtForm.h"

#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QDialog>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

namespace quillmar::qt {
namespace {

TEST_F(Form, StrongSiftingRestoresAPaste) {
    QuillmarEdit* quantity = AddField("Quantity", vldInteger, vldStrong);
    int changes = 0;
    QObject::connect(quantity, &QuillmarEdit::Change, [&] { ++changes; });
    ShowAndFocus(quantity);
    QTest::keyClicks(quantity->lineEdit(), QStringLiteral("12"));
    changes = 0;
    QApplication::clipboard()->setText(QStringLiteral("-")); // a number's beginning, yet not after the 12
    QTest::keyClick(quantity->lineEdit(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(quantity->Text(), QStringLiteral("12"));
    EXPECT_EQ(changes, 2); // the pasted text, then the restored one
    EXPECT_EQ(beeps, 1);
}

// A paste or drop into a number, date or time field reads as typed there before it is sifted, in the Qt field
// and in the in-memory box alike; what still breaks the rules is refused whole; a text field takes it as it
// is.
TEST_F(Form, PastesReadAsTypedInBothEditBoxes) {
    struct Row {
        const char* name;
        const char* locale;
        int32_t type;
        bool dropped;
        const char16_t* pasted;
        const char16_t* expected;
        ThousandSeparatorConstants grouping = vldTSAllowed;
    };
    const Row rows[] = {
        { "grouped by a narrow no-break space", "de_DE", vldDouble, false, u"1\u202F234,5", u"1.234,5" },
        { "dollar and a line break", "en_US", vldCurrency, false, u"$12.50\r\n", u"12.50" },
        { "euro after the number", "de_DE", vldCurrency, false, u"12,50\u00A0\u20AC", u"12,50" },
        { "full-width digits dropped before the 7", "en_US", vldInteger, true, u"\uFF11\uFF12\uFF13",
            u"1237" },
        { "only spaces", "en_US", vldInteger, false, u" \u3000 ", u"7" },
        { "a text field takes it as it is", "en_US", vldString, false, u" \u22125 ", u" \u22125 " },
        // Read in en_US, "1 234,50" would be 123450: it is refused, whether the groups would stay or go.
        { "a foreign decimal comma", "en_US", vldCurrency, false, u"1 234,50", u"7" },
        { "a foreign decimal comma dropped", "en_US", vldCurrency, true, u"1 234,50", u"7" },
        { "a foreign decimal comma, no grouping", "en_US", vldCurrency, false, u"1 234,50", u"7",
            vldTSForbidden },
        { "space groups, no grouping", "en_US", vldCurrency, false, u"1 234.50", u"1234.50", vldTSForbidden },
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        QuillmarEdit* field = AddField("Field", row.type, vldStrong);
        standalone::StandaloneHost host(row.locale);
        Quillmar model(host.Services());
        field->SetLocaleName(QString::fromLatin1(row.locale));
        for (Quillmar* control : { &field->control(), &model }) {
            control->SetMustBeType(row.type);
            control->SetThousandSeparator(row.grouping);
            control->SetInputSifting(vldStrong);
            control->SetOLEDropMode(2);
        }
        ShowAndFocus(field);
        QTest::keyClicks(field->lineEdit(), QStringLiteral("7"));
        field->lineEdit()->selectAll();
        host.editBox.TypeText(u"7");
        host.editBox.SelectAll();
        if (row.dropped) {
            Drop(field->lineEdit(), ToQString(row.pasted), QPoint(1, 4));
            host.editBox.DropText(0, row.pasted);
        } else {
            QApplication::clipboard()->setText(ToQString(row.pasted));
            QTest::keyClick(field->lineEdit(), Qt::Key_V, Qt::ControlModifier);
            host.editBox.Paste(row.pasted);
        }
        EXPECT_EQ(field->Text(), ToQString(row.expected));
        EXPECT_EQ(model.Text(), row.expected);
        delete field;
    }
}

// The Qt field and the in-memory edit box, given the same rules, keys, pastes, cuts and validations, end
// with the same text, selection, rule answers, beeps and messages: the same sifting, repairs and corrections,
// the same first line of a paste cut to the same room, the same refused keys, also after the program wrote a
// text longer than the limit or one holding line breaks.
TEST_F(Form, ScriptsAgreeWithTheMemoryEditBox) {
    QuillmarEdit* field = AddField("Field", vldUnspecified, vldNone);
    ShowAndFocus(field);
    standalone::StandaloneHost host("en_US");
    Quillmar model(host.Services());
    std::mt19937 random(7);
    const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    constexpr char kKeys[] = "12-.a/:, e";
    const auto text = [&](int most) {
        std::u16string made;
        for (int n = pick(most + 1); n > 0; --n)
            made.push_back(pick(8) == 0 ? u'\n' : static_cast<char16_t>(kKeys[pick(10)]));
        return made;
    };
    // Keys that need no character: each as Qt receives it and as the in-memory box is driven.
    struct Press {
        const char* name;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        std::function<void()> model;
    };
    auto& box = host.editBox;
    std::vector<Press> presses = { { "Backspace", Qt::Key_Backspace, {}, [&] { box.PressBackspace(); } },
        { "Delete", Qt::Key_Delete, {}, [&] { box.PressDelete(); } },
        { "Ctrl+X", Qt::Key_X, Qt::ControlModifier, [&] { box.CutWithKeys(); } } };
    for (const auto& [name, key, virtualKey] : { std::tuple { "Left", Qt::Key_Left, standalone::VK_LEFT },
             std::tuple { "Right", Qt::Key_Right, standalone::VK_RIGHT },
             std::tuple { "Home", Qt::Key_Home, standalone::VK_HOME },
             std::tuple { "End", Qt::Key_End, standalone::VK_END } }) {
        presses.push_back({ name, key, {}, [&box, virtualKey] { box.PressNavigation(virtualKey, 0); } });
        presses.push_back(
            { name, key, Qt::ShiftModifier, [&box, virtualKey] { box.PressNavigation(virtualKey, 1); } });
    }
    for (int round = 0; round < 1000; ++round) {
        const int32_t type = pick(10);
        const auto sifting = static_cast<InputSiftingConstants>(pick(3));
        const int limit = pick(7);
        const int rules = pick(32);
        const std::u16string start = text(8);
        const int selStart = pick(static_cast<int>(start.size()) + 1);
        const int selLength = pick(static_cast<int>(start.size()) - selStart + 1);
        for (Quillmar* control : { &field->control(), &model }) {
            control->SetMustBeType(type);
            control->SetMustBeUpperCase((rules & 1) != 0);
            control->SetMustBeNegative((rules & 2) != 0 && type != vldByte);
            control->SetMaxNumberOfDecimals((rules & 4) != 0 ? 1 : 0);
            control->SetThousandSeparator((rules & 8) != 0 ? 1 : 0);
            control->SetMaxValue((rules & 16) != 0 ? u"5" : u"");
            control->SetInputSifting(sifting);
            control->SetMaxLength(limit);
            control->SetText(start);
            control->SetSelStart(selStart);
            control->SetSelLength(selLength);
        }
        beeps = 0;
        host.alerts.beeps = 0;
        shown.clear();
        host.alerts.messages.clear();
        ::testing::Message script;
        script << "type " << type << ", rules " << rules << ", sifting " << sifting << ", limit " << limit
               << ", text " << ::testing::PrintToString(ToQString(start)) << ", selection " << selStart << "+"
               << selLength;
        for (int step = 0; step < 6; ++step) {
            switch (pick(4)) {
            case 0: {
                const char key = kKeys[pick(10)];
                script << ", key " << key;
                QTest::keyClick(field->lineEdit(), key);
                box.TypeKey(static_cast<char16_t>(key));
                break;
            }
            case 1: {
                const Press& press = presses[static_cast<size_t>(pick(static_cast<int>(presses.size())))];
                script << ", " << (press.modifiers & Qt::ShiftModifier ? "Shift+" : "") << press.name;
                QTest::keyClick(field->lineEdit(), press.key, press.modifiers);
                press.model();
                break;
            }
            case 2:
                script << ", Validate";
                EXPECT_EQ(field->control().Validate(), model.Validate());
                break;
            default: {
                const std::u16string pasted = text(5);
                const bool keys = pick(2) == 1;
                script << (keys ? ", Ctrl+V " : ", paste ") << ::testing::PrintToString(ToQString(pasted));
                QApplication::clipboard()->setText(ToQString(pasted));
                if (keys) {
                    QTest::keyClick(field->lineEdit(), Qt::Key_V, Qt::ControlModifier);
                    box.PasteWithKeys(pasted);
                } else {
                    field->lineEdit()->paste();
                    box.Paste(pasted);
                }
            }
            }
            SCOPED_TRACE(script);
            ASSERT_EQ(field->Text(), ToQString(model.Text()));
            ASSERT_EQ(field->SelStart(), model.SelStart());
            ASSERT_EQ(field->SelLength(), model.SelLength());
            ASSERT_EQ(field->CheckInput(), model.CheckInput());
            ASSERT_EQ(beeps, host.alerts.beeps);
            ASSERT_EQ(shown.size(), host.alerts.messages.size());
            if (!shown.empty()) {
                // A Qt message box breaks lines at "\n" alone.
                ASSERT_EQ(shown.back().text,
                    ToQString(host.alerts.messages.back().text)
                        .replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
            }
        }
    }
}

// Each change the field makes is undone together with the user's edit that caused it (while typing) or on its
// own (on leaving): Ctrl+Z brings back the text before it, Ctrl+Y and Ctrl+Shift+Z the text after, and each
// restored text is one Change. Keys are typed from an empty field, then the text pasted, then the field left.
TEST_F(Form, UndoAndRedoCoverTheFieldsOwnChanges) {
    const struct {
        const char* name;
        int32_t type;
        InputSiftingConstants sifting;
        std::function<void(QuillmarEdit&)> rules;
        QString typed, pasted;
        bool leave;
        QString before, after;
    } rows[] = {
        { "plain typing", vldString, vldNone, {}, "ab", "", false, "a", "ab" },
        { "case forced", vldString, vldStrong, [](QuillmarEdit& f) { f.SetMustBeUpperCase(true); }, "ab", "",
            false, "A", "AB" },
        { "trimmed", vldInteger, vldStrong, {}, "5", "3 ", false, "5", "53" },
        { "minus put in front", vldInteger, vldStrong, [](QuillmarEdit& f) { f.SetMustBeNegative(true); },
            "5", "", false, "", "-5" },
        { "refused by strong sifting", vldInteger, vldStrong, {}, "12", "-", false, "1", "12" },
        { "rewritten as understood", vldInteger, vldWeak, {}, "007", "", true, "007", "7" },
        { "corrected", vldInteger, vldWeak, [](QuillmarEdit& f) { f.SetMaxValue(100); }, "250", "", true,
            "250", "100" },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        QuillmarEdit* field = AddField("Field", row.type, row.sifting);
        QuillmarEdit* next = AddField("Next", vldString, vldNone);
        if (row.rules) row.rules(*field);
        int changes = 0;
        QObject::connect(field, &QuillmarEdit::Change, [&] { ++changes; });
        ShowAndFocus(field);
        QLineEdit* edit = field->lineEdit();
        QTest::keyClicks(edit, row.typed);
        if (!row.pasted.isEmpty()) {
            QApplication::clipboard()->setText(row.pasted);
            QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
        }
        if (row.leave) QTest::keyClick(edit, Qt::Key_Tab);
        ASSERT_TRUE(WaitFor([&] { return field->Text() == row.after; })) << field->Text().toStdString();
        edit->setFocus(Qt::OtherFocusReason);
        ASSERT_TRUE(WaitFor([&] { return edit->hasFocus(); }));
        changes = 0;
        for (const auto& [keys, text] :
            { std::pair { "Ctrl+Z", row.before }, std::pair { "Ctrl+Y", row.after },
                std::pair { "Ctrl+Z", row.before }, std::pair { "Ctrl+Shift+Z", row.after } }) {
            QTest::keySequence(edit, QKeySequence(QString::fromLatin1(keys)));
            EXPECT_EQ(field->Text(), text) << keys;
        }
        EXPECT_EQ(changes, 4);
        QTest::keyClick(edit, Qt::Key_Tab); // the restored text is valid: the field lets go
        EXPECT_TRUE(WaitFor([&] { return next->lineEdit()->hasFocus(); }));
        delete field;
        delete next;
    }
}

// The context menu's Undo and Redo work on the same history, enabled as it allows; the program's text starts
// it afresh; an undone text becomes what strong sifting restores.
TEST_F(Form, ContextMenuUndoesAndRedoes) {
    QuillmarEdit* code = AddField("Code", vldString, vldStrong);
    code->SetOnlyLetters(true);
    ShowAndFocus(code);
    QLineEdit* edit = code->lineEdit();
    const auto menu = [&](const char* name, bool choose) { return FromMenu(edit, name, choose); };
    QTest::keyClicks(edit, QStringLiteral("q"));
    code->SetText(QStringLiteral("ab"));
    EXPECT_FALSE(menu("edit-undo", false));
    QTest::keyClicks(edit, QStringLiteral("c"));
    EXPECT_FALSE(menu("edit-redo", false));
    EXPECT_TRUE(menu("edit-undo", true));
    EXPECT_EQ(code->Text(), QStringLiteral("ab"));
    EXPECT_FALSE(menu("edit-undo", false));
    EXPECT_TRUE(menu("edit-redo", true));
    EXPECT_EQ(code->Text(), QStringLiteral("abc"));
    EXPECT_TRUE(menu("edit-undo", true));
    QTest::keyClicks(edit, QStringLiteral("1"));
    EXPECT_EQ(code->Text(), QStringLiteral("ab"));
    EXPECT_EQ(beeps, 1);
}

TEST_F(Form, FormCanChangeAKeyInItsKeyPressHandler) {
    QuillmarEdit* code = AddField("Code", vldString, vldWeak);
    code->SetOnlyLetters(true);
    QObject::connect(code, &QuillmarEdit::KeyPress, [](qint16& key) {
        if (key == '1') key = 'I'; // a form that reads a typed one as the letter I
        if (key == 'x') key = 0;
    });
    ShowAndFocus(code);
    QTest::keyClicks(code->lineEdit(), QStringLiteral("A1x2"));
    EXPECT_EQ(code->Text(), QStringLiteral("AI"));
    EXPECT_EQ(beeps, 1); // only the 2
}

// Keyboards that need AltGr for "@", "€" or "{" may deliver those keys as Ctrl+Alt: they are typing, sifted
// like any key and reported without Ctrl; a real Ctrl shortcut still goes through unsifted.
TEST_F(Form, AltGrTypesWhileCtrlShortcutsStayUnsifted) {
    QuillmarEdit* quantity = AddField("Quantity", vldInteger, vldWeak);
    std::vector<int> shifts;
    QObject::connect(
        quantity, &QuillmarEdit::KeyDown, [&](qint16&, qint16& shift) { shifts.push_back(shift); });
    ShowAndFocus(quantity);
    QTest::keyClicks(quantity->lineEdit(), QStringLiteral("12"));
    shifts.clear();
    const Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;
    for (const auto& [key, text] :
        { std::pair { Qt::Key_Q, QStringLiteral("@") }, std::pair { Qt::Key_E, QStringLiteral("\u20AC") },
            std::pair { Qt::Key_7, QStringLiteral("{") } }) {
        QKeyEvent press(QEvent::KeyPress, key, altGr, text);
        QApplication::sendEvent(quantity->lineEdit(), &press);
    }
    EXPECT_EQ(quantity->Text(), QStringLiteral("12"));
    EXPECT_EQ(beeps, 3);
    EXPECT_EQ(shifts, (std::vector<int> { 4, 4, 4 })); // Alt alone
    QApplication::clipboard()->setText(QStringLiteral("34"));
    QTest::keyClick(quantity->lineEdit(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(quantity->Text(), QStringLiteral("1234"));
    EXPECT_EQ(beeps, 3);
}

TEST_F(Form, InvalidFieldLeftWithTabExplainsAndKeepsTheFocus) {
    QuillmarEdit* quantity = AddField("Quantity", vldInteger, vldWeak);
    QuillmarEdit* next = AddField("Next", vldString, vldWeak);
    quantity->SetMaxValue(QStringLiteral("100"));
    quantity->SetMessageBoxTitle(QStringLiteral("Order"));
    quantity->SetMessageBoxIcon(vldMBICritical);
    ShowAndFocus(quantity);
    QTest::keyClicks(quantity->lineEdit(), QStringLiteral("250"));
    QTest::keyClick(quantity->lineEdit(), Qt::Key_Tab);
    ASSERT_TRUE(WaitFor([&] { return shown.size() >= 1; }));
    EXPECT_EQ(shown.size(), size_t { 1 });
    EXPECT_EQ(shown[0].text, QStringLiteral("An integer <= 100 is required.\nClosest value inserted."));
    EXPECT_EQ(shown[0].title, QStringLiteral("Order"));
    EXPECT_EQ(shown[0].icon, IconStop);
    EXPECT_TRUE(WaitFor([&] { return quantity->lineEdit()->hasFocus(); }));
    EXPECT_EQ(quantity->Text(), QStringLiteral("100"));
    EXPECT_FALSE(next->lineEdit()->hasFocus());
}

TEST_F(Form, TwoInvalidFieldsDoNotBounceTheFocus) {
    QuillmarEdit* first = AddField("First", vldInteger, vldNone);
    QuillmarEdit* second = AddField("Second", vldInteger, vldNone);
    for (QuillmarEdit* field : { first, second }) {
        field->SetUserMode(false); // the lists are set while the form is designed
        field->SetRequiredField(true);
        field->SetActions({ QVariant(), 8, 16, 32 }); // no correction: both stay empty and invalid
        field->SetUserMode(true);
        field->SetMessageBoxTitle(field->objectName());
    }
    const auto titles = [&] {
        QStringList seen;
        for (const Shown& box : shown)
            seen << box.title;
        return seen;
    };
    ShowAndFocus(first);
    // The first reports and takes the focus back, each time; the second, which the focus only passed
    // through, was never left and says nothing.
    for (const auto& leave :
        { std::function<void()>([&] { QTest::keyClick(first->lineEdit(), Qt::Key_Tab); }),
            std::function<void()>([&] { QTest::mouseClick(second->lineEdit(), Qt::LeftButton); }) }) {
        leave();
        QTest::qWait(100);
    }
    EXPECT_EQ(titles(), QStringList({ "First", "First" }));
    EXPECT_TRUE(first->lineEdit()->hasFocus());
    EXPECT_EQ(Quillmar::FocusHoldWindow(), first->hwnd());
    // The form moves the focus on without the first's validation: the second, really left while the first
    // holds the user, reports its own error but lets go.
    first->SkipNextFocusExit();
    second->lineEdit()->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(second->lineEdit(), Qt::Key_Backtab);
    QTest::qWait(100);
    EXPECT_EQ(titles(), QStringList({ "First", "First", "Second" }));
    EXPECT_TRUE(first->lineEdit()->hasFocus());
    EXPECT_EQ(Quillmar::FocusHoldWindow(), 0);
}

// Return, Enter and Escape are no characters of the field: a weakly sifted number or date field lets them
// through without a beep, to the dialog's default button and to closing the dialog; the form's KeyPress
// sees them first and may cancel them.
TEST_F(Form, ReturnEnterAndEscapeReachTheDialog) {
    const std::tuple<int32_t, Qt::Key, bool, const char*> rows[] = {
        // type, key, the form cancels it, what the dialog does
        { vldInteger, Qt::Key_Return, false, "default" },
        { vldDate, Qt::Key_Return, false, "default" },
        { vldInteger, Qt::Key_Enter, false, "default" },
        { vldInteger, Qt::Key_Escape, false, "closed" },
        { vldDate, Qt::Key_Escape, false, "closed" },
        { vldDate, Qt::Key_Return, true, "nothing" },
        { vldInteger, Qt::Key_Escape, true, "nothing" },
    };
    for (const auto& [type, key, cancel, expected] : rows) {
        SCOPED_TRACE(
            testing::Message() << "type " << type << ", key " << key << (cancel ? ", cancelled" : ""));
        beeps = 0;
        QDialog dialog;
        QuillmarEdit* field = AddField("Field", type, vldWeak);
        field->setParent(&dialog);
        auto* ok = new QPushButton(QStringLiteral("OK"), &dialog);
        ok->setDefault(true);
        auto* dialogLayout = new QVBoxLayout(&dialog);
        dialogLayout->addWidget(field);
        dialogLayout->addWidget(ok);
        int clicks = 0;
        QObject::connect(ok, &QPushButton::clicked, [&] { ++clicks; });
        QStringList events;
        QObject::connect(field, &QuillmarEdit::KeyDown,
            [&](qint16& code, qint16&) { events << QStringLiteral("KeyDown %1").arg(code); });
        QObject::connect(field, &QuillmarEdit::KeyPress, [&, cancel = cancel](qint16& ascii) {
            events << QStringLiteral("KeyPress %1").arg(ascii);
            if (cancel && ascii < 32) ascii = 0;
        });
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        field->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(field->lineEdit(), QStringLiteral("12"));
        events.clear();
        QTest::keyClick(field->lineEdit(), key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        const int code = key == Qt::Key_Escape ? 27 : 13;
        EXPECT_EQ(events,
            QStringList({ QStringLiteral("KeyDown %1").arg(code), QStringLiteral("KeyPress %1").arg(code) }));
        EXPECT_EQ(beeps, 0);
        EXPECT_EQ(field->Text(), QStringLiteral("12"));
        EXPECT_EQ(clicks, std::string(expected) == "default" ? 1 : 0);
        EXPECT_EQ(dialog.isVisible(), std::string(expected) != "closed");
    }
}

} // namespace
} // namespace quillmar::qt
