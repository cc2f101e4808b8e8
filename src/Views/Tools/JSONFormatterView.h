/// The state of the JSON Formatter screen: the input, its pretty or compact text, a verdict, and, in tree
/// mode, the tree of the input as it was last edited.
#pragma once

#include "Models/PaletteColor.h"
#include "Utilities/JSON/JSONFormatter.h"
#include "Views/Components/StatusBadge.h"
#include "Views/Tools/JSONTreeNodeView.h"

#include <expected>
#include <memory>
#include <optional>
#include <string>

namespace korvane {

struct JSONFormatterView {
    std::string inputText{};
    std::string outputText{};
    std::optional<std::string> errorMessage{};
    std::optional<bool> isValid{};
    bool showTreeView = false;
    /// The last tree built in tree mode; null if the input could not be parsed. Shared and never changed, so
    /// that the rows of `tree` stay valid in copies of the state.
    std::shared_ptr<const JSONNode> treeRoot{};
    JSONTree tree{};
    /// Left out of the last result or tree.
    JSONFormatter::DuplicateNames duplicates{};

    /// Also drops message, verdict and warning, unless the new input is empty, and rebuilds the tree in tree
    /// mode, without a message if the input is not valid.
    void setInputText(std::string text);

    /// Switches between output and tree. Does not build a tree; the next change of the input does.
    void setShowTreeView(bool show);

    void prettify();
    void minify();

    /// Checks the input and empties the output.
    void validate();

    /// Shows or hides the children of the row at `index` of `tree`.
    void toggleRow(std::size_t index);

    /// The status line: the message, else the verdict, else none.
    std::optional<StatusBadge> status() const;

    /// The warning beside it about names that occur twice.
    std::optional<StatusBadge> warning() const;

    bool hasOutput() const { return !outputText.empty(); }

    bool showsOutput() const { return !showTreeView; }

    bool hasTree() const { return treeRoot != nullptr; }

    bool operator==(const JSONFormatterView&) const = default;

private:
    void showResult(std::expected<std::string, JSONFormatter::JSONError> result);
    void clearStatus();
    void updateTree();
};

} // namespace korvane
