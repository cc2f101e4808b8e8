#include "Desktop/Layout/Panel.h"

#include "Desktop/Access/TabStops.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QLayout>
#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::Size;

Panel::Panel(QWidget* content) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusProxy(content);
    constexpr auto outline = Size::panelOutline;
    fill(this, Qt::Vertical, {.spacing = 0, .padding = {outline, outline, outline, outline}}, {content});
    giveFocusRing(focusTarget(content), this, Size::radiusMedium);
}

QSize Panel::sizeHint() const {
    const QSize minSize(Theme::px(Size::minEditorHeight), Theme::px(Size::minEditorHeight));
    return minSize.expandedTo(layout()->totalMinimumSize());
}

void Panel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSurface(painter, rect(), Theme::px(Size::radiusMedium), Theme::color(Role::panelFill),
                 Theme::color(Role::outline));
}

} // namespace korvane
