#include "apps/forms/DesignSurface.h"

#include "apps/forms/DesignGeometry.h"
#include "apps/forms/FieldNames.h"
#include "apps/forms/FormFont.h"
#include "apps/forms/SelectionOverlay.h"
#include "qt/QuillmarForm.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>

#include <algorithm>
#include <optional>
#include <utility>

namespace quillmar::forms {
namespace {

constexpr int kGrid = 8;
constexpr QSize kNewFieldSize { 160, 21 };
constexpr int kNewFieldLeft = 120;
constexpr int kRowGap = 7;
constexpr QSize kLeastForm { 120, 60 };

} // namespace

class DesignSurface::QuietScope {
public:
    explicit QuietScope(DesignSurface& surface)
        : m_surface(surface) {
        ++m_surface.m_quiet;
    }
    ~QuietScope() { --m_surface.m_quiet; }
    QuietScope(const QuietScope&) = delete;
    QuietScope& operator=(const QuietScope&) = delete;

private:
    DesignSurface& m_surface;
};

DesignSurface::DesignSurface(QWidget* parent)
    : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true); // the cursor shows what a press on a handle or the form's edge would do
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Window);
    setFont(FormAmbientFont());
    m_overlay = new SelectionOverlay(this);
    m_band = new QRubberBand(QRubberBand::Rectangle, this);
    Reset(480, 320);
}

void DesignSurface::Reset(int width, int height, const FormFont& font) {
    m_font = font;
    for (Entry& entry : m_entries) {
        delete entry.edit;
        delete entry.label;
    }
    m_entries.clear();
    SetFormSize(QSize(width, height));
    emit SelectionChanged();
    emit FieldsChanged();
}

void DesignSurface::SetFormSize(const QSize& size) {
    setFixedSize(size);
    m_overlay->setGeometry(rect());
    m_overlay->update();
}

QSize DesignSurface::LeastFormSize() const {
    QSize least = kLeastForm;
    for (const Entry& entry : m_entries) {
        const QRect taken = entry.geometry.united(entry.label->geometry());
        least = least.expandedTo(QSize(taken.right() + 1, taken.bottom() + 1));
    }
    return least.boundedTo(QSize(kMaxFormExtent, kMaxFormExtent));
}

void DesignSurface::UpdateCursor(const QPoint& at) {
    if (m_placing) return; // the designer shows the placing cross
    const Qt::Edges edges = FormEdgesAt(size(), at);
    if (const int handle = HandleAt(at); handle >= 0)
        setCursor(HandleCursor(handle));
    else if (edges == (Qt::RightEdge | Qt::BottomEdge))
        setCursor(Qt::SizeFDiagCursor);
    else if (edges)
        setCursor(edges == Qt::RightEdge ? Qt::SizeHorCursor : Qt::SizeVerCursor);
    else
        setCursor(Qt::ArrowCursor);
}

DesignSurface::Entry* DesignSurface::Find(int id) {
    const auto found
        = std::find_if(m_entries.begin(), m_entries.end(), [id](const Entry& e) { return e.id == id; });
    return found == m_entries.end() ? nullptr : &*found;
}

const DesignSurface::Entry* DesignSurface::Find(int id) const {
    return const_cast<DesignSurface*>(this)->Find(id);
}

qt::QuillmarEdit* DesignSurface::MakeEdit(const QString& name) {
    auto* edit = new qt::QuillmarEdit(this);
    edit->setObjectName(name);
    edit->SetUserMode(false);
    edit->SetLocaleName(m_localeName);
    // The surface takes the mouse and the keys: the field only shows itself.
    for (QWidget* widget : { static_cast<QWidget*>(edit), static_cast<QWidget*>(edit->lineEdit()) }) {
        widget->setAttribute(Qt::WA_TransparentForMouseEvents);
        widget->setFocusPolicy(Qt::NoFocus);
    }
    connect(edit, &qt::QuillmarEdit::PropertyChanged, this, [this, edit](const QString& property) {
        if (!Quiet()) emit FieldPropertyChanged(IdOf(edit), property);
    });
    return edit;
}

void DesignSurface::PlaceLabel(Entry& entry) {
    entry.label->setText(entry.labelText + QLatin1Char(':'));
    entry.label->setGeometry(qt::FormLabelGeometry(entry.geometry));
}

qt::QuillmarEdit* DesignSurface::AddEntry(const PlacedField& placed) {
    const FormControl& field = placed.field;
    qt::QuillmarEdit* edit = MakeEdit(qt::ToQString(field.name));
    edit->setGeometry(field.left, field.top, field.width, field.height);
    edit->setToolTip(qt::ToQString(field.toolTip));
    auto* label = new QLabel(this);
    label->setFont(QApplication::font());
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_nextId = std::max(m_nextId, placed.id + 1);
    const auto at = m_entries.begin() + std::clamp<qsizetype>(placed.index, 0, qsizetype(m_entries.size()));
    Entry& entry = *m_entries.insert(
        at, Entry { placed.id, edit, label, qt::ToQString(field.label), edit->geometry() });
    entry.geometry = QRect(field.left, field.top, field.width, field.height);
    PlaceLabel(entry);
    edit->show();
    label->show();
    m_overlay->raise();
    return edit;
}

std::optional<std::string> DesignSurface::InsertField(const PlacedField& placed, std::string_view source) {
    QuietScope quiet(*this);
    PlacedField numbered = placed;
    if (numbered.id <= 0) numbered.id = m_nextId;
    qt::QuillmarEdit* edit = AddEntry(numbered);
    FormDocument one { {}, 0, 0, { placed.field } };
    one.font = m_font;
    auto error
        = BuildFormControls(one, source, [edit](const FormControl&) -> Quillmar& { return edit->control(); });
    emit FieldsChanged();
    return error;
}

int DesignSurface::CreateField(std::optional<QPoint> at) {
    QRect geometry(QPoint(kNewFieldLeft, kGrid + 4), kNewFieldSize);
    if (at) {
        geometry.moveTopLeft(*at);
    } else if (!m_entries.empty()) {
        int bottom = 0;
        for (const Entry& entry : m_entries)
            bottom = std::max(bottom, entry.geometry.bottom());
        geometry.moveTop(bottom + 1 + kRowGap);
    }
    const QString name = NextFieldName(Names());
    const QRect clamped = Clamped(geometry);
    PlacedField placed { m_nextId, int(m_entries.size()), {} };
    placed.field.name = qt::FromQString(name);
    placed.field.label = placed.field.name;
    placed.field.left = clamped.left();
    placed.field.top = clamped.top();
    placed.field.width = clamped.width();
    placed.field.height = clamped.height();
    QuietScope quiet(*this);
    qt::QuillmarEdit* edit = AddEntry(placed);
    // A placed field starts careful: no text to become its value in run mode, and no corrective action that
    // would put a guess in place of what a person typed until its author chooses one.
    Quillmar& control = edit->control();
    control.InitProperties();
    control.SetText(u"");
    VariantArray actions = control.Actions();
    for (size_t slot = 1; slot < actions.size(); ++slot)
        actions[slot] = Variant(int32_t { actions[slot].AsLong() & ~vldACChecked });
    control.SetActions(actions);
    edit->SetMessageBoxTitle(MessageTitleFor(name));
    emit FieldsChanged();
    return placed.id;
}

void DesignSurface::Quietly(const std::function<void()>& change) {
    QuietScope quiet(*this);
    change();
}

void DesignSurface::RemoveField(int id) {
    const auto found
        = std::find_if(m_entries.begin(), m_entries.end(), [id](const Entry& e) { return e.id == id; });
    if (found == m_entries.end()) return;
    const bool wasSelected = found->selected;
    delete found->edit;
    delete found->label;
    m_entries.erase(found);
    m_overlay->update();
    if (wasSelected) emit SelectionChanged();
    emit FieldsChanged();
}

PlacedField DesignSurface::Snapshot(int id) const {
    const Entry* entry = Find(id);
    PlacedField placed { id, int(entry - m_entries.data()), {} };
    FormControl& field = placed.field;
    const QRect g = entry->geometry;
    field.name = qt::FromQString(entry->edit->objectName());
    field.label = qt::FromQString(entry->labelText);
    field.toolTip = qt::FromQString(entry->edit->toolTip());
    field.left = g.left();
    field.top = g.top();
    field.width = g.width();
    field.height = g.height();
    entry->edit->control().WriteProperties(field.properties);
    LeaveOutReadDefaults(field.properties, m_font);
    return placed;
}

std::vector<PlacedField> DesignSurface::Snapshots() const {
    std::vector<PlacedField> all;
    for (const Entry& entry : m_entries)
        all.push_back(Snapshot(entry.id));
    return all;
}

QList<int> DesignSurface::Ids() const {
    QList<int> ids;
    for (const Entry& entry : m_entries)
        ids << entry.id;
    return ids;
}

qt::QuillmarEdit* DesignSurface::Field(int id) const {
    const Entry* entry = Find(id);
    return entry ? entry->edit : nullptr;
}

int DesignSurface::IdOf(const qt::QuillmarEdit* field) const {
    for (const Entry& entry : m_entries)
        if (entry.edit == field) return entry.id;
    return 0;
}

QStringList DesignSurface::Names(int except) const {
    QStringList names;
    for (const Entry& entry : m_entries)
        if (entry.id != except) names << entry.edit->objectName();
    return names;
}

QRect DesignSurface::GeometryOf(int id) const {
    const Entry* entry = Find(id);
    return entry ? entry->geometry : QRect();
}

void DesignSurface::SetGeometryOf(int id, const QRect& geometry) {
    if (Entry* entry = Find(id)) {
        entry->geometry = geometry;
        entry->edit->setGeometry(geometry);
        PlaceLabel(*entry);
        m_overlay->update();
    }
}

void DesignSurface::SetName(int id, const QString& name) {
    if (Entry* entry = Find(id)) entry->edit->setObjectName(name);
    emit FieldsChanged();
}

void DesignSurface::SetLabel(int id, const QString& label) {
    if (Entry* entry = Find(id)) {
        entry->labelText = label;
        PlaceLabel(*entry);
    }
    emit FieldsChanged();
}

void DesignSurface::SetToolTip(int id, const QString& toolTip) {
    if (Entry* entry = Find(id)) entry->edit->setToolTip(toolTip);
    emit FieldsChanged();
}

QString DesignSurface::Label(int id) const {
    const Entry* entry = Find(id);
    return entry ? entry->labelText : QString();
}

void DesignSurface::SetOrder(const QList<int>& ids) {
    std::vector<Entry> ordered;
    for (int id : ids)
        if (const Entry* entry = Find(id)) ordered.push_back(*entry);
    if (ordered.size() != m_entries.size()) return;
    m_entries = std::move(ordered);
    emit FieldsChanged();
}

QList<int> DesignSurface::Selection() const {
    QList<int> ids;
    for (const Entry& entry : m_entries)
        if (entry.selected) ids << entry.id;
    return ids;
}

void DesignSurface::Select(const QList<int>& ids) {
    bool changed = false;
    for (Entry& entry : m_entries) {
        const bool selected = ids.contains(entry.id);
        changed = changed || selected != entry.selected;
        entry.selected = selected;
    }
    m_overlay->update();
    if (changed) emit SelectionChanged();
}

int DesignSurface::Primary() const {
    const QList<int> selected = Selection();
    if (selected.contains(m_primary)) return m_primary;
    return selected.isEmpty() ? 0 : selected.front();
}

int DesignSurface::FieldAt(const QPoint& point) const {
    // The last field is drawn on top, so it is the one a click finds; its label counts as part of it.
    for (auto it = m_entries.rbegin(); it != m_entries.rend(); ++it)
        if (it->geometry.contains(point) || it->label->geometry().contains(point)) return it->id;
    return 0;
}

int DesignSurface::HandleAt(const QPoint& point) const {
    const QList<int> selected = Selection();
    if (selected.size() != 1) return -1;
    return forms::HandleAt(GeometryOf(selected.front()), point);
}

QRect DesignSurface::Clamped(QRect geometry) const {
    return ClampedToForm(geometry, size());
}

void DesignSurface::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    for (int y = kGrid; y < height(); y += kGrid)
        for (int x = kGrid; x < width(); x += kGrid)
            painter.drawPoint(x, y);
}

void DesignSurface::mousePressEvent(QMouseEvent* event) {
    setFocus(Qt::MouseFocusReason);
    if (event->button() != Qt::LeftButton) return;
    const QPoint at = event->position().toPoint();
    const bool ctrl = event->modifiers() & Qt::ControlModifier;
    m_pressAt = at;
    m_drag = Drag::None;
    if (const int handle = HandleAt(at); handle >= 0 && !ctrl) {
        m_drag = Drag::Resize;
        m_handle = handle;
    } else if (const Qt::Edges edges = FormEdgesAt(size(), at); edges && !m_placing) {
        m_drag = Drag::Form;
        m_formEdges = edges;
        m_formStart = size();
        return;
    } else if (const int id = FieldAt(at)) {
        QList<int> selection = Selection();
        if (ctrl) {
            if (selection.contains(id))
                selection.removeAll(id);
            else
                selection << id;
        } else if (!selection.contains(id)) {
            selection = { id };
        }
        m_primary = id;
        Select(selection);
        if (!ctrl) m_drag = Drag::Move;
        m_pressedId = id;
    } else if (m_placing) {
        emit PlaceRequested(at);
        return;
    } else {
        m_drag = Drag::Band;
        m_bandKeeps = ctrl ? Selection() : QList<int>();
        if (!ctrl) Select({});
        m_band->setGeometry(QRect(at, QSize()));
        m_band->show();
    }
    m_dragIds = Selection();
    m_dragStart.clear();
    for (int id : m_dragIds)
        m_dragStart << GeometryOf(id);
}

FieldEdges DesignSurface::OtherEdges() const {
    QList<QRect> others;
    for (const Entry& entry : m_entries)
        if (!m_dragIds.contains(entry.id)) others << entry.geometry;
    return EdgesOf(others);
}

void DesignSurface::ShowGuides(const QRect& dragged) {
    m_guides = GuidesFor(dragged, OtherEdges(), size());
    m_overlay->update();
}

void DesignSurface::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const QPoint delta = at - m_pressAt;
    const bool snap = !(event->modifiers() & Qt::AltModifier);
    if (m_drag == Drag::Form) {
        QSize wanted = m_formStart;
        if (m_formEdges & Qt::RightEdge) wanted.rwidth() += delta.x();
        if (m_formEdges & Qt::BottomEdge) wanted.rheight() += delta.y();
        SetFormSize(wanted.expandedTo(LeastFormSize()).boundedTo(QSize(kMaxFormExtent, kMaxFormExtent)));
    } else if (m_drag == Drag::Band) {
        const QRect band = QRect(m_pressAt, at).normalized();
        m_band->setGeometry(band);
        QList<int> selection = m_bandKeeps;
        for (const Entry& entry : m_entries)
            if (band.intersects(entry.geometry) && !selection.contains(entry.id)) selection << entry.id;
        Select(selection);
    } else if (m_drag == Drag::Move) {
        // The selection moves as one block that stays on the form.
        QRect block;
        for (const QRect& r : m_dragStart)
            block = block.united(r);
        QRect moved = Clamped(block.translated(delta));
        // An edge near the same edge of another field meets it; Alt places the block freely.
        if (snap) moved = Clamped(moved.translated(SnapShift(moved, OtherEdges())));
        const QPoint shift = moved.topLeft() - block.topLeft();
        for (int i = 0; i < m_dragIds.size(); ++i)
            SetGeometryOf(m_dragIds[i], m_dragStart[i].translated(shift));
        ShowGuides(moved);
    } else if (m_drag == Drag::Resize && m_dragIds.size() == 1) {
        // Alt places freely: no edges to meet.
        SetGeometryOf(m_dragIds.front(),
            ResizedByHandle(
                m_dragStart.front(), m_handle, delta, snap ? OtherEdges() : FieldEdges {}, size()));
        ShowGuides(GeometryOf(m_dragIds.front()));
    } else if (m_drag == Drag::None) {
        UpdateCursor(at);
    }
}

void DesignSurface::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    m_band->hide();
    m_guides.clear();
    m_overlay->update();
    if (m_drag == Drag::Move || m_drag == Drag::Resize) FinishGeometry(false);
    if (m_drag == Drag::Form && size() != m_formStart) emit FormResized(m_formStart, size());
    // A click on one of several selected fields that moved nothing selects that field alone.
    if (m_drag == Drag::Move && m_pressedId && event->position().toPoint() == m_pressAt)
        Select({ m_pressedId });
    m_pressedId = 0;
    m_drag = Drag::None;
}

void DesignSurface::FinishGeometry(bool byKey) {
    QList<QRect> after;
    for (int id : m_dragIds)
        after << GeometryOf(id);
    if (after != m_dragStart) emit GeometryEdited(m_dragIds, m_dragStart, after, byKey);
}

void DesignSurface::mouseDoubleClickEvent(QMouseEvent* event) {
    if (const int id = FieldAt(event->position().toPoint())) {
        if (!Selection().contains(id)) Select({ id });
        emit PropertiesRequested();
    }
}

void DesignSurface::contextMenuEvent(QContextMenuEvent* event) {
    if (const int id = FieldAt(event->pos()); id && !Selection().contains(id)) Select({ id });
    emit ContextMenuRequested(event->globalPos());
}

void DesignSurface::Nudge(int dx, int dy, bool resize) {
    m_dragIds = Selection();
    if (m_dragIds.isEmpty()) return;
    m_dragStart.clear();
    for (int id : m_dragIds)
        m_dragStart << GeometryOf(id);
    for (int i = 0; i < m_dragIds.size(); ++i) {
        QRect r = m_dragStart[i];
        if (resize)
            r.setSize(r.size() + QSize(dx, dy));
        else
            r.translate(dx, dy);
        SetGeometryOf(m_dragIds[i], Clamped(r));
    }
    FinishGeometry(true);
}

void DesignSurface::keyPressEvent(QKeyEvent* event) {
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    switch (event->key()) {
    case Qt::Key_Left:
        return Nudge(-1, 0, shift);
    case Qt::Key_Right:
        return Nudge(1, 0, shift);
    case Qt::Key_Up:
        return Nudge(0, -1, shift);
    case Qt::Key_Down:
        return Nudge(0, 1, shift);
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (!Selection().isEmpty()) emit DeleteRequested();
        return;
    case Qt::Key_Escape:
        return Select({});
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace quillmar::forms
