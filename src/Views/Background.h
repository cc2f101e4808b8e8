/// The background work of a state: how it is started, held and cancelled.
#pragma once

#include "Views/Services.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <type_traits>
#include <utility>

namespace korvane {

/// A piece of work in the background. A state holds it while it waits for the result; when the last copy is
/// destroyed, the work is asked to stop and its result is dropped. Two are equal if they are the same piece
/// of work.
class BackgroundTask {
public:
    BackgroundTask() : m_work(std::make_shared<Work>()) {}

    std::stop_token stopToken() const { return m_work->stop.get_token(); }

    bool operator==(const BackgroundTask&) const = default;

    /// Recognises a task without holding it.
    class Identity {
    public:
        explicit Identity(const BackgroundTask& task) : m_work(task.m_work) {}

        /// Whether `task`, a pointer or an optional, holds the task.
        bool matches(const auto& task) const { return task && task->m_work == m_work.lock(); }

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

/// Starts `work(std::stop_token)` in the background, with the stop token of `task`. `work` must own all that
/// it reads. Its result goes to `apply(State&, Result)` on the thread of the user interface if `held(const
/// State&)`, a pointer or an optional, still holds `task`; it is dropped otherwise, and once the state is
/// destroyed.
template <typename State, typename Held, typename Work, typename Apply>
void runTask(const Context<State>& context, const BackgroundTask& task, Held held, Work work, Apply apply) {
    using Result = std::invoke_result_t<Work&, std::stop_token>;
    const auto result = std::make_shared<std::optional<Result>>();
    context.services.background.run(
        [work = std::move(work), token = task.stopToken(), result]() mutable {
            if (!token.stop_requested())
                *result = work(token);
        },
        [update = context.update, identity = BackgroundTask::Identity(task), held = std::move(held),
         apply = std::move(apply), result] {
            update([&](State& current) {
                if (identity.matches(std::invoke(held, std::as_const(current))))
                    std::invoke(apply, current, std::move(**result));
            });
        });
}

/// The same for a new task in `slot` of `state`, where it replaces the previous one. The slot is empty again
/// when `apply` is called.
template <typename State, typename Work, typename Apply>
void runInBackground(const Context<State>& context, State& state, std::optional<BackgroundTask> State::* slot,
                     Work work, Apply apply) {
    const auto& task = (state.*slot).emplace();
    runTask(context, task, slot, std::move(work),
            [slot, apply = std::move(apply)](State& current, auto result) {
                (current.*slot).reset();
                std::invoke(apply, current, std::move(result));
            });
}

/// Shares a value that takes long to destroy: it is destroyed in the background, which must outlive it.
template <typename Value>
std::shared_ptr<const Value> shareLarge(Background& background, Value value) {
    auto* const shared = new const Value(std::move(value));
    return {shared, [&background](const Value* owned) {
                background.run([last = std::shared_ptr<const Value>(owned)] {}, [] {});
            }};
}

/// Texts of at most this size, in bytes, are worked on at once, because nobody would notice the wait.
inline constexpr std::size_t maxImmediateSize = std::size_t{256} << 10;

} // namespace korvane
