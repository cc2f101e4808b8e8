/// Memory in large pages. First access to memory in 4 KiB pages costs more than the work on it; in large
/// pages it costs a quarter.
#pragma once

#include <cstddef>
#include <memory>

namespace korvane {

/// Requests large pages for memory that is about to be filled. Does nothing if the system has none or the
/// memory is smaller than one.
void preferLargePages(void* memory, std::size_t size);

struct LargeMemoryDeleter {
    void operator()(std::byte* memory) const;
};

using LargeMemory = std::unique_ptr<std::byte, LargeMemoryDeleter>;

/// Uninitialised memory of that size, aligned for large pages if it is large enough to use them.
LargeMemory allocateLarge(std::size_t size);

} // namespace korvane
