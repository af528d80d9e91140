#pragma once

#include "Tamba/Printing.h"
#include "Tamba/Remembered.h"
#include "Tamba/Rows/ConflictRows.h"
#include "Tamba/Rows/ImportRows.h"
#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Documents/Reminders.h"
#include "TambaCore/Model/LibrarySession.h"
#include "TambaCore/Model/Models.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace tamba {

class UpdateService;

struct MileageTrip {
    Day date;
    std::string purpose;
    std::int64_t distanceMilli = 0;
};

/// A credit note as the person wants it: issued at once, or kept as a draft.
struct CreditNote {
    Document note;
    bool issue = true;
};

/// An e-mail about a document: the one that sends it, or a reminder.
enum class Mail { sending, reminder };

/// What the settings show beside the books: where these are, their logo's file, and how this computer shows them.
/// `place`: what is shown first.
enum class SettingsPlace { business, tax, items, updates };
struct SettingsContext {
    std::filesystem::path folder = {};
    std::optional<std::filesystem::path> logo = {};
    Remembered::Appearance appearance = {};
    SettingsPlace place = SettingsPlace::business;
    std::optional<UUID> item = {};     ///< of the catalogue, selected there
    UpdateService* updates = nullptr;  // null: no page for them
    bool lookForUpdates = false;
};

/// What is to be done with the folder of the books once the settings are closed.
enum class FolderWish { none, move, openOther, restore };

/// The books with business, number series, catalogue and rates as the settings have them. A new logo is a file that is
/// still to be brought in.
struct SettingsEdit {
    Library library;
    std::optional<std::filesystem::path> logo = {};
    std::optional<Remembered::Appearance> appearance = {};
    std::optional<bool> lookForUpdates = {};
    FolderWish wish = FolderWish::none;
};

/// The backups of a folder, how to read one, and the books as they stand; nothing when they cannot be read.
struct BackupQuestion {
    std::vector<LibrarySession::Backup> backups;
    std::function<Library(const std::string& name)> read;
    std::optional<Library> present;
};

/// What is to happen to expenses that come again.
struct RecurringEdit {
    std::vector<UUID> paused, resumed, removed;
};

/// Every question the application asks. Tests answer in its place.
class Prompts {
public:
    using Path = std::filesystem::path;
    virtual ~Prompts() = default;
    /// A sentence to be read and closed.
    virtual void alert(const QString& sentence) = 0;
    /// True when the person chose `action`.
    [[nodiscard]] virtual bool confirm(const QString& title, const QString& text, const QString& action) = 0;
    /// Files the books hold already. True: add them once more.
    [[nodiscard]] virtual bool addAgain(const QStringList& files) = 0;
    [[nodiscard]] virtual std::vector<Path> receiptFiles() = 0;
    [[nodiscard]] virtual std::vector<Path> statementFiles() = 0;
    /// How a statement is to come into the books.
    [[nodiscard]] virtual std::optional<StatementEdit> statement(const Library& library, StatementFile file) = 0;
    [[nodiscard]] virtual std::optional<Path> pictureFile() = 0;
    [[nodiscard]] virtual std::optional<Path> libraryFolder(const Path& present) = 0;
    /// A folder that something is to be put into.
    [[nodiscard]] virtual std::optional<Path> targetFolder(const QString& title) = 0;
    /// Where a new file is to go; an existing one of that name may be replaced.
    [[nodiscard]] virtual std::optional<Path> saveFile(const QString& title, const std::string& name) = 0;
    /// The places in the report at which the other side is to have its way.
    [[nodiscard]] virtual std::vector<std::size_t> conflicts(const MergeReport& report) = 0;
    [[nodiscard]] virtual std::optional<std::string> backup(const BackupQuestion& question) = 0;
    [[nodiscard]] virtual std::optional<MileageTrip> mileage(const Library& library, Day today) = 0;
    [[nodiscard]] virtual std::optional<RecurringEdit> recurring(const Library& library) = 0;
    [[nodiscard]] virtual std::optional<SettingsEdit> settings(const Library& library, const SettingsContext& context,
                                                               Day today) = 0;
    /// A name for something new; nothing when given up.
    [[nodiscard]] virtual std::optional<std::string> newName(const QString& title) = 0;
    /// A new client with all that documents need to know. `name`: what was typed already.
    [[nodiscard]] virtual std::optional<Client> newClient(const Library& library, const std::string& name) = 0;
    /// A bank account with another name or currency; a new one where the books do not hold it.
    [[nodiscard]] virtual std::optional<BankAccount> bankAccount(const Library& library,
                                                                 const BankAccount& account) = 0;
    /// How one receipt of money is shared among invoices; none when given up.
    [[nodiscard]] virtual std::vector<Bank::Share> shares(const Library& library, const BankTransaction& line) = 0;

    /// The date a draft is issued on.
    [[nodiscard]] virtual std::optional<Day> issue(const Library& library, const Document& draft, Day today) = 0;
    [[nodiscard]] virtual std::optional<Payment> payment(const Library& library, const Document& invoice,
                                                         Day today) = 0;
    /// `draft`: a credit note for all that is left of its invoice.
    [[nodiscard]] virtual std::optional<CreditNote> creditNote(const Library& library, const Document& draft) = 0;
    /// The reason for voiding.
    [[nodiscard]] virtual std::optional<std::string> voiding(const Library& library, const Document& document,
                                                             Day today) = 0;
    [[nodiscard]] virtual std::optional<Reminders::Draft> mail(const Library& library, const Document& document,
                                                               Mail kind, Day today) = 0;
    /// Which expenses are billed on with a draft.
    [[nodiscard]] virtual std::vector<UUID> expensesToBill(const Library& library, const Document& draft) = 0;

    /// Opens the message in the desktop's mail program. False when there is none.
    [[nodiscard]] virtual bool openMail(const Reminders::Draft& draft, const Path& pdf) = 0;
    /// Prints a PDF made here, after asking on what.
    virtual void print(const QString& title, const std::string& pdf) = 0;
};

/// Asks with dialogs over a window.
class DialogPrompts : public Prompts {
public:
    explicit DialogPrompts(
        QWidget& window, Printing::Heard heard = [](const QString&, Printing::Stage) {})
        : window_(window), heard_(std::move(heard)) {}
    void alert(const QString& sentence) override;
    bool confirm(const QString& title, const QString& text, const QString& action) override;
    bool addAgain(const QStringList& files) override;
    std::vector<Path> receiptFiles() override;
    std::vector<Path> statementFiles() override;
    std::optional<StatementEdit> statement(const Library& library, StatementFile file) override;
    std::optional<Path> pictureFile() override;
    std::optional<Path> libraryFolder(const Path& present) override;
    std::optional<Path> targetFolder(const QString& title) override;
    std::optional<Path> saveFile(const QString& title, const std::string& name) override;
    std::vector<std::size_t> conflicts(const MergeReport& report) override;
    std::optional<std::string> backup(const BackupQuestion& question) override;
    std::optional<MileageTrip> mileage(const Library& library, Day today) override;
    std::optional<RecurringEdit> recurring(const Library& library) override;
    std::optional<SettingsEdit> settings(const Library& library, const SettingsContext& context, Day today) override;
    std::optional<std::string> newName(const QString& title) override;
    std::optional<Client> newClient(const Library& library, const std::string& name) override;
    std::optional<BankAccount> bankAccount(const Library& library, const BankAccount& account) override;
    std::vector<Bank::Share> shares(const Library& library, const BankTransaction& line) override;
    std::optional<Day> issue(const Library& library, const Document& draft, Day today) override;
    std::optional<Payment> payment(const Library& library, const Document& invoice, Day today) override;
    std::optional<CreditNote> creditNote(const Library& library, const Document& draft) override;
    std::optional<std::string> voiding(const Library& library, const Document& document, Day today) override;
    std::optional<Reminders::Draft> mail(const Library& library, const Document& document, Mail kind,
                                         Day today) override;
    std::vector<UUID> expensesToBill(const Library& library, const Document& draft) override;
    bool openMail(const Reminders::Draft& draft, const Path& pdf) override;
    void print(const QString& title, const std::string& pdf) override;

private:
    QWidget& window_;
    Printing::Heard heard_;
};

}  // namespace tamba
