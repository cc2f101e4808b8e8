/// A UTF-16 copy of a UTF-8 text, for libraries that use UTF-16 units, with a conversion of their positions
/// to byte offsets.
#pragma once

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace korvane {

class UTF16Text {
public:
    /// The maximum size of a text in bytes: positions in either encoding fit into 32 bits.
    static constexpr std::size_t maxSize = std::size_t{1} << 30;

    /// Copies `text`, of at most `maxSize` bytes. Each sequence of bytes that is not UTF-8, as ICU splits
    /// them, becomes a replacement character. About a gigabyte a second for ASCII.
    explicit UTF16Text(std::string_view text);

    const icu::UnicodeString& units() const { return m_units; }

    /// The byte offset of the UTF-16 position `unit` (from 0 to the number of units), or none if it is
    /// between the two halves of a surrogate pair. Constant time.
    std::optional<std::uint32_t> byteOffset(std::int64_t unit) const;

private:
    /// A character boundary, in both encodings.
    struct Boundary {
        std::uint32_t unit;
        std::uint32_t byte;
    };

    void recordBoundaries();

    std::string_view m_text;
    icu::UnicodeString m_units;
    std::vector<Boundary> m_boundaries; ///< the first at or after each multiple of the stride; none for ASCII
};

} // namespace korvane
