#include "Desktop/Kit/BusyLabel.h"
#include "Desktop/Kit/DiffLists.h"
#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/StatBadgeLabel.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/TextDiffView.h"

namespace korvane {

namespace {

constexpr int modePickerWidth = 220;

QWidget* counts(View<TextDiffView>& view) {
    return row({
        statBadge(view, view.reading<StatBadge>(&TextDiffView::added)),
        statBadge(view, view.reading<StatBadge>(&TextDiffView::removed)),
        statBadge(view, view.reading<StatBadge>(&TextDiffView::unchanged)),
        stretch(),
        view.caption(&TextDiffView::similarity),
    });
}

QWidget* editors(View<TextDiffView>& view) {
    return columns({
        view.section(
            "Original Text", {},
            overlay(view.codeEditor(&TextDiffView::leftText, &TextDiffView::setLeftText,
                                    "Paste original text here..."),
                    view.pasteButton(&TextDiffView::setLeftText, {.dropsLabel = true, .isOverlay = true}))),
        view.section(
            "Modified Text", {},
            overlay(view.codeEditor(&TextDiffView::rightText, &TextDiffView::setRightText,
                                    "Paste modified text here..."),
                    view.pasteButton(&TextDiffView::setRightText, {.dropsLabel = true, .isOverlay = true}))),
    });
}

QWidget* result(View<TextDiffView>& view) {
    const auto shown = view.reading<const DiffEngine::DiffResult*>(&TextDiffView::shownResult);
    return view.either(&TextDiffView::isSideBySide, sideBySideDiff(view, shown), unifiedDiff(view, shown));
}

QWidget* body(View<TextDiffView>& view) {
    return screen(
        view.header(Tool::textDiff),
        {
            row({
                view.actionButton("Compare", "arrow.left.arrow.right", PaletteColor::mint,
                                  &TextDiffView::compare, &TextDiffView::isBusy),
                view.segmentedPicker("View", &TextDiffView::viewMode, &TextDiffView::setViewMode,
                                     modePickerWidth),
                stretch(),
                view.quietButton("Swap", "arrow.left.arrow.right", &TextDiffView::swap),
                view.quietButton("Clear All", "trash", &TextDiffView::clearAll),
            }),
            view.when(&TextDiffView::isBusy, busyLabel("Comparing... Clear All stops it.")),
            view.announcing(&TextDiffView::similarity, view.when(&TextDiffView::showsCounts, counts(view))),
            view.either(&TextDiffView::hasResult, result(view), editors(view)),
        });
}

} // namespace

QWidget* textDiffScreen(Services& services) {
    return makeScreen<TextDiffView>(services, body);
}

} // namespace korvane
