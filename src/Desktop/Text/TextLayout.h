/// The layout of a text in rows of one height. Only what is asked for is laid out, in pieces: a piece is a
/// line, or a part of a long one. Nothing depends on the size of the text but by its logarithm.
#pragma once

#include "Desktop/Text/TextPiece.h"
#include "Utilities/Text/Rope.h"
#include "Utilities/Text/TextHistory.h"

#include <compare>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace korvane {

/// In UTF-16 units: longer lines are laid out in several pieces. Laying out a piece takes a few milliseconds,
/// which is the cost of a key press in the line.
inline constexpr int defaultMaxPieceLength = 10'000;

/// A piece and where it begins in the text, in bytes.
struct PlacedPiece {
    std::size_t start = 0;
    std::shared_ptr<const TextPiece> piece{};

    std::size_t end() const { return start + piece->size(); }

    /// Where the next piece begins.
    std::size_t next() const { return end() + piece->breakSize(); }
};

/// A row of a piece.
struct PlacedRow {
    PlacedPiece place{};
    int index = 0;

    QTextLine line() const { return place.piece->row(index); }

    /// The byte of the text at which the row begins.
    std::size_t start() const { return place.start + place.piece->rowStart(index); }
};

class TextLayout {
public:
    explicit TextLayout(int maxPieceLength = defaultMaxPieceLength) : m_maxPieceLength(maxPieceLength) {}

    const RowStyle& style() const { return m_style; }

    void setStyle(const RowStyle& style);

    const Rope& text() const { return m_text; }

    /// Removes the preedit, too.
    void setText(const Rope& text);

    /// The same, where `text` is the previous text with `change` applied. Keeps the pieces that it does not
    /// touch.
    void setText(const Rope& text, const TextChange& change);

    /// Shows `preedit` before the character at `offset`; none shows the text alone.
    void setPreedit(std::optional<Preedit> preedit, std::size_t offset);

    const std::optional<Preedit>& preedit() const { return m_preedit; }

    /// The piece with the caret before `offset`; of two pieces of a line, the second.
    PlacedPiece pieceAt(std::size_t offset) const;

    std::optional<PlacedPiece> pieceBefore(const PlacedPiece& piece) const;
    std::optional<PlacedPiece> pieceAfter(const PlacedPiece& piece) const;

    /// The row with the caret before `offset`.
    PlacedRow rowAt(std::size_t offset) const;

    std::optional<PlacedRow> rowBefore(const PlacedRow& row) const;
    std::optional<PlacedRow> rowAfter(const PlacedRow& row) const;

    /// The row that is `distance` rows below `row`, above if negative; the first or the last if there are
    /// fewer.
    PlacedRow moved(PlacedRow row, std::ptrdiff_t distance) const;

    /// Whether numbers of rows are exact, as for short texts; otherwise they are estimates, in proportion to
    /// what a row holds on average.
    bool countsExactly() const;

    /// The number of rows of the text.
    std::size_t rowCount() const;

    /// The number of rows before `row`.
    std::size_t rowsBefore(const PlacedRow& row) const;

    /// The row with `count` rows before it; the last if there are fewer.
    PlacedRow rowAfterRows(std::size_t count) const;

    /// The line with the byte `offset`, without its line break: where it begins and ends, and where the next
    /// line begins, at the end of the text if there is none.
    struct Line {
        std::size_t start = 0;
        std::size_t end = 0;
        std::size_t next = 0;
    };

    Line lineAt(std::size_t offset) const;

private:
    struct Extent {
        std::size_t start = 0;
        std::size_t end = 0;
    };

    /// Where the piece of a row begins, and the row's index in it.
    struct RowKey {
        std::size_t piece = 0;
        int index = 0;
        auto operator<=>(const RowKey&) const = default;
    };

    Extent extentAt(const Line& line, std::size_t offset) const;
    std::size_t seam(const Line& line, std::size_t unitsBefore, std::size_t ordinal) const;
    std::shared_ptr<const TextPiece> layOut(const Line& line, const Extent& extent) const;
    const std::vector<RowKey>& exactRows() const;
    double rowEstimate(const TextSummary& summary) const;

    const int m_maxPieceLength;
    RowStyle m_style{};
    double m_unitsPerRow = 80;
    Rope m_text{};
    std::optional<Preedit> m_preedit{};
    std::size_t m_preeditOffset = 0;
    mutable std::map<std::size_t, std::shared_ptr<const TextPiece>> m_pieces{}; ///< by where they begin
    mutable std::vector<RowKey> m_rows{}; ///< of a short text; empty if not computed
};

} // namespace korvane
