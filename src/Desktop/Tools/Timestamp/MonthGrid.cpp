#include "Desktop/Tools/Timestamp/MonthGrid.h"

#include "Desktop/Access/AccessibleButton.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Utilities/CalendarText.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int dayWidth = 28;
constexpr int dayHeight = 24;
constexpr int headingHeight = 20;
constexpr int rowGap = 2;

std::chrono::sys_days chronoDay(QDate date) {
    constexpr qint64 julianDayOf1970 = 2440588;
    return std::chrono::sys_days(std::chrono::days(date.toJulianDay() - julianDayOf1970));
}

/// The first day in the grid of the month.
QDate firstInGrid(QDate month) {
    const auto firstDayOfWeek = static_cast<int>(CalendarText::firstDayOfWeek().iso_encoding());
    return month.addDays(-((month.dayOfWeek() - firstDayOfWeek + 7) % 7));
}

} // namespace

class DayButton final : public QAbstractButton, public ChoiceButton {
public:
    explicit DayButton(MonthGrid* grid) : m_grid(grid) {
        setFixedSize(Theme::px(dayWidth), Theme::px(dayHeight));
        setFocusPolicy(Qt::NoFocus);
        setCheckable(true);
        setAttribute(Qt::WA_Hover);
        giveFocusRing(this, this, Size::radiusSmall);
    }

    QSize sizeHint() const override { return minimumSize(); }

    QDate date() const { return m_date; }

    void display(QDate date, bool isOfMonth, bool isChosen, bool isToday) {
        if (date != m_date) {
            m_date = date;
            setText(QString::number(date.day()));
            setAccessibleName(qString(CalendarText::fullDate(chronoDay(date))));
        }
        m_isOfMonth = isOfMonth;
        setChecked(isChosen);
        m_isToday = isToday;
        update();
    }

protected:
    /// The chosen day is determined by the state, not by the button.
    void nextCheckState() override {}

    void keyPressEvent(QKeyEvent* event) override {
        m_grid->handleKey(m_date, event);
        if (!event->isAccepted())
            QAbstractButton::keyPressEvent(event);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const bool isMarked = m_isToday && !isChecked();
        paintSurface(painter, rect(), Theme::px(Size::radiusSmall), background(),
                     isMarked ? Theme::color(Role::outlineStrong) : QColor());
        painter.setFont(Theme::font(isChecked() ? TextStyle::quietStrong : TextStyle::menu));
        painter.setPen(isChecked() ? Theme::onSolid(m_grid->m_color)
                                   : Theme::color(m_isOfMonth ? Role::primary : Role::placeholder));
        painter.drawText(rect(), Qt::AlignCenter, text());
    }

private:
    QColor background() const {
        if (isChecked())
            return Theme::solid(m_grid->m_color);
        if (isDown())
            return Theme::color(Role::controlPressed);
        return underMouse() ? Theme::color(Role::controlHover) : QColor(Qt::transparent);
    }

    MonthGrid* m_grid;
    QDate m_date{};
    bool m_isOfMonth = false;
    bool m_isToday = false;
};

MonthGrid::MonthGrid(PaletteColor color, std::function<void(QDate)> choose)
    : m_color(color), m_choose(std::move(choose)) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins({});
    layout->setHorizontalSpacing(0);
    layout->setVerticalSpacing(Theme::px(rowGap));
    const auto names = CalendarText::weekdays();
    for (int column = 0; column < daysAWeek; ++column) {
        auto* name =
            new Label(names[static_cast<std::size_t>(column)], TextStyle::subheadline, Role::secondary);
        name->setAlignment(Qt::AlignCenter);
        name->setFixedHeight(Theme::px(headingHeight));
        layout->addWidget(name, 0, column);
        layout->setColumnStretch(column, 1);
    }
    for (int index = 0; index < weeks * daysAWeek; ++index) {
        auto* day = new DayButton(this);
        m_days[static_cast<std::size_t>(index)] = day;
        layout->addWidget(day, 1 + index / daysAWeek, index % daysAWeek, Qt::AlignHCenter);
        QObject::connect(day, &QAbstractButton::clicked, this, [this, day] { this->choose(day->date()); });
    }
}

QDate MonthGrid::firstDay() {
    return {1, 1, 1};
}

QDate MonthGrid::lastDay() {
    return {9998, 12, 31}; // so that the year has four digits in any time zone
}

void MonthGrid::display(QDate chosen, QDate today) {
    if (chosen == m_chosen && today == m_today)
        return;
    m_today = today;
    if (std::exchange(m_chosen, chosen) != chosen)
        showMonth(chosen);
    else
        arrange();
}

void MonthGrid::turn(int months) {
    showMonth(m_month.addMonths(months));
}

void MonthGrid::showMonth(QDate day) {
    const auto shown = std::clamp(day, firstDay(), lastDay());
    m_month = QDate(shown.year(), shown.month(), 1);
    arrange();
    m_turned();
}

void MonthGrid::arrange() {
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    const auto isOfMonth = [this](QDate date) {
        return date.year() == m_month.year() && date.month() == m_month.month();
    };
    // The Tab key stops at one day only; the arrow keys continue from there.
    const auto stop = isOfMonth(m_chosen) ? m_chosen : m_month;
    auto date = firstInGrid(m_month);
    for (std::size_t index = 0; index < m_days.size(); ++index, date = date.addDays(1)) {
        auto* day = m_days[index];
        const auto weekStart = date.addDays(-static_cast<qint64>(index % daysAWeek));
        const bool isShown = isOfMonth(weekStart) || isOfMonth(weekStart.addDays(daysAWeek - 1));
        day->display(date, isOfMonth(date), date == m_chosen, date == m_today);
        day->setVisible(isShown);
        day->setEnabled(date >= firstDay() && date <= lastDay());
        day->setFocusPolicy(date == stop ? Qt::TabFocus : Qt::NoFocus);
        if (hadFocus && date == stop)
            day->setFocus();
    }
}

void MonthGrid::choose(QDate day) {
    m_choose(std::clamp(day, firstDay(), lastDay()));
}

void MonthGrid::handleKey(QDate from, QKeyEvent* event) {
    const bool byYears = event->modifiers().testFlag(Qt::ShiftModifier);
    event->accept();
    switch (event->key()) {
    case Qt::Key_Left:
        return choose(from.addDays(-1));
    case Qt::Key_Right:
        return choose(from.addDays(1));
    case Qt::Key_Up:
        return choose(from.addDays(-daysAWeek));
    case Qt::Key_Down:
        return choose(from.addDays(daysAWeek));
    case Qt::Key_PageUp:
        return choose(byYears ? from.addYears(-1) : from.addMonths(-1));
    case Qt::Key_PageDown:
        return choose(byYears ? from.addYears(1) : from.addMonths(1));
    case Qt::Key_Home:
        return choose(m_month);
    case Qt::Key_End:
        return choose(m_month.addDays(m_month.daysInMonth() - 1));
    default:
        event->ignore();
    }
}

} // namespace korvane
