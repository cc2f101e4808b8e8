#include "Utilities/Markdown/MarkdownPatterns.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

namespace korvane::MarkdownPatterns {

namespace {

constexpr auto npos = std::string_view::npos;

/// The number of bytes of the line terminator at `at`, or 0. The terminators are ICU's: LF, VT, FF, CR, NEL,
/// LS and PS; the two of CR LF count separately.
std::size_t terminatorLength(std::string_view text, std::size_t at) {
    const auto rest = text.substr(at, 3);
    if (rest.empty())
        return 0;
    if (rest.front() >= '\n' && rest.front() <= '\r')
        return 1;
    if (rest.starts_with("\xC2\x85"))
        return 2;
    return rest == "\xE2\x80\xA8" || rest == "\xE2\x80\xA9" ? 3 : 0;
}

bool isLineEnd(std::string_view text, std::size_t at) {
    return at == text.size() || terminatorLength(text, at) > 0;
}

/// The number of bytes of the line terminator that ends at `at`, or 0.
std::size_t terminatorLengthBefore(std::string_view text, std::size_t at) {
    for (std::size_t length = 1; length <= std::min<std::size_t>(at, 3); ++length) {
        if (terminatorLength(text, at - length) == length)
            return length;
    }
    return 0;
}

bool isLineStart(std::string_view text, std::size_t at) {
    return at == 0 || terminatorLengthBefore(text, at) > 0;
}

/// The first line end at or after `from`.
std::size_t lineEndFrom(std::string_view text, std::size_t from) {
    const auto mayStartTerminator = [](char character) {
        return (character >= '\n' && character <= '\r') || character == '\xC2' || character == '\xE2';
    };
    for (auto at = from; at < text.size(); ++at) {
        if (mayStartTerminator(text[at]) && terminatorLength(text, at) > 0)
            return at;
    }
    return text.size();
}

std::size_t clampedToEnd(std::string_view text, std::size_t offset) {
    return std::min(offset, text.size());
}

/// The end of the run of code points from `from` on that satisfy `belongs`.
template <typename Predicate>
std::size_t runEnd(std::string_view text, std::size_t from, Predicate belongs) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    while (from < text.size()) {
        auto end = from;
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(bytes, end, text.size(), character);
        if (!belongs(character))
            break;
        from = end;
    }
    return from;
}

/// `\w`
bool isWord(UChar32 character) {
    constexpr auto categories = U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK;
    return u_isUAlphabetic(character) || (U_GET_GC_MASK(character) & categories) != 0 ||
           character == 0x200C || character == 0x200D;
}

/// `\s`
bool isSpace(UChar32 character) {
    return u_isUWhiteSpace(character) != 0;
}

/// `\d`
bool isDigit(UChar32 character) {
    return u_isdigit(character) != 0;
}

} // namespace

std::optional<Match> FencedCode::next(std::size_t from) {
    constexpr std::string_view fence = "```";
    for (auto open = m_text.find(fence, from); open != npos; open = m_text.find(fence, open + 1)) {
        const auto language = open + fence.size();
        const auto languageEnd = runEnd(m_text, language, isWord);
        if (languageEnd == m_text.size() || m_text[languageEnd] != '\n')
            continue;
        const auto code = languageEnd + 1;
        const auto close = m_text.find(fence, code);
        if (close == npos)
            return std::nullopt; // a later fence has none either
        return Match{{open, close + fence.size()}, {language, languageEnd}, {code, close}};
    }
    return std::nullopt;
}

std::optional<Match> InlineCode::next(std::size_t from) {
    auto open = m_text.find('`', from);
    while (open != npos) {
        const auto close = m_text.find('`', open + 1);
        if (close == npos)
            return std::nullopt;
        if (close > open + 1)
            return Match{{open, close + 1}, {open + 1, close}, {}};
        open = close;
    }
    return std::nullopt;
}

std::optional<Match> Header::next(std::size_t from) {
    for (auto start = m_text.find('#', from); start != npos;) {
        const auto signsEnd = clampedToEnd(m_text, m_text.find_first_not_of('#', start));
        if (signsEnd - start == m_level && isLineStart(m_text, start)) {
            if (const auto match = matchBehindSigns(start, signsEnd))
                return match;
        }
        start = m_text.find('#', signsEnd);
    }
    return std::nullopt;
}

std::optional<Match> Header::matchBehindSigns(std::size_t start, std::size_t signsEnd) const {
    const auto title = runEnd(m_text, signsEnd, isSpace);
    if (title == signsEnd)
        return std::nullopt;
    if (title < m_text.size()) {
        const auto end = lineEndFrom(m_text, title);
        return Match{{start, end}, {title, end}, {}};
    }
    // Only white space follows. Without trailing line terminators, its last character becomes the title,
    // unless it is also the first.
    auto end = title;
    while (end > signsEnd && isLineStart(m_text, end))
        end -= terminatorLengthBefore(m_text, end);
    if (end == signsEnd)
        return std::nullopt;
    auto last = end - 1;
    while (U8_IS_TRAIL(static_cast<std::uint8_t>(m_text[last])))
        --last;
    return last > signsEnd ? std::optional(Match{{start, end}, {last, end}, {}}) : std::nullopt;
}

std::optional<Match> HorizontalRule::next(std::size_t from) {
    constexpr std::string_view characters = "-*_";
    constexpr std::size_t minLength = 3;
    for (auto start = m_text.find_first_of(characters, from); start != npos;) {
        const auto end = clampedToEnd(m_text, m_text.find_first_not_of(characters, start));
        if (end - start >= minLength && isLineStart(m_text, start) && isLineEnd(m_text, end))
            return Match{{start, end}, {end - 1, end}, {}};
        start = m_text.find_first_of(characters, end);
    }
    return std::nullopt;
}

std::optional<Match> DoubleDelimited::next(std::size_t from) {
    for (auto open = m_text.find(m_delimiter, from); open != npos; open = m_text.find(m_delimiter, from)) {
        const auto content = open + m_delimiter.size();
        if (m_lineEnd < content)
            m_lineEnd = lineEndFrom(m_text, content);
        const auto close = m_text.substr(0, m_lineEnd).find(m_delimiter, content + 1);
        if (close != npos)
            return Match{{open, close + m_delimiter.size()}, {content, close}, {}};
        from = m_lineEnd; // a later opening in this line has no closing delimiter either
    }
    return std::nullopt;
}

std::optional<Match> SingleDelimited::next(std::size_t from) {
    for (auto open = nextSingle(from, m_text.size()); open != npos; open = nextSingle(from, m_text.size())) {
        from = open + 1;
        if (open > 0 && m_notAfter.contains(m_text[open - 1]))
            continue;
        if (m_lineEnd < from)
            m_lineEnd = lineEndFrom(m_text, from);
        const auto close = nextSingle(from, m_lineEnd);
        if (close != npos)
            return Match{{open, close + 1}, {open + 1, close}, {}};
        from = m_lineEnd; // as in `DoubleDelimited`
    }
    return std::nullopt;
}

/// The first delimiter from `from` to `end` with no other delimiter next to it.
std::size_t SingleDelimited::nextSingle(std::size_t from, std::size_t end) const {
    auto start = m_text.substr(0, end).find(m_delimiter, from);
    while (start != npos) {
        const auto runEnd = clampedToEnd(m_text, m_text.find_first_not_of(m_delimiter, start));
        const bool isFirst = start == 0 || m_text[start - 1] != m_delimiter;
        if (isFirst && runEnd == start + 1)
            return start;
        start = m_text.substr(0, end).find(m_delimiter, runEnd);
    }
    return npos;
}

std::optional<Match> Link::next(std::size_t from) {
    const std::string_view opening = m_kind == Kind::image ? "![" : "[";
    for (auto open = m_text.find(opening, from); open != npos; open = m_text.find(opening, open + 1)) {
        const auto label = open + opening.size();
        const auto labelEnd = nextBracket(label);
        if (labelEnd == npos)
            return std::nullopt; // a later one does not end either
        if (!m_text.substr(labelEnd).starts_with("](") || (m_kind == Kind::link && labelEnd == label))
            continue;
        const auto target = labelEnd + 2;
        const auto targetEnd = nextParenthesis(target);
        if (targetEnd == npos)
            return std::nullopt;
        if (targetEnd > target)
            return Match{{open, targetEnd + 1}, {label, labelEnd}, {target, targetEnd}};
    }
    return std::nullopt;
}

std::size_t Link::nextBracket(std::size_t from) {
    if (m_bracket < from)
        m_bracket = m_text.find(']', from);
    return m_bracket;
}

std::size_t Link::nextParenthesis(std::size_t from) {
    if (m_parenthesis < from)
        m_parenthesis = m_text.find(')', from);
    return m_parenthesis;
}

std::optional<Match> LineEndSpaces::next(std::size_t from) {
    constexpr std::string_view spaces = "  ";
    for (auto start = m_text.find(spaces, from); start != npos;) {
        const auto end = clampedToEnd(m_text, m_text.find_first_not_of(' ', start));
        if (isLineEnd(m_text, end))
            return Match{{end - spaces.size(), end}, {}, {}};
        start = m_text.find(spaces, end);
    }
    return std::nullopt;
}

Range lineBreakFrom(std::string_view text, std::size_t from) {
    const auto start = lineEndFrom(text, from);
    const std::size_t length = text.substr(start).starts_with("\r\n") ? 2 : terminatorLength(text, start);
    return {start, start + length};
}

std::optional<std::size_t> endOfOrderedMarker(std::string_view line) {
    const auto digitsEnd = runEnd(line, 0, isDigit);
    if (digitsEnd == 0 || !line.substr(digitsEnd).starts_with('.'))
        return std::nullopt;
    const auto spaceStart = digitsEnd + 1;
    bool isSpaceRead = false;
    const auto end = runEnd(line, spaceStart, [&](UChar32 character) {
        return !std::exchange(isSpaceRead, true) && isSpace(character);
    });
    return end > spaceStart ? std::optional(end) : std::nullopt;
}

} // namespace korvane::MarkdownPatterns
