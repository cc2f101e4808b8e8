#include "Utilities/Images/ChildProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>

namespace korvane {

namespace {

constexpr pid_t none = -1;

/// What the new process does with its descriptors before the program begins.
class FileActions {
public:
    FileActions() : m_error(posix_spawn_file_actions_init(&m_actions)) {}

    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    ~FileActions() { posix_spawn_file_actions_destroy(&m_actions); }

    /// Leaves `socket` under another number, and the standard ones without a file. Returns an error number.
    int keepOnly(int socket, int number) {
        attempt(posix_spawn_file_actions_adddup2(&m_actions, socket, number));
        for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            attempt(posix_spawn_file_actions_addopen(&m_actions, standard, "/dev/null", O_RDWR, 0));
        attempt(posix_spawn_file_actions_addclosefrom_np(&m_actions, number + 1));
        return m_error;
    }

    const posix_spawn_file_actions_t* get() const { return &m_actions; }

private:
    void attempt(int error) {
        if (m_error == 0)
            m_error = error;
    }

    posix_spawn_file_actions_t m_actions{};
    int m_error;
};

/// Default actions and an empty mask for all signals, whatever the window's process has set.
class SignalDefaults {
public:
    SignalDefaults() {
        posix_spawnattr_init(&m_attributes);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&m_attributes, &signals);
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&m_attributes, &signals);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }

    SignalDefaults(const SignalDefaults&) = delete;
    SignalDefaults& operator=(const SignalDefaults&) = delete;

    ~SignalDefaults() { posix_spawnattr_destroy(&m_attributes); }

    const posix_spawnattr_t* get() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes{};
};

std::unexpected<std::error_code> failure(int error) {
    return std::unexpected(std::error_code(error, std::system_category()));
}

} // namespace

std::expected<ChildProcess, std::error_code>
ChildProcess::start(const std::string& program, const std::vector<std::string>& arguments, int socketNumber) {
    std::array<int, 2> sockets{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets.data()) != 0)
        return failure(errno);
    FileDescriptor ours(sockets[0]);
    const FileDescriptor theirs(sockets[1]);

    FileActions actions;
    if (const int error = actions.keepOnly(theirs.number(), socketNumber); error != 0)
        return failure(error);
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const auto& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    std::array<char*, 1> environment{};
    pid_t process = none;
    const SignalDefaults signals;
    const int error = posix_spawn(&process, program.c_str(), actions.get(), signals.get(), words.data(),
                                  environment.data());
    if (error != 0)
        return failure(error);
    return ChildProcess(process, std::move(ours));
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : m_process(std::exchange(other.m_process, none)), m_socket(std::move(other.m_socket)) {}

ChildProcess::~ChildProcess() {
    end();
}

int ChildProcess::end() {
    int status = 0;
    if (m_process == none)
        return status;
    kill(m_process, SIGKILL); // has no effect on a process that has ended
    while (waitpid(m_process, &status, 0) < 0 && errno == EINTR) {
    }
    m_process = none;
    return status;
}

} // namespace korvane
