#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Timestamp/DateTimePickerSubject.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QWheelEvent>

namespace korvane {
namespace {

TEST_F(DateTimePickerTest, ShowsTheMonthOfTheChosenDay) {
    EXPECT_TRUE(screen.shows(monthName(2025, 11)));
    for (const auto& weekday : CalendarText::weekdays())
        EXPECT_TRUE(screen.shows(weekday)) << weekday;
    for (unsigned day = 1; day <= 30; ++day)
        EXPECT_EQ(screen.button(dayName(2025, 11, day)).text(), QString::number(day));
    EXPECT_FALSE(screen.hasButton(dayName(2025, 12, 31)));
    EXPECT_EQ(time().time(), QTime(15, 30));
}

TEST_F(DateTimePickerTest, WeeksStartOnTheLocalesFirstDay) {
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

TEST_F(DateTimePickerTest, ChoosingADayOfANeighbouringMonthShowsThatMonth) {
    choose({{2025, 9, 15}, {12, 0}});
    screen.press(dayName(2025, 10, 1)); // a Wednesday, on which no locale begins its week
    EXPECT_EQ(chosen().date(), QDate(2025, 10, 1));
    EXPECT_TRUE(screen.shows(monthName(2025, 10)));
}

TEST_F(DateTimePickerTest, ChangingTheMonthKeepsTheChosenDay) {
    screen.press("Next Month");
    screen.press("Next Month");
    EXPECT_TRUE(screen.shows(monthName(2026, 1)));
    EXPECT_EQ(chosen().date(), QDate(2025, 11, 21));
    frame->store().refresh();
    EXPECT_TRUE(screen.shows(monthName(2026, 1))) << "a refresh keeps the month";
    screen.press("Previous Month");
    EXPECT_TRUE(screen.shows(monthName(2025, 12)));
    choose({{2025, 11, 22}, {12, 0}});
    EXPECT_TRUE(screen.shows(monthName(2025, 11))) << "choosing a day shows its month";
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

TEST_F(DateTimePickerTest, KeysMoveByDaysWeeksMonthsAndYears) {
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

TEST_F(DateTimePickerTest, TheTimeCanBeSteppedAndTyped) {
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
    frame->store().refresh(); // as the clock does while one types
    QTest::keyClick(&edit, Qt::Key_7);
    EXPECT_EQ(chosen(), QDateTime({2025, 11, 21}, {14, 7, 45, 678}));
}

TEST_F(DateTimePickerTest, TheTimeIsAnAccessibleValueAndText) {
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

TEST_F(DateTimePickerTest, ADayIsAnAccessibleRadioButton) {
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
    EXPECT_EQ(time().focusPolicy() & Qt::WheelFocus, Qt::StrongFocus)
        << "the wheel does not give the focus either";
    screen.button("Next Month").setFocus();
    turn();
    EXPECT_EQ(time().time(), QTime(15, 30));
    time().setFocus();
    turn();
    EXPECT_NE(time().time(), QTime(15, 30));
}

TEST_F(DateTimePickerTest, TheTimeAcceptsPastedTextWithALineBreak) {
    time().setFocus();
    time().selectAll();
    QApplication::clipboard()->setText(time().text() + "\n");
    QTest::keyClick(&time(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(time().text().contains('\n'));
    EXPECT_EQ(chosen(), QDateTime({2025, 11, 21}, {15, 30, 45, 678}));
}

TEST_F(DateTimePickerTest, MarksTheChosenAndThePresentDay) {
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
