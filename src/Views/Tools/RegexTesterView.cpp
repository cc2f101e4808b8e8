#include "Views/Tools/RegexTesterView.h"

#include <fmt/format.h>

#include <chrono>
#include <stop_token>
#include <utility>

namespace korvane {

namespace {

/// Texts and patterns up to these sizes are searched at once, all others in the background. Within these
/// sizes, a pattern that scans the rest of the text at each character takes about ten milliseconds, and one
/// that backtracks is stopped after the same time.
constexpr std::size_t quickTextSize = 4096;
constexpr std::size_t quickPatternSize = 256;
constexpr std::size_t quickSetCount = 4;
constexpr std::size_t quickSteps = 8;

/// How long an outdated result stays before the screen shows that it is busy.
constexpr std::chrono::milliseconds busyDelay{150};

} // namespace

/// The input of a run.
struct RegexTesterView::Job {
    RegexSearch search{};
    std::string replacement{};
    RegexMatches matches{}; ///< to be replaced; without a search if they are still to be found

    bool isQuick() const {
        return search.text.size() <= quickTextSize && search.pattern.size() <= quickPatternSize &&
               replacement.size() <= quickPatternSize &&
               RegularExpression::setCount(search.pattern) <= quickSetCount;
    }
};

struct RegexTesterView::Outcome {
    RegexMatches matches{};
    Rope replacedText{};
    std::optional<std::string> errorMessage{};
    TextMarks marks{};

    bool isComplete() const { return !matches.search() || !matches.findings()->interruption; }
};

void RegexTesterView::setPattern(std::string text, const Context<RegexTesterView>& context) {
    if (text == pattern)
        return;
    pattern = std::move(text);
    if (liveUpdate)
        runRegex(context);
}

void RegexTesterView::setTestString(Rope text, const Context<RegexTesterView>& context) {
    if (text == testString)
        return;
    testString = std::move(text);
    if (liveUpdate)
        runRegex(context);
}

void RegexTesterView::setCaseSensitive(bool isSensitive, const Context<RegexTesterView>& context) {
    if (isSensitive == caseSensitive)
        return;
    caseSensitive = isSensitive;
    if (liveUpdate)
        runRegex(context);
}

void RegexTesterView::setReplacement(std::string text, const Context<RegexTesterView>& context) {
    if (text == replacement)
        return;
    replacement = std::move(text);
    if (!liveUpdate)
        return;
    if (matching) // its result would contain the old replacement
        runRegex(context);
    else
        runReplacement(context);
}

void RegexTesterView::runRegex(const Context<RegexTesterView>& context) {
    replacing.reset();
    isCancelled = false;
    if (pattern.empty() || testString.empty()) {
        matching.reset();
        showOutcome({});
        return;
    }
    start(context, &RegexTesterView::matching, &RegexTesterView::showOutcome, job());
    if (matching)
        announceBusy(context);
}

void RegexTesterView::runReplacement(const Context<RegexTesterView>& context) {
    if (pattern.empty() || testString.empty() || replacement.empty()) {
        replacing.reset();
        replacedText.clear();
        return;
    }
    auto next = job();
    const auto* const known = matches.search();
    if (known && known->pattern == pattern && known->isCaseSensitive == caseSensitive &&
        known->text == testString)
        next.matches = matches;
    start(context, &RegexTesterView::replacing, &RegexTesterView::showReplacedText, std::move(next));
}

RegexTesterView::Job RegexTesterView::job() const {
    return {.search = {.pattern = pattern, .isCaseSensitive = caseSensitive, .text = testString},
            .replacement = replacement};
}

RegexTesterView::Outcome RegexTesterView::outcome(Job job, const RegularExpression::Budget& budget) {
    if (!job.matches.search()) {
        auto findings =
            RegularExpression::search(job.search.pattern, job.search.isCaseSensitive,
                                      std::make_shared<const std::string>(job.search.text.string()), budget);
        if (!findings)
            return {.errorMessage = "Invalid regex: " + findings.error().errorDescription()};
        job.matches = RegexMatches(std::move(job.search), std::move(*findings));
    }
    const auto& findings = *job.matches.findings();
    if (findings.interruption) {
        std::string message(rawValue(*findings.interruption));
        return {.matches = std::move(job.matches), .errorMessage = std::move(message)};
    }
    auto replacedText = job.replacement.empty()
                            ? std::string()
                            : RegularExpression::replacingMatches(findings, job.replacement).value_or("");
    auto marks = job.matches.marks();
    return {.matches = std::move(job.matches),
            .replacedText = std::move(replacedText),
            .marks = std::move(marks)};
}

void RegexTesterView::start(const Context<RegexTesterView>& context, Slot slot, Show show, Job job) {
    (this->*slot).reset();
    if (job.isQuick()) {
        if (auto result = outcome(job, {.steps = quickSteps}); result.isComplete()) {
            (this->*show)(std::move(result));
            return;
        }
    }
    runInBackground(
        context, *this, slot,
        [job = std::move(job)](const std::stop_token& stop) { return outcome(job, {.stop = stop}); }, show);
}

void RegexTesterView::announceBusy(const Context<RegexTesterView>& context) const {
    context.services.timers.after(busyDelay,
                                  [update = context.update, identity = BackgroundTask::Identity(*matching)] {
                                      update([&identity](RegexTesterView& state) {
                                          if (!identity.matches(state.matching))
                                              return;
                                          state.showOutcome({});
                                          state.isBusy = true;
                                      });
                                  });
}

/// Whether the matches are those of the test string, which may have changed since.
bool RegexTesterView::matchesShownText() const {
    return matches.search() && matches.search()->text == testString;
}

void RegexTesterView::select(std::optional<std::size_t> line) {
    selectedLine = line;
    selectedMarks = line && matchesShownText() ? matches.marksOf(*line) : TextMarks();
}

void RegexTesterView::selectLine(std::size_t line) {
    if (line == selectedLine || line >= matches.lineCount())
        return;
    select(line);
    if (selectedMarks.empty())
        return;
    const std::size_t start = matches.range(line).start;
    shownPlace = {.selection = {start, start}, .request = shownPlace.request + 1};
}

void RegexTesterView::selectAt(const TextSelection& selection) {
    select(matchesShownText() && selection.isEmpty() ? matches.lineAt(selection.caret) : std::nullopt);
}

void RegexTesterView::cancel() {
    replacing.reset();
    if (!matching)
        return;
    matching.reset();
    showOutcome({});
    isCancelled = true;
}

void RegexTesterView::showOutcome(Outcome outcome) {
    isBusy = false;
    matches = std::move(outcome.matches);
    matchMarks = std::move(outcome.marks);
    select(std::nullopt);
    errorMessage = std::move(outcome.errorMessage);
    replacedText = std::move(outcome.replacedText);
}

void RegexTesterView::showReplacedText(Outcome outcome) {
    replacedText = std::move(outcome.replacedText);
}

RegexTesterView::MatchesPanel RegexTesterView::matchesPanel() const {
    if (!matches.empty())
        return MatchesPanel::list;
    if (isBusy)
        return MatchesPanel::busy;
    const bool waitsForFirstResult = matching && !matches.search() && !errorMessage;
    if (pattern.empty() || testString.empty() || waitsForFirstResult)
        return MatchesPanel::prompt;
    const bool isStopped = isCancelled || (matches.search() && matches.findings()->interruption);
    return isStopped ? MatchesPanel::stopped : MatchesPanel::noMatches;
}

std::string RegexTesterView::announcedMessage() const {
    if (errorMessage)
        return {};
    const auto panel = matchesPanel();
    return panel == MatchesPanel::list ? matchCount() : std::string(message(panel));
}

std::string RegexTesterView::matchCount() const {
    return fmt::format("{} match{} found", matches.size(), matches.size() == 1 ? "" : "es");
}

} // namespace korvane
