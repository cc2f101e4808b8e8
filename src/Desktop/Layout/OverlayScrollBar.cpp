#include "Desktop/Layout/OverlayScrollBar.h"

#include "Desktop/Look/Theme.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace korvane {

using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int scrollWidth = 5;
constexpr int scrollWidthHover = 7;
constexpr int scrollInset = 2;
constexpr int minThumbLength = 32;

} // namespace

OverlayScrollBar::OverlayScrollBar(Qt::Orientation orientation, QAbstractScrollArea* area, QWidget* host)
    : QWidget(host), m_host(host), m_area(area) {
    if (orientation == Qt::Vertical) {
        m_driven = area->verticalScrollBar();
        area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    } else {
        m_driven = area->horizontalScrollBar();
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    connect(m_driven, &QScrollBar::rangeChanged, this, [this] { follow(); });
    connect(m_driven, &QScrollBar::valueChanged, this, [this] { follow(); });
    // Text areas move their bar without a signal, but they are repainted when it has moved.
    area->viewport()->installEventFilter(this);
    host->installEventFilter(this);
    follow();
    place();
}

void OverlayScrollBar::follow() {
    setVisible(m_driven->maximum() > m_driven->minimum());
    update();
}

void OverlayScrollBar::place() {
    const auto thickness = Theme::px(scrollWidthHover) + 2 * Theme::px(scrollInset);
    const auto area = m_host->rect();
    const bool isInHost = m_area->parentWidget() == m_host;
    const auto top = isInHost ? std::max(m_area->y() - Theme::Size::panelOutline, 0) : 0; // of the content
    setGeometry(isVertical() ? QRect(area.right() + 1 - thickness, top, thickness, area.height() - top)
                             : QRect(0, area.bottom() + 1 - thickness, area.width() - thickness, thickness));
    raise();
}

bool OverlayScrollBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_host && (event->type() == QEvent::Resize || event->type() == QEvent::ChildAdded))
        place();
    if (watched != m_host && event->type() == QEvent::Resize)
        place();
    if (event->type() == QEvent::Paint && m_driven->value() != m_paintedValue)
        update();
    return QWidget::eventFilter(watched, event);
}

bool OverlayScrollBar::isVertical() const {
    return m_driven->orientation() == Qt::Vertical;
}

bool OverlayScrollBar::isActive() const {
    return underMouse() || m_grabbedAt >= 0;
}

double OverlayScrollBar::length() const {
    return (isVertical() ? height() : width()) - 2.0 * Theme::px(scrollEndInset);
}

double OverlayScrollBar::along(const QPointF& point) const {
    return isVertical() ? point.y() : point.x();
}

QRectF OverlayScrollBar::thumb() const {
    const double range = m_driven->maximum() - m_driven->minimum();
    const double page = m_driven->pageStep();
    const double size =
        std::min(length(), std::max<double>(Theme::px(minThumbLength), length() * page / (range + page)));
    const double share = range > 0 ? (m_driven->value() - m_driven->minimum()) / range : 0;
    const double start = Theme::px(scrollEndInset) + (length() - size) * share;
    const double thickness = Theme::px(isActive() ? scrollWidthHover : scrollWidth);
    const double side = (isVertical() ? width() : height()) - Theme::px(scrollInset) - thickness;
    return isVertical() ? QRectF(side, start, thickness, size) : QRectF(start, side, size, thickness);
}

void OverlayScrollBar::paintEvent(QPaintEvent*) {
    m_paintedValue = m_driven->value();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::color(isActive() ? Theme::Role::scrollThumbHover : Theme::Role::scrollThumb));
    const auto bar = thumb();
    const auto radius = std::min(bar.width(), bar.height()) / 2;
    painter.drawRoundedRect(bar, radius, radius);
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const auto bar = thumb();
    const auto size = std::max(bar.width(), bar.height());
    const auto grabbedAt = along(event->position()) - along(bar.topLeft());
    // A press beside the thumb centres it there, and then drags it.
    m_grabbedAt = grabbedAt >= 0 && grabbedAt < size ? grabbedAt : size / 2;
    mouseMoveEvent(event);
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event) {
    if (m_grabbedAt < 0)
        return;
    const auto bar = thumb();
    const auto room = length() - std::max(bar.width(), bar.height());
    if (room > 0) {
        const auto start = along(event->position()) - m_grabbedAt - Theme::px(scrollEndInset);
        const auto range = m_driven->maximum() - m_driven->minimum();
        const auto share = std::clamp(start / room, 0.0, 1.0);
        m_driven->setValue(m_driven->minimum() + static_cast<int>(std::lround(share * range)));
    }
    update();
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent*) {
    m_grabbedAt = -1;
    update();
}

void OverlayScrollBar::wheelEvent(QWheelEvent* event) {
    QApplication::sendEvent(m_driven, event);
}

void OverlayScrollBar::enterEvent(QEnterEvent* event) {
    QWidget::enterEvent(event);
    update();
}

void OverlayScrollBar::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    update();
}

} // namespace korvane
