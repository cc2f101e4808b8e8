#include "Desktop/Controls/BusyLabel.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"

#include <QBasicTimer>
#include <QPainter>
#include <QTimerEvent>

namespace korvane {

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int ringSize = 14;
constexpr int ringWidth = 2;

class BusyRing final : public QWidget {
public:
    /// `text`, which is shown beside the ring, is announced when the ring appears.
    explicit BusyRing(std::string_view text) : m_text(qString(text)) {
        setFixedSize(Theme::px(ringSize), Theme::px(ringSize));
    }

protected:
    void showEvent(QShowEvent*) override {
        m_timer.start(frame, this);
        announce(*this, m_text);
    }

    void hideEvent(QHideEvent*) override { m_timer.stop(); }

    void timerEvent(QTimerEvent*) override {
        m_angle = (m_angle + step) % fullTurn;
        update();
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const double width = Theme::px(ringWidth);
        const auto circle = QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2);
        painter.setPen(QPen(Theme::color(Theme::Role::controlHover), width));
        painter.drawEllipse(circle);
        painter.setPen(QPen(Theme::color(Theme::Role::secondary), width, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(circle, -m_angle, fullTurn / 4);
    }

private:
    static constexpr int frame = 33;           // milliseconds
    static constexpr int fullTurn = 360 * 16;  // in Qt's unit of angles
    static constexpr int step = fullTurn / 30; // one turn a second

    QString m_text;
    QBasicTimer m_timer;
    int m_angle = 0;
};

} // namespace

QWidget* busyLabel(std::string_view text) {
    return row(
        {new BusyRing(text), new Label(text, Theme::TextStyle::quiet, Theme::Role::secondary), stretch()});
}

} // namespace korvane
