#include "apps/forms/DesignPages.h"

#include "apps/forms/DesignCommands.h"
#include "pages/FieldPages.h"

#include <QPushButton>

#include <utility>
#include <vector>

namespace quillmar::forms {

DesignPages::DesignPages(DesignSurface& surface, QUndoStack& undo, QWidget* window)
    : QObject(window)
    , m_surface(surface)
    , m_undo(undo)
    , m_window(window) { }

void DesignPages::SetServices(Alerts& alerts, const pages::Clock& clock) {
    m_alerts = &alerts;
    m_clock = &clock;
}

void DesignPages::Open() {
    const QList<int> selection = m_surface.Selection();
    if (selection.isEmpty()) return;
    if (m_frame) return m_frame->raise();
    m_frame = m_alerts ? new pages::PropertyPageFrame(*m_alerts, *m_clock, m_window)
                       : new pages::PropertyPageFrame(m_window);
    m_frame->SetLocaleName(m_localeName);
    pages::AddFieldPages(*m_frame);
    QList<qt::QuillmarEdit*> fields;
    for (int id : selection)
        fields << m_surface.Field(id);
    m_frame->SetSelectedControls(fields);
    m_frame->setWindowTitle(fields.size() == 1 ? tr("Properties of %1").arg(fields.front()->objectName())
                                               : tr("Properties of %1 fields").arg(fields.size()));
    m_before.clear();
    for (int id : selection)
        m_surface.Field(id)->control().WriteProperties(m_before[id]);
    // The frame's own handlers apply first (they were connected first); what they wrote is one undo step.
    connect(m_frame->ApplyButton(), &QPushButton::clicked, this, &DesignPages::Record);
    connect(m_frame->OkButton(), &QPushButton::clicked, this, &DesignPages::Record);
    connect(m_frame, &QDialog::finished, this, [this] {
        Record();
        m_frame->deleteLater();
        m_frame = nullptr;
    });
    m_frame->open();
}

void DesignPages::Record() {
    std::vector<PropertiesCommand::Change> changes;
    for (auto& [id, before] : m_before) {
        qt::QuillmarEdit* field = m_surface.Field(id);
        if (!field) continue;
        quillmar::MemoryPropertyStore after;
        field->control().WriteProperties(after);
        if (after == before) continue;
        changes.push_back({ id, before, after });
        before = after;
    }
    emit Recording();
    if (!changes.empty()) m_undo.push(new PropertiesCommand(m_surface, std::move(changes)));
}

} // namespace quillmar::forms
