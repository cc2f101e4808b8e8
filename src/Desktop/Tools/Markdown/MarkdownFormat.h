/// The formats of the rows of a Markdown preview in a text document: margins, fonts and colours, in the
/// current theme and zoom. All distances are whole pixels.
#pragma once

#include "Desktop/Tools/Markdown/MarkdownRow.h"

#include <QFont>
#include <QTextBlockFormat>
#include <QTextCharFormat>

class QTextCursor;

namespace korvane {

/// The padding of code within a line, in pixels at a 13-pixel body text.
inline constexpr int proseChipPadding = 5;

/// The padding of a block of code, in pixels at a 13-pixel body text.
inline constexpr int proseCodePadding = 12;

/// The font of a header of `level`, from 1 (the largest) to 6.
QFont headerFont(int level);

/// Whether `format` is that of inline code.
bool isInlineCode(const QTextCharFormat& format);

namespace MarkdownFormat {

/// The padding in pixels of a box above and below the text of its rows; 0 for kinds without a box.
int boxPadding(MarkdownRow::Kind kind);

/// The margins and the line height of the row's block. Lines have a fixed height. The distance of two rows
/// is the larger of the bottom margin of the first and the top margin of the second.
QTextBlockFormat blockFormat(const MarkdownRow& row);

/// The format of text in the row that has no style.
QTextCharFormat charFormat(const MarkdownRow& row);

/// Inserts the text of the row, for which `charFormat` gave `rowFormat`.
void insertRuns(QTextCursor& cursor, const MarkdownRow& row, const QTextCharFormat& rowFormat);

} // namespace MarkdownFormat

} // namespace korvane
