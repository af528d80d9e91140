#include "Tamba/StatementImport.h"

#include "Tamba/QtText.h"
#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Files.h"

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
    background_.cancel();
    busy_ = false;
    emit workEnded();
}

StatementImport::Outcome StatementImport::read(const std::filesystem::path& file, const std::atomic<bool>* cancel) {
    try {
        if (Files::size(file).value_or(0) > BankImport::maximumBytes)
            throw BankImport::ImportError(BankImport::ImportError::Code::tooLarge);
        return {StatementFile::of(Files::read(file), file.filename().string(), cancel), {}};
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
    if (Files::size(file).value_or(0) <= large) return take(read(file, nullptr));
    const int turn = turn_;
    emit workBegan(tr("Reading %1").arg(toQt(file.filename())));
    if (turn != turn_) return;
    background_.start([this, file](const auto& cancel) -> Background::Done {
        try {
            auto outcome = std::make_shared<Outcome>(read(file, &cancel));
            return [this, outcome] {
                emit workEnded();
                take(std::move(*outcome));
            };
        } catch (const BankImport::Cancelled&) {
            return {};
        }
    });
}

void StatementImport::take(Outcome outcome) {
    const int turn = turn_;
    std::optional<StatementEdit> edit;
    if (outcome.file)
        edit = prompts_.statement(model_.library(), std::move(*outcome.file));
    else
        prompts_.alert(outcome.problem);
    if (turn != turn_) return;
    if (edit) return bring(std::move(*edit));
    next();
}

void StatementImport::bring(StatementEdit edit) {
    constexpr std::size_t few = 10'000;
    if (edit.lines.size() + model_.library().transactions.size() <= few) {
        install(edit, {}, nullptr);
        return next();
    }
    emit workBegan(tr("Comparing the lines with the books"));
    background_.start([this, edit = std::move(edit), before = model_.library()](const auto&) -> Background::Done {
        std::shared_ptr<Imported> ready;
        try {
            ready = std::make_shared<Imported>(importStatement(before, edit));
        } catch (const std::exception&) {
            // Thrown again, and told, where it is done once more.
        }
        return [this, edit, before, ready] {
            emit workEnded();
            install(edit, before, ready.get());
            next();
        };
    });
}

void StatementImport::install(const StatementEdit& edit, const Library& before, const Imported* ready) {
    QString sentence;
    const bool done = model_.perform(tr("Import Statement"), [&](Library library, Day) {
        // Somebody may have worked on while it was worked out.
        const bool holds = ready && library.transactions.sharesAllWith(before.transactions) &&
                           library.accounts.sharesAllWith(before.accounts);
        Imported imported = holds ? *ready : importStatement(library, edit);
        sentence = toQt(outcomeText(imported, edit.account));
        library.transactions = imported.library.transactions;
        library.accounts = imported.library.accounts;
        return library;
    });
    if (done) emit imported(sentence);
}

}  // namespace tamba
