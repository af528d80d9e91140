#pragma once

#include "Tamba/AppModel.h"

#include <QFileSystemWatcher>
#include <QTimer>

namespace tamba {

/// Notices that somebody else has written the open books, a synchroniser say, and has the model look at them. The file
/// is replaced by renaming, so the folder is watched beside it; what comes in bursts is looked at once.
class FolderWatch : public QObject {
    Q_OBJECT

public:
    explicit FolderWatch(AppModel& model, QObject* parent = nullptr);

private:
    void follow();
    void look();

    AppModel& model_;
    QFileSystemWatcher watcher_;
    QTimer settle_;
};

}  // namespace tamba
