#include "apps/forms/FormSave.h"

#include "apps/forms/ShownPath.h"

#include <QCoreApplication>
#include <QFile>

#include <filesystem>

namespace quillmar::forms {
namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("FormSave", text);
}

} // namespace

QString SaveForm(const QString& path, const FormDocument& document, const BeforeCommitHook& beforeCommit) {
    const QString shown = ShownPath(path);
    if (const auto fault = CheckFormDocument(document, shown.toStdString()))
        return Tr("The form was not saved: %1").arg(QString::fromStdString(*fault));
    const std::filesystem::path file(QFile::encodeName(path).toStdString());
    if (const auto reason = ReplaceFileAtomically(file, FormToJson(document), beforeCommit))
        return Tr("%1 cannot be saved: %2").arg(shown, QString::fromStdString(*reason));
    return {};
}

} // namespace quillmar::forms
