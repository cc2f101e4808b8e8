/// Reads JSON texts (RFC 8259) into lossless values, and writes values as text. Numbers keep every digit,
/// errors state their position, and an object's members are sorted. Not a model to build documents with:
/// every value comes from a parsed text.
#pragma once

#include "Utilities/JSON/JSONArena.h"
#include "Utilities/JSON/JSONBlock.h"
#include "Utilities/Text/Text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace korvane::JSON {

/// The maximum nesting of arrays and objects. Real documents are not this deep, and the limit makes
/// recursion over a document safe for the stack.
inline constexpr std::size_t maxDepth = 512;

/// The maximum size of a written text. Indentation can make a small hostile text five hundred times as long.
inline constexpr std::size_t maxWrittenSize = std::size_t{1} << 30;

enum class Type : std::uint8_t { null, boolean, number, string, array, object };

struct Member;

/// One value of a document: 16 bytes that refer to the document and the parsed text, and may be copied while
/// both live. Accessors that do not fit the type return an empty result.
class Value {
public:
    Value() : Value(Type::null, nullText.data(), 4) {}

    Type type() const { return static_cast<Type>(m_facts & 0xFF); }

    /// The boolean; false for everything else.
    bool boolean() const { return type() == Type::boolean && m_data == trueText.data(); }

    /// The content of a string, without quotes and escapes, or the canonical text of a number (see
    /// JSONNumber.h). Empty for everything else.
    std::string_view text() const;

    /// The double nearest to a number: an infinity or a zero beyond the range of doubles. 0 for everything
    /// else.
    double number() const;

    std::span<const Value> elements() const;

    /// The members in ascending order of their names (bytewise comparison), each name once.
    std::span<const Member> members() const;

    /// The value of the member with that name, or null if there is none. Logarithmic time.
    const Value* member(std::string_view name) const;

private:
    friend class Reader;
    friend class Writer;

    static Value boolean(bool value);
    static Value number(std::string_view text);
    static Value string(std::string_view content, std::size_t escapes);
    static Value array(std::span<const Value> elements);
    static Value object(std::span<const Member> members);

    Value(Type type, const void* data, std::size_t size, std::size_t escapes = 0)
        : m_data(data),
          m_facts(size << sizeShift | escapes << escapesShift | static_cast<std::size_t>(type)) {}

    /// The content of a string, or the written form of another scalar.
    std::string_view literal() const { return {static_cast<const char*>(m_data), size()}; }

    /// In bytes, elements or members.
    std::size_t size() const { return m_facts >> sizeShift; }

    /// The number of characters that escaping adds to a string, or `uncountedEscapes`.
    std::size_t escapes() const { return m_facts >> escapesShift & 0xFF; }

    /// Means that the writer must count the escapes.
    static constexpr std::size_t uncountedEscapes = 255;

    static constexpr int escapesShift = 8;
    static constexpr int sizeShift = 16; // leaves 48 bits for the size, as many as addresses have

    static constexpr std::array<char, 4 + Block::size> nullText = {'n', 'u', 'l', 'l'};
    static constexpr std::array<char, 4 + Block::size> trueText = {'t', 'r', 'u', 'e'};
    static constexpr std::array<char, 5 + Block::size> falseText = {'f', 'a', 'l', 's', 'e'};

    /// Texts have `Block::size` readable bytes after their end, of any content.
    const void* m_data;
    std::uint64_t m_facts;
};

struct Member {
    Value name; ///< a string
    Value value;
};

/// The members that objects drop because a later member has the same name.
struct DuplicateNames {
    std::size_t count = 0;      ///< of the dropped members in the whole document
    std::string_view example{}; ///< one of their names; refers to the memory of the document or its text

    bool operator==(const DuplicateNames&) const = default;
};

/// A parsed text. Refers to the text, which must outlive it: strings without escapes and most numbers stay
/// there, everything else is in the document's memory.
class Document {
public:
    const Value& root() const { return m_root; }

    const DuplicateNames& duplicateNames() const { return m_duplicateNames; }

private:
    friend class Reader;

    Document(Value root, DuplicateNames duplicateNames, Arena arena)
        : m_root(root), m_duplicateNames(duplicateNames), m_arena(std::move(arena)) {}

    Value m_root;
    DuplicateNames m_duplicateNames;
    Arena m_arena;
};

struct ReadingOptions {
    bool fragmentsAllowed = false; ///< whether the text may be a lone scalar instead of an object or array
};

/// The first error in a text.
struct ParseError {
    enum class Kind {
        unexpectedText,
        unexpectedEnd,
        invalidNumber,
        invalidEscape,
        loneSurrogate,
        controlCharacter,
        tooDeep,
        invalidUTF8,
    };

    Kind kind{};
    std::size_t offset = 0; ///< in bytes, from the start of the text
    std::size_t end = 0; ///< of the token there, which is a character at least; `offset` at the end of input
    TextPosition position{};
    std::string message{}; ///< one line: the error, its position, and the expected input
};

/// How messages name a position: "line 3, column 14".
std::string placeName(const TextPosition& position);

/// Parses `text`, which is UTF-8; a byte-order mark at its start is skipped. If a name occurs more than once
/// in an object, the last member is kept. Fails at the first violation of RFC 8259, at lone surrogate escapes
/// and above `maxDepth`; bytes that are not UTF-8 take precedence over any other error. Takes linear time,
/// except for sorting the members of objects.
std::expected<Document, ParseError> parse(std::string_view text, ReadingOptions options = {});

struct WritingOptions {
    bool prettyPrinted = false; ///< two spaces a level, one member or element a line, " : " after names
    /// Has no effect at present: members are always sorted by name. The option guarantees the order even if
    /// the default changes.
    bool sortedKeys = false;
    bool fragmentsAllowed = false; ///< whether the value may be a scalar
};

struct WriteError {
    std::string message{};
};

/// The text of `value`, without a line break at its end. `"`, `\` and `/` are escaped, control characters by
/// their short forms or `\u00xx`; other characters are unchanged. Fails for a lone scalar that the options do
/// not allow, and if the text would be longer than `maxWrittenSize`.
std::expected<std::string, WriteError> write(const Value& value, WritingOptions options = {});

inline std::string_view Value::text() const {
    return type() == Type::string || type() == Type::number
               ? std::string_view(static_cast<const char*>(m_data), size())
               : std::string_view();
}

inline std::span<const Value> Value::elements() const {
    return type() == Type::array ? std::span(static_cast<const Value*>(m_data), size())
                                 : std::span<const Value>();
}

inline std::span<const Member> Value::members() const {
    return type() == Type::object ? std::span(static_cast<const Member*>(m_data), size())
                                  : std::span<const Member>();
}

inline Value Value::boolean(bool value) {
    return value ? Value(Type::boolean, trueText.data(), 4) : Value(Type::boolean, falseText.data(), 5);
}

inline Value Value::number(std::string_view text) {
    return {Type::number, text.data(), text.size()};
}

inline Value Value::string(std::string_view content, std::size_t escapes) {
    return {Type::string, content.data(), content.size(), escapes};
}

inline Value Value::array(std::span<const Value> elements) {
    return {Type::array, elements.data(), elements.size()};
}

inline Value Value::object(std::span<const Member> members) {
    return {Type::object, members.data(), members.size()};
}

} // namespace korvane::JSON
