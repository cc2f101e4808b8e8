/// The filter cannot be removed, so each test installs it in a process of its own.

#include "Utilities/ClosedNetwork.h"

#include "support/SocketAttempts.h"

#include <gtest/gtest.h>

#include <netinet/in.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <filesystem>
#include <functional>
#include <latch>
#include <string>
#include <string_view>
#include <thread>

namespace korvane {
namespace {

/// The complaints of a process, one a line.
struct Complaints {
    std::string text{};

    template <typename Value>
    void expectEqual(const std::string& what, const Value& value, const Value& expected) {
        if (value != expected)
            text += what + "\n";
    }

    void expect(const std::string& what, bool holds) { expectEqual(what, holds, true); }
};

/// Runs `check` in another process and returns its complaints.
std::string complaintsOf(const std::function<void(Complaints&)>& check) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    const auto process = fork();
    if (process == 0) {
        Complaints complaints;
        check(complaints);
        const auto size = static_cast<ssize_t>(complaints.text.size());
        _exit(write(ends[1], complaints.text.data(), complaints.text.size()) == size ? 0 : 1);
    }
    close(ends[1]);
    std::string text;
    std::array<char, 4096> block{};
    for (ssize_t size = 0; (size = read(ends[0], block.data(), block.size())) > 0;)
        text.append(block.data(), static_cast<std::size_t>(size));
    close(ends[0]);
    int status = -1;
    waitpid(process, &status, 0);
    return status == 0 ? text : text + "the process fails";
}

/// 0, or the error number of a call whose result is -1.
int errorOf(long result) {
    return result == -1 ? errno : 0;
}

TEST(ClosedNetwork, RefusesEveryFamilyButTheLocalOne) {
    EXPECT_EQ(complaintsOf([](Complaints& complaints) {
                  complaints.expectEqual("an internet socket before", internetSocketError(), 0);
                  complaints.expect("closing", closeNetwork().has_value());
                  for (int family = 0; family < AF_MAX; ++family) {
                      const int expected = family == AF_UNIX ? 0 : EACCES;
                      std::array<int, 2> ends{};
                      const auto name = "family " + std::to_string(family);
                      for (const int type : {SOCK_STREAM, SOCK_DGRAM, SOCK_RAW})
                          complaints.expectEqual(name, socketError(family, type), expected);
                      complaints.expectEqual("a pair of " + name,
                                             errorOf(socketpair(family, SOCK_STREAM, 0, ends.data())),
                                             expected);
                  }
              }),
              "");
}

TEST(ClosedNetwork, AppliesToTheThreadsThatExistAndToLaterOnes) {
    EXPECT_EQ(complaintsOf([](Complaints& complaints) {
                  std::latch isStarted(1);
                  std::latch isClosed(1);
                  std::atomic<int> earlyError = 0;
                  std::atomic<int> laterError = 0;
                  std::jthread early([&] {
                      isStarted.count_down();
                      isClosed.wait();
                      earlyError = internetSocketError();
                  });
                  isStarted.wait();
                  complaints.expect("closing", closeNetwork().has_value());
                  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task"))
                      complaints.expectEqual(task.path(), filterState(task.path() / "status"),
                                             std::string("Seccomp 2"));
                  isClosed.count_down();
                  early.join();
                  std::jthread([&] { laterError = internetSocketError(); }).join();
                  complaints.expectEqual("the early thread", earlyError.load(), EACCES);
                  complaints.expectEqual("the later thread", laterError.load(), EACCES);
              }),
              "");
}

TEST(ClosedNetwork, OpenSocketsStayUsable) {
    EXPECT_EQ(complaintsOf([](Complaints& complaints) {
                  const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
                  complaints.expect("closing", closeNetwork().has_value());
                  sockaddr_in address{};
                  address.sin_family = AF_INET;
                  socklen_t size = sizeof address;
                  auto* const general = reinterpret_cast<sockaddr*>(&address);
                  complaints.expectEqual("bind", errorOf(bind(socket, general, size)), 0);
                  complaints.expectEqual("its name", errorOf(getsockname(socket, general, &size)), 0);
                  complaints.expect("its port", address.sin_port != 0);
              }),
              "");
}

TEST(ClosedNetwork, RefusesOtherWaysToASocket) {
    EXPECT_EQ(complaintsOf([](Complaints& complaints) {
                  constexpr long upperBit = 1L << 32;
                  complaints.expect("closing", closeNetwork().has_value());
                  for (const long family : {AF_UNIX | upperBit, AF_INET | upperBit})
                      complaints.expectEqual("a family of 33 bits",
                                             errorOf(syscall(SYS_socket, family, SOCK_DGRAM, 0)), EACCES);
                  complaints.expectEqual("io_uring_setup", errorOf(syscall(SYS_io_uring_setup, 1, nullptr)),
                                         EACCES);
                  complaints.expectEqual("pidfd_getfd", errorOf(syscall(SYS_pidfd_getfd, -1, 0, 0)), EACCES);
              }),
              "");
}

#if defined(__x86_64__)
TEST(ClosedNetwork, RefusesTheOtherInterfacesOfTheProcessor) {
    EXPECT_EQ(complaintsOf([](Complaints& complaints) {
                  complaints.expect("closing", closeNetwork().has_value());
                  constexpr long x32 = 0x4000'0000;
                  complaints.expectEqual("socket of x32",
                                         errorOf(syscall(x32 | SYS_socket, AF_INET, SOCK_DGRAM, 0)), EACCES);
                  long result = 359; // the number of socket among the 32-bit calls
                  asm volatile("int $0x80"
                               : "+a"(result)
                               : "b"(AF_INET), "c"(SOCK_DGRAM), "d"(0)
                               : "memory", "r8", "r9", "r10", "r11");
                  complaints.expectEqual("socket among the 32-bit calls", result, -long{EACCES});
              }),
              "");
}
#endif

} // namespace
} // namespace korvane
