#include "Utilities/LargePages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <new>

namespace korvane {

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20; // with another size only the hint is lost

constexpr std::size_t roundedUp(std::size_t size, std::size_t unit) {
    return (size + unit - 1) / unit * unit;
}

} // namespace

void preferLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) {
#if defined(MADV_HUGEPAGE)
    if (size < largePage)
        return;
    // Covers every page that the memory touches: the system decides which of them large pages can replace.
    // Other data on the first and last page are unaffected.
    const auto pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto offset = reinterpret_cast<std::uintptr_t>(memory) % pageSize;
    madvise(static_cast<std::byte*>(memory) - offset, roundedUp(offset + size, pageSize), MADV_HUGEPAGE);
#endif
}

void LargeMemoryDeleter::operator()(std::byte* memory) const {
    std::free(memory);
}

LargeMemory allocateLarge(std::size_t size) {
    const bool isLarge = size >= largePage;
    auto* const memory =
        isLarge ? std::aligned_alloc(largePage, roundedUp(size, largePage)) : std::malloc(size);
    if (memory == nullptr)
        throw std::bad_alloc();
    if (isLarge)
        preferLargePages(memory, roundedUp(size, largePage));
    return LargeMemory(static_cast<std::byte*>(memory));
}

} // namespace korvane
