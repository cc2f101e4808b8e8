#include "Desktop/Kit/Theme.h"

#include <QApplication>
#include <QFontInfo>
#include <QProxyStyle>
#include <QString>

#include <algorithm>
#include <cmath>

namespace korvane::Theme {

namespace {

constexpr double bodySize = 13;

/// The desktop's font in relation to the one that the sizes are meant for. A smaller font than that is only a
/// toolkit's default where no desktop names one, and does not shrink the window.
double scaleFactor() {
    return std::max(1.0, QFontInfo(QApplication::font()).pixelSize() / bodySize);
}

/// `color` for a style sheet.
QString css(const QColor& color) {
    return QStringLiteral("rgba(%1,%2,%3,%4)")
        .arg(color.red())
        .arg(color.green())
        .arg(color.blue())
        .arg(color.alpha());
}

/// The toolkit's style, except for what the theme wants otherwise.
class Style final : public QProxyStyle {
public:
    Style() : QProxyStyle(QStringLiteral("fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_UnderlineShortcut)
            return 0; // the letters work all the same
        if (hint == SH_Slider_AbsoluteSetButtons)
            return Qt::LeftButton; // a slider goes where it is pressed
        if (hint == SH_Widget_Animation_Duration)
            return motion;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        if (metric == PM_SliderLength || metric == PM_SliderControlThickness)
            return px(Size::sliderKnob);
        if (metric == PM_SliderThickness)
            return px(Size::sliderHeight);
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

QStyle* style() {
    return new Style;
}

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
    palette.setColor(QPalette::PlaceholderText, color(Role::placeholder));
    palette.setColor(QPalette::Highlight, color(Role::selection));
    return palette;
}

QString menuStyleSheet() {
    const auto menuPixels = font(TextStyle::menu).pixelSize();
    const auto bodyPixels = font(TextStyle::body).pixelSize();
    return QStringLiteral(
               "QMenuBar { background: transparent; border: none; padding: 0; spacing: 0; font-size: %1px; }"
               "QMenuBar::item { background: transparent; color: %2; padding: %3px %4px;"
               " border-radius: %5px; }"
               "QMenuBar::item:selected { background: %6; color: %7; }"
               "QMenuBar::item:pressed { background: %8; color: %7; }")
               .arg(menuPixels)
               .arg(css(color(Role::secondary)))
               .arg((px(Size::stripMenuHeight) - lineHeight(TextStyle::menu)) / 2)
               .arg(px(Size::stripMenuPadding))
               .arg(px(Size::radiusSmall))
               .arg(css(color(Role::controlHover)), css(color(Role::primary)),
                    css(color(Role::controlPressed))) +
           QStringLiteral("QMenu { background: %1; border: 1px solid %2; border-radius: %3px; padding: %4px;"
                          " color: %5; font-size: %6px; }"
                          "QMenu::item { padding: %13px %7px; min-width: %14px; border-radius: %8px; "
                          "background: transparent; }"
                          "QMenu::item:selected { background: %9; color: %10; }"
                          "QMenu::item:disabled { color: %11; background: transparent; }"
                          "QMenu::separator { height: 1px; background: %12; margin: %4px %7px; }")
               .arg(css(color(Role::popupBackground)), css(color(Role::outlineStrong)))
               .arg(px(Size::radiusLarge))
               .arg(px(Size::menuInset))
               .arg(css(color(Role::primary)))
               .arg(bodyPixels)
               .arg(px(Size::menuPadding))
               .arg(px(Size::radiusSmall))
               .arg(css(color(Role::accent)), css(color(Role::onAccent)), css(color(Role::secondary)),
                    css(color(Role::divider)))
               .arg((px(Size::menuRow) - lineHeight(TextStyle::headline)) / 2)
               .arg(px(Size::menuMinimumWidth));
}

int px(int size) {
    return static_cast<int>(std::lround(size * scaleFactor()));
}

QMargins margins(int left, int top, int right, int bottom) {
    return {px(left), px(top), px(right), px(bottom)};
}

} // namespace korvane::Theme
