#include "Desktop/Tools/Transformer/StatCard.h"

#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

namespace korvane {

using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int glyphSize = 16;
constexpr int paddingX = 16;
constexpr int paddingY = 12;
constexpr int gap = 6;

} // namespace

QWidget* statCard(Store& store, std::string_view title, const Reader<std::string>& value,
                  std::string_view icon, PaletteColor color) {
    auto* card = new Surface([color] { return Theme::withTint(color, Theme::Tint::row); }, Size::radiusLarge);
    fill(card, Qt::Vertical, {.spacing = 0, .padding = {paddingX, paddingY, paddingX, paddingY}},
         {stack(Qt::Horizontal, {.spacing = 0, .padding = {0, 0, 0, gap}},
                {new GlyphLabel(icon, glyphSize, color), stretch()}),
          textLabel(store, value, TextStyle::stat),
          textLabel(store, title, TextStyle::caption, Theme::Role::secondary)});
    return card;
}

} // namespace korvane
