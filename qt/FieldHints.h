#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class QAction;
class QKeyEvent;
class QLineEdit;
class QWidget;

namespace quillmar::qt {

class QuillmarEdit;

/// What the field tells the user beside the control's own beep and message box: the grey example an empty
/// edit box shows and the rules in words as its accessible description (both refreshed whenever a property or
/// the locale changes), and, when the form asks for them, a tip at the caret saying why a key or a paste did
/// nothing, and a frame and an icon while the text breaks a rule; the description then begins with the tip,
/// or with "Not valid: " and the message. The widget's tool tip stays the form's. Assistive technology sees
/// the field as an unnamed container that takes no focus around the edit box, so it stops once per field.
class FieldHints final : public QObject {
    Q_OBJECT
public:
    FieldHints(QuillmarEdit& field, QLineEdit& edit);

    /// Reads the rules and the locale afresh: placeholder, accessible description and inline state.
    void Refresh();
    /// Gives the edit box, which holds the focus, the field's accessible name: the one the program set on
    /// the field, or else the text of a label beside it whose buddy is the field (without its mnemonic and
    /// a closing colon). A name the program set on the edit box itself stays.
    void NameEditBox();

    void SetShowRefusalTips(bool on) { m_refusalTips = on; }
    [[nodiscard]] bool ShowRefusalTips() const { return m_refusalTips; }
    void SetShowInlineState(bool on);
    [[nodiscard]] bool ShowInlineState() const { return m_inlineState; }
    /// The icon shown while the text breaks a rule; nullptr while the state is off.
    [[nodiscard]] QAction* StateIcon() const { return m_stateIcon; }
    /// The frame drawn around the edit box while the text breaks a rule.
    [[nodiscard]] QWidget* StateFrame() const { return m_stateFrame; }

    /// Notes that the field refused a paste or a drop whole: nothing changed, yet the edit was refused.
    void NotePasteRefused() { ++m_refusedPastes; }

    /// Watches one edit of the user's: a key press, or a paste from the menu or a drop. When it typed a
    /// character or pasted and the control refused that, the tip says why once the edit is done.
    class EditWatch {
    public:
        EditWatch(FieldHints& hints, const QKeyEvent& event);
        /// A paste or a drop.
        explicit EditWatch(FieldHints& hints);
        ~EditWatch();
        EditWatch(const EditWatch&) = delete;
        EditWatch& operator=(const EditWatch&) = delete;

    private:
        FieldHints& m_hints;
        bool m_typed = false;
        bool m_paste = false;
        int m_changesBefore = 0;
        int m_refusedPastesBefore = 0;
    };

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void UpdateInlineState();
    void ShowRefusalTip();
    /// Puts `tip` (a refusal tip showing now; empty once it hides) first in the edit box's description.
    void SetTipInDescription(const QString& tip);
    /// The edit box's accessible description: the tip showing, "Not valid: " and the message while the
    /// inline state shows a broken rule, then the rules in words.
    void UpdateDescription();

    QuillmarEdit& m_field;
    QLineEdit& m_edit;
    QString m_rules; // the rules in words
    QString m_tip;
    bool m_broken = false; // the inline state shows a broken rule
    QString m_givenName; // the accessible name `NameEditBox` gave the edit box
    bool m_refusalTips = false;
    bool m_inlineState = false;
    int m_changes = 0;
    int m_refusedPastes = 0;
    QPointer<QAction> m_stateIcon;
    QPointer<QWidget> m_stateFrame;
};

} // namespace quillmar::qt
