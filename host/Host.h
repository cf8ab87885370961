#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/base/LocaleInfo.h>
#include <quillmar/base/Variant.h>
#include <quillmar/validation/MessageCatalogue.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillmar {

/// A font as the edit box shows it.
struct FontDesc {
    std::u16string name = u"MS Sans Serif"; ///< The face name.
    float size = 8.25f; ///< The size in points.
    /// The style flags.
    ///@{
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethru = false;
    ///@}
    /// Two fonts are equal when every part is.
    friend bool operator==(const FontDesc&, const FontDesc&) = default;
};

/// A picture (the mouse icon), shared by reference as the host hands it over.
struct Picture {
    ByteArray data; ///< The picture's file as the host stored it (an icon or cursor file).
};
/// A picture shared by reference; nullptr for none.
using PictureRef = std::shared_ptr<const Picture>;

/// The data carried by a drag-and-drop operation: values by clipboard format number.
class QUILLMAR_CORE_EXPORT DataObject {
public:
    /// Stores the data under the format (replacing what the format held).
    void SetData(const Variant& data, int16_t format);
    /// The data of the format, Empty when the format is absent.
    [[nodiscard]] Variant GetData(int16_t format) const;
    /// True when the data object holds the format.
    [[nodiscard]] bool GetFormat(int16_t format) const;
    /// Removes every format.
    void Clear() { m_formats.clear(); }

private:
    std::vector<std::pair<int16_t, Variant>> m_formats;
};

/// The clipboard format of plain text.
inline constexpr int16_t kTextFormat = 1;

/// What the edit box reports to the control that owns it. Arguments are by reference, so that the control
/// (and, through it, the form) can change or cancel a key before the edit box acts on it.
class QUILLMAR_CORE_EXPORT EditBoxEvents {
public:
    virtual ~EditBoxEvents() = default;
    /// A key went down; `keyCode` is its virtual key code and `shift` holds 1 for Shift, 2 for Ctrl and 4
    /// for Alt.
    virtual void OnKeyDown(int16_t& keyCode, int16_t& shift) = 0;
    /// A character is about to be inserted; a `keyAscii` set to 0 inserts nothing.
    virtual void OnKeyPress(int16_t& keyAscii) = 0;
    /// A key went up; the arguments are those of `OnKeyDown`.
    virtual void OnKeyUp(int16_t& keyCode, int16_t& shift) = 0;
    /// A mouse button went down, the mouse moved, or a button went up over the edit box: `button` holds 1
    /// for the left button, 2 for the right and 4 for the middle one, `shift` as for `OnKeyDown`, and `x`
    /// and `y` the position in the edit box's coordinates.
    ///@{
    virtual void OnMouseDown(int16_t& button, int16_t& shift, float& x, float& y) = 0;
    virtual void OnMouseMove(int16_t& button, int16_t& shift, float& x, float& y) = 0;
    virtual void OnMouseUp(int16_t& button, int16_t& shift, float& x, float& y) = 0;
    ///@}
    /// The edit box was clicked, or double-clicked.
    ///@{
    virtual void OnClick() = 0;
    virtual void OnDblClick() = 0;
    ///@}
    /// The text changed, by the user or by a program.
    virtual void OnChange() = 0;
    /// The focus left the edit box for another control of the form.
    virtual void OnFocusExit() = 0;
    /// The first line of a text is about to be pasted or dropped in place of the selection (before the box
    /// cuts it to `MaxLength`); the control may rewrite it to read as typed in its field, or refuse it whole
    /// by returning false, in which case the box changes nothing. The default takes the text as it is.
    [[nodiscard]] virtual bool OnPasteText(std::u16string& text) {
        (void)text;
        return true;
    }
    /// A drag starts from the edit box; `allowedEffects` says whether the data may be copied (1) or moved
    /// (2), and setting it to 0 cancels the drag.
    virtual void OnOLEStartDrag(DataObject& data, int32_t& allowedEffects) = 0;
    /// The target of a drag asks for the data in `dataFormat`, which the source has yet to put into `data`.
    virtual void OnOLESetData(DataObject& data, int16_t& dataFormat) = 0;
    /// The source of a drag may show its own cursor for `effect`; `defaultCursors` false says it did.
    virtual void OnOLEGiveFeedback(int32_t& effect, bool& defaultCursors) = 0;
    /// A drag moves over the edit box: `effect` is the drop the box would take (0 none, 1 copy, 2 move), the
    /// buttons, keys and position are those of the mouse events, and `state` says whether the drag entered
    /// (0), left (1) or moved over (2) the box.
    virtual void OnOLEDragOver(DataObject& data, int32_t& effect, int16_t& button, int16_t& shift, float& x,
        float& y, int16_t& state)
        = 0;
    /// Data was dropped on the edit box, with the arguments of `OnOLEDragOver`.
    virtual void OnOLEDragDrop(
        DataObject& data, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y)
        = 0;
    /// A drag from the edit box ended; `effect` says what the target did (0 nothing, 1 copied, 2 moved).
    virtual void OnOLECompleteDrag(int32_t& effect) = 0;
};

/// The single-line edit box the control covers itself with. Positions and lengths are UTF-16 code units.
class QUILLMAR_CORE_EXPORT EditBox {
public:
    virtual ~EditBox() = default;

    /// Where the edit box reports its events; nullptr stops the reports.
    virtual void SetEvents(EditBoxEvents* events) = 0;

    /// The text the box shows.
    [[nodiscard]] virtual std::u16string Text() const = 0;
    /// Replaces the text (not cut to `MaxLength`), puts the caret at the end and reports a change
    /// when the text differs.
    virtual void SetText(std::u16string_view text) = 0;
    /// Where the caret stands, or the selection begins.
    [[nodiscard]] virtual int32_t SelStart() const = 0;
    /// Moves the caret (clamped to the text) and clears the selection.
    virtual void SetSelStart(int32_t start) = 0;
    /// The length of the selection; 0 for none.
    [[nodiscard]] virtual int32_t SelLength() const = 0;
    /// Selects from the caret on (clamped to the text).
    virtual void SetSelLength(int32_t length) = 0;
    /// The selected text.
    [[nodiscard]] virtual std::u16string SelText() const = 0;
    /// Replaces the selection, puts the caret after the inserted text and reports a change.
    virtual void SetSelText(std::u16string_view text) = 0;
    /// The longest text the user may type; 0 means no limit.
    ///@{
    [[nodiscard]] virtual int32_t MaxLength() const = 0;
    virtual void SetMaxLength(int32_t length) = 0;
    ///@}

    /// The text's horizontal alignment: 0 left, 1 right, 2 centre.
    ///@{
    [[nodiscard]] virtual int16_t Alignment() const = 0;
    virtual void SetAlignment(int16_t value) = 0;
    ///@}
    /// The look, a `vldAppearanceConstants`: flat or sunken.
    ///@{
    [[nodiscard]] virtual int16_t Appearance() const = 0;
    virtual void SetAppearance(int16_t value) = 0;
    ///@}
    /// The border, a `vldBorderStyleConstants`: none or a single line.
    ///@{
    [[nodiscard]] virtual int16_t BorderStyle() const = 0;
    virtual void SetBorderStyle(int16_t value) = 0;
    ///@}
    /// Whether the user may not change the text (a program still may).
    ///@{
    [[nodiscard]] virtual bool Locked() const = 0;
    virtual void SetLocked(bool value) = 0;
    ///@}
    /// The character shown for every character of the text; empty to show the text.
    ///@{
    [[nodiscard]] virtual std::u16string PasswordChar() const = 0;
    virtual void SetPasswordChar(std::u16string_view value) = 0;
    ///@}
    /// Whether the box reads from right to left.
    ///@{
    [[nodiscard]] virtual bool RightToLeft() const = 0;
    virtual void SetRightToLeft(bool value) = 0;
    ///@}
    /// The mouse cursor over the box: 0 the default, 1 to 15 the standard cursors, 99 `MouseIcon`.
    ///@{
    [[nodiscard]] virtual int16_t MousePointer() const = 0;
    virtual void SetMousePointer(int16_t value) = 0;
    ///@}
    /// The cursor's picture when `MousePointer` is 99.
    ///@{
    [[nodiscard]] virtual PictureRef MouseIcon() const = 0;
    virtual void SetMouseIcon(PictureRef value) = 0;
    ///@}
    /// The font the box draws its text in.
    ///@{
    [[nodiscard]] virtual FontDesc Font() const = 0;
    virtual void SetFont(const FontDesc& font) = 0;
    ///@}
    /// The background and text colours, OLE colours (0x00BBGGRR, or a system colour with the high bit set:
    /// 0x80000005 is the system window colour).
    ///@{
    [[nodiscard]] virtual uint32_t BackColor() const = 0;
    virtual void SetBackColor(uint32_t value) = 0;
    [[nodiscard]] virtual uint32_t ForeColor() const = 0;
    virtual void SetForeColor(uint32_t value) = 0;
    ///@}
    /// How a drag starts from the box: 0 only when the program calls `OLEDrag`, 1 when the user drags the
    /// selection.
    ///@{
    [[nodiscard]] virtual int16_t OLEDragMode() const = 0;
    virtual void SetOLEDragMode(int16_t value) = 0;
    ///@}
    /// Whether the box takes drops: 0 none, 1 reported to the owner only, 2 reported and inserted by the
    /// box.
    ///@{
    [[nodiscard]] virtual int16_t OLEDropMode() const = 0;
    virtual void SetOLEDropMode(int16_t value) = 0;
    ///@}
    /// Whether the box takes input and focus; a disabled box is greyed.
    ///@{
    [[nodiscard]] virtual bool Enabled() const = 0;
    virtual void SetEnabled(bool value) = 0;
    ///@}
    /// Whether the selection is hidden while the box does not have the focus.
    [[nodiscard]] virtual bool HideSelection() const = 0;
    /// A handle unique to this edit box among the live ones.
    [[nodiscard]] virtual int32_t Handle() const = 0;
    /// Repaints the edit box.
    virtual void Refresh() = 0;
    /// The tip shown when the mouse rests on the box; empty for none.
    ///@{
    [[nodiscard]] virtual std::u16string ToolTipText() const = 0;
    virtual void SetToolTipText(std::u16string_view text) = 0;
    ///@}
    /// Places the edit box in the control; the box may keep a size of its own (a minimum height).
    virtual void Move(int32_t left, int32_t top, int32_t width, int32_t height) = 0;
    /// The size the box took at the last `Move`, in the host's units (pixels for a Qt host).
    ///@{
    [[nodiscard]] virtual int32_t Width() const = 0;
    [[nodiscard]] virtual int32_t Height() const = 0;
    ///@}
    /// Starts a drag-and-drop operation with the edit box as its source.
    virtual void OLEDrag() = 0;
};

/// The form that holds the control.
class QUILLMAR_CORE_EXPORT Container {
public:
    virtual ~Container() = default;
    /// A property of the control changed; a designer marks the form dirty.
    virtual void PropertyChanged(std::u16string_view name) = 0;
    /// True while the form runs, false while it is being designed.
    [[nodiscard]] virtual bool UserMode() const = 0;
    /// The form's font, the default font of a new control.
    [[nodiscard]] virtual FontDesc AmbientFont() const = 0;
    /// The name the form gives the control; nullopt when the host has no such extender.
    [[nodiscard]] virtual std::optional<std::u16string> ExtenderName() const = 0;
    /// The tool tip the form gives the control; nullopt when the host has no such extender.
    [[nodiscard]] virtual std::optional<std::u16string> ExtenderToolTipText() const = 0;
    /// Whether the form shows the control.
    [[nodiscard]] virtual bool ExtenderVisible() const = 0;
    /// Puts the focus on the control.
    virtual void SetFocus() = 0;
    /// Gives the control the width its edit box accepted.
    virtual void SetWidth(int32_t width) = 0;
    /// Gives the control the height its edit box accepted.
    virtual void SetHeight(int32_t height) = 0;
};

/// The icons of a message box, by the flag values the platform's message boxes use.
enum MessageBoxIconFlag : int16_t {
    IconNone = 0, ///< No icon.
    IconStop = 16, ///< A stop sign, for an error.
    IconQuestion = 32, ///< A question mark.
    IconExclamation = 48, ///< An exclamation mark, for a warning.
    IconInformation = 64, ///< An "i", for information.
};

/// The button that closed a question box.
enum class Answer {
    Yes, ///< The Yes button.
    No, ///< The No button.
    Cancel, ///< The Cancel button, or the box closed without a button.
};

/// The beep and the modal message boxes. A line break in a text is a carriage return and a line feed.
class QUILLMAR_CORE_EXPORT Alerts {
public:
    virtual ~Alerts() = default;
    /// Sounds the system's beep; returns at once.
    virtual void Beep() = 0;
    /// Shows a modal message box with one OK button and an icon (`MessageBoxIconFlag`); returns when it
    /// is closed.
    virtual void MessageBox(std::u16string_view text, std::u16string_view title, int16_t icon) = 0;
    /// Asks a question in a modal box with the buttons Yes, No and Cancel and an icon; closing the box
    /// without a button answers Cancel.
    [[nodiscard]] virtual Answer Question(std::u16string_view text, std::u16string_view title, int16_t icon)
        = 0;
};

/// Where the control learns the user's locale, asked afresh at every use.
class QUILLMAR_CORE_EXPORT LocaleSource {
public:
    virtual ~LocaleSource() = default;
    /// The separators, date order and designators of the user's locale now.
    [[nodiscard]] virtual LocaleInfo Locale() const = 0;
};

/// The control's about box.
class QUILLMAR_CORE_EXPORT AboutBox {
public:
    virtual ~AboutBox() = default;
    /// Shows the about box modally and returns when it closes.
    virtual void Show() = 0;
};

/// The host services one control uses; each must outlive the control.
struct HostServices {
    Container& container; ///< The form that holds the control.
    EditBox& editBox; ///< The edit box the control covers itself with.
    Alerts& alerts; ///< The beep and the message boxes.
    LocaleSource& locale; ///< The user's locale.
    AboutBox& aboutBox; ///< The about box.
    /// Where the texts the control composes (messages, action lines, the default title) find their words in
    /// the user's language.
    const MessageCatalogue& catalogue;
};

} // namespace quillmar
