#include "Desktop/Tools/Screens.h"

#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QLineEdit>

#include <memory>

namespace korvane {
namespace {

struct NumberBaseScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{numberBaseScreen(fakes.services)};
    ScreenDriver screen{*widget};
};

TEST_F(NumberBaseScreenTest, ShowsItsTexts) {
    for (const auto* text :
         {"Number Base", "INPUT (DECIMAL)", "Input Base:", "Prefixes: 0b (binary), 0o (octal), 0x (hex)",
          "CONVERSIONS", "Enter a number above to see conversions"})
        EXPECT_TRUE(screen.shows(text)) << text;
    for (const auto* button : {"Group Digits", "Paste", "Clear"})
        EXPECT_TRUE(screen.hasButton(button)) << button;
    EXPECT_EQ(screen.field("Input").placeholderText(), "Enter decimal number...");
    EXPECT_FALSE(screen.shows("Binary"));
}

TEST_F(NumberBaseScreenTest, ConvertsWhileTyping) {
    screen.enter("Input", "1234567");
    EXPECT_FALSE(screen.shows("Enter a number above to see conversions"));
    EXPECT_EQ(screen.text("Binary"), "100101101011010000111");
    EXPECT_EQ(screen.text("Octal"), "4553207");
    EXPECT_EQ(screen.text("Decimal"), "1234567");
    EXPECT_EQ(screen.text("Hexadecimal"), "12D687");
    for (const auto* text : {"(source)", "base 2", "base 8", "base 10", "base 16"})
        EXPECT_TRUE(screen.shows(text)) << text;
    screen.press("Clear");
    EXPECT_TRUE(screen.shows("Enter a number above to see conversions"));
}

TEST_F(NumberBaseScreenTest, CopiesTheDisplayedDigits) {
    screen.enter("Input", "1234567");
    screen.press("Copy Decimal");
    EXPECT_EQ(fakes.clipboard.content, "1234567");
    screen.press("Group Digits");
    EXPECT_EQ(screen.text("Decimal"), "1,234,567");
    screen.press("Copy Hexadecimal");
    EXPECT_EQ(fakes.clipboard.content, "12 D6 87");
}

TEST_F(NumberBaseScreenTest, FollowsTheBaseOfTheInput) {
    fakes.clipboard.content = "10";
    screen.press("Paste");
    EXPECT_EQ(screen.text("Decimal"), "10");
    screen.choose("Binary");
    EXPECT_EQ(screen.text("Decimal"), "2");
    EXPECT_TRUE(screen.shows("INPUT (BINARY)"));
    EXPECT_TRUE(screen.shows("0b"));
    screen.press("Clear");
    EXPECT_EQ(screen.field("Input").placeholderText(), "Enter binary number...");
    screen.choose("Hexadecimal");
    EXPECT_EQ(screen.field("Input").placeholderText(), "Enter hexadecimal number...");
    EXPECT_TRUE(screen.shows("0x"));
    EXPECT_FALSE(screen.shows("0b"));
}

TEST_F(NumberBaseScreenTest, ShowsAnErrorInsteadOfResults) {
    screen.enter("Input", "0x1F");
    EXPECT_EQ(screen.text("Error"), "Invalid characters for Decimal (base 10)");
    EXPECT_TRUE(screen.shows("Enter a number above to see conversions"));
    screen.choose("Hexadecimal");
    EXPECT_FALSE(screen.hasEditor("Error"));
    EXPECT_EQ(screen.text("Decimal"), "31");
}

} // namespace
} // namespace korvane
