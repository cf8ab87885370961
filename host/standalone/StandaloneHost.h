#pragma once

#include "host/Host.h"
#include "host/QuillmarEvents.h"

#include <optional>
#include <string>
#include <vector>

namespace quillmar::standalone {

/// Windows-style codes of the keys a test presses.
enum VirtualKey : int16_t {
    VK_BACK = 8,
    VK_RETURN = 13,
    VK_CONTROL = 17,
    VK_ESCAPE = 27,
    VK_END = 35,
    VK_HOME = 36,
    VK_LEFT = 37,
    VK_RIGHT = 39,
    VK_DELETE = 46,
};

/// The code a key-down reports for the key that types the character (letters by their capital).
[[nodiscard]] int16_t VirtualKeyOf(char16_t c) noexcept;

/// An in-memory single-line edit box that behaves as a real one. Typing a key reports the key going down,
/// the character (which the control may change or cancel), inserts it over the selection (respecting
/// `MaxLength` and `Locked`), reports the change, then the key coming up. Backspace and Delete remove, a
/// paste replaces the selection with one change, arrows and Home/End move the caret (with Shift they select).
/// Programmatic writes report a change only when the text really changes.
class MemoryEditBox final : public EditBox {
public:
    MemoryEditBox();

    // What a person does.

    /// Types one character; `shift` as a key-down reports it (1 Shift, 2 Ctrl, 4 Alt).
    void TypeKey(char16_t c, int16_t shift = 0);
    /// Types every character of the text in turn.
    void TypeText(std::u16string_view text);
    void PressBackspace();
    void PressDelete();
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

    void SetEvents(EditBoxEvents* events) override { m_events = events; }
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
    void Refresh() override { ++m_refreshCount; }
    [[nodiscard]] std::u16string ToolTipText() const override { return m_toolTipText; }
    void SetToolTipText(std::u16string_view text) override { m_toolTipText = text; }
    void Move(int32_t left, int32_t top, int32_t width, int32_t height) override;
    [[nodiscard]] int32_t Width() const override { return m_width; }
    [[nodiscard]] int32_t Height() const override { return m_height; }
    void OLEDrag() override;

    /// How many times the box was asked to repaint.
    [[nodiscard]] int RefreshCount() const noexcept { return m_refreshCount; }
    /// The smallest height the box accepts for its font.
    [[nodiscard]] int32_t MinimumHeight() const noexcept;
    /// The data objects of the drags started from this box.
    [[nodiscard]] int DragsStarted() const noexcept { return m_dragsStarted; }
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
    int m_refreshCount = 0;
    int32_t m_anchor = 0;
    std::u16string m_toolTipText;
    int32_t m_width = 0;
    int32_t m_height = 0;
    int m_dragsStarted = 0;
};

/// A container that records every PropertyChanged notification and every request for the focus.
class RecordingContainer final : public Container {
public:
    void PropertyChanged(std::u16string_view name) override { notifications.emplace_back(name); }
    [[nodiscard]] bool UserMode() const override { return userMode; }
    [[nodiscard]] FontDesc AmbientFont() const override { return ambientFont; }
    [[nodiscard]] std::optional<std::u16string> ExtenderName() const override { return name; }
    [[nodiscard]] std::optional<std::u16string> ExtenderToolTipText() const override { return toolTipText; }
    [[nodiscard]] bool ExtenderVisible() const override { return visible; }
    void SetFocus() override { ++focusRequests; }
    void SetWidth(int32_t w) override { width = w; }
    void SetHeight(int32_t h) override { height = h; }

    bool userMode = true;
    FontDesc ambientFont;
    std::optional<std::u16string> name = u"Quillmar1";
    std::optional<std::u16string> toolTipText;
    bool visible = true;
    std::vector<std::u16string> notifications;
    int focusRequests = 0;
    int32_t width = 0;
    int32_t height = 0;
};

/// One message box as it was shown.
struct ShownMessage {
    std::u16string text;
    std::u16string title;
    int16_t icon = 0;
    friend bool operator==(const ShownMessage&, const ShownMessage&) = default;
};

/// Beeps, message boxes and questions, counted and recorded instead of shown; questions take their answers
/// from a script.
class RecordingAlerts final : public Alerts {
public:
    void Beep() override { ++beeps; }
    void MessageBox(std::u16string_view text, std::u16string_view title, int16_t icon) override {
        messages.push_back({ std::u16string(text), std::u16string(title), icon });
    }
    /// Records the question and answers with the first scripted answer left, Cancel when none is.
    Answer Question(std::u16string_view text, std::u16string_view title, int16_t icon) override;

    int beeps = 0;
    std::vector<ShownMessage> messages;
    std::vector<ShownMessage> questions;
    /// The answers the next questions get, in order.
    std::vector<Answer> answers;
};

/// A locale fixed by name (or taken from the process environment).
class FixedLocale final : public LocaleSource {
public:
    FixedLocale()
        : m_info(LocaleInfo::FromEnvironment()) { }
    explicit FixedLocale(LocaleInfo info)
        : m_info(std::move(info)) { }
    [[nodiscard]] LocaleInfo Locale() const override { return m_info; }
    void Set(LocaleInfo info) { m_info = std::move(info); }

private:
    LocaleInfo m_info;
};

/// An about box that only counts how often it was opened.
class CountingAboutBox final : public AboutBox {
public:
    void Show() override { ++shown; }
    int shown = 0;
};

/// The events raised to the form, recorded in order as short texts with their arguments ("Change",
/// "KeyPress 65", "MouseUp 1 0 14 5").
class RecordingEvents : public QuillmarEvents {
public:
    void OLEStartDrag(DataObject& data, int32_t& allowedEffects) override;
    void OLESetData(DataObject& data, int16_t& dataFormat) override;
    void OLEGiveFeedback(int32_t& effect, bool& defaultCursors) override;
    void OLEDragOver(DataObject& data, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y,
        int16_t& state) override;
    void OLEDragDrop(
        DataObject& data, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y) override;
    void OLECompleteDrag(int32_t& effect) override;
    void KeyDown(int16_t& keyCode, int16_t& shift) override;
    void KeyPress(int16_t& keyAscii) override;
    void KeyUp(int16_t& keyCode, int16_t& shift) override;
    void MouseDown(int16_t& button, int16_t& shift, float& x, float& y) override;
    void MouseMove(int16_t& button, int16_t& shift, float& x, float& y) override;
    void MouseUp(int16_t& button, int16_t& shift, float& x, float& y) override;
    void Click() override { log.emplace_back("Click"); }
    void DblClick() override { log.emplace_back("DblClick"); }
    void Change() override { log.emplace_back("Change"); }

    /// The entries of the log that start with the given event name.
    [[nodiscard]] std::vector<std::string> Only(std::string_view event) const;

    std::vector<std::string> log;
};

/// Every host service in memory, for tests, headless use and batch validation. The locale is the process's
/// unless one is named.
class StandaloneHost {
public:
    StandaloneHost() = default;
    explicit StandaloneHost(std::string_view localeName)
        : locale(LocaleInfo::FromName(localeName)) { }

    [[nodiscard]] HostServices Services() { return { container, editBox, alerts, locale, aboutBox }; }

    RecordingContainer container;
    MemoryEditBox editBox;
    RecordingAlerts alerts;
    FixedLocale locale;
    CountingAboutBox aboutBox;
};

} // namespace quillmar::standalone
