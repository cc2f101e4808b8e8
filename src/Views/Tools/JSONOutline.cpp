#include "Views/Tools/JSONOutline.h"

#include "Utilities/Text/Text.h"
#include "Views/Tools/JSONTreeNodeView.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <string_view>
#include <utility>

namespace korvane {

namespace {

/// How many nodes are appended between two looks at the stop token: about a millisecond.
constexpr std::size_t stopInterval = 32'768;

std::size_t columnsOf(const JSONNode& node) {
    const auto value = node.value ? columnCount(*node.value) : JSONTreeNodeView{.node = &node}.count().size();
    return columnCount(node.key) + value;
}

} // namespace

std::shared_ptr<const JSONOutline> JSONOutline::of(std::shared_ptr<const JSONNode> root,
                                                   const std::stop_token& stop) {
    const std::shared_ptr<JSONOutline> outline(new JSONOutline);
    outline->m_root = std::move(root);
    if (!outline->append(*outline->m_root, 0, 0, stop))
        return nullptr;
    return outline;
}

bool JSONOutline::append(const JSONNode& node, std::size_t parent, std::size_t depth,
                         const std::stop_token& stop) {
    const auto index = m_entries.size();
    assert(index < std::numeric_limits<std::uint32_t>::max());
    if (index % stopInterval == 0 && stop.stop_requested())
        return false;
    m_entries.push_back({.node = &node, .parent = static_cast<std::uint32_t>(parent), .subtreeEnd = 0});
    if (depth == m_columnsByDepth.size())
        m_columnsByDepth.resize(depth + 1);
    m_columnsByDepth[depth] = std::max(m_columnsByDepth[depth], columnsOf(node));
    for (const auto& child : node.children) {
        if (!append(child, index, depth + 1, stop))
            return false;
    }
    m_entries[index].subtreeEnd = static_cast<std::uint32_t>(m_entries.size());
    return true;
}

std::optional<std::size_t> JSONOutline::parent(std::size_t index) const {
    return index == 0 ? std::nullopt : std::optional<std::size_t>(m_entries[index].parent);
}

int JSONOutline::depth(std::size_t index) const {
    int depth = 0;
    for (; index != 0; index = m_entries[index].parent)
        ++depth;
    return depth;
}

} // namespace korvane
