#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/StatPill.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/LoremIpsumView.h"

namespace korvane {

namespace {

using State = LoremIpsumView;
using Theme::Size;

constexpr int typePickerWidth = 280;
constexpr int countLabelWidth = 100;
constexpr int stepperWidth = 57; // two buttons and the line between them

QWidget* options(View<State>& view) {
    return wrappingRow(
        {
            view.segmentedPicker("Type", &State::generationType, &State::setGenerationType, typePickerWidth,
                                 SegmentLook::withIcons),
            view.labelledStepper(
                "Count", &State::count, &State::setCount, &State::countLabel, countLabelWidth,
                {.minimum = State::minimumCount, .maximum = State::maximumCount, .width = stepperWidth}),
            view.toggle("Start with \"Lorem ipsum...\"", &State::startWithLorem, &State::setStartWithLorem,
                        {.look = ToggleLook::checkbox}),
            stretch(),
            view.actionButton("Generate", "", PaletteColor::brown, &State::generate),
        },
        Size::gapGroup);
}

/// What there is of everything in the text, and what can be done with it.
QWidget* footer(View<State>& view) {
    return row({
        statPill(view, &State::words),
        statPill(view, &State::sentences),
        statPill(view, &State::paragraphs),
        statPill(view, &State::characters),
        stretch(),
        copyButton(view, {.copied = view.reading<bool>(&State::copied),
                          .copy = view.performing(&State::copy),
                          .look = {.subject = "Generated Text"}}),
        withWidth(Size::quietCompact,
                  withHeight(Size::quietCompact,
                             view.quietButton("Clear", "trash", &State::clear, {.showLabel = false}))),
    });
}

QWidget* body(View<State>& view) {
    return screen(
        view.header(Tool::loremIpsum),
        {
            options(view),
            view.either(
                &State::hasText,
                stack(Qt::Vertical, {},
                      {view.section("Generated Text", {},
                                    codeEditor(view, {.text = view.referring(&State::generatedText),
                                                      .setText = nullptr,
                                                      .placeholder = [] { return std::string(); },
                                                      .options = {.lineNumbers = false, .isProse = true}})),
                       footer(view)}),
                view.section(
                    "Generated Text", {},
                    new Panel(view.emptyPrompt("text.quote", "Click Generate to create Lorem Ipsum text")))),
        });
}

} // namespace

QWidget* loremIpsumScreen(Services& services) {
    return makeScreen<LoremIpsumView>(services, body);
}

} // namespace korvane
