/// Hand-written matchers for the regular expressions of Markdown. Each finds exactly the matches that ICU
/// finds for the pattern in its comment, but in linear rather than quadratic time, even for hostile text.
/// Matchers do not depend on the use of their matches.
///
/// A matcher is created for one text, which must outlive it. `next(from)` returns the leftmost match that
/// begins at byte `from` or after it; look-behinds still see the text before `from`. `from` must not decrease
/// between calls. Bytes that are not UTF-8 are ordinary characters.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace korvane::MarkdownPatterns {

/// A part of a text, in bytes; `end` is exclusive.
struct Range {
    std::size_t start = 0;
    std::size_t end = 0;

    std::string_view in(std::string_view text) const { return text.substr(start, end - start); }

    bool operator==(const Range&) const = default;
};

/// A match and its first two groups; a group that the pattern lacks is empty.
struct Match {
    Range whole{};
    Range first{};
    Range second{};

    bool operator==(const Match&) const = default;
};

/// ```` ```(\w*)\n([\s\S]*?)``` ````
class FencedCode {
public:
    explicit FencedCode(std::string_view text) : m_text(text) {}

    std::optional<Match> next(std::size_t from);

private:
    std::string_view m_text;
};

/// `` `([^`]+)` ``
class InlineCode {
public:
    explicit InlineCode(std::string_view text) : m_text(text) {}

    std::optional<Match> next(std::size_t from);

private:
    std::string_view m_text;
};

/// `(?m)^#\s+(.+)$`, with `level` number signs. The white space may span several lines.
class Header {
public:
    Header(std::string_view text, std::size_t level) : m_text(text), m_level(level) {}

    std::optional<Match> next(std::size_t from);

private:
    std::optional<Match> matchBehindSigns(std::size_t start, std::size_t signsEnd) const;

    std::string_view m_text;
    std::size_t m_level;
};

/// `(?m)^([-*_]){3,}$`
class HorizontalRule {
public:
    explicit HorizontalRule(std::string_view text) : m_text(text) {}

    std::optional<Match> next(std::size_t from);

private:
    std::string_view m_text;
};

/// `\*\*(.+?)\*\*`, or the same with another delimiter of two equal ASCII characters.
class DoubleDelimited {
public:
    DoubleDelimited(std::string_view text, std::string_view delimiter)
        : m_text(text), m_delimiter(delimiter) {}

    std::optional<Match> next(std::size_t from);

private:
    std::string_view m_text;
    std::string_view m_delimiter;
    std::size_t m_lineEnd = 0; ///< the first line end at or after the position of the last search
};

/// `(?<!\*)\*(?!\*)(.+?)(?<!\*)\*(?!\*)`, or the same with another ASCII character.
class SingleDelimited {
public:
    /// The opening delimiter must not follow one of the characters of `notAfter` either.
    SingleDelimited(std::string_view text, char delimiter, std::string_view notAfter = {})
        : m_text(text), m_delimiter(delimiter), m_notAfter(notAfter) {}

    std::optional<Match> next(std::size_t from);

private:
    std::size_t nextSingle(std::size_t from, std::size_t end) const;

    std::string_view m_text;
    char m_delimiter;
    std::string_view m_notAfter;
    std::size_t m_lineEnd = 0; ///< as in `DoubleDelimited`
};

/// `\[([^\]]+)\]\(([^)]+)\)`, and as an image `!\[([^\]]*)]\(([^)]+)\)`.
class Link {
public:
    enum class Kind { link, image };

    explicit Link(std::string_view text, Kind kind = Kind::link) : m_text(text), m_kind(kind) {}

    std::optional<Match> next(std::size_t from);

private:
    std::size_t nextBracket(std::size_t from);
    std::size_t nextParenthesis(std::size_t from);

    std::string_view m_text;
    Kind m_kind;
    std::size_t m_bracket = 0;     ///< the first `]` at or after the position of the last search
    std::size_t m_parenthesis = 0; ///< the same for `)`
};

/// Two spaces before a line's end: `(?m)  $`.
class LineEndSpaces {
public:
    explicit LineEndSpaces(std::string_view text) : m_text(text) {}

    std::optional<Match> next(std::size_t from);

private:
    std::string_view m_text;
};

/// The leftmost match of two matchers: `first|second`, provided that they never match at the same position.
template <typename First, typename Second>
class Either {
public:
    Either(First first, Second second) : m_first{std::move(first)}, m_second{std::move(second)} {}

    std::optional<Match> next(std::size_t from) {
        const auto& first = m_first.next(from);
        const auto& second = m_second.next(from);
        return second && (!first || second->whole.start < first->whole.start) ? second : first;
    }

private:
    /// A matcher that searches again only after `from` has passed its last match.
    template <typename Matcher>
    struct Cached {
        Matcher matcher;
        std::optional<Match> match{};
        bool wasQueried = false;

        const std::optional<Match>& next(std::size_t from) {
            if (!wasQueried || (match && match->whole.start < from))
                match = matcher.next(from);
            wasQueried = true;
            return match;
        }
    };

    Cached<First> m_first;
    Cached<Second> m_second;
};

/// The first line break at or after `from`: a newline character or CR LF. If there is none, an empty range at
/// the end of the text.
Range lineBreakFrom(std::string_view text, std::size_t from);

/// The end of what `^\d+\.\s` matches at the start of `line`, or none.
std::optional<std::size_t> endOfOrderedMarker(std::string_view line);

} // namespace korvane::MarkdownPatterns
