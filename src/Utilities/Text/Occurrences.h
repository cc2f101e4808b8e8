/// Where each element of a list stands in it: as positions, and for the frequent elements also as bits.
/// Serves the search for a common subsequence.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvane::DiffEngine {

class Occurrences {
public:
    using Word = std::uint64_t;
    static constexpr std::size_t wordBits = 64;

    /// An element that stands in more than one of this many places is frequent. Its bits are then cheaper to
    /// go through than its positions, and all frequent elements together need at most 16 bytes for each
    /// element of the list.
    static constexpr std::size_t frequentShare = 128;

    /// `elements` are below `bound`.
    Occurrences(std::span<const std::uint32_t> elements, std::size_t bound);

    /// The positions of `element`, ascending.
    std::span<const std::uint32_t> positions(std::uint32_t element) const {
        return std::span(m_positions).subspan(m_starts[element], m_starts[element + 1] - m_starts[element]);
    }

    /// A bit for each place of the list, set where `element` stands; null unless it is frequent.
    const Word* bits(std::uint32_t element) const {
        const auto row = m_rows[element];
        return row == noRow ? nullptr : &m_bits[row * m_rowSize];
    }

private:
    static constexpr std::uint32_t noRow = UINT32_MAX;

    std::vector<std::uint32_t> m_starts; ///< of an element's positions, and one more for the end
    std::vector<std::uint32_t> m_positions;
    std::size_t m_rowSize;
    std::vector<std::uint32_t> m_rows;
    std::vector<Word> m_bits;
};

} // namespace korvane::DiffEngine
