#include "Desktop/Access/TabStops.h"

#include "Desktop/Access/Editing.h"

#include <QLayout>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace korvane {

namespace {

constexpr char primaryActionProperty[] = "korvanePrimaryAction";
constexpr char notInitialProperty[] = "korvaneNotInitialFocus";
constexpr char noHandoverProperty[] = "korvaneNoFocusHandover";

/// Whether `control` takes the text that a tool works on, which a read-only text does not.
bool takesText(const QWidget* control) {
    return holdsText(control) && !control->property("readOnly").toBool() &&
           !control->property(notInitialProperty).toBool();
}

bool isPrimaryAction(const QWidget* control) {
    return control->property(primaryActionProperty).toBool();
}

void addWidgets(const QLayout& layout, std::vector<QWidget*>& widgets) {
    for (int index = 0; index < layout.count(); ++index) {
        auto* item = layout.itemAt(index);
        if (item->widget())
            widgets.push_back(item->widget());
        else if (item->layout())
            addWidgets(*item->layout(), widgets);
    }
}

std::vector<QWidget*> childrenInOrder(const QWidget& parent) {
    std::vector<QWidget*> children;
    if (parent.layout())
        addWidgets(*parent.layout(), children);
    const auto placed = children.size();
    for (auto* child : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (!child->isWindow() && std::ranges::find(children, child) == children.end())
            children.push_back(child);
    }
    const auto place = [](const QWidget* child) { return std::pair(child->y(), child->x()); };
    std::ranges::stable_sort(children.begin() + static_cast<std::ptrdiff_t>(placed), children.end(), {},
                             place);
    return children;
}

} // namespace

bool isTabStop(const QWidget* widget) {
    const bool takesTab = (widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->focusProxy();
    // The window itself may not be shown yet.
    return takesTab && widget->isEnabled() && widget->isVisibleTo(widget->window());
}

std::vector<QWidget*> readingOrder(QWidget& part) {
    std::vector<QWidget*> order{&part};
    for (auto* child : childrenInOrder(part))
        std::ranges::copy(readingOrder(*child), std::back_inserter(order));
    return order;
}

std::vector<QWidget*> tabStops(QWidget& part) {
    auto order = readingOrder(part);
    std::erase_if(order, [](const QWidget* widget) { return !isTabStop(widget); });
    return order;
}

QWidget* nextStop(const std::vector<QWidget*>& order, const QWidget* control) {
    const auto place = std::ranges::find(order, control);
    const auto found = std::find_if(place == order.end() ? order.begin() : place + 1, order.end(), isTabStop);
    return found == order.end() ? nullptr : *found;
}

QWidget* previousStop(const std::vector<QWidget*>& order, const QWidget* control) {
    const auto place = std::make_reverse_iterator(std::ranges::find(order, control));
    const auto found = std::find_if(place, order.rend(), isTabStop);
    return found == order.rend() ? nullptr : *found;
}

bool canTakeFocusOver(const QWidget* widget) {
    return !widget->property(noHandoverProperty).toBool();
}

QWidget* excludeFromFocusHandover(QWidget* control) {
    control->setProperty(noHandoverProperty, true);
    return control;
}

QWidget* firstControl(QWidget& screen) {
    const auto stops = tabStops(screen);
    if (const auto editor = std::ranges::find_if(stops, takesText); editor != stops.end())
        return *editor;
    if (const auto action = std::ranges::find_if(stops, isPrimaryAction); action != stops.end())
        return *action;
    return stops.empty() ? nullptr : stops.front();
}

QWidget* focusTarget(QWidget* widget) {
    while (widget->focusProxy())
        widget = widget->focusProxy();
    return widget;
}

void markPrimaryAction(QWidget* control) {
    control->setProperty(primaryActionProperty, true);
}

QWidget* firstAction(QWidget& screen) {
    const auto order = readingOrder(screen);
    const auto action = std::ranges::find_if(order, [&screen](const QWidget* widget) {
        return isPrimaryAction(widget) && widget->isVisibleTo(&screen);
    });
    return action == order.end() ? nullptr : *action;
}

void excludeFromInitialFocus(QWidget* control) {
    control->setProperty(notInitialProperty, true);
}

} // namespace korvane
