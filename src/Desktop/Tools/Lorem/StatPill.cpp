#include "Desktop/Tools/Lorem/StatPill.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <string>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

QWidget* statPill(Store& store, const Reader<StatPill>& pill) {
    auto* value = new Label({}, TextStyle::pill);
    auto* title = new Label({}, TextStyle::caption, Role::secondary);
    for (auto* label : {value, title})
        label->setAlignment(Qt::AlignHCenter);
    store.onRefresh([value, title, pill = pill.of(store)] {
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
