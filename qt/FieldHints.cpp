#include "qt/FieldHints.h"

#include "qt/QuillmarForm.h"

#include "input/Refusal.h"
#include "qt/QtConversions.h"
#include "qt/QtKeys.h"
#include "qt/QuillmarEdit.h"
#include "validation/Describe.h"

#include <QAction>
#include <QDate>
#include <QEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace quillmar::qt {
namespace {

// How long the tip that says why a key did nothing stays.
constexpr int kRefusalTipMilliseconds = 4000;

// A frame in the warning colour drawn over the edit box's own; it lets the mouse through to the box.
class WarningFrame final : public QWidget {
public:
    explicit WarningFrame(QWidget* parent)
        : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(QPen(QColor(0xD0, 0x20, 0x20), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
};

// A key that types a character: printable text, without Ctrl unless Alt comes with it (AltGr).
bool TypesCharacter(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.size() != 1 || text[0].unicode() < 32 || text[0].unicode() == 127) return false;
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return !(modifiers & Qt::ControlModifier) || (modifiers & Qt::AltModifier);
}

} // namespace

FieldHints::FieldHints(QuillmarEdit& field, QLineEdit& edit)
    : QObject(&field)
    , m_field(field)
    , m_edit(edit) {
    connect(&field, &QuillmarEdit::PropertyChanged, this, &FieldHints::Refresh);
    connect(&edit, &QLineEdit::textChanged, this, [this] {
        ++m_changes;
        if (m_inlineState) UpdateInlineState();
    });
}

void FieldHints::Refresh() {
    const Quillmar& control = m_field.control();
    const LocaleInfo locale = LocaleInfo::FromName(m_field.LocaleName().toStdString());
    m_edit.setPlaceholderText(
        ToQString(PlaceholderText(control.settings(), locale, QDate::currentDate().year())));
    m_description = ToQString(DescribeRules(control.settings(), locale, control.MaxLength()));
    m_edit.setAccessibleDescription(m_description);
    m_field.setAccessibleDescription(m_description);
    if (m_inlineState) UpdateInlineState();
}

void FieldHints::NameEditBox() {
    if (!m_edit.accessibleName().isEmpty() && m_edit.accessibleName() != m_givenName) return;
    QString name = m_field.accessibleName();
    if (name.isEmpty()) name = LabelOf(m_field);
    m_givenName = name;
    m_edit.setAccessibleName(name);
}

void FieldHints::SetShowInlineState(bool on) {
    if (on == m_inlineState) return;
    m_inlineState = on;
    if (on) {
        m_stateIcon = m_edit.addAction(
            m_edit.style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::TrailingPosition);
        m_stateFrame = new WarningFrame(&m_edit);
        m_stateFrame->setGeometry(m_edit.rect()); // and again on each resize of the edit box
        m_edit.installEventFilter(this);
        UpdateInlineState();
    } else {
        m_edit.removeEventFilter(this);
        delete m_stateIcon;
        delete m_stateFrame;
    }
}

void FieldHints::UpdateInlineState() {
    const bool broken = !m_edit.text().isEmpty() && m_field.CheckInput() != 0;
    m_stateIcon->setToolTip(m_description);
    m_stateIcon->setVisible(broken);
    m_stateFrame->setVisible(broken);
}

bool FieldHints::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_edit && event->type() == QEvent::Resize && m_stateFrame)
        m_stateFrame->setGeometry(m_edit.rect());
    return QObject::eventFilter(watched, event);
}

void FieldHints::ShowRefusalTip() {
    const Quillmar& control = m_field.control();
    const QString text = ToQString(RefusalText(control.LastRefusal(), control.settings(), control.Locale()));
    if (text.isEmpty()) return;
    const QRect caret = m_edit.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    QToolTip::showText(m_edit.mapToGlobal(caret.bottomLeft()), text, &m_edit, caret, kRefusalTipMilliseconds);
}

FieldHints::EditWatch::EditWatch(FieldHints& hints, const QKeyEvent& event)
    : m_hints(hints)
    , m_typed(TypesCharacter(event))
    , m_paste(!m_typed && IsPasteKey(event))
    , m_changesBefore(hints.m_changes)
    , m_refusedPastesBefore(hints.m_refusedPastes) { }

FieldHints::EditWatch::EditWatch(FieldHints& hints)
    : m_hints(hints)
    , m_paste(true)
    , m_changesBefore(hints.m_changes)
    , m_refusedPastesBefore(hints.m_refusedPastes) { }

FieldHints::EditWatch::~EditWatch() {
    if (!m_hints.m_refusalTips || (!m_typed && !m_paste)) return;
    // The control forgets a refusal once a later key or change is accepted; a key that neither changed the
    // text nor was sifted leaves the refusal of an earlier one, which is not this key's.
    // A paste the field refused whole changed nothing, and says so all the same.
    const bool sifted = (m_typed && m_hints.m_field.InputSifting() == vldWeak)
        || (m_paste && m_hints.m_refusedPastes != m_refusedPastesBefore);
    if (!sifted && m_hints.m_changes == m_changesBefore) return;
    if (m_hints.m_field.control().LastRefusal() != Refusal::None) m_hints.ShowRefusalTip();
}

} // namespace quillmar::qt
