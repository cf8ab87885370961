#pragma once

#include <QApplication>
#include <QByteArray>

namespace quillmar::support {

/// Starts the one application a Qt test program shares among its suites, unless it runs already: on the
/// offscreen platform unless the environment names another, and, when `systemLocale` names one (as
/// "en_US.UTF-8"), with that locale as the system's (fields that take no locale name follow it).
inline void StartQtApplication(const char* programName, const char* systemLocale = nullptr) {
    if (QApplication::instance()) return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (systemLocale) qputenv("LC_ALL", systemLocale);
    // The application keeps its arguments for its whole life.
    static QByteArray name = programName;
    static int argc = 1;
    static char* argv[] = { name.data(), nullptr };
    new QApplication(argc, argv);
}

} // namespace quillmar::support
