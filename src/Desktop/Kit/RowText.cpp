#include "Desktop/Kit/RowText.h"

#include "Desktop/Kit/Strings.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

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

QString onOneLine(std::string_view text) {
    auto line = qString(text);
    for (auto& character : line) {
        if (character == '\n' || character == '\r' || character == '\t' ||
            character == QChar::LineSeparator || character == QChar::ParagraphSeparator)
            character = ' ';
    }
    return line;
}

/// About `pieceSize` bytes, and no part of a character.
std::string_view firstPiece(std::string_view text) {
    auto length = std::min(pieceSize, text.size());
    while (length < text.size() && isTrailingByte(text[length]))
        ++length;
    return text.substr(0, length);
}

} // namespace

double drawRowText(QPainter& painter, const QRectF& rect, std::string_view text, const QFont& font,
                   const QColor& color) {
    const QFontMetricsF metrics(font);
    const auto visible = painter.hasClipping() ? painter.clipBoundingRect() : QRectF(painter.viewport());
    const auto baseline = rect.top() + (rect.height() + metrics.ascent() - metrics.descent()) / 2;
    painter.setFont(font);
    painter.setPen(color);
    double x = rect.left();
    while (!text.empty() && x < visible.right()) { // nothing is drawn, nor follows, beyond the right edge
        const auto piece = firstPiece(text);
        const auto width = isASCII(piece) ? static_cast<double>(piece.size()) * metrics.horizontalAdvance('0')
                                          : metrics.horizontalAdvance(onOneLine(piece));
        if (x + width >= visible.left())
            painter.drawText(QPointF(x, baseline), onOneLine(piece));
        x += width;
        text.remove_prefix(piece.size());
    }
    return x - rect.left();
}

bool drawElidedRowText(QPainter& painter, const QRectF& rect, std::string_view text, const QFont& font,
                       const QColor& color) {
    const QFontMetricsF metrics(font);
    // What one column shows may be joined from many characters, but hardly from more bytes than these.
    constexpr double bytesOfColumn = 32;
    auto length = static_cast<std::size_t>(rect.width() / metrics.horizontalAdvance('0') * bytesOfColumn);
    length = std::min(length, text.size());
    while (length < text.size() && isTrailingByte(text[length]))
        ++length;
    const auto start = onOneLine(text.substr(0, length));
    auto shown = metrics.elidedText(start, Qt::ElideRight, rect.width());
    const bool isElided = shown != start || length < text.size();
    if (isElided && shown == start)
        shown += QChar(0x2026);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
    return isElided;
}

std::size_t columnCount(std::string_view text) {
    std::size_t columns = 0;
    for (const char byte : text) {
        if (!isTrailingByte(byte))
            columns += static_cast<unsigned char>(byte) >= 0xE0 ? 2 : 1;
    }
    return columns;
}

std::string shortenedLine(std::string_view text) {
    const auto piece = firstPiece(text);
    return utf8String(onOneLine(piece)) + (piece.size() < text.size() ? "…" : "");
}

} // namespace korvane
