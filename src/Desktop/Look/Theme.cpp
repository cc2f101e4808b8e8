#include "Desktop/Look/Theme.h"

#include <QApplication>
#include <QFontInfo>

#include <algorithm>
#include <cmath>

namespace korvane::Theme {

namespace {

constexpr double bodySize = 13;

/// The size of the desktop's font relative to the one that the sizes are designed for. A smaller font is only
/// a default where the desktop names none, and does not shrink the window.
double scaleFactor() {
    return std::max(1.0, QFontInfo(QApplication::font()).pixelSize() / bodySize);
}

} // namespace

QPalette palette() {
    QPalette palette;
    palette.setColor(QPalette::Window, color(Role::windowBackground));
    palette.setColor(QPalette::Base, color(Role::windowBackground));
    palette.setColor(QPalette::AlternateBase, color(Role::sidebarBackground));
    palette.setColor(QPalette::Button, color(Role::overlayFill));
    palette.setColor(QPalette::ToolTipBase, color(Role::popupBackground));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::HighlightedText, QPalette::ToolTipText})
        palette.setColor(role, color(Role::primary));
    auto disabled = color(Role::primary);
    disabled.setAlphaF(static_cast<float>(disabledOpacity));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabled);
    palette.setColor(QPalette::PlaceholderText, color(Role::placeholder));
    palette.setColor(QPalette::Highlight, color(Role::selection));
    return palette;
}

int px(int size) {
    return static_cast<int>(std::lround(size * scaleFactor()));
}

QMargins margins(int left, int top, int right, int bottom) {
    return {px(left), px(top), px(right), px(bottom)};
}

} // namespace korvane::Theme
