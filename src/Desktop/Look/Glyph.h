/// Icons by the glyph names that the screens use. The icon files are embedded; a glyph is tinted when it is
/// painted, and sharp at any scale factor.
#pragma once

#include <QBrush>
#include <QRectF>

#include <string_view>

class QPainter;

namespace korvane::Glyph {

/// Whether `name` has an icon file.
bool exists(std::string_view name);

/// Paints the glyph into the square `rect`, in the colour or gradient of `brush`. An empty name paints
/// nothing; a name without an icon file is a mistake and logs a warning.
void paint(QPainter& painter, std::string_view name, const QRectF& rect, const QBrush& brush);

/// The brush of the program's logo: cyan to teal, from the top left of `rect` to its bottom right.
QBrush brandBrush(const QRectF& rect);

} // namespace korvane::Glyph
