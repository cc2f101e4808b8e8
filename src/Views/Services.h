/// The outside world as the screens see it: a few tiny interfaces, real in the window, scripted in tests.
/// What is not in here, no screen can reach.
#pragma once

#include "Models/Tool.h"

#include <chrono>
#include <cstddef>
#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct ImageEngine;

/// The system's clipboard, as far as it holds plain text.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// The plain text on the clipboard, or none when it holds something else or nothing.
    virtual std::optional<std::string> text() const = 0;

    /// Replaces whatever is on the clipboard; an empty text is put there like any other.
    virtual void setText(std::string_view text) = 0;

    /// The same for a text that is not to be shown or kept by programs which remember the clipboard's
    /// content.
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

    /// Runs `action` once, `delay` from now. It cannot be called off, so it must bear its subject being gone.
    virtual void after(std::chrono::milliseconds delay, std::function<void()> action) = 0;
};

/// Other threads. States use it through `runInBackground`.
class Background {
public:
    virtual ~Background() = default;

    /// Runs `work` on another thread, and then `done` on the thread of the user interface.
    virtual void run(std::function<void()> work, std::function<void()> done) = 0;
};

/// The program that the user has chosen for web pages.
class Browser {
public:
    virtual ~Browser() = default;

    /// Asks it to open `url`. Whether it does is not known here.
    virtual void open(std::string_view url) = 0;
};

/// Files on the disks. May be used on any thread. Paths are UTF-8; errors are texts for the user.
class Files {
public:
    virtual ~Files() = default;

    /// The content of the file, or why it cannot be had: it is missing, forbidden, no ordinary file, or
    /// longer than `maximumBytes`.
    virtual std::expected<std::string, std::string> read(const std::string& path,
                                                         std::size_t maximumBytes) const = 0;

    /// Makes `bytes` the content of the file. They are written beside it first and take its place at once
    /// when they are all there, so a failure leaves what was there before.
    virtual std::expected<void, std::string> write(const std::string& path, std::string_view bytes) = 0;
};

/// The kind of files that a panel offers. Extensions are without the dot; their case does not matter.
struct FileKind {
    std::string name{};
    std::vector<std::string> extensions{};      ///< the first is given to a name that has none of them
    std::vector<std::string> otherExtensions{}; ///< of other kinds, which the first takes the place of

    bool operator==(const FileKind&) const = default;
};

/// `path`, with an extension of the kind.
std::string withExtension(std::string path, const FileKind& kind);

/// The desktop's panels to choose a file with. They come back at once; `chosen` runs later, with the path, on
/// the thread of the user interface, and not at all if the user changes his mind.
class FilePanels {
public:
    using Chosen = std::function<void(std::string path)>;

    virtual ~FilePanels() = default;

    /// Offers files of the kind, and, if the user wants so, all others.
    virtual void open(const FileKind& kind, Chosen chosen) = 0;

    /// Asks where to save, proposing a name, and before another file is replaced. The path that is chosen has
    /// an extension of the kind.
    virtual void save(const FileKind& kind, const std::string& proposedName, Chosen chosen) = 0;
};

/// Where the image engine comes from.
class Images {
public:
    virtual ~Images() = default;

    /// The engine, or why there is none; the first call takes some 50 ms.
    virtual std::expected<const ImageEngine*, std::string> engine() = 0;
};

/// Announcements that carry a tool. Posting is synchronous: all observers have run when `post` returns.
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

/// What the window hands to every screen. The services outlive all screens.
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

/// What an operation gets that reaches beyond its own state: the services, and a way to change the state
/// later.
template <typename State>
struct Context {
    Services& services;
    /// Runs a change on the state, at once or whenever it is called; does nothing once the state is gone.
    std::function<void(std::function<void(State&)>)> update;
};

} // namespace korvane
