#include "Desktop/Tools/Regex/MatchList.h"

#include "Desktop/Binding/Store.h"
#include "Views/Tools/RegexTesterView.h"
#include "support/ContextMenus.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QtTest/QTest>

#include <algorithm>
#include <memory>

namespace korvane {
namespace {

struct MatchListTest : testing::Test {
    FakeServices fakes{};
    Store store{fakes.services, RegexTesterView()};
    MatchList list{store};
    ScreenDriver screen{list, {500, 300}};

    void show(std::string_view pattern, const std::string& text) {
        auto shared = std::make_shared<const std::string>(text);
        auto findings = RegularExpression::search(pattern, true, shared, {.time = std::chrono::hours(1)});
        list.display(RegexMatches({}, std::move(*findings)), "count");
        settle();
    }

    std::vector<MatchRow*> visibleRows() {
        std::vector<MatchRow*> rows;
        for (auto* child : list.findChildren<QWidget*>()) {
            if (auto* row = dynamic_cast<MatchRow*>(child); row && row->isVisible())
                rows.push_back(row);
        }
        std::ranges::sort(rows, {}, &MatchRow::y);
        return rows;
    }

    std::vector<std::string> names() {
        std::vector<std::string> texts;
        for (const auto* row : visibleRows())
            texts.push_back(row->accessibleName().toStdString());
        return texts;
    }
};

TEST_F(MatchListTest, ShowsACardForEachMatch) {
    show("(a)(b)?", "aab");
    EXPECT_EQ(names(), (std::vector<std::string>{"Match 1: a", "Match 1 Group 1: a", "Match 2: ab",
                                                 "Match 2 Group 1: a", "Match 2 Group 2: b"}));
    const auto rows = visibleRows();
    EXPECT_EQ(rows[1]->y() - rows[0]->y(), 32);
    EXPECT_EQ(rows[2]->y() - rows[1]->y(), 32 + 8);
    EXPECT_EQ(list.verticalScrollBar()->maximum(), 0);
}

TEST_F(MatchListTest, ShowsAMillionMatchesWithAFewRowWidgets) {
    show("(a)(b)", [] {
        std::string text;
        for (int match = 0; match < 1'000'000; ++match)
            text += "ab";
        return text;
    }());
    EXPECT_LE(visibleRows().size(), 10U);
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(names().back(), "Match 1000000 Group 2: b");
    EXPECT_EQ(list.verticalScrollBar()->value(), list.verticalScrollBar()->maximum());
    list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum() / 2);
    EXPECT_LE(visibleRows().size(), 11U);
    EXPECT_LE(visibleRows().front()->y(), 8);
    EXPECT_GE(visibleRows().back()->geometry().bottom(), 300 - 32 - 8);
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(names().front(), "Match 1: ab");
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
}

TEST_F(MatchListTest, KeysMoveByLinesAndPagesWithinTheList) {
    show("a", std::string(50, 'a'));
    QTest::keyClick(&list, Qt::Key_Up);
    EXPECT_EQ(list.currentLine(), 0U);
    QTest::keyClick(&list, Qt::Key_PageDown);
    EXPECT_EQ(list.currentLine(), 9U);
    QTest::keyClick(&list, Qt::Key_PageUp);
    EXPECT_EQ(list.currentLine(), 0U);
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.currentLine(), 49U);
}

TEST_F(MatchListTest, AClickMakesALineCurrent) {
    show("a", "aaa");
    auto* row = visibleRows()[1];
    QTest::mousePress(row, Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_EQ(list.currentLine(), 1U);
}

TEST_F(MatchListTest, KeepsItsPlaceWhenTheMatchesChange) {
    show("a", std::string(100, 'a'));
    list.verticalScrollBar()->setValue(1000);
    list.setCurrentLine(30);
    const auto offset = list.verticalScrollBar()->value();
    show("a", std::string(101, 'a'));
    EXPECT_EQ(list.verticalScrollBar()->value(), offset);
    EXPECT_EQ(list.currentLine(), 30U);
    show("a", "aa");
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
    EXPECT_EQ(list.currentLine(), 1U);
    show("b", "aa");
    EXPECT_TRUE(visibleRows().empty());
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_FALSE(fakes.clipboard.content);
}

TEST_F(MatchListTest, CopiesTheWholeOfAShortenedMatch) {
    const std::string text(3'000'000, 'a');
    show("a+", text);
    EXPECT_LT(names().front().size(), 300U);
    list.copy(0);
    EXPECT_EQ(fakes.clipboard.content, text);
}

TEST_F(MatchListTest, ItsMenuCopiesTheLineUnderThePointer) {
    show("(a)(b)?", "aab");
    {
        const ContextMenu menu(list, visibleRows()[4]->geometry().center());
        EXPECT_EQ(menu.items(), "Copy; ");
        menu.choose("Copy");
        EXPECT_EQ(fakes.clipboard.content, "b");
    }
    show("x", "y");
    EXPECT_FALSE(ContextMenu(list, QPoint(50, 50)).isOpen()) << "there is nothing to copy";
}

} // namespace
} // namespace korvane
