#include "TambaCore/Receipts/OwnProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string_view>

namespace tamba {
namespace {

/// Never comes back: nothing of the parent's (streams, statics, locks on files) may be ended twice.
[[noreturn]] void runChild(const std::function<std::string()>& work, int pipe) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    try {
        const std::string result = work();
        std::string_view rest = result;
        while (!rest.empty()) {
            const ssize_t written = ::write(pipe, rest.data(), rest.size());
            if (written < 0 && errno != EINTR) ::_exit(1);
            if (written > 0) rest.remove_prefix(static_cast<std::size_t>(written));
        }
    } catch (...) {
        ::_exit(1);
    }
    ::_exit(0);
}

/// Everything until the other end closes; nothing when it takes too long or grows past all bounds.
std::optional<std::string> readAll(int pipe, Deadline deadline, const std::atomic<bool>* cancel) {
    constexpr int look = 50;  // milliseconds between two looks at the clock
    constexpr std::size_t most = 100'000'000;
    std::string result, part(256 * 1024, '\0');
    while (!(cancel && *cancel) && result.size() < most && std::chrono::steady_clock::now() < deadline) {
        pollfd waiting{pipe, POLLIN, 0};
        if (::poll(&waiting, 1, look) < 1) continue;
        const ssize_t count = ::read(pipe, part.data(), part.size());
        if (count == 0) return result;
        if (count < 0 && errno != EINTR) break;
        if (count > 0) result.append(part, 0, static_cast<std::size_t>(count));
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> inOwnProcess(const std::function<std::string()>& work, Deadline deadline,
                                        const std::atomic<bool>* cancel) {
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC) != 0) return std::nullopt;
    const pid_t child = ::fork();
    if (child == 0) runChild(work, ends[1]);
    ::close(ends[1]);
    std::optional<std::string> result;
    if (child > 0) {
        result = readAll(ends[0], deadline, cancel);
        if (!result) ::kill(child, SIGKILL);
        int status = 0;
        while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
        }
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) result.reset();
    }
    ::close(ends[0]);
    return result;
}

}  // namespace tamba
