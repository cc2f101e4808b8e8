#include "Desktop/Kit/Screen.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/Base64View.h"

namespace korvane {

namespace {

constexpr int modePickerWidth = 200;

/// Reads one of the facts of the chosen mode.
template <typename Fact>
auto ofMode(Fact fact) {
    return [fact](const Base64View& state) { return std::string(factsOf(state.mode).*fact); };
}

QWidget* body(View<Base64View>& view) {
    return screen(
        view.header(Tool::base64),
        {
            row({
                view.segmentedPicker("Mode", &Base64View::mode, &Base64View::setMode, modePickerWidth),
                view.actionButton(ofMode(&Base64ModeFacts::rawValue), ofMode(&Base64ModeFacts::icon),
                                  PaletteColor::orange, &Base64View::convert),
                stretch(),
                view.pasteButton(&Base64View::setInputText),
                view.clearButton(&Base64View::setInputText),
            }),
            view.statusBadge(&Base64View::status),
            columns({
                view.section(ofMode(&Base64ModeFacts::inputTitle), "arrow.down.doc",
                             view.codeEditor(&Base64View::inputText, &Base64View::setInputText,
                                             ofMode(&Base64ModeFacts::inputPlaceholder))),
                view.section(ofMode(&Base64ModeFacts::outputTitle), "arrow.up.doc",
                             view.output(&Base64View::outputText, "Output will appear here...")),
            }),
            view.when(&Base64View::hasInput, view.caption(&Base64View::statistics)),
        });
}

} // namespace

QWidget* base64Screen(Services& services) {
    return makeScreen<Base64View>(services, body);
}

} // namespace korvane
