/// The rounded surfaces that controls and contents lie on.
#pragma once

#include <QColor>
#include <QWidget>

#include <functional>
#include <utility>

namespace korvane {

/// Paints a rounded rectangle of `fill` inside `area`, with a line of one pixel inside its edge where
/// `outline` is a colour.
void paintSurface(QPainter& painter, const QRect& area, double radius, const QColor& fill,
                  const QColor& outline = {});

/// Paints the squares that stand for nothing behind what may be transparent.
void paintCheckerboard(QPainter& painter, const QRect& area);

/// A surface of one colour, with an outline where one is given.
class Surface : public QWidget {
public:
    /// The colours are asked for whenever the surface is painted, so that it follows the theme; `radius` is
    /// in pixels at a 13-pixel body text.
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
