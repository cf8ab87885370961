#pragma once

#include <quillmar/PagesExport.h>

#include <quillmar/pages/PageServices.h>
#include <quillmar/pages/PropertyPage.h>
#include <quillmar/pages/SelectedControls.h>
#include <quillmar/qt/QtAlerts.h>

#include <QDialog>
#include <QList>

#include <memory>
#include <vector>

class QPushButton;
class QTabWidget;

namespace quillmar::pages {

/// The modal property-page dialog: one tab per page and the buttons OK, Cancel and Apply. It holds the
/// selected fields and tells every page when they change; Apply is enabled while any page is Changed. Apply
/// and OK ask every Changed page, in tab order, to apply; a refusal does not stop the later pages, and the
/// first page that refused is then shown with the focus where it put it. When none refused, every page
/// loads again from the first selected field. OK closes only when no page refused; Cancel closes and writes
/// nothing. An embedded field that refuses to be left keeps the focus, and the frame shows its page.
class QUILLMAR_PAGES_EXPORT PropertyPageFrame : public QDialog {
    Q_OBJECT
public:
    /// A frame whose pages beep and ask with `alerts` and read the time from `clock` (both must outlive it).
    PropertyPageFrame(Alerts& alerts, const Clock& clock, QWidget* parent = nullptr);
    /// A frame with Qt's message boxes and the system clock.
    explicit PropertyPageFrame(QWidget* parent = nullptr);
    ~PropertyPageFrame() override;

    /// What the frame hands its pages.
    [[nodiscard]] PageServices Services() const { return { *m_alerts, *m_clock, m_localeName }; }
    /// The locale of the pages added after this call ("en_US"; empty, the default, for the system's).
    void SetLocaleName(const QString& name) { m_localeName = name; }
    /// Adds a page as the last tab; the frame owns it.
    void AddPage(PropertyPage* page);
    /// How many pages the frame holds.
    [[nodiscard]] int PageCount() const { return static_cast<int>(m_pages.size()); }
    /// The page of a 0-based tab index; an index outside 0 to `PageCount() - 1` throws `std::out_of_range`.
    [[nodiscard]] PropertyPage* Page(int index) const { return m_pages.at(static_cast<size_t>(index)); }

    /// Selects the fields the pages edit and has every page load from the first of them.
    ///@{
    void SetSelectedControls(const QList<qt::QuillmarEdit*>& fields);
    [[nodiscard]] const SelectedControls& Selection() const noexcept { return m_selection; }
    ///@}

    /// Applies every Changed page in tab order; true when none refused, and then, if any page applied, every
    /// page loads again from the first selected field.
    bool Apply();

    /// The frame's buttons: OK applies and closes unless a page refuses, Cancel closes without applying,
    /// Apply applies (enabled while a page is Changed).
    ///@{
    [[nodiscard]] QPushButton* OkButton() const noexcept { return m_ok; }
    [[nodiscard]] QPushButton* CancelButton() const noexcept { return m_cancel; }
    [[nodiscard]] QPushButton* ApplyButton() const noexcept { return m_apply; }
    ///@}

private:
    PropertyPageFrame(
        std::unique_ptr<qt::QtAlerts> alerts, std::unique_ptr<SystemClock> clock, QWidget* parent);
    void UpdateApply();

    std::unique_ptr<qt::QtAlerts> m_ownAlerts;
    std::unique_ptr<SystemClock> m_ownClock;
    Alerts* m_alerts = nullptr;
    const Clock* m_clock = nullptr;
    QString m_localeName;
    SelectedControls m_selection;
    std::vector<PropertyPage*> m_pages;
    QTabWidget* m_tabs = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_apply = nullptr;
};

} // namespace quillmar::pages
