/// A tree whose rows fold, in a panel. Only visible rows are drawn, so a document of a million values scrolls
/// like one of ten.
#pragma once

#include "Desktop/Binding/Action.h"
#include "Desktop/Binding/Reader.h"
#include "Models/PaletteColor.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

class QWidget;

namespace korvane {

/// What one row shows. The texts may refer to the tree, and hold until it changes.
struct TreeRow {
    int depth;
    bool hasChildren;
    bool isExpanded;
    std::string_view icon;
    PaletteColor color;
    std::string_view key;
    std::string_view value; ///< in the row's colour; empty for none
    std::string count;      ///< small, behind the key; empty for none
};

/// The rows of a tree, as a state tells them.
struct TreeRows {
    std::size_t count = 0;
    std::size_t revision = 0; ///< changes whenever any row does
    std::function<TreeRow(std::size_t)> at;
    /// What is copied of a row: its value, its key, if it has one, and where it is in the tree.
    std::function<std::string(std::size_t)> value;
    std::function<std::optional<std::string>(std::size_t)> key;
    std::function<std::string(std::size_t)> path;
};

/// `toggle` is called with the number of a row that has children, to fold it or unfold it. Without rows
/// `emptyPrompt` stands in the panel's middle.
QWidget* treeView(Store& store, const Reader<TreeRows>& rows, const Action<std::size_t>& toggle,
                  std::string_view emptyPrompt);

} // namespace korvane
