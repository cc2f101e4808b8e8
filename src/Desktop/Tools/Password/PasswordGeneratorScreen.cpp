#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/Slider.h"
#include "Desktop/Controls/Stepper.h"
#include "Desktop/Controls/Toggle.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Lists/HistoryPanel.h"
#include "Desktop/Look/Divider.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/SelectableText.h"
#include "Desktop/Tools/Password/StrengthMeter.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/PasswordGeneratorView.h"

namespace korvane {

namespace {

using State = PasswordGeneratorView;
using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

constexpr int stepperWidth = 100;
constexpr int sliderEndWidth = 22;

std::vector<HistoryRow> historyRows(const State& state) {
    std::vector<HistoryRow> rows;
    for (const auto& entry : state.passwordHistory)
        rows.push_back({.id = entry.id,
                        .text = entry.password,
                        .time = entry.timestamp,
                        .dot = color(entry.strength),
                        .note = std::string(label(entry.strength))});
    return rows;
}

QWidget* characterOptions(Store& store) {
    return stack(Qt::Vertical, {.spacing = 0},
                 {
                     toggle(store, "Uppercase (A-Z)", &State::includeUppercase, &State::setIncludeUppercase),
                     toggle(store, "Lowercase (a-z)", &State::includeLowercase, &State::setIncludeLowercase),
                     toggle(store, "Numbers (0-9)", &State::includeNumbers, &State::setIncludeNumbers),
                     toggle(store, "Symbols (!@#$%...)", &State::includeSymbols, &State::setIncludeSymbols),
                     stack(Qt::Vertical, {.padding = {0, Size::gapBadge, 0, Size::gapBadge}}, {new Divider}),
                     toggle(store, "Exclude ambiguous (0, O, l, 1, I)", &State::excludeAmbiguous,
                            &State::setExcludeAmbiguous, {.isSecondary = true}),
                 });
}

QWidget* passwordLength(Store& store) {
    return stack(
        Qt::Vertical, {.spacing = Size::gapBadge},
        {
            row({
                textLabel(store, "8", TextStyle::caption, Role::secondary, {.width = sliderEndWidth}),
                slider(store, "Password Length", &State::length, &State::setLength,
                       {.minimum = State::minLength,
                        .maximum = State::maxLength,
                        .stepsOfOne = 1,
                        .isContinuous = false,
                        .color = PaletteColor::red}),
                textLabel(store, "128", TextStyle::caption, Role::secondary,
                          {.width = sliderEndWidth, .alignment = Qt::AlignRight}),
            }),
            stack(Qt::Horizontal, {.spacing = Size::gapList},
                  {textLabel(store, &State::lengthText, TextStyle::bodyBold, PaletteColor::red),
                   textLabel(store, "characters", TextStyle::body, Role::secondary), stretch()}),
        });
}

QWidget* bulkGenerate(Store& store) {
    return wrappingRow(
        {
            row({textLabel(store, "Count:", TextStyle::body, Role::secondary),
                 stepper(store, "Count", &State::bulkCount, &State::setBulkCount,
                         {.minimum = State::minBulkCount,
                          .maximum = State::maxBulkCount,
                          .width = stepperWidth})}),
            actionButton(store, &State::bulkTitle, "plus.square.on.square", PaletteColor::indigo,
                         &State::generateBulk),
        },
        Size::gapBulk);
}

QWidget* body(Store& store) {
    return screen(
        store, toolHeader(Tool::passwordGenerator),
        {
            card({.padding = {Size::heroPaddingX, Size::heroPaddingY, Size::heroPaddingX, Size::heroPaddingY},
                  .radius = Size::radiusExtraLarge},
                 {selectableText(store, "Password", &State::currentPassword,
                                 {.style = TextStyle::hero,
                                  .alignment = Qt::AlignHCenter,
                                  .placeholder = "Click Generate to create a password",
                                  .placeholderInk = Role::secondary,
                                  .isSecret = true})}),
            when(store, &State::hasPassword,
                 stack(Qt::Horizontal, {.spacing = Size::optionGap},
                       {strengthMeter(store, &State::strength), caption(store, &State::entropyText),
                        caption(store, &State::characterCountText), stretch()})),
            row({
                actionButton(store, "Generate", "arrow.clockwise", PaletteColor::red,
                             &State::generatePassword),
                when(store, &State::hasPassword,
                     copyButton(store, &State::currentPassword,
                                {.look = {.subject = "Password"}, .isSecret = true})),
                stretch(),
            }),
            new Divider,
            columns({
                stack(Qt::Vertical, {.spacing = Size::gapSectionWide},
                      {section(store, "Character Options", "", characterOptions(store)),
                       section(store, "Password Length", "", passwordLength(store)),
                       section(store, "Bulk Generate", "", bulkGenerate(store)), stretch()}),
                historyPanel(store, {.title = &State::historyTitle,
                                     .rows = historyRows,
                                     .copyAll = &State::copyAllHistory,
                                     .clear = &State::clearHistory,
                                     .prompt = "Generated passwords will appear here",
                                     .isSecret = true}),
            }),
        });
}

} // namespace

QWidget* passwordGeneratorScreen(Services& services) {
    return makeScreen<PasswordGeneratorView>(services, body, &PasswordGeneratorView::generatePassword);
}

} // namespace korvane
