#include "Desktop/Kit/Slider.h"

#include "Desktop/Kit/Accessibility.h"
#include "Desktop/Kit/FocusRing.h"
#include "Desktop/Kit/Panel.h"
#include "Desktop/Kit/Strings.h"
#include "Desktop/Kit/Theme.h"
#include "Desktop/Kit/ViewCore.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QSlider>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace korvane {

using Theme::Role;
using Theme::Size;

namespace {

/// Into how many steps a slider without a step of its own is divided: finer than any screen.
constexpr int finePositions = 10'000;

/// By how much of the whole an arrow key and a page key move such a slider.
constexpr int fineKeySteps = 100;
constexpr int finePageSteps = 10;

class Slider final : public QSlider, public AccessibleControl {
public:
    Slider(const SliderOptions& options, std::function<void(double)> set)
        : QSlider(Qt::Horizontal), m_options(options), m_set(std::move(set)) {
        const auto length = options.maximum - options.minimum;
        setMaximum(options.step > 0 ? static_cast<int>(std::lround(length / options.step)) : finePositions);
        setSingleStep(options.step > 0 ? 1 : finePositions / fineKeySteps);
        setPageStep(std::max(1, maximum() / finePageSteps));
        setFocusPolicy(Qt::TabFocus);
        setMinimumWidth(Theme::px(Size::sliderMinimumWidth));
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        giveFocusRing(this, this, Size::sliderHeight / 2);
    }

    void display(double value) {
        const auto share = (value - m_options.minimum) / (m_options.maximum - m_options.minimum);
        setValue(static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * maximum())));
    }

    double chosenValue() const {
        return m_options.minimum + (m_options.maximum - m_options.minimum) * value() / maximum();
    }

    /// Chooses a value that may lie between two positions, where the slider has no steps.
    void choose(double value) {
        if (m_options.step > 0)
            display(value);
        else
            m_set(std::clamp(value, m_options.minimum, m_options.maximum));
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
        const auto thickness = Theme::px(Size::sliderTrack);
        const auto radius = Theme::px(Size::radiusBar);
        QRect track(0, (height() - thickness) / 2, width(), thickness);
        paintSurface(painter, track, radius, Theme::color(Role::sliderTrack));
        track.setWidth(left + knob / 2);
        paintSurface(painter, track, radius, Theme::hue(m_options.color));
        paintSurface(painter, {left, (height() - knob) / 2, knob, knob}, knob / 2.0, Theme::color(Role::knob),
                     Theme::color(Role::knobOutline));
    }

private:
    SliderOptions m_options;
    std::function<void(double)> m_set;
};

/// Tells the value in the units of the screen; the toolkit's interface knows positions only.
class SliderInterface final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit SliderInterface(Slider* slider) : QAccessibleWidget(slider, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return slider().chosenValue(); }

    void setCurrentValue(const QVariant& value) override { slider().choose(value.toDouble()); }

    QVariant maximumValue() const override { return slider().options().maximum; }

    QVariant minimumValue() const override { return slider().options().minimum; }

    QVariant minimumStepSize() const override {
        const auto& options = slider().options();
        return (options.maximum - options.minimum) * slider().singleStep() / slider().maximum();
    }

private:
    Slider& slider() const { return *static_cast<Slider*>(widget()); }
};

QAccessibleInterface* Slider::newAccessibleInterface() {
    return new SliderInterface(this);
}

} // namespace

QWidget* slider(ViewCore& view, SliderParts parts) {
    auto* control = new Slider(parts.options, parts.setValue);
    control->setAccessibleName(qString(parts.name));
    QObject::connect(control, &QSlider::valueChanged, control,
                     [control, set = parts.setValue] { set(control->chosenValue()); });
    view.onRefresh([control, value = parts.value] { control->display(value()); });
    return control;
}

} // namespace korvane
