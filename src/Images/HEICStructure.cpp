#include "Images/HEICStructure.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace korvane::HEIC {

namespace {

/// More than the maximum picture size in tiles of 64 by 64 pixels.
constexpr std::uint64_t maxPictures = 100'000;

/// A grid of rotated tiles with transparency has three levels; twice that suffices.
constexpr int maxNesting = 6;

/// Reads big-endian numbers from bytes.
class Reader {
public:
    explicit Reader(std::string_view bytes) : m_bytes(bytes) {}

    std::size_t size() const { return m_bytes.size(); }

    /// 0 at the end of the bytes.
    std::uint64_t number(std::size_t byteCount) {
        std::uint64_t value = 0;
        for (const char byte : take(byteCount))
            value = value << 8 | static_cast<unsigned char>(byte);
        return value;
    }

    std::string_view take(std::size_t byteCount) {
        const auto taken = m_bytes.substr(0, byteCount);
        m_bytes.remove_prefix(taken.size());
        return taken;
    }

private:
    std::string_view m_bytes;
};

struct Box {
    std::string_view type;
    std::string_view content;
};

/// The next box, truncated at the end of the bytes; none at their end, or if its stated size is less than its
/// header.
std::optional<Box> nextBox(Reader& reader) {
    constexpr std::size_t headerBytes = 8, longHeaderBytes = 16, sizeToEnd = 0, sizeIsLong = 1;
    if (reader.size() < headerBytes)
        return std::nullopt;
    std::uint64_t size = reader.number(4);
    const auto type = reader.take(4);
    auto header = headerBytes;
    if (size == sizeIsLong) {
        size = reader.number(8);
        header = longHeaderBytes;
    } else if (size == sizeToEnd) {
        size = header + reader.size();
    }
    if (size < header)
        return std::nullopt;
    return Box{type, reader.take(size - header)};
}

/// For each picture, the pictures that its decoding requires.
using Parts = std::map<std::uint64_t, std::vector<std::uint64_t>>;

void readReferences(std::string_view content, Parts& parts) {
    Reader reader(content);
    const auto version = reader.number(1);
    reader.take(3);
    const std::size_t idBytes = version == 0 ? 2 : 4;
    while (const auto box = nextBox(reader)) {
        Reader reference(box->content);
        const auto from = reference.number(idBytes);
        const auto count = reference.number(2);
        for (std::uint64_t i = 0; i < count && reference.size() >= idBytes; ++i) {
            const auto to = reference.number(idBytes);
            if (box->type == "dimg") // derived from
                parts[from].push_back(to);
            else if (box->type == "auxl") // auxiliary picture of, such as transparency
                parts[to].push_back(from);
        }
    }
}

Parts readParts(std::string_view bytes) {
    Parts parts;
    Reader file(bytes);
    while (const auto box = nextBox(file)) {
        if (box->type != "meta")
            continue;
        Reader meta(box->content);
        meta.take(4); // version and flags
        while (const auto inner = nextBox(meta)) {
            if (inner->type == "iref")
                readReferences(inner->content, parts);
        }
    }
    return parts;
}

/// How many pictures are decoded for `picture`, itself included; more than `maxPictures` if the nesting is
/// too deep.
std::uint64_t decodedPictures(const Parts& parts, std::uint64_t picture, int nesting,
                              std::map<std::uint64_t, std::uint64_t>& known) {
    if (nesting > maxNesting)
        return maxPictures + 1;
    if (const auto found = known.find(picture); found != known.end())
        return found->second;
    std::uint64_t count = 1;
    if (const auto found = parts.find(picture); found != parts.end()) {
        for (const auto part : found->second) {
            count += decodedPictures(parts, part, nesting + 1, known);
            if (count > maxPictures)
                return count;
        }
    }
    known[picture] = count;
    return count;
}

} // namespace

bool hasFiniteReferences(std::string_view bytes) {
    const auto parts = readParts(bytes);
    std::map<std::uint64_t, std::uint64_t> known;
    for (const auto& [picture, ignored] : parts) {
        if (decodedPictures(parts, picture, 0, known) > maxPictures)
            return false;
    }
    return true;
}

} // namespace korvane::HEIC
