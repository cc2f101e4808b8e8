/// The inline styles of the visual Markdown preview: the visible characters of a paragraph or an item, and
/// their styles. Delimiters and link targets are not visible.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A part of a text with one style.
struct InlineRun {
    std::string text{};
    bool isBold = false;
    bool isItalic = false;
    bool isStruck = false;
    bool isCode = false;
    std::string target{}; ///< of the link that the text belongs to; empty outside links

    bool operator==(const InlineRun&) const = default;
};

/// The runs of `text`. None is empty, and neighbours differ in style or link. Styles nest: a run has all that
/// enclose it. Inside inline code and link targets, delimiters are ordinary characters. Images become the
/// links in them. Takes linear time.
std::vector<InlineRun> renderInline(std::string_view text);

} // namespace korvane
