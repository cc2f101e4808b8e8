#include "Views/Components/AwaitedWork.h"
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

    AwaitedWork awaited{};

    void startAwaited(const Context<Doubler>& context, std::size_t bytes) {
        runAwaited(
            context, *this, &Doubler::awaited, {.verb = "Doubling", .bytes = bytes},
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

TEST_F(BackgroundTest, ShortWorkIsDoneAtOnce) {
    state->startAwaited(context, maxImmediateSize);
    EXPECT_EQ(state->output, 42);
    EXPECT_FALSE(state->awaited.isRunning());
    EXPECT_EQ(fakes.background.pendingCount(), 0);
    EXPECT_EQ(fakes.timers.pendingCount(), 0U);
}

TEST_F(BackgroundTest, LongWorkIsAnnouncedOnceItHasTakenAWhile) {
    state->startAwaited(context, 48'000'000);
    EXPECT_TRUE(state->awaited.isRunning());
    fakes.timers.advance(AwaitedWork::busyDelay - std::chrono::milliseconds(1));
    EXPECT_FALSE(state->awaited.isBusy());
    fakes.timers.advance(std::chrono::milliseconds(1));
    EXPECT_TRUE(state->awaited.isBusy());
    EXPECT_EQ(state->awaited.description, "Doubling 48 MB");
    fakes.background.runAll();
    EXPECT_FALSE(state->awaited.isRunning());
    EXPECT_EQ(state->awaited.outcome, AwaitedWork::Outcome::done);
    EXPECT_EQ(state->output, 42);
}

TEST_F(BackgroundTest, WorkThatEndsEarlyIsNeverAnnounced) {
    state->startAwaited(context, 48'000'000);
    fakes.background.runAll();
    EXPECT_EQ(state->awaited.outcome, AwaitedWork::Outcome::none);
    state->startAwaited(context, 48'000'000);
    fakes.timers.advance(AwaitedWork::busyDelay / 2);
    state->startAwaited(context, 48'000'000);
    fakes.timers.advance(AwaitedWork::busyDelay / 2);
    EXPECT_FALSE(state->awaited.isBusy()) << "the second has not run for so long";
}

TEST_F(BackgroundTest, CancelledWorkLeavesNoResult) {
    state->startAwaited(context, 48'000'000);
    const auto stop = state->awaited.task->stopToken();
    fakes.timers.advance(AwaitedWork::busyDelay);
    state->awaited.cancel();
    EXPECT_TRUE(stop.stop_requested());
    EXPECT_FALSE(state->awaited.isBusy());
    EXPECT_EQ(state->awaited.outcome, AwaitedWork::Outcome::cancelled);
    fakes.background.runAll();
    EXPECT_EQ(state->output, 0);
    state->startAwaited(context, 1);
    EXPECT_EQ(state->awaited.outcome, AwaitedWork::Outcome::none);
    EXPECT_EQ(state->output, 42);
}

TEST_F(BackgroundTest, ALargeValueIsDestroyedInTheBackground) {
    struct Witness {
        std::shared_ptr<int> alive = std::make_shared<int>();
    };

    Witness witness;
    const std::weak_ptr<int> alive = witness.alive;
    auto shared = shareLarge(fakes.background, std::move(witness));
    auto copy = shared;
    shared.reset();
    EXPECT_EQ(fakes.background.pendingCount(), 0);
    copy.reset();
    EXPECT_FALSE(alive.expired()) << "not yet";
    EXPECT_EQ(fakes.background.pendingCount(), 1);
    fakes.background.runAll();
    EXPECT_TRUE(alive.expired());
}

} // namespace
} // namespace korvane
