#include "Desktop/Tools/Regex/MatchList.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Lists/RowList.h"
#include "support/ContextMenus.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QScrollBar>
#include <QtTest/QTest>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace korvane {
namespace {

struct Shown {
    RegexMatches matches{};
    std::optional<std::size_t> selected{};

    void select(std::size_t line) { selected = line; }
};

struct MatchListTest : testing::Test {
    FakeServices fakes{};
    Store store{fakes.services, Shown()};
    std::unique_ptr<QWidget> widget{
        named(matchList(store, &Shown::matches, std::string("count"), &Shown::selected, &Shown::select))};
    ScreenDriver screen{*widget, {502, 302}}; // with an outline of one pixel
    RowList& list = screen.list("Matches");

    static QWidget* named(QWidget* panel) {
        giveName(*panel, "Matches");
        return panel;
    }

    void show(std::string_view pattern, const std::string& text) {
        auto shared = std::make_shared<const std::string>(text);
        auto findings = RegularExpression::search(pattern, true, shared, {.time = std::chrono::hours(1)});
        store.perform([&](Shown& shown) { shown.matches = RegexMatches({}, std::move(*findings)); });
        settle();
    }

    /// Those that have a button, which only those have that are seen.
    std::vector<int> visibleRows() const {
        std::vector<int> rows;
        const auto [first, end] = list.visibleRows();
        for (int row = first; row < end; ++row) {
            const auto* button = list.accessibleRow(row).button;
            const auto place = list.rowPlace(row);
            if (button && button->isVisible() && place.contains(button->geometry()))
                rows.push_back(row);
        }
        return rows;
    }

    /// How many there are at all, seen or not.
    qsizetype buttonCount() const { return list.findChildren<QAbstractButton*>().size(); }

    std::vector<std::string> names() const {
        std::vector<std::string> texts;
        for (const auto row : visibleRows())
            texts.push_back(list.accessibleRow(row).name.toStdString());
        return texts;
    }
};

TEST_F(MatchListTest, ShowsACardForEachMatch) {
    show("(a)(b)?", "aab");
    EXPECT_EQ(names(), (std::vector<std::string>{"Match 1: a", "Match 1 Group 1: a", "Match 2: ab",
                                                 "Match 2 Group 1: a", "Match 2 Group 2: b"}));
    const auto rows = visibleRows();
    EXPECT_EQ(list.rowPlace(rows[1]).y() - list.rowPlace(rows[0]).y(), 32);
    EXPECT_EQ(list.rowPlace(rows[2]).y() - list.rowPlace(rows[1]).y(), 32 + 8);
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
    EXPECT_LE(list.rowPlace(visibleRows().front()).y(), 8);
    EXPECT_GE(list.rowPlace(visibleRows().back()).bottom(), 300 - 32 - 8);
    EXPECT_LE(buttonCount(), 11);
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(names().front(), "Match 1: ab");
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
}

TEST_F(MatchListTest, KeysMoveByLinesAndPagesWithinTheList) {
    show("a", std::string(50, 'a'));
    QTest::keyClick(&list, Qt::Key_Up);
    EXPECT_EQ(list.currentRow(), 0);
    QTest::keyClick(&list, Qt::Key_PageDown);
    EXPECT_EQ(list.currentRow(), 9);
    QTest::keyClick(&list, Qt::Key_PageUp);
    EXPECT_EQ(list.currentRow(), 0);
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.currentRow(), 49);
}

TEST_F(MatchListTest, AClickMakesALineCurrent) {
    show("a", "aaa");
    const auto row = list.rowPlace(visibleRows()[1]);
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, row.topLeft() + QPoint(20, 10));
    EXPECT_EQ(list.currentRow(), 1);
}

TEST_F(MatchListTest, KeepsItsPlaceWhenTheMatchesChange) {
    show("a", std::string(100, 'a'));
    list.verticalScrollBar()->setValue(1000);
    list.setCurrentRow(30);
    const auto offset = list.verticalScrollBar()->value();
    show("a", std::string(101, 'a'));
    EXPECT_EQ(list.verticalScrollBar()->value(), offset);
    EXPECT_EQ(list.currentRow(), 30);
    show("a", "aa");
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
    EXPECT_EQ(list.currentRow(), 1);
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
    list.copy();
    EXPECT_EQ(fakes.clipboard.content, text);
}

TEST_F(MatchListTest, ItsMenuCopiesTheLineUnderThePointer) {
    show("(a)(b)?", "aab");
    {
        const ContextMenu menu(list, list.rowPlace(visibleRows()[4]).center());
        EXPECT_EQ(menu.items(), "Copy; ");
        menu.choose("Copy");
        EXPECT_EQ(fakes.clipboard.content, "b");
    }
    show("x", "y");
    EXPECT_FALSE(ContextMenu(list, QPoint(50, 50)).isOpen()) << "there is nothing to copy";
}

} // namespace
} // namespace korvane
