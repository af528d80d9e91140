#include "Tamba/ReceiptQueue.h"

#include "Tamba/QtText.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Receipts/ReceiptExpense.h"

namespace tamba {

/// How the reading of one file ended: with a result, an expense that holds it already, a sentence, or cancelled.
struct ReceiptQueue::Outcome {
    std::optional<ReceiptScanner::Result> result;
    bool held = false;
    QString problem;
};

ReceiptQueue::MakeScan ReceiptQueue::receiptReader() {
    return [] {
        auto reader = std::make_shared<ReceiptReader>();
        return [reader](const Path& file, DateOrder order, Day today, const std::atomic<bool>* cancel) {
            return ReceiptScanner::scan(*reader, file, order, today, cancel);
        };
    };
}

ReceiptQueue::ReceiptQueue(AppModel& model, MakeScan makeScan, QObject* parent)
    : QObject(parent), model_(model), worker_(new QObject), makeScan_(std::move(makeScan)) {
    worker_->moveToThread(&thread_);
    connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
    // Files read for other books do not belong in these.
    connect(&model_, &AppModel::opened, this, &ReceiptQueue::cancel);
    thread_.setObjectName(QStringLiteral("receipts"));
    thread_.start(QThread::LowPriority);
}

ReceiptQueue::~ReceiptQueue() {
    cancel_ = true;
    thread_.quit();
    thread_.wait();
}

void ReceiptQueue::add(const std::vector<Path>& files, Held held) {
    if (files.empty() || model_.state() != AppModel::State::open) return;
    for (const Path& file : files) waiting_.push_back({file, held});
    count_ += static_cast<int>(files.size());
    if (busy_) {
        emit progressed({}, done_, count_);
        return;
    }
    busy_ = true;
    next();
}

void ReceiptQueue::cancel() {
    if (!busy_) return;
    cancel_ = true;
    summary_.cancelled += static_cast<int>(waiting_.size());
    waiting_.clear();
}

void ReceiptQueue::next() {
    if (waiting_.empty()) {
        busy_ = false;
        cancel_ = false;
        done_ = count_ = 0;
        emit finished(std::exchange(summary_, {}));
        return;
    }
    const Job job = waiting_.front();
    waiting_.pop_front();
    cancel_ = false;
    emit progressed(toQt(job.file.filename()), done_, count_);
    // The reading thread gets values only: the books as they are now cost nothing to copy.
    const auto work = [this, job, library = model_.library(), store = model_.store(), today = model_.today(),
                       scan = scan_, make = makeScan_] {
        Outcome outcome;
        try {
            outcome.held = job.held == Held::handBack && ReceiptExpense::holding(library, store, job.file).has_value();
            if (!outcome.held) {
                if (!*scan) *scan = make();
                outcome.result = (*scan)(job.file, library.business.receiptDateOrder, today, &cancel_);
            }
        } catch (const ReceiptReader::Cancelled&) {
        } catch (const std::exception& error) {
            outcome.problem = toQt(std::string_view(error.what()));
        }
        QMetaObject::invokeMethod(
            this, [this, job, outcome = std::move(outcome)] { take(job, outcome); }, Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(worker_, work, Qt::QueuedConnection);
}

void ReceiptQueue::take(const Job& job, const Outcome& outcome) {
    ++done_;
    if (outcome.result && !cancel_)
        file(job.file, *outcome.result);
    else if (outcome.held)
        summary_.held.push_back(job.file);
    else if (!outcome.problem.isEmpty())
        summary_.failed.push_back({job.file, outcome.problem});
    else
        ++summary_.cancelled;
    if (outcome.result)
        for (const Path& temporary : outcome.result->temporary) try {
                Files::remove(temporary);
            } catch (const FileError&) {
                // The system clears its folder for temporary files by itself.
            }
    next();
}

void ReceiptQueue::file(const Path& file, const ReceiptScanner::Result& result) {
    std::optional<UUID> id;
    QString problem;
    const Expense blank = Expense::make(model_.today());
    model_.perform(tr("Add Receipt"), [&](Library library, Day today) {
        try {
            auto filed = ReceiptExpense::file(library, model_.store(), result, blank, today);
            id = filed.expenseID;
            return filed.library;
        } catch (const std::exception& error) {
            // One of many: named in the summary, the others go on.
            problem = toQt(std::string_view(error.what()));
            return library;
        }
    });
    if (id) {
        summary_.filed.push_back(*id);
        emit filed(*id);
    } else {
        summary_.failed.push_back({file, problem});
    }
}

}  // namespace tamba
