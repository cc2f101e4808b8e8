/// Compares two texts line by line: which lines are common and which are in one text only, laid out in two
/// columns and in one list. Lines are compared byte by byte; differences within a line are not reported.
#pragma once

#include "Models/Enumeration.h"
#include "Models/PaletteColor.h"
#include "Utilities/UUID.h"

#include <array>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

namespace DiffEngine {

enum class DiffLineType {
    unchanged, ///< in both texts; also a filler
    added,     ///< only in the right text
    removed,   ///< only in the left text
    modified,  ///< not returned by any comparison
};

struct DiffLineTypeFacts {
    DiffLineType value;
    std::string_view rawValue;
    std::string_view prefix;
    std::optional<PaletteColor> color; ///< of prefix and background; none for plain text without a background
};

} // namespace DiffEngine

template <>
inline constexpr auto facts<DiffEngine::DiffLineType> = std::to_array<DiffEngine::DiffLineTypeFacts>({
    {DiffEngine::DiffLineType::unchanged, "unchanged", " ", std::nullopt},
    {DiffEngine::DiffLineType::added, "added", "+", PaletteColor::green},
    {DiffEngine::DiffLineType::removed, "removed", "-", PaletteColor::red},
    {DiffEngine::DiffLineType::modified, "modified", "~", PaletteColor::orange},
});

namespace DiffEngine {

/// A row of a column. A row without a number is a filler opposite a line that only the other side has.
struct DiffLine {
    UUID id{};
    std::optional<int> lineNumber{}; ///< in its own text, from 1
    std::string_view content{};      ///< without its newline; refers to a text of the result
    DiffLineType type = DiffLineType::unchanged;

    bool operator==(const DiffLine&) const = default;
};

/// Numbers of lines.
struct DiffStats {
    int added = 0;
    int removed = 0;
    int unchanged = 0;

    int total() const { return added + removed + unchanged; }

    bool operator==(const DiffStats&) const = default;
};

struct DiffTexts {
    std::string left;
    std::string right;
};

struct DiffResult {
    std::vector<DiffLine> leftLines{};
    std::vector<DiffLine> rightLines{};  ///< as long as `leftLines`; rows are opposite each other
    std::vector<DiffLine> unifiedDiff{}; ///< removed, added and the left of each pair of unchanged lines
    DiffStats stats{};
    std::shared_ptr<const DiffTexts> texts{}; ///< owns the memory that the lines refer to

    bool operator==(const DiffResult&) const = default;
};

/// The lines of a longest common subsequence of both texts, opposite each other, and between them first the
/// removed and then the added lines, opposite fillers. Texts are shorter than 2 GiB.
///
/// A line that occurs several times is matched at its first occurrence on each side. See
/// `longestCommonSubsequence` for the choice of subsequence and the cost; a result takes about 150 bytes a
/// row.
DiffResult compare(std::string left, std::string right);

/// The same, or none once `stop` was requested.
std::optional<DiffResult> compare(std::string left, std::string right, const std::stop_token& stop);

} // namespace DiffEngine

} // namespace korvane
