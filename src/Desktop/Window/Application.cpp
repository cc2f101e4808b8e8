#include "Desktop/Window/Application.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Look/Theme.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QLibraryInfo>
#include <QPainter>
#include <QPixmap>
#include <QSettings>
#include <QSvgRenderer>

#include <utility>

namespace korvane {

namespace {

/// For window managers and task bars that show the window's own icon; others find the installed one by the
/// name of the desktop entry. The two smallest sizes have separate drawings, aligned to whole pixels.
QIcon icon() {
    static constexpr std::pair<const char*, int> drawings[] = {
        {":/icon/16x16.svg", 16},    {":/icon/24x24.svg", 24},    {":/icon/scalable.svg", 32},
        {":/icon/scalable.svg", 48}, {":/icon/scalable.svg", 64}, {":/icon/scalable.svg", 128},
    };
    QIcon icon;
    for (const auto& [file, size] : drawings) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QSvgRenderer(QString(file)).render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

/// Prevents Qt's file and colour dialogs from saving visited folders and custom colours in the user's
/// settings: below this path they can neither write nor read.
void disableDialogSettings() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

/// Whether the desktop is KDE without its platform theme for Qt 6, as in Debian 12, whose KDE is built on
/// Qt 5.
bool isKDEWithoutTheme() {
    const auto theme = QLibraryInfo::path(QLibraryInfo::PluginsPath) +
                       QStringLiteral("/platformthemes/KDEPlasmaPlatformTheme6.so");
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':').contains(QStringLiteral("KDE")) &&
           !QFileInfo::exists(theme);
}

} // namespace

std::unique_ptr<QApplication> makeApplication(int& argc, char** argv) {
    constexpr auto variable = "QT_QPA_PLATFORMTHEME";
    // Qt reads it once; programs that are started later must not inherit it.
    const bool needsPortal = !qEnvironmentVariableIsSet(variable) && isKDEWithoutTheme();
    if (needsPortal)
        qputenv(variable, "xdgdesktopportal");
    auto application = std::make_unique<QApplication>(argc, argv);
    if (needsPortal)
        qunsetenv(variable);
    setUpApplication();
    return application;
}

void setUpApplication() {
    QApplication::setApplicationName(QStringLiteral("korvane"));
    QApplication::setApplicationDisplayName(QStringLiteral("Korvane"));
    QApplication::setDesktopFileName(QStringLiteral("org.korvane.Korvane"));
    QApplication::setWindowIcon(icon());
    QApplication::setFont(Theme::applicationFont());
    QApplication::setStyle(Theme::style());
    installAccessibility();
    disableDialogSettings();
}

} // namespace korvane
