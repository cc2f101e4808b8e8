/// A tree with expandable rows, in a panel. Only visible rows are painted, so scrolling costs the same for
/// any number of rows.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Models/PaletteColor.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

class QWidget;

namespace korvane {

/// The content of a row. The texts may refer to the tree, and are valid until it changes.
struct TreeRow {
    int depth;
    bool hasChildren;
    bool isExpanded;
    std::string_view icon;
    PaletteColor color;
    std::string_view key;
    std::string_view value; ///< in the row's colour; empty for none
    std::string count;      ///< small, after the key; empty for none
};

/// Access to the rows of a tree in a state. Each function must be quick for any number of rows.
struct TreeRows {
    std::size_t count = 0;
    std::size_t revision = 0; ///< changes whenever any row does
    std::function<TreeRow(std::size_t)> at;
    /// The row that contains a row; none for the root.
    std::function<std::optional<std::size_t>(std::size_t)> parent;
    /// For each depth, how many columns of a monospaced font the texts of a row take at most. The widest of
    /// these rows, visible or not, determines how far the tree can be scrolled sideways, so that the row that
    /// is being read stays where it is when others are collapsed.
    std::function<std::span<const std::size_t>()> columnsByDepth;
    /// The texts to copy from a row: its value, its key, if it has one, and its path in the tree.
    std::function<std::string(std::size_t)> value;
    std::function<std::optional<std::string>(std::size_t)> key;
    std::function<std::string(std::size_t)> path;
};

/// `toggle` is called with the number of a row that has children, to expand or collapse it. Without rows,
/// `emptyPrompt` is shown in the middle of the panel.
QWidget* tree(Store& store, const Reader<TreeRows>& rows, const Action<std::size_t>& toggle,
              std::string_view emptyPrompt);

} // namespace korvane
