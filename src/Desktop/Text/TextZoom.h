/// The zoom of the texts in editors, outputs, comparisons and previews. One value for all, so that texts side
/// by side stay comparable; it is not saved.
#pragma once

#include "Desktop/Look/Theme.h"

#include <functional>

class QAbstractScrollArea;

namespace korvane::TextZoom {

inline constexpr int normal = 100;
inline constexpr int minPercent = 50;
inline constexpr int maxPercent = 400;

int percent();

/// Changes to the next larger or smaller size, if there is one.
void zoomIn();
void zoomOut();

/// The theme's font, line height and distance at the current zoom.
QFont font(Theme::TextStyle style);
int lineHeight(Theme::TextStyle style);
int px(int size);

/// Calls `apply` whenever the zoom changes, for the lifetime of `area`. Turning the wheel over `area` with
/// the Control key held down changes the zoom.
void follow(QAbstractScrollArea* area, std::function<void()> apply);

} // namespace korvane::TextZoom
