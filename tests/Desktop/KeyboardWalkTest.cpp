/// The order of the Tab stops in the whole window, in every scene.

#include "Desktop/Binding/Screen.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Window/MainWindow.h"
#include "support/FakeServices.h"
#include "support/Scenes.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace korvane {
namespace {

using Walk = std::vector<QWidget*>;

std::string nameOf(const QWidget* control) {
    return control ? control->accessibleName().toStdString() + " (" + control->metaObject()->className() + ")"
                   : "nothing";
}

std::string namesOf(const Walk& walk) {
    std::string names;
    for (const auto* control : walk)
        names += nameOf(control) + "\n";
    return names;
}

/// A scene, played in the real window.
struct Stage {
    FakeServices fakes{};
    MainWindow window{fakes.services};

    Stage(const Scene& scene, QSize size) {
        window.store().perform([&](ContentView& state) { state.selectedTool = scene.tool; });
        const ScreenDriver driver(window, size);
        window.activateWindow();
        settle();
        scene.play(driver, fakes);
        settle();
        for (auto* widget : window.findChildren<QWidget*>()) {
            if (dynamic_cast<Screen*>(widget))
                m_screen = widget;
            else if (widget->accessibleName() == "Search tools...")
                m_search = widget;
        }
    }

    QWidget& screen() const { return *m_screen; }

    QWidget& search() const { return *m_search; }

    /// All controls that the Tab key should stop at.
    Walk stops() const {
        Walk found;
        for (auto* control : window.findChildren<QWidget*>()) {
            const bool takesTab = (control->focusPolicy() & Qt::TabFocus) && !control->focusProxy();
            if (takesTab && control->isVisible() && control->isEnabled())
                found.push_back(control);
        }
        return found;
    }

    /// The controls that presses of `key` focus, from the focused one until it is focused again. A control
    /// that handles some of the presses, to move through its links, counts once.
    Walk walk(Qt::Key key) const {
        constexpr int maxSteps = 400;
        Walk walk{window.focusWidget()};
        for (int step = 0; step < maxSteps; ++step) {
            QTest::keyClick(window.focusWidget(), key);
            settle();
            auto* now = window.focusWidget();
            if (now == walk.front())
                return walk;
            if (now != walk.back())
                walk.push_back(now);
        }
        ADD_FAILURE() << "never returns to its start\n" << namesOf(walk);
        return walk;
    }

    bool isInScreen(const QWidget* control) const { return screen().isAncestorOf(control); }

    /// 0 for the sidebar, 1 for the screen, 2 for the window's buttons.
    int part(const QWidget* control) const {
        const auto name = control->accessibleName();
        const bool isWindowButton = name == "Minimize" || name == "Maximize" || name == "Close";
        return isInScreen(control) ? 1 : (isWindowButton ? 2 : 0);
    }

private:
    QWidget* m_screen = nullptr;
    QWidget* m_search = nullptr;
};

/// The widgets from the window down to `control`.
Walk branchOf(QWidget* control) {
    Walk branch;
    for (; control; control = control->parentWidget())
        branch.push_back(control);
    std::ranges::reverse(branch);
    return branch;
}

/// Whether `a` comes before `b` in reading order. Where their branches of the widget tree diverge, widgets
/// side by side are read from left to right, each column to its end, and others from top to bottom; a widget
/// that contains the other comes first.
bool isReadBefore(QWidget* a, QWidget* b) {
    const auto branchA = branchOf(a);
    const auto branchB = branchOf(b);
    const auto [partA, partB] = std::ranges::mismatch(branchA, branchB);
    if (partA == branchA.end() || partB == branchB.end())
        return partA == branchA.end();
    const auto rectA = (*partA)->geometry();
    const auto rectB = (*partB)->geometry();
    if (rectA.contains(rectB) || rectB.contains(rectA))
        return rectA.contains(rectB);
    const bool isSideBySide = rectA.top() <= rectB.bottom() && rectB.top() <= rectA.bottom();
    return isSideBySide ? rectA.left() < rectB.left() : rectA.top() < rectB.top();
}

struct KeyboardWalkTest : testing::TestWithParam<Scene> {};

TEST_P(KeyboardWalkTest, TabStopsOnceAtEveryControlInReadingOrder) {
    const Stage stage(GetParam(), {1100, 1600}); // high enough that nothing scrolls
    stage.search().setFocus();
    const auto walk = stage.walk(Qt::Key_Tab);
    const auto stops = stage.stops();
    EXPECT_EQ(std::set(walk.begin(), walk.end()), std::set(stops.begin(), stops.end()))
        << "stops at\n"
        << namesOf(walk) << "has\n"
        << namesOf(stops);
    EXPECT_EQ(walk.size(), stops.size()) << namesOf(walk);
    for (std::size_t i = 1; i < walk.size(); ++i) {
        const auto before = stage.part(walk[i - 1]);
        const auto after = stage.part(walk[i]);
        EXPECT_TRUE(before == after ? isReadBefore(walk[i - 1], walk[i]) : before < after)
            << nameOf(walk[i - 1]) << " comes before " << nameOf(walk[i]);
    }
}

TEST_P(KeyboardWalkTest, ShiftTabVisitsTheStopsInReverseOrder) {
    const Stage stage(GetParam(), {1100, 1600});
    stage.search().setFocus();
    auto walk = stage.walk(Qt::Key_Tab);
    ASSERT_EQ(stage.window.focusWidget(), &stage.search());
    const auto back = stage.walk(Qt::Key_Backtab);
    std::reverse(walk.begin() + 1, walk.end());
    EXPECT_EQ(back, walk) << "back\n" << namesOf(back) << "instead of\n" << namesOf(walk);
}

/// The ring around the focused control of `window`; none if none is shown.
const FocusRing* ringOf(const QWidget& window) {
    for (const auto* child : window.findChildren<QWidget*>()) {
        const auto* ring = dynamic_cast<const FocusRing*>(child);
        if (ring && ring->isVisible())
            return ring;
    }
    return nullptr;
}

TEST_P(KeyboardWalkTest, EveryFocusedControlHasAVisibleFocusRing) {
    const Stage stage(GetParam(), {900, 600});
    stage.search().setFocus();
    for (auto* control : stage.walk(Qt::Key_Tab)) {
        if (control->accessibleName() == "Tools")
            continue; // its current row is painted with a ring
        if (!control->isVisible())
            continue; // scrolled out of a list, with its row
        control->setFocus();
        settle();
        const auto* ring = ringOf(stage.window);
        ASSERT_TRUE(ring) << nameOf(control);
        const QRect place(control->mapTo(&stage.window, QPoint()), control->size());
        const QRect around(ring->mapTo(&stage.window, QPoint()), ring->size());
        EXPECT_TRUE(around.contains(place)) << nameOf(control);
        const bool fits = ring->height() <= ring->parentWidget()->height();
        EXPECT_TRUE(!fits || ring->parentWidget()->rect().contains(ring->geometry())) << nameOf(control);
    }
}

TEST_P(KeyboardWalkTest, ShortcutsWorkInEveryControl) {
    Stage stage(GetParam(), {1100, 1600});
    for (auto* control : stage.stops()) {
        control->setFocus();
        const auto before = stage.window.store().operationCount();
        if (const auto digit = keyboardShortcut(*GetParam().tool)) {
            QTest::keyClick(control, *digit, Qt::ControlModifier);
            EXPECT_EQ(stage.window.store().operationCount(), before + 1) << nameOf(control);
        }
        QTest::keySequence(control, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
        EXPECT_TRUE(stage.search().hasFocus()) << nameOf(control);
    }
}

TEST_P(KeyboardWalkTest, ReturnAndSpacePressEveryButtonAndTheFocusStaysInTheScreen) {
    constexpr std::array keys{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}; // in turn
    std::unique_ptr<Stage> stage;
    std::size_t count = 1;
    for (std::size_t i = 0; i < count; ++i) {
        if (!stage)
            stage = std::make_unique<Stage>(GetParam(), QSize(1100, 1600));
        const auto stops = stage->stops();
        count = stops.size();
        auto* button = qobject_cast<QAbstractButton*>(stops[i]);
        if (!button || !stage->isInScreen(button))
            continue;
        button->setFocus();
        const QSignalSpy clicks(button, &QAbstractButton::clicked);
        const auto name = nameOf(button);
        QTest::keyClick(button, keys[i % keys.size()]);
        EXPECT_EQ(clicks.count(), 1) << name;
        settle();
        stage->fakes.background.runAll();
        settle();
        const auto* now = stage->window.focusWidget();
        const bool isUseful = now && now->isVisible() && now->isEnabled() && stage->isInScreen(now) &&
                              (now->focusPolicy() & Qt::TabFocus);
        EXPECT_TRUE(isUseful) << nameOf(now) << " has the focus after " << name;
        stage.reset(); // the next button is pressed in a new scene
    }
}

/// The names of all visible descendants of `object` that report the focus.
std::vector<std::string> focusedBelow(const QAccessibleInterface& object) {
    constexpr int maxChildren = 200; // a list may have thousands of rows
    std::vector<std::string> names;
    for (int index = 0; index < std::min(object.childCount(), maxChildren); ++index) {
        const auto* child = object.child(index);
        if (!child || child->state().invisible)
            continue;
        if (child->state().focused)
            names.push_back(child->text(QAccessible::Name).toStdString());
        std::ranges::copy(focusedBelow(*child), std::back_inserter(names));
    }
    return names;
}

TEST_P(KeyboardWalkTest, ExactlyOneObjectReportsTheFocus) {
    Stage stage(GetParam(), {1100, 1600});
    const auto* window = QAccessible::queryAccessibleInterface(&stage.window);
    for (auto* control : stage.stops()) {
        control->setFocus();
        const auto focused = focusedBelow(*window);
        EXPECT_EQ(focused.size(), 1U) << nameOf(control) << testing::PrintToString(focused);
    }
}

std::string sceneName(const testing::TestParamInfo<Scene>& scene) {
    auto name = scene.param.name;
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(AllScenes, KeyboardWalkTest, testing::ValuesIn(allScenes()), sceneName);

} // namespace
} // namespace korvane
