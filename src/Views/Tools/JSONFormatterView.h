/// The state of the JSON Formatter screen: the input, its pretty or compact text, a verdict, and, in tree
/// mode, the tree of the input as it was last edited. Large inputs are worked on in the background.
#pragma once

#include "Models/PaletteColor.h"
#include "Utilities/JSON/JSONFormatter.h"
#include "Utilities/Text/Rope.h"
#include "Utilities/Text/TextMarks.h"
#include "Utilities/Text/TextSelection.h"
#include "Views/Components/AwaitedWork.h"
#include "Views/Components/StatusBadge.h"
#include "Views/Tools/JSONTreeNodeView.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct JSONFormatterView {
    Rope inputText{};
    Rope outputText{};
    std::optional<std::string> errorMessage{};
    std::optional<bool> isValid{};
    bool showTreeView = false;
    /// The last tree built in tree mode; null if the input could not be parsed. Shared and never changed, so
    /// that the rows of `tree` stay valid in copies of the state.
    std::shared_ptr<const JSONNode> treeRoot{};
    JSONTree tree{};
    /// Left out of the last result or tree.
    JSONFormatter::DuplicateNames duplicates{};
    std::optional<JSONFormatter::JSONError::Place> errorPlace{}; ///< in the input
    TextMarks errorMarks{};                                      ///< the same for the editor
    TextPlace shownPlace{};                                      ///< in the input
    AwaitedWork formatting{};                                    ///< of output and verdict
    AwaitedWork treeBuilding{};                                  ///< of `treeRoot`

    /// Also cancels running work, which belongs to the previous input, drops message, verdict and warning,
    /// unless the new input is empty, and rebuilds the tree in tree mode, without a message if the input is
    /// not valid.
    void setInputText(Rope text, const Context<JSONFormatterView>& context);

    /// Switches between output and tree. Does not build a tree; the next change of the input does.
    void setShowTreeView(bool show);

    void prettify(const Context<JSONFormatterView>& context);
    void minify(const Context<JSONFormatterView>& context);

    /// Checks the input and empties the output.
    void validate(const Context<JSONFormatterView>& context);

    /// Moves the caret of the input to the error.
    void showErrorPlace();

    /// Stops running work. A tree of the previous input goes with it.
    void cancel();

    /// The work that the screen tells of.
    const AwaitedWork& shownWork() const { return treeBuilding.isBusy() ? treeBuilding : formatting; }

    /// Shows or hides the children of the row at `index` of `tree`.
    void toggleRow(std::size_t index);

    /// The status line: the message, else the verdict, else none.
    std::optional<StatusBadge> status() const;

    /// The warning beside it about names that occur twice.
    std::optional<StatusBadge> warning() const;

    bool isBusy() const { return shownWork().isBusy(); }

    bool isFormatting() const { return formatting.isBusy(); }

    bool hasOutput() const { return !outputText.empty(); }

    bool showsOutput() const { return !showTreeView; }

    bool hasTree() const { return treeRoot != nullptr; }

    bool operator==(const JSONFormatterView&) const = default;

private:
    struct Result;
    struct Tree;
    using Operation = Result (*)(std::string_view input);

    static Result prettified(std::string_view input);
    static Result minified(std::string_view input);
    static Result validated(std::string_view input);
    void run(const Context<JSONFormatterView>& context, std::string_view verb, Operation operation);
    void showResult(Result result);
    void clearStatus();
    void setErrorPlace(std::optional<JSONFormatter::JSONError::Place> place);
    void updateTree(const Context<JSONFormatterView>& context);
    void showTree(Tree built);
};

} // namespace korvane
