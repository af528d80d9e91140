#include "TambaCore/Bank/Matching.h"

#include "TambaCore/Bank/Candidates.h"
#include "TambaCore/Bank/Rules.h"
#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/BooksParts.h"
#include "TambaCore/Documents/Expenses.h"

#include <algorithm>
#include <unordered_set>

namespace tamba::Bank {
namespace {

using Books::refuseIf;
using Code = BooksError::Code;

/// Whether the books, seen from either side, link the line to something.
bool isLinked(const Library& library, const BankTransaction& line) {
    const auto byLine = [&line](const auto& record) { return record.bankTxnID == line.id; };
    return line.isMatched() || std::any_of(library.expenses.begin(), library.expenses.end(), byLine) ||
           std::any_of(library.documents.begin(), library.documents.end(), [&](const Document& document) {
               return std::any_of(document.payments.begin(), document.payments.end(), byLine);
           });
}

/// Whether another line that is in the books is linked to the expense.
bool isLinked(const Library& library, const Expense& expense) {
    return std::any_of(library.transactions.begin(), library.transactions.end(), [&](const BankTransaction& line) {
        return line.expenseID == expense.id || line.id == expense.bankTxnID;
    });
}

void linkExpense(Library& library, std::size_t line, std::size_t expense) {
    const UUID lineID = library.transactions[line].id, expenseID = library.expenses[expense].id;
    library.transactions.update(line, [&](BankTransaction& linked) {
        linked.expenseID = expenseID;
        linked.invoiceID.reset();
        linked.ignored = false;
    });
    library.expenses.update(expense, [&](Expense& linked) { linked.bankTxnID = lineID; });
}

void linkPayment(Library& library, std::size_t line, const UUID& invoice, const UUID& payment) {
    library.transactions.update(line, [&](BankTransaction& linked) {
        linked.invoiceID = invoice;
        linked.paymentID = payment;
        linked.ignored = false;
    });
}

/// How the narration says the money moved: "UPI/DR/…", "UPIAR/…", "POS 4160…", "CHQ PAID …"; else a transfer. Not in
/// the middle of a word: "compose", "cupid".
PaymentMethod methodOf(const std::string& narration) {
    static const Text::Pattern upi("(?i)\\bupi");
    static const Text::Pattern card("(?i)\\b(?:pos|card|visa|rupay|mastercard)\\b");
    static const Text::Pattern cheque("(?i)\\b(?:chq|cheque)\\b");
    if (upi.matches(narration)) return PaymentMethod::upi;
    if (card.matches(narration)) return PaymentMethod::card;
    return cheque.matches(narration) ? PaymentMethod::cheque : PaymentMethod::bank;
}

/// What the share of a line is in the invoice's currency. One that is the balance in the home currency is all of it,
/// whatever the rounding.
std::int64_t inInvoiceCurrency(const Library& library, const BankTransaction& line, std::int64_t share,
                               const Document& invoice, std::int64_t balance) {
    const Currency own = currency(library, line);
    if (own.code == Currency::of(invoice.currency).code) return share;
    const auto rate = own.code == library.home().code ? 1'000'000 : library.rate(own.code);
    const auto atHome = MoneyMath::tryConvert(share, own, library.home(), rate.value_or(0));
    if (!atHome) throw BooksError(Code::missingRate, own.code);
    if (Books::inHomeCurrency(library, invoice, balance) == atHome) return balance;
    const auto amount = Books::fromHomeCurrency(library, invoice, *atHome);
    if (!amount) throw BooksError(Code::missingRate, invoice.currency);
    return *amount;
}

/// The payment has the same id whoever makes it: two machines that match the same line have made one payment.
Payment paymentFrom(const Library& library, const BankTransaction& line, const Share& share, const Document& invoice,
                    std::int64_t balance) {
    Payment payment;
    payment.id = UUID::derived(line.id, "payment on " + invoice.id.text());
    payment.date = line.date;
    payment.amount = inInvoiceCurrency(library, line, share.amount, invoice, balance);
    if (share.remainder == Remainder::asTDS) payment.tds = std::max<std::int64_t>(0, balance - payment.amount);
    payment.method = methodOf(line.text);
    payment.reference = line.reference;
    payment.bankTxnID = line.id;
    return payment;
}

/// The shares come to the line, are above zero and for invoices of their own; else throws `split`.
void needShares(const Library& library, const BankTransaction& line, const std::vector<Share>& shares) {
    std::unordered_set<UUID> invoices;
    std::int64_t sum = 0;
    for (const Share& share : shares) {
        if (share.amount < 1 || !isBelievable(share.amount))
            throw BooksError(Code::split, "Each share of a bank line needs an amount above zero.");
        if (!invoices.insert(share.invoice).second)
            throw BooksError(Code::split, "Two shares are for the same invoice. Make them one.");
        sum = Checked::add(sum, share.amount);
    }
    if (sum == line.amount && sum > 0) return;
    const auto text = [own = currency(library, line)](std::int64_t minor) { return MoneyFormat::string(minor, own); };
    throw BooksError(Code::split,
                     "The shares come to " + text(sum) + ", but the bank line is " + text(line.amount) + ".");
}

Library payShares(Library library, std::size_t index, const std::vector<Share>& shares) {
    const BankTransaction line = library.transactions[index];
    std::optional<std::pair<UUID, UUID>> first;
    for (const Share& share : shares) {
        const Document* invoice = library.document(share.invoice);
        const std::int64_t balance = Books::balance(library, *invoice);
        Payment payment = paymentFrom(library, line, share, *invoice, balance);
        if (!first) first = {invoice->id, payment.id};
        library = Books::recordPayment(std::move(library), share.invoice, std::move(payment));
    }
    linkPayment(library, index, first->first, first->second);
    return library;
}

/// The category of the statement's own word for it, where the books have one of that name.
std::optional<UUID> hintedCategory(const Library& library, const BankTransaction& line) {
    const std::string hint = Text::lower(Text::trim(line.categoryHint.value_or("")));
    for (const Category& category : library.categories)
        if (!hint.empty() && Text::lower(Text::trim(category.name)) == hint) return category.id;
    return {};
}

Expense expenseFrom(const Library& library, const BankTransaction& line) {
    Expense expense = Expenses::withCurrency(library, Expense::make(line.date), currency(library, line).code);
    expense.amount = Checked::neg(line.amount);
    expense.vendor = Text::trim(line.counterparty.value_or(""));
    if (expense.vendor.empty()) expense.vendor = Text::trim(line.text);
    expense.method = methodOf(line.text);
    expense = Rules::applied(library, std::move(expense), line.text);
    if (!expense.categoryID) expense = Expenses::withCategory(library, expense, hintedCategory(library, line));
    return expense;
}

}  // namespace

Currency currency(const Library& library, const BankTransaction& line) {
    const BankAccount* account = line.accountID ? find(library.accounts, *line.accountID) : nullptr;
    return account ? Currency::of(account->currency) : library.home();
}

AutoMatched autoMatch(Library library) {
    Matcher::Candidates candidates(library);
    AutoMatched result{std::move(library), 0};
    Library& books = result.library;
    for (std::size_t i = 0; i < books.transactions.size(); ++i) {
        const std::shared_ptr<const BankTransaction> line = books.transactions.at(i);
        if (line->expenseID || line->paymentID || line->ignored) continue;
        const auto found = candidates.obvious(*line);
        if (!found) continue;
        if (found->kind == MatchSuggestion::Target::Kind::expense) {
            linkExpense(books, i, found->position);
            candidates.take(found->position);
        } else {
            const std::shared_ptr<const Document> invoice = books.documents.at(found->position);
            const std::int64_t balance = candidates.balance(found->position);
            Payment payment;
            try {
                payment = paymentFrom(books, *line, {invoice->id, line->amount, Remainder::due}, *invoice, balance);
                Books::needPayable(*invoice, balance, payment);
            } catch (const BooksError&) {
                continue;  // one line of many: it stays open for a person to look at
            }
            linkPayment(books, i, invoice->id, payment.id);
            candidates.settle(found->position, payment.settles());
            books.documents.update(found->position, [&](Document& paid) { paid.payments.push_back(payment); });
        }
        ++result.count;
    }
    return result;
}

Library matchToExpense(Library library, const UUID& line, const UUID& expense) {
    const std::size_t lineAt = indexOf(library.transactions, line), expenseAt = indexOf(library.expenses, expense);
    if (lineAt == library.transactions.size() || expenseAt == library.expenses.size()) return library;
    refuseIf(isLinked(library, library.transactions[lineAt]), Code::lineMatched);
    refuseIf(isLinked(library, library.expenses[expenseAt]), Code::expenseMatched);
    const bool bothOut = library.transactions[lineAt].amount < 0 && library.expenses[expenseAt].amount < 0;
    const bool bothIn = library.transactions[lineAt].amount >= 0 && library.expenses[expenseAt].amount >= 0;
    refuseIf(bothOut || bothIn, Code::wrongDirection);
    linkExpense(library, lineAt, expenseAt);
    return library;
}

Library matchToInvoice(Library library, const UUID& line, const UUID& invoice, Remainder remainder) {
    const BankTransaction* found = find(library.transactions, line);
    if (!found || !library.document(invoice)) return library;
    const std::int64_t amount = found->amount;
    refuseIf(amount == 0 || !isBelievable(amount), Code::badPayment);
    return splitReceipt(std::move(library), line, {{invoice, amount, remainder}});
}

Library splitReceipt(Library library, const UUID& line, const std::vector<Share>& shares) {
    const std::size_t index = indexOf(library.transactions, line);
    const auto isThere = [&library](const Share& share) { return library.document(share.invoice) != nullptr; };
    if (index == library.transactions.size() || !std::all_of(shares.begin(), shares.end(), isThere)) return library;
    const BankTransaction& receipt = library.transactions[index];
    refuseIf(isLinked(library, receipt), Code::lineMatched);
    refuseIf(receipt.amount < 0, Code::wrongDirection);
    needShares(library, receipt, shares);
    return payShares(std::move(library), index, shares);
}

Library unmatch(Library library, const UUID& id) {
    const std::size_t index = indexOf(library.transactions, id);
    if (index == library.transactions.size()) return library;
    const auto payment = library.transactions[index].paymentID;
    const auto madeByIt = [&](const Payment& one) {
        return one.bankTxnID == id || (one.id == payment && !one.bankTxnID);
    };
    for (std::size_t i = 0; i < library.expenses.size(); ++i)
        if (library.expenses[i].bankTxnID == id)
            library.expenses.update(i, [](Expense& expense) { expense.bankTxnID.reset(); });
    for (std::size_t i = 0; i < library.documents.size(); ++i) {
        const std::vector<Payment>& payments = library.documents[i].payments;
        if (std::any_of(payments.begin(), payments.end(), madeByIt))
            library.documents.update(i, [&](Document& paid) { std::erase_if(paid.payments, madeByIt); });
    }
    if (library.transactions[index].isMatched())
        library.transactions.update(index, [](BankTransaction& line) {
            line.expenseID.reset();
            line.invoiceID.reset();
            line.paymentID.reset();
        });
    return library;
}

Library setIgnored(Library library, const UUID& id, bool ignored) {
    const std::size_t index = indexOf(library.transactions, id);
    if (index == library.transactions.size() || library.transactions[index].ignored == ignored) return library;
    refuseIf(ignored && isLinked(library, library.transactions[index]), Code::lineMatched);
    library.transactions.update(index, [ignored](BankTransaction& line) { line.ignored = ignored; });
    return library;
}

Created createExpense(Library library, const UUID& id) {
    const std::size_t index = indexOf(library.transactions, id);
    if (index == library.transactions.size()) return {std::move(library), {}};
    const BankTransaction& line = library.transactions[index];
    refuseIf(isLinked(library, line), Code::lineMatched);
    refuseIf(line.amount >= 0, Code::wrongDirection);
    if (!isBelievable(line.amount))
        throw BooksError(Code::figures, "The amount of this bank line is too large to be right.");
    library = Expenses::add(std::move(library), expenseFrom(library, line));
    const std::size_t added = library.expenses.size() - 1;
    linkExpense(library, index, added);
    Expense expense = library.expenses[added];
    return {std::move(library), std::move(expense)};
}

}  // namespace tamba::Bank
