#include "Views/Tools/MarkdownPreviewView.h"

#include "Views/Tools/MarkdownBlock.h"
#include "Views/Tools/MarkdownInline.h"
#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>
#include <vector>

namespace korvane {
namespace {

using ViewMode = MarkdownPreviewView::ViewMode;
using namespace MarkdownBlocks;

TEST(MarkdownPreviewView, StartsWithTheSampleSideBySide) {
    const MarkdownPreviewView view;
    EXPECT_EQ(view.markdownText, MarkdownPreviewView::sampleDocument);
    EXPECT_EQ(view.viewMode, ViewMode::sideBySide);
}

TEST(MarkdownPreviewView, ModesHaveTheirNames) {
    ASSERT_EQ(allCases<ViewMode>.size(), 4U);
    EXPECT_EQ(rawValue(ViewMode::sideBySide), "Side by Side");
    EXPECT_EQ(rawValue(ViewMode::editorOnly), "Editor");
    EXPECT_EQ(rawValue(ViewMode::previewOnly), "Preview");
    EXPECT_EQ(rawValue(ViewMode::htmlOutput), "HTML Output");
}

TEST(MarkdownPreviewView, ShowsThePanesOfItsMode) {
    struct Row {
        ViewMode mode;
        bool editor;
        bool preview;
        bool html;
    };

    constexpr Row rows[] = {
        {ViewMode::sideBySide, true, true, false},
        {ViewMode::editorOnly, true, false, false},
        {ViewMode::previewOnly, false, true, false},
        {ViewMode::htmlOutput, false, false, true},
    };
    MarkdownPreviewView view;
    for (const auto& [mode, editor, preview, html] : rows) {
        perform(view, &MarkdownPreviewView::setViewMode, mode);
        EXPECT_EQ(view.showsEditor(), editor) << rawValue(mode);
        EXPECT_EQ(view.showsPreview(), preview) << rawValue(mode);
        EXPECT_EQ(view.showsHTML(), html) << rawValue(mode);
    }
}

TEST(MarkdownPreviewView, TheSampleShowsEveryConstruct) {
    EXPECT_EQ(MarkdownPreviewView::sampleDocument.size(), 640U);
    const auto blocks = parseBlocks(MarkdownPreviewView::sampleDocument);
    const std::vector<MarkdownBlock> expected = {
        Header{1, "Welcome to Markdown Preview"},
        Paragraph{"This is a **live preview** of your Markdown."},
        Header{2, "Features"},
        UnorderedList{{"Real-time preview", "Syntax highlighting", "HTML export"}},
        Header{3, "Code Example"},
        Paragraph{"Call the function `greet()` to print a greeting:"},
        CodeBlock{"javascript", "function greet(name) {\n  console.log(\"Hello, \" + name + \"!\");\n}"},
        Header{3, "Formatting"},
        UnorderedList{{"**Bold** with double asterisks", "*Italic* with single asterisks",
                       "~~Strikethrough~~ with double tildes"}},
        Header{3, "Links and Images"},
        Paragraph{"Visit the project: [Korvane](https://korvane.org)"},
        Blockquote{"This is a blockquote.\nIt can span multiple lines."},
        HorizontalRule{},
        OrderedList{{"First ordered item", "Second ordered item", "Third ordered item"}},
        Paragraph{"That's all for now!"},
    };
    EXPECT_EQ(blocks, expected);
    EXPECT_EQ(renderInline("Visit the project: [Korvane](https://korvane.org)").back(),
              (InlineRun{.text = "Korvane", .target = "https://korvane.org"}));
}

TEST(MarkdownPreviewView, ConvertsTheTextToHTML) {
    MarkdownPreviewView view;
    perform(view, &MarkdownPreviewView::setMarkdownText, "# a\n\n*b*");
    EXPECT_EQ(view.html, "") << "it is not visible";
    perform(view, &MarkdownPreviewView::setViewMode, ViewMode::htmlOutput);
    EXPECT_EQ(view.html, "<h1>a</h1>\n\n<p><em>b</em></p>");
    perform(view, &MarkdownPreviewView::setMarkdownText, "b");
    EXPECT_EQ(view.html, "<p>b</p>");
    perform(view, &MarkdownPreviewView::setMarkdownText, "");
    EXPECT_EQ(view.html, "");
    EXPECT_EQ(parseBlocks(view.markdownText.string()), std::vector<MarkdownBlock>());
}

TEST(MarkdownPreviewView, CountsWordsLinesAndCharacters) {
    struct Row {
        std::string text;
        std::string counts;
    };

    const std::vector<Row> rows = {
        {"", "0 words\u2002•\u20020 lines\u2002•\u20020 characters"},
        {"a", "1 words\u2002•\u20021 lines\u2002•\u20021 characters"},
        {"two words\n", "2 words\u2002•\u20022 lines\u2002•\u200210 characters"},
        {"a\r\nb", "2 words\u2002•\u20022 lines\u2002•\u20023 characters"},
        {"👩‍👩‍👧 e\u0301", "2 words\u2002•\u20021 lines\u2002•\u20023 characters"},
        {std::string(MarkdownPreviewView::sampleDocument),
         "100 words\u2002•\u200240 lines\u2002•\u2002640 characters"},
    };
    for (const auto& [text, counts] : rows)
        EXPECT_EQ(MarkdownPreviewView{.markdownText = text}.counts(), counts);
}

TEST(MarkdownPreviewView, OpensWebAndMailAddressesOnly) {
    struct Row {
        std::string target;
        bool isOpened;
    };

    const std::vector<Row> rows = {
        {"https://example.org/a?b#c", true},
        {"http://example.org", true},
        {"HTTPS://example.org", true},
        {"mailto:a@example.org", true},
        {"file:///etc/passwd", false},
        {"javascript:alert(1)", false},
        {"example.org", false},
        {"../other.md", false},
        {"#part", false},
        {"https:", false},
        {"", false},
    };
    for (const auto& [target, isOpened] : rows) {
        FakeServices fakes;
        MarkdownPreviewView view;
        view.openLink(target, {fakes.services, {}});
        EXPECT_EQ(fakes.browser.opened, isOpened ? std::vector{target} : std::vector<std::string>())
            << target;
    }
}

} // namespace
} // namespace korvane
