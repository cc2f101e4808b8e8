/// How a text of any characters lives in a text document of the toolkit, which by itself knows one kind of
/// line break only: what ends a block of the document is remembered with the break. It is not a measure of
/// lines on the screen.
#pragma once

#include "Models/Enumeration.h"

#include <QString>
#include <QStringView>
#include <QTextBlock>
#include <QTextCursor>

#include <array>

namespace korvane {

/// What stands between two blocks of a document. All but `seam` are characters of the text.
enum class LineBreak {
    lineFeed,
    carriageReturnLineFeed,
    carriageReturn,
    verticalTab,
    formFeed,
    nextLine,
    lineSeparator,
    paragraphSeparator,
    noncharacterFDD0, ///< U+FDD0 and U+FDD1 end no line, but the document keeps them for itself inside blocks
    noncharacterFDD1,
    seam, ///< nothing at all: a line too long for one block goes on in the next
};

struct LineBreakFacts {
    LineBreak value;
    QStringView text;
    int newlines;
};

template <>
inline constexpr auto facts<LineBreak> = std::to_array<LineBreakFacts>({
    {LineBreak::lineFeed, u"\n", 1},
    {LineBreak::carriageReturnLineFeed, u"\r\n", 2},
    {LineBreak::carriageReturn, u"\r", 1},
    {LineBreak::verticalTab, u"\v", 1},
    {LineBreak::formFeed, u"\f", 1},
    {LineBreak::nextLine, u"\u0085", 1},
    {LineBreak::lineSeparator, u"\u2028", 1},
    {LineBreak::paragraphSeparator, u"\u2029", 1},
    {LineBreak::noncharacterFDD0, u"\uFDD0", 0},
    {LineBreak::noncharacterFDD1, u"\uFDD1", 0},
    {LineBreak::seam, u"", 0},
});

/// The characters that `lineBreak` stands for.
QStringView textOf(LineBreak lineBreak);

/// How many newline characters they are; a CR LF is two.
int newlineCount(LineBreak lineBreak);

/// What stands before `block`, which is not the first of its document.
LineBreak lineBreakBefore(const QTextBlock& block);

/// Whether `block` goes on with the line of the block before it.
bool continuesLine(const QTextBlock& block);

/// Whether the toolkit's own ways of inserting keep `text` as it is.
bool isInsertedExactly(QStringView text);

/// Replaces the selection of `cursor` by exactly `text`, in one step of the history. No block gets more than
/// `longestPiece` UTF-16 units at once. Half a surrogate pair, which no text can hold, becomes U+FFFD.
void insertExactly(QTextCursor& cursor, const QString& text, int longestPiece);

/// The characters of `document` from position `start` to `end`.
QString exactText(const QTextDocument& document, int start, int end);

/// How many UTF-16 units of the exact text are before `position`.
int offsetOf(const QTextDocument& document, int position);

/// The position before which `offset` units of the exact text are; from within a line break, the one before
/// it.
int positionAt(const QTextDocument& document, int offset);

/// Makes the seams next to an edit from position `start` to `end` good again, as a part of that edit: cuts
/// blocks of more than twice `longestPiece`, joins blocks without a character to their neighbours. Does
/// nothing to a document that an undo or redo has brought back.
void mendSeams(QTextDocument& document, int start, int end, int longestPiece);

} // namespace korvane
