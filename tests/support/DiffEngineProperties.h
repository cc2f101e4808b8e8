/// Properties of every comparison, shared by tests and fuzzers.
#pragma once

#include "Utilities/Diff/DiffEngine.h"
#include "Utilities/Text/Lines.h"
#include "support/NaiveDiff.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvane::support {

inline std::vector<NaiveLine> plain(const std::vector<DiffEngine::DiffLine>& lines) {
    constexpr std::string_view signs = " +-~"; // in the order of the types
    std::vector<NaiveLine> result;
    for (const auto& line : lines)
        result.push_back(
            {line.lineNumber, std::string(line.content), signs[static_cast<std::size_t>(line.type)]});
    return result;
}

/// A result without the identifiers of its lines.
inline NaiveDiff plain(const DiffEngine::DiffResult& result) {
    return {plain(result.leftLines), plain(result.rightLines), plain(result.unifiedDiff),
            result.stats.added,      result.stats.removed,     result.stats.unchanged};
}

/// The violation in the comparison of the two parts of `texts`, which its first NUL separates; empty if none.
/// Texts too large for the naive table are only checked for lost lines.
inline std::string brokenDiffEngineProperty(std::string_view texts) {
    constexpr std::size_t largestTable = 1'000'000;
    const auto middle = texts.find('\0');
    const std::string left(texts.substr(0, middle));
    const std::string right(middle == std::string_view::npos ? std::string_view() : texts.substr(middle + 1));
    const auto leftPieces = linesOf(left);
    const auto rightPieces = linesOf(right);
    const auto result = DiffEngine::compare(left, right);
    if (result.leftLines.size() != result.rightLines.size())
        return "the columns are not of the same length";
    if (result.stats.unchanged + result.stats.removed != static_cast<int>(leftPieces.size()) ||
        result.stats.unchanged + result.stats.added != static_cast<int>(rightPieces.size()))
        return "the counts are not those of the texts";
    if (leftPieces.size() * rightPieces.size() > largestTable)
        return {};
    const std::vector<std::string> leftLines(leftPieces.begin(), leftPieces.end());
    const std::vector<std::string> rightLines(rightPieces.begin(), rightPieces.end());
    return plain(result) == naiveDiff(leftLines, rightLines) ? "" : "the textbook's outcome is another one";
}

} // namespace korvane::support
