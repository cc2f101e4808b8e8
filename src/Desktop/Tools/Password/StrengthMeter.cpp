#include "Desktop/Tools/Password/StrengthMeter.h"

#include "Desktop/Binding/Store.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"

#include <QPainter>
#include <QWidget>

namespace korvane {

using Theme::Role;
using Theme::Size;
using Theme::TextStyle;

namespace {

// Sizes are in pixels at a 13-pixel body text.
constexpr int strengthWidth = 100;
constexpr int strengthHeight = 6;
constexpr int strengthGap = 4;

class StrengthBars final : public QWidget {
public:
    StrengthBars() { setFixedSize(Theme::px(strengthWidth), Theme::px(strengthHeight)); }

    void display(PasswordStrength strength) {
        if (strength == m_strength)
            return;
        m_strength = strength;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        constexpr auto& steps = allCases<PasswordStrength>;
        const auto gap = Theme::px(strengthGap);
        const auto radius = Theme::px(Size::radiusBar);
        const auto barWidth =
            (width() - gap * static_cast<double>(steps.size() - 1)) / static_cast<double>(steps.size());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        double left = 0;
        for (const auto step : steps) {
            painter.setBrush(step <= m_strength ? Theme::hue(color(m_strength))
                                                : Theme::color(Role::outline));
            painter.drawRoundedRect(QRectF(left, 0, barWidth, height()), radius, radius);
            left += barWidth + gap;
        }
    }

private:
    PasswordStrength m_strength = PasswordStrength::veryWeak;
};

} // namespace

QWidget* strengthMeter(Store& store, const Reader<PasswordStrength>& strength) {
    auto* bars = new StrengthBars;
    auto* word = new Label({}, TextStyle::bodyStrong);
    store.onRefresh([bars, word, read = strength.of(store)] {
        const auto current = read();
        bars->display(current);
        word->display(label(current));
        word->setInk(color(current));
    });
    return stack(Qt::Horizontal, {.spacing = Size::optionGap}, {bars, word});
}

} // namespace korvane
