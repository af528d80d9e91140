#include "Tamba/AppModel.h"

#include "Tamba/QtText.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Recurring.h"
#include "TambaCore/Model/Changes.h"

#include <chrono>

namespace tamba {

using namespace std::chrono_literals;

AppModel::AppModel(std::function<Day()> today, QObject* parent)
    : QObject(parent), today_(std::move(today)), day_(today_()) {
    // A burst of edits is written once, soon after the last of them.
    saveTimer_.setSingleShot(true);
    saveTimer_.setInterval(400ms);
    connect(&saveTimer_, &QTimer::timeout, this, &AppModel::saveNow);
    dayTimer_.setInterval(1min);
    dayTimer_.setTimerType(Qt::VeryCoarseTimer);
    connect(&dayTimer_, &QTimer::timeout, this, &AppModel::lookAtDay);
    dayTimer_.start();
}

AppModel::~AppModel() { saveNow(); }

bool AppModel::open(const Path& folder, Expect expect) {
    if (!saveNow()) return false;
    load(folder, expect);
    return true;
}

void AppModel::load(const Path& folder, Expect expect) {
    // The lock of a folder that is opened again must be given back first.
    session_.reset();
    folder_ = folder;
    problem_.clear();
    library_ = Library();
    history_.clear();
    try {
        if (expect == Expect::books && !Files::exists(store().fileURL())) {
            state_ = State::missing;
            problem_ =
                tr("The books that were in %1 are not there any more. The folder may have been moved or renamed, "
                   "or its disk is not connected.")
                    .arg(toQt(folder));
        } else {
            session_ = std::make_unique<LibrarySession>(folder, LibrarySession::Access::write);
            new_ = !session_->loaded();
            library_ = new_ ? Library::make() : *session_->loaded();
            state_ = State::open;
        }
    } catch (const LockedError& error) {
        state_ = State::locked;
        problem_ = toQt(std::string_view(error.what()));
    } catch (const std::exception& error) {
        state_ = State::damaged;
        problem_ = toQt(std::string_view(error.what()));
    }
    setSaving(Saving::saved);
    day_ = today();
    emit opened();
    emit historyChanged();
    addDue();
}

void AppModel::lookAtDay() {
    if (today() == day_) return;
    day_ = today();
    if (state_ != State::open) return;
    addDue();
    emit dayChanged();
}

Library AppModel::withDue(Library library) const {
    return Recurring::addDue(std::move(library), today(), now()).library;
}

void AppModel::addDue() {
    if (state_ != State::open) return;
    auto [library, count] = Recurring::addDue(library_, today(), now());
    if (count == 0) return;
    // No step of its own: nobody took it, and taken back it would come again.
    install(std::move(library));
    emit noticed(count == 1 ? tr("1 recurring expense added") : tr("%1 recurring expenses added").arg(count));
}

bool AppModel::attempt(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::exception& error) {
        emit refused(toQt(std::string_view(error.what())));
        return false;
    }
}

bool AppModel::perform(const QString& title, const Action& action, Undo undo) {
    if (state_ != State::open) return false;
    return attempt([&] {
        Library after = action(library_, today());
        if (undo == Undo::beginsNewHistory)
            history_.clear();
        else if (after == library_)
            return;
        else
            history_.push(toStd(title), library_);
        install(std::move(after));
        emit historyChanged();
    });
}

void AppModel::install(Library library) {
    const Library before = std::exchange(library_, std::move(library));
    setSaving(Saving::pending);
    saveTimer_.start();
    emit changed(before, library_);
}

void AppModel::undo() {
    if (auto before = history_.undo(library_)) {
        install(withDue(std::move(*before)));
        emit historyChanged();
    }
}

void AppModel::redo() {
    if (auto after = history_.redo(library_)) {
        install(withDue(std::move(*after)));
        emit historyChanged();
    }
}

QString AppModel::undoTitle() const { return toQt(history_.undoTitle()); }
QString AppModel::redoTitle() const { return toQt(history_.redoTitle()); }

void AppModel::setSaving(Saving saving, const QString& problem) {
    const bool other = saving != saving_ || problem != saveProblem_;
    saving_ = saving;
    saveProblem_ = problem;
    if (other) emit savingChanged();
}

bool AppModel::saveNow() {
    saveTimer_.stop();
    if (state_ != State::open) return true;
    try {
        auto merge = saving_ == Saving::saved ? session_->takeInChange(library_) : session_->save(library_);
        setSaving(Saving::saved);
        if (merge && merge->merged) takeMerge(std::move(*merge));
        return true;
    } catch (const std::exception& error) {
        const bool first = saving_ != Saving::failed;
        setSaving(Saving::failed, toQt(std::string_view(error.what())));
        if (first) emit refused(saveProblem_);
        return false;
    }
}

void AppModel::takeMerge(LibrarySession::Saved merge) {
    // They wrote nothing that was not here.
    if (merge.library == library_ && merge.conflicts.empty()) return;
    MergeReport report{merge.library, library_, std::move(merge.theirs), std::move(merge.conflicts)};
    if (report.merged != library_) {
        // Steps from before would take the other machine's work away again.
        history_.clear();
        library_ = std::move(merge.library);
        emit changed(report.ours, library_);
        emit historyChanged();
    }
    if (report.conflicts.empty())
        emit noticed(tr("Changes made on another computer were brought in."));
    else
        emit conflicted(report);
}

bool AppModel::restore(const std::string& backup) {
    // Books that cannot go to their file, which may be why a backup is wanted, are kept beside it.
    if (!saveNow() && !attempt([this] { session_->keep(library_); })) return false;
    // Restoring takes the lock for itself.
    session_.reset();
    const bool restored = attempt([&] { (void)LibrarySession::restore(folder_, backup); });
    load(Path(folder_), Expect::anything);
    return restored;
}

std::vector<LibrarySession::Backup> AppModel::backups() const { return LibrarySession::backups(folder_); }

}  // namespace tamba
