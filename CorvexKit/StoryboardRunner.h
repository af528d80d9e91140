#pragma once

#include "CorvexKit/FrameTimes.h"
#include "CorvexKit/Storyboard.h"
#include "CorvexKit/VirtualTimers.h"
#include "CorvexKit/WindowPicture.h"

#include <QElapsedTimer>
#include <QImage>
#include <QObject>

#include <deque>
#include <functional>
#include <memory>

class QWidget;

namespace tamba {

/// The program that a storyboard plays in.
struct Stage {
    QWidget* window = nullptr;  ///< shown, and as large as it is to be
    /// The control that leads to a screen of this name; null when there is none.
    std::function<QWidget*(const QString& screen)> screenControl = {};
    /// Work off the main thread that the present picture waits for. The clock of the film stands still meanwhile.
    std::function<bool()> isBusy = {};
    /// Where timers are that belong to no widget.
    QObjectList timerOwners = {};
    QString folder = {};  ///< of the files that are dropped
};

/// What takes the frames and the captions. Both may throw a `DemoError`, which ends the film.
struct Reel {
    std::function<void(const QImage& frame, Ticks at)> frame;
    std::function<void(const Cue& cue)> cue;
};

/// Plays a storyboard on a program: moves a pointer, presses keys, drops files, and makes a picture for each 1/30
/// second of a clock that only the frames advance, so that none is missing however slow the machine is. Runs in the
/// event loop, also in those of dialogs that a step opens.
class StoryboardRunner : public QObject {
    Q_OBJECT

public:
    StoryboardRunner(Storyboard storyboard, Stage stage, Reel reel, QObject* parent = nullptr);
    ~StoryboardRunner() override;

    void start();
    /// Ends before the next frame, with `Code::cancelled`.
    void cancel();
    /// How long the film is so far.
    [[nodiscard]] Ticks length() const { return now_; }

signals:
    /// `step` of `count` begins.
    void progressed(int step, int count);
    /// The film is complete, or why not. Dialogs and menus that were open are closed.
    void finished();
    void failed(const tamba::DemoError& error);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void tick();
    void act();
    void end(const std::function<void()>& tell);
    void fail(const DemoError& error);
    void guarded(const std::function<void()>& work);
    [[nodiscard]] bool waits();
    [[nodiscard]] const StoryStep* next() const;

    /// False while the step's target is not there yet.
    [[nodiscard]] bool begin(const StoryStep& step);
    [[nodiscard]] bool clickOn(const StoryStep& step);
    void moveTo(const QPointF& goal);
    void type(const QString& text);
    void press(const StoryStep& step);
    void drop(const StoryStep& step);
    void pause(int frames) { beats_.resize(beats_.size() + static_cast<std::size_t>(frames)); }
    void then(std::function<void()> work) { beats_.push_back(std::move(work)); }

    Storyboard board_;
    Stage stage_;
    Reel reel_;
    std::unique_ptr<VirtualTimers> timers_;
    std::deque<std::function<void()>> beats_;  // one for each frame to come of the present step
    std::size_t step_ = 0;
    std::size_t told_ = 0;
    Ticks now_ = 0;
    int sought_ = 0;  // frames for which the next step's target was not there
    Marks marks_;
    QPointF hand_;  // where the pointer is, in the window
    bool held_ = false;
    CueTrack cues_;
    QElapsedTimer busy_;
    bool over_ = false;
};

}  // namespace tamba
