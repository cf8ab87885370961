#include "host/standalone/StandaloneHost.h"

#include <algorithm>
#include <atomic>

namespace quillmar::standalone {
namespace {

int32_t NextHandle() {
    static std::atomic<int32_t> next { 0x1000 };
    return next.fetch_add(4);
}

} // namespace

MemoryEditBox::MemoryEditBox()
    : m_handle(NextHandle()) { }

void MemoryEditBox::Replace(std::u16string text, int32_t caret) {
    const bool changed = text != m_text;
    m_text = std::move(text);
    m_selStart = std::clamp<int32_t>(caret, 0, static_cast<int32_t>(m_text.size()));
    m_selLength = 0;
    if (changed && m_events) m_events->OnChange();
}

void MemoryEditBox::SetText(std::u16string_view text) {
    Replace(std::u16string(text), static_cast<int32_t>(text.size()));
}

void MemoryEditBox::SetSelStart(int32_t start) {
    m_selStart = std::clamp<int32_t>(start, 0, static_cast<int32_t>(m_text.size()));
    m_selLength = 0;
}

void MemoryEditBox::SetSelLength(int32_t length) {
    m_selLength = std::clamp<int32_t>(length, 0, static_cast<int32_t>(m_text.size()) - m_selStart);
}

std::u16string MemoryEditBox::SelText() const {
    return m_text.substr(static_cast<size_t>(m_selStart), static_cast<size_t>(m_selLength));
}

void MemoryEditBox::SetSelText(std::u16string_view text) {
    std::u16string replaced = m_text;
    replaced.replace(static_cast<size_t>(m_selStart), static_cast<size_t>(m_selLength), text);
    Replace(std::move(replaced), m_selStart + static_cast<int32_t>(text.size()));
}

void RecordingEvents::KeyDown(int16_t& keyCode, int16_t& shift) {
    log.push_back("KeyDown " + std::to_string(keyCode) + " " + std::to_string(shift));
}

void RecordingEvents::KeyPress(int16_t& keyAscii) {
    log.push_back("KeyPress " + std::to_string(keyAscii));
}

void RecordingEvents::KeyUp(int16_t& keyCode, int16_t& shift) {
    log.push_back("KeyUp " + std::to_string(keyCode) + " " + std::to_string(shift));
}

} // namespace quillmar::standalone
