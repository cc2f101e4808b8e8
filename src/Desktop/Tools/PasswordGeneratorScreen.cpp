#include "Desktop/Kit/Divider.h"
#include "Desktop/Kit/HistoryPanel.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/StrengthMeter.h"
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

QWidget* characterOptions(View<State>& view) {
    return stack(Qt::Vertical, {.spacing = 0},
                 {
                     view.toggle("Uppercase (A-Z)", &State::includeUppercase, &State::setIncludeUppercase),
                     view.toggle("Lowercase (a-z)", &State::includeLowercase, &State::setIncludeLowercase),
                     view.toggle("Numbers (0-9)", &State::includeNumbers, &State::setIncludeNumbers),
                     view.toggle("Symbols (!@#$%...)", &State::includeSymbols, &State::setIncludeSymbols),
                     stack(Qt::Vertical, {.padding = {0, Size::gapBadge, 0, Size::gapBadge}}, {new Divider}),
                     view.toggle("Exclude ambiguous (0, O, l, 1, I)", &State::excludeAmbiguous,
                                 &State::setExcludeAmbiguous, {.isSecondary = true}),
                 });
}

QWidget* passwordLength(View<State>& view) {
    return stack(Qt::Vertical, {.spacing = Size::gapBadge},
                 {
                     row({
                         view.label("8", TextStyle::caption, Role::secondary, {.width = sliderEndWidth}),
                         view.slider("Password Length", &State::length, &State::setLength,
                                     {.minimum = State::minimumLength,
                                      .maximum = State::maximumLength,
                                      .stepsOfOne = 1,
                                      .isContinuous = false,
                                      .color = PaletteColor::red}),
                         view.label("128", TextStyle::caption, Role::secondary,
                                    {.width = sliderEndWidth, .alignment = Qt::AlignRight}),
                     }),
                     stack(Qt::Horizontal, {.spacing = Size::gapList},
                           {view.label(&State::lengthText, TextStyle::bodyBold, PaletteColor::red),
                            view.label("characters", TextStyle::body, Role::secondary), stretch()}),
                 });
}

QWidget* bulkGenerate(View<State>& view) {
    return wrappingRow(
        {
            row({view.label("Count:", TextStyle::body, Role::secondary),
                 view.stepper("Count", &State::bulkCount, &State::setBulkCount,
                              {.minimum = State::minimumBulkCount,
                               .maximum = State::maximumBulkCount,
                               .width = stepperWidth})}),
            view.actionButton(&State::bulkTitle, "plus.square.on.square", PaletteColor::indigo,
                              &State::generateBulk),
        },
        Size::gapBulk);
}

QWidget* body(View<State>& view) {
    return screen(
        view.header(Tool::passwordGenerator),
        {
            card({.padding = {Size::heroPaddingX, Size::heroPaddingY, Size::heroPaddingX, Size::heroPaddingY},
                  .radius = Size::radiusExtraLarge},
                 {view.selectableText("Password", &State::currentPassword,
                                      {.style = TextStyle::hero,
                                       .alignment = Qt::AlignHCenter,
                                       .placeholder = "Click Generate to create a password",
                                       .placeholderInk = Role::secondary,
                                       .isSecret = true})}),
            view.when(&State::hasPassword,
                      stack(Qt::Horizontal, {.spacing = Size::optionGap},
                            {strengthMeter(view, &State::strength), view.caption(&State::entropyText),
                             view.caption(&State::characterCountText), stretch()})),
            row({
                view.actionButton("Generate", "arrow.clockwise", PaletteColor::red, &State::generatePassword),
                view.when(&State::hasPassword,
                          view.copyButton(&State::currentPassword,
                                          {.look = {.subject = "Password"}, .isSecret = true})),
                stretch(),
            }),
            new Divider,
            columns({
                stack(Qt::Vertical, {.spacing = Size::gapSectionWide},
                      {view.section("Character Options", {}, characterOptions(view)),
                       view.section("Password Length", {}, passwordLength(view)),
                       view.section("Bulk Generate", {}, bulkGenerate(view)), stretch()}),
                historyPanel(view, &State::historyTitle, historyRows, &State::copyAllHistory,
                             &State::clearHistory,
                             {.prompt = "Generated passwords will appear here", .isSecret = true}),
            }),
        });
}

} // namespace

QWidget* passwordGeneratorScreen(Services& services) {
    return makeScreen<PasswordGeneratorView>(services, body, &PasswordGeneratorView::generatePassword);
}

} // namespace korvane
