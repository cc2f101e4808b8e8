#include "support/DiffEngineProperties.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view texts(reinterpret_cast<const char*>(data), size);
    if (const auto broken = korvane::support::brokenDiffEngineProperty(texts); !broken.empty()) {
        std::fprintf(stderr, "%s\n", broken.c_str());
        std::abort();
    }
    return 0;
}
