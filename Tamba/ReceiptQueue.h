#pragma once

#include "Tamba/AppModel.h"
#include "TambaCore/Receipts/Receipts.h"

#include <QThread>

#include <atomic>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace tamba {

/// Reads dropped files on a thread of its own, one after the other, and files each as an expense in the books of that
/// moment. A file that fails is passed over and named in the summary; the others go on. A file whose bytes the books
/// already hold is not read but handed back in `Summary::held`, for a person to decide.
class ReceiptQueue : public QObject {
    Q_OBJECT

public:
    using Path = std::filesystem::path;
    using Scan =
        std::function<ReceiptScanner::Result(const Path&, DateOrder, Day today, const std::atomic<bool>* cancel)>;
    /// Called once, on the reading thread: what it returns may own an engine that belongs to one thread.
    using MakeScan = std::function<Scan()>;

    struct Failure {
        Path file;
        QString sentence;
    };
    struct Summary {
        std::vector<UUID> filed;
        std::vector<Failure> failed;
        std::vector<Path> held;
        int cancelled = 0;
    };

    explicit ReceiptQueue(AppModel& model, MakeScan makeScan = receiptReader(), QObject* parent = nullptr);
    ~ReceiptQueue() override;

    /// The recognition of the core.
    [[nodiscard]] static MakeScan receiptReader();

    enum class Held { handBack, addAgain };
    void add(const std::vector<Path>& files, Held held = Held::handBack);
    /// Ends the reading in progress and drops what waits. What was filed stays.
    void cancel();
    [[nodiscard]] bool isBusy() const { return busy_; }

signals:
    /// `done` of `count` files are through; `file` is being read now.
    void progressed(const QString& file, int done, int count);
    void filed(const tamba::UUID& expense);
    void finished(const tamba::ReceiptQueue::Summary& summary);

private:
    struct Job {
        Path file;
        Held held = Held::handBack;
    };
    struct Outcome;
    void next();
    void take(const Job& job, const Outcome& outcome);
    void file(const Path& file, const ReceiptScanner::Result& result);

    AppModel& model_;
    QThread thread_;
    QObject* worker_;  // lives on `thread_`
    std::shared_ptr<Scan> scan_ = std::make_shared<Scan>();
    MakeScan makeScan_;
    std::deque<Job> waiting_;
    std::atomic<bool> cancel_ = false;
    bool busy_ = false;
    int done_ = 0;
    int count_ = 0;
    Summary summary_;
};

}  // namespace tamba
