/// Work on large texts that the user waits for: how a state starts it, what the screen says meanwhile, and
/// how it is cancelled.
#pragma once

#include "Utilities/Text/ByteCount.h"
#include "Views/Background.h"
#include "Views/Services.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>

namespace korvane {

/// Work that the user has asked for and may wait for; a state holds one for each kind of result. It is one
/// piece of work at a time: a newer one replaces it.
struct AwaitedWork {
    /// How long work runs before the screen says so, so that short work does not flicker.
    static constexpr std::chrono::milliseconds busyDelay{250};

    /// How the last work ended that the screen has said to be running.
    enum class Outcome { none, done, cancelled };

    std::optional<BackgroundTask> task{};
    std::string description{}; ///< of `task`, such as "Formatting 48 MB"
    bool takesLong = false;    ///< of `task`
    Outcome outcome = Outcome::none;

    bool isRunning() const { return task.has_value(); }

    /// Whether work has been running for `busyDelay`.
    bool isBusy() const { return isRunning() && takesLong; }

    /// Stops the work and drops its result.
    void cancel() {
        outcome = isBusy() ? Outcome::cancelled : Outcome::none;
        task.reset();
    }

    bool operator==(const AwaitedWork&) const = default;
};

/// What work is done on how much text.
struct Workload {
    std::string_view verb{}; ///< such as "Formatting"
    std::size_t bytes = 0;
    std::size_t maxImmediateBytes = maxImmediateSize;

    bool isShort() const { return bytes <= maxImmediateBytes; }

    /// Such as "Formatting 48 MB".
    std::string description() const {
        return std::string(verb) + " " + shortByteCountText(static_cast<std::int64_t>(bytes));
    }
};

/// Runs `work(std::stop_token)` as the work in `slot` of `state`, and passes its result to `apply(State&,
/// Result)`: at once if the load is short, and in the background otherwise.
template <typename State, typename Work, typename Apply>
void runAwaited(const Context<State>& context, State& state, AwaitedWork State::* slot, const Workload& load,
                Work work, Apply apply) {
    if (load.isShort()) {
        (state.*slot).cancel();
        std::invoke(apply, state, work(std::stop_token()));
        return;
    }
    auto& awaited = state.*slot;
    awaited = {};
    awaited.task.emplace();
    awaited.description = load.description();
    const auto held = [slot](const State& current) -> const auto& { return (current.*slot).task; };
    context.services.timers.after(AwaitedWork::busyDelay, [update = context.update, held, slot,
                                                           task = BackgroundTask::Identity(*awaited.task)] {
        update([&](State& current) {
            if (task.matches(held(current)))
                (current.*slot).takesLong = true;
        });
    });
    runTask(context, *awaited.task, held, std::move(work),
            [slot, apply = std::move(apply)](State& current, auto result) {
                auto& finished = current.*slot;
                finished.outcome =
                    finished.isBusy() ? AwaitedWork::Outcome::done : AwaitedWork::Outcome::none;
                finished.task.reset();
                std::invoke(apply, current, std::move(result));
            });
}

} // namespace korvane
