#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "Tamba/QtText.h"
#include "Tamba/Sheets/AccountSheet.h"
#include "Tamba/Sheets/BackupSheet.h"
#include "Tamba/Sheets/ClientSheet.h"
#include "Tamba/Sheets/ConflictSheet.h"
#include "Tamba/Sheets/CreditNoteSheet.h"
#include "Tamba/Sheets/ImportSheet.h"
#include "Tamba/Sheets/IssueSheet.h"
#include "Tamba/Sheets/MailSheet.h"
#include "Tamba/Sheets/PaymentSheet.h"
#include "Tamba/Sheets/SplitSheet.h"
#include "Tamba/Sheets/VoidSheet.h"
#include "Tamba/Window.h"
#include "TambaCore/Fixtures.h"
#include "tests/support/Books.h"

#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <map>

namespace tamba {

/// Answers in the place of a person and remembers what was asked.
struct TestPrompts : Prompts {
    QStringList alerts, held;
    int asked = 0;  // sheets and dialogs that had to be answered
    bool again = false;
    bool confirmed = true;
    std::optional<std::string> chosenBackup;
    std::optional<MileageTrip> trip;
    std::optional<Client> client;
    std::optional<Path> file;    // where to save
    std::optional<Path> folder;  // of books
    std::map<std::string, std::string> keptLayouts;
    SettingsContext settingsContext;  // that the settings were last shown with
    std::function<SettingsEdit(const Library&)> changeSettings;
    std::function<RecurringEdit(const Library&)> changeRecurring;
    // Answers with the very sheets that people see: each is shown, driven, and closed with what it then holds.
    std::function<void(QDialog&)> drive;

    void alert(const QString& sentence) override { alerts << sentence; }
    bool confirm(const QString&, const QString&, const QString&) override { return confirmed; }
    bool addAgain(const QStringList& files) override {
        held << files;
        return again;
    }
    std::vector<Path> receiptFiles() override { return {}; }
    std::vector<Path> statementFiles() override { return {}; }
    std::optional<StatementEdit> statement(const Library& library, StatementFile file) override {
        const std::string layout = file.layout;
        ImportSheet sheet(nullptr, library, std::move(file), keptLayouts[layout]);
        if (!QTest::qWaitFor([&] { return !sheet.isReading(); }, 60000) || !accepted(sheet)) return {};
        keptLayouts[layout] = sheet.kept();
        return sheet.edit();
    }
    std::optional<Path> pictureFile() override { return file; }
    std::optional<Path> libraryFolder(const Path&) override { return folder; }
    std::optional<Path> targetFolder(const QString&) override { return file; }
    std::optional<Path> saveFile(const QString&, const std::string& name) override {
        ++asked;
        return file ? std::optional(*file / name) : std::nullopt;
    }
    std::vector<std::size_t> conflicts(const MergeReport& report) override {
        ConflictSheet sheet(nullptr, report);
        return accepted(sheet) ? sheet.otherWay() : std::vector<std::size_t>();
    }
    std::optional<std::string> backup(const BackupQuestion& question) override {
        BackupSheet sheet(nullptr, question);
        if (!QTest::qWaitFor([&] { return !sheet.isReading(); }) || !accepted(sheet)) return {};
        return chosenBackup ? chosenBackup : std::optional(sheet.chosen());
    }
    std::optional<MileageTrip> mileage(const Library&, Day) override { return trip; }
    std::optional<RecurringEdit> recurring(const Library& library) override {
        return changeRecurring ? std::optional(changeRecurring(library)) : std::nullopt;
    }
    std::optional<SettingsEdit> settings(const Library& library, const SettingsContext& context, Day) override {
        settingsContext = context;
        return changeSettings ? std::optional(changeSettings(library)) : std::nullopt;
    }
    std::optional<std::string> newName(const QString&) override { return {}; }
    std::optional<Client> newClient(const Library& library, const std::string& name) override {
        if (client || !drive) return client;
        ClientSheet sheet(nullptr, library, name);
        return accepted(sheet) ? std::optional(sheet.client()) : std::nullopt;
    }
    std::optional<BankAccount> bankAccount(const Library& library, const BankAccount& account) override {
        AccountSheet sheet(nullptr, library, account);
        return accepted(sheet) ? std::optional(sheet.account()) : std::nullopt;
    }
    std::vector<Bank::Share> shares(const Library& library, const BankTransaction& line) override {
        SplitSheet sheet(nullptr, library, line);
        return accepted(sheet) ? sheet.shares() : std::vector<Bank::Share>();
    }
    std::optional<Day> issue(const Library& library, const Document& draft, Day today) override {
        IssueSheet sheet(nullptr, library, draft, today);
        return accepted(sheet) ? std::optional(sheet.date()) : std::nullopt;
    }
    std::optional<Payment> payment(const Library& library, const Document& invoice, Day today) override {
        PaymentSheet sheet(nullptr, library, invoice, today);
        return accepted(sheet) ? std::optional(sheet.payment()) : std::nullopt;
    }
    std::optional<CreditNote> creditNote(const Library& library, const Document& draft) override {
        CreditNoteSheet sheet(nullptr, library, draft);
        return accepted(sheet) ? std::optional(CreditNote{sheet.note(), true}) : std::nullopt;
    }
    std::optional<std::string> voiding(const Library& library, const Document& document, Day today) override {
        VoidSheet sheet(nullptr, library, document, today);
        return accepted(sheet) ? std::optional(sheet.reason()) : std::nullopt;
    }
    std::optional<Reminders::Draft> mail(const Library& library, const Document& document, Mail kind,
                                         Day today) override {
        MailSheet sheet(nullptr, library, document, kind, today, false);
        return accepted(sheet) ? std::optional(sheet.draft()) : std::nullopt;
    }
    std::vector<UUID> expensesToBill(const Library&, const Document&) override { return {}; }
    bool openMail(const Reminders::Draft&, const Path&) override { return false; }
    void print(const QString&, const std::string& pdf) override { printed = pdf; }
    std::string printed;

private:
    /// Given up where its main button is not to be had.
    bool accepted(Sheet& sheet) {
        ++asked;
        if (drive) drive(sheet);
        return sheet.findChild<QPushButton*>(QStringLiteral("sheetMain"))->isEnabled();
    }
};

/// The control with this name; without it no test can go on.
template <class T>
T& control(const QWidget& within, const char* name) {
    T* found = within.findChild<T*>(QString::fromLatin1(name));
    if (!found) qFatal("no control %s", name);
    return *found;
}

inline constexpr Day testDay{2026, 11, 21};

/// Books in a folder of their own, on a fixed day.
struct OpenBooks {
    QTemporaryDir folder;
    AppModel model{[] { return testDay; }};

    OpenBooks() { model.open(path()); }
    [[nodiscard]] std::filesystem::path path() const { return toPath(folder.path()); }
    [[nodiscard]] Library onDisk() const { return LibraryStore(path()).load().value_or(Library()); }
    bool rename(const std::string& name) {
        return model.perform(QStringLiteral("Rename"), [name](Library library, Day) {
            library.business.name = name;
            return library;
        });
    }
    /// From here on the sample books.
    void openSample() {
        Fixtures::write(LibraryStore(path() / "Studio"), testDay);
        model.open(path() / "Studio");
    }
};

/// The window on such books, or on these, in front of everything.
struct OpenWindow : OpenBooks {
    TestPrompts& prompts = *new TestPrompts;
    Window window{model, std::unique_ptr<Prompts>(&prompts)};

    explicit OpenWindow(const std::optional<Library>& library = {}) {
        if (library) model.perform(QStringLiteral("Sample"), [&library](Library, Day) { return *library; });
        window.resize(1440, 880);
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window)) qFatal("the window gets no keys");
    }
};

/// One test class after another, in one process. Each registers itself.
void addTestClass(std::function<QObject*()> make);
template <class T>
struct TestClass {
    TestClass() {
        addTestClass([] { return new T; });
    }
};

}  // namespace tamba
