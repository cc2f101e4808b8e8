#include "Utilities/JSONWriter.h"

#include "Utilities/JSONBlock.h"
#include "Utilities/JSONEscape.h"
#include "Utilities/LargePages.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace korvane::JSON {

namespace {

/// The next few characters of a text that is being escaped.
struct Piece {
    std::size_t plain = 0; ///< how many stand for themselves, at most a block
    bool escapes = false;  ///< whether the one after these does not
};

/// `content` is not empty, and has room for a block after its end.
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

} // namespace

/// Here as in all of the writer, text that follows overwrites what a last block had too much. Behind the end
/// of the whole text there is room for one.
inline void Writer::appendText(std::string_view text) {
    copyBlocks(m_next, text.data(), text.size());
    m_next += text.size();
}

std::expected<std::string, WriteError> Writer::write(const Value& root) {
    if (!m_options.fragmentsAllowed && root.type() != Type::object && root.type() != Type::array)
        return std::unexpected(WriteError{"Expected an object or an array at the top level"});
    const auto size = writtenSize(root, 0);
    if (size > maximumWrittenSize)
        return std::unexpected(WriteError{"The output would be longer than 1 GiB"});
    std::string text;
    text.resize_and_overwrite(size + Block::size, [&](char* characters, std::size_t room) {
        preferLargePages(characters, room);
        m_next = characters;
        writeValue(root, 0);
        return size;
    });
    return text;
}

/// The number of characters that `writeValue` writes.
std::size_t Writer::writtenSize(const Value& value, std::size_t depth) const {
    std::size_t size = 0;
    switch (value.type()) {
    case Type::null:
        return std::string_view("null").size();
    case Type::boolean:
        return std::string_view(value.boolean() ? "true" : "false").size();
    case Type::number:
        return value.text().size();
    case Type::string:
        return 2 + (value.m_escapes == Value::manyEscapes ? escapedSize(value.text())
                                                          : value.text().size() + value.m_escapes);
    case Type::array:
        for (const auto& element : value.elements())
            size += writtenSize(element, depth + 1);
        return size + frameSize(value.elements().size(), depth);
    case Type::object:
        for (const auto& [name, member] : value.members())
            size += writtenSize(name, depth) + writtenSize(member, depth + 1);
        return size + frameSize(value.members().size(), depth) +
               value.members().size() * std::string_view(m_options.prettyPrinted ? " : " : ":").size();
    }
    return size;
}

/// What brackets, commas and lines add to a container of `count` members or elements.
std::size_t Writer::frameSize(std::size_t count, std::size_t depth) const {
    constexpr std::size_t brackets = 2;
    if (count == 0)
        return brackets;
    return brackets + (count - 1) + count * line(depth + 1).size() + line(depth).size();
}

void Writer::writeValue(const Value& value, std::size_t depth) {
    switch (value.type()) {
    case Type::null:
        return append("null");
    case Type::boolean:
        return value.boolean() ? append("true") : append("false");
    case Type::number:
        return appendText(value.text());
    case Type::string:
        return writeString(value);
    case Type::array:
        return writeArray(value, depth);
    case Type::object:
        return writeObject(value, depth);
    }
}

void Writer::writeObject(const Value& object, std::size_t depth) {
    if (object.members().empty())
        return append("{}");
    append('{');
    const auto newLine = line(depth + 1);
    bool isFirst = true;
    for (const auto& [name, value] : object.members()) {
        if (!isFirst)
            append(',');
        isFirst = false;
        appendText(newLine);
        writeString(name);
        if (m_options.prettyPrinted)
            append(" : ");
        else
            append(':');
        writeValue(value, depth + 1);
    }
    appendText(line(depth));
    append('}');
}

void Writer::writeArray(const Value& array, std::size_t depth) {
    if (array.elements().empty())
        return append("[]");
    append('[');
    const auto newLine = line(depth + 1);
    bool isFirst = true;
    for (const auto& element : array.elements()) {
        if (!isFirst)
            append(',');
        isFirst = false;
        appendText(newLine);
        writeValue(element, depth + 1);
    }
    appendText(line(depth));
    append(']');
}

void Writer::writeString(const Value& string) {
    append('"');
    if (string.m_escapes == 0)
        appendText(string.text());
    else
        writeEscaped(string.text());
    append('"');
}

void Writer::writeEscaped(std::string_view content) {
    while (!content.empty()) {
        const auto piece = nextPiece(content);
        std::memcpy(m_next, content.data(), Block::size);
        m_next += piece.plain;
        content.remove_prefix(piece.plain);
        if (piece.escapes) {
            const auto& escape = escapeOf(content.front());
            std::memcpy(m_next, escape.text().data(), EscapeSequence::room);
            m_next += escape.text().size();
            content.remove_prefix(1);
        }
    }
}

/// The line break before a member, an element or a closing bracket, with the spaces of its level.
std::string_view Writer::line(std::size_t depth) const {
    static constexpr auto deepest = [] {
        std::array<char, 1 + 2 * maximumDepth + Block::size> characters{};
        characters.fill(' ');
        characters[0] = '\n';
        return characters;
    }();
    return {deepest.data(), m_options.prettyPrinted ? 1 + 2 * depth : 0};
}

std::expected<std::string, WriteError> write(const Value& value, WritingOptions options) {
    return Writer(options).write(value);
}

} // namespace korvane::JSON
