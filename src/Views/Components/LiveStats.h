/// The statistics of a text in a state, kept up to date while the text changes: at once after a small change,
/// from the background after a large one.
#pragma once

#include "Utilities/TextTransformer.h"
#include "Views/Background.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace korvane {

class LiveStats {
public:
    LiveStats() = default;

    /// Those of a short text, which is counted at once.
    explicit LiveStats(const Rope& text) : m_text(text) { m_counted.update(text); }

    /// Those of the text given last; null while that is being counted.
    const TextTransformer::RunningStats* current() const { return m_counting ? nullptr : &m_counted; }

    /// A count for the user, as `countOf(const RunningStats&)` gives it; "…" while it is not known.
    template <typename Count>
    std::string text(Count countOf) const {
        return m_counting ? "…" : std::to_string(std::invoke(countOf, m_counted));
    }

    /// The field of the statistics for the user.
    std::string text(std::int64_t TextStats::* count) const {
        return text([count](const auto& counted) { return counted.stats().*count; });
    }

    /// Counts `text`, for the statistics in `field` of `state`. Running work is finished, and then brought up
    /// to date, so that typing in a large text does not start it anew with each key.
    template <typename State>
    static void update(const Context<State>& context, State& state, LiveStats State::* field, Rope text) {
        auto& live = state.*field;
        live.m_text = std::move(text);
        if (live.countQuickly() || live.m_counting)
            return;
        runTask(
            context, live.m_counting.emplace(),
            [field](const State& current) -> const auto& { return (current.*field).m_counting; },
            [counted = live.m_counted, latest = live.m_text](const std::stop_token&) mutable {
                counted.update(latest);
                return std::move(counted);
            },
            [context, field](State& current, TextTransformer::RunningStats counted) {
                auto& finished = current.*field;
                finished.m_counting.reset();
                finished.m_counted = std::move(counted);
                update(context, current, field, finished.m_text);
            });
    }

    bool operator==(const LiveStats&) const = default;

private:
    /// Counts the text if that takes no time; running work is not needed then.
    bool countQuickly() {
        if (m_counted.changeSize(m_text) > maxImmediateSize)
            return false;
        m_counting.reset();
        m_counted.update(m_text);
        return true;
    }

    Rope m_text{};
    TextTransformer::RunningStats m_counted{}; ///< of `m_text`, or of an earlier text while there is a task
    std::optional<BackgroundTask> m_counting{};
};

} // namespace korvane
