#include "Views/Tools/HashGeneratorView.h"

#include "Utilities/Text/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <stop_token>
#include <utility>

namespace korvane {

using HashGenerator::HashResult;

std::string HashResultRow::lengthText() const {
    return fmt::format("{} chars", factsOf(algorithm).digitCount);
}

/// Passes the result of `compute` for the input to `apply`: at once, or later from the background if the
/// input is large.
template <typename Compute, typename Apply>
void HashGeneratorView::computeFromInput(const Context<HashGeneratorView>& context,
                                         std::optional<BackgroundTask> HashGeneratorView::* slot,
                                         Compute compute, Apply apply) {
    if (inputText.size() > maxImmediateSize) {
        runInBackground(
            context, *this, slot,
            [text = inputText, compute](const std::stop_token& stop) { return compute(text, stop); }, apply);
    } else {
        (this->*slot).reset();
        apply(*this, compute(inputText, std::stop_token()));
    }
}

void HashGeneratorView::setInputText(std::string text, const Context<HashGeneratorView>& context) {
    if (text == inputText)
        return;
    inputText = std::move(text);
    inputCharacterCount.reset();
    computeFromInput(
        context, &HashGeneratorView::counting,
        [](const std::string& input, const std::stop_token&) { return characterCount(input); },
        [](HashGeneratorView& view, std::size_t count) { view.inputCharacterCount = count; });
    if (liveUpdate)
        generateAll(context);
}

void HashGeneratorView::generateAll(const Context<HashGeneratorView>& context) {
    hashes.clear(); // they may belong to another text
    computeFromInput(
        context, &HashGeneratorView::hashing,
        [](const std::string& input, const std::stop_token& stop) {
            return HashGenerator::allHashes(input, stop);
        },
        [](HashGeneratorView& view, std::vector<HashResult> results) { view.hashes = std::move(results); });
}

HashResultRow HashGeneratorView::row(HashAlgorithm algorithm) const {
    const auto result = std::ranges::find(hashes, algorithm, &HashResult::algorithm);
    return {.algorithm = algorithm,
            .hash = result == hashes.end() ? std::string() : result->hash,
            .isSelected = algorithm == selectedAlgorithm,
            .isComputing = hashing.has_value()};
}

std::string HashGeneratorView::statistics() const {
    return fmt::format("{} characters • {} bytes", inputCharacterCount.value_or(0), inputText.size());
}

} // namespace korvane
