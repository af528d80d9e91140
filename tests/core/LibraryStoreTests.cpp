#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/LibrarySession.h"
#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Model/ModelsJSON.h"
#include "tests/support/Books.h"
#include "tests/support/Refusal.h"
#include "tests/support/TemporaryFolder.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tamba {
namespace {

using testing::aLibrary;
using testing::contents;
using testing::refusal;
using testing::TemporaryFolder;
using testing::write;

using Code = StoreError::Code;

std::string todaysBackup() { return "tamba-" + Day::today().iso() + ".json"; }

TEST(LibraryStore, anEmptyFolderHoldsNoBooksAndStaysEmpty) {
    const TemporaryFolder folder;
    const LibraryStore store(folder / "books");
    EXPECT_FALSE(store.load());
    EXPECT_FALSE(Files::exists(store.folder()));
}

TEST(LibraryStore, theFirstSaveOfADayIsItsBackup) {
    const TemporaryFolder folder;
    const LibraryStore store(folder / "a/b/books");
    Library library = aLibrary();
    store.save(library);
    const std::string first = contents(store.fileURL());
    library.business.name = "Other";
    store.save(library);
    EXPECT_EQ(store.load(), library);
    EXPECT_EQ(Files::names(store.backupsFolder()), std::vector{todaysBackup()});
    EXPECT_EQ(contents(store.backupsFolder() / todaysBackup()), first);
    EXPECT_TRUE(Files::exists(store.receiptsFolder()) && Files::exists(store.invoicesFolder()) &&
                Files::exists(store.assetsFolder()));
}

TEST(LibraryStore, keepsFourteenBackupsAndStrangersFiles) {
    const TemporaryFolder folder;
    const LibraryStore store(folder.path());
    for (int day = 1; day <= 15; ++day)
        write(store.backupsFolder() /
                  ("tamba-2020-01-" + std::string(day < 10 ? "0" : "") + std::to_string(day) + ".json"),
              "x");
    write(store.backupsFolder() / "mine.json", "x");
    store.save(aLibrary());
    const auto names = Files::names(store.backupsFolder());
    EXPECT_EQ(names.size(), 15u);
    EXPECT_EQ(names.front(), "mine.json");
    EXPECT_EQ(names[1], "tamba-2020-01-03.json");
    EXPECT_EQ(names.back(), todaysBackup());
}

TEST(LibraryStore, aFolderThatCannotBeWrittenIsAFinishedSentence) {
    const TemporaryFolder folder;
    write(folder / "file", "x");
    try {
        LibraryStore(folder / "file/books").save(aLibrary());
        FAIL();
    } catch (const StoreError& error) {
        EXPECT_EQ(error.code(), Code::unwritable);
        EXPECT_STREQ(error.what(), "Tamba couldn’t save: Not a directory.");
    }
}

TEST(LibraryStore, aFolderThatCannotBeReachedIsNoNewBook) {
    const TemporaryFolder folder;
    std::filesystem::create_directory_symlink(folder / "loop", folder / "loop");
    for (const auto& unreachable : {folder / "loop", folder / std::string(300, 'x')}) {
        const LibraryStore store(unreachable);
        EXPECT_EQ(refusal<StoreError>([&] { return store.load(); }), Code::unreadable);
        EXPECT_EQ(refusal<StoreError>([&] { store.save(aLibrary()); }), Code::unwritable);
        EXPECT_EQ(refusal<StoreError>([&] { store.copyTo(folder / "copy"); }), Code::unwritable);
        using Access = LibrarySession::Access;
        EXPECT_EQ(refusal<StoreError>([&] { LibrarySession(unreachable, Access::read); }), Code::unreadable);
        EXPECT_TRUE(refusal<StoreError>([&] { LibrarySession(unreachable, Access::write); }));
    }
}

TEST(LibraryStore, filesReceiptsByMonthUnderFreeNames) {
    const TemporaryFolder folder;
    const LibraryStore store(folder / "books");
    const Day day{2026, 4, 14};
    write(folder / "IMG 1.JPG", "one");
    write(folder / "scan", "two");
    write(folder / "odd.j p\ng", "three");
    const std::string syllables = [] {
        std::string text;
        for (int i = 0; i < 40; ++i) text += "क्षि";
        return text;
    }();
    const struct {
        const char* file;
        std::string vendor, path;
    } cases[] = {
        {"IMG 1.JPG", "Chai Point", "Receipts/2026-04/2026-04-14-chai-point.jpg"},
        {"IMG 1.JPG", "Chai Point", "Receipts/2026-04/2026-04-14-chai-point-2.jpg"},
        {"IMG 1.JPG", "Chai Point", "Receipts/2026-04/2026-04-14-chai-point-3.jpg"},
        {"IMG 1.JPG", "", "Receipts/2026-04/2026-04-14-img-1.jpg"},
        {"scan", "../../etc/passwd", "Receipts/2026-04/2026-04-14-etc-passwd.dat"},
        {"odd.j p\ng", "a\nb", "Receipts/2026-04/2026-04-14-a-b.jpg"},
    };
    for (const auto& c : cases) {
        const std::string path = store.importReceipt(folder / c.file, day, c.vendor);
        EXPECT_EQ(path, c.path);
        EXPECT_EQ(contents(store.folder() / path), contents(folder / c.file));
    }
    EXPECT_TRUE(Files::exists(folder / "IMG 1.JPG")) << "copied, never moved";

    (void)store.importReceipt(folder / "scan", day, syllables);
    const std::string second = store.importReceipt(folder / "scan", day, syllables);
    const std::string name = std::filesystem::path(second).filename().string();
    EXPECT_LE(name.size(), 255u);
    EXPECT_TRUE(name.ends_with("क्षि-2.dat")) << "cut between characters: " << name;

    std::filesystem::create_symlink(folder / "absent", folder / "leads nowhere");
    for (const char* name : {"absent", "leads nowhere"})
        EXPECT_EQ(refusal<StoreError>([&] { return store.importReceipt(folder / name, day, "x"); }), Code::notAFile)
            << name;
    EXPECT_EQ(store.writeAttachment("bytes", "../Facture n°7.pdf", day), "Receipts/2026-04/2026-04-14-facture-n-7.pdf");
    EXPECT_EQ(contents(store.folder() / "Receipts/2026-04/2026-04-14-facture-n-7.pdf"), "bytes");
}

TEST(LibraryStore, slugsAreFileNamesInAnyScript) {
    const std::pair<std::string, std::string> cases[] = {
        {"Café Coffee Day!", "café-coffee-day"},
        {"***", "receipt"},
        {"", "receipt"},
        {"--a  &  b--", "a-b"},
        {"हिन्दी भवन", "हिन्दी-भवन"},
        {std::string(60, 'x'), std::string(40, 'x')},
        {std::string(39, 'x') + " y", std::string(39, 'x') + "-"},
    };
    for (const auto& [vendor, slug] : cases) EXPECT_EQ(LibraryStore::slug(vendor), slug);
}

TEST(LibraryStore, attachmentsThatLeaveTheFolderAreNeverTouched) {
    const TemporaryFolder folder;
    const LibraryStore store(folder / "books");
    store.prepare();
    write(folder / "secret.txt", "x");
    write(store.folder() / "Receipts/2026-04/a.jpg", "one");
    std::filesystem::create_directory_symlink(folder.path(), store.receiptsFolder() / "link");
    for (const std::string& path :
         std::vector<std::string>{"../secret.txt", (folder / "secret.txt").string(), "Receipts/../../secret.txt",
                                  "Receipts/link/secret.txt", "", "."}) {
        const Attachment attachment = Attachment::make(path, "x");
        EXPECT_FALSE(store.url(attachment)) << path;
        store.removeAttachment(attachment);
    }
    store.removeAttachment(Attachment::make("Receipts", "a folder is no attachment"));
    EXPECT_TRUE(Files::exists(folder / "secret.txt"));

    const Attachment good = Attachment::make("Receipts/2026-04/a.jpg", "a.jpg");
    store.removeAttachment(good);
    EXPECT_EQ(contents(store.removedFolder() / "a.jpg"), "one");
    write(store.folder() / good.path, "two");
    store.removeAttachment(good);
    const auto removed = Files::names(store.removedFolder());
    ASSERT_EQ(removed.size(), 2u);
    EXPECT_TRUE(removed[0].ends_with("-a.jpg") && removed[0].size() == 8 + 1 + 5) << removed[0];
    store.removeAttachment(good);  // nothing there any more

    const std::string longest = "Receipts/2026-04/" + std::string(251, 'x') + ".jpg";
    for (const char* bytes : {"three", "four"}) {
        write(store.folder() / longest, bytes);
        store.removeAttachment(Attachment::make(longest, "x.jpg"));
    }
    EXPECT_EQ(Files::names(store.removedFolder()).size(), 4u);
}

TEST(LibraryStore, keepsInvoicesUnderTheirNames) {
    const TemporaryFolder folder;
    const LibraryStore store(folder / "books");
    EXPECT_EQ(store.keepInvoice("INV-26-27-007.pdf", "one"), "Invoices/INV-26-27-007.pdf");
    EXPECT_EQ(store.keepInvoice("INV-26-27-007.pdf", "two"), "Invoices/INV-26-27-007.pdf");
    EXPECT_EQ(contents(store.folder() / "Invoices/INV-26-27-007.pdf"), "two");
    EXPECT_EQ(store.keepInvoice("../../.बिल/7\n.pdf", "three"), "Invoices/7 .pdf");
    EXPECT_EQ(Files::names(store.invoicesFolder()).size(), 2u);
    Files::makeFolders(store.invoicesFolder() / "taken.pdf");
    EXPECT_THROW((void)store.keepInvoice("taken.pdf", "x"), StoreError);
}

TEST(LibraryStore, takesOnlyPicturesForALogo) {
    const TemporaryFolder folder;
    const LibraryStore store(folder / "books");
    const std::string png = "\x89PNG\r\n\x1A\n", tiff("MM\0*", 4);
    const struct {
        const char* file;
        std::string bytes;
        const char* name;  ///< in Assets; none: refused
    } cases[] = {
        {"Our logo.PNG", png + "one", "logo.png"},
        {"called.jpg", png + "two", "logo-2.png"},
        {"again.png", png + "one", "logo.png"},
        {"photo", "\xFF\xD8\xFF\xE0", "logo.jpg"},
        {"moving.gif", "GIF89a", "logo.gif"},
        {"print.tif", tiff, "logo.tiff"},
        {"new.webp", std::string("RIFF\4\0\0\0WEBPVP8", 15), "logo.webp"},
        {"sound.wav", std::string("RIFF\4\0\0\0WAVEfmt", 15), nullptr},
        {"page.png", "<svg/>", nullptr},
        {"empty.png", "", nullptr},
        {"huge.png", png + std::string(20'000'000, 'x'), nullptr},
        {"folder", {}, nullptr},
    };
    Files::makeFolders(folder / "folder");
    for (const auto& [file, bytes, name] : cases) {
        if (!bytes.empty() || *file == 'e') write(folder / file, bytes);
        const auto refused = refusal<StoreError>([&] { EXPECT_EQ(store.importLogo(folder / file), name) << file; });
        EXPECT_EQ(refused, name ? std::nullopt : std::optional(Code::notAFile)) << file;
        EXPECT_EQ(name ? contents(store.assetsFolder() / name) : bytes, bytes) << file;
    }
    EXPECT_THROW((void)store.importLogo(folder / "absent.png"), StoreError);

    Business business;
    EXPECT_EQ(store.logo(business), std::nullopt);
    business.logoFile = "logo.png";
    EXPECT_EQ(store.logo(business), store.assetsFolder() / "logo.png");
    ASSERT_EQ(::mkfifo((store.assetsFolder() / "pipe").c_str(), 0600), 0);
    for (const char* outside : {"../tamba.json", "/etc/passwd", "", ".", "pipe"}) {
        business.logoFile = outside;
        EXPECT_EQ(store.logo(business), std::nullopt) << outside;
    }
}

TEST(LibraryStore, copyingNeverOverwrites) {
    const TemporaryFolder folder;
    const LibraryStore store(folder / "books");
    store.save(aLibrary());
    write(store.folder() / "Receipts/2026-04/a.jpg", "one");
    store.copyTo(folder / "copy");
    EXPECT_EQ(LibraryStore(folder / "copy").load(), store.load());
    EXPECT_EQ(contents(folder / "copy/Receipts/2026-04/a.jpg"), "one");
    write(folder / "other/tamba.json", "theirs");
    try {
        store.copyTo(folder / "other");
        FAIL();
    } catch (const StoreError& error) {
        EXPECT_STREQ(error.what(), "Tamba couldn’t save: “tamba.json” already exists in that folder.");
    }
    EXPECT_EQ(contents(folder / "other/tamba.json"), "theirs");
    EXPECT_THROW(store.copyTo(store.folder() / "Backups/copy"), StoreError) << "a copy of the copy of the copy";
    EXPECT_THROW(LibraryStore(folder / "absent").copyTo(folder / "third"), StoreError) << "there is nothing to copy";
}

TEST(LibraryStore, aCopyThatFailsLeavesNothingBehind) {
    const TemporaryFolder folder;
    const LibraryStore store(folder / "books");
    store.save(aLibrary());
    write(store.folder() / "Receipts/2026-04/a.jpg", "one");
    std::filesystem::create_directories(folder / "place");
    store.copyVerified(folder / "place");
    EXPECT_EQ(contents(folder / "place/Receipts/2026-04/a.jpg"), "one");
    EXPECT_THROW(store.copyVerified(folder / "place"), StoreError) << "other files are there";
    EXPECT_EQ(contents(folder / "place/Receipts/2026-04/a.jpg"), "one");

    std::filesystem::create_directories(folder / "second");
    Files::setObserver([left = 3](const char* operation) mutable {
        if (std::string_view(operation) == "copy" && --left == 0) throw FileError("No space left on device");
    });
    EXPECT_THROW(store.copyVerified(folder / "second"), StoreError);
    Files::setObserver(nullptr);
    EXPECT_TRUE(std::filesystem::is_empty(folder / "second"));
}

TEST(LibraryStore, booksGoBesideNobodyElsesFiles) {
    const TemporaryFolder folder;
    LibraryStore(folder / "books").save(aLibrary());
    std::filesystem::create_directories(folder / "empty");
    write(folder / "documents/letter.txt", "Dear");
    EXPECT_EQ(LibraryStore::placeIn(folder / "absent"), folder / "absent");
    EXPECT_EQ(LibraryStore::placeIn(folder / "empty"), folder / "empty");
    EXPECT_EQ(LibraryStore::placeIn(folder / "books"), folder / "books");
    EXPECT_EQ(LibraryStore::placeIn(folder / "documents"), folder / "documents/Tamba");
}

/// Runs `save` in a child process that ends, as if the power went, just before its n-th operation on the disk. True
/// when it got that far.
bool endsAtOperation(int n, const LibraryStore& store, const Library& library) {
    const pid_t child = fork();
    if (child == 0) {
        int left = n;
        Files::setObserver([&left](const char*) {
            if (left-- == 0) _exit(9);
        });
        try {
            store.save(library);
        } catch (...) {
            _exit(1);
        }
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 1);
    return WEXITSTATUS(status) == 9;
}

TEST(LibraryStore, aPowerCutAtAnyOperationLeavesTheOldOrTheNewBooks) {
    const Library before = aLibrary();
    Library after = before;
    after.business.name = "After";
    int operations = 0;
    for (bool more = true; more; ++operations) {
        const TemporaryFolder folder;
        const LibraryStore store(folder.path());
        store.save(before);
        Files::remove(store.backupsFolder() / todaysBackup());  // so that the backup is part of what is cut
        more = endsAtOperation(operations, store, after);
        const auto found = store.load();
        ASSERT_TRUE(found);
        EXPECT_TRUE(*found == before || *found == after) << operations;
        EXPECT_TRUE(more || *found == after);
        if (Files::exists(store.backupsFolder() / todaysBackup())) {
            EXPECT_EQ(contents(store.backupsFolder() / todaysBackup()), ModelsJSON::encode(after));
        }
        store.save(after);  // whatever was left behind does not stand in the way
        EXPECT_EQ(store.load(), after);
        for (const std::string& name : Files::names(folder.path())) EXPECT_FALSE(name.ends_with(".tmp")) << name;
    }
    EXPECT_GE(operations, 8) << "create, write, flush, rename and flush folder, twice";
}

TEST(LibraryStore, aFullDiskAtAnyOperationIsReportedAndTheOldBooksStay) {
    const TemporaryFolder folder;
    const LibraryStore store(folder.path());
    const Library before = aLibrary();
    store.save(before);
    Library after = before;
    after.business.name = "After";
    for (const std::string failing : {"create", "write", "flush", "rename"}) {
        Files::setObserver([&](const char* operation) {
            if (operation == failing) throw FileError("No space left on device");
        });
        try {
            store.save(after);
            ADD_FAILURE() << failing;
        } catch (const StoreError& error) {
            EXPECT_STREQ(error.what(), "Tamba couldn’t save: No space left on device.");
        }
        Files::setObserver(nullptr);
        EXPECT_EQ(store.load(), before) << failing;
        EXPECT_FALSE(Files::exists(folder / ".tamba.json.tmp"));
    }
}

}  // namespace
}  // namespace tamba
