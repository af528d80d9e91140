#pragma once

#include "CorvexKit/FilmEncoder.h"
#include "CorvexKit/WindowPicture.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>

class QWidget;

namespace tamba {

/// Films what a person does in a window, up to 30 times a second, each picture with the time at which it was taken.
/// Where the machine is too slow, pictures are left out and the film keeps time. Given up when destroyed before it was
/// stopped.
class LiveRecorder : public QObject {
    Q_OBJECT

public:
    /// Throws a `DemoError` when the film cannot be begun.
    LiveRecorder(QWidget& window, const std::filesystem::path& film, QObject* parent = nullptr);
    ~LiveRecorder() override;

    /// Shows a caption from now on; without words the caption goes.
    void setCaption(const QString& caption);
    /// No more pictures; `finished` or `failed` follows.
    void stop();
    [[nodiscard]] int seconds() const;
    /// The longest time between two pictures so far.
    [[nodiscard]] int longestGapMilliseconds() const;

signals:
    void progressed(int seconds);
    void finished();
    void failed(const tamba::DemoError& error);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void take();
    void fail(const DemoError& error);

    QWidget& window_;
    QSize size_;
    Marks marks_;
    CueTrack cues_;
    LiveTimes times_;
    QElapsedTimer clock_;
    QTimer timer_;
    QTimer keysTimer_;
    Ticks last_ = 0;
    int told_ = -1;
    std::unique_ptr<FilmEncoder> encoder_;
};

}  // namespace tamba
