/// The days of one month, of which one can be chosen, in rows of weeks. It shows any month, whether the
/// chosen day is in it or not.
#pragma once

#include "Models/PaletteColor.h"

#include <QDate>
#include <QWidget>

#include <array>
#include <functional>

class QKeyEvent;

namespace korvane {

/// One day of the grid: a button named after its date.
class DayButton;

class MonthGrid final : public QWidget {
public:
    /// The chosen day is filled with `color`. `choose` is called with the day that the user wants.
    MonthGrid(PaletteColor color, std::function<void(QDate)> choose);

    /// The days from and to which anything can be chosen.
    static QDate firstDay();
    static QDate lastDay();

    /// Marks the chosen day and, with an outline, the present one. A newly chosen day is brought into view.
    void display(QDate chosen, QDate today);

    /// Goes back or ahead by months, choosing nothing.
    void turn(int months);

    /// The first of the month that is shown.
    QDate month() const { return m_month; }

    /// Has `handler` called whenever another month is shown.
    void onTurn(std::function<void()> handler) { m_turned = std::move(handler); }

private:
    friend class DayButton;

    static constexpr int weeks = 6; ///< as many as a month can touch
    static constexpr int daysAWeek = 7;

    void showMonth(QDate day);
    void arrange();
    void handleKey(QDate from, QKeyEvent* event);
    void choose(QDate day);

    PaletteColor m_color;
    std::function<void(QDate)> m_choose;
    std::function<void()> m_turned = [] {};
    std::array<DayButton*, weeks * daysAWeek> m_days{};
    QDate m_month;
    QDate m_chosen;
    QDate m_today;
};

} // namespace korvane
