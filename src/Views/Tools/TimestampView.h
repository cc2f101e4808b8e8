/// The state of the Timestamp screen: the time that it is, a Unix timestamp that becomes a date on a button
/// press, and a date that is a Unix timestamp at once.
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
    /// A moment in milliseconds, which reaches further than any calendar.
    using Date = std::chrono::sys_time<std::chrono::milliseconds>;

    std::string unixTimestamp{};
    std::string dateString{};
    Date selectedDate{};
    std::int64_t currentTimestamp = 0; ///< whole seconds since 1970-01-01T00:00:00Z, cut off towards zero
    std::optional<std::string> errorMessage{};
    TimestampUnit timestampUnit = TimestampUnit::seconds;

    /// Selects the present moment and sets the clock going, which then ticks until the screen is gone.
    void appear(const Context<TimestampView>& context);

    void setUnixTimestamp(std::string text);

    void setTimestampUnit(TimestampUnit unit) { timestampUnit = unit; }

    void setSelectedDate(Date date) { selectedDate = date; }

    /// Shows the date that `unixTimestamp` stands for in `timestampUnit`, spelled out in the user's language
    /// and time zone, or a message if it stands for none.
    void convertTimestampToDate();

    bool hasDate() const { return !dateString.empty(); }

    /// The present moment, in whole seconds.
    Date currentDate() const { return Date(std::chrono::seconds(currentTimestamp)); }

    std::string currentSeconds() const;
    std::string currentMilliseconds() const;

    /// What `selectedDate` is in Unix seconds and milliseconds (cut off towards zero) and in the internet
    /// form of ISO 8601 in UTC; the latter is empty outside of the years 0 to 9999.
    std::string selectedSeconds() const;
    std::string selectedMilliseconds() const;
    std::string selectedISO8601() const;

    bool operator==(const TimestampView&) const = default;

private:
    void tick(const Context<TimestampView>& context);
};

} // namespace korvane
