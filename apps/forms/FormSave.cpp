#include "apps/forms/FormSave.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace quillmar::forms {
namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("FormSave", text);
}

} // namespace

QString SaveForm(const QString& path, const FormDocument& document, const BeforeCommitHook& beforeCommit) {
    const QString shown = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    if (const auto fault = CheckFormDocument(document, shown.toStdString()))
        return Tr("The form was not saved: %1").arg(QString::fromStdString(*fault));
    const std::string text = FormToJson(document);
    QSaveFile file(path);
    // Without this a folder the user may not create files in would make QSaveFile write the file in place.
    file.setDirectWriteFallback(false);
    if (!file.open(QIODevice::WriteOnly)) return Tr("%1 cannot be saved: %2").arg(shown, file.errorString());
    if (file.write(text.data(), static_cast<qint64>(text.size())) != static_cast<qint64>(text.size())
        || !file.flush()) {
        const QString reason = file.errorString();
        file.cancelWriting();
        return Tr("%1 cannot be saved: %2").arg(shown, reason);
    }
    if (beforeCommit) beforeCommit(file);
    if (!file.commit()) return Tr("%1 cannot be saved: %2").arg(shown, file.errorString());
    return {};
}

} // namespace quillmar::forms
