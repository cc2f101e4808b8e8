#include "Views/Tools/TextDiffView.h"

#include <fmt/format.h>

#include <cstddef>
#include <stop_token>
#include <utility>

namespace korvane {

namespace {

/// Texts up to this size, in bytes, are compared at once. The worst case, lines of one character, takes about
/// 40 ms, which is not noticed after a button press.
constexpr std::size_t maxImmediateSize = std::size_t{32} * 1024;

} // namespace

void TextDiffView::setLeftText(std::string text) {
    if (text == leftText)
        return;
    leftText = std::move(text);
    comparison.reset();
}

void TextDiffView::setRightText(std::string text) {
    if (text == rightText)
        return;
    rightText = std::move(text);
    comparison.reset();
}

void TextDiffView::compare(const Context<TextDiffView>& context) {
    if ((leftText.empty() && rightText.empty()) || comparison)
        return;
    if (leftText.size() <= maxImmediateSize && rightText.size() <= maxImmediateSize)
        diffResult = DiffEngine::compare(leftText, rightText);
    else
        compareInBackground(context);
}

void TextDiffView::compareInBackground(const Context<TextDiffView>& context) {
    comparisonTakesLong = false;
    runInBackground(
        context, *this, &TextDiffView::comparison,
        [left = leftText, right = rightText](const std::stop_token& stop) mutable {
            return DiffEngine::compare(std::move(left), std::move(right), stop);
        },
        [](TextDiffView& state, std::optional<DiffEngine::DiffResult> result) {
            state.diffResult = std::move(result);
        });
    context.services.timers.after(busyDelay,
                                  [update = context.update, task = BackgroundTask::Identity(*comparison)] {
                                      update([&](TextDiffView& state) {
                                          if (task.matches(state.comparison))
                                              state.comparisonTakesLong = true;
                                      });
                                  });
}

void TextDiffView::swap() {
    comparison.reset();
    std::swap(leftText, rightText);
}

void TextDiffView::clearAll() {
    comparison.reset();
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
