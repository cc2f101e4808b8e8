#include "Desktop/Tools/Screens.h"

#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Utilities/TextTransformer.h"

#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QtTest/QTest>

#include <memory>

namespace korvane {
namespace {

struct TextTransformerScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{textTransformerScreen(fakes.services)};
    ScreenDriver screen{*widget};

    void showsAll(std::initializer_list<std::string_view> texts) const {
        for (const auto text : texts)
            EXPECT_TRUE(screen.shows(text)) << text;
    }
};

TEST_F(TextTransformerScreenTest, OffersTheCaseTransforms) {
    showsAll({"SELECT TRANSFORMATION", "INPUT TEXT", "OUTPUT"});
    for (const auto transform : allCases<CaseTransform>) {
        EXPECT_EQ(screen.button(rawValue(transform)).isChecked(), transform == CaseTransform::uppercase)
            << rawValue(transform);
    }
    EXPECT_FALSE(screen.hasButton("Sort A-Z"));
    EXPECT_EQ(screen.placeholder("Input Text"), "Enter text to transform...");
    EXPECT_EQ(screen.placeholder("Output"), "Transformed text will appear here...");
    EXPECT_FALSE(screen.hasButton("Copy Output"));
}

TEST_F(TextTransformerScreenTest, OffersTheLineOperations) {
    screen.choose("Line Operations");
    showsAll({"SELECT OPERATION", "INPUT LINES", "OUTPUT"});
    for (const auto operation : allCases<LineOperation>) {
        EXPECT_EQ(screen.button(rawValue(operation)).isChecked(), operation == LineOperation::sortAZ)
            << rawValue(operation);
    }
    EXPECT_FALSE(screen.hasButton("UPPERCASE"));
    EXPECT_EQ(screen.placeholder("Input Lines"), "Enter text (one item per line)...");
    EXPECT_EQ(screen.placeholder("Output"), "Result will appear here...");
}

TEST_F(TextTransformerScreenTest, OffersTheStatistics) {
    screen.choose("Statistics");
    showsAll({"INPUT TEXT", "TEXT STATISTICS", "Enter text above to see statistics"});
    EXPECT_FALSE(screen.hasEditor("Output"));
    EXPECT_FALSE(screen.shows("Characters"));
    EXPECT_EQ(screen.placeholder("Input Text"), "Enter text to analyze...");
    screen.type("Input Text", "Hi! Yes?!\n\nThe end. Or is it?");
    EXPECT_FALSE(screen.shows("Enter text above to see statistics"));
    showsAll({"Characters", "29", "Characters (no spaces)", "22", "Words", "7", "Lines", "3", "Paragraphs",
              "2", "Sentences", "4"});
}

TEST_F(TextTransformerScreenTest, TransformsOnAPressAndCopies) {
    screen.type("Input Text", "JSON data loader");
    EXPECT_EQ(screen.text("Output"), "");
    EXPECT_TRUE(screen.shows("16 characters\u2002•\u20023 words\u2002•\u20021 lines"));
    screen.press("snake_case");
    EXPECT_EQ(screen.text("Output"), "json_data_loader");
    EXPECT_TRUE(screen.button("snake_case").isChecked());
    EXPECT_FALSE(screen.button("UPPERCASE").isChecked());
    screen.press("Copy Output");
    EXPECT_EQ(fakes.clipboard.content, "json_data_loader");
}

TEST_F(TextTransformerScreenTest, APressOfTheSelectedButtonKeepsItSelected) {
    screen.type("Input Text", "a");
    screen.press("UPPERCASE");
    screen.press("UPPERCASE");
    EXPECT_TRUE(screen.button("UPPERCASE").isChecked());
    EXPECT_EQ(screen.text("Output"), "A");
}

TEST_F(TextTransformerScreenTest, CaseAndLineTransformsShareInputAndOutput) {
    fakes.clipboard.content = "b\nA\na";
    screen.press("Paste");
    screen.press("UPPERCASE");
    screen.choose("Line Operations");
    EXPECT_EQ(screen.text("Input Lines"), "b\nA\na");
    EXPECT_EQ(screen.text("Output"), "B\nA\nA");
    EXPECT_TRUE(screen.shows("Input: 3 lines\u2002•\u2002Output: 3 lines"));
    screen.press("Sort A-Z");
    EXPECT_EQ(screen.text("Output"), "A\na\nb");
    screen.choose("Case Transform");
    EXPECT_EQ(screen.text("Output"), "A\na\nb");
}

TEST_F(TextTransformerScreenTest, CountsTheLinesOfAnOutputOnceThereIsOne) {
    screen.choose("Line Operations");
    EXPECT_FALSE(screen.shows("Input: 0 lines"));
    screen.type("Input Lines", "x\nx");
    EXPECT_TRUE(screen.shows("Input: 2 lines"));
    screen.press("Remove Duplicates");
    EXPECT_TRUE(screen.shows("Input: 2 lines\u2002•\u2002Output: 1 lines"));
}

TEST_F(TextTransformerScreenTest, ClearingKeepsTheOutputAndHidesTheFooter) {
    screen.type("Input Text", "kept");
    screen.press("Title Case");
    screen.press("Clear");
    EXPECT_EQ(screen.text("Input Text"), "");
    EXPECT_EQ(screen.text("Output"), "Kept");
    EXPECT_FALSE(screen.shows("0 characters\u2002•\u20020 words\u2002•\u20020 lines"));
    screen.undo("Input Text");
    EXPECT_EQ(screen.text("Input Text"), "kept");
}

TEST_F(TextTransformerScreenTest, SwitchingModesKeepsCaretAndUndo) {
    screen.type("Input Text", "ab");
    screen.choose("Statistics");
    screen.choose("Line Operations");
    screen.undo("Input Lines");
    EXPECT_EQ(screen.text("Input Lines"), "");
}

TEST_F(TextTransformerScreenTest, TilesCanBeUsedByKeyboard) {
    screen.type("Input Text", "some words");
    const auto press = [&](Qt::Key key) { QTest::keyClick(widget->focusWidget(), key); };
    press(Qt::Key_Backtab);
    EXPECT_EQ(widget->focusWidget(), &screen.button("CONSTANT_CASE"));
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(widget->focusWidget(), &screen.button("CONSTANT_CASE")) << "it is the last tile";
    press(Qt::Key_Up);
    press(Qt::Key_Left);
    EXPECT_EQ(widget->focusWidget(), &screen.button("camelCase"));
    EXPECT_EQ(screen.text("Output"), "") << "moving presses nothing";
    press(Qt::Key_Space);
    EXPECT_EQ(screen.text("Output"), "someWords");
}

TEST_F(TextTransformerScreenTest, TheSelectedTileHasATealOutline) {
    const auto edge = [&](std::string_view name) {
        auto& tile = screen.button(name);
        return tile.grab().toImage().pixelColor(tile.width() / 2, 0);
    };
    EXPECT_EQ(edge("UPPERCASE"), Theme::hue(PaletteColor::teal));
    EXPECT_NE(edge("lowercase"), Theme::hue(PaletteColor::teal));
    screen.press("lowercase");
    EXPECT_NE(edge("UPPERCASE"), Theme::hue(PaletteColor::teal));
    EXPECT_EQ(edge("lowercase"), Theme::hue(PaletteColor::teal));
}

TEST_F(TextTransformerScreenTest, TilesHaveEqualSizes) {
    const auto width = screen.button("UPPERCASE").width();
    for (const auto transform : allCases<CaseTransform>) {
        EXPECT_NEAR(screen.button(rawValue(transform)).width(), width, 1) << rawValue(transform);
        EXPECT_EQ(screen.button(rawValue(transform)).height(), 52) << rawValue(transform);
    }
}

TEST_F(TextTransformerScreenTest, TheEditorKeepsItsSizeWhenTheCardsAppear) {
    screen.choose("Statistics");
    settle();
    const auto size = screen.editor("Input Text").size();
    screen.type("Input Text", "x");
    settle();
    EXPECT_EQ(screen.editor("Input Text").size(), size);
}

} // namespace
} // namespace korvane
