/// A field for hour and minute, in the user's way of counting hours. Digits and the arrow keys change it, and
/// so do the chevrons at its end.
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

    /// Shows hour and minute of `time`. What is being typed is left alone where it means the same.
    void display(QTime time);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTimeEdit* m_edit;
};

TimeField* timeField(std::string_view name, std::function<void(QTime)> set);

} // namespace korvane
