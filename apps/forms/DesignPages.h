#pragma once

#include "apps/forms/DesignSurface.h"
#include "base/MemoryPropertyStore.h"
#include "pages/PropertyPageFrame.h"

#include <QObject>
#include <QPointer>
#include <QUndoStack>

#include <map>

namespace quillmar::forms {

/// The property pages of the designer: one window-modal frame at a time on the selected fields, whose every
/// accepted Apply (and OK, and closing the frame) becomes one undo step holding each changed field's
/// properties before and after.
class DesignPages : public QObject {
    Q_OBJECT
public:
    /// Pages on the fields of `surface`, their steps pushed on `undo`, their frame a child of `window`.
    DesignPages(DesignSurface& surface, QUndoStack& undo, QWidget* window);

    /// The locale the pages show their values in ("en_US"; empty for the system's).
    void SetLocaleName(const QString& name) { m_localeName = name; }
    /// The pages beep and ask through `alerts` and read the time from `clock` (both must outlive this).
    void SetServices(Alerts& alerts, const pages::Clock& clock);

    /// Opens the pages on the selected fields, titled after the one field or the number of fields; raises
    /// the frame when it is open already; does nothing when no field is selected.
    void Open();
    /// The open frame, or nullptr.
    [[nodiscard]] pages::PropertyPageFrame* Frame() const { return m_frame; }

signals:
    /// The pages' changes are about to be recorded as a step: the fields' properties now match what the
    /// undo stack will hold.
    void Recording();

private:
    void Record();

    DesignSurface& m_surface;
    QUndoStack& m_undo;
    QWidget* m_window;
    QString m_localeName;
    Alerts* m_alerts = nullptr;
    const pages::Clock* m_clock = nullptr;
    QPointer<pages::PropertyPageFrame> m_frame;
    std::map<int, quillmar::MemoryPropertyStore> m_before;
};

} // namespace quillmar::forms
