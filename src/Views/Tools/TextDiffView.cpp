#include "Views/Tools/TextDiffView.h"

#include <fmt/format.h>

#include <cstddef>
#include <stop_token>
#include <utility>

namespace korvane {

namespace {

/// Texts up to this size together are compared at once. The worst case, lines of one character, takes about
/// 40 ms, which is not noticed after a button press.
constexpr std::size_t maxImmediateBytes = std::size_t{32} << 10;

} // namespace

void TextDiffView::setLeftText(Rope text) {
    if (text == leftText)
        return;
    leftText = std::move(text);
    comparison.cancel();
}

void TextDiffView::setRightText(Rope text) {
    if (text == rightText)
        return;
    rightText = std::move(text);
    comparison.cancel();
}

void TextDiffView::compare(const Context<TextDiffView>& context) {
    if ((leftText.empty() && rightText.empty()) || comparison.isRunning())
        return;
    runAwaited(
        context, *this, &TextDiffView::comparison,
        {.verb = "Comparing",
         .bytes = leftText.size() + rightText.size(),
         .maxImmediateBytes = maxImmediateBytes},
        [left = leftText, right = rightText](const std::stop_token& stop) {
            return DiffEngine::compare(left.string(), right.string(), stop);
        },
        [](TextDiffView& state, std::optional<DiffEngine::DiffResult> result) {
            state.diffResult = std::move(result);
        });
}

void TextDiffView::swap() {
    comparison.cancel();
    std::swap(leftText, rightText);
}

void TextDiffView::clearAll() {
    comparison.cancel();
    leftText.clear();
    rightText.clear();
    diffResult.reset();
}

std::string TextDiffView::similarity() const {
    const auto total = stats().total();
    if (total == 0)
        return {};
    return fmt::format("{}% similar", static_cast<int>(static_cast<double>(stats().unchanged) / total * 100));
}

} // namespace korvane
