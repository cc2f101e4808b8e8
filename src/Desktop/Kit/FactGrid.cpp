#include "Desktop/Kit/FactGrid.h"

#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <QGridLayout>

namespace korvane {

using Theme::Size;
using Theme::TextStyle;

QWidget* factGrid(ViewCore& view, int columnCount, const std::vector<Fact>& facts) {
    auto* container = new QWidget;
    auto* layout = new QGridLayout(container);
    layout->setContentsMargins({});
    layout->setSpacing(Theme::px(Size::gapControl));
    int index = 0;
    for (const auto& fact : facts) {
        auto* text = new Label({}, TextStyle::body);
        text->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
        view.onRefresh([text, read = fact.text] { text->display(read()); });
        auto* title = new Label(fact.title, TextStyle::caption, Theme::Role::secondary);
        layout->addWidget(stack(Qt::Vertical, {.spacing = 0}, {title, text}), index / columnCount,
                          index % columnCount);
        layout->setColumnStretch(index % columnCount, 1);
        ++index;
    }
    return container;
}

} // namespace korvane
