/// A turning ring for work that takes long. It shows no progress.
#pragma once

#include <QBasicTimer>
#include <QWidget>

#include <string_view>

namespace korvane {

/// A ring that turns while it is visible, unless animations are off. `size` is in pixels at a 13-pixel body
/// text.
class BusyRing final : public QWidget {
public:
    static constexpr int normalSize = 14;
    static constexpr int smallSize = 12; ///< in the rows of a list

    explicit BusyRing(int size = normalSize);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QBasicTimer m_timer;
    int m_angle = 0;
};

/// A ring beside a text that describes the running work, which is announced when it appears.
QWidget* busyLabel(std::string_view text);

} // namespace korvane
