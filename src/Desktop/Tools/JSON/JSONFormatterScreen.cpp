#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/BusyBadge.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Output.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Controls/StatusLine.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Tools/JSON/Tree.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/JSONFormatterView.h"

namespace korvane {

namespace {

TreeRow treeRow(const JSONTreeNodeView& row) {
    const auto& node = *row.node;
    return {.depth = row.depth,
            .hasChildren = row.hasChildren(),
            .isExpanded = row.isExpanded,
            .icon = icon(node.type),
            .color = colorForType(node.type),
            .key = node.key,
            .value = node.value ? std::string_view(*node.value) : std::string_view(),
            .count = row.count()};
}

TreeRows treeRows(const JSONFormatterView& state) {
    return {.count = state.tree.rowCount(),
            .revision = state.tree.revision(),
            .at = [&state](std::size_t row) { return treeRow(state.tree.row(row)); },
            .parent = [&state](std::size_t row) { return state.tree.parent(row); },
            .columnsByDepth = [&state] { return state.tree.columnsByDepth(); },
            .value = [&state](std::size_t row) { return state.tree.copiedValue(row); },
            .key = [&state](std::size_t row) { return state.tree.copiedKey(row); },
            .path = [&state](std::size_t row) { return state.tree.path(row); }};
}

QWidget* body(Store& store) {
    auto* content =
        screen(store, toolHeader(Tool::jsonFormatter),
               {
                   row({
                       actionButton(store, "Prettify", "wand.and.stars", PaletteColor::cyan,
                                    &JSONFormatterView::prettify),
                       actionButton(store, "Minify", "arrow.down.right.and.arrow.up.left",
                                    PaletteColor::orange, &JSONFormatterView::minify),
                       actionButton(store, "Validate", "checkmark.seal", PaletteColor::green,
                                    &JSONFormatterView::validate),
                       stretch(),
                       pushToggle(store, "Tree View", "list.bullet.indent", PaletteColor::cyan,
                                  &JSONFormatterView::showTreeView, &JSONFormatterView::setShowTreeView),
                       pasteButton(store, &JSONFormatterView::setInputText),
                       clearButton(store, &JSONFormatterView::setInputText),
                   }),
                   statusBadges(store, &JSONFormatterView::status, &JSONFormatterView::warning,
                                &JSONFormatterView::showErrorPlace),
                   busyBadge(store, &JSONFormatterView::shownWork, &JSONFormatterView::cancel),
                   columns({
                       section(store, "Input", "",
                               codeEditor(store, &JSONFormatterView::inputText,
                                          &JSONFormatterView::setInputText, "Paste your JSON here...",
                                          {.marks = &JSONFormatterView::errorMarks,
                                           .place = &JSONFormatterView::shownPlace})),
                       either(store, &JSONFormatterView::showTreeView,
                              section(store, "Tree View", "",
                                      tree(store, treeRows, &JSONFormatterView::toggleRow,
                                           "Enter valid JSON to see tree view")),
                              section(store, "Output", "",
                                      output(store, &JSONFormatterView::outputText,
                                             "Formatted output will appear here...",
                                             &JSONFormatterView::isFormatting))),
                   }),
               });
    return cancellable(store, &JSONFormatterView::isBusy, &JSONFormatterView::cancel, content);
}

} // namespace

QWidget* jsonFormatterScreen(Services& services) {
    return makeScreen<JSONFormatterView>(services, body);
}

} // namespace korvane
