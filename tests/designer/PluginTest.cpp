#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPluginLoader>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include "support/QtApplication.h"

#include <gtest/gtest.h>

#include <memory>

// The plugin is loaded as Designer loads it, and its field is reached as Designer reaches it: through the
// meta-object system only.
namespace quillmar {
namespace {

class DesignerPlugin : public ::testing::Test {
protected:
    static void SetUpTestSuite() { support::StartQtApplication("designer_tests", "en_US.UTF-8"); }

    QDesignerCustomWidgetInterface* Field() {
        auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(loader.instance());
        if (!collection) return nullptr;
        for (QDesignerCustomWidgetInterface* widget : collection->customWidgets())
            if (widget->name() == QLatin1String("quillmar::qt::QuillmarEdit")) return widget;
        return nullptr;
    }

    QPluginLoader loader { QStringLiteral(QUILLMAR_DESIGNER_PLUGIN) };
};

TEST_F(DesignerPlugin, WidgetBoxEntryDescribesTheField) {
    QDesignerCustomWidgetInterface* entry = Field();
    ASSERT_NE(entry, nullptr) << loader.errorString().toStdString();
    EXPECT_EQ(entry->group(), QStringLiteral("Quillmar"));
    EXPECT_EQ(entry->includeFile(), QStringLiteral("quillmar/qt/QuillmarEdit.h"));
    EXPECT_FALSE(entry->isContainer());
    EXPECT_FALSE(entry->icon().isNull());
    const QString xml = entry->domXml();
    EXPECT_TRUE(
        xml.contains(QStringLiteral(R"(<widget class="quillmar::qt::QuillmarEdit" name="quillmarEdit">)")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<width>160</width>")));
    // uic writes #include <quillmar/qt/QuillmarEdit.h>, the installed header.
    EXPECT_TRUE(
        xml.contains(QStringLiteral(R"(<header location="global">quillmar/qt/QuillmarEdit.h</header>)")));
}

TEST_F(DesignerPlugin, CreatedFieldIsInDesignModeAndItsTaskMenuOpensThePages) {
    QDesignerCustomWidgetInterface* entry = Field();
    ASSERT_NE(entry, nullptr) << loader.errorString().toStdString();
    // Designer's core as the plugin sees it: what matters is its extension manager.
    struct Core : QDesignerFormEditorInterface {
        Core() { setExtensionManager(new QExtensionManager(this)); }
    } core;
    entry->initialize(&core);
    ASSERT_TRUE(entry->isInitialized());
    QWidget form;
    QWidget* field = entry->createWidget(&form);
    ASSERT_NE(field, nullptr);
    EXPECT_STREQ(field->metaObject()->className(), "quillmar::qt::QuillmarEdit");
    EXPECT_EQ(field->parentWidget(), &form);
    // The forbidden values can be written only while the form is designed.
    const QVariantList forbidden { {}, QStringLiteral("13") };
    EXPECT_NO_THROW(field->setProperty("MustNotBeValues", forbidden));
    EXPECT_EQ(field->property("MustNotBeValues").toList(), forbidden);
    field->setProperty("MustBeType", QStringLiteral("vldInteger"));
    QLineEdit other;
    EXPECT_EQ(qt_extension<QDesignerTaskMenuExtension*>(core.extensionManager(), &other), nullptr);
    auto* menu = qt_extension<QDesignerTaskMenuExtension*>(core.extensionManager(), field);
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->taskActions().size(), 1);
    EXPECT_EQ(menu->taskActions().front(), menu->preferredEditAction());
    EXPECT_EQ(menu->preferredEditAction()->text(), QStringLiteral("Edit Validation Rules..."));

    // The frame is modal: it is answered from the event loop it runs. The General page shows the field's
    // type; choosing Double and Apply writes it to the field (here outside a form window, directly), and the
    // pages load again at once: the number page offers the scientific format, and takes its check.
    QString frameClass;
    int pages = 0;
    int shownType = -1;
    bool offered = false;
    bool changed = false;
    QTimer::singleShot(0, [&] {
        QWidget* frame = QApplication::activeModalWidget();
        if (!frame) return;
        frameClass = QString::fromLatin1(frame->metaObject()->className());
        pages = frame->findChild<QTabWidget*>()->count();
        auto* type = frame->findChild<QComboBox*>(QStringLiteral("cboMustBeType"));
        shownType = type->currentIndex();
        type->setCurrentIndex(6);
        auto* buttons = frame->findChild<QDialogButtonBox*>();
        buttons->button(QDialogButtonBox::Apply)->click();
        auto* scientific = frame->findChild<QCheckBox*>(QStringLiteral("chkAllowScientificFormat"));
        offered = scientific->isEnabled();
        scientific->click();
        changed = buttons->button(QDialogButtonBox::Apply)->isEnabled();
        buttons->button(QDialogButtonBox::Ok)->click();
    });
    menu->preferredEditAction()->trigger();
    EXPECT_EQ(frameClass, QStringLiteral("quillmar::pages::PropertyPageFrame"));
    EXPECT_EQ(pages, 5);
    EXPECT_EQ(shownType, 3);
    EXPECT_TRUE(offered);
    EXPECT_TRUE(changed);
    EXPECT_EQ(field->property("MustBeType").toString(), QStringLiteral("vldDouble"));
    EXPECT_TRUE(field->property("AllowScientificFormat").toBool());
}

} // namespace
} // namespace quillmar
