#include "apps/forms/FormWindow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillmar::forms {
namespace {

constexpr int kLabelWidth = 104;
constexpr int kLabelGap = 8;

} // namespace

FormWindow::FormWindow(const FormDocument& document, QWidget* parent)
    : QWidget(parent)
    , m_document(document) {
    setWindowTitle(qt::ToQString(document.title) + QStringLiteral(" \u2014 Quillmar Forms"));
    auto* area = new QWidget(this);
    area->setFixedSize(document.width, document.height);
    QWidget* previous = nullptr;
    for (const FormControl& control : document.controls) {
        auto* label = new QLabel(qt::ToQString(control.label) + QLatin1Char(':'), area);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setGeometry(control.left - kLabelWidth - kLabelGap, control.top, kLabelWidth, control.height);
        auto* field = new qt::QuillmarEdit(area);
        field->setObjectName(qt::ToQString(control.name));
        field->setGeometry(control.left, control.top, control.width, control.height);
        label->setBuddy(field);
        if (previous) QWidget::setTabOrder(previous, field);
        previous = field;
        m_fields.push_back(field);
    }

    auto* submit = new QPushButton(tr("&Submit"), this);
    auto* close = new QPushButton(tr("&Close"), this);
    submit->setDefault(true);
    connect(submit, &QPushButton::clicked, this, [this] {
        const QStringList invalid = Submit();
        if (invalid.isEmpty())
            QMessageBox::information(
                this, tr("Submit"), tr("All %n field(s) are valid.", nullptr, int(m_fields.size())));
        else
            QMessageBox::warning(this, tr("Submit"),
                tr("%n field(s) need attention:", nullptr, int(invalid.size())) + QStringLiteral("\n\n")
                    + invalid.join(QLatin1Char('\n')));
    });
    connect(close, &QPushButton::clicked, this, &QWidget::close);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(submit);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(area);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

std::optional<std::string> FormWindow::Load(std::string_view sourceName) {
    size_t next = 0;
    return BuildFormControls(m_document, sourceName,
        [this, &next](const FormControl&) -> Quillmar& { return m_fields[next++]->control(); });
}

QStringList FormWindow::Submit() {
    QStringList invalid;
    for (size_t i = 0; i < m_fields.size(); ++i)
        if (!m_fields[i]->Validate()) invalid << qt::ToQString(m_document.controls[i].label);
    return invalid;
}

} // namespace quillmar::forms
