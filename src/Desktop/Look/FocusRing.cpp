#include "Desktop/Look/FocusRing.h"

#include "Desktop/Look/Theme.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QVariant>

namespace korvane {

namespace {

constexpr char frameProperty[] = "korvaneRingFrame";
constexpr char radiusProperty[] = "korvaneRingRadius";

/// The widget that clips `frame`: the viewport in which it scrolls, or the window.
QWidget* clippingParent(QWidget* frame, QWidget* window) {
    for (auto* ancestor = frame->parentWidget(); ancestor && ancestor != window;
         ancestor = ancestor->parentWidget()) {
        auto* area = qobject_cast<QAbstractScrollArea*>(ancestor->parentWidget());
        if (area && area->viewport() == ancestor)
            return ancestor;
    }
    return window;
}

} // namespace

void giveFocusRing(QWidget* control, QWidget* frame, int radius) {
    control->setProperty(frameProperty, QVariant::fromValue(frame));
    control->setProperty(radiusProperty, radius);
}

QWidget* ringFrame(QWidget* control) {
    auto* frame = control->property(frameProperty).value<QWidget*>();
    return frame ? frame : control;
}

FocusRing::FocusRing(QWidget* window) : QWidget(window), m_window(window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
}

void FocusRing::follow(QWidget* control) {
    for (QWidget* watched = m_frame; watched; watched = watched->parentWidget())
        watched->removeEventFilter(this);
    const bool isInWindow = control && control->window() == m_window;
    m_frame = isInWindow ? control->property(frameProperty).value<QWidget*>() : nullptr;
    if (m_frame)
        m_radius = control->property(radiusProperty).toInt();
    for (QWidget* watched = m_frame; watched; watched = watched->parentWidget())
        watched->installEventFilter(this);
    place();
}

void FocusRing::place() {
    if (!m_frame || !m_frame->isVisible()) {
        hide();
        setParent(m_window); // the present parent may be about to be deleted
        return;
    }
    auto* host = clippingParent(m_frame, m_window);
    if (parentWidget() != host)
        setParent(host);
    const auto width = Theme::px(Theme::Size::focusWidth);
    setGeometry(
        QRect(m_frame->mapTo(host, QPoint()), m_frame->size()).adjusted(-width, -width, width, width));
    raise();
    show();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        place();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto width = Theme::px(Theme::Size::focusWidth);
    const auto radius = Theme::px(m_radius) + width / 2.0;
    painter.setPen(QPen(Theme::color(Theme::Role::focusRing), width));
    painter.drawRoundedRect(QRectF(rect()).adjusted(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0),
                            radius, radius);
}

} // namespace korvane
