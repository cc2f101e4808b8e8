/// Markdown as ICU's own regular expressions see it: slow, obvious, and the measure of what is matched by
/// hand.
#pragma once

#include "Utilities/Markdown/MarkdownPatterns.h"

#include <rapidcheck.h>

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// All matches of `pattern` in `text`, which is UTF-8. Of the groups, those that took part count.
std::vector<MarkdownPatterns::Match> matchesOfICU(std::string_view pattern, std::string_view text);

/// `text` with all matches of `pattern` replaced.
std::string replacedByICU(std::string_view pattern, std::string_view replacement, std::string_view text);

/// What Markdown becomes by the same passes as `MarkdownParser::toHTML`, each as it is told.
std::string htmlByICU(std::string_view markdown);

/// All matches of a matcher that is made by hand.
template <typename Matcher>
std::vector<MarkdownPatterns::Match> matchesOf(Matcher matcher) {
    std::vector<MarkdownPatterns::Match> matches;
    for (auto match = matcher.next(0); match; match = matcher.next(matches.back().whole.end))
        matches.push_back(*match);
    return matches;
}

/// Short texts of the characters that mean something, each text of few of them, so that they meet.
rc::Gen<std::string> markdownText();

} // namespace korvane
