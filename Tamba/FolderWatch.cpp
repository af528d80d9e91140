#include "Tamba/FolderWatch.h"

#include "Tamba/QtText.h"

#include <QApplication>

#include <chrono>

namespace tamba {

using namespace std::chrono_literals;

FolderWatch::FolderWatch(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
    settle_.setSingleShot(true);
    settle_.setInterval(300ms);
    connect(&settle_, &QTimer::timeout, this, &FolderWatch::look);
    connect(&watcher_, &QFileSystemWatcher::fileChanged, &settle_, qOverload<>(&QTimer::start));
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, &settle_, qOverload<>(&QTimer::start));
    connect(&model_, &AppModel::opened, this, &FolderWatch::follow);
    follow();
}

void FolderWatch::follow() {
    const QStringList before = watcher_.files() + watcher_.directories();
    if (!before.isEmpty()) watcher_.removePaths(before);
    if (model_.state() != AppModel::State::open) return;
    // What is not there yet is not watched; a new file shows in its folder.
    for (const auto& path : {model_.folder(), model_.store().fileURL()}) (void)watcher_.addPath(toQt(path));
}

void FolderWatch::look() {
    // What somebody is answering is not changed under the question.
    if (QApplication::activeModalWidget()) return settle_.start();
    model_.saveNow();
    // The name may stand for another file by now.
    follow();
}

}  // namespace tamba
