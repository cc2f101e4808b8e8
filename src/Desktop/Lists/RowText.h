/// Text of any length in one row: only what is visible is drawn, so a value of a megabyte costs as little as
/// a short one.
#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

class QPainter;

namespace korvane {

/// Draws `text` on one line from the left edge of `rect`, vertically centred, and returns its width as far as
/// it is visible. Line breaks and tabs are shown as spaces or, where a colour is given for them, as marks.
/// `font` is monospaced.
double drawRowText(QPainter& painter, const QRectF& rect, std::string_view text, const QFont& font,
                   const QColor& color, const std::optional<QColor>& marks = {});

/// The selected part of the text of a row, in bytes.
struct RowTextRange {
    std::size_t start = 0;
    std::size_t end = 0;
    bool goesOn = false; ///< the selection includes the end of the line and goes on in a row below

    bool isEmpty() const { return start == end && !goesOn; }

    bool operator==(const RowTextRange&) const = default;
};

/// How far right of its start the place before the byte at `offset` is in a text that is drawn by
/// `drawRowText` without marks.
double rowTextX(std::string_view text, std::size_t offset, const QFont& font);

/// The place nearest to `x`, which is counted from the start of the text.
std::size_t rowTextOffset(std::string_view text, double x, const QFont& font);

/// Fills what lies behind the selected part of a text that is drawn from the left edge of `rect`; to the
/// right edge where the selection goes on.
void paintRowSelection(QPainter& painter, const QRectF& rect, std::string_view text,
                       const RowTextRange& range, const QFont& font);

/// Draws as much of `text` on one line as fits into `rect`, with an ellipsis where something is left out.
/// Otherwise like `drawRowText`.
void drawElidedRowText(QPainter& painter, const QRectF& rect, std::string_view text, const QFont& font,
                       const QColor& color);

/// Whether something is left out in that room.
bool isElidedRowText(double width, std::string_view text, const QFont& font);

/// The beginning of `text`, of so many bytes at most, with an ellipsis where that is not all of it.
std::string startOfText(std::string_view text, std::size_t length);

/// The beginning of `text` on one line, for a control that shows no more than fits: more characters than any
/// screen is wide would only be measured. Line breaks and tabs become spaces.
std::string shortenedLine(std::string_view text);

} // namespace korvane
