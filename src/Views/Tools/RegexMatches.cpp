#include "Views/Tools/RegexMatches.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdint>
#include <utility>

namespace korvane {

std::string RegexMatchLine::heading() const {
    return group ? fmt::format("Group {}", *group + 1) : fmt::format("Match {}", match + 1);
}

std::string RegexMatchLine::name() const {
    return group ? fmt::format("Match {} {}", match + 1, heading()) : heading();
}

RegexMatches::RegexMatches(RegexSearch search, RegularExpression::Findings findings) {
    std::vector<UUID> ids(findings.matchCount());
    std::ranges::generate(ids, UUID::random);
    m_contents = std::make_shared<const Contents>(
        Contents{.search = std::move(search), .findings = std::move(findings), .ids = std::move(ids)});
}

RegexMatch RegexMatches::operator[](std::size_t index) const {
    assert(index < size());
    const auto& findings = m_contents->findings;
    const std::string_view text = *findings.text;
    const auto pieces = findings.match(index);
    RegexMatch match{.id = m_contents->ids[index],
                     .fullMatch = pieces.front().range.of(text),
                     .range = pieces.front().range};
    for (const auto& piece : pieces.subspan(1))
        match.groups.push_back(piece.range.of(text));
    return match;
}

RegexMatchLine RegexMatches::line(std::size_t index) const {
    assert(index < lineCount());
    const auto& [text, groupCount, pieces, firstPieces, interruption] = m_contents->findings;
    const auto next = std::ranges::upper_bound(firstPieces, index);
    const std::size_t first = *std::prev(next);
    RegexMatchLine line{.match = static_cast<std::size_t>(next - firstPieces.begin()) - 1,
                        .text = pieces[index].range.of(*text)};
    if (index > first)
        line.group = index - first - 1;
    return line;
}

std::optional<std::size_t> RegexMatches::lineAt(std::size_t offset) const {
    if (empty())
        return std::nullopt;
    const auto& [text, groupCount, pieces, firstPieces, interruption] = m_contents->findings;
    const auto start = [&](std::uint32_t piece) -> std::size_t { return pieces[piece].range.start; };
    const auto next = std::ranges::upper_bound(firstPieces, offset, {}, start);
    if (next == firstPieces.begin())
        return std::nullopt;
    const auto line = *std::prev(next);
    return offset <= pieces[line].range.end ? std::optional<std::size_t>(line) : std::nullopt;
}

RegularExpression::TextRange RegexMatches::range(std::size_t line) const {
    assert(line < lineCount());
    return m_contents->findings.pieces[line].range;
}

TextMarks RegexMatches::marks() const {
    std::vector<TextMark> marks;
    const auto count = std::min(size(), maxMarked);
    marks.reserve(count);
    for (std::size_t match = 0; match < count; ++match) {
        const auto place = range(firstLine(match));
        marks.push_back({.from = place.start,
                         .to = place.end,
                         .kind = match % 2 == 0 ? TextMarkKind::oddMatch : TextMarkKind::evenMatch});
    }
    return TextMarks(std::move(marks));
}

TextMarks RegexMatches::marksOf(std::size_t line) const {
    static constexpr std::array groupKinds{TextMarkKind::group1, TextMarkKind::group2, TextMarkKind::group3,
                                           TextMarkKind::group4};
    const auto match = this->line(line).match;
    std::vector<TextMark> marks;
    const auto add = [&](std::size_t place, TextMarkKind kind) {
        marks.push_back({.from = range(place).start, .to = range(place).end, .kind = kind});
    };
    add(line, TextMarkKind::selectedMatch);
    const auto first = firstLine(match) + 1;
    for (auto group = first; group < firstLine(match + 1); ++group)
        add(group, groupKinds[(group - first) % groupKinds.size()]);
    return TextMarks(std::move(marks));
}

std::size_t RegexMatches::firstLine(std::size_t match) const {
    return match < size() ? m_contents->findings.firstPieces[match] : lineCount();
}

} // namespace korvane
