#include "Desktop/Kit/StatPill.h"

#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <string>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

QWidget* statPill(ViewCore& view, std::function<StatPill()> pill) {
    auto* value = new Label({}, TextStyle::pill);
    auto* title = new Label({}, TextStyle::caption, Role::secondary);
    for (auto* label : {value, title})
        label->setAlignment(Qt::AlignHCenter);
    view.onRefresh([value, title, pill = std::move(pill)] {
        const auto current = pill();
        value->display(std::to_string(current.value));
        value->setInk(current.color);
        title->display(current.label);
    });
    auto* card = new Surface([] { return Theme::color(Role::controlFill); }, Size::radiusMedium);
    fill(card, Qt::Vertical, {.spacing = 0, .padding = {0, Size::pillPadding, 0, Size::pillPadding}},
         {value, title});
    return withWidth(Size::pillWidth, card);
}

} // namespace korvane
