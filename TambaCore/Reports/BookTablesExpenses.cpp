#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Reports/BookCells.h"
#include "TambaCore/Reports/BookTables.h"

#include <algorithm>
#include <array>
#include <functional>
#include <tuple>
#include <unordered_map>

namespace tamba::BookTables {
namespace {

using namespace BookCells;

/// Those of the period that `fits`, by date, then vendor.
std::vector<const Expense*> expensesOf(const Library& library, const Period& period,
                                       const std::function<bool(const Expense&)>& fits) {
    std::vector<const Expense*> result;
    for (const Expense& expense : library.expenses)
        if (period.contains(expense.date) && fits(expense)) result.push_back(&expense);
    std::stable_sort(result.begin(), result.end(), [](const Expense* a, const Expense* b) {
        return std::tie(a->date, a->vendor, a->id) < std::tie(b->date, b->vendor, b->id);
    });
    return result;
}

/// Names of the records that expenses point at, for many of them.
class Names {
public:
    explicit Names(const Library& library) {
        for (const Category& one : library.categories) names_.emplace(one.id, one.name);
        for (const Project& one : library.projects) names_.emplace(one.id, one.name);
        for (const Client& one : library.clients) names_.emplace(one.id, one.name);
        for (const Document& one : library.documents) names_.emplace(one.id, one.displayNumber());
    }
    [[nodiscard]] std::string of(const std::optional<UUID>& id) const {
        const auto found = id ? names_.find(*id) : names_.end();
        return found == names_.end() ? "" : found->second;
    }

private:
    std::unordered_map<UUID, std::string> names_;
};

std::string yes(bool value) { return value ? "Yes" : ""; }

/// In the home currency what the reports count, so that the column adds up to the spending.
Table::Cell costInHome(const Library& library, const Expense& expense) {
    if (!isBelievable(expense.amount) || !isBelievable(expense.tax)) return {};
    return homeCell(library, Expenses::inHomeCurrency(library, expense, expense.cost()));
}

std::string filesOf(const Expense& expense, const FileNames& files) {
    std::vector<std::string> names;
    for (const Attachment& attachment : expense.attachments)
        if (const auto found = files.find(attachment.path); found != files.end()) names.push_back(found->second);
    return Text::join(names, "; ");
}

Table expenseTable(const Library& library, const Period& period, const FileNames& files, std::string title,
                   const std::function<bool(const Expense&)>& fits) {
    const Names names(library);
    Table table;
    table.title = std::move(title);
    table.subtitle = period.label();
    table.columns = {{"Date", Kind::day},
                     {"Vendor"},
                     {"GSTIN"},
                     {"Category"},
                     {"Project"},
                     {"Client"},
                     {"Method"},
                     {"Currency"},
                     {"Exchange rate"},
                     {"Amount", Kind::amount},
                     {"CGST", Kind::amount},
                     {"SGST", Kind::amount},
                     {"IGST", Kind::amount},
                     {"Other tax", Kind::amount},
                     {"Tax claimed"},
                     {"Cost", Kind::amount},
                     homeColumn(library, "Cost"),
                     {"Billable"},
                     {"Billed on"},
                     {"Receipt"},
                     {"Notes"}};
    for (const Expense* expense : expensesOf(library, period, fits)) {
        const bool isKnown = isBelievable(expense->amount) && isBelievable(expense->tax);
        const auto own = [&](std::int64_t amount) { return amountOf(expense->currency, amount); };
        table.rows.push_back({{expense->date,
                               expense->vendor,
                               expense->vendorTaxID,
                               names.of(expense->categoryID),
                               names.of(expense->projectID),
                               names.of(expense->clientID),
                               methodName(expense->method),
                               expense->currency,
                               rateText(expense->rateMicros),
                               own(expense->amount),
                               own(expense->taxSplit.cgst),
                               own(expense->taxSplit.sgst),
                               own(expense->taxSplit.igst),
                               own(expense->taxSplit.other),
                               yes(expense->claimTax),
                               isKnown ? Table::Cell(own(expense->cost())) : Table::Cell(),
                               costInHome(library, *expense),
                               yes(expense->billable),
                               names.of(expense->rebilledInvoiceID),
                               filesOf(*expense, files),
                               expense->notes},
                              {},
                              {expense->id}});
    }
    return table;
}

/// What each bank line was matched with.
class Matches {
public:
    explicit Matches(const Library& library) {
        for (const Document& invoice : library.documents) {
            for (const Payment& payment : invoice.payments)
                if (payment.bankTxnID) matches_[*payment.bankTxnID].push_back("Invoice " + invoice.displayNumber());
        }
        for (const Expense& expense : library.expenses) {
            const std::string name = "Expense " + expense.date.iso() + " " + expense.vendor;
            if (expense.bankTxnID) matches_[*expense.bankTxnID].push_back(name);
        }
    }
    [[nodiscard]] std::string of(const BankTransaction& line) const {
        if (const auto found = matches_.find(line.id); found != matches_.end()) return Text::join(found->second, "; ");
        return line.ignored ? "Ignored" : "";
    }

private:
    std::unordered_map<UUID, std::vector<std::string>> matches_;
};

Table lineTable(const Library& library, const Period& period, const std::function<bool(const BankTransaction&)>& fits) {
    std::unordered_map<UUID, const BankAccount*> accounts;
    for (const BankAccount& account : library.accounts) accounts.emplace(account.id, &account);
    const Matches matches(library);
    std::vector<std::pair<const BankTransaction*, const BankAccount*>> lines;
    for (const BankTransaction& line : library.transactions) {
        if (!period.contains(line.date) || !fits(line)) continue;
        const auto account = line.accountID ? accounts.find(*line.accountID) : accounts.end();
        lines.emplace_back(&line, account == accounts.end() ? nullptr : account->second);
    }
    // Lines of one day keep the order of their statement.
    std::stable_sort(lines.begin(), lines.end(),
                     [](const auto& a, const auto& b) { return a.first->date < b.first->date; });
    Table table;
    table.title = "Bank lines";
    table.subtitle = period.label();
    table.columns = {{"Date", Kind::day},
                     {"Account"},
                     {"Narration"},
                     {"Reference"},
                     {"Currency"},
                     {"Amount", Kind::amount},
                     {"Balance", Kind::amount},
                     {"Matched with"}};
    for (const auto& [line, account] : lines) {
        const std::string currency = account ? account->currency : library.home().code;
        table.rows.push_back(
            {{line->date, account ? account->name : "", line->text, line->reference, currency,
              amountOf(currency, line->amount),
              line->balance ? Table::Cell(amountOf(currency, *line->balance)) : Table::Cell(), matches.of(*line)},
             {},
             {}});
    }
    return table;
}

}  // namespace

Table expenses(const Library& library, const Period& period, const FileNames& files) {
    return expenseTable(library, period, files, "Expenses", [](const Expense&) { return true; });
}

Table equipment(const Library& library, const Period& period, const FileNames& files) {
    return expenseTable(library, period, files, "Equipment", [&library](const Expense& expense) {
        const Category* category = expense.categoryID ? library.category(*expense.categoryID) : nullptr;
        return category && Text::contains(Text::lower(category->name), "equipment");
    });
}

Table trips(const Library& library, const Period& period) {
    const Names names(library);
    Table table;
    table.title = "Mileage";
    table.subtitle = period.label();
    table.columns = {{"Date", Kind::day},
                     {"Trip"},
                     {"Project"},
                     {"Client"},
                     {"Distance, " + library.business.distanceUnit, Kind::quantity},
                     {"Rate", Kind::amount},
                     {"Amount", Kind::amount},
                     {"Notes"}};
    const auto isTrip = [](const Expense& expense) { return expense.kind == ExpenseKind::mileage; };
    for (const Expense* trip : expensesOf(library, period, isTrip))
        table.rows.push_back(
            {{trip->date, trip->vendor, names.of(trip->projectID), names.of(trip->clientID), trip->distanceMilli,
              amountOf(trip->currency, trip->mileageRateMinor), amountOf(trip->currency, trip->amount), trip->notes},
             {},
             {trip->id}});
    return table;
}

Table bankLines(const Library& library, const Period& period) {
    return lineTable(library, period, [](const BankTransaction&) { return true; });
}

Table bankLines(const Library& library, const Period& period, const BankAccount* account) {
    return lineTable(library, period, [&](const BankTransaction& line) {
        if (account) return line.accountID == account->id;
        return !line.accountID || !find(library.accounts, *line.accountID);
    });
}

}  // namespace tamba::BookTables

namespace tamba::BookCells {

std::string methodName(PaymentMethod method) {
    static constexpr std::array names{"UPI",        "Card",   "Bank transfer", "Cash",
                                      "Petty cash", "Cheque", "Wallet",        "Other"};
    return names.at(static_cast<std::size_t>(method));
}

}  // namespace tamba::BookCells
