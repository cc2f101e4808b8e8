#include "Utilities/CompiledPattern.h"

#include "Utilities/Text/InterruptibleText.h"
#include "Utilities/Text/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace korvane::RegularExpression {

namespace {

/// How many UTF-16 units of a pattern with many character sets ICU gets at once: about two or three sets.
constexpr std::int64_t setPieceLength = 32;

/// Patterns with at most this many sets are compiled in one piece, without interruption: they compile fast.
constexpr std::size_t maxUnsplitSetCount = 4;

/// The message for an ICU pattern error.
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
    {U_REGEX_INTERNAL_ERROR, "Nesting too deep"}, // reported above a hundred levels
    {U_ILLEGAL_CHAR_FOUND, "Unknown character name"},
    {U_MEMORY_ALLOCATION_ERROR, "Pattern too big"},
});

std::string_view faultOf(UErrorCode status) {
    const auto* const fault = std::ranges::find(faults, status, &Fault::status);
    return fault == faults.end() ? "Invalid pattern" : fault->text;
}

/// The position of an error. ICU reports it as a line, counted from 1, and a code point offset in the line.
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

} // namespace

CompiledPattern::CompiledPattern(std::string_view pattern, bool isCaseSensitive,
                                 const std::function<bool()>& shouldContinue) {
    if (pattern.empty()) { // ICU would match it everywhere
        m_error = PatternError{.fault = "Empty pattern"};
        return;
    }
    if (pattern.size() > maxPatternSize) {
        m_error = PatternError{.fault = faultOf(U_REGEX_PATTERN_TOO_BIG)};
        return;
    }
    m_units = icu::UnicodeString::fromUTF8(
        icu::StringPiece(pattern.data(), static_cast<std::int32_t>(pattern.size())));
    const std::uint32_t flags = isCaseSensitive ? 0 : UREGEX_CASE_INSENSITIVE;
    if (setCount(pattern) > maxUnsplitSetCount)
        compile(flags, setPieceLength, shouldContinue);
    else
        compile(flags, m_units.length(), [] { return true; });
}

void CompiledPattern::compile(std::uint32_t flags, std::int64_t pieceLength,
                              const std::function<bool()>& shouldContinue) {
    bool isInterrupted = false;
    const std::function<bool()> mayRead = [&] {
        isInterrupted = isInterrupted || !shouldContinue();
        return !isInterrupted;
    };
    InterruptibleText text(m_units, mayRead,
                           {.pieceLength = pieceLength, .stop = InterruptibleText::Stop::byEndOfText});
    UErrorCode status = U_ZERO_ERROR;
    UParseError error{};
    m_pattern.reset(icu::RegexPattern::compile(text.handle(), flags, error, status));
    if (isInterrupted)
        return;
    if (U_SUCCESS(status))
        m_matcher.reset(m_pattern->matcher(status));
    if (U_FAILURE(status))
        m_error = PatternError{.fault = faultOf(status), .position = positionOf(error, m_units)};
}

} // namespace korvane::RegularExpression
