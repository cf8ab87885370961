// What the Qt host does for its field beyond routing events: the edit box's appearance, drags, message
// boxes, the about box and the states the undo history keeps.
#include "qt/QtServices.h"

#include <atomic>

namespace quillmar::qt {
namespace {

QString TextOf(const DataObject& data) {
    const Variant text = data.GetData(kTextFormat);
    return text.IsString() ? ToQString(text.AsString()) : QString();
}

} // namespace

int32_t NextHandle() {
    static std::atomic<int32_t> next { 0x10000 };
    return next.fetch_add(4);
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

} // namespace quillmar::qt
