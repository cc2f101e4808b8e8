/// A text document with the rows of a Markdown preview, one text block for each, updated only where the rows
/// change and a part at a time. It formats the text; the view paints what is behind and beside the text.
#pragma once

#include "Desktop/Tools/Markdown/MarkdownFormat.h"
#include "Desktop/Tools/Markdown/MarkdownLayout.h"
#include "Desktop/Tools/Markdown/MarkdownRow.h"

#include <QTextDocument>

#include <cstddef>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace korvane {

class MarkdownDocument final : public QTextDocument {
public:
    explicit MarkdownDocument(QObject* parent);

    /// Shows `markdown`. Costs parsing it, and inserting what differs from before.
    void show(std::string_view markdown);

    /// Makes `change`, which begins at `rows`, what `fill` leads to. Costs nothing that depends on the size.
    void lead(MarkdownChange change);

    /// The rows that the document shows when it is filled.
    const SharedMarkdownRows& rows() const { return m_rows; }

    /// Whether it shows them.
    bool isFilled() const;

    /// What was replaced: `removed` rows from `first` by `inserted` others.
    struct Step {
        std::size_t first = 0;
        std::size_t removed = 0;
        std::size_t inserted = 0;
    };

    /// The budget without a limit.
    static constexpr std::size_t everything = std::numeric_limits<std::size_t>::max();

    /// Replaces outdated rows until `budget` is used, and at least one if there is one: from the top, but
    /// rows that differ only in the theme first from block `visible`. The unit is the time to insert a byte
    /// of text; a row costs as much as some 100 bytes more, and removing it half of that.
    Step fill(std::size_t budget, int visible = 0);

    /// Changes to the current theme and zoom, in which `fill` recreates all rows.
    void applyTheme();

    /// The row of the block of that number; null for the empty block after the last row.
    const MarkdownRow* row(int blockNumber) const;

    MarkdownLayout& layout() const { return *m_layout; }

    /// The padding in pixels of a box above and below the text of its rows; 0 for kinds without a box.
    static int boxPadding(MarkdownRow::Kind kind) { return MarkdownFormat::boxPadding(kind); }

    /// The number of rows that have been inserted since construction.
    std::size_t writtenRows() const { return m_writtenRows; }

private:
    /// Blocks with the rows [from, to) of `rows`.
    struct Part {
        SharedMarkdownRows rows{};
        std::size_t from = 0;
        std::size_t to = 0;
        bool isCurrent = false; ///< of `m_rows` and in the current theme; otherwise outdated

        std::size_t size() const { return to - from; }
    };

    /// A step, and the first of the rows that it inserts.
    struct Replacement {
        Step step{};
        std::size_t from = 0;
    };

    static void append(std::vector<Part>& parts, Part part);
    Replacement fromTop(std::size_t budget) const;
    std::optional<Replacement> inNewTheme(std::size_t budget, std::size_t block) const;
    std::size_t affordable(std::size_t from, std::size_t to, std::size_t block, std::size_t outdated,
                           std::size_t& budget) const;
    std::size_t removalCost(std::size_t block) const;
    void replaceParts(const Replacement& replacement);
    void fitTop();
    void remove(std::size_t first, std::size_t last);
    void insert(std::size_t first, std::span<const MarkdownRow> rows);

    SharedMarkdownRows m_rows = std::make_shared<const MarkdownRows>();
    std::vector<Part> m_parts{}; // of all blocks but an empty last one; current ones are in ascending order
    MarkdownLayout* m_layout;
    std::size_t m_writtenRows = 0;
};

} // namespace korvane
