// Nothing escapes translation: with a pseudo-translation installed that brackets every text of the product
// ("[Quantity]"), every text on screen is bracketed, apart from the author's own texts and the data typed.
#include "apps/forms/DesignSurface.h"
#include "apps/forms/DesignWindow.h"
#include "apps/forms/FormWindow.h"
#include "control/PropertyTable.h"
#include "pages/PropertyPageFrame.h"
#include "support/QtApplication.h"
#include "validation/Describe.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QTranslator>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace quillmar::forms {
namespace {

using qt::QuillmarEdit;

class PseudoTranslation : public ::testing::Test {
protected:
    static void SetUpTestSuite() { support::StartQtApplication("forms_tests"); }

    void SetUp() override {
        const QDir folder(QStringLiteral(QUILLMAR_PSEUDO_DIR));
        for (const QString& file : folder.entryList({ QStringLiteral("*.qm") })) {
            auto translator = std::make_unique<QTranslator>();
            ASSERT_TRUE(translator->load(folder.filePath(file))) << file.toStdString();
            QCoreApplication::installTranslator(translator.get());
            translators.push_back(std::move(translator));
        }
        ASSERT_EQ(translators.size(), 4u);
        const FormResult form = LoadFormFile(QUILLMAR_EXAMPLES_DIR "/orders.qform.json");
        ASSERT_TRUE(form.document) << form.error;
        document = *form.document;
        // The author's texts: the form's title, each field's name, label, tool tip and string properties.
        authored << qt::ToQString(document.title);
        for (const FormControl& control : document.controls) {
            authored << qt::ToQString(control.name) << qt::ToQString(control.label)
                     << qt::ToQString(control.toolTip);
            for (const PropertyEntry& entry : control.properties.Entries())
                if (entry.value.IsString()) authored << qt::ToQString(entry.value.AsString());
        }
        // The properties' own names are the system's identifiers, the same in every language.
        // What the locale and the author's mask write: the example of a mask, the AM and PM of a time.
        for (const FormControl& control : document.controls)
            if (const Variant mask = control.properties.ReadProperty(u"CustomMask", Variant());
                mask.IsString())
                authored << qt::ToQString(MaskExample(mask.AsString()));
        const LocaleInfo locale = LocaleInfo::FromName("en_US");
        authored << qt::ToQString(locale.am) << qt::ToQString(locale.pm);
        for (const StoredProperty& property : property_rows::kStoredProperties)
            authored << qt::ToQString(std::u16string(property.key));
        authored.removeAll(QString());
        std::sort(authored.begin(), authored.end(),
            [](const QString& a, const QString& b) { return a.size() > b.size(); });
    }
    void TearDown() override {
        for (const auto& translator : translators)
            QCoreApplication::removeTranslator(translator.get());
    }

    // A text with every bracketed part, author's text and typed value taken out still holds a letter: a text
    // that escaped translation.
    void ExpectTranslated(const QString& text, const QString& where) {
        QString rest = text;
        rest.remove(QLatin1Char('&'));
        for (const QString& own : authored + typed)
            rest.replace(own, QString());
        static const QRegularExpression bracketed(QStringLiteral("\\[[^\\[\\]]*\\]"));
        for (QString before; before != rest;) {
            before = rest;
            rest.remove(bracketed);
        }
        const bool letter = std::any_of(rest.begin(), rest.end(), [](QChar c) { return c.isLetter(); });
        EXPECT_FALSE(letter) << where.toStdString() << ": \"" << text.toStdString() << "\"";
        ++checked;
    }

    // Every text a person sees on the widget and its visible children.
    void Walk(QWidget* top) {
        const QString where = top->metaObject()->className();
        ExpectTranslated(top->windowTitle(), where + QStringLiteral(" title"));
        QList<QWidget*> widgets = top->findChildren<QWidget*>();
        widgets << top;
        for (QWidget* widget : widgets) {
            if (!widget->isVisible()) continue;
            const QString name = where + QLatin1Char('/') + widget->objectName();
            if (auto* label = qobject_cast<QLabel*>(widget)) ExpectTranslated(label->text(), name);
            if (auto* group = qobject_cast<QGroupBox*>(widget)) ExpectTranslated(group->title(), name);
            if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
                // Qt's own standard buttons come with Qt's translation.
                auto* box = qobject_cast<QDialogButtonBox*>(button->parentWidget());
                if (!box || box->standardButton(button) == QDialogButtonBox::NoButton)
                    ExpectTranslated(button->text(), name);
                ExpectTranslated(button->toolTip(), name + QStringLiteral(" tip"));
            }
            if (auto* edit = qobject_cast<QLineEdit*>(widget))
                ExpectTranslated(edit->placeholderText(), name);
            if (auto* combo = qobject_cast<QComboBox*>(widget))
                for (int i = 0; i < combo->count(); ++i)
                    ExpectTranslated(combo->itemText(i), name);
            if (auto* list = qobject_cast<QListWidget*>(widget))
                for (int i = 0; i < list->count(); ++i)
                    ExpectTranslated(list->item(i)->text(), name);
            if (auto* tabs = qobject_cast<QTabWidget*>(widget))
                for (int i = 0; i < tabs->count(); ++i)
                    ExpectTranslated(tabs->tabText(i), name);
            if (auto* status = qobject_cast<QStatusBar*>(widget))
                ExpectTranslated(status->currentMessage(), name);
            if (qobject_cast<QMenuBar*>(widget) || qobject_cast<QToolBar*>(widget))
                WalkActions(widget->actions(), name);
        }
    }
    void WalkActions(const QList<QAction*>& actions, const QString& where) {
        for (QAction* action : actions) {
            if (action->isSeparator()) continue;
            ExpectTranslated(action->text(), where);
            if (action->menu())
                WalkActions(action->menu()->actions(), where + QLatin1Char('/') + action->text());
        }
    }

    std::vector<std::unique_ptr<QTranslator>> translators;
    FormDocument document;
    QStringList authored;
    QStringList typed;
    int checked = 0;
};

TEST_F(PseudoTranslation, EveryTextOfTheFormThePagesAndTheBoxesIsTranslated) {
    QTemporaryDir folder;
    QStringList boxes;
    FormWindow window(
        document, QStringLiteral("orders.qform.json"), folder.filePath(QStringLiteral("o.sqlite")));
    ASSERT_EQ(window.Load("orders.qform.json"), std::nullopt);
    window.SetLocaleName(QStringLiteral("en_US"));
    window.SetMessageHandler([&](FormWindow::MessageKind, const QString& title, const QString& text) {
        boxes << title << text;
        return false;
    });
    window.SetFieldSetup([&](QuillmarEdit& field) {
        field.SetBeepHandler([] {});
        field.SetMessageBoxHandler(
            [&](const QString& text, const QString& title, int) { boxes << title << text; });
    });
    window.show();
    QApplication::setActiveWindow(&window);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Walk(&window);

    // A required field left empty shows its box; Submit sums up the fields left wrong.
    auto* name = window.findChild<QuillmarEdit*>(QStringLiteral("CustomerName"));
    auto* number = window.findChild<QuillmarEdit*>(QStringLiteral("OrderNumber"));
    QTest::mouseClick(name->lineEdit(), Qt::LeftButton);
    QTest::mouseClick(number->lineEdit(), Qt::LeftButton);
    QTest::qWait(50);
    typed << QStringLiteral("123") << QStringLiteral("Ann Lee");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Ann Lee"));
    QTest::mouseClick(number->lineEdit(), Qt::LeftButton);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("123"));
    QTest::mouseClick(window.SubmitButton(), Qt::LeftButton);
    QApplication::processEvents();
    ASSERT_GE(boxes.size(), 4);
    for (const QString& text : boxes)
        ExpectTranslated(text, QStringLiteral("message box"));

    // Design mode, and the frame with its five pages on a field.
    DesignWindow designer;
    designer.SetLocaleName(QStringLiteral("en_US"));
    designer.OpenForm(QStringLiteral(QUILLMAR_EXAMPLES_DIR "/orders.qform.json"));
    designer.show();
    QApplication::setActiveWindow(&designer);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&designer));
    designer.Surface()->Select({ designer.Surface()->IdOf(
        designer.Surface()->findChild<QuillmarEdit*>(QStringLiteral("Quantity"))) });
    Walk(&designer);
    designer.OpenProperties();
    pages::PropertyPageFrame* frame = designer.PropertyFrame();
    ASSERT_TRUE(frame && frame->isVisible());
    auto* tabs = frame->findChild<QTabWidget*>();
    ASSERT_EQ(tabs->count(), 5);
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        QApplication::processEvents();
        Walk(frame);
    }
    frame->close();
    EXPECT_GT(checked, 200);
}

} // namespace
} // namespace quillmar::forms
