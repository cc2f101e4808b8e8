/// A regular expression compiled by ICU. Compilation only; matching is in RegularExpression.h.
#pragma once

#include "Utilities/RegularExpression.h"

#include <unicode/regex.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace korvane::RegularExpression {

/// Compiles in its constructor. ICU takes up to about ten milliseconds for one character set, cannot be
/// cancelled, and reports only faulty patterns as errors. But it reads the pattern in pieces, so the pattern
/// is made to end once `shouldContinue` returns false.
class CompiledPattern {
public:
    /// Calls `shouldContinue` only during construction, often enough to stop within about 50 milliseconds.
    CompiledPattern(std::string_view pattern, bool isCaseSensitive,
                    const std::function<bool()>& shouldContinue);

    /// Null unless the whole pattern was compiled. Owned by this object.
    icu::RegexMatcher* matcher() const { return m_matcher.get(); }

    /// The error in the pattern, if any. With neither error nor matcher, `shouldContinue` returned false.
    const std::optional<PatternError>& error() const { return m_error; }

private:
    void compile(std::uint32_t flags, std::int64_t pieceLength, const std::function<bool()>& shouldContinue);

    icu::UnicodeString m_units;
    std::unique_ptr<icu::RegexPattern> m_pattern;
    std::unique_ptr<icu::RegexMatcher> m_matcher; ///< refers to the pattern
    std::optional<PatternError> m_error;
};

} // namespace korvane::RegularExpression
