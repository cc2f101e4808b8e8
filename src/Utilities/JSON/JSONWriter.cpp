#include "Utilities/JSON/JSONWriter.h"

#include "Utilities/JSON/JSONBlock.h"
#include "Utilities/JSON/JSONEscape.h"
#include "Utilities/LargePages.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace korvane::JSON {

namespace {

/// The next characters of a text to escape.
struct Piece {
    std::size_t plain = 0; ///< characters that need no escape, at most a block
    bool escapes = false;  ///< whether the next character needs one
};

/// `content` is not empty, and is padded by a block after its end.
Piece nextPiece(std::string_view content) {
    const Block block(content.data());
    const auto size = std::min(content.size(), Block::size);
    const auto inside = (std::uint32_t{1} << size) - 1;
    const auto escaped = (block.stringRunEnds() | block.slashes()) & inside;
    if (escaped == 0)
        return {.plain = size};
    return {.plain = static_cast<std::size_t>(std::countr_zero(escaped)), .escapes = true};
}

const EscapeSequence& escapeOf(char character) {
    return escapeSequences[static_cast<unsigned char>(character)];
}

std::size_t escapedSize(std::string_view content) {
    auto size = content.size();
    while (!content.empty()) {
        const auto piece = nextPiece(content);
        content.remove_prefix(piece.plain);
        if (piece.escapes) {
            size += escapeOf(content.front()).text().size() - 1;
            content.remove_prefix(1);
        }
    }
    return size;
}

/// Writes text of the document, which is padded by a block after its end. Throughout the writer, later text
/// overwrites the excess of the last block; the output buffer is padded by one block.
char* appendText(char* to, std::string_view text) {
    copyBlocks(to, text.data(), text.size());
    return to + text.size();
}

template <std::size_t size>
char* append(char* to, const char (&literal)[size]) {
    std::memcpy(to, literal, size - 1);
    return to + size - 1;
}

} // namespace

std::expected<std::string, WriteError> Writer::write(const Value& root) {
    if (!m_options.fragmentsAllowed && root.type() != Type::object && root.type() != Type::array)
        return std::unexpected(WriteError{"Expected an object or an array at the top level"});
    const auto size = writtenSize(root, 0);
    if (size > maxWrittenSize)
        return std::unexpected(WriteError{"The output would be longer than 1 GiB"});
    std::string text;
    text.resize_and_overwrite(size + Block::size, [&](char* characters, std::size_t room) {
        preferLargePages(characters, room);
        writeValue(characters, root, 0);
        return size;
    });
    return text;
}

inline std::size_t Writer::quotedSize(const Value& string) {
    constexpr std::size_t quotes = 2;
    if (string.escapes() == Value::uncountedEscapes)
        return quotes + escapedSize(string.literal());
    return quotes + string.size() + string.escapes();
}

/// The number of characters that `writeValue` writes.
std::size_t Writer::writtenSize(const Value& value, std::size_t depth) const {
    std::size_t size = 0;
    switch (value.type()) {
    case Type::string:
        return quotedSize(value);
    case Type::array:
        for (const auto& element : value.elements())
            size += writtenSize(element, depth + 1);
        return size + frameSize(value.elements().size(), depth);
    case Type::object:
        for (const auto& [name, member] : value.members())
            size += quotedSize(name) + writtenSize(member, depth + 1);
        return size + frameSize(value.members().size(), depth) +
               value.members().size() * std::string_view(m_options.prettyPrinted ? " : " : ":").size();
    default:
        return value.literal().size();
    }
}

/// The characters that brackets, commas and line breaks add to a container of `count` members or elements.
std::size_t Writer::frameSize(std::size_t count, std::size_t depth) const {
    constexpr std::size_t brackets = 2;
    if (count == 0)
        return brackets;
    return brackets + (count - 1) + count * line(depth + 1).size() + line(depth).size();
}

inline char* Writer::writeString(char* to, const Value& string) {
    *to++ = '"';
    to = string.escapes() == 0 ? appendText(to, string.literal()) : writeEscaped(to, string.literal());
    *to++ = '"';
    return to;
}

char* Writer::writeValue(char* to, const Value& value, std::size_t depth) const {
    switch (value.type()) {
    case Type::string:
        return writeString(to, value);
    case Type::array:
        return writeArray(to, value, depth);
    case Type::object:
        return writeObject(to, value, depth);
    default:
        return appendText(to, value.literal());
    }
}

char* Writer::writeObject(char* to, const Value& object, std::size_t depth) const {
    if (object.members().empty())
        return append(to, "{}");
    const auto newLine = line(depth + 1);
    char separator = '{';
    for (const auto& [name, value] : object.members()) {
        *to++ = separator;
        separator = ',';
        to = appendText(to, newLine);
        to = writeString(to, name);
        to = m_options.prettyPrinted ? append(to, " : ") : append(to, ":");
        to = writeValue(to, value, depth + 1);
    }
    to = appendText(to, line(depth));
    return append(to, "}");
}

char* Writer::writeArray(char* to, const Value& array, std::size_t depth) const {
    if (array.elements().empty())
        return append(to, "[]");
    const auto newLine = line(depth + 1);
    char separator = '[';
    for (const auto& element : array.elements()) {
        *to++ = separator;
        separator = ',';
        to = appendText(to, newLine);
        to = writeValue(to, element, depth + 1);
    }
    to = appendText(to, line(depth));
    return append(to, "]");
}

char* Writer::writeEscaped(char* to, std::string_view content) {
    while (!content.empty()) {
        const auto piece = nextPiece(content);
        std::memcpy(to, content.data(), Block::size);
        to += piece.plain;
        content.remove_prefix(piece.plain);
        if (piece.escapes) {
            const auto& escape = escapeOf(content.front());
            std::memcpy(to, escape.text().data(), EscapeSequence::bufferSize);
            to += escape.text().size();
            content.remove_prefix(1);
        }
    }
    return to;
}

/// The line break and indentation before a member, an element or a closing bracket.
std::string_view Writer::line(std::size_t depth) const {
    static constexpr auto indentation = [] {
        std::array<char, 1 + 2 * maxDepth + Block::size> characters{};
        characters.fill(' ');
        characters[0] = '\n';
        return characters;
    }();
    return {indentation.data(), m_options.prettyPrinted ? 1 + 2 * depth : 0};
}

std::expected<std::string, WriteError> write(const Value& value, WritingOptions options) {
    return Writer(options).write(value);
}

} // namespace korvane::JSON
