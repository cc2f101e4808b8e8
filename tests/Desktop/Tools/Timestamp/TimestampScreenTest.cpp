#include "Desktop/Tools/Screens.h"

#include "Utilities/DateText.h"
#include "Views/Tools/TimestampView.h"
#include "support/FakeServices.h"
#include "support/LocalZone.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QLabel>
#include <QLineEdit>
#include <QTimeEdit>

#include <memory>
#include <set>
#include <utility>

namespace korvane {
namespace {

using namespace std::chrono_literals;

struct TimestampScreenTest : testing::Test {
    FakeServices fakes{}; // at 2024-01-02T03:04:05Z
    std::unique_ptr<QWidget> widget{timestampScreen(fakes.services)};
    ScreenDriver screen{*widget};
};

TEST_F(TimestampScreenTest, ShowsItsTexts) {
    for (const auto* text :
         {"Timestamp", "Current Unix Timestamp", "seconds", "milliseconds", "•", "TIMESTAMP → DATE",
          "DATE → TIMESTAMP", "Select Date", "Seconds:", "Milliseconds:", "ISO 8601:"})
        EXPECT_TRUE(screen.shows(text)) << text;
    for (const auto* button :
         {"Copy Seconds", "Copy Milliseconds", "Convert to Date", "Copy Date in ISO 8601"})
        EXPECT_TRUE(screen.hasButton(button)) << button;
    EXPECT_EQ(screen.field("Timestamp").placeholderText(), "Enter Unix timestamp");
    EXPECT_FALSE(screen.shows("Result:"));
}

TEST_F(TimestampScreenTest, TicksUntilItIsDestroyed) {
    EXPECT_TRUE(screen.shows("1704164645"));
    EXPECT_TRUE(screen.shows("1704164645000"));
    fakes.clock.moment += 1s;
    fakes.timers.advance(1s);
    EXPECT_TRUE(screen.shows("1704164646"));
    screen.press("Copy Milliseconds");
    EXPECT_EQ(fakes.clipboard.content, "1704164646000");
    screen.press("Copy Seconds");
    EXPECT_EQ(fakes.clipboard.content, "1704164646");
    widget.reset();
    fakes.timers.advance(10s);
    EXPECT_EQ(fakes.timers.pendingCount(), 0U);
}

TEST_F(TimestampScreenTest, ConvertsATimestamp) {
    screen.enter("Timestamp", "1700000000");
    EXPECT_FALSE(screen.hasEditor("Result"));
    screen.press("Convert to Date");
    EXPECT_EQ(screen.text("Result"), DateText::fullDateAndTime(1.7e9));
    screen.press("Copy Result");
    EXPECT_EQ(fakes.clipboard.content, DateText::fullDateAndTime(1.7e9));
    screen.choose("Milliseconds");
    screen.enter("Timestamp", "1700000000000");
    screen.press("Convert to Date");
    EXPECT_EQ(screen.text("Result"), DateText::fullDateAndTime(1.7e9));
    screen.enter("Timestamp", "12abc");
    screen.press("Convert to Date");
    EXPECT_EQ(screen.text("Error"), "Invalid timestamp format");
    EXPECT_FALSE(screen.hasEditor("Result"));
}

TEST_F(TimestampScreenTest, HintsAtATimestampInAFinerUnit) {
    screen.enter("Timestamp", "1700000000");
    screen.press("Convert to Date");
    EXPECT_FALSE(screen.hasEditor("Hint"));
    screen.enter("Timestamp", "1700000000000000");
    screen.press("Convert to Date");
    EXPECT_EQ(screen.text("Error"), "Invalid timestamp format");
    EXPECT_EQ(screen.text("Hint"), TimestampView::unitHint);
    EXPECT_EQ(screen.field("Timestamp").text(), "1700000000000000");
}

TEST_F(TimestampScreenTest, PickerAndResultFollowAChangeOfTheZone) {
    const auto& time = *widget->findChild<QTimeEdit*>();
    screen.enter("Timestamp", "1704164645");
    for (const auto& [zone, hour] : {std::pair{"Europe/Berlin", 4}, std::pair{"Asia/Tokyo", 12}}) {
        const LocalZone local(zone);
        fakes.timers.advance(1s);
        EXPECT_EQ(time.time(), QTime(hour, 4)) << zone;
        screen.press("Convert to Date");
        EXPECT_EQ(screen.text("Result"), DateText::fullDateAndTime(1704164645, {"", zone})) << zone;
    }
}

TEST_F(TimestampScreenTest, TheLabelsOfADateAreAlignedAndNotCutOff) {
    std::set<int> ends;
    for (const auto* name : {"Seconds:", "Milliseconds:", "ISO 8601:"}) {
        for (auto* label : widget->findChildren<QLabel*>()) {
            if (label->text() != name)
                continue;
            EXPECT_GE(label->width(), label->sizeHint().width()) << name;
            ends.insert(label->mapTo(widget.get(), label->rect().topRight()).x());
        }
    }
    EXPECT_EQ(ends.size(), 1U);
}

TEST_F(TimestampScreenTest, ShowsTheChosenDateInThreeFormats) {
    EXPECT_EQ(screen.text("Date in Seconds"), "1704164645");
    EXPECT_EQ(screen.text("Date in Milliseconds"), "1704164645000");
    EXPECT_EQ(screen.text("Date in ISO 8601"), "2024-01-02T03:04:05Z");
    screen.press("Copy Date in ISO 8601");
    EXPECT_EQ(fakes.clipboard.content, "2024-01-02T03:04:05Z");
}

} // namespace
} // namespace korvane
