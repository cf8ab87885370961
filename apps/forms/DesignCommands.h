#pragma once

#include "apps/forms/DesignSurface.h"
#include "apps/forms/FieldPanel.h"

#include <QUndoCommand>

#include <functional>
#include <vector>

namespace quillmar::forms {

/// Places or pastes fields (redo adds them, undo removes them), or deletes or cuts them (the reverse). Fields
/// come back with their numbers, places in the tab order, names, labels, tool tips, geometry and properties.
/// A command made for fields already on the surface does nothing on its first redo.
class FieldsCommand : public QUndoCommand {
public:
    enum class Kind { Place, Paste, Delete, Cut };
    FieldsCommand(DesignSurface& surface, Kind kind, std::vector<PlacedField> fields, bool alreadyDone);
    void redo() override;
    void undo() override;

private:
    [[nodiscard]] bool Adds() const { return m_kind == Kind::Place || m_kind == Kind::Paste; }
    void Add();
    void Remove();

    DesignSurface& m_surface;
    Kind m_kind;
    std::vector<PlacedField> m_fields;
    bool m_skipRedo;
};

/// Moves or resizes fields; each arrow-key step of the same fields joins the step before it.
class GeometryCommand : public QUndoCommand {
public:
    /// `text` names the step; by default "Move" or "Resize", as the sizes say.
    GeometryCommand(DesignSurface& surface, QList<int> ids, QList<QRect> before, QList<QRect> after,
        bool byKey, const QString& text = {});
    void redo() override;
    void undo() override;
    [[nodiscard]] int id() const override { return 1; }
    bool mergeWith(const QUndoCommand* other) override;

private:
    DesignSurface& m_surface;
    QList<int> m_ids;
    QList<QRect> m_before;
    QList<QRect> m_after;
    bool m_byKey;
};

/// Changes a field's name, label or tool tip. A label change also retitles the field's error message when
/// the title still is the one made from the old label ("Invalid Entry: " and the label).
class FieldTextCommand : public QUndoCommand {
public:
    enum class Which { Name, Label, ToolTip };
    FieldTextCommand(DesignSurface& surface, int id, Which which, QString before, QString after);
    void redo() override { Apply(m_before, m_after); }
    void undo() override { Apply(m_after, m_before); }

private:
    void Apply(const QString& from, const QString& to);

    DesignSurface& m_surface;
    int m_id;
    Which m_which;
    QString m_before;
    QString m_after;
};

/// One Apply of the property pages: each field's properties as its control wrote them before and after,
/// loaded back into it on undo and redo. The first redo does nothing (the pages wrote the fields).
class PropertiesCommand : public QUndoCommand {
public:
    struct Change {
        int id;
        quillmar::MemoryPropertyStore before;
        quillmar::MemoryPropertyStore after;
    };
    PropertiesCommand(DesignSurface& surface, std::vector<Change> changes);
    void redo() override;
    void undo() override;

private:
    void Load(bool after);

    DesignSurface& m_surface;
    std::vector<Change> m_changes;
    bool m_skipRedo = true;
};

/// Changes the tab order (the order of the fields in the file).
class TabOrderCommand : public QUndoCommand {
public:
    TabOrderCommand(DesignSurface& surface, QList<int> before, QList<int> after);
    void redo() override { m_surface.SetOrder(m_after); }
    void undo() override { m_surface.SetOrder(m_before); }

private:
    DesignSurface& m_surface;
    QList<int> m_before;
    QList<int> m_after;
};

/// Resizes the form.
class FormSizeCommand : public QUndoCommand {
public:
    FormSizeCommand(DesignSurface& surface, QSize before, QSize after);
    void redo() override { m_surface.SetFormSize(m_after); }
    void undo() override { m_surface.SetFormSize(m_before); }

private:
    DesignSurface& m_surface;
    QSize m_before;
    QSize m_after;
};

/// Changes the form's title or hints; `apply` sets them.
class FormSettingsCommand : public QUndoCommand {
public:
    FormSettingsCommand(
        std::function<void(const FormSettings&)> apply, FormSettings before, FormSettings after);
    void redo() override { m_apply(m_after); }
    void undo() override { m_apply(m_before); }

private:
    std::function<void(const FormSettings&)> m_apply;
    FormSettings m_before;
    FormSettings m_after;
};

} // namespace quillmar::forms
