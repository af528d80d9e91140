#include "Tamba/StatementImport.h"

#include "Tamba/QtText.h"
#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Files.h"

#include <QThread>

#include <memory>

namespace tamba {

/// A file that was read, or the sentence why not.
struct StatementImport::Outcome {
    std::optional<StatementFile> file;
    QString problem;
};

StatementImport::StatementImport(AppModel& model, Prompts& prompts, QObject* parent)
    : QObject(parent), model_(model), prompts_(prompts) {
    // Files read for other books do not belong in these.
    connect(&model_, &AppModel::opened, this, &StatementImport::cancel);
}

StatementImport::~StatementImport() {
    for (QThread* thread : findChildren<QThread*>()) thread->wait();
}

void StatementImport::add(const std::vector<std::filesystem::path>& files) {
    if (files.empty() || model_.state() != AppModel::State::open) return;
    waiting_.insert(waiting_.end(), files.begin(), files.end());
    if (busy_) return;
    busy_ = true;
    // A sheet must not stand over a drop that is still going on.
    QMetaObject::invokeMethod(this, &StatementImport::next, Qt::QueuedConnection);
}

void StatementImport::cancel() {
    ++turn_;
    waiting_.clear();
    busy_ = false;
    emit readingEnded();
}

StatementImport::Outcome StatementImport::read(const std::filesystem::path& file) {
    try {
        if (Files::size(file).value_or(0) > BankImport::maximumBytes)
            throw BankImport::ImportError(BankImport::ImportError::Code::tooLarge);
        return {StatementFile::of(Files::read(file), file.filename().string()), {}};
    } catch (const FileError& error) {
        return {{}, tr("“%1” couldn’t be read: %2.").arg(toQt(file.filename()), toQt(std::string_view(error.what())))};
    } catch (const std::exception& error) {
        return {{}, toQt(std::string_view(error.what()))};
    }
}

void StatementImport::next() {
    if (waiting_.empty()) {
        busy_ = false;
        return;
    }
    const std::filesystem::path file = waiting_.front();
    waiting_.pop_front();
    constexpr std::size_t large = 1'000'000;
    if (Files::size(file).value_or(0) <= large) return take(read(file));
    const int turn = turn_;
    emit reading(toQt(file.filename()));
    if (turn != turn_) return;
    auto* thread = QThread::create([this, file, turn] {
        auto outcome = std::make_shared<Outcome>(read(file));
        QMetaObject::invokeMethod(
            this,
            [this, outcome, turn] {
                if (turn != turn_) return;
                emit readingEnded();
                take(*outcome);
            },
            Qt::QueuedConnection);
    });
    thread->setParent(this);
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start(QThread::LowPriority);
}

void StatementImport::take(const Outcome& outcome) {
    const int turn = turn_;
    if (outcome.file)
        ask(*outcome.file);
    else
        prompts_.alert(outcome.problem);
    if (turn == turn_) next();
}

void StatementImport::ask(const StatementFile& file) {
    const auto edit = prompts_.statement(model_.library(), file);
    if (!edit) return;
    QString sentence;
    const bool done = model_.perform(tr("Import Statement"), [&](Library library, Day) {
        Imported imported = importStatement(std::move(library), *edit);
        sentence = toQt(outcomeText(imported, edit->account));
        return std::move(imported.library);
    });
    if (done) emit imported(sentence);
}

}  // namespace tamba
