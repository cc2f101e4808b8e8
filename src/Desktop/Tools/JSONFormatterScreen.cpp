#include "Desktop/Kit/Screen.h"
#include "Desktop/Kit/StatusLine.h"
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
    return {.count = state.tree.rows().size(),
            .revision = state.tree.revision(),
            .at = [&state](std::size_t row) { return treeRow(state.tree.rows()[row]); },
            .value = [&state](std::size_t row) { return state.tree.copiedValue(row); },
            .key = [&state](std::size_t row) { return state.tree.copiedKey(row); },
            .path = [&state](std::size_t row) { return state.tree.path(row); }};
}

QWidget* body(View<JSONFormatterView>& view) {
    return screen(
        view.header(Tool::jsonFormatter),
        {
            row({
                view.actionButton("Prettify", "wand.and.stars", PaletteColor::cyan,
                                  &JSONFormatterView::prettify),
                view.actionButton("Minify", "arrow.down.right.and.arrow.up.left", PaletteColor::orange,
                                  &JSONFormatterView::minify),
                view.actionButton("Validate", "checkmark.seal", PaletteColor::green,
                                  &JSONFormatterView::validate),
                stretch(),
                view.pushToggle("Tree View", "list.bullet.indent", PaletteColor::cyan,
                                &JSONFormatterView::showTreeView, &JSONFormatterView::setShowTreeView),
                view.pasteButton(&JSONFormatterView::setInputText),
                view.clearButton(&JSONFormatterView::setInputText),
            }),
            statusBadges(view, view.reading<std::optional<StatusBadge>>(&JSONFormatterView::status),
                         view.reading<std::optional<StatusBadge>>(&JSONFormatterView::warning)),
            columns({
                view.section("Input", {},
                             view.codeEditor(&JSONFormatterView::inputText, &JSONFormatterView::setInputText,
                                             "Paste your JSON here...")),
                view.either(&JSONFormatterView::showTreeView,
                            view.section("Tree View", {},
                                         view.treeView(treeRows, &JSONFormatterView::toggleRow,
                                                       "Enter valid JSON to see tree view")),
                            view.section("Output", {},
                                         view.output(&JSONFormatterView::outputText,
                                                     "Formatted output will appear here..."))),
            }),
        });
}

} // namespace

QWidget* jsonFormatterScreen(Services& services) {
    return makeScreen<JSONFormatterView>(services, body);
}

} // namespace korvane
