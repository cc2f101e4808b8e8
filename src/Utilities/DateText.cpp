#include "Utilities/DateText.h"

#include "Utilities/Text/LocaleName.h"

#include <fmt/format.h>
#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <sys/stat.h>
#include <sys/types.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

namespace korvane::DateText {

namespace {

/// The earliest and latest time of ICU's calendar, in milliseconds; it silently clamps other times to these.
constexpr double earliestMillisecond = -184303902528000000.0;
constexpr double latestMillisecond = 183882168921600000.0;

icu::TimeZone* newTimeZone(const std::string& name) {
    return name.empty() ? icu::TimeZone::detectHostTimeZone()
                        : icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name));
}

/// The settings that determine the system's time zone, to detect a change. Reading them costs one system
/// call; detecting the zone itself may search the whole database.
struct SystemZone {
    std::string variable{};
    dev_t device{};
    ino_t file{};
    std::int64_t second{}; ///< of the file's last modification
    std::int64_t nanosecond{};

    bool operator==(const SystemZone&) const = default;
};

SystemZone systemZone() {
    SystemZone zone;
    if (const char* variable = std::getenv("TZ"))
        zone.variable = variable;
    struct stat facts{};
    if (stat("/etc/localtime", &facts) == 0) {
        zone.device = facts.st_dev;
        zone.file = facts.st_ino;
        zone.second = facts.st_mtim.tv_sec;
        zone.nanosecond = facts.st_mtim.tv_nsec;
    }
    return zone;
}

struct Style {
    icu::DateFormat::EStyle date;
    icu::DateFormat::EStyle time;

    bool operator==(const Style&) const = default;
};

constexpr Style fullStyle{icu::DateFormat::kFull, icu::DateFormat::kFull};
constexpr Style mediumStyle{icu::DateFormat::kMedium, icu::DateFormat::kLong};
constexpr Style shortTimeStyle{icu::DateFormat::kNone, icu::DateFormat::kShort};

/// A formatter and its parameters. Creating one takes about a millisecond, too long for every row of a list,
/// so each thread caches its last one.
struct Formatter {
    Style style{icu::DateFormat::kNone, icu::DateFormat::kNone};
    Region region{};
    SystemZone systemZone{}; ///< if the region uses it
    std::unique_ptr<icu::DateFormat> format{};
};

const icu::DateFormat* formatter(Style style, const Region& region) {
    thread_local Formatter last;
    auto zone = region.timeZone.empty() ? systemZone() : SystemZone();
    if (!last.format || last.style != style || last.region != region || last.systemZone != zone) {
        const icu::Locale locale(icuLocaleName(region.locale).c_str());
        last = {style, region, std::move(zone),
                std::unique_ptr<icu::DateFormat>(
                    icu::DateFormat::createDateTimeInstance(style.date, style.time, locale))};
        if (last.format)
            last.format->adoptTimeZone(newTimeZone(region.timeZone));
    }
    return last.format.get();
}

std::optional<std::string> text(double secondsSince1970, Style style, const Region& region) {
    const double milliseconds = secondsSince1970 * 1000;
    if (!(milliseconds >= earliestMillisecond && milliseconds <= latestMillisecond))
        return std::nullopt;
    const auto* format = formatter(style, region);
    if (!format)
        return std::nullopt;
    icu::UnicodeString formatted;
    std::string result;
    format->format(milliseconds, formatted).toUTF8String(result);
    return result;
}

} // namespace

std::optional<std::string> fullDateAndTime(double secondsSince1970, const Region& region) {
    return text(secondsSince1970, fullStyle, region);
}

std::optional<std::string> mediumDateAndTime(double secondsSince1970, const Region& region) {
    return text(secondsSince1970, mediumStyle, region);
}

std::optional<std::string> shortTime(double secondsSince1970, const Region& region) {
    return text(secondsSince1970, shortTimeStyle, region);
}

std::optional<std::string> iso8601(double secondsSince1970) {
    using namespace std::chrono;
    constexpr auto earliest = sys_seconds(sys_days(year(0) / January / 1));
    constexpr auto end = sys_seconds(sys_days(year(10000) / January / 1));
    const double wholeSeconds = std::floor(secondsSince1970);
    if (!(wholeSeconds >= static_cast<double>(earliest.time_since_epoch().count()) &&
          wholeSeconds < static_cast<double>(end.time_since_epoch().count())))
        return std::nullopt;
    const sys_seconds moment{seconds(static_cast<std::int64_t>(wholeSeconds))};
    const auto midnight = floor<days>(moment);
    const year_month_day date{midnight};
    const hh_mm_ss time{moment - midnight};
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                       time.hours().count(), time.minutes().count(), time.seconds().count());
}

} // namespace korvane::DateText
