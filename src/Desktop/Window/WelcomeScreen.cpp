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

// Sizes are in pixels at a 13-pixel body text.
constexpr int welcomeGlyph = 64;
constexpr int welcomeTitleTop = 20;
constexpr int welcomeMessageTop = 8;
constexpr int welcomeTilesTop = 32;
constexpr int welcomeTile = 112;
constexpr int welcomeTileGap = 16;
constexpr int welcomeTilePadding = 16;
constexpr int welcomeTileGlyph = 20;
constexpr int welcomeBottom = 36;

/// A tool that is only shown, not to be pressed.
QWidget* tile(Tool tool) {
    auto* name = new Label(rawValue(tool), TextStyle::caption, Role::secondary);
    name->setAlignment(Qt::AlignHCenter);
    auto* surface = new Surface([] { return Theme::color(Role::controlFill); }, Size::radiusExtraLarge);
    surface->setFixedWidth(Theme::px(welcomeTile));
    fill(surface, Qt::Vertical,
         {.spacing = Size::gapControl, .padding = {0, welcomeTilePadding, 0, welcomeTilePadding}},
         {centered(new GlyphLabel(icon(tool), welcomeTileGlyph, accentColor(tool))), name});
    return surface;
}

QWidget* centeredText(std::string_view text, TextStyle style, Role color, int distance) {
    auto* label = new Label(text, style, color);
    label->setAlignment(Qt::AlignHCenter);
    return stack(Qt::Vertical, {.spacing = 0, .padding = {0, distance, 0, 0}}, {label});
}

} // namespace

QWidget* welcomeScreen() {
    auto* tiles = stack(Qt::Horizontal, {.spacing = welcomeTileGap, .padding = {0, welcomeTilesTop, 0, 0}},
                        {stretch(), tile(WelcomeView::tools[0]), tile(WelcomeView::tools[1]),
                         tile(WelcomeView::tools[2]), tile(WelcomeView::tools[3]), stretch()});
    return stack(
        Qt::Vertical, {.spacing = 0, .padding = {Size::screenPadding, 0, Size::screenPadding, welcomeBottom}},
        {
            stretch(),
            centered(new GlyphLabel(WelcomeView::icon, welcomeGlyph, GlyphLabel::Brand{})),
            centeredText(WelcomeView::title, TextStyle::largeTitle, Role::primary, welcomeTitleTop),
            centeredText(WelcomeView::message, TextStyle::title3, Role::secondary, welcomeMessageTop),
            tiles,
            stretch(),
        });
}

} // namespace korvane
