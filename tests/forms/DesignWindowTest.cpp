#include "apps/forms/DesignWindow.h"
#include "apps/forms/FieldNames.h"
#include "host/standalone/StandaloneHost.h"
#include "support/QtApplication.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>

namespace quillmar::forms {
namespace {

using qt::QuillmarEdit;

// A second passes at each reading, so the pages load whenever the designer selects.
class TickingClock final : public pages::Clock {
public:
    [[nodiscard]] int SecondsOfDay() const override { return ++m_seconds % 86400; }

private:
    mutable int m_seconds = 36000;
};

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A designer with its boxes recorded (each answered with `answer`), its file names given by the test and
// its pages' alerts recorded.
class DesignMode : public ::testing::Test {
protected:
    static void SetUpTestSuite() { support::StartQtApplication("forms_tests"); }

    std::unique_ptr<DesignWindow> Open(const QString& path = {}) {
        auto window = std::make_unique<DesignWindow>();
        window->SetLocaleName(QStringLiteral("en_US"));
        window->SetPageServices(alerts, clock);
        window->SetMessageHandler([this](QMessageBox::Icon, const QString& title, const QString& text,
                                      QMessageBox::StandardButtons) {
            boxes << title + QLatin1Char('|') + text;
            return answer;
        });
        window->SetFileNameHandler([this](bool) { return savePath; });
        if (!path.isEmpty()) window->OpenForm(path);
        window->show();
        QApplication::setActiveWindow(window.get());
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        return window;
    }

    DesignSurface* Surface() { return window->Surface(); }
    QuillmarEdit* Field(const char* name) {
        return Surface()->findChild<QuillmarEdit*>(QString::fromLatin1(name));
    }
    QRect GeometryOf(const char* name) { return Surface()->GeometryOf(Surface()->IdOf(Field(name))); }
    QPoint CentreOf(const char* name) { return GeometryOf(name).center(); }
    void Click(const char* name, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(Surface(), Qt::LeftButton, modifiers, CentreOf(name));
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QApplication::processEvents();
    }
    // Types over a box, finishing with Return in the side panel's boxes (in a page, Return would press OK).
    void TypeInto(QLineEdit* box, const QString& text, bool finish = true) {
        QTest::mouseClick(box, Qt::LeftButton);
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, text);
        if (finish) QTest::keyClick(box, Qt::Key_Return);
        QApplication::processEvents();
    }
    void Drag(const char* name, QPoint by) { DragFrom(CentreOf(name), by); }
    void DragFrom(QPoint from, QPoint by) {
        QTest::mousePress(Surface(), Qt::LeftButton, {}, from);
        for (const QPoint& at : { from + by / 2, from + by }) {
            QTest::mouseMove(Surface(), at);
            QApplication::processEvents();
        }
        QTest::mouseRelease(Surface(), Qt::LeftButton, {}, from + by);
        QApplication::processEvents();
    }
    QStringList Names() { return Surface()->Names(); }
    void FocusSurface() {
        QApplication::setActiveWindow(window.get());
        Surface()->setFocus();
        QApplication::processEvents();
    }

    QTemporaryDir folder;
    QString savePath = folder.filePath(QStringLiteral("orders.qform.json"));
    standalone::RecordingAlerts alerts;
    TickingClock clock;
    QStringList boxes;
    QMessageBox::StandardButton answer = QMessageBox::Cancel;
    std::unique_ptr<DesignWindow> window = Open();
};

TEST_F(DesignMode, DesignsAFormThatReopensAsDesigned) {
    // Three fields: the toolbox's tool and a click on the form, the Insert menu's key, the menu item.
    auto* toolbox = window->findChild<QToolBar*>(QStringLiteral("Toolbox"));
    QTest::mouseClick(toolbox->widgetForAction(window->Actions().placeTool), Qt::LeftButton);
    QTest::mouseClick(Surface(), Qt::LeftButton, {}, QPoint(200, 40));
    Key(Qt::Key_I, Qt::ControlModifier);
    window->Actions().placeField->trigger();
    ASSERT_EQ(Names(), (QStringList { "Quillmar1", "Quillmar2", "Quillmar3" }));
    EXPECT_EQ(GeometryOf("Quillmar1").topLeft(), QPoint(200, 40));
    for (const char* name : { "Quillmar1", "Quillmar2", "Quillmar3" }) {
        EXPECT_FALSE(Field(name)->UserMode());
        // Initialised, not loaded, and careful: no text, and no action puts a guess in place of what is
        // typed.
        EXPECT_EQ(Field(name)->Text(), QString());
        EXPECT_EQ(Field(name)->control().Actions(),
            (VariantArray { Variant(), int32_t { vldACInsertClosest }, int32_t { vldACReturnPrevious },
                int32_t { vldACInsertDefault } }));
        EXPECT_EQ(
            Field(name)->MessageBoxTitle(), QStringLiteral("Invalid Entry: ") + QString::fromLatin1(name));
    }

    // Rename, relabel (the message title follows the label) and give a tool tip; a taken name is refused.
    Click("Quillmar2");
    TypeInto(window->Panel()->NameBox(), QStringLiteral("Quantity"));
    TypeInto(window->Panel()->LabelBox(), QStringLiteral("How many"));
    TypeInto(window->Panel()->ToolTipBox(), QStringLiteral("Pieces ordered"));
    EXPECT_EQ(Field("Quantity")->MessageBoxTitle(), QStringLiteral("Invalid Entry: How many"));
    Click("Quillmar3");
    const int steps = window->UndoStack()->count();
    TypeInto(window->Panel()->NameBox(), QStringLiteral("quantity"));
    EXPECT_EQ(boxes,
        QStringList { "Field Name|\"quantity\" cannot name this field. Another field of this form "
                      "is already named \"quantity\"." });
    EXPECT_EQ(Names(), (QStringList { "Quillmar1", "Quantity", "Quillmar3" }));
    EXPECT_EQ(window->Panel()->NameBox()->text(), QStringLiteral("Quillmar3"));
    EXPECT_EQ(window->UndoStack()->count(), steps);

    // Two fields selected, their pages opened with Ctrl+P: a type and limits, one Apply, one undo step.
    Click("Quantity");
    Click("Quillmar3", Qt::ControlModifier);
    EXPECT_EQ(Surface()->Selection().size(), 2);
    Key(Qt::Key_P, Qt::ControlModifier);
    pages::PropertyPageFrame* frame = window->PropertyFrame();
    ASSERT_NE(frame, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame));
    auto* type = frame->findChild<QComboBox*>(QStringLiteral("cboMustBeType"));
    type->setFocus();
    QTest::keyClicks(type, QStringLiteral("I"));
    QTest::mouseClick(frame->ApplyButton(), Qt::LeftButton);
    // The limits of the type just applied, and OK: a second step.
    frame->findChild<QTabWidget*>()->setCurrentIndex(1);
    for (const auto& [name, text] : { std::pair { "txtMinValue", "1" }, std::pair { "txtMaxValue", "500" } })
        TypeInto(frame->findChild<QuillmarEdit*>(QString::fromLatin1(name))->lineEdit(), text, false);
    QTest::mouseClick(frame->OkButton(), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(window->PropertyFrame(), nullptr);
    EXPECT_EQ(alerts.messages.size(), 0u);
    EXPECT_EQ(window->UndoStack()->count(), steps + 2);
    for (const char* name : { "Quantity", "Quillmar3" }) {
        EXPECT_EQ(Field(name)->MustBeType(), vldInteger) << name;
        EXPECT_EQ(Field(name)->MaxValue(), QVariant(500.0)) << name;
    }
    EXPECT_TRUE(window->isWindowModified());
    FocusSurface();
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Field("Quillmar3")->MustBeType(), vldInteger);
    EXPECT_EQ(Field("Quantity")->MaxValue(), QVariant(QString()));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Field("Quillmar3")->MustBeType(), vldUnspecified);
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Field("Quillmar3")->MustBeType(), vldInteger);
    EXPECT_EQ(Field("Quantity")->MinValue(), QVariant(1.0));

    // A drag moves both selected fields and is one step; two arrow keys are one more.
    const QRect quantity = GeometryOf("Quantity");
    Drag("Quantity", QPoint(40, 16));
    EXPECT_EQ(GeometryOf("Quantity"), quantity.translated(40, 16));
    Key(Qt::Key_Right);
    Key(Qt::Key_Right);
    EXPECT_EQ(GeometryOf("Quantity"), quantity.translated(42, 16));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(GeometryOf("Quantity"), quantity.translated(40, 16));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(GeometryOf("Quantity"), quantity);
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);

    // The handle at the right of a lone selected field widens it; the form's corner grip resizes the form,
    // never so far as to hide a field. Each is one step.
    Click("Quantity");
    const QRect moved = GeometryOf("Quantity");
    DragFrom(QPoint(moved.right(), moved.center().y()), QPoint(24, 0));
    EXPECT_EQ(GeometryOf("Quantity").width(), moved.width() + 24);
    const QSize form = Surface()->size();
    QTest::mouseMove(Surface(), QPoint(form.width() - 2, form.height() - 2));
    EXPECT_EQ(Surface()->cursor().shape(), Qt::SizeFDiagCursor);
    DragFrom(QPoint(form.width() - 2, form.height() - 2), QPoint(60, -form.height()));
    QRect extent;
    for (int id : Surface()->Ids())
        extent |= Surface()->GeometryOf(id);
    EXPECT_EQ(Surface()->size(), QSize(form.width() + 60, extent.bottom() + 1));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Surface()->size(), form);
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);

    // The tab order changes with the panel's button.
    Click("Quillmar3");
    QTest::mouseClick(window->Panel()->EarlierButton(), Qt::LeftButton);
    EXPECT_EQ(Names(), (QStringList { "Quillmar1", "Quillmar3", "Quantity" }));

    // Saved and opened again: the same form, field for field and property for property, byte for byte.
    FocusSurface();
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(window->isWindowModified());
    const FormDocument designed = window->Document();
    auto reopened = Open(savePath);
    EXPECT_EQ(reopened->Document(), designed);
    EXPECT_EQ(designed.controls[2].label, u"How many");
    EXPECT_EQ(designed.controls[2].toolTip, u"Pieces ordered");
    EXPECT_EQ(designed.controls[2].left, quantity.left() + 40);
    EXPECT_EQ(QSize(designed.width, designed.height), Surface()->size());
    const QString again = folder.filePath(QStringLiteral("again.qform.json"));
    ASSERT_TRUE(reopened->SaveTo(again));
    EXPECT_EQ(Bytes(again), Bytes(savePath));
}

TEST_F(DesignMode, AModifiedFormAsksBeforeClosing) {
    window->PlaceField();
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_TRUE(window->windowTitle().contains(QStringLiteral("[*]")));
    EXPECT_FALSE(window->close()); // answered Cancel
    EXPECT_EQ(boxes, QStringList { "Unsaved Changes|Save the changes to the new form?" });
    FocusSurface();
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(window->isWindowModified()); // undone to the form as it was
    window->PlaceField();
    answer = QMessageBox::Discard;
    EXPECT_TRUE(window->close());
}

TEST_F(DesignMode, F5RunsTheFormBeingDesignedWithItsHints) {
    // A form not saved yet stores its records in the user's data folder.
    const std::optional<QByteArray> dataHome
        = qEnvironmentVariableIsSet("XDG_DATA_HOME") ? std::optional(qgetenv("XDG_DATA_HOME")) : std::nullopt;
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    window->PlaceField();
    // The form's hints: one undo step each, carried into run mode and into the saved form.
    QTest::mouseClick(window->Panel()->RefusalTipsBox(), Qt::LeftButton);
    EXPECT_EQ(window->UndoStack()->undoText(), QStringLiteral("Change Form Hints"));
    EXPECT_TRUE(window->Document().showRefusalTips);
    EXPECT_FALSE(window->Document().showInlineState);
    FocusSurface();
    Key(Qt::Key_F5);
    ASSERT_NE(window->RunWindow(), nullptr);
    ASSERT_EQ(window->RunWindow()->Fields().size(), 1u);
    const qt::QuillmarEdit* running = window->RunWindow()->Fields()[0];
    EXPECT_TRUE(running->UserMode());
    EXPECT_EQ(running->Text(), QString());
    EXPECT_EQ(window->RunWindow()->StatusBar()->currentMessage(),
        "Records go to " + folder.filePath("quillmar/new-form.sqlite") + " \u00b7 Form: the new form");
    EXPECT_TRUE(QFileInfo(folder.filePath("quillmar")).isDir());
    EXPECT_TRUE(boxes.isEmpty());
    dataHome ? qputenv("XDG_DATA_HOME", *dataHome) : qunsetenv("XDG_DATA_HOME");
    EXPECT_TRUE(running->ShowRefusalTips());
    EXPECT_FALSE(running->ShowInlineState());
    EXPECT_FALSE(window->Surface()->isEnabled());
    window->Design();
    QApplication::processEvents();
    EXPECT_EQ(window->RunWindow(), nullptr);
    EXPECT_TRUE(window->Surface()->isEnabled());
    window->UndoStack()->undo();
    EXPECT_FALSE(window->Panel()->RefusalTipsBox()->isChecked());
    EXPECT_FALSE(window->Document().showRefusalTips);
}

TEST_F(DesignMode, AFailedSaveKeepsTheOldFile) {
    window->PlaceField();
    ASSERT_TRUE(window->SaveTo(savePath));
    const QByteArray old = Bytes(savePath);
    window->PlaceField();
    // The rename fails: the temporary file is taken away between writing and renaming.
    window->SetBeforeCommitHook(
        [](const std::filesystem::path& temporary) { std::filesystem::remove(temporary); });
    EXPECT_FALSE(window->SaveTo(savePath));
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].startsWith(QStringLiteral("Save Form|") + QDir::toNativeSeparators(savePath)
        + QStringLiteral(" cannot be saved: ")))
        << boxes[0].toStdString();
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(Bytes(savePath), old);
    // The program stops once the whole new text is in the temporary file in the folder; the temporary file
    // does not stay behind.
    const qint64 size = qint64(FormToJson(window->Document()).size());
    window->SetBeforeCommitHook([&](const std::filesystem::path& temporary) {
        EXPECT_EQ(QFileInfo(QString::fromStdString(temporary.string())).size(), size);
        EXPECT_EQ(Bytes(savePath), old);
        throw std::runtime_error("interrupted");
    });
    EXPECT_THROW((void)window->SaveTo(savePath), std::runtime_error);
    EXPECT_EQ(Bytes(savePath), old);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList { "orders.qform.json" });
}

TEST_F(DesignMode, TheExampleFormSavesByteForByte) {
    const QString example = QStringLiteral(QUILLMAR_EXAMPLES_DIR "/orders.qform.json");
    ASSERT_TRUE(window->OpenForm(example));
    EXPECT_EQ(Names().size(), 14);
    ASSERT_TRUE(window->SaveTo(savePath));
    EXPECT_EQ(Bytes(savePath), Bytes(example));
}

TEST_F(DesignMode, ABrokenFormIsNotShown) {
    window->PlaceField();
    QFile file(savePath);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        R"({"title": "T", "width": 100, "height": 100, "controls": [{"name": "Qty", "label": "", "left": 0,
        "top": 0, "width": 10, "height": 10, "properties": {"MaxLength": {"type": "Long", "value": -1}}}]})");
    file.close();
    EXPECT_FALSE(window->OpenForm(savePath));
    EXPECT_EQ(boxes,
        QStringList { "Open Form|The form cannot be opened:\n" + QDir::toNativeSeparators(savePath)
            + ": control \"Qty\", entry \"MaxLength\": expected 0 or more, got -1" });
    EXPECT_EQ(Names(), QStringList { "Quillmar1" });
    EXPECT_TRUE(window->Path().isEmpty());
}

// Copied fields paste as new fields beside their originals, under names of their own, as one step each;
// cut ones come back where they were; what the clipboard holds is checked as a form file is.
TEST_F(DesignMode, CopiedFieldsPasteBesideTheirOriginals) {
    ASSERT_TRUE(window->OpenForm(QStringLiteral(QUILLMAR_EXAMPLES_DIR "/orders.qform.json")));
    const QRect quantity = GeometryOf("Quantity");
    Click("Quantity");
    Click("Discount", Qt::ControlModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    const int steps = window->UndoStack()->count();
    Key(Qt::Key_V, Qt::ControlModifier);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Names().mid(14), (QStringList { "Quantity2", "Discount2", "Quantity3", "Discount3" }));
    EXPECT_EQ(GeometryOf("Quantity2"), quantity.translated(16, 16));
    EXPECT_EQ(GeometryOf("Quantity3"), quantity.translated(32, 32));
    EXPECT_EQ(Surface()->Selection(),
        (QList<int> { Surface()->IdOf(Field("Quantity3")), Surface()->IdOf(Field("Discount3")) }));
    EXPECT_EQ(Field("Discount3")->MaxValue(), Field("Discount")->MaxValue());
    EXPECT_EQ(Field("Quantity3")->MessageBoxTitle(), Field("Quantity")->MessageBoxTitle());
    EXPECT_EQ(window->UndoStack()->count(), steps + 2);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Names().size(), 16);

    Click("Quantity");
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Field("Quantity"), nullptr);
    EXPECT_EQ(window->UndoStack()->undoText(), QStringLiteral("Cut Field"));
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(GeometryOf("Quantity"), quantity);
    EXPECT_EQ(Names().last(), QStringLiteral("Quantity"));

    auto* data = new QMimeData;
    data->setData(QStringLiteral("application/x-quillmar-fields+json"), R"({"title": "", "width": 1})");
    QApplication::clipboard()->setMimeData(data);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(boxes,
        QStringList { "Paste|The fields on the clipboard cannot be pasted:\nclipboard: missing field "
                      "\"height\"" });
    EXPECT_EQ(Names().size(), 16);
}

// The Format menu lines the selected fields up with the one clicked last (or else the first in tab order),
// each command one step; a field made as wide as a wider one is cut at the form's edge. A dragged field's
// edge meets the same edge of a field nearby.
TEST_F(DesignMode, SelectedFieldsLineUpWithTheOneClickedLast) {
    ASSERT_TRUE(window->OpenForm(QStringLiteral(QUILLMAR_EXAMPLES_DIR "/orders.qform.json")));
    const QRect quantity = GeometryOf("Quantity");
    const QRect price = GeometryOf("UnitPrice");
    // A wide field in a row of its own below the others.
    Surface()->SetFormSize(Surface()->size() + QSize(0, 40));
    Surface()->SetGeometryOf(Surface()->IdOf(Field("Discount")), QRect(120, 262, 460, 21));
    Click("UnitPrice");
    Click("Quantity", Qt::ControlModifier);
    Click("Discount", Qt::ControlModifier);
    EXPECT_EQ(Surface()->Primary(), Surface()->IdOf(Field("Discount")));
    Click("Discount", Qt::ControlModifier);
    EXPECT_EQ(Surface()->Primary(), Surface()->IdOf(Field("Quantity")));
    window->Actions().alignTops->trigger();
    EXPECT_EQ(GeometryOf("UnitPrice"), price.translated(0, quantity.top() - price.top()));
    EXPECT_EQ(GeometryOf("Quantity"), quantity);
    EXPECT_EQ(window->UndoStack()->undoText(), QStringLiteral("Align Tops"));
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(GeometryOf("UnitPrice"), price);

    // A field dragged to 3 pixels from the left column's edge meets it, with a guide while dragged; with Alt
    // it stays where it is dropped.
    const QRect weight = GeometryOf("Weight");
    for (const bool alt : { false, true }) {
        const QPoint from = CentreOf("Weight");
        const QPoint to = from + QPoint(quantity.left() + 3 - weight.left(), 0);
        QTest::mousePress(Surface(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, Surface()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
            alt ? Qt::AltModifier : Qt::NoModifier);
        QApplication::sendEvent(Surface(), &move);
        EXPECT_EQ(GeometryOf("Weight").left(), quantity.left() + (alt ? 3 : 0));
        EXPECT_EQ(
            Surface()->Guides().contains(QLine(quantity.left(), 0, quantity.left(), Surface()->height() - 1)),
            !alt);
        QTest::mouseRelease(Surface(), Qt::LeftButton, {}, to);
        EXPECT_TRUE(Surface()->Guides().isEmpty());
        Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(GeometryOf("Weight"), weight);
    }

    Click("UnitPrice");
    Click("Discount", Qt::ControlModifier);
    window->Actions().sameWidth->trigger();
    EXPECT_EQ(GeometryOf("UnitPrice"),
        QRect(price.topLeft(), QSize(Surface()->width() - price.left(), price.height())));
}

TEST(FieldNames, NewNamesAreFreeAndNamesAreRefusedWhenEmptyOrTaken) {
    EXPECT_EQ(NextFieldName({}), QStringLiteral("Quillmar1"));
    for (const auto& [name, copy] : { std::pair { "Qty", "Qty" }, std::pair { "QUANTITY", "QUANTITY3" },
             std::pair { "Quillmar7", "Quillmar2" }, std::pair { "42", "Quillmar2" } })
        EXPECT_EQ(CopyName(QString::fromLatin1(name), { "quantity", "quantity2", "42", "quillmar7" }),
            QString::fromLatin1(copy));
    EXPECT_EQ(NextFieldName({ "Quillmar1", "QUILLMAR2", "Quillmar4" }), QStringLiteral("Quillmar3"));
    const std::pair<const char*, bool> rows[]
        = { { "", false }, { "  ", false }, { "qty", false }, { "Qty2", true }, { "Qu\u00c4ntity", true } };
    for (const auto& [name, accepted] : rows)
        EXPECT_EQ(FieldNameProblem(QString::fromUtf8(name), { "Qty", "qu\u00e4ntity" }).isEmpty(), accepted)
            << name;
}

} // namespace
} // namespace quillmar::forms
