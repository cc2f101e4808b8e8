#include "Desktop/Tools/Image/FactGrid.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"

namespace korvane {

using Theme::Size;
using Theme::TextStyle;

QWidget* factGrid(Store& store, int columnCount, const std::vector<Fact>& facts) {
    std::vector<QWidget*> cells;
    for (const auto& fact : facts) {
        auto* text = textLabel(store, fact.text, TextStyle::body);
        text->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
        auto* title = new Label(fact.title, TextStyle::caption, Theme::Role::secondary);
        cells.push_back(stack(Qt::Vertical, {.spacing = 0}, {title, text}));
    }
    return grid(columnCount, {}, cells);
}

} // namespace korvane
