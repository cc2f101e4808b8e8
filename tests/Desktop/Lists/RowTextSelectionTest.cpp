#include "Desktop/Lists/RowTextSelection.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace korvane {
namespace {

using Unit = RowTextSelection::Unit;

/// Rows of one line each, in which every byte is ten pixels wide.
struct RowTextSelectionTest : testing::Test {
    std::vector<std::optional<std::string>> rows{"first row", std::nullopt, "second", "the third one"};
    RowTextSelection selection{
        {.text = [this](int row) -> std::optional<std::string_view> { return rows.at(index(row)); },
         .offsetAt =
             [this](int row, QPoint position) {
                 const auto nearest = static_cast<std::size_t>(std::max(position.x() + 5, 0) / 10);
                 return std::min(nearest, rows.at(index(row)).value_or("").size());
             },
         .caret = [](int, std::size_t offset) { return QRect(static_cast<int>(offset) * 10, 0, 1, 20); }},
        [this] { return static_cast<int>(rows.size()); }};

    static std::size_t index(int row) { return static_cast<std::size_t>(row); }

    bool press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return selection.handle(QKeyEvent(QEvent::KeyPress, key, modifiers), 2);
    }
};

TEST_F(RowTextSelectionTest, StartsEmptyAtTheFirstCharacter) {
    EXPECT_TRUE(selection.isEmpty());
    EXPECT_EQ(selection.caret(), RowTextPlace());
    EXPECT_EQ(selection.text(), "");
}

TEST_F(RowTextSelectionTest, SelectsWithinARow) {
    selection.press({0, 2}, Unit::character);
    selection.extendTo({0, 5});
    EXPECT_EQ(selection.text(), "rst");
    EXPECT_EQ(selection.in(0), (RowTextRange{.start = 2, .end = 5}));
    EXPECT_TRUE(selection.in(1).isEmpty());
    selection.extendTo({0, 0});
    EXPECT_EQ(selection.text(), "fi") << "backwards";
    EXPECT_EQ(selection.caret(), (RowTextPlace{0, 0}));
}

TEST_F(RowTextSelectionTest, SelectsAcrossRowsAndSkipsThoseWithoutText) {
    selection.press({3, 3}, Unit::character);
    selection.extendTo({0, 6});
    EXPECT_EQ(selection.text(), "row\nsecond\nthe");
    EXPECT_EQ(selection.in(0), (RowTextRange{.start = 6, .end = 9, .goesOn = true}));
    EXPECT_EQ(selection.in(1), (RowTextRange{.start = 0, .end = 0, .goesOn = true}));
    EXPECT_EQ(selection.in(2), (RowTextRange{.start = 0, .end = 6, .goesOn = true}));
    EXPECT_EQ(selection.in(3), (RowTextRange{.start = 0, .end = 3}));
    EXPECT_EQ(selection.rows(), std::pair(0, 3));
}

TEST_F(RowTextSelectionTest, ARowWithoutTextAddsNoLine) {
    selection.press({1, 0}, Unit::character);
    selection.extendTo({2, 3});
    EXPECT_EQ(selection.text(), "sec");
    selection.press({1, 0}, Unit::row);
    EXPECT_EQ(selection.text(), "");
}

TEST_F(RowTextSelectionTest, RowsExcludeARowWithoutSelectedText) {
    selection.press({2, 0}, Unit::character);
    selection.extendTo({3, 0});
    EXPECT_EQ(selection.text(), "second\n");
    EXPECT_EQ(selection.rows(), std::pair(2, 2));
}

TEST_F(RowTextSelectionTest, ExtendsASelectionOfWordsByWords) {
    selection.press({3, 5}, Unit::word);
    EXPECT_EQ(selection.text(), "third");
    selection.extendTo({3, 11});
    EXPECT_EQ(selection.text(), "third one");
    selection.extendTo({3, 1});
    EXPECT_EQ(selection.text(), "the third") << "the first word stays selected";
    selection.press({2, 6}, Unit::word);
    EXPECT_EQ(selection.text(), "second") << "after the last word";
    rows[2] = "";
    selection.press({2, 0}, Unit::word);
    EXPECT_EQ(selection.text(), "");
}

TEST_F(RowTextSelectionTest, ExtendsASelectionOfRowsByRows) {
    selection.press({2, 4}, Unit::row);
    EXPECT_EQ(selection.text(), "second");
    selection.extendTo({3, 2});
    EXPECT_EQ(selection.text(), "second\nthe third one");
    selection.extendTo({0, 2});
    EXPECT_EQ(selection.text(), "first row\nsecond");
}

TEST_F(RowTextSelectionTest, SelectAllSelectsEveryRow) {
    selection.selectAll();
    EXPECT_EQ(selection.text(), "first row\nsecond\nthe third one");
    rows.clear();
    selection.selectAll();
    EXPECT_TRUE(selection.isEmpty());
    EXPECT_FALSE(press(Qt::Key_Right));
}

TEST_F(RowTextSelectionTest, NavigationKeysMoveTheCaretAcrossRows) {
    struct Step {
        int key;
        Qt::KeyboardModifiers modifiers;
        RowTextPlace caret;
    };

    const auto control = Qt::ControlModifier;
    const Step steps[] = {
        {Qt::Key_Right, {}, {0, 1}},     {Qt::Key_Right, control, {0, 6}}, {Qt::Key_Right, control, {0, 9}},
        {Qt::Key_Right, {}, {1, 0}},     {Qt::Key_Right, {}, {2, 0}},      {Qt::Key_Left, {}, {1, 0}},
        {Qt::Key_Left, {}, {0, 9}},      {Qt::Key_Left, control, {0, 6}},  {Qt::Key_Left, control, {0, 0}},
        {Qt::Key_Left, {}, {0, 0}},      {Qt::Key_End, {}, {0, 9}},        {Qt::Key_Down, {}, {1, 0}},
        {Qt::Key_Down, {}, {2, 6}},      {Qt::Key_Down, {}, {3, 9}},       {Qt::Key_Down, {}, {3, 9}},
        {Qt::Key_Home, {}, {3, 0}},      {Qt::Key_PageUp, {}, {1, 0}},     {Qt::Key_PageDown, {}, {3, 0}},
        {Qt::Key_End, control, {3, 13}}, {Qt::Key_Right, {}, {3, 13}},     {Qt::Key_Home, control, {0, 0}},
    };
    for (const auto& [key, modifiers, caret] : steps) {
        EXPECT_TRUE(press(key, modifiers));
        EXPECT_EQ(selection.caret(), caret)
            << "key " << key << ": " << selection.caret().row << ", " << selection.caret().offset;
        EXPECT_TRUE(selection.isEmpty());
    }
    EXPECT_FALSE(press(Qt::Key_A));
}

TEST_F(RowTextSelectionTest, ShiftExtendsTheSelectionToTheCaret) {
    const auto shift = Qt::ShiftModifier;
    selection.moveTo({2, 3});
    press(Qt::Key_Right, shift);
    EXPECT_EQ(selection.text(), "o");
    press(Qt::Key_Down, shift);
    EXPECT_EQ(selection.text(), "ond\nthe ");
    press(Qt::Key_End, shift);
    EXPECT_EQ(selection.text(), "ond\nthe third one");
    press(Qt::Key_Home, shift | Qt::ControlModifier);
    EXPECT_EQ(selection.text(), "first row\nsec");
    press(Qt::Key_Right);
    EXPECT_EQ(selection.caret(), (RowTextPlace{2, 3})) << "collapses the selection to its end";
    press(Qt::Key_Left, shift);
    press(Qt::Key_Left);
    EXPECT_EQ(selection.caret(), (RowTextPlace{2, 2})) << "or to its start";
    EXPECT_TRUE(selection.isEmpty());
}

TEST_F(RowTextSelectionTest, ExtendingKeepsTheAnchorSetByKeys) {
    selection.moveTo({0, 6});
    press(Qt::Key_End, Qt::ShiftModifier);
    selection.extendTo({2, 1});
    EXPECT_EQ(selection.text(), "row\ns");
}

TEST_F(RowTextSelectionTest, MovesByUserPerceivedCharacters) {
    rows = {"aé漢👩‍🚀z"};
    std::vector<std::size_t> places;
    while (places.empty() || places.back() < rows[0]->size()) {
        press(Qt::Key_Right);
        places.push_back(selection.caret().offset);
    }
    EXPECT_EQ(places, (std::vector<std::size_t>{1, 3, 6, 17, 18}));
    while (selection.caret().offset > 0) {
        places.pop_back();
        press(Qt::Key_Left);
        EXPECT_EQ(selection.caret().offset, places.empty() ? 0 : places.back());
    }
}

TEST_F(RowTextSelectionTest, KeysInALongRowAreFast) {
    constexpr std::size_t byteCount = 64'000'000;
    rows = {std::string(byteCount, 'x')};
    for (int i = 0; i < 1000; ++i) {
        selection.moveTo({0, byteCount / 2});
        press(Qt::Key_Right);
        press(Qt::Key_Left);
        press(Qt::Key_Right, Qt::ControlModifier);
        press(Qt::Key_Left, Qt::ControlModifier);
    }
    EXPECT_EQ(selection.caret().offset, byteCount / 2);
}

} // namespace
} // namespace korvane
