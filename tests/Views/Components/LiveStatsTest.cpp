#include "Views/Components/LiveStats.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

struct Editor {
    LiveStats stats{};
};

struct LiveStatsTest : testing::Test {
    FakeServices fakes{};
    Editor editor{};
    Context<Editor> context{fakes.services, [this](const auto& change) { change(editor); }};

    void show(Rope text) { LiveStats::update(context, editor, &Editor::stats, std::move(text)); }

    std::string characters() const { return editor.stats.text(&TextStats::characters); }
};

const Rope large = std::string(maxImmediateSize + 1, 'x');
const Rope other = std::string(maxImmediateSize + 2, 'y');

TEST_F(LiveStatsTest, AShortTextIsCountedAtOnce) {
    EXPECT_EQ(characters(), "0");
    show("two words");
    EXPECT_EQ(characters(), "9");
    EXPECT_EQ(editor.stats.text(&TextStats::words), "2");
    EXPECT_EQ(LiveStats("a\r\nb").text(&TextTransformer::RunningStats::linesByPairs), "2");
    EXPECT_EQ(fakes.background.pendingCount(), 0U);
}

TEST_F(LiveStatsTest, ALargeTextIsCountedInTheBackground) {
    show(large);
    EXPECT_EQ(characters(), "…");
    EXPECT_EQ(editor.stats.current(), nullptr);
    fakes.background.runAll();
    EXPECT_EQ(characters(), "262145");
    EXPECT_EQ(editor.stats.current()->text(), large);
}

TEST_F(LiveStatsTest, ASmallChangeOfALargeTextIsCountedAtOnce) {
    show(large);
    fakes.background.runAll();
    show(large.replacing(1000, 1000, " "));
    EXPECT_EQ(fakes.background.pendingCount(), 0U);
    EXPECT_EQ(characters(), "262146");
    EXPECT_EQ(editor.stats.text(&TextStats::words), "2");
}

TEST_F(LiveStatsTest, RunningWorkIsFinishedAndThenBroughtUpToDate) {
    show(large);
    show(large + "é");
    show(large + "éé");
    EXPECT_EQ(fakes.background.pendingCount(), 1U) << "typing does not start it anew";
    EXPECT_EQ(characters(), "…");
    fakes.background.runAll();
    EXPECT_EQ(characters(), "262147");
    show(other);
    show(large);
    EXPECT_EQ(fakes.background.pendingCount(), 1U);
    fakes.background.runAll();
    EXPECT_EQ(characters(), "262145");
    EXPECT_EQ(editor.stats.current()->text(), large);
}

TEST_F(LiveStatsTest, AShortTextDoesNotWaitForALargeOne) {
    show(large);
    show("");
    EXPECT_EQ(characters(), "0");
    fakes.background.runAll();
    EXPECT_EQ(characters(), "0");
}

} // namespace
} // namespace korvane
