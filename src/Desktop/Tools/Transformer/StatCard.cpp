#include "Desktop/Tools/Transformer/StatCard.h"

#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

namespace korvane {

using Theme::Size;
using Theme::TextStyle;

QWidget* statCard(Store& store, std::string_view title, const Reader<std::string>& value,
                  std::string_view icon, PaletteColor color) {
    auto* card = new Surface([color] { return Theme::withTint(color, Theme::Tint::row); }, Size::radiusLarge);
    fill(card, Qt::Vertical,
         {.spacing = 0,
          .padding = {Size::statPaddingX, Size::statPaddingY, Size::statPaddingX, Size::statPaddingY}},
         {stack(Qt::Horizontal, {.spacing = 0, .padding = {0, 0, 0, Size::statGap}},
                {new GlyphLabel(icon, Size::statGlyph, color), stretch()}),
          textLabel(store, value, TextStyle::stat),
          textLabel(store, title, TextStyle::caption, Theme::Role::secondary)});
    return card;
}

} // namespace korvane
