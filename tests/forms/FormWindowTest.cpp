#include "apps/forms/FormWindow.h"
#include "apps/forms/FormFont.h"
#include "apps/forms/RecordStore.h"
#include "qt/QuillmarForm.h"
#include "support/QtApplication.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>

void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace quillmar::forms {
namespace {

using qt::QuillmarEdit;

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const QString kExample = QStringLiteral(QUILLMAR_EXAMPLES_DIR "/orders.qform.json");

// A whole order as a clerk types it, field by field in tab order; Reference stays empty.
const std::pair<const char*, const char*> kOrder[] = {
    { "CustomerName", "Ann Lee" },
    { "CustomerCode", "AB-1234" },
    { "OrderNumber", "012345" },
    { "OrderDate", "6/15/2024" },
    { "DeliveryTime", "10:30" },
    { "Quantity", "12" },
    { "Discount", "12.5" },
    { "UnitPrice", "1,234.50" },
    { "Weight", "2.5" },
    { "ScaleFactor", "1.5E3" },
    { "Adjustment", "-5.25" },
    { "Reference", "" },
    { "Phone", "+1 (555) 123" },
    { "Notes", "Deliver after 5" },
};

// The example form in run mode, its database in a folder of its own, every message box recorded.
class RunMode : public ::testing::Test {
protected:
    static void SetUpTestSuite() { support::StartQtApplication("forms_tests"); }

    void SetUp() override { Show(Example()); }

    static FormDocument Example() {
        const FormResult form = LoadFormFile(kExample.toStdString());
        EXPECT_TRUE(form.document) << form.error;
        return form.document.value_or(FormDocument {});
    }

    void Show(const FormDocument& document) {
        window = std::make_unique<FormWindow>(document, kExample, database);
        ASSERT_EQ(window->Load("orders.qform.json"), std::nullopt);
        window->SetLocaleName(QStringLiteral("en_US"));
        window->SetBusyTimeout(50);
        window->SetMessageHandler(Recorder());
        window->SetFieldSetup([this](QuillmarEdit& field) {
            field.SetBeepHandler([] {});
            field.SetMessageBoxHandler(
                [this](const QString& text, const QString&, int) { fieldBoxes << text; });
        });
        window->show();
        QApplication::setActiveWindow(window.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    // Records each box of the window as its title, "|" and its text, and answers No.
    FormWindow::MessageHandler Recorder() {
        return [this](FormWindow::MessageKind, const QString& title, const QString& text) {
            boxes << title + QLatin1Char('|') + text;
            return false;
        };
    }

    QuillmarEdit* Field(const char* name) {
        return window->findChild<QuillmarEdit*>(QString::fromLatin1(name));
    }

    void Click(const char* name) {
        QTest::mouseClick(Field(name)->lineEdit(), Qt::LeftButton);
        QApplication::processEvents();
    }
    void Type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text)); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QApplication::processEvents(); // a field left is validated once the focus has settled
    }
    // Types the whole order from the first field, Tab between fields (Tab selects a field's text).
    void TypeOrder() {
        Click(kOrder[0].first);
        for (const auto& [name, text] : kOrder) {
            if (name != kOrder[0].first) Key(Qt::Key_Tab);
            Type(text);
        }
    }
    QStringList Texts() {
        QStringList texts;
        for (QuillmarEdit* field : window->Fields())
            texts << field->Text();
        return texts;
    }
    // The first row a query of the database gives, through a connection of its own with the rule functions.
    QVariantList Row(const QString& sql) {
        QVariantList row;
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("reader"));
            db.setDatabaseName(database);
            QSqlQuery query(db);
            if (db.open() && AddRuleFunctions(db) && query.exec(sql) && query.next())
                for (int i = 0; i < query.record().count(); ++i)
                    row << query.value(i);
        }
        QSqlDatabase::removeDatabase(QStringLiteral("reader"));
        return row;
    }

    QTemporaryDir folder;
    QString database = folder.filePath(QStringLiteral("orders.sqlite"));
    std::unique_ptr<FormWindow> window;
    QStringList boxes, fieldBoxes;
};

TEST_F(RunMode, InvalidFieldsAreSummedUpInOneBoxAndNothingIsStored) {
    // The clerk skips the order number with the mouse and types a date before the form's range.
    Click("CustomerName");
    Type("Ann Lee");
    Key(Qt::Key_Tab);
    Type("AB-1234");
    Click("UnitPrice");
    Type("12.50");
    Click("OrderDate");
    Type("6/15/2019");
    const QStringList typed = Texts();
    int dateNotices = 0; // the field left for the first invalid one changes no property of its own
    QObject::connect(Field("OrderDate"), &QuillmarEdit::PropertyChanged, [&] { ++dateNotices; });
    Key(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes[0],
        QStringLiteral("Record not stored|The record was not stored. Please correct these 2 fields:\n\n"
                       "\u2022 Order number: An order number has six digits, such as 012345.\n"
                       "\u2022 Order date: A date between 1/1/2020 and 12/31/2099 is required."));
    EXPECT_TRUE(Field("OrderNumber")->lineEdit()->hasFocus());

    // The order number typed short, then Submit clicked: the field keeps the focus with its text selected.
    Type("12345");
    QTest::mouseClick(window->SubmitButton(), Qt::LeftButton);
    QApplication::processEvents();
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_EQ(boxes[1], boxes[0]);
    EXPECT_TRUE(Field("OrderNumber")->lineEdit()->hasFocus());
    EXPECT_EQ(Field("OrderNumber")->SelText(), QStringLiteral("12345"));
    EXPECT_EQ(dateNotices, 0);

    QStringList expected = typed;
    expected[2] = QStringLiteral("12345");
    EXPECT_EQ(Texts(), expected); // no field corrected
    EXPECT_TRUE(fieldBoxes.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(database));

    window->close(); // asks first, and No keeps what is typed
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(boxes.last().startsWith(QStringLiteral("Close the form|")));
}

// A form built in one call from the file has the window's own fields and labels; the invalid-fields helper
// lists what it holds in tab order, as Submit does.
TEST_F(RunMode, OneCallBuildsTheWindowsFieldsAndListsTheInvalidOnes) {
    QWidget form;
    form.setFont(FormAmbientFont());
    const qt::FormWidgets built = qt::LoadForm(kExample, form);
    ASSERT_EQ(built.error, std::nullopt);
    form.show(); // a field fits its height to its font once shown
    QApplication::processEvents();
    const auto labelOf = [](const QuillmarEdit* field) {
        for (const QLabel* label : field->window()->findChildren<QLabel*>())
            if (label->buddy() == field) return std::pair(label->text(), label->geometry());
        return std::pair(QString(), QRect());
    };
    ASSERT_EQ(built.fields.size(), window->Fields().size());
    for (size_t i = 0; i < built.fields.size(); ++i) {
        const QuillmarEdit* mine = built.fields[i];
        const QuillmarEdit* theirs = window->Fields()[i];
        SCOPED_TRACE(theirs->objectName().toStdString());
        EXPECT_EQ(mine->objectName(), theirs->objectName());
        EXPECT_EQ(mine->geometry(), theirs->geometry());
        EXPECT_EQ(labelOf(mine), labelOf(theirs));
        EXPECT_EQ(mine->toolTip(), theirs->toolTip());
        EXPECT_EQ(mine->font(), theirs->font());
        EXPECT_EQ(mine->lineEdit()->placeholderText(), theirs->lineEdit()->placeholderText());
        EXPECT_EQ(mine->ShowInlineState(), theirs->ShowInlineState());
    }

    const auto field
        = [&](const char* name) { return form.findChild<QuillmarEdit*>(QString::fromLatin1(name)); };
    for (const auto& [name, text] : kOrder) {
        field(name)->SetLocaleName(QStringLiteral("en_US"));
        field(name)->SetText(QString::fromLatin1(text));
    }
    EXPECT_TRUE(qt::InvalidFields(form).empty());
    field("Quantity")->SetText(QStringLiteral("0"));
    field("OrderNumber")->SetText(QStringLiteral("12345"));
    const std::vector<qt::InvalidField> invalid = qt::InvalidFields(form);
    ASSERT_EQ(invalid.size(), 2u);
    EXPECT_EQ(invalid[0].field, field("OrderNumber"));
    EXPECT_EQ(invalid[0].label, QStringLiteral("Order number"));
    EXPECT_EQ(invalid[0].message, QStringLiteral("An order number has six digits, such as 012345."));
    EXPECT_EQ(invalid[1].label, QStringLiteral("Quantity"));
    EXPECT_EQ(invalid[1].message, field("Quantity")->CurrentErrorMessage());

    QWidget none;
    const qt::FormWidgets missing = qt::LoadForm(QStringLiteral("no/such.qform.json"), none);
    EXPECT_TRUE(missing.error && missing.error->find("no/such.qform.json") != std::string::npos);
    EXPECT_TRUE(missing.fields.empty() && none.children().isEmpty());
}

TEST_F(RunMode, AStoredRecordKeepsEachValueTypedAndClearsTheForm) {
    TypeOrder();
    Key(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(boxes.isEmpty()) << boxes.join(QLatin1Char('\n')).toStdString();
    const QVariantList row = Row(QStringLiteral("SELECT CustomerName, OrderNumber, OrderDate, DeliveryTime, "
                                                "typeof(Quantity), Quantity, typeof(Discount), "
                                                "Discount, typeof(UnitPrice), UnitPrice, Weight, "
                                                "ScaleFactor, Adjustment, typeof(Reference), SubmittedAt "
                                                "FROM Orders"));
    ASSERT_EQ(row.size(), 15);
    const QVariantList expected = { QStringLiteral("Ann Lee"), QStringLiteral("012345"),
        QStringLiteral("2024-06-15"), QStringLiteral("10:30:00"), QStringLiteral("integer"), 12,
        QStringLiteral("real"), 12.5, QStringLiteral("text"), QStringLiteral("1234.5"), 2.5, 1500.0,
        QStringLiteral("-5.25"), QStringLiteral("null") };
    for (int i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(row[i].toString(), expected[i].toString());
    }
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\dZ$"))
                    .match(row[14].toString())
                    .hasMatch())
        << row[14].toString().toStdString();
    // What the form stored, read back as SQL reads it, breaks none of the form's rules.
    QStringList broken;
    for (const auto& field : kOrder)
        broken << QStringLiteral("quillmar_broken('%1', '%2', %2, 'en_US')")
                      .arg(kExample, QString::fromLatin1(field.first));
    EXPECT_EQ(
        Row(QStringLiteral("SELECT ") + broken.join(QStringLiteral(" | ")) + QStringLiteral(" FROM Orders")),
        QVariantList { 0 });

    QStringList fresh(int(std::size(kOrder)));
    fresh[5] = QStringLiteral("1");
    fresh[6] = QStringLiteral("0");
    EXPECT_EQ(Texts(), fresh);
    EXPECT_TRUE(Field("CustomerName")->lineEdit()->hasFocus());
    EXPECT_EQ(window->StatusBar()->currentMessage(),
        QStringLiteral("Record stored: %1 holds 1 record \u00b7 Form: %2").arg(database, kExample));

    TypeOrder();
    QTest::mouseClick(window->SubmitButton(), Qt::LeftButton);
    EXPECT_TRUE(window->StatusBar()->currentMessage().contains(QStringLiteral(" holds 2 records \u00b7")));
    EXPECT_TRUE(fieldBoxes.isEmpty());
}

TEST_F(RunMode, ARecordThatCannotBeStoredIsExplainedAndKeptInTheForm) {
    const struct {
        const char* name;
        const char* setUp; // run on a second connection that stays open while the clerk submits
        const char* reason;
        const char* detail;
        bool locked;
    } cases[] = {
        { "locked", "BEGIN IMMEDIATE", "another program is writing to the database (it is locked)", "",
            true },
        { "mismatched", "CREATE TABLE Orders (CustomerName TEXT, Quantity TEXT)",
            "the table Orders no longer matches this form: it has no column for CustomerCode, OrderNumber, ",
            "; its column Quantity is TEXT where the form needs INTEGER.", false },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        QFile::remove(database);
        boxes.clear();
        {
            QSqlDatabase other
                = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("other"));
            other.setDatabaseName(database);
            ASSERT_TRUE(other.open());
            ASSERT_TRUE(QSqlQuery(other).exec(QString::fromLatin1(c.setUp)));
            TypeOrder();
            const QStringList typed = Texts();
            Key(Qt::Key_Return, Qt::ControlModifier);
            ASSERT_EQ(boxes.size(), 1);
            EXPECT_TRUE(boxes[0].contains(database + QStringLiteral(":\n") + QString::fromLatin1(c.reason))
                && boxes[0].contains(QString::fromLatin1(c.detail)))
                << boxes[0].toStdString();
            EXPECT_EQ(Texts(), typed);
            QSqlQuery(other).exec(QStringLiteral("ROLLBACK"));
        }
        QSqlDatabase::removeDatabase(QStringLiteral("other"));
        if (c.locked) { // released, the same record goes in
            Key(Qt::Key_Return, Qt::ControlModifier);
            EXPECT_EQ(Row(QStringLiteral("SELECT COUNT(*), Notes FROM Orders")),
                (QVariantList { 1, QStringLiteral("Deliver after 5") }));
        } else {
            EXPECT_EQ(Row(QStringLiteral("SELECT COUNT(*) FROM Orders")), QVariantList { 0 });
        }
    }
}

// Each record has fields of its own: what a field remembered of the last record (its last valid value, which
// the previous-value action puts back) is gone in the next.
TEST_F(RunMode, ANewRecordStartsWithFreshFields) {
    // The example's customer name, with the previous-value action checked, and its notes.
    QByteArray json = Bytes(kExample);
    const QByteArray previous = R"({"action": "vldACReturnPrevious", "checked": false})";
    ASSERT_GE(json.indexOf(previous), 0);
    json.replace(
        json.indexOf(previous), previous.size(), R"({"action": "vldACReturnPrevious", "checked": true})");
    const FormResult form = ParseFormJson(json.toStdString(), "orders.qform.json");
    ASSERT_TRUE(form.document) << form.error;
    FormDocument document = *form.document;
    document.controls = { document.controls.front(), document.controls.back() };
    ASSERT_EQ(document.controls[0].name, u"CustomerName");
    Show(document);

    for (const char* name : { "Ann Lee", "Bo Chan" }) {
        SCOPED_TRACE(name);
        Click("CustomerName");
        Type(name);
        Key(Qt::Key_Tab);
        Type("Deliver after 5");
        Key(Qt::Key_Tab);
        EXPECT_TRUE(window->SubmitButton()->hasFocus());
        Key(Qt::Key_Return, Qt::ControlModifier);
        ASSERT_TRUE(boxes.isEmpty()) << boxes.join(QLatin1Char('\n')).toStdString();
        EXPECT_EQ(window->findChildren<QuillmarEdit*>().size(), 2);
        EXPECT_TRUE(Field("CustomerName")->lineEdit()->hasFocus());
        EXPECT_TRUE(fieldBoxes.isEmpty());

        Key(Qt::Key_Tab); // the required name left empty: no earlier value of this record to return to
        EXPECT_EQ(Field("CustomerName")->Text(), QString());
        EXPECT_EQ(fieldBoxes, QStringList { "This field is required." });
        EXPECT_TRUE(Field("CustomerName")->lineEdit()->hasFocus());
        fieldBoxes.clear();
    }
    EXPECT_EQ(Row(QStringLiteral("SELECT COUNT(*), MAX(CustomerName) FROM Orders")),
        (QVariantList { 2, QStringLiteral("Bo Chan") }));
}

// A form that does not read, or a database that could not take a record, is reported as the form opens,
// with the box design mode shows for a form it cannot open, and no window; nothing is created.
TEST_F(RunMode, WhatCannotBeOpenedIsReportedBeforeAnythingIsTyped) {
    const QString broken = folder.filePath(QStringLiteral("broken.qform.json"));
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"title": "T", "width": 100, "height": 100, "controls": [{"name": "Qty", "label": "",
        "left": 0, "top": 0, "width": 10, "height": 10, "properties": {"MaxLength": {"type": "Long",
        "value": -1}}}]})");
    file.close();
    const QString text = folder.filePath(QStringLiteral("notes.txt"));
    const QByteArray notesText = "Orders are written here by hand, one a line, and no database at all.\n";
    QFile notes(text);
    ASSERT_TRUE(notes.open(QIODevice::WriteOnly));
    notes.write(notesText);
    notes.close();
    const QString nowhere = folder.filePath(QStringLiteral("missing/orders.sqlite"));
    const QString fresh = folder.filePath(QStringLiteral("fresh.sqlite"));
    const struct {
        QString form;
        QString database;
        QString error; // empty: the form opens
    } rows[] = {
        { broken, fresh, broken + ": control \"Qty\", entry \"MaxLength\": expected 0 or more, got -1" },
        { kExample, text,
            "Records cannot be stored in " + text + ": the file is not a readable SQLite database" },
        { kExample, nowhere,
            "Records cannot be stored in " + nowhere + ": the folder " + folder.filePath("missing")
                + " does not exist" },
        { kExample, fresh, {} },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.database.toStdString());
        boxes.clear();
        std::string line;
        const auto opened = FormWindow::Open(
            row.form, row.database, [&line](const std::string& said) { line = said; }, Recorder());
        EXPECT_EQ(opened == nullptr, !row.error.isEmpty());
        EXPECT_EQ(QString::fromStdString(line), row.error);
        EXPECT_EQ(boxes,
            row.error.isEmpty() ? QStringList {}
                                : QStringList { "Open Form|The form cannot be opened:\n" + row.error });
        EXPECT_FALSE(QFileInfo::exists(fresh));
    }
    EXPECT_EQ(Bytes(text), notesText); // looked at, not changed
}

// Two invalid fields clicked in turn: a click out of the field that holds the clerk is a real leave of it
// and shows its own message once; the field clicked, which the focus only passed through, says nothing and
// keeps its text, and no message follows by itself.
TEST_F(RunMode, TwoInvalidFieldsClickedInTurnReportOncePerRealLeave) {
    const QString nameMessage = QStringLiteral("This field is required.");
    const QString codeMessage
        = QStringLiteral("A customer code is two letters, a hyphen and four digits, such as AB-1234.");
    Click("CustomerName"); // required, and left empty: both fields are invalid
    for (const char* name : { "CustomerCode", "CustomerName", "CustomerCode" })
        Click(name);
    QTest::qWait(100);
    EXPECT_EQ(fieldBoxes, QStringList({ nameMessage, nameMessage }));
    EXPECT_TRUE(Field("CustomerName")->lineEdit()->hasFocus());
    EXPECT_EQ(Field("CustomerCode")->Text(), QString());
    // The name typed, the clerk gets to the code; leaving it half typed is its own message.
    Type("Ann Lee");
    Click("CustomerCode");
    Type("AB");
    Click("CustomerName");
    QTest::qWait(100);
    EXPECT_EQ(fieldBoxes, QStringList({ nameMessage, nameMessage, codeMessage }));
    EXPECT_TRUE(Field("CustomerCode")->lineEdit()->hasFocus());
    EXPECT_EQ(Field("CustomerName")->Text(), QStringLiteral("Ann Lee"));
}

} // namespace
} // namespace quillmar::forms
