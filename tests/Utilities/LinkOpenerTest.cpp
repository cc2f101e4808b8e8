#include "Utilities/LinkOpener.h"

#include "support/SocketAttempts.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {
namespace {

constexpr std::size_t maxLength = 65536;

/// An address of that length.
std::string addressOf(std::size_t length) {
    std::string address = "https://example.org/";
    address.append(length - address.size(), 'a');
    return address;
}

/// What the fake browser prints in a process that nothing restricts more than this one.
std::string opened(const std::string& address) {
    return "opened " + address + ", with internet sockets, " + filterState("/proc/self/status") +
           ", in its own session";
}

/// Runs `use` with an opener that searches programs in `folders`, and returns the lines that the browsers
/// print which it has started.
std::multiset<std::string> linesOf(const std::function<void(const LinkOpener&)>& use,
                                   const std::string& folders = KORVANE_FAKE_BROWSER) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    const std::string path = getenv("PATH");
    setenv("PATH", folders.c_str(), 1);
    const int output = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
    dup2(ends[1], STDOUT_FILENO);
    {
        const LinkOpener opener;
        dup2(output, STDOUT_FILENO);
        close(output);
        close(ends[1]);
        setenv("PATH", path.c_str(), 1);
        use(opener);
    }
    // The end of the pipe comes when the opener's process and all browsers have ended.
    std::string text;
    std::array<char, 4096> block{};
    for (ssize_t size = 0; (size = read(ends[0], block.data(), block.size())) > 0;)
        text.append(block.data(), static_cast<std::size_t>(size));
    close(ends[0]);
    std::multiset<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.insert(line);
    return lines;
}

/// The socket of the only opener in this process.
int socketOfOpener() {
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        const int descriptor = std::stoi(entry.path().filename());
        int type = 0;
        socklen_t size = sizeof type;
        if (getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &type, &size) == 0 && type == SOCK_SEQPACKET)
            return descriptor;
    }
    return -1;
}

TEST(LinkOpener, OpensOnlyWebAndMailAddresses) {
    struct Row {
        std::string address;
        bool isLink;
        bool isOpenable;
    };

    const std::vector<Row> rows = {
        {"https://example.org/a?b=%20&c#d", true, true},
        {"http://[::1]:8080/~a/(b);c='*'!$,+@", true, true},
        {"HTTPS://example.org", true, true},
        {"MailTo:a@example.org", true, true},
        {"https://example.org/a b", true, false},
        {"https://example.org/\"", true, false},
        {"https://example.org/\n", true, false},
        {"https://example.org/<a>", true, false},
        {"https://example.org/\\", true, false},
        {"https://example.org/`{|}^", true, false},
        {"https://example.org/ä", true, false},
        {std::string("https://example.org/\0", 21), true, false},
        {addressOf(maxLength), true, true},
        {addressOf(maxLength + 1), true, false},
        {"https:", false, false},
        {"https", false, false},
        {" https://example.org", false, false},
        {"ftp://example.org", false, false},
        {"file:///etc/passwd", false, false},
        {"javascript:alert(1)", false, false},
        {"--help", false, false},
        {"", false, false},
    };
    for (const auto& [address, isLink, isOpenable] : rows) {
        EXPECT_EQ(isWebOrMailLink(address), isLink) << address.substr(0, 80);
        EXPECT_EQ(isOpenableAddress(address), isOpenable) << address.substr(0, 80);
    }
}

TEST(LinkOpener, StartsTheBrowserForEachAddress) {
    EXPECT_EQ(linesOf([&](const LinkOpener& opener) {
                  EXPECT_TRUE(opener.open("https://example.org/a?b#c"));
                  EXPECT_TRUE(opener.open("mailto:a@example.org"));
                  EXPECT_TRUE(opener.open(addressOf(maxLength)));
              }),
              (std::multiset<std::string>{opened("https://example.org/a?b#c"), opened("mailto:a@example.org"),
                                          opened("65536 bytes")}));
}

TEST(LinkOpener, StartsAnotherProgramWhereXDGOpenIsMissing) {
    const auto folder = std::filesystem::path(testing::TempDir()) / ("links" + std::to_string(getpid()));
    const auto open = [](const LinkOpener& opener) { EXPECT_TRUE(opener.open("https://example.org")); };
    std::filesystem::create_directory(folder);
    std::filesystem::create_symlink(KORVANE_FAKE_BROWSER "/xdg-open", folder / "gio");
    EXPECT_EQ(linesOf(open, folder), std::multiset<std::string>{opened("open https://example.org")});
    std::filesystem::remove_all(folder);
    EXPECT_EQ(linesOf(open, folder), std::multiset<std::string>()) << "nothing is installed";
}

TEST(LinkOpener, DoesNotSendWhatItWouldNotOpen) {
    EXPECT_EQ(linesOf([](const LinkOpener& opener) {
                  for (const auto* address : {"file:///etc/passwd", "https://example.org/a b", "--help", ""})
                      EXPECT_FALSE(opener.open(address)) << address;
                  EXPECT_FALSE(opener.open(addressOf(maxLength + 1)));
              }),
              std::multiset<std::string>());
}

TEST(LinkOpener, ItsProcessChecksAgainAndGoesOn) {
    EXPECT_EQ(linesOf([](const LinkOpener& opener) {
                  const int socket = socketOfOpener();
                  for (const auto& message :
                       {std::string("file:///etc/passwd"), std::string("https://example.org/a b"),
                        std::string("--help"), std::string("https://example.org/\0x", 22),
                        addressOf(maxLength + 1), addressOf(2 * maxLength)}) {
                      EXPECT_EQ(send(socket, message.data(), message.size(), MSG_NOSIGNAL),
                                static_cast<ssize_t>(message.size()));
                  }
                  EXPECT_TRUE(opener.open("https://example.org"));
              }),
              std::multiset<std::string>{opened("https://example.org")});
}

TEST(LinkOpener, LeavesNoChild) {
    const LinkOpener opener;
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

} // namespace
} // namespace korvane
