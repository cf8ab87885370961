#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/host/Host.h>

#include <optional>
#include <string>

namespace quillmar::standalone {

/// Windows-style codes of the keys a test presses.
enum VirtualKey : int16_t {
    VK_BACK = 8, ///< Backspace.
    VK_RETURN = 13, ///< Enter.
    VK_CONTROL = 17, ///< Ctrl.
    VK_ESCAPE = 27, ///< Escape.
    VK_END = 35, ///< End.
    VK_HOME = 36, ///< Home.
    VK_LEFT = 37, ///< Left arrow.
    VK_RIGHT = 39, ///< Right arrow.
    VK_DELETE = 46, ///< Delete.
};

/// An in-memory single-line edit box that behaves as a real one. Typing a key reports the key going down,
/// the character (which the control may change or cancel), inserts it over the selection (respecting
/// `MaxLength` and `Locked`), reports the change, then the key coming up. Backspace and Delete remove, a
/// paste replaces the selection with one change, arrows and Home/End move the caret (with Shift they select).
/// Programmatic writes report a change only when the text really changes.
class QUILLMAR_CORE_EXPORT MemoryEditBox final : public EditBox {
public:
    /// An empty, enabled box with no limit on its length, a handle of its own and no control attached.
    MemoryEditBox();

    // What a person does.

    /// Types one character; `shift` as a key-down reports it (1 Shift, 2 Ctrl, 4 Alt).
    void TypeKey(char16_t c, int16_t shift = 0);
    /// Types every character of the text in turn.
    void TypeText(std::u16string_view text);
    /// Presses Backspace: the key goes down, its character (8) is reported, the selection or the character
    /// before the caret is removed unless the character was cancelled, the key comes up.
    void PressBackspace();
    /// Presses Delete: the key goes down, the selection or the character after the caret is removed, the key
    /// comes up (Delete types no character).
    void PressDelete();
    /// Presses Enter: the key goes down, its character (13) is reported, the key comes up; the text stays
    /// as it is.
    void PressEnter();
    /// Left, Right, Home or End; with Shift (1) the selection grows from its anchor.
    void PressNavigation(int16_t virtualKey, int16_t shift = 0);
    /// Pastes from the context menu: the text, as the control rewrites it for its field, up to its first line
    /// break and cut to `MaxLength`, replaces the selection and one change is reported.
    void Paste(std::u16string_view text);
    /// Pastes with Ctrl+V: the keys go down, the paste character (22) is reported, the text is pasted unless
    /// the character was cancelled, the keys come up.
    void PasteWithKeys(std::u16string_view text);
    /// Cuts the selection with Ctrl+X; returns the cut text.
    std::u16string CutWithKeys();
    /// Selects the whole text, as Ctrl+A or a triple click would.
    void SelectAll();
    /// Clicks with the left button at a character position: the button goes down, the caret moves, the button
    /// comes up, the click is reported.
    void ClickAt(int32_t position);
    /// Double-clicks with the left button at a character position and selects the word there.
    void DoubleClickAt(int32_t position);
    /// The mouse moves over a character position without a button held.
    void HoverAt(int32_t position);
    /// Something holding the text is dragged over a character position and dropped there; an automatic drop
    /// target inserts it as a paste would (rewritten by the control, up to its first line break, cut to
    /// `MaxLength`).
    void DropText(int32_t position, std::u16string_view text);
    /// The focus moves to another control of the form.
    void LeaveField();

    /// Attaches the one control the box serves, or detaches it (nullptr). A box serves one control at a
    /// time: attaching a second while one is attached throws `std::logic_error`, so that two controls never
    /// share a text (the second control's construction fails).
    void SetEvents(EditBoxEvents* events) override;
    [[nodiscard]] std::u16string Text() const override { return m_text; }
    void SetText(std::u16string_view text) override;
    [[nodiscard]] int32_t SelStart() const override { return m_selStart; }
    void SetSelStart(int32_t start) override;
    [[nodiscard]] int32_t SelLength() const override { return m_selLength; }
    void SetSelLength(int32_t length) override;
    [[nodiscard]] std::u16string SelText() const override;
    void SetSelText(std::u16string_view text) override;
    [[nodiscard]] int32_t MaxLength() const override { return m_maxLength; }
    void SetMaxLength(int32_t length) override { m_maxLength = length < 0 ? 0 : length; }

    [[nodiscard]] int16_t Alignment() const override { return m_alignment; }
    void SetAlignment(int16_t value) override { m_alignment = value; }
    [[nodiscard]] int16_t Appearance() const override { return m_appearance; }
    void SetAppearance(int16_t value) override { m_appearance = value; }
    [[nodiscard]] int16_t BorderStyle() const override { return m_borderStyle; }
    void SetBorderStyle(int16_t value) override { m_borderStyle = value; }
    [[nodiscard]] bool Locked() const override { return m_locked; }
    void SetLocked(bool value) override { m_locked = value; }
    [[nodiscard]] std::u16string PasswordChar() const override { return m_passwordChar; }
    void SetPasswordChar(std::u16string_view value) override { m_passwordChar = value.substr(0, 1); }
    [[nodiscard]] bool RightToLeft() const override { return m_rightToLeft; }
    void SetRightToLeft(bool value) override { m_rightToLeft = value; }
    [[nodiscard]] int16_t MousePointer() const override { return m_mousePointer; }
    void SetMousePointer(int16_t value) override { m_mousePointer = value; }
    [[nodiscard]] PictureRef MouseIcon() const override { return m_mouseIcon; }
    void SetMouseIcon(PictureRef value) override { m_mouseIcon = std::move(value); }
    [[nodiscard]] FontDesc Font() const override { return m_font; }
    void SetFont(const FontDesc& font) override { m_font = font; }
    [[nodiscard]] uint32_t BackColor() const override { return m_backColor; }
    void SetBackColor(uint32_t value) override { m_backColor = value; }
    [[nodiscard]] uint32_t ForeColor() const override { return m_foreColor; }
    void SetForeColor(uint32_t value) override { m_foreColor = value; }
    [[nodiscard]] int16_t OLEDragMode() const override { return m_oleDragMode; }
    void SetOLEDragMode(int16_t value) override { m_oleDragMode = value; }
    [[nodiscard]] int16_t OLEDropMode() const override { return m_oleDropMode; }
    void SetOLEDropMode(int16_t value) override { m_oleDropMode = value; }
    [[nodiscard]] bool Enabled() const override { return m_enabled; }
    void SetEnabled(bool value) override { m_enabled = value; }
    [[nodiscard]] bool HideSelection() const override { return true; }
    [[nodiscard]] int32_t Handle() const override { return m_handle; }
    void Refresh() override { }
    [[nodiscard]] std::u16string ToolTipText() const override { return m_toolTipText; }
    void SetToolTipText(std::u16string_view text) override { m_toolTipText = text; }
    void Move(int32_t left, int32_t top, int32_t width, int32_t height) override;
    [[nodiscard]] int32_t Width() const override { return m_width; }
    [[nodiscard]] int32_t Height() const override { return m_height; }
    void OLEDrag() override;

    /// The smallest height the box accepts for its font.
    [[nodiscard]] int32_t MinimumHeight() const noexcept;
    /// While true, `Move` fails as a window system may when the box cannot be placed.
    bool failMoves = false;

private:
    void Replace(std::u16string text, int32_t caret);
    void ReplaceSelection(std::u16string_view inserted);
    /// What of a pasted or dropped text the box takes in place of its selection: the first line, as much of
    /// it as `MaxLength` leaves room for.
    [[nodiscard]] std::u16string Fitted(std::u16string_view text) const;
    /// The first line of a pasted or dropped text as the control rewrites it for its field (`OnPasteText`);
    /// nullopt when the control refuses it.
    [[nodiscard]] std::optional<std::u16string> Offered(std::u16string_view text);
    void Select(int32_t anchor, int32_t caret);

    EditBoxEvents* m_events = nullptr;
    std::u16string m_text;
    int32_t m_selStart = 0;
    int32_t m_selLength = 0;
    int32_t m_maxLength = 0;
    int16_t m_alignment = 0;
    int16_t m_appearance = 1;
    int16_t m_borderStyle = 1;
    bool m_locked = false;
    std::u16string m_passwordChar;
    bool m_rightToLeft = false;
    int16_t m_mousePointer = 0;
    PictureRef m_mouseIcon;
    FontDesc m_font;
    uint32_t m_backColor = 0x80000005;
    uint32_t m_foreColor = 0x80000008;
    int16_t m_oleDragMode = 0;
    int16_t m_oleDropMode = 0;
    bool m_enabled = true;
    int32_t m_handle;
    int32_t m_anchor = 0;
    std::u16string m_toolTipText;
    int32_t m_width = 0;
    int32_t m_height = 0;
};

} // namespace quillmar::standalone
