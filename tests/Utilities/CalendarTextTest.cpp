#include "Utilities/CalendarText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korvane {
namespace {

using namespace std::chrono;

struct CalendarTextRow {
    std::string locale;
    weekday firstDay;
    std::string_view firstName;
    std::string_view lastName;
    std::string_view month;
    std::string_view day;
    bool usesTwelveHourClock;
};

TEST(CalendarText, FollowsTheLocale) {
    const CalendarTextRow rows[] = {
        {"en_GB.UTF-8", Monday, "Mo", "Su", "November 2025", "Friday, 21 November 2025", false},
        {"en_US.UTF-8", Sunday, "Su", "Sa", "November 2025", "Friday, November 21, 2025", true},
        {"de_DE.UTF-8", Monday, "Mo.", "So.", "November 2025", "Freitag, 21. November 2025", false},
        {"fr_FR", Monday, "lu", "di", "novembre 2025", "vendredi 21 novembre 2025", false},
        {"ja_JP.UTF-8", Sunday, "日", "土", "2025年11月", "2025年11月21日金曜日", false},
        {"ar_EG", Saturday, "سبت", "جمعة", "نوفمبر ٢٠٢٥", "الجمعة، ٢١ نوفمبر ٢٠٢٥", true},
        {"C", Sunday, "Su", "Sa", "November 2025", "Friday, November 21, 2025", true},
        {"C.UTF-8", Sunday, "Su", "Sa", "November 2025", "Friday, November 21, 2025", true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(CalendarText::firstDayOfWeek(row.locale), row.firstDay) << row.locale;
        EXPECT_EQ(CalendarText::weekdays(row.locale).front(), row.firstName) << row.locale;
        EXPECT_EQ(CalendarText::weekdays(row.locale).back(), row.lastName) << row.locale;
        EXPECT_EQ(CalendarText::monthAndYear(2025y / November, row.locale), row.month) << row.locale;
        EXPECT_EQ(CalendarText::fullDate(2025y / November / 21, row.locale), row.day) << row.locale;
        EXPECT_EQ(CalendarText::usesTwelveHourClock(row.locale), row.usesTwelveHourClock) << row.locale;
    }
}

TEST(CalendarText, UsesTheGregorianCalendarInEveryLocale) {
    EXPECT_TRUE(CalendarText::monthAndYear(2025y / November, "th_TH").ends_with("2025"));
    EXPECT_TRUE(CalendarText::monthAndYear(2025y / November, "fa_IR").ends_with("۲۰۲۵"));
    EXPECT_EQ(CalendarText::fullDate(1500y / February / 28, "en_GB"), "Wednesday, 28 February 1500");
    EXPECT_EQ(CalendarText::fullDate(1y / January / 1, "en_GB"), "Monday, 1 January 1");
    EXPECT_EQ(CalendarText::fullDate(9999y / December / 31, "en_GB"), "Friday, 31 December 9999");
}

} // namespace
} // namespace korvane
