#include "Desktop/Tools/Markdown/ComputedOutput.h"

#include "Desktop/Text/Editors.h"

#include <memory>

namespace korvane {

namespace {

/// The width of the text that a button with a label covers, in pixels at a 13-pixel body text.
constexpr int labelledButtonRoom = 92;

} // namespace

QWidget* computedOutput(Store& store, const Reader<std::string>& text) {
    const auto computed = [compute = text.of(store),
                           last = std::make_shared<std::string>()]() -> const std::string& {
        return *last = compute();
    };
    return readOnlyEditor(store, computed, "",
                          {.lineNumbers = false, .isSmall = true, .buttonRoom = labelledButtonRoom});
}

} // namespace korvane
