#include "Views/Sidebar/ToolSidebarView.h"

#include "Utilities/Text/Text.h"

#include <fmt/format.h>

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

std::string ToolSidebarView::footerToolTip() const {
    constexpr auto promise = "Korvane opens no network connection.";
    return closedNetwork
               ? fmt::format("{} The system enforces this.", promise)
               : fmt::format("{} The system does not enforce this: {}.", promise, closedNetwork.error());
}

std::string shortcutBadge(Tool tool) {
    const auto key = keyboardShortcut(tool);
    return key ? std::string("⌘") + *key : std::string();
}

} // namespace korvane
