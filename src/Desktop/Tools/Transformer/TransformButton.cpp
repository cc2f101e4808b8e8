#include "Desktop/Tools/Transformer/TransformButton.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Glyph.h"

#include <QFontMetricsF>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::Tint;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int tileHeight = 52;
constexpr int tilePadding = 10;
constexpr int tileGlyph = 15;
constexpr int tileGap = 4;
constexpr int tileColumnGap = 10;
constexpr int tileRowGap = 8;

constexpr auto chosenColor = PaletteColor::teal;
constexpr int columnCount = 3;
constexpr double minScale = 0.8; // a title that needs a smaller font is elided instead

/// The direction of an arrow key, in columns and rows; null for other keys.
QPoint stepOf(int key) {
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

} // namespace

TransformButton::TransformButton(std::string_view title, std::string_view icon) : GlyphButton(title, icon) {
    setCheckable(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMetrics({.style = Theme::TextStyle::quiet,
                .height = tileHeight,
                .padding = tilePadding,
                .glyph = tileGlyph,
                .gap = tileGap,
                .radius = Size::radiusMedium});
}

QSize TransformButton::sizeHint() const {
    const auto font = Theme::font(m_metrics.style);
    const auto title = QFontMetricsF(font).horizontalAdvance(text()) * minScale;
    return {static_cast<int>(title) + 2 * Theme::px(m_metrics.padding), Theme::px(m_metrics.height)};
}

void TransformButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(Theme::disabledOpacity);
    const bool isHovered = underMouse() && isEnabled();
    auto ink = Theme::color(Role::primary);
    if (isChecked()) {
        const auto tint = isDown() ? Tint::tilePressed : (isHovered ? Tint::tileHover : Tint::tile);
        paintBackground(painter, Theme::withTint(chosenColor, tint), Theme::hue(chosenColor));
        if (!isHovered && !isDown()) // not readable on a stronger background
            ink = Theme::textTone(chosenColor);
    } else {
        const auto fill =
            isDown() ? Role::controlPressed : (isHovered ? Role::controlHover : Role::controlFill);
        paintBackground(painter, Theme::color(fill));
    }
    const auto glyph = Theme::px(m_metrics.glyph);
    const auto line = Theme::lineHeight(m_metrics.style);
    const auto gap = Theme::px(m_metrics.gap);
    const auto top = (height() - glyph - gap - line) / 2.0;
    Glyph::paint(painter, m_icon, QRectF((width() - glyph) / 2.0, top, glyph, glyph), ink);
    painter.setPen(ink);
    const auto padding = Theme::px(m_metrics.padding);
    paintTitle(painter, QRect(padding, qCeil(top) + glyph + gap, width() - 2 * padding, line));
}

/// The arrow keys move the focus by position without pressing a button.
void TransformButton::keyPressEvent(QKeyEvent* event) {
    const auto* grid = qobject_cast<QGridLayout*>(parentWidget()->layout());
    const auto step = stepOf(event->key());
    if (!grid || step.isNull()) {
        GlyphButton::keyPressEvent(event);
        return;
    }
    int row = 0;
    int column = 0;
    int span = 0;
    grid->getItemPosition(grid->indexOf(this), &row, &column, &span, &span);
    if (const auto* neighbour = grid->itemAtPosition(row + step.y(), column + step.x()))
        neighbour->widget()->setFocus(Qt::TabFocusReason);
}

/// A title that does not fit is set smaller before it is elided.
void TransformButton::paintTitle(QPainter& painter, const QRect& line) const {
    auto font = Theme::font(m_metrics.style);
    const auto scale = line.width() / QFontMetricsF(font).horizontalAdvance(text());
    if (scale < 1)
        font.setPixelSize(static_cast<int>(font.pixelSize() * std::max(scale, minScale)));
    painter.setFont(font);
    painter.drawText(line, Qt::AlignCenter,
                     QFontMetricsF(font).elidedText(text(), Qt::ElideRight, line.width()));
}

QWidget* transformButtons(Store& store, const std::vector<TransformButtonParts>& buttons) {
    std::vector<QWidget*> tiles;
    for (const auto& parts : buttons) {
        auto* button = new TransformButton(parts.title, parts.icon);
        tiles.push_back(button);
        store.onRefresh(
            [button, isSelected = parts.isSelected.of(store)] { button->setChecked(isSelected()); });
        QObject::connect(button, &QAbstractButton::clicked, button, parts.select.on(store));
    }
    return grid(columnCount, {.columnGap = tileColumnGap, .rowGap = tileRowGap}, tiles);
}

} // namespace korvane
