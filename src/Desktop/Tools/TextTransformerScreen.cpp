#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/TransformButton.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/TextTransformerView.h"

namespace korvane {

namespace {

using Theme::Size;

constexpr int modePickerWidth = 360;
constexpr int statisticsHeight = 196; // two rows of cards; the prompt leaves the editor the same size

/// Reads whether `tab` is selected.
auto isSelected(TransformTab tab) {
    return [tab](const TextTransformerView& state) { return state.selectedTab == tab; };
}

/// Reads one of the facts of the selected tab.
template <typename Fact>
auto ofTab(Fact fact) {
    return [fact](const TextTransformerView& state) { return std::string(factsOf(state.selectedTab).*fact); };
}

/// Reads one of the statistics of the input.
template <typename Count>
auto counting(Count count) {
    return
        [count](const TextTransformerView& state) { return std::to_string(state.inputStats.stats().*count); };
}

QWidget* cards(View<TextTransformerView>& view) {
    return grid(
        3, Size::statCardGap,
        {
            view.statCard("Characters", counting(&TextStats::characters), "character", PaletteColor::blue),
            view.statCard("Characters (no spaces)", counting(&TextStats::charactersNoSpaces), "character",
                          PaletteColor::cyan),
            view.statCard("Words", counting(&TextStats::words), "text.word.spacing", PaletteColor::green),
            view.statCard("Lines", counting(&TextStats::lines), "text.alignleft", PaletteColor::orange),
            view.statCard("Paragraphs", counting(&TextStats::paragraphs), "paragraphsign",
                          PaletteColor::purple),
            view.statCard("Sentences", counting(&TextStats::sentences), "text.bubble", PaletteColor::pink),
        });
}

QWidget* prompt(View<TextTransformerView>& view) {
    return card({}, {view.emptyPrompt("chart.bar.doc.horizontal", "Enter text above to see statistics")});
}

QWidget* body(View<TextTransformerView>& view) {
    return screen(
        view.header(Tool::textTransformer),
        {
            row({
                view.segmentedPicker("Mode", &TextTransformerView::selectedTab,
                                     &TextTransformerView::setSelectedTab, modePickerWidth),
                stretch(),
                view.pasteButton(&TextTransformerView::setInputText),
                view.clearButton(&TextTransformerView::setInputText),
            }),
            view.when(isSelected(TransformTab::caseTransform),
                      view.section("Select Transformation", {},
                                   transformButtons(view, &TextTransformerView::selectedCaseTransform,
                                                    &TextTransformerView::selectCaseTransform))),
            view.when(isSelected(TransformTab::lineOperations),
                      view.section("Select Operation", {},
                                   transformButtons(view, &TextTransformerView::selectedLineOperation,
                                                    &TextTransformerView::selectLineOperation))),
            columns({
                view.section(ofTab(&TransformTabFacts::inputTitle), ofTab(&TransformTabFacts::inputIcon),
                             view.codeEditor(&TextTransformerView::inputText,
                                             &TextTransformerView::setInputText,
                                             ofTab(&TransformTabFacts::inputPlaceholder))),
                view.when(&TextTransformerView::showsOutput,
                          view.section("Output", "arrow.up.doc",
                                       view.output(&TextTransformerView::outputText,
                                                   ofTab(&TransformTabFacts::outputPlaceholder)))),
            }),
            view.when(&TextTransformerView::showsFooter, view.caption(&TextTransformerView::footer)),
            view.when(isSelected(TransformTab::statistics),
                      view.section("Text Statistics", {},
                                   view.either(&TextTransformerView::hasInput, rigidHeight(cards(view)),
                                               withHeight(statisticsHeight, prompt(view))))),
        });
}

} // namespace

QWidget* textTransformerScreen(Services& services) {
    return makeScreen<TextTransformerView>(services, body);
}

} // namespace korvane
