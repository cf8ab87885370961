#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace quillmar::designer {

/// `QuillmarEdit` in Qt Designer's widget box: group "Quillmar", a drawn icon, a default size of one line
/// of text, and the task menu "Edit Validation Rules..." registered when Designer initialises the plugin.
/// The fields it creates are in design mode.
class QuillmarEditPlugin : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)
public:
    explicit QuillmarEditPlugin(QObject* parent = nullptr);

    [[nodiscard]] QString name() const override;
    [[nodiscard]] QString group() const override;
    [[nodiscard]] QString toolTip() const override;
    [[nodiscard]] QString whatsThis() const override;
    [[nodiscard]] QString includeFile() const override;
    [[nodiscard]] QIcon icon() const override;
    [[nodiscard]] bool isContainer() const override { return false; }
    QWidget* createWidget(QWidget* parent) override;
    [[nodiscard]] bool isInitialized() const override { return m_initialized; }
    void initialize(QDesignerFormEditorInterface* core) override;
    [[nodiscard]] QString domXml() const override;

private:
    bool m_initialized = false;
};

/// The plugin Designer loads: the collection of Quillmar's widgets.
class QuillmarWidgets : public QObject, public QDesignerCustomWidgetCollectionInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)
public:
    explicit QuillmarWidgets(QObject* parent = nullptr);
    [[nodiscard]] QList<QDesignerCustomWidgetInterface*> customWidgets() const override { return m_widgets; }

private:
    QList<QDesignerCustomWidgetInterface*> m_widgets;
};

} // namespace quillmar::designer
