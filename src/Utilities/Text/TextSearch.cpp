#include "Utilities/Text/TextSearch.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>

namespace korvane {

namespace {

/// Of processor time: for a slow pattern in a text of 100 MB.
constexpr std::chrono::seconds maxTime{30};

const std::string multilineFlag = "(?m)";

/// The number of hits between two looks at the stop token.
constexpr std::size_t hitsPerCheck = 4096;

/// In bytes: longer stretches without a hit are searched in parts, so that a stop request is seen.
constexpr std::size_t partSize = std::size_t{16} << 20;

bool isAlphanumeric(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9');
}

/// A pattern that matches `text` itself.
std::string literalPattern(std::string_view text) {
    std::string pattern;
    for (const char character : text) {
        const bool isASCII = static_cast<unsigned char>(character) < 0x80;
        if (isASCII && !isAlphanumeric(character))
            pattern += '\\';
        pattern += character;
    }
    return pattern;
}

TextHits searchLiteral(std::string_view text, std::string_view needle, const std::stop_token& stop) {
    TextHits hits;
    std::size_t from = 0;
    while (from + needle.size() <= text.size() && hits.isComplete) {
        if (hits.ranges.size() % hitsPerCheck == 0 && stop.stop_requested()) {
            hits.isComplete = false;
            break;
        }
        const auto part = text.substr(from, std::max(partSize, 2 * needle.size()));
        const auto found = part.find(needle);
        if (found == std::string_view::npos) {
            from += part.size() < text.size() - from ? part.size() - needle.size() + 1 : part.size();
        } else if (hits.ranges.size() == TextHits::maxCount) {
            hits.isComplete = false;
        } else {
            const auto start = from + found;
            from = start + needle.size();
            hits.ranges.push_back({static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(from)});
        }
    }
    return hits;
}

} // namespace

std::expected<TextHits, std::string> findHits(std::string_view text, const TextQuery& query,
                                              const std::stop_token& stop) {
    if (query.text.empty())
        return {};
    if (text.size() > std::numeric_limits<std::uint32_t>::max())
        return std::unexpected("The text is too long to be searched");
    if (!query.isPattern && query.isCaseSensitive)
        return searchLiteral(text, query.text, stop);
    auto findings = RegularExpression::search(
        query.isPattern ? multilineFlag + query.text : literalPattern(query.text), query.isCaseSensitive,
        std::make_shared<const std::string>(text), {.time = maxTime, .stop = stop});
    if (!findings)
        return std::unexpected(findings.error().errorDescription());
    TextHits hits{.isComplete = !findings->interruption};
    for (std::size_t match = 0; match < findings->matchCount(); ++match) {
        const auto range = findings->match(match).front().range;
        if (range.start == range.end)
            continue;
        if (hits.ranges.size() == TextHits::maxCount) {
            hits.isComplete = false;
            break;
        }
        hits.ranges.push_back(range);
    }
    return hits;
}

} // namespace korvane
