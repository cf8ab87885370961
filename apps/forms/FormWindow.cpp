#include "apps/forms/FormWindow.h"

#include "apps/forms/FormFont.h"
#include "apps/forms/ShownPath.h"
#include "apps/forms/SubmitSummary.h"
#include "qt/QuillmarForm.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QShortcut>
#include <QVBoxLayout>

#include <memory>
#include <utility>

namespace quillmar::forms {
namespace {

// A form not saved yet is named in words ("the new form"), not as a file.
QString ShownForm(const QString& path) {
    return QFileInfo::exists(path) ? ShownPath(path) : path;
}

QString TableOf(const FormDocument& document, const QString& formPath) {
    if (!document.title.empty()) return qt::ToQString(document.title);
    return QString::fromStdString(DefaultDatabasePath(formPath.toStdString()).stem().string());
}

} // namespace

FormWindow::FormWindow(
    const FormDocument& document, const QString& formPath, const QString& databasePath, QWidget* parent)
    : QWidget(parent)
    , m_document(document)
    , m_formPath(formPath)
    , m_databasePath(databasePath)
    , m_table(TableOf(document, formPath)) {
    setWindowTitle(tr("%1 \u2014 Quillmar Forms").arg(qt::ToQString(document.title)));
    m_area = new QWidget(this);
    m_area->setFixedSize(document.width, document.height);
    m_area->setFont(FormAmbientFont());

    // Clicking Submit does not take the focus, so the field being typed in is not left (and finally
    // validated on its own) first: Submit checks it with all the others. Return stays with the field.
    m_submit = new QPushButton(tr("&Submit"), this);
    m_submit->setFocusPolicy(Qt::TabFocus);
    m_submit->setAutoDefault(false);
    m_submit->setToolTip(tr("Stores the record (Ctrl+Return)"));
    m_close = new QPushButton(tr("&Close"), this);
    m_close->setAutoDefault(false);
    connect(m_submit, &QPushButton::clicked, this, [this] { Submit(); });
    connect(m_close, &QPushButton::clicked, this, &QWidget::close);
    for (const QKeyCombination keys : { Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter })
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, [this] { Submit(); });

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_submit);
    buttons->addWidget(m_close);
    m_status = new QStatusBar(this);
    m_status->setSizeGripEnabled(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_area);
    layout->addLayout(buttons);
    layout->addWidget(m_status);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ShowStatus(tr("Records go to %1 \u00b7 Form: %2").arg(ShownPath(m_databasePath), ShownForm(m_formPath)));
}

std::optional<std::string> FormWindow::Load(std::string_view sourceName) {
    m_sourceName = sourceName;
    return BuildRecord();
}

std::optional<std::string> FormWindow::BuildRecord() {
    qt::FormWidgets form = qt::BuildForm(m_document, *m_area, m_sourceName);
    m_fields = std::move(form.fields);
    m_labels.assign(form.labels.begin(), form.labels.end());
    if (!m_fields.empty()) QWidget::setTabOrder(m_fields.back(), m_submit);
    QWidget::setTabOrder(m_submit, m_close);
    m_initialTexts.clear();
    for (qt::QuillmarEdit* field : m_fields) {
        m_initialTexts.push_back(field->Text());
        field->SetLocaleName(m_localeName);
        if (m_fieldSetup) m_fieldSetup(*field);
    }
    return form.error;
}

void FormWindow::NewRecord() {
    const std::vector<qt::QuillmarEdit*> fields = std::exchange(m_fields, {});
    const std::vector<QWidget*> labels = std::exchange(m_labels, {});
    (void)BuildRecord(); // the same entries built without a fault when the form opened
    for (qt::QuillmarEdit* field : fields)
        field->SkipNextFocusExit();
    if (!m_fields.empty()) FocusField(m_fields.front());
    // Only once the focus has left them, so that no old field hands it on (and is left) as it goes.
    qDeleteAll(fields);
    qDeleteAll(labels);
}

std::unique_ptr<FormWindow> FormWindow::Open(const QString& formPath, const QString& databasePath,
    const std::function<void(const std::string& line)>& log, const MessageHandler& messages) {
    const auto refuse = [&](const std::string& error) {
        if (log) log(error);
        ShowMessage(messages, nullptr, MessageKind::Warning, tr("Open Form"),
            CannotOpenText(QString::fromStdString(error)));
        return nullptr;
    };
    const std::string source = formPath.toStdString();
    const FormResult form = LoadFormFile(source);
    if (!form.document) return refuse(form.error);
    auto window = std::make_unique<FormWindow>(*form.document, formPath, databasePath);
    if (const auto error = window->Load(source)) return refuse(*error);
    if (const auto problem = window->CheckDatabase())
        return refuse(
            tr("Records cannot be stored in %1: %2").arg(ShownPath(databasePath), *problem).toStdString());
    return window;
}

QString FormWindow::CannotOpenText(const QString& error) {
    return tr("The form cannot be opened:\n%1").arg(error);
}

std::optional<QString> FormWindow::CheckDatabase() {
    auto problem = RecordStore(m_databasePath, m_table, Columns()).Problem();
    if (problem)
        ShowStatus(tr("Records cannot be stored in %1: %2 \u00b7 Form: %3")
                       .arg(ShownPath(m_databasePath), *problem, ShownForm(m_formPath)));
    return problem;
}

void FormWindow::SetFieldSetup(std::function<void(qt::QuillmarEdit&)> setup) {
    m_fieldSetup = std::move(setup);
    if (m_fieldSetup)
        for (qt::QuillmarEdit* field : m_fields)
            m_fieldSetup(*field);
}

std::vector<Column> FormWindow::Columns() const {
    std::vector<Column> columns;
    for (size_t i = 0; i < m_fields.size(); ++i)
        columns.push_back({ qt::ToQString(m_document.controls[i].name),
            ColumnTypeOf(m_fields[i]->control().MustBeType()) });
    return columns;
}

void FormWindow::SetLocaleName(const QString& name) {
    m_localeName = name;
    for (qt::QuillmarEdit* field : m_fields)
        field->SetLocaleName(name);
}

QMessageBox* FormWindow::MakeMessageBox(
    QWidget* parent, MessageKind kind, const QString& title, const QString& text) {
    auto* box = new QMessageBox(kind == MessageKind::Question ? QMessageBox::Question : QMessageBox::Warning,
        title, text, kind == MessageKind::Question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok,
        parent);
    if (kind == MessageKind::Question) box->setDefaultButton(QMessageBox::No);
    return box;
}

bool FormWindow::ShowMessage(const MessageHandler& handler, QWidget* parent, MessageKind kind,
    const QString& title, const QString& text) {
    if (handler) return handler(kind, title, text);
    const std::unique_ptr<QMessageBox> box(MakeMessageBox(parent, kind, title, text));
    return box->exec() == QMessageBox::Yes;
}

bool FormWindow::ShowMessage(MessageKind kind, const QString& title, const QString& text) {
    return ShowMessage(m_messageHandler, this, kind, title, text);
}

// Moving the focus for the clerk is not the clerk leaving a field: the field left behind is not finally
// validated (it would correct its text and show its own message).
void FormWindow::FocusField(qt::QuillmarEdit* field) {
    for (qt::QuillmarEdit* candidate : m_fields)
        if (candidate != field) candidate->SkipNextFocusExit();
    field->lineEdit()->setFocus(Qt::OtherFocusReason);
    field->SetSelStart(0);
    field->SetSelLength(int(field->Text().size()));
}

void FormWindow::ShowStatus(const QString& text) {
    m_status->showMessage(text);
    m_status->setToolTip(text); // the line may be wider than the window
}

FormWindow::SubmitOutcome FormWindow::Submit() {
    const std::vector<qt::InvalidField> fields = qt::InvalidFields(*m_area);
    std::vector<InvalidField> invalid;
    for (const qt::InvalidField& field : fields)
        invalid.push_back({ qt::FromQString(field.label), qt::FromQString(field.message) });
    qt::QuillmarEdit* firstInvalid = fields.empty() ? nullptr : fields.front().field;
    if (firstInvalid) {
        ShowMessage(MessageKind::Warning, tr("Record not stored"), qt::ToQString(SubmitSummary(invalid)));
        FocusField(firstInvalid);
        return SubmitOutcome::Invalid;
    }

    std::vector<StoredValue> values;
    for (const qt::QuillmarEdit* field : m_fields)
        values.push_back(StoredValueOf(field->control().Value(), field->control().MustBeType()));
    RecordStore store(m_databasePath, m_table, Columns());
    store.SetBusyTimeout(m_busyTimeout);
    const StoreResult result = store.Append(values, QDateTime::currentDateTimeUtc().toString(Qt::ISODate));
    if (!result.stored) {
        ShowMessage(MessageKind::Warning, tr("Record not stored"),
            tr("The record could not be stored in %1:\n%2.\n\nEverything you typed is still in the form.")
                .arg(ShownPath(m_databasePath), result.reason));
        return SubmitOutcome::NotStored;
    }

    NewRecord();
    const QString records = result.count == 1 ? tr("1 record") : tr("%1 records").arg(result.count);
    ShowStatus(tr("Record stored: %1 holds %2 \u00b7 Form: %3")
                   .arg(ShownPath(m_databasePath), records, ShownForm(m_formPath)));
    return SubmitOutcome::Stored;
}

void FormWindow::closeEvent(QCloseEvent* event) {
    bool typed = false;
    for (size_t i = 0; i < m_fields.size() && i < m_initialTexts.size(); ++i)
        typed = typed || m_fields[i]->Text() != m_initialTexts[i];
    const bool close = !typed
        || ShowMessage(MessageKind::Question, tr("Close the form"),
            tr("What is typed in this form has not been stored. Close it anyway?"));
    event->setAccepted(close);
}

} // namespace quillmar::forms
