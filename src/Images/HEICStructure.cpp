#include "Images/HEICStructure.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace korvane::HEIC {

namespace {

/// More than the largest picture has in tiles of 64 by 64 pixels.
constexpr std::uint64_t maxPictures = 100'000;

/// A grid of turned tiles with transparency has three; nobody needs more than twice that.
constexpr int maxNesting = 6;

/// Takes big-endian numbers off the front of some bytes.
class Reader {
public:
    explicit Reader(std::string_view bytes) : m_bytes(bytes) {}

    std::size_t size() const { return m_bytes.size(); }

    /// 0 where the bytes have come to an end.
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

/// The next box, cut off where the bytes end; none at their end or where it claims to be shorter than its own
/// head.
std::optional<Box> nextBox(Reader& reader) {
    constexpr std::size_t headBytes = 8, longHeadBytes = 16, toTheEnd = 0, isLong = 1;
    if (reader.size() < headBytes)
        return std::nullopt;
    std::uint64_t size = reader.number(4);
    const auto type = reader.take(4);
    auto head = headBytes;
    if (size == isLong) {
        size = reader.number(8);
        head = longHeadBytes;
    } else if (size == toTheEnd) {
        size = head + reader.size();
    }
    if (size < head)
        return std::nullopt;
    return Box{type, reader.take(size - head)};
}

/// For each picture, the pictures that are decoded in order to decode it.
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
            else if (box->type == "auxl") // an auxiliary picture of, such as transparency
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
