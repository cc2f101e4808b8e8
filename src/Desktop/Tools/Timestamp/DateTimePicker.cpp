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

/// What a clock on the wall shows, as if it were the time in UTC.
Moment wallClock(QDate date, QTime time) {
    return Moment(std::chrono::milliseconds(QDateTime(date, time, Qt::UTC).toMSecsSinceEpoch()));
}

/// How far the user's clocks are ahead of UTC.
std::chrono::milliseconds offsetAt(Moment moment) {
    const auto local = localTime(moment);
    return wallClock(local.date(), local.time()) - moment;
}

/// The moment of a local time, which the user comes to from `before`. Around a change of the clocks there may
/// be two such moments, or none: then the offset from UTC stays that of `before` if it can. So whoever goes
/// by minutes through an hour that comes twice stays in the one he is in, and whoever comes to a time that
/// the clocks skip is taken beyond it, as long as that is on the same day.
Moment momentAt(QDate date, QTime time, Moment before) {
    constexpr auto apart = std::chrono::days(1); // further than zones are, nearer than two changes
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

/// A button that, held down, acts again and again.
QuietButton* turnButton(std::string_view title, std::string_view icon) {
    auto* button = new QuietButton(title, icon, {.showLabel = false, .isPlain = true});
    button->setAutoRepeat(true);
    return button;
}

/// The moment that a picker shows, and how it is changed.
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
    // The controls are made in the order in which the Tab key goes through them.
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
