/// The state of the JSON Formatter screen: a document as the user typed it, its pretty or compact text, a
/// verdict, and, in tree mode, the tree of the input as it was last edited.
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
    /// The last tree built in tree mode; absent when the text could not be read. Shared and never changed, so
    /// that the rows of `tree` can point into it whoever copies the state.
    std::shared_ptr<const JSONNode> treeRoot{};
    JSONTree tree{};
    /// What the last result or tree leaves out.
    JSONFormatter::DuplicateNames duplicates{};

    /// What any change of the input entails: what was said of another text goes, and in tree mode the tree
    /// follows the input, with no message when it cannot. After Clear, which leaves nothing to be wrong
    /// about, all that was said stays until the next edit.
    void setInputText(std::string text);

    /// Switches between output and tree. Does not build a tree: that waits for the next change of the input.
    void setShowTreeView(bool show);

    void prettify();
    void minify();

    /// Judges the input and discards any earlier output.
    void validate();

    /// Shows or hides the children of the row at `index` of `tree`.
    void toggleRow(std::size_t index);

    /// What the status line says: the message before the verdict, or nothing.
    std::optional<StatusBadge> status() const;

    /// The warning beside it: names that occur twice.
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
