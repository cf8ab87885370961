#include "designer/QuillmarDesignerPlugin.h"

#include "designer/QuillmarTaskMenu.h"
#include "qt/QuillmarEdit.h"

#include <QPainter>
#include <QPixmap>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QExtensionManager>

namespace quillmar::designer {
namespace {

// A single-line box with a caret and a check mark: an entry field that checks what is typed.
QIcon DrawIcon() {
    QIcon icon;
    for (const int size : { 16, 22, 32 }) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 32.0, size / 32.0);
        painter.setPen(QPen(QColor(0x50, 0x50, 0x50), 2));
        painter.setBrush(Qt::white);
        painter.drawRoundedRect(QRectF(2, 7, 28, 18), 3, 3);
        painter.setPen(QPen(Qt::black, 2));
        painter.drawLine(QPointF(7, 11), QPointF(7, 21));
        painter.setPen(QPen(QColor(0x2e, 0x9d, 0x3a), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF check[] = { { 13, 16 }, { 17.5, 20.5 }, { 26, 11 } };
        painter.drawPolyline(check, 3);
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

QuillmarEditPlugin::QuillmarEditPlugin(QObject* parent)
    : QObject(parent) { }

QString QuillmarEditPlugin::name() const {
    return QStringLiteral("quillmar::qt::QuillmarEdit");
}

QString QuillmarEditPlugin::group() const {
    return QStringLiteral("Quillmar");
}

QString QuillmarEditPlugin::toolTip() const {
    return tr("Validated single-line entry field");
}

QString QuillmarEditPlugin::whatsThis() const {
    return tr("A single-line entry field that sifts keystrokes and validates its text against declared "
              "rules: type, limits, mask, forbidden values. Edit the rules with \"Edit Validation Rules...\" "
              "on its context menu or by double-clicking it.");
}

QString QuillmarEditPlugin::includeFile() const {
    return QStringLiteral("quillmar/qt/QuillmarEdit.h");
}

QIcon QuillmarEditPlugin::icon() const {
    return DrawIcon();
}

QWidget* QuillmarEditPlugin::createWidget(QWidget* parent) {
    auto* field = new qt::QuillmarEdit(parent);
    field->SetUserMode(false);
    return field;
}

void QuillmarEditPlugin::initialize(QDesignerFormEditorInterface* core) {
    if (m_initialized) return;
    QExtensionManager* manager = core->extensionManager();
    manager->registerExtensions(new QuillmarTaskMenuFactory(manager), Q_TYPEID(QDesignerTaskMenuExtension));
    m_initialized = true;
}

// The new field is as wide as a short entry and as high as its edit box wants.
QString QuillmarEditPlugin::domXml() const {
    const qt::QuillmarEdit probe;
    return QStringLiteral(R"(<ui language="c++" displayname="QuillmarEdit">
 <widget class="quillmar::qt::QuillmarEdit" name="quillmarEdit">
  <property name="geometry"><rect><x>0</x><y>0</y><width>160</width><height>%1</height></rect></property>
 </widget>
 <customwidgets>
  <customwidget>
   <class>quillmar::qt::QuillmarEdit</class>
   <extends>QWidget</extends>
   <header location="global">quillmar/qt/QuillmarEdit.h</header>
  </customwidget>
 </customwidgets>
</ui>
)")
        .arg(probe.sizeHint().height());
}

QuillmarWidgets::QuillmarWidgets(QObject* parent)
    : QObject(parent) {
    m_widgets.append(new QuillmarEditPlugin(this));
}

} // namespace quillmar::designer
