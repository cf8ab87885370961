#pragma once

#include <quillmar/PagesExport.h>

#include <quillmar/base/MemoryPropertyStore.h>
#include <quillmar/base/PropertyError.h>
#include <quillmar/pages/PageServices.h>
#include <quillmar/pages/SelectedControls.h>
#include <quillmar/qt/QuillmarEdit.h>

#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace quillmar::pages {

/// One tab of the property-page frame. The frame tells it when the selection changes (`SelectionChanged`:
/// the page loads itself from the first selected field) and asks it to write back (`ApplyChanges`: the page
/// checks, then writes every selected field through its public writers). A page marks itself Changed when the
/// author touches one of its controls; a page still Changed after `ApplyChanges` has refused, and keeps the
/// place where it put the focus so that the frame can give it back once the page is shown.
class QUILLMAR_PAGES_EXPORT PropertyPage : public QWidget {
    Q_OBJECT
public:
    /// A page whose tab reads `caption`, reaching the beep, the boxes, the clock and the locale through
    /// `services`.
    PropertyPage(const QString& caption, PageServices services, QWidget* parent = nullptr);

    /// The tab's caption ("General", "Number/Date,Time" ...).
    [[nodiscard]] const QString& Caption() const noexcept { return m_caption; }
    /// The frame's selection, which must outlive the page's use of it.
    ///@{
    void SetSelection(const SelectedControls* selection) noexcept { m_selection = selection; }
    [[nodiscard]] const SelectedControls& Selection() const;
    ///@}

    /// Loads the page from the first selected field.
    virtual void SelectionChanged() = 0;
    /// Writes the page to the selected fields, after its checks; a refusal leaves the page Changed.
    virtual void ApplyChanges() = 0;

    /// Whether the page holds changes not yet applied; setting it announces `ChangedChanged` when it differs.
    ///@{
    [[nodiscard]] bool Changed() const noexcept { return m_changed; }
    void SetChanged(bool changed);
    ///@}
    /// Gives the focus back to the field where the last refusal put it, with its selection.
    void RestoreFocus();
    /// Forgets where an earlier refusal put the focus (the frame does so before each apply).
    void ForgetFocus() { m_focusField = nullptr; }
    /// Loads the page again from the first selected field, as the frame does after an accepted apply. It is
    /// no notification of the host's: the once-a-second check neither refuses it nor counts it.
    void Reload();

signals:
    /// The Changed flag went on or off.
    void ChangedChanged(bool changed);
    /// An embedded field of the page refused to be left and keeps the focus: the frame shows the page, so
    /// that the focus is never in a page out of sight.
    void KeepsFocus();

protected:
    /// The beep, the boxes, the clock and the locale the frame handed the page.
    [[nodiscard]] PageServices& Services() noexcept { return m_services; }
    /// The first selected field; nullptr when nothing is selected.
    [[nodiscard]] qt::QuillmarEdit* FirstControl() const;

    /// Starts a load: sets the loading flag. When the clock reads the same second as the end of the last
    /// load, beeps and answers false: the page is not loaded and the flag stays set until a load succeeds.
    [[nodiscard]] bool BeginLoad();
    /// Ends a load: clears the loading flag and keeps the time.
    void EndLoad();
    /// True while the page loads itself: changes to its controls then do not mark it Changed.
    [[nodiscard]] bool Loading() const noexcept { return m_loading; }
    /// Sets or clears the loading flag by hand, for a page that loads without the once-a-second check.
    void SetLoading(bool loading) noexcept { m_loading = loading; }
    /// The author touched a control: the page is Changed, unless it is being loaded.
    void MarkChanged();

    /// Puts the focus on a control of the page (now, and again when the frame shows the page after a
    /// refusal); for an embedded field `selectAll` selects its whole text.
    void FocusField(QWidget* field, bool selectAll = false);
    /// Runs `write` on the control of each selected field in selection order, or of the first only.
    void ForEachSelected(const std::function<void(Quillmar&)>& write, bool firstOnly = false) const;
    /// Runs one write to a selected field. A value the field refuses (`PropertyError`) leaves the field as it
    /// was, and the designer goes on with the next write.
    template <typename Write> static void TryWrite(Write&& write) {
        try {
            write();
        } catch (const PropertyError&) { }
    }
    /// The frame's beep and boxes: a message with an OK button, a question answered Yes, No or Cancel; `icon`
    /// is a `MessageBoxIconFlag`.
    ///@{
    void Beep();
    void ShowMessage(const QString& text, const QString& title, int icon);
    [[nodiscard]] Answer Ask(const QString& text, const QString& title, int icon);
    ///@}

    /// An embedded entry field named `name`, set up by loading the entries through the control's own property
    /// read (every property not stored keeps its read default). Its message boxes and beeps go to the frame's
    /// services, and before the focus leaves it an enabled field validates itself: a failed validation keeps
    /// the focus there, so that one bad entry gives one message.
    [[nodiscard]] qt::QuillmarEdit* MakeEmbeddedField(
        const QString& name, const std::vector<quillmar::PropertyEntry>& entries);

private:
    QString m_caption;
    PageServices m_services;
    const SelectedControls* m_selection = nullptr;
    bool m_changed = false;
    bool m_loading = false;
    bool m_reloading = false;
    int m_lastLoadTime = -1;
    QPointer<QWidget> m_focusField;
    bool m_focusSelectAll = false;
};

/// The stored entries of a list property holding the given items in slots 1 to n.
[[nodiscard]] QUILLMAR_PAGES_EXPORT Variant StoredList(const VariantArray& items);

} // namespace quillmar::pages
