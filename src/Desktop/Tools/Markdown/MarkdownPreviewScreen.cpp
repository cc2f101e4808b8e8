#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/BusyBadge.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/SegmentedPicker.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Overlay.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Markdown/MarkdownBrowser.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/MarkdownPreviewView.h"

namespace korvane {

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int modePickerWidth = 400;
constexpr int copyButtonRoom = 92; // the width of the text that the button covers

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
    return section(store, "Preview", "",
                   markdownPane(store, &MarkdownPreviewView::markdownText, &MarkdownPreviewView::openLink));
}

QWidget* htmlOutputSection(Store& store) {
    return section(
        store, "HTML Output", "chevron.left.forwardslash.chevron.right",
        overlay(readOnlyEditor(store, &MarkdownPreviewView::html, "",
                               {.lineNumbers = false, .isSmall = true, .buttonRoom = copyButtonRoom}),
                copyButton(store, &MarkdownPreviewView::html, {.look = {.isOverlay = true}})));
}

QWidget* body(Store& store) {
    auto* content =
        screen(store, toolHeader(Tool::markdownPreview),
               {
                   row({
                       segmentedPicker(store, "View", &MarkdownPreviewView::viewMode,
                                       &MarkdownPreviewView::setViewMode, modePickerWidth),
                       stretch(),
                   }),
                   busyBadge(store, &MarkdownPreviewView::converting, &MarkdownPreviewView::cancel),
                   panes(store,
                         {
                             {&MarkdownPreviewView::showsEditor, editorPane(store)},
                             {&MarkdownPreviewView::showsPreview, previewSection(store)},
                             {&MarkdownPreviewView::showsHTML, htmlOutputSection(store)},
                         }),
               });
    return cancellable(store, &MarkdownPreviewView::isBusy, &MarkdownPreviewView::cancel, content);
}

} // namespace

QWidget* markdownPreviewScreen(Services& services) {
    return makeScreen<MarkdownPreviewView>(services, body);
}

} // namespace korvane
