/// The desktop's colour scheme, and notification of its changes: from the settings portal if there is one,
/// otherwise from Qt's palette.
#pragma once

#include "Desktop/Look/Theme.h"

#include <QDBusMessage>
#include <QObject>

#include <functional>
#include <optional>

class QDBusMessage;
class QVariant;

namespace korvane {

class DesktopScheme final : public QObject {
    Q_OBJECT

public:
    /// Calls `changed` when the portal or the palette reports a scheme. The portal is queried asynchronously,
    /// so the first call may follow soon after the start.
    explicit DesktopScheme(std::function<void(Theme::Scheme)> changed);

    Theme::Scheme scheme() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void settingChanged(const QDBusMessage& signal);

private:
    void askPortal();
    void adopt(const QVariant& value);

    std::function<void(Theme::Scheme)> m_changed;
    std::optional<Theme::Scheme> m_portalScheme; ///< none while the portal is missing or has no preference
};

} // namespace korvane
