#pragma once

#include "CorvexKit/UpdateDownload.h"

#include <QObject>
#include <QUrl>

#include <functional>
#include <optional>

class QNetworkAccessManager;

/// Updates of the running program, from the first look to the switch when it quits:
///
///     UpdateService updates(configuration);
///     connect(&updates, &UpdateService::changed, …);   // show updates.status()
///     updates.setAllowed(true);                        // looks now, and once a day
///     …                                                // updates.download() when the person wants it
///     updates.confirm();                               // once the window has painted
///     application.exec();
///     updates.finish();                                // installs what is ready
///
/// Whatever comes from outside is refused with a sentence, and nothing of it stays on the disk.
namespace tamba {

struct UpdateConfiguration {
    UpdateContext context;
    QUrl feed;  // the signature is beside it, with ".sig" added
    /// None where a package manager owns the program: then it only tells of a new version.
    std::optional<UpdateInstallation> installation;
    std::filesystem::path folder;       // the service's own: what it remembers, and what it has fetched
    std::function<std::int64_t()> now;  // seconds since 1970
    UpdateNetwork network;
    UpdateDisk* disk = nullptr;  // null: the disk
};

struct UpdateStatus {
    enum class Stage {
        off,  // built without a feed or keys
        idle,
        checking,
        upToDate,
        offered,
        managed,  // offered, but by the package manager
        downloading,
        ready,  // installed when the program quits
        failed,
    };
    Stage stage = Stage::idle;
    QString sentence;
    QString name;                      // of the version offered, "Tamba 1.0.1"
    QString notes;                     // plain text
    std::uint64_t done = 0, size = 0;  // bytes, while downloading
};

class UpdateService : public QObject {
    Q_OBJECT

public:
    explicit UpdateService(UpdateConfiguration configuration, QObject* parent = nullptr);
    ~UpdateService() override;

    [[nodiscard]] const UpdateStatus& status() const { return status_; }
    /// Whether it may look by itself: now and once a day. Off at first.
    void setAllowed(bool allowed);
    /// Looks now. Nothing happens while it is at work, or something is ready.
    void check();
    /// Fetches what is offered.
    void download();
    /// Stops fetching; what is here stays for the next time.
    void cancel();
    /// The window of this version has appeared: its trial is over.
    void confirm();
    /// Installs what is ready. The program must end after it. What went wrong is told at the next start.
    void finish();

signals:
    void changed();

private:
    using Stage = UpdateStatus::Stage;
    void show(Stage stage, const QString& sentence);
    void fetchFeed();
    void judge(const QByteArray& feed, const QByteArray& signature);
    void offer(const UpdateJudgement& judgement);
    [[nodiscard]] std::filesystem::path file() const;
    [[nodiscard]] UpdateDisk& disk() { return configuration_.disk ? *configuration_.disk : disk_; }

    const UpdateConfiguration configuration_;
    UpdateDisk disk_;
    QNetworkAccessManager* manager_;
    UpdateDownload* download_ = nullptr;
    UpdateStatus status_;
    std::optional<Update> update_;
    QTimer daily_;
    std::int64_t lastLook_ = 0;
};

}  // namespace tamba
