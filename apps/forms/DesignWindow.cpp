#include "apps/forms/DesignWindow.h"

#include "apps/forms/DesignCommands.h"
#include "apps/forms/FieldClipboard.h"
#include "apps/forms/FieldNames.h"
#include "apps/forms/FormWindow.h"
#include "apps/forms/Record.h"
#include "host/standalone/StandaloneHost.h"
#include "pages/FieldPages.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QToolBar>

#include <deque>
#include <filesystem>
#include <memory>
#include <system_error>

namespace quillmar::forms {
namespace {

constexpr char kFilter[] = "Quillmar forms (*.qform.json);;JSON files (*.json);;All files (*)";

QString Shown(const QString& path) {
    return QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
}

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

DesignWindow::DesignWindow(QWidget* parent)
    : QMainWindow(parent) {
    m_undo = new QUndoStack(this);
    m_surface = new DesignSurface;
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(m_surface);
    scroll->setBackgroundRole(QPalette::Dark);
    setCentralWidget(scroll);
    m_panel = new FieldPanel(*m_surface);
    auto* dock = new QDockWidget(tr("Fields"), this);
    dock->setObjectName(QStringLiteral("FieldsDock"));
    dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    dock->setWidget(m_panel);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    BuildActions();
    Connect();
    NewForm();
    resize(980, 560);
}

DesignWindow::~DesignWindow() {
    delete m_runWindow;
}

QAction* DesignWindow::AddAction(
    const QString& name, const QString& text, const QKeySequence& keys, const std::function<void()>& slot) {
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(keys);
    if (slot) connect(action, &QAction::triggered, this, slot);
    return action;
}

QAction* DesignWindow::Action(const QString& objectName) const {
    return findChild<QAction*>(objectName);
}

void DesignWindow::BuildActions() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(AddAction(QStringLiteral("actionNew"), tr("&New"), QKeySequence::New, {}));
    connect(Action(QStringLiteral("actionNew")), &QAction::triggered, this, [this] {
        if (MaySetAside()) NewForm();
    });
    auto* open = AddAction(QStringLiteral("actionOpen"), tr("&Open..."), QKeySequence::Open, {});
    connect(open, &QAction::triggered, this, [this] {
        if (!MaySetAside()) return;
        const QString path = m_fileNameHandler
            ? m_fileNameHandler(false)
            : QFileDialog::getOpenFileName(this, tr("Open Form"), QFileInfo(m_path).path(), tr(kFilter));
        if (!path.isEmpty()) OpenForm(path);
    });
    file->addAction(open);
    file->addAction(AddAction(QStringLiteral("actionSave"), tr("&Save"), QKeySequence::Save, {}));
    connect(Action(QStringLiteral("actionSave")), &QAction::triggered, this, [this] { Save(); });
    file->addAction(AddAction(QStringLiteral("actionSaveAs"), tr("Save &As..."), QKeySequence::SaveAs, {}));
    connect(Action(QStringLiteral("actionSaveAs")), &QAction::triggered, this, [this] { SaveAs(); });
    file->addSeparator();
    file->addAction(AddAction(QStringLiteral("actionClose"), tr("&Close"), QKeySequence::Close, {}));
    connect(Action(QStringLiteral("actionClose")), &QAction::triggered, this, &QWidget::close);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    QAction* undo = m_undo->createUndoAction(this, tr("&Undo"));
    undo->setObjectName(QStringLiteral("actionUndo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = m_undo->createRedoAction(this, tr("&Redo"));
    redo->setObjectName(QStringLiteral("actionRedo"));
    redo->setShortcuts(QKeySequence::Redo);
    edit->addAction(undo);
    edit->addAction(redo);
    edit->addSeparator();
    // These keys belong to the surface: in the side panel's boxes they edit text.
    QAction* remove = AddAction(
        QStringLiteral("actionDelete"), tr("&Delete"), QKeySequence::Delete, [this] { DeleteSelection(); });
    QAction* all
        = AddAction(QStringLiteral("actionSelectAll"), tr("Select &All"), QKeySequence::SelectAll, {});
    connect(all, &QAction::triggered, this, [this] { m_surface->Select(m_surface->Ids()); });
    QAction* cut
        = AddAction(QStringLiteral("actionCut"), tr("Cu&t"), QKeySequence::Cut, [this] { CutSelection(); });
    QAction* copy = AddAction(
        QStringLiteral("actionCopy"), tr("&Copy"), QKeySequence::Copy, [this] { CopySelection(); });
    QAction* paste
        = AddAction(QStringLiteral("actionPaste"), tr("&Paste"), QKeySequence::Paste, [this] { Paste(); });
    for (QAction* action : { cut, copy, paste, remove, all }) {
        action->setShortcutContext(Qt::WidgetShortcut);
        m_surface->addAction(action);
        edit->addAction(action);
    }
    edit->addSeparator();
    edit->addAction(AddAction(QStringLiteral("actionProperties"), tr("Propert&ies..."),
        QKeySequence(Qt::CTRL | Qt::Key_P), [this] { OpenProperties(); }));
    edit->addSeparator();
    QAction* earlier = AddAction(QStringLiteral("actionEarlier"), tr("Earlier in Tab &Order"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Up), {});
    connect(earlier, &QAction::triggered, this, [this] { MoveInTabOrder(-1); });
    QAction* later = AddAction(QStringLiteral("actionLater"), tr("&Later in Tab Order"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Down), {});
    connect(later, &QAction::triggered, this, [this] { MoveInTabOrder(1); });
    edit->addAction(earlier);
    edit->addAction(later);

    QMenu* insert = menuBar()->addMenu(tr("&Insert"));
    QAction* place
        = AddAction(QStringLiteral("actionPlaceField"), tr("&Field"), QKeySequence(Qt::CTRL | Qt::Key_I), {});
    connect(place, &QAction::triggered, this, [this] { PlaceField(); });
    insert->addAction(place);
    m_placeTool = new QAction(tr("Field"), this);
    m_placeTool->setObjectName(QStringLiteral("actionPlaceTool"));
    m_placeTool->setCheckable(true);
    m_placeTool->setToolTip(tr("Click on the form where the new field goes"));
    connect(m_placeTool, &QAction::toggled, this, [this](bool armed) {
        m_surface->ArmPlacing(armed);
        m_surface->setCursor(armed ? Qt::CrossCursor : Qt::ArrowCursor);
    });

    QMenu* format = menuBar()->addMenu(tr("For&mat"));
    const struct {
        const char* name;
        QString menuText;
        Alignment alignment;
    } alignments[] = {
        { "actionAlignLefts", tr("Align &Lefts"), Alignment::Lefts },
        { "actionAlignRights", tr("Align &Rights"), Alignment::Rights },
        { "actionAlignTops", tr("Align &Tops"), Alignment::Tops },
        { "actionAlignBottoms", tr("Align &Bottoms"), Alignment::Bottoms },
        { "actionSameWidth", tr("Make Same &Width"), Alignment::SameWidth },
        { "actionSameHeight", tr("Make Same &Height"), Alignment::SameHeight },
        { "actionSameSize", tr("Make Same &Size"), Alignment::SameSize },
    };
    for (const auto& [name, menuText, alignment] : alignments) {
        if (alignment == Alignment::SameWidth) format->addSeparator();
        const QString stepText = QString(menuText).remove(QLatin1Char('&'));
        format->addAction(AddAction(QString::fromLatin1(name), menuText, {},
            [this, alignment, stepText] { AlignSelection(alignment, stepText); }));
    }

    QMenu* form = menuBar()->addMenu(tr("F&orm"));
    auto* modes = new QActionGroup(this);
    QAction* design = AddAction(QStringLiteral("actionDesign"), tr("&Design"),
        QKeySequence(Qt::SHIFT | Qt::Key_F5), [this] { Design(); });
    QAction* run
        = AddAction(QStringLiteral("actionRun"), tr("&Run"), QKeySequence(Qt::Key_F5), [this] { Run(); });
    for (QAction* action : { design, run }) {
        action->setCheckable(true);
        modes->addAction(action);
        form->addAction(action);
    }
    design->setChecked(true);

    QToolBar* tools = addToolBar(tr("Toolbox"));
    tools->setObjectName(QStringLiteral("Toolbox"));
    tools->setMovable(false);
    tools->addAction(design);
    tools->addAction(run);
    tools->addSeparator();
    tools->addAction(m_placeTool);
    tools->addAction(Action(QStringLiteral("actionProperties")));
    tools->addSeparator();
    tools->addAction(undo);
    tools->addAction(redo);
}

void DesignWindow::Connect() {
    connect(m_undo, &QUndoStack::cleanChanged, this, &DesignWindow::UpdateTitle);
    connect(m_undo, &QUndoStack::indexChanged, this, [this] {
        UpdateTitle();
        m_panel->Refresh(m_form);
    });
    connect(m_surface, &DesignSurface::SelectionChanged, this, [this] {
        m_panel->Refresh(m_form);
        UpdateActions();
    });
    connect(m_surface, &DesignSurface::FieldsChanged, this, [this] { m_panel->Refresh(m_form); });
    connect(m_surface, &DesignSurface::GeometryEdited, this,
        [this](const QList<int>& ids, const QList<QRect>& before, const QList<QRect>& after, bool byKey) {
            m_undo->push(new GeometryCommand(*m_surface, ids, before, after, byKey));
        });
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &DesignWindow::UpdateActions);
    connect(m_surface, &DesignSurface::FormResized, this, [this](const QSize& before, const QSize& after) {
        m_undo->push(new FormSizeCommand(*m_surface, before, after));
    });
    connect(m_surface, &DesignSurface::PlaceRequested, this, [this](const QPoint& at) {
        m_placeTool->setChecked(false);
        PlaceField(at);
    });
    connect(m_surface, &DesignSurface::DeleteRequested, this, &DesignWindow::DeleteSelection);
    connect(m_surface, &DesignSurface::PropertiesRequested, this, &DesignWindow::OpenProperties);
    connect(m_surface, &DesignSurface::FieldPropertyChanged, this, [this] {
        m_changedOutsideStack = true;
        UpdateTitle();
    });
    connect(m_surface, &DesignSurface::ContextMenuRequested, this, [this](const QPoint& at) {
        QMenu menu(this);
        for (const char* name : { "actionProperties", "actionCut", "actionCopy", "actionPaste",
                 "actionDelete", "actionEarlier", "actionLater", "actionSelectAll" })
            menu.addAction(Action(QString::fromLatin1(name)));
        menu.exec(at);
    });
    connect(m_panel, &FieldPanel::NameEdited, this, &DesignWindow::EditName);
    connect(m_panel, &FieldPanel::LabelEdited, this, [this](int id, const QString& label) {
        m_undo->push(new FieldTextCommand(
            *m_surface, id, FieldTextCommand::Which::Label, m_surface->Label(id), label));
    });
    connect(m_panel, &FieldPanel::ToolTipEdited, this, [this](int id, const QString& tip) {
        m_undo->push(new FieldTextCommand(
            *m_surface, id, FieldTextCommand::Which::ToolTip, m_surface->Field(id)->toolTip(), tip));
    });
    connect(m_panel, &FieldPanel::FormEdited, this, [this](const FormSettings& after) {
        m_undo->push(
            new FormSettingsCommand([this](const FormSettings& form) { SetForm(form); }, m_form, after));
    });
    connect(m_panel, &FieldPanel::TabOrderMove, this, &DesignWindow::MoveInTabOrder);
}

QMessageBox::StandardButton DesignWindow::Ask(
    QMessageBox::Icon icon, const QString& title, const QString& text, QMessageBox::StandardButtons buttons) {
    if (m_messageHandler) return m_messageHandler(icon, title, text, buttons);
    QMessageBox box(icon, title, text, buttons, this);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

void DesignWindow::SetLocaleName(const QString& name) {
    m_localeName = name;
    m_surface->SetLocaleName(name);
    for (int id : m_surface->Ids())
        m_surface->Field(id)->SetLocaleName(name);
}

void DesignWindow::SetPageServices(Alerts& alerts, const pages::Clock& clock) {
    m_alerts = &alerts;
    m_clock = &clock;
}

void DesignWindow::NewForm() {
    FormDocument document;
    document.title = qt::FromQString(tr("New form"));
    document.width = 480;
    document.height = 320;
    ShowForm(document, QString());
}

bool DesignWindow::OpenForm(const QString& path) {
    const std::string source = Shown(path).toStdString();
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
    m_surface->Reset(document.width, document.height);
    const std::string source = Shown(path).toStdString();
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
    document.showRefusalTips = m_form.showRefusalTips;
    document.showInlineState = m_form.showInlineState;
    for (PlacedField& placed : m_surface->Snapshots())
        document.controls.push_back(std::move(placed.field));
    return document;
}

bool DesignWindow::IsModified() const {
    return !m_undo->isClean() || m_changedOutsideStack;
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

int DesignWindow::PlaceField(std::optional<QPoint> at) {
    const int id = m_surface->CreateField(at);
    m_undo->push(
        new FieldsCommand(*m_surface, FieldsCommand::Kind::Place, { m_surface->Snapshot(id) }, true));
    m_surface->Select({ id });
    m_surface->setFocus();
    return id;
}

void DesignWindow::DeleteSelection() {
    RemoveSelection(FieldsCommand::Kind::Delete);
}

void DesignWindow::RemoveSelection(FieldsCommand::Kind kind) {
    std::vector<PlacedField> fields;
    for (int id : m_surface->Selection())
        fields.push_back(m_surface->Snapshot(id));
    if (!fields.empty()) m_undo->push(new FieldsCommand(*m_surface, kind, std::move(fields), false));
}

void DesignWindow::AlignSelection(Alignment alignment, const QString& stepText) {
    const int primary = m_surface->Primary();
    QList<int> ids;
    QList<QRect> before;
    for (int id : m_surface->Selection())
        if (id != primary) {
            ids << id;
            before << m_surface->GeometryOf(id);
        }
    QList<QRect> after = Aligned(before, m_surface->GeometryOf(primary), alignment);
    // A field made larger keeps its corner and is cut at the form's edge; a moved one stays whole.
    const bool sizing = alignment == Alignment::SameWidth || alignment == Alignment::SameHeight
        || alignment == Alignment::SameSize;
    for (QRect& r : after)
        r = m_surface->Clamped(sizing ? r.intersected(m_surface->rect()) : r);
    if (after != before) m_undo->push(new GeometryCommand(*m_surface, ids, before, after, false, stepText));
}

void DesignWindow::CopySelection() {
    std::vector<FormControl> fields;
    for (int id : m_surface->Selection())
        fields.push_back(m_surface->Snapshot(id).field);
    if (!fields.empty()) QApplication::clipboard()->setMimeData(FieldsToMime(fields, m_surface->size()));
}

void DesignWindow::CutSelection() {
    CopySelection();
    RemoveSelection(FieldsCommand::Kind::Cut);
}

void DesignWindow::Paste() {
    ClipboardFields pasted = FieldsFromMime(QApplication::clipboard()->mimeData());
    if (!pasted.error.empty()) {
        Ask(QMessageBox::Warning, tr("Paste"),
            tr("The fields on the clipboard cannot be pasted:\n%1").arg(QString::fromStdString(pasted.error)),
            QMessageBox::Ok);
        return;
    }
    if (pasted.fields.empty()) return;
    const QList<int> ids = m_surface->Ids();
    if (size_t(ids.size()) + pasted.fields.size() > kMaxFormFields) {
        Ask(QMessageBox::Warning, tr("Paste"),
            tr("A form holds at most %1 fields; this one has %2 and the clipboard %3.")
                .arg(kMaxFormFields)
                .arg(ids.size())
                .arg(pasted.fields.size()),
            QMessageBox::Ok);
        return;
    }
    std::vector<QRect> occupied;
    for (int id : ids)
        occupied.push_back(m_surface->GeometryOf(id));
    std::vector<PlacedField> placed;
    for (FormControl& field :
        FitPastedFields(std::move(pasted.fields), m_surface->Names(), occupied, m_surface->size()))
        placed.push_back({ m_surface->ReserveId(), int(ids.size() + placed.size()), std::move(field) });
    m_undo->push(new FieldsCommand(*m_surface, FieldsCommand::Kind::Paste, std::move(placed), false));
    m_surface->setFocus();
}

void DesignWindow::EditName(int id, const QString& name) {
    const QString problem = FieldNameProblem(name, m_surface->Names(id));
    if (problem.isEmpty()) {
        m_undo->push(new FieldTextCommand(
            *m_surface, id, FieldTextCommand::Which::Name, m_surface->Field(id)->objectName(), name));
        return;
    }
    m_panel->Refresh(m_form); // the box shows the name the field keeps
    Ask(QMessageBox::Warning, tr("Field Name"), tr("\"%1\" cannot name this field. %2").arg(name, problem),
        QMessageBox::Ok);
}

void DesignWindow::SetForm(const FormSettings& form) {
    m_form = form;
    m_panel->Refresh(m_form);
}

void DesignWindow::MoveInTabOrder(int delta) {
    const QList<int> selection = m_surface->Selection();
    if (selection.size() != 1) return;
    const QList<int> before = m_surface->Ids();
    const qsizetype from = before.indexOf(selection.front());
    const qsizetype to = from + delta;
    if (to < 0 || to >= before.size()) return;
    QList<int> after = before;
    after.move(from, to);
    m_undo->push(new TabOrderCommand(*m_surface, before, after));
}

void DesignWindow::OpenProperties() {
    const QList<int> selection = m_surface->Selection();
    if (selection.isEmpty()) return;
    if (m_frame) return m_frame->raise();
    m_frame = m_alerts ? new pages::PropertyPageFrame(*m_alerts, *m_clock, this)
                       : new pages::PropertyPageFrame(this);
    m_frame->SetLocaleName(m_localeName);
    pages::AddFieldPages(*m_frame);
    QList<qt::QuillmarEdit*> fields;
    for (int id : selection)
        fields << m_surface->Field(id);
    m_frame->SetSelectedControls(fields);
    m_frame->setWindowTitle(fields.size() == 1 ? tr("Properties of %1").arg(fields.front()->objectName())
                                               : tr("Properties of %1 fields").arg(fields.size()));
    m_beforeApply.clear();
    for (int id : selection)
        m_surface->Field(id)->control().WriteProperties(m_beforeApply[id]);
    // The frame's own handlers apply first (they were connected first); what they wrote is one undo step.
    connect(m_frame->ApplyButton(), &QPushButton::clicked, this, &DesignWindow::RecordPageApply);
    connect(m_frame->OkButton(), &QPushButton::clicked, this, &DesignWindow::RecordPageApply);
    connect(m_frame, &QDialog::finished, this, [this] {
        RecordPageApply();
        m_frame->deleteLater();
        m_frame = nullptr;
    });
    m_frame->open();
}

void DesignWindow::RecordPageApply() {
    std::vector<PropertiesCommand::Change> changes;
    for (auto& [id, before] : m_beforeApply) {
        qt::QuillmarEdit* field = m_surface->Field(id);
        if (!field) continue;
        quillmar::MemoryPropertyStore after;
        field->control().WriteProperties(after);
        if (after == before) continue;
        changes.push_back({ id, before, after });
        before = after;
    }
    m_changedOutsideStack = false;
    if (!changes.empty()) m_undo->push(new PropertiesCommand(*m_surface, std::move(changes)));
    UpdateTitle();
}

void DesignWindow::Run() {
    const FormDocument document = Document();
    const QString source = m_path.isEmpty() ? tr("the new form") : Shown(m_path);
    if (const auto fault = CheckFormDocument(document, source.toStdString())) {
        Ask(QMessageBox::Warning, tr("Run Form"), QString::fromStdString(*fault), QMessageBox::Ok);
        return Design();
    }
    // A form not saved yet has no folder of its own: its records go to the user's data folder.
    std::filesystem::path database;
    if (m_path.isEmpty()) {
        std::error_code ignored; // a folder that cannot be made is reported with the database
        std::filesystem::create_directories(UserDataFolder(), ignored);
        database = UserDataFolder() / "new-form.sqlite";
    } else {
        database = DefaultDatabasePath(m_path.toStdString());
    }
    delete m_runWindow;
    m_runWindow = new FormWindow(
        document, m_path.isEmpty() ? source : m_path, QString::fromStdString(database.string()));
    m_runWindow->setAttribute(Qt::WA_DeleteOnClose);
    m_runWindow->SetLocaleName(m_localeName);
    (void)m_runWindow->Load(source.toStdString());
    // The author learns it now, not at the first Submit; the form still runs to be tried out.
    if (const auto problem = m_runWindow->CheckDatabase())
        Ask(QMessageBox::Warning, tr("Run Form"),
            tr("Records of this form cannot be stored in %1:\n%2.")
                .arg(Shown(QString::fromStdString(database.string())), *problem),
            QMessageBox::Ok);
    // Queued: a widget tells it is destroyed before the pointer to it reads null.
    connect(
        m_runWindow, &QObject::destroyed, this,
        [this] {
            Action(QStringLiteral("actionDesign"))->setChecked(true);
            UpdateActions();
        },
        Qt::QueuedConnection);
    Action(QStringLiteral("actionRun"))->setChecked(true);
    m_runWindow->show();
    m_runWindow->activateWindow();
    UpdateActions();
}

void DesignWindow::Design() {
    if (m_runWindow && m_runWindow->close()) UpdateActions();
    const bool running = m_runWindow && m_runWindow->isVisible();
    Action(QStringLiteral("actionDesign"))->setChecked(!running);
    Action(QStringLiteral("actionRun"))->setChecked(running);
}

void DesignWindow::UpdateTitle() {
    const QString name = m_path.isEmpty() ? tr("New form") : QFileInfo(m_path).fileName();
    setWindowTitle(tr("%1[*] \u2014 Quillmar Forms Designer").arg(name));
    setWindowModified(IsModified());
}

void DesignWindow::UpdateActions() {
    // A closed run window is on its way out.
    const bool designing = !m_runWindow || !m_runWindow->isVisible();
    const qsizetype selected = m_surface->Selection().size();
    centralWidget()->setEnabled(designing);
    m_panel->setEnabled(designing);
    for (const char* name : { "actionDelete", "actionProperties", "actionCut", "actionCopy" })
        Action(QString::fromLatin1(name))->setEnabled(designing && selected > 0);
    const QMimeData* clipboard = QApplication::clipboard()->mimeData();
    Action(QStringLiteral("actionPaste"))
        ->setEnabled(designing && clipboard && clipboard->hasFormat(QString::fromLatin1(kFieldsMimeType)));
    for (const char* name : { "actionEarlier", "actionLater" })
        Action(QString::fromLatin1(name))->setEnabled(designing && selected == 1);
    for (const char* name : { "actionAlignLefts", "actionAlignRights", "actionAlignTops",
             "actionAlignBottoms", "actionSameWidth", "actionSameHeight", "actionSameSize" })
        Action(QString::fromLatin1(name))->setEnabled(designing && selected > 1);
    for (const char* name : { "actionPlaceField", "actionSelectAll" })
        Action(QString::fromLatin1(name))->setEnabled(designing);
    m_placeTool->setEnabled(designing);
}

} // namespace quillmar::forms
