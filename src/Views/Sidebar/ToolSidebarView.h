/// The sidebar's own state, the search text, and what follows from it. The selection is the window's.
#pragma once

#include "Models/Tool.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct ToolSidebarView {
    static constexpr std::string_view icon = "hammer.fill";
    static constexpr std::string_view title = "Korvane";
    static constexpr std::string_view searchPlaceholder = "Search tools...";
    static constexpr std::string_view footerIcon = "lock.shield.fill";
    static constexpr std::string_view footer = "100% Local • Privacy First";

    std::string searchText{};

    void setSearchText(std::string text) { searchText = std::move(text); }

    /// The tools whose name or description contains the search text, whatever its case, in the catalogue's
    /// order; all of them while it is empty. The text is not trimmed: a space finds what has a space.
    std::vector<Tool> filteredTools() const;

    bool operator==(const ToolSidebarView&) const = default;
};

/// The text of a tool's shortcut badge, such as "⌘1", or nothing for a tool without a shortcut.
std::string shortcutBadge(Tool tool);

} // namespace korvane
