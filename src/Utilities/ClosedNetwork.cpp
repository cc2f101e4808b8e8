#include "Utilities/ClosedNetwork.h"

#include <fmt/format.h>

#include <seccomp.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <system_error>
#include <type_traits>
#include <utility>

namespace korvane {

namespace {

constexpr std::uint32_t refused = SCMP_ACT_ERRNO(EACCES);

struct FilterRelease {
    void operator()(scmp_filter_ctx filter) const { seccomp_release(filter); }
};

using Filter = std::unique_ptr<std::remove_pointer_t<scmp_filter_ctx>, FilterRelease>;

std::unexpected<std::string> failure(int error) {
    return std::unexpected(
        fmt::format("the filter cannot be installed ({})", std::generic_category().message(error)));
}

/// Processors on which one call, `socketcall`, does everything with sockets and takes its arguments in
/// memory, which a filter cannot read.
bool hidesFamilies() {
    return seccomp_syscall_resolve_name_arch(SCMP_ARCH_NATIVE, "socketcall") >= 0;
}

/// Adds the rules and installs them. Returns 0 or the error number of the first step that fails, negated.
int install(scmp_filter_ctx filter) {
    constexpr std::array<std::pair<scmp_filter_attr, std::uint32_t>, 2> attributes{{
        {SCMP_FLTATR_ACT_BADARCH, refused},
        {SCMP_FLTATR_CTL_TSYNC, 1}, // all threads; those of the display exist already
    }};
    for (const auto& [attribute, value] : attributes) {
        if (const int error = seccomp_attr_set(filter, attribute, value))
            return error;
    }
    // Compares all 64 bits, of which the kernel ignores the upper half, so no value slips through.
    const scmp_arg_cmp otherFamily{.arg = 0, .op = SCMP_CMP_NE, .datum_a = AF_UNIX, .datum_b = 0};
    for (const int call : {SCMP_SYS(socket), SCMP_SYS(socketpair)}) {
        if (const int error = seccomp_rule_add_array(filter, refused, call, 1, &otherFamily))
            return error;
    }
    for (const int call : {SCMP_SYS(io_uring_setup), SCMP_SYS(pidfd_getfd)}) {
        if (const int error = seccomp_rule_add_array(filter, refused, call, 0, nullptr))
            return error;
    }
    return seccomp_load(filter);
}

} // namespace

NetworkClosure closeNetwork() {
    if (hidesFamilies())
        return std::unexpected("the processor's interface for sockets cannot be filtered");
    const Filter filter(seccomp_init(SCMP_ACT_ALLOW));
    if (!filter)
        return failure(ENOMEM);
    if (const int error = install(filter.get()))
        return failure(-error);
    return {};
}

} // namespace korvane
