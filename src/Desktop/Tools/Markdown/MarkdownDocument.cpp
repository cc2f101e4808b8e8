#include "Desktop/Tools/Markdown/MarkdownDocument.h"

#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextZoom.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace korvane {

using Theme::Size;
using Theme::TextStyle;

namespace {

/// In pixels at a 13-pixel body text.
constexpr int prosePadding = 16;

/// The margin around all rows, from the panel's edge, whose outline is outside the document.
constexpr int margin = prosePadding - Size::panelOutline;

/// A block inserted at the start of a document becomes the second one and takes over the text of the first.
/// Restores the format of that text, and moves to the first block, which is now empty and gets the new
/// format.
void swapWithBlockBefore(QTextCursor& cursor) {
    const auto format = cursor.blockFormat();
    const auto charFormat = cursor.blockCharFormat();
    const auto before = cursor.block().previous();
    const auto formatBefore = before.blockFormat();
    const auto charFormatBefore = before.charFormat();
    cursor.setBlockFormat(formatBefore);
    cursor.setBlockCharFormat(charFormatBefore);
    cursor.setPosition(before.position());
    cursor.setBlockFormat(format);
    cursor.setBlockCharFormat(charFormat);
}

/// The time to insert `row`, in that of a byte of text.
std::size_t costOf(const MarkdownRow& row) {
    constexpr std::size_t rowCost = 100;
    constexpr std::size_t runCost = 100;
    auto cost = rowCost;
    for (const auto& run : row.runs)
        cost += run.text.size() + runCost;
    return cost;
}

void spend(std::size_t& budget, std::size_t cost) {
    budget -= std::min(budget, cost);
}

} // namespace

MarkdownDocument::MarkdownDocument(QObject* parent)
    : QTextDocument(parent), m_layout(new MarkdownLayout(this)) {
    setUndoRedoEnabled(false);
    setDocumentLayout(m_layout);
    QTextBlockFormat format;
    format.setLineHeight(1, QTextBlockFormat::FixedHeight);
    QTextCursor(this).setBlockFormat(format);
    applyTheme();
}

void MarkdownDocument::applyTheme() {
    setDefaultFont(TextZoom::font(TextStyle::document));
    m_layout->setMargin(Theme::px(margin));
    constexpr int spacesInTab = 4;
    auto option = defaultTextOption();
    option.setTabStopDistance(spacesInTab *
                              QFontMetricsF(TextZoom::font(TextStyle::codeSmall)).horizontalAdvance(u' '));
    setDefaultTextOption(option);
    for (auto& part : m_parts)
        part.isCurrent = false;
    fitTop();
}

const MarkdownRow* MarkdownDocument::row(int blockNumber) const {
    auto index = static_cast<std::size_t>(blockNumber);
    for (const auto& part : m_parts) {
        if (index < part.size())
            return &(*part.rows)[part.from + index];
        index -= part.size();
    }
    return nullptr;
}

void MarkdownDocument::show(std::string_view markdown) {
    lead(changeOfRows(m_rows, std::make_shared<const MarkdownRows>(markdownRows(markdown))));
    while (!isFilled())
        fill(everything);
}

void MarkdownDocument::lead(MarkdownChange change) {
    const auto size = m_rows->size();
    const auto newSize = change.rows->size();
    std::vector<Part> parts;
    for (const auto& part : m_parts) {
        if (!part.isCurrent) {
            append(parts, part);
            continue;
        }
        const auto changed = std::clamp(change.samePrefix, part.from, part.to);
        const auto same = std::clamp(size - change.sameSuffix, changed, part.to);
        append(parts, {change.rows, part.from, changed, true});
        append(parts, {m_rows, changed, same, false});
        append(parts, {change.rows, same + newSize - size, part.to + newSize - size, true});
    }
    m_parts = std::move(parts);
    m_rows = std::move(change.rows);
}

void MarkdownDocument::append(std::vector<Part>& parts, Part part) {
    if (part.from == part.to)
        return;
    if (!parts.empty() && parts.back().rows == part.rows && parts.back().to == part.from &&
        parts.back().isCurrent == part.isCurrent)
        parts.back().to = part.to;
    else
        parts.push_back(std::move(part));
}

bool MarkdownDocument::isFilled() const {
    const auto isCurrent = [](const Part& part) { return part.isCurrent; };
    return std::ranges::all_of(m_parts, isCurrent) &&
           static_cast<std::size_t>(blockCount()) == m_rows->size() + 1;
}

/// The number of rows from `from`, before `to`, that `budget` allows, which it is reduced by. They replace
/// the blocks from `block` on, `outdated` at most.
std::size_t MarkdownDocument::affordable(std::size_t from, std::size_t to, std::size_t block,
                                         std::size_t outdated, std::size_t& budget) const {
    std::size_t count = 0;
    for (; from + count < to && budget > 0; ++count) {
        spend(budget, costOf((*m_rows)[from + count]));
        if (count < outdated)
            spend(budget, removalCost(block + count));
    }
    return count;
}

std::size_t MarkdownDocument::removalCost(std::size_t block) const {
    return costOf(*row(static_cast<int>(block))) / 2;
}

/// As many rows are removed as are inserted, so that what follows keeps its place, and the others when none
/// is left to insert.
MarkdownDocument::Replacement MarkdownDocument::fromTop(std::size_t budget) const {
    Replacement result;
    auto part = m_parts.begin();
    for (; part != m_parts.end() && part->isCurrent && part->from == result.from; ++part)
        result.from = part->to;
    std::size_t outdated = 0;
    for (; part != m_parts.end() && !part->isCurrent; ++part)
        outdated += part->size();

    const auto end = part == m_parts.end() ? m_rows->size() : part->from;
    auto& step = result.step;
    step.first = result.from;
    step.inserted = affordable(result.from, end, step.first, outdated, budget);
    step.removed = std::min(step.inserted, outdated);
    if (result.from + step.inserted == end) {
        for (; step.removed < outdated && budget > 0; ++step.removed)
            spend(budget, removalCost(step.first + step.removed));
    }
    return result;
}

/// From `block`, if its part is outdated only by the theme.
std::optional<MarkdownDocument::Replacement> MarkdownDocument::inNewTheme(std::size_t budget,
                                                                          std::size_t block) const {
    std::size_t first = 0;
    std::size_t before = 0; // where the current rows above end
    auto part = m_parts.begin();
    for (; part != m_parts.end() && first + part->size() <= block; ++part) {
        first += part->size();
        before = part->isCurrent ? part->to : before;
    }
    if (part == m_parts.end() || part->isCurrent || part->rows != m_rows)
        return std::nullopt;
    const auto from = part->from + (block - first);
    if (from < before)
        return std::nullopt;
    const auto count = affordable(from, part->to, block, part->to - from, budget);
    return Replacement{{.first = block, .removed = count, .inserted = count}, from};
}

MarkdownDocument::Step MarkdownDocument::fill(std::size_t budget, int visible) {
    const auto inTheme = inNewTheme(budget, static_cast<std::size_t>(visible));
    const auto replacement = inTheme ? *inTheme : fromTop(budget);
    const auto& step = replacement.step;
    if (step.removed > 0 || step.inserted > 0) {
        QTextCursor edit(this);
        edit.beginEditBlock();
        remove(step.first, step.first + step.removed);
        insert(step.first, std::span(*m_rows).subspan(replacement.from, step.inserted));
        replaceParts(replacement);
        edit.endEditBlock();
    }
    fitTop();
    return step;
}

void MarkdownDocument::replaceParts(const Replacement& replacement) {
    const auto& step = replacement.step;
    const auto last = step.first + step.removed;
    std::vector<Part> parts;
    std::size_t first = 0; // the number of the first block of a part
    const auto addBetween = [&](std::size_t from, std::size_t to) {
        first = 0;
        for (auto part : m_parts) {
            const auto size = part.size();
            part.to = part.from + std::clamp(to, first, first + size) - first;
            part.from += std::clamp(from, first, first + size) - first;
            if (part.from < part.to)
                append(parts, part);
            first += size;
        }
    };
    addBetween(0, step.first);
    append(parts, {m_rows, replacement.from, replacement.from + step.inserted, true});
    addBetween(last, everything);
    m_parts = std::move(parts);
}

/// Adapts the top margin to the box of the first row, if any.
void MarkdownDocument::fitTop() {
    const auto* first = row(0);
    m_layout->setTop(static_cast<int>(documentMargin()) + (first ? boxPadding(first->kind) : 0));
}

void MarkdownDocument::remove(std::size_t first, std::size_t last) {
    if (first == last)
        return;
    const auto following = findBlockByNumber(static_cast<int>(last));
    const auto format = following.blockFormat();
    QTextCursor cursor(findBlockByNumber(static_cast<int>(first)));
    cursor.setPosition(following.position(), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.setBlockFormat(format); // the joined block may have kept the format of the removed one
}

void MarkdownDocument::insert(std::size_t first, std::span<const MarkdownRow> rows) {
    QTextCursor cursor(this);
    if (first > 0) {
        const auto before = findBlockByNumber(static_cast<int>(first) - 1);
        cursor.setPosition(before.position() + before.length() - 1); // moving by blocks would lay it out
    }
    bool isBeforeAll = first == 0;
    for (const auto& row : rows) {
        const auto format = MarkdownFormat::charFormat(row);
        cursor.insertBlock(MarkdownFormat::blockFormat(row), format);
        if (std::exchange(isBeforeAll, false))
            swapWithBlockBefore(cursor);
        MarkdownFormat::insertRuns(cursor, row, format);
    }
    m_writtenRows += rows.size();
}

} // namespace korvane
