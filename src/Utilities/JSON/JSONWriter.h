/// Writes one JSON value in two passes: the first computes the size, the second writes into a string of that
/// size. Other code calls `write`.
#pragma once

#include "Utilities/JSON/JSON.h"

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

namespace korvane::JSON {

/// Recursion is as deep as the document, so at most `maxDepth`.
class Writer {
public:
    explicit Writer(WritingOptions options) : m_options(options) {}

    std::expected<std::string, WriteError> write(const Value& root);

private:
    std::size_t writtenSize(const Value& value, std::size_t depth) const;
    static std::size_t quotedSize(const Value& string);
    std::size_t frameSize(std::size_t count, std::size_t depth) const;

    // Each of these writes to `to`, and returns the position after the written text.
    char* writeValue(char* to, const Value& value, std::size_t depth) const;
    char* writeObject(char* to, const Value& object, std::size_t depth) const;
    char* writeArray(char* to, const Value& array, std::size_t depth) const;
    static char* writeString(char* to, const Value& string);
    static char* writeEscaped(char* to, std::string_view content);

    std::string_view line(std::size_t depth) const;

    WritingOptions m_options;
};

} // namespace korvane::JSON
