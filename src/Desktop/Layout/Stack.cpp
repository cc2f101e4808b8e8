#include "Desktop/Layout/Stack.h"

#include "Desktop/Layout/WrappingLayout.h"
#include "Desktop/Look/Theme.h"

#include <QBoxLayout>
#include <QEvent>
#include <QGridLayout>

#include <algorithm>

namespace korvane {

using Theme::Size;

namespace {

/// A grid whose rows all have the height that the highest needs at its width.
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
        // A text whose height depends on its width is centred in a higher row.
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

QWidget* wrappingRow(std::initializer_list<Item> items, int spacing) {
    auto* container = new QWidget;
    auto* layout = new WrappingLayout(container, Theme::px(spacing), Theme::px(Size::gapControl));
    for (const auto& item : items) {
        if (item.widget)
            layout->addWidget(item.widget);
        else
            layout->addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding));
    }
    // A fixed height would be that of a single line, at any width.
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    container->setSizePolicy(policy);
    return container;
}

QWidget* grid(int columnCount, const GridOptions& options, const std::vector<QWidget*>& items) {
    auto* container = options.hasEvenRows ? new EvenGrid : new QWidget;
    auto* layout = new QGridLayout(container);
    layout->setContentsMargins({});
    layout->setHorizontalSpacing(Theme::px(options.columnGap));
    layout->setVerticalSpacing(Theme::px(options.rowGap));
    for (int column = 0; column < columnCount; ++column)
        layout->setColumnStretch(column, 1);
    int index = 0;
    for (auto* item : items) {
        layout->addWidget(item, index / columnCount, index % columnCount);
        layout->setRowStretch(index / columnCount, options.hasEvenRows ? 1 : 0);
        ++index;
    }
    return container;
}

QWidget* centered(QWidget* widget, int spaceAbove) {
    return stack(Qt::Horizontal, {.padding = {0, spaceAbove, 0, 0}}, {stretch(), widget, stretch()});
}

QWidget* withHeight(int height, QWidget* widget) {
    widget->setSizePolicy(widget->sizePolicy().horizontalPolicy(),
                          QSizePolicy::Fixed); // otherwise its container would grow instead
    widget->setFixedHeight(Theme::px(height));
    return widget;
}

QWidget* withWidth(int width, QWidget* widget) {
    widget->setFixedWidth(Theme::px(width));
    return widget;
}

QWidget* withMinHeight(int height, QWidget* widget) {
    widget->setMinimumHeight(Theme::px(height));
    return widget;
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

} // namespace korvane
