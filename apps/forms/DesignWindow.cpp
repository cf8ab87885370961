#include "apps/forms/DesignWindow.h"

#include "apps/forms/DesignCommands.h"
#include "apps/forms/FieldClipboard.h"
#include "apps/forms/FieldNames.h"
#include "apps/forms/FormWindow.h"
#include "apps/forms/Record.h"
#include "apps/forms/ShownPath.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollArea>
#include <QToolBar>

#include <filesystem>
#include <system_error>

namespace quillmar::forms {

DesignWindow::DesignWindow(QWidget* parent)
    : QMainWindow(parent) {
    m_undo = new QUndoStack(this);
    m_surface = new DesignSurface;
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(m_surface);
    scroll->setBackgroundRole(QPalette::Dark);
    setCentralWidget(scroll);
    m_pages = new DesignPages(*m_surface, *m_undo, this);
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

void DesignWindow::BuildActions() {
    DesignActions& a = m_actions;
    QMenu* file = menuBar()->addMenu(tr("&File"));
    a.newForm = AddAction(QStringLiteral("actionNew"), tr("&New"), QKeySequence::New, [this] {
        if (MaySetAside()) NewForm();
    });
    a.open
        = AddAction(QStringLiteral("actionOpen"), tr("&Open..."), QKeySequence::Open, [this] { AskOpen(); });
    a.save = AddAction(QStringLiteral("actionSave"), tr("&Save"), QKeySequence::Save, [this] { Save(); });
    a.saveAs = AddAction(
        QStringLiteral("actionSaveAs"), tr("Save &As..."), QKeySequence::SaveAs, [this] { SaveAs(); });
    a.close = AddAction(QStringLiteral("actionClose"), tr("&Close"), QKeySequence::Close);
    connect(a.close, &QAction::triggered, this, &QWidget::close);
    file->addActions({ a.newForm, a.open, a.save, a.saveAs });
    file->addSeparator();
    file->addAction(a.close);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    a.undo = m_undo->createUndoAction(this, tr("&Undo"));
    a.undo->setObjectName(QStringLiteral("actionUndo"));
    a.undo->setShortcut(QKeySequence::Undo);
    a.redo = m_undo->createRedoAction(this, tr("&Redo"));
    a.redo->setObjectName(QStringLiteral("actionRedo"));
    a.redo->setShortcuts(QKeySequence::Redo);
    edit->addActions({ a.undo, a.redo });
    edit->addSeparator();
    // These keys belong to the surface: in the side panel's boxes they edit text.
    a.remove = AddAction(
        QStringLiteral("actionDelete"), tr("&Delete"), QKeySequence::Delete, [this] { DeleteSelection(); });
    a.selectAll = AddAction(QStringLiteral("actionSelectAll"), tr("Select &All"), QKeySequence::SelectAll,
        [this] { m_surface->Select(m_surface->Ids()); });
    a.cut = AddAction(QStringLiteral("actionCut"), tr("Cu&t"), QKeySequence::Cut, [this] { CutSelection(); });
    a.copy = AddAction(
        QStringLiteral("actionCopy"), tr("&Copy"), QKeySequence::Copy, [this] { CopySelection(); });
    a.paste
        = AddAction(QStringLiteral("actionPaste"), tr("&Paste"), QKeySequence::Paste, [this] { Paste(); });
    for (QAction* action : { a.cut, a.copy, a.paste, a.remove, a.selectAll }) {
        action->setShortcutContext(Qt::WidgetShortcut);
        m_surface->addAction(action);
        edit->addAction(action);
    }
    edit->addSeparator();
    a.properties = AddAction(QStringLiteral("actionProperties"), tr("Propert&ies..."),
        QKeySequence(Qt::CTRL | Qt::Key_P), [this] { OpenProperties(); });
    edit->addAction(a.properties);
    edit->addSeparator();
    a.earlier = AddAction(QStringLiteral("actionEarlier"), tr("Earlier in Tab &Order"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Up), [this] { MoveInTabOrder(-1); });
    a.later = AddAction(QStringLiteral("actionLater"), tr("&Later in Tab Order"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Down), [this] { MoveInTabOrder(1); });
    edit->addActions({ a.earlier, a.later });

    QMenu* insert = menuBar()->addMenu(tr("&Insert"));
    a.placeField = AddAction(QStringLiteral("actionPlaceField"), tr("&Field"),
        QKeySequence(Qt::CTRL | Qt::Key_I), [this] { PlaceField(); });
    insert->addAction(a.placeField);
    a.placeTool = AddAction(QStringLiteral("actionPlaceTool"), tr("Field"), {});
    a.placeTool->setCheckable(true);
    a.placeTool->setToolTip(tr("Click on the form where the new field goes"));
    connect(a.placeTool, &QAction::toggled, this, [this](bool armed) {
        m_surface->ArmPlacing(armed);
        m_surface->setCursor(armed ? Qt::CrossCursor : Qt::ArrowCursor);
    });

    QMenu* format = menuBar()->addMenu(tr("For&mat"));
    const struct {
        QAction* DesignActions::*member;
        const char* name;
        QString menuText;
        Alignment alignment;
    } alignments[] = {
        { &DesignActions::alignLefts, "actionAlignLefts", tr("Align &Lefts"), Alignment::Lefts },
        { &DesignActions::alignRights, "actionAlignRights", tr("Align &Rights"), Alignment::Rights },
        { &DesignActions::alignTops, "actionAlignTops", tr("Align &Tops"), Alignment::Tops },
        { &DesignActions::alignBottoms, "actionAlignBottoms", tr("Align &Bottoms"), Alignment::Bottoms },
        { &DesignActions::sameWidth, "actionSameWidth", tr("Make Same &Width"), Alignment::SameWidth },
        { &DesignActions::sameHeight, "actionSameHeight", tr("Make Same &Height"), Alignment::SameHeight },
        { &DesignActions::sameSize, "actionSameSize", tr("Make Same &Size"), Alignment::SameSize },
    };
    for (const auto& [member, name, menuText, alignment] : alignments) {
        if (alignment == Alignment::SameWidth) format->addSeparator();
        const QString stepText = QString(menuText).remove(QLatin1Char('&'));
        a.*member = AddAction(QString::fromLatin1(name), menuText, {},
            [this, alignment, stepText] { AlignSelection(alignment, stepText); });
        format->addAction(a.*member);
    }

    QMenu* form = menuBar()->addMenu(tr("F&orm"));
    auto* modes = new QActionGroup(this);
    a.design = AddAction(QStringLiteral("actionDesign"), tr("&Design"), QKeySequence(Qt::SHIFT | Qt::Key_F5),
        [this] { Design(); });
    a.run = AddAction(QStringLiteral("actionRun"), tr("&Run"), QKeySequence(Qt::Key_F5), [this] { Run(); });
    for (QAction* action : { a.design, a.run }) {
        action->setCheckable(true);
        modes->addAction(action);
        form->addAction(action);
    }
    a.design->setChecked(true);

    QToolBar* tools = addToolBar(tr("Toolbox"));
    tools->setObjectName(QStringLiteral("Toolbox"));
    tools->setMovable(false);
    tools->addActions({ a.design, a.run });
    tools->addSeparator();
    tools->addActions({ a.placeTool, a.properties });
    tools->addSeparator();
    tools->addActions({ a.undo, a.redo });
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
        m_actions.placeTool->setChecked(false);
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
        const DesignActions& a = m_actions;
        menu.addActions({ a.properties, a.cut, a.copy, a.paste, a.remove, a.earlier, a.later, a.selectAll });
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
    // What the pages changed is recorded as a step of its own, so it no longer counts as unrecorded.
    connect(m_pages, &DesignPages::Recording, this, [this] {
        m_changedOutsideStack = false;
        UpdateTitle();
    });
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
    m_pages->SetLocaleName(name);
    for (int id : m_surface->Ids())
        m_surface->Field(id)->SetLocaleName(name);
}

void DesignWindow::SetPageServices(Alerts& alerts, const pages::Clock& clock) {
    m_pages->SetServices(alerts, clock);
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
    m_pages->Open();
}

void DesignWindow::Run() {
    const FormDocument document = Document();
    const QString source = m_path.isEmpty() ? tr("the new form") : ShownPath(m_path);
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
                .arg(ShownPath(QString::fromStdString(database.string())), *problem),
            QMessageBox::Ok);
    // Queued: a widget tells it is destroyed before the pointer to it reads null.
    connect(
        m_runWindow, &QObject::destroyed, this,
        [this] {
            m_actions.design->setChecked(true);
            UpdateActions();
        },
        Qt::QueuedConnection);
    m_actions.run->setChecked(true);
    m_runWindow->show();
    m_runWindow->activateWindow();
    UpdateActions();
}

void DesignWindow::Design() {
    if (m_runWindow && m_runWindow->close()) UpdateActions();
    const bool running = m_runWindow && m_runWindow->isVisible();
    m_actions.design->setChecked(!running);
    m_actions.run->setChecked(running);
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
    const DesignActions& a = m_actions;
    for (QAction* action : { a.remove, a.properties, a.cut, a.copy })
        action->setEnabled(designing && selected > 0);
    const QMimeData* clipboard = QApplication::clipboard()->mimeData();
    a.paste->setEnabled(designing && clipboard && clipboard->hasFormat(QString::fromLatin1(kFieldsMimeType)));
    for (QAction* action : { a.earlier, a.later })
        action->setEnabled(designing && selected == 1);
    for (QAction* action :
        { a.alignLefts, a.alignRights, a.alignTops, a.alignBottoms, a.sameWidth, a.sameHeight, a.sameSize })
        action->setEnabled(designing && selected > 1);
    for (QAction* action : { a.placeField, a.selectAll, a.placeTool })
        action->setEnabled(designing);
}

} // namespace quillmar::forms
