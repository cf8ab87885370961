#include "host/standalone/MemoryEditBox.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <stdexcept>

namespace quillmar::standalone {
namespace {

int32_t NextHandle() {
    static std::atomic<int32_t> next { 0x1000 };
    return next.fetch_add(4);
}

constexpr int16_t kShiftMask = 1;
constexpr int16_t kCtrlMask = 2;
constexpr float kCharacterWidth = 7;

// The arguments of a pointer event over a character position, held in variables because the form may change
// them and the next event of the same gesture passes them on.
struct Pointer {
    int16_t button;
    int16_t shift;
    float x;
    float y;
};

Pointer PointerAt(int32_t position, int16_t button) {
    return { button, 0, static_cast<float>(position) * kCharacterWidth, 5 };
}

std::u16string TextOfFormat(const DataObject& data) {
    const Variant text = data.GetData(kTextFormat);
    return text.IsString() ? text.AsString() : std::u16string();
}

// The code a key-down reports for the key that types the character (letters by their capital).
int16_t VirtualKeyOf(char16_t c) noexcept {
    if (c >= u'a' && c <= u'z') return static_cast<int16_t>(c - 32);
    if ((c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u' ') return static_cast<int16_t>(c);
    switch (c) {
    case u'-':
        return 189;
    case u',':
        return 188;
    case u'.':
        return 190;
    case u'/':
        return 191;
    case u':':
    case u';':
        return 186;
    case u'+':
        return 187;
    case 8:
    case 13:
    case 27:
        return static_cast<int16_t>(c);
    default:
        return 229; // a character that comes from an input method rather than one key
    }
}

} // namespace

MemoryEditBox::MemoryEditBox()
    : m_handle(NextHandle()) { }

void MemoryEditBox::SetEvents(EditBoxEvents* events) {
    if (events && m_events && events != m_events)
        throw std::logic_error(
            "this edit box already serves a control: each control needs a host of its own");
    m_events = events;
}

void MemoryEditBox::Select(int32_t anchor, int32_t caret) {
    const int32_t length = static_cast<int32_t>(m_text.size());
    m_anchor = std::clamp(anchor, 0, length);
    caret = std::clamp(caret, 0, length);
    m_selStart = std::min(m_anchor, caret);
    m_selLength = std::abs(caret - m_anchor);
}

void MemoryEditBox::Replace(std::u16string text, int32_t caret) {
    const bool changed = text != m_text;
    m_text = std::move(text);
    Select(caret, caret);
    if (changed && m_events) m_events->OnChange();
}

void MemoryEditBox::ReplaceSelection(std::u16string_view inserted) {
    std::u16string replaced = m_text;
    replaced.replace(static_cast<size_t>(m_selStart), static_cast<size_t>(m_selLength), inserted);
    Replace(std::move(replaced), m_selStart + static_cast<int32_t>(inserted.size()));
}

void MemoryEditBox::SetText(std::u16string_view text) {
    Replace(std::u16string(text), static_cast<int32_t>(text.size()));
}

void MemoryEditBox::SetSelStart(int32_t start) {
    Select(start, start);
}

void MemoryEditBox::SetSelLength(int32_t length) {
    Select(m_selStart, m_selStart + std::max(length, 0));
}

std::u16string MemoryEditBox::SelText() const {
    return m_text.substr(static_cast<size_t>(m_selStart), static_cast<size_t>(m_selLength));
}

void MemoryEditBox::SetSelText(std::u16string_view text) {
    ReplaceSelection(text);
}

void MemoryEditBox::Move(int32_t, int32_t, int32_t width, int32_t height) {
    if (failMoves) throw std::runtime_error("the edit box cannot be moved now");
    m_width = std::max(width, 0);
    m_height = std::max(height, MinimumHeight());
}

int32_t MemoryEditBox::MinimumHeight() const noexcept {
    return static_cast<int32_t>(std::ceil(m_font.size * 4 / 3)) + 8;
}

void MemoryEditBox::OLEDrag() {
    if (!m_events) return;
    DataObject data;
    int32_t allowedEffects = 1; // copy
    m_events->OnOLEStartDrag(data, allowedEffects);
    int16_t format = kTextFormat;
    m_events->OnOLESetData(data, format);
    if (!data.GetFormat(kTextFormat)) data.SetData(SelText(), kTextFormat);
    int32_t effect = allowedEffects;
    bool defaultCursors = true;
    m_events->OnOLEGiveFeedback(effect, defaultCursors);
    m_events->OnOLECompleteDrag(effect);
}

void MemoryEditBox::TypeKey(char16_t c, int16_t shift) {
    int16_t keyCode = VirtualKeyOf(c);
    if (m_events) m_events->OnKeyDown(keyCode, shift);
    int16_t keyAscii = static_cast<int16_t>(c);
    if (m_events) m_events->OnKeyPress(keyAscii);
    const char16_t typed = static_cast<char16_t>(static_cast<uint16_t>(keyAscii));
    if (typed == VK_BACK) {
        if (!m_locked && m_selLength == 0 && m_selStart > 0) Select(m_selStart - 1, m_selStart);
        if (!m_locked && m_selLength > 0) ReplaceSelection(u"");
    } else if (typed >= 32 && !m_locked) {
        // A single-line box ignores control characters; a full box takes nothing more.
        const bool fits = m_maxLength == 0
            || m_text.size() - static_cast<size_t>(m_selLength) < static_cast<size_t>(m_maxLength);
        if (fits) ReplaceSelection(std::u16string_view(&typed, 1));
    }
    if (m_events) m_events->OnKeyUp(keyCode, shift);
}

void MemoryEditBox::TypeText(std::u16string_view text) {
    for (char16_t c : text)
        TypeKey(c);
}

void MemoryEditBox::PressBackspace() {
    TypeKey(static_cast<char16_t>(VK_BACK));
}

void MemoryEditBox::PressEnter() {
    TypeKey(static_cast<char16_t>(VK_RETURN));
}

void MemoryEditBox::PressDelete() {
    int16_t keyCode = VK_DELETE;
    int16_t shift = 0;
    if (m_events) m_events->OnKeyDown(keyCode, shift);
    if (!m_locked) {
        if (m_selLength == 0 && m_selStart < static_cast<int32_t>(m_text.size()))
            Select(m_selStart, m_selStart + 1);
        if (m_selLength > 0) ReplaceSelection(u"");
    }
    if (m_events) m_events->OnKeyUp(keyCode, shift);
}

void MemoryEditBox::PressNavigation(int16_t virtualKey, int16_t shift) {
    int16_t keyCode = virtualKey;
    int16_t keyShift = shift;
    if (m_events) m_events->OnKeyDown(keyCode, keyShift);
    const int32_t caret = m_anchor == m_selStart ? m_selStart + m_selLength : m_selStart;
    int32_t target = caret;
    if (virtualKey == VK_LEFT) target = caret - 1;
    if (virtualKey == VK_RIGHT) target = caret + 1;
    if (virtualKey == VK_HOME) target = 0;
    if (virtualKey == VK_END) target = static_cast<int32_t>(m_text.size());
    if (shift & kShiftMask)
        Select(m_anchor, target);
    else
        Select(target, target);
    if (m_events) m_events->OnKeyUp(keyCode, keyShift);
}

std::u16string MemoryEditBox::Fitted(std::u16string_view text) const {
    std::u16string line(text.substr(0, text.find_first_of(u"\r\n")));
    if (m_maxLength > 0) {
        const size_t room = static_cast<size_t>(m_maxLength)
            - std::min(static_cast<size_t>(m_maxLength), m_text.size() - static_cast<size_t>(m_selLength));
        line.resize(std::min(line.size(), room));
    }
    return line;
}

std::optional<std::u16string> MemoryEditBox::Offered(std::u16string_view text) {
    // The first line goes in, made to read as typed in the field.
    std::u16string offered(text.substr(0, text.find_first_of(u"\r\n")));
    // A paste of nothing is no paste: the control is not asked, as a native edit box does not ask.
    if (m_events && !offered.empty() && !m_events->OnPasteText(offered)) return std::nullopt;
    return offered;
}

void MemoryEditBox::Paste(std::u16string_view text) {
    if (m_locked) return;
    if (const auto offered = Offered(text)) ReplaceSelection(Fitted(*offered));
}

void MemoryEditBox::PasteWithKeys(std::u16string_view text) {
    int16_t keyCode = u'V';
    int16_t shift = kCtrlMask;
    if (m_events) m_events->OnKeyDown(keyCode, shift);
    int16_t keyAscii = 22;
    if (m_events) m_events->OnKeyPress(keyAscii);
    if (keyAscii != 0) Paste(text);
    if (m_events) m_events->OnKeyUp(keyCode, shift);
}

std::u16string MemoryEditBox::CutWithKeys() {
    int16_t keyCode = u'X';
    int16_t shift = kCtrlMask;
    if (m_events) m_events->OnKeyDown(keyCode, shift);
    int16_t keyAscii = 24;
    if (m_events) m_events->OnKeyPress(keyAscii);
    std::u16string cut;
    if (keyAscii != 0 && !m_locked && m_selLength > 0) {
        cut = SelText();
        ReplaceSelection(u"");
    }
    if (m_events) m_events->OnKeyUp(keyCode, shift);
    return cut;
}

void MemoryEditBox::SelectAll() {
    Select(0, static_cast<int32_t>(m_text.size()));
}

void MemoryEditBox::ClickAt(int32_t position) {
    auto [button, shift, x, y] = PointerAt(position, 1);
    if (m_events) m_events->OnMouseDown(button, shift, x, y);
    Select(position, position);
    if (m_events) m_events->OnMouseUp(button, shift, x, y);
    if (m_events) m_events->OnClick();
}

void MemoryEditBox::DoubleClickAt(int32_t position) {
    ClickAt(position);
    auto [button, shift, x, y] = PointerAt(position, 1);
    const auto isWordCharacter = [this](int32_t at) {
        return at >= 0 && at < static_cast<int32_t>(m_text.size()) && m_text[static_cast<size_t>(at)] != u' ';
    };
    int32_t start = position;
    int32_t end = position;
    while (isWordCharacter(start - 1))
        --start;
    while (isWordCharacter(end))
        ++end;
    Select(start, end);
    if (m_events) m_events->OnDblClick();
    if (m_events) m_events->OnMouseUp(button, shift, x, y);
}

void MemoryEditBox::HoverAt(int32_t position) {
    auto [button, shift, x, y] = PointerAt(position, 0);
    if (m_events) m_events->OnMouseMove(button, shift, x, y);
}

void MemoryEditBox::DropText(int32_t position, std::u16string_view text) {
    DataObject data;
    data.SetData(std::u16string(text), kTextFormat);
    int32_t effect = 1;
    auto [button, shift, x, y] = PointerAt(position, 1);
    int16_t state = 0; // entering
    if (m_events) m_events->OnOLEDragOver(data, effect, button, shift, x, y, state);
    if (m_events) m_events->OnOLEDragDrop(data, effect, button, shift, x, y);
    // An automatic drop target inserts the text where it was dropped.
    if (m_oleDropMode == 2 && effect != 0 && !m_locked) {
        if (const auto offered = Offered(TextOfFormat(data))) {
            Select(position, position);
            ReplaceSelection(Fitted(*offered));
        }
    }
}

void MemoryEditBox::LeaveField() {
    if (m_events) m_events->OnFocusExit();
}

} // namespace quillmar::standalone
