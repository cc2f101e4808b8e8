#include "Desktop/Kit/ValueRow.h"

#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/Divider.h"
#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/SelectableText.h"
#include "Desktop/Kit/ViewCore.h"

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

QWidget* noteLabel(ViewCore& view, std::function<std::string()> note) {
    auto* label = new Label({}, TextStyle::subheadline, Role::secondary);
    view.onRefresh([label, note = std::move(note)] { label->display(note()); });
    return label;
}

} // namespace

QWidget* valueRow(ViewCore& view, ValueRowParts parts) {
    auto* line =
        stack(Qt::Horizontal, {.spacing = parts.gap},
              {parts.label,
               selectableText(view, {.name = parts.name,
                                     .text = parts.value,
                                     .options = {.style = parts.style, .ink = parts.ink}}),
               copyButton(view, parts.value, {.look = {.dropsLabel = true, .subject = parts.name}})});
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

QWidget* valueCard(ViewCore& view, ValueCardParts parts) {
    auto* surface = new CardSurface(parts.color);
    constexpr auto padding = Size::cardPadding;
    auto* copy = copyButton(view, parts.value, {.look = {.subject = parts.title}});
    fill(surface, Qt::Vertical,
         {.spacing = Size::valueCardGap, .padding = {padding, padding, padding, padding}},
         {row({new GlyphLabel(parts.icon, Size::valueCardGlyph, parts.color),
               new Label(parts.title, TextStyle::headline), noteLabel(view, std::move(parts.note)), stretch(),
               new Label(parts.caption, TextStyle::caption, Role::secondary)}),
          row({growing(stack(Qt::Vertical, {.spacing = 0, .padding = {0, Size::valueCardTextTop, 0, 0}},
                             {selectableText(view, {.name = parts.title,
                                                    .text = parts.value,
                                                    .options = {.style = TextStyle::codeValue}}),
                              stretch()})),
               stack(Qt::Vertical, {.spacing = 0}, {copy, stretch()})})});
    view.onRefresh(
        [surface, isOutlined = std::move(parts.isOutlined)] { surface->setOutlined(isOutlined()); });
    return surface;
}

} // namespace korvane
