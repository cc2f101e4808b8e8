/// The visible rows of a JSON tree: one for each node whose ancestors are all expanded.
#pragma once

#include "Models/PaletteColor.h"
#include "Utilities/JSON/JSONFormatter.h"
#include "Views/Tools/JSONOutline.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace korvane {

/// One row of the tree.
struct JSONTreeNodeView {
    const JSONNode* node = nullptr;
    int depth = 0; ///< 0 for the root
    bool isExpanded = true;

    bool hasChildren() const;

    /// The number of children shown beside a container, such as "{3}" or "[0]"; empty for a scalar.
    std::string count() const;

    bool operator==(const JSONTreeNodeView&) const = default;
};

/// The colour of a type's glyph and values.
PaletteColor colorForType(JSONValueType type);

/// The rows of a tree, and which of its nodes are collapsed. Every node starts expanded, also those of a tree
/// that is rebuilt, except that a collapsed root stays so. Holds no rows: each is found in the outline of the
/// tree in logarithmic time. A row must be less than `rowCount()` unless stated otherwise.
class JSONTree {
public:
    /// Shows the tree of `outline`, or nothing if it is null.
    void setOutline(std::shared_ptr<const JSONOutline> outline);

    /// Shows or hides the children of a row; ignores a row without children or beyond the last. Takes time
    /// proportional to the number of collapsed nodes.
    void toggle(std::size_t row);

    void expandAll();

    /// The value of a row for the clipboard: the content of a string, another scalar as it is shown, the
    /// pretty-printed JSON of an object or array. Takes time proportional to the nodes below the row.
    std::string copiedValue(std::size_t row) const;

    /// The name of a member; none for the root and for the elements of an array.
    std::optional<std::string> copiedKey(std::size_t row) const;

    /// The JSONPath (RFC 9535) of the row's value in the document, such as `$.modules[0]`. Names that cannot
    /// follow a dot are in brackets and quotes.
    std::string path(std::size_t row) const;

    std::size_t rowCount() const;

    /// The row, which refers to the tree.
    JSONTreeNodeView row(std::size_t row) const;

    /// The row of the parent; none for the root.
    std::optional<std::size_t> parent(std::size_t row) const;

    /// For each depth, how many columns of a monospaced font the texts of a row take at most. Includes the
    /// rows that are hidden, so that collapsing does not change it.
    std::span<const std::size_t> columnsByDepth() const;

    /// Incremented with every change of the rows, to detect changes without comparing the rows.
    std::size_t revision() const { return m_revision; }

    bool operator==(const JSONTree&) const = default;

private:
    /// The descendants of a collapsed node that is visible itself. Indices are those of the outline.
    struct HiddenNodes {
        std::size_t first = 0;
        std::size_t end = 0;
        std::size_t countBefore = 0; ///< of the hidden nodes before `first`

        std::size_t count() const { return end - first; }

        /// The number of rows before the hidden nodes.
        std::size_t row() const { return first - countBefore; }

        bool operator==(const HiddenNodes&) const = default;
    };

    void updateHidden();
    std::size_t indexOf(std::size_t row) const;
    std::size_t rowOf(std::size_t index) const;
    bool isMember(std::size_t index) const;
    bool isCollapsed(std::size_t index) const;

    std::shared_ptr<const JSONOutline> m_outline{};
    std::vector<std::size_t> m_collapsed{}; ///< indices in ascending order, also of nodes that are hidden
    std::vector<HiddenNodes> m_hidden{};    ///< in ascending order
    std::size_t m_revision = 0;
};

} // namespace korvane
