/// Marked ranges of a text: hits of a search, matches, the place of an error.
#pragma once

#include "Utilities/Text/TextHistory.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace korvane {

enum class TextMarkKind : std::uint8_t {
    errorLine, ///< marks the whole lines, and their numbers
    oddMatch,
    evenMatch,
    selectedMatch, ///< outlines a match
    group1,
    group2,
    group3,
    group4,
    hit, ///< of a search
    currentHit,
    error,
};

/// The bytes [from, to) of a text. An empty range marks a place.
struct TextMark {
    std::size_t from = 0;
    std::size_t to = 0;
    TextMarkKind kind = TextMarkKind::hit;

    bool operator==(const TextMark&) const = default;
};

/// Any number of marks. They may overlap. Copies share them.
class TextMarks {
public:
    TextMarks() = default;

    /// In any order; those in order of where they begin cost no sorting.
    explicit TextMarks(std::vector<TextMark> marks);

    bool empty() const { return !m_content; }

    /// Those that have a byte in [from, to), and the empty ones in [from, to], in order of where they begin.
    /// Takes logarithmic time, and linear in the marks after the first one that reaches into the range.
    std::vector<TextMark> in(std::size_t from, std::size_t to) const;

    /// Moves the marks with their text, and drops those that the change touches. Linear in their number.
    void apply(const TextChange& change);

    /// Takes no time for copies.
    bool operator==(const TextMarks& other) const;

private:
    struct Content {
        std::vector<TextMark> marks{};   ///< in order of `from`
        std::vector<std::size_t> ends{}; ///< for each mark, the greatest `to` of those up to it
    };

    std::shared_ptr<const Content> m_content{}; ///< none without marks
};

} // namespace korvane
