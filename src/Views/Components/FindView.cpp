#include "Views/Components/FindView.h"

#include "Utilities/Text/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// In bytes: further to the right, the column is not counted.
constexpr std::size_t maxCountedLine = 65'536;

TextMarks marksOf(const TextHits& hits) {
    std::vector<TextMark> marks;
    marks.reserve(hits.ranges.size());
    for (const auto& range : hits.ranges)
        marks.push_back({.from = range.start, .to = range.end, .kind = TextMarkKind::hit});
    return TextMarks(std::move(marks));
}

} // namespace

struct FindView::Result {
    std::shared_ptr<const TextHits> hits{};
    TextMarks marks{};
    std::optional<std::string> errorMessage{};
};

void FindView::open(Rope shown, TextSelection selection, const Context<FindView>& context) {
    isOpen = true;
    text = std::move(shown);
    origin = selection.from();
    const auto size = selection.to() - selection.from();
    if (size > 0 && size <= maxSuggestedSize) {
        auto selected = text.string(selection.from(), selection.to());
        if (std::ranges::none_of(selected, [](char byte) { return byte == '\n' || byte == '\r'; })) {
            query.text = std::move(selected);
            query.isPattern = false;
        }
    }
    search(context);
}

void FindView::close() {
    isOpen = false;
    searching.reset();
    if (current) {
        const auto& hit = hits->ranges[*current];
        shownPlace = {
            .selection = {hit.start, hit.end}, .request = shownPlace.request + 1, .takesFocus = true};
    }
    showResult({});
    text = {};
}

void FindView::setQuery(std::string value, const Context<FindView>& context) {
    query.text = std::move(value);
    search(context);
}

void FindView::setPattern(bool isPattern, const Context<FindView>& context) {
    query.isPattern = isPattern;
    search(context);
}

void FindView::setCaseSensitive(bool isSensitive, const Context<FindView>& context) {
    query.isCaseSensitive = isSensitive;
    search(context);
}

void FindView::setText(Rope value, const Context<FindView>& context) {
    if (!isOpen || value == text)
        return;
    text = std::move(value);
    search(context);
}

void FindView::search(const Context<FindView>& context) {
    searching.reset();
    if (query.text.empty()) {
        showResult({});
        return;
    }
    const auto run = [text = text, query = query](const std::stop_token& stop) -> Result {
        auto found = findHits(FlatText(text), query, stop);
        if (!found)
            return {.errorMessage = std::move(found.error())};
        auto marks = marksOf(*found);
        return {.hits = std::make_shared<const TextHits>(*std::move(found)), .marks = std::move(marks)};
    };
    if (text.size() <= maxImmediateSize && !query.isPattern) {
        showResult(run({}));
        return;
    }
    hits.reset();
    current.reset();
    currentMarks = {};
    errorMessage.reset();
    runInBackground(context, *this, &FindView::searching, run, &FindView::showResult);
}

/// Goes to the first hit from where the search began.
void FindView::showResult(Result result) {
    hits = std::move(result.hits);
    hitMarks = std::move(result.marks);
    errorMessage = std::move(result.errorMessage);
    current.reset();
    currentMarks = {};
    if (!hasHits())
        return;
    const auto& ranges = hits->ranges;
    const auto first = std::ranges::lower_bound(ranges, origin, {}, &RegularExpression::TextRange::start);
    go(first == ranges.end() ? 0 : static_cast<std::size_t>(first - ranges.begin()));
}

void FindView::go(std::size_t hit) {
    const auto& [start, end] = hits->ranges[hit];
    current = hit;
    origin = start;
    currentMarks = TextMarks({{.from = start, .to = end, .kind = TextMarkKind::currentHit}});
    shownPlace = {.selection = {start, start}, .request = shownPlace.request + 1};
}

void FindView::next() {
    if (hasHits())
        go((*current + 1) % count());
}

void FindView::previous() {
    if (hasHits())
        go((*current + count() - 1) % count());
}

std::string FindView::countText() const {
    if (searching)
        return "…";
    if (errorMessage)
        return "Invalid pattern";
    if (!hasHits())
        return query.text.empty() ? "" : "No results";
    return fmt::format("{} of {}{}", *current + 1, count(), hits->isComplete ? "" : "+");
}

std::string FindView::shortCountText() const {
    return hasHits() ? fmt::format("{}/{}{}", *current + 1, count(), hits->isComplete ? "" : "+")
                     : countText();
}

std::string FindView::announcement() const {
    if (!hasHits())
        return searching ? "" : countText();
    const auto start = hits->ranges[*current].start;
    const auto line = text.newlinesBefore(start);
    const auto lineStart = text.afterNewline(line);
    auto place = fmt::format("{}, line {}", countText(), line + 1);
    if (start - lineStart > maxCountedLine)
        return place;
    return fmt::format("{}, column {}", place, characterCount(text.string(lineStart, start)) + 1);
}

} // namespace korvane
