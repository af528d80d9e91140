#pragma once

#include "TambaCore/Model/LibrarySession.h"
#include "TambaCore/Model/Models.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The commands, one function each. The files named …Words.cpp read the words of the command line and call one of them;
/// what a command returns is the exit status: 0 done, 1 refused or found problems. A refusal that ends the command is
/// thrown, its sentence goes to standard error.
namespace tamba::cli {

/// A refusal of the command line itself; `what()` is the finished sentence.
class Refusal : public std::exception {
public:
    explicit Refusal(std::string sentence) : sentence_(std::move(sentence)) {}
    [[nodiscard]] const char* what() const noexcept override { return sentence_.c_str(); }

private:
    std::string sentence_;
};

/// What every command is given.
struct Context {
    std::filesystem::path folder;  ///< of the books
    bool json = false;
    Day today;
    Instant now{};  ///< noon of `today` where that was given
};

/// Books that exist; refuses a folder without any.
[[nodiscard]] const Library& existing(const LibrarySession& session);
/// Saves, and says on standard error when another machine's changes came in. Gives what now stands on disk.
Library save(LibrarySession& session, const Library& library);
/// Writes a file where the user wants it; refuses with the reason.
void writeFile(const std::string& name, std::string_view text);
[[nodiscard]] std::string expenseDetails(const Library& library, const Expense& expense);

struct NewOptions {
    std::string name, state, gstin, currency, country, regime, dateOrder;
    int fyStartMonth = 4;
};
int makeBooks(const Context& context, const NewOptions& options);
int makeSample(const Context& context, const std::filesystem::path& folder);
int checkBooks(const Context& context);

struct FindOptions {
    std::vector<std::string> words;
    int limit = 20;  ///< of each kind
};
int findRecords(const Context& context, const FindOptions& options);

struct ReceiptOptions {
    std::vector<std::string> files;
    std::optional<DateOrder> order;
    bool again = false;  ///< file a receipt whose bytes the books already hold
};
int scanReceipts(const Context& context, const ReceiptOptions& options);
/// "-" is standard input.
int parseReceipt(const Context& context, const ReceiptOptions& options);
int showMail(const Context& context, const std::string& file);
int addReceipts(const Context& context, const ReceiptOptions& options);

struct ExpenseFilter {
    std::optional<Day> from, to;
    std::string month, category, vendor;
    bool check = false;  ///< only those that want a look
};
int listExpenses(const Context& context, const ExpenseFilter& filter);

/// As typed; empty where not given.
struct ExpenseEntry {
    std::string vendor, amount, category, tax, currency, rate, mileage, project, client, notes;
    std::optional<PaymentMethod> method;
    std::optional<Day> date;
    bool billable = false;
};
int addExpense(const Context& context, const ExpenseEntry& entry);
int showExpense(const Context& context, const std::string& idPrefix);
/// Into the home currency for good, at the rate given, else at its own.
int convertExpense(const Context& context, const std::string& idPrefix, const std::string& rate);

/// Expenses that come again; one is named by the beginning of its ID.
int listRecurring(const Context& context);
int addRecurring(const Context& context, const std::string& expense, Frequency frequency);
int pauseRecurring(const Context& context, const std::string& recurring, bool paused);
int removeRecurring(const Context& context, const std::string& recurring);
int addDueRecurring(const Context& context);

int listBackups(const Context& context);
int restoreBackup(const Context& context, const std::string& name);

}  // namespace tamba::cli
