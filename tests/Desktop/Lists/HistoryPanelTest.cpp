#include "Desktop/Lists/HistoryPanel.h"
#include "Desktop/Access/TabStops.h"
#include "Desktop/Lists/RowList.h"
#include "support/ContextMenus.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace korvane {
namespace {

using namespace std::chrono_literals;

struct Values {
    std::vector<HistoryRow> rows{};
    int copies = 0;

    void add(std::string text) {
        rows.insert(rows.begin(), {.id = UUID::random(), .text = std::move(text), .note = "noted"});
    }

    bool operator==(const Values&) const = default;
};

struct HistoryPanelTest : testing::Test {
    FakeServices fakes{};
    Store store{fakes.services, Values()};
    std::unique_ptr<QWidget> widget{historyPanel(store, {.title = "Title",
                                                         .rows = &Values::rows,
                                                         .copyAll = [](Values& values) { ++values.copies; },
                                                         .clear = [](Values& values) { values.rows.clear(); },
                                                         .prompt = "Nothing yet",
                                                         .isSecret = true})};
    ScreenDriver screen{*widget, {400, 241}};

    void add(int count) {
        for (int i = 1; i <= count; ++i)
            store.perform([&](Values& values) { values.add(std::to_string(i)); });
        settle();
    }

    RowList& list() const { return screen.list("History"); }

    /// The buttons of the rows from top to bottom.
    std::vector<QAbstractButton*> buttons() const {
        std::vector<QAbstractButton*> found;
        for (auto* button : widget->findChildren<QAbstractButton*>()) {
            if (button->isVisible() && button != &screen.button("Copy All") &&
                button != &screen.button("Clear"))
                found.push_back(button);
        }
        std::ranges::sort(found, std::less{}, &QWidget::y);
        return found;
    }

    std::vector<std::string> names() const {
        std::vector<std::string> texts;
        for (const auto* button : buttons())
            texts.push_back(button->accessibleName().toStdString());
        return texts;
    }
};

TEST_F(HistoryPanelTest, GivesEveryVisibleRowAButton) {
    EXPECT_EQ(names(), std::vector<std::string>{});
    add(2);
    EXPECT_EQ(names(), (std::vector<std::string>{"Copy 2", "Copy 1"}));
    add(100);
    EXPECT_LE(buttons().size(), 6U) << "200 pixels show five rows of 40, or six in part";
    EXPECT_EQ(names().front(), "Copy 100");
}

TEST_F(HistoryPanelTest, CopiesTheRowOfTheButtonAndShowsFeedback) {
    add(3);
    QTest::mouseClick(buttons()[1], Qt::LeftButton);
    EXPECT_EQ(fakes.clipboard.content, "2");
    EXPECT_TRUE(fakes.clipboard.isSecret);
    EXPECT_EQ(buttons()[1]->text(), "Copied!");
    fakes.timers.advance(1500ms);
    EXPECT_EQ(buttons()[1]->text(), "Copy");
}

TEST_F(HistoryPanelTest, TheFeedbackMovesWithItsRow) {
    add(1);
    QTest::mouseClick(buttons()[0], Qt::LeftButton);
    add(1);
    EXPECT_EQ(buttons()[0]->text(), "Copy");
    EXPECT_EQ(buttons()[1]->text(), "Copied!");
}

TEST_F(HistoryPanelTest, CopiesTheCurrentTextOfARow) {
    add(1);
    store.perform([](Values& values) { values.rows[0].text = "other"; });
    QTest::mouseClick(buttons()[0], Qt::LeftButton);
    EXPECT_EQ(fakes.clipboard.content, "other");
}

TEST_F(HistoryPanelTest, CopiesTheCurrentRowByKey) {
    add(100);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(fakes.clipboard.content, "99");
    QTest::keyClick(&list(), Qt::Key_End);
    QTest::keyClick(&list(), Qt::Key_Space);
    EXPECT_EQ(fakes.clipboard.content, "1");
    QTest::keyClick(&list(), Qt::Key_Up);
    QTest::keySequence(&list(), QKeySequence::Copy);
    EXPECT_EQ(fakes.clipboard.content, "2");
    EXPECT_TRUE(fakes.clipboard.isSecret) << "also by the shortcut";
}

TEST_F(HistoryPanelTest, PressesTheCurrentRowWhileItIsScrolledOutOfView) {
    add(100);
    list().setFocus();
    list().verticalScrollBar()->setValue(2000);
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(fakes.clipboard.content, "100");
    EXPECT_EQ(list().verticalScrollBar()->value(), 0);
}

TEST_F(HistoryPanelTest, ItsButtonsAreTabStopsInTheOrderOfTheRows) {
    add(100);
    std::vector<QWidget*> expected{&screen.button("Copy All"), &screen.button("Clear"), &list()};
    std::ranges::copy(buttons(), std::back_inserter(expected));
    EXPECT_EQ(tabStops(*widget), expected);
    list().verticalScrollBar()->setValue(2000);
    expected.resize(3);
    std::ranges::copy(buttons(), std::back_inserter(expected));
    EXPECT_EQ(tabStops(*widget), expected);
}

TEST_F(HistoryPanelTest, TheRowOfAFocusedButtonIsTheCurrentRow) {
    add(100);
    buttons()[1]->setFocus();
    EXPECT_EQ(list().currentRow(), 1);
    QTest::keyClick(widget->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(fakes.clipboard.content, "99");
}

TEST_F(HistoryPanelTest, KeysInAButtonDoNotMoveTheList) {
    add(100);
    auto* button = buttons()[1];
    button->setFocus();
    for (const auto key : {Qt::Key_End, Qt::Key_PageDown, Qt::Key_Return})
        QTest::keyClick(button, key);
    QTest::keySequence(button, QKeySequence::Copy);
    EXPECT_EQ(list().currentRow(), 1);
    EXPECT_FALSE(fakes.clipboard.content) << "the window handles Return";
}

TEST_F(HistoryPanelTest, ButtonsOfHiddenRowsAreReused) {
    add(100);
    const auto count = widget->findChildren<QAbstractButton*>().size();
    for (int place = 0; place <= list().verticalScrollBar()->maximum(); place += 100) {
        list().verticalScrollBar()->setValue(place);
        const auto row = list().visibleRows().first;
        EXPECT_EQ(names().front(), "Copy " + std::to_string(100 - row));
    }
    EXPECT_LE(widget->findChildren<QAbstractButton*>().size(), count + 1)
        << "a scroll position can show one more row";
}

TEST_F(HistoryPanelTest, TheListTakesTheFocusOfARemovedButton) {
    add(100);
    buttons()[0]->setFocus();
    list().verticalScrollBar()->setValue(2000);
    EXPECT_EQ(widget->focusWidget(), &list());
}

TEST_F(HistoryPanelTest, TheWheelOverAButtonScrollsTheList) {
    add(100);
    const QPointF place(buttons()[0]->mapToGlobal(QPoint(5, 5)));
    // A button ignores the wheel, so its event is propagated to its ancestors.
    for (QWidget* target = buttons()[0]; target; target = target->parentWidget()) {
        QWheelEvent wheel(target->mapFromGlobal(place), place, {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(target, &wheel);
        if (wheel.isAccepted())
            break;
    }
    EXPECT_GT(list().verticalScrollBar()->value(), 0);
}

TEST_F(HistoryPanelTest, RowNamesContainValueNoteAndTime) {
    add(1);
    const auto name = list().accessibleRow(0).name.toStdString();
    EXPECT_TRUE(name.starts_with("1, noted, ")) << name;
    EXPECT_GT(name.size(), std::string("1, noted, ").size()) << "the time of day";
}

TEST_F(HistoryPanelTest, HasItsTitleAndActions) {
    add(2);
    EXPECT_TRUE(screen.shows("Title"));
    screen.press("Copy All");
    EXPECT_EQ(store.state<Values>().copies, 1);
    screen.press("Clear");
    EXPECT_TRUE(buttons().empty());
    EXPECT_EQ(store.state<Values>().rows.size(), 0U);
}

TEST_F(HistoryPanelTest, PromptsWhileItIsEmpty) {
    EXPECT_TRUE(screen.shows("Nothing yet"));
    EXPECT_FALSE(screen.hasList("History"));
    add(1);
    EXPECT_FALSE(screen.shows("Nothing yet"));
    EXPECT_TRUE(screen.hasList("History"));
}

TEST_F(HistoryPanelTest, ShowsTheWholeOfALongValueOnSeveralLines) {
    store.perform([](Values& values) {
        values.add("short");
        values.add(std::string(128, 'm'));
        values.add("other");
    });
    settle();
    const auto height = [&](int row) { return list().rowPlace(row).height(); };
    EXPECT_EQ(height(0), 40);
    EXPECT_GE(height(1), 40 + 3 * 17);
    EXPECT_EQ(height(2), 40);
    EXPECT_EQ(buttons()[1]->y(), buttons()[0]->y() + 40) << "beside the first line";
    const auto narrow = height(1);
    widget->resize(1'400, 241);
    EXPECT_EQ(height(1), 40);
    widget->resize(400, 241);
    EXPECT_EQ(height(1), narrow);
}

TEST_F(HistoryPanelTest, ALongValueIsSelectedAcrossItsLines) {
    const auto value = std::string(60, 'a') + std::string(68, 'b');
    store.perform([&](Values& values) { values.add(value); });
    settle();
    const auto row = list().rowPlace(0);
    QTest::mousePress(list().viewport(), Qt::LeftButton, {}, row.topLeft() + QPoint(2, 10));
    QTest::mouseMove(list().viewport(), row.bottomLeft() + QPoint(list().width() - 2, -12));
    QTest::mouseRelease(list().viewport(), Qt::LeftButton, {}, row.bottomLeft());
    EXPECT_EQ(list().selection().text(), value);
    QTest::keySequence(&list(), QKeySequence::Copy);
    EXPECT_EQ(fakes.clipboard.content, value);
    EXPECT_TRUE(fakes.clipboard.isSecret);
}

TEST_F(HistoryPanelTest, APartOfAValueIsSelectedByKeyAndCopiedAsASecret) {
    store.perform([](Values& values) { values.add("abcdef"); });
    settle();
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Right);
    QTest::keyClick(&list(), Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(&list(), Qt::Key_Right, Qt::ShiftModifier);
    QTest::keySequence(&list(), QKeySequence::Copy);
    EXPECT_EQ(fakes.clipboard.content, "bc");
    EXPECT_TRUE(fakes.clipboard.isSecret);
    EXPECT_EQ(buttons()[0]->text(), "Copy") << "the button, which copies the whole value, shows no feedback";
}

TEST_F(HistoryPanelTest, ADoubleClickSelectsAWordAndAThirdClickTheValue) {
    store.perform([](Values& values) { values.add("one two"); });
    settle();
    const auto place = list().rowPlace(0).topLeft() + QPoint(24, 18);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(list().selection().text(), "one");
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(list().selection().text(), "one two");
}

TEST_F(HistoryPanelTest, AddingARowClearsTheSelection) {
    add(1);
    QTest::keySequence(&list(), QKeySequence::SelectAll);
    EXPECT_EQ(list().selection().text(), "1");
    add(1);
    EXPECT_TRUE(list().selection().isEmpty());
}

TEST_F(HistoryPanelTest, ItsMenuCopiesTheRowUnderThePointer) {
    add(3);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(list().selection().text(), "3");
    const ContextMenu menu(list(), list().rowPlace(1).center());
    menu.choose("Copy");
    EXPECT_EQ(fakes.clipboard.content, "2");
}

TEST_F(HistoryPanelTest, ItsMenuCopiesTheRowOrTheSelection) {
    add(3);
    const auto place = list().rowPlace(1).center();
    const ContextMenu menu(list(), place);
    EXPECT_EQ(menu.items(), "Copy; Select All; ");
    menu.choose("Copy");
    EXPECT_EQ(fakes.clipboard.content, "2");
    menu.choose("Select All");
    menu.choose("Copy");
    EXPECT_EQ(fakes.clipboard.content, "3\n2\n1");
    EXPECT_TRUE(fakes.clipboard.isSecret);
}

} // namespace
} // namespace korvane
