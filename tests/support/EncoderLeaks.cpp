/// Suppresses leaks inside the HEVC encoder, which leaks a few kilobytes a picture.

extern "C" const char*
__lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier): the sanitizer's name

const char* __lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier)
    return "leak:libx265\n";
}
