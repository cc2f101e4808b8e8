#include "Desktop/Kit/Screen.h"

#include "Desktop/Kit/TextArea.h"
#include "Desktop/Tools/Screens.h"
#include "Views/Tools/Base64View.h"
#include "Views/Tools/JSONFormatterView.h"
#include "support/FakeServices.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFontMetricsF>

#include <memory>

namespace korvane {
namespace {

using namespace std::chrono_literals;

struct Counter {
    int value = 0;
    std::string text{};
    bool isOn = false;

    void increase() { ++value; }

    void increaseLater(const Context<Counter>& context) {
        context.services.timers.after(1s, [update = context.update] { update(&Counter::increase); });
    }

    void setText(std::string newText) {
        ++value;
        text = std::move(newText);
    }

    void setOn(bool on) { isOn = on; }

    std::string title() const { return std::to_string(value); }

    bool operator==(const Counter&) const = default;
};

QWidget* viewBody(View<Counter>& view) {
    return row({
        view.actionButton(&Counter::title, "", PaletteColor::red, &Counter::increase, &Counter::isOn),
        view.actionButton("Later", "clock", PaletteColor::red, &Counter::increaseLater),
        view.pushToggle("Toggle", "clock", PaletteColor::red, &Counter::isOn, &Counter::setOn),
        view.section("Text", "", view.codeEditor(&Counter::text, &Counter::setText, "Type")),
        view.section("Output", "", view.output(&Counter::text, "")),
        view.copyButton(&Counter::title, {.label = "Copy number"}),
        view.statCard("Count", &Counter::title, "number", PaletteColor::blue),
    });
}

struct ViewTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<ScreenFrame<Counter>> frame{
        std::make_unique<ScreenFrame<Counter>>(fakes.services, viewBody)};
    ScreenDriver screen{*frame};
};

TEST_F(ViewTest, AnOperationChangesTheStateAndEveryControlReadsItAgain) {
    screen.press("0");
    EXPECT_EQ(frame->view().state().value, 1);
    EXPECT_TRUE(screen.hasButton("1"));
    EXPECT_TRUE(screen.shows("1")) << "on the card";
    EXPECT_TRUE(screen.shows("Count"));
}

TEST_F(ViewTest, AnEditorShowsItsLineNumbersUnlessToldOtherwise) {
    View<Counter> view(fakes.services);
    const std::unique_ptr<QWidget> both(
        row({view.section("With", "", view.codeEditor(&Counter::text, &Counter::setText, "")),
             view.section("Without", "",
                          view.codeEditor(&Counter::text, &Counter::setText, "", {.lineNumbers = false}))}));
    const ScreenDriver driver(*both);
    driver.type("With", "a\nb\n");
    EXPECT_EQ(driver.editor("With").visibleNumbers().size(), 3U);
    EXPECT_TRUE(driver.editor("Without").visibleNumbers().empty());
    EXPECT_EQ(driver.text("Without"), "a\nb\n");
}

TEST_F(ViewTest, ARefreshPerformsNoOperation) {
    screen.type("Text", "ab");
    const auto state = frame->view().state();
    const auto operations = frame->view().operationCount();
    frame->view().refresh();
    frame->view().refresh();
    EXPECT_EQ(frame->view().operationCount(), operations);
    EXPECT_EQ(frame->view().state(), state);
    EXPECT_EQ(state.value, 2) << "one operation for each key";
}

TEST_F(ViewTest, AnOperationOnlyRequestedDuringARefreshIsRefused) {
    frame->view().onRefresh([this] { frame->view().perform(&Counter::increase); });
    frame->view().refresh();
    EXPECT_EQ(frame->view().state().value, 0);
}

TEST_F(ViewTest, ADisabledButtonDoesNothing) {
    screen.press("Toggle");
    EXPECT_FALSE(screen.button("0").isEnabled());
    screen.press("0");
    EXPECT_EQ(frame->view().state().value, 0);
    screen.press("Toggle");
    screen.press("0");
    EXPECT_EQ(frame->view().state().value, 1);
}

TEST_F(ViewTest, LateChangesReachTheStateWhileItLives) {
    screen.press("Later");
    fakes.timers.advance(1s);
    EXPECT_TRUE(screen.hasButton("1"));
}

TEST_F(ViewTest, LateChangesAndFeedbackOutliveTheScreenHarmlessly) {
    screen.press("Later");
    screen.press("Copy number");
    frame.reset();
    EXPECT_EQ(fakes.timers.pendingCount(), 2U);
    fakes.timers.advance(2s);
    EXPECT_EQ(fakes.timers.pendingCount(), 0U);
}

TEST_F(ViewTest, TheCopyButtonOverAnOutputIsThereOnlyWhileThereIsSomethingToCopy) {
    EXPECT_FALSE(screen.hasButton("Copy Output"));
    screen.type("Text", "x");
    EXPECT_TRUE(screen.hasButton("Copy Output"));
    screen.press("Copy Output");
    EXPECT_EQ(fakes.clipboard.content, "x");
}

TEST_F(ViewTest, NarrowScreensDropLabelsButKeepNames) {
    const std::unique_ptr<QWidget> base64(base64Screen(fakes.services));
    const ScreenDriver driver(*base64, {900, 700});
    const auto wide = driver.button("Paste").width();
    base64->resize(Theme::px(Theme::Size::compactWidth) - 1, 700);
    settle();
    EXPECT_EQ(driver.button("Paste").width(), Theme::px(Theme::Size::quietCompact));
    EXPECT_EQ(driver.button("Paste").toolTip(), "Paste");
    base64->resize(900, 700);
    settle();
    EXPECT_EQ(driver.button("Paste").width(), wide);
    EXPECT_EQ(driver.button("Paste").toolTip(), "");
}

} // namespace
} // namespace korvane
