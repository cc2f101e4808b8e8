#include "Desktop/Window/DesktopScheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QFileInfo>

namespace korvane {

namespace {

constexpr char service[] = "org.freedesktop.portal.Desktop";
constexpr char path[] = "/org/freedesktop/portal/desktop";
constexpr char interface[] = "org.freedesktop.portal.Settings";
constexpr char group[] = "org.freedesktop.appearance";
constexpr char key[] = "color-scheme";

/// The values of the portal's color-scheme; 0 is no preference.
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

/// Whether a session bus exists. Connecting through Qt could otherwise start one.
bool hasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

/// The portal's `Read` wraps its answer in two variants.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

DesktopScheme::DesktopScheme(std::function<void(Theme::Scheme)> changed) : m_changed(std::move(changed)) {
    qApp->installEventFilter(this);
    if (hasSessionBus())
        askPortal();
}

Theme::Scheme DesktopScheme::scheme() const {
    if (m_portalScheme)
        return *m_portalScheme;
    const auto window = QApplication::palette().color(QPalette::Window);
    const auto text = QApplication::palette().color(QPalette::WindowText);
    return window.lightness() < text.lightness() ? Theme::Scheme::dark : Theme::Scheme::light;
}

void DesktopScheme::askPortal() {
    auto bus = QDBusConnection::sessionBus();
    bus.connect(service, path, interface, "SettingChanged", this, SLOT(settingChanged(QDBusMessage)));
    auto question = QDBusMessage::createMethodCall(service, path, interface, "Read");
    question << QString(group) << QString(key);
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            adopt(reply.value().variant());
        answer->deleteLater();
    });
}

void DesktopScheme::settingChanged(const QDBusMessage& signal) {
    const auto arguments = signal.arguments(); // group, key, value
    if (arguments.size() == 3 && arguments[0] == group && arguments[1] == key)
        adopt(arguments[2]);
}

void DesktopScheme::adopt(const QVariant& value) {
    const auto preference = unwrapped(value).toUInt();
    if (preference == prefersDark)
        m_portalScheme = Theme::Scheme::dark;
    else if (preference == prefersLight)
        m_portalScheme = Theme::Scheme::light;
    else
        m_portalScheme.reset();
    m_changed(scheme());
}

bool DesktopScheme::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        m_changed(scheme());
    return QObject::eventFilter(watched, event);
}

} // namespace korvane
