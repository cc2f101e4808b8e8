#include "Desktop/Kit/OverlayScrollBar.h"

#include "Desktop/Kit/Theme.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace korvane {

using Theme::Size;

OverlayScrollBar::OverlayScrollBar(Qt::Orientation orientation, QAbstractScrollArea* area, QWidget* host)
    : QScrollBar(orientation, host), m_host(host) {
    const bool isVertical = orientation == Qt::Vertical;
    m_driven = isVertical ? area->verticalScrollBar() : area->horizontalScrollBar();
    if (isVertical)
        area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    else
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    setCursor(Qt::ArrowCursor);
    connect(m_driven, &QScrollBar::rangeChanged, this, [this] { adopt(); });
    connect(m_driven, &QScrollBar::valueChanged, this, [this](int value) { setValue(value); });
    connect(this, &QScrollBar::valueChanged, m_driven, &QScrollBar::setValue);
    host->installEventFilter(this);
    adopt();
    place();
}

void OverlayScrollBar::adopt() {
    const auto value = m_driven->value(); // setting the range may clamp our value and drive it
    setPageStep(m_driven->pageStep());
    setSingleStep(m_driven->singleStep());
    setRange(m_driven->minimum(), m_driven->maximum());
    setValue(value);
    setVisible(maximum() > minimum());
    update();
}

void OverlayScrollBar::place() {
    const auto thickness = Theme::px(Size::scrollWidthHover) + 2 * Theme::px(Size::scrollInset);
    const auto area = m_host->rect();
    setGeometry(orientation() == Qt::Vertical
                    ? QRect(area.right() + 1 - thickness, 0, thickness, area.height())
                    : QRect(0, area.bottom() + 1 - thickness, area.width() - thickness, thickness));
    raise();
}

bool OverlayScrollBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::ChildAdded)
        place();
    return QScrollBar::eventFilter(watched, event);
}

double OverlayScrollBar::along(const QPointF& point) const {
    return orientation() == Qt::Vertical ? point.y() : point.x();
}

QRectF OverlayScrollBar::thumb() const {
    const bool isVertical = orientation() == Qt::Vertical;
    const double inset = Theme::px(Size::scrollEndInset);
    const double track = (isVertical ? height() : width()) - 2 * inset;
    const double range = maximum() - minimum();
    const double length = std::min(track, std::max<double>(Theme::px(Size::scrollThumbMinimum),
                                                           track * pageStep() / (range + pageStep())));
    const double start = inset + (range > 0 ? (track - length) * (value() - minimum()) / range : 0);
    const double thickness =
        Theme::px(underMouse() || m_grabbedAt >= 0 ? Size::scrollWidthHover : Size::scrollWidth);
    const double side = (isVertical ? width() : height()) - Theme::px(Size::scrollInset) - thickness;
    return isVertical ? QRectF(side, start, thickness, length) : QRectF(start, side, length, thickness);
}

void OverlayScrollBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const bool isActive = underMouse() || m_grabbedAt >= 0;
    painter.setBrush(Theme::color(isActive ? Theme::Role::scrollThumbHover : Theme::Role::scrollThumb));
    const auto bar = thumb();
    const auto radius = std::min(bar.width(), bar.height()) / 2;
    painter.drawRoundedRect(bar, radius, radius);
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const auto bar = thumb();
    const auto start = along(bar.topLeft());
    const auto length = orientation() == Qt::Vertical ? bar.height() : bar.width();
    const auto at = along(event->position());
    // A press beside the thumb brings its middle there, and goes on as a drag.
    m_grabbedAt = at >= start && at < start + length ? at - start : length / 2;
    mouseMoveEvent(event);
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event) {
    if (m_grabbedAt < 0)
        return;
    const bool isVertical = orientation() == Qt::Vertical;
    const double inset = Theme::px(Size::scrollEndInset);
    const auto bar = thumb();
    const auto room = (isVertical ? height() - bar.height() : width() - bar.width()) - 2 * inset;
    if (room > 0) {
        const auto share = std::clamp((along(event->position()) - m_grabbedAt - inset) / room, 0.0, 1.0);
        setValue(minimum() + static_cast<int>(std::lround(share * (maximum() - minimum()))));
    }
    update();
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent*) {
    m_grabbedAt = -1;
    update();
}

void OverlayScrollBar::enterEvent(QEnterEvent* event) {
    QScrollBar::enterEvent(event);
    update();
}

void OverlayScrollBar::leaveEvent(QEvent* event) {
    QScrollBar::leaveEvent(event);
    update();
}

} // namespace korvane
