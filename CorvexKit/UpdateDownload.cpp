#include "CorvexKit/UpdateDownload.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <algorithm>
#include <fstream>
#include <system_error>
#include <utility>

namespace tamba {
namespace {

constexpr qint64 chunk = 1 << 18;
constexpr int mostRedirects = 5;

int milliseconds(std::chrono::milliseconds time) { return static_cast<int>(time.count()); }

int statusOf(const QNetworkReply& reply) { return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(); }

/// A validator that makes If-Range byte-exact (RFC 9110, 13.1.5); empty when the server gives none.
QByteArray tagOf(const QNetworkReply& reply) {
    const QByteArray tag = reply.rawHeader("ETag");
    return tag.startsWith('"') ? tag : reply.rawHeader("Last-Modified");
}

void forget(QNetworkReply* reply) {
    reply->disconnect();
    reply->abort();
    reply->deleteLater();
}

}  // namespace

QNetworkRequest updateRequest(const QUrl& url, const UpdateNetwork& network, const std::string& program) {
    QNetworkRequest request(url);
    request.setSslConfiguration(network.tls);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    // Sizes and hashes are of the bytes as they come.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setHeader(QNetworkRequest::UserAgentHeader, QString::fromStdString(program));
    request.setTransferTimeout(milliseconds(network.silence));
    return request;
}

QString networkProblem(const QNetworkReply& reply) {
    switch (reply.error()) {
        case QNetworkReply::SslHandshakeFailedError:
            return QStringLiteral("The server of the updates couldn’t prove who it is, so nothing was fetched.");
        case QNetworkReply::InsecureRedirectError:
        case QNetworkReply::ProtocolUnknownError:
            return QStringLiteral(
                "The server of the updates leads to a place that isn’t safe, so nothing was fetched.");
        case QNetworkReply::TooManyRedirectsError:
            return QStringLiteral("The server of the updates leads round in circles, so nothing was fetched.");
        default:
            return statusOf(reply) >= 400
                       ? QStringLiteral("The server of the updates doesn’t have what was asked for at the moment.")
                       : QStringLiteral("The server of the updates can’t be reached at the moment.");
    }
}

UpdateFetch::UpdateFetch(QNetworkAccessManager& manager, const QNetworkRequest& request, std::uint64_t limit,
                         const UpdateNetwork& network, QObject* parent)
    : QObject(parent), reply_(manager.get(request)) {
    const QString tooLong = QStringLiteral("The server of the updates sent more than a list of updates can be.");
    connect(reply_, &QNetworkReply::readyRead, this, [this, limit, tooLong] {
        bytes_ += reply_->read(static_cast<qint64>(limit) + 1 - bytes_.size());
        if (static_cast<std::uint64_t>(bytes_.size()) > limit) end(tooLong);
    });
    connect(reply_, &QNetworkReply::finished, this, [this, limit, tooLong] {
        bytes_ += reply_->readAll();
        if (reply_->error() != QNetworkReply::NoError) return end(networkProblem(*reply_));
        end(static_cast<std::uint64_t>(bytes_.size()) > limit ? tooLong : QString());
    });
    QTimer::singleShot(network.shortWait, reply_, [this] { end(networkProblem(*reply_)); });
}

void UpdateFetch::end(const QString& problem) {
    forget(reply_);
    deleteLater();
    if (problem.isEmpty())
        emit fetched(bytes_);
    else
        emit failed(problem);
}

UpdateDownload::UpdateDownload(QNetworkAccessManager& manager, Update update, std::string program,
                               std::filesystem::path file, UpdateNetwork network, Memory memory, UpdateDisk& disk,
                               QObject* parent)
    : QObject(parent),
      manager_(manager),
      update_(std::move(update)),
      program_(std::move(program)),
      file_(std::move(file)),
      network_(std::move(network)),
      memory_(std::move(memory)),
      disk_(disk) {
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &UpdateDownload::connectAnew);
    limit_.setSingleShot(true);
    connect(&limit_, &QTimer::timeout, this,
            [this] { fail(withName("took too long to fetch; what is here already stays for the next time.")); });
}

UpdateDownload::~UpdateDownload() {
    if (reply_) forget(reply_);
}

void UpdateDownload::start() {
    try {
        readFile();
    } catch (const std::system_error& error) {
        return failOnDisk(error.code());
    }
    limit_.start(network_.longWait);
    if (done_ == update_.file.size) return complete();
    connectAnew();
}

void UpdateDownload::readFile() {
    std::error_code error;
    const auto size = std::filesystem::file_size(file_, error);
    if (error || size > update_.file.size) return disk_.removeTree(file_);
    std::ifstream in(file_, std::ios::binary);
    QByteArray buffer(chunk, '\0');
    while (in.read(buffer.data(), buffer.size()), in.gcount() > 0) {
        hash_.addData(QByteArrayView(buffer.constData(), static_cast<qsizetype>(in.gcount())));
        done_ += static_cast<std::uint64_t>(in.gcount());
    }
}

void UpdateDownload::connectAnew() {
    QNetworkRequest request = updateRequest(QUrl(QString::fromStdString(update_.file.url)), network_, program_);
    const QByteArray tag = memory_.tag();
    if (done_ > 0 && !tag.isEmpty()) {
        request.setRawHeader("Range", "bytes=" + QByteArray::number(static_cast<qulonglong>(done_)) + '-');
        request.setRawHeader("If-Range", tag);
    }
    doneBefore_ = done_;
    headTaken_ = false;
    reply_ = manager_.get(request);
    // No faster than the disk takes it.
    reply_->setReadBufferSize(4 * chunk);
    connect(reply_, &QNetworkReply::readyRead, this, &UpdateDownload::takeBytes);
    connect(reply_, &QNetworkReply::finished, this, &UpdateDownload::ended);
}

bool UpdateDownload::takeHead() {
    if (std::exchange(headTaken_, true)) return true;
    const int status = statusOf(*reply_);
    if (status == 206) {
        const QByteArray wanted = "bytes " + QByteArray::number(static_cast<qulonglong>(done_)) + '-';
        const QByteArray whole = '/' + QByteArray::number(static_cast<qulonglong>(update_.file.size));
        const QByteArray range = reply_->rawHeader("Content-Range");
        if (range.startsWith(wanted) && range.endsWith(whole)) return true;
    } else if (status == 200) {
        const auto length = reply_->header(QNetworkRequest::ContentLengthHeader);
        if (length.isValid() && length.toULongLong() != update_.file.size) {
            drop();
            fail(withName("isn’t as long as announced, so it was thrown away."));
            return false;
        }
        drop();
        disk_.createFile(file_, UpdateDisk::Mode::plain);
        memory_.keepTag(tagOf(*reply_));
        return true;
    } else if (status != 416) {
        fail(networkProblem(*reply_));
        return false;
    }
    startOver();
    return false;
}

void UpdateDownload::takeBytes() {
    try {
        if (!takeHead()) return;
        while (reply_ && reply_->bytesAvailable() > 0) {
            const QByteArray bytes = reply_->read(chunk);
            if (bytes.isEmpty()) break;
            if (static_cast<std::uint64_t>(bytes.size()) > update_.file.size - done_) {
                drop();
                return fail(withName("is longer than announced, so it was thrown away."));
            }
            disk_.append(file_, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
            hash_.addData(bytes);
            done_ += static_cast<std::uint64_t>(bytes.size());
        }
    } catch (const std::system_error& error) {
        drop();
        return failOnDisk(error.code());
    }
    emit progressed();
}

void UpdateDownload::ended() {
    const bool answered = statusOf(*reply_) == 200 || statusOf(*reply_) == 206 || statusOf(*reply_) == 416;
    if (answered) {
        takeBytes();
        // Something went wrong in there, and is dealt with.
        if (!reply_) return;
    }
    if (done_ == update_.file.size) return complete();
    const bool final = !answered && (reply_->error() == QNetworkReply::SslHandshakeFailedError ||
                                     reply_->error() == QNetworkReply::InsecureRedirectError ||
                                     reply_->error() == QNetworkReply::ProtocolUnknownError ||
                                     reply_->error() == QNetworkReply::TooManyRedirectsError ||
                                     (statusOf(*reply_) >= 400 && statusOf(*reply_) < 500));
    fruitless_ = done_ > doneBefore_ ? 0 : fruitless_ + 1;
    if (final || fruitless_ >= network_.fruitless) return fail(networkProblem(*reply_));
    forget(std::exchange(reply_, nullptr));
    pause_.start(network_.pause);
}

void UpdateDownload::startOver() {
    drop();
    if (++fruitless_ >= network_.fruitless) return fail(networkProblem(*reply_));
    if (reply_) forget(std::exchange(reply_, nullptr));
    pause_.start(network_.pause);
}

void UpdateDownload::complete() {
    limit_.stop();
    if (reply_) forget(std::exchange(reply_, nullptr));
    const QByteArray sum = hash_.result();
    if (!std::equal(sum.begin(), sum.end(), update_.file.sha256.begin(), update_.file.sha256.end(),
                    [](char a, unsigned char b) { return static_cast<unsigned char>(a) == b; })) {
        drop();
        return fail(withName("isn’t what its makers signed, so it was thrown away."));
    }
    emit finished();
}

void UpdateDownload::fail(const QString& sentence) {
    limit_.stop();
    pause_.stop();
    if (reply_) forget(std::exchange(reply_, nullptr));
    emit failed(sentence);
}

void UpdateDownload::failOnDisk(const std::error_code& why) {
    fail(why == std::errc::no_space_on_device
             ? QStringLiteral("The disk has no room for ") + QString::fromStdString(update_.name) + QLatin1Char('.')
             : withName("can’t be kept on the disk: ") + QString::fromStdString(why.message()) + QLatin1Char('.'));
}

void UpdateDownload::drop() {
    hash_.reset();
    done_ = doneBefore_ = 0;
    memory_.keepTag({});
    try {
        disk_.removeTree(file_);
    } catch (const std::system_error&) {
        // It is overwritten or removed the next time.
    }
}

QString UpdateDownload::withName(const char* words) const {
    return QString::fromStdString(update_.name) + QLatin1Char(' ') + QString::fromUtf8(words);
}

}  // namespace tamba
