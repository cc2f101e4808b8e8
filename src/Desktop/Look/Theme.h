/// The theme: colours in light and dark, fonts, radii, gaps, and sizes that more than one file uses. No other
/// file holds a literal colour, font size or style sheet. Sizes are pixels for a 13-pixel body text and grow
/// with the desktop's font; colours follow the desktop's scheme, also while the program runs.
#pragma once

#include "Models/PaletteColor.h"

#include <QColor>
#include <QFont>
#include <QMargins>
#include <QPalette>

#include <variant>

class QStyle;

namespace korvane::Theme {

enum class Scheme { light, dark };

/// Colours by their meaning. Tints of the text colour are translucent.
enum class Role {
    windowBackground,
    sidebarBackground,
    sidebarEdge,
    windowEdge,
    divider,
    popupBackground,
    primary,
    secondary,
    toolName, ///< primary at 90 %: the name of an unselected tool
    shortcut, ///< the keys of a tool
    placeholder,
    onAccent,
    onYellow,
    panelFill,
    controlFill,
    rowHover,
    controlHover,
    controlPressed,
    outline,
    outlineStrong,
    segmentSelected,
    segmentOutline,
    overlayFill,
    overlayHover,
    switchOff,
    knob,
    knobOutline,
    sliderTrack,
    scrollThumb,
    scrollThumbHover,
    accent,
    focusRing,
    selection, ///< behind selected content, where only primary text is readable
    hoverOnColor,
    pressedOnColor,
    disabledFill,
    dropFill,      ///< a drop target while something is dragged over it
    unchangedLine, ///< primary at 70 %: a line that is the same in both texts
    plainBadgeFill,
    hit,        ///< behind every hit of a search
    currentHit, ///< behind the current one, where only primary text is readable
    hitEdge,    ///< the outline of the current one
    oddMatch,   ///< behind the matches of an expression, in turn
    evenMatch,  ///< the same
    matchEdge,  ///< the outline of the selected match
    errorMark,  ///< the wave under the place of an error, and the number of its line
};

/// The opacity of a named colour over the surface, in percent.
enum class Tint {
    row = 10,
    badge = 10,
    diffLine = 15,
    toggle = 14,
    linkHover = 16, ///< over a badge that is a link
    linkPressed = 22,
    toggleHover = 20,
    togglePressed = 26,
    tile = 12,
    tileHover = 18,
    tilePressed = 24,
    iconBox = 20,
    outline = 30,
    toggleOutline = 40,
    headerFrom = 30,
    headerTo = 10,
    checkerEven = 30,
    checkerOdd = 10,
};

enum class TextStyle {
    largeTitle,
    title,
    title2,
    title3,
    headline,
    body,
    bodyMedium,
    bodyStrong,
    bodyBold,
    prose, ///< text of more than one line
    subheadline,
    subheadlineStrong,
    caption,
    button,
    quiet,
    quietStrong, ///< the chosen segment
    heading,     ///< section headings: upper case, letters spaced
    toolName,
    toolNameStrong,
    menu,
    menuShortcut,
    stat,
    pill, ///< the number of a small counter
    code,
    codeMedium,
    codeSmall,
    codeSmallMedium,
    codeCaption,
    codeValue, ///< a result in its own card
    hero,
    tag,
    tagSmall,
    document, ///< the body of a document; its six levels of headers follow in order
    header1,
    header2,
    header3,
    header4,
    header5,
    header6,
};

/// Distances and sizes by name, in pixels at a 13-pixel body text; `px` scales them.
struct Size {
    static constexpr int radiusBadge = 4;
    static constexpr int radiusSmall = 6;
    static constexpr int radiusMedium = 8;
    static constexpr int radiusLarge = 10;
    static constexpr int radiusExtraLarge = 12;
    static constexpr int screenPadding = 24;
    static constexpr int gapHeader = 12;
    static constexpr int gapSection = 16;
    static constexpr int gapHeading = 8;
    static constexpr int gapControl = 8;
    static constexpr int gapList = 4;
    static constexpr int gapBadge = 6;
    static constexpr int stripMenuPadding = 8;
    static constexpr int actionHeight = 32;
    static constexpr int actionPadding = 16;
    static constexpr int actionGlyph = 14;
    static constexpr int quietHeight = 28;
    static constexpr int quietGlyph = 12;
    static constexpr int quietCompact = 28;
    static constexpr int fieldPadding = 10;
    static constexpr int optionGap = 12;
    static constexpr int sliderKnob = 16;
    static constexpr int sliderHeight = 20;
    static constexpr int radiusBar = 2;
    static constexpr int cardPadding = 12;
    static constexpr int gapGroup = 16;
    static constexpr int gapSectionWide = 20;
    static constexpr int gapBulk = 24;
    static constexpr int minEditorHeight = 120;
    static constexpr int panelOutline = 1;
    static constexpr int focusWidth = 2;
    static constexpr int heroPaddingX = 16;
    static constexpr int heroPaddingY = 20;
    static constexpr int menuRow = 26;
    static constexpr int menuInset = 5;
    static constexpr int menuShortcutGap = 24;
    static constexpr int menuTick = 12;
    static constexpr int menuTickGap = 8;
};

/// The duration of an animated change of state, in milliseconds.
inline constexpr int motion = 200;

Scheme scheme();

/// Switches the colour scheme. Widgets that store a colour receive QEvent::PaletteChange once the window's
/// palette is set to `palette()`.
void setScheme(Scheme scheme);

/// A new style for the application: for its menus, and for what Qt itself paints. It applies to all menus,
/// also Qt's own; dialogs get the palette of their window.
QStyle* style();

/// The palette for the window: the theme's colours in Qt's roles.
QPalette palette();

/// The colour of a text or glyph: a role's colour, or the text tone of a named colour.
using Ink = std::variant<Role, PaletteColor>;

QColor color(Role role);
QColor color(const Ink& ink);
QColor withTint(PaletteColor color, Tint tint);

/// The colour of glyphs, tints and bars.
QColor hue(PaletteColor color);

/// The colour of coloured text: at least 4.5:1 on window, panel and its own tint.
QColor textTone(PaletteColor color);

/// The colour of a fill under white text, and the colour of text and glyph on it.
QColor solid(PaletteColor color);
QColor onSolid(PaletteColor color);

/// A blend of `from` and `to`, at `progress` from 0 to 1.
QColor mixed(const QColor& from, const QColor& to, double progress);

/// `size` scaled by the desktop's font.
int px(int size);
QMargins margins(int left, int top, int right, int bottom);

/// `font` with `family` instead of the generic `alias`, if `family` is installed.
QFont withDefaultFamily(QFont font, const QString& alias, const QString& family);

/// The font of the application: the desktop's, or Inter where the desktop names none. Code likewise has the
/// desktop's fixed font or JetBrains Mono.
QFont applicationFont();

/// `percent` is the text zoom.
QFont font(TextStyle style, int percent = 100);
int lineHeight(TextStyle style, int percent = 100);

/// The opacity of a disabled control.
inline constexpr double disabledOpacity = 0.45;
inline constexpr double disabledActionOpacity = 0.75;

/// The opacity of an enabled control that has nothing to act on.
inline constexpr double idleOpacity = 0.3;

} // namespace korvane::Theme
