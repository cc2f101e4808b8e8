#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QtTest/QTest>

#include <memory>
#include <string>

namespace korvane {
namespace {

using namespace std::chrono_literals;

struct LoremIpsumScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{loremIpsumScreen(fakes.services)};
    ScreenDriver screen{*widget};
};

TEST_F(LoremIpsumScreenTest, ANewScreenShowsAllItsTexts) {
    for (const auto* label : {"Lorem Ipsum", "Generate placeholder text", "Count: 3", "GENERATED TEXT",
                              "Click Generate to create Lorem Ipsum text"})
        EXPECT_TRUE(screen.shows(label)) << label;
    for (const auto* button : {"Start with \"Lorem ipsum...\"", "Generate"})
        EXPECT_TRUE(screen.hasButton(button)) << button;
    for (const auto* button : {"Copy Generated Text", "Clear"})
        EXPECT_FALSE(screen.hasButton(button)) << button;
    EXPECT_TRUE(screen.button("Start with \"Lorem ipsum...\"").isChecked());
    std::vector<std::string> types;
    for (const auto* segment : widget->findChildren<QRadioButton*>()) {
        types.push_back(segment->accessibleName().toStdString());
        EXPECT_EQ(segment->isChecked(), types.size() == 3) << types.back();
    }
    EXPECT_EQ(types, (std::vector<std::string>{"Words", "Sentences", "Paragraphs"}));
}

TEST_F(LoremIpsumScreenTest, GeneratesCountsCopiesAndClears) {
    screen.choose("Words");
    auto* count = widget->findChild<QSpinBox*>();
    ASSERT_NE(count, nullptr);
    QTest::keyClick(count, Qt::Key_Down);
    EXPECT_TRUE(screen.shows("Count: 2"));
    EXPECT_TRUE(screen.shows("Click Generate to create Lorem Ipsum text")) << "only the button generates";
    screen.press("Generate");
    EXPECT_EQ(screen.text("Generated Text"), "Lorem ipsum");
    for (const auto* label : {"2", "Words", "0", "Sentences", "1", "Paragraphs", "11", "Characters"})
        EXPECT_TRUE(screen.shows(label)) << label;
    screen.press("Copy Generated Text");
    EXPECT_EQ(fakes.clipboard.content, "Lorem ipsum");
    EXPECT_TRUE(screen.hasButton("Copied! Generated Text"));
    fakes.timers.advance(1500ms);
    EXPECT_TRUE(screen.hasButton("Copy Generated Text"));
    screen.press("Clear");
    EXPECT_TRUE(screen.shows("Click Generate to create Lorem Ipsum text"));
    EXPECT_FALSE(screen.hasButton("Copy Generated Text"));
}

TEST_F(LoremIpsumScreenTest, LimitsTheCountToOneToAHundred) {
    auto* count = widget->findChild<QSpinBox*>();
    ASSERT_NE(count, nullptr);
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(count, Qt::Key_Down);
    EXPECT_TRUE(screen.shows("Count: 1"));
    count->setValue(1000);
    EXPECT_TRUE(screen.shows("Count: 100"));
    screen.press("Generate");
    EXPECT_TRUE(screen.shows("100")) << "paragraphs";
}

TEST_F(LoremIpsumScreenTest, StartsWithLoremIpsumOnlyWhenSwitchedOn) {
    screen.press("Generate");
    EXPECT_TRUE(screen.text("Generated Text").starts_with("Lorem ipsum dolor sit amet, consectetur"));
    screen.press("Start with \"Lorem ipsum...\"");
    screen.press("Generate");
    EXPECT_FALSE(screen.text("Generated Text").starts_with("Lorem ipsum dolor sit amet, consectetur"));
}

} // namespace
} // namespace korvane
