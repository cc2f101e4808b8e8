/// A tinted surface with rounded corners around parts of a screen.
#pragma once

#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"

#include <QMargins>

#include <initializer_list>
#include <optional>

namespace korvane {

struct CardOptions {
    Qt::Orientation orientation = Qt::Vertical;
    int spacing = Theme::Size::gapControl;
    QMargins padding{Theme::Size::cardPadding, Theme::Size::cardPadding, Theme::Size::cardPadding,
                     Theme::Size::cardPadding};
    int radius = Theme::Size::radiusMedium;
    bool hasOutline = true;
    std::optional<PaletteColor> tint{}; ///< instead of the panels' neutral tint
};

QWidget* card(const CardOptions& options, std::initializer_list<Item> items);

} // namespace korvane
