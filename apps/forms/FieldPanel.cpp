#include "apps/forms/FieldPanel.h"

#include "apps/forms/DesignSurface.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillmar::forms {

FieldPanel::FieldPanel(DesignSurface& surface, QWidget* parent)
    : QWidget(parent)
    , m_surface(surface) {
    m_title = new QLineEdit(this);
    m_title->setObjectName(QStringLiteral("txtTitle"));
    m_refusalTips = new QCheckBox(tr("Say why a &key was refused"), this);
    m_refusalTips->setObjectName(QStringLiteral("chkRefusalTips"));
    m_refusalTips->setToolTip(tr("A short tip at the caret names the rule that refused a key or a paste"));
    m_inlineState = new QCheckBox(tr("Mark &broken rules in the field"), this);
    m_inlineState->setObjectName(QStringLiteral("chkInlineState"));
    m_inlineState->setToolTip(tr("A field whose text breaks a rule shows a red frame and an icon"));
    m_name = new QLineEdit(this);
    m_name->setObjectName(QStringLiteral("txtName"));
    m_label = new QLineEdit(this);
    m_label->setObjectName(QStringLiteral("txtLabel"));
    m_toolTip = new QLineEdit(this);
    m_toolTip->setObjectName(QStringLiteral("txtToolTip"));
    m_order = new QListWidget(this);
    m_order->setObjectName(QStringLiteral("lstTabOrder"));
    m_order->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_earlier = new QPushButton(tr("Ea&rlier"), this);
    m_later = new QPushButton(tr("&Later"), this);

    auto* form = new QFormLayout;
    form->addRow(tr("Form &title:"), m_title);
    form->addRow(m_refusalTips);
    form->addRow(m_inlineState);
    auto* field = new QGroupBox(tr("Selected field"), this);
    auto* fieldForm = new QFormLayout(field);
    fieldForm->addRow(tr("&Name:"), m_name);
    fieldForm->addRow(tr("L&abel:"), m_label);
    fieldForm->addRow(tr("Tool ti&p:"), m_toolTip);
    auto* order = new QGroupBox(tr("Tab order"), this);
    auto* orderLayout = new QVBoxLayout(order);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_earlier);
    buttons->addWidget(m_later);
    orderLayout->addWidget(m_order);
    orderLayout->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(field);
    layout->addWidget(order, 1);

    for (QLineEdit* box : { m_title, m_name, m_label, m_toolTip })
        connect(box, &QLineEdit::editingFinished, this, [this, box] { Commit(box); });
    for (QCheckBox* box : { m_refusalTips, m_inlineState })
        connect(box, &QCheckBox::toggled, this, [this] {
            if (m_refreshing) return;
            FormSettings after = m_shownForm;
            after.showRefusalTips = m_refusalTips->isChecked();
            after.showInlineState = m_inlineState->isChecked();
            if (after != m_shownForm) emit FormEdited(after);
        });
    connect(m_earlier, &QPushButton::clicked, this, [this] { emit TabOrderMove(-1); });
    connect(m_later, &QPushButton::clicked, this, [this] { emit TabOrderMove(1); });
    connect(m_order, &QListWidget::itemSelectionChanged, this, [this] {
        if (m_refreshing) return;
        QList<int> ids;
        for (const QListWidgetItem* item : m_order->selectedItems())
            ids << item->data(Qt::UserRole).toInt();
        m_surface.Select(ids);
    });
}

void FieldPanel::Commit(QLineEdit* box) {
    if (m_refreshing) return;
    if (box == m_title) {
        FormSettings after = m_shownForm;
        after.title = box->text();
        if (after != m_shownForm) emit FormEdited(after);
        return;
    }
    if (m_shownId == 0) return;
    const PlacedField shown = m_surface.Snapshot(m_shownId);
    const QString text = box->text();
    if (box == m_name && text != qt::ToQString(shown.field.name)) emit NameEdited(m_shownId, text);
    if (box == m_label && text != qt::ToQString(shown.field.label)) emit LabelEdited(m_shownId, text);
    if (box == m_toolTip && text != qt::ToQString(shown.field.toolTip)) emit ToolTipEdited(m_shownId, text);
}

void FieldPanel::Refresh(const FormSettings& form) {
    m_refreshing = true;
    m_shownForm = form;
    if (m_title->text() != form.title) m_title->setText(form.title);
    m_refusalTips->setChecked(form.showRefusalTips);
    m_inlineState->setChecked(form.showInlineState);
    const QList<int> selection = m_surface.Selection();
    m_shownId = selection.size() == 1 ? selection.front() : 0;
    qt::QuillmarEdit* field = m_surface.Field(m_shownId);
    m_name->setText(field ? field->objectName() : QString());
    m_label->setText(field ? m_surface.Label(m_shownId) : QString());
    m_toolTip->setText(field ? field->toolTip() : QString());
    for (QLineEdit* box : { m_name, m_label, m_toolTip })
        box->setEnabled(field != nullptr);
    m_order->clear();
    QListWidgetItem* lastSelected = nullptr;
    for (int id : m_surface.Ids()) {
        auto* item = new QListWidgetItem(m_surface.Field(id)->objectName(), m_order);
        item->setData(Qt::UserRole, id);
        item->setSelected(selection.contains(id));
        if (item->isSelected()) lastSelected = item;
    }
    // A field just placed or pasted is last in the tab order: the list shows it.
    if (lastSelected) m_order->scrollToItem(lastSelected);
    m_earlier->setEnabled(m_shownId != 0 && m_surface.Ids().indexOf(m_shownId) > 0);
    m_later->setEnabled(m_shownId != 0 && m_surface.Ids().indexOf(m_shownId) < m_surface.Ids().size() - 1);
    m_refreshing = false;
}

} // namespace quillmar::forms
