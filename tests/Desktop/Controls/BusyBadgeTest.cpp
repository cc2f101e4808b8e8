#include "Desktop/Controls/BusyBadge.h"

#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QtTest/QTest>

#include <memory>
#include <string>

namespace korvane {
namespace {

/// A tool whose work is described by the badge.
struct BusyBadgeTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<QWidget> widget{base64Screen(fakes.services)};
    ScreenDriver screen{*widget};

    BusyBadgeTest() {
        screen.type("Plain Text", "Hello");
        screen.press("Encode");
        fakes.clipboard.content = std::string(3'000'000, 'x');
        screen.press("Paste");
        fakes.background.runAll();
        screen.press("Encode");
    }

    void wait() {
        fakes.timers.advance(AwaitedWork::busyDelay);
        settle();
    }

    bool isOutputBusy() const {
        return QAccessible::queryAccessibleInterface(&screen.editor("Base64 Output"))->state().busy;
    }
};

TEST_F(BusyBadgeTest, AppearsWhenWorkTakesLongAndGoesWithTheResult) {
    EXPECT_FALSE(screen.shows("Encoding 3 MB…"));
    EXPECT_FALSE(screen.hasButton("Cancel"));
    wait();
    EXPECT_TRUE(screen.shows("Encoding 3 MB…"));
    EXPECT_TRUE(screen.hasButton("Cancel"));
    EXPECT_EQ(screen.announcement(), "Encoding 3 MB");
    fakes.background.runAll();
    settle();
    EXPECT_FALSE(screen.shows("Encoding 3 MB…"));
    EXPECT_FALSE(screen.hasButton("Cancel"));
    EXPECT_EQ(screen.announcement(), "Done");
    EXPECT_EQ(screen.text("Base64 Output").size(), 4'000'000U);
}

TEST_F(BusyBadgeTest, TheOutputIsStaleMeanwhile) {
    auto& output = screen.editor("Base64 Output");
    const auto before = output.grab().toImage();
    EXPECT_FALSE(isOutputBusy());
    EXPECT_TRUE(screen.button("Copy Base64 Output").isEnabled());
    wait();
    EXPECT_EQ(screen.text("Base64 Output"), "SGVsbG8=");
    EXPECT_NE(output.grab().toImage(), before) << "it is faint";
    EXPECT_TRUE(isOutputBusy());
    EXPECT_FALSE(screen.button("Copy Base64 Output").isEnabled());
    screen.press("Cancel");
    EXPECT_EQ(output.grab().toImage(), before);
    EXPECT_FALSE(isOutputBusy());
    EXPECT_TRUE(screen.button("Copy Base64 Output").isEnabled());
}

TEST_F(BusyBadgeTest, CancelAndEscapeKeepTheEarlierOutput) {
    for (const bool byKey : {false, true}) {
        screen.press("Encode");
        wait();
        ASSERT_TRUE(screen.hasButton("Cancel"));
        if (byKey) {
            screen.editor("Plain Text").setFocus();
            QTest::keyClick(&screen.editor("Plain Text"), Qt::Key_Escape);
            settle();
        } else {
            screen.press("Cancel");
        }
        EXPECT_FALSE(screen.hasButton("Cancel"));
        EXPECT_EQ(screen.announcement(), "Cancelled");
        fakes.background.runAll();
        settle();
        EXPECT_EQ(screen.text("Base64 Output"), "SGVsbG8=");
    }
}

TEST_F(BusyBadgeTest, AnEditCancelsBecauseTheResultWouldBeOfAnotherText) {
    wait();
    screen.type("Plain Text", "y");
    EXPECT_FALSE(screen.hasButton("Cancel"));
    EXPECT_EQ(screen.announcement(), "Cancelled");
    fakes.background.runAll();
    settle();
    EXPECT_EQ(screen.text("Base64 Output"), "SGVsbG8=");
}

} // namespace
} // namespace korvane
