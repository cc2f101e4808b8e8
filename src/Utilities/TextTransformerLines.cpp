#include "Utilities/TextTransformer.h"

#include "Utilities/Random.h"
#include "Utilities/Text/Collation.h"
#include "Utilities/Text/Lines.h"
#include "Utilities/Text/Text.h"

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>

#include <algorithm>
#include <deque>
#include <unordered_set>
#include <utility>

namespace korvane::TextTransformer {

namespace {

using Lines = std::vector<std::string_view>;

std::string joined(const Lines& lines) {
    std::size_t size = lines.size();
    for (const auto line : lines)
        size += line.size();
    std::string text;
    text.reserve(size);
    for (bool isFirst = true; const auto line : lines) {
        if (!std::exchange(isFirst, false))
            text += '\n';
        text += line;
    }
    return text;
}

void sort(Lines& lines, SortOrder order) {
    Lines sorted;
    sorted.reserve(lines.size());
    for (const auto index : localizedCaseInsensitiveOrder(lines, order))
        sorted.push_back(lines[index]);
    lines = std::move(sorted);
}

/// Canonically equivalent lines are equal. Most lines are already composed and serve as their own keys.
void removeDuplicates(Lines& lines) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* composition = icu::Normalizer2::getNFCInstance(status);
    std::deque<std::string> composed;
    std::unordered_set<std::string_view> seen(lines.size());
    Lines kept;
    for (const auto line : lines) {
        const icu::StringPiece piece(line.data(), static_cast<std::int32_t>(line.size()));
        auto key = line;
        if (!composition->isNormalizedUTF8(piece, status)) {
            icu::StringByteSink sink(&composed.emplace_back());
            composition->normalizeUTF8(0, piece, sink, nullptr, status);
            key = composed.back();
        }
        if (seen.insert(key).second)
            kept.push_back(line);
    }
    lines = std::move(kept);
}

/// Draws a uniformly distributed permutation (Fisher and Yates).
void shuffle(Lines& lines) {
    for (auto count = lines.size(); count > 1; --count)
        std::swap(lines[count - 1], lines[uniformBelow(static_cast<std::uint32_t>(count))]);
}

} // namespace

std::string applyLineOperation(std::string_view text, LineOperation operation) {
    auto lines = linesOf(text);
    switch (operation) {
    case LineOperation::reverse:
        std::ranges::reverse(lines);
        break;
    case LineOperation::sortAZ:
        sort(lines, SortOrder::ascending);
        break;
    case LineOperation::sortZA:
        sort(lines, SortOrder::descending);
        break;
    case LineOperation::removeDuplicates:
        removeDuplicates(lines);
        break;
    case LineOperation::shuffle:
        shuffle(lines);
        break;
    case LineOperation::trimLines:
        std::ranges::transform(lines, lines.begin(), trimmingWhitespaces);
        break;
    case LineOperation::removeEmpty:
        std::erase_if(lines, [](std::string_view line) { return trimmingWhitespaces(line).empty(); });
        break;
    }
    return joined(lines);
}

} // namespace korvane::TextTransformer
