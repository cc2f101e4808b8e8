/// A field for hour and minute, on the user's 12- or 24-hour clock. It is changed by digits, the arrow keys,
/// and the chevrons at its end.
#pragma once

#include <QTime>
#include <QWidget>

#include <functional>
#include <string_view>

class QTimeEdit;

namespace korvane {

class TimeField final : public QWidget {
public:
    /// `set` is called with the whole minute that the user chooses.
    TimeField(std::string_view name, std::function<void(QTime)> set);

    /// Shows hour and minute of `time`. Keeps typed text that has the same value.
    void display(QTime time);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTimeEdit* m_edit;
};

TimeField* timeField(std::string_view name, std::function<void(QTime)> set);

} // namespace korvane
