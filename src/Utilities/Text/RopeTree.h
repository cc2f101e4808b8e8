/// The tree of a `Rope`: leaves that refer to pieces of shared buffers, in order, below branches. Nothing in
/// it changes once made, so that trees share their subtrees, also between threads. Use `Rope`; this is its
/// inside.
///
/// No leaf begins inside a character (see `TextSummary`), so a summary is the sum of those below it. The
/// heights of the two subtrees of a branch differ by one at most (an AVL tree whose text is in its leaves);
/// trees are joined and split as in Blelloch, Ferizovic and Sun, "Just Join for Parallel Ordered Sets"
/// (2016).
#pragma once

#include "Utilities/Text/TextSummary.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace korvane::RopeTree {

struct Node;

/// Null is the empty text; no node is empty.
using Tree = std::shared_ptr<const Node>;

struct Leaf {
    std::shared_ptr<const std::string> buffer;
};

struct Branch {
    Tree left;
    Tree right;
};

struct Node {
    TextSummary summary{};
    std::size_t largestBuffer = 0; ///< the capacity in bytes of the largest buffer that a leaf refers to
    const char* run = nullptr;     ///< where the text is, if it is one run of one buffer, as in a leaf
    int height = 0;                ///< 0 for a leaf
    std::variant<Leaf, Branch> content{};
};

/// The maximum size of a leaf in bytes: it is scanned, in about a microsecond, where a position is in it.
inline constexpr std::size_t maxLeafSize = 8192;

/// Neighbours that meet in an edit become one leaf if it has at most this size in bytes, so that small
/// insertions do not become a leaf each. More would copy more of the text in each edit.
inline constexpr std::size_t maxMergedSize = 2048;

/// A tree of leaves that refer to `text`, which is not copied.
Tree tree(std::string text);

/// The text of `left` and then that of `right`. O(log n).
Tree concatenation(const Tree& left, const Tree& right);

/// The text before `offset` and the text after it. O(log n), and the scan of a leaf.
std::pair<Tree, Tree> split(const Tree& tree, std::size_t offset);

/// The summary; zero for the empty text.
TextSummary summary(const Tree& tree);

/// The summary of the text before the character that contains the byte at `offset`, or of all of it.
TextSummary summaryBefore(const Tree& tree, std::size_t offset);

/// The text before and after a character; both are the same at the start and the end of the text.
struct Crossing {
    TextSummary before{};
    TextSummary after{};
};

/// The character with which `holds` becomes true: it holds for the summary of the text up to and including
/// this character and all longer ones, and for no shorter one. If it holds for the empty text, its start; if
/// never, the end. O(log n) calls.
Crossing firstWhere(const Tree& tree, const std::function<bool(const TextSummary&)>& holds);

/// A maximal run of one buffer that is a subtree, and where it begins in the text.
struct Run {
    std::size_t offset = 0;
    std::string_view text{};
};

/// The run that contains the byte at `offset`, which is less than the size of the text below `node`. O(log
/// n).
Run runAt(const Node& node, std::size_t offset);

/// Whether the texts are equal. Subtrees and pieces of buffers that both have at the same offset are not
/// read.
bool isEqual(const Tree& left, const Tree& right);

/// The number of bytes that both texts begin with, or end with. Subtrees and pieces of buffers that both have
/// at the same distance from that end are not read.
std::size_t commonPrefix(const Tree& left, const Tree& right);
std::size_t commonSuffix(const Tree& left, const Tree& right);

} // namespace korvane::RopeTree
