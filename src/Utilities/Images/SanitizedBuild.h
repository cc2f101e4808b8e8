/// Whether this is a build with a sanitizer. Its runtime reserves terabytes of address space and opens files
/// while the program runs, so the image process is not isolated in such a build, and tests of its isolation
/// are skipped.
#pragma once

namespace korvane {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool isSanitizedBuild = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(undefined_behavior_sanitizer)
inline constexpr bool isSanitizedBuild = true;
#else
inline constexpr bool isSanitizedBuild = false;
#endif
#else
inline constexpr bool isSanitizedBuild = false;
#endif

} // namespace korvane
