#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

namespace quillmar::forms {

/// A file's path as messages and the status bar name it: absolute, with the platform's separators.
[[nodiscard]] inline QString ShownPath(const QString& path) {
    return QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
}

} // namespace quillmar::forms
