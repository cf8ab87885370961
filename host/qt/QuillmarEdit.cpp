#include "host/qt/QuillmarEdit.h"

#include "host/qt/EditHistory.h"
#include "host/qt/FieldHints.h"
#include "host/qt/QtAlerts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QStyle>
#include <QValidator>

#include <algorithm>
#include <atomic>
#include <functional>
#include <limits>

namespace quillmar::qt {
namespace {

constexpr int16_t kShiftMask = 1;
constexpr int16_t kCtrlMask = 2;
constexpr int16_t kAltMask = 4;

int32_t NextHandle() {
    static std::atomic<int32_t> next { 0x10000 };
    return next.fetch_add(4);
}

int16_t ShiftMask(Qt::KeyboardModifiers modifiers) {
    int16_t mask = 0;
    if (modifiers & Qt::ShiftModifier) mask |= kShiftMask;
    if (modifiers & Qt::ControlModifier) mask |= kCtrlMask;
    if (modifiers & Qt::AltModifier) mask |= kAltMask;
    return mask;
}

// A printable character typed with AltGr, which some platforms deliver as Ctrl+Alt: it is typing, not a
// Ctrl shortcut, so it is reported without the Ctrl bit and sifted like any typed key.
bool IsAltGrCharacter(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    if (!(modifiers & Qt::ControlModifier) || !(modifiers & Qt::AltModifier)) return false;
    const QString text = event.text();
    return text.size() == 1 && text[0].unicode() >= 32 && text[0].unicode() != 127;
}

// The Shift argument of a key event.
int16_t KeyShiftMask(const QKeyEvent& event) {
    const int16_t mask = ShiftMask(event.modifiers());
    return IsAltGrCharacter(event) ? static_cast<int16_t>(mask & ~kCtrlMask) : mask;
}

// Whether a key may be one of the platform's undo or redo keys: those all come with a modifier other than
// Shift, or are the keyboard's own Undo and Redo keys. Looking a key up among the platform's bindings costs
// more than the rest of a typed key, so plain typing skips it.
bool MayUndoOrRedo(const QKeyEvent& event) {
    return (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != Qt::NoModifier
        || event.key() == Qt::Key_Undo || event.key() == Qt::Key_Redo;
}

// The keys that undo and redo in the field: the platform's own, and Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z
// everywhere.
bool IsUndoKey(const QKeyEvent& event) {
    if (!MayUndoOrRedo(event)) return false;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return event.matches(QKeySequence::Undo)
        || (modifiers == Qt::ControlModifier && event.key() == Qt::Key_Z);
}

bool IsRedoKey(const QKeyEvent& event) {
    if (!MayUndoOrRedo(event)) return false;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return event.matches(QKeySequence::Redo) || (modifiers == Qt::ControlModifier && event.key() == Qt::Key_Y)
        || (modifiers == (Qt::ControlModifier | Qt::ShiftModifier) && event.key() == Qt::Key_Z);
}

int16_t ButtonMask(Qt::MouseButtons buttons) {
    int16_t mask = 0;
    if (buttons & Qt::LeftButton) mask |= 1;
    if (buttons & Qt::RightButton) mask |= 2;
    if (buttons & Qt::MiddleButton) mask |= 4;
    return mask;
}

// The Windows-style code a key-down reports: letters by their capital, digits and space as themselves,
// editing and moving keys by their own codes.
int16_t VirtualKey(const QKeyEvent& event) {
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)
        || key == Qt::Key_Space)
        return static_cast<int16_t>(key);
    switch (key) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    case Qt::Key_Semicolon:
    case Qt::Key_Colon:
        return 186;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return 187;
    case Qt::Key_Comma:
        return 188;
    case Qt::Key_Minus:
        return 189;
    case Qt::Key_Period:
        return 190;
    case Qt::Key_Slash:
        return 191;
    default:
        if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return static_cast<int16_t>(112 + key - Qt::Key_F1);
        return event.text().isEmpty() ? 0 : 229; // a character that does not come from one known key
    }
}

// The character code a key types, as the form's KeyPress sees it: printable characters, Backspace (8),
// Enter (13), Escape (27) and the control characters of Ctrl with a letter (Ctrl+V is 22). 0: no character.
int16_t KeyAscii(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Escape:
        return 27;
    default:
        break;
    }
    if ((event.modifiers() & Qt::ControlModifier) && !IsAltGrCharacter(event) && event.key() >= Qt::Key_A
        && event.key() <= Qt::Key_Z)
        return static_cast<int16_t>(event.key() - Qt::Key_A + 1);
    const QString text = event.text();
    if (text.size() != 1 || text[0].unicode() < 32 || text[0].unicode() == 127) return 0;
    return static_cast<int16_t>(text[0].unicode());
}

QString TextOf(const DataObject& data) {
    const Variant text = data.GetData(kTextFormat);
    return text.IsString() ? ToQString(text.AsString()) : QString();
}

/// Holds the user's edits to what a native single-line edit box takes: a pasted, dropped or input-method text
/// goes in up to its first line break and is cut to the room MaxLength leaves beside the rest of the text; a
/// typed key that does not fit is refused. A text the program writes is kept whole, however long
/// and whatever it holds; the rules then report it. QLineEdit's own limit cannot do this: it cuts
/// programmatic texts too.
class UserEditLimits final : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& input, int& pos) const override {
        if (programmatic) return Acceptable;
        // The line edit checks the text it was given back once more before it takes it: that text is already
        // what the edit makes.
        if (!lastMade.isNull() && input == lastMade) return Acceptable;
        const State state = Check(input, pos);
        if (state == Acceptable) lastMade = input;
        return state;
    }

    /// The most characters the user may bring the text to; 0 for no limit.
    qsizetype limit = 0;
    /// True while the control itself writes the text.
    bool programmatic = false;
    /// True while a typed character goes in.
    bool typing = false;
    /// True while an input method's text goes in (sifted as typed keys, not as a paste).
    bool composing = false;
    /// Rewrites a pasted or dropped text before it goes in.
    std::function<void(std::u16string&)> rewritePaste;
    /// The text before the edit being checked, and where its selection (or the caret) began.
    QString previous;
    qsizetype previousStart = 0;
    /// What the check made of the edit under way; null once the line edit has taken the text.
    mutable QString lastMade;

private:
    State Check(QString& input, int& pos) const {
        // The edit replaced the selection (or nothing, at the caret) of the previous text with what now ends
        // at the caret. When the two texts do not bear that out (an undo, say), what both begin and end with
        // is taken to have stayed.
        qsizetype head = previousStart;
        qsizetype tail = input.size() - pos;
        const bool fromSelection = pos >= 0 && head >= 0 && head <= pos && tail >= 0
            && head + tail <= previous.size()
            && QStringView(input).left(head) == QStringView(previous).left(head)
            && QStringView(input).right(tail) == QStringView(previous).right(tail);
        if (!fromSelection) {
            const qsizetype shorter = std::min(input.size(), previous.size());
            head = 0;
            while (head < shorter && input[head] == previous[head])
                ++head;
            tail = 0;
            while (tail < shorter - head
                && input[input.size() - 1 - tail] == previous[previous.size() - 1 - tail])
                ++tail;
        }
        qsizetype inserted = input.size() - head - tail;
        for (qsizetype i = head; i < head + inserted; ++i)
            if (input[i] == u'\r' || input[i] == u'\n') inserted = i - head;
        // The first line of a pasted or dropped text is made to read as typed in the field, as the in-memory
        // box does, before the room left cuts it.
        if (!typing && !composing && rewritePaste && inserted > 0) {
            std::u16string pasted = FromQString(input.mid(head, inserted));
            const std::u16string given = pasted;
            rewritePaste(pasted);
            if (pasted != given) {
                input = input.left(head) + ToQString(pasted) + input.right(tail);
                inserted = static_cast<qsizetype>(pasted.size());
                pos = static_cast<int>(head + inserted);
            }
        }
        if (limit > 0 && inserted > limit - head - tail) {
            if (typing) return Invalid; // a key that does not fit is refused
            inserted = std::max<qsizetype>(limit - head - tail, 0);
        }
        if (head + inserted + tail == input.size()) return Acceptable;
        // Nothing of the edit left to make: it is undone whole.
        if (inserted == 0 && head + tail == previous.size()) return Invalid;
        input = input.left(head + inserted) + input.right(tail);
        pos = static_cast<int>(head + inserted);
        return Acceptable;
    }
};

} // namespace

/// Everything the control needs from its host, done with Qt, and the bridge that turns the control's events
/// into the widget's signals.
class QtServices final : public Container,
                         public EditBox,
                         public Alerts,
                         public LocaleSource,
                         public AboutBox,
                         public QuillmarEvents {
public:
    explicit QtServices(QuillmarEdit& owner);

    // Container.
    void PropertyChanged(std::u16string_view name) override { emit m_owner.PropertyChanged(ToQString(name)); }
    [[nodiscard]] bool UserMode() const override { return m_userMode; }
    [[nodiscard]] FontDesc AmbientFont() const override {
        return FromQFont(m_owner.parentWidget() ? m_owner.parentWidget()->font() : QApplication::font());
    }
    [[nodiscard]] std::optional<std::u16string> ExtenderName() const override {
        return FromQString(m_owner.objectName());
    }
    [[nodiscard]] std::optional<std::u16string> ExtenderToolTipText() const override {
        return FromQString(m_owner.toolTip());
    }
    [[nodiscard]] bool ExtenderVisible() const override { return m_owner.isVisible(); }
    void SetFocus() override { m_edit->setFocus(Qt::OtherFocusReason); }
    void SetWidth(int32_t width) override { Resize(width, m_owner.height()); }
    void SetHeight(int32_t height) override { Resize(m_owner.width(), height); }

    // Edit box.
    void SetEvents(EditBoxEvents* events) override { m_events = events; }
    [[nodiscard]] std::u16string Text() const override { return FromQString(m_edit->text()); }
    void SetText(std::u16string_view text) override {
        if (m_restoring) return;
        const Programmatic write(*m_limit);
        // Inside an edit (the user's, or a final-validation write) the write is part of that edit's step; a
        // final-validation write of its own is a step of its own; the program's text starts the history
        // afresh.
        if (m_history.InGroup()) return m_edit->setText(ToQString(text));
        if (m_owner.m_control && m_owner.m_control->state().ProgrammaticWrite) {
            const HistoryStep step(*this);
            return m_edit->setText(ToQString(text));
        }
        m_edit->setText(ToQString(text));
        m_history.Reset(State());
    }
    [[nodiscard]] int32_t SelStart() const override {
        return m_edit->hasSelectedText() ? m_edit->selectionStart() : m_edit->cursorPosition();
    }
    void SetSelStart(int32_t start) override {
        if (!m_restoring) m_edit->setCursorPosition(std::max(start, 0));
    }
    [[nodiscard]] int32_t SelLength() const override { return m_edit->selectionLength(); }
    void SetSelLength(int32_t length) override {
        if (m_restoring) return;
        const int32_t start = SelStart();
        m_edit->setSelection(
            start, std::clamp<int32_t>(length, 0, static_cast<int32_t>(m_edit->text().size()) - start));
    }
    [[nodiscard]] std::u16string SelText() const override { return FromQString(m_edit->selectedText()); }
    void SetSelText(std::u16string_view text) override {
        if (m_restoring) return;
        const Programmatic write(*m_limit);
        const HistoryStep step(*this);
        m_edit->insert(ToQString(text));
    }
    [[nodiscard]] int32_t MaxLength() const override { return static_cast<int32_t>(m_limit->limit); }
    void SetMaxLength(int32_t length) override { m_limit->limit = std::max(length, 0); }
    [[nodiscard]] int16_t Alignment() const override { return m_alignment; }
    void SetAlignment(int16_t value) override;
    [[nodiscard]] int16_t Appearance() const override { return m_appearance; }
    void SetAppearance(int16_t value) override {
        m_appearance = value;
        ApplyFrame();
    }
    [[nodiscard]] int16_t BorderStyle() const override { return m_borderStyle; }
    void SetBorderStyle(int16_t value) override {
        m_borderStyle = value;
        ApplyFrame();
    }
    [[nodiscard]] bool Locked() const override { return m_edit->isReadOnly(); }
    void SetLocked(bool value) override { m_edit->setReadOnly(value); }
    [[nodiscard]] std::u16string PasswordChar() const override { return m_passwordChar; }
    void SetPasswordChar(std::u16string_view value) override;
    [[nodiscard]] bool RightToLeft() const override { return m_edit->layoutDirection() == Qt::RightToLeft; }
    void SetRightToLeft(bool value) override {
        m_edit->setLayoutDirection(value ? Qt::RightToLeft : Qt::LeftToRight);
    }
    [[nodiscard]] int16_t MousePointer() const override { return m_mousePointer; }
    void SetMousePointer(int16_t value) override {
        m_mousePointer = value;
        ApplyCursor();
    }
    [[nodiscard]] PictureRef MouseIcon() const override { return m_mouseIcon; }
    void SetMouseIcon(PictureRef value) override {
        m_mouseIcon = std::move(value);
        ApplyCursor();
    }
    [[nodiscard]] FontDesc Font() const override { return m_font; }
    void SetFont(const FontDesc& font) override {
        m_font = font;
        m_edit->setFont(ToQFont(font));
    }
    [[nodiscard]] uint32_t BackColor() const override { return m_backColor; }
    void SetBackColor(uint32_t value) override {
        m_backColor = value;
        ApplyColours();
    }
    [[nodiscard]] uint32_t ForeColor() const override { return m_foreColor; }
    void SetForeColor(uint32_t value) override {
        m_foreColor = value;
        ApplyColours();
    }
    [[nodiscard]] int16_t OLEDragMode() const override { return m_oleDragMode; }
    void SetOLEDragMode(int16_t value) override {
        m_oleDragMode = value;
        m_edit->setDragEnabled(value == 1);
    }
    [[nodiscard]] int16_t OLEDropMode() const override { return m_oleDropMode; }
    void SetOLEDropMode(int16_t value) override {
        m_oleDropMode = value;
        m_edit->setAcceptDrops(value != 0);
    }
    [[nodiscard]] bool Enabled() const override { return m_edit->isEnabled(); }
    void SetEnabled(bool value) override {
        m_owner.setEnabled(value);
        m_edit->setEnabled(value);
    }
    [[nodiscard]] bool HideSelection() const override { return true; }
    [[nodiscard]] int32_t Handle() const override { return m_handle; }
    void Refresh() override { m_edit->update(); }
    [[nodiscard]] std::u16string ToolTipText() const override { return FromQString(m_edit->toolTip()); }
    void SetToolTipText(std::u16string_view text) override { m_edit->setToolTip(ToQString(text)); }
    void Move(int32_t left, int32_t top, int32_t width, int32_t height) override {
        m_edit->setGeometry(
            left, top, std::max(width, 0), std::max(height, m_edit->minimumSizeHint().height()));
    }
    [[nodiscard]] int32_t Width() const override { return m_edit->width(); }
    [[nodiscard]] int32_t Height() const override { return m_edit->height(); }
    void OLEDrag() override;

    // Alerts, locale and about box.
    void Beep() override {
        if (!m_restoring) m_beep ? m_beep() : QApplication::beep();
    }
    void MessageBox(std::u16string_view text, std::u16string_view title, int16_t icon) override;
    [[nodiscard]] Answer Question(std::u16string_view text, std::u16string_view title, int16_t icon) override;
    [[nodiscard]] LocaleInfo Locale() const override {
        return LocaleInfo::FromName(
            (m_localeName.isEmpty() ? QLocale::system().name() : m_localeName).toStdString());
    }
    void Show() override;

    // The control's events, raised as the widget's signals.
    void OLEStartDrag(DataObject& d, int32_t& e) override { emit m_owner.OLEStartDrag(d, e); }
    void OLESetData(DataObject& d, int16_t& f) override { emit m_owner.OLESetData(d, f); }
    void OLEGiveFeedback(int32_t& e, bool& c) override { emit m_owner.OLEGiveFeedback(e, c); }
    void OLEDragOver(
        DataObject& d, int32_t& e, int16_t& b, int16_t& s, float& x, float& y, int16_t& st) override {
        emit m_owner.OLEDragOver(d, e, b, s, x, y, st);
    }
    void OLEDragDrop(DataObject& d, int32_t& e, int16_t& b, int16_t& s, float& x, float& y) override {
        emit m_owner.OLEDragDrop(d, e, b, s, x, y);
    }
    void OLECompleteDrag(int32_t& e) override { emit m_owner.OLECompleteDrag(e); }
    void KeyDown(int16_t& k, int16_t& s) override { emit m_owner.KeyDown(k, s); }
    void KeyPress(int16_t& k) override { emit m_owner.KeyPress(k); }
    void KeyUp(int16_t& k, int16_t& s) override { emit m_owner.KeyUp(k, s); }
    void MouseDown(int16_t& b, int16_t& s, float& x, float& y) override {
        emit m_owner.MouseDown(b, s, x, y);
    }
    void MouseMove(int16_t& b, int16_t& s, float& x, float& y) override {
        emit m_owner.MouseMove(b, s, x, y);
    }
    void MouseUp(int16_t& b, int16_t& s, float& x, float& y) override { emit m_owner.MouseUp(b, s, x, y); }
    void Click() override { emit m_owner.Click(); }
    void DblClick() override { emit m_owner.DblClick(); }
    void Change() override { emit m_owner.Change(); }

    [[nodiscard]] EditBoxEvents* Events() const { return m_events; }
    [[nodiscard]] UserEditLimits& Limits() const { return *m_limit; }
    /// True while the field's own message box or about box is open: the focus it takes is not leaving.
    [[nodiscard]] bool InOwnDialog() const { return m_dialogsOpen > 0; }
    [[nodiscard]] bool Resizing() const { return m_resizing; }

    /// Makes what happens in its scope (a key, a drop, a final-validation write and the repairs they cause)
    /// one undo step.
    class HistoryStep {
    public:
        explicit HistoryStep(QtServices& services)
            : m_services(services) {
            services.m_history.Begin(services.State());
        }
        ~HistoryStep() { m_services.m_history.End(m_services.State()); }
        HistoryStep(const HistoryStep&) = delete;
        HistoryStep& operator=(const HistoryStep&) = delete;

    private:
        QtServices& m_services;
    };

    [[nodiscard]] bool CanUndo() const { return !m_edit->isReadOnly() && m_history.CanUndo(); }
    [[nodiscard]] bool CanRedo() const { return !m_edit->isReadOnly() && m_history.CanRedo(); }
    void Undo() {
        if (CanUndo()) Restore(m_history.Undo());
    }
    void Redo() {
        if (CanRedo()) Restore(m_history.Redo());
    }

    QuillmarEdit& m_owner;
    QLineEdit* m_edit = nullptr;
    bool m_userMode = true;
    QString m_localeName;
    QuillmarEdit::MessageBoxHandler m_messageBox;
    std::function<void()> m_beep;
    std::function<void()> m_aboutBox;

private:
    // Marks the text writes that come from the control rather than from the user.
    struct Programmatic {
        explicit Programmatic(UserEditLimits& limit)
            : m_limit(limit)
            , m_was(limit.programmatic) {
            limit.programmatic = true;
        }
        ~Programmatic() { m_limit.programmatic = m_was; }
        Programmatic(const Programmatic&) = delete;
        Programmatic& operator=(const Programmatic&) = delete;

    private:
        UserEditLimits& m_limit;
        bool m_was;
    };

    [[nodiscard]] EditState State() const;
    /// Writes an undone or redone state as the program writes a text, so that the user's limits do not cut
    /// it; the control sees the change (the form gets Change once, strong sifting takes it as its restore
    /// point), but its repairs and beeps are held back: the state was one the field itself left.
    void Restore(const EditState& state);
    void Resize(int32_t width, int32_t height);
    void ApplyFrame();
    void ApplyCursor();
    void ApplyColours();

    EditBoxEvents* m_events = nullptr;
    UserEditLimits* m_limit = nullptr;
    int32_t m_handle = NextHandle();
    int16_t m_alignment = 0;
    int16_t m_appearance = 1;
    int16_t m_borderStyle = 1;
    std::u16string m_passwordChar;
    int16_t m_mousePointer = 0;
    PictureRef m_mouseIcon;
    FontDesc m_font;
    uint32_t m_backColor = 0x80000005;
    uint32_t m_foreColor = 0x80000008;
    int16_t m_oleDragMode = 0;
    int16_t m_oleDropMode = 0;
    int m_dialogsOpen = 0;
    bool m_resizing = false;
    EditHistory m_history;
    bool m_restoring = false;
};

/// The edit box: a line edit whose keys, input-method text, mouse, focus and drops go through the control
/// before the line edit acts on them.
class QuillmarLineEdit final : public QLineEdit {
public:
    QuillmarLineEdit(QtServices& services, QWidget* parent)
        : QLineEdit(parent)
        , m_services(services) {
        setMouseTracking(true);
        setAcceptDrops(false);
    }

protected:
    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct PointerArguments {
        int16_t button;
        int16_t shift;
        float x;
        float y;
    };
    using MouseHandler = void (EditBoxEvents::*)(int16_t&, int16_t&, float&, float&);

    EditBoxEvents* Events() const { return m_services.Events(); }
    /// Lets the line edit act on a key whose character the form and the control left as `keyAscii`.
    void InsertKey(QKeyEvent* event, int16_t typed, int16_t keyAscii);
    void RaiseMouse(MouseHandler handler, const QMouseEvent& event);
    /// Raises the drag-over event (with its state) or, without one, the drop; the effect the form left, or
    /// nullopt when there is nothing to drop.
    std::optional<int32_t> RaiseDrop(QDropEvent* event, std::optional<int16_t> overState);

    QtServices& m_services;
};

QtServices::QtServices(QuillmarEdit& owner)
    : m_owner(owner) {
    m_edit = new QuillmarLineEdit(*this, &owner);
    // The line edit takes any text; the user's edits are held to one line and to MaxLength by the validator.
    m_edit->setMaxLength(std::numeric_limits<int>::max());
    m_limit = new UserEditLimits(m_edit);
    m_edit->setValidator(m_limit);
    m_limit->rewritePaste = [this](std::u16string& text) {
        if (m_events) m_events->OnPasteText(text);
    };
    m_owner.setFocusProxy(m_edit);
    m_owner.setFocusPolicy(Qt::StrongFocus);
    // The validator needs the text and the selection as they were before each edit; QLineEdit reports them
    // after its checks, so what was last reported is what an edit starts from. The undo history follows the
    // caret and the selection between edits too: an edit undone puts them back.
    const auto recordSelection = [this] {
        m_limit->previousStart
            = m_edit->hasSelectedText() ? m_edit->selectionStart() : m_edit->cursorPosition();
        if (!m_history.InGroup() && !m_restoring && m_edit->text() == m_history.Settled().text)
            m_history.Settle(State());
    };
    QObject::connect(m_edit, &QLineEdit::cursorPositionChanged, &m_owner, recordSelection);
    QObject::connect(m_edit, &QLineEdit::selectionChanged, &m_owner, recordSelection);
    // QLineEdit also reports an edit that left the text as it was (a character typed over itself); the field
    // reports changes of the text only. A user's change outside the edits the field follows one by one (a
    // cut, paste or delete from the context menu, or called on the line edit) is a step from the state last
    // left.
    QObject::connect(m_edit, &QLineEdit::textChanged, &m_owner, [this, recordSelection](const QString& text) {
        const bool changed = text != m_limit->previous;
        m_limit->previous = text;
        m_limit->lastMade = QString();
        recordSelection();
        const bool ownStep = changed && !m_history.InGroup() && !m_limit->programmatic && !m_restoring;
        if (ownStep) m_history.BeginFromSettled();
        if (changed && m_events) m_events->OnChange();
        if (ownStep) m_history.End(State());
    });
    m_history.Reset(State());
}

EditState QtServices::State() const {
    const int cursor = m_edit->cursorPosition();
    const int anchor = !m_edit->hasSelectedText() ? cursor
        : cursor == m_edit->selectionStart()      ? m_edit->selectionEnd()
                                                  : m_edit->selectionStart();
    return { m_edit->text(), cursor, anchor };
}

void QtServices::Restore(const EditState& state) {
    {
        const Programmatic write(*m_limit);
        m_restoring = true;
        m_edit->setText(state.text);
        m_restoring = false;
    }
    if (state.anchor == state.cursor)
        m_edit->setCursorPosition(state.cursor);
    else
        m_edit->setSelection(state.anchor, state.cursor - state.anchor);
    m_history.Settle(State());
}

void QtServices::Resize(int32_t width, int32_t height) {
    if (width == m_owner.width() && height == m_owner.height()) return;
    m_resizing = true;
    m_owner.resize(width, height);
    m_resizing = false;
}

void QtServices::SetAlignment(int16_t value) {
    m_alignment = value;
    const Qt::Alignment horizontal = value == 1 ? Qt::AlignRight
        : value == 2                            ? Qt::AlignHCenter
                                                : Qt::AlignLeft;
    m_edit->setAlignment(horizontal | Qt::AlignVCenter);
}

void QtServices::SetPasswordChar(std::u16string_view value) {
    m_passwordChar.clear();
    if (!value.empty()) m_passwordChar.push_back(value[0]);
    m_edit->setEchoMode(m_passwordChar.empty() ? QLineEdit::Normal : QLineEdit::Password);
    m_edit->setStyleSheet(m_passwordChar.empty()
            ? QString()
            : QStringLiteral("QLineEdit { lineedit-password-character: %1; }").arg(int(m_passwordChar[0])));
}

void QtServices::ApplyFrame() {
    m_edit->setFrame(m_borderStyle != 0);
    QPalette palette = m_edit->palette();
    m_edit->setAttribute(Qt::WA_MacShowFocusRect, m_appearance != 0);
    m_edit->setPalette(palette);
}

void QtServices::ApplyCursor() {
    if (m_mousePointer == 99 && m_mouseIcon) {
        QPixmap pixmap;
        if (pixmap.loadFromData(m_mouseIcon->data.data(), static_cast<uint>(m_mouseIcon->data.size()))) {
            m_edit->setCursor(QCursor(pixmap));
            return;
        }
    }
    switch (m_mousePointer) {
    case 1:
        m_edit->setCursor(Qt::ArrowCursor);
        break;
    case 2:
        m_edit->setCursor(Qt::CrossCursor);
        break;
    case 11:
        m_edit->setCursor(Qt::WaitCursor);
        break;
    case 12:
        m_edit->setCursor(Qt::ForbiddenCursor);
        break;
    case 13:
        m_edit->setCursor(Qt::BusyCursor);
        break;
    default:
        m_edit->unsetCursor();
    }
}

void QtServices::ApplyColours() {
    QPalette palette = m_edit->style()->standardPalette();
    if (const QColor back = ToQColor(m_backColor); back.isValid()) palette.setColor(QPalette::Base, back);
    if (const QColor fore = ToQColor(m_foreColor); fore.isValid()) palette.setColor(QPalette::Text, fore);
    m_edit->setPalette(palette);
}

void QtServices::OLEDrag() {
    if (!m_events) return;
    DataObject data;
    int32_t allowed = 1;
    m_events->OnOLEStartDrag(data, allowed);
    int16_t format = kTextFormat;
    m_events->OnOLESetData(data, format);
    if (!data.GetFormat(kTextFormat)) data.SetData(FromQString(m_edit->selectedText()), kTextFormat);
    auto* mime = new QMimeData;
    mime->setText(TextOf(data));
    QPointer<QDrag> drag = new QDrag(m_edit);
    drag->setMimeData(mime);
    int32_t effect = drag->exec(Qt::CopyAction | Qt::MoveAction) == Qt::IgnoreAction ? 0 : allowed;
    m_events->OnOLECompleteDrag(effect);
}

void QtServices::MessageBox(std::u16string_view text, std::u16string_view title, int16_t icon) {
    if (m_messageBox) {
        QString message = ToQString(text);
        message.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        m_messageBox(message, ToQString(title), icon);
        return;
    }
    ++m_dialogsOpen;
    ExecMessageBox(m_owner.window(), ToQString(text), ToQString(title), icon, QMessageBox::Ok);
    --m_dialogsOpen;
}

Answer QtServices::Question(std::u16string_view text, std::u16string_view title, int16_t icon) {
    ++m_dialogsOpen;
    const auto button = ExecMessageBox(m_owner.window(), ToQString(text), ToQString(title), icon,
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    --m_dialogsOpen;
    return button == QMessageBox::Yes ? Answer::Yes : button == QMessageBox::No ? Answer::No : Answer::Cancel;
}

void QtServices::Show() {
    if (m_aboutBox) {
        m_aboutBox();
        return;
    }
    ++m_dialogsOpen;
    QMessageBox::about(m_owner.window(), QStringLiteral("About Quillmar"),
        QStringLiteral("<b>Quillmar</b> %1<br>A data-entry field that knows what it must contain.")
            .arg(QStringLiteral(QUILLMAR_VERSION)));
    --m_dialogsOpen;
}

// The edit box's events.

bool QuillmarLineEdit::event(QEvent* event) {
    // The undo and redo keys reach the field before any shortcut of the window.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (IsUndoKey(key) || IsRedoKey(key)) {
            event->accept();
            return true;
        }
    }
    return QLineEdit::event(event);
}

// The line edit's own menu, with Undo and Redo working on the field's history.
void QuillmarLineEdit::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    for (QAction* action : menu->actions()) {
        // The actions are known by their text, as the line edit names them (before any shortcut it shows).
        const QString name = action->text().section(u'\t', 0, 0);
        const bool undo = name == QLineEdit::tr("&Undo");
        if (!undo && name != QLineEdit::tr("&Redo")) continue;
        action->setObjectName(undo ? QStringLiteral("edit-undo") : QStringLiteral("edit-redo"));
        QObject::disconnect(action, &QAction::triggered, nullptr, nullptr);
        action->setEnabled(undo ? m_services.CanUndo() : m_services.CanRedo());
        QObject::connect(action, &QAction::triggered, this, [this, undo] {
            const QtServices::HistoryStep noStep(m_services); // the restore is no step of its own
            undo ? m_services.Undo() : m_services.Redo();
        });
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void QuillmarLineEdit::keyPressEvent(QKeyEvent* event) {
    const FieldHints::KeyWatch watch(m_services.m_owner.hints(), *event);
    const QtServices::HistoryStep step(m_services);
    EditBoxEvents* events = Events();
    if (!events) return QLineEdit::keyPressEvent(event);
    int16_t keyCode = VirtualKey(*event);
    int16_t shift = KeyShiftMask(*event);
    events->OnKeyDown(keyCode, shift);
    const int16_t typed = KeyAscii(*event);
    if (typed == 0) return QLineEdit::keyPressEvent(event);
    int16_t keyAscii = typed;
    events->OnKeyPress(keyAscii);
    if (keyAscii == 0) return event->accept();
    UserEditLimits& limits = m_services.Limits();
    const bool wasTyping = limits.typing;
    limits.typing = static_cast<uint16_t>(keyAscii) >= 32;
    InsertKey(event, typed, keyAscii);
    limits.typing = wasTyping;
}

void QuillmarLineEdit::InsertKey(QKeyEvent* event, int16_t typed, int16_t keyAscii) {
    if (keyAscii == typed) {
        if (IsRedoKey(*event)) return m_services.Redo();
        if (IsUndoKey(*event)) return m_services.Undo();
        return QLineEdit::keyPressEvent(event);
    }
    // The form or the control changed the key: the changed character is what the box receives.
    const char16_t changed = static_cast<char16_t>(static_cast<uint16_t>(keyAscii));
    if (changed == 8) {
        QKeyEvent backspace(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier);
        return QLineEdit::keyPressEvent(&backspace);
    }
    if (changed < 32) return event->accept();
    QKeyEvent replaced(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar(changed)));
    QLineEdit::keyPressEvent(&replaced);
}

void QuillmarLineEdit::keyReleaseEvent(QKeyEvent* event) {
    QLineEdit::keyReleaseEvent(event);
    if (event->isAutoRepeat() || !Events()) return;
    int16_t keyCode = VirtualKey(*event);
    int16_t shift = KeyShiftMask(*event);
    Events()->OnKeyUp(keyCode, shift);
}

void QuillmarLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    const QtServices::HistoryStep step(m_services);
    EditBoxEvents* events = Events();
    if (!events || event->commitString().isEmpty()) return QLineEdit::inputMethodEvent(event);
    // Text committed by an input method meets the same sifting as typed keys, one character at a time.
    QString accepted;
    for (const QChar c : event->commitString()) {
        int16_t keyAscii = static_cast<int16_t>(c.unicode());
        events->OnKeyPress(keyAscii);
        if (keyAscii != 0) accepted += QChar(static_cast<char16_t>(static_cast<uint16_t>(keyAscii)));
    }
    QInputMethodEvent sifted(event->preeditString(), event->attributes());
    sifted.setCommitString(accepted, event->replacementStart(), event->replacementLength());
    UserEditLimits& limits = m_services.Limits();
    limits.composing = true;
    QLineEdit::inputMethodEvent(&sifted);
    limits.composing = false;
}

void QuillmarLineEdit::RaiseMouse(MouseHandler handler, const QMouseEvent& event) {
    if (!Events()) return;
    PointerArguments a {};
    a.button
        = ButtonMask(event.type() == QEvent::MouseMove ? event.buttons() : Qt::MouseButtons(event.button()));
    a.shift = ShiftMask(event.modifiers());
    a.x = static_cast<float>(event.position().x());
    a.y = static_cast<float>(event.position().y());
    (Events()->*handler)(a.button, a.shift, a.x, a.y);
}

void QuillmarLineEdit::mousePressEvent(QMouseEvent* event) {
    RaiseMouse(&EditBoxEvents::OnMouseDown, *event);
    QLineEdit::mousePressEvent(event);
}

void QuillmarLineEdit::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    RaiseMouse(&EditBoxEvents::OnMouseUp, *event);
    if (Events() && rect().contains(event->position().toPoint())) Events()->OnClick();
}

void QuillmarLineEdit::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    if (Events()) Events()->OnDblClick();
}

void QuillmarLineEdit::mouseMoveEvent(QMouseEvent* event) {
    RaiseMouse(&EditBoxEvents::OnMouseMove, *event);
    QLineEdit::mouseMoveEvent(event);
}

void QuillmarLineEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // The field is left only for another widget of the form: not for its own message box or about box,
    // a context menu, or another application's window.
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || m_services.InOwnDialog())
        return;
    // Validated once the focus has settled, so that a message box never opens inside a focus change.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!Events()) return;
            bool cancel = false;
            emit m_services.m_owner.BeforeLeaving(cancel);
            if (cancel) {
                // The focus stays, and a button pressed to leave the field is not clicked when released.
                auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
                if (button && button->isDown()) button->setDown(false);
                setFocus(Qt::OtherFocusReason);
                return;
            }
            Events()->OnFocusExit();
        },
        Qt::QueuedConnection);
}

std::optional<int32_t> QuillmarLineEdit::RaiseDrop(QDropEvent* event, std::optional<int16_t> overState) {
    if (!Events() || !event->mimeData()->hasText()) return std::nullopt;
    DataObject data;
    data.SetData(FromQString(event->mimeData()->text()), kTextFormat);
    PointerArguments a { ButtonMask(event->buttons()), ShiftMask(event->modifiers()),
        static_cast<float>(event->position().x()), static_cast<float>(event->position().y()) };
    int32_t effect = 1;
    if (overState) {
        int16_t state = *overState;
        Events()->OnOLEDragOver(data, effect, a.button, a.shift, a.x, a.y, state);
    } else {
        Events()->OnOLEDragDrop(data, effect, a.button, a.shift, a.x, a.y);
    }
    return effect;
}

void QuillmarLineEdit::dragEnterEvent(QDragEnterEvent* event) {
    if (RaiseDrop(event, int16_t { 0 }).value_or(0) != 0)
        QLineEdit::dragEnterEvent(event);
    else
        event->ignore();
}

void QuillmarLineEdit::dragMoveEvent(QDragMoveEvent* event) {
    if (RaiseDrop(event, int16_t { 2 }).value_or(0) != 0)
        QLineEdit::dragMoveEvent(event);
    else
        event->ignore();
}

void QuillmarLineEdit::dropEvent(QDropEvent* event) {
    // An automatic drop target inserts the text; a manual one leaves the drop to the form.
    if (RaiseDrop(event, std::nullopt).value_or(0) == 0 || m_services.OLEDropMode() != 2)
        return event->ignore();
    const QtServices::HistoryStep step(m_services);
    QLineEdit::dropEvent(event);
}

// The widget.

QuillmarEdit::QuillmarEdit(QWidget* parent)
    : QWidget(parent)
    , m_services(std::make_unique<QtServices>(*this)) {
    QtServices& s = *m_services;
    m_control = std::make_unique<Quillmar>(HostServices { s, s, s, s, s });
    m_control->SetEventListener(m_services.get());
    s.SetFont(FromQFont(parent ? parent->font() : QApplication::font()));
    resize(m_services->m_edit->sizeHint());
    m_hints = new FieldHints(*this, *m_services->m_edit);
    m_hints->Refresh();
}

QuillmarEdit::~QuillmarEdit() {
    m_control.reset();
}

QLineEdit* QuillmarEdit::lineEdit() const {
    return m_services->m_edit;
}

void QuillmarEdit::SetMessageBoxHandler(MessageBoxHandler handler) {
    m_services->m_messageBox = std::move(handler);
}

void QuillmarEdit::SetBeepHandler(std::function<void()> handler) {
    m_services->m_beep = std::move(handler);
}

void QuillmarEdit::SetAboutBoxHandler(std::function<void()> handler) {
    m_services->m_aboutBox = std::move(handler);
}

void QuillmarEdit::SetLocaleName(const QString& name) {
    m_services->m_localeName = name;
    m_hints->Refresh();
}

QString QuillmarEdit::LocaleName() const {
    return m_services->m_localeName.isEmpty() ? QLocale::system().name() : m_services->m_localeName;
}

void QuillmarEdit::SetShowRefusalTips(bool on) {
    m_hints->SetShowRefusalTips(on);
}

bool QuillmarEdit::ShowRefusalTips() const {
    return m_hints->ShowRefusalTips();
}

void QuillmarEdit::SetShowInlineState(bool on) {
    m_hints->SetShowInlineState(on);
}

bool QuillmarEdit::ShowInlineState() const {
    return m_hints->ShowInlineState();
}

void QuillmarEdit::SetUserMode(bool userMode) {
    m_services->m_userMode = userMode;
}

bool QuillmarEdit::UserMode() const {
    return m_services->m_userMode;
}

QSize QuillmarEdit::sizeHint() const {
    return m_services->m_edit->sizeHint();
}

QSize QuillmarEdit::minimumSizeHint() const {
    return m_services->m_edit->minimumSizeHint();
}

void QuillmarEdit::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!m_services->Resizing()) m_control->Resize(width(), height());
}

void QuillmarEdit::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_control->Show();
}

} // namespace quillmar::qt
