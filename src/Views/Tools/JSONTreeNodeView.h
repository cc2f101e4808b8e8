/// The rows in which a JSON tree is shown, one for each node whose ancestors are all expanded.
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

    /// The number of children as it is shown beside a container, such as "{3}" or "[0]"; empty for a scalar.
    std::string count() const;

    bool operator==(const JSONTreeNodeView&) const = default;
};

/// The colour of a kind's glyph and of its values.
PaletteColor colorForType(JSONValueType type);

/// All rows of a tree, and which of its nodes are collapsed. Every row starts expanded. Rows are known by the
/// identity of their nodes, so a tree that is built anew starts expanded, except for its root: there is only
/// ever one, and it stays as it was. The rows point into the tree, which whoever sets it keeps alive.
class JSONTree {
public:
    /// Shows the tree below `root`, or nothing for a null pointer.
    void setRoot(const JSONNode* root);

    /// Shows or hides the children of a row; a row without children stays as it is. Costs a pass over all
    /// rows.
    void toggle(std::size_t row);

    void expandAll();

    /// What is copied as the value of a row: of a string its content, of another scalar what is shown, of an
    /// object or array its JSON, pretty-printed. Costs a pass over all that is under the row.
    std::string copiedValue(std::size_t row) const;

    /// The name of a member; none for the root and for the elements of an array.
    std::optional<std::string> copiedKey(std::size_t row) const;

    /// Where the row's value is in the document, as a JSONPath (RFC 9535), such as `$.modules[0]`. Names that
    /// cannot stand behind a dot are in brackets and quotes.
    std::string path(std::size_t row) const;

    const std::vector<JSONTreeNodeView>& rows() const { return m_rows; }

    /// Grows with every change of the rows, so that an unchanged tree is known without comparing it.
    std::size_t revision() const { return m_revision; }

    bool operator==(const JSONTree&) const = default;

private:
    void layOut();

    /// The row of the node that `row` is a child of; none for the root.
    std::optional<std::size_t> parentOf(std::size_t row) const;
    bool isMember(std::size_t row) const;

    const JSONNode* m_root = nullptr;
    std::unordered_set<UUID> m_collapsed{};
    std::vector<JSONTreeNodeView> m_rows{};
    std::size_t m_revision = 0;
};

} // namespace korvane
