#include "apps/forms/DesignCommands.h"

#include "apps/forms/FieldNames.h"

#include <QCoreApplication>

#include <algorithm>

namespace quillmar::forms {
namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("DesignCommands", text);
}

QString Count(const char* one, const char* many, size_t count) {
    return count == 1 ? Tr(one) : Tr(many).arg(count);
}

} // namespace

FieldsCommand::FieldsCommand(
    DesignSurface& surface, Kind kind, std::vector<PlacedField> fields, bool alreadyDone)
    : m_surface(surface)
    , m_kind(kind)
    , m_fields(std::move(fields))
    , m_skipRedo(alreadyDone) {
    // Fields come back in tab order, each at its own place.
    std::sort(
        m_fields.begin(), m_fields.end(), [](const auto& a, const auto& b) { return a.index < b.index; });
    const auto count = m_fields.size();
    switch (kind) {
    case Kind::Place:
        setText(Count("Place Field", "Place %1 Fields", count));
        break;
    case Kind::Paste:
        setText(Count("Paste Field", "Paste %1 Fields", count));
        break;
    case Kind::Cut:
        setText(Count("Cut Field", "Cut %1 Fields", count));
        break;
    case Kind::Delete:
        setText(Count("Delete Field", "Delete %1 Fields", count));
        break;
    }
}

void FieldsCommand::Add() {
    QList<int> ids;
    for (const PlacedField& placed : m_fields) {
        (void)m_surface.InsertField(placed);
        ids << placed.id;
    }
    m_surface.Select(ids);
}

void FieldsCommand::Remove() {
    for (const PlacedField& placed : m_fields)
        m_surface.RemoveField(placed.id);
}

void FieldsCommand::redo() {
    if (std::exchange(m_skipRedo, false)) return;
    if (Adds())
        Add();
    else
        Remove();
}

void FieldsCommand::undo() {
    if (Adds())
        Remove();
    else
        Add();
}

GeometryCommand::GeometryCommand(DesignSurface& surface, QList<int> ids, QList<QRect> before,
    QList<QRect> after, bool byKey, const QString& text)
    : m_surface(surface)
    , m_ids(std::move(ids))
    , m_before(std::move(before))
    , m_after(std::move(after))
    , m_byKey(byKey) {
    const bool resized = std::any_of(m_before.begin(), m_before.end(),
        [this, i = 0](const QRect& r) mutable { return r.size() != m_after[i++].size(); });
    setText(!text.isEmpty() ? text : resized ? Tr("Resize") : Tr("Move"));
}

void GeometryCommand::redo() {
    for (int i = 0; i < m_ids.size(); ++i)
        m_surface.SetGeometryOf(m_ids[i], m_after[i]);
}

void GeometryCommand::undo() {
    for (int i = 0; i < m_ids.size(); ++i)
        m_surface.SetGeometryOf(m_ids[i], m_before[i]);
}

bool GeometryCommand::mergeWith(const QUndoCommand* other) {
    const auto* next = static_cast<const GeometryCommand*>(other);
    // Only a step that starts where this one ended joins it: a key held down, not a second drag.
    if (!m_byKey || !next->m_byKey || next->m_ids != m_ids || next->m_before != m_after
        || next->text() != text())
        return false;
    for (int i = 0; i < m_ids.size(); ++i)
        if ((next->m_after[i].topLeft() - m_after[i].topLeft()).manhattanLength()
                + std::abs(next->m_after[i].width() - m_after[i].width())
                + std::abs(next->m_after[i].height() - m_after[i].height())
            > 1)
            return false;
    m_after = next->m_after;
    return true;
}

FieldTextCommand::FieldTextCommand(DesignSurface& surface, int id, Which which, QString before, QString after)
    : m_surface(surface)
    , m_id(id)
    , m_which(which)
    , m_before(std::move(before))
    , m_after(std::move(after)) {
    setText(which == Which::Name    ? Tr("Rename Field")
            : which == Which::Label ? Tr("Change Label")
                                    : Tr("Change Tool Tip"));
}

void FieldTextCommand::Apply(const QString& from, const QString& to) {
    switch (m_which) {
    case Which::Name:
        return m_surface.SetName(m_id, to);
    case Which::ToolTip:
        return m_surface.SetToolTip(m_id, to);
    case Which::Label:
        m_surface.SetLabel(m_id, to);
        if (qt::QuillmarEdit* field = m_surface.Field(m_id);
            field && field->MessageBoxTitle() == MessageTitleFor(from))
            m_surface.Quietly([field, &to] { field->SetMessageBoxTitle(MessageTitleFor(to)); });
        return;
    }
}

PropertiesCommand::PropertiesCommand(DesignSurface& surface, std::vector<Change> changes)
    : m_surface(surface)
    , m_changes(std::move(changes)) {
    setText(Tr("Change Properties"));
}

void PropertiesCommand::Load(bool after) {
    for (const Change& change : m_changes)
        if (qt::QuillmarEdit* field = m_surface.Field(change.id))
            m_surface.Quietly([&] { field->control().ReadProperties(after ? change.after : change.before); });
}

void PropertiesCommand::redo() {
    if (!std::exchange(m_skipRedo, false)) Load(true);
}

void PropertiesCommand::undo() {
    Load(false);
}

TabOrderCommand::TabOrderCommand(DesignSurface& surface, QList<int> before, QList<int> after)
    : m_surface(surface)
    , m_before(std::move(before))
    , m_after(std::move(after)) {
    setText(Tr("Change Tab Order"));
}

FormSizeCommand::FormSizeCommand(DesignSurface& surface, QSize before, QSize after)
    : m_surface(surface)
    , m_before(before)
    , m_after(after) {
    setText(Tr("Resize Form"));
}

FormSettingsCommand::FormSettingsCommand(
    std::function<void(const FormSettings&)> apply, FormSettings before, FormSettings after)
    : m_apply(std::move(apply))
    , m_before(std::move(before))
    , m_after(std::move(after)) {
    setText(m_before.title != m_after.title ? Tr("Change Form Title") : Tr("Change Form Hints"));
}

} // namespace quillmar::forms
