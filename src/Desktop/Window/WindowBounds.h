/// The initial and minimum sizes of the main window: the designed ones, or the available space of the screen
/// where that is smaller.
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

/// For a screen with `available` space for windows.
WindowSizes windowSizes(QSize available);

/// Sizes `window` for its screen. Later only the minimum is updated, when the window moves to another screen
/// or the available space changes.
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
