#include "Desktop/Tools/Screens.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Text/TextZoom.h"
#include "Views/Tools/TextDiffView.h"

#include "support/ContextMenus.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QFontMetricsF>
#include <QScrollBar>
#include <QtTest/QTest>

#include <cmath>
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

    /// The accessible names of a list's rows.
    std::vector<std::string> rows(std::string_view name) const {
        const auto& list = screen.list(name);
        std::vector<std::string> names;
        for (int row = 0; row < list.rowCount(); ++row)
            names.push_back(utf8String(list.accessibleRow(row).name));
        return names;
    }

    /// The middle of a row of a list, in its viewport.
    static QPoint middleOf(const RowList& list, int row) {
        return {list.viewport()->width() / 2, list.rowPlace(row).center().y()};
    }

    /// A place in the number of a line, where the pointer selects whole lines.
    static QPoint numberOf(const RowList& list, int row) { return {10, middleOf(list, row).y()}; }

    /// The place before a character of a line, in the viewport.
    static QPoint placeOf(const RowList& list, int row, int character) {
        constexpr int left = 48; // the numbers, and a gap
        const auto column = QFontMetricsF(TextZoom::font(Theme::TextStyle::codeSmall)).horizontalAdvance('0');
        return {left + static_cast<int>(std::lround(character * column)), middleOf(list, row).y()};
    }

    static void drag(const RowList& list, QPoint from, QPoint to) {
        QTest::mousePress(list.viewport(), Qt::LeftButton, {}, from);
        QTest::mouseMove(list.viewport(), to);
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, to);
    }

    static void copy(RowList& list) { QTest::keySequence(&list, QKeySequence::Copy); }

    static std::string clipboard() { return utf8String(QApplication::clipboard()->text()); }
};

using Rows = std::vector<std::string>;

TEST_F(TextDiffScreenTest, StartsWithTwoEditors) {
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
    EXPECT_EQ(rows("Modified"), (Rows{"1 a", "added 2 b"})) << "unchanged until Compare";
    screen.press("Compare");
    EXPECT_EQ(rows("Original"), (Rows{"1 a", "removed 2 b"}));
}

TEST_F(TextDiffScreenTest, ClearAllShowsEmptyEditors) {
    compare("a", "b");
    screen.press("Clear All");
    EXPECT_EQ(screen.text("Original Text"), "");
    EXPECT_EQ(screen.text("Modified Text"), "");
    EXPECT_FALSE(screen.shows("Added: 1"));
    EXPECT_FALSE(screen.hasList("Original"));
}

TEST_F(TextDiffScreenTest, SwapExchangesTheTextsOfTheEditors) {
    enter("left", "right");
    screen.press("Swap");
    EXPECT_EQ(screen.text("Original Text"), "right");
    EXPECT_EQ(screen.text("Modified Text"), "left");
}

TEST_F(TextDiffScreenTest, ShowsAsBusyUntilLargeTextsAreCompared) {
    constexpr auto busy = "Comparing 50 KB…";
    const std::string many(50'000, '\n');
    compare(many, "x");
    EXPECT_FALSE(screen.shows(busy));
    fakes.timers.advance(AwaitedWork::busyDelay);
    EXPECT_TRUE(screen.shows(busy));
    EXPECT_FALSE(screen.button("Compare").isEnabled());
    fakes.background.runAll();
    EXPECT_FALSE(screen.shows(busy));
    EXPECT_TRUE(screen.button("Compare").isEnabled());
    EXPECT_TRUE(screen.shows("Removed: 50001"));

    screen.press("Clear All");
    compare(many, "y");
    fakes.timers.advance(AwaitedWork::busyDelay);
    screen.press("Clear All");
    EXPECT_FALSE(screen.shows(busy));
    fakes.background.runAll();
    EXPECT_TRUE(screen.hasEditor("Original Text")) << "the result of the cleared texts is dropped";
}

TEST_F(TextDiffScreenTest, CopiesTheSelectedLines) {
    compare("a\nb\nc", "a\nc\nd");
    auto& left = screen.list("Original");
    QTest::mouseClick(left.viewport(), Qt::LeftButton, {}, middleOf(left, 1));
    copy(left);
    EXPECT_EQ(clipboard(), "b") << "without a selection, the line of the caret";
    QTest::mouseClick(left.viewport(), Qt::LeftButton, {}, numberOf(left, 1));
    QTest::mouseClick(left.viewport(), Qt::LeftButton, Qt::ShiftModifier, numberOf(left, 2));
    copy(left);
    EXPECT_EQ(clipboard(), "b\nc");
    drag(left, numberOf(left, 1), numberOf(left, 0));
    copy(left);
    EXPECT_EQ(clipboard(), "a\nb") << "in the order of the rows, not of selecting";

    auto& right = screen.list("Modified");
    right.setFocus();
    QTest::keyClick(&right, Qt::Key_A, Qt::ControlModifier);
    copy(right);
    EXPECT_EQ(clipboard(), "a\nc\nd") << "a filler is no line";
    right.setCurrentRow(1);
    copy(right);
    EXPECT_EQ(clipboard(), "a\nc\nd") << "an empty selection leaves the clipboard unchanged";
}

TEST_F(TextDiffScreenTest, SelectsTextWithinAndAcrossLines) {
    compare("one line\nanother\nlast", "");
    auto& list = screen.list("Original");
    drag(list, placeOf(list, 0, 4), placeOf(list, 0, 8));
    copy(list);
    EXPECT_EQ(clipboard(), "line");
    drag(list, placeOf(list, 2, 2), placeOf(list, 0, 4));
    copy(list);
    EXPECT_EQ(clipboard(), "line\nanother\nla");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ShiftModifier, placeOf(list, 1, 2));
    copy(list);
    EXPECT_EQ(clipboard(), "other\nla");
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, 0, 2));
    copy(list);
    EXPECT_EQ(clipboard(), "one");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, 0, 2));
    copy(list);
    EXPECT_EQ(clipboard(), "one line") << "a third click selects the line";
}

TEST_F(TextDiffScreenTest, SelectsByKeyboard) {
    compare("abc\ndef", "");
    screen.choose("Unified");
    auto& list = screen.list("Unified Diff");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Right);
    QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list, Qt::Key_Right, Qt::ShiftModifier);
    copy(list);
    EXPECT_EQ(clipboard(), "bc\nde");
    EXPECT_EQ(list.currentRow(), 1);
    QTest::keyClick(&list, Qt::Key_Left);
    QTest::keyClick(&list, Qt::Key_End, Qt::ShiftModifier);
    copy(list);
    EXPECT_EQ(clipboard(), "bc");
}

TEST_F(TextDiffScreenTest, TheSelectionIsVisible) {
    compare("abc\ndef", "");
    auto& list = screen.list("Original");
    list.setCurrentRow(1);
    const auto before = list.grab().toImage();
    drag(list, placeOf(list, 1, 0), placeOf(list, 1, 2));
    const auto after = list.grab().toImage();
    const auto pixel = placeOf(list, 1, 1) + list.viewport()->pos() + QPoint(0, 9);
    const auto beyond = pixel + QPoint(100, 0);
    EXPECT_NE(after.pixel(pixel), before.pixel(pixel));
    EXPECT_NE(after.pixel(pixel), after.pixel(beyond));
}

TEST_F(TextDiffScreenTest, DraggingBelowTheListScrollsAndExtendsTheSelection) {
    compare(std::string(500, '\n'), "x");
    auto& list = screen.list("Original");
    const auto below = list.viewport()->rect().bottomLeft() + QPoint(60, 30);
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, placeOf(list, 0, 0));
    const auto last = [&] { return list.selection().rows().second; };
    QTest::mouseMove(list.viewport(), below);
    const auto first = last();
    QTest::mouseMove(list.viewport(), below + QPoint(1, 0));
    EXPECT_GT(last(), first);
    EXPECT_GT(list.verticalScrollBar()->value(), 0);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, below);
}

TEST_F(TextDiffScreenTest, TheMenuOfTheUnifiedListCopiesWithMarks) {
    compare("a\nb\nc", "a\nB\nc");
    EXPECT_EQ(ContextMenu(screen.list("Original")).items(), "Copy; Select All; ");
    screen.choose("Unified");
    auto& list = screen.list("Unified Diff");
    {
        const ContextMenu menu(list, middleOf(list, 1));
        EXPECT_EQ(menu.items(), "Copy; Copy with Marks; Select All; ");
        menu.choose("Copy");
        EXPECT_EQ(clipboard(), "b");
        menu.choose("Copy with Marks");
        EXPECT_EQ(clipboard(), "-b");
    }
    const ContextMenu menu(list);
    menu.choose("Select All");
    menu.choose("Copy with Marks");
    EXPECT_EQ(clipboard(), " a\n-b\n+B\n c");
    menu.choose("Copy");
    EXPECT_EQ(clipboard(), "a\nb\nB\nc");
    drag(list, placeOf(list, 1, 3), placeOf(list, 2, 3)); // within the lines
    menu.choose("Copy with Marks");
    EXPECT_EQ(clipboard(), "-b\n+B") << "marks are copied with whole lines";
}

TEST_F(TextDiffScreenTest, ComparingAgainClearsTheSelection) {
    compare("a\nb", "a\nb");
    auto& list = screen.list("Original");
    list.selectAll();
    screen.press("Compare");
    EXPECT_TRUE(list.selection().isEmpty());
}

TEST_F(TextDiffScreenTest, ScrollsEachColumnIndependently) {
    std::string text;
    for (int number = 0; number < 200; ++number)
        text += std::to_string(number) + "\n";
    compare(text + std::string(5'000, 'x'), text);
    auto& left = screen.list("Original");
    auto& right = screen.list("Modified");
    EXPECT_EQ(right.horizontalScrollBar()->maximum(), 0);
    left.verticalScrollBar()->setValue(left.verticalScrollBar()->maximum());
    EXPECT_EQ(right.verticalScrollBar()->value(), 0);
    left.setCurrentRow(200);
    QTest::keyClick(&left, Qt::Key_End);
    EXPECT_GT(left.horizontalScrollBar()->value(), 0);
    QTest::keyClick(&left, Qt::Key_Home);
    EXPECT_EQ(left.horizontalScrollBar()->value(), 0);
}

TEST_F(TextDiffScreenTest, ScrollsToTheEndOfALongLine) {
    compare(std::string(5'000, 'x') + "END", "");
    auto& list = screen.list("Original");
    auto* bar = list.horizontalScrollBar();
    bar->setValue(bar->maximum());
    const auto withEnd = list.grab().toImage();
    EXPECT_GT(bar->maximum(), 0);
    screen.press("Clear All");
    compare(std::string(5'000, 'x') + "   ", "");
    bar->setValue(bar->maximum());
    EXPECT_NE(list.grab().toImage(), withEnd) << "the end of the line is visible";

    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, {4, middleOf(list, 0).y()});
    EXPECT_EQ(list.selection().text().substr(0, 5), "xxxxx") << "text can be selected at the end too";
}

TEST_F(TextDiffScreenTest, LongLineNumbersAreNotCutOff) {
    const auto start = [&](int lineCount) {
        screen.press("Clear All");
        compare(std::string(static_cast<std::size_t>(lineCount - 1), '\n') + "x", "x");
        fakes.background.runAll();
        auto& list = screen.list("Original");
        list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum());
        // Only the last line has text, and it has no background colour.
        const auto picture = list.grab().toImage();
        const auto row = list.rowPlace(list.rowCount() - 1).translated(list.viewport()->pos());
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

TEST_F(TextDiffScreenTest, TheFocusMovesFromTheEditorToTheLinesAndBack) {
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
