#include "Desktop/Tools/Screens.h"

#include "Desktop/Text/TextArea.h"

#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QtTest/QTest>

#include <memory>

namespace korvane {
namespace {

using namespace std::chrono_literals;

struct Base64ScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{base64Screen(fakes.services)};
    ScreenDriver screen{*widget};
};

TEST_F(Base64ScreenTest, EncodesAndCopies) {
    EXPECT_FALSE(screen.hasButton("Copy Base64 Output"));
    screen.type("Plain Text", "Hello");
    EXPECT_TRUE(screen.shows("Input: 5 characters"));
    screen.press("Encode");
    EXPECT_EQ(screen.text("Base64 Output"), "SGVsbG8=");
    EXPECT_TRUE(screen.shows("Input: 5 characters\u2002•\u2002Output: 8 characters"));
    screen.press("Copy Base64 Output");
    EXPECT_EQ(fakes.clipboard.content, "SGVsbG8=");
    EXPECT_TRUE(screen.hasButton("Copied! Base64 Output"));
    fakes.timers.advance(1500ms);
    EXPECT_TRUE(screen.hasButton("Copy Base64 Output"));
}

TEST_F(Base64ScreenTest, DecodesPastedText) {
    screen.choose("Decode");
    EXPECT_TRUE(screen.hasEditor("Base64 Input"));
    EXPECT_TRUE(screen.hasEditor("Decoded Text"));
    EXPECT_EQ(screen.placeholder("Base64 Input"), "Enter Base64 to decode...");
    fakes.clipboard.content = " 4pqT\n";
    screen.press("Paste");
    EXPECT_EQ(screen.text("Base64 Input"), " 4pqT\n");
    screen.press("Decode");
    EXPECT_EQ(screen.text("Decoded Text"), "⚓");
}

TEST_F(Base64ScreenTest, ChangesItsModeByKeyboard) {
    screen.editor("Plain Text").setFocus();
    for (int stops = 0; stops < 4; ++stops) // Clear, Paste, Encode, and the picker
        QTest::keyClick(widget->focusWidget(), Qt::Key_Backtab);
    QTest::keyClick(widget->focusWidget(), Qt::Key_Right);
    EXPECT_TRUE(screen.hasEditor("Base64 Input"));
    QTest::keyClick(widget->focusWidget(), Qt::Key_Left);
    EXPECT_TRUE(screen.hasEditor("Plain Text"));
    QTest::keyClick(widget->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(widget->focusWidget(), &screen.button("Encode"));
}

TEST_F(Base64ScreenTest, ShowsItsMessageUntilTheInputChanges) {
    screen.press("Encode");
    EXPECT_TRUE(screen.shows("Input is empty"));
    screen.type("Plain Text", "x");
    EXPECT_FALSE(screen.shows("Input is empty"));
}

TEST_F(Base64ScreenTest, PastingNothingKeepsTheTextAndClearEmptiesIt) {
    screen.type("Plain Text", "kept");
    screen.press("Paste");
    EXPECT_EQ(screen.text("Plain Text"), "kept");
    screen.press("Clear");
    EXPECT_EQ(screen.text("Plain Text"), "");
    EXPECT_EQ(screen.placeholder("Plain Text"), "Enter text to encode...");
    EXPECT_FALSE(screen.shows("Input: 0 characters"));
}

TEST_F(Base64ScreenTest, UndoRestoresAClearedText) {
    screen.type("Plain Text", "typed");
    screen.press("Clear");
    screen.undo("Plain Text");
    EXPECT_EQ(screen.text("Plain Text"), "typed");
    EXPECT_TRUE(screen.shows("Input: 5 characters"));
}

} // namespace
} // namespace korvane
