/// The state of the Regex Tester screen: a pattern, a text, all matches with their capture groups, and the
/// text with the matches replaced. Short texts are searched at once, all others in the background.
#pragma once

#include "Views/Background.h"
#include "Views/Tools/RegexMatches.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// A row of the quick reference.
struct RegexCheatItem {
    std::string_view pattern;
    std::string_view description;
};

struct RegexTesterView {
    using RegexMatch = korvane::RegexMatch;

    /// The content of the section "Matches".
    enum class MatchesPanel { prompt, noMatches, stopped, busy, list };

    std::string pattern{};
    Rope testString{};
    std::string replacement{};
    RegexMatches matches{};
    Rope replacedText{};
    std::optional<std::string> errorMessage{};
    bool liveUpdate = true;
    bool caseSensitive = true;
    bool showReplacement = false;
    /// Running tasks. Earlier results stay until these finish or `isBusy` is set, so that nothing flickers
    /// while the user types.
    std::optional<BackgroundTask> matching{};
    std::optional<BackgroundTask> replacing{};
    /// Whether matching has taken so long that the earlier result was removed.
    bool isBusy = false;
    bool isCancelled = false;                  ///< the last run, so that there is no result
    std::optional<std::size_t> selectedLine{}; ///< of `matches`
    TextMarks matchMarks{};                    ///< of `matches` in the test string
    TextMarks selectedMarks{};                 ///< of `selectedLine`, the same
    TextPlace shownPlace{};                    ///< in the test string

    // With `liveUpdate`, a change of pattern, text or case runs the expression; a change of the replacement
    // only replaces.

    void setPattern(std::string text, const Context<RegexTesterView>& context);
    void setTestString(Rope text, const Context<RegexTesterView>& context);
    void setReplacement(std::string text, const Context<RegexTesterView>& context);
    void setCaseSensitive(bool isSensitive, const Context<RegexTesterView>& context);

    void setLiveUpdate(bool isLive) { liveUpdate = isLive; }

    void setShowReplacement(bool show) { showReplacement = show; }

    /// Finds and replaces.
    void runRegex(const Context<RegexTesterView>& context);

    /// Only replaces. A failure gives an empty text without a message.
    void runReplacement(const Context<RegexTesterView>& context);

    /// Selects a line of the list, and shows it in the test string.
    void selectLine(std::size_t line);

    /// Selects the match with the caret, or none.
    void selectAt(const TextSelection& selection);

    /// Stops finding and replacing.
    void cancel();

    MatchesPanel matchesPanel() const;

    /// The text of the panel; empty for a list, which shows `matchCount` instead.
    static constexpr std::string_view message(MatchesPanel panel) {
        switch (panel) {
        case MatchesPanel::prompt:
            return "Enter a pattern and test string";
        case MatchesPanel::noMatches:
            return "No matches found";
        case MatchesPanel::stopped: // there may be matches
            return "Matching stopped";
        case MatchesPanel::busy:
            return "Matching...";
        case MatchesPanel::list:
            break;
        }
        return {};
    }

    /// The text that the panel announces; empty while an error message is shown, which is announced itself.
    std::string announcedMessage() const;

    /// Such as "3 matches found".
    std::string matchCount() const;

    bool hasError() const { return errorMessage.has_value(); }

    bool operator==(const RegexTesterView&) const = default;

private:
    struct Job;
    struct Outcome;
    using Slot = std::optional<BackgroundTask> RegexTesterView::*;
    using Show = void (RegexTesterView::*)(Outcome);

    static Outcome outcome(Job job, const RegularExpression::Budget& budget);
    Job job() const;
    void start(const Context<RegexTesterView>& context, Slot slot, Show show, Job job);
    void announceBusy(const Context<RegexTesterView>& context) const;
    void showOutcome(Outcome outcome);
    void select(std::optional<std::size_t> line);
    bool matchesShownText() const;
    void showReplacedText(Outcome outcome);
};

inline constexpr auto regexCheatItems = std::to_array<RegexCheatItem>({
    {".", "Any character"},
    {"\\d", "Digit"},
    {"\\w", "Word char"},
    {"\\s", "Whitespace"},
    {"^", "Start"},
    {"$", "End"},
    {"*", "0 or more"},
    {"+", "1 or more"},
    {"?", "0 or 1"},
    {"{n}", "Exactly n"},
    {"[abc]", "Character class"},
    {"()", "Capture group"},
});

} // namespace korvane
