// What is asked of a tree of RopeTree.h; RopeTree.cpp makes them.
#include "Utilities/Text/RopeTree.h"

#include <algorithm>
#include <cassert>
#include <vector>

namespace korvane::RopeTree {

namespace {

/// From here on, single characters are cheaper than halves of a text.
constexpr std::size_t smallText = 64;

/// `firstWhere` in the characters of `text`, after a text with the summary `before`; it holds at the end of
/// `text`.
Crossing firstInText(std::string_view text, TextSummary before,
                     const std::function<bool(const TextSummary&)>& holds) {
    while (text.size() > smallText) {
        const auto middle = characterStart(text, text.size() / 2);
        const auto past = before + summaryOf(text.substr(0, middle));
        if (holds(past)) {
            text = text.substr(0, middle);
        } else {
            text = text.substr(middle);
            before = past;
        }
    }
    for (std::size_t offset = 0; offset < text.size();) {
        const auto character = summaryOfCharacterAt(text, offset);
        const auto after = before + character;
        if (holds(after))
            return {.before = before, .after = after};
        before = after;
        offset += character.bytes;
    }
    return {.before = before, .after = before};
}

/// Traverses a tree from left to right, and passes over whole subtrees where the caller can.
class Cursor {
public:
    explicit Cursor(const Node& root) : m_pending{&root} {}

    bool isAtEnd() const { return m_pending.empty(); }

    /// The subtree that begins here, of which some bytes may have been passed over if it is a leaf.
    const Node& subtree() const { return *m_pending.back(); }

    /// What has not been passed over of the subtree, in bytes.
    std::size_t remaining() const { return subtree().summary.bytes - m_passed; }

    /// Where these bytes are, if they are a run.
    const char* run() const { return subtree().run == nullptr ? nullptr : subtree().run + m_passed; }

    /// Goes from a subtree that has not begun to be passed over to its left subtree.
    void descend() {
        const auto& [left, right] = std::get<Branch>(subtree().content);
        m_pending.back() = right.get();
        m_pending.push_back(left.get());
    }

    void pass(std::size_t bytes) {
        m_passed += bytes;
        if (m_passed == subtree().summary.bytes) {
            m_pending.pop_back();
            m_passed = 0;
        }
    }

private:
    std::vector<const Node*> m_pending; ///< subtrees from here on, the first one last
    std::size_t m_passed = 0;
};

/// Passes over what both have here at least in common, and says whether that is equal.
bool passEqual(Cursor& left, Cursor& right) {
    if (&left.subtree() == &right.subtree() && left.remaining() == right.remaining()) {
        const auto bytes = left.remaining();
        left.pass(bytes);
        right.pass(bytes);
        return true;
    }
    // The larger subtree may contain the other one, and so is entered first.
    const bool leftIsLarger = left.remaining() >= right.remaining();
    auto& larger = leftIsLarger ? left : right;
    auto& smaller = leftIsLarger ? right : left;
    if (larger.run() == nullptr) {
        larger.descend();
        return true;
    }
    if (smaller.run() == nullptr) {
        smaller.descend();
        return true;
    }
    const auto bytes = smaller.remaining();
    const bool isEqual = left.run() == right.run() ||
                         std::string_view(left.run(), bytes) == std::string_view(right.run(), bytes);
    left.pass(bytes);
    right.pass(bytes);
    return isEqual;
}

} // namespace

TextSummary summary(const Tree& tree) {
    return tree ? tree->summary : TextSummary();
}

TextSummary summaryBefore(const Tree& tree, std::size_t offset) {
    TextSummary before;
    if (!tree)
        return before;
    assert(offset <= tree->summary.bytes);
    if (offset == tree->summary.bytes)
        return tree->summary;
    const auto* node = tree.get();
    while (const auto* branch = std::get_if<Branch>(&node->content)) {
        const auto& left = branch->left->summary;
        const bool isLeft = offset < before.bytes + left.bytes;
        node = isLeft ? branch->left.get() : branch->right.get();
        if (!isLeft)
            before += left;
    }
    const std::string_view text(node->run, node->summary.bytes);
    return before + summaryOf(text.substr(0, characterStart(text, offset - before.bytes)));
}

Crossing firstWhere(const Tree& tree, const std::function<bool(const TextSummary&)>& holds) {
    TextSummary before;
    if (holds(before))
        return {};
    if (!tree || !holds(tree->summary))
        return {.before = summary(tree), .after = summary(tree)};
    const auto* node = tree.get();
    while (const auto* branch = std::get_if<Branch>(&node->content)) {
        const auto past = before + branch->left->summary;
        const bool isLeft = holds(past);
        node = isLeft ? branch->left.get() : branch->right.get();
        if (!isLeft)
            before = past;
    }
    return firstInText({node->run, node->summary.bytes}, before, holds);
}

Run runAt(const Node& node, std::size_t offset) {
    assert(offset < node.summary.bytes);
    const auto* subtree = &node;
    std::size_t start = 0;
    while (subtree->run == nullptr) {
        const auto& [left, right] = std::get<Branch>(subtree->content);
        const bool isLeft = offset < start + left->summary.bytes;
        if (!isLeft)
            start += left->summary.bytes;
        subtree = isLeft ? left.get() : right.get();
    }
    return {.offset = start, .text = {subtree->run, subtree->summary.bytes}};
}

bool isEqual(const Tree& left, const Tree& right) {
    if (left == right)
        return true;
    if (summary(left) != summary(right))
        return false;
    Cursor first(*left);
    Cursor second(*right);
    while (!first.isAtEnd()) {
        if (!passEqual(first, second))
            return false;
    }
    return true;
}

} // namespace korvane::RopeTree
