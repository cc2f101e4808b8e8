#include "Utilities/Markdown/MarkdownParser.h"

#include "Utilities/Markdown/MarkdownPatterns.h"
#include "Utilities/Text/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <ranges>

namespace korvane::MarkdownParser {

namespace {

using namespace MarkdownPatterns;

/// Appends `replacement`, in which `$1` and `$2` stand for the captured groups.
void appendReplacement(std::string& result, std::string_view text, const Match& match,
                       std::string_view replacement) {
    for (auto dollar = replacement.find('$'); dollar != std::string_view::npos;
         dollar = replacement.find('$')) {
        result += replacement.substr(0, dollar);
        result += (replacement[dollar + 1] == '1' ? match.first : match.second).in(text);
        replacement.remove_prefix(dollar + 2);
    }
    result += replacement;
}

/// Replaces every match of `matcher`, which was made for `text`.
template <typename Matcher>
void replaceAll(std::string& text, Matcher matcher, std::string_view replacement) {
    std::string result;
    std::size_t copied = 0;
    for (auto match = matcher.next(0); match; match = matcher.next(copied)) {
        result.append(text, copied, match->whole.start - copied);
        appendReplacement(result, text, *match, replacement);
        copied = match->whole.end;
    }
    if (copied == 0)
        return;
    result.append(text, copied);
    text = std::move(result);
}

/// The pieces of `text` between occurrences of `separator`.
auto split(std::string_view text, std::string_view separator) {
    return std::views::split(text, separator) |
           std::views::transform([](auto piece) { return std::string_view(piece.begin(), piece.end()); });
}

/// Joins lines with line feeds.
class Lines {
public:
    void add(std::string_view a, std::string_view b = {}, std::string_view c = {}) {
        if (m_hasLine)
            m_text += '\n';
        m_hasLine = true;
        m_text.append(a).append(b).append(c);
    }

    std::string take() { return std::move(m_text); }

private:
    std::string m_text;
    bool m_hasLine = false;
};

std::string processHeaders(std::string text) {
    for (std::size_t level = 6; level >= 1; --level)
        replaceAll(text, Header(text, level), fmt::format("<h{0}>$1</h{0}>", level));
    return text;
}

std::string processBlockquotes(std::string_view text) {
    constexpr std::string_view marker = "> ";
    Lines lines;
    bool inQuote = false;
    for (const auto line : split(text, "\n")) {
        const bool isQuote = line.starts_with(marker);
        if (isQuote != inQuote)
            lines.add(isQuote ? "<blockquote>" : "</blockquote>");
        inQuote = isQuote;
        lines.add(isQuote ? line.substr(marker.size()) : line);
    }
    if (inQuote)
        lines.add("</blockquote>");
    return lines.take();
}

enum class ListKind { none, unordered, ordered };

struct ListItem {
    ListKind kind = ListKind::none;
    std::string_view text{};
};

ListItem listItem(std::string_view line) {
    const auto trimmed = trimmingWhitespaces(line);
    if (trimmed.starts_with("- ") || trimmed.starts_with("* ") || trimmed.starts_with("+ "))
        return {ListKind::unordered, trimmed.substr(2)};
    if (const auto end = endOfOrderedMarker(trimmed))
        return {ListKind::ordered, trimmed.substr(*end)};
    return {};
}

std::string_view openingTag(ListKind kind) {
    return kind == ListKind::unordered ? "<ul>" : "<ol>";
}

std::string_view closingTag(ListKind kind) {
    return kind == ListKind::unordered ? "</ul>" : "</ol>";
}

/// If one kind of list directly follows the other, the new one is opened before the old one is closed.
std::string processLists(std::string_view text) {
    Lines lines;
    auto open = ListKind::none;
    for (const auto line : split(text, "\n")) {
        const auto item = listItem(line);
        if (item.kind != open && item.kind != ListKind::none)
            lines.add(openingTag(item.kind));
        if (item.kind != open && open != ListKind::none)
            lines.add(closingTag(open));
        open = item.kind;
        if (item.kind == ListKind::none)
            lines.add(line);
        else
            lines.add("<li>", item.text, "</li>");
    }
    if (open != ListKind::none)
        lines.add(closingTag(open));
    return lines.take();
}

bool isBlockElement(std::string_view block) {
    constexpr auto openings =
        std::to_array<std::string_view>({"<h", "<ul", "<ol", "<li", "<pre", "<blockquote", "<hr", "<p"});
    return std::ranges::any_of(openings, [&](auto opening) { return block.starts_with(opening); });
}

std::string processParagraphs(std::string_view text) {
    std::string result;
    for (const auto piece : split(text, "\n\n")) {
        const auto block = trimmingWhitespacesAndNewlines(piece);
        if (block.empty())
            continue;
        if (!result.empty())
            result += "\n\n";
        if (isBlockElement(block))
            result += block;
        else
            result.append("<p>").append(block).append("</p>");
    }
    return result;
}

} // namespace

std::string toHTML(std::string_view markdown) {
    std::string text(markdown);
    replaceAll(text, FencedCode(text), "<pre><code class=\"language-$1\">$2</code></pre>");
    replaceAll(text, InlineCode(text), "<code>$1</code>");
    text = processHeaders(std::move(text));
    replaceAll(text, HorizontalRule(text), "<hr>");
    text = processBlockquotes(text);
    text = processLists(text);
    replaceAll(text, DoubleDelimited(text, "**"), "<strong>$1</strong>");
    replaceAll(text, DoubleDelimited(text, "__"), "<strong>$1</strong>");
    replaceAll(text, SingleDelimited(text, '*'), "<em>$1</em>");
    replaceAll(text, SingleDelimited(text, '_'), "<em>$1</em>");
    replaceAll(text, DoubleDelimited(text, "~~"), "<del>$1</del>");
    replaceAll(text, Link(text, Link::Kind::image), "<img src=\"$2\" alt=\"$1\">");
    replaceAll(text, Link(text), "<a href=\"$2\">$1</a>");
    replaceAll(text, LineEndSpaces(text), "<br>");
    return processParagraphs(text);
}

} // namespace korvane::MarkdownParser
