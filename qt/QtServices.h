#pragma once

// The Qt host of one field: an internal part of QuillmarEdit, shared by the files that make it up.
#include "qt/QuillmarEdit.h"

#include "qt/EditHistory.h"
#include "qt/FieldHints.h"
#include "qt/QtAlerts.h"
#include "qt/QtKeys.h"
#include "qt/UserEditLimits.h"

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
#include <optional>

namespace quillmar::qt {

/// A handle unique to each edit box of the process.
[[nodiscard]] int32_t NextHandle();

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
        // Asked for on every key: the locale's facts are read again only when its name changes.
        QString name = m_localeName.isEmpty() ? QLocale::system().name() : m_localeName;
        if (!m_locale || name != m_localeRead) {
            m_locale = LocaleInfo::FromName(name.toStdString());
            m_localeRead = std::move(name);
        }
        return *m_locale;
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
    /// Whether the next focus exit is skipped (see `QuillmarEdit::SkipNextFocusExit`).
    void SetSkipFocusExit(bool skip) { m_skipFocusExit = skip; }
    [[nodiscard]] bool SkipFocusExit() const { return m_skipFocusExit; }

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
    mutable std::optional<LocaleInfo> m_locale;
    mutable QString m_localeRead;
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
    bool m_skipFocusExit = false;
    EditHistory m_history;
    bool m_restoring = false;
};

} // namespace quillmar::qt
