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

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int pillWidth = 84;
constexpr int pillPadding = 8;

} // namespace

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
    fill(card, Qt::Vertical, {.spacing = 0, .padding = {0, pillPadding, 0, pillPadding}}, {value, title});
    return withWidth(pillWidth, card);
}

} // namespace korvane
