#include "Utilities/Diff/CommonSubsequence.h"

#include "Utilities/Text/Occurrences.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstddef>

namespace korvane::DiffEngine {

namespace {

using Identities = std::span<const LineIdentity>;
using Word = Occurrences::Word;
constexpr std::size_t wordBits = Occurrences::wordBits;

/// A part of one row of the table, starting at a word boundary. Bit j of the row is set if the cell after
/// element j of the second list equals the one before it; where it is clear, the length grows by one.
struct Row {
    std::size_t firstWord = 0;
    std::vector<Word> words;

    std::size_t endWord() const { return firstWord + words.size(); }
};

/// Advances a word to the next row, whose element occurs where `matches` has bits. The sum moves each clear
/// bit, an increment, down to the first match after the previous increment. `carry` comes from the previous
/// word and is 0 or 1, as is the returned carry for the next word.
Word advanceWord(Word& row, Word matches, Word carry) {
    const Word moved = row & matches;
    const Word sum = row + moved;
    const Word total = sum + carry;
    row = total | (row & ~matches);
    return Word{sum < moved} | Word{total < sum};
}

/// The table of two lists; only some of its rows are in memory at a time. Rows belong to the first list,
/// whose element i - 1 leads to row i.
///
/// Only a band along the diagonal is computed. If a common subsequence has length l, any walk that gives one
/// as long omits at most |a| - l elements of `a` and |b| - l of `b`, which bounds its distance from the
/// diagonal. Cells inside the band are exact, and those next to it never too high, so all decisions of the
/// walk are correct.
class Table {
public:
    Table(Identities a, Identities b, std::size_t bound, const std::stop_token& stop,
          const TableLimits& limits)
        : m_a(a), m_b(b), m_occurrences(b, bound), m_stop(stop), m_limits(limits) {}

    /// The common subsequence, or none when it was stopped.
    std::optional<std::vector<LineIdentity>> walk() {
        const auto snapshots = advanceThroughBand();
        if (!m_stop.stop_requested()) {
            m_remaining = m_length;
            m_collected.resize(m_length);
            trace(snapshots, m_a.size());
        }
        if (m_stop.stop_requested())
            return std::nullopt;
        assert(m_remaining == 0);
        return std::move(m_collected);
    }

private:
    /// A copy of a row, with its number.
    struct Snapshot {
        std::size_t number;
        Row row;
    };

    /// Finds a band that is wide enough, computes it, and sets the subsequence's length.
    std::vector<Snapshot> advanceThroughBand() {
        const auto size = m_a.size() + m_b.size();
        const auto difference = std::max(m_a.size(), m_b.size()) - std::min(m_a.size(), m_b.size());
        for (auto edits = difference + std::max(m_limits.minEdits, size / m_limits.editShare);;
             edits *= m_limits.widening) {
            const auto expected = edits < size ? (size - edits) / 2 : 0;
            const auto assumed = std::max(m_length, expected);
            m_maxOmittedFromA = m_a.size() - assumed;
            m_maxOmittedFromB = m_b.size() - assumed;
            Row row{.words = std::vector<Word>((m_b.size() + wordBits - 1) / wordBits, ~Word{0})};
            m_column = m_b.size();
            auto snapshots = advance(row, 0, m_a.size());
            // The result of the band is a common subsequence, though perhaps not a longest one.
            m_length = 0;
            for (const auto word : row.words)
                m_length += static_cast<std::size_t>(std::popcount(~word));
            if (m_length >= assumed || m_stop.stop_requested())
                return snapshots;
        }
    }

    std::size_t bandBegin(std::size_t number) const {
        return (number > m_maxOmittedFromA ? number - m_maxOmittedFromA - 1 : 0) / wordBits;
    }

    /// The end of the words of row `number` that are needed: the end of the band, or the column that the walk
    /// has reached, since no cell depends on one to its right.
    std::size_t bandEnd(std::size_t number) const {
        return (std::min(m_column, number + m_maxOmittedFromB) - 1) / wordBits + 1;
    }

    /// Advances `row` from number `first` to `last`, and returns snapshots of it, including one of `first`.
    /// If stopped, it has advanced only in part.
    std::vector<Snapshot> advance(Row& row, std::size_t first, std::size_t last) const {
        const auto distance = (last - first + m_limits.snapshots - 1) / m_limits.snapshots;
        std::vector<Snapshot> snapshots;
        for (auto number = first; number < last && !m_stop.stop_requested(); ++number) {
            if ((number - first) % distance == 0)
                snapshots.push_back({number, part(row, number + 1, std::min(number + distance, last))});
            advance(row, number + 1);
        }
        return snapshots;
    }

    /// The part of `row` that rows `first` to `last` need.
    Row part(const Row& row, std::size_t first, std::size_t last) const {
        const auto begin = row.words.begin() - static_cast<std::ptrdiff_t>(row.firstWord);
        const auto firstWord = bandBegin(first);
        return {.firstWord = firstWord,
                .words = std::vector<Word>(begin + static_cast<std::ptrdiff_t>(firstWord),
                                           begin + static_cast<std::ptrdiff_t>(bandEnd(last)))};
    }

    /// Advances `row` from row `number` - 1 to row `number`.
    void advance(Row& row, std::size_t number) const {
        const auto element = m_a[number - 1];
        const auto begin = bandBegin(number);
        const auto end = std::min(bandEnd(number), row.endWord());
        if (const auto* matches = m_occurrences.bits(element)) {
            Word carry = 0;
            for (auto word = begin; word < end; ++word)
                carry = advanceWord(row.words[word - row.firstWord], matches[word], carry);
        } else {
            advanceAtPositions(row, m_occurrences.positions(element), begin, end);
        }
    }

    /// The same for few matches: words without a match or a carry do not change.
    static void advanceAtPositions(Row& row, std::span<const std::uint32_t> positions, std::size_t begin,
                                   std::size_t end) {
        auto position = std::ranges::lower_bound(positions, begin * wordBits);
        while (position != positions.end() && *position / wordBits < end) {
            auto word = *position / wordBits;
            Word carry = 0;
            do {
                Word matches = 0;
                for (; position != positions.end() && *position / wordBits == word; ++position)
                    matches |= Word{1} << *position % wordBits;
                carry = advanceWord(row.words[word - row.firstWord], matches, carry);
                ++word;
            } while (carry != 0 && word < end);
        }
    }

    /// Walks up from row `last` to the number of the first snapshot.
    void trace(const std::vector<Snapshot>& snapshots, std::size_t last) {
        for (auto snapshot = snapshots.rbegin(); snapshot != snapshots.rend(); ++snapshot) {
            if (m_remaining == 0 || m_stop.stop_requested())
                return;
            const auto first = snapshot->number;
            auto row = part(snapshot->row, first + 1, last);
            if ((last - first) * row.words.size() <= m_limits.recordedWords || last - first == 1)
                traceRecorded(row, first, last);
            else
                trace(advance(row, first, last), last);
            last = first;
        }
    }

    /// Walks up from row `last` to row `first`, which is `row`, by recording all rows between them.
    void traceRecorded(Row& row, std::size_t first, std::size_t last) {
        const auto width = row.words.size();
        m_record.resize((last - first) * width);
        auto recorded = m_record.begin();
        for (auto number = first + 1; number <= last && !m_stop.stop_requested(); ++number) {
            advance(row, number);
            recorded = std::ranges::copy(row.words, recorded).out;
        }
        if (m_stop.stop_requested())
            return;
        for (auto number = last; number > first && m_remaining > 0;) {
            const auto bit = m_column - 1;
            const auto word = m_record[(number - first - 1) * width + bit / wordBits - row.firstWord];
            if (m_a[number - 1] == m_b[bit]) {
                m_collected[--m_remaining] = m_b[bit];
                --m_column;
                --number;
            } else if ((word >> bit % wordBits & 1) != 0) {
                --m_column;
            } else {
                --number;
            }
        }
    }

    Identities m_a;
    Identities m_b;
    Occurrences m_occurrences;
    const std::stop_token& m_stop;
    const TableLimits& m_limits;

    std::size_t m_maxOmittedFromA = 0; ///< in the current band
    std::size_t m_maxOmittedFromB = 0;
    std::size_t m_length = 0; ///< of the longest subsequence known so far

    std::size_t m_column = 0;    ///< the position of the walk
    std::size_t m_remaining = 0; ///< elements still to collect
    std::vector<LineIdentity> m_collected;
    std::vector<Word> m_record;
};

/// Two lists without their common prefix and suffix.
struct Trimmed {
    Identities start;
    Identities a;
    Identities b;
    Identities end;
};

Trimmed withoutCommonEnds(Identities a, Identities b) {
    const auto start = static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
    const auto restOfA = a.subspan(start);
    const auto restOfB = b.subspan(start);
    const auto firstDifference =
        std::mismatch(restOfA.rbegin(), restOfA.rend(), restOfB.rbegin(), restOfB.rend());
    const auto end = static_cast<std::size_t>(firstDifference.first - restOfA.rbegin());
    return {.start = a.first(start),
            .a = restOfA.first(restOfA.size() - end),
            .b = restOfB.first(restOfB.size() - end),
            .end = restOfA.last(end)};
}

/// The elements of `list` that also occur in `other`. Elements are below `bound`.
std::vector<LineIdentity> sharedElements(Identities list, Identities other, std::size_t bound) {
    std::vector<bool> isInOther(bound);
    for (const auto element : other)
        isInOther[element] = true;
    std::vector<LineIdentity> shared;
    std::ranges::copy_if(list, std::back_inserter(shared), [&](auto element) { return isInOther[element]; });
    return shared;
}

std::size_t boundOf(Identities list) {
    return list.empty() ? 0 : std::ranges::max(list) + std::size_t{1};
}

} // namespace

// The table excludes common prefixes and suffixes, and elements of one list only. This does not change what
// the walk collects:
//
// What it collects from (i, j) depends only on i and the cell's value. Let cell (i, j) equal cell (i, j - 1).
// Without a match at (i, j) the walk moves from the former to the latter. With one it collects the element e
// of row i, and so it does from (i, j - 1): it moves left until the first cell of that value in the row, or
// until e occurs earlier; at the first cell there is a match, because in the row above all cells up to column
// j - 1 are smaller by at least one. Either way it continues in the row above from cells of the same value,
// where the same holds.
//
// So a row whose element is not in `b` can be omitted: it equals the row above it, and the walk enters that
// row at a cell of the same value. A column whose element is not in `a` equals the one to its left, and the
// walk moves there at once. The walk collects a common suffix first. A common prefix raises all cells outside
// row 0 and column 0 by one per element, which changes no comparison, and is collected last.
std::optional<std::vector<LineIdentity>> longestCommonSubsequence(std::span<const LineIdentity> a,
                                                                  std::span<const LineIdentity> b,
                                                                  const std::stop_token& stop,
                                                                  const TableLimits& limits) {
    const auto outer = withoutCommonEnds(a, b);
    const auto bound = std::max(boundOf(outer.a), boundOf(outer.b));
    const auto sharedOfA = sharedElements(outer.a, outer.b, bound);
    const auto sharedOfB = sharedElements(outer.b, outer.a, bound);
    const auto inner = withoutCommonEnds(sharedOfA, sharedOfB);

    std::vector<LineIdentity> common(outer.start.begin(), outer.start.end());
    const auto append = [&](Identities part) { common.insert(common.end(), part.begin(), part.end()); };
    append(inner.start);
    if (!inner.a.empty() && !inner.b.empty()) {
        const auto middle = Table(inner.a, inner.b, bound, stop, limits).walk();
        if (!middle)
            return std::nullopt;
        append(*middle);
    }
    append(inner.end);
    append(outer.end);
    return common;
}

} // namespace korvane::DiffEngine
