/// Properties of every screen.

#include "Desktop/Binding/Screen.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "Desktop/Window/MainWindow.h"
#include "Desktop/Window/TopStrip.h"
#include "Views/ContentView.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <map>
#include <memory>
#include <random>

namespace korvane {
namespace {

/// Counts the windows that appear.
class WindowCounter final : public QObject {
public:
    WindowCounter() { qApp->installEventFilter(this); }

    int count = 0;

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* shown = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Show && shown && shown->isWindow())
            ++count;
        return false;
    }
};

struct CatalogueTest : testing::TestWithParam<Tool> {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{toolScreen(GetParam(), fakes.services)};

    ~CatalogueTest() override { Theme::setScheme(Theme::Scheme::light); }
};

TEST_P(CatalogueTest, CanBeBuiltAndDestroyed) {
    const ScreenDriver screen(*widget);
    EXPECT_TRUE(screen.shows(rawValue(GetParam())));
    widget.reset();
    settle();
}

TEST_P(CatalogueTest, BuildingShowsNoWindow) {
    const WindowCounter windows;
    const std::unique_ptr<QWidget> another(toolScreen(GetParam(), fakes.services));
    EXPECT_EQ(windows.count, 0);
}

TEST_P(CatalogueTest, RefreshingPerformsNoOperation) {
    const ScreenDriver screen(*widget);
    auto* frame = dynamic_cast<Screen*>(widget.get());
    ASSERT_NE(frame, nullptr);
    for (const auto* text : {"", "[1]"}) {
        for (auto* button : widget->findChildren<QAbstractButton*>()) {
            fakes.clipboard.content = text;
            button->click();
        }
        const auto operations = frame->store().operationCount();
        frame->store().refresh();
        frame->store().refresh();
        EXPECT_EQ(frame->store().operationCount(), operations);
    }
}

TEST_P(CatalogueTest, EveryFocusableControlHasADistinctName) {
    const ScreenDriver screen(*widget);
    std::map<std::pair<std::string, QString>, int> names;
    for (auto* control : widget->findChildren<QWidget*>()) {
        if (!control->isVisible() || control->focusPolicy() == Qt::NoFocus || control->focusProxy())
            continue;
        EXPECT_NE(control->accessibleName(), "") << control->metaObject()->className();
        if (!qobject_cast<QAbstractButton*>(control))
            ++names[{control->metaObject()->className(), control->accessibleName()}];
    }
    for (const auto& [name, count] : names)
        EXPECT_EQ(count, 1) << name.first << " " << name.second.toStdString();
}

TEST_P(CatalogueTest, TheWheelChangesNothingWithoutTheFocus) {
    const ScreenDriver screen(*widget);
    auto& frame = dynamic_cast<Screen&>(*widget);
    const auto operations = frame.store().operationCount();
    for (auto* control : widget->findChildren<QWidget*>()) {
        EXPECT_NE(control->focusPolicy(), Qt::WheelFocus) << control->accessibleName().toStdString();
        if (!control->isVisible() || control->hasFocus())
            continue;
        const auto place = QPointF(control->rect().center());
        QWheelEvent event(place, control->mapToGlobal(place), {}, {0, QWheelEvent::DefaultDeltasPerStep},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(control, &event);
        EXPECT_EQ(frame.store().operationCount(), operations) << control->accessibleName().toStdString();
    }
}

TEST_P(CatalogueTest, FitsTheMinimumWindowSize) {
    const auto width = WindowMetrics::minWidth - WindowMetrics::sidebarMaxWidth;
    const QSize detail(Theme::px(width), Theme::px(WindowMetrics::minHeight - stripHeight));
    const ScreenDriver screen(*widget, detail);
    EXPECT_EQ(widget->size(), detail);
    for (auto* control : widget->findChildren<QAbstractButton*>()) {
        if (!control->isVisible())
            continue;
        const QRect place(control->mapTo(widget.get(), QPoint()), control->size());
        EXPECT_GE(place.left(), 0) << control->accessibleName().toStdString(); // vertically it may scroll
        EXPECT_LE(place.right(), widget->width()) << control->accessibleName().toStdString();
        EXPECT_GE(control->width(), control->sizeHint().width()) << control->accessibleName().toStdString();
    }
}

TEST_P(CatalogueTest, LooksDifferentInLightAndDark) {
    const ScreenDriver screen(*widget);
    std::map<Theme::Scheme, QImage> pictures;
    for (const auto scheme : {Theme::Scheme::light, Theme::Scheme::dark}) {
        Theme::setScheme(scheme);
        widget->setPalette(Theme::palette());
        settle();
        pictures[scheme] = widget->grab().toImage();
    }
    EXPECT_NE(pictures[Theme::Scheme::light], pictures[Theme::Scheme::dark]);
}

TEST_P(CatalogueTest, SurvivesAThousandRandomActions) {
    const ScreenDriver screen(*widget);
    std::mt19937 random(42 + static_cast<unsigned>(GetParam()));
    const auto below = [&](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
    };
    const std::string pastes[] = {
        "",     "{\"a\":[1,2,{}]}",  "SGVsbG8=", "\r\n\xf0\x9f\x91\xa9", std::string(3000, '['),
        "\xff", std::string(1, '\0')};
    for (int action = 0; action < 1000; ++action) {
        std::vector<QWidget*> controls;
        for (auto* control : widget->findChildren<QWidget*>()) {
            if (control->isVisible() && control->isEnabled() && control->focusPolicy() != Qt::NoFocus)
                controls.push_back(control);
        }
        ASSERT_FALSE(controls.empty());
        auto* control = controls[below(controls.size())];
        fakes.clipboard.content = pastes[below(std::size(pastes))];
        fakes.timers.advance(std::chrono::milliseconds(below(700)));
        if (auto* button = qobject_cast<QAbstractButton*>(control))
            button->click();
        else
            QTest::keyClick(control, static_cast<char>(' ' + below(95)),
                            below(4) == 0 ? Qt::ControlModifier : Qt::NoModifier);
    }
    settle();
    EXPECT_TRUE(widget->isVisible());
}

std::string testName(const testing::TestParamInfo<Tool>& tool) {
    std::string name(rawValue(tool.param));
    std::erase_if(name, [](char character) { return character == ' '; });
    return name;
}

INSTANTIATE_TEST_SUITE_P(AllTools, CatalogueTest, testing::ValuesIn(allCases<Tool>), testName);

} // namespace
} // namespace korvane
