#pragma once

// The Qt host of one field: an internal part of QuillmarEdit, shared by the files that make it up.
#include "qt/QuillmarEdit.h"

#include "qt/EditHistory.h"

#include <QString>

#include <functional>
#include <optional>

namespace quillmar::qt {

class UserEditLimits;

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
    /// Makes the field's line edit, a child of `owner`, and connects its changes to the control and the undo
    /// history.
    explicit QtServices(QuillmarEdit& owner);

    // Container.
    void PropertyChanged(std::u16string_view name) override;
    [[nodiscard]] bool UserMode() const override;
    [[nodiscard]] FontDesc AmbientFont() const override;
    [[nodiscard]] std::optional<std::u16string> ExtenderName() const override;
    [[nodiscard]] std::optional<std::u16string> ExtenderToolTipText() const override;
    [[nodiscard]] bool ExtenderVisible() const override;
    void SetFocus() override;
    void SetWidth(int32_t width) override;
    void SetHeight(int32_t height) override;

    // Edit box.
    void SetEvents(EditBoxEvents* events) override;
    [[nodiscard]] std::u16string Text() const override;
    void SetText(std::u16string_view text) override;
    [[nodiscard]] int32_t SelStart() const override;
    void SetSelStart(int32_t start) override;
    [[nodiscard]] int32_t SelLength() const override;
    void SetSelLength(int32_t length) override;
    [[nodiscard]] std::u16string SelText() const override;
    void SetSelText(std::u16string_view text) override;
    [[nodiscard]] int32_t MaxLength() const override;
    void SetMaxLength(int32_t length) override;
    [[nodiscard]] int16_t Alignment() const override;
    void SetAlignment(int16_t value) override;
    [[nodiscard]] int16_t Appearance() const override;
    void SetAppearance(int16_t value) override;
    [[nodiscard]] int16_t BorderStyle() const override;
    void SetBorderStyle(int16_t value) override;
    [[nodiscard]] bool Locked() const override;
    void SetLocked(bool value) override;
    [[nodiscard]] std::u16string PasswordChar() const override;
    void SetPasswordChar(std::u16string_view value) override;
    [[nodiscard]] bool RightToLeft() const override;
    void SetRightToLeft(bool value) override;
    [[nodiscard]] int16_t MousePointer() const override;
    void SetMousePointer(int16_t value) override;
    [[nodiscard]] PictureRef MouseIcon() const override;
    void SetMouseIcon(PictureRef value) override;
    [[nodiscard]] FontDesc Font() const override;
    void SetFont(const FontDesc& font) override;
    [[nodiscard]] uint32_t BackColor() const override;
    void SetBackColor(uint32_t value) override;
    [[nodiscard]] uint32_t ForeColor() const override;
    void SetForeColor(uint32_t value) override;
    [[nodiscard]] int16_t OLEDragMode() const override;
    void SetOLEDragMode(int16_t value) override;
    [[nodiscard]] int16_t OLEDropMode() const override;
    void SetOLEDropMode(int16_t value) override;
    [[nodiscard]] bool Enabled() const override;
    void SetEnabled(bool value) override;
    [[nodiscard]] bool HideSelection() const override;
    [[nodiscard]] int32_t Handle() const override;
    void Refresh() override;
    [[nodiscard]] std::u16string ToolTipText() const override;
    void SetToolTipText(std::u16string_view text) override;
    void Move(int32_t left, int32_t top, int32_t width, int32_t height) override;
    [[nodiscard]] int32_t Width() const override;
    [[nodiscard]] int32_t Height() const override;
    void OLEDrag() override;

    // Alerts, locale and about box.
    void Beep() override;
    void MessageBox(std::u16string_view text, std::u16string_view title, int16_t icon) override;
    [[nodiscard]] Answer Question(std::u16string_view text, std::u16string_view title, int16_t icon) override;
    /// The locale of the field's name, or of the system's when none is set; its facts are read again only
    /// when the name changes.
    [[nodiscard]] LocaleInfo Locale() const override;
    void Show() override;

    // The control's events, raised as the widget's signals.
    void OLEStartDrag(DataObject& d, int32_t& e) override;
    void OLESetData(DataObject& d, int16_t& f) override;
    void OLEGiveFeedback(int32_t& e, bool& c) override;
    void OLEDragOver(
        DataObject& d, int32_t& e, int16_t& b, int16_t& s, float& x, float& y, int16_t& st) override;
    void OLEDragDrop(DataObject& d, int32_t& e, int16_t& b, int16_t& s, float& x, float& y) override;
    void OLECompleteDrag(int32_t& e) override;
    void KeyDown(int16_t& k, int16_t& s) override;
    void KeyPress(int16_t& k) override;
    void KeyUp(int16_t& k, int16_t& s) override;
    void MouseDown(int16_t& b, int16_t& s, float& x, float& y) override;
    void MouseMove(int16_t& b, int16_t& s, float& x, float& y) override;
    void MouseUp(int16_t& b, int16_t& s, float& x, float& y) override;
    void Click() override;
    void DblClick() override;
    void Change() override;

    /// How many property changes the control has announced so far.
    [[nodiscard]] int Notifications() const { return m_notifications; }
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
        explicit HistoryStep(QtServices& services);
        ~HistoryStep();
        HistoryStep(const HistoryStep&) = delete;
        HistoryStep& operator=(const HistoryStep&) = delete;

    private:
        QtServices& m_services;
    };

    /// Whether there is a step to undo (or redo); never in a locked field.
    [[nodiscard]] bool CanUndo() const;
    [[nodiscard]] bool CanRedo() const;
    /// Puts back the state before the last step (or after the step last undone); nothing when there is none.
    void Undo();
    void Redo();

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
        explicit Programmatic(UserEditLimits& limit);
        ~Programmatic();
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
    int m_notifications = 0;
    bool m_resizing = false;
    bool m_skipFocusExit = false;
    EditHistory m_history;
    bool m_restoring = false;
};

} // namespace quillmar::qt
