#pragma once

#include <QObject>

namespace tamba {

/// Turns SIGTERM and SIGINT into a signal of the event loop, so that the books are saved before the program ends. One
/// at a time.
class SignalWatcher : public QObject {
    Q_OBJECT

public:
    explicit SignalWatcher(QObject* parent = nullptr);
    ~SignalWatcher() override;

signals:
    void endRequested();

private:
    int ends_[2] = {-1, -1};
};

}  // namespace tamba
