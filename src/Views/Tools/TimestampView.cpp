#include "Views/Tools/TimestampView.h"

#include "Utilities/DateText.h"
#include "Utilities/Text/DoubleText.h"
#include "Utilities/Text/Text.h"

#include <fmt/format.h>

#include <cmath>
#include <utility>

namespace korvane {

namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::system_clock;

constexpr double startOfYear10000 = 253402300800; // in seconds since 1970

milliseconds untilNextSecond(system_clock::time_point now) {
    return std::chrono::ceil<milliseconds>(std::chrono::floor<seconds>(now) + seconds(1) - now);
}

} // namespace

void TimestampView::appear(const Context<TimestampView>& context) {
    selectedDate = std::chrono::floor<milliseconds>(context.services.clock.now());
    tick(context);
}

void TimestampView::tick(const Context<TimestampView>& context) {
    const auto now = context.services.clock.now();
    currentTimestamp = duration_cast<seconds>(now.time_since_epoch()).count();
    context.services.timers.after(untilNextSecond(now), [context] {
        context.update([context](TimestampView& view) { view.tick(context); });
    });
}

void TimestampView::setUnixTimestamp(std::string text) {
    unixTimestamp = std::move(text);
}

void TimestampView::convertTimestampToDate() {
    errorMessage.reset();
    dateString.clear();
    isBeyondYear9999 = false;
    std::optional<std::string> date;
    if (const auto number = doubleFromText(trimmingWhitespaces(unixTimestamp))) {
        const auto sinceEpoch = *number / factsOf(timestampUnit).perSecond;
        date = DateText::fullDateAndTime(sinceEpoch);
        isBeyondYear9999 = std::isfinite(sinceEpoch) && std::abs(sinceEpoch) >= startOfYear10000;
    }
    if (date)
        dateString = *std::move(date);
    else
        errorMessage = "Invalid timestamp format";
}

std::string TimestampView::currentSeconds() const {
    return fmt::format("{}", currentTimestamp);
}

std::string TimestampView::currentMilliseconds() const {
    return fmt::format("{}", currentTimestamp * 1000);
}

std::string TimestampView::selectedSeconds() const {
    return fmt::format("{}", duration_cast<seconds>(selectedDate.time_since_epoch()).count());
}

std::string TimestampView::selectedMilliseconds() const {
    return fmt::format("{}", selectedDate.time_since_epoch().count());
}

std::string TimestampView::selectedISO8601() const {
    const std::chrono::duration<double> sinceEpoch = selectedDate.time_since_epoch();
    return DateText::iso8601(sinceEpoch.count()).value_or("");
}

} // namespace korvane
