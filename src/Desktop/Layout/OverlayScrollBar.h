/// A thin scroll bar that overlays a scrolling area without taking space in it. It has no position of its
/// own: it shows and controls the area's hidden scroll bar, so scrolling by keyboard, wheel or program moves
/// it too.
#pragma once

#include <QWidget>

class QAbstractScrollArea;
class QScrollBar;

namespace korvane {

/// The free space at the ends of a bar, in pixels at a 13-pixel body text.
inline constexpr int scrollEndInset = 3;

class OverlayScrollBar final : public QWidget {
public:
    /// Places a bar over `area`, at the right edge of `host` (or the bottom one for a horizontal bar), and
    /// hides the area's own.
    OverlayScrollBar(Qt::Orientation orientation, QAbstractScrollArea* area, QWidget* host);

    /// The rectangle of the handle. Its share of the bar's length is the view's share of the content.
    QRectF thumb() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void place();
    void follow();
    bool isVertical() const;
    bool isActive() const;
    double length() const;
    double along(const QPointF& point) const;

    QScrollBar* m_driven;
    QWidget* m_host;
    QAbstractScrollArea* m_area;
    int m_paintedValue = 0;
    double m_grabbedAt = -1; // the offset of the pointer in the thumb; negative unless dragging
};

} // namespace korvane
