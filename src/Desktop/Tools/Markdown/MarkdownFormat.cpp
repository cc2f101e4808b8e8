#include "Desktop/Tools/Markdown/MarkdownFormat.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextZoom.h"

#include <QFontMetricsF>
#include <QString>
#include <QTextCursor>

#include <cstddef>

namespace korvane {

using Theme::Role;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int proseGap = 10;
constexpr int proseItemGap = 4;
constexpr int proseHeader2Gap = 18;
constexpr int proseHeader3Gap = 16;
constexpr int proseBullet = 18;
constexpr int proseNumber = 22;
constexpr int proseLanguageGap = 4;
constexpr int proseQuoteInset = 15;
constexpr int proseQuotePadding = 2;

using Kind = MarkdownRow::Kind;

constexpr int inlineCodeProperty = QTextFormat::UserProperty;

TextStyle headerStyle(int level) {
    return static_cast<TextStyle>(static_cast<int>(TextStyle::header1) + level - 1);
}

TextStyle textStyle(const MarkdownRow& row) {
    switch (row.kind) {
    case Kind::header:
        return headerStyle(row.number);
    case Kind::language:
        return TextStyle::caption;
    case Kind::code:
        return TextStyle::codeSmall;
    case Kind::paragraph:
    case Kind::quote:
    case Kind::unorderedItem:
    case Kind::orderedItem:
    case Kind::rule:
        break;
    }
    return TextStyle::document;
}

int unscaledBoxPadding(Kind kind) {
    switch (kind) {
    case Kind::language:
    case Kind::code:
        return proseCodePadding;
    case Kind::quote:
        return proseQuotePadding;
    case Kind::header:
    case Kind::paragraph:
    case Kind::unorderedItem:
    case Kind::orderedItem:
    case Kind::rule:
        break;
    }
    return 0;
}

/// The distance between a block and the one above it.
int blockGap(const MarkdownRow& row) {
    if (row.kind != Kind::header || row.number == 1)
        return proseGap;
    return row.number == 2 ? proseHeader2Gap : proseHeader3Gap;
}

/// The distance from the text of the row above to that of this row. (The first block of a document has none.)
int topMargin(const MarkdownRow& row) {
    if (!row.above || row.continuesText)
        return 0;
    if (row.beginsBlock)
        return unscaledBoxPadding(*row.above) + blockGap(row) + unscaledBoxPadding(row.kind);
    if (row.above == Kind::language)
        return proseLanguageGap;
    return row.kind == Kind::unorderedItem || row.kind == Kind::orderedItem ? proseItemGap : 0;
}

/// The distance from the text to the end of the row. (Qt applies the larger of it and the next row's top
/// margin.)
int bottomMargin(const MarkdownRow& row) {
    if (row.endsBlock)
        return unscaledBoxPadding(row.kind);
    return row.kind == Kind::language ? proseLanguageGap : 0;
}

/// The width of an item's number, for as many digits as the highest number of its list has.
int numberIndent(const MarkdownRow& row) {
    const auto widthOfDigit = QFontMetricsF(TextZoom::font(TextStyle::document)).horizontalAdvance(u'0');
    return TextZoom::px(proseNumber) + static_cast<int>((row.digits - 1) * widthOfDigit);
}

int leftMargin(const MarkdownRow& row) {
    switch (row.kind) {
    case Kind::language:
    case Kind::code:
        return Theme::px(proseCodePadding);
    case Kind::quote:
        return Theme::px(proseQuoteInset);
    case Kind::unorderedItem:
        return TextZoom::px(proseBullet);
    case Kind::orderedItem:
        return numberIndent(row);
    case Kind::header:
    case Kind::paragraph:
    case Kind::rule:
        break;
    }
    return 0;
}

QTextCharFormat runFormat(const QTextCharFormat& row, const InlineRun& run) {
    auto format = row;
    if (run.isCode) {
        format.setFont(TextZoom::font(TextStyle::codeSmall));
        format.setProperty(inlineCodeProperty, true);
    }
    if (run.isBold)
        format.setFontWeight(QFont::Bold);
    format.setFontItalic(run.isItalic);
    format.setFontStrikeOut(run.isStruck);
    if (!run.target.empty()) {
        format.setAnchor(true);
        format.setAnchorHref(qString(run.target));
        format.setForeground(Theme::textTone(PaletteColor::blue));
        format.setFontUnderline(true);
    }
    return format;
}

/// The text of a run, without the characters that QTextDocument reserves.
QString textOf(const InlineRun& run) {
    auto text = qString(run.text);
    for (const char16_t reserved : {u'\uFDD0', u'\uFDD1', u'\uFFFC'})
        text.replace(QChar(reserved), QChar(QChar::ReplacementCharacter));
    return text;
}

/// Inserts `text` with `gap` additional space after its last character.
void insertSpaced(QTextCursor& cursor, QString text, QTextCharFormat format, int gap) {
    const bool isSimple = !text.isEmpty() && text.back() < QChar(0x300);
    if (isSimple && gap > 0) {
        cursor.insertText(text.chopped(1), format);
        text = text.back();
        format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
        format.setFontLetterSpacing(gap);
    }
    cursor.insertText(text, format);
}

} // namespace

QFont headerFont(int level) {
    return TextZoom::font(headerStyle(level));
}

bool isInlineCode(const QTextCharFormat& format) {
    return format.boolProperty(inlineCodeProperty);
}

namespace MarkdownFormat {

int boxPadding(Kind kind) {
    return TextZoom::px(unscaledBoxPadding(kind));
}

QTextBlockFormat blockFormat(const MarkdownRow& row) {
    QTextBlockFormat format;
    format.setTopMargin(TextZoom::px(topMargin(row)));
    format.setBottomMargin(TextZoom::px(bottomMargin(row)));
    format.setLeftMargin(leftMargin(row));
    if (row.kind == Kind::language || row.kind == Kind::code)
        format.setRightMargin(Theme::px(proseCodePadding));
    format.setLineHeight(row.kind == Kind::rule ? 1 : TextZoom::lineHeight(textStyle(row)),
                         QTextBlockFormat::FixedHeight);
    if (!row.runs.empty() && row.runs.front().isCode)
        format.setTextIndent(Theme::px(proseChipPadding));
    return format;
}

QTextCharFormat charFormat(const MarkdownRow& row) {
    QTextCharFormat format;
    format.setFont(TextZoom::font(textStyle(row)));
    const bool isSecondary = row.kind == Kind::quote || row.kind == Kind::language;
    format.setForeground(Theme::color(isSecondary ? Role::secondary : Role::primary));
    return format;
}

void insertRuns(QTextCursor& cursor, const MarkdownRow& row, const QTextCharFormat& rowFormat) {
    for (std::size_t run = 0; run < row.runs.size(); ++run) {
        // The background of inline code extends beyond its text.
        const bool beginsChip = run + 1 < row.runs.size() && row.runs[run + 1].isCode;
        const bool hasGap = row.runs[run].isCode || beginsChip;
        insertSpaced(cursor, textOf(row.runs[run]), runFormat(rowFormat, row.runs[run]),
                     hasGap ? Theme::px(proseChipPadding) : 0);
    }
}

} // namespace MarkdownFormat

} // namespace korvane
