/// How large the main window is at first, and how small it may become: as it was designed where the screen
/// has the room for that, and the room that there is where not.
#pragma once

#include <QObject>
#include <QPointer>
#include <QSize>

class QScreen;
class QWidget;

namespace korvane {

struct WindowSizes {
    QSize initial;
    QSize minimum;

    bool operator==(const WindowSizes&) const = default;
};

/// On a screen of which windows may use `available`.
WindowSizes windowSizes(QSize available);

/// Sizes `window` for the screen that it appears on. Later only its minimum follows, to another screen or
/// when the screen changes.
class WindowBounds final : public QObject {
public:
    explicit WindowBounds(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(QScreen* screen);

    QWidget* m_window;
    QPointer<QScreen> m_screen{};
};

} // namespace korvane
