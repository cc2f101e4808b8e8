#include "Desktop/Tools/Markdown/MarkdownRow.h"

#include "Views/Tools/MarkdownBlock.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace korvane {

namespace {

using namespace MarkdownBlocks;
using Kind = MarkdownRow::Kind;

/// The length of the part of `text`, which is longer than `room` bytes, that fits in `room`; 0 if not even
/// one character fits.
std::size_t cut(std::string_view text, std::size_t room) {
    constexpr std::size_t maxCharacterBytes = 4;
    const auto space = text.substr(0, room).rfind(' ');
    if (space != std::string_view::npos && space >= room / 2)
        return space + 1;
    for (auto length = room; length + maxCharacterBytes > room; --length) {
        const bool isInsideCharacter = (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80;
        if (!isInsideCharacter)
            return length;
    }
    return room; // not valid UTF-8
}

/// The runs in groups of at most `maxRowBytes` bytes each; at least one group.
std::vector<std::vector<InlineRun>> pieces(std::vector<InlineRun> runs) {
    std::vector<std::vector<InlineRun>> groups(1);
    auto room = maxRowBytes;
    for (auto& run : runs) {
        const auto text = std::exchange(run.text, {});
        for (std::string_view rest = text; !rest.empty();) {
            const auto length = rest.size() > room ? cut(rest, room) : rest.size();
            if (length > 0) {
                groups.back().push_back(run);
                groups.back().back().text = rest.substr(0, length);
            }
            rest.remove_prefix(length);
            room -= length;
            if (!rest.empty()) {
                groups.emplace_back();
                room = maxRowBytes;
            }
        }
    }
    return groups;
}

std::vector<InlineRun> plain(std::string_view text) {
    if (text.empty())
        return {};
    return {{.text = std::string(text)}};
}

/// About the first `size` bytes of `text`, which is longer: whole lines, or whole characters of a long line.
std::string_view beginning(std::string_view text, std::size_t size) {
    const auto end = text.substr(0, size).rfind('\n');
    return text.substr(0, end != std::string_view::npos && end >= size / 2 ? end : cut(text, size));
}

/// Collects the rows of blocks.
class Rows {
public:
    explicit Rows(std::size_t maxRows) : m_maxRows(maxRows) {}

    /// Whether rows were left out.
    bool isCut() const { return m_isCut; }

    /// Adds the rows of `block` for which there is room.
    void add(const MarkdownBlock& block) {
        const auto first = m_rows.size();
        std::visit([this](const auto& alternative) { addRows(alternative); }, block);
        if (first == m_rows.size())
            return;
        m_rows[first].beginsBlock = true;
        m_rows.back().endsBlock = true;
    }

    /// Adds the row that says that others are left out.
    void addEnd() {
        m_maxRows = m_rows.size() + 1;
        m_isCut = false;
        add(Paragraph{std::string(endOfPreview)});
    }

    MarkdownRows take() { return std::move(m_rows); }

private:
    void addRows(const Header& block) {
        add({.kind = Kind::header, .number = block.level}, plain(block.text));
    }

    void addRows(const Paragraph& block) { add({.kind = Kind::paragraph}, renderInline(block.text)); }

    void addRows(const CodeBlock& block) {
        if (!block.language.empty())
            add({.kind = Kind::language}, plain(block.language));
        addLines({.kind = Kind::code}, block.code, plain);
    }

    void addRows(const Blockquote& block) { addLines({.kind = Kind::quote}, block.text, renderInline); }

    void addRows(const UnorderedList& block) {
        for (const auto& item : block.items)
            add({.kind = Kind::unorderedItem}, renderInline(item));
    }

    void addRows(const OrderedList& block) {
        const auto digits = static_cast<int>(std::to_string(block.items.size()).size());
        for (int number = 0; const auto& item : block.items)
            add({.kind = Kind::orderedItem, .number = ++number, .digits = digits}, renderInline(item));
    }

    void addRows(const HorizontalRule&) { add({.kind = Kind::rule}, {}); }

    /// Adds a row for each line of `text`.
    void addLines(const MarkdownRow& row, std::string_view text,
                  std::vector<InlineRun> (*style)(std::string_view)) {
        for (auto end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
            add(row, style(text.substr(0, end)));
            text.remove_prefix(end + 1);
        }
        add(row, style(text));
    }

    void add(MarkdownRow row, std::vector<InlineRun> runs) {
        for (auto& piece : pieces(std::move(runs))) {
            m_isCut = m_isCut || m_rows.size() >= m_maxRows;
            if (m_isCut)
                return;
            if (!m_rows.empty())
                row.above = m_rows.back().kind;
            row.runs = std::move(piece);
            m_rows.push_back(row);
            row.continuesText = true;
        }
    }

    std::size_t m_maxRows;
    bool m_isCut = false;
    MarkdownRows m_rows{};
};

} // namespace

MarkdownRows markdownRows(std::string_view markdown, const MarkdownLimit& limit,
                          const std::stop_token& stop) {
    const bool isTooLong = markdown.size() > limit.bytes;
    Rows rows(limit.rows);
    for (const auto& block : parseBlocks(isTooLong ? beginning(markdown, limit.bytes) : markdown)) {
        if (rows.isCut() || stop.stop_requested())
            break;
        rows.add(block);
    }
    if (isTooLong || rows.isCut())
        rows.addEnd();
    return rows.take();
}

MarkdownChange changeOfRows(const SharedMarkdownRows& before, SharedMarkdownRows after) {
    const auto prefix = std::ranges::mismatch(*before, *after).in1 - before->begin();
    const auto shorter = static_cast<std::ptrdiff_t>(std::min(before->size(), after->size()));
    const auto suffix =
        std::mismatch(before->rbegin(), before->rbegin() + (shorter - prefix), after->rbegin()).first -
        before->rbegin();
    return {.rows = std::move(after),
            .samePrefix = static_cast<std::size_t>(prefix),
            .sameSuffix = static_cast<std::size_t>(suffix)};
}

} // namespace korvane
