#include "Desktop/Window/WindowBounds.h"

#include "Desktop/Look/Theme.h"
#include "Views/ContentView.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace korvane {

WindowSizes windowSizes(QSize available) {
    const auto bounded = [available](int width, int height) {
        return QSize(Theme::px(width), Theme::px(height)).boundedTo(available);
    };
    return {.initial = bounded(WindowMetrics::defaultWidth, WindowMetrics::defaultHeight),
            .minimum = bounded(WindowMetrics::minWidth, WindowMetrics::minHeight)};
}

WindowBounds::WindowBounds(QWidget* window) : QObject(window), m_window(window) {
    follow(window->screen());
    window->resize(windowSizes(window->screen()->availableSize()).initial);
    window->installEventFilter(this);
}

/// The window's handle, which reports a change of screen, exists only once the window is shown.
bool WindowBounds::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && m_window->windowHandle())
        connect(m_window->windowHandle(), &QWindow::screenChanged, this, &WindowBounds::follow,
                Qt::UniqueConnection);
    return QObject::eventFilter(watched, event);
}

void WindowBounds::follow(QScreen* screen) {
    if (!screen)
        return; // the last screen was removed
    if (m_screen)
        m_screen->disconnect(this);
    m_screen = screen;
    const auto bound = [this] { m_window->setMinimumSize(windowSizes(m_screen->availableSize()).minimum); };
    bound();
    connect(screen, &QScreen::availableGeometryChanged, this, bound);
}

} // namespace korvane
