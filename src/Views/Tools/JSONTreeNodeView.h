/// The visible rows of a JSON tree: one for each node whose ancestors are all expanded.
#pragma once

#include "Models/PaletteColor.h"
#include "Utilities/JSON/JSONFormatter.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_set>
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

/// The rows of a tree, and which of its nodes are collapsed. Every node starts expanded. Nodes are recognised
/// by their ids, so a tree that is rebuilt starts expanded, except that a collapsed root stays so. The rows
/// point into the tree, which must outlive them.
class JSONTree {
public:
    /// Shows the tree of `root`, or nothing if it is null.
    void setRoot(const JSONNode* root);

    /// Shows or hides the children of a row; ignores a row without children. Takes time proportional to the
    /// number of rows.
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

    const std::vector<JSONTreeNodeView>& rows() const { return m_rows; }

    /// Incremented with every change of the rows, to detect changes without comparing the rows.
    std::size_t revision() const { return m_revision; }

    bool operator==(const JSONTree&) const = default;

private:
    void updateRows();

    /// The row of the parent; none for the root.
    std::optional<std::size_t> parentOf(std::size_t row) const;
    bool isMember(std::size_t row) const;

    const JSONNode* m_root = nullptr;
    std::unordered_set<UUID> m_collapsed{};
    std::vector<JSONTreeNodeView> m_rows{};
    std::size_t m_revision = 0;
};

} // namespace korvane
