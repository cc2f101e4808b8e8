#include "Desktop/Tools/Screens.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Markdown/MarkdownBrowser.h"
#include "Views/Tools/MarkdownPreviewView.h"

#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QTextBrowser>
#include <QTextCursor>
#include <QtTest/QTest>

#include <memory>
#include <string>

namespace korvane {
namespace {

struct MarkdownPreviewScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{markdownPreviewScreen(fakes.services)};
    ScreenDriver screen{*widget};
    MarkdownBrowser& preview = *dynamic_cast<MarkdownBrowser*>(widget->findChild<QTextBrowser*>());

    /// Replaces the text by key presses.
    void write(std::string_view text) {
        screen.editor("Markdown").selectAll();
        QTest::keyClick(&screen.editor("Markdown"), Qt::Key_Delete);
        screen.type("Markdown", text);
    }

    std::string previewText() const {
        return utf8String(preview.document()->toRawText().replace(QChar::ParagraphSeparator, '\n'));
    }
};

TEST_F(MarkdownPreviewScreenTest, ShowsItsTexts) {
    for (const auto* label : {"Markdown Preview", "Preview Markdown with HTML export",
                              "100 words\u2002•\u200240 lines\u2002•\u2002640 characters"})
        EXPECT_TRUE(screen.shows(label)) << label;
    EXPECT_EQ(screen.text("Markdown"), MarkdownPreviewView::sampleDocument);
    EXPECT_EQ(screen.placeholder("Markdown"), "Write your Markdown here...");
    EXPECT_EQ(preview.accessibleName(), "Preview");
    screen.choose("HTML Output");
    EXPECT_TRUE(screen.hasEditor("HTML Output"));
    EXPECT_TRUE(screen.hasButton("Copy HTML Output"));
}

TEST_F(MarkdownPreviewScreenTest, ShowsThePanesOfItsMode) {
    EXPECT_TRUE(screen.hasEditor("Markdown"));
    EXPECT_TRUE(preview.isVisible());
    EXPECT_FALSE(screen.hasEditor("HTML Output"));
    screen.choose("Editor");
    EXPECT_TRUE(screen.hasEditor("Markdown"));
    EXPECT_FALSE(preview.isVisible());
    screen.choose("Preview");
    EXPECT_FALSE(screen.hasEditor("Markdown"));
    EXPECT_TRUE(preview.isVisible());
    screen.choose("HTML Output");
    EXPECT_FALSE(screen.hasEditor("Markdown"));
    EXPECT_FALSE(preview.isVisible());
    EXPECT_TRUE(screen.hasEditor("HTML Output"));
    screen.choose("Side by Side");
    EXPECT_TRUE(screen.hasEditor("Markdown"));
    EXPECT_TRUE(preview.isVisible());
}

TEST_F(MarkdownPreviewScreenTest, KeepsTheFocusInItsPanes) {
    screen.editor("Markdown").setFocus();
    screen.choose("HTML Output");
    EXPECT_EQ(widget->focusWidget(), &screen.editor("HTML Output"));
    screen.choose("Preview");
    EXPECT_EQ(widget->focusWidget(), &preview);
    screen.choose("Editor");
    EXPECT_EQ(widget->focusWidget(), &screen.editor("Markdown"));
}

TEST_F(MarkdownPreviewScreenTest, UpdatesThePreviewAtEveryKeyPress) {
    write("# Title\n\n*b");
    EXPECT_EQ(previewText(), "Title\n*b\n");
    EXPECT_TRUE(screen.shows("3 words\u2002•\u20023 lines\u2002•\u200211 characters"));
    screen.type("Markdown", "*");
    EXPECT_EQ(previewText(), "Title\nb\n");
    screen.choose("HTML Output");
    EXPECT_EQ(screen.text("HTML Output"), "<h1>Title</h1>\n\n<p><em>b</em></p>");
}

TEST_F(MarkdownPreviewScreenTest, CopiesTheHTML) {
    write("**a**");
    screen.choose("HTML Output");
    screen.press("Copy HTML Output");
    EXPECT_EQ(fakes.clipboard.content, "<p><strong>a</strong></p>");
    EXPECT_TRUE(screen.hasButton("Copied! HTML Output"));
}

TEST_F(MarkdownPreviewScreenTest, ShowsNothingForAnEmptyText) {
    write("");
    EXPECT_EQ(previewText(), "");
    EXPECT_TRUE(screen.shows("0 words\u2002•\u20020 lines\u2002•\u20020 characters"));
    screen.choose("HTML Output");
    EXPECT_EQ(screen.text("HTML Output"), "");
}

TEST_F(MarkdownPreviewScreenTest, OpensALinkInTheBrowser) {
    const auto link = preview.document()->find("Korvane");
    ASSERT_FALSE(link.isNull());
    preview.setTextCursor(link);
    preview.ensureCursorVisible();
    settle();
    auto start = link;
    start.setPosition(link.selectionStart());
    QTest::mouseClick(preview.viewport(), Qt::LeftButton, {},
                      preview.cursorRect(start).center() + QPoint(4, 0));
    EXPECT_EQ(fakes.browser.opened, std::vector<std::string>{"https://korvane.org"});
}

TEST_F(MarkdownPreviewScreenTest, UndoDoesNotRemoveTheSample) {
    EXPECT_EQ(screen.editor("Markdown").selection(), TextSelection());
    screen.undo("Markdown");
    EXPECT_EQ(screen.text("Markdown"), MarkdownPreviewView::sampleDocument);
}

} // namespace
} // namespace korvane
