#include "Utilities/LinkOpener.h"

#include <spawn.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

namespace korvane {

namespace {

/// In bytes: more than web servers accept, and less than the 128 KiB of one argument of a program.
constexpr std::size_t maxAddressLength = 64 * 1024;

/// Starts the first program that is installed, with the address as its last argument. This and `serve` run in
/// the process of links.
void startBrowser(char* address) {
    posix_spawnattr_t attributes;
    if (posix_spawnattr_init(&attributes) != 0)
        return;
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigaddset(&signals, SIGCHLD); // ignored here
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    char xdgOpen[] = "xdg-open";
    char gio[] = "gio";
    char open[] = "open";
    char* const commands[][4] = {
        {xdgOpen, address, nullptr},
        {gio, open, address, nullptr},
    };
    pid_t process = 0;
    for (const auto& command : commands) {
        if (posix_spawnp(&process, command[0], nullptr, &attributes, command, environ) == 0)
            break;
    }
    posix_spawnattr_destroy(&attributes);
}

/// Opens each address that arrives until the other end of the socket is closed. Each message is one address.
[[noreturn]] void serve(int socket) {
    prctl(PR_SET_NAME, "korvane-links");
    std::signal(SIGCHLD, SIG_IGN); // the started programs leave no zombies
    std::array<char, maxAddressLength + 1> message{};
    while (true) {
        // With MSG_TRUNC, the result is the length of the message even if that is longer than the buffer.
        const auto received = recv(socket, message.data(), maxAddressLength, MSG_TRUNC);
        if (received < 0 && errno == EINTR)
            continue;
        if (received <= 0)
            _exit(0);
        const auto length = static_cast<std::size_t>(received);
        if (length > maxAddressLength || !isOpenableAddress({message.data(), length}))
            continue;
        message[length] = '\0';
        startBrowser(message.data());
    }
}

/// The unreserved and the reserved characters of RFC 3986, and the percent sign of encoded bytes.
constexpr std::string_view uriCharacters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                           "-._~:/?#[]@!$&'()*+,;=%";

} // namespace

bool isWebOrMailLink(std::string_view target) {
    constexpr auto schemes = std::to_array<std::string_view>({"http://", "https://", "mailto:"});
    return std::ranges::any_of(schemes, [&](std::string_view scheme) {
        return std::ranges::equal(target.substr(0, scheme.size()), scheme, [](char a, char b) {
            return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
        });
    });
}

bool isOpenableAddress(std::string_view address) {
    return address.size() <= maxAddressLength && isWebOrMailLink(address) &&
           address.find_first_not_of(uriCharacters) == std::string_view::npos;
}

LinkOpener::LinkOpener() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return;
    const auto parent = fork();
    if (parent == 0) {
        close(ends[0]);
        // The process that remains is adopted by the system, which waits for its end.
        if (fork() != 0)
            _exit(0);
        serve(ends[1]);
    }
    close(ends[1]);
    m_socket = ends[0];
    while (parent > 0 && waitpid(parent, nullptr, 0) < 0 && errno == EINTR) {
    }
}

LinkOpener::~LinkOpener() {
    if (m_socket >= 0)
        close(m_socket);
}

bool LinkOpener::open(std::string_view address) const {
    // Without the process, sending fails. It never waits: the window's thread calls this.
    return isOpenableAddress(address) &&
           send(m_socket, address.data(), address.size(), MSG_NOSIGNAL | MSG_DONTWAIT) ==
               static_cast<ssize_t>(address.size());
}

} // namespace korvane
