#include "qt/QuillmarForm.h"

#include "formfile/FormControls.h"
#include "formfile/FormJson.h"

#include <QApplication>
#include <QRegularExpression>

#include <algorithm>

namespace quillmar::qt {

FormWidgets BuildForm(const FormDocument& document, QWidget& parent, std::string_view sourceName) {
    FormWidgets form;
    QWidget* previous = nullptr;
    for (const FormControl& control : document.controls) {
        const QRect geometry(control.left, control.top, control.width, control.height);
        auto* label = new QLabel(ToQString(control.label) + QLatin1Char(':'), &parent);
        label->setFont(QApplication::font());
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setGeometry(FormLabelGeometry(geometry));
        auto* field = new QuillmarEdit(&parent);
        field->setObjectName(ToQString(control.name));
        field->setGeometry(geometry);
        field->setToolTip(ToQString(control.toolTip));
        field->SetShowRefusalTips(document.showRefusalTips);
        field->SetShowInlineState(document.showInlineState);
        label->setBuddy(field);
        label->show(); // widgets added to a shown window stay hidden until told
        field->show();
        if (previous) QWidget::setTabOrder(previous, field);
        previous = field;
        form.labels.push_back(label);
        form.fields.push_back(field);
    }
    size_t next = 0;
    form.error = BuildFormControls(document, sourceName,
        [&form, &next](const FormControl&) -> Quillmar& { return form.fields[next++]->control(); });
    if (form.error) {
        qDeleteAll(form.labels);
        qDeleteAll(form.fields);
        form.labels.clear();
        form.fields.clear();
    }
    return form;
}

FormWidgets LoadForm(const QString& path, QWidget& parent) {
    const std::string source = path.toStdString();
    const FormResult file = LoadFormFile(source);
    if (!file.document) return { {}, {}, file.error };
    return BuildForm(*file.document, parent, source);
}

QString LabelOf(const QuillmarEdit& field) {
    const QWidget* window = field.window();
    for (const QLabel* label : window->findChildren<QLabel*>()) {
        if (label->buddy() != &field && label->buddy() != field.lineEdit()) continue;
        // "&Quantity:" is read as "Quantity", and "R&&D" as "R&D".
        QString text = label->text();
        text.remove(QRegularExpression(QStringLiteral("&(?!&)")));
        text.replace(QStringLiteral("&&"), QStringLiteral("&"));
        text = text.trimmed();
        if (text.endsWith(QLatin1Char(':'))) text.chop(1);
        return text.trimmed();
    }
    return {};
}

std::vector<InvalidField> InvalidFields(const QWidget& form) {
    // The focus chain holds every widget of the window in tab order; a field appears in it with its edit
    // box, so each is taken once.
    std::vector<QuillmarEdit*> fields;
    const QWidget* start = &form;
    for (QWidget* widget = start->nextInFocusChain(); widget && widget != start;
         widget = widget->nextInFocusChain()) {
        auto* field = qobject_cast<QuillmarEdit*>(widget);
        if (!field && widget->parentWidget()) field = qobject_cast<QuillmarEdit*>(widget->parentWidget());
        if (!field || !form.isAncestorOf(field)) continue;
        if (std::find(fields.begin(), fields.end(), field) == fields.end()) fields.push_back(field);
    }
    std::vector<InvalidField> invalid;
    for (QuillmarEdit* field : fields) {
        QString message = field->CurrentErrorMessage();
        if (message.isEmpty()) continue;
        QString label = LabelOf(*field);
        if (label.isEmpty()) label = field->accessibleName();
        if (label.isEmpty()) label = field->objectName();
        invalid.push_back({ field, label, message });
    }
    return invalid;
}

} // namespace quillmar::qt
