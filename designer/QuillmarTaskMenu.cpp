#include "designer/QuillmarTaskMenu.h"

#include "pages/FieldPages.h"
#include "pages/PropertyPageFrame.h"
#include "qt/QuillmarEdit.h"

#include <QAction>
#include <QMetaProperty>
#include <QPointer>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include <vector>

namespace quillmar::designer {
namespace {

using qt::QuillmarEdit;

// One designable property of a field that the pages changed.
struct Change {
    QPointer<QuillmarEdit> field;
    QByteArray name;
    QVariant before;
    QVariant after;
};

// The field's own properties that Designer shows, `rules` first: the other ones (the text) are then
// written under the new rules.
std::vector<QMetaProperty> DesignableProperties() {
    const QMetaObject& meta = QuillmarEdit::staticMetaObject;
    std::vector<QMetaProperty> properties { meta.property(meta.indexOfProperty("rules")) };
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        if (const QMetaProperty p = meta.property(i);
            p.isDesignable() && p.isWritable() && qstrcmp(p.name(), "rules") != 0)
            properties.push_back(p);
    return properties;
}

QList<QuillmarEdit*> SelectedFields(QuillmarEdit* field, QDesignerFormWindowInterface* form) {
    QList<QuillmarEdit*> fields { field };
    if (!form) return fields;
    QDesignerFormWindowCursorInterface* cursor = form->cursor();
    for (int i = 0; i < cursor->selectedWidgetCount(); ++i)
        if (auto* selected = qobject_cast<QuillmarEdit*>(cursor->selectedWidget(i));
            selected && selected != field)
            fields.append(selected);
    return fields;
}

} // namespace

QuillmarTaskMenu::QuillmarTaskMenu(QuillmarEdit* field, QObject* parent)
    : QObject(parent)
    , m_field(field)
    , m_edit(new QAction(tr("Edit Validation Rules..."), this)) {
    connect(m_edit, &QAction::triggered, this, &QuillmarTaskMenu::EditRules);
}

void QuillmarTaskMenu::EditRules() {
    QDesignerFormWindowInterface* form = QDesignerFormWindowInterface::findFormWindow(m_field);
    const QList<QuillmarEdit*> fields = SelectedFields(m_field, form);
    const std::vector<QMetaProperty> properties = DesignableProperties();
    std::vector<Change> changes;
    std::vector<bool> userModes;
    for (QuillmarEdit* field : fields) {
        userModes.push_back(field->UserMode());
        field->SetUserMode(false);
        for (const QMetaProperty& p : properties)
            changes.push_back({ field, p.name(), p.read(field), {} });
    }

    {
        pages::PropertyPageFrame frame(form ? form->core()->topLevel() : m_field->window());
        pages::AddFieldPages(frame);
        frame.SetSelectedControls(fields);
        frame.exec();
    }

    for (qsizetype i = 0; i < fields.size(); ++i)
        if (fields[i]) fields[i]->SetUserMode(userModes[static_cast<size_t>(i)]);
    std::erase_if(changes, [](Change& change) {
        if (!change.field) return true;
        change.after = change.field->property(change.name);
        return change.after == change.before;
    });
    if (changes.empty()) return;
    if (!form) return;
    // The pages wrote the fields directly; they go back to what they held so that each new value is an
    // undoable step of the form, recorded against the value it replaces.
    for (const Change& change : changes)
        change.field->setProperty(change.name, change.before);
    form->beginCommand(tr("Edit validation rules"));
    for (const Change& change : changes)
        form->cursor()->setWidgetProperty(change.field, QString::fromLatin1(change.name), change.after);
    form->endCommand();
}

QObject* QuillmarTaskMenuFactory::createExtension(
    QObject* object, const QString& iid, QObject* parent) const {
    auto* field = qobject_cast<QuillmarEdit*>(object);
    if (!field || iid != Q_TYPEID(QDesignerTaskMenuExtension)) return nullptr;
    return new QuillmarTaskMenu(field, parent);
}

} // namespace quillmar::designer
