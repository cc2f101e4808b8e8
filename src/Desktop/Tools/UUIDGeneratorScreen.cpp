#include "Desktop/Kit/HistoryPanel.h"
#include "Desktop/Kit/Screen.h"
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

QWidget* body(View<State>& view) {
    return screen(
        view.header(Tool::uuidGenerator),
        {
            card({.padding = {Size::heroPaddingX, Size::heroPaddingY, Size::heroPaddingX, Size::heroPaddingY},
                  .radius = Size::radiusExtraLarge,
                  .tint = PaletteColor::pink},
                 {view.selectableText("UUID", &State::formattedUUID,
                                      {.style = TextStyle::hero, .alignment = Qt::AlignHCenter})}),
            row({
                stack(Qt::Horizontal, {.spacing = Size::gapSectionWide},
                      {view.toggle("Uppercase", &State::uppercased, &State::setUppercased,
                                   {.look = ToggleLook::leadSwitch}),
                       view.toggle("Hyphens", &State::includeHyphens, &State::setIncludeHyphens,
                                   {.look = ToggleLook::leadSwitch})}),
                stretch(),
                view.actionButton("Generate New", "arrow.clockwise", PaletteColor::pink, &State::generateNew),
                view.copyButton(&State::formattedUUID, {.look = {.subject = "UUID"}}),
            }),
            view.section("Bulk Generate", {},
                         stack(Qt::Horizontal, {.spacing = Size::gapBulk},
                               {row({view.label("Count:", TextStyle::body, Role::secondary),
                                     view.stepper("Count", &State::bulkCount, &State::setBulkCount,
                                                  {.minimum = State::minimumBulkCount,
                                                   .maximum = State::maximumBulkCount,
                                                   .width = stepperWidth})}),
                                view.actionButton(&State::bulkTitle, "plus.square.on.square",
                                                  PaletteColor::indigo, &State::generateBulk),
                                stretch()})),
            historyPanel(view, &State::historyTitle, historyRows, &State::copyAllHistory,
                         &State::clearHistory, {.prompt = "Generated UUIDs will appear here"}),
        });
}

} // namespace

QWidget* uuidGeneratorScreen(Services& services) {
    return makeScreen<UUIDGeneratorView>(services, body, &UUIDGeneratorView::appear);
}

} // namespace korvane
