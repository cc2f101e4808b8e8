#include "Views/Sidebar/ToolSidebarView.h"

#include "Utilities/Text/Text.h"

#include <algorithm>
#include <iterator>

namespace korvane {

std::vector<Tool> ToolSidebarView::filteredTools() const {
    std::vector<Tool> tools;
    std::ranges::copy_if(allCases<Tool>, std::back_inserter(tools), [&](Tool tool) {
        return searchText.empty() || localizedCaseInsensitiveContains(rawValue(tool), searchText) ||
               localizedCaseInsensitiveContains(description(tool), searchText);
    });
    return tools;
}

std::string shortcutBadge(Tool tool) {
    const auto key = keyboardShortcut(tool);
    return key ? std::string("⌘") + *key : std::string();
}

} // namespace korvane
