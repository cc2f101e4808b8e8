#include "Utilities/JSON/JSONFailure.h"

#include "Utilities/JSON/JSONBlock.h"
#include "Utilities/JSON/JSONEscape.h"
#include "Utilities/Text/CharacterName.h"

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

ParseError describe(std::string_view text, const Failure& failure) {
    const auto markSize = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    const auto position = positionAt(text.substr(markSize), failure.offset - markSize);
    return {.kind = failure.kind,
            .offset = failure.offset,
            .position = position,
            .message = fmt::format("{} at line {}, column {}; expected {}", subject(text, failure),
                                   position.line, position.column, expectation(text, failure))};
}

} // namespace korvane::JSON
