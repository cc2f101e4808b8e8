/// A Markdown preview as a sequence of rows: a block is one row, or one for each of its items or lines, so
/// that a change in a long block redraws little. Rows contain no formatting.
#pragma once

#include "Views/Tools/MarkdownInline.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace korvane {

struct MarkdownRow {
    enum class Kind { header, paragraph, language, code, quote, unorderedItem, orderedItem, rule };

    Kind kind = Kind::paragraph;
    int number = 0; ///< the level of a header, or the number of an ordered item
    int digits = 0; ///< the digits of the highest number in an ordered item's list
    std::vector<InlineRun> runs{};
    std::optional<Kind> above{}; ///< the kind of the row above; none at the top
    bool beginsBlock = false;
    bool endsBlock = false;
    bool continuesText = false; ///< continues the text of the row before, which was too long for one row

    bool operator==(const MarkdownRow&) const = default;
};

/// In bytes: a longer text is split, after a space if there is one. A row is laid out as a whole, which takes
/// about a millisecond for this length.
inline constexpr std::size_t maxRowBytes = 4'000;

/// The rows of all blocks of `markdown`. Costs a few milliseconds for a text of 200 KB.
std::vector<MarkdownRow> markdownRows(std::string_view markdown);

} // namespace korvane
