#include "Desktop/Tools/Screens.h"

#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QSlider>
#include <QtTest/QTest>

#include <memory>

namespace korvane {
namespace {

struct ColorPickerScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{colorPickerScreen(fakes.services)};
    ScreenDriver screen{*widget};
};

TEST_F(ColorPickerScreenTest, StartsWithCyanAndIndependentSliders) {
    for (const auto* text : {"Color Picker", "Select Color", "Opacity: 100%", "COLOR FORMATS", "MANUAL INPUT",
                             "RGB", "HSL", "SwiftUI", "UIKit", "CSS Var", "R", "G", "B", "0", "200", "255"})
        EXPECT_TRUE(screen.shows(text)) << text;
    EXPECT_EQ(screen.text("HEX"), "#32ADE6");
    EXPECT_EQ(screen.text("CSS Var"), "--color-custom: #32ADE6;");
    EXPECT_EQ(screen.field("HEX Input").text(), "");
}

TEST_F(ColorPickerScreenTest, AppliesAHexadecimalColor) {
    screen.enter("HEX Input", " #ff8000 ");
    EXPECT_EQ(screen.text("HEX"), "#32ADE6");
    screen.press("Apply");
    EXPECT_EQ(screen.text("HEX"), "#FF8000");
    EXPECT_EQ(screen.text("RGB"), "rgb(255, 128, 0)");
    EXPECT_EQ(screen.text("HSL"), "hsl(30, 100%, 50%)");
    EXPECT_EQ(screen.field("HEX Input").text(), "#FF8000");
    EXPECT_TRUE(screen.shows("128")) << "beside the slider";
    screen.enter("HEX Input", "F80");
    screen.press("Apply");
    EXPECT_EQ(screen.text("HEX"), "#FF8000");
    EXPECT_EQ(screen.field("HEX Input").text(), "F80");
    screen.enter("HEX Input", "0000ff");
    QTest::keyClick(&screen.field("HEX Input"), Qt::Key_Return);
    EXPECT_EQ(screen.text("HEX"), "#0000FF");
}

TEST_F(ColorPickerScreenTest, AppliesTheSlidersOnlyOnRequest) {
    screen.slider("R").setValue(screen.slider("R").maximum());
    screen.slider("G").setValue(0);
    EXPECT_EQ(screen.text("HEX"), "#32ADE6");
    screen.press("Apply RGB");
    EXPECT_EQ(screen.text("HEX"), "#FF00FF");
    EXPECT_EQ(screen.field("HEX Input").text(), "#FF00FF");
}

TEST_F(ColorPickerScreenTest, CopiesWithTheOpacity) {
    screen.enter("HEX Input", "ff8000");
    screen.press("Apply");
    screen.slider("Opacity").setValue(screen.slider("Opacity").maximum() / 2);
    EXPECT_TRUE(screen.shows("Opacity: 50%"));
    screen.press("Copy RGBA");
    EXPECT_EQ(fakes.clipboard.content, "rgba(255, 128, 0, 0.50)");
    screen.press("Copy UIKit");
    EXPECT_EQ(fakes.clipboard.content, "UIColor(red: 1.000, green: 0.502, blue: 0.000, alpha: 0.50)");
    screen.press("Copy SwiftUI");
    EXPECT_EQ(fakes.clipboard.content, "Color(red: 1.000, green: 0.502, blue: 0.000)");
}

} // namespace
} // namespace korvane
