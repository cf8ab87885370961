#pragma once

#include <QApplication>

namespace quillmar::designer_tests {

/// The application every suite of the program shares: offscreen, in the en_US locale (fields made by a
/// plugin or a form file follow the system's locale, which only the environment names).
inline void EnsureApplication() {
    if (QApplication::instance()) return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "en_US.UTF-8");
    static int argc = 1;
    static char name[] = "designer_tests";
    static char* argv[] = { name, nullptr };
    new QApplication(argc, argv);
}

} // namespace quillmar::designer_tests
