#include "Views/Tools/MarkdownInline.h"

#include "Utilities/Markdown/MarkdownPatterns.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

namespace korvane {

namespace {

using namespace MarkdownPatterns;

/// A text with a style for each byte. Each pattern that is applied removes its delimiters.
class StyledText {
public:
    explicit StyledText(std::string_view text) : m_text(text), m_matched(text), m_styles(text.size()) {}

    /// The text for the patterns to match, without the delimiters in code.
    std::string_view matched() const { return m_matched; }

    /// Adds `style` to the first group of each match, and removes the rest of the match.
    template <typename Matcher>
    void apply(Matcher matcher, std::uint32_t style) {
        rebuild(matcher, [&](const Match&) { return style; });
    }

    template <typename Matcher>
    void applyLinks(Matcher matcher) {
        rebuild(matcher, [&](const Match& match) {
            m_targets.emplace_back(match.second.in(m_text));
            return static_cast<std::uint32_t>(m_targets.size()) << linkShift;
        });
    }

    /// Hides delimiters in code from the patterns.
    void protectCode() {
        for (std::size_t i = 0; i < m_text.size(); ++i) {
            if ((m_styles[i] & code) != 0 && isDelimiter(m_matched[i]))
                m_matched[i] = ordinary;
        }
    }

    std::vector<InlineRun> runs() const {
        std::vector<InlineRun> runs;
        for (std::size_t start = 0; start < m_text.size();) {
            auto end = start + 1;
            while (end < m_text.size() && m_styles[end] == m_styles[start])
                ++end;
            runs.push_back(run(m_styles[start], m_text.substr(start, end - start)));
            start = end;
        }
        return runs;
    }

    static constexpr std::uint32_t bold = 1, italic = 2, struck = 4, code = 8;

private:
    static constexpr int linkShift = 4; ///< the bits above the styles are the number of the link, from 1
    static constexpr char ordinary = 'x';

    static bool isDelimiter(char character) { return std::string_view("*_~[]()`").contains(character); }

    template <typename Matcher, typename Style>
    void rebuild(Matcher& matcher, Style styleOf) {
        StyledText result({});
        std::size_t copied = 0;
        for (auto match = matcher.next(0); match; match = matcher.next(copied)) {
            result.append(*this, {copied, match->whole.start}, 0);
            result.append(*this, match->first, styleOf(*match));
            copied = match->whole.end;
        }
        if (copied == 0)
            return;
        result.append(*this, {copied, m_text.size()}, 0);
        result.m_targets = std::move(m_targets);
        *this = std::move(result);
    }

    void append(const StyledText& other, Range range, std::uint32_t style) {
        m_text += range.in(other.m_text);
        m_matched += range.in(other.m_matched);
        for (auto i = range.start; i < range.end; ++i)
            m_styles.push_back(other.m_styles[i] | style);
    }

    InlineRun run(std::uint32_t style, std::string text) const {
        const auto link = style >> linkShift;
        return {.text = std::move(text),
                .isBold = (style & bold) != 0,
                .isItalic = (style & italic) != 0,
                .isStruck = (style & struck) != 0,
                .isCode = (style & code) != 0,
                .target = link > 0 ? m_targets[link - 1] : std::string()};
    }

    std::string m_text;
    std::string m_matched;
    std::vector<std::uint32_t> m_styles;
    std::vector<std::string> m_targets{};
};

} // namespace

std::vector<InlineRun> renderInline(std::string_view text) {
    StyledText styled(text);
    styled.apply(InlineCode(styled.matched()), StyledText::code);
    styled.protectCode();
    styled.applyLinks(Link(styled.matched()));
    styled.apply(Either(DoubleDelimited(styled.matched(), "**"), DoubleDelimited(styled.matched(), "__")),
                 StyledText::bold);
    styled.apply(
        Either(SingleDelimited(styled.matched(), '*', "_"), SingleDelimited(styled.matched(), '_', "*")),
        StyledText::italic);
    styled.apply(DoubleDelimited(styled.matched(), "~~"), StyledText::struck);
    return styled.runs();
}

} // namespace korvane
