#include "Views/Tools/HashGeneratorView.h"

#include <fmt/format.h>

#include <algorithm>
#include <stop_token>
#include <utility>

namespace korvane {

using HashGenerator::HashResult;

std::string HashResultRow::lengthText() const {
    return fmt::format("{} chars", factsOf(algorithm).digitCount);
}

void HashGeneratorView::setInputText(Rope text, const Context<HashGeneratorView>& context) {
    if (text == inputText)
        return;
    inputText = std::move(text);
    LiveStats::update(context, *this, &HashGeneratorView::inputStats, inputText);
    if (liveUpdate)
        generateAll(context);
}

void HashGeneratorView::generateAll(const Context<HashGeneratorView>& context) {
    hashes.clear(); // they may belong to another text
    runAwaited(
        context, *this, &HashGeneratorView::hashing, {.verb = "Hashing", .bytes = inputText.size()},
        [text = inputText](const std::stop_token& stop) {
            return HashGenerator::allHashes(FlatText(text), stop);
        },
        [](HashGeneratorView& view, std::vector<HashResult> results) { view.hashes = std::move(results); });
}

HashResultRow HashGeneratorView::row(HashAlgorithm algorithm) const {
    const auto result = std::ranges::find(hashes, algorithm, &HashResult::algorithm);
    return {.algorithm = algorithm,
            .hash = result == hashes.end() ? std::string() : result->hash,
            .isSelected = algorithm == selectedAlgorithm,
            .isComputing = hashing.isRunning(),
            .isBusy = hashing.isBusy()};
}

std::string HashGeneratorView::statistics() const {
    return fmt::format("{} characters • {} bytes", inputStats.text(&TextStats::characters), inputText.size());
}

} // namespace korvane
