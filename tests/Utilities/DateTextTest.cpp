#include "Utilities/DateText.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvane {
namespace {

const DateText::Region berlin{"en_US", "Europe/Berlin"};

TEST(DateTextTest, SpellsOutEverythingInTheFullStyle) {
    EXPECT_EQ(DateText::fullDateAndTime(1704164645, berlin),
              "Tuesday, January 2, 2024 at 4:04:05\u202fAM Central European Standard Time");
    EXPECT_EQ(DateText::fullDateAndTime(1720000000, berlin),
              "Wednesday, July 3, 2024 at 11:46:40\u202fAM Central European Summer Time");
    EXPECT_EQ(DateText::fullDateAndTime(0, {"de_DE", "UTC"}),
              "Donnerstag, 1. Januar 1970 um 00:00:00 Koordinierte Weltzeit");
}

TEST(DateTextTest, HasShorterStyles) {
    EXPECT_EQ(DateText::mediumDateAndTime(1704164645, berlin), "Jan 2, 2024, 4:04:05\u202fAM");
    EXPECT_EQ(DateText::shortTime(1704164645, berlin), "4:04\u202fAM");
    EXPECT_EQ(DateText::shortTime(1704164645, {"de_DE", "Europe/Berlin"}), "04:04");
}

TEST(DateTextTest, HasNoTextForWhatIsNoMoment) {
    for (const double seconds :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), 1e300, 2e14, -2e14}) {
        EXPECT_EQ(DateText::fullDateAndTime(seconds, berlin), std::nullopt) << seconds;
        EXPECT_EQ(DateText::iso8601(seconds), std::nullopt) << seconds;
    }
}

TEST(DateTextTest, WritesTheInternetForm) {
    EXPECT_EQ(DateText::iso8601(0), "1970-01-01T00:00:00Z");
    EXPECT_EQ(DateText::iso8601(1704164645.999), "2024-01-02T03:04:05Z");
    EXPECT_EQ(DateText::iso8601(-0.5), "1969-12-31T23:59:59Z");
    EXPECT_EQ(DateText::iso8601(253402300799), "9999-12-31T23:59:59Z");
    EXPECT_EQ(DateText::iso8601(253402300800), std::nullopt);
    EXPECT_EQ(DateText::iso8601(-62167219200), "0000-01-01T00:00:00Z");
    EXPECT_EQ(DateText::iso8601(-62167219201), std::nullopt);
}

} // namespace
} // namespace korvane
