/// Runs the tests of the front end in an application without a display, in the fonts that a build with tests
/// installs. A warning of Qt fails the test in which it is printed.

#include "Desktop/Window/Application.h"

#include <gtest/gtest.h>

#include <QApplication>

namespace {

void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
    // The offscreen platform reports what it does not support, which is no defect of a screen.
    const bool isOfThePlatform = message.startsWith("This plugin does not support");
    if (type != QtDebugMsg && type != QtInfoMsg && !isOfThePlatform)
        ADD_FAILURE() << "Qt warns: " << message.toStdString();
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsSet("FONTCONFIG_FILE")) // set it to run the tests in other fonts
        qputenv("FONTCONFIG_FILE", KORVANE_TEST_FONTS);
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", "/tmp"); // Qt requires one; nothing is written there
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    korvane::setUpApplication();
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
