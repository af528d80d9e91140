#include "TambaCore/Documents/Rebilling.h"

#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Standing.h"

#include <algorithm>

namespace tamba::Rebilling {
namespace {

bool isOn(const Document& draft, const UUID& expense) {
    return std::any_of(draft.lines.begin(), draft.lines.end(),
                       [&](const Line& line) { return line.expenseID == expense; });
}

bool isBilledElsewhere(const Expense& expense, const Document& draft) {
    return expense.rebilledInvoiceID && expense.rebilledInvoiceID != draft.id;
}

/// What the client is to bear, in minor units of the expense's currency; nothing where there is nothing to bill.
std::optional<std::int64_t> cost(const Expense& expense) {
    if (!isBelievable(expense.amount) || !isBelievable(expense.tax)) return {};
    const std::int64_t cost = expense.cost();
    return cost > 0 ? std::optional(cost) : std::nullopt;
}

std::int64_t price(const Library& library, const Expense& expense, const Document& draft) {
    const auto refuse = [&](const char* sentenceEnd) {
        return BooksError(BooksError::Code::figures, "The expense from “" + expense.vendor + "” " + sentenceEnd);
    };
    const auto billed = cost(expense);
    if (!billed) throw refuse("has no cost that can be billed. Check its amount.");
    if (expense.currency == draft.currency) return *billed;
    const std::string& home = library.business.homeCurrency;
    for (const auto& [currency, rate] :
         {std::pair(expense.currency, expense.rateMicros), {draft.currency, draft.rateMicros}})
        if (currency != home && rate < 1) throw BooksError(BooksError::Code::missingRate, currency);
    if (const auto atHome = Expenses::inHomeCurrency(library, expense, *billed))
        if (const auto result = Books::fromHomeCurrency(library, draft, *atHome)) return *result;
    throw refuse("comes to more than can be right. Check its exchange rate.");
}

/// What the client may read of the expense; its notes are the owner's own.
std::string detail(const Library& library, const Expense& expense, const Document& draft) {
    std::string text = expense.date.formatted("d MMM yyyy");
    if (expense.kind == ExpenseKind::mileage)
        text += " · " + MoneyFormat::quantity(expense.distanceMilli) + " " + library.business.distanceUnit;
    if (expense.currency != draft.currency)
        text += " · " + expense.currency + " " +
                MoneyFormat::string(expense.cost(), Currency::of(expense.currency), MoneyFormat::Symbol::hidden);
    return text;
}

}  // namespace

std::vector<const Expense*> candidates(const Library& library, const Document& draft) {
    std::vector<const Expense*> all;
    if (draft.kind != DocKind::invoice) return all;
    for (const Expense& expense : library.expenses) {
        const bool fits = !expense.clientID || expense.clientID == draft.clientID;
        if (fits && expense.billable && cost(expense) && !isBilledElsewhere(expense, draft) && !isOn(draft, expense.id))
            all.push_back(&expense);
    }
    std::stable_sort(all.begin(), all.end(), [](const Expense* a, const Expense* b) {
        return std::pair(!a->clientID, a->date) < std::pair(!b->clientID, b->date);
    });
    return all;
}

Document withExpenses(const Library& library, Document draft, const std::vector<UUID>& expenses) {
    if (draft.state != DocState::draft) throw BooksError(BooksError::Code::notDraft);
    if (draft.kind != DocKind::invoice) throw BooksError(BooksError::Code::notInvoice);
    const Business& business = library.business;
    const int taxBP = !draft.lines.empty()          ? draft.lines.front().taxBP
                      : chargesTax(business.regime) ? business.defaultTaxBP
                                                    : 0;
    const std::string hsn = draft.lines.empty() ? "" : draft.lines.front().hsn;
    for (const UUID& id : expenses) {
        const Expense* expense = library.expense(id);
        if (!expense || isOn(draft, id)) continue;
        if (isBilledElsewhere(*expense, draft)) throw BooksError(BooksError::Code::alreadyBilled);
        Line line;
        line.id = UUID::derived(draft.id, id.text());
        line.name = expense->vendor.empty() ? "Expense" : expense->vendor;
        line.priceMinor = price(library, *expense, draft);
        line.detail = detail(library, *expense, draft);
        line.hsn = hsn;
        line.taxBP = taxBP;
        line.expenseID = id;
        draft.lines.push_back(std::move(line));
    }
    return draft;
}

}  // namespace tamba::Rebilling
