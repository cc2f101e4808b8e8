#include "Desktop/Tools/Diff/StatBadgeLabel.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QFontMetrics>
#include <QLabel>
#include <QPainter>

#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int dotSize = 8;
constexpr int paddingX = 10;
constexpr int paddingY = 6;

class StatBadgeLabel final : public QLabel {
public:
    StatBadgeLabel() { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

    void display(const StatBadge& badge) {
        if (badge == m_badge)
            return;
        m_badge = badge;
        setText(qString(badge.text()));
        setAccessibleName(text());
    }

    QSize sizeHint() const override {
        return {textLeft() + QFontMetrics(Theme::font(TextStyle::quiet)).horizontalAdvance(text()) + 1 +
                    Theme::px(paddingX),
                Theme::lineHeight(TextStyle::quiet) + 2 * Theme::px(paddingY)};
    }

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const auto fill = m_badge.color ? Theme::withTint(*m_badge.color, Theme::Tint::badge)
                                        : Theme::color(Role::plainBadgeFill);
        paintSurface(painter, rect(), Theme::px(Size::radiusSmall), fill);
        const auto dot = Theme::px(dotSize);
        painter.setBrush(m_badge.color ? Theme::hue(*m_badge.color) : Theme::color(Role::secondary));
        painter.drawEllipse(QRectF(Theme::px(paddingX), (height() - dot) / 2.0, dot, dot));
        painter.setFont(Theme::font(TextStyle::quiet));
        painter.setPen(Theme::color(Role::secondary));
        painter.drawText(rect().adjusted(textLeft(), 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, text());
    }

private:
    static int textLeft() { return Theme::px(paddingX) + Theme::px(dotSize) + Theme::px(Size::gapBadge); }

    StatBadge m_badge;
};

} // namespace

QWidget* statBadge(Store& store, const Reader<StatBadge>& badge) {
    auto* label = new StatBadgeLabel;
    store.onRefresh([label, badge = badge.of(store)] { label->display(badge()); });
    return label;
}

} // namespace korvane
