#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/SegmentedPicker.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Overlay.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/Editors.h"
#include "Desktop/Tools/Markdown/ComputedOutput.h"
#include "Desktop/Tools/Markdown/MarkdownBrowser.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/MarkdownPreviewView.h"

#include <memory>

namespace korvane {

namespace {

constexpr int modePickerWidth = 400;

QWidget* editorPane(Store& store) {
    return stack(Qt::Vertical, {.spacing = Theme::Size::gapHeading},
                 {
                     section(store, "Markdown", "",
                             codeEditor(store, &MarkdownPreviewView::markdownText,
                                        &MarkdownPreviewView::setMarkdownText, "Write your Markdown here...",
                                        {.lineNumbers = false})),
                     caption(store, &MarkdownPreviewView::counts),
                 });
}

QWidget* previewSection(Store& store) {
    const auto markdown = [shown =
                               std::make_shared<Rope>()](const MarkdownPreviewView& state) -> const Rope& {
        if (*shown != state.markdownText)
            *shown = Rope(state.markdownText);
        return *shown;
    };
    return section(store, "Preview", "", markdownPane(store, markdown, &MarkdownPreviewView::openLink));
}

QWidget* htmlOutputSection(Store& store) {
    return section(store, "HTML Output", "chevron.left.forwardslash.chevron.right",
                   overlay(computedOutput(store, &MarkdownPreviewView::shownHTML),
                           copyButton(store, &MarkdownPreviewView::html, {.look = {.isOverlay = true}})));
}

QWidget* body(Store& store) {
    return screen(store, toolHeader(Tool::markdownPreview),
                  {
                      row({
                          segmentedPicker(store, "View", &MarkdownPreviewView::viewMode,
                                          &MarkdownPreviewView::setViewMode, modePickerWidth),
                          stretch(),
                      }),
                      panes(store,
                            {
                                {&MarkdownPreviewView::showsEditor, editorPane(store)},
                                {&MarkdownPreviewView::showsPreview, previewSection(store)},
                                {&MarkdownPreviewView::showsHTML, htmlOutputSection(store)},
                            }),
                  });
}

} // namespace

QWidget* markdownPreviewScreen(Services& services) {
    return makeScreen<MarkdownPreviewView>(services, body);
}

} // namespace korvane
