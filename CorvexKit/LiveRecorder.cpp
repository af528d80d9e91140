#include "CorvexKit/LiveRecorder.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

namespace tamba {
namespace {

constexpr int keysShown = 1200;  // milliseconds

QSize filmSize(const QWidget& window) {
    const QSize size = (QSizeF(window.size()) * window.devicePixelRatioF()).toSize();
    return {size.width() & ~1, size.height() & ~1};
}

/// What is worth showing of a key: those that do something, not those that write.
QString shownKeys(const QKeyEvent& event) {
    const int key = event.key();
    if (event.isAutoRepeat() || key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt ||
        key == Qt::Key_Meta || key == Qt::Key_AltGr || key == Qt::Key_unknown || key == 0)
        return {};
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool writes = !event.text().isEmpty() && event.text().front().isPrint();
    if (writes && !(modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) return {};
    return QKeySequence(QKeyCombination(modifiers, static_cast<Qt::Key>(key)))
        .toString(QKeySequence::PortableText)
        .replace(QLatin1Char('+'), QStringLiteral(" + "));
}

bool isFilmed(QObject& watched) {
    const auto* widget = qobject_cast<QWidget*>(&watched);
    return widget && !widget->window()->property("notFilmed").toBool();
}

}  // namespace

LiveRecorder::LiveRecorder(QWidget& window, const std::filesystem::path& film, QObject* parent)
    : QObject(parent), window_(window), size_(filmSize(window)) {
    encoder_ = std::make_unique<FilmEncoder>(film, size_);
    clock_.start();
    keysTimer_.setSingleShot(true);
    connect(&keysTimer_, &QTimer::timeout, this, [this] { marks_.keys.clear(); });
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &LiveRecorder::take);
    timer_.start(1000 / FrameTimes::framesPerSecond);
    qApp->installEventFilter(this);
    // Whoever quits while the film runs has shown what was to be shown.
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
        stop();
        try {
            if (encoder_) encoder_->wait();
        } catch (const DemoError&) {
            // Nobody is left to be told; nothing stays behind of it.
        }
    });
}

LiveRecorder::~LiveRecorder() = default;

int LiveRecorder::seconds() const { return static_cast<int>(last_ / FrameTimes::perSecond); }

int LiveRecorder::longestGapMilliseconds() const {
    return static_cast<int>(times_.longestGap() / FrameTimes::perMillisecond);
}

void LiveRecorder::setCaption(const QString& caption) {
    if (!timer_.isActive()) return;
    marks_.caption = caption.simplified();
    try {
        if (const auto cue = cues_.show(marks_.caption, last_)) encoder_->add(*cue);
    } catch (const DemoError& error) {
        fail(error);
    }
}

void LiveRecorder::take() {
    if (encoder_->isBehind()) return;
    marks_.pointer = QPointF(window_.mapFromGlobal(QCursor::pos()));
    try {
        last_ = times_.take(clock_.nsecsElapsed());
        encoder_->add(pictureOf(window_, size_, marks_), last_);
    } catch (const DemoError& error) {
        return fail(error);
    }
    if (seconds() != told_) emit progressed(told_ = seconds());
}

void LiveRecorder::stop() {
    if (!timer_.isActive()) return;
    timer_.stop();
    qApp->removeEventFilter(this);
    try {
        last_ = times_.take(clock_.nsecsElapsed());
        if (const auto cue = cues_.show({}, last_)) encoder_->add(*cue);
        encoder_->end(last_, [this] {
            QMetaObject::invokeMethod(
                this,
                [this] {
                    try {
                        encoder_->wait();
                        emit finished();
                    } catch (const DemoError& error) {
                        emit failed(error);
                    }
                },
                Qt::QueuedConnection);
        });
    } catch (const DemoError& error) {
        fail(error);
    }
}

void LiveRecorder::fail(const DemoError& error) {
    timer_.stop();
    qApp->removeEventFilter(this);
    encoder_.reset();
    emit failed(error);
}

bool LiveRecorder::eventFilter(QObject* watched, QEvent* event) {
    // Keys come this way before a shortcut can take them.
    if (event->type() == QEvent::ShortcutOverride && isFilmed(*watched)) {
        const QString keys = shownKeys(*static_cast<QKeyEvent*>(event));
        if (!keys.isEmpty()) {
            marks_.keys = keys;
            keysTimer_.start(keysShown);
        }
    }
    if (event->type() == QEvent::MouseButtonPress && isFilmed(*watched)) marks_.pressed = true;
    if (event->type() == QEvent::MouseButtonRelease) marks_.pressed = false;
    return false;
}

}  // namespace tamba
