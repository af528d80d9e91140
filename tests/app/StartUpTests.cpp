#include "Tamba/FolderActions.h"
#include "Tamba/Instance.h"
#include "Tamba/Screens/WelcomeScreen.h"
#include "Tamba/StartUp.h"
#include "TambaCore/Base/Files.h"
#include "tests/app/Support.h"

#include <QLabel>
#include <QLineEdit>
#include <QProcess>

#include <future>

namespace tamba {

/// What happens before books are on the screen.
class StartUpTests : public QObject {
    Q_OBJECT

    static void press(QWidget& within, const char* name) {
        auto* button = within.findChild<QPushButton*>(QString::fromLatin1(name));
        QVERIFY2(button && button->isEnabled(), name);
        button->click();
    }

private slots:
    void theCommandLineNamesAFolderAndFiles() {
        QTemporaryDir folder;
        const auto path = toPath(folder.path());
        Files::makeFolders(path / "Books");
        for (const char* name : {"Books/tamba.json", "bill.pdf", "march.csv"}) Files::writeAtomically(path / name, "x");
        const auto at = [&](const char* name) { return toQt(path / name); };
        const struct {
            QStringList arguments;
            std::optional<std::filesystem::path> folder;
            std::vector<std::filesystem::path> files;
        } cases[] = {
            {{}, {}, {}},
            {{at("Books")}, path / "Books", {}},
            {{at("Books/tamba.json")}, path / "Books", {}},
            {{at("New")}, path / "New", {}},
            {{at("bill.pdf"), at("march.csv")}, {}, {path / "bill.pdf", path / "march.csv"}},
            {{at("bill.pdf"), at("Books")}, path / "Books", {path / "bill.pdf"}},
        };
        for (const auto& each : cases) {
            const auto read = StartArguments::of(each.arguments);
            QVERIFY(read.folder == each.folder);
            QVERIFY(read.files == each.files);
        }
    }

    void aSampleInvoiceShowsAlsoBeforeThereIsAGSTIN() {
        QCOMPARE(lookSample(Library::make(), testDay).invoice.state, DocState::draft);
        SetUp kagaz;
        kagaz.name = "Kagaz";
        kagaz.taxID = "27AAPFU0939F1ZV";
        kagaz.prefix = " KS ";
        QCOMPARE(lookSample(withSetUp(Library::make(), kagaz), testDay).invoice.displayNumber(),
                 std::string("KS/26-27/001"));
    }

    void booksThatAreGoneAreAskedAbout() {
        QTemporaryDir place;
        const auto folder = toPath(place.path()) / "Books", elsewhere = toPath(place.path()) / "Moved";
        {
            AppModel model([] { return testDay; });
            Window window(model, std::make_unique<TestPrompts>());
            StartUp startUp(model, window, folder);
            startUp.begin();
            QVERIFY(model.isNew());
            SetUp kagaz;
            kagaz.name = "Kagaz";
            model.perform(QStringLiteral("Set Up"), [&](Library l, Day) { return withSetUp(std::move(l), kagaz); });
            QVERIFY(model.saveNow());
        }
        Files::move(folder, elsewhere);
        AppModel model([] { return testDay; });
        Window window(model, std::make_unique<TestPrompts>());
        StartUp startUp(model, window, folder);
        startUp.begin();
        QCOMPARE(model.state(), AppModel::State::missing);
        QVERIFY(!Files::exists(folder));
        auto& problem = *window.findChild<QWidget*>(QStringLiteral("problemScreen"));
        press(problem, "emptyAction");
        QCOMPARE(model.state(), AppModel::State::missing);
        Files::move(elsewhere, folder);
        press(problem, "emptyAction");
        QCOMPARE(model.state(), AppModel::State::open);
        QCOMPARE(model.library().business.name, std::string("Kagaz"));
        Files::move(folder, elsewhere);
        startUp.begin();
        press(problem, "emptyThird");
        QVERIFY(model.isNew());
        QVERIFY(window.findChild<WelcomeScreen*>()->isVisibleTo(&window));
    }

    void aFolderIsOpenedForWhatIsInIt() {
        OpenWindow books;
        const auto at = books.path();
        for (const char* name : {"Desk/letter.txt", "Shared/Tamba/tamba.json", "Shared/letter.txt"})
            Files::makeFolders((at / name).parent_path());
        Files::writeAtomically(at / "Desk" / "letter.txt", "Dear");
        Files::writeAtomically(at / "Shared" / "letter.txt", "Dear");
        LibraryStore(at / "Shared" / "Tamba").save(Library::make());
        Files::makeFolders(at / "Gone");
        Remembered::setHeldBooks(at / "Gone");
        const struct {
            const char* pointed;
            std::filesystem::path folder;
            AppModel::State state;
        } cases[] = {{"Desk", at / "Desk" / "Tamba", AppModel::State::open},
                     {"Shared", at / "Shared" / "Tamba", AppModel::State::open},
                     {"Gone", at / "Gone", AppModel::State::missing}};
        for (const auto& each : cases) {
            books.prompts.folder = at / each.pointed;
            books.window.findChild<FolderActions*>()->openOther();
            QVERIFY2(books.model.folder() == each.folder, each.pointed);
            QVERIFY2(books.model.state() == each.state, each.pointed);
            QVERIFY2(books.window.ownFolder() == each.folder, each.pointed);
        }
    }

    void theSampleBooksAreMadeOnce() {
        OpenWindow books;
        // As a double click does.
        books.window.openSample();
        books.window.openSample();
        QTRY_VERIFY_WITH_TIMEOUT(books.model.folder() != books.path(), 60000);
        std::size_t named = 0, there = 0;
        for (const Expense& expense : books.model.library().expenses) named += expense.attachments.size();
        for (const auto& file :
             std::filesystem::recursive_directory_iterator(LibraryStore(books.model.folder()).receiptsFolder()))
            there += file.is_regular_file();
        QCOMPARE(there, named);
    }

    void booksBegunAfterTheSampleAreThePersonsOwn() {
        QTemporaryDir place;
        const auto at = toPath(place.path());
        LibraryStore(at / "Books Sample Books").save(Library::make());
        AppModel model([] { return testDay; });
        auto owned = std::make_unique<TestPrompts>();
        TestPrompts& prompts = *owned;
        prompts.folder = at / "Elsewhere";
        Window window(model, std::move(owned));
        StartUp startUp(model, window, at / "Books");
        startUp.begin();
        window.openSample();
        QVERIFY(!control<QPushButton>(window, "ownBooks").isHidden());
        press(window, "ownBooks");
        QVERIFY(model.isNew());
        control<QLineEdit>(window, "welcomeName").setText(QStringLiteral("Kagaz"));
        press(window, "welcomeChooseFolder");
        press(window, "welcomeLookAround");
        QVERIFY(model.folder() == at / "Elsewhere");
        QVERIFY(!model.isNew());
        QVERIFY(control<QPushButton>(window, "ownBooks").isHidden());
        QVERIFY(Remembered::folder() == at / "Elsewhere");

        prompts.folder = at / "Older";
        LibraryStore(at / "Older").save(Library::make());
        LibraryStore(at / "Elsewhere Sample Books").save(Library::make());
        window.openSample();
        window.findChild<FolderActions*>()->openOther();
        QVERIFY(control<QPushButton>(window, "ownBooks").isHidden());
        QVERIFY(Remembered::folder() == at / "Older");
    }

    void aRunningProgramTakesTheFilesOfASecondStart() {
        QTemporaryDir place;
        const auto folder = toPath(place.path());
        const std::vector<std::filesystem::path> files{folder / "a b.pdf", folder / "₹.csv"};
        QVERIFY(!Instance::handOver(folder, files));
        Instance first;
        first.answerFor(folder);
        std::vector<std::filesystem::path> taken;
        connect(&first, &Instance::startedAgain, this, [&](const auto& given) { taken = given; });
        const auto second = [&](const std::filesystem::path& at) {
            auto answer = std::async(std::launch::async, [&, at] { return Instance::handOver(at, files); });
            while (answer.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready)
                QCoreApplication::processEvents();
            return answer.get();
        };
        QVERIFY(second(folder / "."));
        QVERIFY(taken == files);
        QVERIFY(!second(folder / "other"));
        first.answerFor(folder / "other");
        QVERIFY(!second(folder));
        QVERIFY(second(folder / "other"));
    }

    void aSecondStartEndsAtOnce() {
        QTemporaryDir place;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), place.path());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        const QString books = place.path() + QStringLiteral("/Books");
        QProcess first, second;
        for (QProcess* each : {&first, &second}) {
            each->setProcessEnvironment(environment);
            each->setProgram(QStringLiteral(TAMBA_PROGRAM));
            each->setArguments({books});
        }
        first.start();
        QTRY_VERIFY_WITH_TIMEOUT(Instance::handOver(toPath(books), {}), 20000);
        second.start();
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(first.state(), QProcess::Running);
        first.terminate();
        QVERIFY(first.waitForFinished(20000));
    }
};

static const TestClass<StartUpTests> registered;

}  // namespace tamba

#include "StartUpTests.moc"
