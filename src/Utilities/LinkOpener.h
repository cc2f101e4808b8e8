/// Opens links in the user's browser, from a process of its own: whatever the program starts after
/// `closeNetwork` has no network, so the browser must be started by a process that began before.
#pragma once

#include <string_view>

namespace korvane {

/// Whether a link begins as the addresses of web pages and of mail do: with `http://`, `https://` or
/// `mailto:`, in any letter case. No others are opened, since they could start any program.
bool isWebOrMailLink(std::string_view target);

/// Whether `address` is one that a `LinkOpener` opens: `isWebOrMailLink`, only of characters that RFC 3986
/// allows in a URI, and at most 64 KiB.
bool isOpenableAddress(std::string_view address);

/// A process that waits for addresses. It ends with this object or, however that ends, with the program. It
/// is no child of the program, so it leaves no zombie.
class LinkOpener {
public:
    /// Starts the process by fork, so this must come before the program has other threads. If it cannot be
    /// started, no link is opened.
    LinkOpener();
    ~LinkOpener();

    LinkOpener(const LinkOpener&) = delete;
    LinkOpener& operator=(const LinkOpener&) = delete;

    /// Has the process open `address` by `xdg-open` or, where that is missing, `gio open`, in a session of
    /// its own and with the environment that the program was started with. Does not wait. Returns whether the
    /// address is openable and has reached the process.
    bool open(std::string_view address) const;

private:
    int m_socket = -1; ///< to the process; -1 if it could not be started
};

} // namespace korvane
