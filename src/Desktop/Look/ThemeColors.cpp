#include "Desktop/Look/Theme.h"

#include <QApplication>
#include <QStyle>

#include <array>

namespace korvane::Theme {

namespace {

Scheme currentScheme = Scheme::light;

/// A colour in light and dark, with its opacity in percent.
struct Tone {
    QRgb light;
    QRgb dark;
    int lightPercent = 100;
    int darkPercent = lightPercent;
};

constexpr QRgb inkLight = 0x101114;
constexpr QRgb inkDark = 0xF1F2F4;
constexpr QRgb accentLight = 0x007AFF;
constexpr QRgb accentDark = 0x0A84FF;
constexpr QRgb white = 0xFFFFFF;
constexpr QRgb black = 0x000000;

/// A tint of the text colour.
constexpr Tone ink(int lightPercent, int darkPercent) {
    return {inkLight, inkDark, lightPercent, darkPercent};
}

constexpr Tone tone(Role role) {
    switch (role) {
    case Role::windowBackground:
        return {0xFFFFFF, 0x1D1E21};
    case Role::sidebarBackground:
        return {0xF3F4F6, 0x17181B};
    case Role::sidebarEdge:
        return ink(9, 8);
    case Role::windowEdge:
        return ink(16, 16);
    case Role::divider:
        return ink(8, 8);
    case Role::popupBackground:
        return {0xFFFFFF, 0x26272B};
    case Role::primary:
        return ink(100, 100);
    case Role::secondary:
        return ink(60, 60);
    case Role::toolName:
        return ink(90, 90);
    case Role::shortcut: // secondary at 60 %
        return ink(36, 36);
    case Role::placeholder:
        return ink(30, 30);
    case Role::onAccent:
        return {white, white};
    case Role::onYellow:
        return {0x1D1A00, 0x1D1A00};
    case Role::panelFill:
        return ink(3, 3);
    case Role::controlFill:
        return ink(5, 5);
    case Role::rowHover:
        return ink(4, 4);
    case Role::controlHover:
        return ink(9, 10);
    case Role::controlPressed:
        return ink(14, 15);
    case Role::outline:
        return ink(10, 10);
    case Role::outlineStrong:
        return ink(20, 22);
    case Role::segmentSelected:
        return {white, inkDark, 100, 13};
    case Role::segmentOutline:
        return ink(10, 6);
    case Role::overlayFill:
        return {0xF1F1F1, 0x2D2E31};
    case Role::overlayHover:
        return {0xE7E7E8, 0x38393C};
    case Role::switchOff:
        return ink(16, 18);
    case Role::knob:
        return {white, 0xF6F7F8};
    case Role::knobOutline:
        return {inkLight, black, 24, 20};
    case Role::sliderTrack:
        return ink(12, 12);
    case Role::scrollThumb:
        return ink(22, 24);
    case Role::scrollThumbHover:
        return ink(40, 42);
    case Role::accent:
        return {accentLight, accentDark};
    case Role::focusRing:
        return {accentLight, accentDark, 55, 70};
    case Role::selection:
        return {accentLight, accentDark, 22, 38};
    case Role::hoverOnColor:
        return {black, white, 7, 8};
    case Role::pressedOnColor:
        return {black, black, 16, 18};
    case Role::disabledFill:
        return {0x8E8E93, 0x636367};
    case Role::dropFill:
        return {accentLight, accentDark, 8, 8};
    case Role::unchangedLine:
        return ink(70, 70);
    case Role::plainBadgeFill:
        return ink(6, 6);
    case Role::hit:
        return {0xFFCC00, 0xFFD60A, 34, 17};
    case Role::currentHit:
        return {0xFFCC00, 0xFFD60A, 70, 34};
    case Role::hitEdge:
        return {0x846900, 0xDDBA0C};
    case Role::oddMatch:
        return {0x28CD41, 0x32D74B, 20, 20};
    case Role::evenMatch:
        return {0x32ADE6, 0x64D2FF, 22, 20};
    case Role::matchEdge:
        return {0x007E1D, 0x2FB344};
    case Role::errorMark:
        return {0xD30208, 0xFF6052};
    }
    return {};
}

/// The tones of a named colour: for glyphs and tints, and for coloured text. A fill under white text has the
/// light glyph tone in both schemes.
struct NamedTones {
    PaletteColor color;
    Tone glyph;
    Tone text;
};

constexpr auto namedTones = std::to_array<NamedTones>({
    {PaletteColor::blue, {0x007AFF, 0x0A84FF}, {0x0061CE, 0x479AFF}},
    {PaletteColor::brown, {0xA2845E, 0xAC8E68}, {0x7F633F, 0xB59873}},
    {PaletteColor::cyan, {0x32ADE6, 0x64D2FF}, {0x00719D, 0x64D2FF}},
    {PaletteColor::gray, {0x8E8E93, 0x98989D}, {0x68686C, 0x9E9EA2}},
    {PaletteColor::green, {0x28CD41, 0x32D74B}, {0x007C1D, 0x32D74B}},
    {PaletteColor::indigo, {0x5856D6, 0x5E5CE6}, {0x5553D0, 0x858AFF}},
    {PaletteColor::mint, {0x00C7BE, 0x63E6E2}, {0x057771, 0x63E6E2}},
    {PaletteColor::orange, {0xFF9500, 0xFF9F0A}, {0x9D5A01, 0xFF9F0A}},
    {PaletteColor::pink, {0xFF2D55, 0xFF375F}, {0xC9003B, 0xFF5F76}},
    {PaletteColor::purple, {0xAF52DE, 0xBF5AF2}, {0x9539C1, 0xCF70FF}},
    {PaletteColor::red, {0xFF3B30, 0xFF453A}, {0xCC0208, 0xFF6557}},
    {PaletteColor::teal, {0x30B0C7, 0x40C8E0}, {0x047485, 0x40C8E0}},
    {PaletteColor::yellow, {0xFFCC00, 0xFFD60A}, {0x836800, 0xFFD60A}},
});

const NamedTones& tonesOf(PaletteColor color) {
    const auto& row = namedTones[static_cast<std::size_t>(color)];
    Q_ASSERT(row.color == color);
    return row;
}

QColor colorOf(const Tone& tone, Scheme scheme) {
    const bool dark = scheme == Scheme::dark;
    auto color = QColor::fromRgb(dark ? tone.dark : tone.light);
    color.setAlphaF(static_cast<float>(dark ? tone.darkPercent : tone.lightPercent) / 100);
    return color;
}

/// Whether the desktop sets a highlight colour of its own, which then replaces the theme's.
bool desktopHasHighlight() {
    return QApplication::palette().color(QPalette::Highlight) !=
           QApplication::style()->standardPalette().color(QPalette::Highlight);
}

QColor accentBased(const Tone& tone) {
    auto color = colorOf(tone, currentScheme);
    if (desktopHasHighlight()) {
        const auto alpha = color.alphaF();
        color = QApplication::palette().color(QPalette::Highlight);
        color.setAlphaF(alpha);
    }
    return color;
}

} // namespace

Scheme scheme() {
    return currentScheme;
}

void setScheme(Scheme scheme) {
    currentScheme = scheme;
}

QColor color(Role role) {
    if (role == Role::accent || role == Role::focusRing || role == Role::selection || role == Role::dropFill)
        return accentBased(tone(role));
    return colorOf(tone(role), currentScheme);
}

QColor color(const Ink& ink) {
    const auto* role = std::get_if<Role>(&ink);
    return role ? color(*role) : textTone(std::get<PaletteColor>(ink));
}

QColor withTint(PaletteColor color, Tint tint) {
    auto tinted = hue(color);
    tinted.setAlphaF(static_cast<float>(tint) / 100);
    return tinted;
}

QColor hue(PaletteColor color) {
    return colorOf(tonesOf(color).glyph, currentScheme);
}

QColor textTone(PaletteColor color) {
    return colorOf(tonesOf(color).text, currentScheme);
}

QColor solid(PaletteColor color) {
    return colorOf(tonesOf(color).glyph, Scheme::light);
}

QColor onSolid(PaletteColor color) {
    return Theme::color(color == PaletteColor::yellow ? Role::onYellow : Role::onAccent);
}

QColor mixed(const QColor& from, const QColor& to, double progress) {
    const auto blend = [&](float a, float b) { return a + (b - a) * static_cast<float>(progress); };
    return QColor::fromRgbF(blend(from.redF(), to.redF()), blend(from.greenF(), to.greenF()),
                            blend(from.blueF(), to.blueF()), blend(from.alphaF(), to.alphaF()));
}

} // namespace korvane::Theme
