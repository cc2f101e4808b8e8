/// A regular expression as ICU prepares it for matching. Preparing is the one thing done here; what a pattern
/// finds is in RegularExpression.h.
#pragma once

#include "Utilities/RegularExpression.h"

#include <unicode/regex.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace korvane::RegularExpression {

/// Compiles in its constructor. ICU takes up to some ten milliseconds for a single character set, cannot be
/// told to stop, and knows no other error than a faulty pattern. But it reads the pattern bit by bit, and so
/// the pattern simply ends for it where `shouldContinue` says no.
class CompiledPattern {
public:
    /// `shouldContinue` is asked only here, and often enough for an end within about fifty milliseconds.
    CompiledPattern(std::string_view pattern, bool isCaseSensitive,
                    const std::function<bool()>& shouldContinue);

    /// Null unless the whole pattern was compiled. Belongs to this object.
    icu::RegexMatcher* matcher() const { return m_matcher.get(); }

    /// What is wrong with the pattern, if anything is. Otherwise, without a matcher, `shouldContinue` said
    /// no.
    const std::optional<PatternError>& error() const { return m_error; }

private:
    void compile(std::uint32_t flags, std::int64_t pieceLength, const std::function<bool()>& shouldContinue);

    icu::UnicodeString m_units;
    std::unique_ptr<icu::RegexPattern> m_pattern;
    std::unique_ptr<icu::RegexMatcher> m_matcher; ///< refers to the pattern
    std::optional<PatternError> m_error;
};

} // namespace korvane::RegularExpression
