#include "Views/Tools/JSONFormatterView.h"

namespace korvane {

namespace {

/// The engine ignores the indentation that it is given.
constexpr int indent = 2;

} // namespace

void JSONFormatterView::setInputText(std::string text) {
    if (text == inputText)
        return;
    inputText = std::move(text);
    if (showTreeView)
        updateTree();
}

void JSONFormatterView::setShowTreeView(bool show) {
    if (!show)
        tree.expandAll(); // the rows leave the screen, and what was collapsed is forgotten with them
    showTreeView = show;
}

void JSONFormatterView::prettify() {
    showResult(JSONFormatter::prettify(inputText, indent));
}

void JSONFormatterView::minify() {
    showResult(JSONFormatter::minify(inputText));
}

void JSONFormatterView::showResult(std::expected<std::string, JSONFormatter::JSONError> result) {
    errorMessage.reset();
    isValid.reset();
    if (result) {
        outputText = std::move(*result);
        isValid = true;
    } else {
        errorMessage = result.error().errorDescription();
        outputText.clear();
    }
}

void JSONFormatterView::validate() {
    errorMessage.reset();
    const auto verdict = JSONFormatter::validate(inputText);
    isValid = verdict.has_value();
    if (!verdict)
        errorMessage = verdict.error().errorDescription();
    outputText.clear();
}

void JSONFormatterView::updateTree() {
    if (auto root = JSONFormatter::parseToTree(inputText)) {
        treeRoot = std::make_shared<const JSONNode>(std::move(*root));
        errorMessage.reset();
    } else {
        treeRoot.reset();
    }
    tree.setRoot(treeRoot.get());
}

void JSONFormatterView::toggleRow(std::size_t index) {
    tree.toggle(index);
}

std::optional<StatusBadge> JSONFormatterView::status() const {
    if (errorMessage)
        return StatusBadge{Status::error, *errorMessage};
    if (!isValid)
        return std::nullopt;
    return *isValid ? StatusBadge{Status::success, "Valid JSON"} : StatusBadge{Status::error, "Invalid JSON"};
}

} // namespace korvane
