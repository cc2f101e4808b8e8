/// The occurrences of each element of a list: as positions, and for frequent elements also as bits. Used by
/// the search for a common subsequence.
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

    /// An element is frequent if more than one in this many positions contains it. Its bits are then faster
    /// to process than its positions, and the bits of all frequent elements together need at most 16 bytes
    /// for each element of the list.
    static constexpr std::size_t frequentShare = 128;

    /// `elements` are below `bound`.
    Occurrences(std::span<const std::uint32_t> elements, std::size_t bound);

    /// The positions of `element`, ascending.
    std::span<const std::uint32_t> positions(std::uint32_t element) const {
        return std::span(m_positions).subspan(m_starts[element], m_starts[element + 1] - m_starts[element]);
    }

    /// A bit for each position of the list, set where `element` occurs; null unless it is frequent.
    const Word* bits(std::uint32_t element) const {
        const auto row = m_rows[element];
        return row == noRow ? nullptr : &m_bits[row * m_rowSize];
    }

private:
    static constexpr std::uint32_t noRow = UINT32_MAX;

    std::vector<std::uint32_t> m_starts; ///< of each element's positions, and the end of the last
    std::vector<std::uint32_t> m_positions;
    std::size_t m_rowSize;
    std::vector<std::uint32_t> m_rows;
    std::vector<Word> m_bits;
};

} // namespace korvane::DiffEngine
