/// Makes the kernel refuse sockets to other computers, by a seccomp filter. It guards against every library
/// in the process; it is no sandbox for a process that an attacker controls.
#pragma once

#include <expected>
#include <string>

namespace korvane {

/// Whether the kernel refuses the process any network connection; otherwise the reason, for the user.
using NetworkClosure = std::expected<void, std::string>;

/// Installs the filter in all threads of the process at once; later threads and programs inherit it. From
/// then on `socket` and `socketpair` fail with EACCES for every family but AF_UNIX. So do the calls that
/// could obtain such a socket otherwise (`io_uring_setup`, `pidfd_getfd`), and all calls through the
/// processor's other interfaces (32-bit calls, x32). Open sockets are unaffected.
///
/// This cannot be undone. It includes that programs started from here gain no privileges by their files
/// (PR_SET_NO_NEW_PRIVS). It takes less than a millisecond. A failure leaves all threads without the filter.
NetworkClosure closeNetwork();

} // namespace korvane
