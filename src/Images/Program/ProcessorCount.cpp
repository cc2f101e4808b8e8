/// Functions of the C library that this program defines itself: the encoder of HEIC asks for the number of
/// processors with every picture, which the C library reads from /sys each time. Here it is read once, before
/// the process is isolated. Not in a build with sanitizers, whose runtime asks before it can run any code of
/// the program.

#include <dlfcn.h>
#include <sys/sysinfo.h>
#include <unistd.h>

namespace {

using Query = long (*)(int);

long queried(int name) {
    static const auto original = reinterpret_cast<Query>(dlsym(RTLD_NEXT, "sysconf"));
    return original ? original(name) : -1;
}

} // namespace

extern "C" {

long sysconf(int name) noexcept {
    static const long online = queried(_SC_NPROCESSORS_ONLN);
    static const long configured = queried(_SC_NPROCESSORS_CONF);
    return name == _SC_NPROCESSORS_ONLN ? online : name == _SC_NPROCESSORS_CONF ? configured : queried(name);
}

int get_nprocs() noexcept {
    return static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN));
}

int get_nprocs_conf() noexcept {
    return static_cast<int>(sysconf(_SC_NPROCESSORS_CONF));
}

} // extern "C"
