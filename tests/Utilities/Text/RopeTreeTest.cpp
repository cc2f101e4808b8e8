#include "Utilities/Text/RopeTree.h"

#include "support/RopeProperties.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <variant>

namespace korvane::RopeTree {
namespace {

std::size_t leafCount(const Tree& tree) {
    const auto* branch = std::get_if<Branch>(&tree->content);
    return branch == nullptr ? 1 : leafCount(branch->left) + leafCount(branch->right);
}

/// The height that an AVL tree with so many leaves has at most.
int maxHeight(std::size_t leaves) {
    return static_cast<int>(std::ceil(1.4405 * std::log2(static_cast<double>(leaves) + 1)));
}

std::string broken(const Tree& tree, const std::string& text) {
    return support::brokenTree(*tree, 0, support::naiveSummaries(text));
}

TEST(RopeTree, CutsATextIntoFullLeaves) {
    const std::string text(100 * maxLeafSize, 'a');
    EXPECT_EQ(leafCount(tree(text)), 100U);
    EXPECT_EQ(tree(text)->height, 7);
    EXPECT_EQ(broken(tree(text), text), "");
    EXPECT_EQ(tree(""), nullptr);
}

/// Pieces too large to be merged, appended, prepended and alternately.
TEST(RopeTree, StaysBalancedWhenPiecesAreConcatenated) {
    const std::string piece(maxMergedSize + 1, 'a');
    for (const bool prepends : {false, true}) {
        for (const bool alternates : {false, true}) {
            Tree whole;
            for (int count = 0; count < 400; ++count) {
                const bool isFirst = alternates ? count % 2 == 0 : prepends;
                whole = isFirst ? concatenation(tree(piece), whole) : concatenation(whole, tree(piece));
            }
            EXPECT_EQ(leafCount(whole), 400U);
            EXPECT_LE(whole->height, maxHeight(400));
            EXPECT_EQ(broken(whole, std::string(400 * piece.size(), 'a')), "");
        }
    }
}

TEST(RopeTree, MergesSmallPieces) {
    Tree whole;
    for (int count = 0; count < 20'000; ++count)
        whole = concatenation(whole, tree("ab"));
    EXPECT_EQ(whole->summary.bytes, 40'000U);
    EXPECT_LE(leafCount(whole), 40'000 / maxMergedSize + 1);
}

TEST(RopeTree, StaysBalancedWhenTreesOfAnyHeightMeet) {
    std::mt19937 random(3);
    std::string text(60 * maxLeafSize, 'a');
    for (std::size_t offset = 0; offset < text.size(); offset += 1 + random() % 100)
        text[offset] = '\n';
    auto whole = tree(text);
    for (int edit = 0; edit < 200; ++edit) {
        // Cuts a piece out and puts it elsewhere.
        const auto from = random() % text.size();
        const auto size = random() % (text.size() - from);
        const auto [before, rest] = split(whole, from);
        const auto [piece, after] = split(rest, size);
        const auto remaining = concatenation(before, after);
        const auto cut = text.substr(from, size);
        text.erase(from, size);
        const auto to = random() % (text.size() + 1);
        const auto [left, right] = split(remaining, to);
        whole = concatenation(concatenation(left, piece), right);
        text.insert(to, cut);
        ASSERT_LE(whole->height, maxHeight(leafCount(whole)));
        if (edit % 10 == 9) {
            ASSERT_EQ(broken(whole, text), "") << edit;
        }
    }
}

TEST(RopeTree, SplittingAndConcatenatingLeavesOneRun) {
    const std::string text(20 * maxLeafSize, 'a');
    const auto whole = tree(text);
    for (const auto offset : {std::size_t{1}, maxLeafSize - 1, maxLeafSize, 10 * maxLeafSize + 77}) {
        const auto [before, after] = split(whole, offset);
        const auto joined = concatenation(before, after);
        EXPECT_EQ(joined->run, whole->run);
        EXPECT_EQ(leafCount(joined), leafCount(whole));
    }
}

TEST(RopeTree, ReleasesABufferWithItsLastLeaf) {
    auto whole = tree(std::string(maxLeafSize, 'a'));
    const std::weak_ptr<const std::string> buffer = std::get<Leaf>(whole->content).buffer;
    auto [before, after] = split(whole, 10);
    whole.reset();
    before.reset();
    EXPECT_FALSE(buffer.expired());
    after.reset();
    EXPECT_TRUE(buffer.expired());
}

} // namespace
} // namespace korvane::RopeTree
