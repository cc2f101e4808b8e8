/// The outlined surface of editors, lists and previews.
#pragma once

#include <QWidget>

namespace korvane {

class Panel : public QWidget {
public:
    /// A panel around `content`, which fills it up to the outline and is its focus proxy.
    explicit Panel(QWidget* content);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace korvane
