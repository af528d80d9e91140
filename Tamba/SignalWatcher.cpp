#include "Tamba/SignalWatcher.h"

#include <QSocketNotifier>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <csignal>

namespace tamba {
namespace {

// A signal handler sees nothing but globals, and may do little more than write.
std::atomic<int> writeEnd = -1;

void handle(int) {
    const char byte = 1;
    (void)!::write(writeEnd, &byte, 1);
}

void listen(void (*handler)(int)) {
    for (const int number : {SIGTERM, SIGINT}) std::signal(number, handler);
}

}  // namespace

SignalWatcher::SignalWatcher(QObject* parent) : QObject(parent) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends_) != 0) return;
    writeEnd = ends_[0];
    auto* notifier = new QSocketNotifier(ends_[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        (void)!::read(ends_[1], &byte, 1);
        emit endRequested();
    });
    listen(handle);
}

SignalWatcher::~SignalWatcher() {
    if (ends_[0] < 0) return;
    listen(SIG_DFL);
    writeEnd = -1;
    ::close(ends_[0]);
    ::close(ends_[1]);
}

}  // namespace tamba
