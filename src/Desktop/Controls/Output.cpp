#include "Desktop/Controls/Output.h"

#include "Desktop/Controls/Buttons.h"
#include "Desktop/Layout/Alternatives.h"
#include "Desktop/Layout/Overlay.h"

namespace korvane {

namespace {

/// The width of the text that a button without a label covers, in pixels at a 13-pixel body text.
constexpr int iconButtonRoom = 40;

} // namespace

QWidget* output(Store& store, const Reader<Rope>& text, const Reader<std::string>& placeholder,
                const Reader<bool>& isStale, CodeEditorOptions options) {
    options.buttonRoom = iconButtonRoom;
    const auto read = text.of(store);
    auto* button = copyButton(store, read, {.look = {.showLabel = false, .isOverlay = true}});
    auto* whole = overlay(readOnlyEditor(store, text, placeholder, options, isStale), button);
    store.onRefresh([button, stale = isStale.of(store)] { button->setEnabled(!stale()); });
    when(store, [read] { return !read().empty(); }, button);
    return whole;
}

} // namespace korvane
