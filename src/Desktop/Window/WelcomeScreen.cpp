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
constexpr int glyphSize = 64;
constexpr int titleTop = 20;
constexpr int messageTop = 8;
constexpr int tilesTop = 32;
constexpr int tileWidth = 112;
constexpr int tileGap = 16;
constexpr int tilePadding = 16;
constexpr int tileGlyph = 20;
constexpr int bottomPadding = 36;

/// A tool's icon and name; not a button.
QWidget* tile(Tool tool) {
    auto* name = new Label(rawValue(tool), TextStyle::caption, Role::secondary);
    name->setAlignment(Qt::AlignHCenter);
    auto* surface = new Surface([] { return Theme::color(Role::controlFill); }, Size::radiusExtraLarge);
    surface->setFixedWidth(Theme::px(tileWidth));
    fill(surface, Qt::Vertical, {.spacing = Size::gapControl, .padding = {0, tilePadding, 0, tilePadding}},
         {centered(new GlyphLabel(icon(tool), tileGlyph, accentColor(tool))), name});
    return surface;
}

QWidget* centeredText(std::string_view text, TextStyle style, Role color, int top) {
    auto* label = new Label(text, style, color);
    label->setAlignment(Qt::AlignHCenter);
    return stack(Qt::Vertical, {.spacing = 0, .padding = {0, top, 0, 0}}, {label});
}

} // namespace

QWidget* welcomeScreen() {
    auto* tiles = stack(Qt::Horizontal, {.spacing = tileGap, .padding = {0, tilesTop, 0, 0}},
                        {stretch(), tile(WelcomeView::tools[0]), tile(WelcomeView::tools[1]),
                         tile(WelcomeView::tools[2]), tile(WelcomeView::tools[3]), stretch()});
    return stack(Qt::Vertical,
                 {.spacing = 0, .padding = {Size::screenPadding, 0, Size::screenPadding, bottomPadding}},
                 {
                     stretch(),
                     centered(new GlyphLabel(WelcomeView::icon, glyphSize, GlyphLabel::Brand{})),
                     centeredText(WelcomeView::title, TextStyle::largeTitle, Role::primary, titleTop),
                     centeredText(WelcomeView::message, TextStyle::title3, Role::secondary, messageTop),
                     tiles,
                     stretch(),
                 });
}

} // namespace korvane
