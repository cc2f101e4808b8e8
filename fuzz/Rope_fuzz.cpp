#include "support/RopeProperties.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t maxEdits =
        100; // each of which is checked in the time that its text takes to be read
    const std::string_view program(reinterpret_cast<const char*>(data), size);
    if (const auto broken = korvane::support::brokenRopeProperty(program.substr(0, 4 * maxEdits));
        !broken.empty()) {
        std::fprintf(stderr, "%s\n", broken.c_str());
        std::abort();
    }
    return 0;
}
