/// The text of one JSON value, made in two passes: the first one counts, so that the second one writes
/// straight into text of the right size. `write` is what everyone else calls.
#pragma once

#include "Utilities/JSON.h"

#include <cstddef>
#include <cstring>
#include <expected>
#include <string>
#include <string_view>

namespace korvane::JSON {

/// Recursion goes as deep as the document, so never deeper than `maximumDepth`.
class Writer {
public:
    explicit Writer(WritingOptions options) : m_options(options) {}

    std::expected<std::string, WriteError> write(const Value& root);

private:
    std::size_t writtenSize(const Value& value, std::size_t depth) const;
    std::size_t frameSize(std::size_t count, std::size_t depth) const;

    void writeValue(const Value& value, std::size_t depth);
    void writeObject(const Value& object, std::size_t depth);
    void writeArray(const Value& array, std::size_t depth);
    void writeString(const Value& string);
    void writeEscaped(std::string_view content);

    std::string_view line(std::size_t depth) const;

    void append(char character) { *m_next++ = character; }

    /// Text of the document, which has room for a block after its end.
    void appendText(std::string_view text);

    template <std::size_t size>
    void append(const char (&literal)[size]) {
        std::memcpy(m_next, literal, size - 1);
        m_next += size - 1;
    }

    WritingOptions m_options;
    char* m_next = nullptr; ///< where the next character goes
};

} // namespace korvane::JSON
