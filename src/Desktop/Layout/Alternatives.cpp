#include "Desktop/Layout/Alternatives.h"

#include "Desktop/Access/TabStops.h"
#include "Desktop/Layout/Stack.h"

#include <QBoxLayout>
#include <QWidget>

#include <algorithm>
#include <functional>
#include <utility>

namespace korvane {

namespace {

/// A part, and its condition.
struct Alternative {
    QWidget* content;
    std::function<bool()> isShown;
};

bool hasFocus(const QWidget& content) {
    const auto* focus = content.window()->focusWidget();
    return focus && content.isAncestorOf(focus);
}

void focusFirstStop(QWidget& content) {
    const auto stops = tabStops(content);
    if (const auto stop = std::ranges::find_if(stops, canTakeFocusOver); stop != stops.end())
        (*stop)->setFocus();
}

/// The focus moves before its part is hidden, because Qt would then move it to the next control.
void refresh(const std::vector<Alternative>& all) {
    QWidget* firstShown = nullptr;
    std::vector<QWidget*> hidden;
    for (const auto& [content, isShown] : all) {
        if (!isShown()) {
            hidden.push_back(content);
            continue;
        }
        content->show();
        firstShown = firstShown ? firstShown : content;
    }
    if (firstShown && std::ranges::any_of(hidden, [](const QWidget* content) { return hasFocus(*content); }))
        focusFirstStop(*firstShown);
    for (auto* content : hidden)
        content->hide();
}

QWidget* alternatives(Store& store, QWidget* place, std::vector<Alternative> all) {
    store.onRefresh([all = std::move(all)] { refresh(all); });
    return place;
}

} // namespace

QWidget* when(Store& store, const Reader<bool>& condition, QWidget* widget) {
    store.onRefresh([widget, condition = condition.of(store)] { setShown(widget, condition()); });
    return widget;
}

QWidget* either(Store& store, const Reader<bool>& condition, QWidget* yes, QWidget* no) {
    const auto holds = condition.of(store);
    return alternatives(store, stack(Qt::Vertical, {.spacing = 0}, {yes, no}),
                        {{yes, holds}, {no, [holds] { return !holds(); }}});
}

QWidget* panes(Store& store, const std::vector<Pane>& all) {
    auto* place = columns({});
    auto* layout = qobject_cast<QBoxLayout*>(place->layout());
    std::vector<Alternative> contents;
    for (const auto& pane : all) {
        layout->addWidget(pane.content, 1);
        contents.push_back({pane.content, pane.isShown.of(store)});
    }
    return alternatives(store, place, std::move(contents));
}

void setShown(QWidget* widget, bool isShown) {
    if (widget->parentWidget() || !isShown)
        widget->setVisible(isShown);
}

} // namespace korvane
