/// Shared by the tests of the date and time picker: a screen that contains only the picker.
#pragma once

#include "Desktop/Binding/Screen.h"
#include "Desktop/Tools/Timestamp/DateTimePicker.h"
#include "Utilities/CalendarText.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QTimeEdit>
#include <QtTest/QTest>

#include <chrono>
#include <memory>
#include <string>

namespace korvane {

inline Moment momentOf(QDateTime local) {
    return Moment(std::chrono::milliseconds(local.toMSecsSinceEpoch()));
}

struct Appointment {
    Moment moment = momentOf({{2025, 11, 21}, {15, 30, 45, 678}});
    Moment now = momentOf({{2025, 11, 20}, {9, 0}});

    void setMoment(Moment newMoment) { moment = newMoment; }

    bool operator==(const Appointment&) const = default;
};

inline QWidget* dateTimePickerBody(Store& store) {
    return dateTimePicker(store, {.label = "Select Date",
                                  .color = PaletteColor::yellow,
                                  .moment = &Appointment::moment,
                                  .setMoment = &Appointment::setMoment,
                                  .now = &Appointment::now});
}

inline std::string dayName(int year, unsigned month, unsigned day) {
    return CalendarText::fullDate(std::chrono::year(year) / std::chrono::month(month) /
                                  std::chrono::day(day));
}

inline std::string monthName(int year, unsigned month) {
    return CalendarText::monthAndYear(std::chrono::year(year) / std::chrono::month(month));
}

struct DateTimePickerTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<Screen> frame{
        std::make_unique<Screen>(fakes.services, Appointment(), dateTimePickerBody)};
    ScreenDriver screen{*frame, {360, 320}};

    QDateTime chosen() const {
        return QDateTime::fromMSecsSinceEpoch(
            frame->store().state<Appointment>().moment.time_since_epoch().count());
    }

    void choose(QDateTime local) {
        frame->store().perform([&](Appointment& state) { state.moment = momentOf(local); });
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(frame->focusWidget(), key, modifiers);
    }

    QTimeEdit& time() const { return *frame->findChild<QTimeEdit*>(); }
};

} // namespace korvane
