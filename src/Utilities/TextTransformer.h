/// Letter case, line operations and statistics of a text. Every operation is total: whatever the text, there
/// is a result, and of nothing comes nothing. Only `LineOperation::shuffle` differs from call to call.
#pragma once

#include "Models/Enumeration.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// The styles that a text can be written in; the raw values show themselves.
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

/// What can be done to the lines of a text.
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

/// The identity of a case: its raw value, which no two share.
constexpr std::string_view id(CaseTransform transform) {
    return rawValue(transform);
}

constexpr std::string_view id(LineOperation operation) {
    return rawValue(operation);
}

/// How much there is of a text.
struct TextStats {
    std::int64_t characters = 0;         ///< user-perceived ones (UAX #29)
    std::int64_t charactersNoSpaces = 0; ///< those that are neither white space nor a newline
    std::int64_t words = 0;              ///< what white space and newlines delimit
    std::int64_t lines = 0;              ///< 0 of the empty text, otherwise one more than newlines
    std::int64_t paragraphs = 0;         ///< what two LF delimit, as far as there is something in it
    std::int64_t sentences = 0;          ///< runs of . ! ? or, without one, 1 where there is a word

    bool operator==(const TextStats&) const = default;
};

namespace TextTransformer {

/// `text` in the style `to`.
std::string transform(std::string_view text, CaseTransform to);

/// The words of `text` as programmers delimit them: by underscores, hyphens and spaces, and where capitals
/// show a new one, as in "JSONDataLoader". A word consists of letters and numbers; other characters are
/// dropped and delimit nothing, so "hello.world" is the one word "helloworld".
std::vector<std::string> extractWords(std::string_view text);

std::string toCamelCase(std::string_view text);
std::string toPascalCase(std::string_view text);

/// The words of `text` in lower case, with "_" between them.
std::string toSnakeCase(std::string_view text);

/// `text` in lower case but for the first character of each sentence. A sentence ends with a . ! or ?; spaces
/// in front of that are lost. A sentence that begins with newlines keeps its small letter and has the
/// newlines twice.
std::string toSentenceCase(std::string_view text);

/// The lines of `text` after `operation`, with LF between them whatever was there before; CR LF has an empty
/// line between CR and LF. Sorting follows the user's locale with letter case ignored.
std::string applyLineOperation(std::string_view text, LineOperation operation);

/// Counts a text in one pass: several hundred MB a second of ASCII, and still tens of any other script.
TextStats getStats(std::string_view text);

/// The statistics of a text while it is being edited. Only what is near a change is counted again, so a key
/// press in a large text costs little more than a comparison of it with the one before.
class RunningStats {
public:
    /// Brings the statistics up to date. `before` is the text that was given last as `text`; in the
    /// beginning it is the empty one.
    void update(std::string_view before, std::string_view text);

    const TextStats& stats() const { return m_stats; }

    bool operator==(const RunningStats&) const = default;

private:
    TextStats m_sums{}; // of the parts of the text, without what depends on all of it
    TextStats m_stats{};
};

} // namespace TextTransformer

} // namespace korvane
