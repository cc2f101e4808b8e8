#include "Desktop/Kit/ReferenceCard.h"

#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"

#include <QGridLayout>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

QWidget* referenceCard(std::string_view title, std::string_view icon, int columnCount,
                       std::span<const RegexCheatItem> items) {
    auto* table = new QWidget;
    auto* layout = new QGridLayout(table);
    layout->setContentsMargins({});
    layout->setHorizontalSpacing(Theme::px(Size::referenceColumnGap));
    layout->setVerticalSpacing(Theme::px(Size::referenceRowGap));
    int index = 0;
    for (const auto& [pattern, description] : items) {
        auto* cell = stack(Qt::Vertical, {.spacing = 0},
                           {new Label(pattern, TextStyle::codeSmallMedium, PaletteColor::red),
                            new Label(description, TextStyle::caption, Role::secondary)});
        cell->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // all columns share the width equally
        layout->addWidget(cell, index / columnCount, index % columnCount);
        layout->setColumnStretch(index % columnCount, 1);
        ++index;
    }
    auto* heading = stack(
        Qt::Horizontal, {.spacing = Size::gapBadge},
        {new GlyphLabel(icon, Size::referenceGlyph, Role::secondary), new Label(title, TextStyle::headline)});
    auto* surface = card({}, {heading, table});
    surface->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return surface;
}

} // namespace korvane
