#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/Stepper.h"
#include "Desktop/Controls/Toggle.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Lists/HistoryPanel.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/SelectableText.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/UUIDGeneratorView.h"

namespace korvane {

namespace {

using State = UUIDGeneratorView;
using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

constexpr int stepperWidth = 120;

std::vector<HistoryRow> historyRows(const State& state) {
    std::vector<HistoryRow> rows;
    for (const auto& entry : state.uuidHistory)
        rows.push_back({.id = entry.id, .text = state.format(entry.value), .time = entry.timestamp});
    return rows;
}

QWidget* body(Store& store) {
    return screen(
        store, toolHeader(Tool::uuidGenerator),
        {
            card({.padding = {Size::heroPaddingX, Size::heroPaddingY, Size::heroPaddingX, Size::heroPaddingY},
                  .radius = Size::radiusExtraLarge,
                  .tint = PaletteColor::pink},
                 {selectableText(store, "UUID", &State::formattedUUID,
                                 {.style = TextStyle::hero, .alignment = Qt::AlignHCenter})}),
            row({
                stack(Qt::Horizontal, {.spacing = Size::gapSectionWide},
                      {toggle(store, "Uppercase", &State::uppercased, &State::setUppercased,
                              {.look = ToggleLook::leadSwitch}),
                       toggle(store, "Hyphens", &State::includeHyphens, &State::setIncludeHyphens,
                              {.look = ToggleLook::leadSwitch})}),
                stretch(),
                actionButton(store, "Generate New", "arrow.clockwise", PaletteColor::pink,
                             &State::generateNew),
                copyButton(store, &State::formattedUUID, {.look = {.subject = "UUID"}}),
            }),
            section(store, "Bulk Generate", "",
                    stack(Qt::Horizontal, {.spacing = Size::gapBulk},
                          {row({textLabel(store, "Count:", TextStyle::body, Role::secondary),
                                stepper(store, "Count", &State::bulkCount, &State::setBulkCount,
                                        {.minimum = State::minBulkCount,
                                         .maximum = State::maxBulkCount,
                                         .width = stepperWidth})}),
                           actionButton(store, &State::bulkTitle, "plus.square.on.square",
                                        PaletteColor::indigo, &State::generateBulk),
                           stretch()})),
            historyPanel(store, {.title = &State::historyTitle,
                                 .rows = historyRows,
                                 .copyAll = &State::copyAllHistory,
                                 .clear = &State::clearHistory,
                                 .prompt = "Generated UUIDs will appear here"}),
        });
}

} // namespace

QWidget* uuidGeneratorScreen(Services& services) {
    return makeScreen<UUIDGeneratorView>(services, body, &UUIDGeneratorView::appear);
}

} // namespace korvane
