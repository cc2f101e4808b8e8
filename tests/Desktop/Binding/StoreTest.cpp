#include "Desktop/Binding/Screen.h"
#include "Desktop/Controls/Buttons.h"
#include "Desktop/Controls/Editors.h"
#include "Desktop/Controls/Labels.h"
#include "Desktop/Controls/Output.h"
#include "Desktop/Controls/Section.h"
#include "Desktop/Layout/ScreenLayout.h"
#include "Desktop/Layout/Stack.h"
#include "Desktop/Look/Theme.h"
#include "Desktop/Text/TextArea.h"
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
    Rope text{};
    bool isOn = false;

    void increase() { ++value; }

    void increaseLater(const Context<Counter>& context) {
        context.services.timers.after(1s, [update = context.update] { update(&Counter::increase); });
    }

    void setText(Rope newText) {
        ++value;
        text = std::move(newText);
    }

    void setOn(bool on) { isOn = on; }

    std::string title() const { return std::to_string(value); }

    bool operator==(const Counter&) const = default;
};

QWidget* counterBody(Store& store) {
    return row({
        actionButton(store, &Counter::title, "", PaletteColor::red, &Counter::increase, &Counter::isOn),
        actionButton(store, "Later", "clock", PaletteColor::red, &Counter::increaseLater),
        pushToggle(store, "Toggle", "clock", PaletteColor::red, &Counter::isOn, &Counter::setOn),
        section(store, "Text", "", codeEditor(store, &Counter::text, &Counter::setText, "Type")),
        section(store, "Output", "", output(store, &Counter::text, "")),
        copyButton(store, &Counter::title, {.label = "Copy number"}),
        caption(store, &Counter::title),
    });
}

struct StoreTest : testing::Test {
    FakeServices fakes{};
    std::unique_ptr<Screen> frame{std::make_unique<Screen>(fakes.services, Counter(), counterBody)};
    ScreenDriver screen{*frame};
};

TEST_F(StoreTest, AnOperationChangesTheStateAndRefreshesEveryControl) {
    screen.press("0");
    EXPECT_EQ(frame->store().state<Counter>().value, 1);
    EXPECT_TRUE(screen.hasButton("1"));
    EXPECT_TRUE(screen.shows("1"));
}

TEST_F(StoreTest, AnEditorShowsItsLineNumbersByDefault) {
    Store store(fakes.services, Counter());
    const std::unique_ptr<QWidget> both(
        row({section(store, "With", "", codeEditor(store, &Counter::text, &Counter::setText, "")),
             section(store, "Without", "",
                     codeEditor(store, &Counter::text, &Counter::setText, "", {.lineNumbers = false}))}));
    const ScreenDriver driver(*both);
    driver.type("With", "a\nb\n");
    EXPECT_EQ(driver.editor("With").visibleNumbers().size(), 3U);
    EXPECT_TRUE(driver.editor("Without").visibleNumbers().empty());
    EXPECT_EQ(driver.text("Without"), "a\nb\n");
}

TEST_F(StoreTest, ARefreshPerformsNoOperation) {
    screen.type("Text", "ab");
    const auto state = frame->store().state<Counter>();
    const auto operations = frame->store().operationCount();
    frame->store().refresh();
    frame->store().refresh();
    EXPECT_EQ(frame->store().operationCount(), operations);
    EXPECT_EQ(frame->store().state<Counter>(), state);
    EXPECT_EQ(state.value, 2) << "one operation for each key";
}

TEST_F(StoreTest, AnOperationDuringARefreshIsIgnored) {
    frame->store().onRefresh([this] { frame->store().perform(&Counter::increase); });
    frame->store().refresh();
    EXPECT_EQ(frame->store().state<Counter>().value, 0);
}

TEST_F(StoreTest, ADisabledButtonDoesNothing) {
    screen.press("Toggle");
    EXPECT_FALSE(screen.button("0").isEnabled());
    screen.press("0");
    EXPECT_EQ(frame->store().state<Counter>().value, 0);
    screen.press("Toggle");
    screen.press("0");
    EXPECT_EQ(frame->store().state<Counter>().value, 1);
}

TEST_F(StoreTest, DelayedChangesUpdateTheState) {
    screen.press("Later");
    fakes.timers.advance(1s);
    EXPECT_TRUE(screen.hasButton("1"));
}

TEST_F(StoreTest, DelayedChangesAfterTheScreenIsDestroyedAreHarmless) {
    screen.press("Later");
    screen.press("Copy number");
    frame.reset();
    EXPECT_EQ(fakes.timers.pendingCount(), 2U);
    fakes.timers.advance(2s);
    EXPECT_EQ(fakes.timers.pendingCount(), 0U);
}

TEST_F(StoreTest, TheCopyButtonOfAnOutputIsVisibleOnlyWithOutput) {
    EXPECT_FALSE(screen.hasButton("Copy Output"));
    screen.type("Text", "x");
    EXPECT_TRUE(screen.hasButton("Copy Output"));
    screen.press("Copy Output");
    EXPECT_EQ(fakes.clipboard.content, "x");
}

TEST_F(StoreTest, NarrowScreensHideLabelsAndShowToolTips) {
    const std::unique_ptr<QWidget> base64(base64Screen(fakes.services));
    const ScreenDriver driver(*base64, {900, 700});
    const auto wide = driver.button("Paste").width();
    base64->resize(Theme::px(narrowWidth) - 1, 700);
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
