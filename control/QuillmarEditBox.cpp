// The properties the control passes through to its edit box (and its own enabled state): the box holds
// them, the control announces each change.
#include "control/Quillmar.h"

#include <string>
#include <utility>

namespace quillmar {

int32_t Quillmar::MaxLength() const {
    return m_host.editBox.MaxLength();
}
int32_t Quillmar::SelStart() const {
    return m_host.editBox.SelStart();
}
int32_t Quillmar::SelLength() const {
    return m_host.editBox.SelLength();
}
std::u16string Quillmar::SelText() const {
    return m_host.editBox.SelText();
}
int16_t Quillmar::Alignment() const {
    return m_host.editBox.Alignment();
}
int16_t Quillmar::Appearance() const {
    return m_host.editBox.Appearance();
}
int16_t Quillmar::BorderStyle() const {
    return m_host.editBox.BorderStyle();
}
bool Quillmar::Locked() const {
    return m_host.editBox.Locked();
}
std::u16string Quillmar::PasswordChar() const {
    return m_host.editBox.PasswordChar();
}
bool Quillmar::RightToLeft() const {
    return m_host.editBox.RightToLeft();
}
int16_t Quillmar::MousePointer() const {
    return m_host.editBox.MousePointer();
}
PictureRef Quillmar::MouseIcon() const {
    return m_host.editBox.MouseIcon();
}
bool Quillmar::FontBold() const {
    return m_host.editBox.Font().bold;
}
bool Quillmar::FontItalic() const {
    return m_host.editBox.Font().italic;
}
bool Quillmar::FontUnderline() const {
    return m_host.editBox.Font().underline;
}
bool Quillmar::FontStrikethru() const {
    return m_host.editBox.Font().strikethru;
}
float Quillmar::FontSize() const {
    return m_host.editBox.Font().size;
}
int16_t Quillmar::OLEDragMode() const {
    return m_host.editBox.OLEDragMode();
}
int16_t Quillmar::OLEDropMode() const {
    return m_host.editBox.OLEDropMode();
}
FontDesc Quillmar::Font() const {
    return m_host.editBox.Font();
}
uint32_t Quillmar::BackColor() const {
    return m_host.editBox.BackColor();
}
uint32_t Quillmar::ForeColor() const {
    return m_host.editBox.ForeColor();
}
std::u16string Quillmar::FontName() const {
    return m_host.editBox.Font().name;
}
int32_t Quillmar::hwnd() const {
    return m_host.editBox.Handle();
}
bool Quillmar::HideSelection() const {
    return m_host.editBox.HideSelection();
}

// Colours and the font face are set by a loaded form only; assignments from code are ignored.
void Quillmar::SetFont(const FontDesc&) { }
void Quillmar::SetBackColor(uint32_t) { }
void Quillmar::SetForeColor(uint32_t) { }
void Quillmar::SetFontName(std::u16string_view) { }

void Quillmar::SetMaxLength(int32_t value) {
    m_host.editBox.SetMaxLength(value);
    Notify(u"MaxLength");
}

void Quillmar::SetSelStart(int32_t value) {
    m_host.editBox.SetSelStart(value);
    Notify(u"SelStart");
}

void Quillmar::SetSelLength(int32_t value) {
    m_host.editBox.SetSelLength(value);
    Notify(u"SelLength");
}

void Quillmar::SetSelText(std::u16string_view value) {
    m_host.editBox.SetSelText(value);
    Notify(u"SelText");
}

void Quillmar::SetAlignment(int16_t value) {
    m_host.editBox.SetAlignment(value);
    Notify(u"Alignment");
}

void Quillmar::SetAppearance(int16_t value) {
    m_host.editBox.SetAppearance(value);
    Notify(u"Appearance");
}

void Quillmar::SetBorderStyle(int16_t value) {
    m_host.editBox.SetBorderStyle(value);
    Notify(u"BorderStyle");
}

void Quillmar::SetLocked(bool value) {
    m_host.editBox.SetLocked(value);
    Notify(u"Locked");
}

void Quillmar::SetPasswordChar(std::u16string_view value) {
    m_host.editBox.SetPasswordChar(value);
    Notify(u"PasswordChar");
}

void Quillmar::SetRightToLeft(bool value) {
    m_host.editBox.SetRightToLeft(value);
    Notify(u"RightToLeft");
}

void Quillmar::SetMousePointer(int16_t value) {
    m_host.editBox.SetMousePointer(value);
    Notify(u"MousePointer");
}

void Quillmar::SetMouseIcon(PictureRef value) {
    m_host.editBox.SetMouseIcon(std::move(value));
    Notify(u"MouseIcon");
}

template <typename Apply> void Quillmar::EditFont(Apply apply, std::u16string_view name) {
    FontDesc font = m_host.editBox.Font();
    apply(font);
    m_host.editBox.SetFont(font);
    Notify(name);
}

void Quillmar::SetFontBold(bool value) {
    EditFont([value](FontDesc& f) { f.bold = value; }, u"FontBold");
}

void Quillmar::SetFontItalic(bool value) {
    EditFont([value](FontDesc& f) { f.italic = value; }, u"FontItalic");
}

void Quillmar::SetFontUnderline(bool value) {
    EditFont([value](FontDesc& f) { f.underline = value; }, u"FontUnderline");
}

void Quillmar::SetFontStrikethru(bool value) {
    EditFont([value](FontDesc& f) { f.strikethru = value; }, u"FontStrikethru");
}

void Quillmar::SetFontSize(float value) {
    EditFont([value](FontDesc& f) { f.size = value; }, u"FontSize");
}

void Quillmar::SetOLEDragMode(int16_t value) {
    m_host.editBox.SetOLEDragMode(value);
    Notify(u"OLEDragMode");
}

void Quillmar::SetOLEDropMode(int16_t value) {
    m_host.editBox.SetOLEDropMode(value);
    Notify(u"OLEDropMode");
}

void Quillmar::SetEnabled(bool value) {
    m_enabled = value;
    m_host.editBox.SetEnabled(value);
    Notify(u"Enabled");
}

} // namespace quillmar
