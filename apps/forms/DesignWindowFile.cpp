// The design window's file workflow: a new form, opening a form file, saving it (under a name asked for when
// it has none), and the question whether to save a modified form before it is set aside or closed.

#include "apps/forms/DesignWindow.h"

#include "apps/forms/ShownPath.h"
#include "host/standalone/StandaloneHost.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>

#include <deque>
#include <memory>

namespace quillmar::forms {
namespace {

constexpr char kFilter[] = "Quillmar forms (*.qform.json);;JSON files (*.json);;All files (*)";

// Loads every field into a control of its own that no one sees, so that a form whose fields refuse a value
// is refused before anything of it is shown.
std::optional<std::string> TryLoad(const FormDocument& document, const std::string& source) {
    std::deque<std::unique_ptr<standalone::StandaloneHost>> hosts;
    std::deque<std::unique_ptr<Quillmar>> controls;
    return BuildFormControls(document, source, [&](const FormControl& field) -> Quillmar& {
        auto& host = *hosts.emplace_back(std::make_unique<standalone::StandaloneHost>("en_US"));
        host.container.name = field.name;
        host.container.userMode = false;
        return *controls.emplace_back(std::make_unique<Quillmar>(host.Services()));
    });
}

} // namespace

void DesignWindow::NewForm() {
    FormDocument document;
    document.title = qt::FromQString(tr("New form"));
    document.width = 480;
    document.height = 320;
    ShowForm(document, QString());
}

bool DesignWindow::OpenForm(const QString& path) {
    const std::string source = ShownPath(path).toStdString();
    FormResult form = LoadFormFile(path.toStdString());
    if (form.document)
        if (auto refused = TryLoad(*form.document, source)) form = { std::nullopt, *refused };
    if (!form.document) {
        Ask(QMessageBox::Warning, tr("Open Form"),
            FormWindow::CannotOpenText(QString::fromStdString(form.error)), QMessageBox::Ok);
        return false;
    }
    ShowForm(*form.document, path);
    return true;
}

void DesignWindow::ShowForm(const FormDocument& document, const QString& path) {
    m_undo->clear();
    m_surface->Reset(document.width, document.height, document.font);
    const std::string source = ShownPath(path).toStdString();
    for (size_t i = 0; i < document.controls.size(); ++i)
        (void)m_surface->InsertField(PlacedField { 0, int(i), document.controls[i] }, source);
    m_form = { qt::ToQString(document.title), document.showRefusalTips, document.showInlineState };
    m_path = path;
    m_changedOutsideStack = false;
    m_undo->setClean();
    UpdateTitle();
    UpdateActions();
    m_panel->Refresh(m_form);
    m_surface->setFocus();
}

FormDocument DesignWindow::Document() const {
    FormDocument document;
    document.title = qt::FromQString(m_form.title);
    document.width = m_surface->width();
    document.height = m_surface->height();
    document.font = m_surface->Font();
    document.showRefusalTips = m_form.showRefusalTips;
    document.showInlineState = m_form.showInlineState;
    for (PlacedField& placed : m_surface->Snapshots())
        document.controls.push_back(std::move(placed.field));
    return document;
}

bool DesignWindow::IsModified() const {
    return !m_undo->isClean() || m_changedOutsideStack;
}

void DesignWindow::AskOpen() {
    if (!MaySetAside()) return;
    const QString path = m_fileNameHandler
        ? m_fileNameHandler(false)
        : QFileDialog::getOpenFileName(this, tr("Open Form"), QFileInfo(m_path).path(), tr(kFilter));
    if (!path.isEmpty()) OpenForm(path);
}

bool DesignWindow::Save() {
    return m_path.isEmpty() ? SaveAs() : SaveTo(m_path);
}

bool DesignWindow::SaveAs() {
    QString path = m_fileNameHandler
        ? m_fileNameHandler(true)
        : QFileDialog::getSaveFileName(this, tr("Save Form As"), m_path, tr(kFilter));
    if (path.isEmpty()) return false;
    if (!path.endsWith(QStringLiteral(".json"))) path += QStringLiteral(".qform.json");
    return SaveTo(path);
}

bool DesignWindow::SaveTo(const QString& path) {
    const QString error = SaveForm(path, Document(), m_beforeCommit);
    if (!error.isEmpty()) {
        Ask(QMessageBox::Critical, tr("Save Form"),
            tr("%1\n\nThe file on disk is as it was, and the form is still open here.").arg(error),
            QMessageBox::Ok);
        return false;
    }
    m_path = path;
    m_changedOutsideStack = false;
    m_undo->setClean();
    UpdateTitle();
    return true;
}

bool DesignWindow::MaySetAside() {
    if (!IsModified()) return true;
    const QString name = m_path.isEmpty() ? tr("the new form") : QFileInfo(m_path).fileName();
    switch (Ask(QMessageBox::Question, tr("Unsaved Changes"), tr("Save the changes to %1?").arg(name),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel)) {
    case QMessageBox::Save:
        return Save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

void DesignWindow::closeEvent(QCloseEvent* event) {
    if (m_runWindow && !m_runWindow->close()) return event->ignore();
    event->setAccepted(MaySetAside());
}

} // namespace quillmar::forms
