#include "TambaCore/Documents/Recurring.h"
#include "TambaCore/Model/LibrarySession.h"
#include "TambaCore/Model/ModelsJSON.h"
#include "tests/support/Books.h"
#include "tests/support/TemporaryFolder.h"

#include <sys/wait.h>
#include <unistd.h>

namespace tamba {
namespace {

using testing::aLibrary;
using testing::anExpense;
using testing::contents;
using testing::TemporaryFolder;
using testing::write;

constexpr auto writing = LibrarySession::Access::write;

std::string asOpenedToday() { return "opened-" + Day::today().iso() + ".json"; }

/// Books open in a session, with an edit that waits, while another machine has saved one of its own.
struct TwoMachines {
    TemporaryFolder folder;
    LibraryStore elsewhere{folder.path()};
    LibrarySession session{(elsewhere.save(aLibrary()), folder.path()), writing};
    Library ours = with("ours");
    Library theirs = with("theirs");

    TwoMachines() { elsewhere.save(theirs); }
    [[nodiscard]] Library with(const char* vendor) const {
        Library library = *session.loaded();
        library.expenses.append(anExpense(vendor));
        return library;
    }
};

TEST(LibrarySession, keepsOthersOutOfAnOpenFolder) {
    const TemporaryFolder folder;
    {
        const LibrarySession first(folder.path(), writing);
        EXPECT_THROW(LibrarySession(folder.path(), writing), LockedError);
        std::filesystem::create_directory_symlink(folder.path(), folder / "link");
        EXPECT_THROW(LibrarySession(folder / "link", writing), LockedError) << "the same folder under another name";
        EXPECT_NO_THROW(LibrarySession(folder.path(), LibrarySession::Access::read));
        std::filesystem::remove(folder / "link");
    }
    const LibrarySession again(folder.path(), writing);
    EXPECT_TRUE(Files::names(folder.path()).empty()) << "the lock is not in the folder";
}

TEST(LibrarySession, keepsTheFileAsTheDayFoundIt) {
    const TemporaryFolder folder;
    const LibraryStore store(folder.path());
    Library library = aLibrary();
    store.save(library);
    const std::string evening = contents(store.fileURL());
    for (int i = 1; i <= 20; ++i)
        write(store.backupsFolder() / ("opened-2020-01-" + std::to_string(10 + i) + ".json"), "{}");
    for (int opening = 0; opening < 2; ++opening) {
        LibrarySession session(folder.path(), writing);
        library.expenses.append(anExpense());
        session.save(library);
    }
    EXPECT_EQ(contents(store.backupsFolder() / asOpenedToday()), evening);
    std::size_t kept = 0;
    for (const std::string& name : Files::names(store.backupsFolder())) kept += name.starts_with("opened-") ? 1 : 0;
    EXPECT_EQ(kept, 14u);
    const auto backups = LibrarySession::backups(folder.path());
    EXPECT_EQ(backups[0].name, "tamba-" + Day::today().iso() + ".json");
    EXPECT_EQ(backups[1].name, asOpenedToday());
    EXPECT_EQ(backups[1].kind, LibrarySession::Backup::Kind::opened);
}

TEST(LibrarySession, mergesWhatAnotherMachineSaved) {
    TwoMachines machines;
    auto& [folder, elsewhere, session, ours, theirs] = machines;

    const auto saved = session.save(ours);
    EXPECT_TRUE(saved.merged);
    EXPECT_TRUE(saved.conflicts.empty());
    EXPECT_EQ(saved.library.expenses.size(), 3u);
    EXPECT_EQ(elsewhere.load(), saved.library);
    EXPECT_FALSE(session.save(saved.library).merged) << "only once";

    elsewhere.save(saved.library);
    EXPECT_FALSE(session.takeInChange(saved.library)) << "the same books written anew are no change";
    theirs = saved.library;
    theirs.business.phone = "1";
    elsewhere.save(theirs);
    EXPECT_EQ(session.takeInChange(saved.library)->library, theirs);
    EXPECT_FALSE(session.takeInChange(theirs));
}

TEST(LibrarySession, anOlderFileTakesNothingAwayThatWasSavedHere) {
    TwoMachines machines;
    auto& [folder, elsewhere, session, ours, theirs] = machines;
    const Library found = *session.loaded();
    const UUID mine = ours.expenses.back().id;
    ours.clients.append(Client::make("New Client"));
    elsewhere.save(found);
    session.save(ours);

    // The other machine had not seen our expense yet when it saved its own.
    elsewhere.save(theirs);
    Library both = session.takeInChange(ours)->library;
    EXPECT_EQ(both.expenses.size(), 3u);
    EXPECT_EQ(elsewhere.load(), both) << "what the file lacked is in it again";

    // It has seen it now, as the client shows: what is missing was removed there.
    Library after = both;
    after.business.phone = "1";
    after.expenses.erase(indexOf(after.expenses, mine));
    elsewhere.save(after);
    both.business.email = "a@b.example";
    const Library merged = session.save(both).library;
    EXPECT_FALSE(find(merged.expenses, mine));
    EXPECT_EQ(merged.business.phone, "1");
    EXPECT_EQ(merged.business.email, "a@b.example");
}

TEST(LibrarySession, whatCameBackByUndoIsNotTakenAwayByAnotherMachine) {
    TwoMachines machines;
    auto& [folder, elsewhere, session, ours, theirs] = machines;
    session.save(ours);
    const UUID expense = ours.expenses.back().id;
    ASSERT_FALSE(ours.documents[0].payments.empty());
    Library without = ours;
    without.expenses.erase(without.expenses.size() - 1);
    without.documents.update(0, [](Document& document) { document.payments.clear(); });
    session.save(without);
    Library there = without;
    there.business.phone = "1";
    elsewhere.save(there);
    const Library merged = session.save(ours).library;
    EXPECT_EQ(merged.business.phone, "1");
    EXPECT_TRUE(find(merged.expenses, expense));
    EXPECT_EQ(merged.documents[0].payments, ours.documents[0].payments);
}

TEST(LibrarySession, whatAnotherMachineTakesAwayIsKeptAmongTheBackups) {
    TwoMachines machines;
    auto& [folder, elsewhere, session, ours, theirs] = machines;
    const Library found = *session.loaded();
    theirs.expenses = found.expenses;
    theirs.expenses.erase(0);
    elsewhere.save(theirs);
    EXPECT_TRUE(session.takeInChange(found)->library.expenses.empty());
    const auto backups = session.backups();
    const auto kept = std::find_if(backups.begin(), backups.end(), [](const LibrarySession::Backup& backup) {
        return backup.kind == LibrarySession::Backup::Kind::replaced;
    });
    ASSERT_NE(kept, backups.end());
    EXPECT_EQ(session.readBackup(kept->name), found);
}

TEST(LibrarySession, whatBothMachinesAddByThemselvesIsNoSignThatTheySawEachOther) {
    const TemporaryFolder folder;
    const LibraryStore elsewhere(folder.path());
    const Library found = aLibrary();  // its rent is due on 1 November
    elsewhere.save(found);
    LibrarySession session(folder.path(), writing);
    Library ours = found;
    ours.expenses.append(anExpense("ours"));
    session.save(ours);
    ours = Recurring::addDue(ours, {2026, 11, 2}, {}).library;
    session.save(ours);

    elsewhere.save(Recurring::addDue(found, {2026, 11, 2}, {}).library);
    EXPECT_EQ(session.takeInChange(ours)->library, ours);
}

TEST(LibrarySession, aSaveThatFailedAfterTheFileWasThereIsNotTakenForAnotherMachines) {
    const TemporaryFolder folder;
    const LibraryStore store(folder.path());
    store.save(aLibrary());
    LibrarySession session(folder.path(), writing);
    const Library found = *session.loaded();
    Library ours = found;
    ours.expenses.append(anExpense("ours"));
    Files::setObserver([](const char* operation) {
        if (std::string_view(operation) == "flush folder") throw FileError("Input/output error");
    });
    EXPECT_THROW(session.save(ours), StoreError);
    Files::setObserver(nullptr);
    ASSERT_EQ(store.load(), ours);

    // The step was taken back, and does not come again from the disk.
    EXPECT_FALSE(session.save(found).merged);
    EXPECT_EQ(store.load(), found);
}

TEST(LibrarySession, aFailedSaveFindsTheOtherMachinesChangeAgain) {
    TwoMachines machines;
    auto& [folder, elsewhere, session, ours, theirs] = machines;

    Files::setObserver([](const char* operation) {
        if (std::string_view(operation) == "write") throw FileError("No space left on device");
    });
    EXPECT_THROW(session.save(ours), StoreError);
    Files::setObserver(nullptr);
    EXPECT_EQ(elsewhere.load(), theirs);
    EXPECT_EQ(session.save(ours).library.expenses.size(), 3u);
}

TEST(LibrarySession, noticesAChangeThatCameInWhileItWasSaving) {
    const TemporaryFolder folder;
    const LibraryStore store(folder.path());
    store.save(aLibrary());
    LibrarySession session(folder.path(), writing);
    Library ours = *session.loaded();
    ours.expenses.append(anExpense("ours"));
    Library theirs = ours;
    theirs.expenses.append(anExpense("theirs"));
    bool came = false;
    Files::setObserver([&](const char* operation) {
        if (came || std::string_view(operation) != "flush folder") return;
        came = true;
        Files::writeAtomically(store.fileURL(), ModelsJSON::encode(theirs));
    });
    session.save(ours);
    Files::setObserver(nullptr);
    EXPECT_EQ(store.load(), theirs);
    const auto saved = session.save(ours);
    EXPECT_TRUE(saved.merged);
    EXPECT_EQ(saved.library.expenses.size(), 3u);
}

TEST(LibrarySession, locksAFolderThatIsYetToBeMadeUnderOneName) {
    const TemporaryFolder folder;
    const LibrarySession first(folder / "books/", writing);
    for (const char* name : {"books", "books/.", "other/../books"})
        EXPECT_THROW(LibrarySession(folder / name, writing), LockedError) << name;
    EXPECT_THROW(LibrarySession(std::filesystem::relative(folder / "books"), writing), LockedError);
}

TEST(LibrarySession, neverSavesOverBooksThatBecameUnreadable) {
    const TemporaryFolder folder;
    const LibraryStore store(folder.path());
    store.save(aLibrary());
    LibrarySession session(folder.path(), writing);
    write(store.fileURL(), "half a fil");
    try {
        session.save(*session.loaded());
        FAIL();
    } catch (const StoreError& error) {
        EXPECT_EQ(error.code(), StoreError::Code::unreadable);
    }
    EXPECT_EQ(contents(store.fileURL()), "half a fil");
}

}  // namespace
}  // namespace tamba
