#include "Desktop/Tools/NumberBase/ValueCard.h"

#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/SelectableText.h"

#include <QPainter>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

/// The width of the outline that marks one card among several, in pixels.
constexpr double strongOutline = 1.5;

// Sizes are in pixels at a 13-pixel body text.
constexpr int gap = 10;
constexpr int glyphSize = 16;
constexpr int textTop = 3;

/// The surface of a card, with an optional strong outline.
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
        constexpr auto width = strongOutline;
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

QWidget* valueCard(Store& store, const ValueCardParts& parts) {
    auto* surface = new CardSurface(parts.color);
    constexpr auto padding = Size::cardPadding;
    auto* copy = copyButton(store, parts.value, {.look = {.subject = parts.title}});
    fill(
        surface, Qt::Vertical, {.spacing = gap, .padding = {padding, padding, padding, padding}},
        {row({new GlyphLabel(parts.icon, glyphSize, parts.color), new Label(parts.title, TextStyle::headline),
              textLabel(store, parts.note, TextStyle::subheadline, Role::secondary), stretch(),
              new Label(parts.caption, TextStyle::caption, Role::secondary)}),
         row({growing(stack(Qt::Vertical, {.spacing = 0, .padding = {0, textTop, 0, 0}},
                            {selectableText(store, parts.title, parts.value, {.style = TextStyle::codeValue}),
                             stretch()})),
              stack(Qt::Vertical, {.spacing = 0}, {copy, stretch()})})});
    store.onRefresh(
        [surface, isOutlined = parts.isOutlined.of(store)] { surface->setOutlined(isOutlined()); });
    return surface;
}

} // namespace korvane
