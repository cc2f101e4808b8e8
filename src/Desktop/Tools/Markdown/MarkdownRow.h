/// A Markdown preview as the rows that are drawn below each other: a block is one row, or one for each of its
/// items or lines, so that little is drawn anew when a letter of a long block changes. Rows know what they
/// are, not how they look.
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
    int number = 0; ///< of a header its level, of an ordered item its place in the list
    int digits = 0; ///< of an ordered item those of the highest number in its list
    std::vector<InlineRun> runs{};
    std::optional<Kind> above{}; ///< what the row above is; none at the top
    bool beginsBlock = false;
    bool endsBlock = false;
    bool continuesText = false; ///< goes on with the text of the row before, which was too long for one

    bool operator==(const MarkdownRow&) const = default;
};

/// In bytes: a longer text is cut, behind a space if there is one. A row is laid out as a whole, which takes
/// about a millisecond for this many.
inline constexpr std::size_t longestRow = 4'000;

/// The rows of all blocks of `markdown`. Costs a few milliseconds for a text of 200 KB.
std::vector<MarkdownRow> markdownRows(std::string_view markdown);

} // namespace korvane
