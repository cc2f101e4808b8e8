#include "Views/Background.h"

#include "support/FakeServices.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

struct Doubler {
    int input = 0;
    int output = 0;
    std::optional<BackgroundTask> calculation{};

    void start(const Context<Doubler>& context) {
        runInBackground(
            context, *this, &Doubler::calculation,
            [value = input](const std::stop_token& stop) { return stop.stop_requested() ? -1 : 2 * value; },
            [](Doubler& state, int result) { state.output = result; });
    }

    bool operator==(const Doubler&) const = default;
};

class BackgroundTest : public testing::Test {
protected:
    FakeServices fakes{};
    std::optional<Doubler> state{Doubler{.input = 21}};
    Context<Doubler> context{fakes.services, [this](const std::function<void(Doubler&)>& change) {
                                 if (state)
                                     change(*state);
                             }};
};

TEST_F(BackgroundTest, TheResultArrivesWhenTheWorkHasRun) {
    state->start(context);
    EXPECT_TRUE(state->calculation);
    EXPECT_EQ(state->output, 0);
    fakes.background.runAll();
    EXPECT_FALSE(state->calculation);
    EXPECT_EQ(state->output, 42);
}

TEST_F(BackgroundTest, ACancelledResultIsDropped) {
    state->start(context);
    state->calculation.reset();
    fakes.background.runAll();
    EXPECT_EQ(state->output, 0);
}

TEST_F(BackgroundTest, OnlyTheLastOfSeveralTasksSetsTheResult) {
    state->start(context);
    state->input = 4;
    state->start(context);
    EXPECT_EQ(fakes.background.pendingCount(), 2);
    fakes.background.runAll();
    EXPECT_FALSE(state->calculation);
    EXPECT_EQ(state->output, 8);
}

TEST_F(BackgroundTest, ReleasingTheLastCopyOfATaskRequestsAStop) {
    state->start(context);
    const auto stop = state->calculation->stopToken();
    auto copy = state->calculation;
    state->calculation.reset();
    EXPECT_FALSE(stop.stop_requested());
    copy.reset();
    EXPECT_TRUE(stop.stop_requested());
}

TEST_F(BackgroundTest, TheStateMayBeDestroyedBeforeTheResult) {
    state->start(context);
    const auto stop = state->calculation->stopToken();
    state.reset();
    EXPECT_TRUE(stop.stop_requested());
    fakes.background.runAll();
}

} // namespace
} // namespace korvane
