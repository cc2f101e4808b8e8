#include "Images/Bitmap.h"

#include <array>
#include <bit>
#include <cstring>
#include <vector>

namespace korvane::Bitmap {

namespace {

using Byte = unsigned char;

/// The decoded picture; rows are numbered in file order.
class Canvas {
public:
    explicit Canvas(const Header& header)
        : m_header(header),
          m_channels(header.channels()),
          m_rowBytes(static_cast<std::size_t>(header.width) * static_cast<std::size_t>(m_channels)) {
        m_buffer.resize(m_rowBytes * static_cast<std::size_t>(header.height));
        m_samples = reinterpret_cast<Byte*>(m_buffer.data());
    }

    Byte* row(int fileRow) const {
        const int row = m_header.isTopDown ? fileRow : m_header.height - 1 - fileRow;
        return m_samples + static_cast<std::size_t>(row) * m_rowBytes;
    }

    /// The picture, after which nothing more can be written.
    Image finish() {
        return {.width = m_header.width,
                .height = m_header.height,
                .channels = m_channels,
                .samples = m_buffer.finish().samples(),
                .colorProfile = std::string(m_header.colorProfile),
                .horizontalDPI = m_header.horizontalDPI,
                .verticalDPI = m_header.verticalDPI};
    }

private:
    const Header& m_header;
    int m_channels;
    std::size_t m_rowBytes;
    SharedBuffer m_buffer;
    Byte* m_samples = nullptr;
};

/// The colours of the palette in the picture's channel order. An index beyond its end is black.
class Palette {
public:
    explicit Palette(const Header& header) : m_isGray(header.isGray()) {
        const auto step = static_cast<std::size_t>(header.paletteEntryBytes);
        for (std::size_t i = 0; i < header.palette.size() / step; ++i) {
            for (std::size_t channel = 0; channel < 3; ++channel)
                m_colors[i][channel] = static_cast<Byte>(header.palette[i * step + 2 - channel]);
        }
    }

    void put(Byte* row, int x, unsigned index) const {
        const auto& color = m_colors[index];
        const auto place = static_cast<std::size_t>(x);
        if (m_isGray)
            row[place] = color[0];
        else
            std::memcpy(row + 3 * place, color.data(), color.size());
    }

private:
    std::array<std::array<Byte, 3>, 256> m_colors{};
    bool m_isGray;
};

/// Scales the bits of one channel to 8.
class Channel {
public:
    explicit Channel(std::uint32_t mask)
        : m_mask(mask), m_shift(mask == 0 ? 0 : std::countr_zero(mask)), m_maxValue(mask >> m_shift) {}

    Byte value(std::uint32_t pixel) const {
        const std::uint64_t bits = (pixel & m_mask) >> m_shift;
        return m_maxValue == 0 ? Byte(0) : static_cast<Byte>((bits * 255 + m_maxValue / 2) / m_maxValue);
    }

private:
    std::uint32_t m_mask;
    int m_shift;
    std::uint64_t m_maxValue;
};

void readIndexedRow(const Header& header, const Palette& palette, const Byte* source, Byte* row) {
    const auto bits = static_cast<unsigned>(header.bitsPerPixel);
    const auto pixelsPerByte = 8 / bits;
    const auto mask = (1U << bits) - 1;
    for (unsigned x = 0; x < static_cast<unsigned>(header.width); ++x) {
        const auto shift = (pixelsPerByte - 1 - x % pixelsPerByte) * bits;
        palette.put(row, static_cast<int>(x), (unsigned(source[x / pixelsPerByte]) >> shift) & mask);
    }
}

void readRGBRow(int width, const Byte* source, Byte* row) {
    for (std::size_t i = 0; i < 3 * static_cast<std::size_t>(width); i += 3) {
        row[i] = source[i + 2];
        row[i + 1] = source[i + 1];
        row[i + 2] = source[i];
    }
}

class MaskedRows {
public:
    explicit MaskedRows(const Header& header)
        : m_width(header.width),
          m_bytesPerPixel(header.bitsPerPixel / 8),
          m_hasAlpha(header.hasAlpha()),
          m_channels{Channel(header.masks[0]), Channel(header.masks[1]), Channel(header.masks[2]),
                     Channel(header.masks[3])} {}

    void read(const Byte* source, Byte* row) const {
        const std::size_t count = m_hasAlpha ? 4 : 3;
        for (int x = 0; x < m_width; ++x, source += m_bytesPerPixel) {
            std::uint32_t pixel = source[0] | (std::uint32_t(source[1]) << 8);
            if (m_bytesPerPixel == 4)
                pixel |= (std::uint32_t(source[2]) << 16) | (std::uint32_t(source[3]) << 24);
            for (std::size_t channel = 0; channel < count; ++channel)
                *row++ = m_channels[channel].value(pixel);
        }
    }

private:
    int m_width;
    int m_bytesPerPixel;
    bool m_hasAlpha;
    std::array<Channel, 4> m_channels;
};

/// Reads uncompressed rows, padded to a multiple of four bytes. The last padding may be missing.
bool readRows(const Header& header, const Canvas& canvas) {
    const auto bits = static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.bitsPerPixel);
    const auto stride = (bits + 31) / 32 * 4;
    if (stride * static_cast<std::size_t>(header.height - 1) + (bits + 7) / 8 > header.pixels.size())
        return false;
    const Palette palette(header);
    const MaskedRows masked(header);
    for (int y = 0; y < header.height; ++y) {
        const auto* source =
            reinterpret_cast<const Byte*>(header.pixels.data()) + stride * static_cast<std::size_t>(y);
        if (header.bitsPerPixel <= 8)
            readIndexedRow(header, palette, source, canvas.row(y));
        else if (header.bitsPerPixel == 24)
            readRGBRow(header.width, source, canvas.row(y));
        else
            masked.read(source, canvas.row(y));
    }
    return true;
}

/// Reads run-length encoded pixels of 4 or 8 bits. Skipped pixels have the palette's first colour.
class RunLengthReader {
public:
    RunLengthReader(const Header& header, const Canvas& canvas)
        : m_header(header),
          m_canvas(canvas),
          m_palette(header),
          m_data(header.pixels),
          m_isNibbles(header.compression == Compression::runLength4) {}

    /// Returns whether the data contain the complete picture and no pixel is outside it.
    bool read() {
        for (int y = 0; y < m_header.height; ++y) {
            for (int x = 0; x < m_header.width; ++x)
                m_palette.put(m_canvas.row(y), x, 0);
        }
        while (m_data.size() >= 2 && !m_isAtEnd) {
            const auto count = take();
            const auto value = take();
            if (!(count > 0 ? run(count, value) : escape(value)))
                return false;
        }
        return m_isAtEnd || m_y >= m_header.height || (m_y == m_header.height - 1 && m_x == m_header.width);
    }

private:
    enum : unsigned { endOfLine = 0, endOfBitmap = 1, skip = 2 };

    unsigned take() {
        const auto byte = static_cast<Byte>(m_data.front());
        m_data.remove_prefix(1);
        return byte;
    }

    bool put(unsigned index) {
        if (m_y >= m_header.height || m_x >= m_header.width)
            return false;
        m_palette.put(m_canvas.row(m_y), m_x++, index);
        return true;
    }

    /// The pixel at `position` of a run whose byte holds one pixel or two alternating ones.
    unsigned pixel(unsigned byte, unsigned position) const {
        if (!m_isNibbles)
            return byte;
        return position % 2 == 0 ? byte >> 4 : byte & 15;
    }

    bool run(unsigned count, unsigned value) {
        for (unsigned i = 0; i < count; ++i) {
            if (!put(pixel(value, i)))
                return m_isNibbles && i + 1 == count &&
                       m_y < m_header.height; // writers round runs up to two pixels
        }
        return true;
    }

    bool escape(unsigned code) {
        switch (code) {
        case endOfLine:
            m_x = 0;
            ++m_y;
            return true;
        case endOfBitmap:
            m_isAtEnd = true;
            return true;
        case skip:
            if (m_data.size() < 2)
                return false;
            m_x += static_cast<int>(take());
            m_y += static_cast<int>(take());
            return m_x <= m_header.width && m_y < m_header.height;
        default:
            return literal(code);
        }
    }

    /// Reads `count` literal pixels; their bytes are padded to an even number.
    bool literal(unsigned count) {
        const auto bytes = m_isNibbles ? (count + 1) / 2 : count;
        if (m_data.size() < bytes)
            return false;
        unsigned byte = 0;
        for (unsigned i = 0; i < count; ++i) {
            if (!m_isNibbles || i % 2 == 0)
                byte = take();
            if (!put(pixel(byte, i)))
                return false;
        }
        if (bytes % 2 != 0 && !m_data.empty())
            m_data.remove_prefix(1);
        return true;
    }

    const Header& m_header;
    const Canvas& m_canvas;
    Palette m_palette;
    std::string_view m_data;
    bool m_isNibbles;
    bool m_isAtEnd = false;
    int m_x = 0;
    int m_y = 0;
};

} // namespace

std::optional<Image> read(const Header& header) {
    Canvas canvas(header);
    const bool hasRuns =
        header.compression == Compression::runLength8 || header.compression == Compression::runLength4;
    const bool isComplete = hasRuns ? RunLengthReader(header, canvas).read() : readRows(header, canvas);
    if (!isComplete)
        return std::nullopt;
    return canvas.finish();
}

} // namespace korvane::Bitmap
