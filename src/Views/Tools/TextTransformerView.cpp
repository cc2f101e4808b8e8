#include "Views/Tools/TextTransformerView.h"

#include <fmt/format.h>

#include <utility>

namespace korvane {

void TextTransformerView::setInputText(std::string text) {
    inputStats.update(inputText, text);
    inputText = std::move(text);
}

void TextTransformerView::setOutputText(std::string text) {
    outputStats.update(outputText, text);
    outputText = std::move(text);
}

void TextTransformerView::selectCaseTransform(CaseTransform transform) {
    selectedCaseTransform = transform;
    applyTransform();
}

void TextTransformerView::selectLineOperation(LineOperation operation) {
    selectedLineOperation = operation;
    applyLineOperation();
}

void TextTransformerView::applyTransform() {
    setOutputText(TextTransformer::transform(inputText, selectedCaseTransform));
}

void TextTransformerView::applyLineOperation() {
    setOutputText(TextTransformer::applyLineOperation(inputText, selectedLineOperation));
}

std::string TextTransformerView::footer() const {
    switch (selectedTab) {
    case TransformTab::caseTransform:
        return caseFooter();
    case TransformTab::lineOperations:
        return linesFooter();
    case TransformTab::statistics:
        return {};
    }
    return {};
}

std::string TextTransformerView::caseFooter() const {
    const auto& stats = inputStats.stats();
    return fmt::format("{} characters\u2002•\u2002{} words\u2002•\u2002{} lines", stats.characters,
                       stats.words, stats.lines);
}

std::string TextTransformerView::linesFooter() const {
    auto text = fmt::format("Input: {} lines", inputStats.stats().lines);
    if (hasOutput())
        text += fmt::format("\u2002•\u2002Output: {} lines", outputStats.stats().lines);
    return text;
}

} // namespace korvane
