#include "Views/Tools/JSONFormatterView.h"

#include <utility>

namespace korvane {

namespace {

/// The engine ignores its value.
constexpr int indent = 2;

} // namespace

void JSONFormatterView::setInputText(std::string text) {
    if (text == inputText)
        return;
    inputText = std::move(text);
    if (!inputText.empty())
        clearStatus();
    if (showTreeView)
        updateTree();
}

void JSONFormatterView::setShowTreeView(bool show) {
    if (!show)
        tree.expandAll(); // which rows are collapsed is not kept while the tree is hidden
    showTreeView = show;
}

void JSONFormatterView::prettify() {
    clearStatus();
    showResult(JSONFormatter::prettify(inputText, indent, &duplicates));
}

void JSONFormatterView::minify() {
    clearStatus();
    showResult(JSONFormatter::minify(inputText, &duplicates));
}

void JSONFormatterView::showResult(std::expected<std::string, JSONFormatter::JSONError> result) {
    if (result) {
        outputText = std::move(*result);
        isValid = true;
    } else {
        errorMessage = result.error().errorDescription();
        outputText.clear();
    }
}

void JSONFormatterView::validate() {
    clearStatus();
    const auto verdict = JSONFormatter::validate(inputText, &duplicates);
    isValid = verdict.has_value();
    if (!verdict)
        errorMessage = verdict.error().errorDescription();
    outputText.clear();
}

void JSONFormatterView::clearStatus() {
    errorMessage.reset();
    isValid.reset();
    duplicates = {};
}

void JSONFormatterView::updateTree() {
    if (auto root = JSONFormatter::parseToTree(inputText, &duplicates)) {
        treeRoot = std::make_shared<const JSONNode>(std::move(*root));
    } else {
        treeRoot.reset();
    }
    tree.setOutline(treeRoot ? JSONOutline::of(treeRoot) : nullptr);
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

std::optional<StatusBadge> JSONFormatterView::warning() const {
    auto description = duplicates.description();
    if (description.empty())
        return std::nullopt;
    return StatusBadge{Status::warning, std::move(description)};
}

} // namespace korvane
