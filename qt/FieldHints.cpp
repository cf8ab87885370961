#include "qt/FieldHints.h"

#include "i18n/QuillmarTranslations.h"

#include "input/Refusal.h"
#include "qt/QtConversions.h"
#include "qt/QtKeys.h"
#include "qt/QuillmarEdit.h"
#include "qt/QuillmarForm.h"
#include "validation/Describe.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QApplication>
#include <QCoreApplication>
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

// The field as assistive technology sees it: a plain container around its edit box, neither focusable nor
// named nor described, so that a screen reader stops once per field, on the edit box, which carries the
// field's name and description.
class FieldAccessible final : public QAccessibleWidget {
public:
    explicit FieldAccessible(QWidget* field)
        : QAccessibleWidget(field, QAccessible::Grouping) { }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name || kind == QAccessible::Description) return {};
        return QAccessibleWidget::text(kind);
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focusable = false;
        state.focused = false;
        return state;
    }
};

QAccessibleInterface* MakeFieldAccessible(const QString&, QObject* object) {
    auto* field = qobject_cast<QuillmarEdit*>(object);
    return field ? new FieldAccessible(field) : nullptr;
}

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
    static const bool factoryInstalled = (QAccessible::installFactory(MakeFieldAccessible), true);
    (void)factoryInstalled;
    connect(&field, &QuillmarEdit::PropertyChanged, this, &FieldHints::Refresh);
    connect(&edit, &QLineEdit::textChanged, this, [this] {
        ++m_changes;
        // A change accepted after a refusal leaves the refusal behind; a tip for this change comes after it.
        if (!m_tip.isEmpty()) SetTipInDescription({});
        if (m_inlineState) UpdateInlineState();
    });
}

void FieldHints::SetTipInDescription(const QString& tip) {
    m_tip = tip;
    UpdateDescription();
}

void FieldHints::UpdateDescription() {
    QString description = m_rules;
    if (m_broken) {
        QString message = m_field.CurrentErrorMessage();
        message.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
        description = QCoreApplication::translate("QuillmarEdit", "Not valid: %1").arg(message)
            + (m_rules.isEmpty() ? QString() : QLatin1Char(' ') + m_rules);
    }
    if (!m_tip.isEmpty())
        description = m_tip + (description.isEmpty() ? QString() : QLatin1Char(' ') + description);
    // The edit box announces a change of its description to assistive technology; an unchanged one is
    // not announced again.
    if (description != m_edit.accessibleDescription()) m_edit.setAccessibleDescription(description);
}

void FieldHints::Refresh() {
    const Quillmar& control = m_field.control();
    const LocaleInfo locale = LocaleInfo::FromName(m_field.LocaleName().toStdString());
    m_edit.setPlaceholderText(ToQString(
        PlaceholderText(control.settings(), locale, QDate::currentDate().year(), TranslatedMessages())));
    m_rules = ToQString(DescribeRules(control.settings(), locale, control.MaxLength(), TranslatedMessages()));
    if (m_inlineState) UpdateInlineState();
    UpdateDescription();
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
        // The icon's button is named for assistive technology by the action's text.
        m_stateIcon->setText(QCoreApplication::translate("QuillmarEdit", "Not valid"));
        m_stateFrame = new WarningFrame(&m_edit);
        m_stateFrame->setGeometry(m_edit.rect()); // and again on each resize of the edit box
        m_edit.installEventFilter(this);
        UpdateInlineState();
    } else {
        m_edit.removeEventFilter(this);
        delete m_stateIcon;
        delete m_stateFrame;
        m_broken = false;
        UpdateDescription();
    }
}

void FieldHints::UpdateInlineState() {
    m_broken = !m_edit.text().isEmpty() && m_field.CheckInput() != 0;
    m_stateIcon->setToolTip(m_rules);
    m_stateIcon->setVisible(m_broken);
    m_stateFrame->setVisible(m_broken);
    UpdateDescription();
}

bool FieldHints::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_edit && event->type() == QEvent::Resize && m_stateFrame)
        m_stateFrame->setGeometry(m_edit.rect());
    if (watched != &m_edit && event->type() == QEvent::Hide && !m_tip.isEmpty()) SetTipInDescription({});
    return QObject::eventFilter(watched, event);
}

void FieldHints::ShowRefusalTip() {
    const Quillmar& control = m_field.control();
    const QString text = ToQString(
        RefusalText(control.LastRefusal(), control.settings(), control.Locale(), TranslatedMessages()));
    if (text.isEmpty()) return;
    const QRect caret = m_edit.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    QToolTip::showText(m_edit.mapToGlobal(caret.bottomLeft()), text, &m_edit, caret, kRefusalTipMilliseconds);
    // A screen reader reads the tip first in the description for as long as the tip shows.
    SetTipInDescription(text);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel")) window->installEventFilter(this);
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
