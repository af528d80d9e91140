#include "CorvexKit/UpdateInstallation.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <system_error>

namespace tamba {
namespace {

volatile sig_atomic_t child = 0, asked = 0;

extern "C" void passOn(int signal) {
    asked = 1;
    if (child > 0) ::kill(child, signal);
}

constexpr int cannotStart = 127;

/// The open mark of a trial that nobody else watches; −1 when there is none. Locked until it is closed, also by the
/// version on trial, which inherits it.
int takeMark(const std::filesystem::path& mark) {
    const int number = ::open(mark.c_str(), O_RDONLY | O_NOFOLLOW);
    if (number < 0 || ::flock(number, LOCK_EX | LOCK_NB) == 0) return number;
    ::close(number);
    return -1;
}

/// Whether the file behind `number` still has this name.
bool isNamed(int number, const std::filesystem::path& path) {
    struct stat open, named;
    return ::fstat(number, &open) == 0 && ::lstat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

int waitFor(pid_t process) {
    int status = 0;
    while (::waitpid(process, &status, 0) < 0)
        if (errno != EINTR) return cannotStart;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

int UpdateInstallation::start(const std::vector<std::string>& arguments) const {
    const Path executable = root_ / "current" / "bin" / program_;
    std::vector<char*> words{const_cast<char*>(executable.c_str())};
    for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    ::execv(executable.c_str(), words.data());
    std::fprintf(stderr, "%s can’t be started: %s.\n", executable.c_str(),
                 std::generic_category().message(errno).c_str());
    return cannotStart;
}

int UpdateInstallation::tryOut(const Trial& trial, int mark, const std::vector<std::string>& arguments,
                               UpdateDisk& disk) const {
    disk.rename(root_ / "trial", root_ / "tried");
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) std::signal(signal, passOn);
    child = ::fork();
    if (child < 0) return start(arguments);
    if (child == 0) {
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) std::signal(signal, SIG_DFL);
        ::_exit(start(arguments));
    }
    const int status = waitFor(child);
    if (!isNamed(mark, root_ / "tried")) return status;
    // It ended in good order before it had a window (as after --version), or was asked to: nothing is known of it.
    if (status == 0 || asked) {
        disk.rename(root_ / "tried", root_ / "trial");
        return status;
    }
    goBack(trial, disk);
    return start(arguments);
}

int UpdateInstallation::launch(const std::vector<std::string>& arguments, UpdateDisk& disk) const {
    try {
        for (const char* name : {"tried", "trial"}) {
            const Path mark = root_ / name;
            const auto made = trial(mark);
            const int number = made ? takeMark(mark) : -1;
            if (number < 0 || !isNamed(number, mark)) continue;
            if (current() != made->version) disk.remove(mark);
            // Its trial ended without a word: with the computer, or by force.
            else if (mark.filename() == "tried")
                goBack(*made, disk);
            else
                return tryOut(*made, number, arguments, disk);
        }
    } catch (const std::system_error&) {
        // What can be started is started all the same.
    }
    return start(arguments);
}

}  // namespace tamba
