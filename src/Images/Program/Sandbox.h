/// Takes from the process, for ever, what it does not need to compute with memory that it is given. Each
/// layer works alone; together they hold even if one has a defect:
///
/// - resource limits: memory, the number and size of files, no core dumps;
/// - no new privileges, and no access by other processes (PR_SET_DUMPABLE);
/// - Landlock without any permitted path or port, where the kernel has it;
/// - an allow-list of system calls (seccomp): opening a file or a socket, starting a program, tracing, and
/// new
///   executable memory end the process, and unknown calls fail with ENOSYS.
#pragma once

#include <cstdint>

namespace korvane::Sandbox {

/// In bytes.
struct Limits {
    /// Private memory that can be written, which is what decoders allocate. Writing HEIC needs most: 21 bytes
    /// a pixel, 6 GB for the largest picture; the rest is for its transparency, which is encoded beside it.
    std::uint64_t privateMemory = std::uint64_t(12) << 30;

    /// One file in shared memory: a picture of 1 GiB, or its file, with room to grow by doubling.
    std::uint64_t file = std::uint64_t(4) << 30;

    /// Open files: the socket, the standard three, and what one request needs; the rest is for libraries that
    /// hold some.
    std::uint64_t openFiles = 32;

    /// The address space, which also has the files of requests, libraries, and reserved but unused memory: 8
    /// MiB of stack and 64 MiB for allocation for each thread, of which computers with many processors run
    /// hundreds.
    std::uint64_t addressSpace = std::uint64_t(96) << 30;
};

/// Closes the process for all its threads. Returns whether all layers that the kernel must have are in force:
/// all but Landlock. In a build with sanitizers it does nothing and succeeds.
bool close(const Limits& limits);

/// No new privileges, and Landlock where the kernel has it, for all threads, of which the libraries' pools
/// have some. Returns whether it succeeded.
bool restrictThreads();

/// The filter of system calls, for all threads. Returns whether it is in force.
bool filterSystemCalls();

} // namespace korvane::Sandbox
