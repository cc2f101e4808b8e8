#include "Desktop/Tools/Regex/ReferenceCard.h"

#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/Stack.h"

#include <vector>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int glyphSize = 13;
constexpr int columnGap = 12;
constexpr int rowGap = 8;

} // namespace

QWidget* referenceCard(std::string_view title, std::string_view icon, int columnCount,
                       std::span<const RegexCheatItem> items) {
    std::vector<QWidget*> cells;
    for (const auto& [pattern, description] : items) {
        cells.push_back(stack(Qt::Vertical, {.spacing = 0},
                              {new Label(pattern, TextStyle::codeSmallMedium, PaletteColor::red),
                               new Label(description, TextStyle::caption, Role::secondary)}));
        cells.back()->setSizePolicy(QSizePolicy::Ignored,
                                    QSizePolicy::Fixed); // keeps the columns equally wide
    }
    auto* heading =
        stack(Qt::Horizontal, {.spacing = Size::gapBadge},
              {new GlyphLabel(icon, glyphSize, Role::secondary), new Label(title, TextStyle::headline)});
    auto* table = grid(columnCount, {.columnGap = columnGap, .rowGap = rowGap}, cells);
    auto* surface = card({}, {heading, table});
    surface->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return surface;
}

} // namespace korvane
