#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/BusyBadge.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Output.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/SegmentedPicker.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/Base64View.h"

namespace korvane {

namespace {

constexpr int modePickerWidth = 200;

/// Reads a property of the chosen mode.
template <typename Fact>
auto ofMode(Fact fact) {
    return [fact](const Base64View& state) { return std::string(factsOf(state.mode).*fact); };
}

QWidget* body(Store& store) {
    auto* content = screen(
        store, toolHeader(Tool::base64),
        {
            row({
                segmentedPicker(store, "Mode", &Base64View::mode, &Base64View::setMode, modePickerWidth),
                actionButton(store, ofMode(&Base64ModeFacts::rawValue), ofMode(&Base64ModeFacts::icon),
                             PaletteColor::orange, &Base64View::convert),
                stretch(),
                pasteButton(store, &Base64View::setInputText),
                clearButton(store, &Base64View::setInputText),
            }),
            statusBadge(store, &Base64View::status),
            busyBadge(store, &Base64View::conversion, &Base64View::cancel),
            columns({
                section(store, ofMode(&Base64ModeFacts::inputTitle), "arrow.down.doc",
                        codeEditor(store, &Base64View::inputText, &Base64View::setInputText,
                                   ofMode(&Base64ModeFacts::inputPlaceholder))),
                section(store, ofMode(&Base64ModeFacts::outputTitle), "arrow.up.doc",
                        output(store, &Base64View::outputText, "Output will appear here...",
                               &Base64View::isBusy)),
            }),
            when(store, &Base64View::hasInput, caption(store, &Base64View::statistics)),
        });
    return cancellable(store, &Base64View::isBusy, &Base64View::cancel, content);
}

} // namespace

QWidget* base64Screen(Services& services) {
    return makeScreen<Base64View>(services, body);
}

} // namespace korvane
