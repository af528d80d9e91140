#pragma once

#include "Tamba/History.h"
#include "Tamba/Rows/ConflictRows.h"
#include "TambaCore/Model/LibrarySession.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <memory>

namespace tamba {

/// Holds the one open `Library` value and its folder. Every change goes through `perform`: the value is replaced, the
/// old one kept for undo, the save scheduled, and the screens told "before, after"; they compare and refresh what
/// differs. Main thread only.
///
///     model.perform("Delete Expense", [id](Library l, Day) { return Expenses::remove(std::move(l), id); });
class AppModel : public QObject {
    Q_OBJECT

public:
    using Path = std::filesystem::path;
    using Action = std::function<Library(Library, Day today)>;

    /// `open`: the books may be changed. `damaged`: the file could not be read, and is never written until a backup is
    /// restored. `locked`: another Tamba has it. `missing`: the folder held books before and holds none now. `closed`:
    /// before `open`.
    enum class State { closed, open, damaged, locked, missing };
    /// What a folder is opened for. Where books were before, an empty folder is a disk that is not there or books that
    /// were moved, and nothing is begun in it.
    enum class Expect { anything, books };
    enum class Saving { saved, pending, failed };
    /// Whether a step can be taken back. What has moved files or left the program cannot, nor can anything before it.
    enum class Undo { possible, beginsNewHistory };

    explicit AppModel(std::function<Day()> today = Day::today, QObject* parent = nullptr);
    ~AppModel() override;

    /// Opens the books of a folder in place of the present ones, which are saved first. Never throws: `state()` and
    /// `problem()` tell how it went. False, with everything as it was, when the present books could not be saved.
    bool open(const Path& folder, Expect expect = Expect::anything);

    [[nodiscard]] State state() const { return state_; }
    /// The folder held no books when it was opened, and nobody has set any up since.
    [[nodiscard]] bool isNew() const { return state_ == State::open && new_ && !library_.onboarded; }
    /// The sentence for `damaged`, `locked` and `missing`.
    [[nodiscard]] const QString& problem() const { return problem_; }
    [[nodiscard]] const Path& folder() const { return folder_; }
    [[nodiscard]] const Library& library() const { return library_; }
    [[nodiscard]] LibraryStore store() const { return LibraryStore(folder_); }
    [[nodiscard]] Day today() const { return today_(); }

    /// Carries out one action of the user. A refusal of the core becomes `refused` with its sentence and leaves the
    /// books as they were; then, and when the books are not open, the result is false.
    bool perform(const QString& title, const Action& action, Undo undo = Undo::possible);
    /// Runs something that changes no books and hands a refusal of the core to `refused`.
    bool attempt(const std::function<void()>& work);

    void undo();
    void redo();
    [[nodiscard]] QString undoTitle() const;
    [[nodiscard]] QString redoTitle() const;

    /// Brings the books and their file together at once: saves what waits, and takes in what another machine has
    /// written meanwhile. Called also when the window comes to the front or the file changes. False when that failed.
    bool saveNow();
    [[nodiscard]] Saving saving() const { return saving_; }
    /// Why the last save failed; empty otherwise.
    [[nodiscard]] const QString& saveProblem() const { return saveProblem_; }
    [[nodiscard]] bool saveTimerRuns() const { return saveTimer_.isActive(); }

    /// Notices a new day: what is late by then, and the expenses that come again. Asked every minute, since timers
    /// stand still while a machine sleeps.
    void lookAtDay();

    /// The backups of the folder, newest first, also of damaged books.
    [[nodiscard]] std::vector<LibrarySession::Backup> backups() const;
    /// Puts a backup in place of the books, which are saved first; the present file is kept beside the backups. Begins
    /// a new history. False, with the books as they were, when one of the two cannot be written or read.
    bool restore(const std::string& backup);

signals:
    void changed(const tamba::Library& before, const tamba::Library& after);
    /// Other books, or the same in another state: nothing shown before is valid.
    void opened();
    void historyChanged();
    /// Midnight has passed while books are open.
    void dayChanged();
    void savingChanged();
    /// A finished sentence to be shown in an alert.
    void refused(const QString& sentence);
    /// A finished sentence for a passing notice.
    void noticed(const QString& sentence);
    /// Another computer's changes were brought in, and some touched the same things as those made here.
    void conflicted(const tamba::MergeReport& report);

private:
    void load(const Path& folder, Expect expect);
    void install(Library library);
    [[nodiscard]] Library withDue(Library library) const;
    void addDue();
    void setSaving(Saving saving, const QString& problem = {});
    void takeMerge(LibrarySession::Saved merge);

    std::function<Day()> today_;
    Path folder_;
    State state_ = State::closed;
    bool new_ = false;
    QString problem_;
    std::unique_ptr<LibrarySession> session_;
    Library library_;
    History history_;
    QTimer saveTimer_{this};
    QTimer dayTimer_;
    Day day_;
    Saving saving_ = Saving::saved;
    QString saveProblem_;
};

}  // namespace tamba
