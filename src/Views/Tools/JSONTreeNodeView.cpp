#include "Views/Tools/JSONTreeNodeView.h"

#include <fmt/format.h>

namespace korvane {

bool JSONTreeNodeView::hasChildren() const {
    return !node->children.empty();
}

std::string JSONTreeNodeView::count() const {
    switch (node->type) {
    case JSONValueType::object:
        return fmt::format("{{{}}}", node->children.size());
    case JSONValueType::array:
        return fmt::format("[{}]", node->children.size());
    default:
        return {};
    }
}

PaletteColor colorForType(JSONValueType type) {
    switch (type) {
    case JSONValueType::object:
        return PaletteColor::cyan;
    case JSONValueType::array:
        return PaletteColor::purple;
    case JSONValueType::string:
        return PaletteColor::green;
    case JSONValueType::number:
        return PaletteColor::orange;
    case JSONValueType::bool_:
        return PaletteColor::blue;
    case JSONValueType::null:
        return PaletteColor::gray;
    case JSONValueType::unknown:
        break;
    }
    return PaletteColor::red;
}

void JSONTree::setRoot(const JSONNode* root) {
    const bool rootStaysCollapsed = root && m_root && !m_rows.front().isExpanded;
    m_collapsed.clear();
    if (rootStaysCollapsed)
        m_collapsed.insert(root->id);
    m_root = root;
    layOut();
}

void JSONTree::toggle(std::size_t row) {
    if (row >= m_rows.size() || !m_rows[row].hasChildren())
        return;
    const auto id = m_rows[row].node->id;
    if (m_collapsed.erase(id) == 0)
        m_collapsed.insert(id);
    layOut();
}

void JSONTree::expandAll() {
    m_collapsed.clear();
    layOut();
}

void JSONTree::layOut() {
    m_rows.clear();
    ++m_revision;
    if (!m_root)
        return;

    struct Pending {
        const JSONNode* node;
        int depth;
    };

    // Nodes wait on the stack last child first, so that they come off it in reading order.
    std::vector<Pending> pending{{m_root, 0}};
    while (!pending.empty()) {
        const auto [node, depth] = pending.back();
        pending.pop_back();
        const bool isExpanded = m_collapsed.empty() || !m_collapsed.contains(node->id);
        m_rows.push_back({node, depth, isExpanded});
        if (!isExpanded)
            continue;
        for (auto child = node->children.rbegin(); child != node->children.rend(); ++child)
            pending.push_back({&*child, depth + 1});
    }
}

} // namespace korvane
