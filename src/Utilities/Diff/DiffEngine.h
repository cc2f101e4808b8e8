/// Two texts compared line by line: which lines both have, which only one has, laid out in two columns and in
/// one list. Lines are compared as they are, byte by byte; nothing inside a line is compared.
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
    unchanged, ///< on both sides; also a filler
    added,     ///< only in the right text
    removed,   ///< only in the left text
    modified,  ///< no comparison gives it yet
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

/// A row of a column. One without a number is a filler, which holds the place opposite a line of one side.
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
    std::vector<DiffLine> rightLines{}; ///< as long as `leftLines`, row by row opposite
    std::vector<DiffLine>
        unifiedDiff{}; ///< removed and added lines, and the left line of each unchanged pair
    DiffStats stats{};
    std::shared_ptr<const DiffTexts>
        texts{}; ///< what the lines refer to, kept as long as a copy of the result

    bool operator==(const DiffResult&) const = default;
};

/// The lines of both texts that stand in one longest common subsequence, each opposite its like, and between
/// them first what was removed and then what was added, opposite fillers. Texts are shorter than 2 GiB.
///
/// A line that occurs several times is matched where it occurs first on each side. See
/// `longestCommonSubsequence` for which subsequence it is and for the cost; a result takes about 150 bytes a
/// row.
DiffResult compare(std::string left, std::string right);

/// The same, or none once `stop` was requested.
std::optional<DiffResult> compare(std::string left, std::string right, const std::stop_token& stop);

} // namespace DiffEngine

} // namespace korvane
