/// The one home of randomness. There is nothing to seed, so nothing repeats, and nothing is predictable.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace korvane {

/// Fills `bytes` from the kernel's generator, and says whether it could; if not, what they hold is worth
/// nothing. Waits where the kernel has not gathered enough randomness yet, which is only just after a boot.
[[nodiscard]] bool fillRandom(std::span<std::byte> bytes);

/// 64 random bits from the C library's generator, which has further sources where the kernel's fails, and
/// never reports a failure: it ends the process before it gives predictable values. Drawn in blocks, about 25
/// ns each.
std::uint64_t nextRandom();

/// A uniform integer from 0 to `bound` - 1, for a `bound` of at least 1.
std::uint32_t uniformBelow(std::uint32_t bound);

/// The same, made of the 64-bit values that `next` gives.
std::uint32_t uniformBelow(std::uint32_t bound, const std::function<std::uint64_t()>& next);

/// A uniform integer from `first` to `last`, both included; `first` is at most `last`.
int uniformBetween(int first, int last);

/// Where an engine takes its randomness from: the system, unless a test scripts it.
struct RandomSources {
    std::function<bool(std::span<std::byte>)> fill = fillRandom;
    std::function<std::uint64_t()> next = nextRandom;
};

} // namespace korvane
