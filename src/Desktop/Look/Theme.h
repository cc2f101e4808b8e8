/// Everything about looks: colours in light and dark, sizes, radii, gaps and fonts. No other file of the
/// program holds a literal colour, size or style sheet. Sizes are pixels for a 13-pixel body text and grow
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

/// The colours that have one meaning each; tints of the ink are translucent and painted over what lies below.
enum class Role {
    windowBackground,
    sidebarBackground,
    sidebarEdge,
    windowEdge,
    divider,
    popupBackground,
    primary,
    secondary,
    toolName, ///< primary at 90 %: the name of a tool that is not selected
    shortcut, ///< of a tool
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
    selection, ///< under what is selected, where only primary text is readable
    hoverOnColor,
    pressedOnColor,
    disabledFill,
    dropFill,      ///< of a place that something can be dropped on, while it is over it
    unchangedLine, ///< primary at 70 %: a line that is the same in both texts
    plainBadgeFill,
};

/// How strongly a colour is laid over the surface, in percent.
enum class Tint {
    row = 10,
    badge = 10,
    diffLine = 15,
    toggle = 14,
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
    prose, ///< for reading more than a line
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
    pill, ///< the figure of a small counter
    code,
    codeMedium,
    codeSmall,
    codeSmallMedium,
    codeCaption,
    codeValue, ///< a result in a card of its own
    hero,
    tag,
    tagSmall,
    document, ///< the running text of one; the six levels of its headers follow in their order
    header1,
    header2,
    header3,
    header4,
    header5,
    header6,
};

/// Distances and sizes by name, in pixels at a 13-pixel body text; `px` scales them.
struct Size {
    static constexpr int radiusBadge = 4, radiusSmall = 6, radiusMedium = 8, radiusLarge = 10,
                         radiusExtraLarge = 12;
    static constexpr int screenPadding = 24, headerTop = 4, headerBottom = 16, bodyTop = 4;
    static constexpr int gapHeader = 12, gapSection = 16, gapHeading = 8, gapControl = 8, gapList = 4,
                         gapBadge = 6, gapQuiet = 4;
    static constexpr int stripHeight = 36, stripMenuHeight = 24, stripMenuPadding = 8, windowButton = 28,
                         windowButtonGap = 4;
    static constexpr int windowGlyphMinimise = 13, windowGlyphMaximise = 11, windowGlyphClose = 12;
    static constexpr int windowGrip = 5;
    static constexpr int sidebarInset = 8, sidebarTextInset = 18, brandHeight = 46, brandGlyph = 18,
                         brandGap = 8, sidebarRow = 48, sidebarRowPadding = 10, sidebarIconBox = 32,
                         sidebarGlyph = 15, sidebarTextGap = 12, shortcutPaddingX = 6, shortcutPaddingY = 2,
                         searchHeight = 32, searchGlyph = 13, searchGap = 8, searchTop = 8, searchBottom = 4,
                         footerHeight = 37, footerGlyph = 13;
    static constexpr int headerTile = 44, headerGlyph = 21;
    static constexpr int actionHeight = 32, actionPadding = 16, actionGlyph = 14;
    static constexpr int quietHeight = 28, quietPadding = 10, quietGlyph = 12, quietCompact = 28,
                         iconButton = 24;
    static constexpr int segmentedHeight = 32, segmentedInset = 2, segmentGap = 5, segmentPadding = 10;
    static constexpr int fieldHeight = 32, fieldPadding = 10, fieldGap = 6;
    static constexpr int switchWidth = 34, switchHeight = 20, switchKnob = 16, switchInset = 2;
    static constexpr int checkbox = 16, checkboxTick = 10, optionRow = 28, optionGap = 12;
    static constexpr int sliderTrack = 4, sliderKnob = 16, sliderHeight = 20, sliderMinimumWidth = 60,
                         radiusBar = 2;
    static constexpr int stepperHeight = 28, stepperButton = 28, stepperGlyph = 11;
    static constexpr int tagWidth = 70, tagHeight = 28, tagSmallHeight = 24;
    static constexpr int cardPadding = 12;
    static constexpr int hashRowPadding = 12, hashRowGap = 12, hashLengthWidth = 62, hashLengthHeight = 21;
    static constexpr int componentRow = 36, componentLabel = 88, componentGap = 12, chipPaddingX = 6,
                         chipHeight = 22, componentsPadding = 6, componentsGapTop = 6,
                         componentsGapBottom = 10;
    static constexpr int statusGap = 12;
    static constexpr int promptGlyph = 28;
    static constexpr int diffTitlePaddingX = 12, diffTitlePaddingY = 8, diffRow = 20, diffPaddingY = 4,
                         diffNumber = 40, diffNumberGap = 8, diffPrefix = 16, diffPaddingRight = 8;
    static constexpr int statBadgeDot = 8, statBadgePaddingX = 10, statBadgePaddingY = 6;
    static constexpr int busyRing = 14, busyRingWidth = 2;
    static constexpr int gapGroup = 16, gapSectionWide = 20, gapBulk = 24;
    static constexpr int badgePaddingX = 12, badgePaddingY = 8, badgeGlyph = 14, badgeLine = 16;
    static constexpr int headingGlyph = 12;
    static constexpr int statGlyph = 16, statPaddingX = 16, statPaddingY = 12, statGap = 6, statCardGap = 10;
    static constexpr int tileHeight = 52, tilePadding = 10, tileGlyph = 15, tileGap = 4, tileColumnGap = 10,
                         tileRowGap = 8;
    static constexpr int gutterPadding = 8, editorInset = 8, editorInsetRight = 12, simpleEditorInset = 12,
                         overlayInset = 8, overlayReserve = 40, overlayReserveLabelled = 92,
                         editorMinimumHeight = 120;
    static constexpr int scrollWidth = 5, scrollWidthHover = 7, scrollInset = 2, scrollThumbMinimum = 32,
                         scrollEndInset = 3;
    static constexpr int panelOutline = 1;
    static constexpr int focusWidth = 2;
    static constexpr int treeRow = 20, treeIndent = 20, treeChevronBox = 16, treeChevron = 10, treeGlyph = 11,
                         treeValueGap = 8, treeGap = 4, treePaddingX = 8, treePaddingY = 10;
    static constexpr int historyHeader = 40, historyHeaderLeft = 12, historyHeaderRight = 8,
                         historyPadding = 8, historyRow = 36, historyRowPadding = 10, historyButtonInset = 4,
                         historyDot = 8, historyGap = 12;
    static constexpr int strengthWidth = 100, strengthHeight = 6, strengthGap = 4;
    static constexpr int heroPaddingX = 16, heroPaddingY = 20, proseInset = 16, pillWidth = 84,
                         pillPadding = 8;
    static constexpr int menuPickerHeight = 28, menuPickerLeft = 10, menuPickerRight = 8,
                         menuPickerGlyph = 11;
    static constexpr int dropGlyph = 40, dropPadding = 16, imageMinimum = 150, secondaryGlyph = 13;
    static constexpr int calendarDayWidth = 28, calendarDayHeight = 24, calendarHeading = 20, calendarGap = 2;
    static constexpr int timeFieldHeight = 28, timeFieldLeft = 10, timeFieldRight = 6, timeFieldGap = 4,
                         timeFieldGlyph = 11;
    static constexpr int valueCardGap = 10, valueCardGlyph = 16, valueCardTextTop = 3, valueRowsEdge = 2;
    static constexpr int swatchHeight = 150, checkerCell = 10;
    static constexpr int colorWellWidth = 44, colorWellHeight = 28, colorWellInset = 4, colorWellRadius = 3;
    static constexpr int prosePadding = 16, proseGap = 10, proseItemGap = 4, proseHeader2Gap = 18,
                         proseHeader3Gap = 16, proseBullet = 18, proseNumber = 22, proseMarkerGap = 8,
                         proseCodePadding = 12, proseLanguageGap = 4, proseQuoteBar = 3, proseQuoteInset = 15,
                         proseQuotePadding = 2, proseChipPadding = 5, proseChipHeight = 18;
    static constexpr int matchRow = 32, matchListPadding = 8, matchCountInset = 2, matchCountBottom = 4,
                         matchCardPadding = 2, matchCardLeft = 10, matchCardRight = 4, matchHeading = 64,
                         matchIndent = 16, matchListMinimum = 180;
    static constexpr int resultMinimum = 66, resultMaximum = 192, resultReserve = 84;
    static constexpr int referenceGlyph = 13, referenceColumnGap = 12, referenceRowGap = 8;
    static constexpr int compactWidth = 640;
    static constexpr int welcomeGlyph = 64, welcomeTitleTop = 20, welcomeMessageTop = 8, welcomeTilesTop = 32,
                         welcomeTile = 112, welcomeTileGap = 16, welcomeTilePadding = 16,
                         welcomeTileGlyph = 20, welcomeBottom = 36;
    static constexpr int menuRow = 26, menuPadding = 10, menuInset = 5, menuMinimumWidth = 160,
                         menuShortcutGap = 24, menuTick = 12, menuTickGap = 8, menuCaptionPadding = 4,
                         menuChevron = 10;
};

/// The opacity of the glyph in a place to drop something on.
inline constexpr double dropGlyphOpacity = 0.8;

/// The length of the dashes around a place to drop something on, and of the gaps, in widths of the line.
inline constexpr double dropDash = 2.5;

/// The width of an outline that marks one card among several, in pixels.
inline constexpr double strongOutline = 1.5;

/// How long a change of state takes to show, in milliseconds.
inline constexpr int motion = 200;

Scheme scheme();

/// Switches all looks. Widgets that keep a colour hear of it as QEvent::PaletteChange once the window's
/// palette is set to `palette()`.
void setScheme(Scheme scheme);

/// A new style for the application: the look of its menus, and of what the toolkit still does by itself. All
/// menus have it, whoever made them; dialogs get the palette of the window that they belong to.
QStyle* style();

/// The palette for the window: the theme's colours in the toolkit's roles.
QPalette palette();

/// What a text or glyph is painted in: a role's colour, or a named colour in the tone for text.
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

/// `font`, in `family` where the desktop names no family but the generic `alias` and `family` is installed.
QFont withDefaultFamily(QFont font, const QString& alias, const QString& family);

/// The font of the application: the desktop's, or Inter where the desktop has chosen none. Code has the
/// desktop's fixed font or JetBrains Mono in the same way.
QFont applicationFont();

/// At a size other than 100 `percent`, as the user has zoomed the text.
QFont font(TextStyle style, int percent = 100);
int lineHeight(TextStyle style, int percent = 100);

/// The opacity of a disabled control.
inline constexpr double disabledOpacity = 0.45;
inline constexpr double disabledActionOpacity = 0.75;

/// The opacity of a control that works but has nothing to work on.
inline constexpr double idleOpacity = 0.3;

} // namespace korvane::Theme
