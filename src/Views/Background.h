/// Work that takes too long for the thread of the user interface, as a state starts it, holds it and lets go
/// of it.
#pragma once

#include "Views/Services.h"

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <type_traits>
#include <utility>

namespace korvane {

/// One piece of work that goes on in the background. A state holds it while it waits for the result; once
/// nobody holds it any more, the work is asked to stop and its result is dropped. Two are equal if they are
/// the same piece of work.
class BackgroundTask {
public:
    BackgroundTask() : m_work(std::make_shared<Work>()) {}

    std::stop_token stopToken() const { return m_work->stop.get_token(); }

    bool operator==(const BackgroundTask&) const = default;

    /// Recognises a task without holding it.
    class Identity {
    public:
        explicit Identity(const BackgroundTask& task) : m_work(task.m_work) {}

        bool names(const std::optional<BackgroundTask>& task) const {
            return task && task->m_work == m_work.lock();
        }

    private:
        std::weak_ptr<const void> m_work;
    };

private:
    struct Work {
        std::stop_source stop{};

        Work() = default;
        Work(const Work&) = delete;
        Work& operator=(const Work&) = delete;

        ~Work() { stop.request_stop(); }
    };

    std::shared_ptr<Work> m_work;
};

/// Starts `work(std::stop_token)` in the background and holds it in `slot` of `state`, in place of what was
/// there before. `work` must own all that it reads. Its result goes to `apply(State&, Result)`, on the thread
/// of the user interface and with the slot empty again; unless the slot holds something else by then, or the
/// state is gone.
template <typename State, typename Work, typename Apply>
void runInBackground(const Context<State>& context, State& state, std::optional<BackgroundTask> State::* slot,
                     Work work, Apply apply) {
    using Result = std::invoke_result_t<Work&, std::stop_token>;
    const BackgroundTask task;
    const auto result = std::make_shared<std::optional<Result>>();
    state.*slot = task;
    context.services.background.run(
        [work = std::move(work), token = task.stopToken(), result]() mutable {
            if (!token.stop_requested())
                *result = work(token);
        },
        [update = context.update, identity = BackgroundTask::Identity(task), slot, apply = std::move(apply),
         result] {
            update([&](State& current) {
                if (!identity.names(current.*slot))
                    return;
                (current.*slot).reset();
                std::invoke(apply, current, std::move(**result));
            });
        });
}

} // namespace korvane
