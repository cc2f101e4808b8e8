/// The strip at the window's top edge, which replaces a title bar: dragging it moves the window, and a double
/// click maximises it.
#pragma once

#include <QWidget>

namespace korvane {

/// The height of the strip, in pixels at a 13-pixel body text.
inline constexpr int stripHeight = 36;

/// The part of the strip above one column.
class TopStrip final : public QWidget {
public:
    TopStrip();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QPoint m_pressedAt;
    bool m_isPressed = false;
};

/// The strip above the sidebar, which holds the menus.
QWidget* menuStrip(QWidget* menuBar);

/// The strip above the detail, with the buttons that minimise, maximise and close the window.
QWidget* windowButtonStrip(QWidget* window);

/// Maximises the window, or restores it.
void toggleMaximized(QWidget* window);

} // namespace korvane
