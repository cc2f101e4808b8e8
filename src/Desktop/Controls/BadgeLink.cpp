#include "Desktop/Controls/BadgeLink.h"

#include "Desktop/Access/AccessibleButton.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int paddingX = 12;
constexpr int paddingY = 8;
constexpr int glyphSize = 14;
constexpr int arrowSize = 12;
constexpr int arrowGap = 8;
constexpr int lineHeight = 16;

int textLeft() {
    return Theme::px(paddingX) + Theme::px(glyphSize) + Theme::px(Size::gapBadge);
}

int textRight() {
    return Theme::px(arrowGap) + Theme::px(arrowSize) + Theme::px(paddingX);
}

} // namespace

BadgeLink::BadgeLink() {
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    giveFocusRing(this, this, Size::radiusMedium);
}

void BadgeLink::display(const StatusBadge& badge) {
    if (badge == m_badge)
        return;
    m_badge = badge;
    setText(qString(badge.message));
    setShortcut({}); // Qt would derive one from an ampersand in the message
    korvane::setAccessibleName(*this, text());
    updateGeometry();
    update();
}

QAccessibleInterface* BadgeLink::newAccessibleInterface() {
    return newLinkInterface(this);
}

int BadgeLink::textWidth(int width) const {
    return std::max(1, width - textLeft() - textRight());
}

/// The message in lines of `width` pixels, with the place underlined while the pointer is over the badge.
std::unique_ptr<QTextLayout> BadgeLink::layOut(int width) const {
    auto layout = std::make_unique<QTextLayout>(text(), Theme::font(TextStyle::body));
    if (const auto place = text().indexOf(qString(m_badge.place)); underMouse() && place >= 0) {
        QTextCharFormat underlined;
        underlined.setFontUnderline(true);
        layout->setFormats(
            {{static_cast<int>(place), static_cast<int>(qString(m_badge.place).size()), underlined}});
    }
    layout->beginLayout();
    qreal top = 0;
    for (auto line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, top});
        top += Theme::px(lineHeight);
    }
    layout->endLayout();
    return layout;
}

QSize BadgeLink::sizeHint() const {
    const auto width = QFontMetrics(Theme::font(TextStyle::body)).horizontalAdvance(text());
    return {textLeft() + width + 1 + textRight(), Theme::px(lineHeight) + 2 * Theme::px(paddingY)};
}

QSize BadgeLink::minimumSizeHint() const {
    return {2 * textLeft() + textRight(), sizeHint().height()};
}

int BadgeLink::heightForWidth(int width) const {
    return layOut(textWidth(width))->lineCount() * Theme::px(lineHeight) + 2 * Theme::px(paddingY);
}

void BadgeLink::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto status = color(m_badge.status);
    const auto tint = isDown()       ? Theme::Tint::linkPressed
                      : underMouse() ? Theme::Tint::linkHover
                                     : Theme::Tint::badge;
    paintSurface(painter, rect(), Theme::px(Size::radiusMedium), Theme::withTint(status, tint));
    const auto center = Theme::px(paddingY) + Theme::px(lineHeight) / 2.0;
    const auto paintGlyph = [&](std::string_view name, qreal left, int size, const QColor& ink) {
        Glyph::paint(painter, name, QRectF(left, center - size / 2.0, size, size), ink);
    };
    paintGlyph(korvane::icon(m_badge.status), Theme::px(paddingX), Theme::px(glyphSize), Theme::hue(status));
    const auto layout = layOut(textWidth(width()));
    painter.setPen(Theme::color(Role::primary));
    const auto leading = (Theme::px(lineHeight) - QFontMetricsF(Theme::font(TextStyle::body)).height()) / 2;
    layout->draw(&painter, {static_cast<qreal>(textLeft()), Theme::px(paddingY) + leading});
    paintGlyph("arrow.right", width() - Theme::px(paddingX) - Theme::px(arrowSize), Theme::px(arrowSize),
               Theme::textTone(status));
}

void BadgeLink::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void BadgeLink::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}

} // namespace korvane
