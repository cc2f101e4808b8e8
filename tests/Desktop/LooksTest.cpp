/// Layout errors in every scene, with small and with large text: widgets that are cut off, squeezed, or
/// overlap.

#include "Desktop/Controls/Labels.h"
#include "Desktop/Window/MainWindow.h"
#include "support/FakeServices.h"
#include "support/Scenes.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QBoxLayout>

#include <algorithm>
#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

namespace korvane {
namespace {

constexpr QSize minWindow(900, 600);
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

/// Whether `widget` is an item of its parent's layout.
bool isLaidOut(const QWidget& widget) {
    const auto* parent = widget.parentWidget();
    return parent && parent->layout() && parent->layout()->indexOf(&widget) >= 0;
}

struct LooksTest : testing::TestWithParam<Scene> {
    QFont before = QApplication::font();

    ~LooksTest() override { QApplication::setFont(before); }

    /// Plays the scene with text of `points` in a window of `size`, and passes the window to `check`.
    void play(double points, QSize size, const std::function<void(const QWidget& window)>& check) const {
        auto font = before;
        font.setPointSizeF(points);
        QApplication::setFont(font);
        FakeServices fakes;
        MainWindow window(fakes.services);
        window.store().perform([](ContentView& state) { state.selectedTool = GetParam().tool; });
        const ScreenDriver screen(window, size);
        settle();
        GetParam().play(screen, fakes);
        settle();
        check(window);
    }
};

/// All visible widgets in layouts.
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
        qobject_cast<const QAbstractScrollArea*>(&widget); // its hint includes its scroll bars
    const auto hint = scrolls ? QSize() : widget.minimumSizeHint();
    // As in layouts, an explicit minimum replaces the hint.
    const QSize needed = QSize(widget.minimumWidth() > 0 ? widget.minimumWidth() : hint.width(),
                               widget.minimumHeight() > 0 ? widget.minimumHeight() : hint.height())
                             .boundedTo(widget.maximumSize());
    EXPECT_TRUE(widget.width() >= needed.width() && widget.height() >= needed.height())
        << nameOf(widget) << " has " << sizeText(widget.size()) << " and needs " << sizeText(needed);
    EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry())) << nameOf(widget) << " is cut off";
    if (!qobject_cast<const QAbstractButton*>(&widget))
        return;
    if (widget.hasHeightForWidth())
        EXPECT_GE(widget.height(), widget.heightForWidth(widget.width())) << nameOf(widget) << " is too low";
    else
        EXPECT_GE(widget.width(), widget.sizeHint().boundedTo(widget.maximumSize()).width())
            << nameOf(widget) << " is too narrow";
}

/// A label may shorten its text where space is short, but not because of its own fixed width.
void expectWholeText(const QWidget& widget) {
    const bool isFixed =
        dynamic_cast<const Label*>(&widget) && widget.minimumWidth() == widget.maximumWidth();
    EXPECT_TRUE(!isFixed || widget.sizeHint().width() <= widget.width())
        << nameOf(widget) << " is cut at its fixed width of " << widget.width() << " and needs "
        << widget.sizeHint().width();
}

/// A widget that wraps is one line high where its text fits into one.
void expectNoEmptyLine(const QWidget& widget) {
    const bool wraps = !widget.layout() && widget.hasHeightForWidth();
    const auto preferred = widget.sizeHint();
    EXPECT_TRUE(!wraps || widget.width() < preferred.width() || widget.height() <= preferred.height())
        << nameOf(widget) << " has " << sizeText(widget.size()) << " and prefers " << sizeText(preferred);
}

/// The preferred height of `widget` at its width.
int preferredHeight(const QWidget& widget) {
    const auto height = widget.hasHeightForWidth() ? widget.heightForWidth(widget.width()) : -1;
    const auto preferred = height >= 0 ? height : widget.sizeHint().height();
    return std::clamp(preferred, widget.minimumHeight(), widget.maximumHeight());
}

/// Whether `widget` is one of several in a column and does not expand into the remaining space.
bool keepsItsHeight(const QWidget& widget) {
    const auto* column = qobject_cast<const QBoxLayout*>(widget.parentWidget()->layout());
    if (!column || column->direction() != QBoxLayout::TopToBottom || widget.sizeHint().height() < 0)
        return false;
    int shown = 0;
    for (int index = 0; index < column->count(); ++index)
        shown += column->itemAt(index)->isEmpty() ? 0 : 1;
    const auto* item = column->itemAt(column->indexOf(&widget));
    return shown > 1 && !(item->expandingDirections() & Qt::Vertical);
}

TEST_P(LooksTest, EveryWidgetHasEnoughSpace) {
    for (const double points : {smallText, largeText}) {
        play(points, minWindow, [](const QWidget& window) {
            const auto placed = placedParts(window);
            ASSERT_GT(placed.size(), 20U);
            for (const auto* widget : placed) {
                expectRoom(*widget);
                expectWholeText(*widget);
                expectNoEmptyLine(*widget);
                for (const auto* other : placed) {
                    const bool areNeighbours =
                        other < widget && other->parentWidget() == widget->parentWidget();
                    EXPECT_FALSE(areNeighbours && other->geometry().intersects(widget->geometry()))
                        << nameOf(*widget) << " overlaps " << nameOf(*other);
                }
            }
        });
    }
}

TEST_P(LooksTest, EveryMessageIsVisible) {
    for (const double points : {smallText, largeText}) {
        play(points, minWindow, [](const QWidget& window) {
            for (const auto* widget : placedParts(window)) {
                const bool isMessage =
                    dynamic_cast<const StatusBadgeLabel*>(widget) || widget->accessibleName() == "Error";
                const auto seen = widget->visibleRegion().boundingRect();
                EXPECT_TRUE(!isMessage || (seen.left() == 0 && seen.height() == widget->height()))
                    << nameOf(*widget) << " is not visible in a window with text of "
                    << QApplication::font().pointSizeF() << " points";
            }
        });
    }
}

TEST_P(LooksTest, OnlyExpandingWidgetsExceedTheirPreferredHeight) {
    for (const QSize size : {minWindow, {1920, 1080}, {3840, 2160}}) {
        play(smallText, size, [](const QWidget& window) {
            for (const auto* widget : placedParts(window)) {
                EXPECT_TRUE(!keepsItsHeight(*widget) || widget->height() <= preferredHeight(*widget))
                    << nameOf(*widget) << " is " << widget->height() << " high and prefers "
                    << preferredHeight(*widget) << " in a window of " << sizeText(window.size());
            }
        });
    }
}

INSTANTIATE_TEST_SUITE_P(AllScenes, LooksTest, testing::ValuesIn(everyScene()), [](const auto& scene) {
    auto name = scene.param.name;
    std::erase(name, '-');
    return name;
});

} // namespace
} // namespace korvane
