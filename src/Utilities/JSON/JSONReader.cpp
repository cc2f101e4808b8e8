#include "Utilities/JSON/JSONReader.h"

#include "Utilities/JSON/JSONBlock.h"
#include "Utilities/JSON/JSONNumber.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <memory>
#include <span>

namespace korvane::JSON {

Reader::Reader(std::string_view text, ReadingOptions options)
    : m_text(text), m_options(options), m_next(text.data()), m_end(text.data() + text.size()) {}

std::expected<Document, ParseError> Reader::read() {
    if (!readText()) {
        if (const auto valid = validUTF8PrefixLength(m_text); valid < m_text.size())
            fail(ParseError::Kind::invalidUTF8, m_text.data() + valid, "UTF-8 text");
        return std::unexpected(describe(m_text, *m_failure));
    }
    return Document(m_values.front(), m_sorter.duplicateNames(), std::move(m_arena));
}

inline void Reader::skipSpace() {
    if (!atEnd() && isSpace(*m_next))
        skipMoreSpace();
}

void Reader::skipMoreSpace() {
    ++m_next; // usually the only one
    if (atEnd() || !isSpace(*m_next))
        return;
    while (m_end - m_next >= static_cast<std::ptrdiff_t>(Block::size)) {
        const auto length = std::countr_one(Block(m_next).spaces());
        m_next += length;
        if (length < static_cast<int>(Block::size))
            return;
    }
    while (!atEnd() && isSpace(*m_next))
        ++m_next;
}

/// Advances to the next quote, backslash or control character.
inline void Reader::skipStringRun(Run& run) {
    while (m_end - m_next >= static_cast<std::ptrdiff_t>(Block::size)) {
        const Block block(m_next);
        const auto ends = block.stringRunEnds();
        const auto before = ~ends & (ends - 1); // all bits below the lowest one, or all
        if (const auto slashes = block.slashes() & before; slashes != 0)
            run.slashes += static_cast<std::size_t>(std::popcount(slashes));
        run.beyondASCII |= block.beyondASCII() & before;
        if (ends != 0) {
            m_next += std::countr_zero(ends);
            return;
        }
        m_next += Block::size;
    }
    for (; !atEnd() && !endsStringRun(*m_next); ++m_next) {
        run.slashes += *m_next == '/' ? 1 : 0;
        run.beyondASCII |= static_cast<unsigned char>(*m_next) & 0x80U;
    }
}

bool Reader::readText() {
    if (m_text.starts_with(byteOrderMark))
        m_next += byteOrderMark.size();
    skipSpace();
    if (!m_options.fragmentsAllowed && (atEnd() || (*m_next != '{' && *m_next != '[')))
        return failHere("an object or an array");
    if (!readTree())
        return false;
    skipSpace();
    return atEnd() || failHere("the end of the input");
}

bool Reader::readTree() {
    while (true) {
        bool opened = false;
        if (!readValue(opened))
            return false;
        bool atNextValue = opened;
        while (!atNextValue) {
            if (m_depth == 0)
                return true;
            if (!readSeparators(atNextValue))
                return false;
        }
    }
}

/// Reads a scalar or an empty container, or opens a container and advances to its first value.
bool Reader::readValue(bool& opened) {
    if (atEnd())
        return failHere("a value");
    switch (*m_next) {
    case '"':
        return readString();
    case '{':
        return open(true, opened);
    case '[':
        return open(false, opened);
    case 't':
        return readLiteral("true", Value::boolean(true));
    case 'f':
        return readLiteral("false", Value::boolean(false));
    case 'n':
        return readLiteral("null", Value());
    case '.':
        return fail(ParseError::Kind::invalidNumber, m_next, "a digit before the decimal point");
    case '+':
        return fail(ParseError::Kind::invalidNumber, m_next, "no plus sign");
    default:
        return *m_next == '-' || isDigit(*m_next) ? readNumber() : failHere("a value");
    }
}

bool Reader::open(bool isObject, bool& opened) {
    if (m_depth == maxDepth)
        return fail(ParseError::Kind::tooDeep, m_next, "at most 512 levels");
    m_frames[m_depth++] = {.firstValue = m_values.size(), .isObject = isObject};
    ++m_next;
    skipSpace();
    if (!atEnd() && *m_next == (isObject ? '}' : ']')) {
        close();
        return true;
    }
    opened = true;
    if (isObject)
        return !atEnd() && *m_next == '"' ? readName() : failHere("a member name in double quotes or \"}\"");
    if (atEnd())
        return failHere("a value or \"]\"");
    return true;
}

/// Reads what follows a complete value inside a container: the container's end, or a comma and everything
/// before the next value.
bool Reader::readSeparators(bool& atNextValue) {
    const bool inObject = m_frames[m_depth - 1].isObject;
    skipSpace();
    if (!atEnd() && *m_next == ',') {
        ++m_next;
        skipSpace();
        atNextValue = true;
        return !inObject || readName();
    }
    if (atEnd() || *m_next != (inObject ? '}' : ']'))
        return failHere(inObject ? "\",\" or \"}\"" : "\",\" or \"]\"");
    close();
    return true;
}

/// Skips the closing bracket of the innermost container, and replaces the container's values by the
/// container.
void Reader::close() {
    ++m_next;
    const auto frame = m_frames[--m_depth];
    const auto values = std::span(m_values).subspan(frame.firstValue);
    Value container;
    if (frame.isObject) {
        container = Value::object(m_sorter.sorted(values, m_arena));
    } else {
        const auto elements = m_arena.allocate<Value>(values.size());
        std::uninitialized_copy(values.begin(), values.end(), elements.begin());
        container = Value::array(elements);
    }
    m_values.resize(frame.firstValue);
    m_values.push_back(container);
}

bool Reader::readName() {
    if (atEnd() || *m_next != '"')
        return failHere("a member name in double quotes");
    if (!readString())
        return false;
    skipSpace();
    if (atEnd() || *m_next != ':')
        return failHere("\":\"");
    ++m_next;
    skipSpace();
    return true;
}

bool Reader::readString() {
    const auto* const start = ++m_next;
    Run run;
    skipStringRun(run);
    if (atEnd() || *m_next != '"')
        return readEscapedString(start, run);
    if (!checkUTF8(start, run))
        return false;
    const auto escapes = std::min(run.slashes, Value::uncountedEscapes);
    m_values.push_back(Value::string(padded({start, m_next}), escapes));
    ++m_next;
    return true;
}

/// Reads the rest of a string that has been read up to its first escape or error.
bool Reader::readEscapedString(const char* start, Run run) {
    m_unescaped.assign(start, m_next);
    while (!atEnd() && *m_next != '"') {
        if (isControl(*m_next))
            return fail(ParseError::Kind::controlCharacter, m_next, {});
        if (!readEscape())
            return false;
        const auto* const plain = m_next;
        skipStringRun(run);
        m_unescaped.append(plain, m_next);
    }
    if (atEnd())
        return failHere("the closing double quote of a string");
    if (!checkUTF8(start, run))
        return false;
    ++m_next;
    m_values.push_back(Value::string(m_arena.store(m_unescaped), Value::uncountedEscapes));
    return true;
}

/// Outside strings every non-ASCII byte is an error anyway, so only strings are checked.
bool Reader::checkUTF8(const char* start, const Run& run) {
    return run.beyondASCII == 0 || isValidUTF8({start, m_next}) ||
           fail(ParseError::Kind::invalidUTF8, start, {});
}

/// `text`, a part of the input, or a copy if a block after its end is not readable.
std::string_view Reader::padded(std::string_view text) {
    const auto* const end = text.data() + text.size();
    return m_end - end >= static_cast<std::ptrdiff_t>(Block::size) ? text : m_arena.store(text);
}

/// Returns whether there was a digit.
bool Reader::skipDigits() {
    const auto* const start = m_next;
    while (!atEnd() && isDigit(*m_next))
        ++m_next;
    return m_next > start;
}

bool Reader::readNumber() {
    const auto* const start = m_next;
    const auto invalid = [&](std::string_view expected) {
        return fail(ParseError::Kind::invalidNumber, start, expected);
    };
    if (*m_next == '-')
        ++m_next;
    const auto* const whole = m_next;
    if (!skipDigits())
        return invalid("a digit after the minus sign");
    if (*whole == '0' && m_next - whole > 1)
        return invalid("no digit after a leading zero");
    auto digits = static_cast<std::size_t>(m_next - whole);
    bool isCanonical = true;
    if (!atEnd() && *m_next == '.') {
        const auto* const fraction = ++m_next;
        if (!skipDigits())
            return invalid("a digit after the decimal point");
        digits += static_cast<std::size_t>(m_next - fraction);
        isCanonical = m_next[-1] != '0';
    }
    if (!atEnd() && (*m_next == 'e' || *m_next == 'E')) {
        ++m_next;
        if (!atEnd() && (*m_next == '-' || *m_next == '+'))
            ++m_next;
        if (!skipDigits())
            return invalid("a digit in the exponent");
        isCanonical = false;
    }
    const std::string_view literal(start, m_next);
    isCanonical = isCanonical && digits <= maxPlainDigits;
    m_values.push_back(
        Value::number(isCanonical ? padded(literal) : m_arena.store(canonicalNumber(literal))));
    return true;
}

bool Reader::readLiteral(std::string_view literal, Value value) {
    if (!std::string_view(m_next, m_end).starts_with(literal))
        return failHere("a value");
    m_next += literal.size();
    m_values.push_back(value);
    return true;
}

bool Reader::fail(ParseError::Kind kind, const char* at, std::string_view expected, std::size_t length) {
    m_failure = Failure{.kind = kind,
                        .offset = static_cast<std::size_t>(at - m_text.data()),
                        .length = length,
                        .expected = expected};
    return false;
}

/// Fails at the next character, or at the end.
bool Reader::failHere(std::string_view expected) {
    const auto kind = atEnd() ? ParseError::Kind::unexpectedEnd : ParseError::Kind::unexpectedText;
    return fail(kind, m_next, expected);
}

std::expected<Document, ParseError> parse(std::string_view text, ReadingOptions options) {
    return Reader(text, options).read();
}

} // namespace korvane::JSON
