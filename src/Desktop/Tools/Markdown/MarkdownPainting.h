/// Paints what is behind and beside the text of a row of a Markdown preview: boxes, bars, markers and lines.
#pragma once

#include "Desktop/Tools/Markdown/MarkdownRow.h"

class QPainter;
class QTextBlock;

namespace korvane {

/// Paints in the coordinates of the document, of `block`, which has the text of `row`. The view is `width`
/// pixels wide.
void paintMarkdownRow(QPainter& painter, const QTextBlock& block, const MarkdownRow& row, int width);

} // namespace korvane
