/// The matches of a regular expression as a list whose copies share their content. A match is made from the
/// ranges of its groups when it is read.
#pragma once

#include "Utilities/RegularExpression.h"
#include "Utilities/Text/Rope.h"
#include "Utilities/Text/TextMarks.h"
#include "Utilities/UUID.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A pattern and the text to search.
struct RegexSearch {
    std::string pattern{};
    bool isCaseSensitive = true;
    Rope text{};
};

/// One match. Its texts refer to the text that was searched and are valid as long as the list. Nothing in
/// the program reads it yet.
struct RegexMatch {
    UUID id{}; ///< new for each match of each run
    std::string_view fullMatch{};
    RegularExpression::TextRange range{};
    std::vector<std::string_view> groups{}; ///< of the groups that took part, in order

    bool operator==(const RegexMatch&) const = default;
};

/// One line of the list on the screen: a match, or one of its groups.
struct RegexMatchLine {
    std::size_t match = 0;              ///< from 0
    std::optional<std::size_t> group{}; ///< from 0, among those that took part; none for the match itself
    std::string_view text{};

    /// The text before the match or group: "Match 1", or "Group 1" below its match.
    std::string heading() const;

    /// A name that no other line has: "Match 1", or "Match 1 Group 1".
    std::string name() const;

    bool operator==(const RegexMatchLine&) const = default;
};

class RegexMatches {
public:
    /// An empty list without a search.
    RegexMatches() = default;

    RegexMatches(RegexSearch search, RegularExpression::Findings findings);

    std::size_t size() const { return m_contents ? m_contents->findings.matchCount() : 0; }

    bool empty() const { return size() == 0; }

    RegexMatch operator[](std::size_t index) const;

    /// The search that gave the list; null without one.
    const RegexSearch* search() const { return m_contents ? &m_contents->search : nullptr; }

    /// What the search found; null without one.
    const RegularExpression::Findings* findings() const {
        return m_contents ? &m_contents->findings : nullptr;
    }

    std::size_t lineCount() const { return m_contents ? m_contents->findings.pieces.size() : 0; }

    RegexMatchLine line(std::size_t index) const;

    /// The first line of the match with the byte `offset` of the text, or that begins or ends there; none if
    /// there is no such match. Of two, the one that begins there.
    std::optional<std::size_t> lineAt(std::size_t offset) const;

    /// The range of a line in the text, in bytes.
    RegularExpression::TextRange range(std::size_t line) const;

    /// Further matches are not marked.
    static constexpr std::size_t maxMarked = 1'000'000;

    /// Marks of the matches in the text, in turn `oddMatch` and `evenMatch`.
    TextMarks marks() const;

    /// Marks of a chosen line: its match with the groups, and an outline of the line's own range.
    TextMarks marksOf(std::size_t line) const;

    /// The first line of a match; `lineCount` for the index after the last match.
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
