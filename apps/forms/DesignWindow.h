#pragma once

#include "apps/forms/Alignment.h"
#include "apps/forms/DesignCommands.h"
#include "apps/forms/DesignPages.h"
#include "apps/forms/DesignSurface.h"
#include "apps/forms/FieldPanel.h"
#include "apps/forms/FormSave.h"
#include "apps/forms/FormWindow.h"
#include "pages/PropertyPageFrame.h"

#include <QAction>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QUndoStack>

#include <functional>

namespace quillmar::forms {

/// The commands of the designer's menus, toolbox and context menu, each made once with the window.
struct DesignActions {
    QAction* newForm = nullptr;
    QAction* open = nullptr;
    QAction* save = nullptr;
    QAction* saveAs = nullptr;
    QAction* close = nullptr;
    QAction* undo = nullptr;
    QAction* redo = nullptr;
    QAction* remove = nullptr;
    QAction* selectAll = nullptr;
    QAction* cut = nullptr;
    QAction* copy = nullptr;
    QAction* paste = nullptr;
    QAction* properties = nullptr;
    QAction* earlier = nullptr;
    QAction* later = nullptr;
    /// Insert > Field: a new field below the last one.
    QAction* placeField = nullptr;
    /// The toolbox's field tool: checked, the next click on the empty form places a field there.
    QAction* placeTool = nullptr;
    QAction* alignLefts = nullptr;
    QAction* alignRights = nullptr;
    QAction* alignTops = nullptr;
    QAction* alignBottoms = nullptr;
    QAction* sameWidth = nullptr;
    QAction* sameHeight = nullptr;
    QAction* sameSize = nullptr;
    /// Design and Run, one of them checked: whether the form is being designed or runs.
    QAction* design = nullptr;
    QAction* run = nullptr;
};

/// quillmar-forms in design mode: a form's client area (`DesignSurface`) with its fields in design mode,
/// a toolbox and menus to place fields, the side panel (`FieldPanel`) for names, labels, tool tips, the
/// form's title and hints and the tab order, the property pages on the selected fields, undo and redo of
/// every design action, Save and Save As through a temporary file, and Run (F5), which opens the form being
/// designed in run mode. The title names the file and shows "*" while the form has unsaved changes;
/// closing such a form asks whether to save it.
class DesignWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit DesignWindow(QWidget* parent = nullptr);
    ~DesignWindow() override;

    /// Starts a new empty form, without asking about the one shown.
    void NewForm();
    /// Opens a form file. A form that does not read (or whose fields refuse a stored value) is not shown:
    /// the message names the file, the field and the property, and the form shown before stays.
    bool OpenForm(const QString& path);
    /// Saves to the form's file (asking for a name when it has none); true when saved.
    bool Save();
    /// Saves under a name asked for; true when saved.
    bool SaveAs();
    /// Saves to `path`; on failure says what failed and where, and the old file stays as it was.
    bool SaveTo(const QString& path);

    /// Places a new field below the last one (or at `at`) and selects it.
    int PlaceField(std::optional<QPoint> at = std::nullopt);
    /// Deletes the selected fields.
    void DeleteSelection();
    /// Lines the selected fields up with the primary one (see `DesignSurface::Primary`) as one step named
    /// `stepText`.
    void AlignSelection(Alignment alignment, const QString& stepText);
    /// Puts the selected fields on the clipboard as a form file holding them.
    void CopySelection();
    /// Puts the selected fields on the clipboard and deletes them.
    void CutSelection();
    /// Adds the fields on the clipboard to the end of the tab order as one step, under names of their own
    /// and beside any field they would cover exactly (see `FitPastedFields`), and selects them.
    void Paste();
    /// Opens the property pages on the selected fields (window-modal; see `PropertyFrame`).
    void OpenProperties();
    /// Moves the one selected field `delta` places in the tab order.
    void MoveInTabOrder(int delta);
    /// Opens the form as it is now in run mode, in a window of its own; `Design` closes it.
    void Run();
    void Design();

    /// The form as it would be saved now.
    [[nodiscard]] FormDocument Document() const;
    [[nodiscard]] bool IsModified() const;
    [[nodiscard]] const QString& Path() const { return m_path; }
    [[nodiscard]] DesignSurface* Surface() const { return m_surface; }
    [[nodiscard]] FieldPanel* Panel() const { return m_panel; }
    [[nodiscard]] QUndoStack* UndoStack() const { return m_undo; }
    /// The open property-page frame, or nullptr.
    [[nodiscard]] pages::PropertyPageFrame* PropertyFrame() const { return m_pages->Frame(); }
    /// The open run-mode window, or nullptr.
    [[nodiscard]] FormWindow* RunWindow() const { return m_runWindow; }
    /// The window's commands, as its menus, toolbox and context menu show them.
    [[nodiscard]] const DesignActions& Actions() const { return m_actions; }

    /// The locale of the fields and the pages ("en_US"; empty for the system's).
    void SetLocaleName(const QString& name);
    /// The pages beep and ask through `alerts` and read the time from `clock` (both must outlive the window).
    void SetPageServices(Alerts& alerts, const pages::Clock& clock);
    /// Shows the window's message boxes instead of `QMessageBox`: the icon, title, text and buttons; returns
    /// the button chosen. An empty handler restores the box.
    using MessageHandler = std::function<QMessageBox::StandardButton(QMessageBox::Icon icon,
        const QString& title, const QString& text, QMessageBox::StandardButtons buttons)>;
    void SetMessageHandler(MessageHandler handler) { m_messageHandler = std::move(handler); }
    /// Asks for a file name to open (`save` false) or save as (`save` true) instead of a file dialog; an
    /// empty answer cancels.
    using FileNameHandler = std::function<QString(bool save)>;
    void SetFileNameHandler(FileNameHandler handler) { m_fileNameHandler = std::move(handler); }
    /// Runs between writing the temporary file and putting it in place (tests make saves fail there).
    void SetBeforeCommitHook(BeforeCommitHook hook) { m_beforeCommit = std::move(hook); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildActions();
    void Connect();
    QAction* AddAction(const QString& name, const QString& text, const QKeySequence& keys,
        const std::function<void()>& slot = {});
    QMessageBox::StandardButton Ask(QMessageBox::Icon icon, const QString& title, const QString& text,
        QMessageBox::StandardButtons buttons);
    /// True when the shown form may be replaced: saved, not modified, or its changes discarded.
    bool MaySetAside();
    /// Asks for a form file to open (after `MaySetAside`) and opens it.
    void AskOpen();
    void ShowForm(const FormDocument& document, const QString& path);
    void EditName(int id, const QString& name);
    void RemoveSelection(FieldsCommand::Kind kind);
    void SetForm(const FormSettings& form);
    void UpdateTitle();
    void UpdateActions();

    DesignSurface* m_surface = nullptr;
    FieldPanel* m_panel = nullptr;
    QUndoStack* m_undo = nullptr;
    QString m_path;
    FormSettings m_form;
    QString m_localeName;
    bool m_changedOutsideStack = false;
    DesignPages* m_pages = nullptr;
    QPointer<FormWindow> m_runWindow;
    MessageHandler m_messageHandler;
    FileNameHandler m_fileNameHandler;
    BeforeCommitHook m_beforeCommit;
    DesignActions m_actions;
};

} // namespace quillmar::forms
