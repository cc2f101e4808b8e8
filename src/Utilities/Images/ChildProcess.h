/// A program that is started with nothing but one socket: no environment, no other descriptor, and no
/// standard input or output.
#pragma once

#include "Utilities/Images/FileDescriptor.h"

#include <expected>
#include <string>
#include <system_error>
#include <vector>

#include <sys/types.h>

namespace korvane {

/// A running program; the destructor kills it and waits until it has ended.
class ChildProcess {
public:
    /// Starts `program`, a path, which finds its end of the socket under the number `socketNumber`. Safe in a
    /// program with threads. Fails with the system's error.
    static std::expected<ChildProcess, std::error_code>
    start(const std::string& program, const std::vector<std::string>& arguments, int socketNumber);

    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&&) = delete;
    ~ChildProcess();

    /// Our end of the socket, of type SOCK_SEQPACKET.
    int socket() const { return m_socket.number(); }

    /// Kills the process, unless it has ended by itself, and waits for its end. Returns its status as waitpid
    /// does. May be called once.
    int end();

private:
    ChildProcess(pid_t process, FileDescriptor socket) : m_process(process), m_socket(std::move(socket)) {}

    pid_t m_process;
    FileDescriptor m_socket;
};

} // namespace korvane
