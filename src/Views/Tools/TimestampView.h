/// The state of the Timestamp screen: the current time, a Unix timestamp that is converted to a date on a
/// button press, and a date that is converted to Unix timestamps at every change.
#pragma once

#include "Models/Enumeration.h"
#include "Views/Services.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

enum class TimestampUnit { seconds, milliseconds };

struct TimestampUnitFacts {
    TimestampUnit value;
    std::string_view rawValue;
    double perSecond;
};

template <>
inline constexpr auto facts<TimestampUnit> = std::to_array<TimestampUnitFacts>({
    {TimestampUnit::seconds, "Seconds", 1},
    {TimestampUnit::milliseconds, "Milliseconds", 1000},
});

struct TimestampView {
    /// Shown for a number that is probably in a finer unit.
    static constexpr std::string_view unitHint =
        "Takes seconds or milliseconds, as chosen. Divide microseconds by 1000 and nanoseconds by 1000000 to "
        "get milliseconds.";

    /// A time in milliseconds, whose range exceeds every calendar's.
    using Date = std::chrono::sys_time<std::chrono::milliseconds>;

    std::string unixTimestamp{};
    std::string dateString{};
    Date selectedDate{};
    std::int64_t currentTimestamp = 0; ///< seconds since 1970-01-01T00:00:00Z, truncated
    std::optional<std::string> errorMessage{};
    TimestampUnit timestampUnit = TimestampUnit::seconds;
    /// Whether the last conversion gave a time beyond the year 9999, or as far before 1970.
    bool isBeyondYear9999 = false;

    /// Selects the current time and starts the clock, which ticks until the screen is destroyed.
    void appear(const Context<TimestampView>& context);

    void setUnixTimestamp(std::string text);

    void setTimestampUnit(TimestampUnit unit) { timestampUnit = unit; }

    void setSelectedDate(Date date) { selectedDate = date; }

    /// Converts `unixTimestamp`, in `timestampUnit`, to a date in the user's language and time zone, or sets
    /// a message if there is no such date.
    void convertTimestampToDate();

    bool hasDate() const { return !dateString.empty(); }

    /// What the field accepts, if the last number converted was probably in another unit.
    std::string_view hint() const { return isBeyondYear9999 ? unitHint : std::string_view(); }

    /// The current time, in whole seconds.
    Date currentDate() const { return Date(std::chrono::seconds(currentTimestamp)); }

    std::string currentSeconds() const;
    std::string currentMilliseconds() const;

    /// `selectedDate` in Unix seconds and milliseconds (truncated), and in the internet form of ISO 8601 in
    /// UTC; the latter is empty outside of the years 0 to 9999.
    std::string selectedSeconds() const;
    std::string selectedMilliseconds() const;
    std::string selectedISO8601() const;

    bool operator==(const TimestampView&) const = default;

private:
    void tick(const Context<TimestampView>& context);
};

} // namespace korvane
