#include "Utilities/Markdown/MarkdownParser.h"

#include "support/MarkdownReference.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

struct MarkdownParserRow {
    std::string_view name;
    std::string_view markdown;
    std::string_view html;
};

constexpr MarkdownParserRow markdownParserRows[] = {
    {"nothing", "", ""},
    {"only white space", " \n\n \t\n", ""},
    {"a paragraph", "Hello", "<p>Hello</p>"},
    {"no escaping", "a < b & \"c\"", "<p>a < b & \"c\"</p>"},
    {"paragraphs", "a\n\nb\n\n\n\nc", "<p>a</p>\n\n<p>b</p>\n\n<p>c</p>"},
    {"three line feeds", "a\n\n\nb", "<p>a</p>\n\n<p>b</p>"},
    {"line feeds inside a paragraph", "a\nb", "<p>a\nb</p>"},
    {"CR LF does not separate paragraphs", "a\r\n\r\nb", "<p>a\r\n\r\nb</p>"},

    {"a header", "# Title", "<h1>Title</h1>"},
    {"all levels", "# a\n## b\n### c\n#### d\n##### e\n###### f",
     "<h1>a</h1>\n<h2>b</h2>\n<h3>c</h3>\n<h4>d</h4>\n<h5>e</h5>\n<h6>f</h6>"},
    {"seven number signs", "####### a", "<p>####### a</p>"},
    {"no space after the sign", "#Title", "<p>#Title</p>"},
    {"a space before the sign", " # Title", "<p># Title</p>"},
    {"a title on a later line", "#\n\nTitle", "<h1>Title</h1>"},
    {"a header in a header", "#\n###### a", "<h1><h6>a</h6></h1>"},
    {"a title of white space", "#  ", "<h1> </h1>"},
    {"signs after the title stay", "# Title #", "<h1>Title #</h1>"},
    {"a header ends at a CR", "# a\r\n# b", "<h1>a</h1>\r\n<h1>b</h1>"},
    {"a header and a paragraph", "# a\n\nb", "<h1>a</h1>\n\n<p>b</p>"},

    {"a rule of hyphens", "---", "<hr>"},
    {"a rule of asterisks", "*****", "<hr>"},
    {"a rule of underscores", "___", "<hr>"},
    {"a rule of mixed characters", "-*_", "<hr>"},
    {"two characters are no rule", "--", "<p>--</p>"},
    {"spaces in a rule", "- - -", "<ul>\n<li>- -</li>\n</ul>"},
    {"a rule and a space", "--- ", "<p>---</p>"},

    {"a quote", "> a\n> b", "<blockquote>\na\nb\n</blockquote>"},
    {"a quote in text", "a\n> b\nc", "<p>a\n<blockquote>\nb\n</blockquote>\nc</p>"},
    {"a lone sign", ">", "<p>></p>"},
    {"no space after the sign of a quote", ">a", "<p>>a</p>"},
    {"a blank line in a quote", "> a\n> \n> b", "<blockquote>\na\n\n<p>b\n</blockquote></p>"},
    {"quotes separated by a blank line", "> a\n\n> b",
     "<blockquote>\na\n</blockquote>\n\n<blockquote>\nb\n</blockquote>"},
    {"an item in a quote", "> - a", "<blockquote>\n<ul>\n<li>a</li>\n</ul>\n</blockquote>"},
    {"no header in a quote", "> # a", "<blockquote>\n# a\n</blockquote>"},

    {"items", "- a\n* b\n+ c", "<ul>\n<li>a</li>\n<li>b</li>\n<li>c</li>\n</ul>"},
    {"numbered items", "1. a\n7. b", "<ol>\n<li>a</li>\n<li>b</li>\n</ol>"},
    {"an unordered item after an ordered one", "1. a\n- b",
     "<ol>\n<li>a</li>\n<ul>\n</ol>\n<li>b</li>\n</ul>"},
    {"an ordered item after an unordered one", "- a\n1. b",
     "<ul>\n<li>a</li>\n<ol>\n</ul>\n<li>b</li>\n</ol>"},
    {"indentation does not nest items", "- a\n\t - b", "<ul>\n<li>a</li>\n<li>b</li>\n</ul>"},
    {"text after a list", "- a\nb", "<ul>\n<li>a</li>\n</ul>\nb"},
    {"items separated by a blank line", "- a\n\n- b", "<ul>\n<li>a</li>\n</ul>\n\n<ul>\n<li>b</li>\n</ul>"},
    {"a marker alone is no item", "- \n1. ", "<p>- \n1.</p>"},
    {"one white space after the number belongs to the marker", "1.  a", "<ol>\n<li> a</li>\n</ol>"},
    {"an item that ends with CR", "- a\r\n- b", "<ul>\n<li>a\r</li>\n<li>b</li>\n</ul>"},

    {"bold", "**a** __b__", "<p><strong>a</strong> <strong>b</strong></p>"},
    {"italic", "*a* _b_", "<p><em>a</em> <em>b</em></p>"},
    {"bold and italic in a line", "**a** and *b*", "<p><strong>a</strong> and <em>b</em></p>"},
    {"bold in italic", "*a **b** c*", "<p><em>a <strong>b</strong> c</em></p>"},
    {"three asterisks", "***a***", "<p><strong><em>a</strong></em></p>"},
    {"five asterisks", "a *****", "<p>a <strong>*</strong></p>"},
    {"struck through", "~~a~~", "<p><del>a</del></p>"},
    {"bold does not span lines", "**a\nb**", "<p>**a\nb**</p>"},
    {"words with underscores", "snake_case_name", "<p>snake<em>case</em>name</p>"},
    {"asterisks between spaces", "2 * 3 * 4", "<p>2 <em> 3 </em> 4</p>"},

    {"inline code", "`a`", "<p><code>a</code></p>"},
    {"inline code over lines", "`a\nb`", "<p><code>a\nb</code></p>"},
    {"code is not protected", "`**a**`", "<p><code><strong>a</strong></code></p>"},
    {"fenced code", "```c\nint i;\n```", "<pre><code class=\"language-c\">int i;\n</code></pre>"},
    {"fenced code without language", "```\na\n```", "<pre><code class=\"language-\">a\n</code></pre>"},
    {"fenced code is not protected", "```\n**a**\n```",
     "<pre><code class=\"language-\"><strong>a</strong>\n</code></pre>"},
    {"an open fence", "```c\na", "<p>```c\na</p>"},
    {"a language of two words", "```c d\na\n```", "<p>``<code>c d\na\n</code>``</p>"},
    {"a language with letters beyond ASCII", "```größe\na```",
     "<pre><code class=\"language-größe\">a</code></pre>"},

    {"a link", "[a](b)", "<p><a href=\"b\">a</a></p>"},
    {"an image", "![a](b)", "<p><img src=\"b\" alt=\"a\"></p>"},
    {"an image without a text", "![](b)", "<p><img src=\"b\" alt=\"\"></p>"},
    {"a link without a text", "[](b)", "<p>[](b)</p>"},
    {"a link without a target", "[a]()", "<p>[a]()</p>"},
    {"an image in a link", "[![a](b)](c)", "<p><a href=\"c\"><img src=\"b\" alt=\"a\"></a></p>"},
    {"underscores in a target", "[a](b_c_d)", "<p><a href=\"b<em>c</em>d\">a</a></p>"},
    {"a dollar sign", "[$2](a)", "<p><a href=\"a\">$2</a></p>"},

    {"two spaces at a line's end", "a  \nb", "<p>a<br>\nb</p>"},
    {"three spaces at a line's end", "a   \nb", "<p>a <br>\nb</p>"},
    {"two spaces at the end", "a  ", "<p>a<br></p>"},
    {"one space at a line's end", "a \nb", "<p>a \nb</p>"},

    {"raw HTML", "<pre>a</pre>\n\n<b>c</b>", "<pre>a</pre>\n\n<p><b>c</b></p>"},
    {"an element whose name begins like a known one", "<picture>", "<picture>"},
};

TEST(MarkdownParser, ConvertsEveryElement) {
    for (const auto& [name, markdown, html] : markdownParserRows) {
        EXPECT_EQ(MarkdownParser::toHTML(markdown), html) << name;
        EXPECT_EQ(htmlByICU(markdown), html) << "the reference, " << name;
    }
}

TEST(MarkdownParser, KeepsBytesThatAreNotUTF8) {
    EXPECT_EQ(MarkdownParser::toHTML("a\xFF **\xC2**"), "<p>a\xFF <strong>\xC2</strong></p>");
}

RC_GTEST_PROP(MarkdownParser, AgreesWithTheRegularExpressions, ()) {
    const auto texts = *rc::gen::container<std::vector<std::string>>(20, markdownText());
    for (const auto& text : texts)
        RC_ASSERT(MarkdownParser::toHTML(text) == htmlByICU(text));
}

/// Texts on which a matcher that tries again from every position takes minutes. The time limit of the test
/// run fails it then; the benchmark measures the exact times.
TEST(MarkdownParser, FinishesInTimeOnHostileText) {
    constexpr std::size_t size = 1'000'000;
    for (const std::string_view piece :
         {"![",   "*",      "**a",   "_",    "__ ", "`",   "``` ",  "```\n",    "~~",
          "~~a",  "[",      "[a](",  "![](", "[]",  "(",   "- ",    "- \n",     "- a\n",
          "1.\n", "1. a\n", "> a\n", "#",    "# ",  "#\n", "# a\n", "*a\n",     "  ",
          " ",    "\n",     "\r",    "a",    "1",   "-",   "*a_b",  "\xE2\x80", "\u2028"}) {
        std::string text;
        while (text.size() < size)
            text += piece;
        EXPECT_LT(MarkdownParser::toHTML(text).size(), 20 * size) << piece;
    }
}

} // namespace
} // namespace korvane
