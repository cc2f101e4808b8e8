/// The image program with defects to choose from, for tests of what contains them. An argument chooses one of
/// its start:
///
///     exits, not-isolated, only-landlock, silent, without-heic
///
/// and a file that begins with "misbehave:" and one of the names below chooses what it does instead of
/// reading it.

#include "Images/Program/Sandbox.h"
#include "Images/Program/Server.h"
#include "Images/Program/WarmUp.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <memory>
#include <string_view>
#include <thread>
#include <vector>

#include <arpa/inet.h>
#include <csignal>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace korvane {
namespace {

using ImageMessages::Reply;

constexpr int socketNumber = ImageMessages::socketNumber;
constexpr std::size_t pictureSide = 16;

volatile int sink = 0;

/// An answer to the request with a picture of 16 by 16 pixels, in memory of `bytes` bytes.
void replyWithPicture(const ImageServer::Request& request, std::size_t bytes,
                      std::uint32_t numberOffset = 0) {
    SharedBuffer buffer;
    buffer.resize(bytes);
    Reply reply{.number = request.record.number + numberOffset};
    reply.picture = {.width = pictureSide,
                     .height = pictureSide,
                     .channels = 1,
                     .bytesPerSample = 1,
                     .horizontalDPI = defaultDPI,
                     .verticalDPI = defaultDPI};
    ImageMessages::send(socketNumber, reply, {buffer.finish()});
}

void crash() {
    raise(SIGSEGV);
}

void spin() {
    for (;;)
        sink = sink + 1;
}

/// 16 GB, in pieces, so that no single one is refused for its size.
void allocate() {
    constexpr std::size_t pieceBytes = std::size_t(16) << 20, pieceCount = 1000;
    std::vector<std::unique_ptr<char[]>> pieces;
    for (std::size_t i = 0; i < pieceCount; ++i) {
        pieces.emplace_back(new char[pieceBytes]);
        std::memset(pieces.back().get(), 1, pieceBytes);
    }
}

/// The same in shared memory, which is not private.
void allocateShared() {
    std::vector<SharedBytes> pieces;
    for (;;) {
        SharedBuffer buffer;
        buffer.append(std::size_t(16) << 20, 'x');
        pieces.push_back(buffer.finish());
    }
}

void startProcess() {
    if (fork() == 0)
        _exit(0);
}

void startProgram() {
    execl("/bin/true", "true", nullptr);
}

bool canOpenFile() {
    return open("/etc/passwd", O_RDONLY | O_CLOEXEC) >= 0;
}

/// A thread that is older than the isolation, and tries to open a file when it is told to.
class OlderThread {
public:
    bool canOpenFile() {
        m_isTold = true;
        m_isTold.notify_all();
        m_thread.join();
        return m_could;
    }

private:
    std::atomic<bool> m_isTold = false;
    bool m_could = false;
    std::thread m_thread{[this] {
        m_isTold.wait(false);
        m_could = korvane::canOpenFile();
    }};
};

std::unique_ptr<OlderThread> olderThread;

/// Answers with a picture if any thread can open a file.
void openFile(const ImageServer::Request& request) {
    const bool thread = olderThread && olderThread->canOpenFile();
    if (thread || canOpenFile())
        replyWithPicture(request, pictureSide * pictureSide);
}

void openSocket() {
    sink = socket(AF_INET, SOCK_STREAM, 0);
}

void connectSocket() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(9);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    sink = connect(socketNumber, reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

void traceParent() {
    ptrace(PTRACE_ATTACH, getppid(), nullptr, nullptr);
}

void signalParent() {
    kill(getppid(), SIGTERM);
}

void makeExecutable() {
    mmap(nullptr, 4096, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
}

/// Writes through the mapping of a buffer until its end and beyond.
void writeBeyondBuffer() {
    auto* memory =
        static_cast<char*>(mmap(nullptr, 8192, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    munmap(memory + 4096, 4096);
    for (auto* byte = memory;; ++byte)
        *const_cast<volatile char*>(byte) = 1;
}

void replyWithWrongSize(const ImageServer::Request& request) {
    replyWithPicture(request, pictureSide * pictureSide - 1);
}

void replyWithWrongNumber(const ImageServer::Request& request) {
    replyWithPicture(request, pictureSide * pictureSide, 1);
}

void replyWithHalfAMessage(const ImageServer::Request& request) {
    const Reply reply{.number = request.record.number};
    sink = static_cast<int>(write(socketNumber, &reply, sizeof reply / 2));
}

/// A picture in memory that can still be changed.
void replyWithoutSeals(const ImageServer::Request& request) {
    const FileDescriptor memory(static_cast<int>(syscall(SYS_memfd_create, "unsealed", MFD_CLOEXEC)));
    sink = ftruncate(memory.number(), pictureSide * pictureSide);
    Reply reply{.number = request.record.number};
    reply.picture = {.width = pictureSide,
                     .height = pictureSide,
                     .channels = 1,
                     .bytesPerSample = 1,
                     .horizontalDPI = defaultDPI,
                     .verticalDPI = defaultDPI};
    iovec content{.iov_base = &reply, .iov_len = sizeof reply};
    std::array<char, CMSG_SPACE(sizeof(int))> control{};
    msghdr message{};
    message.msg_iov = &content;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    auto* part = CMSG_FIRSTHDR(&message);
    part->cmsg_level = SOL_SOCKET;
    part->cmsg_type = SCM_RIGHTS;
    part->cmsg_len = CMSG_LEN(sizeof(int));
    const int number = memory.number();
    std::memcpy(CMSG_DATA(part), &number, sizeof number);
    sendmsg(socketNumber, &message, 0);
}

/// Right answers without end, more than the socket holds.
void flood(const ImageServer::Request& request) {
    for (;;)
        replyWithPicture(request, pictureSide * pictureSide);
}

void stayedSilent() {
    for (;;)
        pause();
}

struct Defect {
    std::string_view name;
    void (*act)(const ImageServer::Request&);
};

template <void (*act)()>
void ignoring(const ImageServer::Request&) {
    act();
}

constexpr auto defects = std::to_array<Defect>({
    {"crash", ignoring<crash>},
    {"spin", ignoring<spin>},
    {"allocate-shared", ignoring<allocateShared>},
    {"allocate", ignoring<allocate>},
    {"fork", ignoring<startProcess>},
    {"execute", ignoring<startProgram>},
    {"open", openFile},
    {"socket", ignoring<openSocket>},
    {"connect", ignoring<connectSocket>},
    {"trace", ignoring<traceParent>},
    {"signal", ignoring<signalParent>},
    {"make-executable", ignoring<makeExecutable>},
    {"write-beyond", ignoring<writeBeyondBuffer>},
    {"wrong-size", replyWithWrongSize},
    {"wrong-number", replyWithWrongNumber},
    {"truncated", replyWithHalfAMessage},
    {"unsealed", replyWithoutSeals},
    {"flood", flood},
    {"silence", ignoring<stayedSilent>},
});

void misbehaveIfTold(const ImageServer::Request& request) {
    constexpr std::string_view mark = "misbehave:";
    if (request.record.fileBytes == 0 || request.descriptors.empty())
        return;
    std::array<char, 64> start{};
    const auto count = pread(request.descriptors[0].number(), start.data(), start.size(), 0);
    const std::string_view text(start.data(), static_cast<std::size_t>(std::max<ssize_t>(0, count)));
    if (!text.starts_with(mark))
        return;
    const auto* defect = std::ranges::find_if(
        defects, [&](const Defect& each) { return text.substr(mark.size()).starts_with(each.name); });
    if (defect != defects.end())
        defect->act(request);
}

int run(std::string_view defect) {
    // Less than the program's own: a test that allocates in vain should not slow down the computer.
    constexpr Sandbox::Limits limits{.privateMemory = std::uint64_t(512) << 20,
                                     .file = std::uint64_t(64) << 20};
    if (defect == "exits" || !ImageServer::isConnected(socketNumber) || !warmUpImageLibraries())
        return 1;
    if (defect == "only-landlock")
        olderThread = std::make_unique<OlderThread>();
    if (defect == "silent")
        stayedSilent();
    auto greeting = ImageServer::greeting();
    const bool isIsolated = defect == "only-landlock" ? Sandbox::restrictThreads()
                                                      : defect != "not-isolated" && Sandbox::close(limits);
    greeting.isIsolated = isIsolated ? 1 : 0;
    if (defect == "without-heic") {
        const auto others = ~(1U << static_cast<unsigned>(ImageFormat::heic));
        greeting.decodable &= others;
        greeting.encodable &= others;
    }
    if (!ImageMessages::send(socketNumber, greeting) || greeting.isIsolated == 0)
        return 1;
    ImageServer::serve(socketNumber, misbehaveIfTold);
    return 0;
}

} // namespace
} // namespace korvane

int main(int argc, char* argv[]) {
    return korvane::run(argc > 1 ? argv[1] : "");
}
