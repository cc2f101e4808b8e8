/// Memory in large pieces. Touching memory for the first time costs more than working with it, as long as the
/// system provides it 4 KiB at a time; in large pages it costs a quarter.
#pragma once

#include <cstddef>
#include <memory>

namespace korvane {

/// Asks for large pages for memory that is about to be filled. Does nothing where the system has none, or
/// where the memory is too small to hold one.
void preferLargePages(void* memory, std::size_t size);

struct LargeMemoryDeleter {
    void operator()(std::byte* memory) const;
};

using LargeMemory = std::unique_ptr<std::byte, LargeMemoryDeleter>;

/// Memory of that size, not yet written, placed so that large pages fit it where it is large enough.
LargeMemory allocateLarge(std::size_t size);

} // namespace korvane
