#include "Tamba/SignalWatcher.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Recurring.h"
#include "tests/app/Support.h"

#include <QProcess>
#include <QSignalSpy>

#include <csignal>
#include <set>

namespace tamba {

class AppModelTests : public QObject {
    Q_OBJECT

private slots:
    void aHundredStepsAreKept() {
        OpenBooks books;
        for (int i = 1; i <= 130; ++i) QVERIFY(books.rename(std::to_string(i)));
        int steps = 0;
        while (!books.model.undoTitle().isEmpty()) {
            books.model.undo();
            ++steps;
        }
        QCOMPARE(steps, 100);
        QCOMPARE(books.model.library().business.name, std::string("30"));
    }

    void aBurstOfChangesIsWrittenOnceAfterTheLast() {
        OpenBooks books;
        for (const char* name : {"a", "b", "c"}) QVERIFY(books.rename(name));
        QVERIFY(books.model.saveTimerRuns());
        QCOMPARE(books.model.saving(), AppModel::Saving::pending);
        QVERIFY(!Files::exists(books.path() / "tamba.json"));
        QVERIFY(books.model.saveNow());
        QVERIFY(!books.model.saveTimerRuns());
        QCOMPARE(books.onDisk().business.name, std::string("c"));
    }

    void theTimerSaves() {
        OpenBooks books;
        QVERIFY(books.rename("by itself"));
        QTRY_COMPARE(books.model.saving(), AppModel::Saving::saved);
        QCOMPARE(books.onDisk().business.name, std::string("by itself"));
    }

    void whatComesAgainIsAddedAtMidnightAndStaysWhenAStepIsTakenBack() {
        QTemporaryDir folder;
        Day today = testDay;
        AppModel model([&today] { return today; });
        model.open(toPath(folder.path()));
        QSignalSpy noticed(&model, &AppModel::noticed), days(&model, &AppModel::dayChanged);
        model.perform(QStringLiteral("Repeat"), [](Library library, Day day) {
            Expense rent = Expense::make(day.addingMonths(-1));
            rent.amount = 2500000;
            library.expenses.append(rent);
            return Recurring::repeat(std::move(library), rent.id, Frequency::monthly);
        });
        model.lookAtDay();
        QCOMPARE(days.count(), 0);
        today = testDay.addingDays(40);  // asleep for weeks
        model.lookAtDay();
        QCOMPARE(days.count(), 1);
        QCOMPARE(noticed.front().front().toString(), QStringLiteral("2 recurring expenses added"));
        QCOMPARE(model.library().expenses.size(), std::size_t(3));
        QCOMPARE(model.undoTitle(), QStringLiteral("Repeat"));
        model.undo();
        QCOMPARE(model.library().expenses.size(), std::size_t(0));
        model.redo();
        QCOMPARE(model.library().expenses.size(), std::size_t(3));
        QVERIFY(model.saveNow());
        model.open(toPath(folder.path()));
        QCOMPARE(model.library().expenses.size(), std::size_t(3));
    }

    void anOlderCopyThatComesBackTakesNoStepFromTheHistory() {
        OpenBooks books;
        QVERIFY(books.rename("older"));
        QVERIFY(books.model.saveNow());
        const std::string older = Files::read(books.path() / "tamba.json");
        QVERIFY(books.rename("newer"));
        QVERIFY(books.model.saveNow());
        Files::writeAtomically(books.path() / "tamba.json", older);
        QSignalSpy noticed(&books.model, &AppModel::noticed);
        QVERIFY(books.model.saveNow());
        QVERIFY(books.rename("newest"));
        QVERIFY(books.model.saveNow());
        QCOMPARE(books.onDisk().business.name, std::string("newest"));
        QCOMPARE(noticed.count(), 0);
        books.model.undo();
        books.model.undo();
        QCOMPARE(books.model.library().business.name, std::string("older"));
    }

    void aSaveThatFailsIsReportedOnceAndTriedAgain() {
        OpenBooks books;
        QSignalSpy refused(&books.model, &AppModel::refused);
        Files::setObserver([](const char*) { throw FileError("No space left on device"); });
        QVERIFY(books.rename("unsaved"));
        QVERIFY(!books.model.saveNow());
        QVERIFY(!books.model.saveNow());
        Files::setObserver({});
        QCOMPARE(books.model.saving(), AppModel::Saving::failed);
        QCOMPARE(refused.count(), 1);
        QVERIFY(books.model.saveProblem().startsWith(QStringLiteral("Tamba couldn’t save: ")));
        QVERIFY(books.model.saveNow());
        QCOMPARE(books.onDisk().business.name, std::string("unsaved"));
    }

    void damagedBooksAreNeverWrittenAndComeBackFromABackup() {
        OpenBooks books;
        QVERIFY(books.rename("kept"));
        QVERIFY(books.model.saveNow());
        const std::string damage = "{\"version\": 1,";
        books.model.open(books.path() / "elsewhere");
        Files::writeAtomically(books.path() / "tamba.json", damage);
        books.model.open(books.path());
        QCOMPARE(books.model.state(), AppModel::State::damaged);
        QVERIFY(books.model.problem().startsWith(QStringLiteral("Tamba couldn’t read its library: ")));
        QVERIFY(!books.rename("never"));
        books.model.saveNow();
        QCOMPARE(Files::read(books.path() / "tamba.json"), damage);
        QVERIFY(!books.model.backups().empty());
        QVERIFY(books.model.restore(books.model.backups().front().name));
        QCOMPARE(books.model.state(), AppModel::State::open);
        QCOMPARE(books.model.library().business.name, std::string("kept"));
    }

    void aBackupThatCannotBeReadLeavesTheBooksOpen() {
        OpenBooks books;
        QVERIFY(books.rename("mine"));
        QVERIFY(books.model.saveNow());
        QSignalSpy refused(&books.model, &AppModel::refused);
        QVERIFY(!books.model.restore("tamba-1999-01-01.json"));
        QCOMPARE(refused.count(), 1);
        QCOMPARE(books.model.state(), AppModel::State::open);
        QCOMPARE(books.model.library().business.name, std::string("mine"));
    }

    void booksWhoseFileWasDamagedMeanwhileAreKeptWhenABackupIsRestored() {
        OpenBooks books;
        QVERIFY(books.rename("backup"));
        QVERIFY(books.model.saveNow());
        QVERIFY(books.rename("later"));
        QVERIFY(books.model.saveNow());
        Files::writeAtomically(books.path() / "tamba.json", "half a fil");
        QVERIFY(!books.model.saveNow());
        QVERIFY(books.model.restore("tamba-" + Day::today().iso() + ".json"));
        QCOMPARE(books.model.library().business.name, std::string("backup"));
        const LibraryStore store(books.path());
        std::set<std::string> replaced;
        for (const std::string& name : Files::names(store.backupsFolder()))
            if (name.starts_with("replaced-")) replaced.insert(Files::read(store.backupsFolder() / name));
        QCOMPARE(replaced.size(), std::size_t(2));
        QVERIFY(replaced.contains("half a fil"));
        QVERIFY(std::any_of(replaced.begin(), replaced.end(),
                            [](const std::string& bytes) { return bytes.find("\"later\"") != std::string::npos; }));
    }

    void anOlderFileThatComesBeforeTheBooksAreClosedTakesNothingAway() {
        OpenBooks books;
        QVERIFY(books.rename("ours"));
        QVERIFY(books.model.saveNow());
        const Library older = books.onDisk();
        QVERIFY(books.model.perform(QStringLiteral("Add"), [](Library library, Day day) {
            library.expenses.append(Expense::make(day));
            return library;
        }));
        QVERIFY(books.model.saveNow());
        LibraryStore(books.path()).save(older);
        QVERIFY(books.model.open(books.path()));
        QCOMPARE(books.model.library().expenses.size(), std::size_t(1));
    }

    void booksOpenElsewhereAreLocked() {
        OpenBooks books;
        AppModel second;
        second.open(books.path());
        QCOMPARE(second.state(), AppModel::State::locked);
        QVERIFY(!second.problem().isEmpty());
    }

    void terminationIsHeardInTimeToSave() {
        OpenBooks books;
        SignalWatcher watcher;
        QSignalSpy ended(&watcher, &SignalWatcher::endRequested);
        connect(&watcher, &SignalWatcher::endRequested, &books.model, &AppModel::saveNow);
        QVERIFY(books.rename("before the end"));
        std::raise(SIGTERM);
        QTRY_COMPARE(ended.count(), 1);
        QCOMPARE(books.onDisk().business.name, std::string("before the end"));
    }

    void theProgramEndsCleanlyOnSIGTERM_data() {
        QTest::addColumn<bool>("sheet");
        QTest::newRow("nothing to save") << false;
        QTest::newRow("a sheet is open") << true;
    }
    void theProgramEndsCleanlyOnSIGTERM() {
        QFETCH(bool, sheet);
        OpenBooks books;
        QVERIFY(books.rename("untouched"));
        QVERIFY(books.model.saveNow());
        books.model.open(books.path() / "elsewhere");
        const std::string bytes = Files::read(books.path() / "tamba.json");
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        // What it remembers is not the person's who runs the tests.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), books.folder.filePath(QStringLiteral("config")));
        if (sheet) environment.insert(QStringLiteral("TAMBA_TYPES"), QStringLiteral("1"));
        program.setProcessEnvironment(environment);
        program.start(sheet ? QCoreApplication::applicationFilePath() : QStringLiteral(TAMBA_PROGRAM),
                      {toQt(books.path())});
        QVERIFY(program.waitForStarted());
        // The day's copy of the books as opened shows that they are open.
        const auto opened = [&] {
            for (const std::string& name : Files::names(books.path() / "Backups"))
                if (name.starts_with("opened-")) return true;
            return false;
        };
        QTRY_VERIFY_WITH_TIMEOUT(opened(), 20000);
        QTest::qWait(300);
        QTRY_VERIFY_WITH_TIMEOUT(!sheet || program.peek(5) == "typed", 20000);
        program.terminate();
        QVERIFY(program.waitForFinished(20000));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        const Library saved = books.onDisk();
        if (sheet)
            QCOMPARE(saved.clients.back().name, std::string("Typed at the end"));
        else
            QCOMPARE(Files::read(books.path() / "tamba.json"), bytes);
    }
};

static const TestClass<AppModelTests> registered;

}  // namespace tamba

#include "AppModelTests.moc"
