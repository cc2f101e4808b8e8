/// Markdown by ICU's regular expressions: slow and obvious, the reference for the hand-written matchers.
#pragma once

#include "Utilities/Markdown/MarkdownPatterns.h"

#include <rapidcheck.h>

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// All matches of `pattern` in `text`, which is UTF-8. Only groups that took part are listed.
std::vector<MarkdownPatterns::Match> matchesOfICU(std::string_view pattern, std::string_view text);

/// `text` with all matches of `pattern` replaced.
std::string replacedByICU(std::string_view pattern, std::string_view replacement, std::string_view text);

/// HTML of Markdown by the same passes as `MarkdownParser::toHTML`, with regular expressions.
std::string htmlByICU(std::string_view markdown);

/// All matches of a hand-written matcher.
template <typename Matcher>
std::vector<MarkdownPatterns::Match> matchesOf(Matcher matcher) {
    std::vector<MarkdownPatterns::Match> matches;
    for (auto match = matcher.next(0); match; match = matcher.next(matches.back().whole.end))
        matches.push_back(*match);
    return matches;
}

/// Short texts of few different syntax characters, so that these interact often.
rc::Gen<std::string> markdownText();

} // namespace korvane
