#pragma once

#include <QObject>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionFactory>

class QAction;

namespace quillmar::qt {
class QuillmarEdit;
}

namespace quillmar::designer {

/// The task menu of a field on a form: "Edit Validation Rules...", also the field's double-click action. It
/// opens the property-page frame, in design mode, on the selected fields (the field itself first), and
/// writes back each field whose rules or other designable properties the pages changed through the form
/// window's cursor, as one undoable step that the form saves. Outside a form window it writes the fields
/// directly.
class QuillmarTaskMenu : public QObject, public QDesignerTaskMenuExtension {
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)
public:
    QuillmarTaskMenu(qt::QuillmarEdit* field, QObject* parent);

    [[nodiscard]] QAction* preferredEditAction() const override { return m_edit; }
    [[nodiscard]] QList<QAction*> taskActions() const override { return { m_edit }; }

private:
    void EditRules();

    qt::QuillmarEdit* m_field;
    QAction* m_edit;
};

/// Makes the task menu for a `QuillmarEdit`, and nothing for any other object.
class QuillmarTaskMenuFactory : public QExtensionFactory {
    Q_OBJECT
public:
    explicit QuillmarTaskMenuFactory(QExtensionManager* parent = nullptr)
        : QExtensionFactory(parent) { }

protected:
    QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override;
};

} // namespace quillmar::designer
