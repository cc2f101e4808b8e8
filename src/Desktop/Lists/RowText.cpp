#include "Desktop/Lists/RowText.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/Theme.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

/// The size of the pieces that a long text is measured and drawn in.
constexpr std::size_t pieceSize = 1024;

bool isTrailingByte(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

bool isASCII(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

bool isBreakOrTab(QChar character) {
    return character == '\n' || character == '\r' || character == '\t' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

QString onOneLine(std::string_view text) {
    auto line = qString(text);
    for (auto& character : line) {
        if (isBreakOrTab(character))
            character = ' ';
    }
    return line;
}

/// The mark that is drawn in place of a line break or a tab.
QChar markOf(QChar character) {
    if (character == '\t')
        return QChar(0x21E5); // an arrow to a bar
    return QChar(character == '\r' ? 0x240D : 0x21B5);
}

/// About `pieceSize` bytes, and no part of a character.
std::string_view firstPiece(std::string_view text) {
    auto length = std::min(pieceSize, text.size());
    while (length < text.size() && isTrailingByte(text[length]))
        ++length;
    return text.substr(0, length);
}

/// How many UTF-16 units the first `bytes` of `text` are, and back.
int unitsOf(std::string_view text, std::size_t bytes) {
    return static_cast<int>(qString(text.substr(0, bytes)).size());
}

std::size_t bytesOf(QStringView units) {
    return static_cast<std::size_t>(units.toUtf8().size());
}

/// A piece of a text and where in the text it is, in bytes and in pixels.
class Piece {
public:
    Piece(std::string_view text, std::size_t start, double left, const QFont& font)
        : m_text(text),
          m_start(start),
          m_left(left),
          m_font(font),
          m_isASCII(isASCII(text)),
          m_width(widthOf(QFontMetricsF(font))) {}

    std::string_view text() const { return m_text; }

    double left() const { return m_left; }

    double right() const { return m_left + m_width; }

    std::size_t end() const { return m_start + m_text.size(); }

    /// Of the place before the byte at `offset` of the whole text.
    double xOf(std::size_t offset) const {
        if (m_isASCII)
            return m_left + static_cast<double>(offset - m_start) * column();
        const Line line(*this);
        return m_left + line->cursorToX(unitsOf(m_text, offset - m_start));
    }

    std::size_t offsetAt(double x) const {
        if (m_isASCII) {
            const auto columns = std::max(std::round((x - m_left) / column()), 0.0);
            return m_start + std::min(static_cast<std::size_t>(columns), m_text.size());
        }
        const Line line(*this);
        return m_start + bytesOf(QStringView(line.string()).first(line->xToCursor(x - m_left)));
    }

    /// From where to where the selected characters reach. Those of text of both directions may be in several
    /// places.
    void eachExtent(std::size_t from, std::size_t to, const auto& visit) const {
        if (m_isASCII)
            return visit(xOf(from), xOf(to));
        const Line line(*this);
        const auto last = unitsOf(m_text, to - m_start);
        for (auto unit = unitsOf(m_text, from - m_start); unit < last; ++unit) {
            const auto [left, right] = std::minmax(
                {line->cursorToX(unit, QTextLine::Leading), line->cursorToX(unit, QTextLine::Trailing)});
            visit(m_left + left, m_left + right);
        }
    }

private:
    /// The piece as laid out by Qt.
    class Line {
    public:
        explicit Line(const Piece& piece) : m_layout(onOneLine(piece.m_text), piece.m_font) {
            QTextOption option;
            option.setTextDirection(Qt::LeftToRight);
            option.setWrapMode(QTextOption::NoWrap);
            m_layout.setTextOption(option);
            m_layout.beginLayout();
            m_line = m_layout.createLine();
            m_layout.endLayout();
        }

        QString string() const { return m_layout.text(); }

        const QTextLine* operator->() const { return &m_line; }

    private:
        QTextLayout m_layout;
        QTextLine m_line;
    };

    double column() const { return QFontMetricsF(m_font).horizontalAdvance('0'); }

    double widthOf(const QFontMetricsF& metrics) const {
        return m_isASCII ? static_cast<double>(m_text.size()) * metrics.horizontalAdvance('0')
                         : metrics.horizontalAdvance(onOneLine(m_text));
    }

    std::string_view m_text;
    std::size_t m_start;
    double m_left;
    const QFont& m_font;
    bool m_isASCII;
    double m_width;
};

/// Passes the pieces of `text` in order until `visit` returns false. An empty text has one, too.
void eachPiece(std::string_view text, const QFont& font, const auto& visit) {
    std::size_t start = 0;
    double left = 0;
    do {
        const Piece piece(firstPiece(text.substr(start)), start, left, font);
        if (!visit(piece))
            return;
        start = piece.end();
        left = piece.right();
    } while (start < text.size());
}

/// The visible range of a row, in pixels from the left edge of `rect`.
std::pair<double, double> visiblePart(const QPainter& painter, const QRectF& rect) {
    const auto visible = painter.hasClipping() ? painter.clipBoundingRect() : QRectF(painter.viewport());
    return {visible.left() - rect.left(), visible.right() - rect.left()};
}

/// Draws the line breaks and tabs of a piece as marks in a colour of their own.
void drawWithMarks(QPainter& painter, QPointF place, const QString& text, const QColor& color,
                   const QColor& marks) {
    const QFontMetricsF metrics(painter.font());
    for (qsizetype start = 0; start < text.size();) {
        auto end = start + 1;
        const bool isMark = isBreakOrTab(text[start]);
        while (!isMark && end < text.size() && !isBreakOrTab(text[end]))
            ++end;
        painter.setPen(isMark ? marks : color);
        const auto part = text.sliced(start, end - start);
        painter.drawText(place, isMark ? QString(markOf(part[0])) : part);
        place.rx() += metrics.horizontalAdvance(isMark ? QStringLiteral(" ") : part);
        start = end;
    }
}

/// The start of `text` and an ellipsis, on one line of that width; none where all of it fits.
std::optional<QString> elided(std::string_view text, const QFont& font, double width) {
    const QFontMetricsF metrics(font);
    // What one column shows may be joined from many characters, but hardly from more bytes than these.
    constexpr double bytesOfColumn = 32;
    auto length =
        static_cast<std::size_t>(std::max(width, 0.0) / metrics.horizontalAdvance('0') * bytesOfColumn);
    length = std::min(length, text.size());
    while (length < text.size() && isTrailingByte(text[length]))
        ++length;
    const auto start = onOneLine(text.substr(0, length));
    auto shown = metrics.elidedText(start, Qt::ElideRight, width);
    if (shown != start)
        return shown;
    return length < text.size() ? std::optional(shown + QChar(0x2026)) : std::nullopt;
}

} // namespace

double drawRowText(QPainter& painter, const QRectF& rect, std::string_view text, const QFont& font,
                   const QColor& color, const std::optional<QColor>& marks) {
    const QFontMetricsF metrics(font);
    const auto visible = visiblePart(painter, rect);
    const auto baseline = rect.top() + (rect.height() + metrics.ascent() - metrics.descent()) / 2;
    painter.setFont(font);
    painter.setPen(color);
    double width = 0;
    eachPiece(text, font, [&](const Piece& piece) {
        const QPointF place(rect.left() + piece.left(), baseline);
        width = piece.right();
        if (width >= visible.first && marks)
            drawWithMarks(painter, place, qString(piece.text()), color, *marks);
        else if (width >= visible.first)
            painter.drawText(place, onOneLine(piece.text()));
        return width < visible.second; // nothing is drawn, nor follows, beyond the right edge
    });
    return width;
}

double rowTextX(std::string_view text, std::size_t offset, const QFont& font) {
    double x = 0;
    eachPiece(text, font, [&](const Piece& piece) {
        x = piece.xOf(std::min(offset, piece.end()));
        return piece.end() < offset;
    });
    return x;
}

std::size_t rowTextOffset(std::string_view text, double x, const QFont& font) {
    std::size_t offset = 0;
    eachPiece(text, font, [&](const Piece& piece) {
        offset = piece.offsetAt(x);
        return piece.right() < x;
    });
    return offset;
}

void paintRowSelection(QPainter& painter, const QRectF& rect, std::string_view text,
                       const RowTextRange& range, const QFont& font) {
    if (range.isEmpty())
        return;
    const auto fill = [&](double left, double right) {
        painter.fillRect(QRectF(QPointF(std::round(rect.left() + left), rect.top()),
                                QPointF(std::round(rect.left() + right), rect.bottom())),
                         Theme::color(Theme::Role::selection));
    };
    const auto to = visiblePart(painter, rect).second;
    std::size_t start = 0;
    double right = 0;
    eachPiece(text, font, [&](const Piece& piece) {
        const auto from = std::max(range.start, start);
        const auto end = std::min(range.end, piece.end());
        if (from < end)
            piece.eachExtent(from, end, fill);
        start = piece.end();
        right = piece.right();
        return right < to;
    });
    if (range.goesOn && right < rect.width())
        fill(right, rect.width());
}

void drawElidedRowText(QPainter& painter, const QRectF& rect, std::string_view text, const QFont& font,
                       const QColor& color) {
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     elided(text, font, rect.width()).value_or(onOneLine(text)));
}

bool isElidedRowText(double width, std::string_view text, const QFont& font) {
    return elided(text, font, width).has_value();
}

std::string startOfText(std::string_view text, std::size_t length) {
    if (text.size() <= length)
        return std::string(text);
    while (length > 0 && isTrailingByte(text[length]))
        --length;
    return std::string(text.substr(0, length)) + "…";
}

std::string shortenedLine(std::string_view text) {
    const auto piece = firstPiece(text);
    return utf8String(onOneLine(piece)) + (piece.size() < text.size() ? "…" : "");
}

} // namespace korvane
