/// The inline styling of the visual Markdown preview: which characters of a paragraph or an item are shown,
/// and how. Delimiters and link targets are not shown.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A stretch of text that is styled alike.
struct InlineRun {
    std::string text{};
    bool isBold = false;
    bool isItalic = false;
    bool isStruck = false;
    bool isCode = false;
    std::string target{}; ///< where the link leads that the text belongs to; empty outside links

    bool operator==(const InlineRun&) const = default;
};

/// The runs of `text`, none of them empty, each styled differently from its neighbours or of another link.
/// Styles nest: a run has all
/// that reach over it. What looks like a delimiter inside inline code or a link's target is none. Images are
/// the links they contain. The time grows with the text and not with its square.
std::vector<InlineRun> renderInline(std::string_view text);

} // namespace korvane
