/// Text of any length in one row: only what is visible is drawn, so a value of a megabyte costs as little as
/// a short one.
#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>

#include <cstddef>
#include <string>
#include <string_view>

class QPainter;

namespace korvane {

/// Draws `text` on one line from the left edge of `rect`, vertically centred, and returns its width as far as
/// it is visible. Line breaks and tabs are shown as spaces. `font` is monospaced.
double drawRowText(QPainter& painter, const QRectF& rect, std::string_view text, const QFont& font,
                   const QColor& color);

/// Draws as much of `text` on one line as fits into `rect`, with an ellipsis where something is left out, and
/// returns whether it is. Otherwise like `drawRowText`.
bool drawElidedRowText(QPainter& painter, const QRectF& rect, std::string_view text, const QFont& font,
                       const QColor& color);

/// How many columns of a monospaced font `text` takes at most: one for a character of few bytes, two for the
/// others, which may be wide.
std::size_t columnCount(std::string_view text);

/// The beginning of `text` on one line, for a control that shows no more than fits: more characters than any
/// screen is wide would only be measured. Line breaks and tabs become spaces.
std::string shortenedLine(std::string_view text);

} // namespace korvane
