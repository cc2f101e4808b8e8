#include "Utilities/Text/Occurrences.h"

#include <numeric>

namespace korvane::DiffEngine {

Occurrences::Occurrences(std::span<const std::uint32_t> elements, std::size_t bound)
    : m_starts(bound + 1),
      m_positions(elements.size()),
      m_rowSize((elements.size() + wordBits - 1) / wordBits),
      m_rows(bound, noRow) {
    for (const auto element : elements)
        ++m_starts[element];
    std::exclusive_scan(m_starts.begin(), m_starts.end(), m_starts.begin(), 0U);
    auto next = m_starts;
    for (std::size_t position = 0; position < elements.size(); ++position)
        m_positions[next[elements[position]]++] = static_cast<std::uint32_t>(position);

    std::uint32_t rowCount = 0;
    for (std::uint32_t element = 0; element < bound; ++element) {
        if (positions(element).size() * frequentShare > elements.size())
            m_rows[element] = rowCount++;
    }
    m_bits.resize(rowCount * m_rowSize);
    for (std::size_t position = 0; position < elements.size(); ++position) {
        if (const auto row = m_rows[elements[position]]; row != noRow)
            m_bits[row * m_rowSize + position / wordBits] |= Word{1} << position % wordBits;
    }
}

} // namespace korvane::DiffEngine
