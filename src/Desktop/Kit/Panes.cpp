#include "Desktop/Kit/Panes.h"

#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/TabStops.h"
#include "Desktop/Kit/ViewCore.h"

#include <QBoxLayout>
#include <QWidget>

#include <utility>

namespace korvane {

namespace {

bool hasFocus(const QWidget* content) {
    const auto* focus = content->window()->focusWidget();
    return focus && content->isAncestorOf(focus);
}

/// The focus must go over before its pane is hidden: the toolkit would give it to whatever comes next.
void refresh(const std::vector<Pane>& all) {
    QWidget* firstShown = nullptr;
    bool isFocusLost = false;
    for (const auto& pane : all) {
        if (!pane.isShown()) {
            isFocusLost = isFocusLost || hasFocus(pane.content);
            continue;
        }
        pane.content->show();
        firstShown = firstShown ? firstShown : pane.content;
    }
    if (isFocusLost && firstShown) {
        if (const auto stops = tabStops(*firstShown); !stops.empty())
            stops.front()->setFocus();
    }
    for (const auto& pane : all) {
        if (!pane.isShown())
            pane.content->hide();
    }
}

} // namespace

QWidget* panes(ViewCore& view, std::vector<Pane> all) {
    auto* place = columns({});
    auto* layout = qobject_cast<QBoxLayout*>(place->layout());
    for (const auto& pane : all)
        layout->addWidget(pane.content, 1);
    view.onRefresh([all = std::move(all)] { refresh(all); });
    return place;
}

} // namespace korvane
