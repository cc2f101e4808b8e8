/// Functions of the C library that this program defines itself: the compiler of inner loops (orc) puts its
/// code in temporary files. If it cannot have one it uses anonymous memory, and this program writes no file,
/// not even before it is isolated.

#include <cerrno>
#include <cstdlib>

extern "C" {

int mkstemp(char*) {
    errno = EACCES;
    return -1;
}

int mkstemp64(char* path) {
    return mkstemp(path);
}

} // extern "C"
