#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/SegmentedPicker.h"
#include "Desktop/Controls/Stepper.h"
#include "Desktop/Controls/Toggle.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Panel.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Lorem/StatPill.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/LoremIpsumView.h"

namespace korvane {

namespace {

using State = LoremIpsumView;
using Theme::Size;

constexpr int typePickerWidth = 280;
constexpr int countLabelWidth = 100;
constexpr int stepperWidth = 57; // two buttons and the line between them

QWidget* options(Store& store) {
    return wrappingRow(
        {
            segmentedPicker(store, "Type", &State::generationType, &State::setGenerationType, typePickerWidth,
                            SegmentLook::withIcons),
            labelledStepper(store, "Count", &State::count, &State::setCount,
                            {&State::countLabel, countLabelWidth},
                            {.minimum = State::minCount, .maximum = State::maxCount, .width = stepperWidth}),
            toggle(store, "Start with \"Lorem ipsum...\"", &State::startWithLorem, &State::setStartWithLorem,
                   {.look = ToggleLook::checkbox}),
            stretch(),
            actionButton(store, "Generate", "", PaletteColor::brown, &State::generate),
        },
        Size::gapGroup);
}

/// Statistics of the text, and its actions.
QWidget* footer(Store& store) {
    return row({
        statPill(store, &State::words),
        statPill(store, &State::sentences),
        statPill(store, &State::paragraphs),
        statPill(store, &State::characters),
        stretch(),
        copyButton(store, &State::copied, &State::copy, {.subject = "Generated Text"}),
        withWidth(Size::quietCompact,
                  withHeight(Size::quietCompact,
                             quietButton(store, "Clear", "trash", &State::clear, {.showLabel = false}))),
    });
}

QWidget* body(Store& store) {
    return screen(store, toolHeader(Tool::loremIpsum),
                  {
                      options(store),
                      either(store, &State::hasText,
                             stack(Qt::Vertical, {},
                                   {section(store, "Generated Text", "",
                                            readOnlyEditor(store, &State::generatedText, "",
                                                           {.lineNumbers = false, .isProse = true})),
                                    footer(store)}),
                             section(store, "Generated Text", "",
                                     new Panel(emptyPrompt(store, "text.quote",
                                                           "Click Generate to create Lorem Ipsum text")))),
                  });
}

} // namespace

QWidget* loremIpsumScreen(Services& services) {
    return makeScreen<LoremIpsumView>(services, body);
}

} // namespace korvane
