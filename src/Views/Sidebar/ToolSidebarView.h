/// The state of the sidebar: the search text, the tools that it finds, and what is known of the network. The
/// selection belongs to the window.
#pragma once

#include "Models/Tool.h"
#include "Utilities/ClosedNetwork.h"

#include <expected>
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
    NetworkClosure closedNetwork = std::unexpected("nothing has asked for it"); ///< of this process

    void setSearchText(std::string text) { searchText = std::move(text); }

    /// The tools whose name or description contains the search text, ignoring case, in the order of `Tool`;
    /// all tools while it is empty. The text is not trimmed: a space matches a space.
    std::vector<Tool> filteredTools() const;

    /// What the footer promises, and whether the system enforces it or why it does not.
    std::string footerToolTip() const;

    bool operator==(const ToolSidebarView&) const = default;
};

/// The text of a tool's shortcut badge, such as "⌘1"; empty for a tool without a shortcut.
std::string shortcutBadge(Tool tool);

} // namespace korvane
