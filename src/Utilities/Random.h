/// The only source of randomness. It has no seed: its values are neither reproducible nor predictable.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace korvane {

/// Fills `bytes` from the kernel's generator. Returns whether it succeeded; if not, their content is
/// unusable. Blocks until the kernel's generator is initialised, which matters only just after boot.
[[nodiscard]] bool fillRandom(std::span<std::byte> bytes);

/// 64 random bits from the C library's generator, which has fallbacks if the kernel's fails. Never reports
/// failure: it terminates the process rather than return predictable values. Drawn in blocks, about 25 ns
/// each.
std::uint64_t nextRandom();

/// A uniform integer from 0 to `bound` - 1; `bound` is at least 1.
std::uint32_t uniformBelow(std::uint32_t bound);

/// The same, from the 64-bit values of `next`.
std::uint32_t uniformBelow(std::uint32_t bound, const std::function<std::uint64_t()>& next);

/// A uniform integer from `first` to `last`, both included; `first` is at most `last`.
int uniformBetween(int first, int last);

/// The random sources of an engine: the system's, unless a test injects others.
struct RandomSources {
    std::function<bool(std::span<std::byte>)> fill = fillRandom;
    std::function<std::uint64_t()> next = nextRandom;
};

} // namespace korvane
