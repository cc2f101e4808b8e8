/// The interfaces between the screens and the system, implemented by the front end and faked in tests.
/// Screens reach nothing else.
#pragma once

#include "Models/Tool.h"
#include "Utilities/Text/Rope.h"

#include <chrono>
#include <cstddef>
#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

class ImageProcess;
class SharedBytes;

/// The plain text on the system's clipboard.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// The plain text, or none if the clipboard is empty or holds something else.
    virtual std::optional<Rope> text() const = 0;

    /// Replaces the content of the clipboard, also by an empty text.
    virtual void setText(const Rope& text) = 0;

    /// The same, with a request to clipboard managers neither to show nor to keep the text.
    virtual void setSecret(std::string_view text) = 0;
};

/// The time of day.
class Clock {
public:
    virtual ~Clock() = default;

    virtual std::chrono::system_clock::time_point now() const = 0;
};

/// Delayed work on the thread of the user interface.
class Timers {
public:
    virtual ~Timers() = default;

    /// Runs `action` once, after `delay`. It cannot be cancelled; it must tolerate its target's destruction.
    virtual void after(std::chrono::milliseconds delay, std::function<void()> action) = 0;
};

/// Runs work on other threads. States use it through `runInBackground` and `runTask`.
class Background {
public:
    virtual ~Background() = default;

    /// Runs `work` on another thread, and then `done` on the thread of the user interface.
    virtual void run(std::function<void()> work, std::function<void()> done) = 0;
};

/// The user's web browser.
class Browser {
public:
    virtual ~Browser() = default;

    /// Asks it to open `url`. Failures are not reported.
    virtual void open(std::string_view url) = 0;
};

/// The file system. May be used on any thread. Paths are UTF-8; errors are texts for the user.
class Files {
public:
    virtual ~Files() = default;

    /// The content of the file, or why it cannot be read: it is missing, not permitted, not a regular file,
    /// or longer than `maxBytes`.
    virtual std::expected<SharedBytes, std::string> read(const std::string& path,
                                                         std::size_t maxBytes) const = 0;

    /// Replaces the content of the file by `bytes`. They are written to another file beside it, which then
    /// replaces it atomically, so a failure keeps the previous content.
    virtual std::expected<void, std::string> write(const std::string& path, std::string_view bytes) = 0;
};

/// The kind of files that a panel offers. Extensions are without the dot; their case does not matter.
struct FileKind {
    std::string name{};
    std::vector<std::string> extensions{};      ///< the first is appended to a name that has none of them
    std::vector<std::string> otherExtensions{}; ///< of other kinds; replaced by the first

    bool operator==(const FileKind&) const = default;
};

/// `path`, with an extension of the kind.
std::string withExtension(std::string path, const FileKind& kind);

/// The desktop's file dialogs. They return at once; `chosen` runs later with the path, on the thread of the
/// user interface, and not at all if the user cancels.
class FilePanels {
public:
    using Chosen = std::function<void(std::string path)>;

    virtual ~FilePanels() = default;

    /// Offers files of the kind, and all others on request.
    virtual void open(const FileKind& kind, Chosen chosen) = 0;

    /// Asks where to save, with a proposed name, and asks again before it replaces another file. The chosen
    /// path has an extension of the kind.
    virtual void save(const FileKind& kind, const std::string& proposedName, Chosen chosen) = 0;
};

/// The image process.
class Images {
public:
    virtual ~Images() = default;

    /// The process, which all share that have asked for it. Its first operation starts it; it ends when
    /// nobody holds it any more.
    virtual std::shared_ptr<ImageProcess> process() = 0;
};

/// Notifications that carry a tool. Posting is synchronous: all observers have run when `post` returns.
class NotificationCenter {
public:
    using Observer = std::function<void(std::string_view name, Tool object)>;

    void observe(Observer observer) { m_observers.push_back(std::move(observer)); }

    void post(std::string_view name, Tool object) const {
        for (const auto& observer : m_observers)
            observer(name, object);
    }

private:
    std::vector<Observer> m_observers;
};

/// Passed to every screen by the window. The services outlive all screens.
struct Services {
    Clipboard& clipboard;
    Clock& clock;
    Timers& timers;
    Background& background;
    Browser& browser;
    NotificationCenter& notifications;
    Files& files;
    FilePanels& panels;
    Images& images;
};

/// Passed to operations that need more than their own state: the services, and a way to change the state
/// later.
template <typename State>
struct Context {
    Services& services;
    /// Applies a change to the state when it is called, which may be after the operation; does nothing once
    /// the state is destroyed.
    std::function<void(std::function<void(State&)>)> update;
};

} // namespace korvane
