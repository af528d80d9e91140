#include "Tamba/Background.h"

#include <QThread>

#include <utility>

namespace tamba {

Background::~Background() {
    cancel();
    if (thread_) thread_->wait();
}

void Background::start(Work work) {
    cancel();
    cancel_ = std::make_shared<std::atomic<bool>>(false);
    next_ = std::move(work);
    if (!thread_) begin();
}

void Background::begin() {
    const auto run = [this, work = std::exchange(next_, {}), flag = cancel_] {
        Done done = work(*flag);
        QMetaObject::invokeMethod(
            this,
            [this, flag, done = std::move(done)] {
                if (*flag) return;
                cancel_.reset();
                if (done) done();
            },
            Qt::QueuedConnection);
    };
    thread_ = QThread::create(run);
    thread_->setParent(this);
    connect(thread_, &QThread::finished, this, [this] {
        std::exchange(thread_, nullptr)->deleteLater();
        if (next_) begin();
    });
    thread_->start(QThread::LowPriority);
    if (thread_->isRunning() || thread_->isFinished()) return;
    // The system has no thread left.
    delete std::exchange(thread_, nullptr);
    run();
}

void Background::cancel() {
    next_ = {};
    if (!cancel_) return;
    *cancel_ = true;
    cancel_.reset();
}

}  // namespace tamba
