#include "Desktop/Lists/RowList.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QSpinBox>
#include <QtTest/QTest>

#include <memory>
#include <string>

namespace korvane {
namespace {

struct UUIDGeneratorScreenTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{uuidGeneratorScreen(fakes.services)};
    ScreenDriver screen{*widget};

    std::string current() const { return screen.text("UUID"); }

    int rowCount() const { return screen.list("History").rowCount(); }
};

TEST_F(UUIDGeneratorScreenTest, ANewScreenShowsAllItsTexts) {
    for (const auto* label : {"UUID Generator", "Generate UUIDs", "BULK GENERATE", "Count:", "History (1)"})
        EXPECT_TRUE(screen.shows(label)) << label;
    for (const auto* button :
         {"Uppercase", "Hyphens", "Generate New", "Copy UUID", "Generate 5", "Copy All", "Clear"})
        EXPECT_TRUE(screen.hasButton(button)) << button;
    EXPECT_EQ(current().size(), 36U);
    EXPECT_TRUE(screen.hasButton("Copy " + current())) << "the history contains the current UUID";
}

TEST_F(UUIDGeneratorScreenTest, GeneratesAndCopies) {
    const auto first = current();
    screen.press("Generate New");
    EXPECT_NE(current(), first);
    EXPECT_TRUE(screen.shows("History (2)"));
    screen.press("Copy UUID");
    EXPECT_EQ(fakes.clipboard.content, current());
    screen.press("Copy " + first);
    EXPECT_EQ(fakes.clipboard.content, first);
    EXPECT_FALSE(fakes.clipboard.isSecret);
    screen.press("Copy All");
    EXPECT_EQ(fakes.clipboard.content, current() + "\n" + first);
}

TEST_F(UUIDGeneratorScreenTest, ShowsAllUUIDsInTheChosenFormat) {
    const auto canonical = current();
    screen.press("Uppercase");
    screen.press("Hyphens");
    EXPECT_EQ(current().size(), 32U);
    EXPECT_TRUE(screen.hasButton("Copy " + current())) << "in the history as well";
    EXPECT_FALSE(screen.hasButton("Copy " + canonical));
    screen.press("Copy " + current());
    EXPECT_EQ(fakes.clipboard.content, current());
    screen.press("Uppercase");
    screen.press("Hyphens");
    EXPECT_EQ(current(), canonical);
}

TEST_F(UUIDGeneratorScreenTest, GeneratesTheChosenCount) {
    auto* count = widget->findChild<QSpinBox*>();
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(count->minimum(), 1);
    EXPECT_EQ(count->maximum(), 100);
    QTest::keyClick(count, Qt::Key_Up);
    screen.press("Generate 6");
    EXPECT_TRUE(screen.shows("History (7)"));
    EXPECT_EQ(rowCount(), 7);
    count->setValue(100);
    screen.press("Generate 100");
    EXPECT_TRUE(screen.shows("History (100)"));
    EXPECT_EQ(rowCount(), 100);
}

TEST_F(UUIDGeneratorScreenTest, ClearsItsHistory) {
    const auto kept = current();
    screen.press("Clear");
    EXPECT_TRUE(screen.shows("History (0)"));
    EXPECT_TRUE(screen.shows("Generated UUIDs will appear here"));
    EXPECT_EQ(current(), kept);
    fakes.clipboard.content = "before";
    screen.press("Copy All");
    EXPECT_EQ(fakes.clipboard.content, "");
}

} // namespace
} // namespace korvane
