#pragma once

#include "apps/forms/RecordStore.h"
#include "control/FormFile.h"
#include "host/qt/QuillmarEdit.h"

#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillmar::forms {

/// A form in run mode: each field with its label at the place the form gives it, in the form's tab order,
/// every rule live, and Submit (the button, or Ctrl+Return in any field), which checks every field without
/// touching it and stores the record in the form's SQLite database. The status bar names the form file and
/// the database, and after each stored record how many records the database holds.
class FormWindow : public QWidget {
    Q_OBJECT

public:
    /// Builds the window's fields from the document; `Load` reads their properties. Records go to the table
    /// named after the form's title (after the form file when the title is empty) in `databasePath`.
    FormWindow(const FormDocument& document, const QString& formPath, const QString& databasePath,
        QWidget* parent = nullptr);

    /// Loads every field's properties; the error line (naming `sourceName`, the field and the entry) when a
    /// field refuses a stored value. The texts the fields load with are the ones a cleared form starts from.
    [[nodiscard]] std::optional<std::string> Load(std::string_view sourceName);

    /// The fields in tab order.
    [[nodiscard]] const std::vector<qt::QuillmarEdit*>& Fields() const { return m_fields; }
    [[nodiscard]] QPushButton* SubmitButton() const { return m_submit; }
    [[nodiscard]] QStatusBar* StatusBar() const { return m_status; }

    /// The locale every field follows and the messages are composed in ("de_DE"); empty for the system's.
    void SetLocaleName(const QString& name);
    /// How long a record waits for another program's write lock on the database.
    void SetBusyTimeout(int milliseconds) { m_busyTimeout = milliseconds; }

    /// A warning answers with OK; a question with Yes (true) or No (false).
    enum class MessageKind { Warning, Question };
    /// Shows the window's own message boxes (the Submit summary, a record not stored, closing with unstored
    /// text) instead of a `QMessageBox`; returns the answer to a question. An empty handler restores the box.
    using MessageHandler = std::function<bool(MessageKind kind, const QString& title, const QString& text)>;
    void SetMessageHandler(MessageHandler handler) { m_messageHandler = std::move(handler); }
    /// The box the window shows for a message when no handler replaces it.
    [[nodiscard]] static QMessageBox* MakeMessageBox(
        QWidget* parent, MessageKind kind, const QString& title, const QString& text);

    enum class SubmitOutcome { Invalid, Stored, NotStored };
    /// Asks every field in tab order which rules its text breaks, without correcting a text or showing a
    /// field's message. Invalid fields: one box lists each by its label with the message it would show, the
    /// focus goes to the first with its text selected, and nothing is stored. Otherwise the record is
    /// stored; once it is, the form goes back to the texts it loaded with, ready for the next record; when it
    /// cannot be, one box names the database and the reason and every text stays as typed.
    SubmitOutcome Submit();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    bool ShowMessage(MessageKind kind, const QString& title, const QString& text);
    void FocusField(qt::QuillmarEdit* field);
    void ShowStatus(const QString& text);

    FormDocument m_document;
    QString m_formPath;
    QString m_databasePath;
    QString m_table;
    QString m_localeName;
    int m_busyTimeout = RecordStore::kDefaultBusyTimeout;
    std::vector<qt::QuillmarEdit*> m_fields;
    std::vector<QString> m_initialTexts;
    QPushButton* m_submit = nullptr;
    QStatusBar* m_status = nullptr;
    MessageHandler m_messageHandler;
};

} // namespace quillmar::forms
