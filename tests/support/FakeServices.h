/// Scripted services: a clipboard in memory, time that only the test moves, background work that waits for
/// the test, and a record of what was announced and opened.
#pragma once

#include "Views/Services.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
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

    void setText(std::string_view text) override {
        content = text;
        isSecret = false;
    }

    void setSecret(std::string_view text) override {
        content = text;
        isSecret = true;
    }

    bool isSecret = false;
};

class FakeClock final : public Clock {
public:
    /// 2024-01-02T03:04:05Z, unless the test sets another moment.
    std::chrono::system_clock::time_point moment{std::chrono::seconds(1704164645)};

    std::chrono::system_clock::time_point now() const override { return moment; }
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

class FakeBackground final : public Background {
public:
    void run(std::function<void()> work, std::function<void()> done) override {
        m_pending.emplace_back(std::move(work), std::move(done));
    }

    /// Does the work that has been started, and what that starts in turn.
    void runAll() {
        while (!m_pending.empty()) {
            const auto [work, done] = std::move(m_pending.front());
            m_pending.pop_front();
            work();
            done();
        }
    }

    std::size_t pendingCount() const { return m_pending.size(); }

private:
    std::deque<std::pair<std::function<void()>, std::function<void()>>> m_pending;
};

class FakeBrowser final : public Browser {
public:
    std::vector<std::string> opened{};

    void open(std::string_view url) override { opened.emplace_back(url); }
};

struct FakeServices {
    FakeClipboard clipboard{};
    FakeClock clock{};
    FakeTimers timers{};
    FakeBackground background{};
    FakeBrowser browser{};
    NotificationCenter notifications{};
    std::vector<std::pair<std::string, Tool>> posted{};
    Services services{clipboard, clock, timers, background, browser, notifications};

    FakeServices() {
        notifications.observe(
            [this](std::string_view name, Tool object) { posted.emplace_back(name, object); });
    }

    FakeServices(const FakeServices&) = delete;
    FakeServices& operator=(const FakeServices&) = delete;
};

} // namespace korvane
