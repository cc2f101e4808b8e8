#include "Utilities/Random.h"

#include <sys/random.h>

#include <cerrno>
#include <cstdlib>

namespace korvane {

void fillRandom(std::span<std::byte> bytes) {
    while (!bytes.empty()) {
        const auto filled = getrandom(bytes.data(), bytes.size(), 0);
        if (filled > 0)
            bytes = bytes.subspan(static_cast<std::size_t>(filled));
        else if (errno != EINTR)
            std::abort(); // a kernel without getrandom; every kernel that Debian 12 runs on has it
    }
}

} // namespace korvane
