#include "TambaCore/Bank/Matching.h"

#include "TambaCore/Bank/Candidates.h"
#include "TambaCore/Bank/Rules.h"
#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/BooksParts.h"
#include "TambaCore/Documents/Expenses.h"

#include <algorithm>
#include <cstdlib>
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

/// Rates move between the invoice and its payment, and banks take their part; more than this is another matter.
constexpr std::int64_t exchangeShare = 10;

bool isNear(std::int64_t a, std::int64_t b) { return std::abs(Checked::sub(a, b)) <= b / exchangeShare; }

/// What a part of a line is worth at home.
std::optional<std::int64_t> inHomeCurrency(const Library& library, const BankTransaction& line, std::int64_t amount) {
    const Currency own = currency(library, line);
    const auto rate = own.code == library.home().code ? 1'000'000 : library.rate(own.code);
    return MoneyMath::tryConvert(amount, own, library.home(), rate.value_or(0));
}

bool isExchanged(const Library& library, const BankTransaction& line, const Document& invoice) {
    return currency(library, line).code != Currency::of(invoice.currency).code;
}

/// What a payment takes of the line, in the line's currency.
std::optional<std::int64_t> taken(const Library& library, const BankTransaction& line, const Document& invoice,
                                  std::int64_t amount) {
    if (!isExchanged(library, line, invoice)) return amount;
    const auto atHome = Books::inHomeCurrency(library, invoice, amount);
    if (!atHome || currency(library, line).code == library.home().code) return atHome;
    const auto lineAtHome = inHomeCurrency(library, line, line.amount);
    if (!lineAtHome || *lineAtHome < 1) return std::nullopt;
    // Where the line is worth next to nothing at home, the quotient need not fit.
    __extension__ using Wide = __int128;
    const Wide value = static_cast<Wide>(line.amount) * *atHome / *lineAtHome;
    if (value > maximumAmount || value < -maximumAmount) return std::nullopt;
    return MoneyMath::mulDiv(line.amount, *atHome, *lineAtHome);
}

bool isOf(const Payment& payment, const BankTransaction& line) {
    return payment.bankTxnID == line.id || (payment.id == line.paymentID && !payment.bankTxnID);
}

/// Calls `visit(invoice, payment)` for the payments the line is linked to.
template <class Visit>
void forEachPayment(const Library& library, const BankTransaction& line, Visit&& visit) {
    for (const Document& document : library.documents)
        for (const Payment& payment : document.payments)
            if (isOf(payment, line)) visit(document, payment);
}

using Payments = std::vector<std::pair<const Document*, const Payment*>>;  // with the invoices they are on

/// What the payments leave of the line.
std::int64_t restAfter(const Library& library, const BankTransaction& line, const Payments& payments) {
    if (line.amount < 1 || !isBelievable(line.amount)) return 0;
    std::int64_t rest = line.amount, exchanged = 0;
    for (const auto& [invoice, payment] : payments) {
        const auto worth = taken(library, line, *invoice, payment->amount);
        if (!worth || !isBelievable(*worth)) return 0;
        rest = Checked::sub(rest, *worth);
        if (isExchanged(library, line, *invoice)) exchanged = Checked::add(exchanged, *worth);
    }
    if (exchanged > 0 && std::abs(rest) <= exchanged / exchangeShare) return 0;
    return std::max<std::int64_t>(rest, 0);
}

/// Refuses a line that is linked, unless one of several payments was removed and its part is free.
std::int64_t needUnassigned(const Library& library, const BankTransaction& line) {
    const std::int64_t rest = unassigned(library, line);
    refuseIf(rest < 1 && isLinked(library, line), Code::lineMatched);
    refuseIf(line.amount < 0, Code::wrongDirection);
    return rest;
}

/// The same id whoever makes the payment: two machines that match the same line have made one. A line that pays an
/// invoice a second time, after a part of it came free, needs another.
UUID paymentID(const BankTransaction& line, const UUID& invoice, bool again) {
    return UUID::derived(line.id, (again ? "further payment on " : "payment on ") + invoice.text());
}

/// Whether the line made the payment. Any other was recorded by somebody, however much it says the same.
bool isMadeBy(const BankTransaction& line, const UUID& invoice, const Payment& payment) {
    return payment.id == paymentID(line, invoice, false) || payment.id == paymentID(line, invoice, true);
}

/// Whether no line that is in the books is linked to the payment.
bool isTyped(const Library& library, const Payment& payment) {
    return std::none_of(library.transactions.begin(), library.transactions.end(),
                        [&payment](const BankTransaction& line) { return isOf(payment, line); });
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
    if (!isExchanged(library, line, invoice)) return share;
    const auto atHome = inHomeCurrency(library, line, share);
    if (!atHome) throw BooksError(Code::missingRate, currency(library, line).code);
    if (Books::inHomeCurrency(library, invoice, balance) == atHome) return balance;
    const auto amount = Books::fromHomeCurrency(library, invoice, *atHome);
    if (!amount) throw BooksError(Code::missingRate, invoice.currency);
    return *amount;
}

/// Money of another currency that is near the balance was meant to be it.
std::int64_t withExchange(const Library& library, const BankTransaction& line, const Share& share,
                          const Document& invoice, std::int64_t balance, std::int64_t amount) {
    const bool isIt = isExchanged(library, line, invoice) && isNear(amount, balance);
    if (share.remainder == Remainder::asExchange && !isIt)
        throw BooksError(Code::split,
                         "Only money that was exchanged can be lost in exchange, and no more than a tenth of what is "
                         "to be paid.");
    return isIt && (amount > balance || share.remainder == Remainder::asExchange) ? balance : amount;
}

Payment paymentFrom(const Library& library, const BankTransaction& line, const Share& share, const Document& invoice,
                    std::int64_t balance) {
    Payment payment;
    payment.id = paymentID(line, invoice.id, false);
    for (const Payment& other : invoice.payments)
        if (other.id == payment.id) payment.id = paymentID(line, invoice.id, true);
    payment.date = line.date;
    payment.amount = withExchange(library, line, share, invoice, balance,
                                  inInvoiceCurrency(library, line, share.amount, invoice, balance));
    if (share.remainder == Remainder::asTDS) payment.tds = std::max<std::int64_t>(0, balance - payment.amount);
    payment.method = methodOf(line.text);
    payment.reference = line.reference;
    payment.bankTxnID = line.id;
    return payment;
}

/// The shares come to the line, are above zero and for invoices of their own; else throws `split`.
void needShares(const Library& library, const BankTransaction& line, std::int64_t rest,
                const std::vector<Share>& shares) {
    std::unordered_set<UUID> invoices;
    std::int64_t sum = 0;
    for (const Share& share : shares) {
        if (share.amount < 1 || !isBelievable(share.amount))
            throw BooksError(Code::split, "Each share of a bank line needs an amount above zero.");
        if (!invoices.insert(share.invoice).second)
            throw BooksError(Code::split, "Two shares are for the same invoice. Make them one.");
        sum = Checked::add(sum, share.amount);
    }
    if (sum == rest && sum > 0) return;
    const auto text = [own = currency(library, line)](std::int64_t minor) { return MoneyFormat::string(minor, own); };
    throw BooksError(Code::split,
                     "The shares come to " + text(sum) + ", but " +
                         (rest == line.amount ? "the bank line is " : "what is left of the bank line is ") +
                         text(rest) + ".");
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
    if (!line.paymentID) linkPayment(library, index, first->first, first->second);
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
        } else if (found->payment) {
            const UUID lineID = line->id, invoiceID = books.documents[found->position].id;
            linkPayment(books, i, invoiceID, books.documents[found->position].payments[*found->payment].id);
            books.documents.update(found->position,
                                   [&](Document& paid) { paid.payments[*found->payment].bankTxnID = lineID; });
            candidates.claim(found->position, *found->payment);
        } else {
            const std::shared_ptr<const Document> invoice = books.documents.at(found->position);
            const std::int64_t balance = candidates.balance(found->position);
            Payment payment;
            try {
                payment = paymentFrom(books, *line, {invoice->id, line->amount}, *invoice, balance);
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
    refuseIf(found->amount == 0 || !isBelievable(found->amount), Code::badPayment);
    const std::int64_t rest = needUnassigned(library, *found);
    return splitReceipt(std::move(library), line, {{invoice, rest, remainder}});
}

Library splitReceipt(Library library, const UUID& line, const std::vector<Share>& shares) {
    const std::size_t index = indexOf(library.transactions, line);
    const auto isThere = [&library](const Share& share) { return library.document(share.invoice) != nullptr; };
    if (index == library.transactions.size() || !std::all_of(shares.begin(), shares.end(), isThere)) return library;
    const BankTransaction& receipt = library.transactions[index];
    needShares(library, receipt, needUnassigned(library, receipt), shares);
    return payShares(std::move(library), index, shares);
}

std::unordered_map<UUID, std::int64_t> partlyMatched(const Library& library) {
    std::unordered_map<UUID, Payments> byLine, byPayment;
    for (const Document& document : library.documents)
        for (const Payment& payment : document.payments)
            (payment.bankTxnID ? byLine[*payment.bankTxnID] : byPayment[payment.id]).emplace_back(&document, &payment);
    std::unordered_map<UUID, std::int64_t> rests;
    for (const BankTransaction& line : library.transactions) {
        if (!line.isMatched() || line.expenseID || line.amount < 1) continue;
        Payments its;
        if (const auto found = byLine.find(line.id); found != byLine.end()) its = found->second;
        if (const auto found = line.paymentID ? byPayment.find(*line.paymentID) : byPayment.end();
            found != byPayment.end())
            its.insert(its.end(), found->second.begin(), found->second.end());
        const std::int64_t rest = restAfter(library, line, its);
        if (rest > 0) rests.emplace(line.id, rest);
    }
    for (const Expense& expense : library.expenses)
        if (expense.bankTxnID) rests.erase(*expense.bankTxnID);
    return rests;
}

std::int64_t unassigned(const Library& library, const BankTransaction& line) {
    const bool isExpense = std::any_of(library.expenses.begin(), library.expenses.end(),
                                       [&line](const Expense& expense) { return expense.bankTxnID == line.id; });
    if (line.expenseID || isExpense) return 0;
    Payments payments;
    forEachPayment(library, line, [&payments](const Document& invoice, const Payment& payment) {
        payments.emplace_back(&invoice, &payment);
    });
    return restAfter(library, line, payments);
}

std::vector<TypedPayment> typedPayments(const Library& library, const BankTransaction& line, int dayWindow) {
    std::vector<TypedPayment> found;
    const std::int64_t rest = unassigned(library, line);
    if (rest < 1) return found;
    for (const Document& document : library.documents)
        for (const Payment& payment : document.payments) {
            const std::int64_t days = std::abs(payment.date.daysUntil(line.date));
            if (days > dayWindow) continue;
            const auto worth = taken(library, line, document, payment.amount);
            if (!worth || !(isExchanged(library, line, document) ? isNear(rest, *worth) : *worth == rest)) continue;
            if (isTyped(library, payment)) found.push_back({document.id, payment.id, days});
        }
    std::stable_sort(found.begin(), found.end(),
                     [](const TypedPayment& a, const TypedPayment& b) { return a.days < b.days; });
    return found;
}

Library matchToPayment(Library library, const UUID& line, const UUID& invoice, const UUID& payment) {
    const std::size_t lineAt = indexOf(library.transactions, line), paidAt = indexOf(library.documents, invoice);
    if (lineAt == library.transactions.size() || paidAt == library.documents.size()) return library;
    const Document& paid = library.documents[paidAt];
    const auto found =
        std::find_if(paid.payments.begin(), paid.payments.end(), [&](const Payment& one) { return one.id == payment; });
    if (found == paid.payments.end()) return library;
    const BankTransaction& receipt = library.transactions[lineAt];
    const std::int64_t rest = needUnassigned(library, receipt);
    if (!isTyped(library, *found)) throw BooksError(Code::split, "That payment is matched with another bank line.");
    const auto worth = taken(library, receipt, paid, found->amount);
    if (!worth || (*worth > rest && !(isExchanged(library, receipt, paid) && isNear(rest, *worth))))
        throw BooksError(Code::split, "The payment is " +
                                          MoneyFormat::string(found->amount, Currency::of(paid.currency)) +
                                          ", but the bank line has " +
                                          MoneyFormat::string(rest, currency(library, receipt)) + " for it.");
    if (!receipt.paymentID) linkPayment(library, lineAt, invoice, payment);
    library.documents.update(paidAt, [&](Document& document) {
        for (Payment& one : document.payments)
            if (one.id == payment) one.bankTxnID = line;
    });
    return library;
}

std::optional<ExchangeDifference> exchangeDifference(const Library& library, const BankTransaction& line) {
    const auto received = inHomeCurrency(library, line, line.amount);
    if (!received || line.amount < 1 || unassigned(library, line) > 0) return std::nullopt;
    std::optional<std::int64_t> difference = *received;
    std::vector<std::string> numbers;
    forEachPayment(library, line, [&](const Document& invoice, const Payment& payment) {
        const bool isExchange = isExchanged(library, line, invoice);
        if (isExchange) numbers.push_back(invoice.displayNumber());
        const auto worth = isExchange ? Books::inHomeCurrency(library, invoice, payment.amount)
                                      : inHomeCurrency(library, line, payment.amount);
        difference = difference && worth ? Checked::tryAdd(*difference, -*worth) : std::nullopt;
    });
    // What rounding leaves is less than a whole unit.
    if (numbers.empty() || !difference || std::abs(*difference) < library.home().scale()) return std::nullopt;
    const bool gain = *difference > 0;
    return ExchangeDifference{*difference, MoneyFormat::string(std::abs(*difference), library.home()) +
                                               (gain ? " more than at the rate of " : " less than at the rate of ") +
                                               Text::join(numbers, ", ") +
                                               (gain ? ": an exchange gain." : ": an exchange loss.")};
}

Library unmatch(Library library, const UUID& id) {
    const std::size_t index = indexOf(library.transactions, id);
    if (index == library.transactions.size()) return library;
    const BankTransaction line = library.transactions[index];
    const auto isIts = [&line](const Payment& payment) { return isOf(payment, line); };
    for (std::size_t i = 0; i < library.expenses.size(); ++i)
        if (library.expenses[i].bankTxnID == id)
            library.expenses.update(i, [](Expense& expense) { expense.bankTxnID.reset(); });
    for (std::size_t i = 0; i < library.documents.size(); ++i) {
        const std::vector<Payment>& payments = library.documents[i].payments;
        if (std::any_of(payments.begin(), payments.end(), isIts))
            library.documents.update(i, [&](Document& paid) {
                std::erase_if(paid.payments,
                              [&](const Payment& one) { return isIts(one) && isMadeBy(line, paid.id, one); });
                for (Payment& typed : paid.payments)
                    if (isIts(typed)) typed.bankTxnID.reset();
            });
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
    Expense expense = expenseFrom(library, line);
    if (expense.rateMicros > 0 && !Expenses::inHomeCurrency(library, expense, expense.amount))
        throw BooksError(Code::figures, "The exchange rate kept for " + expense.currency +
                                            " is too large to be right for this bank line.");
    library = Expenses::add(std::move(library), std::move(expense));
    const std::size_t added = library.expenses.size() - 1;
    linkExpense(library, index, added);
    expense = library.expenses[added];
    return {std::move(library), std::move(expense)};
}

}  // namespace tamba::Bank
