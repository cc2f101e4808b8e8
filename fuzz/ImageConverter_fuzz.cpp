#include "support/DamagedImage.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

// All six formats: the bytes of the seed say which. What reads them are mostly libraries that are not
// instrumented, so the fuzzer learns from Korvane's own readers, and tries the others blindly.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto broken = korvane::support::brokenImageProperty(bytes); !broken.empty()) {
        std::fprintf(stderr, "%s\n", broken.c_str());
        std::abort();
    }
    return 0;
}
