#include "Desktop/Window/MainWindow.h"

#include "Desktop/Binding/Strings.h"
#include "Desktop/Lists/RowList.h"
#include "Desktop/Look/FocusRing.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Window/WindowBounds.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QToolTip>
#include <QtTest/QTest>

namespace korvane {
namespace {

struct MainWindowTest : testing::Test {
    FakeServices fakes{};
    MainWindow window{fakes.services};
    ScreenDriver screen{window, {Theme::px(1100), Theme::px(750)}};

    MainWindowTest() {
        window.activateWindow();
        settle();
    }

    std::optional<Tool> selectedTool() { return window.store().state<ContentView>().selectedTool; }

    QLineEdit& search() { return *window.findChild<QLineEdit*>(); }

    QAction& menuItem(const QString& menuTitle, const QString& title) {
        for (const auto* menu : window.findChildren<QMenu*>()) {
            if (menu->title() != menuTitle)
                continue;
            for (auto* action : menu->actions()) {
                if (action->text() == title)
                    return *action;
            }
        }
        throw std::runtime_error("no menu item " + title.toStdString());
    }

    std::vector<std::string> tools() {
        const auto& list = screen.list("Tools");
        std::vector<std::string> names;
        for (int row = 0; row < list.rowCount(); ++row)
            names.push_back(list.accessibleRow(row).name.toStdString());
        return names;
    }
};

TEST_F(MainWindowTest, OpensOnTheJSONFormatterWithTheInputFocused) {
    EXPECT_TRUE(screen.shows("JSON Formatter"));
    EXPECT_TRUE(screen.hasButton("Prettify"));
    EXPECT_EQ(screen.list("Tools").currentRow(), 0);
    EXPECT_EQ(window.focusWidget(), &screen.editor("Input"));
}

TEST_F(MainWindowTest, ItsSizesFitTheScreen) {
    struct Row {
        QSize available, initial, minimum;
    };

    const QSize initial(Theme::px(1100), Theme::px(750));
    const QSize minimum(Theme::px(900), Theme::px(600));
    const QSize between(minimum.width() + 10, minimum.height() + 10);
    const QSize low(initial.width(), 500);
    for (const auto& row :
         {Row{{3840, 2160}, initial, minimum}, Row{initial, initial, minimum}, Row{between, between, minimum},
          Row{{640, 480}, {640, 480}, {640, 480}}, Row{low, low, {minimum.width(), 500}}})
        EXPECT_EQ(windowSizes(row.available), (WindowSizes{row.initial, row.minimum}))
            << row.available.width() << " x " << row.available.height();
    const MainWindow fresh(fakes.services);
    const auto sizes = windowSizes(fresh.screen()->availableSize());
    EXPECT_EQ(fresh.size(), sizes.initial);
    EXPECT_EQ(fresh.minimumSize(), sizes.minimum);
}

TEST_F(MainWindowTest, ItsContentFitsIntoTheMinimumSize) {
    EXPECT_LE(window.minimumSizeHint().width(), Theme::px(900));
    EXPECT_LE(window.minimumSizeHint().height(), Theme::px(600));
}

TEST_F(MainWindowTest, ScrollsHorizontallyWhereTheScreenIsTooSmall) {
    window.store().perform([](ContentView& state) { state.selectedTool = Tool::imageConverter; });
    settle();
    const auto* body = window.findChild<QScrollArea*>();
    EXPECT_EQ(body->horizontalScrollBar()->maximum(), 0);
    window.setMinimumSize(0, 0);
    window.resize(Theme::px(700), Theme::px(500));
    settle();
    EXPECT_EQ(window.width(), Theme::px(700));
    ASSERT_GT(body->horizontalScrollBar()->maximum(), 0);
    auto& apply = screen.button("Reset");
    EXPECT_NE(apply.visibleRegion(), apply.rect());
    screen.picker("Flip").setFocus();
    EXPECT_EQ(screen.picker("Flip").visibleRegion(), screen.picker("Flip").rect());
}

TEST_F(MainWindowTest, KeepsTheSidebarWidthWithinItsLimits) {
    auto* splitter = window.findChild<QSplitter*>();
    EXPECT_EQ(splitter->sizes().front(), Theme::px(280));
    const auto drag = [&](int distance) {
        auto* handle = splitter->handle(1);
        const auto start = handle->rect().center();
        QTest::mousePress(handle, Qt::LeftButton, {}, start);
        QTest::mouseMove(handle, start + QPoint(distance, 0));
        QTest::mouseRelease(handle, Qt::LeftButton, {}, start + QPoint(distance, 0));
        settle();
    };
    drag(-200);
    EXPECT_EQ(splitter->sizes().front(), Theme::px(260));
    drag(400);
    EXPECT_EQ(splitter->sizes().front(), Theme::px(320));
}

TEST_F(MainWindowTest, ControlAndADigitSelectAToolFromAnyControl) {
    for (const auto tool : allCases<Tool>) {
        const auto digit = keyboardShortcut(tool);
        if (!digit)
            continue;
        auto* focus = window.focusWidget() ? window.focusWidget() : static_cast<QWidget*>(&window);
        QTest::keyClick(focus, *digit, Qt::ControlModifier);
        EXPECT_EQ(selectedTool(), tool);
        settle();
        EXPECT_TRUE(screen.shows(rawValue(tool)));
    }
    QTest::keyClick(&window, '1', Qt::ControlModifier);
    QTest::keyClick(&screen.editor("Input"), '2', Qt::ControlModifier);
    EXPECT_EQ(selectedTool(), Tool::base64);
    EXPECT_EQ(window.focusWidget(), &screen.editor("Plain Text"));
}

TEST_F(MainWindowTest, TheFocusRingFollowsTheFocusFromScreenToScreen) {
    const auto ringOn = [&](const QWidget& frame) {
        for (auto* child : window.findChildren<QWidget*>()) {
            const auto* ring = dynamic_cast<FocusRing*>(child);
            if (ring && ring->isVisible())
                return QRect(ring->mapTo(&window, QPoint()), ring->size())
                    .contains(QRect(frame.mapTo(&window, QPoint()), frame.size()));
        }
        return false;
    };
    EXPECT_TRUE(ringOn(screen.editor("Input")));
    QTest::keyClick(&window, '2', Qt::ControlModifier);
    settle();
    EXPECT_TRUE(ringOn(screen.editor("Plain Text")));
    screen.button("Clear").setFocus();
    EXPECT_TRUE(ringOn(screen.button("Clear")));
    EXPECT_FALSE(ringOn(screen.editor("Plain Text")));
    QTest::keyClick(&window, '3', Qt::ControlModifier);
    QTest::keyClick(&window, '1', Qt::ControlModifier);
    settle();
    EXPECT_TRUE(ringOn(screen.editor("Input")));
}

TEST_F(MainWindowTest, AScreenWithoutAnEditorFocusesItsAction) {
    QTest::keyClick(&window, '6', Qt::ControlModifier);
    ASSERT_EQ(selectedTool(), Tool::uuidGenerator);
    EXPECT_EQ(window.focusWidget(), &screen.button("Generate New"));
    QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), &screen.button("Hyphens"));
}

TEST_F(MainWindowTest, AToolSelectedAgainStartsFromItsDefaults) {
    screen.type("Input", "[1]");
    screen.press("Prettify");
    QTest::keyClick(&window, '2', Qt::ControlModifier);
    QTest::keyClick(&window, '1', Qt::ControlModifier);
    EXPECT_EQ(screen.text("Input"), "");
    EXPECT_EQ(screen.text("Output"), "");
    screen.type("Input", "[1]");
    QTest::keyClick(&window, '1', Qt::ControlModifier);
    EXPECT_EQ(screen.text("Input"), "[1]") << "the tool was selected already";
}

TEST_F(MainWindowTest, TheMenuPostsANotificationAndSelectsNothing) {
    menuItem("&File", "Base64").trigger();
    ASSERT_EQ(fakes.posted.size(), 1U);
    EXPECT_EQ(fakes.posted.front(), (std::pair<std::string, Tool>("selectTool", Tool::base64)));
    EXPECT_EQ(selectedTool(), Tool::jsonFormatter);
}

TEST_F(MainWindowTest, TheMenuListsAllToolsWithTheirShortcuts) {
    const auto keysOf = [&](Tool tool) {
        return menuItem("&File", QString::fromUtf8(rawValue(tool).data()))
            .shortcut()
            .toString()
            .toStdString();
    };
    for (const auto tool : allCases<Tool>)
        EXPECT_EQ(keysOf(tool), "") << "a closed menu has no shortcuts";
    QTest::keyClick(&window, Qt::Key_F10);
    for (const auto tool : allCases<Tool>) {
        const auto digit = keyboardShortcut(tool);
        EXPECT_EQ(keysOf(tool), digit ? std::string("Ctrl+") + *digit : "");
    }
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_EQ(keysOf(Tool::jsonFormatter), "");
    EXPECT_FALSE(menuItem("&File", "Tools").isEnabled());
    const auto file = window.findChild<QMenuBar*>()->actions().front()->menu()->actions();
    EXPECT_TRUE(file[0]->isSeparator());
    EXPECT_EQ(file[1]->text(), "Tools");
    EXPECT_FALSE(menuItem("&Help", "Version 1.0.0").isEnabled());
    EXPECT_FALSE(menuItem("&Help", "100% Local Processing").isEnabled());
    menuItem("&Help", "Korvane Help").trigger();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(fakes.posted.empty());
}

TEST_F(MainWindowTest, TheEditMenuActsOnTheEditorWithTheFocus) {
    screen.type("Input", "abc");
    menuItem("&Edit", "&Undo").trigger();
    EXPECT_EQ(screen.text("Input"), "");
    menuItem("&Edit", "&Redo").trigger();
    EXPECT_EQ(screen.text("Input"), "abc");
    menuItem("&Edit", "Select &All").trigger();
    menuItem("&Edit", "Cu&t").trigger();
    EXPECT_EQ(screen.text("Input"), "");
    menuItem("&Edit", "&Paste").trigger();
    menuItem("&Edit", "&Paste").trigger();
    EXPECT_EQ(screen.text("Input"), "abcabc");
}

TEST_F(MainWindowTest, TheEditMenuDoesNothingInTheToolList) {
    screen.type("Input", "abc");
    screen.list("Tools").setFocus();
    menuItem("&Edit", "Select &All").trigger();
    menuItem("&Edit", "&Undo").trigger();
    EXPECT_EQ(screen.text("Input"), "abc");
}

TEST_F(MainWindowTest, TheSearchFiltersTheToolsAndKeepsTheSelection) {
    EXPECT_EQ(tools().size(), allCases<Tool>.size());
    EXPECT_FALSE(screen.hasButton("Clear search"));
    search().setFocus();
    QTest::keyClicks(&search(), "hash");
    EXPECT_EQ(tools(), std::vector<std::string>{"Hash Generator"});
    EXPECT_EQ(selectedTool(), Tool::jsonFormatter);
    EXPECT_TRUE(screen.hasButton("Prettify"));
    screen.press("Clear search");
    EXPECT_EQ(tools().size(), allCases<Tool>.size());
    EXPECT_FALSE(screen.hasButton("Clear search"));
    QTest::keyClicks(&search(), "no such tool");
    EXPECT_TRUE(tools().empty());
    QTest::keyClick(&search(), Qt::Key_Down);
    EXPECT_EQ(window.focusWidget(), &search()) << "the list is empty";
    QTest::keyClick(&search(), Qt::Key_Escape);
    EXPECT_EQ(tools().size(), allCases<Tool>.size());
}

TEST_F(MainWindowTest, TheToolListCanBeUsedByKeyboard) {
    search().setFocus();
    QTest::keyClicks(&search(), "generate");
    QTest::keyClick(&search(), Qt::Key_Down);
    auto& list = screen.list("Tools");
    EXPECT_EQ(window.focusWidget(), &list);
    EXPECT_EQ(list.currentRow(), 0);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(selectedTool(), Tool::jsonFormatter) << "arrows only move";
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(selectedTool(), Tool::uuidGenerator);
    EXPECT_EQ(window.focusWidget(), &list);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(selectedTool(), Tool::uuidGenerator);
    EXPECT_EQ(window.focusWidget(), &screen.button("Generate New")) << "Return focuses the screen";
}

TEST_F(MainWindowTest, AToolTipShowsDescriptionAndShortcut) {
    const auto toolTip = [&](int row) {
        auto& list = screen.list("Tools");
        list.showRow(row);
        const auto place = list.rowPlace(row).center();
        QHelpEvent event(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
        QApplication::sendEvent(list.viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_EQ(toolTip(0), "Format, minify, and validate JSON (Ctrl+1)");
    EXPECT_EQ(toolTip(10), "Transform text case and lines");
}

TEST_F(MainWindowTest, TheFooterTellsWhetherTheNetworkIsClosed) {
    struct Row {
        NetworkClosure closedNetwork;
        QString text;
    };

    const Row rows[] = {
        {{}, "Korvane opens no network connection. The system enforces this."},
        {std::unexpected("the reason"),
         "Korvane opens no network connection. The system does not enforce this: the reason."},
    };
    for (const auto& [closedNetwork, text] : rows) {
        const MainWindow told(fakes.services, {.sidebar = {.closedNetwork = closedNetwork}});
        const auto labels = told.findChildren<QLabel*>();
        const auto footer = std::ranges::find(labels, qString(ToolSidebarView::footer), &QLabel::text);
        ASSERT_NE(footer, labels.end());
        EXPECT_EQ((*footer)->parentWidget()->toolTip(), text);
        EXPECT_EQ((*footer)->accessibleDescription(), text);
    }
}

TEST_F(MainWindowTest, AClickSelectsAToolAndFocusesItsInput) {
    auto& list = screen.list("Tools");
    const auto row = list.rowPlace(1);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(selectedTool(), Tool::base64);
    EXPECT_EQ(window.focusWidget(), &screen.editor("Plain Text"));
}

TEST_F(MainWindowTest, WithoutASelectionItShowsTheWelcomeScreen) {
    window.store().perform([](ContentView& state) { state.selectedTool.reset(); });
    settle();
    EXPECT_TRUE(screen.shows("Select a tool from the sidebar to get started"));
    EXPECT_TRUE(screen.shows("URL Encoder"));
    EXPECT_FALSE(screen.hasButton("Prettify"));
    QTest::keyClick(&window, '1', Qt::ControlModifier);
    EXPECT_TRUE(screen.hasButton("Prettify"));
}

TEST_F(MainWindowTest, TheWindowButtonsAndADoubleClickOnTheStripWork) {
    screen.press("Maximize");
    EXPECT_TRUE(window.isMaximized());
    screen.press("Maximize");
    EXPECT_FALSE(window.isMaximized());
    auto* strip = screen.button("Close").parentWidget();
    QTest::mouseDClick(strip, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_TRUE(window.isMaximized());
    screen.press("Close");
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowTest, ARefreshPerformsNoOperation) {
    const auto before = window.store().operationCount();
    window.store().refresh();
    window.store().refresh();
    EXPECT_EQ(window.store().operationCount(), before);
}

TEST_F(MainWindowTest, ChangesItsColorSchemeWhileRunning) {
    window.showScheme(Theme::Scheme::light);
    const auto light = window.grab().toImage();
    window.showScheme(Theme::Scheme::dark);
    const auto dark = window.grab().toImage();
    EXPECT_GT(light.pixelColor(700, 20).lightness(), 200);
    EXPECT_LT(dark.pixelColor(700, 20).lightness(), 60);
    window.showScheme(Theme::Scheme::light);
    EXPECT_EQ(window.grab().toImage(), light);
}

} // namespace
} // namespace korvane
