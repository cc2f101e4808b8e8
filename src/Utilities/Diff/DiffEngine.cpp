#include "Utilities/Diff/DiffEngine.h"

#include "Utilities/Diff/CommonSubsequence.h"
#include "Utilities/Text/Lines.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>

namespace korvane::DiffEngine {

namespace {

/// Assigns a number to each distinct line of both texts, so that each line is hashed only once.
class LineRegister {
public:
    /// At most `lineCount` lines can be registered.
    explicit LineRegister(std::size_t lineCount) : m_slots(std::bit_ceil(2 * lineCount)) {
        m_lines.reserve(lineCount);
    }

    std::vector<LineIdentity> identities(std::span<const std::string_view> lines) {
        std::vector<LineIdentity> identities;
        identities.reserve(lines.size());
        for (const auto line : lines)
            identities.push_back(identity(line));
        return identities;
    }

private:
    /// A slot of the hash table; a line's identity is one less than its number, which is 0 in a free slot.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = 0;
    };

    LineIdentity identity(std::string_view line) {
        const auto hash = std::hash<std::string_view>()(line);
        const auto shortHash = static_cast<std::uint32_t>(hash >> 32U);
        // At least half of the slots are free, so the next free one is near.
        for (auto place = hash & (m_slots.size() - 1);; place = (place + 1) & (m_slots.size() - 1)) {
            auto& slot = m_slots[place];
            if (slot.number == 0) {
                m_lines.push_back(line);
                slot = {.hash = shortHash, .number = static_cast<std::uint32_t>(m_lines.size())};
            }
            if (slot.hash == shortHash && m_lines[slot.number - 1] == line)
                return slot.number - 1;
        }
    }

    std::vector<Slot> m_slots;
    std::vector<std::string_view> m_lines; ///< by identity
};

/// One of the two texts and the progress of its layout.
struct Side {
    std::vector<std::string_view> lines;
    std::vector<LineIdentity> identities{};
    std::size_t position = 0;

    bool isAtEnd() const { return position == lines.size(); }

    LineIdentity identity() const { return identities[position]; }

    /// Takes the next line.
    DiffLine take(DiffLineType type) {
        const auto content = lines[position++];
        return {
            .id = UUID::random(), .lineNumber = static_cast<int>(position), .content = content, .type = type};
    }
};

/// Places lines opposite each other and counts them.
class Layout {
public:
    Layout(Side& left, Side& right, std::size_t commonCount) : m_left(left), m_right(right) {
        const auto rows = left.lines.size() + right.lines.size() - commonCount;
        for (auto* list : {&m_result.leftLines, &m_result.rightLines, &m_result.unifiedDiff})
            list->reserve(rows);
    }

    void addRemoved() {
        m_result.leftLines.push_back(m_left.take(DiffLineType::removed));
        m_result.rightLines.push_back(filler());
        m_result.unifiedDiff.push_back(m_result.leftLines.back());
        ++m_result.stats.removed;
    }

    void addAdded() {
        m_result.leftLines.push_back(filler());
        m_result.rightLines.push_back(m_right.take(DiffLineType::added));
        m_result.unifiedDiff.push_back(m_result.rightLines.back());
        ++m_result.stats.added;
    }

    void addUnchanged() {
        m_result.leftLines.push_back(m_left.take(DiffLineType::unchanged));
        m_result.rightLines.push_back(m_right.take(DiffLineType::unchanged));
        m_result.unifiedDiff.push_back(m_result.leftLines.back());
        ++m_result.stats.unchanged;
    }

    DiffResult takeResult() { return std::move(m_result); }

private:
    static DiffLine filler() { return {.id = UUID::random()}; }

    Side& m_left;
    Side& m_right;
    DiffResult m_result;
};

DiffResult layOut(Side& left, Side& right, std::span<const LineIdentity> common) {
    Layout layout(left, right, common.size());
    for (const auto identity : common) {
        while (left.identity() != identity)
            layout.addRemoved();
        while (right.identity() != identity)
            layout.addAdded();
        layout.addUnchanged();
    }
    while (!left.isAtEnd())
        layout.addRemoved();
    while (!right.isAtEnd())
        layout.addAdded();
    return layout.takeResult();
}

} // namespace

DiffResult compare(std::string left, std::string right) {
    return *compare(std::move(left), std::move(right), std::stop_token());
}

std::optional<DiffResult> compare(std::string left, std::string right, const std::stop_token& stop) {
    const auto texts = std::make_shared<const DiffTexts>(std::move(left), std::move(right));
    Side leftSide{linesOf(texts->left)};
    Side rightSide{linesOf(texts->right)};
    {
        LineRegister lines(leftSide.lines.size() + rightSide.lines.size());
        leftSide.identities = lines.identities(leftSide.lines);
        rightSide.identities = lines.identities(rightSide.lines);
    }
    const auto common = longestCommonSubsequence(leftSide.identities, rightSide.identities, stop);
    if (!common)
        return std::nullopt;
    auto result = layOut(leftSide, rightSide, *common);
    result.texts = texts;
    return result;
}

} // namespace korvane::DiffEngine
