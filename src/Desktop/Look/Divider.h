/// A one-pixel line, horizontal or vertical.
#pragma once

#include "Desktop/Look/Theme.h"

#include <QPainter>
#include <QWidget>

namespace korvane {

class Divider final : public QWidget {
public:
    explicit Divider(Qt::Orientation orientation = Qt::Horizontal) {
        if (orientation == Qt::Horizontal)
            setFixedHeight(1);
        else
            setFixedWidth(1);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Theme::color(Theme::Role::divider));
    }
};

} // namespace korvane
