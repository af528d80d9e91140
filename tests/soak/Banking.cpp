#include "Tamba/Rows/BankRows.h"
#include "Tamba/Rows/ImportRows.h"
#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Bank/Rules.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Standing.h"
#include "tests/soak/Somebody.h"

namespace tamba::soak {

/// Some lines that fit what is in the books, some that nobody knows, some that came before.
Library Somebody::importStatement(Library library, Day today) {
    const BankAccount* account = one(library.accounts);
    StatementEdit edit{{}, {}, account && !oneIn(8) ? *account : BankAccount::make("Savings", currency())};
    for (auto n = 1 + upTo(5); n > 0; --n) {
        auto line = BankTransaction::make(around(today), "NEFT/" + vendor(), oneIn(3) ? upTo(900'000) : -amount());
        if (const Expense* expense = oneIn(2) ? one(library.expenses) : nullptr) {
            line =
                BankTransaction::make(expense->date.addingDays(upTo(3)), "UPI/DR/" + expense->vendor, -expense->amount);
        } else if (const Document* invoice =
                       oneIn(2) ? document(library, DocKind::invoice, DocState::issued) : nullptr) {
            const std::int64_t due = Books::balance(library, *invoice);
            const std::int64_t home = Books::inHomeCurrency(library, *invoice, due).value_or(due);
            line.amount = oneOf({due, home, due - due / 10, home + home / 50, due / 2});
            line.text += " " + invoice->displayNumber();
        } else if (const BankTransaction* known = oneIn(6) ? one(library.transactions) : nullptr) {
            line = *known;
            line.id = dice_.id();
            line.expenseID = line.invoiceID = line.paymentID = {};
        }
        if (!isBelievable(line.amount)) line.amount = 0;
        if (oneIn(4)) line.counterparty = vendor();
        if (oneIn(6)) edit.anyway.insert(line.id);
        edit.lines.push_back(std::move(line));
    }
    return tamba::importStatement(std::move(library), edit).library;
}

Library Somebody::matchObvious(Library library, Day) { return Bank::autoMatch(std::move(library)).library; }

/// One of the choices that the screen offers for a line.
Library Somebody::matchLine(Library library, Day) {
    const BankTransaction* line = one(library.transactions);
    for (int tries = 0; line && !line->isOpen() && tries < 5; ++tries) line = one(library.transactions);
    if (!line) return library;
    const UUID id = line->id;
    const std::vector<MatchChoice> choices = choicesFor(library, *line);
    if (choices.empty()) return library;
    const MatchChoice& choice = choices[static_cast<std::size_t>(upTo(std::int64_t(choices.size()) - 1))];
    if (choice.payment) return Bank::matchToPayment(std::move(library), id, choice.target.id, *choice.payment);
    return choice.target.kind == MatchSuggestion::Target::Kind::expense
               ? Bank::matchToExpense(std::move(library), id, choice.target.id)
               : Bank::matchToInvoice(std::move(library), id, choice.target.id, choice.remainder);
}

/// What the screen would not offer, and must be refused or come out right.
Library Somebody::matchAny(Library library, Day) {
    const BankTransaction* line = one(library.transactions);
    const Expense* expense = one(library.expenses);
    if (const Document* invoice = document(library, DocKind::invoice, DocState::issued); line && invoice && oneIn(2))
        return Bank::matchToInvoice(library, line->id, invoice->id,
                                    oneOf({Bank::Remainder::due, Bank::Remainder::asTDS, Bank::Remainder::asExchange}));
    return line && expense ? Bank::matchToExpense(library, line->id, expense->id) : library;
}

Library Somebody::splitReceipt(Library library, Day) {
    const BankTransaction* line = one(library.transactions);
    if (!line) return library;
    std::int64_t rest = Bank::unassigned(library, *line);
    std::vector<Bank::Share> shares;
    for (const Document& invoice : library.documents) {
        if (invoice.kind != DocKind::invoice || !invoice.isIssued() || rest < 1 || !oneIn(3)) continue;
        const std::int64_t share = std::min(rest, Books::balance(library, invoice));
        if (share < 1) continue;
        shares.push_back({invoice.id, share, oneOf({Bank::Remainder::due, Bank::Remainder::asTDS})});
        rest -= share;
    }
    if (!shares.empty() && oneIn(2)) shares.back().amount += rest;
    return shares.empty() ? library : Bank::splitReceipt(library, line->id, shares);
}

Library Somebody::unmatch(Library library, Day) {
    const BankTransaction* line = one(library.transactions);
    for (int tries = 0; line && !line->isMatched() && tries < 5; ++tries) line = one(library.transactions);
    return line ? Bank::unmatch(library, UUID(line->id)) : library;
}

Library Somebody::setAside(Library library, Day) {
    const BankTransaction* line = one(library.transactions);
    return line ? Bank::setIgnored(library, UUID(line->id), !line->ignored) : library;
}

Library Somebody::createExpense(Library library, Day) {
    const BankTransaction* line = one(library.transactions);
    if (!line) return library;
    Bank::Created created = Bank::createExpense(library, line->id);
    if (!created.expense || oneIn(2)) return created.library;
    Expense expense = Expenses::withCategory(created.library, *created.expense, oneOrNone(library.categories));
    return Expenses::replace(std::move(created.library), std::move(expense));
}

Library Somebody::changeAccounts(Library library, Day) {
    const BankAccount* account = oneIn(2) ? one(library.accounts) : nullptr;
    if (!account) {
        library.accounts.append(BankAccount::make(vendor() + " Bank", currency()));
        return library;
    }
    library.accounts.update(indexOf(library.accounts, UUID(account->id)),
                            [&](BankAccount& present) { present.name = vendor() + " account"; });
    return library;
}

Library Somebody::changeRules(Library library, Day) {
    if (const CategoryRule* rule = oneIn(3) ? one(library.rules) : nullptr) {
        const UUID id = rule->id;
        return oneIn(2) ? Rules::remove(std::move(library), id)
                        : Rules::move(library, id, static_cast<std::size_t>(upTo(std::int64_t(library.rules.size()))));
    }
    const Expense* expense = one(library.expenses);
    const auto rule = expense ? Rules::ruleFrom(library, *expense) : std::nullopt;
    return rule ? Rules::put(std::move(library), *rule) : library;
}

}  // namespace tamba::soak
