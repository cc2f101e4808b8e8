#include "Views/ContentView.h"

#include "Views/Components/StatusBadge.h"
#include "support/FakeServices.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

TEST(ContentView, OpensOnTheJSONFormatter) {
    EXPECT_EQ(ContentView{}.selectedTool, Tool::jsonFormatter);
}

TEST(ContentView, ChoosingAToolInTheMenuPostsANotification) {
    FakeServices fakes;
    for (const auto tool : allCases<Tool>)
        postSelectTool(tool, fakes.services);
    ASSERT_EQ(fakes.posted.size(), allCases<Tool>.size());
    EXPECT_EQ(fakes.posted.front(), (std::pair<std::string, Tool>("selectTool", Tool::jsonFormatter)));
    EXPECT_EQ(fakes.posted.back(), (std::pair<std::string, Tool>("selectTool", allCases<Tool>.back())));
}

TEST(ToolSidebarView, ListsAllToolsWithoutASearch) {
    const auto tools = ToolSidebarView{}.filteredTools();
    EXPECT_TRUE(std::ranges::equal(tools, allCases<Tool>));
}

TEST(ToolSidebarView, FindsToolsByNameOrDescriptionIgnoringCase) {
    struct Row {
        std::string_view search;
        std::vector<Tool> expected;
    };

    const std::vector<Row> rows = {
        {"hash", {Tool::hashGenerator}},
        {"generate", {Tool::hashGenerator, Tool::uuidGenerator, Tool::loremIpsum, Tool::passwordGenerator}},
        {"JSON", {Tool::jsonFormatter}},
        {"json", {Tool::jsonFormatter}},
        {"uRl", {Tool::urlEncoder}},
        {"curlybraces", {}}, // glyph names are not searched
        {"cyan", {}},
        {"no such tool", {}},
        {" base64", {Tool::base64}}, // not trimmed: this is the description's "decode Base64"
        {"base64 ", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ToolSidebarView{.searchText = std::string(row.search)}.filteredTools(), row.expected)
            << row.search;
    EXPECT_EQ(ToolSidebarView{.searchText = " "}.filteredTools().size(), allCases<Tool>.size());
}

TEST(ToolSidebarView, ShowsShortcutsOfTheFirstTenTools) {
    EXPECT_EQ(shortcutBadge(Tool::jsonFormatter), "⌘1");
    EXPECT_EQ(shortcutBadge(Tool::textDiff), "⌘0");
    EXPECT_EQ(shortcutBadge(Tool::textTransformer), "");
}

TEST(ToolSidebarView, HasItsFixedTexts) {
    EXPECT_EQ(ToolSidebarView::title, "Korvane");
    EXPECT_EQ(ToolSidebarView::searchPlaceholder, "Search tools...");
    EXPECT_EQ(ToolSidebarView::footer, "100% Local • Privacy First");
    EXPECT_EQ(WelcomeView::title, "Korvane");
    EXPECT_EQ(WelcomeView::message, "Select a tool from the sidebar to get started");
    EXPECT_EQ(MenuTexts::tools, "Tools");
    EXPECT_EQ(MenuTexts::help, "Korvane Help");
    EXPECT_EQ(MenuTexts::version, "Version 1.0.0");
    EXPECT_EQ(MenuTexts::localProcessing, "100% Local Processing");
}

TEST(ToolSidebarView, TheToolTipOfTheFooterTellsWhatIsEnforced) {
    ToolSidebarView sidebar;
    EXPECT_EQ(sidebar.footerToolTip(), "Korvane opens no network connection. "
                                       "The system does not enforce this: nothing has asked for it.");
    sidebar.closedNetwork = std::unexpected("the reason");
    EXPECT_EQ(sidebar.footerToolTip(),
              "Korvane opens no network connection. The system does not enforce this: the reason.");
    sidebar.closedNetwork = {};
    EXPECT_EQ(sidebar.footerToolTip(), "Korvane opens no network connection. The system enforces this.");
}

TEST(StatusBadge, HasAGlyphAndAColourForEachStatus) {
    struct Row {
        Status status;
        std::string_view icon;
        PaletteColor color;
    };

    constexpr Row rows[] = {
        {Status::success, "checkmark.circle.fill", PaletteColor::green},
        {Status::error, "xmark.circle.fill", PaletteColor::red},
        {Status::warning, "exclamationmark.triangle.fill", PaletteColor::orange},
        {Status::info, "info.circle.fill", PaletteColor::blue},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(icon(row.status), row.icon);
        EXPECT_EQ(color(row.status), row.color);
    }
}

} // namespace
} // namespace korvane
