/// Takes the place of xdg-open in tests, which put its folder into the path: prints one line with what it is
/// asked to open and with what it may do.

#include "support/SocketAttempts.h"

#include <cstddef>
#include <string>

int main(int argc, char* argv[]) {
    constexpr std::size_t maxShown = 1000; // a line that several processes write must be short to stay whole
    std::string line = "opened";
    for (int index = 1; index < argc; ++index) {
        const std::string argument = argv[index];
        line += ' ' + (argument.size() <= maxShown ? argument : std::to_string(argument.size()) + " bytes");
    }
    line +=
        korvane::internetSocketError() == 0 ? ", with internet sockets, " : ", without internet sockets, ";
    line += korvane::filterState("/proc/self/status");
    line += getsid(0) == getpid() ? ", in its own session\n" : ", in another session\n";
    return write(STDOUT_FILENO, line.data(), line.size()) == static_cast<ssize_t>(line.size()) ? 0 : 1;
}
