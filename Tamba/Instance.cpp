#include "Tamba/Instance.h"

#include "Tamba/QtText.h"
#include "TambaCore/Base/Files.h"

#include <QCryptographicHash>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>

namespace tamba {
namespace {

constexpr int patience = 2000;  // milliseconds; a program that is busy answers late, one that hangs never
constexpr qint64 longestMessage = 1 << 20;
const QByteArray taken = QByteArrayLiteral("taken\n");

QString socketOf(const std::filesystem::path& folder) {
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(Files::realPath(folder).string()), QCryptographicHash::Sha1);
    QString place = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (place.isEmpty()) place = QDir::tempPath();
    return place + QStringLiteral("/tamba-") + QString::fromLatin1(hash.toHex().left(20));
}

}  // namespace

Instance::Instance(QObject* parent) : QObject(parent) {}

Instance::~Instance() = default;

bool Instance::handOver(const std::filesystem::path& folder, const std::vector<std::filesystem::path>& files) {
    QLocalSocket socket;
    socket.connectToServer(socketOf(folder));
    if (!socket.waitForConnected(patience)) return false;
    QJsonArray paths;
    for (const auto& file : files) paths.append(toQt(file));
    socket.write(QJsonDocument(paths).toJson(QJsonDocument::Compact) + '\n');
    QByteArray answer;
    while (!answer.endsWith('\n') && socket.waitForReadyRead(patience)) answer += socket.readAll();
    return answer == taken;
}

void Instance::answerFor(const std::filesystem::path& folder) {
    const QString name = socketOf(folder);
    if (server_ && server_->fullServerName() == name) return;
    fallSilent();
    QLocalServer::removeServer(name);
    server_ = new QLocalServer(this);
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server_, &QLocalServer::newConnection, this, [this, server = server_] {
        while (QLocalSocket* socket = server->nextPendingConnection()) {
            connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QLocalSocket::readyRead, this, [this, socket] { take(*socket); });
            take(*socket);
        }
    });
    // Without a socket a second start finds the books locked and says so.
    (void)server_->listen(name);
}

void Instance::fallSilent() {
    delete server_;
    server_ = nullptr;
}

void Instance::take(QLocalSocket& socket) {
    if (socket.bytesAvailable() > longestMessage) return socket.abort();
    if (!socket.canReadLine()) return;
    std::vector<std::filesystem::path> files;
    for (const auto& path : QJsonDocument::fromJson(socket.readLine()).array())
        if (!path.toString().isEmpty()) files.push_back(toPath(path.toString()));
    socket.write(taken);
    socket.flush();
    emit startedAgain(files);
}

}  // namespace tamba
