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

enum class Direction { forward, backward };

/// Traverses a tree from one of its ends to the other, and passes over whole subtrees where the caller can.
class Cursor {
public:
    Cursor(const Node& root, Direction direction) : m_direction(direction), m_pending{&root} {}

    bool isAtEnd() const { return m_pending.empty(); }

    /// The subtree that begins here, of which some bytes may have been passed over if it is a run.
    const Node& subtree() const { return *m_pending.back(); }

    /// What has not been passed over of the subtree, in bytes.
    std::size_t remaining() const { return subtree().summary.bytes - m_passed; }

    bool isRun() const { return subtree().run != nullptr; }

    /// The next bytes of the run here, at most as many as remain.
    std::string_view next(std::size_t bytes) const {
        const auto skipped = m_direction == Direction::forward ? m_passed : remaining() - bytes;
        return {subtree().run + skipped, bytes};
    }

    /// Goes from a subtree that has not begun to be passed over to the nearer of its subtrees.
    void descend() {
        const auto& [left, right] = std::get<Branch>(subtree().content);
        const bool isForward = m_direction == Direction::forward;
        m_pending.back() = (isForward ? right : left).get();
        m_pending.push_back((isForward ? left : right).get());
    }

    void pass(std::size_t bytes) {
        m_passed += bytes;
        if (m_passed == subtree().summary.bytes) {
            m_pending.pop_back();
            m_passed = 0;
        }
    }

private:
    Direction m_direction;
    std::vector<const Node*> m_pending; ///< subtrees from here on, the first one last
    std::size_t m_passed = 0;
};

/// The number of equal bytes at the start, or the end, of two texts of the same size.
std::size_t commonLength(std::string_view left, std::string_view right, Direction direction) {
    if (left.data() == right.data() || left == right)
        return left.size();
    if (direction == Direction::backward)
        return static_cast<std::size_t>(std::mismatch(left.rbegin(), left.rend(), right.rbegin()).first -
                                        left.rbegin());
    return static_cast<std::size_t>(std::ranges::mismatch(left, right).in1 - left.begin());
}

/// Whether both are before what they share.
bool isAtSharedSubtree(const Cursor& left, const Cursor& right) {
    return &left.subtree() == &right.subtree() && left.remaining() == right.remaining();
}

/// Descends in one of them, unless both are at runs; returns whether it did. The larger subtree may contain
/// the other one, so it comes first.
bool descend(Cursor& left, Cursor& right) {
    const bool leftIsLarger = left.remaining() >= right.remaining();
    for (auto* cursor : {leftIsLarger ? &left : &right, leftIsLarger ? &right : &left}) {
        if (!cursor->isRun()) {
            cursor->descend();
            return true;
        }
    }
    return false;
}

/// The number of bytes that two texts have in common at their start, or at their end.
std::size_t commonLength(const Node& left, const Node& right, Direction direction) {
    constexpr std::size_t maxCompared = 4096; // at once, because where it differs is found slowly
    Cursor first(left, direction);
    Cursor second(right, direction);
    std::size_t length = 0;
    while (!first.isAtEnd() && !second.isAtEnd()) {
        auto bytes = std::min(first.remaining(), second.remaining());
        if (!isAtSharedSubtree(first, second)) {
            if (descend(first, second))
                continue;
            if (first.next(bytes).data() != second.next(bytes).data())
                bytes = std::min(bytes, maxCompared);
            const auto same = commonLength(first.next(bytes), second.next(bytes), direction);
            if (same < bytes)
                return length + same;
        }
        first.pass(bytes);
        second.pass(bytes);
        length += bytes;
    }
    return length;
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
    if (!left || !right || left->summary != right->summary)
        return false;
    return commonPrefix(left, right) == left->summary.bytes;
}

std::size_t commonPrefix(const Tree& left, const Tree& right) {
    return left && right ? commonLength(*left, *right, Direction::forward) : 0;
}

std::size_t commonSuffix(const Tree& left, const Tree& right) {
    return left && right ? commonLength(*left, *right, Direction::backward) : 0;
}

} // namespace korvane::RopeTree
