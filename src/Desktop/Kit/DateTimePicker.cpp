#include "Desktop/Kit/DateTimePicker.h"

#include "Desktop/Kit/Buttons.h"
#include "Desktop/Kit/Labels.h"
#include "Desktop/Kit/Layout.h"
#include "Desktop/Kit/MonthGrid.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/TimeField.h"
#include "Desktop/Kit/ViewCore.h"
#include "Utilities/CalendarText.h"

#include <QDateTime>

#include <string_view>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::TextStyle;

namespace {

QDateTime localTime(Moment moment) {
    return QDateTime::fromMSecsSinceEpoch(moment.time_since_epoch().count());
}

/// The moment of a local time; of one that the clocks skip, as much later as they are put forward.
Moment momentAt(QDate date, QTime time) {
    return Moment(std::chrono::milliseconds(QDateTime(date, time).toMSecsSinceEpoch()));
}

QWidget* turnButton(std::string_view title, std::string_view icon, MonthGrid* grid, int months) {
    auto* button = new QuietButton(title, icon, {.showLabel = false, .isPlain = true});
    button->setAutoRepeat(true);
    QObject::connect(button, &QAbstractButton::clicked, grid, [grid, months] { grid->turn(months); });
    return button;
}

Label* monthLabel(MonthGrid* grid) {
    auto* label = new Label({}, TextStyle::headline);
    grid->onTurn([grid, label] {
        const auto month = grid->month();
        label->display(CalendarText::monthAndYear(std::chrono::year(month.year()) / month.month()));
    });
    return label;
}

} // namespace

QWidget* dateTimePicker(ViewCore& view, DateTimePickerParts parts) {
    auto* grid = new MonthGrid(parts.color, [parts](QDate date) {
        parts.setMoment(momentAt(date, localTime(parts.moment()).time()));
    });
    auto* time = timeField(parts.label, [parts](QTime hourAndMinute) {
        const auto chosen = localTime(parts.moment());
        const auto rest = chosen.time().msecsSinceStartOfDay() % (60 * 1000);
        parts.setMoment(momentAt(chosen.date(), hourAndMinute.addMSecs(rest)));
    });
    auto* label = new Label(parts.label, TextStyle::subheadline, Role::secondary);
    auto* picker =
        stack(Qt::Vertical, {},
              {row({label, stretch(), time}),
               row({monthLabel(grid), stretch(), turnButton("Previous Month", "chevron.left", grid, -1),
                    turnButton("Next Month", "chevron.right", grid, 1)}),
               grid});
    view.onRefresh([grid, time, parts = std::move(parts)] {
        const auto chosen = localTime(parts.moment());
        grid->display(chosen.date(), localTime(parts.now()).date());
        time->display(chosen.time());
    });
    return picker;
}

} // namespace korvane
