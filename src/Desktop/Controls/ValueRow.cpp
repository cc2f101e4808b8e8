#include "Desktop/Controls/ValueRow.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Divider.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Text/SelectableText.h"

#include <QBoxLayout>
#include <QPainter>

#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

/// The surface of a card, with a strong outline while one is wanted.
class CardSurface final : public QWidget {
public:
    explicit CardSurface(PaletteColor color) : m_color(color) {}

    void setOutlined(bool isOutlined) {
        if (isOutlined == m_isOutlined)
            return;
        m_isOutlined = isOutlined;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const auto radius = Theme::px(Size::radiusLarge);
        paintSurface(painter, rect(), radius, Theme::color(Role::panelFill));
        if (!m_isOutlined)
            return;
        constexpr auto width = Theme::strongOutline;
        painter.setPen(QPen(Theme::hue(m_color), width));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2),
                                radius - width / 2, radius - width / 2);
    }

private:
    PaletteColor m_color;
    bool m_isOutlined = false;
};

} // namespace

QWidget* valueRow(Store& store, const ValueRowParts& parts) {
    auto* line =
        stack(Qt::Horizontal, {.spacing = parts.gap},
              {parts.label,
               selectableText(store, parts.name, parts.value, {.style = parts.style, .ink = parts.ink}),
               copyButton(store, parts.value, {.look = {.dropsLabel = true, .subject = parts.name}})});
    line->setMinimumHeight(Theme::px(parts.height));
    return line;
}

QWidget* dividedRows(const std::vector<QWidget*>& rows) {
    constexpr auto edge = Size::valueRowsEdge;
    auto* list = card({.spacing = 0, .padding = {Size::cardPadding, edge, Size::gapControl, edge}}, {});
    auto* layout = static_cast<QBoxLayout*>(list->layout());
    for (auto* row : rows) {
        if (layout->count() > 0)
            layout->addWidget(new Divider);
        layout->addWidget(row);
    }
    return list;
}

QWidget* valueCard(Store& store, const ValueCardParts& parts) {
    auto* surface = new CardSurface(parts.color);
    constexpr auto padding = Size::cardPadding;
    auto* copy = copyButton(store, parts.value, {.look = {.subject = parts.title}});
    fill(
        surface, Qt::Vertical,
        {.spacing = Size::valueCardGap, .padding = {padding, padding, padding, padding}},
        {row({new GlyphLabel(parts.icon, Size::valueCardGlyph, parts.color),
              new Label(parts.title, TextStyle::headline),
              textLabel(store, parts.note, TextStyle::subheadline, Role::secondary), stretch(),
              new Label(parts.caption, TextStyle::caption, Role::secondary)}),
         row({growing(stack(Qt::Vertical, {.spacing = 0, .padding = {0, Size::valueCardTextTop, 0, 0}},
                            {selectableText(store, parts.title, parts.value, {.style = TextStyle::codeValue}),
                             stretch()})),
              stack(Qt::Vertical, {.spacing = 0}, {copy, stretch()})})});
    store.onRefresh(
        [surface, isOutlined = parts.isOutlined.of(store)] { surface->setOutlined(isOutlined()); });
    return surface;
}

} // namespace korvane
