#include "Desktop/Controls/Toggle.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Binding/Strings.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Glyph.h"
#include "Desktop/Look/Surface.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Look/Transition.h"

#include <QCheckBox>
#include <QPainter>

#include <algorithm>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int switchWidth = 34;
constexpr int switchHeight = 20;
constexpr int switchKnob = 16;
constexpr int switchInset = 2;
constexpr int checkbox = 16;
constexpr int checkboxTick = 10;
constexpr int optionRow = 28;

class Toggle final : public QCheckBox {
public:
    Toggle(std::string_view title, ToggleOptions options) : m_options(options) {
        setText(qString(title));
        setAccessibleName(text());
        setFocusPolicy(Qt::TabFocus);
        const bool isRow = options.look == ToggleLook::trailSwitch;
        setSizePolicy(isRow ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Fixed);
        giveFocusRing(this, this, Size::radiusSmall);
        connect(this, &QCheckBox::toggled, this, [this](bool isOn) {
            if (isVisible())
                m_shownOn.setOn(isOn);
            else
                m_shownOn.jumpTo(isOn);
        });
    }

    QSize sizeHint() const override {
        const bool isRow = m_options.look == ToggleLook::trailSwitch;
        const auto gap = Theme::px(isRow ? Size::optionGap : Size::gapControl);
        const auto title = QFontMetrics(Theme::font(TextStyle::body)).horizontalAdvance(text()) + 1;
        const auto height = isRow ? Theme::px(optionRow)
                                  : std::max(Theme::lineHeight(TextStyle::body), indicatorSize().height());
        return {indicatorSize().width() + gap + title, height};
    }

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (!isEnabled())
            painter.setOpacity(Theme::disabledOpacity);
        const bool isRow = m_options.look == ToggleLook::trailSwitch;
        const auto size = indicatorSize();
        const QRect indicator({isRow ? width() - size.width() : 0, (height() - size.height()) / 2}, size);
        if (m_options.look == ToggleLook::checkbox)
            paintCheckbox(painter, indicator);
        else
            paintSwitch(painter, indicator);
        const auto left = isRow ? 0 : size.width() + Theme::px(Size::gapControl);
        painter.setFont(Theme::font(TextStyle::body));
        painter.setPen(Theme::color(m_options.isSecondary ? Role::secondary : Role::primary));
        painter.drawText(rect().adjusted(left, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, text());
    }

private:
    QSize indicatorSize() const {
        if (m_options.look == ToggleLook::checkbox)
            return {Theme::px(checkbox), Theme::px(checkbox)};
        return {Theme::px(switchWidth), Theme::px(switchHeight)};
    }

    void paintSwitch(QPainter& painter, const QRect& track) const {
        const auto progress = m_shownOn.progress();
        auto fill = Theme::mixed(Theme::color(Role::switchOff), Theme::color(Role::accent), progress);
        paintSurface(painter, track, track.height() / 2.0, fill);
        const double inset = Theme::px(switchInset);
        const double knob = Theme::px(switchKnob);
        const double travel = track.width() - knob - 2 * inset;
        painter.setBrush(Theme::color(Role::knob));
        painter.drawEllipse(
            QRectF(track.left() + inset + travel * progress, track.top() + inset, knob, knob));
    }

    void paintCheckbox(QPainter& painter, const QRect& box) const {
        const auto radius = Theme::px(Size::radiusBadge);
        if (!isChecked()) {
            paintSurface(painter, box, radius,
                         Theme::color(underMouse() ? Role::controlHover : Role::controlFill),
                         Theme::color(Role::outlineStrong));
            return;
        }
        paintSurface(painter, box, radius, Theme::color(Role::accent));
        const auto tick = Theme::px(checkboxTick);
        const auto inset = (box.width() - tick) / 2.0;
        Glyph::paint(painter, "checkmark", QRectF(box.left() + inset, box.top() + inset, tick, tick),
                     Theme::color(Role::onAccent));
    }

    ToggleOptions m_options;
    Transition m_shownOn{this};
};

} // namespace

QWidget* toggle(Store& store, std::string_view title, const Reader<bool>& isOn, const Action<bool>& setOn,
                ToggleOptions options) {
    auto* control = new Toggle(title, options);
    store.onRefresh([control, isOn = isOn.of(store)] { control->setChecked(isOn()); });
    QObject::connect(control, &QCheckBox::clicked, control, setOn.on(store));
    return control;
}

} // namespace korvane
