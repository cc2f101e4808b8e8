#include "Desktop/Window/WelcomeScreen.h"

#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Views/ContentView.h"

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

/// A tool that is only shown, not to be pressed.
QWidget* tile(Tool tool) {
    auto* name = new Label(rawValue(tool), TextStyle::caption, Role::secondary);
    name->setAlignment(Qt::AlignHCenter);
    auto* surface = new Surface([] { return Theme::color(Role::controlFill); }, Size::radiusExtraLarge);
    surface->setFixedWidth(Theme::px(Size::welcomeTile));
    fill(surface, Qt::Vertical,
         {.spacing = Size::gapControl, .padding = {0, Size::welcomeTilePadding, 0, Size::welcomeTilePadding}},
         {centered(new GlyphLabel(icon(tool), Size::welcomeTileGlyph, accentColor(tool))), name});
    return surface;
}

QWidget* centeredText(std::string_view text, TextStyle style, Role color, int distance) {
    auto* label = new Label(text, style, color);
    label->setAlignment(Qt::AlignHCenter);
    return stack(Qt::Vertical, {.spacing = 0, .padding = {0, distance, 0, 0}}, {label});
}

} // namespace

QWidget* welcomeScreen() {
    auto* tiles =
        stack(Qt::Horizontal, {.spacing = Size::welcomeTileGap, .padding = {0, Size::welcomeTilesTop, 0, 0}},
              {stretch(), tile(WelcomeView::tools[0]), tile(WelcomeView::tools[1]),
               tile(WelcomeView::tools[2]), tile(WelcomeView::tools[3]), stretch()});
    return stack(
        Qt::Vertical,
        {.spacing = 0, .padding = {Size::screenPadding, 0, Size::screenPadding, Size::welcomeBottom}},
        {
            stretch(),
            centered(new GlyphLabel(WelcomeView::icon, Size::welcomeGlyph, GlyphLabel::Brand{})),
            centeredText(WelcomeView::title, TextStyle::largeTitle, Role::primary, Size::welcomeTitleTop),
            centeredText(WelcomeView::message, TextStyle::title3, Role::secondary, Size::welcomeMessageTop),
            tiles,
            stretch(),
        });
}

} // namespace korvane
