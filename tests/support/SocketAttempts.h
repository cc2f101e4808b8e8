/// What a process may do with sockets, found out by trying.
#pragma once

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <string>

namespace korvane {

/// The error number of opening a socket of that family, 0 if it can be opened. It is closed at once.
inline int socketError(int family, int type) {
    const int opened = socket(family, type, 0);
    if (opened < 0)
        return errno;
    close(opened);
    return 0;
}

inline int internetSocketError() {
    return socketError(AF_INET, SOCK_DGRAM);
}

/// The field of a `status` file in /proc that tells whether a thread has a filter: 0 is none, 2 is a filter.
inline std::string filterState(const std::string& path) {
    std::ifstream status(path);
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("Seccomp:"))
            return "Seccomp " + line.substr(line.find_last_of('\t') + 1);
    }
    return "no Seccomp field";
}

} // namespace korvane
