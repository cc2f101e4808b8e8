#include "Desktop/Kit/ComputedOutput.h"

#include "Desktop/Kit/Editors.h"

#include <memory>
#include <utility>

namespace korvane {

QWidget* computedOutput(ViewCore& view, std::function<std::string()> text) {
    auto computed = [compute = std::move(text),
                     last = std::make_shared<std::string>()]() -> const std::string& {
        return *last = compute();
    };
    return codeEditor(
        view,
        {.text = std::move(computed),
         .setText = nullptr,
         .placeholder = [] { return std::string(); },
         .options = {
             .lineNumbers = false, .isSmall = true, .hasOverlayButton = true, .overlayHasLabel = true}});
}

} // namespace korvane
