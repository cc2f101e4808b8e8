#include "Desktop/Kit/ComponentRows.h"
#include "Desktop/Kit/Divider.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/StatusLine.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/URLEncoderView.h"

namespace korvane {

namespace {

using Mode = URLEncoderView::Mode;
using Theme::Size;

constexpr int modePickerWidth = 264;
constexpr int urlHeight = 96;

/// Reads one of the facts of the chosen mode.
template <typename Fact>
auto ofMode(Fact fact) {
    return [fact](const URLEncoderView& state) { return std::string(factsOf(state.mode).*fact); };
}

QWidget* editor(View<URLEncoderView>& view) {
    return view.codeEditor(&URLEncoderView::inputText, &URLEncoderView::setInputText,
                           ofMode(&URLEncoderModeFacts::inputPlaceholder), {.lineNumbers = false});
}

QWidget* conversion(View<URLEncoderView>& view) {
    return columns({
        view.section(ofMode(&URLEncoderModeFacts::inputTitle), "arrow.down.doc", editor(view)),
        view.section(ofMode(&URLEncoderModeFacts::outputTitle), "arrow.up.doc",
                     view.output(&URLEncoderView::outputText, "", {.lineNumbers = false})),
    });
}

QWidget* queryParameters(View<URLEncoderView>& view) {
    auto heading = view.label(std::string(URLComponentsView::queryHeading),
                              Theme::TextStyle::subheadlineStrong, Theme::Role::secondary);
    return stack(
        Qt::Vertical, {.spacing = 0, .padding = {0, Size::componentsGapTop, 0, 0}},
        {
            new Divider,
            stack(Qt::Vertical, {.padding = {0, Size::componentsGapBottom, 0, Size::gapList}}, {heading}),
            componentRows(view, view.reading<std::vector<ComponentRow>>(&URLEncoderView::queryRows),
                          ComponentLook::plain),
        });
}

QWidget* components(View<URLEncoderView>& view) {
    return card(
        {.spacing = 0,
         .padding = {Size::cardPadding, Size::componentsPadding, Size::cardPadding, Size::componentsPadding}},
        {
            componentRows(view, view.reading<std::vector<ComponentRow>>(&URLEncoderView::componentRows),
                          ComponentLook::chip),
            view.when(&URLEncoderView::hasQueryItems, queryParameters(view)),
        });
}

QWidget* analysis(View<URLEncoderView>& view) {
    return stack(
        Qt::Vertical, {.spacing = Size::gapSection},
        {
            view.section(ofMode(&URLEncoderModeFacts::inputTitle), {}, withHeight(urlHeight, editor(view))),
            view.section(
                ofMode(&URLEncoderModeFacts::outputTitle), {},
                view.either(&URLEncoderView::hasComponents, components(view),
                            card({}, {view.emptyPrompt("link", std::string(URLEncoderView::emptyPrompt))}))),
            stretch(),
        });
}

QWidget* body(View<URLEncoderView>& view) {
    return screen(
        view.header(Tool::urlEncoder),
        {
            row({
                view.segmentedPicker("Mode", &URLEncoderView::mode, &URLEncoderView::setMode, modePickerWidth,
                                     SegmentLook::natural),
                view.actionButton(ofMode(&URLEncoderModeFacts::rawValue), ofMode(&URLEncoderModeFacts::icon),
                                  PaletteColor::blue, &URLEncoderView::performAction),
                stretch(),
                view.pasteButton(&URLEncoderView::setInputText),
                view.clearButton(&URLEncoderView::setInputText),
            }),
            statusLine(view, view.reading<std::optional<StatusBadge>>(&URLEncoderView::status),
                       view.reading<std::string>(&URLEncoderView::errorDetails)),
            view.either(&URLEncoderView::isAnalyzing, analysis(view), conversion(view)),
        });
}

} // namespace

QWidget* urlEncoderScreen(Services& services) {
    return makeScreen<URLEncoderView>(services, body);
}

} // namespace korvane
