#include "pages/ErrorMsgPage.h"

#include "base/Enums.h"
#include "pages/PageChecks.h"
#include "pages/PageWidgets.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStyle>
#include <QTextDocument>
#include <QVBoxLayout>

#include <initializer_list>
#include <span>

namespace quillmar::pages {
namespace {

// The line break a stored message holds.
const QString kLineBreak = QStringLiteral("\r\n");

QRadioButton* MakeOption(const QString& name, const QString& caption, QGroupBox* frame) {
    auto* option = new QRadioButton(caption, frame);
    option->setObjectName(name);
    frame->layout()->addWidget(option);
    return option;
}

// Sets the option at `index`; an index no option stands for (a value the field holds that the page does not
// offer) leaves all of them unset.
void SetOption(std::span<QRadioButton* const> options, int index) {
    if (index >= 0 && index < static_cast<int>(options.size())) {
        options[static_cast<size_t>(index)]->setChecked(true);
        return;
    }
    for (QRadioButton* option : options) {
        // A set option of an exclusive group cannot be unset by itself.
        option->setAutoExclusive(false);
        option->setChecked(false);
        option->setAutoExclusive(true);
    }
}

} // namespace

ErrorMsgPage::ErrorMsgPage(PageServices services, QWidget* parent)
    : PropertyPage(tr("Error Message"), services, parent) {
    BuildLayout();
    Connect();
}

void ErrorMsgPage::BuildLayout() {
    m_chkShowErrorMessage = MakeCheckBox("chkShowErrorMessage", this);

    m_fraErrorMessageMode = new QGroupBox(tr("ErrorMessageMode"), this);
    m_fraErrorMessageMode->setObjectName(QStringLiteral("fraErrorMessageMode"));
    new QVBoxLayout(m_fraErrorMessageMode);
    m_optAutoBasic
        = MakeOption(QStringLiteral("optAutoBasic"), tr("Basic (automatic)"), m_fraErrorMessageMode);
    m_optAutoAdvanced
        = MakeOption(QStringLiteral("optAutoAdvanced"), tr("Advanced (automatic)"), m_fraErrorMessageMode);
    m_optCustom = MakeOption(QStringLiteral("optCustom"), tr("Custom"), m_fraErrorMessageMode);
    m_optAutoBasic->setToolTip(tr("A short message composed by the field."));
    m_optAutoAdvanced->setToolTip(
        tr("A message composed by the field that names every rule the entry breaks."));
    m_optCustom->setToolTip(tr("The text typed below as ErrorMessage."));
    qobject_cast<QVBoxLayout*>(m_fraErrorMessageMode->layout())->addStretch();

    // Each icon option shows the icon the message box will show.
    m_fraMessageBoxIcon = new QGroupBox(tr("MessageBoxIcon"), this);
    m_fraMessageBoxIcon->setObjectName(QStringLiteral("fraMessageBoxIcon"));
    new QVBoxLayout(m_fraMessageBoxIcon);
    struct IconOption {
        const char* caption;
        QStyle::StandardPixmap pixmap; // SP_CustomBase: no icon
    };
    const IconOption icons[] = {
        { QT_TR_NOOP("None"), QStyle::SP_CustomBase },
        { QT_TR_NOOP("Exclamation"), QStyle::SP_MessageBoxWarning },
        { QT_TR_NOOP("Critical"), QStyle::SP_MessageBoxCritical },
        { QT_TR_NOOP("Information"), QStyle::SP_MessageBoxInformation },
        { QT_TR_NOOP("Question"), QStyle::SP_MessageBoxQuestion },
    };
    for (size_t i = 0; i < m_optIcon.size(); ++i) {
        m_optIcon[i]
            = MakeOption(QStringLiteral("optIcon%1").arg(i), tr(icons[i].caption), m_fraMessageBoxIcon);
        if (icons[i].pixmap != QStyle::SP_CustomBase)
            m_optIcon[i]->setIcon(style()->standardIcon(icons[i].pixmap));
    }

    m_txtMessageBoxTitle = new QLineEdit(this);
    m_txtMessageBoxTitle->setObjectName(QStringLiteral("txtMessageBoxTitle"));
    m_lblMessageBoxTitle
        = MakeLabel("lblMessageBoxTitle", tr("MessageBoxTitle:"), m_txtMessageBoxTitle, this);
    m_txtErrorMessage = new QPlainTextEdit(this);
    m_txtErrorMessage->setObjectName(QStringLiteral("txtErrorMessage"));
    // Tab moves on to the next control, as in every other box of the page; Enter breaks the line.
    m_txtErrorMessage->setTabChangesFocus(true);
    m_lblErrorMessage = MakeLabel("lblErrorMessage", tr("ErrorMessage:"), m_txtErrorMessage, this);

    auto* layout = new QGridLayout(this);
    layout->addWidget(m_chkShowErrorMessage, 0, 0, 1, 3);
    layout->addWidget(m_fraErrorMessageMode, 1, 0, 1, 2);
    layout->addWidget(m_fraMessageBoxIcon, 1, 2);
    layout->addWidget(m_lblMessageBoxTitle, 2, 0);
    layout->addWidget(m_txtMessageBoxTitle, 2, 1, 1, 2);
    layout->addWidget(m_lblErrorMessage, 3, 0, Qt::AlignTop);
    layout->addWidget(m_txtErrorMessage, 3, 1, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(2, 1);
    layout->setRowStretch(3, 1);

    // Top to bottom, left to right: the switch, the style, the icon, the title, then the message.
    QWidget* previous = m_chkShowErrorMessage;
    for (QWidget* next : std::initializer_list<QWidget*> { m_optAutoBasic, m_optAutoAdvanced, m_optCustom,
             m_optIcon[0], m_optIcon[1], m_optIcon[2], m_optIcon[3], m_optIcon[4], m_txtMessageBoxTitle,
             m_txtErrorMessage }) {
        setTabOrder(previous, next);
        previous = next;
    }
}

void ErrorMsgPage::Connect() {
    // The buttons and the title answer the author's clicks and keys only. The message box also reports the
    // page's own load, which does not mark the page (it is loading).
    for (QRadioButton* option : m_optIcon)
        connect(option, &QRadioButton::clicked, this, &ErrorMsgPage::MarkChanged);
    for (QRadioButton* option : { m_optAutoBasic, m_optAutoAdvanced, m_optCustom })
        connect(option, &QRadioButton::clicked, this, [this] {
            MarkChanged();
            UpdateCustomFields();
        });
    connect(m_txtMessageBoxTitle, &QLineEdit::textEdited, this, &ErrorMsgPage::MarkChanged);
    connect(m_txtErrorMessage, &QPlainTextEdit::textChanged, this, &ErrorMsgPage::MarkChanged);
    connect(m_chkShowErrorMessage, &QCheckBox::clicked, this, [this](bool checked) {
        MarkChanged();
        EnableMessageFields(checked);
    });
}

int16_t ErrorMsgPage::SelectedIcon() const {
    for (size_t i = 0; i < m_optIcon.size(); ++i)
        if (m_optIcon[i]->isChecked()) return static_cast<int16_t>(i);
    return vldMBINone;
}

int32_t ErrorMsgPage::SelectedMode() const {
    if (m_optAutoBasic->isChecked()) return vldAutoBasic;
    if (m_optAutoAdvanced->isChecked()) return vldAutoAdvanced;
    if (m_optCustom->isChecked()) return vldCustom;
    return 0;
}

void ErrorMsgPage::UpdateCustomFields() {
    const bool custom
        = MessageFieldsEnabled(m_type, m_chkShowErrorMessage->isChecked(), m_optCustom->isChecked())
              .customMessage;
    m_lblErrorMessage->setEnabled(custom);
    m_txtErrorMessage->setEnabled(custom);
}

void ErrorMsgPage::EnableMessageFields(bool enabled) {
    const MessageFieldEnables on = MessageFieldsEnabled(m_type, enabled, m_optCustom->isChecked());
    for (QWidget* widget : std::initializer_list<QWidget*> { m_fraErrorMessageMode, m_fraMessageBoxIcon,
             m_optAutoBasic, m_optAutoAdvanced, m_optCustom, m_lblMessageBoxTitle, m_txtMessageBoxTitle })
        widget->setEnabled(on.messageFields);
    m_lblErrorMessage->setEnabled(on.customMessage);
    m_txtErrorMessage->setEnabled(on.customMessage);
}

void ErrorMsgPage::SelectionChanged() {
    SetLoading(true);
    const qt::QuillmarEdit* first = FirstControl();
    if (!first) {
        EnableMessageFields(false);
        m_chkShowErrorMessage->setEnabled(false);
        SetLoading(false);
        return;
    }
    const Quillmar& control = first->control();
    m_type = control.MustBeType();
    // The box shows one line per stored line break.
    QString message = qt::ToQString(control.ErrorMessage());
    message.replace(kLineBreak, QStringLiteral("\n"));
    m_txtErrorMessage->setPlainText(message);
    m_txtMessageBoxTitle->setText(qt::ToQString(control.MessageBoxTitle()));
    m_chkShowErrorMessage->setChecked(control.ShowErrorMessage());
    const std::array modes { m_optAutoBasic, m_optAutoAdvanced, m_optCustom };
    SetOption(modes, control.ErrorMessageMode() - vldAutoBasic);
    UpdateCustomFields();
    SetOption(m_optIcon, control.MessageBoxIcon());
    EnableMessageFields(control.ShowErrorMessage());
    m_chkShowErrorMessage->setEnabled(
        MessageFieldsEnabled(m_type, control.ShowErrorMessage(), m_optCustom->isChecked()).showErrorMessage);
    SetLoading(false);
}

void ErrorMsgPage::ApplyChanges() {
    // The raw text keeps non-breaking spaces; its paragraph and line separators become stored line breaks.
    QString text = m_txtErrorMessage->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, kLineBreak).replace(QChar::LineSeparator, kLineBreak);
    const std::u16string message = qt::FromQString(text);
    const std::u16string title = qt::FromQString(m_txtMessageBoxTitle->text());
    const bool show = m_chkShowErrorMessage->isChecked();
    const int32_t mode = SelectedMode();
    const int16_t icon = SelectedIcon();

    ForEachSelected([&](Quillmar& control) {
        TryWrite([&] { control.SetErrorMessage(message); });
        TryWrite([&] { control.SetMessageBoxTitle(title); });
        TryWrite([&] { control.SetShowErrorMessage(show); });
        // With no style set (the field held one the page does not offer) the style is left as it is.
        if (mode != 0) TryWrite([&] { control.SetErrorMessageMode(mode); });
        TryWrite([&] { control.SetMessageBoxIcon(icon); });
    });
}

} // namespace quillmar::pages
