#include "CorvexKit/UpdateService.h"

#include <QNetworkAccessManager>
#include <QSettings>

#include <algorithm>
#include <system_error>
#include <utility>

namespace tamba {
namespace {

using Verdict = UpdateJudgement::Verdict;

constexpr std::int64_t day = 24 * 60 * 60;

const QString sequenceKey = QStringLiteral("sequence"), tagKey = QStringLiteral("tag"),
              tagOfKey = QStringLiteral("tagOf"), problemKey = QStringLiteral("problem");

QString toQt(const std::string& text) { return QString::fromStdString(text); }

/// What is remembered from one run to the next.
QSettings memory(const std::filesystem::path& folder) {
    return QSettings(toQt(folder / "updates.ini"), QSettings::IniFormat);
}

QString hex(const SHA256& sum) {
    return QString::fromLatin1(QByteArray(reinterpret_cast<const char*>(sum.data()), sum.size()).toHex());
}

bool isSafe(const QUrl& url) { return url.isValid() && url.scheme() == QLatin1String("https"); }

}  // namespace

UpdateService::UpdateService(UpdateConfiguration configuration, QObject* parent)
    : QObject(parent), configuration_(std::move(configuration)), manager_(new QNetworkAccessManager(this)) {
    if (!isSafe(configuration_.feed) || configuration_.context.keys.empty()) {
        status_ = {Stage::off, QStringLiteral("Updates are off: this copy was built without a place to get them from."),
                   {},         {},
                   0,          0};
        return;
    }
    daily_.setInterval(std::chrono::hours(1));
    connect(&daily_, &QTimer::timeout, this, [this] {
        // By the clock on the wall: a computer that slept looks when it wakes.
        if (const std::int64_t passed = configuration_.now() - lastLook_; passed >= day || passed < 0) check();
    });
    auto kept = memory(configuration_.folder);
    if (const QString problem = kept.value(problemKey).toString(); !problem.isEmpty()) {
        status_ = {Stage::failed, problem, {}, {}, 0, 0};
        kept.remove(problemKey);
    }
}

UpdateService::~UpdateService() = default;

void UpdateService::show(Stage stage, const QString& sentence) {
    status_.stage = stage;
    status_.sentence = sentence;
    emit changed();
}

void UpdateService::setAllowed(bool allowed) {
    if (status_.stage == Stage::off || allowed == daily_.isActive()) return;
    if (!allowed) return daily_.stop();
    daily_.start();
    check();
}

void UpdateService::check() {
    if (status_.stage == Stage::off || status_.stage == Stage::checking || status_.stage == Stage::downloading ||
        status_.stage == Stage::ready)
        return;
    lastLook_ = configuration_.now();
    update_.reset();
    show(Stage::checking, QStringLiteral("Looking for updates…"));
    fetchFeed();
}

void UpdateService::fetchFeed() {
    const auto fetch = [this](const QUrl& url, std::uint64_t limit) {
        const auto request = updateRequest(url, configuration_.network, configuration_.context.program);
        auto* fetch = new UpdateFetch(*manager_, request, limit, configuration_.network, this);
        connect(fetch, &UpdateFetch::failed, this, [this](const QString& sentence) { show(Stage::failed, sentence); });
        return fetch;
    };
    connect(fetch(configuration_.feed, longestFeed), &UpdateFetch::fetched, this,
            [this, fetch](const QByteArray& feed) {
                QUrl beside = configuration_.feed;
                beside.setPath(beside.path() + QStringLiteral(".sig"));
                connect(fetch(beside, longestSignature), &UpdateFetch::fetched, this,
                        [this, feed](const QByteArray& signature) { judge(feed, signature); });
            });
}

void UpdateService::judge(const QByteArray& feed, const QByteArray& signature) {
    auto kept = memory(configuration_.folder);
    const auto view = [](const QByteArray& bytes) {
        return std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    };
    const auto judgement = judgeFeed(view(feed), view(signature), configuration_.context, configuration_.now(),
                                     kept.value(sequenceKey).toULongLong());
    if (judgement.feed) kept.setValue(sequenceKey, QString::number(judgement.feed->sequence));
    switch (judgement.verdict) {
        case Verdict::newer:
            return offer(judgement);
        case Verdict::current:
        case Verdict::otherPlatform:
            return show(Stage::upToDate, toQt(judgement.sentence));
        default:
            return show(Stage::failed, toQt(judgement.sentence));
    }
}

void UpdateService::offer(const UpdateJudgement& judgement) {
    const std::string name = configuration_.context.program + ' ' + judgement.feed->version.text();
    status_.name = toQt(name);
    status_.notes = toQt(judgement.feed->notes);
    if (!configuration_.installation)
        return show(Stage::managed, toQt(judgement.sentence + " It comes with the updates of your system."));
    if (configuration_.installation->refused() == judgement.feed->version)
        return show(Stage::upToDate,
                    toQt(name + " didn’t start on this computer, so " + configuration_.context.present.text() +
                         " stays in use until a later version is out."));
    if (const auto current = configuration_.installation->current(); current && *current >= judgement.feed->version)
        return show(Stage::upToDate, toQt(name + " is installed; it is there when the program starts again."));
    update_ = Update{name, judgement.feed->version, *judgement.file};
    show(Stage::offered, toQt(judgement.sentence));
}

std::filesystem::path UpdateService::file() const { return configuration_.folder / "update.download"; }

void UpdateService::download() {
    if (status_.stage != Stage::offered || !update_) return;
    const auto folder = configuration_.folder;
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const QString sum = hex(update_->file.sha256);
    if (memory(folder).value(tagOfKey).toString() != sum) {
        // Of another file: what there is of it is no use.
        try {
            disk().removeTree(file());
        } catch (const std::system_error&) {
            // Then it is found to be another, and thrown away.
        }
    }
    const UpdateDownload::Memory remember{[folder] { return memory(folder).value(tagKey).toByteArray(); },
                                          [folder, sum](const QByteArray& tag) {
                                              auto kept = memory(folder);
                                              kept.setValue(tagKey, tag);
                                              kept.setValue(tagOfKey, sum);
                                          }};
    download_ = new UpdateDownload(*manager_, *update_, configuration_.context.program, file(), configuration_.network,
                                   remember, disk(), this);
    status_.size = update_->file.size;
    const QString fetching = QStringLiteral("Fetching ") + status_.name + QStringLiteral("…");
    connect(download_, &UpdateDownload::progressed, this, [this, fetching] {
        status_.done = download_->done();
        show(Stage::downloading, fetching);
    });
    connect(download_, &UpdateDownload::finished, this, [this] {
        std::exchange(download_, nullptr)->deleteLater();
        show(Stage::ready, status_.name + QStringLiteral(" is ready. It is installed when you quit."));
    });
    connect(download_, &UpdateDownload::failed, this, [this](const QString& sentence) {
        std::exchange(download_, nullptr)->deleteLater();
        show(Stage::failed, sentence);
    });
    show(Stage::downloading, fetching);
    download_->start();
}

void UpdateService::cancel() {
    if (!download_) return;
    delete std::exchange(download_, nullptr);
    show(Stage::offered, status_.name + QStringLiteral(" is available."));
}

void UpdateService::confirm() {
    if (!configuration_.installation) return;
    try {
        configuration_.installation->confirm(configuration_.context.present, disk());
    } catch (const std::system_error&) {
        // The mark stays, and with it the trial; nothing else depends on it.
    }
}

void UpdateService::finish() {
    if (status_.stage != Stage::ready || !update_) return;
    const auto archive = file();
    try {
        configuration_.installation->install(archive, *update_, disk());
    } catch (const UpdateError& error) {
        memory(configuration_.folder).setValue(problemKey, QString::fromUtf8(error.what()));
        show(Stage::failed, QString::fromUtf8(error.what()));
        // A whole file waits for the next time.
        if (error.code() != UpdateError::Code::altered && error.code() != UpdateError::Code::spoiled) return;
    }
    try {
        disk().removeTree(archive);
    } catch (const std::system_error&) {
        // It is thrown away with the next download.
    }
}

}  // namespace tamba
