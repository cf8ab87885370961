#include "apps/forms/FieldNames.h"

#include <QCoreApplication>

namespace quillmar::forms {
namespace {

bool Taken(const QString& name, const QStringList& names) {
    const QString folded = FoldedName(name);
    for (const QString& other : names)
        if (FoldedName(other) == folded) return true;
    return false;
}

} // namespace

// Only ASCII letters fold, as in the form file's own check.
QString FoldedName(QString name) {
    for (QChar& c : name)
        if (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) c = QChar(c.unicode() + 32);
    return name;
}

QString NextFieldName(const QStringList& taken) {
    for (qsizetype number = 1;; ++number) {
        const QString name = QStringLiteral("Quillmar%1").arg(number);
        if (!Taken(name, taken)) return name;
    }
}

QString CopyName(const QString& name, const QSet<QString>& takenFolded) {
    if (!takenFolded.contains(FoldedName(name))) return name;
    qsizetype stemLength = name.size();
    while (stemLength > 0 && name[stemLength - 1].isDigit())
        --stemLength;
    const QString stem = stemLength > 0 ? name.left(stemLength) : QStringLiteral("Quillmar");
    // At most `takenFolded.size()` numbers are taken, so one of the first `takenFolded.size() + 1` is free.
    for (qsizetype number = 2;; ++number) {
        const QString copy = stem + QString::number(number);
        if (!takenFolded.contains(FoldedName(copy))) return copy;
    }
}

QString FieldNameProblem(const QString& name, const QStringList& others) {
    if (name.trimmed().isEmpty()) return QCoreApplication::translate("FieldNames", "A field needs a name.");
    if (Taken(name, others))
        return QCoreApplication::translate(
            "FieldNames", "Another field of this form is already named \"%1\".")
            .arg(name);
    return {};
}

QString MessageTitleFor(const QString& label) {
    return QStringLiteral("Invalid Entry: ") + label;
}

} // namespace quillmar::forms
