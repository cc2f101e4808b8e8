/// A line of one pixel across its column.
#pragma once

#include "Desktop/Kit/Theme.h"

#include <QPainter>
#include <QWidget>

namespace korvane {

class Divider final : public QWidget {
public:
    Divider() { setFixedHeight(1); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Theme::color(Theme::Role::divider));
    }
};

} // namespace korvane
