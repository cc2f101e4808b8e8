/// Classifies sixteen characters of a JSON text in one step with SSE2, or one by one on other processors.
/// Classifies characters only; it does not track strings.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace korvane::JSON {

/// Optional at the start of a text, without meaning.
inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

constexpr bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

constexpr bool isControl(char character) {
    return static_cast<unsigned char>(character) < 0x20;
}

/// Whether a character ends a run of unescaped characters in a string.
constexpr bool endsStringRun(char character) {
    return character == '"' || character == '\\' || isControl(character);
}

/// JSON's white space, a subset of Unicode's.
constexpr bool isSpace(char character) {
    return character <= ' ' &&
           (character == ' ' || character == '\n' || character == '\r' || character == '\t');
}

/// Each result is a mask in which bit i belongs to character i.
class Block {
public:
    static constexpr std::size_t size = 16;

#if defined(__SSE2__)
    explicit Block(const char* text) : m_text(_mm_loadu_si128(reinterpret_cast<const __m128i*>(text))) {}

    /// The characters that satisfy `endsStringRun`.
    std::uint32_t stringRunEnds() const {
        const auto controls = _mm_cmpeq_epi8(_mm_min_epu8(m_text, _mm_set1_epi8(0x1F)), m_text);
        return mask(_mm_or_si128(controls, _mm_or_si128(equal('"'), equal('\\'))));
    }

    std::uint32_t slashes() const { return mask(equal('/')); }

    std::uint32_t beyondASCII() const { return mask(m_text); }

    std::uint32_t spaces() const {
        return mask(
            _mm_or_si128(_mm_or_si128(equal(' '), equal('\n')), _mm_or_si128(equal('\r'), equal('\t'))));
    }

private:
    __m128i equal(char character) const { return _mm_cmpeq_epi8(m_text, _mm_set1_epi8(character)); }

    static std::uint32_t mask(__m128i matches) {
        return static_cast<std::uint32_t>(_mm_movemask_epi8(matches));
    }

    __m128i m_text;
#else
    explicit Block(const char* text) { std::memcpy(m_text.data(), text, size); }

    /// The characters that satisfy `endsStringRun`.
    std::uint32_t stringRunEnds() const { return mask(endsStringRun); }

    std::uint32_t slashes() const {
        return mask([](char character) { return character == '/'; });
    }

    std::uint32_t beyondASCII() const {
        return mask([](char character) { return static_cast<unsigned char>(character) >= 0x80; });
    }

    std::uint32_t spaces() const { return mask(isSpace); }

private:
    template <typename Predicate>
    std::uint32_t mask(Predicate matches) const {
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < size; ++i)
            bits |= std::uint32_t{matches(m_text[i])} << i;
        return bits;
    }

    std::array<char, size> m_text{};
#endif
};

/// Copies `size` characters in whole blocks, so that a short text takes one step. Source and destination must
/// be padded by a block.
inline void copyBlocks(char* to, const char* from, std::size_t size) {
    std::size_t copied = 0;
    do {
        std::memcpy(to + copied, from + copied, Block::size);
        copied += Block::size;
    } while (copied < size);
}

} // namespace korvane::JSON
