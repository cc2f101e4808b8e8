/// Exact texts in a QTextDocument, which supports only one kind of line break: the kind is stored with each
/// break between blocks. Unrelated to wrapped lines on the screen.
#pragma once

#include "Models/Enumeration.h"

#include <QString>
#include <QStringView>
#include <QTextBlock>
#include <QTextCursor>

#include <array>

namespace korvane {

/// The separator of two blocks of a document. All but `seam` are characters of the text.
enum class LineBreak {
    lineFeed,
    carriageReturnLineFeed,
    carriageReturn,
    verticalTab,
    formFeed,
    nextLine,
    lineSeparator,
    paragraphSeparator,
    noncharacterFDD0, ///< U+FDD0 and U+FDD1 end no line, but inside blocks the document reserves them
    noncharacterFDD1,
    seam, ///< no character: a line too long for one block continues in the next
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

/// The characters of `lineBreak`.
QStringView textOf(LineBreak lineBreak);

/// The number of newline characters in it; a CR LF is two.
int newlineCount(LineBreak lineBreak);

/// The separator before `block`, which is not the first of its document.
LineBreak lineBreakBefore(const QTextBlock& block);

/// Whether `block` continues the line of the block before it.
bool continuesLine(const QTextBlock& block);

/// Whether Qt's own insertion preserves `text` exactly.
bool isInsertedExactly(QStringView text);

/// Replaces the selection of `cursor` by exactly `text`, as one step of the history. No block gets more than
/// `maxPieceLength` UTF-16 units at once. Lone surrogates, which no text can contain, become U+FFFD.
void insertExactly(QTextCursor& cursor, const QString& text, int maxPieceLength);

/// The characters of `document` from position `start` to `end`.
QString exactText(const QTextDocument& document, int start, int end);

/// The number of UTF-16 units of the exact text before `position`.
int offsetOf(const QTextDocument& document, int position);

/// The position after `offset` units of the exact text; for an offset inside a line break, the position
/// before the break.
int positionAt(const QTextDocument& document, int offset);

/// Repairs the seams next to an edit from position `start` to `end`, as a part of that edit: splits blocks of
/// more than twice `maxPieceLength` units, and joins empty blocks to their neighbours. Does nothing to a
/// document that an undo or redo has restored.
void repairSeams(QTextDocument& document, int start, int end, int maxPieceLength);

} // namespace korvane
