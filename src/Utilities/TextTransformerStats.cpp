#include "Utilities/TextTransformer.h"

#include "Utilities/Text/Characters.h"
#include "Utilities/Text/Text.h"
#include "Utilities/Text/UTF8.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace korvane::TextTransformer {

namespace {

/// The properties of a code point that the statistics use.
struct Kind {
    bool isSpace = false; ///< white space or a newline
    bool isNewline = false;
    bool isMark = false;
};

constexpr auto asciiKinds = [] {
    std::array<Kind, 0x80> kinds{};
    for (std::size_t i = '\t'; i <= '\r'; ++i)
        kinds[i] = {.isSpace = true, .isNewline = i != '\t'};
    kinds[' '].isSpace = true;
    for (const auto mark : {'.', '!', '?'})
        kinds[static_cast<std::size_t>(mark)].isMark = true;
    return kinds;
}();

Kind kindOf(char32_t character) {
    if (character < asciiKinds.size())
        return asciiKinds[character];
    const bool endsLine = isNewline(character);
    return {.isSpace = endsLine || isWhitespace(character), .isNewline = endsLine};
}

/// Whether white space after `previous` starts a new character. It does not if it is the LF of a CR LF, or a
/// space after a prepended mark (such as the Arabic number sign), which joins it.
bool spaceStartsCharacter(char32_t previous, char32_t space) {
    constexpr char32_t firstPrefix = 0x600;
    if (previous < firstPrefix)
        return previous != '\r' || space != '\n';
    return u_getIntPropertyValue(static_cast<UChar32>(previous), UCHAR_GRAPHEME_CLUSTER_BREAK) !=
               U_GCB_PREPEND ||
           u_charType(static_cast<UChar32>(space)) != U_SPACE_SEPARATOR;
}

/// Finds where paragraphs begin: at the first character that is no space, and at the first after two adjacent
/// line feeds.
class ParagraphStarts {
public:
    /// Whether the paragraph begins with `character`.
    bool isNext(char32_t character, bool isSpace) {
        m_lineFeeds = character == '\n' ? m_lineFeeds + 1 : 0;
        m_isBetween = m_isBetween || m_lineFeeds == 2;
        return !isSpace && std::exchange(m_isBetween, false);
    }

private:
    int m_lineFeeds = 0; // before here
    bool m_isBetween = true;
};

/// The additive counts of `text`: `lines` counts newlines, `sentences` runs of marks.
TextSums sumsOf(std::string_view text) {
    TextSums sums;
    auto& stats = sums.stats;
    ParagraphStarts paragraphs;
    std::int64_t spaces = 0;
    bool inWord = false;
    bool inMarks = false;
    char32_t previous = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const auto [character, end] = decodeAt(text, offset);
        const auto kind = kindOf(character);
        if (kind.isSpace) {
            spaces += spaceStartsCharacter(previous, character) ? 1 : 0;
            stats.lines += kind.isNewline ? 1 : 0;
            sums.carriageReturnLineFeeds += previous == '\r' && character == '\n' ? 1 : 0;
        } else {
            stats.words += inWord ? 0 : 1;
            stats.sentences += kind.isMark && !inMarks ? 1 : 0;
        }
        stats.paragraphs += paragraphs.isNext(character, kind.isSpace) ? 1 : 0;
        inWord = !kind.isSpace;
        inMarks = kind.isMark;
        previous = character;
        offset = end;
    }
    stats.characters = static_cast<std::int64_t>(characterCount(text));
    stats.charactersNoSpaces = stats.characters - spaces;
    return sums;
}

/// Adds `other` multiplied by `sign`.
void add(TextSums& sums, const TextSums& other, std::int64_t sign) {
    for (const auto count : {&TextStats::characters, &TextStats::charactersNoSpaces, &TextStats::words,
                             &TextStats::lines, &TextStats::paragraphs, &TextStats::sentences})
        sums.stats.*count += sign * (other.stats.*count);
    sums.carriageReturnLineFeeds += sign * other.carriageReturnLineFeeds;
}

/// The statistics of a text that is not empty.
TextStats statsOf(const TextSums& sums) {
    auto stats = sums.stats;
    stats.lines += 1;
    if (stats.sentences == 0 && stats.words > 0)
        stats.sentences = 1;
    return stats;
}

/// Whether a text can be counted in two parts that meet between these code points: there is always a boundary
/// of user-perceived characters.
bool canMeet(char32_t left, char32_t right) {
    return left == '\n' ||
           (isAlwaysSeparate(left) && isAlwaysSeparate(right) && !(left == '\r' && right == '\n'));
}

constexpr std::size_t firstReach = 256; // in bytes; is multiplied until a cut is found

/// The last offset up to `end` where `text` can be cut so that the part behind it can be counted without the
/// part before: its first character is before `end` and no space, which would not tell where a paragraph
/// begins. 0 if there is none.
std::size_t cutBefore(const Rope& text, std::size_t end) {
    for (auto reach = firstReach;; reach *= 4) {
        const auto start = text.summaryBefore(end - std::min(reach, end)).bytes;
        const auto part = text.string(start, end);
        std::size_t cut = 0;
        char32_t previous = 0;
        for (std::size_t offset = 0; offset < part.size();) {
            const auto [character, next] = decodeAt(part, offset);
            if (offset > 0 && !kindOf(character).isSpace && canMeet(previous, character))
                cut = offset;
            previous = character;
            offset = next;
        }
        if (cut > 0 || start == 0)
            return start + cut;
    }
}

/// The first such offset from `start` on, for the part before it: its last character is no space and behind
/// `start`. The size of the text if there is none.
std::size_t cutAfter(const Rope& text, std::size_t start) {
    for (auto reach = firstReach;; reach *= 4) {
        const auto end = text.summaryBefore(std::min(start + reach, text.size())).bytes;
        const auto part = text.string(start, end);
        for (std::size_t offset = 0; offset < part.size();) {
            const auto [character, next] = decodeAt(part, offset);
            if (!kindOf(character).isSpace && next < part.size() &&
                canMeet(character, decodeAt(part, next).character))
                return start + next;
            offset = next;
        }
        if (end == text.size())
            return end;
    }
}

/// The parts of two versions of a text that have to be counted to update the sums: all before and behind them
/// is the same in both.
struct ChangedParts {
    Rope before{};
    Rope after{};
};

ChangedParts changedParts(const Rope& before, const Rope& after) {
    const auto prefix = before.commonPrefix(after);
    const auto suffix = std::min(before.commonSuffix(after), std::min(before.size(), after.size()) - prefix);
    // Where a character begins in one version, another may be continued in the other one.
    const auto start =
        cutBefore(after, std::min(before.summaryBefore(prefix).bytes, after.summaryBefore(prefix).bytes));
    const auto characterEnd = [suffix](const Rope& text) {
        return text.size() - text.seek(&TextSummary::bytes, text.size() - suffix).bytes;
    };
    const auto common = std::min(characterEnd(before), characterEnd(after));
    const auto rest = after.size() - cutAfter(after, after.size() - common);
    return {.before = before.substr(start, before.size() - rest - start),
            .after = after.substr(start, after.size() - rest - start)};
}

} // namespace

TextStats getStats(std::string_view text) {
    return text.empty() ? TextStats() : statsOf(sumsOf(text));
}

std::size_t RunningStats::changeSize(const Rope& text) const {
    const auto prefix = m_text.commonPrefix(text);
    const auto shorter = std::min(m_text.size(), text.size());
    const auto common = prefix + std::min(m_text.commonSuffix(text), shorter - prefix);
    return std::min(m_text.size() - common + text.size() - common, text.size());
}

/// The first and the last character of the parts are the same in both versions. A word, a paragraph or a run
/// of marks that continues beyond a part is counted in both versions of it, so the errors cancel out.
void RunningStats::update(const Rope& text) {
    auto changed = changedParts(m_text, text);
    if (changed.before.size() + changed.after.size() > text.size()) {
        changed = {.before = {}, .after = text};
        m_sums = {};
    }
    add(m_sums, sumsOf(FlatText(changed.before)), -1);
    add(m_sums, sumsOf(FlatText(changed.after)), 1);
    m_text = text;
    m_stats = text.empty() ? TextStats() : statsOf(m_sums);
}

} // namespace korvane::TextTransformer
