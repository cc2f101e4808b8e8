/// A grid of the days of one month in rows of weeks, of which one can be chosen. The chosen day may be in
/// another month.
#pragma once

#include "Models/PaletteColor.h"

#include <QDate>
#include <QWidget>

#include <array>
#include <functional>

class QKeyEvent;

namespace korvane {

/// A day of the grid: a button named after its date.
class DayButton;

class MonthGrid final : public QWidget {
public:
    /// The chosen day is filled with `color`. `choose` is called with the day that the user chooses.
    MonthGrid(PaletteColor color, std::function<void(QDate)> choose);

    /// The range of days that can be chosen.
    static QDate firstDay();
    static QDate lastDay();

    /// Marks the chosen day and, with an outline, today. A newly chosen day is brought into view.
    void display(QDate chosen, QDate today);

    /// Shows an earlier or later month without choosing a day.
    void turn(int months);

    /// The first day of the shown month.
    QDate month() const { return m_month; }

    /// Calls `handler` whenever another month is shown.
    void onTurn(std::function<void()> handler) { m_turned = std::move(handler); }

private:
    friend class DayButton;

    static constexpr int weeks = 6; ///< the most that a month can touch
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
