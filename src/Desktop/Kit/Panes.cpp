#include "Desktop/Kit/Panes.h"

#include "Desktop/Kit/Layout.h"
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

/// The first control in `content` that takes the keyboard.
QWidget* firstControl(const QWidget* content) {
    for (auto* child : content->findChildren<QWidget*>()) {
        if ((child->focusPolicy() & Qt::TabFocus) != 0)
            return child;
    }
    return nullptr;
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
    auto* control = isFocusLost && firstShown ? firstControl(firstShown) : nullptr;
    if (control)
        control->setFocus();
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
