/// A Markdown preview as a sequence of rows: a block is one row, or one for each of its items or lines, so
/// that a change in a long block redraws little. Rows contain no formatting.
#pragma once

#include "Views/Tools/MarkdownInline.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <stop_token>
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

using MarkdownRows = std::vector<MarkdownRow>;

/// Rows that a document and work in the background share.
using SharedMarkdownRows = std::shared_ptr<const MarkdownRows>;

/// What a preview shows of a text. A million rows take some 500 MB, and a text document needs up to 100 ms to
/// tidy up so many.
struct MarkdownLimit {
    std::size_t bytes = 24'000'000; ///< of Markdown
    std::size_t rows = 1'000'000;
};

/// The last row where the limit is reached.
inline constexpr std::string_view endOfPreview =
    "The text is too long for the preview, which ends here. The HTML output contains all of it.";

/// The rows of all blocks of `markdown`, or of those within `limit` and a row that says so. Costs a few
/// milliseconds for a text of 200 KB. Incomplete once `stop` is requested.
MarkdownRows markdownRows(std::string_view markdown, const MarkdownLimit& limit = {},
                          const std::stop_token& stop = {});

/// The rows that replace others, with the numbers of rows at the beginning and at the end that both have.
struct MarkdownChange {
    SharedMarkdownRows rows{};
    std::size_t samePrefix = 0;
    std::size_t sameSuffix = 0; ///< none of the prefix
};

/// The change from `before` to `after`. Linear in the rows that are equal.
MarkdownChange changeOfRows(const SharedMarkdownRows& before, SharedMarkdownRows after);

} // namespace korvane
