#include "Desktop/Tools/Timestamp/DateTimePicker.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Tools/Timestamp/MonthGrid.h"
#include "Desktop/Tools/Timestamp/TimeField.h"
#include "Utilities/CalendarText.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::TextStyle;

namespace {

QDateTime localTime(Moment moment) {
    return QDateTime::fromMSecsSinceEpoch(moment.time_since_epoch().count());
}

/// The given local date and time, interpreted as UTC.
Moment wallClock(QDate date, QTime time) {
    return Moment(std::chrono::milliseconds(QDateTime(date, time, QTimeZone::utc()).toMSecsSinceEpoch()));
}

/// The offset of the user's time zone from UTC.
std::chrono::milliseconds offsetAt(Moment moment) {
    const auto local = localTime(moment);
    return wallClock(local.date(), local.time()) - moment;
}

/// The moment of a local time, to which the user changes from `before`. Around a clock change there may be
/// two such moments, or none; then the UTC offset of `before` is kept if possible. So stepping by minutes
/// through an hour that occurs twice stays in the same occurrence, and stepping to a time that the clocks
/// skip goes beyond it if that is on the same day.
Moment momentAt(QDate date, QTime time, Moment before) {
    constexpr auto apart =
        std::chrono::days(1); // more than any zone's offset, less than the time between two clock changes
    const auto wall = wallClock(date, time);
    std::array offsets{offsetAt(wall - apart), offsetAt(wall + apart)};
    if (offsets.back() == offsetAt(before))
        std::ranges::reverse(offsets);
    for (const auto offset : offsets) {
        if (offsetAt(wall - offset) == offset)
            return wall - offset;
    }
    const auto onTheDay =
        std::ranges::find_if(offsets, [&](auto offset) { return localTime(wall - offset).date() == date; });
    return wall - (onTheDay == offsets.end() ? offsets.front() : *onTheDay);
}

/// A button that repeats its action while it is held down.
QuietButton* turnButton(std::string_view title, std::string_view icon) {
    auto* button = new QuietButton(title, icon, {.showLabel = false, .isPlain = true});
    button->setAutoRepeat(true);
    return button;
}

/// Access to the moment that a picker shows and changes.
struct Choice {
    std::function<Moment()> moment;
    std::function<void(Moment)> setMoment;
};

TimeField* newTimeField(std::string_view label, const Choice& choice) {
    return timeField(label, [choice](QTime hourAndMinute) {
        const auto chosen = localTime(choice.moment());
        const auto rest = chosen.time().msecsSinceStartOfDay() % (60 * 1000);
        choice.setMoment(momentAt(chosen.date(), hourAndMinute.addMSecs(rest), choice.moment()));
    });
}

MonthGrid* newMonthGrid(PaletteColor color, const Choice& choice) {
    return new MonthGrid(color, [choice](QDate date) {
        choice.setMoment(momentAt(date, localTime(choice.moment()).time(), choice.moment()));
    });
}

void connectTurning(MonthGrid* grid, QuietButton* previous, QuietButton* next, Label* title) {
    QObject::connect(previous, &QAbstractButton::clicked, grid, [grid] { grid->turn(-1); });
    QObject::connect(next, &QAbstractButton::clicked, grid, [grid] { grid->turn(1); });
    grid->onTurn([grid, title] {
        const auto month = grid->month();
        title->display(CalendarText::monthAndYear(std::chrono::year(month.year()) / month.month()));
    });
}

} // namespace

QWidget* dateTimePicker(Store& store, const DateTimePickerParts& parts) {
    const Choice choice{parts.moment.of(store), parts.setMoment.on(store)};
    // The controls are created in the order of the Tab key.
    auto* label = new Label(parts.label, TextStyle::subheadline, Role::secondary);
    auto* time = newTimeField(parts.label, choice);
    auto* title = new Label({}, TextStyle::headline);
    auto* previous = turnButton("Previous Month", "chevron.left");
    auto* next = turnButton("Next Month", "chevron.right");
    auto* grid = newMonthGrid(parts.color, choice);
    connectTurning(grid, previous, next, title);
    auto* picker = stack(Qt::Vertical, {},
                         {row({label, stretch(), time}), row({title, stretch(), previous, next}), grid});
    store.onRefresh([grid, time, moment = choice.moment, now = parts.now.of(store)] {
        const auto chosen = localTime(moment());
        grid->display(chosen.date(), localTime(now()).date());
        time->display(chosen.time());
    });
    return picker;
}

} // namespace korvane
