#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/BusyBadge.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/SelectableText.h"
#include "Desktop/Tools/Hash/HashRow.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/HashGeneratorView.h"

namespace korvane {

namespace {

using enum HashGenerator::HashAlgorithm;

constexpr int minInputHeight = 80;
constexpr int footerGlyph = 11;

QWidget* resultRow(Store& store, HashGenerator::HashAlgorithm algorithm) {
    return hashRow(
        store, algorithm, [algorithm](const HashGeneratorView& state) { return state.row(algorithm); },
        [algorithm](HashGeneratorView& state) { state.select(algorithm); });
}

QWidget* footer(Store& store) {
    const std::string text(HashGeneratorView::footer);
    return stack(
        Qt::Horizontal, {.spacing = Theme::Size::gapBadge},
        {
            new GlyphLabel("info.circle", footerGlyph, Theme::Role::secondary),
            growing(selectableText(
                store, text, text,
                {.style = Theme::TextStyle::caption, .ink = Theme::Role::secondary, .isTabStop = true})),
            rigid(when(store, &HashGeneratorView::hasStatistics,
                       caption(store, &HashGeneratorView::statistics))),
        });
}

QWidget* body(Store& store) {
    auto* content = screen(
        store, toolHeader(Tool::hashGenerator),
        {
            row({
                actionButton(store, "Generate All", "number", PaletteColor::green,
                             &HashGeneratorView::generateAll),
                pushToggle(store, "Live Update", "bolt.fill", PaletteColor::green,
                           &HashGeneratorView::liveUpdate, &HashGeneratorView::setLiveUpdate),
                stretch(),
                pasteButton(store, &HashGeneratorView::setInputText),
                clearButton(store, &HashGeneratorView::setInputText),
            }),
            section(store, "Input Text", "",
                    codeEditor(store, &HashGeneratorView::inputText, &HashGeneratorView::setInputText,
                               "Enter text to hash...", {.lineNumbers = false, .minHeight = minInputHeight})),
            section(store, "Hash Results", "",
                    stack(Qt::Vertical, {},
                          {
                              resultRow(store, md5),
                              resultRow(store, sha1),
                              resultRow(store, sha256),
                              resultRow(store, sha512),
                          })),
            footer(store),
        });
    return cancellable(store, &HashGeneratorView::isBusy, &HashGeneratorView::cancel, content);
}

} // namespace

QWidget* hashGeneratorScreen(Services& services) {
    return makeScreen<HashGeneratorView>(services, body);
}

} // namespace korvane
