#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QSslServer>
#include <QSslSocket>

#include <functional>
#include <optional>

namespace tamba::testing {

/// A small web server on this computer, encrypted, with a certificate made for it. It does as it is told, also what no
/// honest server does.
class Server : public QSslServer {
    Q_OBJECT

public:
    struct Answer {
        QByteArray body;
        QByteArray tag = "\"1\"";
        int status = 200;
        QByteArray location = {};
        bool ranges = true;
        qsizetype cutAfter = -1;     // bytes of the body that a connection gets at most; −1 for all
        bool mute = false;           // nothing is ever answered
        bool withoutLength = false;  // the end of the connection is the end of the body
    };
    struct Request {
        QByteArray path, range, ifRange;
    };

    explicit Server(const QSslConfiguration& configuration) {
        setSslConfiguration(configuration);
        connect(this, &QTcpServer::pendingConnectionAvailable, this, [this] {
            while (QTcpSocket* socket = nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(*socket); });
        });
        listen(QHostAddress::LocalHost);
    }
    [[nodiscard]] QString address(const QByteArray& path) const {
        return QStringLiteral("https://127.0.0.1:%1").arg(serverPort()) + QString::fromLatin1(path);
    }

    QMap<QByteArray, Answer> answers;
    QList<Request> requests;

private:
    static QByteArray header(const QByteArray& request, const QByteArray& name) {
        for (const QByteArray& line : request.split('\n'))
            if (line.toLower().startsWith(name + ':')) return line.mid(name.size() + 1).trimmed();
        return {};
    }

    void read(QTcpSocket& socket) {
        const QByteArray text = socket.property("text").toByteArray() + socket.readAll();
        socket.setProperty("text", text);
        if (!text.contains("\r\n\r\n")) return;
        socket.disconnect(this);
        const Request request{text.split(' ').value(1), header(text, "range"), header(text, "if-range")};
        requests.append(request);
        const Answer answer = answers.value(request.path, {{}, {}, 404});
        if (!answer.mute) reply(socket, request, answer);
    }

    static void reply(QTcpSocket& socket, const Request& request, const Answer& answer) {
        int status = answer.status;
        QByteArray body = answer.body, head;
        if (status == 200 && answer.ranges && request.range.startsWith("bytes=") && request.ifRange == answer.tag) {
            const qsizetype from = request.range.mid(6).chopped(1).toLongLong();
            const QByteArray size = QByteArray::number(body.size());
            head = "Content-Range: bytes " + QByteArray::number(from) + '-' + QByteArray::number(body.size() - 1) +
                   '/' + size + "\r\n";
            body = body.mid(from);
            status = 206;
        }
        if (!answer.withoutLength) head += "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
        if (!answer.tag.isEmpty()) head += "ETag: " + answer.tag + "\r\n";
        if (!answer.location.isEmpty()) head += "Location: " + answer.location + "\r\n";
        socket.write("HTTP/1.1 " + QByteArray::number(status) + " -\r\nConnection: close\r\n" + head + "\r\n");
        socket.write(answer.cutAfter < 0 ? body : body.left(answer.cutAfter));
        socket.disconnectFromHost();
        QObject::connect(&socket, &QTcpSocket::disconnected, &socket, &QObject::deleteLater);
    }
};

}  // namespace tamba::testing
