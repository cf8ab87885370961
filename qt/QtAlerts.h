#pragma once

#include <quillmar/QtExport.h>

#include <quillmar/host/Host.h>

#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QWidget>

namespace quillmar::qt {

/// Shows a modal `QMessageBox` over `parent` (a carriage return and line feed in the text break the line)
/// with the icon flag (`MessageBoxIconFlag`) and the buttons; returns the button that closed it (Escape or
/// the window's close button give Cancel, or OK for a box with OK alone).
QUILLMAR_QT_EXPORT QMessageBox::StandardButton ExecMessageBox(QWidget* parent, const QString& text,
    const QString& title, int icon, QMessageBox::StandardButtons buttons);

/// The beep and the message boxes as Qt shows them, over a parent window that may change or go away.
class QUILLMAR_QT_EXPORT QtAlerts final : public Alerts {
public:
    /// Alerts whose boxes open over `parent`'s window (none: over no window).
    explicit QtAlerts(QWidget* parent = nullptr)
        : m_parent(parent) { }
    /// The widget whose window the next boxes open over; a parent that was destroyed counts as none.
    void SetParent(QWidget* parent) { m_parent = parent; }

    void Beep() override;
    void MessageBox(std::u16string_view text, std::u16string_view title, int16_t icon) override;
    [[nodiscard]] Answer Question(std::u16string_view text, std::u16string_view title, int16_t icon) override;

private:
    QPointer<QWidget> m_parent;
};

} // namespace quillmar::qt
