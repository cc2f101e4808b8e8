#include "Views/Tools/MarkdownPreviewView.h"

#include "Utilities/Markdown/MarkdownParser.h"
#include "Utilities/Markdown/MarkdownPatterns.h"
#include "Utilities/Text/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace korvane {

namespace {

std::size_t linesIn(std::string_view text) {
    std::size_t lines = text.empty() ? 0 : 1;
    for (auto end = MarkdownPatterns::lineBreakFrom(text, 0); end.start < text.size();
         end = MarkdownPatterns::lineBreakFrom(text, end.end))
        ++lines;
    return lines;
}

bool isWebOrMailAddress(std::string_view target) {
    constexpr auto schemes = std::to_array<std::string_view>({"http://", "https://", "mailto:"});
    return std::ranges::any_of(schemes, [&](std::string_view scheme) {
        return std::ranges::equal(target.substr(0, scheme.size()), scheme, [](char a, char b) {
            return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
        });
    });
}

} // namespace

std::string MarkdownPreviewView::html() const {
    return MarkdownParser::toHTML(markdownText);
}

std::string MarkdownPreviewView::counts() const {
    return fmt::format("{} words\u2002•\u2002{} lines\u2002•\u2002{} characters", wordCount(markdownText),
                       linesIn(markdownText), characterCount(markdownText));
}

void MarkdownPreviewView::openLink(const std::string& target,
                                   const Context<MarkdownPreviewView>& context) const {
    if (isWebOrMailAddress(target))
        context.services.browser.open(target);
}

} // namespace korvane
