#pragma once

#include <QObject>

#include <filesystem>
#include <vector>

class QLocalServer;
class QLocalSocket;

namespace tamba {

/// One running program for each folder of books: it listens on a socket of this user named after the folder's real
/// path. A second start hands its files over and ends, and the first comes to the front.
///
///     if (Instance::handOver(folder, files)) return 0;
class Instance : public QObject {
    Q_OBJECT

public:
    explicit Instance(QObject* parent = nullptr);
    ~Instance() override;

    /// True when a running program has taken the files. False where none runs or it does not answer in time.
    [[nodiscard]] static bool handOver(const std::filesystem::path& folder,
                                       const std::vector<std::filesystem::path>& files);
    /// Answers for this folder from now on, and no longer for the one before. Only for who holds the lock of the
    /// folder: what an ended program left of its socket is cleared away.
    void answerFor(const std::filesystem::path& folder);
    void fallSilent();

signals:
    /// Somebody started the program once more, with these files.
    void startedAgain(const std::vector<std::filesystem::path>& files);

private:
    void take(QLocalSocket& socket);

    QLocalServer* server_ = nullptr;
};

}  // namespace tamba
