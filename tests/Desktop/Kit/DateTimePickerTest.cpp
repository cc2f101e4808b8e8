#include "Desktop/Kit/DateTimePicker.h"

#include "Desktop/Kit/Screen.h"
#include "Utilities/CalendarText.h"
#include "support/FakeServices.h"
#include "support/LocalZone.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QTimeEdit>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <memory>
#include <vector>

namespace korvane {
namespace {

Moment momentOf(QDateTime local) {
    return Moment(std::chrono::milliseconds(local.toMSecsSinceEpoch()));
}

struct Appointment {
    Moment moment = momentOf({{2025, 11, 21}, {15, 30, 45, 678}});
    Moment now = momentOf({{2025, 11, 20}, {9, 0}});

    void setMoment(Moment newMoment) { moment = newMoment; }

    bool operator==(const Appointment&) const = default;
};

QWidget* dateTimePickerBody(View<Appointment>& view) {
    return dateTimePicker(view, {.label = "Select Date",
                                 .color = PaletteColor::yellow,
                                 .moment = view.reading<Moment>(&Appointment::moment),
                                 .setMoment = view.setting<Moment>(&Appointment::setMoment),
                                 .now = view.reading<Moment>(&Appointment::now)});
}

std::string dayName(int year, unsigned month, unsigned day) {
    return CalendarText::fullDate(std::chrono::year(year) / std::chrono::month(month) /
                                  std::chrono::day(day));
}

std::string monthName(int year, unsigned month) {
    return CalendarText::monthAndYear(std::chrono::year(year) / std::chrono::month(month));
}

struct DateTimePickerTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<ScreenFrame<Appointment>> frame{
        std::make_unique<ScreenFrame<Appointment>>(fakes.services, dateTimePickerBody)};
    ScreenDriver screen{*frame, {360, 320}};

    QDateTime chosen() const {
        return QDateTime::fromMSecsSinceEpoch(frame->view().state().moment.time_since_epoch().count());
    }

    void choose(QDateTime local) {
        frame->view().perform([&](Appointment& state) { state.moment = momentOf(local); });
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(frame->focusWidget(), key, modifiers);
    }

    QTimeEdit& time() const { return *frame->findChild<QTimeEdit*>(); }
};

TEST_F(DateTimePickerTest, ShowsTheMonthOfTheChosenDay) {
    EXPECT_TRUE(screen.shows(monthName(2025, 11)));
    for (const auto& weekday : CalendarText::weekdays())
        EXPECT_TRUE(screen.shows(weekday)) << weekday;
    for (unsigned day = 1; day <= 30; ++day)
        EXPECT_EQ(screen.button(dayName(2025, 11, day)).text(), QString::number(day));
    EXPECT_FALSE(screen.hasButton(dayName(2025, 12, 31)));
    EXPECT_EQ(time().time(), QTime(15, 30));
}

TEST_F(DateTimePickerTest, BeginsItsWeeksAsTheLocaleDoes) {
    const auto firstName = CalendarText::weekdays().front();
    const auto firstDay = CalendarText::firstDayOfWeek();
    for (unsigned day = 1; day <= 7; ++day) {
        const std::chrono::sys_days date = std::chrono::year(2025) / 11 / std::chrono::day(day);
        if (std::chrono::weekday(date) != firstDay)
            continue;
        const auto column = screen.button(dayName(2025, 11, day)).geometry().center().x();
        for (auto* label : frame->findChildren<QLabel*>()) {
            if (label->accessibleName().toStdString() == firstName) {
                EXPECT_NEAR(label->geometry().center().x(), column, 1);
            }
        }
    }
}

TEST_F(DateTimePickerTest, ChoosingADayKeepsTheTimeToTheMillisecond) {
    screen.press(dayName(2025, 11, 3));
    EXPECT_EQ(chosen(), QDateTime({2025, 11, 3}, {15, 30, 45, 678}));
}

TEST_F(DateTimePickerTest, ADayOfANeighbouringMonthBringsThatMonth) {
    choose({{2025, 9, 15}, {12, 0}});
    screen.press(dayName(2025, 10, 1)); // a Wednesday, on which no locale begins its week
    EXPECT_EQ(chosen().date(), QDate(2025, 10, 1));
    EXPECT_TRUE(screen.shows(monthName(2025, 10)));
}

TEST_F(DateTimePickerTest, TurningMonthsChoosesNothing) {
    screen.press("Next Month");
    screen.press("Next Month");
    EXPECT_TRUE(screen.shows(monthName(2026, 1)));
    EXPECT_EQ(chosen().date(), QDate(2025, 11, 21));
    frame->view().refresh();
    EXPECT_TRUE(screen.shows(monthName(2026, 1))) << "a refresh leaves it there";
    screen.press("Previous Month");
    EXPECT_TRUE(screen.shows(monthName(2025, 12)));
    choose({{2025, 11, 22}, {12, 0}});
    EXPECT_TRUE(screen.shows(monthName(2025, 11))) << "another choice comes into view";
}

TEST_F(DateTimePickerTest, ShowsEveryDayOfEveryMonth) {
    for (int month = 1; month <= 12 * 5; ++month) {
        const auto first = QDate(2023, 1, 1).addMonths(month);
        choose({first, {12, 0}});
        for (int day = 1; day <= first.daysInMonth(); ++day)
            EXPECT_TRUE(screen.hasButton(
                dayName(first.year(), static_cast<unsigned>(first.month()), static_cast<unsigned>(day))));
    }
}

TEST_F(DateTimePickerTest, TheKeyboardGoesByDaysWeeksMonthsAndYears) {
    screen.button(dayName(2025, 11, 21)).setFocus();

    struct Step {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        QDate date;
    };

    const Step steps[] = {
        {Qt::Key_Right, Qt::NoModifier, {2025, 11, 22}},
        {Qt::Key_Left, Qt::NoModifier, {2025, 11, 21}},
        {Qt::Key_Down, Qt::NoModifier, {2025, 11, 28}},
        {Qt::Key_Down, Qt::NoModifier, {2025, 12, 5}},
        {Qt::Key_Up, Qt::NoModifier, {2025, 11, 28}},
        {Qt::Key_End, Qt::NoModifier, {2025, 11, 30}},
        {Qt::Key_PageDown, Qt::NoModifier, {2025, 12, 30}},
        {Qt::Key_PageUp, Qt::ShiftModifier, {2024, 12, 30}},
        {Qt::Key_Home, Qt::NoModifier, {2024, 12, 1}},
        {Qt::Key_Left, Qt::NoModifier, {2024, 11, 30}},
        {Qt::Key_PageDown, Qt::ShiftModifier, {2025, 11, 30}},
    };
    for (const auto& step : steps) {
        key(step.key, step.modifiers);
        EXPECT_EQ(chosen().date(), step.date);
        EXPECT_EQ(frame->focusWidget()->accessibleName().toStdString(),
                  dayName(step.date.year(), static_cast<unsigned>(step.date.month()),
                          static_cast<unsigned>(step.date.day())));
    }
    EXPECT_EQ(chosen().time(), QTime(15, 30, 45, 678));
}

TEST_F(DateTimePickerTest, TheTabKeyStopsAtOneDay) {
    screen.button("Previous Month").setFocus();
    for (const auto& name : {std::string("Next Month"), dayName(2025, 11, 21), std::string("Select Date")}) {
        key(Qt::Key_Tab);
        EXPECT_EQ(frame->focusWidget()->accessibleName().toStdString(), name);
    }
    screen.press("Next Month");
    auto& first = screen.button(dayName(2025, 12, 1));
    EXPECT_EQ(first.focusPolicy(), Qt::TabFocus);
    first.setFocus();
    key(Qt::Key_Space);
    EXPECT_EQ(chosen().date(), QDate(2025, 12, 1));
}

TEST_F(DateTimePickerTest, StopsAtTheEndsOfTheCalendar) {
    choose({{1, 1, 1}, {12, 0}});
    screen.button(dayName(1, 1, 1)).setFocus();
    key(Qt::Key_Left);
    key(Qt::Key_PageUp);
    EXPECT_EQ(chosen().date(), QDate(1, 1, 1));
    screen.press("Previous Month");
    EXPECT_TRUE(screen.shows(monthName(1, 1)));
    choose({{9998, 12, 31}, {12, 0}});
    screen.button(dayName(9998, 12, 31)).setFocus();
    key(Qt::Key_Right);
    key(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(chosen().date(), QDate(9998, 12, 31));
    screen.press("Next Month");
    EXPECT_TRUE(screen.shows(monthName(9998, 12)));
}

TEST_F(DateTimePickerTest, TheTimeTakesArrowsAndDigits) {
    auto& edit = time();
    edit.setFocus();
    edit.setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClick(&edit, Qt::Key_Up);
    EXPECT_EQ(chosen(), QDateTime({2025, 11, 21}, {15, 31, 45, 678}));
    edit.setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClick(&edit, Qt::Key_Down);
    EXPECT_EQ(chosen(), QDateTime({2025, 11, 21}, {14, 31, 45, 678}));
    edit.setSelectedSection(QDateTimeEdit::MinuteSection);
    QTest::keyClick(&edit, Qt::Key_0);
    frame->view().refresh(); // as the clock does while one types
    QTest::keyClick(&edit, Qt::Key_7);
    EXPECT_EQ(chosen(), QDateTime({2025, 11, 21}, {14, 7, 45, 678}));
}

TEST_F(DateTimePickerTest, TellsTheTimeAsAValueAndAText) {
    auto& field = *QAccessible::queryAccessibleInterface(&time());
    EXPECT_EQ(field.role(), QAccessible::SpinBox);
    EXPECT_EQ(field.text(QAccessible::Value), time().text());
    EXPECT_EQ(field.textInterface()->text(0, field.textInterface()->characterCount()), time().text());
    auto& value = *field.valueInterface();
    EXPECT_EQ(value.currentValue().toInt(), 15 * 60 + 30);
    EXPECT_EQ(value.minimumValue().toInt(), 0);
    EXPECT_EQ(value.maximumValue().toInt(), 23 * 60 + 59);
    value.setCurrentValue(61);
    EXPECT_EQ(chosen(), QDateTime({2025, 11, 21}, {1, 1, 45, 678}));
    value.setCurrentValue(5000);
    EXPECT_EQ(chosen().time(), QTime(23, 59, 45, 678));
}

TEST_F(DateTimePickerTest, ADayIsAChoice) {
    auto& day = *QAccessible::queryAccessibleInterface(&screen.button(dayName(2025, 11, 3)));
    EXPECT_EQ(day.role(), QAccessible::RadioButton);
    EXPECT_FALSE(day.state().checked);
    day.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    settle();
    EXPECT_EQ(chosen().date(), QDate(2025, 11, 3));
    EXPECT_TRUE(day.state().checked);
}

TEST_F(DateTimePickerTest, TheWheelChangesTheTimeOnlyWithTheFocus) {
    const auto turn = [this] {
        const auto place = QPointF(time().rect().center());
        QWheelEvent event(place, time().mapToGlobal(place), {}, {0, QWheelEvent::DefaultDeltasPerStep},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&time(), &event);
    };
    EXPECT_EQ(time().focusPolicy() & Qt::WheelFocus, Qt::StrongFocus) << "the wheel gives no focus either";
    screen.button("Next Month").setFocus();
    turn();
    EXPECT_EQ(time().time(), QTime(15, 30));
    time().setFocus();
    turn();
    EXPECT_NE(time().time(), QTime(15, 30));
}

TEST_F(DateTimePickerTest, ATimeThatTheClocksSkipIsLaterByAsMuch) {
    const LocalZone berlin("Europe/Berlin");
    choose({{2024, 3, 30}, {2, 30}});
    screen.press(dayName(2024, 3, 31));
    EXPECT_EQ(chosen(), QDateTime({2024, 3, 31}, {3, 30}));
    EXPECT_EQ(time().time(), QTime(3, 30));
}

/// Steps a section of the time field, and the moment in UTC that is chosen after each.
struct ClockChange {
    const char* zone;
    QDateTime start; ///< in UTC
    QDateTimeEdit::Section section;
    Qt::Key key;
    std::vector<QDateTime> reached;
};

QDateTime inUTC(QDate date, QTime time) {
    return {date, time, Qt::UTC};
}

TEST_F(DateTimePickerTest, TheTimeGoesThroughChangesOfTheClocks) {
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
        // The first hour of the day is skipped.
        {"America/Sao_Paulo",
         inUTC(brazil, {4, 30}),
         hour,
         Qt::Key_Down,
         {inUTC(brazil, {3, 30}), inUTC(brazil.addDays(1), {1, 30}), inUTC(brazil.addDays(1), {0, 30})}},
        {"America/Sao_Paulo", inUTC(brazil.addDays(1), {1, 30}), hour, Qt::Key_Up, {inUTC(brazil, {3, 30})}},
        // The last hour is.
        {"America/Scoresbysund",
         inUTC(scoresbysund.addDays(1), {0, 30}),
         hour,
         Qt::Key_Up,
         {inUTC(scoresbysund, {2, 30})}},
        // Half an hour is.
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

TEST_F(DateTimePickerTest, ADayIsReachedWhateverTheClocksSkip) {
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

TEST_F(DateTimePickerTest, FollowsAChangeOfTheZone) {
    const LocalZone berlin("Europe/Berlin");
    choose(inUTC({2024, 1, 2}, {20, 4}));
    EXPECT_EQ(time().time(), QTime(21, 4));
    const LocalZone tokyo("Asia/Tokyo");
    frame->view().refresh(); // as the clock does every second
    EXPECT_EQ(time().time(), QTime(5, 4));
    EXPECT_TRUE(screen.button(dayName(2024, 1, 3)).isChecked());
}

TEST_F(DateTimePickerTest, TheTimeTakesWhatIsPastedWithALineBreak) {
    time().setFocus();
    time().selectAll();
    QApplication::clipboard()->setText(time().text() + "\n");
    QTest::keyClick(&time(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(time().text().contains('\n'));
    EXPECT_EQ(chosen(), QDateTime({2025, 11, 21}, {15, 30, 45, 678}));
}

TEST_F(DateTimePickerTest, ReachesBothEndsOfTheCalendarInEveryZone) {
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

TEST_F(DateTimePickerTest, MarksTheDays) {
    const auto picture = [this](unsigned day) {
        return screen.button(dayName(2025, 11, day)).grab().toImage();
    };
    const auto corner = [](const QImage& image) { return image.pixelColor(image.width() / 2, 1); };
    EXPECT_TRUE(screen.button(dayName(2025, 11, 21)).isChecked());
    EXPECT_FALSE(screen.button(dayName(2025, 11, 20)).isChecked());
    EXPECT_EQ(corner(picture(21)), Theme::solid(PaletteColor::yellow));
    EXPECT_NE(picture(20), picture(19)) << "the present day has an outline";
    EXPECT_NE(corner(picture(20)), corner(picture(21)));
}

} // namespace
} // namespace korvane
