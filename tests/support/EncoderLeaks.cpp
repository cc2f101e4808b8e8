/// The HEVC encoder keeps a few kilobytes of each picture. That is its own matter, and not to hide leaks of
/// ours.

extern "C" const char*
__lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier): the sanitizer's name

const char* __lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:libx265\n";
}
