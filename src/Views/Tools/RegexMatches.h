/// The matches of a regular expression as a list that costs little: a match is made from the places of its
/// pieces when somebody asks for it, and a million of them are as quick to copy as one.
#pragma once

#include "Utilities/RegularExpression.h"
#include "Utilities/UUID.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// What is to be searched for, and where.
struct RegexSearch {
    std::string pattern{};
    bool isCaseSensitive = true;
    std::shared_ptr<const std::string> text{};
};

/// One match. Its texts are parts of the text that was searched, and valid as long as the list it comes from.
struct RegexMatch {
    UUID id{}; ///< fresh for each match of each run
    std::string_view fullMatch{};
    RegularExpression::TextRange range{};
    std::vector<std::string_view> groups{}; ///< of the groups that took part, in their order

    bool operator==(const RegexMatch&) const = default;
};

/// One line of the list on the screen: a match, or one of its groups.
struct RegexMatchLine {
    std::size_t match = 0; ///< counted from 0
    std::optional<std::size_t>
        group{}; ///< counted from 0 among those that took part; none for the match itself
    std::string_view text{};

    /// What stands before the text: "Match 1", or "Group 1" among the lines of its match.
    std::string heading() const;

    /// What tells the line from all others: "Match 1", or "Match 1 Group 1".
    std::string name() const;

    bool operator==(const RegexMatchLine&) const = default;
};

class RegexMatches {
public:
    /// An empty list that comes from no search.
    RegexMatches() = default;

    RegexMatches(RegexSearch search, RegularExpression::Findings findings);

    std::size_t size() const { return m_contents ? m_contents->findings.matchCount() : 0; }

    bool empty() const { return size() == 0; }

    RegexMatch operator[](std::size_t index) const;

    /// What the list comes from; null if from no search.
    const RegexSearch* search() const { return m_contents ? &m_contents->search : nullptr; }

    /// What was found; null if there was no search.
    const RegularExpression::Findings* findings() const {
        return m_contents ? &m_contents->findings : nullptr;
    }

    std::size_t lineCount() const { return m_contents ? m_contents->findings.pieces.size() : 0; }

    RegexMatchLine line(std::size_t index) const;

    /// The line that a match begins with; the number of lines for the index behind the last match.
    std::size_t firstLine(std::size_t match) const;

    /// Two lists are equal if they come from the same run.
    bool operator==(const RegexMatches&) const = default;

private:
    struct Contents {
        RegexSearch search;
        RegularExpression::Findings findings;
        std::vector<UUID> ids;
    };

    std::shared_ptr<const Contents> m_contents{};
};

} // namespace korvane
