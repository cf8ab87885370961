// The example form, its Submit summary, a field's message box, a page's refusal and the standard buttons
// with the German translation installed: the product's texts in German, the author's as written.
#include "apps/forms/FormWindow.h"
#include "host/standalone/Recorders.h"
#include "i18n/QuillmarTranslations.h"
#include "pages/NumDTPage.h"
#include "pages/PropertyPageFrame.h"
#include "support/QtApplication.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace quillmar::forms {
namespace {

using qt::QuillmarEdit;

class German : public ::testing::Test {
protected:
    static void SetUpTestSuite() { support::StartQtApplication("forms_tests"); }

    void SetUp() override {
        ASSERT_GE(InstallTranslations(QLocale(QStringLiteral("de_DE"))), 3); // the control, pages, forms
        ASSERT_TRUE(InstallQtTranslation(QLocale(QStringLiteral("de_DE"))));
    }
    void TearDown() override {
        window.reset();
        InstallTranslations(QLocale(QLocale::English));
        InstallQtTranslation(QLocale(QLocale::English));
    }

    void ShowExample() {
        const FormResult form = LoadFormFile(QUILLMAR_EXAMPLES_DIR "/orders.qform.json");
        ASSERT_TRUE(form.document) << form.error;
        window = std::make_unique<FormWindow>(
            *form.document, QString(), folder.filePath(QStringLiteral("o.sqlite")));
        ASSERT_EQ(window->Load("orders.qform.json"), std::nullopt);
        window->SetLocaleName(QStringLiteral("de_DE"));
        window->SetMessageHandler([this](FormWindow::MessageKind, const QString& title, const QString& text) {
            boxes << title + QLatin1Char('|') + text;
            return false;
        });
        window->SetFieldSetup([this](QuillmarEdit& field) {
            field.SetBeepHandler([] {});
            field.SetMessageBoxHandler([this](const QString& text, const QString& title, int) {
                boxes << title + QLatin1Char('|') + text;
            });
        });
        window->show();
        QApplication::setActiveWindow(window.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    void Click(const char* name) {
        QTest::mouseClick(
            window->findChild<QuillmarEdit*>(QString::fromLatin1(name))->lineEdit(), Qt::LeftButton);
        QApplication::processEvents();
    }

    QTemporaryDir folder;
    std::unique_ptr<FormWindow> window;
    QStringList boxes;
};

TEST_F(German, TheFormItsFieldsAndItsBoxesSpeakGerman) {
    ShowExample();
    EXPECT_EQ(window->SubmitButton()->text(), QStringLiteral("&Absenden"));
    // A required field left empty: the composed message and the initial title in German.
    Click("CustomerName");
    Click("Quantity");
    QTest::qWait(50);
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes[0], QStringLiteral("Ungültige Eingabe|Dieses Feld muss ausgefüllt werden."));

    // Submit: the summary in German; the author's labels and own message stay as written.
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Ann Lee"));
    Click("OrderNumber");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("123"));
    Click("Quantity");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("0"));
    boxes.clear();
    QTest::mouseClick(window->SubmitButton(), Qt::LeftButton);
    QApplication::processEvents();
    ASSERT_FALSE(boxes.isEmpty());
    EXPECT_EQ(boxes.last(),
        QStringLiteral(
            "Datensatz nicht gespeichert|Der Datensatz wurde nicht gespeichert. Bitte korrigieren Sie diese "
            "4 Felder:\n\n"
            "\u2022 Customer code: A customer code is two letters, a hyphen and four digits, such as "
            "AB-1234.\n"
            "\u2022 Order number: An order number has six digits, such as 012345.\n"
            "\u2022 Order date: Dieses Feld muss ausgefüllt werden.\n"
            "\u2022 Unit price: Dieses Feld muss ausgefüllt werden."));
}

// The frame's standard buttons, a page's refusal and Qt's question buttons.
TEST_F(German, ThePagesAndTheStandardButtonsSpeakGerman) {
    standalone::RecordingAlerts alerts;
    const pages::SystemClock clock;
    QWidget form;
    pages::PropertyPageFrame frame(alerts, clock);
    frame.SetLocaleName(QStringLiteral("de_DE"));
    frame.AddPage(new pages::NumDTPage(frame.Services()));
    auto* field = new QuillmarEdit(&form);
    field->setObjectName(QStringLiteral("Quantity"));
    field->SetUserMode(false);
    field->control().InitProperties();
    field->SetMustBeType(vldInteger);
    frame.SetSelectedControls({ field });
    frame.show();
    QApplication::setActiveWindow(&frame);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&frame));
    EXPECT_EQ(frame.CancelButton()->text(), QStringLiteral("Abbrechen"));
    EXPECT_EQ(frame.windowTitle(), QStringLiteral("Eigenschaften von Quantity"));
    for (const auto& [name, text] : { std::pair { "txtMinValue", "6" }, std::pair { "txtMaxValue", "5" } }) {
        auto* limit = frame.findChild<QuillmarEdit*>(QString::fromLatin1(name));
        ASSERT_TRUE(limit);
        QTest::mouseClick(limit->lineEdit(), Qt::LeftButton);
        QTest::keyClicks(limit->lineEdit(), QString::fromLatin1(text));
        QApplication::processEvents();
    }
    QTest::mouseClick(frame.ApplyButton(), Qt::LeftButton);
    QApplication::processEvents();
    ASSERT_EQ(alerts.messages.size(), 1u);
    EXPECT_EQ(alerts.messages[0].text, u"MaxValue muss größer oder gleich MinValue sein.");
    EXPECT_EQ(alerts.messages[0].title, u"Eigenschaftsseite: MinValue/MaxValue");

    const std::unique_ptr<QMessageBox> box(FormWindow::MakeMessageBox(
        nullptr, FormWindow::MessageKind::Question, QStringLiteral("t"), QStringLiteral("x")));
    EXPECT_EQ(box->button(QMessageBox::Yes)->text(), QStringLiteral("&Ja"));
    EXPECT_EQ(box->button(QMessageBox::No)->text(), QStringLiteral("&Nein"));
}

} // namespace
} // namespace quillmar::forms
