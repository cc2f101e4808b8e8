#include "Images/Program/Sandbox.h"

#include "Utilities/Images/FileDescriptor.h"
#include "Utilities/Images/SanitizedBuild.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include <linux/landlock.h>
#include <semaphore.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace korvane::Sandbox {

namespace {

bool limit(__rlimit_resource resource, rlim_t most) {
    const rlimit both{.rlim_cur = most, .rlim_max = most};
    return setrlimit(resource, &both) == 0;
}

/// A limit that the user or the system has set lower already stays.
bool limitFurther(__rlimit_resource resource, rlim_t most) {
    rlimit present{};
    return getrlimit(resource, &present) == 0 && limit(resource, std::min(most, present.rlim_max));
}

bool limitResources(const Limits& limits) {
    return limit(RLIMIT_CORE, 0) && limitFurther(RLIMIT_DATA, limits.privateMemory) &&
           limitFurther(RLIMIT_FSIZE, limits.file) && limitFurther(RLIMIT_NOFILE, limits.openFiles) &&
           limitFurther(RLIMIT_AS, limits.addressSpace);
}

/// The attributes of a Landlock ruleset of the newest kernel: a kernel of an earlier version of the interface
/// takes the beginning of it, and the headers of the C library may know even less.
struct RulesetAttributes {
    std::uint64_t files = 0;
    std::uint64_t network = 0;
    std::uint64_t scopes = 0;
};

/// The rights that each version of the interface can deny: all of them, since none is granted.
RulesetAttributes allRights(long version) {
    constexpr std::uint64_t rightsOf1 = (1U << 13) - 1; // execute to make_sym
    RulesetAttributes attributes{.files = rightsOf1};
    if (version >= 2)
        attributes.files |= 1U << 13; // refer
    if (version >= 3)
        attributes.files |= 1U << 14; // truncate
    if (version >= 4)
        attributes.network = 0b11; // bind and connect TCP
    if (version >= 5)
        attributes.files |= 1U << 15; // ioctl on devices
    if (version >= 6)
        attributes.scopes = 0b11; // abstract sockets and signals
    return attributes;
}

std::size_t sizeOfAttributes(long version) {
    return version >= 6   ? sizeof(RulesetAttributes)
           : version >= 4 ? 2 * sizeof(std::uint64_t)
                          : sizeof(std::uint64_t);
}

/// A Landlock ruleset that grants nothing; none if the kernel has no Landlock.
FileDescriptor emptyRuleset() {
    const long version = syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1)
        return FileDescriptor();
    const auto attributes = allRights(version);
    return FileDescriptor(
        static_cast<int>(syscall(SYS_landlock_create_ruleset, &attributes, sizeOfAttributes(version), 0)));
}

/// What the signal below tells every thread to do.
struct ThreadOrder {
    std::atomic<int> ruleset = -1; ///< -1: the kernel has no Landlock
    std::atomic<int> failed = 0;
    sem_t done{}; ///< counts the threads that have obeyed
};

ThreadOrder order;

constexpr int orderSignal = SIGUSR1;

/// A thread obeys within microseconds, unless the computer is overloaded: 10 seconds in all.
constexpr int maxChecks = 500;
constexpr long millisecondsBetweenChecks = 20;

/// Restricts the calling thread: both calls work on one thread and on those that it starts later.
void restrictThread() {
    const int ruleset = order.ruleset;
    const bool isPrivileged = prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0;
    if (isPrivileged || (ruleset >= 0 && syscall(SYS_landlock_restrict_self, ruleset, 0) != 0))
        ++order.failed;
}

/// Runs as a signal handler: only system calls and atomics.
void obey(int) {
    const int error = errno;
    restrictThread();
    sem_post(&order.done);
    errno = error;
}

timespec afterMilliseconds(long milliseconds) {
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    const long nanoseconds = time.tv_nsec + milliseconds * 1'000'000;
    time.tv_sec += nanoseconds / 1'000'000'000;
    time.tv_nsec = nanoseconds % 1'000'000'000;
    return time;
}

bool hasEnded(pid_t thread) {
    return syscall(SYS_tgkill, getpid(), thread, 0) != 0;
}

/// Waits until the thread has obeyed, or has ended before it could. Not for ever, as it may block the signal.
bool awaitThread(pid_t thread) {
    for (int i = 0; i < maxChecks; ++i) {
        const auto deadline = afterMilliseconds(millisecondsBetweenChecks);
        if (sem_timedwait(&order.done, &deadline) == 0)
            return true;
        if (hasEnded(thread)) {
            sem_trywait(&order.done); // it may have obeyed at last
            return true;
        }
    }
    return false;
}

std::vector<pid_t> otherThreads() {
    std::vector<pid_t> threads;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/task", error)) {
        const auto name = entry.path().filename().string();
        pid_t thread = 0;
        std::from_chars(name.data(), name.data() + name.size(), thread);
        if (thread != gettid())
            threads.push_back(thread);
    }
    return threads;
}

} // namespace

bool restrictThreads() {
    const auto ruleset = emptyRuleset();
    order.ruleset = ruleset.number();
    struct sigaction action{};
    struct sigaction previous{};
    action.sa_handler = obey;
    sigfillset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    if (sigaction(orderSignal, &action, &previous) != 0)
        return false;
    if (sem_init(&order.done, 0, 0) != 0)
        return false;
    for (const auto thread : otherThreads()) {
        const bool isRunning = syscall(SYS_tgkill, getpid(), thread, orderSignal) == 0;
        if (isRunning && !awaitThread(thread))
            return false;
    }
    restrictThread();
    return order.failed == 0 && sigaction(orderSignal, &previous, nullptr) == 0;
}

bool close(const Limits& limits) {
    if constexpr (isSanitizedBuild)
        return true;
    return restrictThreads() && prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) == 0 && limitResources(limits) &&
           filterSystemCalls();
}

} // namespace korvane::Sandbox
