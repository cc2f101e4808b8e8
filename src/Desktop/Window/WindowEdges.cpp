#include "Desktop/Window/WindowEdges.h"

#include "Desktop/Look/Theme.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <QWindow>

#include <array>

namespace korvane {

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int gripThickness = 5;

/// An invisible strip or corner. A press on it starts a resize by the window system.
class Grip final : public QWidget {
public:
    Grip(Qt::Edges edges, QWidget* window) : QWidget(window), m_edges(edges) { setCursor(cursorFor(edges)); }

    Qt::Edges edges() const { return m_edges; }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && window()->windowHandle())
            window()->windowHandle()->startSystemResize(m_edges);
    }

private:
    static Qt::CursorShape cursorFor(Qt::Edges edges) {
        if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
            return Qt::SizeFDiagCursor;
        if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
            return Qt::SizeBDiagCursor;
        return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
    }

    Qt::Edges m_edges;
};

class Outline final : public QWidget {
public:
    explicit Outline(QWidget* window) : QWidget(window) { setAttribute(Qt::WA_TransparentForMouseEvents); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(Theme::color(Theme::Role::windowEdge));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

/// Edges first, so that the corners are stacked above them.
constexpr std::array<Qt::Edges::Int, 8> gripEdges{
    Qt::LeftEdge,
    Qt::RightEdge,
    Qt::TopEdge,
    Qt::BottomEdge,
    Qt::LeftEdge | Qt::TopEdge,
    Qt::RightEdge | Qt::TopEdge,
    Qt::LeftEdge | Qt::BottomEdge,
    Qt::RightEdge | Qt::BottomEdge,
};

QRect gripRect(Qt::Edges edges, const QRect& window, int thickness) {
    const bool isCorner =
        (edges & (Qt::LeftEdge | Qt::RightEdge)) && (edges & (Qt::TopEdge | Qt::BottomEdge));
    const auto size = isCorner ? 2 * thickness : thickness;
    auto rect = window;
    if (edges & Qt::LeftEdge)
        rect.setWidth(size);
    if (edges & Qt::RightEdge)
        rect.setLeft(rect.right() + 1 - size);
    if (edges & Qt::TopEdge)
        rect.setHeight(size);
    if (edges & Qt::BottomEdge)
        rect.setTop(rect.bottom() + 1 - size);
    return rect;
}

} // namespace

WindowEdges::WindowEdges(QWidget* window)
    : QObject(window), m_window(window), m_outline(new Outline(window)) {
    for (const auto edges : gripEdges)
        m_grips.push_back(new Grip(Qt::Edges(edges), window));
    window->installEventFilter(this);
    place();
}

bool WindowEdges::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::WindowStateChange ||
        event->type() == QEvent::Show)
        place();
    return QObject::eventFilter(watched, event);
}

void WindowEdges::place() {
    const bool isResizable = !m_window->isMaximized() && !m_window->isFullScreen();
    m_outline->setGeometry(m_window->rect());
    m_outline->setVisible(isResizable);
    m_outline->raise();
    for (auto* grip : m_grips) {
        const auto edges = static_cast<Grip*>(grip)->edges();
        grip->setGeometry(gripRect(edges, m_window->rect(), Theme::px(gripThickness)));
        grip->setVisible(isResizable);
        grip->raise();
    }
}

} // namespace korvane
