/// The texts of an on-screen calendar in the user's language: weekdays, months, days. Dates are in the
/// proleptic Gregorian calendar, whatever calendar the locale prefers.
#pragma once

#include <array>
#include <chrono>
#include <string>

namespace korvane::CalendarText {

// `locale` is a C library or ICU locale name; if empty, the user's locale from the environment.

/// The first day of the week.
std::chrono::weekday firstDayOfWeek(const std::string& locale = {});

/// Short weekday names ("Mo"), starting with the first day of the week.
std::array<std::string, 7> weekdays(const std::string& locale = {});

/// "November 2025".
std::string monthAndYear(std::chrono::year_month month, const std::string& locale = {});

/// "Friday, 21 November 2025".
std::string fullDate(std::chrono::year_month_day day, const std::string& locale = {});

/// Whether the locale uses a 12-hour clock.
bool usesTwelveHourClock(const std::string& locale = {});

} // namespace korvane::CalendarText
