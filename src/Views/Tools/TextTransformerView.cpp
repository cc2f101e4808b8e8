#include "Views/Tools/TextTransformerView.h"

#include <fmt/format.h>

#include <utility>

namespace korvane {

void TextTransformerView::setInputText(Rope text, const Context<TextTransformerView>& context) {
    if (text == inputText)
        return;
    inputText = std::move(text);
    transforming.cancel();
    LiveStats::update(context, *this, &TextTransformerView::inputStats, inputText);
}

void TextTransformerView::selectCaseTransform(CaseTransform transform,
                                              const Context<TextTransformerView>& context) {
    selectedCaseTransform = transform;
    applyTransform(context);
}

void TextTransformerView::selectLineOperation(LineOperation operation,
                                              const Context<TextTransformerView>& context) {
    selectedLineOperation = operation;
    applyLineOperation(context);
}

void TextTransformerView::applyTransform(const Context<TextTransformerView>& context) {
    setOutput(context, [transform = selectedCaseTransform](std::string_view text) {
        return TextTransformer::transform(text, transform);
    });
}

void TextTransformerView::applyLineOperation(const Context<TextTransformerView>& context) {
    setOutput(context, [operation = selectedLineOperation](std::string_view text) {
        return TextTransformer::applyLineOperation(text, operation);
    });
}

/// Shows the result of `operation` for the input.
template <typename Operation>
void TextTransformerView::setOutput(const Context<TextTransformerView>& context, Operation operation) {
    runAwaited(
        context, *this, &TextTransformerView::transforming,
        {.verb = "Transforming", .bytes = inputText.size()},
        [text = inputText, operation](const std::stop_token&) { return Rope(operation(FlatText(text))); },
        [context](TextTransformerView& view, Rope output) {
            view.outputText = std::move(output);
            LiveStats::update(context, view, &TextTransformerView::outputStats, view.outputText);
        });
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
    return fmt::format("{} characters\u2002•\u2002{} words\u2002•\u2002{} lines",
                       inputStats.text(&TextStats::characters), inputStats.text(&TextStats::words),
                       inputStats.text(&TextStats::lines));
}

std::string TextTransformerView::linesFooter() const {
    auto text = fmt::format("Input: {} lines", inputStats.text(&TextStats::lines));
    if (hasOutput())
        text += fmt::format("\u2002•\u2002Output: {} lines", outputStats.text(&TextStats::lines));
    return text;
}

} // namespace korvane
