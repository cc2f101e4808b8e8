#include "Desktop/Kit/ComputedOutput.h"
#include "Desktop/Kit/MarkdownBrowser.h"
#include "Desktop/Kit/Panes.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/MarkdownPreviewView.h"

namespace korvane {

namespace {

constexpr int modePickerWidth = 400;

QWidget* editorPane(View<MarkdownPreviewView>& view) {
    return stack(Qt::Vertical, {.spacing = Theme::Size::gapHeading},
                 {
                     view.section("Markdown", {},
                                  view.codeEditor(&MarkdownPreviewView::markdownText,
                                                  &MarkdownPreviewView::setMarkdownText,
                                                  "Write your Markdown here...", {.lineNumbers = false})),
                     view.caption(&MarkdownPreviewView::counts),
                 });
}

QWidget* previewSection(View<MarkdownPreviewView>& view) {
    return view.section(
        "Preview", {},
        markdownPane(view, {.markdown = view.referring(&MarkdownPreviewView::markdownText),
                            .openLink = view.setting<std::string>(&MarkdownPreviewView::openLink)}));
}

QWidget* htmlOutputSection(View<MarkdownPreviewView>& view) {
    return view.section(
        "HTML Output", "chevron.left.forwardslash.chevron.right",
        overlay(computedOutput(view, view.reading<std::string>(&MarkdownPreviewView::shownHTML)),
                view.copyButton(&MarkdownPreviewView::html, {.look = {.isOverlay = true}})));
}

QWidget* body(View<MarkdownPreviewView>& view) {
    return screen(
        view.header(Tool::markdownPreview),
        {
            row({
                view.segmentedPicker("View", &MarkdownPreviewView::viewMode,
                                     &MarkdownPreviewView::setViewMode, modePickerWidth),
                stretch(),
            }),
            panes(view,
                  {
                      {view.reading<bool>(&MarkdownPreviewView::showsEditor), editorPane(view)},
                      {view.reading<bool>(&MarkdownPreviewView::showsPreview), previewSection(view)},
                      {view.reading<bool>(&MarkdownPreviewView::showsHTML), htmlOutputSection(view)},
                  }),
        });
}

} // namespace

QWidget* markdownPreviewScreen(Services& services) {
    return makeScreen<MarkdownPreviewView>(services, body);
}

} // namespace korvane
