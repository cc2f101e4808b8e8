#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/BusyBadge.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Output.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/SegmentedPicker.h"
#include "Desktop/Controls/StatusLine.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Card.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Divider.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Screens.h"
#include "Desktop/Tools/URL/ComponentRows.h"
#include "Views/Tools/URLEncoderView.h"

namespace korvane {

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int componentsPadding = 6;
constexpr int componentsGapTop = 6;
constexpr int componentsGapBottom = 10;

using Mode = URLEncoderView::Mode;
using Theme::Size;

constexpr int modePickerWidth = 264;
constexpr int urlHeight = 96;

/// Reads a property of the chosen mode.
template <typename Fact>
auto ofMode(Fact fact) {
    return [fact](const URLEncoderView& state) { return std::string(factsOf(state.mode).*fact); };
}

QWidget* editor(Store& store) {
    return codeEditor(store, &URLEncoderView::inputText, &URLEncoderView::setInputText,
                      ofMode(&URLEncoderModeFacts::inputPlaceholder), {.lineNumbers = false});
}

QWidget* conversion(Store& store) {
    return columns({
        section(store, ofMode(&URLEncoderModeFacts::inputTitle), "arrow.down.doc", editor(store)),
        section(
            store, ofMode(&URLEncoderModeFacts::outputTitle), "arrow.up.doc",
            output(store, &URLEncoderView::outputText, "", &URLEncoderView::isBusy, {.lineNumbers = false})),
    });
}

QWidget* queryParameters(Store& store) {
    auto heading = textLabel(store, std::string(URLComponentsView::queryHeading),
                             Theme::TextStyle::subheadlineStrong, Theme::Role::secondary);
    return stack(Qt::Vertical, {.spacing = 0, .padding = {0, componentsGapTop, 0, 0}},
                 {
                     new Divider,
                     stack(Qt::Vertical, {.padding = {0, componentsGapBottom, 0, Size::gapList}}, {heading}),
                     componentRows(store, &URLEncoderView::queryRows, ComponentLook::plain),
                 });
}

QWidget* components(Store& store) {
    return card({.spacing = 0,
                 .padding = {Size::cardPadding, componentsPadding, Size::cardPadding, componentsPadding}},
                {
                    componentRows(store, &URLEncoderView::componentRows, ComponentLook::chip),
                    when(store, &URLEncoderView::hasQueryItems, queryParameters(store)),
                });
}

QWidget* analysis(Store& store) {
    return stack(
        Qt::Vertical, {.spacing = Size::gapSection},
        {
            section(store, ofMode(&URLEncoderModeFacts::inputTitle), "",
                    withHeight(urlHeight, editor(store))),
            section(store, ofMode(&URLEncoderModeFacts::outputTitle), "",
                    either(store, &URLEncoderView::hasComponents, components(store),
                           card({}, {emptyPrompt(store, "link", std::string(URLEncoderView::emptyPrompt))}))),
            stretch(),
        });
}

QWidget* body(Store& store) {
    auto* content =
        screen(store, toolHeader(Tool::urlEncoder),
               {
                   row({
                       segmentedPicker(store, "Mode", &URLEncoderView::mode, &URLEncoderView::setMode,
                                       modePickerWidth, SegmentLook::natural),
                       actionButton(store, ofMode(&URLEncoderModeFacts::rawValue),
                                    ofMode(&URLEncoderModeFacts::icon), PaletteColor::blue,
                                    &URLEncoderView::performAction),
                       stretch(),
                       pasteButton(store, &URLEncoderView::setInputText),
                       clearButton(store, &URLEncoderView::setInputText),
                   }),
                   statusLine(store, &URLEncoderView::status, &URLEncoderView::errorDetails),
                   busyBadge(store, &URLEncoderView::processing, &URLEncoderView::cancel),
                   either(store, &URLEncoderView::isAnalyzing, analysis(store), conversion(store)),
               });
    return cancellable(store, &URLEncoderView::isBusy, &URLEncoderView::cancel, content);
}

} // namespace

QWidget* urlEncoderScreen(Services& services) {
    return makeScreen<URLEncoderView>(services, body);
}

} // namespace korvane
