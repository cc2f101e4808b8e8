#include "Utilities/Text/UTF16Text.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <cassert>

namespace korvane {

namespace {

/// The number of units between two recorded boundaries: the table takes half a byte a unit, and finding a
/// position decodes at most this many characters.
constexpr std::uint32_t stride = 16;

} // namespace

UTF16Text::UTF16Text(std::string_view text)
    : m_text(text),
      m_units(icu::UnicodeString::fromUTF8(
          icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())))) {
    assert(text.size() <= maxSize);
    if (static_cast<std::size_t>(m_units.length()) != text.size())
        recordBoundaries();
}

void UTF16Text::recordBoundaries() {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(m_text.data());
    const auto size = static_cast<std::uint32_t>(m_text.size());
    m_boundaries.reserve(static_cast<std::size_t>(m_units.length()) / stride + 1);
    Boundary here{.unit = 0, .byte = 0};
    while (true) {
        if (here.unit >= m_boundaries.size() * stride)
            m_boundaries.push_back(here);
        if (here.byte == size)
            return;
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(bytes, here.byte, size, character);
        here.unit += static_cast<std::uint32_t>(U16_LENGTH(character));
    }
}

std::optional<std::uint32_t> UTF16Text::byteOffset(std::int64_t unit) const {
    assert(unit >= 0 && unit <= m_units.length());
    const auto target = static_cast<std::uint32_t>(unit);
    if (m_boundaries.empty())
        return target;
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(m_text.data());
    const auto size = static_cast<std::uint32_t>(m_text.size());
    auto here = m_boundaries[target / stride];
    while (here.unit < target) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(bytes, here.byte, size, character);
        here.unit += static_cast<std::uint32_t>(U16_LENGTH(character));
    }
    return here.unit == target ? std::optional(here.byte) : std::nullopt;
}

} // namespace korvane
