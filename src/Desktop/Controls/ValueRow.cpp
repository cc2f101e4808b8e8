#include "Desktop/Controls/ValueRow.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Divider.h"
#include "Desktop/Text/SelectableText.h"

#include <QBoxLayout>

namespace korvane {

using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int verticalPadding = 2;

} // namespace

QWidget* valueRow(Store& store, const ValueRowParts& parts) {
    auto* line =
        stack(Qt::Horizontal, {.spacing = parts.gap},
              {parts.label,
               selectableText(store, parts.name, parts.value, {.style = parts.style, .ink = parts.ink}),
               copyButton(store, parts.value, {.look = {.dropsLabel = true, .subject = parts.name}})});
    line->setMinimumHeight(Theme::px(parts.height));
    return line;
}

QWidget* dividedRows(const std::vector<QWidget*>& rows) {
    auto* list = card(
        {.spacing = 0, .padding = {Size::cardPadding, verticalPadding, Size::gapControl, verticalPadding}},
        {});
    auto* layout = static_cast<QBoxLayout*>(list->layout());
    for (auto* row : rows) {
        if (layout->count() > 0)
            layout->addWidget(new Divider);
        layout->addWidget(row);
    }
    return list;
}

} // namespace korvane
