#include "Views/Tools/JSONOutline.h"

#include <gtest/gtest.h>

#include <memory>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

std::shared_ptr<const JSONNode> parsed(std::string_view text) {
    return std::make_shared<const JSONNode>(JSONFormatter::parseToTree(text).value());
}

struct Place {
    std::string key;
    int depth;
    std::optional<std::size_t> parent;
    std::size_t subtreeEnd;

    bool operator==(const Place&) const = default;
};

std::vector<Place> placesOf(const JSONOutline& outline) {
    std::vector<Place> places;
    for (std::size_t index = 0; index < outline.size(); ++index)
        places.push_back({outline.node(index).key, outline.depth(index), outline.parent(index),
                          outline.subtreeEnd(index)});
    return places;
}

std::vector<std::size_t> columnsOf(std::string_view text) {
    const auto outline = JSONOutline::of(parsed(text));
    return {outline->columnsByDepth().begin(), outline->columnsByDepth().end()};
}

TEST(JSONOutline, ListsTheNodesInPreOrder) {
    const auto outline = JSONOutline::of(parsed(R"({"b":{"y":[true],"x":null},"a":["s",2],"e":{}})"));
    const std::vector<Place> expected{{"root", 0, std::nullopt, 9},
                                      {"a", 1, 0, 4},
                                      {"[0]", 2, 1, 3},
                                      {"[1]", 2, 1, 4},
                                      {"b", 1, 0, 8},
                                      {"x", 2, 4, 6},
                                      {"y", 2, 4, 8},
                                      {"[0]", 3, 6, 8},
                                      {"e", 1, 0, 9}};
    EXPECT_EQ(placesOf(*outline), expected);
    EXPECT_EQ(placesOf(*JSONOutline::of(parsed("42"))), (std::vector<Place>{{"root", 0, std::nullopt, 1}}));
}

TEST(JSONOutline, KeepsTheTreeAlive) {
    auto root = parsed("[1,[2]]");
    const std::weak_ptr<const JSONNode> tree = root;
    auto outline = JSONOutline::of(std::move(root));
    EXPECT_EQ(outline->node(3).value, "2");
    outline.reset();
    EXPECT_TRUE(tree.expired());
}

TEST(JSONOutline, FindsTheWidestTextsOfEveryDepth) {
    EXPECT_EQ(columnsOf("42"), (std::vector<std::size_t>{6})) << "root 42";
    EXPECT_EQ(columnsOf("[[],[1,200],3]"), (std::vector<std::size_t>{7, 6, 6}))
        << "root [3], [1] [2], [1] 200";
    EXPECT_EQ(columnsOf(R"({"name":"漢字","n":"four"})"), (std::vector<std::size_t>{7, 10}));
}

TEST(JSONOutline, StopsWhenRequested) {
    const auto stop = std::make_unique<std::stop_source>(); // a local variable causes a warning
    EXPECT_NE(JSONOutline::of(parsed("[1]"), stop->get_token()), nullptr);
    stop->request_stop();
    EXPECT_EQ(JSONOutline::of(parsed("[1]"), stop->get_token()), nullptr);
}

TEST(JSONOutline, TakesTheDeepestTree) {
    const auto outline = JSONOutline::of(parsed(std::string(512, '[') + std::string(512, ']')));
    EXPECT_EQ(outline->size(), 512U);
    EXPECT_EQ(outline->depth(511), 511);
    EXPECT_EQ(outline->columnsByDepth().size(), 512U);
}

} // namespace
} // namespace korvane
