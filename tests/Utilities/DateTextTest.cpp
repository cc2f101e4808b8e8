#include "Utilities/DateText.h"

#include "support/LocalZone.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

namespace korvane {
namespace {

const DateText::Region berlin{"en_US", "Europe/Berlin"};

TEST(DateTextTest, FullStyleSpellsOutDateTimeAndZone) {
    EXPECT_EQ(DateText::fullDateAndTime(1704164645, berlin),
              "Tuesday, January 2, 2024 at 4:04:05\u202fAM Central European Standard Time");
    EXPECT_EQ(DateText::fullDateAndTime(1720000000, berlin),
              "Wednesday, July 3, 2024 at 11:46:40\u202fAM Central European Summer Time");
    EXPECT_EQ(DateText::fullDateAndTime(0, {"de_DE", "UTC"}),
              "Donnerstag, 1. Januar 1970 um 00:00:00 Koordinierte Weltzeit");
}

TEST(DateTextTest, FollowsChangesOfTheSystemTimeZone) {
    const DateText::Region local{"de_DE", ""};
    const auto timeIn = [&](const char* zone) {
        const LocalZone system(zone);
        return DateText::shortTime(1704164645, local);
    };
    EXPECT_EQ(timeIn("Europe/Berlin"), "04:04");
    EXPECT_EQ(timeIn("Asia/Tokyo"), "12:04");
    EXPECT_EQ(timeIn("UTC"), "03:04");
    const LocalZone tokyo("Asia/Tokyo");
    EXPECT_EQ(DateText::shortTime(1704164645, {"de_DE", "Europe/Berlin"}), "04:04")
        << "an explicit zone is unaffected";
    EXPECT_EQ(DateText::shortTime(1704164645, local), "12:04");
}

TEST(DateTextTest, FormatsMediumAndShortStyles) {
    EXPECT_EQ(DateText::mediumDateAndTime(1704164645, berlin), "Jan 2, 2024, 4:04:05\u202fAM GMT+1");
    EXPECT_EQ(DateText::shortTime(1704164645, berlin), "4:04\u202fAM");
    EXPECT_EQ(DateText::shortTime(1704164645, {"de_DE", "Europe/Berlin"}), "04:04");
}

TEST(DateTextTest, AppliesTheZoneAndItsSummerTime) {
    struct Row {
        std::string_view timeZone;
        double seconds;
        std::string_view text;
    };

    constexpr Row rows[] = {
        {"UTC", 0, "Thursday, 1 January 1970 at 00:00:00 Coordinated Universal Time"},
        {"UTC", -86400, "Wednesday, 31 December 1969 at 00:00:00 Coordinated Universal Time"},
        {"UTC", -0.5, "Wednesday, 31 December 1969 at 23:59:59 Coordinated Universal Time"},
        {"UTC", 2147483648, "Tuesday, 19 January 2038 at 03:14:08 Coordinated Universal Time"},
        {"UTC", -62135596800, "Monday, 3 January 1 at 00:00:00 Coordinated Universal Time"},
        {"UTC", 253402300799, "Friday, 31 December 9999 at 23:59:59 Coordinated Universal Time"},
        {"Europe/Berlin", 0, "Thursday, 1 January 1970 at 01:00:00 Central European Standard Time"},
        {"Europe/Berlin", 1711846799, "Sunday, 31 March 2024 at 01:59:59 Central European Standard Time"},
        {"Europe/Berlin", 1711846800, "Sunday, 31 March 2024 at 03:00:00 Central European Summer Time"},
        {"Europe/Berlin", 1729990799, "Sunday, 27 October 2024 at 02:59:59 Central European Summer Time"},
        {"Europe/Berlin", 1729990800, "Sunday, 27 October 2024 at 02:00:00 Central European Standard Time"},
        {"Europe/Berlin", 2147483648, "Tuesday, 19 January 2038 at 04:14:08 Central European Standard Time"},
        {"America/New_York", 1700000000, "Tuesday, 14 November 2023 at 17:13:20 Eastern Standard Time"},
        {"America/New_York", 1720000000, "Wednesday, 3 July 2024 at 05:46:40 Eastern Daylight Time"},
        {"America/New_York", 253402300799, "Friday, 31 December 9999 at 18:59:59 GMT-05:00"},
        {"Asia/Kolkata", 1720000000, "Wednesday, 3 July 2024 at 15:16:40 India Standard Time"},
        {"Asia/Kathmandu", 1720000000, "Wednesday, 3 July 2024 at 15:31:40 Nepal Time"},
        {"Australia/Lord_Howe", 1700000000,
         "Wednesday, 15 November 2023 at 09:13:20 Lord Howe Daylight Time"},
        {"Australia/Lord_Howe", 1720000000, "Wednesday, 3 July 2024 at 20:16:40 Lord Howe Standard Time"},
        {"Pacific/Kiritimati", 1700000000, "Wednesday, 15 November 2023 at 12:13:20 Line Islands Time"},
        {"Pacific/Pago_Pago", 1700000000, "Tuesday, 14 November 2023 at 11:13:20 Samoa Standard Time"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(DateText::fullDateAndTime(row.seconds, {"en_GB", std::string(row.timeZone)}), row.text);
}

TEST(DateTextTest, UsesEnglishInTheCAndPOSIXLocales) {
    for (const auto* locale : {"C", "POSIX", "C.UTF-8"})
        EXPECT_EQ(DateText::mediumDateAndTime(1720000000, {locale, "UTC"}),
                  "Jul 3, 2024, 9:46:40\u202fAM UTC")
            << locale;
}

TEST(DateTextTest, CoversTheRangeOfICUsCalendar) {
    const DateText::Region utc{"en_US", "UTC"};
    EXPECT_EQ(DateText::mediumDateAndTime(183882168921600, utc), "Dec 20, 5828963, 12:00:00\u202fAM UTC");
    EXPECT_EQ(DateText::mediumDateAndTime(183882168921600.5, utc), std::nullopt);
    EXPECT_EQ(DateText::mediumDateAndTime(-184303902528000, utc), "Sep 20, 5838270, 12:00:00\u202fAM UTC");
    EXPECT_EQ(DateText::mediumDateAndTime(-184303902528001, utc), std::nullopt);
}

TEST(DateTextTest, ReturnsNothingForNonfiniteAndOutOfRangeTimes) {
    for (const double seconds :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), 1e300, 2e14, -2e14}) {
        EXPECT_EQ(DateText::fullDateAndTime(seconds, berlin), std::nullopt) << seconds;
        EXPECT_EQ(DateText::iso8601(seconds), std::nullopt) << seconds;
    }
}

TEST(DateTextTest, WritesISO8601) {
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
