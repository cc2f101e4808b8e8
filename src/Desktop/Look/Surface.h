/// The rounded surfaces behind controls and contents.
#pragma once

#include <QColor>
#include <QWidget>

#include <functional>
#include <utility>

namespace korvane {

/// Paints a rounded rectangle of `fill` inside `area`, with a one-pixel line inside its edge if `outline` is
/// valid.
void paintSurface(QPainter& painter, const QRect& area, double radius, const QColor& fill,
                  const QColor& outline = {});

/// Confines what is painted next to a rounded rectangle.
void clipToSurface(QPainter& painter, const QRect& area, double radius);

/// Paints the checkerboard behind content that may be transparent.
void paintCheckerboard(QPainter& painter, const QRect& area);

/// A surface of one colour, with an optional outline.
class Surface : public QWidget {
public:
    /// The colours are read at every paint, so that they follow the theme; `radius` is in pixels at a
    /// 13-pixel body text.
    Surface(std::function<QColor()> color, int radius, std::function<QColor()> outline = nullptr)
        : m_color(std::move(color)), m_outline(std::move(outline)), m_radius(radius) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<QColor()> m_color;
    std::function<QColor()> m_outline;
    int m_radius;
};

} // namespace korvane
