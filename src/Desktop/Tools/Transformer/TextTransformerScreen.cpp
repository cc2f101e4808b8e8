#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/BusyBadge.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Output.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/SegmentedPicker.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Screens.h"
#include "Desktop/Tools/Transformer/StatCard.h"
#include "Desktop/Tools/Transformer/TransformButton.h"
#include "Views/Tools/TextTransformerView.h"

namespace korvane {

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int statCardGap = 10;

constexpr int modePickerWidth = 360;
constexpr int statisticsHeight = 196; // two rows of cards, so that the prompt does not resize the editor

/// Reads whether `tab` is selected.
auto isSelected(TransformTab tab) {
    return [tab](const TextTransformerView& state) { return state.selectedTab == tab; };
}

/// Reads a property of the selected tab.
template <typename Fact>
auto ofTab(Fact fact) {
    return [fact](const TextTransformerView& state) { return std::string(factsOf(state.selectedTab).*fact); };
}

/// Reads one of the statistics of the input.
auto counting(std::int64_t TextStats::* count) {
    return [count](const TextTransformerView& state) { return state.inputStats.text(count); };
}

QWidget* cards(Store& store) {
    return grid(
        3, {.columnGap = statCardGap, .rowGap = statCardGap, .hasEvenRows = true},
        {
            statCard(store, "Characters", counting(&TextStats::characters), "character", PaletteColor::blue),
            statCard(store, "Characters (no spaces)", counting(&TextStats::charactersNoSpaces), "character",
                     PaletteColor::cyan),
            statCard(store, "Words", counting(&TextStats::words), "text.word.spacing", PaletteColor::green),
            statCard(store, "Lines", counting(&TextStats::lines), "text.alignleft", PaletteColor::orange),
            statCard(store, "Paragraphs", counting(&TextStats::paragraphs), "paragraphsign",
                     PaletteColor::purple),
            statCard(store, "Sentences", counting(&TextStats::sentences), "text.bubble", PaletteColor::pink),
        });
}

QWidget* prompt(Store& store) {
    return card({}, {emptyPrompt(store, "chart.bar.doc.horizontal", "Enter text above to see statistics")});
}

QWidget* body(Store& store) {
    auto* content = screen(
        store, toolHeader(Tool::textTransformer),
        {
            row({
                segmentedPicker(store, "Mode", &TextTransformerView::selectedTab,
                                &TextTransformerView::setSelectedTab, modePickerWidth),
                stretch(),
                pasteButton(store, &TextTransformerView::setInputText),
                clearButton(store, &TextTransformerView::setInputText),
            }),
            when(store, isSelected(TransformTab::caseTransform),
                 section(store, "Select Transformation", "",
                         transformButtons(store, &TextTransformerView::selectedCaseTransform,
                                          &TextTransformerView::selectCaseTransform))),
            when(store, isSelected(TransformTab::lineOperations),
                 section(store, "Select Operation", "",
                         transformButtons(store, &TextTransformerView::selectedLineOperation,
                                          &TextTransformerView::selectLineOperation))),
            busyBadge(store, &TextTransformerView::transforming, &TextTransformerView::cancel),
            columns({
                section(store, ofTab(&TransformTabFacts::inputTitle), ofTab(&TransformTabFacts::inputIcon),
                        codeEditor(store, &TextTransformerView::inputText, &TextTransformerView::setInputText,
                                   ofTab(&TransformTabFacts::inputPlaceholder))),
                when(store, &TextTransformerView::showsOutput,
                     section(store, "Output", "arrow.up.doc",
                             output(store, &TextTransformerView::outputText,
                                    ofTab(&TransformTabFacts::outputPlaceholder),
                                    &TextTransformerView::isBusy))),
            }),
            when(store, &TextTransformerView::showsFooter, caption(store, &TextTransformerView::footer)),
            when(store, isSelected(TransformTab::statistics),
                 section(store, "Text Statistics", "",
                         either(store, &TextTransformerView::hasInput, rigidHeight(cards(store)),
                                withHeight(statisticsHeight, prompt(store))))),
        });
    return cancellable(store, &TextTransformerView::isBusy, &TextTransformerView::cancel, content);
}

} // namespace

QWidget* textTransformerScreen(Services& services) {
    return makeScreen<TextTransformerView>(services, body);
}

} // namespace korvane
