/// A line of a text, or a piece of a long one, laid out in rows.
#pragma once

#include <QString>
#include <QTextLayout>

#include <cstddef>
#include <string_view>
#include <vector>

namespace korvane {

/// A text that an input method has not committed yet, at a place in a piece.
struct Preedit {
    QString text{};
    int caret = 0; ///< in UTF-16 units of `text`; negative if it is hidden
    QList<QTextLayout::FormatRange> formats{};
};

/// How lines are divided into rows.
struct RowStyle {
    QFont font{};
    qreal left = 0;     ///< from the view's edge to the rows, in pixels
    qreal width = 1;    ///< of a row
    int lineHeight = 1; ///< of a row
    Qt::Alignment alignment = Qt::AlignLeft;
    bool breaksValuesAnywhere = false; ///< breaks lines without a space at any character
    bool operator==(const RowStyle&) const = default;
};

/// Positions inside the piece are in UTF-16 units of what is shown, or in bytes of the text. Each ill-formed
/// sequence of bytes is shown as U+FFFD.
class TextPiece {
public:
    /// `utf8` is the piece without the characters that end the line; they have `breakSize` bytes, none if the
    /// line continues or the text ends.
    TextPiece(std::string_view utf8, std::size_t breakSize, bool endsLine);

    /// The same with `preedit` shown before the character at `place`. Its units are at this byte.
    TextPiece(std::string_view utf8, std::size_t breakSize, bool endsLine, const Preedit& preedit,
              std::size_t place);

    TextPiece(const TextPiece&) = delete;
    TextPiece& operator=(const TextPiece&) = delete;

    /// The size in bytes without the line break.
    std::size_t size() const { return m_size; }

    std::size_t breakSize() const { return m_breakSize; }

    /// Whether the line ends with this piece.
    bool endsLine() const { return m_endsLine; }

    const QString& text() const { return m_text; }

    int length() const { return static_cast<int>(m_text.size()); }

    /// The first unit at or after `byte`.
    int unitAt(std::size_t byte) const;

    /// The byte at which the character of `unit` begins.
    std::size_t byteAt(int unit) const;

    void layOut(const RowStyle& style);

    int rowCount() const { return m_layout.lineCount(); }

    QTextLine row(int index) const { return m_layout.lineAt(index); }

    /// The index of the row with the caret before `unit`; of two rows, the second.
    int rowWith(int unit) const;

    /// The first byte of a row.
    std::size_t rowStart(int index) const { return byteAt(row(index).textStart()); }

    const QTextLayout& layout() const { return m_layout; }

private:
    std::size_t m_size;
    std::size_t m_breakSize;
    bool m_endsLine;
    QString m_text{};           ///< with the preedit text
    std::vector<int> m_bytes{}; ///< of each unit and of the end; empty if every unit is one byte
    QList<QTextLayout::FormatRange> m_formats{};
    QTextLayout m_layout{};
};

/// The distance from the top of a row to the baseline of its text, which is centred in the row.
qreal baselineOf(const RowStyle& style);

/// Lays out `layout` in rows; returns their number.
int layRows(QTextLayout& layout, const RowStyle& style);

/// The offset at which to draw a line of a layout, which moves it to the baseline that all rows share.
QPointF drawingOffset(const QTextLine& line, const RowStyle& style);

} // namespace korvane
