/// The search for a plain text or a regular expression in a text.
#pragma once

#include "Utilities/RegularExpression.h"

#include <cstddef>
#include <expected>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct TextQuery {
    std::string text{};
    bool isPattern = false; ///< of ICU's syntax; `^` and `$` match at the ends of lines
    bool isCaseSensitive = false;

    bool operator==(const TextQuery&) const = default;
};

struct TextHits {
    /// Hits beyond this number are not collected.
    static constexpr std::size_t maxCount = 1'000'000;

    std::vector<RegularExpression::TextRange> ranges{}; ///< in text order, none of them empty
    bool isComplete = true;                             ///< there are no more

    bool operator==(const TextHits&) const = default;
};

/// The hits of `query` in `text`, none of which overlap; none for an empty query. Without case sensitivity,
/// characters are compared by Unicode's case folding. Fails with a message if the pattern is faulty. A stop
/// request ends the search early, as does a pattern that takes too long.
std::expected<TextHits, std::string> findHits(std::string_view text, const TextQuery& query,
                                              const std::stop_token& stop = {});

} // namespace korvane
