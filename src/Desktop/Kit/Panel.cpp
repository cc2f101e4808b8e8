#include "Desktop/Kit/Panel.h"

#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Theme.h"

#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::Size;

void Surface::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_color());
    const auto radius = Theme::px(m_radius);
    painter.drawRoundedRect(rect(), radius, radius);
}

Panel::Panel(QWidget* content) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusProxy(content);
    constexpr auto outline = Size::panelOutline;
    fill(this, Qt::Vertical, {.spacing = 0, .padding = {outline, outline, outline, outline}}, {content});
    giveFocusRing(focusTarget(content), this, Size::radiusMedium);
}

QSize Panel::sizeHint() const {
    return {Theme::px(Size::editorMinimumHeight), Theme::px(Size::editorMinimumHeight)};
}

void Panel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Theme::color(Role::panelFill));
    painter.setPen(Theme::color(Role::outline));
    const auto radius = Theme::px(Size::radiusMedium) - 0.5;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace korvane
