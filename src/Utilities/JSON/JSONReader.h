/// The state of one parse of a JSON text: a single pass from left to right, without recursion. Other code
/// calls `parse`.
#pragma once

#include "Utilities/JSON/JSON.h"
#include "Utilities/JSON/JSONFailure.h"
#include "Utilities/JSON/JSONMembers.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::JSON {

class Reader {
public:
    Reader(std::string_view text, ReadingOptions options);

    std::expected<Document, ParseError> read();

private:
    /// An array or object that is not closed yet. Its elements, or alternating names and values, are on the
    /// value stack from `firstValue` on.
    struct Frame {
        std::size_t firstValue = 0;
        bool isObject = false;
    };

    /// Properties of the unescaped part of a string.
    struct Run {
        std::size_t slashes = 0;
        std::uint32_t beyondASCII = 0; ///< not 0 if there were such bytes
    };

    bool readText();
    bool readTree();
    bool readValue(bool& opened);
    bool open(bool isObject, bool& opened);
    bool readSeparators(bool& atNextValue);
    void close();
    bool readName();
    bool readString();
    bool readEscapedString(const char* start, Run run);
    bool readEscape();
    bool readUnicodeEscape();
    bool readCodeUnit(char32_t& unit);
    bool readNumber();
    bool readLiteral(std::string_view literal, Value value);

    bool atEnd() const { return m_next == m_end; }

    void skipSpace();
    void skipMoreSpace();
    bool skipDigits();
    void skipStringRun(Run& run);
    bool checkUTF8(const char* start, const Run& run);
    std::string_view padded(std::string_view text);

    bool fail(ParseError::Kind kind, const char* at, std::string_view expected, std::size_t length = 0);
    bool failHere(std::string_view expected);

    std::string_view m_text;
    ReadingOptions m_options;
    const char* m_next;
    const char* m_end;
    std::vector<Value> m_values; ///< complete values whose container is still open
    std::array<Frame, maxDepth> m_frames{};
    std::size_t m_depth = 0;
    std::string m_unescaped; ///< the current string; a member to reuse its memory
    MemberSorter m_sorter;
    Arena m_arena;
    std::optional<Failure> m_failure;
};

} // namespace korvane::JSON
