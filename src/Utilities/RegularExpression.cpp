#include "Utilities/RegularExpression.h"

#include "Utilities/InterruptibleText.h"
#include "Utilities/Text.h"
#include "Utilities/UTF16Text.h"

#include <fmt/format.h>
#include <unicode/uregex.h>

#include <time.h> // NOLINT(modernize-deprecated-headers): the clock of a thread is POSIX's

#include <algorithm>
#include <cassert>
#include <functional>
#include <utility>

namespace korvane::RegularExpression {

namespace {

/// Up to this length, in UTF-16 units, a text is searched in one piece whatever the pattern: the longest run
/// that ICU takes without a report of progress ends soon.
constexpr std::int32_t steadyTextLength = 1 << 14;

/// What stands wrong in a pattern, for each error that ICU has for one.
struct Fault {
    UErrorCode status;
    std::string_view text;
};

constexpr auto faults = std::to_array<Fault>({
    {U_REGEX_RULE_SYNTAX, "Syntax error"},
    {U_REGEX_BAD_ESCAPE_SEQUENCE, "Unrecognized escape sequence"},
    {U_REGEX_PROPERTY_SYNTAX, "Unknown Unicode property or character class"},
    {U_REGEX_UNIMPLEMENTED, "Unsupported feature"},
    {U_REGEX_MISMATCHED_PAREN, "Incorrectly nested parentheses"},
    {U_REGEX_NUMBER_TOO_BIG, "Number too big"},
    {U_REGEX_BAD_INTERVAL, "Error in the interval between braces"},
    {U_REGEX_MAX_LT_MIN, "Interval with a maximum less than its minimum"},
    {U_REGEX_INVALID_BACK_REF, "Back reference to a capture group that does not exist"},
    {U_REGEX_INVALID_FLAG, "Unknown mode flag"},
    {U_REGEX_LOOK_BEHIND_LIMIT, "Look-behind without a maximum length"},
    {U_REGEX_SET_CONTAINS_STRING, "Character set that contains a string"},
    {U_REGEX_MISSING_CLOSE_BRACKET, "Missing closing bracket"},
    {U_REGEX_INVALID_RANGE, "Character range whose end comes before its start"},
    {U_REGEX_PATTERN_TOO_BIG, "Pattern too big"},
    {U_REGEX_INVALID_CAPTURE_GROUP_NAME, "Invalid name of a capture group"},
    {U_REGEX_INTERNAL_ERROR, "Nesting too deep"}, // reported beyond a hundred levels
    {U_ILLEGAL_CHAR_FOUND, "Unknown character name"},
    {U_ILLEGAL_ARGUMENT_ERROR, "Empty pattern"},
    {U_MEMORY_ALLOCATION_ERROR, "Pattern too big"},
});

std::string_view faultOf(UErrorCode status) {
    const auto* const fault = std::ranges::find(faults, status, &Fault::status);
    return fault == faults.end() ? "Invalid pattern" : fault->text;
}

/// Where ICU, which counts lines from 1 and code points in them, noticed a fault.
std::optional<std::size_t> positionOf(const UParseError& error, const icu::UnicodeString& pattern) {
    if (error.line < 1)
        return std::nullopt;
    std::int32_t start = 0; // of the line
    for (std::int32_t line = 1; line < error.line && start < pattern.length(); ++start) {
        const auto unit = pattern[start];
        const bool isInsidePair = unit == '\r' && pattern[start + 1] == '\n';
        if (isNewline(unit) && unit != '\v' && unit != '\f' && !isInsidePair)
            ++line;
    }
    const auto end = pattern.moveIndex32(start, error.offset);
    std::string upToFault;
    pattern.tempSubStringBetween(0, end).toUTF8String(upToFault);
    return std::max(characterCount(upToFault), std::size_t{1});
}

/// Whether ICU may run along the text for one alternative without reporting it: it does so for what it will
/// not take back, and for comparing with what a group took.
bool scansSilently(std::string_view pattern) {
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

/// Decides whether a search goes on.
class Watch {
public:
    explicit Watch(const Budget& budget) : m_budget(budget), m_end(now() + budget.time) {}

    bool goesOn() const { return !m_budget.stop.stop_requested() && now() < m_end; }

    /// After a step inside a match.
    bool goesOnAfterStep() { return ++m_steps <= m_budget.steps && goesOn(); }

    /// After a match, or at the next place where one may begin. To look at the clock at each would take
    /// longer than to find a letter.
    bool goesOnAtPlace() {
        return m_places++ % placesPerLook == 0 ? goesOn() : !m_budget.stop.stop_requested();
    }

    /// Why it does not.
    Interruption interruption() const {
        return m_budget.stop.stop_requested() ? Interruption::calledOff : Interruption::tookTooLong;
    }

private:
    static constexpr std::size_t placesPerLook = 1024;

    /// What this thread has had of the processor.
    static std::chrono::nanoseconds now() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    const Budget& m_budget;
    std::chrono::nanoseconds m_end;
    std::size_t m_steps = 0;
    std::size_t m_places = 0;
};

/// The bytes of a group, 0 for the whole match; none when it took no part, or begins or ends inside a
/// character.
std::optional<TextRange> rangeOf(URegularExpression* regex, std::int32_t group, const UTF16Text& text) {
    UErrorCode status = U_ZERO_ERROR;
    const auto unit = uregex_start64(regex, group, &status);
    if (unit < 0)
        return std::nullopt;
    const auto start = text.byteOffset(unit);
    const auto end = text.byteOffset(uregex_end64(regex, group, &status));
    if (!start || !end)
        return std::nullopt;
    return TextRange{.start = *start, .end = *end};
}

void addMatch(URegularExpression* regex, const UTF16Text& text, Findings& findings) {
    const auto whole = rangeOf(regex, 0, text);
    if (!whole)
        return;
    findings.firstPieces.push_back(static_cast<std::uint32_t>(findings.pieces.size()));
    findings.pieces.push_back({.range = *whole, .group = 0});
    for (std::uint32_t group = 1; group <= findings.groupCount; ++group) {
        if (const auto range = rangeOf(regex, static_cast<std::int32_t>(group), text))
            findings.pieces.push_back({.range = *range, .group = group});
    }
}

/// Lets the watch look whenever ICU reports progress.
void setCallbacks(URegularExpression* regex, Watch& watch, UErrorCode& status) {
    uregex_setMatchCallback(
        regex,
        [](const void* context, std::int32_t) -> UBool {
            return static_cast<Watch*>(const_cast<void*>(context))->goesOnAfterStep();
        },
        &watch, &status);
    uregex_setFindProgressCallback(
        regex,
        [](const void* context, std::int64_t) -> UBool {
            return static_cast<Watch*>(const_cast<void*>(context))->goesOnAtPlace();
        },
        &watch, &status);
}

std::expected<icu::LocalURegularExpressionPointer, PatternError> compile(std::string_view pattern,
                                                                         bool isCaseSensitive) {
    if (pattern.size() > maximumPatternSize || setCount(pattern) > maximumSets)
        return std::unexpected(PatternError{.fault = faultOf(U_REGEX_PATTERN_TOO_BIG)});
    const auto units = icu::UnicodeString::fromUTF8(
        icu::StringPiece(pattern.data(), static_cast<std::int32_t>(pattern.size())));
    const std::uint32_t options = isCaseSensitive ? 0 : UREGEX_CASE_INSENSITIVE;
    UErrorCode status = U_ZERO_ERROR;
    UParseError error{};
    icu::LocalURegularExpressionPointer regex(
        uregex_open(units.getBuffer(), units.length(), options, &error, &status));
    if (U_FAILURE(status))
        return std::unexpected(PatternError{.fault = faultOf(status), .position = positionOf(error, units)});
    uregex_setStackLimit(regex.getAlias(), stackLimit, &status);
    return regex;
}

/// Adds to `findings` all that `regex` finds in `text`. `isInPieces`: so that the watch can look at any time;
/// reading is slower then.
void findAll(URegularExpression* regex, const UTF16Text& text, bool isInPieces, Watch& watch,
             Findings& findings) {
    const std::function<bool()> goesOn = [&watch] { return watch.goesOn(); };
    InterruptibleText pieces(text.units(), goesOn);
    UErrorCode status = U_ZERO_ERROR;
    findings.groupCount = static_cast<std::uint32_t>(uregex_groupCount(regex, &status));
    setCallbacks(regex, watch, status);
    if (isInPieces)
        uregex_setUText(regex, pieces.handle(), &status);
    else
        uregex_setText(regex, text.units().getBuffer(), text.units().length(), &status);
    while (uregex_findNext(regex, &status) != 0) {
        if (!watch.goesOnAtPlace())
            findings.interruption = watch.interruption();
        else if (findings.pieces.size() + findings.groupCount >= maximumPieces)
            findings.interruption = Interruption::foundTooMuch;
        if (findings.interruption)
            return;
        addMatch(regex, text, findings);
    }
    if (status == U_REGEX_STACK_OVERFLOW || status == U_MEMORY_ALLOCATION_ERROR)
        findings.interruption = Interruption::tookTooMuchMemory;
    else if (U_FAILURE(status))
        findings.interruption = watch.interruption();
}

/// What a replacement is made of: plain text, and the number of a group behind it.
struct ReplacementPart {
    std::string text{};
    std::optional<std::uint32_t> group{};
};

std::optional<std::uint32_t> digitAt(std::string_view text, std::size_t at) {
    if (at >= text.size() || text[at] < '0' || text[at] > '9')
        return std::nullopt;
    return static_cast<std::uint32_t>(text[at] - '0');
}

std::vector<ReplacementPart> replacementParts(std::string_view replacement, std::uint32_t groupCount) {
    std::vector<ReplacementPart> parts(1);
    for (std::size_t at = 0; at < replacement.size(); ++at) {
        const char character = replacement[at];
        const auto digit = digitAt(replacement, at + 1);
        if (character == '\\') {
            if (++at < replacement.size())
                parts.back().text += replacement[at];
        } else if (character == '$' && digit) {
            auto group = *digit;
            for (++at; const auto next = digitAt(replacement, at + 1); ++at) {
                if (group * 10 + *next > groupCount)
                    break;
                group = group * 10 + *next;
            }
            parts.back().group = group;
            parts.emplace_back();
        } else {
            parts.back().text += character;
        }
    }
    return parts;
}

/// What `group` took in the match that has these pieces.
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
    Watch watch(budget);
    const auto regex = compile(pattern, isCaseSensitive);
    if (!regex)
        return std::unexpected(regex.error());
    Findings findings{.text = std::move(text)};
    if (findings.text->size() > UTF16Text::maximumSize) {
        findings.interruption = Interruption::textIsTooLong;
        return findings;
    }
    const UTF16Text units(*findings.text);
    const bool isInPieces = units.units().length() > steadyTextLength && scansSilently(pattern);
    try {
        findAll(regex->getAlias(), units, isInPieces, watch, findings);
    } catch (const InterruptibleText::Interrupted&) {
        findings.interruption = watch.interruption();
    }
    return findings;
}

std::optional<std::string> replacingMatches(const Findings& findings, std::string_view replacement) {
    const auto parts = replacementParts(replacement, findings.groupCount);
    const std::string_view text = *findings.text;
    std::string result;
    std::size_t end = 0; // of the match before
    for (std::size_t index = 0; index < findings.matchCount(); ++index) {
        const auto match = findings.match(index);
        result += text.substr(end, match.front().range.start - end);
        for (const auto& part : parts) {
            result += part.text;
            if (part.group)
                result += textOf(*part.group, match, text);
            if (result.size() > maximumReplacedSize)
                return std::nullopt;
        }
        end = match.front().range.end;
    }
    result += text.substr(end);
    return result.size() > maximumReplacedSize ? std::nullopt : std::optional(std::move(result));
}

} // namespace korvane::RegularExpression
