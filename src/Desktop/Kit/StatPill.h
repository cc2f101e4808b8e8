/// A small counter on a card of its own, for a row of them.
#pragma once

#include "Desktop/Kit/View.h"
#include "Views/Components/StatPill.h"

#include <functional>

class QWidget;

namespace korvane {

QWidget* statPill(ViewCore& view, std::function<StatPill()> pill);

template <typename State, typename Reader>
QWidget* statPill(View<State>& view, Reader pill) {
    return statPill(static_cast<ViewCore&>(view), view.template reading<StatPill>(pill));
}

} // namespace korvane
