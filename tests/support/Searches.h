/// Searches with regular expressions, with results in a comparable form.
#pragma once

#include "Utilities/RegularExpression.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::support {

inline std::shared_ptr<const std::string> shared(std::string text) {
    return std::make_shared<const std::string>(std::move(text));
}

inline RegularExpression::Findings
search(std::string_view pattern, std::string text, bool isCaseSensitive = true,
       const RegularExpression::Budget& budget = {.time = std::chrono::hours(1)}) {
    auto findings = RegularExpression::search(pattern, isCaseSensitive, shared(std::move(text)), budget);
    if (findings)
        return std::move(*findings);
    ADD_FAILURE() << pattern << ": " << findings.error().errorDescription();
    return {.text = shared({})};
}

/// The error message for a pattern; empty for a valid one.
inline std::string errorOf(std::string_view pattern, bool isCaseSensitive = true) {
    const auto findings = RegularExpression::search(pattern, isCaseSensitive, shared("abc"), {});
    return findings ? std::string() : findings.error().errorDescription();
}

/// Each piece as its range and text, a group with its number in front: "0-2 ab" or "$1 0-1 a".
inline std::vector<std::string> described(const RegularExpression::Findings& findings) {
    std::vector<std::string> pieces;
    for (std::size_t index = 0; index < findings.matchCount(); ++index) {
        for (const auto& piece : findings.match(index)) {
            const auto place =
                fmt::format("{}-{} {}", piece.range.start, piece.range.end, piece.range.of(*findings.text));
            pieces.push_back(piece.group == 0 ? place : fmt::format("${} {}", piece.group, place));
        }
    }
    return pieces;
}

} // namespace korvane::support
