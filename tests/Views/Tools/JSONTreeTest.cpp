/// The tree compared with a naive model, which lists all visible rows again after every change.
#include "Views/Tools/JSONTreeNodeView.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

using Root = std::shared_ptr<const JSONNode>;

void appendRandomChildren(JSONNode& node, int maxDepth) {
    const bool isContainer = maxDepth > 0 && *rc::gen::inRange(0, 3) > 0;
    if (!isContainer) {
        node.type = JSONValueType::null;
        node.value = "null";
        return;
    }
    node.type = *rc::gen::element(JSONValueType::array, JSONValueType::object);
    const auto count = *rc::gen::inRange(0, 6);
    for (int number = 0; number < count; ++number) {
        auto& child = node.children.emplace_back();
        child.key = node.type == JSONValueType::array ? "[" + std::to_string(number) + "]"
                                                      : std::string(1, static_cast<char>('a' + number));
        appendRandomChildren(child, maxDepth - 1);
    }
}

Root randomRoot() {
    auto root = std::make_shared<JSONNode>(JSONNode{.key = "root"});
    constexpr int maxDepth = 5;
    appendRandomChildren(*root, maxDepth);
    return root;
}

/// What `JSONTree` does, in a few lines and slowly.
struct Model {
    struct Row {
        JSONTreeNodeView view;
        std::optional<std::size_t> parent;
        std::string path;
    };

    Root root{};
    std::set<const JSONNode*> collapsed{};
    std::vector<Row> rows{};

    void setRoot(Root other) {
        const bool rootStaysCollapsed = root && other && collapsed.contains(root.get());
        collapsed.clear();
        root = std::move(other);
        if (rootStaysCollapsed)
            collapsed.insert(root.get());
        update();
    }

    void toggle(std::size_t row) {
        if (row >= rows.size() || !rows[row].view.hasChildren())
            return;
        const auto* node = rows[row].view.node;
        if (collapsed.erase(node) == 0)
            collapsed.insert(node);
        update();
    }

    void expandAll() {
        collapsed.clear();
        update();
    }

    void update() {
        rows.clear();
        if (root)
            append({.view = {root.get(), 0, !collapsed.contains(root.get())}, .parent = {}, .path = "$"});
    }

    void append(const Row& row) {
        const auto index = rows.size();
        rows.push_back(row);
        if (!row.view.isExpanded)
            return;
        const bool isObject = row.view.node->type == JSONValueType::object;
        for (const auto& child : row.view.node->children)
            append({.view = {&child, row.view.depth + 1, !collapsed.contains(&child)},
                    .parent = index,
                    .path = row.path + (isObject ? "." : "") + child.key});
    }
};

void expectSame(const JSONTree& tree, const Model& model) {
    RC_ASSERT(tree.rowCount() == model.rows.size());
    for (std::size_t row = 0; row < model.rows.size(); ++row) {
        RC_ASSERT(tree.row(row) == model.rows[row].view);
        RC_ASSERT(tree.parent(row) == model.rows[row].parent);
        RC_ASSERT(tree.path(row) == model.rows[row].path);
    }
}

RC_GTEST_PROP(JSONTree, ShowsTheRowsOfTheModelAfterAnyChanges, ()) {
    JSONTree tree;
    Model model;
    const auto setRoot = [&](const Root& root) {
        tree.setOutline(root ? JSONOutline::of(root) : nullptr);
        model.setRoot(root);
    };
    setRoot(randomRoot());
    constexpr int changes = 40;
    for (int change = 0; change < changes; ++change) {
        const auto kind = *rc::gen::inRange(0, 40);
        if (kind == 0) {
            tree.expandAll();
            model.expandAll();
        } else if (kind == 1) {
            setRoot(*rc::gen::inRange(0, 4) > 0 ? randomRoot() : nullptr);
        } else {
            const auto row = *rc::gen::inRange<std::size_t>(0, model.rows.size() + 2);
            tree.toggle(row);
            model.toggle(row);
        }
        expectSame(tree, model);
    }
}

TEST(JSONTree, CopiesShareTheOutlineAndNothingElse) {
    const auto root = std::make_shared<const JSONNode>(JSONFormatter::parseToTree("[[1],2]").value());
    JSONTree tree;
    tree.setOutline(JSONOutline::of(root));
    const auto owners = root.use_count();
    auto copy = tree;
    EXPECT_EQ(copy, tree);
    EXPECT_EQ(root.use_count(), owners);
    copy.toggle(0);
    EXPECT_NE(copy, tree);
    EXPECT_EQ(copy.rowCount(), 1U);
    EXPECT_EQ(tree.rowCount(), 4U);
    tree.setOutline(nullptr);
    EXPECT_EQ(copy.row(0).node, root.get()) << "a copy stays valid";
}

TEST(JSONTree, CountsAllChangesOfItsRows) {
    JSONTree tree;
    std::set<std::size_t> revisions{tree.revision()};
    const auto changes = [&](bool changed) { EXPECT_EQ(revisions.insert(tree.revision()).second, changed); };
    const auto root = std::make_shared<const JSONNode>(JSONFormatter::parseToTree("[[1],2]").value());
    tree.setOutline(JSONOutline::of(root));
    changes(true);
    tree.toggle(1);
    changes(true);
    tree.toggle(2);
    changes(false);
    tree.toggle(99);
    changes(false);
    tree.expandAll();
    changes(true);
    tree.setOutline(nullptr);
    changes(true);
}

TEST(JSONTree, KnowsTheWidestRowsWhileTheyAreHidden) {
    const auto root = std::make_shared<const JSONNode>(JSONFormatter::parseToTree("[[1],2]").value());
    JSONTree tree;
    EXPECT_TRUE(tree.columnsByDepth().empty());
    const auto outline = JSONOutline::of(root);
    tree.setOutline(outline);
    tree.toggle(0);
    EXPECT_TRUE(std::ranges::equal(tree.columnsByDepth(), outline->columnsByDepth()));
    tree.setOutline(nullptr);
    EXPECT_TRUE(tree.columnsByDepth().empty());
}

} // namespace
} // namespace korvane
