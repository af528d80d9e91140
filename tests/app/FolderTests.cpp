#include "Tamba/FolderActions.h"
#include "Tamba/FolderWatch.h"
#include "Tamba/Icons.h"
#include "Tamba/Rows/BackupRows.h"
#include "Tamba/Rows/ConflictRows.h"
#include "Tamba/Rows/RowText.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "Tamba/Translations.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Model/Fields.h"
#include "tests/app/Support.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalSpy>
#include <QToolButton>
#include <QTranslator>

namespace tamba {

/// The folder of the books: changed by others, moved, set back; and what this computer remembers of its own.
class FolderTests : public QObject {
    Q_OBJECT

    static void add(AppModel& model, const Expense& expense) {
        model.perform(QStringLiteral("Add"), [&](Library library, Day) {
            library.expenses.append(expense);
            return library;
        });
    }
    static void setAmount(Library& library, std::int64_t amount) {
        library.expenses.update(0, [amount](Expense& e) { e.amount = amount; });
    }

private slots:
    void anothersWorkComesInByItself() {
        OpenBooks books;
        const FolderWatch watch(books.model);
        for (const char* name : {"One", "Two", "Three"}) {
            QVERIFY(books.rename(name) && books.model.saveNow());
            // As a synchroniser does it: written beside, then renamed over.
            Library theirs = books.onDisk();
            theirs.business.phone = name;
            LibraryStore(books.path()).save(theirs);
            QTRY_COMPARE(books.model.library().business.phone, std::string(name));
        }
    }

    void aConflictIsDecidedFieldByField() {
        OpenWindow books;
        add(books.model, testing::spent("Chai Point", 10'000));
        books.rename("Kagaz");
        QVERIFY(books.model.saveNow());
        Library theirs = books.onDisk();
        setAmount(theirs, 12'000);
        theirs.business.name = "Theirs";
        LibraryStore(books.path()).save(theirs);
        books.model.perform(QStringLiteral("Edit"), [](Library library, Day) {
            setAmount(library, 11'000);
            library.business.name = "Ours";
            return library;
        });
        books.prompts.drive = [&](QDialog& sheet) {
            for (const char* card : {"conflict0", "conflict1"}) {
                auto& theirOne = control<QRadioButton>(control<QWidget>(sheet, card), "theirs");
                if (theirOne.text() == QStringLiteral("The other one: ₹120.00")) theirOne.setChecked(true);
            }
        };
        QVERIFY(books.model.saveNow());
        QCOMPARE(books.model.library().expenses[0].amount, std::int64_t(12'000));
        QCOMPARE(books.model.library().business.name, std::string("Ours"));
        QCOMPARE(books.model.undoTitle(), QStringLiteral("Choose Between Changes"));
    }

    void theBooksMoveWithEveryFile() {
        OpenBooks books;
        QTemporaryDir place;
        TestPrompts prompts;
        FolderActions actions(books.model, prompts);
        books.rename("Kagaz");
        Files::makeFolders(books.path() / "Receipts");
        Files::writeAtomically(books.path() / "Receipts" / "a.jpg", "picture");
        Files::writeAtomically(toPath(place.path()) / "letter.txt", "Dear");
        prompts.folder = toPath(place.path());
        prompts.confirmed = false;
        QSignalSpy ended(&actions, &FolderActions::ended);
        actions.move();
        QVERIFY(actions.isMoving());
        // What comes due meanwhile moves as well.
        books.rename("Kagaz Studio");
        QTRY_COMPARE(ended.size(), 1);
        QVERIFY(prompts.alerts.isEmpty());
        QVERIFY(books.model.folder() == toPath(place.path()) / "Tamba");
        QCOMPARE(books.model.library().business.name, std::string("Kagaz Studio"));
        QVERIFY(Files::sameBytes(books.path() / "Receipts" / "a.jpg", books.model.folder() / "Receipts" / "a.jpg"));
        QVERIFY(books.model.undoTitle().isEmpty());
        books.rename("After");
        QVERIFY(books.model.saveNow());
        QCOMPARE(books.onDisk().business.name, std::string("Kagaz Studio"));
        // Not on top of other books.
        QSignalSpy refused(&books.model, &AppModel::refused);
        prompts.folder = books.path();
        actions.move();
        QCOMPARE(refused.size(), 1);
    }

    void aBackupSaysWhatItWouldChange() {
        const Library before = Library::make();
        Library now = before;
        for (int i = 0; i < 3; ++i) now.expenses.append(testing::spent("Chai Point", 100 + i));
        Library then = now;
        then.expenses.erase(0);
        then.expenses.update(0, [](Expense& e) { e.notes = "tea"; });
        then.clients.append(Client::make("Monsoon Tea"));
        then.business.name = "Before";
        QVERIFY(changesText(now, now).empty());
        QVERIFY(changesText(now, then) == (std::vector<std::string>{"1 expense fewer and 1 changed", "1 client more",
                                                                    "other settings of the business"}));
        QCOMPARE(countsText(before), std::string("No records"));
        QCOMPARE(countsText(then), std::string("2 expenses · 1 client"));

        BackupQuestion question{{{"tamba-2026-11-20.json", {2026, 11, 20}, LibrarySession::Backup::Kind::saved, 2000},
                                 {"tamba-2026-11-19.json", {2026, 11, 19}, LibrarySession::Backup::Kind::saved, 2000}},
                                [&](const std::string& name) {
                                    if (name == "tamba-2026-11-20.json") return then;
                                    throw StoreError(StoreError::Code::unreadable, "it is damaged");
                                },
                                now};
        BackupSheet sheet(nullptr, question);
        QVERIFY(!control<QPushButton>(sheet, "sheetMain").isEnabled());
        QTRY_VERIFY(control<QLabel>(sheet, "backupChanges").text().contains(QStringLiteral("1 client more")));
        QVERIFY(control<QPushButton>(sheet, "sheetMain").isEnabled());
        control<QListWidget>(sheet, "backups").setCurrentRow(1);
        QTRY_VERIFY(!sheet.isReading());
        QVERIFY(!control<QPushButton>(sheet, "sheetMain").isEnabled());
    }

    void settingsOfThisComputerStayOutOfTheBooks() {
        const Library library = Library::make();
        SettingsSheet sheet(nullptr, library, testDay, {"/books", {}, {}});
        control<QComboBox>(sheet, "looks").setCurrentIndex(2);
        control<QComboBox>(sheet, "language").setCurrentIndex(2);
        control<QPushButton>(sheet, "moveFolder").click();
        const SettingsEdit edit = sheet.edit();
        QVERIFY(edit.library == library);
        QCOMPARE(edit.wish, FolderWish::move);
        Remembered::setAppearance(*edit.appearance);
        QVERIFY(Remembered::appearance() ==
                (Remembered::Appearance{Remembered::Appearance::Looks::dark, Remembered::Appearance::Language::hindi}));
        Remembered::setAppearance({});
    }

    void theLanguageFollowsTheDesktopUnlessChosen() {
        using Language = Remembered::Appearance::Language;
        const QLocale hindi(QLocale::Hindi, QLocale::India), english(QLocale::English, QLocale::India);
        QCOMPARE(Translations::codeOf(Language::system, hindi), QStringLiteral("hi"));
        QCOMPARE(Translations::codeOf(Language::system, english), QString());
        QCOMPARE(Translations::codeOf(Language::english, hindi), QString());
        QCOMPARE(Translations::codeOf(Language::hindi, english), QStringLiteral("hi"));
    }

    void valuesOfRowTextsStandAsTheyAre() {
        QCOMPARE(RowText::filled("%2: %1, 5% of %3", {"%2", "name"}), std::string("name: %2, 5% of %3"));
        QCOMPARE(RowText::filled("%", {"1"}), std::string("%"));
        QCOMPARE(RowText::counted(1, "1 line in %2", "%1 lines in %2", "A %1"), std::string("1 line in A %1"));
        QCOMPARE(RowText::counted(0, "1 line in %2", "%1 lines in %2", "A %1"), std::string("0 lines in A %1"));
    }

    void everyFieldHasATitleInHindi() {
        QTranslator hindi;
        QVERIFY(hindi.load(QStringLiteral(":/translations/tamba_hi")));
        const auto check = [&hindi](const auto& field) {
            // Both sides know a record by it.
            if (std::string_view(field.key) == "id") return;
            const std::string title = fieldTitle(field.key);
            if (hindi.translate("Rows", title.c_str()).isEmpty()) QFAIL(title.c_str());
        };
        const auto checkAll = [&]<class List>(List Library::*) {
            if constexpr (requires { typename List::value_type; })
                std::apply([&](const auto&... field) { (..., check(field)); }, Fields<typename List::value_type>);
        };
        std::apply([&](const auto&... list) { (..., checkAll(list.member)); }, Fields<Library>);
        std::apply([&](const auto&... field) { (..., check(field)); }, Fields<Business>);
    }

    void anyAccentCanBeRead() {
        for (const char* hex :
             {"FFFFFF", "000000", "FFFF00", "00FFFF", "FF00FF", "0000FF", "FF0000", "00FF00", "808080", "F5F5DC"})
            for (const bool dark : {false, true}) {
                const Colors colors = Colors::make(dark, Icons::colorOf(hex));
                for (const QColor& ground : {colors.surface, colors.window, colors.sidebar, colors.hover})
                    QVERIFY2(contrast(colors.accent, ground) >= 4.5F, hex);
                QVERIFY2(contrast(colors.onAccent, colors.accent) >= 4.5F, hex);
            }
    }

    void aRuleIsWrittenByHand() {
        Library library = Library::make();
        library.rules.append(CategoryRule::make("coffee", library.categories[0].id, ""));
        library.rules.append(CategoryRule::make("rickshaw", library.categories[1].id, "Rickshaw Raja"));
        SettingsSheet sheet(nullptr, library, testDay);
        const auto show = [&](const char* page) {
            auto& pages = control<QListWidget>(sheet, "settingsPages");
            pages.setCurrentItem(pages.findItems(QString::fromLatin1(page), Qt::MatchExactly).front());
        };
        const auto& save = control<QPushButton>(sheet, "sheetMain");
        // A category of the page beside can be chosen before anything is saved.
        control<QPushButton>(sheet, "addCategory").click();
        control<QLineEdit>(sheet, "categoryName").setText(QStringLiteral("Courses"));
        show("Rules");
        control<QPushButton>(sheet, "addRule").click();
        QVERIFY(!save.isEnabled());
        control<QLineEdit>(sheet, "ruleContains").setText(QStringLiteral(" Coffee House "));
        QVERIFY(!save.isEnabled());
        auto& category = control<QComboBox>(sheet, "ruleCategory");
        category.setCurrentIndex(category.findText(QStringLiteral("Courses")));
        emit category.activated(category.currentIndex());
        QVERIFY(save.isEnabled());
        QVERIFY(control<QLabel>(sheet, "ruleNote").text().contains(QStringLiteral("“coffee”")));
        for (int i = 0; i < 2; ++i) control<QToolButton>(sheet, "ruleUp").click();
        QVERIFY(control<QLabel>(sheet, "ruleNote").text().isEmpty());
        show("Categories");
        control<QListWidget>(sheet, "categories").setCurrentRow(1);
        control<QPushButton>(sheet, "removeCategory").click();
        show("Rules");
        const Library after = sheet.edit().library;
        QCOMPARE(after.rules.size(), std::size_t(2));
        QCOMPARE(after.rules[0].contains, std::string("Coffee House"));
        QCOMPARE(after.category(after.rules[0].categoryID)->name, std::string("Courses"));
        QVERIFY(after.rules[1] == library.rules[0]);
    }

    void whatTheSettingsDoNotKnowStaysInTheBooks() {
        Library library = Library::make();
        // Andhra Pradesh before 2014, and slips of other programs.
        library.business.stateCode = "28";
        library.business.country = "Bharat";
        library.business.homeCurrency = "XYZ";
        library.business.fyStartMonth = 13;
        QVERIFY(SettingsSheet(nullptr, library, testDay).edit().library == library);
    }

    void anotherHomeCurrencySaysWhatItDoesToTheBooks() {
        for (const bool used : {false, true}) {
            Library library = Library::make();
            if (used) library.expenses.append(testing::spent("Chai Point", 100));
            SettingsSheet sheet(nullptr, library, testDay);
            auto& currency = control<QComboBox>(sheet, "homeCurrency");
            const auto& note = control<QLabel>(sheet, "homeCurrencyNote");
            currency.setCurrentIndex(currency.findData(QStringLiteral("AED")));
            QCOMPARE(note.accessibleName().contains(QStringLiteral("an amount in INR")), used);
            currency.setCurrentIndex(currency.findData(QStringLiteral("INR")));
            QVERIFY(note.text().isEmpty());
        }
    }

    void categoriesAndSeriesAreKept() {
        Library library = Library::make();
        Expense expense = testing::spent("Chai Point", 100);
        expense.categoryID = library.categories[0].id;
        library.expenses.append(expense);
        library.rules.append(CategoryRule::make("chai", library.categories[0].id, ""));
        SettingsSheet sheet(nullptr, library, testDay);
        auto& categories = control<QListWidget>(sheet, "categories");
        categories.setCurrentRow(0);
        QVERIFY(control<QLabel>(sheet, "categoryUse").text().contains(QStringLiteral("1 expense and 1 rule")));
        control<QPushButton>(sheet, "removeCategory").click();
        control<QLineEdit>(sheet, "categoryName").setText(QStringLiteral("Machines"));
        control<QPushButton>(sheet, "addCategory").click();
        QVERIFY(!control<QPushButton>(sheet, "sheetMain").isEnabled());
        control<QLineEdit>(sheet, "categoryName").setText(QStringLiteral("Courses"));
        control<QPushButton>(sheet, "addSeries").click();
        control<QLineEdit>(sheet, "seriesName4").setText(QStringLiteral("Exports"));
        QVERIFY(!control<QPushButton>(sheet, "sheetMain").isEnabled());
        control<QLineEdit>(sheet, "pattern4").setText(QStringLiteral("EX/{FY}/{###}"));
        QVERIFY(control<QPushButton>(sheet, "sheetMain").isEnabled());
        const Library after = sheet.edit().library;
        QCOMPARE(after.categories.size(), library.categories.size());
        QCOMPARE(after.categories[0].name, std::string("Machines"));
        QCOMPARE(after.categories[after.categories.size() - 1].name, std::string("Courses"));
        QVERIFY(!after.expenses[0].categoryID && after.rules.empty());
        QCOMPARE(after.series.size(), std::size_t(4));
        QCOMPARE(after.series[3].pattern, std::string("EX/{FY}/{###}"));
    }
};

static const TestClass<FolderTests> registered;

}  // namespace tamba

#include "FolderTests.moc"
