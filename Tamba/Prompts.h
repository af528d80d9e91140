#pragma once

#include "TambaCore/Documents/Reminders.h"
#include "TambaCore/Model/LibrarySession.h"
#include "TambaCore/Model/Models.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace tamba {

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

/// Every question the application asks. Tests answer in its place.
class Prompts {
public:
    virtual ~Prompts() = default;
    /// A sentence to be read and closed.
    virtual void alert(const QString& sentence) = 0;
    /// True when the person chose `action`.
    [[nodiscard]] virtual bool confirm(const QString& title, const QString& text, const QString& action) = 0;
    /// Files the books hold already. True: add them once more.
    [[nodiscard]] virtual bool addAgain(const QStringList& files) = 0;
    [[nodiscard]] virtual std::vector<std::filesystem::path> receiptFiles() = 0;
    [[nodiscard]] virtual std::optional<std::filesystem::path> libraryFolder(const std::filesystem::path& present) = 0;
    [[nodiscard]] virtual std::optional<std::string> backup(const std::vector<LibrarySession::Backup>& backups) = 0;
    [[nodiscard]] virtual std::optional<MileageTrip> mileage(const Library& library, Day today) = 0;
    [[nodiscard]] virtual std::optional<Business> settings(const Business& business) = 0;
    /// A name for something new; nothing when given up.
    [[nodiscard]] virtual std::optional<std::string> newName(const QString& title) = 0;

    // About documents. Until it is asked with a sheet, a question counts as given up.

    /// A new client with all that documents need to know.
    [[nodiscard]] virtual std::optional<Client> newClient(const Library&) { return {}; }
    /// The date a draft is issued on.
    [[nodiscard]] virtual std::optional<Day> issue(const Library&, const Document& /*draft*/, Day /*today*/) {
        return {};
    }
    [[nodiscard]] virtual std::optional<Payment> payment(const Library&, const Document& /*invoice*/, Day /*today*/) {
        return {};
    }
    /// `draft`: a credit note for all that is left of its invoice.
    [[nodiscard]] virtual std::optional<CreditNote> creditNote(const Library&, const Document& /*draft*/) { return {}; }
    /// The reason for voiding.
    [[nodiscard]] virtual std::optional<std::string> voiding(const Library&, const Document&, Day /*today*/) {
        return {};
    }
    [[nodiscard]] virtual std::optional<Reminders::Draft> mail(const Library&, const Document&, Mail, Day /*today*/) {
        return {};
    }
    /// Which expenses are billed on with a draft.
    [[nodiscard]] virtual std::vector<UUID> expensesToBill(const Library&, const Document& /*draft*/) { return {}; }
    /// Where a new file is to go; an existing one of that name may be replaced.
    [[nodiscard]] virtual std::optional<std::filesystem::path> saveFile(const QString& /*title*/,
                                                                        const std::string& /*name*/) {
        return {};
    }
    /// Opens the message in the desktop's mail program. False when there is none.
    [[nodiscard]] virtual bool openMail(const Reminders::Draft&, const std::filesystem::path& /*pdf*/) { return false; }
    /// Prints a PDF made here, after asking on what.
    virtual void print(const QString& /*title*/, const std::string& /*pdf*/) {}
};

/// Asks with dialogs over a window.
class DialogPrompts : public Prompts {
public:
    explicit DialogPrompts(QWidget& window) : window_(window) {}
    void alert(const QString& sentence) override;
    bool confirm(const QString& title, const QString& text, const QString& action) override;
    bool addAgain(const QStringList& files) override;
    std::vector<std::filesystem::path> receiptFiles() override;
    std::optional<std::filesystem::path> libraryFolder(const std::filesystem::path& present) override;
    std::optional<std::string> backup(const std::vector<LibrarySession::Backup>& backups) override;
    std::optional<MileageTrip> mileage(const Library& library, Day today) override;
    std::optional<Business> settings(const Business& business) override;
    std::optional<std::string> newName(const QString& title) override;

private:
    QWidget& window_;
};

}  // namespace tamba
