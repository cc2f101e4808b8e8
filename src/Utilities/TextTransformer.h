/// Letter case, line operations and statistics of a text. No operation fails, and empty input gives empty
/// output. Only `LineOperation::shuffle` is not deterministic.
#pragma once

#include "Models/Enumeration.h"
#include "Utilities/Text/Rope.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// The letter-case styles of a text; each raw value is an example of its style.
enum class CaseTransform {
    uppercase,
    lowercase,
    titleCase,
    sentenceCase,
    camelCase,
    pascalCase,
    snakeCase,
    kebabCase,
    constantCase,
};

/// The operations on the lines of a text.
enum class LineOperation {
    reverse,
    sortAZ,
    sortZA,
    removeDuplicates,
    shuffle,
    trimLines,
    removeEmpty,
};

template <typename E>
struct TransformationFacts {
    E value;
    std::string_view rawValue;
    std::string_view icon;
};

template <>
inline constexpr auto facts<CaseTransform> = std::to_array<TransformationFacts<CaseTransform>>({
    {CaseTransform::uppercase, "UPPERCASE", "textformat.size.larger"},
    {CaseTransform::lowercase, "lowercase", "textformat.size.smaller"},
    {CaseTransform::titleCase, "Title Case", "textformat"},
    {CaseTransform::sentenceCase, "Sentence case", "text.alignleft"},
    {CaseTransform::camelCase, "camelCase", "chevron.left.forwardslash.chevron.right"},
    {CaseTransform::pascalCase, "PascalCase", "chevron.left.forwardslash.chevron.right"},
    {CaseTransform::snakeCase, "snake_case", "underline"},
    {CaseTransform::kebabCase, "kebab-case", "minus"},
    {CaseTransform::constantCase, "CONSTANT_CASE", "textformat.size.larger"},
});

template <>
inline constexpr auto facts<LineOperation> = std::to_array<TransformationFacts<LineOperation>>({
    {LineOperation::reverse, "Reverse Lines", "arrow.up.arrow.down"},
    {LineOperation::sortAZ, "Sort A-Z", "arrow.up.doc"},
    {LineOperation::sortZA, "Sort Z-A", "arrow.down.doc"},
    {LineOperation::removeDuplicates, "Remove Duplicates", "doc.on.doc"},
    {LineOperation::shuffle, "Shuffle Lines", "shuffle"},
    {LineOperation::trimLines, "Trim Whitespace", "scissors"},
    {LineOperation::removeEmpty, "Remove Empty Lines", "trash"},
});

/// The identity of a case: its raw value, which is unique.
constexpr std::string_view id(CaseTransform transform) {
    return rawValue(transform);
}

constexpr std::string_view id(LineOperation operation) {
    return rawValue(operation);
}

/// The counts of a text.
struct TextStats {
    std::int64_t characters = 0;         ///< user-perceived ones (UAX #29)
    std::int64_t charactersNoSpaces = 0; ///< those that are neither white space nor a newline
    std::int64_t words = 0;              ///< delimited by white space and newlines
    std::int64_t lines = 0;              ///< 0 for the empty text, otherwise newlines plus one
    std::int64_t paragraphs = 0;         ///< delimited by two LF; blank ones do not count
    std::int64_t sentences = 0;          ///< runs of . ! ?; without any, 1 if there is a word

    bool operator==(const TextStats&) const = default;
};

namespace TextTransformer {

/// `text` in the style `to`.
std::string transform(std::string_view text, CaseTransform to);

/// The words of `text` as in identifiers: delimited by underscores, hyphens and spaces, and by capitals as in
/// "JSONDataLoader". A word consists of letters and numbers; other characters are dropped and do not delimit,
/// so "hello.world" is the one word "helloworld".
std::vector<std::string> extractWords(std::string_view text);

std::string toCamelCase(std::string_view text);
std::string toPascalCase(std::string_view text);

/// The words of `text` in lower case, joined by "_".
std::string toSnakeCase(std::string_view text);

/// `text` in lower case except the first character of each sentence. A sentence ends with a . ! or ?; spaces
/// before that mark are lost. A sentence that begins with newlines keeps its small letter, and its newlines
/// are doubled.
std::string toSentenceCase(std::string_view text);

/// The lines of `text` after `operation`, joined by LF whatever separated them before; CR LF counts as two
/// newlines with an empty line between them. Sorting follows the user's locale and ignores letter case.
std::string applyLineOperation(std::string_view text, LineOperation operation);

/// Counts a text in one pass: several hundred MB a second of ASCII, tens of MB a second in any other script.
TextStats getStats(std::string_view text);

/// The counts of the parts of a text, which can be added: `lines` are newlines, `sentences` runs of marks,
/// and nothing is adjusted for the whole text.
struct TextSums {
    TextStats stats{};
    std::int64_t carriageReturnLineFeeds = 0; ///< CR LF, each of which is two newlines

    bool operator==(const TextSums&) const = default;
};

/// The statistics of a text while it is edited. Only the part near a change is counted again.
class RunningStats {
public:
    /// Updates the statistics to those of `text`.
    void update(const Rope& text);

    /// About how many bytes `update` would have to count for `text`. Costs O(log n) for an edited version.
    std::size_t changeSize(const Rope& text) const;

    /// The text whose statistics these are.
    const Rope& text() const { return m_text; }

    const TextStats& stats() const { return m_stats; }

    /// The lines of the text if CR LF ends one line: 0 for the empty text.
    std::int64_t linesByPairs() const { return m_stats.lines - m_sums.carriageReturnLineFeeds; }

    bool operator==(const RunningStats&) const = default;

private:
    Rope m_text{};
    TextSums m_sums{};
    TextStats m_stats{};
};

} // namespace TextTransformer

} // namespace korvane
