// The Qt host of one field: the edit box's text, selection and appearance on its line edit, drags, message
// boxes, the about box, the states the undo history keeps, and the control's events as the widget's signals.
#include "qt/QtServices.h"

#include "qt/FieldHints.h"
#include "qt/QtAlerts.h"
#include "qt/QuillmarLineEdit.h"
#include "qt/UserEditLimits.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDrag>
#include <QLocale>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QStyle>

#include <algorithm>
#include <atomic>
#include <limits>

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

QtServices::QtServices(QuillmarEdit& owner)
    : m_owner(owner) {
    m_edit = new QuillmarLineEdit(*this, &owner);
    // The line edit takes any text; the user's edits are held to one line and to MaxLength by the validator.
    m_edit->setMaxLength(std::numeric_limits<int>::max());
    m_limit = new UserEditLimits(m_edit);
    m_edit->setValidator(m_limit);
    m_limit->rewritePaste = [this](std::u16string& text) {
        if (!m_events || m_events->OnPasteText(text)) return true;
        m_owner.hints().NotePasteRefused();
        return false;
    };
    m_owner.setFocusProxy(m_edit);
    m_owner.setFocusPolicy(Qt::StrongFocus);
    // The validator needs the text and the selection as they were before each edit; QLineEdit reports them
    // after its checks, so what was last reported is what an edit starts from. The undo history follows the
    // caret and the selection between edits too: an edit undone puts them back.
    const auto recordSelection = [this] {
        m_limit->previousStart
            = m_edit->hasSelectedText() ? m_edit->selectionStart() : m_edit->cursorPosition();
        if (!m_history.InGroup() && !m_restoring && m_edit->text() == m_history.Settled().text)
            m_history.Settle(State());
    };
    QObject::connect(m_edit, &QLineEdit::cursorPositionChanged, &m_owner, recordSelection);
    QObject::connect(m_edit, &QLineEdit::selectionChanged, &m_owner, recordSelection);
    // QLineEdit also reports an edit that left the text as it was (a character typed over itself); the field
    // reports changes of the text only. A user's change outside the edits the field follows one by one (a
    // cut, paste or delete from the context menu, or called on the line edit) is a step from the state last
    // left.
    QObject::connect(m_edit, &QLineEdit::textChanged, &m_owner, [this, recordSelection](const QString& text) {
        const bool changed = text != m_limit->previous;
        m_limit->previous = text;
        m_limit->lastMade = QString();
        recordSelection();
        const bool ownStep = changed && !m_history.InGroup() && !m_limit->programmatic && !m_restoring;
        if (ownStep) m_history.BeginFromSettled();
        if (changed && m_events) m_events->OnChange();
        if (ownStep) m_history.End(State());
    });
    m_history.Reset(State());
}

QtServices::HistoryStep::HistoryStep(QtServices& services)
    : m_services(services) {
    services.m_history.Begin(services.State());
}

QtServices::HistoryStep::~HistoryStep() {
    m_services.m_history.End(m_services.State());
}

QtServices::Programmatic::Programmatic(UserEditLimits& limit)
    : m_limit(limit)
    , m_was(limit.programmatic) {
    limit.programmatic = true;
}

QtServices::Programmatic::~Programmatic() {
    m_limit.programmatic = m_was;
}

// The container.

void QtServices::PropertyChanged(std::u16string_view name) {
    ++m_notifications;
    emit m_owner.PropertyChanged(ToQString(name));
}

bool QtServices::UserMode() const {
    return m_userMode;
}

FontDesc QtServices::AmbientFont() const {
    return FromQFont(m_owner.parentWidget() ? m_owner.parentWidget()->font() : QApplication::font());
}

std::optional<std::u16string> QtServices::ExtenderName() const {
    return FromQString(m_owner.objectName());
}

std::optional<std::u16string> QtServices::ExtenderToolTipText() const {
    return FromQString(m_owner.toolTip());
}

bool QtServices::ExtenderVisible() const {
    return m_owner.isVisible();
}

void QtServices::SetFocus() {
    m_edit->setFocus(Qt::OtherFocusReason);
}

void QtServices::SetWidth(int32_t width) {
    Resize(width, m_owner.height());
}

void QtServices::SetHeight(int32_t height) {
    Resize(m_owner.width(), height);
}

// The edit box.

void QtServices::SetEvents(EditBoxEvents* events) {
    m_events = events;
}

std::u16string QtServices::Text() const {
    return FromQString(m_edit->text());
}

void QtServices::SetText(std::u16string_view text) {
    if (m_restoring) return;
    const Programmatic write(*m_limit);
    // Inside an edit (the user's, or a final-validation write) the write is part of that edit's step; a
    // final-validation write of its own is a step of its own; the program's text starts the history afresh.
    if (m_history.InGroup()) return m_edit->setText(ToQString(text));
    if (m_owner.m_control && m_owner.m_control->state().ProgrammaticWrite) {
        const HistoryStep step(*this);
        return m_edit->setText(ToQString(text));
    }
    m_edit->setText(ToQString(text));
    m_history.Reset(State());
}

int32_t QtServices::SelStart() const {
    return m_edit->hasSelectedText() ? m_edit->selectionStart() : m_edit->cursorPosition();
}

void QtServices::SetSelStart(int32_t start) {
    if (!m_restoring) m_edit->setCursorPosition(std::max(start, 0));
}

int32_t QtServices::SelLength() const {
    return m_edit->selectionLength();
}

void QtServices::SetSelLength(int32_t length) {
    if (m_restoring) return;
    const int32_t start = SelStart();
    m_edit->setSelection(
        start, std::clamp<int32_t>(length, 0, static_cast<int32_t>(m_edit->text().size()) - start));
}

std::u16string QtServices::SelText() const {
    return FromQString(m_edit->selectedText());
}

void QtServices::SetSelText(std::u16string_view text) {
    if (m_restoring) return;
    const Programmatic write(*m_limit);
    const HistoryStep step(*this);
    m_edit->insert(ToQString(text));
}

int32_t QtServices::MaxLength() const {
    return static_cast<int32_t>(m_limit->limit);
}

void QtServices::SetMaxLength(int32_t length) {
    m_limit->limit = std::max(length, 0);
}

int16_t QtServices::Alignment() const {
    return m_alignment;
}

int16_t QtServices::Appearance() const {
    return m_appearance;
}

void QtServices::SetAppearance(int16_t value) {
    m_appearance = value;
    ApplyFrame();
}

int16_t QtServices::BorderStyle() const {
    return m_borderStyle;
}

void QtServices::SetBorderStyle(int16_t value) {
    m_borderStyle = value;
    ApplyFrame();
}

bool QtServices::Locked() const {
    return m_edit->isReadOnly();
}

void QtServices::SetLocked(bool value) {
    m_edit->setReadOnly(value);
}

std::u16string QtServices::PasswordChar() const {
    return m_passwordChar;
}

bool QtServices::RightToLeft() const {
    return m_edit->layoutDirection() == Qt::RightToLeft;
}

void QtServices::SetRightToLeft(bool value) {
    m_edit->setLayoutDirection(value ? Qt::RightToLeft : Qt::LeftToRight);
}

int16_t QtServices::MousePointer() const {
    return m_mousePointer;
}

void QtServices::SetMousePointer(int16_t value) {
    m_mousePointer = value;
    ApplyCursor();
}

PictureRef QtServices::MouseIcon() const {
    return m_mouseIcon;
}

void QtServices::SetMouseIcon(PictureRef value) {
    m_mouseIcon = std::move(value);
    ApplyCursor();
}

FontDesc QtServices::Font() const {
    return m_font;
}

void QtServices::SetFont(const FontDesc& font) {
    m_font = font;
    m_edit->setFont(ToQFont(font));
}

uint32_t QtServices::BackColor() const {
    return m_backColor;
}

void QtServices::SetBackColor(uint32_t value) {
    m_backColor = value;
    ApplyColours();
}

uint32_t QtServices::ForeColor() const {
    return m_foreColor;
}

void QtServices::SetForeColor(uint32_t value) {
    m_foreColor = value;
    ApplyColours();
}

int16_t QtServices::OLEDragMode() const {
    return m_oleDragMode;
}

void QtServices::SetOLEDragMode(int16_t value) {
    m_oleDragMode = value;
    m_edit->setDragEnabled(value == 1);
}

int16_t QtServices::OLEDropMode() const {
    return m_oleDropMode;
}

void QtServices::SetOLEDropMode(int16_t value) {
    m_oleDropMode = value;
    m_edit->setAcceptDrops(value != 0);
}

bool QtServices::Enabled() const {
    return m_edit->isEnabled();
}

void QtServices::SetEnabled(bool value) {
    m_owner.setEnabled(value);
    m_edit->setEnabled(value);
}

bool QtServices::HideSelection() const {
    return true;
}

int32_t QtServices::Handle() const {
    return m_handle;
}

void QtServices::Refresh() {
    m_edit->update();
}

std::u16string QtServices::ToolTipText() const {
    return FromQString(m_edit->toolTip());
}

void QtServices::SetToolTipText(std::u16string_view text) {
    m_edit->setToolTip(ToQString(text));
}

void QtServices::Move(int32_t left, int32_t top, int32_t width, int32_t height) {
    m_edit->setGeometry(left, top, std::max(width, 0), std::max(height, m_edit->minimumSizeHint().height()));
}

int32_t QtServices::Width() const {
    return m_edit->width();
}

int32_t QtServices::Height() const {
    return m_edit->height();
}

// The locale and the beep.

LocaleInfo QtServices::Locale() const {
    QString name = m_localeName.isEmpty() ? QLocale::system().name() : m_localeName;
    if (!m_locale || name != m_localeRead) {
        m_locale = LocaleInfo::FromName(name.toStdString());
        m_localeRead = std::move(name);
    }
    return *m_locale;
}

void QtServices::Beep() {
    if (!m_restoring) m_beep ? m_beep() : QApplication::beep();
}

// The control's events, raised as the widget's signals.

void QtServices::OLEStartDrag(DataObject& d, int32_t& e) {
    emit m_owner.OLEStartDrag(d, e);
}

void QtServices::OLESetData(DataObject& d, int16_t& f) {
    emit m_owner.OLESetData(d, f);
}

void QtServices::OLEGiveFeedback(int32_t& e, bool& c) {
    emit m_owner.OLEGiveFeedback(e, c);
}

void QtServices::OLEDragOver(
    DataObject& d, int32_t& e, int16_t& b, int16_t& s, float& x, float& y, int16_t& st) {
    emit m_owner.OLEDragOver(d, e, b, s, x, y, st);
}

void QtServices::OLEDragDrop(DataObject& d, int32_t& e, int16_t& b, int16_t& s, float& x, float& y) {
    emit m_owner.OLEDragDrop(d, e, b, s, x, y);
}

void QtServices::OLECompleteDrag(int32_t& e) {
    emit m_owner.OLECompleteDrag(e);
}

void QtServices::KeyDown(int16_t& k, int16_t& s) {
    emit m_owner.KeyDown(k, s);
}

void QtServices::KeyPress(int16_t& k) {
    emit m_owner.KeyPress(k);
}

void QtServices::KeyUp(int16_t& k, int16_t& s) {
    emit m_owner.KeyUp(k, s);
}

void QtServices::MouseDown(int16_t& b, int16_t& s, float& x, float& y) {
    emit m_owner.MouseDown(b, s, x, y);
}

void QtServices::MouseMove(int16_t& b, int16_t& s, float& x, float& y) {
    emit m_owner.MouseMove(b, s, x, y);
}

void QtServices::MouseUp(int16_t& b, int16_t& s, float& x, float& y) {
    emit m_owner.MouseUp(b, s, x, y);
}

void QtServices::Click() {
    emit m_owner.Click();
}

void QtServices::DblClick() {
    emit m_owner.DblClick();
}

void QtServices::Change() {
    emit m_owner.Change();
}

// The undo history.

bool QtServices::CanUndo() const {
    return !m_edit->isReadOnly() && m_history.CanUndo();
}

bool QtServices::CanRedo() const {
    return !m_edit->isReadOnly() && m_history.CanRedo();
}

void QtServices::Undo() {
    if (CanUndo()) Restore(m_history.Undo());
}

void QtServices::Redo() {
    if (CanRedo()) Restore(m_history.Redo());
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
    QMessageBox::about(m_owner.window(), QCoreApplication::translate("QuillmarEdit", "About Quillmar"),
        QCoreApplication::translate(
            "QuillmarEdit", "<b>Quillmar</b> %1<br>A data-entry field that knows what it must contain.")
            .arg(QStringLiteral(QUILLMAR_VERSION)));
    --m_dialogsOpen;
}

} // namespace quillmar::qt
