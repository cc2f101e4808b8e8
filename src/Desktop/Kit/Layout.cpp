#include "Desktop/Kit/Layout.h"

#include "Desktop/Kit/Accessibility.h"
#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/OverlayScrollBar.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/TabStops.h"
#include "Desktop/Kit/ViewCore.h"
#include "Desktop/Kit/WrappingLayout.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QGridLayout>
#include <QScrollArea>
#include <QTimer>

#include <algorithm>

namespace korvane {

using Theme::Size;

namespace {

/// The part of a screen below its header.
class ScreenBody final : public QScrollArea {
public:
    explicit ScreenBody(QWidget* content) {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setFocusPolicy(Qt::NoFocus);
        viewport()->setAutoFillBackground(false);
        setWidget(content);
        content->setAutoFillBackground(false);
        new OverlayScrollBar(Qt::Vertical, this, this);
        new OverlayScrollBar(Qt::Horizontal, this, this);
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (now && widget()->isAncestorOf(now))
                revealFocus(now);
        });
    }

    QSize minimumSizeHint() const override { return {0, 0}; }

    bool isNarrow() const { return width() < Theme::px(Size::compactWidth); }

    /// Scrolls so far that `part` is seen, or of a large one as much as there is room for from its start.
    void reveal(const QWidget* part) {
        const auto margin = Theme::px(Size::bodyTop);
        const QSize room = viewport()->size() - QSize(2 * margin, 2 * margin);
        const QRect place(part->mapTo(widget(), QPoint()), part->size().boundedTo(room));
        ensureVisible(place.right(), place.bottom(), margin, margin);
        ensureVisible(place.left(), place.top(), margin, margin);
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        dropLabels();
        QScrollArea::resizeEvent(event);
    }

    bool event(QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest)
            dropLabels(); // of buttons that have come since
        return QScrollArea::event(event);
    }

private:
    /// Scrolls so far that `control` is seen with the ring around it, from wherever the focus came.
    void revealFocus(QWidget* control) {
        const auto margin = Theme::px(Size::bodyTop);
        auto* frame = ringFrame(control);
        const bool fits = frame->height() + 2 * margin <= viewport()->height();
        ensureWidgetVisible(fits ? frame : control, margin, margin);
    }

    void dropLabels() const {
        for (auto* child : widget()->findChildren<QWidget*>()) {
            if (auto* button = dynamic_cast<QuietButton*>(child))
                button->setCompact(isNarrow());
        }
    }
};

/// The scrolling part of the screen around `widget`, or null outside of screens.
ScreenBody* bodyAround(const QWidget* widget) {
    auto* around = widget->parentWidget();
    while (around && !dynamic_cast<ScreenBody*>(around))
        around = around->parentWidget();
    return static_cast<ScreenBody*>(around);
}

/// A grid whose rows are all as high as the highest needs to be at its width.
class EvenGrid final : public QWidget {
protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        makeEven();
    }

    bool event(QEvent* event) override {
        const bool isHandled = QWidget::event(event);
        if (event->type() == QEvent::LayoutRequest)
            makeEven();
        return isHandled;
    }

private:
    void makeEven() {
        auto* grid = static_cast<QGridLayout*>(layout());
        int height = 0;
        for (int index = 0; index < grid->count(); ++index) {
            auto* item = grid->itemAt(index);
            const auto width = item->geometry().width();
            const bool dependsOnWidth = width > 0 && item->hasHeightForWidth();
            height =
                std::max(height, dependsOnWidth ? item->heightForWidth(width) : item->sizeHint().height());
        }
        for (int row = 0; row < grid->rowCount(); ++row) {
            if (grid->rowMinimumHeight(row) != height)
                grid->setRowMinimumHeight(row, height);
        }
    }
};

/// A panel with a button over its top right corner.
class Overlay final : public QWidget {
public:
    Overlay(QWidget* panel, QWidget* button) : m_panel(panel), m_button(button) {
        setSizePolicy(panel->sizePolicy());
        setFocusProxy(panel);
        panel->setParent(this);
        button->setParent(this);
    }

    QSize sizeHint() const override { return m_panel->sizeHint(); }

    QSize minimumSizeHint() const override { return m_panel->minimumSizeHint(); }

    /// What the panel is called, and the button acts on.
    void setSubject(const std::string& subject) {
        if (auto* button = dynamic_cast<QuietButton*>(m_button))
            button->setSubject(subject);
    }

protected:
    void resizeEvent(QResizeEvent*) override { place(); }

    bool event(QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest) {
            place();
            updateGeometry(); // the panel may need another height now
        }
        return QWidget::event(event);
    }

private:
    void place() {
        m_panel->setGeometry(rect());
        const auto size = m_button->sizeHint();
        const auto inset = Theme::px(Size::overlayInset);
        m_button->setGeometry(width() - inset - size.width(), inset, size.width(), size.height());
        m_button->raise();
    }

    QWidget* m_panel;
    QWidget* m_button;
};

/// Moves the focus, where `hidden` has it, to the first control of `shown` that may have it. The toolkit
/// would move it anywhere.
void handFocusOver(QWidget* hidden, QWidget* shown) {
    const auto* focused = hidden->window()->focusWidget();
    if (!focused || !hidden->isAncestorOf(focused))
        return;
    const auto stops = tabStops(*shown);
    if (const auto successor = std::ranges::find_if(stops, isSuccessor); successor != stops.end())
        (*successor)->setFocus();
}

} // namespace

void fill(QWidget* container, Qt::Orientation orientation, const StackOptions& options,
          std::initializer_list<Item> items) {
    auto* layout = new QBoxLayout(
        orientation == Qt::Horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, container);
    layout->setSpacing(Theme::px(options.spacing));
    const auto& padding = options.padding;
    layout->setContentsMargins(
        Theme::margins(padding.left(), padding.top(), padding.right(), padding.bottom()));
    for (const auto& item : items) {
        if (!item.widget) {
            layout->addStretch(1);
            continue;
        }
        // A text that is as high as it needs to be stands in the middle of a higher row.
        const bool isCentred = orientation == Qt::Horizontal && item.widget->sizePolicy().hasHeightForWidth();
        const bool hasOwnShare = item.widget->sizePolicy().horizontalStretch() > 0;
        layout->addWidget(item.widget, options.equalShares && !hasOwnShare ? 1 : 0,
                          isCentred ? Qt::AlignVCenter : Qt::Alignment());
    }
}

QWidget* stack(Qt::Orientation orientation, const StackOptions& options, std::initializer_list<Item> items) {
    auto* container = new QWidget;
    fill(container, orientation, options, items);
    return container;
}

QWidget* row(std::initializer_list<Item> items) {
    return stack(Qt::Horizontal, {}, items);
}

QWidget* columns(std::initializer_list<Item> items) {
    return stack(Qt::Horizontal, {.spacing = Size::gapSection, .equalShares = true}, items);
}

QWidget* screen(QWidget* header, std::initializer_list<Item> items) {
    auto* content =
        stack(Qt::Vertical,
              {.spacing = Size::gapSection,
               .padding = {Size::screenPadding, Size::bodyTop, Size::screenPadding, Size::screenPadding}},
              items);
    auto* head =
        stack(Qt::Vertical,
              {.spacing = 0,
               .padding = {Size::screenPadding, Size::headerTop, Size::screenPadding, Size::headerBottom}},
              {header});
    head->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return stack(Qt::Vertical, {.spacing = 0}, {head, new ScreenBody(content)});
}

bool isInNarrowScreen(const QWidget* widget) {
    const auto* body = bodyAround(widget);
    return body && body->isNarrow();
}

void bringIntoView(QWidget* widget) {
    QTimer::singleShot(0, widget, [widget] {
        auto* body = bodyAround(widget);
        if (body && widget->isVisible())
            body->reveal(widget);
    });
}

QWidget* wrappingRow(std::initializer_list<Item> items, int spacing) {
    auto* container = new QWidget;
    auto* layout = new WrappingLayout(container, Theme::px(spacing), Theme::px(Size::gapControl));
    for (const auto& item : items) {
        if (item.widget)
            layout->addWidget(item.widget);
        else
            layout->addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding));
    }
    // A fixed height would be that of a single line, whatever the width.
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    container->setSizePolicy(policy);
    return container;
}

QWidget* grid(int columnCount, int spacing, std::initializer_list<QWidget*> items) {
    auto* container = new EvenGrid;
    auto* layout = new QGridLayout(container);
    layout->setContentsMargins({});
    layout->setSpacing(Theme::px(spacing));
    int index = 0;
    for (auto* item : items) {
        layout->addWidget(item, index / columnCount, index % columnCount);
        layout->setColumnStretch(index % columnCount, 1);
        layout->setRowStretch(index / columnCount, 1);
        ++index;
    }
    return container;
}

QWidget* card(const CardOptions& options, std::initializer_list<Item> items) {
    const auto fillColor = [tint = options.tint] {
        return tint ? Theme::withTint(*tint, Theme::Tint::row) : Theme::color(Theme::Role::panelFill);
    };
    const auto outlineColor = [tint = options.tint] {
        return tint ? Theme::withTint(*tint, Theme::Tint::outline) : Theme::color(Theme::Role::outline);
    };
    auto* surface = new Surface(fillColor, options.radius,
                                options.hasOutline ? std::function<QColor()>(outlineColor) : nullptr);
    fill(surface, options.orientation, {.spacing = options.spacing, .padding = options.padding}, items);
    return surface;
}

QWidget* withHeight(int height, QWidget* widget) {
    widget->setSizePolicy(widget->sizePolicy().horizontalPolicy(),
                          QSizePolicy::Fixed); // else what is around it would grow in its place
    widget->setFixedHeight(Theme::px(height));
    return widget;
}

QWidget* withWidth(int width, QWidget* widget) {
    widget->setFixedWidth(Theme::px(width));
    return widget;
}

QWidget* withMinimumHeight(int height, QWidget* widget) {
    widget->setMinimumHeight(Theme::px(height));
    return widget;
}

void setShown(QWidget* widget, bool isShown) {
    if (widget->parentWidget() || !isShown)
        widget->setVisible(isShown);
}

QWidget* growing(QWidget* widget) {
    auto policy = widget->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Expanding);
    policy.setVerticalPolicy(QSizePolicy::Expanding);
    widget->setSizePolicy(policy);
    return widget;
}

QWidget* sharing(int share, QWidget* widget) {
    auto policy = growing(widget)->sizePolicy();
    policy.setHorizontalStretch(share);
    policy.setVerticalStretch(share);
    widget->setSizePolicy(policy);
    return widget;
}

QWidget* rigid(QWidget* widget) {
    auto policy = widget->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Fixed);
    widget->setSizePolicy(policy);
    return widget;
}

QWidget* rigidHeight(QWidget* widget) {
    auto policy = widget->sizePolicy();
    policy.setVerticalPolicy(QSizePolicy::Maximum);
    widget->setSizePolicy(policy);
    return widget;
}

QWidget* section(ViewCore& view, std::function<std::string()> title, std::function<std::string()> icon,
                 QWidget* content, QWidget* trailing) {
    auto* target = focusTarget(content);
    auto* overlay = dynamic_cast<Overlay*>(content);
    view.onRefresh([target, overlay, title] {
        const auto name = title();
        setAccessibleName(*target, qString(name));
        if (overlay)
            overlay->setSubject(name);
    });
    auto* heading = sectionHeading(view, std::move(title), std::move(icon));
    return stack(Qt::Vertical, {.spacing = Size::gapHeading},
                 {trailing ? row({heading, trailing}) : heading, content});
}

QWidget* overlay(QWidget* panel, QWidget* button) {
    return new Overlay(panel, button);
}

QWidget* either(ViewCore& view, std::function<bool()> condition, QWidget* yes, QWidget* no) {
    auto* place = stack(Qt::Vertical, {.spacing = 0}, {yes, no});
    view.onRefresh([yes, no, condition = std::move(condition)] {
        const bool holds = condition();
        auto* hidden = holds ? no : yes;
        auto* shown = holds ? yes : no;
        shown->show();
        handFocusOver(hidden, shown);
        hidden->hide();
    });
    return place;
}

QWidget* focusTarget(QWidget* widget) {
    while (widget->focusProxy())
        widget = widget->focusProxy();
    return widget;
}

} // namespace korvane
