#include "Desktop/Tools/Markdown/MarkdownBrowser.h"
#include "Desktop/Tools/Markdown/MarkdownDocument.h"

#include "Desktop/Look/Theme.h"

#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QImage>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QToolTip>
#include <QtTest/QTest>

#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

struct MarkdownBrowserTest : testing::Test {
    Rope markdown{};
    std::vector<std::string> opened{};
    FakeBackground background{};
    MarkdownBrowser browser{[this]() -> const Rope& { return markdown; }, background};

    MarkdownBrowserTest() {
        browser.onLink = [this](std::string target) { opened.push_back(std::move(target)); };
    }

    void show(Rope text) {
        markdown = std::move(text);
        browser.setPalette(Theme::palette());
        browser.resize(400, 300);
        browser.show();
        browser.refresh();
        settle();
    }

    /// The middle of the first character of `word`.
    QPoint placeOf(const QString& word) {
        auto cursor = browser.document()->find(word);
        cursor.setPosition(cursor.selectionStart());
        return browser.cursorRect(cursor).center() + QPoint(3, 0);
    }
};

TEST_F(MarkdownBrowserTest, ReportsClicksOnLinks) {
    show("Visit [the page](https://example.org/a?b=c&d) or [that](mailto:a@example.org).");
    QTest::mouseClick(browser.viewport(), Qt::LeftButton, {}, placeOf("Visit"));
    EXPECT_EQ(opened, std::vector<std::string>());
    QTest::mouseClick(browser.viewport(), Qt::LeftButton, {}, placeOf("page"));
    QTest::mouseClick(browser.viewport(), Qt::LeftButton, {}, placeOf("that"));
    EXPECT_EQ(opened, (std::vector<std::string>{"https://example.org/a?b=c&d", "mailto:a@example.org"}));
    EXPECT_EQ(browser.content().row(0)->runs.size(), 5U) << "clicking a link keeps the content";
}

TEST_F(MarkdownBrowserTest, ToolTipsShowLinkTargets) {
    show("[page](https://example.org/<b>?a&b) else");
    const auto toolTipAt = [this](QPoint place) {
        QHelpEvent event(QEvent::ToolTip, place, browser.viewport()->mapToGlobal(place));
        QApplication::sendEvent(browser.viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(toolTipAt(placeOf("else")), "");
    EXPECT_EQ(toolTipAt(placeOf("page")), "<p>https://example.org/&lt;b&gt;?a&amp;b</p>");
}

TEST_F(MarkdownBrowserTest, FollowsLinksByKeyboard) {
    show("[one](https://example.org/1)\n\n[two](https://example.org/2)");
    browser.setFocus();
    QTest::keyClick(&browser, Qt::Key_Tab);
    QTest::keyClick(&browser, Qt::Key_Return);
    QTest::keyClick(&browser, Qt::Key_Tab);
    QTest::keyClick(&browser, Qt::Key_Return);
    EXPECT_EQ(opened, (std::vector<std::string>{"https://example.org/1", "https://example.org/2"}));
}

TEST_F(MarkdownBrowserTest, CopiesTheSelectionAsPlainText) {
    show("# Title\n\n- **one** `two`\n\n```c\nint i;\n```");
    browser.selectAll();
    QTest::keySequence(&browser, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "Title\none two\nc\nint i;\n");
    EXPECT_FALSE(QApplication::clipboard()->mimeData()->hasHtml());
}

TEST_F(MarkdownBrowserTest, RefreshesOnlyWhileVisible) {
    show("a");
    browser.hide();
    markdown = "b";
    browser.refresh();
    EXPECT_EQ(browser.document()->firstBlock().text(), "a");
    browser.show();
    EXPECT_EQ(browser.document()->firstBlock().text(), "b");
}

TEST_F(MarkdownBrowserTest, KeepsItsScrollPositionWhenTheTextChanges) {
    std::string text;
    for (int i = 0; i < 200; ++i)
        text += "Paragraph " + std::to_string(i) + ".\n\n";
    show(text);
    browser.verticalScrollBar()->setValue(1000);
    markdown += Rope("more");
    browser.refresh();
    settle();
    EXPECT_EQ(browser.verticalScrollBar()->value(), 1000);
}

TEST_F(MarkdownBrowserTest, PaintsOneBoxBehindAllLinesOfCode) {
    show("```\na\n\nb\n```\n\nafter");
    const auto image = browser.grab().toImage();
    const auto margin = static_cast<int>(browser.document()->documentMargin());
    const auto top = margin;
    const auto height = 2 * Theme::px(proseCodePadding) + 3 * Theme::lineHeight(Theme::TextStyle::codeSmall);
    const auto inside = image.pixelColor(margin + 4, top + height / 2);
    const auto outside = image.pixelColor(margin / 2, top + height / 2);
    EXPECT_NE(inside, outside);
    for (int y = top + 8; y < top + height - 8; ++y)
        ASSERT_EQ(image.pixelColor(margin + 4, y), inside) << y;
    EXPECT_EQ(image.pixelColor(margin + 40, top + height - 2), inside);
    EXPECT_EQ(image.pixelColor(margin + 40, top + height + 2), outside);
    EXPECT_EQ(image.pixelColor(margin + 40, top - 2), outside);
}

TEST_F(MarkdownBrowserTest, PaintsAMarkerBesideEachItem) {
    show("- a");
    const auto image = browser.grab().toImage();
    const auto margin = static_cast<int>(browser.document()->documentMargin());
    const auto empty = image.pixelColor(1, margin);
    bool isMarked = false;
    for (int y = margin; y < margin + 20; ++y) {
        for (int x = margin; x < margin + 15; ++x)
            isMarked = isMarked || image.pixelColor(x, y) != empty;
    }
    EXPECT_TRUE(isMarked);
    EXPECT_EQ(browser.document()->firstBlock().text(), "a") << "the marker is not part of the text";
}

TEST_F(MarkdownBrowserTest, UsesTheColoursOfTheTheme) {
    show("a");
    const auto colour = [this] {
        return browser.document()->firstBlock().begin().fragment().charFormat().foreground().color();
    };
    const auto light = colour();
    Theme::setScheme(Theme::Scheme::dark);
    browser.setPalette(Theme::palette());
    EXPECT_NE(colour(), light);
    EXPECT_EQ(browser.document()->firstBlock().text(), "a");
    Theme::setScheme(Theme::Scheme::light);
    browser.setPalette(Theme::palette());
    EXPECT_EQ(colour(), light);
}

} // namespace
} // namespace korvane
