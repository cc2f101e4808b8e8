#include "Desktop/Layout/Card.h"

#include "Desktop/Look/Surface.h"

#include <QColor>

#include <functional>

namespace korvane {

QWidget* card(const CardOptions& options, std::initializer_list<Item> items) {
    const auto fillColor = [tint = options.tint] {
        return tint ? Theme::withTint(*tint, Theme::Tint::row) : Theme::color(Theme::Role::panelFill);
    };
    const auto outlineColor = [tint = options.tint] {
        return tint ? Theme::withTint(*tint, Theme::Tint::outline) : Theme::color(Theme::Role::outline);
    };
    auto* surface = new Surface(fillColor, options.radius,
                                options.hasOutline ? std::function<QColor()>(outlineColor) : nullptr);
    fill(surface, options.orientation, {.spacing = options.spacing, .padding = options.padding}, items);
    return surface;
}

} // namespace korvane
