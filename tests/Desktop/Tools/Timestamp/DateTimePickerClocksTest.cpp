/// The date and time picker at clock changes and changes of the time zone.

#include "Desktop/Tools/Timestamp/DateTimePickerSubject.h"
#include "support/LocalZone.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTimeZone>

#include <vector>

namespace korvane {
namespace {

using DateTimePickerClocksTest = DateTimePickerTest;

TEST_F(DateTimePickerClocksTest, ASkippedTimeMovesForwardByTheSkip) {
    const LocalZone berlin("Europe/Berlin");
    choose({{2024, 3, 30}, {2, 30}});
    screen.press(dayName(2024, 3, 31));
    EXPECT_EQ(chosen(), QDateTime({2024, 3, 31}, {3, 30}));
    EXPECT_EQ(time().time(), QTime(3, 30));
}

/// Key presses in a section of the time field, and the moments in UTC that each of them chooses.
struct ClockChange {
    const char* zone;
    QDateTime start; ///< in UTC
    QDateTimeEdit::Section section;
    Qt::Key key;
    std::vector<QDateTime> reached;
};

QDateTime inUTC(QDate date, QTime time) {
    return {date, time, QTimeZone::utc()};
}

TEST_F(DateTimePickerClocksTest, SteppingTheTimeCrossesClockChanges) {
    constexpr auto hour = QDateTimeEdit::HourSection;
    constexpr auto minute = QDateTimeEdit::MinuteSection;
    const QDate autumn(2024, 10, 27), spring(2024, 3, 31), brazil(2017, 10, 15), lordHowe(2024, 10, 5);
    const QDate scoresbysund(2025, 3, 29);
    const ClockChange rows[] = {
        {"Europe/Berlin", inUTC(autumn, {0, 30}), minute, Qt::Key_Up, {inUTC(autumn, {0, 31})}},
        {"Europe/Berlin", inUTC(autumn, {1, 30}), minute, Qt::Key_Up, {inUTC(autumn, {1, 31})}},
        {"Europe/Berlin", inUTC(autumn, {1, 30}), minute, Qt::Key_Down, {inUTC(autumn, {1, 29})}},
        {"Europe/Berlin",
         inUTC(autumn, {2, 30}),
         hour,
         Qt::Key_Down,
         {inUTC(autumn, {1, 30}), inUTC(autumn.addDays(-1), {23, 30}), inUTC(autumn.addDays(-1), {22, 30})}},
        {"Europe/Berlin",
         inUTC(autumn.addDays(-1), {23, 30}),
         hour,
         Qt::Key_Up,
         {inUTC(autumn, {0, 30}), inUTC(autumn, {2, 30})}},
        {"Europe/Berlin",
         inUTC(spring, {2, 30}),
         hour,
         Qt::Key_Down,
         {inUTC(spring, {1, 30}), inUTC(spring, {0, 30}), inUTC(spring.addDays(-1), {23, 30})}},
        {"Europe/Berlin",
         inUTC(spring, {0, 30}),
         hour,
         Qt::Key_Up,
         {inUTC(spring, {1, 30}), inUTC(spring, {2, 30})}},
        {"Europe/Berlin", inUTC(spring, {1, 0}), minute, Qt::Key_Down, {inUTC(spring, {1, 59})}},
        // The clocks skip the first hour of the day.
        {"America/Sao_Paulo",
         inUTC(brazil, {4, 30}),
         hour,
         Qt::Key_Down,
         {inUTC(brazil, {3, 30}), inUTC(brazil.addDays(1), {1, 30}), inUTC(brazil.addDays(1), {0, 30})}},
        {"America/Sao_Paulo", inUTC(brazil.addDays(1), {1, 30}), hour, Qt::Key_Up, {inUTC(brazil, {3, 30})}},
        // They skip the last hour of the day.
        {"America/Scoresbysund",
         inUTC(scoresbysund.addDays(1), {0, 30}),
         hour,
         Qt::Key_Up,
         {inUTC(scoresbysund, {2, 30})}},
        // They skip half an hour.
        {"Australia/Lord_Howe", inUTC(lordHowe, {15, 45}), hour, Qt::Key_Down, {inUTC(lordHowe, {15, 15})}},
    };
    for (const auto& row : rows) {
        const LocalZone local(row.zone);
        choose(row.start);
        time().setFocus();
        for (const auto& reached : row.reached) {
            time().setSelectedSection(row.section);
            QTest::keyClick(&time(), row.key);
            EXPECT_EQ(chosen().toUTC(), reached)
                << row.zone << " from " << row.start.toString(Qt::ISODate).toStdString() << " to "
                << chosen().toUTC().toString(Qt::ISODate).toStdString();
            EXPECT_EQ(time().time(), chosen().time());
        }
    }
}

TEST_F(DateTimePickerClocksTest, SteppingByDaysCrossesSkippedTimesAndDays) {
    struct Row {
        const char* zone;
        QDate from;
        Qt::Key key;
        QTime time;
        QDateTime reached; ///< local
    };

    const Row rows[] = {
        {"Europe/Berlin", {2024, 3, 30}, Qt::Key_Right, {2, 30}, {{2024, 3, 31}, {3, 30}}},
        {"Europe/Berlin", {2024, 4, 1}, Qt::Key_Left, {2, 30}, {{2024, 3, 31}, {1, 30}}},
        {"America/Sao_Paulo", {2017, 10, 14}, Qt::Key_Right, {0, 30}, {{2017, 10, 15}, {1, 30}}},
        {"America/Sao_Paulo", {2017, 10, 16}, Qt::Key_Left, {0, 30}, {{2017, 10, 15}, {1, 30}}},
        {"Pacific/Apia", {2011, 12, 29}, Qt::Key_Right, {12, 0}, {{2011, 12, 31}, {12, 0}}},
        {"Pacific/Apia", {2011, 12, 31}, Qt::Key_Left, {12, 0}, {{2011, 12, 29}, {12, 0}}},
    };
    for (const auto& row : rows) {
        const LocalZone local(row.zone);
        choose({row.from, row.time});
        screen
            .button(dayName(row.from.year(), static_cast<unsigned>(row.from.month()),
                            static_cast<unsigned>(row.from.day())))
            .setFocus();
        key(row.key);
        EXPECT_EQ(chosen().date(), row.reached.date()) << row.zone;
        EXPECT_EQ(chosen().time(), row.reached.time()) << row.zone;
    }
}

TEST_F(DateTimePickerClocksTest, FollowsAChangeOfTheZone) {
    const LocalZone berlin("Europe/Berlin");
    choose(inUTC({2024, 1, 2}, {20, 4}));
    EXPECT_EQ(time().time(), QTime(21, 4));
    const LocalZone tokyo("Asia/Tokyo");
    frame->store().refresh(); // as the clock does every second
    EXPECT_EQ(time().time(), QTime(5, 4));
    EXPECT_TRUE(screen.button(dayName(2024, 1, 3)).isChecked());
}

TEST_F(DateTimePickerClocksTest, ReachesBothEndsOfTheCalendarInEveryZone) {
    for (const auto* zone : {"America/New_York", "Pacific/Kiritimati", "Asia/Kathmandu", "UTC"}) {
        const LocalZone local(zone);
        for (const QDate day :
             {QDate(1, 1, 1), QDate(1969, 12, 31), QDate(2038, 1, 19), QDate(9998, 12, 31)}) {
            choose({day.year() == 1 ? day.addDays(1) : day.addDays(-1), {23, 59}});
            screen.press(
                dayName(day.year(), static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day())));
            EXPECT_EQ(chosen(), QDateTime(day, {23, 59})) << zone;
        }
    }
}

} // namespace
} // namespace korvane
