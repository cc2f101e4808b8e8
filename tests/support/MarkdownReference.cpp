#include "support/MarkdownReference.h"

#include "Utilities/Text/Text.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>

namespace korvane {

namespace {

icu::UnicodeString unicodeString(std::string_view text) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

std::string utf8(const icu::UnicodeString& string) {
    std::string text;
    return string.toUTF8String(text);
}

void check(UErrorCode status) {
    if (U_FAILURE(status))
        throw std::runtime_error(u_errorName(status));
}

std::unique_ptr<icu::RegexMatcher> matcherFor(std::string_view pattern, const icu::UnicodeString& text) {
    static std::map<std::string, std::unique_ptr<icu::RegexPattern>, std::less<>> compiled;
    UErrorCode status = U_ZERO_ERROR;
    auto known = compiled.find(pattern);
    if (known == compiled.end()) {
        UParseError error{};
        known = compiled
                    .emplace(pattern, std::unique_ptr<icu::RegexPattern>(icu::RegexPattern::compile(
                                          unicodeString(pattern), 0, error, status)))
                    .first;
    }
    check(status);
    std::unique_ptr<icu::RegexMatcher> matcher(known->second->matcher(text, status));
    check(status);
    return matcher;
}

std::vector<std::string> pieces(std::string_view text, std::string_view separator) {
    std::vector<std::string> all;
    std::size_t start = 0;
    for (auto end = text.find(separator); end != std::string_view::npos; end = text.find(separator, start)) {
        all.emplace_back(text.substr(start, end - start));
        start = end + separator.size();
    }
    all.emplace_back(text.substr(start));
    return all;
}

std::string joined(const std::vector<std::string>& all, std::string_view separator) {
    std::string text;
    for (std::size_t i = 0; i < all.size(); ++i)
        text.append(i == 0 ? std::string_view() : separator).append(all[i]);
    return text;
}

std::string blockquotes(std::string_view text) {
    std::vector<std::string> lines;
    bool isOpen = false;
    for (const auto& line : pieces(text, "\n")) {
        if (line.starts_with("> ")) {
            if (!isOpen)
                lines.emplace_back("<blockquote>");
            isOpen = true;
            lines.push_back(line.substr(2));
        } else {
            if (isOpen)
                lines.emplace_back("</blockquote>");
            isOpen = false;
            lines.push_back(line);
        }
    }
    if (isOpen)
        lines.emplace_back("</blockquote>");
    return joined(lines, "\n");
}

std::string lists(std::string_view text) {
    std::vector<std::string> lines;
    bool inUnordered = false;
    bool inOrdered = false;
    const auto set = [&](bool& flag, bool value, const char* tag) {
        if (flag != value)
            lines.emplace_back(tag);
        flag = value;
    };
    for (const auto& line : pieces(text, "\n")) {
        const std::string trimmed(trimmingWhitespaces(line));
        const auto marker = matchesOfICU(R"(^\d+\.\s)", trimmed);
        if (trimmed.starts_with("- ") || trimmed.starts_with("* ") || trimmed.starts_with("+ ")) {
            set(inUnordered, true, "<ul>");
            set(inOrdered, false, "</ol>");
            lines.push_back("<li>" + trimmed.substr(2) + "</li>");
        } else if (!marker.empty()) {
            set(inOrdered, true, "<ol>");
            set(inUnordered, false, "</ul>");
            lines.push_back("<li>" + trimmed.substr(marker.front().whole.end) + "</li>");
        } else {
            set(inUnordered, false, "</ul>");
            set(inOrdered, false, "</ol>");
            lines.push_back(line);
        }
    }
    set(inUnordered, false, "</ul>");
    set(inOrdered, false, "</ol>");
    return joined(lines, "\n");
}

std::string paragraphs(std::string_view text) {
    std::vector<std::string> kept;
    for (const auto& piece : pieces(text, "\n\n")) {
        const std::string block(trimmingWhitespacesAndNewlines(piece));
        bool isElement = false;
        for (const auto* opening : {"<h", "<ul", "<ol", "<li", "<pre", "<blockquote", "<hr", "<p"})
            isElement = isElement || block.starts_with(opening);
        if (isElement)
            kept.push_back(block);
        else if (!block.empty())
            kept.push_back("<p>" + block + "</p>");
    }
    return joined(kept, "\n\n");
}

} // namespace

std::vector<MarkdownPatterns::Match> matchesOfICU(std::string_view pattern, std::string_view text) {
    const auto string = unicodeString(text);
    const auto matcher = matcherFor(pattern, string);
    UErrorCode status = U_ZERO_ERROR;
    const auto offset = [&](std::int32_t index) { return utf8(string.tempSubString(0, index)).size(); };
    std::vector<MarkdownPatterns::Match> matches;
    while (matcher->find(status)) {
        std::vector<MarkdownPatterns::Range> groups;
        for (std::int32_t group = 0; group <= matcher->groupCount(); ++group) {
            if (matcher->start(group, status) >= 0)
                groups.push_back(
                    {offset(matcher->start(group, status)), offset(matcher->end(group, status))});
        }
        groups.resize(3);
        matches.push_back({groups[0], groups[1], groups[2]});
    }
    check(status);
    return matches;
}

std::string replacedByICU(std::string_view pattern, std::string_view replacement, std::string_view text) {
    const auto string = unicodeString(text);
    const auto matcher = matcherFor(pattern, string);
    UErrorCode status = U_ZERO_ERROR;
    auto replaced = utf8(matcher->replaceAll(unicodeString(replacement), status));
    check(status);
    return replaced;
}

std::string htmlByICU(std::string_view markdown) {
    auto text = replacedByICU(R"(```(\w*)\n([\s\S]*?)```)",
                              R"(<pre><code class="language-$1">$2</code></pre>)", markdown);
    text = replacedByICU("`([^`]+)`", "<code>$1</code>", text);
    for (int level = 6; level >= 1; --level) {
        const auto number = std::to_string(level);
        text = replacedByICU("(?m)^" + std::string(static_cast<std::size_t>(level), '#') + R"(\s+(.+)$)",
                             "<h" + number + ">$1</h" + number + ">", text);
    }
    text = lists(blockquotes(replacedByICU("(?m)^([-*_]){3,}$", "<hr>", text)));
    text = replacedByICU(R"(\*\*(.+?)\*\*)", "<strong>$1</strong>", text);
    text = replacedByICU("__(.+?)__", "<strong>$1</strong>", text);
    text = replacedByICU(R"((?<!\*)\*(?!\*)(.+?)(?<!\*)\*(?!\*))", "<em>$1</em>", text);
    text = replacedByICU("(?<!_)_(?!_)(.+?)(?<!_)_(?!_)", "<em>$1</em>", text);
    text = replacedByICU("~~(.+?)~~", "<del>$1</del>", text);
    text = replacedByICU(R"(!\[([^\]]*)]\(([^)]+)\))", R"(<img src="$2" alt="$1">)", text);
    text = replacedByICU(R"(\[([^\]]+)\]\(([^)]+)\))", R"(<a href="$2">$1</a>)", text);
    return paragraphs(replacedByICU("(?m)  $", "<br>", text));
}

rc::Gen<std::string> markdownText() {
    const auto token = rc::gen::element<std::string>(
        "*", "**", "_", "__", "~~", "~", "`", "```", "[", "]", "(", ")", "![", "](", "#", "##", "######", "-",
        "- ", "---", "+ ", "> ", ">", "1. ", "1.", "0", ".", " ", "  ", "\t", "\n", "\n\n", "\r", "\r\n",
        "\v", "\f", "\u0085", "\u2028", "\u2029", "\u00A0", "\u3000", "\u200D", "a", "b c", "ä", "e\u0301",
        "\u0663", "\u203F", "😀", "<h", "<p", "$1", "\\");
    return rc::gen::mapcat(
        rc::gen::nonEmpty(rc::gen::resize(6, rc::gen::container<std::vector<std::string>>(token))),
        [](const std::vector<std::string>& few) {
            return rc::gen::map(
                rc::gen::resize(24, rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(few))),
                [](const std::vector<std::string>& tokens) { return joined(tokens, ""); });
        });
}

} // namespace korvane
