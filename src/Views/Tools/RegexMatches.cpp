#include "Views/Tools/RegexMatches.h"

#include <fmt/format.h>

#include <algorithm>
#include <cassert>
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

std::size_t RegexMatches::firstLine(std::size_t match) const {
    return match < size() ? m_contents->findings.firstPieces[match] : lineCount();
}

} // namespace korvane
