/// Scripted services: a clipboard in memory, time that the test advances, background work that the test
/// runs, files in memory, and a record of announcements and opened links.
#pragma once

#include "Utilities/Images/ImageProcess.h"
#include "Views/Services.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <deque>
#include <expected>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvane {

class FakeClipboard final : public Clipboard {
public:
    std::optional<Rope> content{}; ///< none: empty, or an image

    std::optional<Rope> text() const override { return content; }

    void setText(const Rope& text) override {
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

    /// Advances time and runs what becomes due, in order.
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

    /// Runs the started work, and what it starts in turn.
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

/// Files in memory, on a disk that may fail.
class FakeFiles final : public Files {
public:
    std::map<std::string, std::string> contents{};
    std::optional<std::string> readFailure{};  ///< of every read
    std::optional<std::string> writeFailure{}; ///< of every write

    std::expected<SharedBytes, std::string> read(const std::string& path,
                                                 std::size_t maxBytes) const override {
        const auto found = contents.find(path);
        if (readFailure)
            return std::unexpected(*readFailure);
        if (found == contents.end())
            return std::unexpected("No such file or directory");
        if (found->second.size() > maxBytes)
            return std::unexpected("The file is too large");
        return SharedBytes::copyOf(found->second);
    }

    std::expected<void, std::string> write(const std::string& path, std::string_view bytes) override {
        if (writeFailure)
            return std::unexpected(*writeFailure);
        contents[path] = bytes;
        return {};
    }
};

/// Panels that wait for the test to choose.
class FakeFilePanels final : public FilePanels {
public:
    FileKind kind{};            ///< of the panel that was opened last
    std::string proposedName{}; ///< in the panel to save
    Chosen choose{};            ///< chooses in that panel; not calling it cancels

    void open(const FileKind& offered, Chosen chosen) override {
        kind = offered;
        proposedName.clear();
        choose = std::move(chosen);
    }

    void save(const FileKind& offered, const std::string& name, Chosen chosen) override {
        kind = offered;
        proposedName = name;
        choose = [offered, chosen = std::move(chosen)](std::string path) {
            chosen(withExtension(std::move(path), offered));
        };
    }
};

/// The image program of the tests, which misbehaves when it is told to.
inline ImageProcessOptions misbehavingProgram(std::vector<std::string> arguments = {}) {
    const auto tests = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    return {.program = (tests / "korvane-images-misbehaving").string(), .arguments = std::move(arguments)};
}

/// The real image process, which all tests share to save time, unless the test replaces it.
class FakeImages final : public Images {
public:
    std::shared_ptr<ImageProcess> replacement{};

    std::shared_ptr<ImageProcess> process() override { return replacement ? replacement : shared(); }

    static const std::shared_ptr<ImageProcess>& shared() {
        static const auto process = std::make_shared<ImageProcess>();
        return process;
    }

    /// Removes the codecs of HEIC.
    void removeHEICCodecs() {
        replacement = std::make_shared<ImageProcess>(misbehavingProgram({"without-heic"}));
    }
};

struct FakeServices {
    FakeClipboard clipboard{};
    FakeClock clock{};
    FakeTimers timers{};
    FakeBackground background{};
    FakeBrowser browser{};
    NotificationCenter notifications{};
    FakeFiles files{};
    FakeFilePanels panels{};
    FakeImages images{};
    std::vector<std::pair<std::string, Tool>> posted{};
    Services services{clipboard, clock, timers, background, browser, notifications, files, panels, images};

    FakeServices() {
        notifications.observe(
            [this](std::string_view name, Tool object) { posted.emplace_back(name, object); });
    }

    FakeServices(const FakeServices&) = delete;
    FakeServices& operator=(const FakeServices&) = delete;
};

/// Performs an operation of `state`, and then all that it has started in the background.
template <typename State, typename Operation, typename... Arguments>
void perform(State& state, const Operation& operation, Arguments&&... arguments) {
    FakeServices fakes;
    const Context<State> context{fakes.services, [&state](const auto& change) { change(state); }};
    std::invoke(operation, state, std::forward<Arguments>(arguments)..., context);
    fakes.background.runAll();
}

} // namespace korvane
