/// A text document with the rows of a Markdown preview, one text block for each, updated only where the rows
/// change. It formats the text; the view paints what is behind and beside the text.
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

/// The font of a header of `level`, from 1 (the largest) to 6.
QFont headerFont(int level);

/// Whether `format` is that of inline code.
bool isInlineCode(const QTextCharFormat& format);

class MarkdownDocument final : public QTextDocument {
public:
    explicit MarkdownDocument(QObject* parent);

    /// Shows `markdown`. Costs parsing it, and inserting and laying out what differs from before.
    void show(std::string_view markdown);

    /// Recreates all rows in the current theme.
    void applyTheme();

    /// The row of the block of that number; null for the empty block after the last row.
    const MarkdownRow* row(int blockNumber) const;

    /// The padding in pixels of a box above and below the text of its rows; 0 for kinds without a box.
    static int boxPadding(MarkdownRow::Kind kind);

    /// The number of rows that have been inserted since construction.
    std::size_t writtenRows() const { return m_writtenRows; }

private:
    void showRows(std::vector<MarkdownRow> rows);
    void fitTop();
    void remove(std::size_t first, std::size_t last);
    void insert(std::size_t first, std::span<const MarkdownRow> rows);

    std::vector<MarkdownRow> m_rows{}; // an empty block always follows theirs
    std::size_t m_writtenRows = 0;
};

} // namespace korvane
