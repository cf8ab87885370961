#pragma once

#include "apps/forms/RecordStore.h"
#include "formfile/FormFile.h"
#include "qt/QuillmarEdit.h"

#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillmar::forms {

/// A form in run mode: each field with its label at the place the form gives it, in the form's tab order,
/// every rule live, and Submit (the button, or Ctrl+Return in any field), which checks every field without
/// touching it and stores the record in the form's SQLite database. Each record has fields of its own, built
/// from the form, so that nothing a field remembers (its last valid value) passes from one record to the
/// next. The status bar names the form file and the database, and after each stored record how many
/// records the database holds.
class FormWindow : public QWidget {
    Q_OBJECT

public:
    /// A warning answers with OK; a question with Yes (true) or No (false).
    enum class MessageKind { Warning, Question };
    /// Shows the window's own message boxes (the Submit summary, a record not stored, closing with unstored
    /// text) instead of a `QMessageBox`; returns the answer to a question. An empty handler restores the box.
    using MessageHandler = std::function<bool(MessageKind kind, const QString& title, const QString& text)>;

    /// Builds the window's fields from the document; `Load` reads their properties. Records go to the table
    /// named after the form's title (after the form file when the title is empty) in `databasePath`.
    FormWindow(const FormDocument& document, const QString& formPath, const QString& databasePath,
        QWidget* parent = nullptr);

    /// Loads every field's properties; the error line (naming `sourceName`, the field and the entry) when a
    /// field refuses a stored value. The fields of each later record load the same way.
    [[nodiscard]] std::optional<std::string> Load(std::string_view sourceName);

    /// Reads the form file at `formPath` (named as given in errors) and builds its window with the records
    /// in `databasePath`. When the form does not read, a field refuses a stored value or the database could
    /// not take a record (see `CheckDatabase`), gives `log` the one line that says why (the program writes
    /// it on stderr), then shows through `messages` (a box when it is empty) the warning design mode shows
    /// for a form it cannot open, and returns no window.
    [[nodiscard]] static std::unique_ptr<FormWindow> Open(const QString& formPath,
        const QString& databasePath, const std::function<void(const std::string& line)>& log,
        const MessageHandler& messages = {});

    /// The text of the warning that a form cannot be opened, `error` the line that says why.
    [[nodiscard]] static QString CannotOpenText(const QString& error);

    /// Whether a record could be stored in the database now, found without creating or changing it: nullopt,
    /// or the reason in a clerk's words, which the status bar then shows as well.
    [[nodiscard]] std::optional<QString> CheckDatabase();

    /// The fields in tab order.
    [[nodiscard]] const std::vector<qt::QuillmarEdit*>& Fields() const { return m_fields; }
    [[nodiscard]] QPushButton* SubmitButton() const { return m_submit; }
    [[nodiscard]] QStatusBar* StatusBar() const { return m_status; }

    /// The locale every field follows and the messages are composed in ("de_DE"); empty for the system's.
    void SetLocaleName(const QString& name);
    /// How long a record waits for another program's write lock on the database.
    void SetBusyTimeout(int milliseconds) { m_busyTimeout = milliseconds; }

    /// Shows the window's boxes through `handler` (see `MessageHandler`).
    void SetMessageHandler(MessageHandler handler) { m_messageHandler = std::move(handler); }
    /// Runs `setup` on every field now and on the fields of every later record (a test gives them its
    /// message box and beep handlers there). An empty function sets nothing up.
    void SetFieldSetup(std::function<void(qt::QuillmarEdit&)> setup);
    /// The box the window shows for a message when no handler replaces it.
    [[nodiscard]] static QMessageBox* MakeMessageBox(
        QWidget* parent, MessageKind kind, const QString& title, const QString& text);

    enum class SubmitOutcome { Invalid, Stored, NotStored };
    /// Asks every field in tab order which rules its text breaks, without correcting a text or showing a
    /// field's message. Invalid fields: one box lists each by its label with the message it would show, the
    /// focus goes to the first with its text selected, and nothing is stored. Otherwise the record is
    /// stored; once it is, the form gets fresh fields for the next record, as the form file gives them, and
    /// the first has the focus; when it cannot be, one box names the database and the reason and every text
    /// stays as typed.
    SubmitOutcome Submit();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    static bool ShowMessage(const MessageHandler& handler, QWidget* parent, MessageKind kind,
        const QString& title, const QString& text);
    bool ShowMessage(MessageKind kind, const QString& title, const QString& text);
    /// Builds the labels and fields of a record with their properties, in tab order before Submit, and gives
    /// them the window's locale and field setup; the error line when a field refuses a stored value.
    std::optional<std::string> BuildRecord();
    /// Replaces every field by a fresh one for the next record; the first takes the focus.
    void NewRecord();
    void FocusField(qt::QuillmarEdit* field);
    void ShowStatus(const QString& text);
    [[nodiscard]] std::vector<Column> Columns() const;

    FormDocument m_document;
    QString m_formPath;
    QString m_databasePath;
    QString m_table;
    QString m_localeName;
    int m_busyTimeout = RecordStore::kDefaultBusyTimeout;
    std::string m_sourceName;
    QWidget* m_area = nullptr;
    std::vector<qt::QuillmarEdit*> m_fields;
    std::vector<QWidget*> m_labels;
    std::vector<QString> m_initialTexts;
    QPushButton* m_submit = nullptr;
    QPushButton* m_close = nullptr;
    QStatusBar* m_status = nullptr;
    MessageHandler m_messageHandler;
    std::function<void(qt::QuillmarEdit&)> m_fieldSetup;
};

} // namespace quillmar::forms
