#include "CorvexKit/StoryboardRunner.h"

#include "CorvexKit/Hands.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace tamba {
namespace {

// In frames of 1/30 second.
constexpr int movement = 18, beforePress = 4, pressed = 5, afterClick = 10;
constexpr int perLetter = 2, afterTyping = 8, keysShown = 24, hovering = 24, patience = 60;
constexpr qint64 longestWork = 60'000;  // milliseconds

QString keysAsRead(const QKeySequence& keys) {
    return keys.toString(QKeySequence::PortableText).replace(QLatin1Char('+'), QStringLiteral(" + "));
}

QKeyCombination keyOf(char32_t letter) {
    if (letter < 0x20 || letter > 0x7E) return Qt::Key_unknown;
    return static_cast<Qt::Key>(QChar::toUpper(letter));
}

}  // namespace

StoryboardRunner::StoryboardRunner(Storyboard storyboard, Stage stage, Reel reel, QObject* parent)
    : QObject(parent), board_(std::move(storyboard)), stage_(std::move(stage)), reel_(std::move(reel)) {}

StoryboardRunner::~StoryboardRunner() = default;

void StoryboardRunner::start() {
    timers_ = std::make_unique<VirtualTimers>(stage_.timerOwners);
    qApp->installEventFilter(this);
    // A caret that blinks by the machine’s clock would be another one in each film.
    QApplication::setCursorFlashTime(0);
    hand_ = QPointF(stage_.window->width() * 0.6, stage_.window->height() * 0.6);
    // A caption that a film begins with is there from the first frame.
    for (; next() && next()->kind == StoryStep::Kind::caption; ++step_) (void)begin(*next());
    QMetaObject::invokeMethod(this, &StoryboardRunner::tick, Qt::QueuedConnection);
}

void StoryboardRunner::cancel() {
    if (over_) return;
    fail(DemoError(DemoError::Code::cancelled, QStringLiteral("The film was given up.")));
}

bool StoryboardRunner::eventFilter(QObject*, QEvent* event) {
    // Tool tips come by the machine’s clock as well.
    return event->type() == QEvent::ToolTip;
}

const StoryStep* StoryboardRunner::next() const { return step_ < board_.steps.size() ? &board_.steps[step_] : nullptr; }

bool StoryboardRunner::waits() {
    if (!stage_.isBusy || !stage_.isBusy()) {
        busy_.invalidate();
        return false;
    }
    if (!busy_.isValid()) busy_.start();
    const int line = next() ? next()->line : board_.steps.back().line;
    if (busy_.elapsed() > longestWork)
        throw stepError(DemoError::Code::step, line, QStringLiteral("the program was still at work after a minute."));
    return true;
}

void StoryboardRunner::guarded(const std::function<void()>& work) {
    if (over_) return;
    try {
        work();
    } catch (const DemoError& error) {
        fail(error);
    }
}

/// Each part is an event of its own, posted before any is carried out: a part may open a dialog, whose event loop then
/// goes on with the others.
void StoryboardRunner::tick() {
    guarded([this] {
        const bool showsWork = beats_.empty() && next() && next()->kind == StoryStep::Kind::waitUntilIdle;
        if (waits() && !showsWork) {
            QTimer::singleShot(5, this, &StoryboardRunner::tick);
            return;
        }
        if (beats_.empty() && !next()) {
            if (const auto cue = cues_.show({}, now_)) reel_.cue(*cue);
            return end([this] { emit finished(); });
        }
        // Not every platform hands the keys back when a dialog is closed.
        if (!QApplication::activeWindow()) Hands::foremost(*stage_.window).activateWindow();
        Marks marks = marks_;
        marks.pointer = hand_;
        marks.pressed = held_;
        reel_.frame(pictureOf(*stage_.window, board_.size, marks), now_);
        now_ += FrameTimes::perFrame;
        QMetaObject::invokeMethod(this, [this] { guarded([this] { timers_->advance(now_); }); }, Qt::QueuedConnection);
        QMetaObject::invokeMethod(this, [this] { guarded([this] { act(); }); }, Qt::QueuedConnection);
        // Work in the background is shown for as long as it takes.
        if (showsWork && busy_.isValid())
            QTimer::singleShot(1000 / FrameTimes::framesPerSecond, this, &StoryboardRunner::tick);
        else
            QMetaObject::invokeMethod(this, &StoryboardRunner::tick, Qt::QueuedConnection);
    });
}

void StoryboardRunner::act() {
    while (beats_.empty() && next()) {
        const StoryStep& step = *next();
        if (std::exchange(told_, step_ + 1) != step_ + 1)
            emit progressed(static_cast<int>(step_) + 1, static_cast<int>(board_.steps.size()));
        if (over_ || !begin(step)) return;
        sought_ = 0;
        ++step_;
    }
    if (beats_.empty()) return;
    const auto beat = std::move(beats_.front());
    beats_.pop_front();
    if (beat) beat();
}

bool StoryboardRunner::begin(const StoryStep& step) {
    switch (step.kind) {
        case StoryStep::Kind::go:
        case StoryStep::Kind::click:
        case StoryStep::Kind::choose:
            return clickOn(step);
        case StoryStep::Kind::type:
            type(step.text);
            return true;
        case StoryStep::Kind::press:
            press(step);
            return true;
        case StoryStep::Kind::drop:
            drop(step);
            return true;
        case StoryStep::Kind::wait:
            pause(FrameTimes::framesIn(step.milliseconds));
            return true;
        case StoryStep::Kind::waitUntilIdle:
            return !stage_.isBusy || !stage_.isBusy();
        case StoryStep::Kind::caption:
            if (const auto cue = cues_.show(step.text, now_)) reel_.cue(*cue);
            marks_.caption = step.text;
            return true;
    }
    return true;
}

bool StoryboardRunner::clickOn(const StoryStep& step) {
    std::optional<Hands::Target> target;
    if (step.kind == StoryStep::Kind::go) {
        if (QWidget* control = stage_.screenControl ? stage_.screenControl(step.text) : nullptr)
            target = Hands::onto(*control);
    } else
        target = step.kind == StoryStep::Kind::click ? Hands::control(*stage_.window, step.text)
                                                     : Hands::entry(*stage_.window, step.text);
    const bool there = target && target->widget->isVisible() && target->widget->isEnabled();
    if (!there) {
        // A click beside a menu or a list closes it.
        QWidget* popup = QApplication::activePopupWidget();
        if (popup && step.kind != StoryStep::Kind::choose) popup->close();
        if (++sought_ <= patience) return false;
        const QString what = step.kind == StoryStep::Kind::go ? QStringLiteral("there is no screen “%1”.")
                             : target                         ? QStringLiteral("“%1” cannot be clicked now.")
                                                              : QStringLiteral("there is no “%1” to be clicked.");
        throw stepError(DemoError::Code::step, step.line, what.arg(step.text));
    }
    const QPoint global = target->widget->mapToGlobal(target->at);
    moveTo(stage_.window->mapFromGlobal(global));
    pause(beforePress);
    then([this, global] {
        held_ = true;
        Hands::mouse(*stage_.window, global, Hands::Mouse::press, true);
    });
    pause(pressed);
    then([this, global] {
        held_ = false;
        Hands::mouse(*stage_.window, global, Hands::Mouse::release, false);
    });
    pause(afterClick);
    return true;
}

void StoryboardRunner::moveTo(const QPointF& goal) {
    for (int frame = 1; frame <= movement; ++frame)
        then([this, goal, from = hand_, part = static_cast<qreal>(frame) / movement] {
            hand_ = from + (goal - from) * (part * part * (3 - 2 * part));
            if (marks_.carried.isEmpty())
                Hands::mouse(*stage_.window, stage_.window->mapToGlobal(hand_).toPoint(), Hands::Mouse::move, false);
        });
}

void StoryboardRunner::type(const QString& text) {
    for (const char32_t letter : text.toUcs4()) {
        then([this, letter] { Hands::key(*stage_.window, keyOf(letter), QString::fromUcs4(&letter, 1)); });
        pause(perLetter - 1);
    }
    pause(afterTyping);
}

void StoryboardRunner::press(const StoryStep& step) {
    then([this, keys = step.keys] {
        marks_.keys = keysAsRead(keys);
        const QKeyCombination combination = keys[0];
        const bool plain = combination.keyboardModifiers() == Qt::NoModifier;
        Hands::key(*stage_.window, combination,
                   plain && combination.key() == Qt::Key_Space ? QStringLiteral(" ") : QString());
    });
    pause(keysShown);
    then([this] { marks_.keys.clear(); });
}

void StoryboardRunner::drop(const StoryStep& step) {
    const QString file = QDir(stage_.folder).absoluteFilePath(step.text);
    const QFileInfo info(file);
    if (!info.isFile())
        throw stepError(DemoError::Code::step, step.line, QStringLiteral("there is no file “%1”.").arg(step.text));
    const QPointF inside(stage_.window->width() * 0.56, stage_.window->height() * 0.5);
    hand_ = QPointF(stage_.window->width() - 4, stage_.window->height() * 0.8);
    marks_.carried = info.fileName();
    moveTo(inside);
    const auto refuse = [line = step.line] {
        throw stepError(DemoError::Code::step, line, QStringLiteral("nothing can be dropped here now."));
    };
    beats_[4] = [this, inside, file, refuse, move = beats_[4]] {
        move();
        if (!Hands::drag(*stage_.window, inside.toPoint(), file, Hands::Drag::enter)) refuse();
    };
    pause(hovering);
    then([this, inside, file, refuse] {
        marks_.carried.clear();
        if (!Hands::drag(*stage_.window, inside.toPoint(), file, Hands::Drag::drop)) refuse();
    });
}

void StoryboardRunner::end(const std::function<void()>& tell) {
    over_ = true;
    timers_.reset();
    qApp->removeEventFilter(this);
    // Nobody is there to close them, and their event loops keep the program from ending.
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    for (QPointer<QWidget> modal = QApplication::activeModalWidget(); modal && modal->close();)
        modal = QApplication::activeModalWidget();
    tell();
}

void StoryboardRunner::fail(const DemoError& error) {
    end([this, error] { emit failed(error); });
}

}  // namespace tamba
