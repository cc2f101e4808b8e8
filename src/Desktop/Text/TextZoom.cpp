#include "Desktop/Text/TextZoom.h"

#include <QAbstractScrollArea>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace korvane::TextZoom {

namespace {

/// In percent, in roughly equal ratios.
constexpr std::array levels{minPercent, 60,  70,  80,  90,  normal, 110,
                            125,        150, 175, 200, 250, 300,    maxPercent};

class Follower;

struct State {
    int percent = normal;
    std::vector<Follower*> followers{};
};

State& state() {
    static State shared;
    return shared;
}

/// A child of the area that follows the zoom; filters its wheel events.
class Follower final : public QObject {
public:
    Follower(QAbstractScrollArea* area, std::function<void()> apply)
        : QObject(area), m_apply(std::move(apply)) {
        area->installEventFilter(this);
        area->viewport()->installEventFilter(this);
        state().followers.push_back(this);
    }

    ~Follower() override { std::erase(state().followers, this); }

    void apply() const { m_apply(); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Wheel)
            return false;
        const auto* wheel = static_cast<QWheelEvent*>(event);
        if (!wheel->modifiers().testFlag(Qt::ControlModifier))
            return false;
        turn(wheel->angleDelta().y());
        event->accept();
        return true;
    }

private:
    /// A touch pad reports fractions of a notch.
    void turn(int angle) {
        m_turned += angle;
        for (; m_turned >= QWheelEvent::DefaultDeltasPerStep; m_turned -= QWheelEvent::DefaultDeltasPerStep)
            zoomIn();
        for (; m_turned <= -QWheelEvent::DefaultDeltasPerStep; m_turned += QWheelEvent::DefaultDeltasPerStep)
            zoomOut();
    }

    std::function<void()> m_apply;
    int m_turned = 0;
};

void set(int percent) {
    if (percent == state().percent)
        return;
    state().percent = percent;
    for (const auto* follower : state().followers)
        follower->apply();
}

} // namespace

int percent() {
    return state().percent;
}

void zoomIn() {
    const auto next = std::ranges::upper_bound(levels, percent());
    set(next == levels.end() ? maxPercent : *next);
}

void zoomOut() {
    const auto present = std::ranges::lower_bound(levels, percent());
    set(present == levels.begin() ? minPercent : *std::prev(present));
}

QFont font(Theme::TextStyle style) {
    return Theme::font(style, percent());
}

int lineHeight(Theme::TextStyle style) {
    return Theme::lineHeight(style, percent());
}

int px(int size) {
    return static_cast<int>(std::lround(Theme::px(size) * percent() / 100.0));
}

void follow(QAbstractScrollArea* area, std::function<void()> apply) {
    new Follower(area, std::move(apply));
}

} // namespace korvane::TextZoom
