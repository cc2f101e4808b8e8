#include "Views/Components/CopyButton.h"

#include "Views/Components/PasteButton.h"
#include "support/FakeServices.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

using namespace std::chrono_literals;

struct CopyButtonTest : testing::Test {
    FakeServices fakes{};
    CopyButton button{.text = "text", .label = "Copy"};
    Context<CopyButton> context{fakes.services, [this](const auto& change) { change(button); }};

    void press() { button.copyToClipboard(context); }
};

TEST_F(CopyButtonTest, CopiesAndShowsFeedbackForOneAndAHalfSeconds) {
    EXPECT_EQ(button.icon(), "doc.on.doc");
    EXPECT_EQ(button.title(), "Copy");
    EXPECT_EQ(button.color(), std::nullopt);
    press();
    EXPECT_EQ(fakes.clipboard.content, "text");
    EXPECT_EQ(button.icon(), "checkmark");
    EXPECT_EQ(button.title(), "Copied!");
    EXPECT_EQ(button.color(), PaletteColor::green);
    fakes.timers.advance(1499ms);
    EXPECT_TRUE(button.copied);
    fakes.timers.advance(1ms);
    EXPECT_FALSE(button.copied);
    EXPECT_EQ(button.title(), "Copy");
}

TEST_F(CopyButtonTest, CopiesASecretAsSecret) {
    press();
    EXPECT_FALSE(fakes.clipboard.isSecret);
    button.isSecret = true;
    press();
    EXPECT_TRUE(fakes.clipboard.isSecret);
}

TEST_F(CopyButtonTest, RevertsOneAndAHalfSecondsAfterTheFirstOfSeveralPresses) {
    press();
    fakes.timers.advance(1000ms);
    button.text = "other";
    press();
    EXPECT_EQ(fakes.clipboard.content, "other");
    fakes.timers.advance(500ms);
    EXPECT_FALSE(button.copied);
    press(); // a third press, before the second one's reset
    EXPECT_TRUE(button.copied);
    fakes.timers.advance(1000ms);
    EXPECT_FALSE(button.copied); // the second press's reset ends this feedback early
    fakes.timers.advance(500ms);
    EXPECT_FALSE(button.copied);
    EXPECT_EQ(fakes.timers.pendingCount(), 0U);
}

TEST_F(CopyButtonTest, CopiesAnEmptyTextToo) {
    fakes.clipboard.content = "before";
    button.text.clear();
    press();
    EXPECT_EQ(fakes.clipboard.content, "");
    EXPECT_TRUE(button.copied);
}

TEST(PasteButton, ReplacesTheTextWithTheClipboard) {
    FakeClipboard clipboard;
    clipboard.content = "pasted";
    Rope text = "before";
    PasteButton::paste(clipboard, [&](Rope pasted) { text = std::move(pasted); });
    EXPECT_EQ(text, "pasted");
}

TEST(PasteButton, ChangesNothingWithoutTextOnTheClipboard) {
    const FakeClipboard clipboard;
    int calls = 0;
    PasteButton::paste(clipboard, [&](Rope) { ++calls; });
    EXPECT_EQ(calls, 0);
}

TEST(ClearButton, EmptiesTheText) {
    Rope text = "before";
    ClearButton::clear([&](Rope cleared) { text = std::move(cleared); });
    EXPECT_EQ(text, "");
}

} // namespace
} // namespace korvane
