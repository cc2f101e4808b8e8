#include "Desktop/Kit/HashRow.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/HashGeneratorView.h"

namespace korvane {

namespace {

using enum HashGenerator::HashAlgorithm;

constexpr int inputMinimumHeight = 80;
constexpr int footerGlyph = 11;

QWidget* resultRow(View<HashGeneratorView>& view, HashGenerator::HashAlgorithm algorithm) {
    return hashRow(view, {.algorithm = algorithm,
                          .row = view.reading<HashResultRow>(
                              [algorithm](const HashGeneratorView& state) { return state.row(algorithm); }),
                          .select = view.performing(
                              [algorithm](HashGeneratorView& state) { state.select(algorithm); })});
}

QWidget* footer(View<HashGeneratorView>& view) {
    const std::string text(HashGeneratorView::footer);
    return stack(
        Qt::Horizontal, {.spacing = Theme::Size::gapBadge},
        {
            new GlyphLabel("info.circle", footerGlyph, Theme::Role::secondary),
            growing(view.selectableText(
                text, text,
                {.style = Theme::TextStyle::caption, .ink = Theme::Role::secondary, .isTabStop = true})),
            rigid(view.when(&HashGeneratorView::hasStatistics, view.caption(&HashGeneratorView::statistics))),
        });
}

QWidget* body(View<HashGeneratorView>& view) {
    return screen(
        view.header(Tool::hashGenerator),
        {
            row({
                view.actionButton("Generate All", "number", PaletteColor::green,
                                  &HashGeneratorView::generateAll),
                view.pushToggle("Live Update", "bolt.fill", PaletteColor::green,
                                &HashGeneratorView::liveUpdate, &HashGeneratorView::setLiveUpdate),
                stretch(),
                view.pasteButton(&HashGeneratorView::setInputText),
                view.clearButton(&HashGeneratorView::setInputText),
            }),
            view.section("Input Text", {},
                         view.codeEditor(&HashGeneratorView::inputText, &HashGeneratorView::setInputText,
                                         "Enter text to hash...",
                                         {.lineNumbers = false, .minimumHeight = inputMinimumHeight})),
            view.section("Hash Results", {},
                         stack(Qt::Vertical, {},
                               {
                                   resultRow(view, md5),
                                   resultRow(view, sha1),
                                   resultRow(view, sha256),
                                   resultRow(view, sha512),
                               })),
            footer(view),
        });
}

} // namespace

QWidget* hashGeneratorScreen(Services& services) {
    return makeScreen<HashGeneratorView>(services, body);
}

} // namespace korvane
