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
#include "Desktop/Tools/Diff/DiffLists.h"
#include "Desktop/Tools/Diff/StatBadgeLabel.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/TextDiffView.h"

namespace korvane {

namespace {

constexpr int modePickerWidth = 220;

QWidget* counts(Store& store) {
    return row({
        statBadge(store, &TextDiffView::added),
        statBadge(store, &TextDiffView::removed),
        statBadge(store, &TextDiffView::unchanged),
        stretch(),
        caption(store, &TextDiffView::similarity),
    });
}

QWidget* editors(Store& store) {
    return columns({
        section(
            store, "Original Text", "",
            overlay(codeEditor(store, &TextDiffView::leftText, &TextDiffView::setLeftText,
                               "Paste original text here..."),
                    pasteButton(store, &TextDiffView::setLeftText, {.dropsLabel = true, .isOverlay = true}))),
        section(store, "Modified Text", "",
                overlay(codeEditor(store, &TextDiffView::rightText, &TextDiffView::setRightText,
                                   "Paste modified text here..."),
                        pasteButton(store, &TextDiffView::setRightText,
                                    {.dropsLabel = true, .isOverlay = true}))),
    });
}

QWidget* result(Store& store) {
    const auto shown = &TextDiffView::shownResult;
    return either(store, &TextDiffView::isSideBySide, sideBySideDiff(store, shown),
                  unifiedDiff(store, shown));
}

QWidget* body(Store& store) {
    auto* content =
        screen(store, toolHeader(Tool::textDiff),
               {
                   row({
                       actionButton(store, "Compare", "arrow.left.arrow.right", PaletteColor::mint,
                                    &TextDiffView::compare, &TextDiffView::isBusy),
                       segmentedPicker(store, "View", &TextDiffView::viewMode, &TextDiffView::setViewMode,
                                       modePickerWidth),
                       stretch(),
                       quietButton(store, "Swap", "arrow.left.arrow.right", &TextDiffView::swap),
                       quietButton(store, "Clear All", "trash", &TextDiffView::clearAll),
                   }),
                   busyBadge(store, &TextDiffView::comparison, &TextDiffView::cancel),
                   announcing(store, &TextDiffView::similarity,
                              when(store, &TextDiffView::showsCounts, counts(store))),
                   either(store, &TextDiffView::hasResult, result(store), editors(store)),
               });
    return cancellable(store, &TextDiffView::isBusy, &TextDiffView::cancel, content);
}

} // namespace

QWidget* textDiffScreen(Services& services) {
    return makeScreen<TextDiffView>(services, body);
}

} // namespace korvane
