#include "apps/forms/FormWindow.h"

#include "apps/forms/FormFont.h"
#include "apps/forms/SubmitSummary.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QShortcut>
#include <QVBoxLayout>

namespace quillmar::forms {
namespace {

constexpr int kLabelWidth = 104;
constexpr int kLabelGap = 8;

QString Shown(const QString& path) {
    return QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
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
    setWindowTitle(qt::ToQString(document.title) + QStringLiteral(" \u2014 Quillmar Forms"));
    auto* area = new QWidget(this);
    area->setFixedSize(document.width, document.height);
    area->setFont(FormAmbientFont());
    QWidget* previous = nullptr;
    for (const FormControl& control : document.controls) {
        auto* label = new QLabel(qt::ToQString(control.label) + QLatin1Char(':'), area);
        label->setFont(QApplication::font());
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setGeometry(control.left - kLabelWidth - kLabelGap, control.top, kLabelWidth, control.height);
        auto* field = new qt::QuillmarEdit(area);
        field->setObjectName(qt::ToQString(control.name));
        field->setGeometry(control.left, control.top, control.width, control.height);
        field->setToolTip(qt::ToQString(control.toolTip));
        field->SetShowRefusalTips(document.showRefusalTips);
        field->SetShowInlineState(document.showInlineState);
        label->setBuddy(field);
        if (previous) QWidget::setTabOrder(previous, field);
        previous = field;
        m_fields.push_back(field);
    }

    // Clicking Submit does not take the focus, so the field being typed in is not left (and finally
    // validated on its own) first: Submit checks it with all the others. Return stays with the field.
    m_submit = new QPushButton(tr("&Submit"), this);
    m_submit->setFocusPolicy(Qt::TabFocus);
    m_submit->setAutoDefault(false);
    m_submit->setToolTip(tr("Stores the record (Ctrl+Return)"));
    auto* close = new QPushButton(tr("&Close"), this);
    close->setAutoDefault(false);
    connect(m_submit, &QPushButton::clicked, this, [this] { Submit(); });
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    for (const QKeyCombination keys : { Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter })
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, [this] { Submit(); });

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_submit);
    buttons->addWidget(close);
    m_status = new QStatusBar(this);
    m_status->setSizeGripEnabled(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area);
    layout->addLayout(buttons);
    layout->addWidget(m_status);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ShowStatus(tr("Records go to %1 \u00b7 Form: %2").arg(Shown(m_databasePath), Shown(m_formPath)));
}

std::optional<std::string> FormWindow::Load(std::string_view sourceName) {
    size_t next = 0;
    auto error = BuildFormControls(m_document, sourceName,
        [this, &next](const FormControl&) -> Quillmar& { return m_fields[next++]->control(); });
    m_initialTexts.clear();
    for (const qt::QuillmarEdit* field : m_fields)
        m_initialTexts.push_back(field->Text());
    return error;
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

bool FormWindow::ShowMessage(MessageKind kind, const QString& title, const QString& text) {
    if (m_messageHandler) return m_messageHandler(kind, title, text);
    QMessageBox* box = MakeMessageBox(this, kind, title, text);
    const int answer = box->exec();
    delete box;
    return answer == QMessageBox::Yes;
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
    const LocaleInfo locale = LocaleInfo::FromName(
        (m_localeName.isEmpty() ? QLocale::system().name() : m_localeName).toStdString());
    std::vector<InvalidField> invalid;
    qt::QuillmarEdit* firstInvalid = nullptr;
    for (size_t i = 0; i < m_fields.size(); ++i) {
        const Quillmar& control = m_fields[i]->control();
        const int32_t bits = control.CheckInput();
        if (bits <= 0) continue;
        invalid.push_back({ m_document.controls[i].label,
            FieldMessage(control.Text(), bits, control.settings(), locale, control.MaxLength()) });
        if (!firstInvalid) firstInvalid = m_fields[i];
    }
    if (firstInvalid) {
        ShowMessage(MessageKind::Warning, tr("Record not stored"), qt::ToQString(SubmitSummary(invalid)));
        FocusField(firstInvalid);
        return SubmitOutcome::Invalid;
    }

    std::vector<Column> columns;
    std::vector<StoredValue> values;
    for (size_t i = 0; i < m_fields.size(); ++i) {
        const Quillmar& control = m_fields[i]->control();
        columns.push_back({ qt::ToQString(m_document.controls[i].name), ColumnTypeOf(control.MustBeType()) });
        values.push_back(StoredValueOf(control.Value(), control.MustBeType()));
    }
    RecordStore store(m_databasePath, m_table, std::move(columns));
    store.SetBusyTimeout(m_busyTimeout);
    const StoreResult result = store.Append(values, QDateTime::currentDateTimeUtc().toString(Qt::ISODate));
    if (!result.stored) {
        ShowMessage(MessageKind::Warning, tr("Record not stored"),
            tr("The record could not be stored in %1:\n%2.\n\nEverything you typed is still in the form.")
                .arg(Shown(m_databasePath), result.reason));
        return SubmitOutcome::NotStored;
    }

    for (size_t i = 0; i < m_fields.size(); ++i)
        m_fields[i]->SetText(m_initialTexts[i]);
    if (!m_fields.empty()) FocusField(m_fields.front());
    const QString records = result.count == 1 ? tr("1 record") : tr("%1 records").arg(result.count);
    ShowStatus(tr("Record stored: %1 holds %2 \u00b7 Form: %3")
                   .arg(Shown(m_databasePath), records, Shown(m_formPath)));
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
