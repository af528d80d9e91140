#pragma once

#include "CorvexKit/UpdateInstallation.h"

#include <QCryptographicHash>
#include <QNetworkRequest>
#include <QObject>
#include <QPointer>
#include <QSslConfiguration>
#include <QTimer>

#include <chrono>
#include <functional>
#include <system_error>

class QNetworkAccessManager;
class QNetworkReply;

namespace tamba {

/// How to talk with the server of the updates.
struct UpdateNetwork {
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    std::chrono::milliseconds silence = std::chrono::seconds(30);   // after which a connection is given up
    std::chrono::milliseconds shortWait = std::chrono::minutes(1);  // for something small, all in all
    std::chrono::milliseconds longWait = std::chrono::hours(3);     // for a whole update
    std::chrono::milliseconds pause = std::chrono::seconds(5);      // before a connection is made anew
    int fruitless = 5;                                              // connections in a row that bring nothing
};

/// The way to the server: encrypted all along, nothing kept, nothing told but what is wanted.
[[nodiscard]] QNetworkRequest updateRequest(const QUrl& url, const UpdateNetwork& network, const std::string& program);
/// Why a reply failed, as a finished sentence.
[[nodiscard]] QString networkProblem(const QNetworkReply& reply);

/// Fetches something small; `done` gets its bytes, else the sentence why not. Longer than `limit` counts as failed.
class UpdateFetch : public QObject {
    Q_OBJECT

public:
    UpdateFetch(QNetworkAccessManager& manager, const QNetworkRequest& request, std::uint64_t limit,
                const UpdateNetwork& network, QObject* parent);

signals:
    void fetched(const QByteArray& bytes);
    void failed(const QString& sentence);

private:
    void end(const QString& problem);
    QNetworkReply* reply_;
    QByteArray bytes_;
};

/// Brings the file of an update to the disk, going on where an earlier connection, or an earlier run of the program,
/// broke off. What is not as announced does not stay.
class UpdateDownload : public QObject {
    Q_OBJECT

public:
    /// What the server called the file's state, kept from one run to the next so that no two states are mixed.
    struct Memory {
        std::function<QByteArray()> tag;
        std::function<void(const QByteArray&)> keepTag;
    };
    UpdateDownload(QNetworkAccessManager& manager, Update update, std::string program, std::filesystem::path file,
                   UpdateNetwork network, Memory memory, UpdateDisk& disk, QObject* parent);
    ~UpdateDownload() override;
    void start();
    [[nodiscard]] std::uint64_t done() const { return done_; }

signals:
    void progressed();
    /// The file is whole, and the one that was announced.
    void finished();
    void failed(const QString& sentence);

private:
    void readFile();
    void connectAnew();
    /// False when the reply is not what was asked for; `failed` was emitted then, or the next try is under way.
    [[nodiscard]] bool takeHead();
    void takeBytes();
    void ended();
    void startOver();
    void complete();
    void fail(const QString& sentence);
    void failOnDisk(const std::error_code& why);
    /// Throws nothing; the file is gone, and what was known of it.
    void drop();
    [[nodiscard]] QString withName(const char* words) const;

    QNetworkAccessManager& manager_;
    const Update update_;
    const std::string program_;
    const std::filesystem::path file_;
    const UpdateNetwork network_;
    const Memory memory_;
    UpdateDisk& disk_;
    QCryptographicHash hash_{QCryptographicHash::Sha256};
    QPointer<QNetworkReply> reply_;
    QTimer pause_, limit_;
    std::uint64_t done_ = 0;
    std::uint64_t doneBefore_ = 0;  // when the present connection was made
    int fruitless_ = 0;
    bool headTaken_ = false;
};

}  // namespace tamba
