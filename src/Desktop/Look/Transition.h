/// An animation between two looks, off (0) and on (1), eased in and out. It affects painting only: the state
/// of a control changes at once. Where the style disables animations, the look does so too.
#pragma once

#include <QStyle>
#include <QVariantAnimation>
#include <QWidget>

namespace korvane {

class Transition {
public:
    explicit Transition(QWidget* widget) : m_widget(widget) {
        m_animation.setEasingCurve(QEasingCurve::InOutQuad);
        QObject::connect(&m_animation, &QVariantAnimation::valueChanged, widget,
                         [this](const QVariant& value) {
                             m_progress = value.toDouble();
                             m_widget->update();
                         });
    }

    void setOn(bool on) {
        if (on == m_on)
            return;
        const int duration =
            m_widget->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, m_widget);
        if (duration == 0) {
            jumpTo(on);
            m_widget->update();
            return;
        }
        m_on = on;
        m_animation.stop();
        m_animation.setDuration(duration);
        m_animation.setStartValue(m_progress);
        m_animation.setEndValue(on ? 1.0 : 0.0);
        m_animation.start();
    }

    /// The same without an animation.
    void jumpTo(bool on) {
        m_animation.stop();
        m_on = on;
        m_progress = on ? 1 : 0;
    }

    /// Runs from off to on, whatever the present state.
    void restart() {
        m_animation.stop();
        m_progress = 0;
        m_on = false;
        setOn(true);
    }

    bool isRunning() const { return m_animation.state() == QAbstractAnimation::Running; }

    double progress() const { return m_progress; }

private:
    QWidget* m_widget;
    QVariantAnimation m_animation;
    double m_progress = 0;
    bool m_on = false;
};

} // namespace korvane
