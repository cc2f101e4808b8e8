#include "Desktop/Tools/Screens.h"

#include "Desktop/Kit/RowList.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/TextArea.h"
#include "Views/Tools/TextDiffView.h"

#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QtTest/QTest>

#include <memory>
#include <string>
#include <vector>

namespace korvane {
namespace {

struct TextDiffScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{textDiffScreen(fakes.services)};
    ScreenDriver screen{*widget};

    void enter(std::string_view left, std::string_view right) {
        fakes.clipboard.content = left;
        screen.press("Paste Original Text");
        fakes.clipboard.content = right;
        screen.press("Paste Modified Text");
    }

    void compare(std::string_view left, std::string_view right) {
        enter(left, right);
        screen.press("Compare");
    }

    /// What assistive technology reads of a list's rows.
    std::vector<std::string> rows(std::string_view list) const {
        const auto* model = screen.list(list).model();
        std::vector<std::string> names;
        for (int row = 0; row < model->rowCount(); ++row)
            names.push_back(utf8String(model->index(row, 0).data(Qt::AccessibleTextRole).toString()));
        return names;
    }

    /// Where a row of a list is, in its viewport.
    static QPoint middleOf(const RowList& list, int row) {
        return {list.viewport()->width() / 2, list.visualRect(list.model()->index(row, 0)).center().y()};
    }

    static std::string clipboard() { return utf8String(QApplication::clipboard()->text()); }
};

using Rows = std::vector<std::string>;

TEST_F(TextDiffScreenTest, BeginsWithTwoEditors) {
    EXPECT_TRUE(screen.shows("Text Diff"));
    EXPECT_TRUE(screen.hasButton("Compare"));
    EXPECT_TRUE(screen.hasButton("Swap"));
    EXPECT_TRUE(screen.hasButton("Clear All"));
    EXPECT_EQ(screen.placeholder("Original Text"), "Paste original text here...");
    EXPECT_EQ(screen.placeholder("Modified Text"), "Paste modified text here...");
    EXPECT_EQ(utf8String(screen.button("Paste Original Text").text()), "Paste");
    EXPECT_EQ(utf8String(screen.button("Paste Modified Text").text()), "Paste");
    EXPECT_FALSE(screen.shows("Added: 0"));
    screen.press("Compare");
    EXPECT_TRUE(screen.hasEditor("Original Text"));
    EXPECT_FALSE(screen.shows("Added: 0"));
}

TEST_F(TextDiffScreenTest, ShowsTheLinesSideBySide) {
    compare("a\nb\nc", "a\nc\nd");
    EXPECT_FALSE(screen.hasEditor("Original Text"));
    EXPECT_TRUE(screen.shows("Original"));
    EXPECT_TRUE(screen.shows("Modified"));
    EXPECT_EQ(rows("Original"), (Rows{"1 a", "removed 2 b", "3 c", "no line"}));
    EXPECT_EQ(rows("Modified"), (Rows{"1 a", "no line", "2 c", "added 3 d"}));
    EXPECT_TRUE(screen.shows("Added: 1"));
    EXPECT_TRUE(screen.shows("Removed: 1"));
    EXPECT_TRUE(screen.shows("Unchanged: 2"));
    EXPECT_TRUE(screen.shows("50% similar"));
}

TEST_F(TextDiffScreenTest, ShowsTheLinesInOneList) {
    compare("a\nb", "a\nc");
    screen.choose("Unified");
    EXPECT_FALSE(screen.hasList("Original"));
    EXPECT_TRUE(screen.shows("Unified Diff"));
    EXPECT_EQ(rows("Unified Diff"), (Rows{"1 a", "removed 2 b", "added 2 c"}));
    EXPECT_TRUE(screen.shows("33% similar"));
    screen.choose("Side by Side");
    EXPECT_TRUE(screen.hasList("Original"));
}

TEST_F(TextDiffScreenTest, SwapsAndComparesAgain) {
    compare("a", "a\nb");
    screen.press("Swap");
    EXPECT_EQ(rows("Modified"), (Rows{"1 a", "added 2 b"})) << "not before Compare";
    screen.press("Compare");
    EXPECT_EQ(rows("Original"), (Rows{"1 a", "removed 2 b"}));
}

TEST_F(TextDiffScreenTest, ClearAllBringsEmptyEditorsBack) {
    compare("a", "b");
    screen.press("Clear All");
    EXPECT_EQ(screen.text("Original Text"), "");
    EXPECT_EQ(screen.text("Modified Text"), "");
    EXPECT_FALSE(screen.shows("Added: 1"));
    EXPECT_FALSE(screen.hasList("Original"));
}

TEST_F(TextDiffScreenTest, SwapExchangesTheEditorsTexts) {
    enter("left", "right");
    screen.press("Swap");
    EXPECT_EQ(screen.text("Original Text"), "right");
    EXPECT_EQ(screen.text("Modified Text"), "left");
}

TEST_F(TextDiffScreenTest, IsBusyWithLargeTextsUntilTheResultComes) {
    constexpr auto busy = "Comparing... Clear All stops it.";
    const std::string many(50'000, '\n');
    compare(many, "x");
    EXPECT_FALSE(screen.shows(busy));
    fakes.timers.advance(TextDiffView::patience);
    EXPECT_TRUE(screen.shows(busy));
    EXPECT_FALSE(screen.button("Compare").isEnabled());
    fakes.background.runAll();
    EXPECT_FALSE(screen.shows(busy));
    EXPECT_TRUE(screen.button("Compare").isEnabled());
    EXPECT_TRUE(screen.shows("Removed: 50001"));

    screen.press("Clear All");
    compare(many, "y");
    fakes.timers.advance(TextDiffView::patience);
    screen.press("Clear All");
    EXPECT_FALSE(screen.shows(busy));
    fakes.background.runAll();
    EXPECT_TRUE(screen.hasEditor("Original Text")) << "the result belongs to texts that are gone";
}

TEST_F(TextDiffScreenTest, CopiesTheSelectedLines) {
    compare("a\nb\nc", "a\nc\nd");
    auto& left = screen.list("Original");
    QTest::mouseClick(left.viewport(), Qt::LeftButton, {}, middleOf(left, 1));
    QTest::keyClick(&left, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "b");
    QTest::mouseClick(left.viewport(), Qt::LeftButton, Qt::ShiftModifier, middleOf(left, 2));
    QTest::keyClick(&left, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "b\nc");
    QTest::mouseClick(left.viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(left, 0));
    QTest::keyClick(&left, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "a\nb\nc") << "in the order of the rows, whatever the order of selecting";

    auto& right = screen.list("Modified");
    right.setFocus();
    QTest::keyClick(&right, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&right, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "a\nc\nd") << "a filler is no line";
    right.clearSelection();
    right.setCurrentRow(1);
    right.clearSelection();
    QTest::keyClick(&right, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "a\nc\nd") << "nothing to copy leaves the clipboard alone";
}

TEST_F(TextDiffScreenTest, SelectsByDraggingAndByKeyboard) {
    compare("a\nb\nc\nd", "a\nb\nc\nd");
    screen.choose("Unified");
    auto& list = screen.list("Unified Diff");
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, middleOf(list, 0));
    QTest::mouseMove(list.viewport(), middleOf(list, 1));
    QMouseEvent move(QEvent::MouseMove, middleOf(list, 2), list.viewport()->mapToGlobal(middleOf(list, 2)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list.viewport(), &move);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, middleOf(list, 2));
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "a\nb\nc");
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "c\nd");
}

TEST_F(TextDiffScreenTest, ForgetsTheSelectionWithTheResult) {
    compare("a\nb", "a\nb");
    auto& list = screen.list("Original");
    list.selectAll();
    screen.press("Compare");
    EXPECT_TRUE(list.selectionModel()->selection().isEmpty());
}

TEST_F(TextDiffScreenTest, ScrollsEachColumnByItself) {
    std::string text;
    for (int number = 0; number < 200; ++number)
        text += std::to_string(number) + "\n";
    compare(text + std::string(5'000, 'x'), text);
    auto& left = screen.list("Original");
    auto& right = screen.list("Modified");
    EXPECT_EQ(right.horizontalScrollBar()->maximum(), 0);
    left.verticalScrollBar()->setValue(left.verticalScrollBar()->maximum());
    EXPECT_EQ(right.verticalScrollBar()->value(), 0);
    QTest::keyClick(&left, Qt::Key_Right);
    EXPECT_GT(left.horizontalScrollBar()->value(), 0);
    QTest::keyClick(&left, Qt::Key_Left);
    EXPECT_EQ(left.horizontalScrollBar()->value(), 0);
}

TEST_F(TextDiffScreenTest, ShowsALongLineToItsEnd) {
    compare(std::string(5'000, 'x') + "END", "");
    auto& list = screen.list("Original");
    auto* bar = list.horizontalScrollBar();
    bar->setValue(bar->maximum());
    const auto withEnd = list.grab().toImage();
    EXPECT_GT(bar->maximum(), 0);
    screen.press("Clear All");
    compare(std::string(5'000, 'x') + "   ", "");
    bar->setValue(bar->maximum());
    EXPECT_NE(list.grab().toImage(), withEnd) << "the end of the line is in the picture";

    const auto click = middleOf(list, 0);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, click);
    EXPECT_TRUE(list.selectionModel()->isSelected(list.model()->index(0, 0)))
        << "also there a row can be clicked";
}

TEST_F(TextDiffScreenTest, MakesRoomForLongLineNumbers) {
    const auto start = [&](int lineCount) {
        screen.press("Clear All");
        compare(std::string(static_cast<std::size_t>(lineCount - 1), '\n') + "x", "x");
        fakes.background.runAll();
        auto& list = screen.list("Original");
        list.scrollToBottom();
        // The last line is the one with text, and on no colour.
        const auto picture = list.grab().toImage();
        const auto row = list.visualRect(list.model()->index(list.model()->rowCount() - 1, 0))
                             .translated(list.viewport()->pos());
        const auto background = picture.pixel(row.left() + 1, row.top());
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = row.top(); y <= row.bottom(); ++y) {
                if (picture.pixel(x, y) != background)
                    return x;
            }
        }
        return -1;
    };
    EXPECT_GT(start(90), 0);
    EXPECT_GT(start(100'000), 0);
}

TEST_F(TextDiffScreenTest, HandsTheFocusFromTheEditorToTheLinesAndBack) {
    enter("a", "b");
    screen.editor("Modified Text").setFocus();
    screen.press("Compare");
    EXPECT_EQ(widget->focusWidget(), &screen.list("Original"));
    screen.press("Clear All");
    EXPECT_EQ(widget->focusWidget(), &screen.editor("Original Text"));
}

TEST_F(TextDiffScreenTest, CanBeUsedByKeyboardAlone) {
    screen.editor("Original Text").setFocus();
    QTest::keyClicks(widget->focusWidget(), "one");
    screen.button("Compare").setFocus();
    QTest::keyClick(widget->focusWidget(), Qt::Key_Space);
    std::vector<std::string> stops;
    for (int stop = 0; stop < 5; ++stop) {
        QTest::keyClick(widget->focusWidget(), Qt::Key_Tab);
        stops.push_back(utf8String(widget->focusWidget()->accessibleName()));
    }
    EXPECT_EQ(stops, (Rows{"Side by Side", "Swap", "Clear All", "Original", "Modified"}));
}

} // namespace
} // namespace korvane
