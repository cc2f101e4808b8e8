#include "Desktop/Look/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGlyphRun>
#include <QHash>
#include <QString>
#include <QTextLayout>

#include <algorithm>
#include <array>
#include <cmath>

namespace korvane::Theme {

namespace {

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
    {TextStyle::bodyMedium, 13, 18, QFont::Medium},
    {TextStyle::bodyStrong, 13, 18, QFont::DemiBold},
    {TextStyle::bodyBold, 13, 18, QFont::Bold},
    {TextStyle::prose, 13, 21},
    {TextStyle::subheadline, 11, 14},
    {TextStyle::subheadlineStrong, 11, 14, QFont::DemiBold},
    {TextStyle::caption, 10, 13},
    {TextStyle::button, 13, 16, QFont::DemiBold},
    {TextStyle::quiet, 12, 16, QFont::Medium},
    {TextStyle::quietStrong, 12, 16, QFont::DemiBold},
    {TextStyle::heading, 12, 16, QFont::DemiBold, false, 0.5},
    {TextStyle::toolName, 13, 17},
    {TextStyle::toolNameStrong, 13, 17, QFont::DemiBold},
    {TextStyle::menu, 12, 16},
    {TextStyle::menuShortcut, 11, 14},
    {TextStyle::stat, 28, 34, QFont::Bold},
    {TextStyle::pill, 15, 20, QFont::Bold},
    {TextStyle::code, 13, 21, QFont::Normal, true},
    {TextStyle::codeMedium, 13, 20, QFont::Medium, true},
    {TextStyle::codeSmall, 12, 20, QFont::Normal, true},
    {TextStyle::codeSmallMedium, 12, 18, QFont::Medium, true},
    {TextStyle::codeCaption, 10, 13, QFont::Normal, true},
    {TextStyle::codeValue, 15, 22, QFont::Normal, true},
    {TextStyle::hero, 22, 30, QFont::Medium, true},
    {TextStyle::tag, 12, 16, QFont::Bold},
    {TextStyle::tagSmall, 11, 14, QFont::Bold},
    {TextStyle::document, 13, 20},
    {TextStyle::header1, 22, 28, QFont::Bold},
    {TextStyle::header2, 17, 22, QFont::Bold},
    {TextStyle::header3, 15, 20, QFont::DemiBold},
    {TextStyle::header4, 13, 20, QFont::DemiBold},
    {TextStyle::header5, 12, 18, QFont::DemiBold},
    {TextStyle::header6, 11, 16, QFont::DemiBold},
});

const TextFacts& factsOf(TextStyle style) {
    const auto& row = textFacts[static_cast<std::size_t>(style)];
    Q_ASSERT(row.style == style);
    return row;
}

/// The glyphs of ASCII punctuation in `font`.
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

/// `font` without ligatures, so that every character is visible. Qt can only disable all shaping, which
/// splits joined emoji, so shaping stays on for the many fonts that have no ligatures.
QFont withoutLigatures(QFont font) {
    static QHash<QString, bool> knownFamilies;
    auto unshaped = font;
    unshaped.setStyleStrategy(QFont::PreferNoShaping);
    auto known = knownFamilies.find(font.family());
    if (known == knownFamilies.end())
        known = knownFamilies.insert(font.family(), glyphsOf(font) != glyphsOf(unshaped));
    return *known ? unshaped : font;
}

/// `size` scaled by the desktop's font and zoomed.
int zoomed(int size, int percent) {
    return std::max(1, static_cast<int>(std::lround(px(size) * percent / 100.0)));
}

} // namespace

QFont withDefaultFamily(QFont font, const QString& alias, const QString& family) {
    if (font.family() == alias && QFontDatabase::hasFamily(family))
        font.setFamily(family);
    return font;
}

QFont applicationFont() {
    return withDefaultFamily(QApplication::font(), QStringLiteral("Sans Serif"), QStringLiteral("Inter"));
}

QFont font(TextStyle style, int percent) {
    const auto& facts = factsOf(style);
    auto font = facts.isCode
                    ? withDefaultFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont),
                                        QStringLiteral("monospace"), QStringLiteral("JetBrains Mono"))
                    : QApplication::font();
    font.setPixelSize(zoomed(facts.size, percent));
    font.setWeight(facts.weight);
    if (facts.letterSpacing > 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, facts.letterSpacing);
    return facts.isCode ? withoutLigatures(font) : font;
}

int lineHeight(TextStyle style, int percent) {
    return zoomed(factsOf(style).lineHeight, percent);
}

} // namespace korvane::Theme
