#include "Desktop/Tools/Markdown/MarkdownBrowser.h"

#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextZoom.h"

#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

#include <memory>
#include <string>
#include <utility>

namespace korvane {
namespace {

constexpr int manyItems = 10'000;

std::string items(int count, const std::string& word = "item") {
    std::string markdown;
    for (int i = 0; i < count; ++i)
        markdown += "- " + word + " " + std::to_string(i) + "\n";
    return markdown;
}

/// A browser with a text that is too large to be shown at once.
struct MarkdownFillingTest : testing::Test {
    Rope markdown{};
    FakeBackground background{};
    std::unique_ptr<MarkdownBrowser> browser =
        std::make_unique<MarkdownBrowser>([this]() -> const Rope& { return markdown; }, background);

    MarkdownFillingTest() {
        browser->resize(400, 300);
        browser->show();
        settle();
    }

    void show(std::string text) {
        markdown = Rope(std::move(text));
        browser->refresh();
    }

    /// Runs what is in the background, and the event loop until all is shown.
    void finish() {
        for (int turn = 0; turn < 10'000 && !browser->isUpToDate(); ++turn) {
            background.runAll();
            settle();
        }
        ASSERT_TRUE(browser->isUpToDate());
    }

    QScrollBar& scrollBar() { return *browser->verticalScrollBar(); }

    std::string text(int block) const {
        return browser->document()->findBlockByNumber(block).text().toStdString();
    }

    /// The text of the first visible row, and how much of it is above the view.
    std::pair<std::string, int> firstVisible() {
        const auto& layout = browser->content().layout();
        const auto block = layout.blockAt(scrollBar().value());
        return {block.text().toStdString(), scrollBar().value() - static_cast<int>(layout.startOf(block))};
    }
};

TEST_F(MarkdownFillingTest, ParsesALargeTextInTheBackgroundAndShowsItInParts) {
    show(items(manyItems));
    EXPECT_EQ(background.pendingCount(), 1U);
    EXPECT_EQ(browser->document()->blockCount(), 1);
    background.runAll();
    EXPECT_EQ(text(0), "item 0") << "the first rows are shown at once";
    EXPECT_GT(browser->document()->blockCount(), 50);
    EXPECT_LT(browser->document()->blockCount(), 1000);
    EXPECT_FALSE(browser->isUpToDate());
    finish();
    EXPECT_EQ(browser->document()->blockCount(), manyItems + 1);
    EXPECT_EQ(text(manyItems - 1), "item 9999");
    EXPECT_EQ(scrollBar().value(), 0);
}

TEST_F(MarkdownFillingTest, ShowsASmallTextAtOnce) {
    show(items(10));
    EXPECT_EQ(background.pendingCount(), 0U);
    EXPECT_TRUE(browser->isUpToDate());
    EXPECT_EQ(text(9), "item 9");
}

TEST_F(MarkdownFillingTest, FinishesItsWorkBeforeItBeginsWithTheNewestText) {
    show(items(manyItems, "first"));
    show(items(manyItems, "second"));
    show(items(manyItems, "third"));
    EXPECT_EQ(background.pendingCount(), 1U) << "one piece of work at a time";
    background.runAll();
    EXPECT_EQ(text(0), "third 0");
    finish();
    EXPECT_EQ(text(manyItems - 1), "third 9999");
    EXPECT_EQ(browser->content().rows()->size(), static_cast<std::size_t>(manyItems));
}

TEST_F(MarkdownFillingTest, ASmallTextReplacesWorkInTheBackground) {
    show(items(manyItems));
    show("small");
    EXPECT_TRUE(browser->isUpToDate());
    EXPECT_EQ(text(0), "small");
    background.runAll();
    settle();
    EXPECT_EQ(text(0), "small");
    EXPECT_EQ(browser->document()->blockCount(), 2);
}

TEST_F(MarkdownFillingTest, ANewTextDuringTheFillingWins) {
    show(items(manyItems));
    background.runAll();
    settle();
    ASSERT_FALSE(browser->isUpToDate());
    auto changed = items(manyItems);
    changed.insert(changed.find("item 5000"), "new ");
    changed.insert(changed.find("item 10\n"), "new ");
    show(changed);
    finish();
    EXPECT_EQ(text(10), "new item 10");
    EXPECT_EQ(text(5000), "new item 5000");
    EXPECT_EQ(text(5001), "item 5001");
    EXPECT_EQ(browser->document()->blockCount(), manyItems + 1);
    show("end");
    finish();
    EXPECT_EQ(browser->document()->toPlainText(), "end\n");
}

TEST_F(MarkdownFillingTest, ContinuesWhenItIsShownAgain) {
    show(items(manyItems));
    background.runAll();
    browser->hide();
    settle();
    const auto count = browser->document()->blockCount();
    for (int turn = 0; turn < 10; ++turn)
        settle();
    EXPECT_EQ(browser->document()->blockCount(), count) << "nothing is filled while it is hidden";
    browser->show();
    finish();
    EXPECT_EQ(browser->document()->blockCount(), manyItems + 1);
}

TEST_F(MarkdownFillingTest, AResultThatComesWhileItIsHiddenIsShownLater) {
    show(items(manyItems));
    browser->hide();
    background.runAll();
    EXPECT_EQ(browser->document()->blockCount(), 1);
    browser->show();
    finish();
    EXPECT_EQ(text(manyItems - 1), "item 9999");
}

TEST_F(MarkdownFillingTest, MayBeDestroyedDuringTheWork) {
    show(items(manyItems));
    browser.reset();
    background.runAll();
    settle();
    EXPECT_EQ(background.pendingCount(), 0U);
}

TEST_F(MarkdownFillingTest, MayBeDestroyedDuringTheFilling) {
    show(items(manyItems));
    background.runAll();
    const std::weak_ptr rows = browser->content().rows();
    browser.reset();
    EXPECT_EQ(background.pendingCount(), 1U) << "the rows are destroyed in the background";
    background.runAll();
    settle();
    EXPECT_TRUE(rows.expired());
}

TEST_F(MarkdownFillingTest, KeepsItsPlaceWhileRowsAreAdded) {
    show(items(manyItems));
    background.runAll();
    ASSERT_GT(scrollBar().maximum(), 1000);
    scrollBar().setValue(1003);
    const auto before = firstVisible();
    finish();
    EXPECT_EQ(scrollBar().value(), 1003);
    EXPECT_EQ(firstVisible(), before);
}

TEST_F(MarkdownFillingTest, KeepsItsPlaceWhenRowsAboveChange) {
    show(items(manyItems));
    finish();
    scrollBar().setValue(scrollBar().maximum() / 2);
    const auto before = firstVisible();
    std::string longer = "A paragraph that was not there before.\n\n";
    for (int i = 0; i < 2000; ++i)
        longer += "# Another header\n";
    show(longer + items(manyItems));
    finish();
    EXPECT_EQ(firstVisible(), before);
}

TEST_F(MarkdownFillingTest, KeepsItsPlaceWhenHeightsBecomeKnown) {
    std::string paragraphs;
    for (int i = 0; i < 3000; ++i)
        paragraphs +=
            "Paragraph " + std::to_string(i) + ": WWWWWWWWWW WWWWWWWWWW WWWWWWWWW WWWWWWWWW WWWWWWW\n\n";
    show(paragraphs);
    finish();
    scrollBar().setValue(scrollBar().maximum() / 2);
    const auto place = firstVisible().first;
    browser->resize(300, 300);
    settle();
    EXPECT_EQ(firstVisible().first, place);
    const auto& layout = browser->content().layout();
    for (int turn = 0; turn < 100; ++turn) {
        const auto block = layout.blockAt(scrollBar().value());
        const auto before = layout.startOf(block) - scrollBar().value();
        scrollBar().setValue(scrollBar().value() - 20);
        ASSERT_EQ(layout.startOf(block) - scrollBar().value(), before + 20) << turn;
    }
}

TEST_F(MarkdownFillingTest, ChangesTheThemeDuringTheFilling) {
    show(items(manyItems));
    background.runAll();
    settle();
    const auto colour = [this](int block) {
        const auto line = browser->document()->findBlockByNumber(block);
        return line.begin().fragment().charFormat().foreground().color();
    };
    const auto light = colour(0);
    Theme::setScheme(Theme::Scheme::dark);
    browser->setPalette(Theme::palette());
    EXPECT_NE(colour(0), light);
    finish();
    const auto dark = colour(0);
    for (int block = 0; block < manyItems; ++block)
        ASSERT_EQ(colour(block), dark) << block;
    EXPECT_EQ(browser->document()->blockCount(), manyItems + 1);
    Theme::setScheme(Theme::Scheme::light);
    browser->setPalette(Theme::palette());
    finish();
    EXPECT_EQ(colour(manyItems - 1), light);
}

TEST_F(MarkdownFillingTest, ZoomsTheVisibleRowsFirstAndStaysThere) {
    show(items(manyItems));
    finish();
    scrollBar().setValue(scrollBar().maximum() / 2);
    const auto before = firstVisible().first;
    const auto heightOfVisible = [this] {
        const auto block = browser->content().layout().blockAt(scrollBar().value());
        return block.blockFormat().lineHeight();
    };
    const auto height = heightOfVisible();
    TextZoom::zoomIn();
    TextZoom::zoomIn();
    EXPECT_GT(heightOfVisible(), height);
    finish();
    EXPECT_EQ(firstVisible().first, before);
    TextZoom::zoomOut();
    TextZoom::zoomOut();
    finish();
    EXPECT_EQ(firstVisible().first, before);
    EXPECT_EQ(heightOfVisible(), height);
}

TEST_F(MarkdownFillingTest, KeepsTheSelectionWhileRowsAreAdded) {
    show(items(manyItems));
    background.runAll();
    browser->setTextCursor(browser->document()->find("item 20"));
    finish();
    EXPECT_EQ(browser->textCursor().selectedText(), "item 20");
}

} // namespace
} // namespace korvane
