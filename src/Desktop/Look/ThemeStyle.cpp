#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QBitmap>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>

#include <algorithm>

namespace korvane::Theme {

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int stripMenuHeight = 24;
constexpr int menuPadding = 10;
constexpr int minMenuWidth = 160;
constexpr int menuCaptionPadding = 4;
constexpr int menuChevron = 10;

constexpr int textFlags = Qt::TextSingleLine | Qt::TextHideMnemonic | Qt::AlignVCenter;

/// Whether the item is the heading of a group, which has a smaller font than the other items.
bool isCaption(const QStyleOptionMenuItem& item) {
    return item.font.pixelSize() < font(TextStyle::menu).pixelSize();
}

/// The distance from the left edge of the item to its title.
int titleInset(const QStyleOptionMenuItem& item) {
    return px(menuPadding) + (item.menuHasCheckableItems ? px(Size::menuTick) + px(Size::menuTickGap) : 0);
}

/// The size of the item without its keys, for which the menu itself adds room.
QSize menuItemSize(const QStyleOptionMenuItem& item, int titleWidth) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return {px(minMenuWidth), 1 + 2 * px(Size::menuInset)};
    const bool hasMore = item.text.contains('\t') || item.menuItemType == QStyleOptionMenuItem::SubMenu;
    const int width =
        titleInset(item) + titleWidth + (hasMore ? px(Size::menuShortcutGap) : 0) + px(menuPadding);
    const int height =
        isCaption(item) ? lineHeight(TextStyle::caption) + 2 * px(menuCaptionPadding) : px(Size::menuRow);
    return {std::max(width, px(minMenuWidth)), height};
}

void paintGlyph(QPainter& painter, const char* name, double left, const QRect& row, int size,
                const QColor& color) {
    Glyph::paint(painter, name, QRectF(left, row.top() + (row.height() - size) / 2.0, size, size), color);
}

void paintMenuItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    const auto padding = px(menuPadding);
    const auto content = item.rect.adjusted(padding, 0, -padding, 0);
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(QRect(content.left(), content.center().y(), content.width(), 1),
                         color(Role::divider));
        return;
    }
    const bool isEnabled = item.state & QStyle::State_Enabled;
    const bool isSelected = isEnabled && (item.state & QStyle::State_Selected);
    if (isSelected)
        paintSurface(painter, item.rect, px(Size::radiusSmall), color(Role::accent));
    const auto quiet = color(isSelected ? Role::onAccent : Role::secondary);
    const auto ink = isEnabled && !isSelected ? color(Role::primary) : quiet;
    if (item.checked)
        paintGlyph(painter, "checkmark", content.left(), item.rect, px(Size::menuTick), ink);
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const auto size = px(menuChevron);
        paintGlyph(painter, "chevron.right", content.right() + 1 - size, item.rect, size, quiet);
    }
    const auto texts = item.text.split('\t');
    painter.setFont(item.font);
    painter.setPen(ink);
    painter.drawText(item.rect.adjusted(titleInset(item), 0, -padding, 0), textFlags | Qt::AlignLeft,
                     texts.front());
    if (texts.size() > 1) {
        painter.setFont(font(TextStyle::menuShortcut));
        painter.setPen(quiet);
        painter.drawText(content, textFlags | Qt::AlignRight, texts.back());
    }
}

/// The surface of a menu, which fills its window.
void paintMenu(QPainter& painter, const QRect& rect) {
    paintSurface(painter, rect, px(Size::radiusLarge), color(Role::popupBackground),
                 color(Role::outlineStrong));
}

/// The pixels that `paintMenu` touches, including those that it covers partly at the corners.
QRegion menuRegion(const QRect& rect) {
    QBitmap shape(rect.size());
    shape.fill(Qt::color0);
    QPainter painter(&shape);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(shape.rect().adjusted(0, 0, -1, -1), px(Size::radiusLarge),
                            px(Size::radiusLarge));
    painter.end();
    return QRegion(shape).translated(rect.topLeft());
}

void paintMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    const bool isOpen = item.state & QStyle::State_Sunken;
    const bool isSelected = item.state & QStyle::State_Selected;
    if (isOpen || isSelected)
        paintSurface(painter, item.rect, px(Size::radiusSmall),
                     color(isOpen ? Role::controlPressed : Role::controlHover));
    painter.setFont(font(TextStyle::menu));
    painter.setPen(color(isOpen || isSelected ? Role::primary : Role::secondary));
    painter.drawText(item.rect, textFlags | Qt::AlignHCenter, item.text);
}

/// Qt's Fusion style with the changes of the theme.
class Style final : public QProxyStyle {
public:
    Style() : QProxyStyle(QStringLiteral("fusion")) {}

    using QProxyStyle::polish;

    /// Menus and dialogs are separate windows, which would have the desktop's colours by default.
    void polish(QWidget* widget) override {
        QProxyStyle::polish(widget);
        if (qobject_cast<QMenu*>(widget) || qobject_cast<QDialog*>(widget))
            widget->setAttribute(Qt::WA_WindowPropagation);
        if (qobject_cast<QMenu*>(widget))
            widget->setAttribute(Qt::WA_TranslucentBackground); // for its rounded corners
        if (qobject_cast<QMenu*>(widget) || qobject_cast<QMenuBar*>(widget))
            widget->setFont(font(TextStyle::menu));
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_UnderlineShortcut)
            return 0; // the mnemonics still work
        if (hint == SH_Slider_AbsoluteSetButtons)
            return Qt::LeftButton; // a press moves the slider there
        if (hint == SH_Widget_Animation_Duration)
            return motion;
        auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(data);
        if (hint == SH_Menu_Mask && option && mask) {
            mask->region = menuRegion(option->rect); // without a compositor the corners would be black
            return 1;
        }
        return QProxyStyle::styleHint(hint, option, widget, data);
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        switch (metric) {
        case PM_SliderLength:
        case PM_SliderControlThickness:
            return px(Size::sliderKnob);
        case PM_SliderThickness:
            return px(Size::sliderHeight);
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return px(Size::menuInset);
        case PM_MenuPanelWidth:
        case PM_MenuBarPanelWidth:
        case PM_MenuBarItemSpacing:
        case PM_MenuBarHMargin:
        case PM_MenuBarVMargin:
            return 0;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (type == CT_MenuItem && item)
            return menuItemSize(*item, size.width());
        if (type == CT_MenuBarItem)
            return {size.width() + 2 * px(Size::stripMenuPadding), px(stripMenuHeight)};
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (element == CE_MenuEmptyArea || element == CE_MenuBarEmptyArea)
            return;
        if (item && (element == CE_MenuItem || element == CE_MenuBarItem)) {
            painter->save();
            (element == CE_MenuItem ? paintMenuItem : paintMenuBarItem)(*painter, *item);
            painter->restore();
            return;
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_PanelMenu) {
            painter->save();
            paintMenu(*painter, option->rect);
            painter->restore();
        } else if (element != PE_FrameMenu) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    }
};

} // namespace

QStyle* style() {
    return new Style;
}

} // namespace korvane::Theme
