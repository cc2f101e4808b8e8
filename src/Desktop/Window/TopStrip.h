/// The slim strip at the window's top edge, which stands in for a title bar: it drags the window, and a
/// double click maximises it.
#pragma once

#include <QWidget>

namespace korvane {

/// The height of the strip, in pixels at a 13-pixel body text.
inline constexpr int stripHeight = 36;

/// A stretch of the strip around `content`, at its left or right end.
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

/// Between maximised and as it was before.
void toggleMaximized(QWidget* window);

} // namespace korvane
