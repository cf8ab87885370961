#pragma once

#include "apps/forms/DesignGeometry.h"
#include "formfile/FormFile.h"
#include "qt/QuillmarEdit.h"

#include <QLabel>
#include <QLine>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QRubberBand;

namespace quillmar::forms {

/// A field as the designer keeps it: a number that names it for the whole session (undo and redo bring
/// back a deleted field under the same number), and the field with its place in the tab order.
struct PlacedField {
    int id = 0;
    int index = 0;
    FormControl field;
};

/// The client area of a form being designed. It holds the form's fields in tab order, each a
/// `QuillmarEdit` in design mode with its label to its left, and it takes the mouse and the keys for them:
/// a field never receives a key or a click while its form is designed. A click selects a field, Ctrl+click
/// adds it to the selection or takes it out, a drag on the empty form draws a rubber band (Ctrl keeps the
/// selection), dragging a selected field moves the selection, the handles of a single selected field
/// resize it, the arrow keys move the selection by a pixel (with Shift they resize it), Delete deletes it.
/// The form's right and bottom edges and its corner grip resize the form, never smaller than its fields.
/// A dragged edge that comes within a few pixels of the same edge of another field meets it, and a guide
/// line shows it; with Alt held the drag places freely.
/// The surface changes nothing lasting by itself: it reports each finished edit, and the designer turns it
/// into an undoable command that calls back the editing methods below.
class DesignSurface : public QWidget {
    Q_OBJECT
public:
    explicit DesignSurface(QWidget* parent = nullptr);

    /// The locale of the fields ("en_US"; empty for the system's).
    void SetLocaleName(const QString& name) { m_localeName = name; }

    /// Adds a field at its place in the tab order, loading its properties as a form file's field is loaded;
    /// the error line (naming `source`, the field and the entry) when the field refuses a stored value.
    std::optional<std::string> InsertField(const PlacedField& placed, std::string_view source = "form");
    /// Adds a new field (initialised, not loaded) with a name of its own, showing that name as its text
    /// and as its label, its error messages titled after its label, at `at` (its top-left corner) or, when
    /// there is none, below the last field. Returns its id.
    int CreateField(std::optional<QPoint> at = std::nullopt);
    /// A number no field of the surface has or will be given by `CreateField`, for a field to be inserted.
    [[nodiscard]] int ReserveId() { return m_nextId++; }
    /// Removes the field.
    void RemoveField(int id);
    /// Removes every field and sets the form's size and the font its fields have unless they name another.
    void Reset(int width, int height, const FormFont& font = {});
    /// The font the form's fields have unless they name another.
    [[nodiscard]] const FormFont& Font() const noexcept { return m_font; }
    /// Sets the form's size, keeping its fields.
    void SetFormSize(const QSize& size);

    /// The field as the form file holds it, its properties as its control writes them now, less what reads
    /// back the same without them (`LeaveOutReadDefaults`).
    [[nodiscard]] PlacedField Snapshot(int id) const;
    /// The fields in tab order.
    [[nodiscard]] std::vector<PlacedField> Snapshots() const;
    [[nodiscard]] QList<int> Ids() const;
    [[nodiscard]] qt::QuillmarEdit* Field(int id) const;
    [[nodiscard]] int IdOf(const qt::QuillmarEdit* field) const;
    [[nodiscard]] QStringList Names(int except = 0) const;

    /// The field's place and size as the author set them (the widget may keep a height of its own).
    [[nodiscard]] QRect GeometryOf(int id) const;
    void SetGeometryOf(int id, const QRect& geometry);
    void SetName(int id, const QString& name);
    void SetLabel(int id, const QString& label);
    void SetToolTip(int id, const QString& toolTip);
    [[nodiscard]] QString Label(int id) const;
    /// Puts the fields in this tab order (every id once).
    void SetOrder(const QList<int>& ids);

    /// The selected fields in tab order.
    [[nodiscard]] QList<int> Selection() const;
    void Select(const QList<int>& ids);
    /// The selected field the others line up with: the one clicked last, or else the first in tab order;
    /// 0 when none is selected. Its handles are drawn filled.
    [[nodiscard]] int Primary() const;
    /// `geometry` moved and cut to lie on the form, no smaller than a field may be.
    [[nodiscard]] QRect Clamped(QRect geometry) const;

    /// While armed, the next click on the empty form places a new field there.
    void ArmPlacing(bool armed) { m_placing = armed; }

    /// The lines drawn while a field is dragged where one of its edges meets the same edge of another.
    [[nodiscard]] const QList<QLine>& Guides() const { return m_guides; }

    /// True while the surface itself changes its fields, so that their notices are not the author's edits.
    [[nodiscard]] bool Quiet() const { return m_quiet > 0; }
    /// Runs `change` (an undo or redo writing a field's properties) without reporting the field's notices.
    void Quietly(const std::function<void()>& change);

signals:
    void SelectionChanged();
    /// The author moved or resized fields: each id with its geometry before and after; `byKey` for a step of
    /// an arrow key.
    void GeometryEdited(
        const QList<int>& ids, const QList<QRect>& before, const QList<QRect>& after, bool byKey);
    /// The author clicked on the empty form with placing armed.
    void PlaceRequested(const QPoint& at);
    /// The author dragged the form's edge or corner.
    void FormResized(const QSize& before, const QSize& after);
    void DeleteRequested();
    void PropertiesRequested();
    void ContextMenuRequested(const QPoint& globalPos);
    /// A field's PropertyChanged.
    void FieldPropertyChanged(int id, const QString& name);
    /// The name, label or tool tip of a field, or the order of the fields changed.
    void FieldsChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct Entry {
        int id;
        qt::QuillmarEdit* edit;
        QLabel* label;
        QString labelText;
        QRect geometry;
        bool selected = false;
    };
    enum class Drag { None, Move, Resize, Band, Form };

    class QuietScope;
    /// The edges of the fields not being dragged.
    [[nodiscard]] FieldEdges OtherEdges() const;
    void ShowGuides(const QRect& dragged);
    Entry* Find(int id);
    const Entry* Find(int id) const;
    qt::QuillmarEdit* MakeEdit(const QString& name);
    qt::QuillmarEdit* AddEntry(const PlacedField& placed);
    void PlaceLabel(Entry& entry);
    [[nodiscard]] int FieldAt(const QPoint& point) const;
    [[nodiscard]] int HandleAt(const QPoint& point) const;
    /// The least size that keeps every field and its label on the form.
    [[nodiscard]] QSize LeastFormSize() const;
    void UpdateCursor(const QPoint& at);
    void FinishGeometry(bool byKey);
    void Nudge(int dx, int dy, bool resize);

    std::vector<Entry> m_entries;
    QString m_localeName;
    QWidget* m_overlay = nullptr;
    QRubberBand* m_band = nullptr;
    FormFont m_font;
    int m_nextId = 1;
    int m_quiet = 0;
    bool m_placing = false;
    Drag m_drag = Drag::None;
    int m_handle = -1;
    Qt::Edges m_formEdges;
    QSize m_formStart;
    int m_pressedId = 0;
    int m_primary = 0;
    QPoint m_pressAt;
    QList<int> m_dragIds;
    QList<QRect> m_dragStart;
    QList<int> m_bandKeeps;
    QList<QLine> m_guides;
};

} // namespace quillmar::forms
