#include "Utilities/Text/RopeTree.h"

#include "Utilities/Text/UTF8.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <vector>

namespace korvane::RopeTree {

namespace {

using Buffer = std::shared_ptr<const std::string>;

std::size_t size(const Tree& tree) {
    return tree ? tree->summary.bytes : 0;
}

const Leaf* leafOf(const Tree& tree) {
    return std::get_if<Leaf>(&tree->content);
}

const Branch& branchOf(const Tree& tree) {
    return std::get<Branch>(tree->content);
}

/// The text of a leaf, or of another tree that is one run.
std::string_view runOf(const Node& node) {
    assert(node.run != nullptr);
    return {node.run, node.summary.bytes};
}

/// A leaf for `text`, which is in `buffer` and has that summary; none if it is empty.
Tree leaf(const Buffer& buffer, std::string_view text, const TextSummary& summary) {
    assert(text.size() == summary.bytes && text.size() <= maxLeafSize);
    if (text.empty())
        return nullptr;
    return std::make_shared<const Node>(Node{.summary = summary,
                                             .largestBuffer = buffer->capacity(),
                                             .run = text.data(),
                                             .height = 0,
                                             .content = Leaf{buffer}});
}

Tree leaf(const Buffer& buffer, std::string_view text) {
    return leaf(buffer, text, summaryOf(text));
}

/// Whether the text of `right` follows that of `left` in the same buffer. The NUL that ends each buffer is
/// between the texts of different ones.
bool isContinued(const Node& left, const Node& right) {
    return left.run != nullptr && right.run == left.run + left.summary.bytes;
}

/// A branch; the heights differ by one at most.
Tree branch(Tree left, Tree right) {
    assert(std::abs(left->height - right->height) <= 1);
    const auto summary = left->summary + right->summary;
    const auto largestBuffer = std::max(left->largestBuffer, right->largestBuffer);
    const auto* const run = isContinued(*left, *right) ? left->run : nullptr;
    const auto height = std::max(left->height, right->height) + 1;
    return std::make_shared<const Node>(Node{.summary = summary,
                                             .largestBuffer = largestBuffer,
                                             .run = run,
                                             .height = height,
                                             .content = Branch{std::move(left), std::move(right)}});
}

/// A branch whose heights differ by two at most, rotated to balance it.
Tree balancedBranch(Tree left, Tree right) {
    if (right->height > left->height + 1) {
        const auto& [inner, outer] = branchOf(right);
        if (inner->height <= outer->height)
            return branch(branch(std::move(left), inner), outer);
        const auto& [first, second] = branchOf(inner);
        return branch(branch(std::move(left), first), branch(second, outer));
    }
    if (left->height > right->height + 1) {
        const auto& [outer, inner] = branchOf(left);
        if (inner->height <= outer->height)
            return branch(outer, branch(inner, std::move(right)));
        const auto& [first, second] = branchOf(inner);
        return branch(branch(outer, first), branch(second, std::move(right)));
    }
    return branch(std::move(left), std::move(right));
}

/// The leaves of both trees as they are. O(the difference of the heights).
Tree joined(Tree left, Tree right) {
    if (!left || !right)
        return left ? left : right;
    if (left->height > right->height + 1) {
        const auto& [outer, inner] = branchOf(left);
        return balancedBranch(outer, joined(inner, std::move(right)));
    }
    if (right->height > left->height + 1) {
        const auto& [inner, outer] = branchOf(right);
        return balancedBranch(joined(std::move(left), inner), outer);
    }
    return branch(std::move(left), std::move(right));
}

Tree balanced(const std::vector<Tree>& leaves, std::size_t first, std::size_t last) {
    if (last - first == 1)
        return leaves[first];
    const auto middle = first + (last - first) / 2;
    return branch(balanced(leaves, first, middle), balanced(leaves, middle, last));
}

const Tree& firstLeaf(const Tree& tree) {
    const auto* node = &tree;
    while (leafOf(*node) == nullptr)
        node = &branchOf(*node).left;
    return *node;
}

const Tree& lastLeaf(const Tree& tree) {
    const auto* node = &tree;
    while (leafOf(*node) == nullptr)
        node = &branchOf(*node).right;
    return *node;
}

Tree withoutFirstLeaf(const Tree& tree) {
    if (leafOf(tree) != nullptr)
        return nullptr;
    return joined(withoutFirstLeaf(branchOf(tree).left), branchOf(tree).right);
}

Tree withoutLastLeaf(const Tree& tree) {
    if (leafOf(tree) != nullptr)
        return nullptr;
    return joined(branchOf(tree).left, withoutLastLeaf(branchOf(tree).right));
}

/// One leaf for the text of two that are small, or adjacent in a buffer; otherwise none.
Tree merged(const Tree& left, const Tree& right) {
    const auto summary = left->summary + right->summary;
    if (isContinued(*left, *right) && summary.bytes <= maxLeafSize)
        return leaf(leafOf(left)->buffer, {left->run, summary.bytes}, summary);
    if (summary.bytes > maxMergedSize)
        return nullptr;
    std::string text;
    text.reserve(summary.bytes);
    text.append(runOf(*left)).append(runOf(*right));
    const auto buffer = std::make_shared<const std::string>(std::move(text));
    return leaf(buffer, *buffer, summary);
}

/// The texts of both trees, of which `right` begins with a character of the whole text.
Tree mergedConcatenation(const Tree& left, const Tree& right) {
    if (!left || !right)
        return left ? left : right;
    if (auto middle = merged(lastLeaf(left), firstLeaf(right)))
        return joined(joined(withoutLastLeaf(left), std::move(middle)), withoutFirstLeaf(right));
    return joined(left, right);
}

/// A character that the end of a text and the start of the next form together.
struct Straddling {
    std::size_t before = 0; ///< how many of its bytes are in the first text
    std::string bytes{};    ///< empty if there is no such character
};

Straddling straddlingCharacter(const Tree& left, const Tree& right) {
    constexpr std::size_t maxCharacterSize = 4;
    // The last character of `left` is within a leaf; bytes at the start of `right` that could continue it may
    // be in a leaf each.
    const auto end = runOf(*lastLeaf(left));
    const std::string tail(end.substr(end.size() - std::min(end.size(), maxCharacterSize - 1)));
    auto bytes = tail;
    for (std::size_t offset = 0; offset < std::min(size(right), maxCharacterSize - 1);) {
        const auto run = runAt(*right, offset);
        bytes += run.text.substr(offset - run.offset, maxCharacterSize - 1 - offset);
        offset = run.offset + run.text.size();
    }
    const auto start = characterStart(bytes, tail.size());
    if (start == tail.size())
        return {};
    return {.before = tail.size() - start, .bytes = bytes.substr(start, decodeAt(bytes, start).end - start)};
}

} // namespace

Tree tree(std::string text) {
    if (text.empty())
        return nullptr;
    const auto buffer = std::make_shared<const std::string>(std::move(text));
    const std::string_view whole = *buffer;
    std::vector<Tree> leaves;
    leaves.reserve(whole.size() / (maxLeafSize - 3) + 1);
    for (std::size_t offset = 0; offset < whole.size();) {
        const auto end = characterStart(whole, std::min(offset + maxLeafSize, whole.size()));
        leaves.push_back(leaf(buffer, whole.substr(offset, end - offset)));
        offset = end;
    }
    return balanced(leaves, 0, leaves.size());
}

Tree concatenation(const Tree& left, const Tree& right) {
    if (!left || !right)
        return left ? left : right;
    auto straddling = straddlingCharacter(left, right);
    if (straddling.bytes.empty())
        return mergedConcatenation(left, right);
    const auto before = split(left, size(left) - straddling.before).first;
    const auto after = split(right, straddling.bytes.size() - straddling.before).second;
    return mergedConcatenation(mergedConcatenation(before, tree(std::move(straddling.bytes))), after);
}

std::pair<Tree, Tree> split(const Tree& tree, std::size_t offset) {
    assert(offset <= size(tree));
    if (offset == 0)
        return {nullptr, tree};
    if (offset == size(tree))
        return {tree, nullptr};
    if (const auto* piece = leafOf(tree)) {
        const auto text = runOf(*tree);
        return {leaf(piece->buffer, text.substr(0, offset)), leaf(piece->buffer, text.substr(offset))};
    }
    const auto& [left, right] = branchOf(tree);
    if (offset <= size(left)) {
        auto [before, after] = split(left, offset);
        return {std::move(before), joined(std::move(after), right)};
    }
    auto [before, after] = split(right, offset - size(left));
    return {joined(left, std::move(before)), std::move(after)};
}

} // namespace korvane::RopeTree
