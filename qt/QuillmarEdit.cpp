#include "qt/QuillmarEdit.h"

#include "qt/FieldHints.h"
#include "qt/QtServices.h"

#include "i18n/QuillmarTranslations.h"

#include <QApplication>
#include <QLocale>

namespace quillmar::qt {

QuillmarEdit::QuillmarEdit(QWidget* parent)
    : QWidget(parent)
    , m_services(std::make_unique<QtServices>(*this)) {
    QtServices& s = *m_services;
    m_control = std::make_unique<Quillmar>(HostServices { s, s, s, s, s, TranslatedMessages() });
    m_control->SetEventListener(m_services.get());
    s.SetFont(FromQFont(parent ? parent->font() : QApplication::font()));
    resize(m_services->m_edit->sizeHint());
    m_hints = new FieldHints(*this, *m_services->m_edit);
    m_hints->Refresh();
    m_valid = IsValid();
    connect(this, &QuillmarEdit::PropertyChanged, this, &QuillmarEdit::UpdateValidity);
    connect(m_services->m_edit, &QLineEdit::textChanged, this, &QuillmarEdit::UpdateValidity);
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
    UpdateValidity();
}

void QuillmarEdit::UpdateValidity() {
    const bool valid = IsValid();
    if (valid == m_valid) return;
    m_valid = valid;
    emit ValidityChanged(valid);
}

QString QuillmarEdit::LocaleName() const {
    return m_services->m_localeName.isEmpty() ? QLocale::system().name() : m_services->m_localeName;
}

void QuillmarEdit::SkipNextFocusExit() {
    if (!m_services->m_edit->hasFocus() || m_services->SkipFocusExit()) return;
    m_services->SetSkipFocusExit(true);
    // A focus that did not leave now (its window was not active) is left later with its validation.
    QMetaObject::invokeMethod(
        this, [services = m_services.get()] { services->SetSkipFocusExit(false); }, Qt::QueuedConnection);
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

void QuillmarEdit::SetBackColor(uint value) {
    m_services->SetBackColor(value);
    emit PropertyChanged(QStringLiteral("BackColor"));
}

void QuillmarEdit::SetForeColor(uint value) {
    m_services->SetForeColor(value);
    emit PropertyChanged(QStringLiteral("ForeColor"));
}

void QuillmarEdit::SetFontName(const QString& value) {
    FontDesc font = m_services->Font();
    font.name = FromQString(value);
    m_services->SetFont(font);
    emit PropertyChanged(QStringLiteral("FontName"));
}

void QuillmarEdit::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // The widget's own setting, not the parent's: a field greyed by its disabled parent stays enabled itself.
    const bool own = !testAttribute(Qt::WA_ForceDisabled);
    if (event->type() == QEvent::EnabledChange && m_control && own != m_control->Enabled())
        m_control->SetEnabled(own);
}

void QuillmarEdit::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!m_services->Resizing()) m_control->Resize(width(), height());
}

void QuillmarEdit::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_hints->NameEditBox(); // a label may have become the field's buddy since it was made
    m_control->Show();
}

} // namespace quillmar::qt
