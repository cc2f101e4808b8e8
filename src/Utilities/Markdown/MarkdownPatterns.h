/// The regular expressions of Markdown, matched by hand: what each finds is exactly what ICU finds for the
/// pattern that stands beside it, but in time that grows with the text and not with its square, however
/// hostile the text. Patterns know nothing of what their matches are used for.
///
/// A matcher is made for one text, which must outlive it. `next(from)` gives the leftmost match that begins
/// at the byte `from` or behind it; the text before `from` is still seen by what looks back. From one call to
/// the next, `from` may only grow. Bytes that are not UTF-8 are characters like any other.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace korvane::MarkdownPatterns {

/// A part of a text, in bytes; the end is not part of it.
struct Range {
    std::size_t start = 0;
    std::size_t end = 0;

    std::string_view in(std::string_view text) const { return text.substr(start, end - start); }

    bool operator==(const Range&) const = default;
};

/// A match and what its first two groups have caught; a group that the pattern does not have is empty.
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

/// `(?m)^#\s+(.+)$`, with as many number signs as `level` says. The white space may reach over several lines.
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
    std::size_t m_lineEnd = 0; ///< the first line end at or behind wherever it was last asked for
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
    std::size_t m_bracket = 0;     ///< the first `]` at or behind wherever one was last looked for
    std::size_t m_parenthesis = 0; ///< the same of `)`
};

/// Two spaces before a line's end: `(?m)  $`.
class LineEndSpaces {
public:
    explicit LineEndSpaces(std::string_view text) : m_text(text) {}

    std::optional<Match> next(std::size_t from);

private:
    std::string_view m_text;
};

/// The leftmost match of two matchers, so `first|second`, where no match of one begins like one of the other.
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
    /// A matcher that is asked again only when its last match lies behind.
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

/// The first line break at or behind `from`: a newline character, CR LF being one. Empty at the text's end
/// where there is none.
Range lineBreakFrom(std::string_view text, std::size_t from);

/// The end of what `^\d+\.\s` matches at the start of `line`, or none.
std::optional<std::size_t> endOfOrderedMarker(std::string_view line);

} // namespace korvane::MarkdownPatterns
