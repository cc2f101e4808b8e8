#include "Utilities/JSON/JSONFailure.h"

#include "Utilities/JSON/JSONBlock.h"
#include "Utilities/JSON/JSONEscape.h"
#include "Utilities/Text/CharacterName.h"
#include "Utilities/Text/UTF8.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

namespace korvane::JSON {

namespace {

/// Longer words are truncated, as a message is one line.
constexpr std::size_t maxQuotedSize = 24;

bool isWordCharacter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') ||
           std::string_view("_$+-.").find(character) != std::string_view::npos;
}

/// The end of the string, the word or the character that begins at `offset`. A string ends with its line at
/// the latest.
std::size_t tokenEnd(std::string_view text, std::size_t offset) {
    if (offset == text.size())
        return offset;
    auto end = offset;
    if (text[offset] == '"') {
        for (++end; end < text.size() && text[end] != '\n' && text[end] != '"'; ++end) {
            if (text[end] == '\\' && end + 1 < text.size() && text[end + 1] != '\n')
                ++end;
        }
        return end < text.size() && text[end] == '"' ? end + 1 : end;
    }
    while (end < text.size() && isWordCharacter(text[end]))
        ++end;
    return std::max(end, decodeAt(text, offset).end);
}

std::string quoted(std::string_view text) {
    if (text.size() > maxQuotedSize)
        return fmt::format("\"{}...\"", text.substr(0, maxQuotedSize));
    return fmt::format("\"{}\"", text);
}

/// The word or the character that begins at `offset`.
std::string found(std::string_view text, std::size_t offset) {
    const auto rest = text.substr(offset);
    const auto word =
        rest.substr(0, static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), isWordCharacter) -
                                                rest.begin()));
    if (!word.empty())
        return quoted(word);
    return characterName(text, offset);
}

std::string subject(std::string_view text, const Failure& failure) {
    const auto quote = [&] { return quoted(text.substr(failure.offset, failure.length)); };
    switch (failure.kind) {
    case ParseError::Kind::unexpectedText:
        return "Unexpected " + found(text, failure.offset);
    case ParseError::Kind::unexpectedEnd:
        return "Unexpected end of input";
    case ParseError::Kind::invalidNumber:
        return "Invalid number " + found(text, failure.offset);
    case ParseError::Kind::invalidEscape:
        return "Invalid escape " + quote();
    case ParseError::Kind::loneSurrogate:
        return "Lone surrogate " + quote();
    case ParseError::Kind::controlCharacter:
        return "Unescaped control character " + found(text, failure.offset);
    case ParseError::Kind::tooDeep:
        return "Nesting too deep";
    case ParseError::Kind::invalidUTF8:
        return fmt::format("Invalid UTF-8 byte 0x{:02X}", static_cast<std::uint8_t>(text[failure.offset]));
    }
    return {};
}

/// The expected input. For a control character it is the escape, which depends on the text.
std::string expectation(std::string_view text, const Failure& failure) {
    if (failure.kind != ParseError::Kind::controlCharacter)
        return std::string(failure.expected);
    return std::string(EscapeSequence(text[failure.offset]).text());
}

} // namespace

std::string placeName(const TextPosition& position) {
    return fmt::format("line {}, column {}", position.line, position.column);
}

ParseError describe(std::string_view text, const Failure& failure) {
    const auto markSize = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    const auto position = positionAt(text.substr(markSize), failure.offset - markSize);
    return {.kind = failure.kind,
            .offset = failure.offset,
            .end = std::max(tokenEnd(text, failure.offset), failure.offset + failure.length),
            .position = position,
            .message = fmt::format("{} at {}; expected {}", subject(text, failure), placeName(position),
                                   expectation(text, failure))};
}

} // namespace korvane::JSON
