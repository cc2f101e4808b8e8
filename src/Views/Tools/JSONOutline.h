/// The outline of a JSON tree: all of its nodes in pre-order, so that a subtree is an interval of them. It is
/// never changed, and does not say which nodes are visible (see `JSONTree`).
#pragma once

#include "Utilities/JSON/JSONFormatter.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace korvane {

/// Nodes are numbered from 0, the root, in pre-order. An index must be less than `size()`.
class JSONOutline {
public:
    /// The outline of the tree of `root`, which is not null and is kept alive. Null if `stop` is requested.
    /// Reads all nodes and their texts, about 60 ns a node, and may run on any thread. Takes 16 bytes a node.
    static std::shared_ptr<const JSONOutline> of(std::shared_ptr<const JSONNode> root,
                                                 const std::stop_token& stop = {});

    /// The number of nodes; at least 1.
    std::size_t size() const { return m_entries.size(); }

    const JSONNode& node(std::size_t index) const { return *m_entries[index].node; }

    /// The index after the last descendant of a node.
    std::size_t subtreeEnd(std::size_t index) const { return m_entries[index].subtreeEnd; }

    /// None for the root.
    std::optional<std::size_t> parent(std::size_t index) const;

    /// The number of ancestors. Takes time proportional to it.
    int depth(std::size_t index) const;

    /// For each depth, how many columns of a monospaced font the texts of a row (key, value and count) take
    /// at most.
    std::span<const std::size_t> columnsByDepth() const { return m_columnsByDepth; }

private:
    /// 32 bits suffice, as a tree with more nodes would take half a terabyte.
    struct Entry {
        const JSONNode* node;
        std::uint32_t parent; ///< the root's is itself
        std::uint32_t subtreeEnd;
    };

    JSONOutline() = default;

    /// Appends a subtree. Returns false if `stop` was requested.
    bool append(const JSONNode& node, std::size_t parent, std::size_t depth, const std::stop_token& stop);

    std::shared_ptr<const JSONNode> m_root{};
    std::vector<Entry> m_entries{};
    std::vector<std::size_t> m_columnsByDepth{};
};

} // namespace korvane
