#include "Desktop/Window/WelcomeScreen.h"

#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Theme.h"
#include "Views/ContentView.h"

#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

/// A tool that is only shown, not to be pressed.
class Tile final : public QWidget {
public:
    explicit Tile(Tool tool) {
        auto* name = new Label(rawValue(tool), TextStyle::caption, Role::secondary);
        name->setAlignment(Qt::AlignHCenter);
        setFixedWidth(Theme::px(Size::welcomeTile));
        fill(this, Qt::Vertical,
             {.spacing = Size::gapControl,
              .padding = {0, Size::welcomeTilePadding, 0, Size::welcomeTilePadding}},
             {centered(new GlyphLabel(icon(tool), Size::welcomeTileGlyph, accentColor(tool))), name});
    }

    static QWidget* centered(QWidget* widget) {
        return stack(Qt::Horizontal, {.spacing = 0}, {stretch(), widget, stretch()});
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::color(Role::controlFill));
        const auto radius = Theme::px(Size::radiusExtraLarge);
        painter.drawRoundedRect(rect(), radius, radius);
    }
};

QWidget* centeredText(std::string_view text, TextStyle style, Role color, int distance) {
    auto* label = new Label(text, style, color);
    label->setAlignment(Qt::AlignHCenter);
    return stack(Qt::Vertical, {.spacing = 0, .padding = {0, distance, 0, 0}}, {label});
}

} // namespace

QWidget* welcomeScreen() {
    auto* tiles =
        stack(Qt::Horizontal, {.spacing = Size::welcomeTileGap, .padding = {0, Size::welcomeTilesTop, 0, 0}},
              {stretch(), new Tile(WelcomeView::tools[0]), new Tile(WelcomeView::tools[1]),
               new Tile(WelcomeView::tools[2]), new Tile(WelcomeView::tools[3]), stretch()});
    return stack(
        Qt::Vertical,
        {.spacing = 0, .padding = {Size::screenPadding, 0, Size::screenPadding, Size::welcomeBottom}},
        {
            stretch(),
            Tile::centered(new GlyphLabel(WelcomeView::icon, Size::welcomeGlyph, GlyphLabel::Brand{})),
            centeredText(WelcomeView::title, TextStyle::largeTitle, Role::primary, Size::welcomeTitleTop),
            centeredText(WelcomeView::message, TextStyle::title3, Role::secondary, Size::welcomeMessageTop),
            tiles,
            stretch(),
        });
}

} // namespace korvane
