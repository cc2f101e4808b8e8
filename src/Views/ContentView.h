/// The state of the main window: the selected tool and the sidebar; also its sizes and the texts of its
/// menus. The states of the screens are not part of it: they start from their defaults whenever they are
/// shown.
#pragma once

#include "Models/Tool.h"
#include "Views/Sidebar/ToolSidebarView.h"

#include <array>
#include <optional>
#include <string_view>

namespace korvane {

struct Services;

struct ContentView {
    std::optional<Tool> selectedTool = Tool::jsonFormatter; ///< none shows the welcome view
    ToolSidebarView sidebar{};

    void select(Tool tool) { selectedTool = tool; }

    bool operator==(const ContentView&) const = default;
};

/// The size of the window, in pixels at a 13-pixel body text.
struct WindowMetrics {
    static constexpr int defaultWidth = 1100;
    static constexpr int defaultHeight = 750;
    static constexpr int minWidth = 900;
    static constexpr int minHeight = 600;
    static constexpr int sidebarMinWidth = 260;
    static constexpr int sidebarWidth = 280;
    static constexpr int sidebarMaxWidth = 320;
};

/// The name of the notification that the menu posts for a chosen tool. Nothing in the program observes it
/// yet.
inline constexpr std::string_view selectToolNotification = "selectTool";

/// Choosing `tool` in the menu: posts the notification, and does not select the tool.
void postSelectTool(Tool tool, Services& services);

/// The texts of the menus that do not come from `Tool`.
struct MenuTexts {
    static constexpr std::string_view tools = "Tools";
    static constexpr std::string_view help = "Korvane Help";
    static constexpr std::string_view version = "Version 1.0.0";
    static constexpr std::string_view localProcessing = "100% Local Processing";
};

/// Shown in place of a screen while no tool is selected.
struct WelcomeView {
    static constexpr std::string_view icon = "hammer.fill";
    static constexpr std::string_view title = "Korvane";
    static constexpr std::string_view message = "Select a tool from the sidebar to get started";
    static constexpr std::array tools{Tool::jsonFormatter, Tool::base64, Tool::urlEncoder,
                                      Tool::hashGenerator};
};

} // namespace korvane
