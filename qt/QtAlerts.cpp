#include "qt/QtAlerts.h"

#include "qt/QtConversions.h"

#include <QApplication>

namespace quillmar::qt {

QMessageBox::StandardButton ExecMessageBox(QWidget* parent, const QString& text, const QString& title,
    int icon, QMessageBox::StandardButtons buttons) {
    QString message = text;
    message.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QMessageBox::Icon qtIcon = QMessageBox::NoIcon;
    if (icon == IconExclamation) qtIcon = QMessageBox::Warning;
    if (icon == IconStop) qtIcon = QMessageBox::Critical;
    if (icon == IconInformation) qtIcon = QMessageBox::Information;
    if (icon == IconQuestion) qtIcon = QMessageBox::Question;
    QMessageBox box(qtIcon, title, message, buttons, parent);
    if (buttons.testFlag(QMessageBox::Cancel)) box.setEscapeButton(QMessageBox::Cancel);
    box.exec();
    QAbstractButton* clicked = box.clickedButton();
    if (!clicked) return buttons.testFlag(QMessageBox::Cancel) ? QMessageBox::Cancel : QMessageBox::Ok;
    return box.standardButton(clicked);
}

void QtAlerts::Beep() {
    QApplication::beep();
}

void QtAlerts::MessageBox(std::u16string_view text, std::u16string_view title, int16_t icon) {
    ExecMessageBox(m_parent, ToQString(text), ToQString(title), icon, QMessageBox::Ok);
}

Answer QtAlerts::Question(std::u16string_view text, std::u16string_view title, int16_t icon) {
    switch (ExecMessageBox(m_parent, ToQString(text), ToQString(title), icon,
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel)) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

} // namespace quillmar::qt
