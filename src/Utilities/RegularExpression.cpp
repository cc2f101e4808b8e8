#include "Utilities/RegularExpression.h"

#include "Utilities/CompiledPattern.h"
#include "Utilities/Text/InterruptibleText.h"
#include "Utilities/Text/UTF16Text.h"

#include <fmt/format.h>
#include <unicode/regex.h>

#include <time.h> // NOLINT(modernize-deprecated-headers): the clock of a thread is POSIX's

#include <algorithm>
#include <cassert>
#include <charconv>
#include <functional>
#include <utility>

namespace korvane::RegularExpression {

namespace {

/// Texts up to this length, in UTF-16 units, are searched in one piece whatever the pattern: even the longest
/// run that ICU scans without reporting progress ends soon.
constexpr std::int32_t maxUnsplitTextLength = 1 << 14;

/// Whether ICU may scan along the text without reporting progress: it does so for constructs that it does not
/// backtrack into, and to compare with a captured group.
bool mayScanWithoutProgress(std::string_view pattern) {
    for (std::size_t at = 0; at + 1 < pattern.size(); ++at) {
        const auto next = pattern[at + 1];
        switch (pattern[at]) {
        case '\\': // \1, \k<name>, \X
            if ((next >= '1' && next <= '9') || next == 'k' || next == 'X')
                return true;
            break;
        case '(': // (?>...), (?=...), (?!...), (?<=...), (?<!...)
            if (next == '?' && at + 2 < pattern.size() && std::string_view(">=!<").contains(pattern[at + 2]))
                return true;
            break;
        case '*':
        case '+':
        case '?':
        case '}': // a*+, a++, a?+, a{2}+
            if (next == '+')
                return true;
            break;
        default:
            break;
        }
    }
    return false;
}

/// Decides whether a search may continue.
class BudgetMonitor {
public:
    explicit BudgetMonitor(const Budget& budget) : m_budget(budget), m_end(now() + budget.time) {}

    bool shouldContinue() const { return !m_budget.stop.stop_requested() && now() < m_end; }

    /// After a step inside a match.
    bool shouldContinueAfterStep() { return ++m_steps <= m_budget.steps && shouldContinue(); }

    /// After a match, or at the next position where one may begin. Reads the clock only at some positions, as
    /// reading it takes longer than finding a letter.
    bool shouldContinueAtPosition() {
        return m_positions++ % positionsPerCheck == 0 ? shouldContinue() : !m_budget.stop.stop_requested();
    }

    /// Why it may not continue.
    Interruption interruption() const {
        return m_budget.stop.stop_requested() ? Interruption::cancelled : Interruption::tookTooLong;
    }

private:
    static constexpr std::size_t positionsPerCheck = 1024;

    /// The processor time of this thread.
    static std::chrono::nanoseconds now() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    const Budget& m_budget;
    std::chrono::nanoseconds m_end;
    std::size_t m_steps = 0;
    std::size_t m_positions = 0;
};

/// The bytes of a group, 0 for the whole match; none if it did not participate, or begins or ends inside a
/// character.
std::optional<TextRange> rangeOf(const icu::RegexMatcher& matcher, std::int32_t group,
                                 const UTF16Text& text) {
    UErrorCode status = U_ZERO_ERROR;
    const auto unit = matcher.start64(group, status);
    if (unit < 0)
        return std::nullopt;
    const auto start = text.byteOffset(unit);
    const auto end = text.byteOffset(matcher.end64(group, status));
    if (!start || !end)
        return std::nullopt;
    return TextRange{.start = *start, .end = *end};
}

void addMatch(const icu::RegexMatcher& matcher, const UTF16Text& text, Findings& findings) {
    const auto whole = rangeOf(matcher, 0, text);
    if (!whole)
        return;
    findings.firstPieces.push_back(static_cast<std::uint32_t>(findings.pieces.size()));
    findings.pieces.push_back({.range = *whole, .group = 0});
    for (std::uint32_t group = 1; group <= findings.groupCount; ++group) {
        if (const auto range = rangeOf(matcher, static_cast<std::int32_t>(group), text))
            findings.pieces.push_back({.range = *range, .group = group});
    }
}

/// Calls the monitor whenever ICU reports progress.
void setCallbacks(icu::RegexMatcher& matcher, BudgetMonitor& monitor, UErrorCode& status) {
    matcher.setMatchCallback(
        [](const void* context, std::int32_t) -> UBool {
            return static_cast<BudgetMonitor*>(const_cast<void*>(context))->shouldContinueAfterStep();
        },
        &monitor, status);
    matcher.setFindProgressCallback(
        [](const void* context, std::int64_t) -> UBool {
            return static_cast<BudgetMonitor*>(const_cast<void*>(context))->shouldContinueAtPosition();
        },
        &monitor, status);
}

/// Adds all matches of `matcher` in `text` to `findings`. With `isInPieces`, the monitor is also called
/// between pieces of the text, which slows down reading.
void findAll(icu::RegexMatcher& matcher, const UTF16Text& text, bool isInPieces, BudgetMonitor& monitor,
             Findings& findings) {
    const std::function<bool()> shouldContinue = [&monitor] { return monitor.shouldContinue(); };
    InterruptibleText pieces(text.units(), shouldContinue, {});
    UErrorCode status = U_ZERO_ERROR;
    findings.groupCount = static_cast<std::uint32_t>(matcher.groupCount());
    matcher.setStackLimit(stackLimit, status);
    setCallbacks(matcher, monitor, status);
    if (isInPieces)
        matcher.reset(pieces.handle());
    else
        matcher.reset(text.units());
    while (matcher.find(status) != 0) {
        if (!monitor.shouldContinueAtPosition())
            findings.interruption = monitor.interruption();
        else if (findings.pieces.size() + findings.groupCount >= maxPieces)
            findings.interruption = Interruption::tooManyMatches;
        if (findings.interruption)
            return;
        addMatch(matcher, text, findings);
    }
    if (status == U_REGEX_STACK_OVERFLOW || status == U_MEMORY_ALLOCATION_ERROR)
        findings.interruption = Interruption::tookTooMuchMemory;
    else if (U_FAILURE(status))
        findings.interruption = monitor.interruption();
}

/// A part of a replacement: plain text, then optionally the number of a group.
struct ReplacementPart {
    std::string text{};
    std::optional<std::uint32_t> group{};
};

bool isDigitAt(std::string_view text, std::size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

/// The number at the start of `text`, whose first character is a digit: at most as many digits as the maximum
/// group number has.
std::string_view groupNumber(std::string_view text, std::uint32_t groupCount) {
    const auto maxLength = fmt::formatted_size("{}", groupCount);
    std::size_t length = 1;
    while (length < maxLength && isDigitAt(text, length))
        ++length;
    return text.substr(0, length);
}

std::vector<ReplacementPart> replacementParts(std::string_view replacement, std::uint32_t groupCount) {
    std::vector<ReplacementPart> parts(1);
    for (std::size_t at = 0; at < replacement.size(); ++at) {
        const char character = replacement[at];
        if (character == '\\') {
            if (++at < replacement.size())
                parts.back().text += replacement[at];
        } else if (character == '$' && isDigitAt(replacement, at + 1)) {
            const auto digits = groupNumber(replacement.substr(at + 1), groupCount);
            std::from_chars(digits.data(), digits.data() + digits.size(), parts.back().group.emplace());
            parts.emplace_back();
            at += digits.size();
        } else {
            parts.back().text += character;
        }
    }
    return parts;
}

/// The text that `group` captured in the match that has these pieces.
std::string_view textOf(std::uint32_t group, std::span<const Piece> match, std::string_view text) {
    const auto piece = std::ranges::lower_bound(match, group, {}, &Piece::group);
    return piece != match.end() && piece->group == group ? piece->range.of(text) : std::string_view();
}

} // namespace

std::string PatternError::errorDescription() const {
    return position ? fmt::format("{} at character {}.", fault, *position) : fmt::format("{}.", fault);
}

std::span<const Piece> Findings::match(std::size_t index) const {
    assert(index < matchCount());
    const std::size_t first = firstPieces[index];
    const auto end = index + 1 < matchCount() ? firstPieces[index + 1] : pieces.size();
    return std::span(pieces).subspan(first, end - first);
}

std::size_t setCount(std::string_view pattern) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        if (pattern[at] == '[' || (pattern[at] == '\\' && at + 1 < pattern.size() &&
                                   (pattern[at + 1] == 'p' || pattern[at + 1] == 'P')))
            ++count;
    }
    return count;
}

std::expected<Findings, PatternError> search(std::string_view pattern, bool isCaseSensitive,
                                             std::shared_ptr<const std::string> text, const Budget& budget) {
    BudgetMonitor monitor(budget);
    const CompiledPattern compiled(pattern, isCaseSensitive, [&monitor] { return monitor.shouldContinue(); });
    if (compiled.error())
        return std::unexpected(*compiled.error());
    Findings findings{.text = std::move(text)};
    if (!compiled.matcher()) {
        const bool isCancelled = monitor.interruption() == Interruption::cancelled;
        findings.interruption = isCancelled ? Interruption::cancelled : Interruption::patternTookTooLong;
        return findings;
    }
    if (findings.text->size() > UTF16Text::maxSize) {
        findings.interruption = Interruption::textIsTooLong;
        return findings;
    }
    const UTF16Text units(*findings.text);
    const bool isInPieces = units.units().length() > maxUnsplitTextLength && mayScanWithoutProgress(pattern);
    try {
        findAll(*compiled.matcher(), units, isInPieces, monitor, findings);
    } catch (const InterruptibleText::Interrupted&) {
        findings.interruption = monitor.interruption();
    }
    return findings;
}

std::optional<std::string> replacingMatches(const Findings& findings, std::string_view replacement) {
    const auto parts = replacementParts(replacement, findings.groupCount);
    const std::string_view text = *findings.text;
    std::string result;
    std::size_t end = 0; // of the previous match
    for (std::size_t index = 0; index < findings.matchCount(); ++index) {
        const auto match = findings.match(index);
        result += text.substr(end, match.front().range.start - end);
        for (const auto& part : parts) {
            result += part.text;
            if (part.group)
                result += textOf(*part.group, match, text);
            if (result.size() > maxReplacedSize)
                return std::nullopt;
        }
        end = match.front().range.end;
    }
    result += text.substr(end);
    return result.size() > maxReplacedSize ? std::nullopt : std::optional(std::move(result));
}

} // namespace korvane::RegularExpression
