#include "Utilities/CalendarText.h"

#include "Utilities/Text/LocaleName.h"

#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <cstddef>
#include <limits>
#include <map>
#include <memory>
#include <utility>

namespace korvane::CalendarText {

namespace {

icu::Locale gregorian(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale(icuLocaleName(name).c_str());
    locale.setKeywordValue("calendar", "gregorian", status);
    return locale;
}

/// The locale's pattern for the fields of `skeleton`.
icu::UnicodeString patternFor(const char* skeleton, const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    return generator ? generator->getBestPattern(skeleton, status) : icu::UnicodeString(skeleton);
}

std::unique_ptr<icu::DateFormat> newFormat(const char* skeleton, const std::string& localeName) {
    UErrorCode status = U_ZERO_ERROR;
    const auto locale = gregorian(localeName);
    auto format = std::make_unique<icu::SimpleDateFormat>(patternFor(skeleton, locale), locale, status);
    auto calendar =
        std::make_unique<icu::GregorianCalendar>(icu::TimeZone::getGMT()->clone(), locale, status);
    calendar->setGregorianChange(-std::numeric_limits<double>::max(), status);
    format->adoptCalendar(calendar.release());
    return format;
}

/// Formats are cached: creating one takes milliseconds, and a month has many days.
const icu::DateFormat& formatFor(const char* skeleton, const std::string& locale) {
    thread_local std::map<std::pair<std::string, std::string>, std::unique_ptr<icu::DateFormat>> cache;
    auto& format = cache[{skeleton, icuLocaleName(locale)}];
    if (!format)
        format = newFormat(skeleton, locale);
    return *format;
}

std::string formatted(std::chrono::sys_days day, const char* skeleton, const std::string& locale) {
    const std::chrono::duration<double, std::milli> sinceEpoch = day.time_since_epoch();
    icu::UnicodeString text;
    std::string result;
    formatFor(skeleton, locale).format(sinceEpoch.count(), text).toUTF8String(result);
    return result;
}

} // namespace

std::chrono::weekday firstDayOfWeek(const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(gregorian(locale), status));
    const auto day = calendar ? calendar->getFirstDayOfWeek(status) : UCAL_MONDAY;
    return std::chrono::weekday(static_cast<unsigned>(day - UCAL_SUNDAY));
}

std::array<std::string, 7> weekdays(const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(gregorian(locale), status);
    int count = 0;
    const auto* names =
        symbols.getWeekdays(count, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::SHORT);
    std::array<std::string, 7> result;
    auto day = firstDayOfWeek(locale);
    for (auto& name : result) {
        const auto index = static_cast<int>(day.c_encoding()) + UCAL_SUNDAY;
        if (index < count)
            names[index].toUTF8String(name);
        ++day;
    }
    return result;
}

std::string monthAndYear(std::chrono::year_month month, const std::string& locale) {
    return formatted(month / std::chrono::day(1), "yMMMM", locale);
}

std::string fullDate(std::chrono::year_month_day day, const std::string& locale) {
    return formatted(day, "yMMMMEEEEd", locale);
}

bool usesTwelveHourClock(const std::string& locale) {
    const auto pattern = patternFor("jmm", gregorian(locale));
    return pattern.indexOf(u'h') >= 0 || pattern.indexOf(u'K') >= 0;
}

} // namespace korvane::CalendarText
