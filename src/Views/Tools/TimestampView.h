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
    /// What is said of a number that is more likely to count something finer than the unit.
    static constexpr std::string_view unitHint =
        "Takes seconds or milliseconds, as chosen. Divide microseconds by 1000 and nanoseconds by 1000000 to "
        "get milliseconds.";

    /// A moment in milliseconds, which reaches further than any calendar.
    using Date = std::chrono::sys_time<std::chrono::milliseconds>;

    std::string unixTimestamp{};
    std::string dateString{};
    Date selectedDate{};
    std::int64_t currentTimestamp = 0; ///< whole seconds since 1970-01-01T00:00:00Z, cut off towards zero
    std::optional<std::string> errorMessage{};
    TimestampUnit timestampUnit = TimestampUnit::seconds;
    bool isBeyondYear9999 = false; ///< what was converted last, either way

    /// Selects the present moment and sets the clock going, which then ticks until the screen is gone.
    void appear(const Context<TimestampView>& context);

    void setUnixTimestamp(std::string text);

    void setTimestampUnit(TimestampUnit unit) { timestampUnit = unit; }

    void setSelectedDate(Date date) { selectedDate = date; }

    /// Shows the date that `unixTimestamp` stands for in `timestampUnit`, spelled out in the user's language
    /// and time zone, or a message if it stands for none.
    void convertTimestampToDate();

    bool hasDate() const { return !dateString.empty(); }

    /// What the field takes, while what was converted suggests that something else was meant.
    std::string_view hint() const { return isBeyondYear9999 ? unitHint : std::string_view(); }

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
