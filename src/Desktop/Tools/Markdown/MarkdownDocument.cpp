#include "Desktop/Tools/Markdown/MarkdownDocument.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextZoom.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFrame>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int prosePadding = 16;
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

/// The margin around all rows, from the panel's edge, whose outline is outside the document.
constexpr int margin = prosePadding - Size::panelOutline;

struct Common {
    std::size_t prefix;
    std::size_t suffix;
};

/// The numbers of equal elements at the beginning and at the end of both.
template <typename T>
Common common(const std::vector<T>& a, const std::vector<T>& b) {
    const auto prefix = std::ranges::mismatch(a, b).in1 - a.begin();
    const auto shorter = static_cast<std::ptrdiff_t>(std::min(a.size(), b.size()));
    const auto suffix =
        std::mismatch(a.rbegin(), a.rbegin() + (shorter - prefix), b.rbegin()).first - a.rbegin();
    return {static_cast<std::size_t>(prefix), static_cast<std::size_t>(suffix)};
}

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

QTextCharFormat charFormat(const QTextCharFormat& row, const InlineRun& run) {
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

void insertRuns(QTextCursor& cursor, const MarkdownRow& row, const QTextCharFormat& rowFormat) {
    for (std::size_t run = 0; run < row.runs.size(); ++run) {
        // The background of inline code extends beyond its text.
        const bool beginsChip = run + 1 < row.runs.size() && row.runs[run + 1].isCode;
        const bool hasGap = row.runs[run].isCode || beginsChip;
        insertSpaced(cursor, textOf(row.runs[run]), charFormat(rowFormat, row.runs[run]),
                     hasGap ? Theme::px(proseChipPadding) : 0);
    }
}

/// A block inserted at the start of a document becomes the second one and takes over the text of the first.
/// Restores the format of that text, and moves to the first block, which is now empty and gets the new
/// format.
void swapWithBlockBefore(QTextCursor& cursor) {
    const auto format = cursor.blockFormat();
    const auto charFormat = cursor.blockCharFormat();
    const auto before = cursor.block().previous();
    const auto formatBefore = before.blockFormat();
    const auto charFormatBefore = before.charFormat();
    cursor.setBlockFormat(formatBefore);
    cursor.setBlockCharFormat(charFormatBefore);
    cursor.movePosition(QTextCursor::PreviousBlock);
    cursor.setBlockFormat(format);
    cursor.setBlockCharFormat(charFormat);
}

} // namespace

QFont headerFont(int level) {
    return TextZoom::font(headerStyle(level));
}

bool isInlineCode(const QTextCharFormat& format) {
    return format.boolProperty(inlineCodeProperty);
}

MarkdownDocument::MarkdownDocument(QObject* parent) : QTextDocument(parent) {
    setUndoRedoEnabled(false);
    applyTheme();
}

void MarkdownDocument::applyTheme() {
    const auto font = TextZoom::font(TextStyle::document);
    setDefaultFont(font);
    setDocumentMargin(Theme::px(margin));
    constexpr int spacesInTab = 4;
    auto option = defaultTextOption();
    option.setTabStopDistance(spacesInTab *
                              QFontMetricsF(TextZoom::font(TextStyle::codeSmall)).horizontalAdvance(u' '));
    setDefaultTextOption(option);

    auto rows = std::exchange(m_rows, {});
    clear();
    QTextBlockFormat format;
    format.setLineHeight(1, QTextBlockFormat::FixedHeight);
    QTextCursor(this).setBlockFormat(format);
    showRows(std::move(rows));
}

int MarkdownDocument::boxPadding(Kind kind) {
    return TextZoom::px(unscaledBoxPadding(kind));
}

const MarkdownRow* MarkdownDocument::row(int blockNumber) const {
    const auto index = static_cast<std::size_t>(blockNumber);
    return index < m_rows.size() ? &m_rows[index] : nullptr;
}

void MarkdownDocument::show(std::string_view markdown) {
    showRows(markdownRows(markdown));
}

void MarkdownDocument::showRows(std::vector<MarkdownRow> rows) {
    const auto same = common(m_rows, rows);
    const auto added = std::span(rows).subspan(same.prefix, rows.size() - same.prefix - same.suffix);
    const auto oldEnd = m_rows.size() - same.suffix;
    if (same.prefix < oldEnd || !added.empty()) {
        QTextCursor edit(this);
        edit.beginEditBlock();
        remove(same.prefix, oldEnd);
        insert(same.prefix, added);
        edit.endEditBlock();
    }
    m_rows = std::move(rows);
    fitTop();
    Q_ASSERT(static_cast<std::size_t>(blockCount()) == m_rows.size() + 1);
}

/// Adapts the top margin to the box of the first row, if any.
void MarkdownDocument::fitTop() {
    const auto top = documentMargin() + (m_rows.empty() ? 0 : boxPadding(m_rows.front().kind));
    auto format = rootFrame()->frameFormat();
    if (format.topMargin() == top)
        return;
    format.setTopMargin(top);
    rootFrame()->setFrameFormat(format);
}

void MarkdownDocument::remove(std::size_t first, std::size_t last) {
    if (first == last)
        return;
    const auto following = findBlockByNumber(static_cast<int>(last));
    const auto format = following.blockFormat();
    QTextCursor cursor(findBlockByNumber(static_cast<int>(first)));
    cursor.setPosition(following.position(), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.setBlockFormat(format); // the joined block may have kept the format of the removed one
}

void MarkdownDocument::insert(std::size_t first, std::span<const MarkdownRow> rows) {
    QTextCursor cursor(this);
    if (first > 0) {
        cursor.setPosition(findBlockByNumber(static_cast<int>(first) - 1).position());
        cursor.movePosition(QTextCursor::EndOfBlock);
    }
    bool isBeforeAll = first == 0;
    for (const auto& row : rows) {
        const auto format = charFormat(row);
        cursor.insertBlock(blockFormat(row), format);
        if (std::exchange(isBeforeAll, false))
            swapWithBlockBefore(cursor);
        insertRuns(cursor, row, format);
    }
    m_writtenRows += rows.size();
}

} // namespace korvane
