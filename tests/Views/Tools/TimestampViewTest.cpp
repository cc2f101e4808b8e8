#include "Views/Tools/TimestampView.h"

#include "Utilities/DateText.h"
#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

namespace korvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::system_clock;

/// A state on a screen that can be closed.
struct TimestampScreen {
    FakeServices fakes{};
    std::unique_ptr<TimestampView> view = std::make_unique<TimestampView>();
    Context<TimestampView> context{fakes.services, [this](const auto& change) {
                                       if (view)
                                           change(*view);
                                   }};

    void setClock(std::chrono::nanoseconds sinceEpoch) {
        fakes.clock.moment = system_clock::time_point(duration_cast<system_clock::duration>(sinceEpoch));
    }

    void appear() { view->appear(context); }

    /// Advances the clock and the timers together.
    void advance(std::chrono::milliseconds duration) {
        for (; duration > 0ms; duration -= 1ms) {
            fakes.clock.moment += 1ms;
            fakes.timers.advance(1ms);
        }
    }
};

TimestampView converted(std::string text, TimestampUnit unit = TimestampUnit::seconds) {
    TimestampView view{.dateString = "before", .errorMessage = "before"};
    view.setUnixTimestamp(std::move(text));
    view.setTimestampUnit(unit);
    view.convertTimestampToDate();
    return view;
}

TEST(TimestampView, StartsEmptyInSecondsWithTheCurrentTime) {
    TimestampScreen screen;
    screen.setClock(1704164645s + 678ms + 900us);
    screen.appear();
    EXPECT_EQ(screen.view->unixTimestamp, "");
    EXPECT_EQ(screen.view->dateString, "");
    EXPECT_EQ(screen.view->errorMessage, std::nullopt);
    EXPECT_EQ(screen.view->timestampUnit, TimestampUnit::seconds);
    EXPECT_EQ(screen.view->currentTimestamp, 1704164645);
    EXPECT_EQ(screen.view->selectedDate, TimestampView::Date(1704164645678ms));
    EXPECT_EQ(screen.view->currentSeconds(), "1704164645");
    EXPECT_EQ(screen.view->currentMilliseconds(), "1704164645000");
}

TEST(TimestampView, TicksOnTheSecond) {
    TimestampScreen screen;
    screen.setClock(1704164645s + 678ms + 900us);
    screen.appear();
    screen.advance(321ms);
    EXPECT_EQ(screen.view->currentTimestamp, 1704164645);
    screen.advance(1ms); // 0.9 ms into the next second: timers have steps of 1 ms
    EXPECT_EQ(screen.view->currentTimestamp, 1704164646);
    screen.advance(999ms);
    EXPECT_EQ(screen.view->currentTimestamp, 1704164646);
    screen.advance(1ms);
    EXPECT_EQ(screen.view->currentTimestamp, 1704164647);
    EXPECT_EQ(screen.fakes.timers.pendingCount(), 1);
    EXPECT_EQ(screen.view->selectedDate, TimestampView::Date(1704164645678ms)) << "the clock changes no date";
}

TEST(TimestampView, CatchesUpAfterASleep) {
    TimestampScreen screen;
    screen.setClock(1704164645s);
    screen.appear();
    screen.setClock(1704170000s + 250ms);
    screen.fakes.timers.advance(1000ms);
    EXPECT_EQ(screen.view->currentTimestamp, 1704170000);
    screen.advance(750ms);
    EXPECT_EQ(screen.view->currentTimestamp, 1704170001);
}

TEST(TimestampView, TheClockStopsWhenTheScreenIsDestroyed) {
    TimestampScreen screen;
    screen.appear();
    screen.advance(2500ms);
    screen.view.reset();
    screen.advance(1000ms);
    EXPECT_EQ(screen.fakes.timers.pendingCount(), 0);
}

TEST(TimestampView, TruncatesTowardsZeroBefore1970) {
    TimestampScreen screen;
    screen.setClock(-1500ms);
    screen.appear();
    EXPECT_EQ(screen.view->currentTimestamp, -1);
    EXPECT_EQ(screen.view->selectedSeconds(), "-1");
    EXPECT_EQ(screen.view->selectedMilliseconds(), "-1500");
}

TEST(TimestampView, ConvertsEveryFormOfANumber) {
    struct Row {
        std::string_view name;
        std::string text;
        TimestampUnit unit;
        double seconds;
    };

    const std::vector<Row> rows = {
        {"the epoch", "0", TimestampUnit::seconds, 0},
        {"seconds", "1700000000", TimestampUnit::seconds, 1.7e9},
        {"milliseconds", "1700000000000", TimestampUnit::milliseconds, 1.7e9},
        {"milliseconds taken for seconds", "1700000000000", TimestampUnit::seconds, 1.7e12},
        {"an exponent", "1.5e9", TimestampUnit::seconds, 1.5e9},
        {"before 1970", "-86400", TimestampUnit::seconds, -86400},
        {"a plus", "+60", TimestampUnit::seconds, 60},
        {"a fraction", "1700000000.75", TimestampUnit::seconds, 1.7e9},
        {"hexadecimal", "0x10", TimestampUnit::seconds, 16},
        {"hexadecimal floating point", "0x1.8p3", TimestampUnit::seconds, 12},
        {"surrounding spaces", " 12 ", TimestampUnit::seconds, 12},
        {"other surrounding white space", "\t\u00a012\u3000", TimestampUnit::seconds, 12},
        {"the last second of 32 bits", "2147483647", TimestampUnit::seconds, 2147483647},
        {"the second after it", "2147483648", TimestampUnit::seconds, 2147483648},
        {"year 1", "-62135596800", TimestampUnit::seconds, -62135596800},
        {"year 9999", "253402300799", TimestampUnit::seconds, 253402300799},
    };
    for (const auto& row : rows) {
        const auto view = converted(row.text, row.unit);
        EXPECT_EQ(view.dateString, DateText::fullDateAndTime(row.seconds)) << row.name;
        EXPECT_TRUE(view.hasDate()) << row.name;
        EXPECT_EQ(view.errorMessage, std::nullopt) << row.name;
        EXPECT_EQ(view.unixTimestamp, row.text) << row.name;
    }
}

TEST(TimestampView, RejectsNonNumbersAndTimesWithoutADate) {
    constexpr std::string_view rows[] = {
        "",    "  ",       "12abc", "abc", "17637354oo", "1,5",   "1 000", "12\n",
        "\n1", "infinity", "-inf",  "nan", "1e300",      "1e400", "2e14",  "-1e308",
    };
    for (const auto text : rows) {
        for (const auto unit : {TimestampUnit::seconds, TimestampUnit::milliseconds}) {
            if (text == "2e14" && unit == TimestampUnit::milliseconds)
                continue; // the year 8307
            const auto view = converted(std::string(text), unit);
            EXPECT_EQ(view.errorMessage, "Invalid timestamp format") << text;
            EXPECT_FALSE(view.hasDate()) << text;
        }
    }
}

TEST(TimestampView, HintsAtATimestampInAFinerUnit) {
    struct Row {
        std::string_view name;
        std::string text;
        TimestampUnit unit;
        bool hasHint;
        bool hasDate;
    };

    const std::vector<Row> rows = {
        {"seconds", "1700000000", TimestampUnit::seconds, false, true},
        {"milliseconds", "1700000000000", TimestampUnit::milliseconds, false, true},
        {"milliseconds taken for seconds", "1700000000000", TimestampUnit::seconds, true, true},
        {"microseconds taken for seconds", "1700000000000000", TimestampUnit::seconds, true, false},
        {"microseconds taken for milliseconds", "1700000000000000", TimestampUnit::milliseconds, true, true},
        {"nanoseconds taken for seconds", "1700000000000000000", TimestampUnit::seconds, true, false},
        {"nanoseconds taken for milliseconds", "1700000000000000000", TimestampUnit::milliseconds, true,
         false},
        {"before 1970", "-1700000000000000", TimestampUnit::seconds, true, false},
        {"the last second of the year 9999", "253402300799", TimestampUnit::seconds, false, true},
        {"the second after it", "253402300800", TimestampUnit::seconds, true, true},
        {"no number", "12abc", TimestampUnit::seconds, false, false},
        {"infinite", "infinity", TimestampUnit::seconds, false, false},
    };
    for (const auto& row : rows) {
        const auto view = converted(row.text, row.unit);
        EXPECT_EQ(view.hint(), row.hasHint ? TimestampView::unitHint : "") << row.name;
        EXPECT_EQ(view.hasDate(), row.hasDate) << row.name;
        EXPECT_EQ(view.unixTimestamp, row.text) << row.name;
    }
    auto view = converted("1700000000000000");
    view.setUnixTimestamp("1700000000");
    view.convertTimestampToDate();
    EXPECT_EQ(view.hint(), "");
}

TEST(TimestampView, TypingAndTheUnitDoNotConvert) {
    auto view = converted("0");
    const auto date = view.dateString;
    view.setUnixTimestamp("x");
    view.setTimestampUnit(TimestampUnit::milliseconds);
    EXPECT_EQ(view.dateString, date);
    EXPECT_EQ(view.errorMessage, std::nullopt);
    view.convertTimestampToDate();
    view.setUnixTimestamp("1");
    EXPECT_EQ(view.errorMessage, "Invalid timestamp format");
}

TEST(TimestampView, WritesTheSelectedDateAsTimestamps) {
    struct Row {
        std::chrono::milliseconds date;
        std::string_view seconds;
        std::string_view milliseconds;
        std::string_view iso8601;
    };

    constexpr Row rows[] = {
        {0ms, "0", "0", "1970-01-01T00:00:00Z"},
        {1704164645s, "1704164645", "1704164645000", "2024-01-02T03:04:05Z"},
        {1704164645s + 999ms, "1704164645", "1704164645999", "2024-01-02T03:04:05Z"},
        {-1ms, "0", "-1", "1969-12-31T23:59:59Z"},
        {2147483648s, "2147483648", "2147483648000", "2038-01-19T03:14:08Z"},
        {-62135596800s, "-62135596800", "-62135596800000", "0001-01-01T00:00:00Z"},
        {253402300799s, "253402300799", "253402300799000", "9999-12-31T23:59:59Z"},
        {253402300800s, "253402300800", "253402300800000", ""},
    };
    TimestampView view;
    for (const auto& row : rows) {
        view.setSelectedDate(TimestampView::Date(row.date));
        EXPECT_EQ(view.selectedSeconds(), row.seconds);
        EXPECT_EQ(view.selectedMilliseconds(), row.milliseconds);
        EXPECT_EQ(view.selectedISO8601(), row.iso8601);
    }
}

TEST(TimestampView, UnitsHaveTheirNames) {
    EXPECT_EQ(rawValue(TimestampUnit::seconds), "Seconds");
    EXPECT_EQ(rawValue(TimestampUnit::milliseconds), "Milliseconds");
    EXPECT_EQ(allCases<TimestampUnit>.size(), 2);
}

} // namespace
} // namespace korvane
