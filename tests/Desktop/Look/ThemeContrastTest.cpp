/// The colour of every text has a contrast of at least 4.5 to 1 to each of its backgrounds, in light and in
/// dark.
///
/// Deliberately excluded:
/// - White on the solid named colours (action buttons, tags) and on the accent, which the design fixes.
/// - Placeholders, line numbers and the shortcuts in the sidebar, which are faint by design. A placeholder is
///   also the editor's accessible description, and disappears with the first character; the menu shows the
///   shortcuts too.
/// - Disabled controls.

#include "Desktop/Look/Theme.h"
#include "Models/PaletteColor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>
#include <vector>

namespace korvane {
namespace {

using Theme::Role;
using Theme::Scheme;
using Theme::Tint;

constexpr double minContrast = 4.5;

/// The relative luminance of the Web Content Accessibility Guidelines.
double luminance(const QColor& color) {
    const auto linear = [](float channel) {
        return channel <= 0.03928F ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// The colour of `upper`, which may be translucent, painted over `lower`, which is opaque.
QColor over(const QColor& upper, const QColor& lower) {
    auto opaque = upper;
    opaque.setAlphaF(1);
    return Theme::mixed(lower, opaque, upper.alphaF());
}

/// The colour of `layers` painted one after the other.
QColor painted(std::initializer_list<QColor> layers) {
    auto result = *layers.begin();
    for (const auto& layer : layers)
        result = over(layer, result);
    return result;
}

struct NamedColor {
    PaletteColor color;
    std::string name;
};

const std::vector<NamedColor> namedColors = {
    {PaletteColor::blue, "blue"},     {PaletteColor::brown, "brown"},   {PaletteColor::cyan, "cyan"},
    {PaletteColor::gray, "gray"},     {PaletteColor::green, "green"},   {PaletteColor::indigo, "indigo"},
    {PaletteColor::mint, "mint"},     {PaletteColor::orange, "orange"}, {PaletteColor::pink, "pink"},
    {PaletteColor::purple, "purple"}, {PaletteColor::red, "red"},       {PaletteColor::teal, "teal"},
    {PaletteColor::yellow, "yellow"}};

struct TextBackground {
    std::string name;
    QColor color;
};

void expectReadable(const std::string& text, const QColor& ink,
                    const std::vector<TextBackground>& backgrounds) {
    for (const auto& [name, background] : backgrounds)
        EXPECT_GE(contrast(over(ink, background), background), minContrast) << text << " on " << name;
}

/// The backgrounds of coloured text that is not hovered: the surfaces of the window, and those in its own
/// colour.
std::vector<TextBackground> coloredTextBackgrounds(PaletteColor color) {
    const auto window = Theme::color(Role::windowBackground);
    const auto panel = over(Theme::color(Role::panelFill), window);
    const auto control = Theme::color(Role::controlFill);
    return {{"the window", window},
            {"a panel", panel},
            {"a card in a panel", over(Theme::color(Role::panelFill), panel)},
            {"a control", over(control, window)},
            {"a control in a panel", over(control, panel)},
            {"the button over a text", Theme::color(Role::overlayFill)},
            {"a chip", over(Theme::withTint(color, Tint::badge), panel)},
            {"a card of its colour", over(Theme::withTint(color, Tint::row), window)},
            {"a tile of its colour", over(Theme::withTint(color, Tint::tile), window)},
            {"a toggle of its colour", over(Theme::withTint(color, Tint::toggle), window)},
            {"a line of its colour", over(Theme::withTint(color, Tint::diffLine), panel)}};
}

/// The backgrounds of secondary text: all surfaces and rows, but no hovered or pressed control and no
/// selection.
std::vector<TextBackground> secondaryTextBackgrounds() {
    const auto window = Theme::color(Role::windowBackground);
    const auto sidebar = Theme::color(Role::sidebarBackground);
    const auto panel = over(Theme::color(Role::panelFill), window);
    const auto control = Theme::color(Role::controlFill);
    std::vector<TextBackground> backgrounds = {
        {"the window", window},
        {"the sidebar", sidebar},
        {"a menu", Theme::color(Role::popupBackground)},
        {"a panel", panel},
        {"a card in a panel", over(Theme::color(Role::panelFill), panel)},
        {"a control", over(control, window)},
        {"a control in the sidebar", over(control, sidebar)},
        {"a control in a panel", over(control, panel)},
        {"the button over a text", Theme::color(Role::overlayFill)},
        {"a row under the pointer", over(Theme::color(Role::rowHover), panel)},
        {"a tool under the pointer", over(Theme::color(Role::rowHover), sidebar)},
        {"a plain badge", over(Theme::color(Role::plainBadgeFill), window)}};
    for (const auto& [color, name] : namedColors) {
        const auto row = Theme::withTint(color, Tint::row);
        backgrounds.push_back({"a card in " + name, over(row, window)});
        backgrounds.push_back({"the chosen tool in " + name, over(row, sidebar)});
    }
    return backgrounds;
}

/// The backgrounds of primary text: all that there are.
std::vector<TextBackground> primaryTextBackgrounds() {
    auto backgrounds = secondaryTextBackgrounds();
    const auto window = Theme::color(Role::windowBackground);
    const auto panel = over(Theme::color(Role::panelFill), window);
    for (const auto role : {Role::controlHover, Role::controlPressed, Role::selection, Role::segmentSelected})
        backgrounds.push_back(
            {"role " + std::to_string(static_cast<int>(role)), over(Theme::color(role), panel)});
    backgrounds.push_back({"the button over a text, pressed",
                           painted({Theme::color(Role::overlayFill), Theme::color(Role::controlPressed)})});
    for (const auto& [color, name] : namedColors) {
        for (const auto tint : {Tint::toggleHover, Tint::togglePressed, Tint::tileHover, Tint::tilePressed})
            backgrounds.push_back({name + " at " + std::to_string(static_cast<int>(tint)),
                                   over(Theme::withTint(color, tint), window)});
        const auto line = over(Theme::withTint(color, Tint::diffLine), panel);
        backgrounds.push_back({"a selected line", over(Theme::color(Role::selection), line)});
        backgrounds.push_back({"the current line", over(Theme::color(Role::rowHover), line)});
    }
    return backgrounds;
}

struct ThemeContrastTest : testing::TestWithParam<Scheme> {
    ThemeContrastTest() { Theme::setScheme(GetParam()); }

    ~ThemeContrastTest() override { Theme::setScheme(Scheme::light); }
};

TEST_P(ThemeContrastTest, PrimaryTextIsReadableOnEveryBackground) {
    expectReadable("primary", Theme::color(Role::primary), primaryTextBackgrounds());
}

TEST_P(ThemeContrastTest, SecondaryTextIsReadableOnRestingBackgrounds) {
    expectReadable("secondary", Theme::color(Role::secondary), secondaryTextBackgrounds());
}

TEST_P(ThemeContrastTest, ColoredTextIsReadableOnRestingAndTintedBackgrounds) {
    for (const auto& [color, name] : namedColors)
        expectReadable(name, Theme::textTone(color), coloredTextBackgrounds(color));
}

TEST_P(ThemeContrastTest, TheCurrentTimestampIsReadableOnItsCard) {
    const auto card =
        over(Theme::withTint(PaletteColor::yellow, Tint::row), Theme::color(Role::windowBackground));
    expectReadable("seconds", Theme::textTone(PaletteColor::yellow), {{"the card", card}});
    expectReadable("milliseconds", Theme::textTone(PaletteColor::orange), {{"the card", card}});
}

TEST_P(ThemeContrastTest, UnchangedLinesAreReadableWhenSelectedOrNot) {
    const auto panel = over(Theme::color(Role::panelFill), Theme::color(Role::windowBackground));
    expectReadable("unchanged", Theme::color(Role::unchangedLine),
                   {{"the panel", panel},
                    {"the current line", over(Theme::color(Role::rowHover), panel)},
                    {"a selected line", over(Theme::color(Role::selection), panel)}});
}

TEST_P(ThemeContrastTest, NamesOfToolsAreReadable) {
    const auto sidebar = Theme::color(Role::sidebarBackground);
    expectReadable("name", Theme::color(Role::toolName),
                   {{"the sidebar", sidebar}, {"hover", over(Theme::color(Role::rowHover), sidebar)}});
}

TEST_P(ThemeContrastTest, DarkTextIsReadableOnYellow) {
    expectReadable("yellow's own", Theme::onSolid(PaletteColor::yellow),
                   {{"yellow", Theme::solid(PaletteColor::yellow)}});
}

INSTANTIATE_TEST_SUITE_P(BothSchemes, ThemeContrastTest, testing::Values(Scheme::light, Scheme::dark),
                         [](const auto& scheme) { return scheme.param == Scheme::light ? "Light" : "Dark"; });

} // namespace
} // namespace korvane
