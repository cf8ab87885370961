#include "support/QtApplication.h"
#include "ui_OrderForm.h"

#include <quillmar/qt/QuillmarEdit.h>

#include <QFile>
#include <QLineEdit>
#include <QTest>
#include <QUiLoader>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <map>
#include <memory>

// The committed form, made with Designer, used the two ways a Qt program uses a form: loaded at run time
// by QUiLoader (which makes the fields through the installed Designer plugin) and compiled by uic. The
// checks reach the fields through the meta-object system, so that both ways run the same checks.
// Failures show texts as text.
void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace quillmar {
namespace {

// The form's fields: name, then each property's text as the file writes it (an enumerator without its
// scope, a Boolean as "true").
using FileProperties = std::map<QString, std::map<QString, QString>>;

FileProperties FieldsOfFile() {
    QFile file(QStringLiteral(QUILLMAR_ORDER_FORM));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QXmlStreamReader xml(&file);
    FileProperties fields;
    QString field, property;
    while (xml.readNextStartElement() || !xml.atEnd()) {
        if (!xml.isStartElement()) continue;
        const auto name = xml.name();
        if (name == QLatin1String("widget")) {
            const bool ours = xml.attributes().value("class") == QLatin1String("quillmar::qt::QuillmarEdit");
            field = ours ? xml.attributes().value("name").toString() : QString();
            if (ours) fields[field];
        } else if (name == QLatin1String("property")) {
            property = xml.attributes().value("name").toString();
        } else if (!field.isEmpty() && !property.isEmpty()
            && (name == QLatin1String("string") || name == QLatin1String("number")
                || name == QLatin1String("bool") || name == QLatin1String("enum"))) {
            const bool isEnum = name == QLatin1String("enum");
            const QString text = xml.readElementText();
            fields[field][property] = isEnum ? text.section(QStringLiteral("::"), -1) : text;
            property.clear();
        }
    }
    return fields;
}

int CheckInput(QObject* field, const QString& text) {
    field->setProperty("Text", text);
    int broken = -1;
    QMetaObject::invokeMethod(field, "CheckInput", Q_RETURN_ARG(int, broken));
    return broken;
}

// The file's properties, then the rules at work: sifting of typed keys and the checks of each field.
void ExpectTheFormOfTheFile(QWidget& form) {
    const FileProperties file = FieldsOfFile();
    ASSERT_EQ(file.size(), 3u);
    for (const auto& [name, properties] : file) {
        QObject* field = form.findChild<QObject*>(name);
        ASSERT_NE(field, nullptr) << name.toStdString();
        EXPECT_STREQ(field->metaObject()->className(), "quillmar::qt::QuillmarEdit");
        // The plugin and this program share libquillmar-qt, so the plugin's field is this program's class; a
        // static build gives the plugin a copy of its own.
        if (QUILLMAR_SHARED_LIBS) {
            EXPECT_NE(qobject_cast<qt::QuillmarEdit*>(field), nullptr) << name.toStdString();
        }
        ASSERT_TRUE(properties.contains(QStringLiteral("rules")));
        for (const auto& [property, text] : properties)
            EXPECT_EQ(field->property(property.toLatin1()).toString(), text)
                << name.toStdString() << "." << property.toStdString();
    }

    QObject* quantity = form.findChild<QObject*>(QStringLiteral("quantity"));
    auto* edit = quantity->findChild<QLineEdit*>();
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("1x3"));
    EXPECT_EQ(quantity->property("Text").toString(), QStringLiteral("13")) << "strong sifting refuses the x";
    const struct {
        const char* field;
        const char* text;
        int broken;
    } rows[] = {
        { "quantity", "250", 0 },
        { "quantity", "13", vldCCMustNotBeValues },
        { "customerCode", "AB-1234", 0 },
        { "customerCode", "A1-1234", vldCCCustomMask },
        { "orderDate", "6/15/2024", 0 },
        { "orderDate", "6/15/2023", vldCCMinValue },
    };
    for (const auto& [name, text, broken] : rows) {
        SCOPED_TRACE(std::string(name) + " " + text);
        const int found
            = CheckInput(form.findChild<QObject*>(QString::fromLatin1(name)), QString::fromLatin1(text));
        EXPECT_EQ(found & (broken ? broken : ~0), broken) << found; // the rule broken, or none
    }
}

class UiForm : public ::testing::Test {
protected:
    static void SetUpTestSuite() { support::StartQtApplication("designer_tests", "en_US.UTF-8"); }
};

TEST_F(UiForm, QUiLoaderMakesTheFileFieldsThroughThePlugin) {
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(QStringLiteral(QUILLMAR_DESIGNER_PLUGIN_DIR));
    ASSERT_TRUE(loader.availableWidgets().contains(QStringLiteral("quillmar::qt::QuillmarEdit")));
    QFile file(QStringLiteral(QUILLMAR_ORDER_FORM));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    std::unique_ptr<QWidget> form(loader.load(&file));
    ASSERT_NE(form, nullptr) << loader.errorString().toStdString();
    ExpectTheFormOfTheFile(*form);
}

TEST_F(UiForm, UicCompiledFormHoldsTheFileFields) {
    QWidget form;
    Ui::OrderForm ui;
    ui.setupUi(&form);
    ExpectTheFormOfTheFile(form);
    // A compiled field is the program's own class.
    EXPECT_EQ(ui.quantity->MustBeType(), vldInteger);
}

} // namespace
} // namespace quillmar
