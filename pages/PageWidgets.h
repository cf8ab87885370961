#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QString>
#include <QWidget>

namespace quillmar::pages {

/// A label named `name` (its object name, as "lblMinValue") showing `caption`, whose mnemonic focuses
/// `buddy`.
inline QLabel* MakeLabel(const char* name, const QString& caption, QWidget* buddy, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setBuddy(buddy);
    return label;
}

/// A check box named `name` ("chkMustNotBeZero") whose caption is the property it edits ("MustNotBeZero").
inline QCheckBox* MakeCheckBox(const char* name, QWidget* parent) {
    auto* box = new QCheckBox(QString::fromLatin1(name).mid(3), parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

} // namespace quillmar::pages
