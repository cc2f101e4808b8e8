/// Moments as people read them, in a language and a time zone, and as programs exchange them. Nothing here
/// reads the clock, and nothing parses.
#pragma once

#include <optional>
#include <string>

namespace korvane::DateText {

/// Whose customs a text follows.
struct Region {
    std::string locale{}; ///< an ICU locale name such as "en_GB"; empty: the user's, from the environment
    std::string
        timeZone{}; ///< a zone of the IANA database such as "Europe/Berlin"; empty: the system's at the time

    bool operator==(const Region&) const = default;
};

// Moments are in seconds since 1970-01-01T00:00:00Z, fractions included; seconds in between are cut off.
// There is no text for what is no number, infinite, or beyond the years that ICU's Gregorian calendar reaches
// (about five million either way). Dates before 15 October 1582 are those of the Julian calendar, as was the
// custom.

/// Everything spelled out, the zone included: "Tuesday, January 2, 2024 at 4:04:05 AM Central European
/// Standard Time".
std::optional<std::string> fullDateAndTime(double secondsSince1970, const Region& region = {});

/// The usual form of date and time, and the zone: "Jan 2, 2024, 4:04:05 AM GMT+1".
std::optional<std::string> mediumDateAndTime(double secondsSince1970, const Region& region = {});

/// Hours and minutes: "4:04 AM".
std::optional<std::string> shortTime(double secondsSince1970, const Region& region = {});

/// The internet date and time of ISO 8601 in UTC, "2024-01-02T03:04:05Z", in the proleptic Gregorian
/// calendar. Only years 0 to 9999 have one.
std::optional<std::string> iso8601(double secondsSince1970);

} // namespace korvane::DateText
