/// A fixture with the whole window, for tests of the keyboard.
#pragma once

#include "Desktop/Binding/Strings.h"
#include "Desktop/Window/MainWindow.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QtTest/QTest>

#include <string>

namespace korvane {

struct WindowTest : testing::Test {
    FakeServices fakes{};
    MainWindow window{fakes.services};
    ScreenDriver screen{window, {1100, 900}};

    WindowTest() {
        window.activateWindow();
        settle();
    }

    void open(Tool tool) {
        window.store().perform(&ContentView::select, tool);
        settle();
    }

    /// Presses a key in the control that has the focus, or in the menu that is open.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        auto* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup ? popup : window.focusWidget(), key, modifiers);
        settle();
    }

    /// The name of the control that has the focus.
    std::string focus() { return utf8String(window.focusWidget()->accessibleName()); }
};

} // namespace korvane
