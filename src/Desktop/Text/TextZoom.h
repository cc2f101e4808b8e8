/// How large the texts of editors, outputs, comparisons and previews are shown. It is one size for all of
/// them: the eyes that read them are the same, and what stands side by side stays comparable. It lasts for as
/// long as the program runs.
#pragma once

#include "Desktop/Look/Theme.h"

#include <functional>

class QAbstractScrollArea;

namespace korvane::TextZoom {

inline constexpr int normal = 100;
inline constexpr int smallest = 50;
inline constexpr int largest = 400;

int percent();

/// Goes on to the next larger or smaller size, as far as there is one.
void zoomIn();
void zoomOut();

/// The theme's font, height of line and distance at the present size.
QFont font(Theme::TextStyle style);
int lineHeight(Theme::TextStyle style);
int px(int size);

/// Has `apply` called whenever the size changes, for as long as `area` lives. The wheel over `area`, turned
/// with the Control key held down, changes the size.
void follow(QAbstractScrollArea* area, std::function<void()> apply);

} // namespace korvane::TextZoom
