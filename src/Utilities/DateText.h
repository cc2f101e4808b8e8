/// Formats points in time: for people, in a language and a time zone, and as ISO 8601. Does not parse, and
/// does not read the clock.
#pragma once

#include <optional>
#include <string>

namespace korvane::DateText {

/// The locale and time zone of a formatted text.
struct Region {
    std::string locale{};   ///< an ICU locale name such as "en_GB"; empty: the user's, from the environment
    std::string timeZone{}; ///< an IANA time zone such as "Europe/Berlin"; empty: the system's current one

    bool operator==(const Region&) const = default;
};

// Times are seconds since 1970-01-01T00:00:00Z, with fractions; the texts round down to whole seconds. The
// result is none for NaN, infinity, and years beyond the range of ICU's Gregorian calendar (about five
// million either way). Dates before 15 October 1582 are in the Julian calendar.

/// The full form with the zone's name: "Tuesday, January 2, 2024 at 4:04:05 AM Central European
/// Standard Time".
std::optional<std::string> fullDateAndTime(double secondsSince1970, const Region& region = {});

/// The medium form of date and time, with the zone: "Jan 2, 2024, 4:04:05 AM GMT+1".
std::optional<std::string> mediumDateAndTime(double secondsSince1970, const Region& region = {});

/// Hours and minutes: "4:04 AM".
std::optional<std::string> shortTime(double secondsSince1970, const Region& region = {});

/// The internet date and time of ISO 8601 in UTC, "2024-01-02T03:04:05Z", in the proleptic Gregorian
/// calendar. None outside the years 0 to 9999.
std::optional<std::string> iso8601(double secondsSince1970);

} // namespace korvane::DateText
