#include "Desktop/Look/Surface.h"

#include "Desktop/Look/Theme.h"

#include <QPainter>
#include <QPainterPath>

namespace korvane {

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int checkerCell = 10;

} // namespace

void paintSurface(QPainter& painter, const QRect& area, double radius, const QColor& fill,
                  const QColor& outline) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(area, radius, radius);
    if (!outline.isValid())
        return;
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
}

void clipToSurface(QPainter& painter, const QRect& area, double radius) {
    QPainterPath shape;
    shape.addRoundedRect(area, radius, radius);
    painter.setClipPath(shape);
}

void paintCheckerboard(QPainter& painter, const QRect& area) {
    const auto cell = Theme::px(checkerCell);
    for (int row = 0; row * cell < area.height(); ++row) {
        for (int column = 0; column * cell < area.width(); ++column) {
            const bool isEven = (row + column) % 2 == 0;
            painter.fillRect(area.left() + column * cell, area.top() + row * cell, cell, cell,
                             Theme::withTint(PaletteColor::gray,
                                             isEven ? Theme::Tint::checkerEven : Theme::Tint::checkerOdd));
        }
    }
}

void Surface::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSurface(painter, rect(), Theme::px(m_radius), m_color(), m_outline ? m_outline() : QColor());
}

} // namespace korvane
