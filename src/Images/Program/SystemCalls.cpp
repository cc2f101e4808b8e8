/// The filter of system calls of the image process.

#include "Images/Program/Sandbox.h"

#include <array>
#include <initializer_list>
#include <memory>

#include <fcntl.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace korvane::Sandbox {

namespace {

/// Computing, memory, threads, time, and the socket that is open already. Names that the library does not
/// know on this architecture are skipped. The policies of memory nodes are left out: where they can be
/// queried, the HEIC encoder also reads /sys.
constexpr auto allowed = std::to_array<const char*>({
    // memory
    "brk",
    "madvise",
    "mlock",
    "mlock2",
    "mremap",
    "munlock",
    "munmap",
    "memfd_create",
    "ftruncate",
    "ftruncate64",
    "fallocate",
    "membarrier",
    // threads
    "arch_prctl",
    "exit",
    "exit_group",
    "futex",
    "futex_time64",
    "futex_waitv",
    "get_robust_list",
    "getcpu",
    "gettid",
    "rseq",
    "sched_get_priority_max",
    "sched_get_priority_min",
    "sched_getaffinity",
    "sched_getattr",
    "sched_getparam",
    "sched_getscheduler",
    "sched_setaffinity",
    "sched_yield",
    "set_robust_list",
    "set_tid_address",
    "getpriority",
    "setpriority",
    // signals of the process itself
    "alarm",
    "restart_syscall",
    "rt_sigaction",
    "rt_sigpending",
    "rt_sigprocmask",
    "rt_sigreturn",
    "rt_sigsuspend",
    "rt_sigtimedwait",
    "rt_sigtimedwait_time64",
    "setitimer",
    "sigaltstack",
    "sigreturn",
    // time and the system
    "clock_getres",
    "clock_getres_time64",
    "clock_gettime",
    "clock_gettime64",
    "clock_nanosleep",
    "clock_nanosleep_time64",
    "getpid",
    "getppid",
    "getrandom",
    "getrusage",
    "gettimeofday",
    "getegid",
    "geteuid",
    "getgid",
    "getuid",
    "nanosleep",
    "sysinfo",
    "time",
    "times",
    "uname",
    // open descriptors
    "close",
    "dup",
    "eventfd2",
    "fstat",
    "fstat64",
    "lseek",
    "_llseek",
    "poll",
    "ppoll",
    "ppoll_time64",
    "pread64",
    "pwrite64",
    "read",
    "readv",
    "recvmsg",
    "sendmsg",
    "write",
    "writev",
});

/// What only an attack or a mistake of ours would do. Everything that is in neither list, and with arguments
/// in no rule, fails with ENOSYS, as on a kernel without it.
constexpr auto fatal = std::to_array<const char*>({
    // start a program or a process
    "execve",
    "execveat",
    "fork",
    "vfork",
    // reach a file
    "open",
    "openat",
    "openat2",
    "open_by_handle_at",
    "creat",
    "link",
    "linkat",
    "symlink",
    "symlinkat",
    "mkdir",
    "mkdirat",
    "mknod",
    "mknodat",
    "rename",
    "renameat",
    "renameat2",
    "rmdir",
    "truncate",
    "unlink",
    "unlinkat",
    "chdir",
    "fchdir",
    "chroot",
    "pivot_root",
    "mount",
    "umount2",
    "chmod",
    "fchmodat",
    "chown",
    "lchown",
    "fchownat",
    "memfd_secret",
    // reach the network or another process
    "socket",
    "socketpair",
    "socketcall",
    "connect",
    "bind",
    "listen",
    "accept",
    "accept4",
    "sendto",
    "sendmmsg",
    "kill",
    "tkill",
    "rt_sigqueueinfo",
    "rt_tgsigqueueinfo",
    "pidfd_open",
    "pidfd_getfd",
    "pidfd_send_signal",
    "ptrace",
    "process_vm_readv",
    "process_vm_writev",
    "process_madvise",
    "kcmp",
    "shmget",
    "shmat",
    "semget",
    "msgget",
    "mq_open",
    // change the kernel or the rights of the process
    "bpf",
    "init_module",
    "finit_module",
    "delete_module",
    "io_uring_setup",
    "io_uring_enter",
    "kexec_load",
    "kexec_file_load",
    "keyctl",
    "add_key",
    "request_key",
    "perf_event_open",
    "personality",
    "pkey_mprotect",
    "quotactl",
    "reboot",
    "seccomp",
    "setns",
    "setuid",
    "setgid",
    "setresuid",
    "setresgid",
    "setgroups",
    "swapon",
    "swapoff",
    "unshare",
    "userfaultfd",
});

class Filter {
public:
    Filter() : m_context(seccomp_init(SCMP_ACT_ERRNO(ENOSYS)), seccomp_release) {
        // All threads, since the libraries have started some.
        m_isValid = m_context && seccomp_attr_set(m_context.get(), SCMP_FLTATR_CTL_TSYNC, 1) == 0;
    }

    void add(std::uint32_t action, const char* name, std::initializer_list<scmp_arg_cmp> arguments = {}) {
        const int number = seccomp_syscall_resolve_name(name);
        if (!m_isValid || number == __NR_SCMP_ERROR)
            return;
        const int error = seccomp_rule_add_array(m_context.get(), action, number,
                                                 static_cast<unsigned>(arguments.size()), arguments.begin());
        m_isValid = error == 0;
    }

    bool load() { return m_isValid && seccomp_load(m_context.get()) == 0; }

private:
    std::unique_ptr<void, decltype(&seccomp_release)> m_context;
    bool m_isValid = false;
};

scmp_arg_cmp argumentIs(unsigned index, std::uint64_t value) {
    return {.arg = index, .op = SCMP_CMP_EQ, .datum_a = value, .datum_b = 0};
}

scmp_arg_cmp hasBits(unsigned index, std::uint64_t mask, std::uint64_t bits) {
    return {.arg = index, .op = SCMP_CMP_MASKED_EQ, .datum_a = mask, .datum_b = bits};
}

/// Threads, but no processes. clone3 takes its flags in memory, which a filter cannot read; it fails with
/// ENOSYS, and the C library calls clone instead.
void addThreads(Filter& filter) {
    filter.add(SCMP_ACT_ALLOW, "clone", {hasBits(0, CLONE_THREAD, CLONE_THREAD)});
    filter.add(SCMP_ACT_KILL_PROCESS, "clone", {hasBits(0, CLONE_THREAD, 0)});
}

void addMemory(Filter& filter) {
    for (const auto* name : {"mmap", "mmap2", "mprotect"}) {
        filter.add(SCMP_ACT_ALLOW, name, {hasBits(2, PROT_EXEC, 0)});
        filter.add(SCMP_ACT_KILL_PROCESS, name, {hasBits(2, PROT_EXEC, PROT_EXEC)});
    }
}

/// Calls that are harmless with some arguments only.
void addByArgument(Filter& filter) {
    for (const auto command : {F_GETFD, F_SETFD, F_GETFL, F_DUPFD_CLOEXEC, F_ADD_SEALS, F_GET_SEALS}) {
        for (const auto* name : {"fcntl", "fcntl64"})
            filter.add(SCMP_ACT_ALLOW, name, {argumentIs(1, static_cast<std::uint64_t>(command))});
    }
    for (const auto option : {PR_SET_NAME, PR_GET_NAME, PR_SET_VMA})
        filter.add(SCMP_ACT_ALLOW, "prctl", {argumentIs(0, static_cast<std::uint64_t>(option))});
    constexpr std::uint64_t noNewLimit = 0;
    filter.add(SCMP_ACT_ALLOW, "prlimit64", {argumentIs(2, noNewLimit)});
    // A thread signals itself to abort.
    filter.add(SCMP_ACT_ALLOW, "tgkill", {argumentIs(0, static_cast<std::uint64_t>(getpid()))});
}

} // namespace

bool filterSystemCalls() {
    Filter filter;
    for (const auto* name : allowed)
        filter.add(SCMP_ACT_ALLOW, name);
    for (const auto* name : fatal)
        filter.add(SCMP_ACT_KILL_PROCESS, name);
    addThreads(filter);
    addMemory(filter);
    addByArgument(filter);
    return filter.load();
}

} // namespace korvane::Sandbox
