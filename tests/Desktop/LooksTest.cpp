/// What a person would see to be wrong at a glance, on every screen and in every state of it that the
/// pictures show, with little and with large text: something cut off, squeezed, or laid over something else.

#include "Desktop/Window/MainWindow.h"
#include "support/FakeServices.h"
#include "support/Scenes.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QLayout>

#include <string>
#include <typeinfo>
#include <vector>

namespace korvane {
namespace {

constexpr QSize smallestWindow(900, 600);
constexpr double smallText = 10, largeText = 14; // in points

std::vector<Scene> everyScene() {
    auto all = allScenes();
    const auto crowded = crowdedScenes();
    all.insert(all.end(), crowded.begin(), crowded.end());
    return all;
}

std::string nameOf(const QWidget& widget) {
    const auto name =
        widget.accessibleName().isEmpty() ? widget.property("text").toString() : widget.accessibleName();
    return name.toStdString() + " (" + widget.metaObject()->className() + ", " + typeid(widget).name() + ")";
}

std::string sizeText(QSize size) {
    return std::to_string(size.width()) + " x " + std::to_string(size.height());
}

/// Whether `widget` has a place of its own in its parent's layout.
bool isLaidOut(const QWidget& widget) {
    const auto* parent = widget.parentWidget();
    return parent && parent->layout() && parent->layout()->indexOf(&widget) >= 0;
}

struct LooksTest : testing::TestWithParam<Scene> {
    QFont before = QApplication::font();

    ~LooksTest() override { QApplication::setFont(before); }
};

/// All that has a place in a layout, and can be seen.
std::vector<QWidget*> placedParts(const QWidget& window) {
    std::vector<QWidget*> placed;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && isLaidOut(*widget))
            placed.push_back(widget);
    }
    return placed;
}

void expectRoom(const QWidget& widget) {
    const bool scrolls =
        qobject_cast<const QAbstractScrollArea*>(&widget); // it says that it needs its scroll bars
    const auto wanted = scrolls ? QSize() : widget.minimumSizeHint();
    const auto needed = wanted.expandedTo(widget.minimumSize()).boundedTo(widget.maximumSize());
    EXPECT_TRUE(widget.width() >= needed.width() && widget.height() >= needed.height())
        << nameOf(widget) << " has " << sizeText(widget.size()) << " and needs " << sizeText(needed);
    EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry())) << nameOf(widget) << " is cut off";
    const bool isButton = qobject_cast<const QAbstractButton*>(&widget);
    EXPECT_TRUE(!isButton || widget.width() >= widget.sizeHint().boundedTo(widget.maximumSize()).width())
        << nameOf(widget) << " is too narrow";
}

TEST_P(LooksTest, EverythingHasTheRoomThatItNeeds) {
    for (const double points : {smallText, largeText}) {
        auto font = before;
        font.setPointSizeF(points);
        QApplication::setFont(font);
        FakeServices fakes;
        MainWindow window(fakes.services);
        window.view().perform([](ContentView& state) { state.selectedTool = GetParam().tool; });
        const ScreenDriver screen(window, smallestWindow);
        settle();
        GetParam().play(screen, fakes);
        settle();
        const auto placed = placedParts(window);
        ASSERT_GT(placed.size(), 20U);
        for (const auto* widget : placed) {
            expectRoom(*widget);
            for (const auto* other : placed) {
                const bool areNeighbours = other < widget && other->parentWidget() == widget->parentWidget();
                EXPECT_FALSE(areNeighbours && other->geometry().intersects(widget->geometry()))
                    << nameOf(*widget) << " overlaps " << nameOf(*other);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllScenes, LooksTest, testing::ValuesIn(everyScene()), [](const auto& scene) {
    auto name = scene.param.name;
    std::erase(name, '-');
    return name;
});

} // namespace
} // namespace korvane
