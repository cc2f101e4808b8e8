/// What a calendar on the screen says in the user's language: weekdays, months, days. Its days are those of
/// the proleptic Gregorian calendar, whatever calendar the locale counts years in.
#pragma once

#include <array>
#include <chrono>
#include <string>

namespace korvane::CalendarText {

// `locale` is a name of the C library or of ICU; an empty one is the user's, from the environment.

/// The day that a week begins with.
std::chrono::weekday firstDayOfWeek(const std::string& locale = {});

/// Short names of the weekdays ("Mo"), from the first day of the week on.
std::array<std::string, 7> weekdays(const std::string& locale = {});

/// "November 2025".
std::string monthAndYear(std::chrono::year_month month, const std::string& locale = {});

/// "Friday, 21 November 2025".
std::string fullDate(std::chrono::year_month_day day, const std::string& locale = {});

/// Whether hours are counted to 12 twice a day.
bool usesTwelveHourClock(const std::string& locale = {});

} // namespace korvane::CalendarText
