/// Scripted services: a clipboard in memory, a clock that only the test moves, and a record of what was
/// announced.
#pragma once

#include "Views/Services.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvane {

class FakeClipboard final : public Clipboard {
public:
    std::optional<std::string> content{}; ///< none: empty, or an image

    std::optional<std::string> text() const override { return content; }

    void setText(std::string_view text) override { content = text; }
};

class FakeTimers final : public Timers {
public:
    void after(std::chrono::milliseconds delay, std::function<void()> action) override {
        m_pending.emplace(m_now + delay, std::move(action));
    }

    /// Lets time pass, running what becomes due in its order.
    void advance(std::chrono::milliseconds duration) {
        const auto end = m_now + duration;
        while (!m_pending.empty() && m_pending.begin()->first <= end) {
            const auto due = m_pending.extract(m_pending.begin());
            m_now = due.key();
            due.mapped()();
        }
        m_now = end;
    }

    std::size_t pendingCount() const { return m_pending.size(); }

private:
    std::chrono::milliseconds m_now{0};
    std::multimap<std::chrono::milliseconds, std::function<void()>> m_pending;
};

struct FakeServices {
    FakeClipboard clipboard{};
    FakeTimers timers{};
    NotificationCenter notifications{};
    std::vector<std::pair<std::string, Tool>> posted{};
    Services services{clipboard, timers, notifications};

    FakeServices() {
        notifications.observe(
            [this](std::string_view name, Tool object) { posted.emplace_back(name, object); });
    }

    FakeServices(const FakeServices&) = delete;
    FakeServices& operator=(const FakeServices&) = delete;
};

} // namespace korvane
