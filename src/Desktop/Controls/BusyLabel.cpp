#include "Desktop/Controls/BusyLabel.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"

#include <QPainter>
#include <QStyle>
#include <QTimerEvent>

namespace korvane {

namespace {

constexpr double ringWidth = 1.5;   // in pixels
constexpr int frame = 33;           // milliseconds
constexpr int fullTurn = 360 * 16;  // in Qt's unit of angles
constexpr int step = fullTurn / 30; // one turn a second

/// A container that announces a text when it appears.
class Announcing final : public QWidget {
public:
    explicit Announcing(std::string_view text) : m_text(qString(text)) {}

protected:
    void showEvent(QShowEvent*) override { announce(*this, m_text); }

private:
    QString m_text;
};

} // namespace

BusyRing::BusyRing(int size) {
    setFixedSize(Theme::px(size), Theme::px(size));
}

void BusyRing::showEvent(QShowEvent*) {
    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0)
        m_timer.start(frame, this);
}

void BusyRing::hideEvent(QHideEvent*) {
    m_timer.stop();
}

void BusyRing::timerEvent(QTimerEvent*) {
    m_angle = (m_angle + step) % fullTurn;
    update();
}

void BusyRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto circle = QRectF(rect()).adjusted(ringWidth / 2, ringWidth / 2, -ringWidth / 2, -ringWidth / 2);
    painter.setPen(QPen(Theme::color(Theme::Role::outlineStrong), ringWidth));
    painter.drawEllipse(circle);
    painter.setPen(QPen(Theme::color(Theme::Role::secondary), ringWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(circle, -m_angle, fullTurn / 4);
}

QWidget* busyLabel(std::string_view text) {
    auto* label = new Announcing(text);
    fill(label, Qt::Horizontal, {},
         {new BusyRing, new Label(text, Theme::TextStyle::quiet, Theme::Role::secondary), stretch()});
    return label;
}

} // namespace korvane
