#include "support/DamagedImage.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

// The input determines which of the six formats is read. Most readers are uninstrumented libraries, so
// coverage guides the fuzzer only in Korvane's own readers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto broken = korvane::support::brokenImageProperty(bytes); !broken.empty()) {
        std::fprintf(stderr, "%s\n", broken.c_str());
        std::abort();
    }
    return 0;
}
