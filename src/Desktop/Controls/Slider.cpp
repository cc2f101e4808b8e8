#include "Desktop/Controls/Slider.h"

#include "Desktop/Access/Accessibility.h"
#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QPainter>
#include <QSlider>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int sliderTrack = 4;
constexpr int minWidth = 60;

/// The number of positions of a continuous slider, finer than any screen.
constexpr int finePositions = 10'000;

/// The number of steps of a page key.
constexpr int stepsOfPage = 10;

/// The number of steps that `action` goes up; none if it does not go by steps.
std::optional<int> stepsOf(int action) {
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
        return 1;
    case QAbstractSlider::SliderSingleStepSub:
        return -1;
    case QAbstractSlider::SliderPageStepAdd:
        return stepsOfPage;
    case QAbstractSlider::SliderPageStepSub:
        return -stepsOfPage;
    default:
        return std::nullopt;
    }
}

class Slider final : public QSlider, public AccessibleControl {
public:
    Slider(const SliderOptions& options, std::function<void(double)> set)
        : QSlider(Qt::Horizontal), m_options(options), m_set(std::move(set)) {
        setMaximum(options.isContinuous ? finePositions : stepAt(options.maximum) - stepAt(options.minimum));
        setFocusPolicy(Qt::TabFocus);
        setMinimumWidth(Theme::px(minWidth));
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        giveFocusRing(this, this, Size::sliderHeight / 2);
        connect(this, &QSlider::valueChanged, this, [this] { m_set(chosenValue()); });
        connect(this, &QSlider::actionTriggered, this, [this](int action) {
            if (const auto steps = stepsOf(action)) {
                setSliderPosition(value()); // the action has moved it already
                stepBy(*steps);
            }
        });
    }

    void display(double value) {
        m_value = value;
        const auto share = (value - m_options.minimum) / (m_options.maximum - m_options.minimum);
        setValue(static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * maximum())));
    }

    double shownValue() const { return std::clamp(m_value, m_options.minimum, m_options.maximum); }

    /// Sets a value, which may be between two positions of a continuous slider.
    void choose(double value) {
        if (m_options.isContinuous)
            m_set(std::clamp(value, m_options.minimum, m_options.maximum));
        else
            setValue(static_cast<int>(std::lround(value * m_options.stepsOfOne)) - stepAt(m_options.minimum));
    }

    const SliderOptions& options() const { return m_options; }

    QAccessibleInterface* newAccessibleInterface() override;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (!isEnabled())
            painter.setOpacity(Theme::disabledOpacity);
        const auto knob = Theme::px(Size::sliderKnob);
        const auto left =
            QStyle::sliderPositionFromValue(0, maximum(), sliderPosition(), width() - knob, isRightToLeft());
        const auto thickness = Theme::px(sliderTrack);
        const auto radius = Theme::px(Size::radiusBar);
        QRect track(0, (height() - thickness) / 2, width(), thickness);
        paintSurface(painter, track, radius, Theme::color(Role::sliderTrack));
        track.setWidth(left + knob / 2);
        paintSurface(painter, track, radius, Theme::hue(m_options.color));
        paintSurface(painter, {left, (height() - knob) / 2, knob, knob}, knob / 2.0, Theme::color(Role::knob),
                     Theme::color(Role::knobOutline));
    }

    void wheelEvent(QWheelEvent* event) override {
        if (!hasFocus())
            return event->ignore(); // an unfocused slider must not intercept scrolling
        m_wheelTurn += event->angleDelta().y() * QApplication::wheelScrollLines();
        stepBy(m_wheelTurn / QWheelEvent::DefaultDeltasPerStep);
        m_wheelTurn %= QWheelEvent::DefaultDeltasPerStep;
        event->accept();
    }

private:
    /// The highest step that is not above `value`.
    int stepAt(double value) const { return static_cast<int>(std::floor(value * m_options.stepsOfOne)); }

    double valueAt(int step) const {
        const auto value = static_cast<double>(step) / m_options.stepsOfOne;
        return stepAt(value) < step ? std::nextafter(value, m_options.maximum) : value;
    }

    /// The value at the slider's position.
    double chosenValue() const {
        if (!m_options.isContinuous)
            return valueAt(stepAt(m_options.minimum) + value());
        return m_options.minimum + (m_options.maximum - m_options.minimum) * value() / maximum();
    }

    void stepBy(int steps) {
        const auto step =
            std::clamp(stepAt(shownValue()) + steps, stepAt(m_options.minimum), stepAt(m_options.maximum));
        if (steps != 0 && valueAt(step) != m_value)
            m_set(valueAt(step));
    }

    SliderOptions m_options;
    std::function<void(double)> m_set;
    double m_value = 0;  // the value in the screen's state
    int m_wheelTurn = 0; // since the last step
};

/// Reports the value in the screen's units; Qt's interface knows positions only.
class SliderInterface final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit SliderInterface(Slider* slider) : QAccessibleWidget(slider, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return slider().shownValue(); }

    void setCurrentValue(const QVariant& value) override { slider().choose(value.toDouble()); }

    QVariant maximumValue() const override { return slider().options().maximum; }

    QVariant minimumValue() const override { return slider().options().minimum; }

    QVariant minimumStepSize() const override { return 1.0 / slider().options().stepsOfOne; }

private:
    Slider& slider() const { return *static_cast<Slider*>(widget()); }
};

QAccessibleInterface* Slider::newAccessibleInterface() {
    return new SliderInterface(this);
}

} // namespace

QWidget* slider(Store& store, std::string_view name, const Reader<double>& value,
                const Action<double>& setValue, const SliderOptions& options) {
    auto* control = new Slider(options, setValue.on(store));
    control->setAccessibleName(qString(name));
    store.onRefresh([control, value = value.of(store)] { control->display(value()); });
    return control;
}

} // namespace korvane
