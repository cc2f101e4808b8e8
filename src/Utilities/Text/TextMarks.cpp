#include "Utilities/Text/TextMarks.h"

#include <algorithm>
#include <utility>

namespace korvane {

TextMarks::TextMarks(std::vector<TextMark> marks) {
    if (marks.empty())
        return;
    if (!std::ranges::is_sorted(marks, {}, &TextMark::from))
        std::ranges::stable_sort(marks, {}, &TextMark::from);
    std::vector<std::size_t> ends(marks.size());
    std::size_t end = 0;
    std::ranges::transform(marks, ends.begin(), [&](const TextMark& mark) {
        end = std::max(end, mark.to);
        return end;
    });
    m_content = std::make_shared<const Content>(std::move(marks), std::move(ends));
}

std::vector<TextMark> TextMarks::in(std::size_t from, std::size_t to) const {
    std::vector<TextMark> found;
    if (!m_content)
        return found;
    const auto& [marks, ends] = *m_content;
    const auto first = std::ranges::lower_bound(ends, from) - ends.begin();
    for (auto mark = marks.begin() + first; mark != marks.end() && mark->from <= to; ++mark) {
        const bool isEmpty = mark->from == mark->to;
        if (isEmpty ? mark->from >= from : std::max(mark->from, from) < std::min(mark->to, to))
            found.push_back(*mark);
    }
    return found;
}

bool TextMarks::operator==(const TextMarks& other) const {
    return m_content == other.m_content ||
           (m_content && other.m_content && m_content->marks == other.m_content->marks);
}

void TextMarks::apply(const TextChange& change) {
    if (!m_content)
        return;
    const auto end = change.offset + change.removed;
    std::vector<TextMark> moved;
    moved.reserve(m_content->marks.size());
    for (auto mark : m_content->marks) {
        if (mark.to >= change.offset && mark.from <= end)
            continue;
        if (mark.from > end) {
            mark.from = mark.from - change.removed + change.inserted;
            mark.to = mark.to - change.removed + change.inserted;
        }
        moved.push_back(mark);
    }
    *this = TextMarks(std::move(moved));
}

} // namespace korvane
