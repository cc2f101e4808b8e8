#include "Desktop/Kit/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGlyphRun>
#include <QHash>
#include <QProxyStyle>
#include <QString>
#include <QTextLayout>

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane::Theme {

namespace {

Scheme currentScheme = Scheme::light;

/// A colour as light and dark have it, with its opacity in percent.
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
    case Role::faint:
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
    }
    return {};
}

/// The three tones of a named colour: for glyphs and tints in light and dark (a fill under white text is the
/// light one in both), and for coloured text.
struct NamedTones {
    PaletteColor color;
    Tone glyph;
    Tone text;
};

constexpr auto namedTones = std::to_array<NamedTones>({
    {PaletteColor::blue, {0x007AFF, 0x0A84FF}, {0x0064D4, 0x3F95FF}},
    {PaletteColor::brown, {0xA2845E, 0xAC8E68}, {0x826540, 0xB1936C}},
    {PaletteColor::cyan, {0x32ADE6, 0x64D2FF}, {0x0074A1, 0x64D2FF}},
    {PaletteColor::gray, {0x8E8E93, 0x98989D}, {0x6B6B6F, 0x98989D}},
    {PaletteColor::green, {0x28CD41, 0x32D74B}, {0x007E1D, 0x32D74B}},
    {PaletteColor::indigo, {0x5856D6, 0x5E5CE6}, {0x5856D6, 0x8489FF}},
    {PaletteColor::mint, {0x00C7BE, 0x63E6E2}, {0x057A74, 0x63E6E2}},
    {PaletteColor::orange, {0xFF9500, 0xFF9F0A}, {0xA05C01, 0xFF9F0A}},
    {PaletteColor::pink, {0xFF2D55, 0xFF375F}, {0xCE003C, 0xFF566E}},
    {PaletteColor::purple, {0xAF52DE, 0xBF5AF2}, {0x993AC6, 0xCC68FF}},
    {PaletteColor::red, {0xFF3B30, 0xFF453A}, {0xD30208, 0xFF6052}},
    {PaletteColor::teal, {0x30B0C7, 0x40C8E0}, {0x047889, 0x40C8E0}},
    {PaletteColor::yellow, {0xFFCC00, 0xFFD60A}, {0x846900, 0xFFD60A}},
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

/// The desktop's own highlight colour, or the theme's where the desktop names none.
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

struct TextFacts {
    TextStyle style;
    int size;
    int lineHeight;
    QFont::Weight weight = QFont::Normal;
    bool isCode = false;
    double letterSpacing = 0;
};

constexpr auto textFacts = std::to_array<TextFacts>({
    {TextStyle::largeTitle, 26, 32, QFont::Bold},
    {TextStyle::title, 22, 28},
    {TextStyle::title2, 17, 22, QFont::Bold},
    {TextStyle::title3, 15, 20},
    {TextStyle::headline, 13, 16, QFont::DemiBold},
    {TextStyle::body, 13, 18},
    {TextStyle::subheadline, 11, 14},
    {TextStyle::caption, 10, 13},
    {TextStyle::button, 13, 16, QFont::DemiBold},
    {TextStyle::quiet, 12, 16, QFont::Medium},
    {TextStyle::quietStrong, 12, 16, QFont::DemiBold},
    {TextStyle::heading, 12, 16, QFont::DemiBold, false, 0.5},
    {TextStyle::toolName, 13, 17},
    {TextStyle::toolNameStrong, 13, 17, QFont::DemiBold},
    {TextStyle::menu, 12, 16},
    {TextStyle::stat, 28, 34, QFont::Bold},
    {TextStyle::code, 13, 21, QFont::Normal, true},
    {TextStyle::codeMedium, 13, 20, QFont::Medium, true},
    {TextStyle::codeSmall, 12, 20, QFont::Normal, true},
    {TextStyle::codeCaption, 10, 13, QFont::Normal, true},
    {TextStyle::hero, 22, 30, QFont::Medium, true},
});

const TextFacts& factsOf(TextStyle style) {
    const auto& row = textFacts[static_cast<std::size_t>(style)];
    Q_ASSERT(row.style == style);
    return row;
}

constexpr double bodySize = 13;

/// The desktop's font in relation to the one that the sizes are meant for. A smaller font than that is only a
/// toolkit's default where no desktop names one, and does not shrink the window.
double scaleFactor() {
    return std::max(1.0, QFontInfo(QApplication::font()).pixelSize() / bodySize);
}

/// The glyphs that `font` sets ASCII punctuation in.
QList<quint32> glyphsOf(const QFont& font) {
    QTextLayout layout(QStringLiteral("!= == -> => // <= >= && || ::"), font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QList<quint32> glyphs;
    for (const auto& run : layout.glyphRuns())
        glyphs += run.glyphIndexes();
    return glyphs;
}

/// `font` without ligatures, so that every character is seen as it is. The toolkit can only leave out all
/// shaping, which takes joined emoji apart, so it is left on for the many fonts that have no ligatures.
QFont withoutLigatures(QFont font) {
    static QHash<QString, bool> knownFamilies;
    auto unshaped = font;
    unshaped.setStyleStrategy(QFont::PreferNoShaping);
    auto known = knownFamilies.find(font.family());
    if (known == knownFamilies.end())
        known = knownFamilies.insert(font.family(), glyphsOf(font) != glyphsOf(unshaped));
    return *known ? unshaped : font;
}

/// `color` for a style sheet.
QString css(const QColor& color) {
    return QStringLiteral("rgba(%1,%2,%3,%4)")
        .arg(color.red())
        .arg(color.green())
        .arg(color.blue())
        .arg(color.alpha());
}

/// The toolkit's style, except for what the theme wants otherwise.
class Style final : public QProxyStyle {
public:
    Style() : QProxyStyle(QStringLiteral("fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_UnderlineShortcut)
            return 0; // the letters work all the same
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

} // namespace

QStyle* style() {
    return new Style;
}

Scheme scheme() {
    return currentScheme;
}

void setScheme(Scheme scheme) {
    currentScheme = scheme;
}

QPalette palette() {
    QPalette palette;
    palette.setColor(QPalette::Window, color(Role::windowBackground));
    palette.setColor(QPalette::Base, color(Role::windowBackground));
    palette.setColor(QPalette::AlternateBase, color(Role::sidebarBackground));
    palette.setColor(QPalette::Button, color(Role::overlayFill));
    palette.setColor(QPalette::ToolTipBase, color(Role::popupBackground));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::HighlightedText, QPalette::ToolTipText})
        palette.setColor(role, color(Role::primary));
    palette.setColor(QPalette::PlaceholderText, color(Role::placeholder));
    palette.setColor(QPalette::Highlight, color(Role::selection));
    return palette;
}

QString menuStyleSheet() {
    const auto menuPixels = px(factsOf(TextStyle::menu).size);
    const auto bodyPixels = px(factsOf(TextStyle::body).size);
    return QStringLiteral(
               "QMenuBar { background: transparent; border: none; padding: 0; spacing: 0; font-size: %1px; }"
               "QMenuBar::item { background: transparent; color: %2; padding: %3px %4px;"
               " border-radius: %5px; }"
               "QMenuBar::item:selected { background: %6; color: %7; }"
               "QMenuBar::item:pressed { background: %8; color: %7; }")
               .arg(menuPixels)
               .arg(css(color(Role::secondary)))
               .arg((px(Size::stripMenuHeight) - px(factsOf(TextStyle::menu).lineHeight)) / 2)
               .arg(px(Size::stripMenuPadding))
               .arg(px(Size::radiusSmall))
               .arg(css(color(Role::controlHover)), css(color(Role::primary)),
                    css(color(Role::controlPressed))) +
           QStringLiteral("QMenu { background: %1; border: 1px solid %2; border-radius: %3px; padding: %4px;"
                          " color: %5; font-size: %6px; }"
                          "QMenu::item { padding: %13px %7px; min-width: %14px; border-radius: %8px; "
                          "background: transparent; }"
                          "QMenu::item:selected { background: %9; color: %10; }"
                          "QMenu::item:disabled { color: %11; background: transparent; }"
                          "QMenu::separator { height: 1px; background: %12; margin: %4px %7px; }")
               .arg(css(color(Role::popupBackground)), css(color(Role::outlineStrong)))
               .arg(px(Size::radiusLarge))
               .arg(px(Size::menuInset))
               .arg(css(color(Role::primary)))
               .arg(bodyPixels)
               .arg(px(Size::menuPadding))
               .arg(px(Size::radiusSmall))
               .arg(css(color(Role::accent)), css(color(Role::onAccent)), css(color(Role::secondary)),
                    css(color(Role::divider)))
               .arg((px(Size::menuRow) - px(factsOf(TextStyle::headline).lineHeight)) / 2)
               .arg(px(Size::menuMinimumWidth));
}

QColor color(Role role) {
    if (role == Role::accent || role == Role::focusRing || role == Role::selection)
        return accentBased(tone(role));
    return colorOf(tone(role), currentScheme);
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

int px(int size) {
    return static_cast<int>(std::lround(size * scaleFactor()));
}

QMargins margins(int left, int top, int right, int bottom) {
    return {px(left), px(top), px(right), px(bottom)};
}

QFont font(TextStyle style) {
    const auto& facts = factsOf(style);
    auto font = facts.isCode ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QApplication::font();
    font.setPixelSize(px(facts.size));
    font.setWeight(facts.weight);
    if (facts.letterSpacing > 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, facts.letterSpacing);
    return facts.isCode ? withoutLigatures(font) : font;
}

int lineHeight(TextStyle style) {
    return px(factsOf(style).lineHeight);
}

} // namespace korvane::Theme
