/// Whether the desktop is light or dark, and told whenever that changes: from the desktop's settings portal
/// where there is one, from the toolkit's palette otherwise.
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
    /// Calls `changed` when the desktop's scheme turns out to be another one, first perhaps soon after the
    /// start: the portal is asked without waiting for it.
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
    std::optional<Theme::Scheme> m_portalScheme; ///< none while the portal has no preference, or is not there
};

} // namespace korvane
