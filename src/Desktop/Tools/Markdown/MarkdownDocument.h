/// A text document that holds the rows of a Markdown preview, one text block for each, and changes only where
/// the rows do. It knows the looks of text; what lies behind and beside the text is painted by the view.
#pragma once

#include "Desktop/Tools/Markdown/MarkdownRow.h"

#include <QFont>
#include <QTextCharFormat>
#include <QTextDocument>

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace korvane {

/// The padding of code within a line, in pixels at a 13-pixel body text.
inline constexpr int proseChipPadding = 5;

/// The padding of a block of code, in pixels at a 13-pixel body text.
inline constexpr int proseCodePadding = 12;

/// The font of a header of `level`, from 1 to 6: the higher the level, the smaller.
QFont headerFont(int level);

/// Marks the characters of inline code.
bool isInlineCode(const QTextCharFormat& format);

class MarkdownDocument final : public QTextDocument {
public:
    explicit MarkdownDocument(QObject* parent);

    /// Shows `markdown`. Costs reading it, and writing and laying out what differs from before.
    void show(std::string_view markdown);

    /// Writes everything anew in the looks of the theme.
    void applyTheme();

    /// The row that the block of that number shows; null for the empty block behind the last row.
    const MarkdownRow* row(int blockNumber) const;

    /// The room in pixels that a box leaves above and below the text of its rows; 0 for what has none.
    static int boxPadding(MarkdownRow::Kind kind);

    /// How many rows have been written since the document was made.
    std::size_t writtenRows() const { return m_writtenRows; }

private:
    void showRows(std::vector<MarkdownRow> rows);
    void fitTop();
    void remove(std::size_t first, std::size_t last);
    void insert(std::size_t first, std::span<const MarkdownRow> rows);

    std::vector<MarkdownRow> m_rows{}; // behind their blocks there is always an empty one
    std::size_t m_writtenRows = 0;
};

} // namespace korvane
