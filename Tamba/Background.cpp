#include "Tamba/Background.h"

#include <QThread>

namespace tamba {

Background::~Background() {
    cancel();
    for (QThread* thread : findChildren<QThread*>()) thread->wait();
}

void Background::start(Work work) {
    cancel();
    cancel_ = std::make_shared<std::atomic<bool>>(false);
    auto* thread = QThread::create([this, work = std::move(work), flag = cancel_] {
        Done done = work(*flag);
        QMetaObject::invokeMethod(
            this,
            [this, flag, done = std::move(done)] {
                if (*flag) return;
                cancel_.reset();
                if (done) done();
            },
            Qt::QueuedConnection);
    });
    thread->setParent(this);
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start(QThread::LowPriority);
}

void Background::cancel() {
    if (!cancel_) return;
    *cancel_ = true;
    cancel_.reset();
}

}  // namespace tamba
