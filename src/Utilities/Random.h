/// The one home of randomness: the kernel's generator. Nothing is seeded, so nothing repeats.
#pragma once

#include <cstddef>
#include <span>

namespace korvane {

/// Fills `bytes` from the kernel's random generator. Does not return until it could: a machine without
/// randomness must not hand out predictable values.
void fillRandom(std::span<std::byte> bytes);

} // namespace korvane
