#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Converted.h"
#include "TambaCore/Reports/Export.h"
#include "TambaCore/Reports/Sum.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

namespace tamba::Export {
namespace {

/// The figures that reports call income and spending stand alone under `income:` and `expenses:`; what they don't count
/// (round-off, the paise of conversions, exchange differences) is under `equity:`.
constexpr std::string_view deferred = "liabilities:deferred income", roundOff = "equity:round-off",
                           rounding = "equity:rounding", exchangeDifference = "equity:exchange difference";
std::string owedBy(const std::string& client) { return "assets:receivable:" + client; }

/// A name as part of an account, payee or comment of both programs. Two blanks end an account's name, a semicolon
/// begins a comment, a colon divides accounts and makes a tag of a comment, a bar divides a payee, brackets make
/// virtual postings, codes and dates, and some signs have a meaning where a payee begins.
std::string safe(std::string_view name, std::string_view otherwise = "Unnamed") {
    std::string result;
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t begin = at;
        const char32_t c = Text::codePoint(name, at);
        const std::string_view character = name.substr(begin, at - begin);
        static constexpr std::u32string_view blanks = U"()[]{}<>\"\\`", leading = U"*!=%#@&~,;";
        if (c < U' ' || c == U'\x7F' || blanks.find(c) != blanks.npos || Text::trim(character).empty()) {
            if (!result.empty() && result.back() != ' ') result += ' ';
        } else if (!result.empty() || leading.find(c) == leading.npos) {
            result += c == U';' ? "," : c == U':' || c == U'|' ? "-" : character;
        }
    }
    const std::string_view trimmed = Text::trim(result);
    return std::string(trimmed.empty() ? otherwise : trimmed);
}

struct Posting {
    std::string account;
    std::int64_t amount = 0;
};

struct Transaction {
    Day date;
    bool cleared = false;  ///< seen on a bank statement
    std::string code, payee, comment;
    std::vector<Posting> postings;

    void post(std::string_view account, std::int64_t amount) {
        if (amount != 0) postings.push_back({std::string(account), amount});
    }
    void post(std::string_view account, const std::optional<std::int64_t>& amount, int sign) {
        post(account, sign * amount.value_or(0));
    }
    [[nodiscard]] std::int64_t open() const {
        std::int64_t sum = 0;
        for (const Posting& posting : postings) sum = Checked::add(sum, posting.amount);
        return sum;
    }
    /// Whatever the postings don't add up to goes to this account.
    void balance(std::string_view account) { post(account, Checked::neg(open())); }
};

void postTax(Transaction& transaction, std::string_view side, const TaxSplit& tax) {
    const std::string gst = (side == "output" ? "liabilities:gst:" : "assets:gst:") + std::string(side);
    transaction.post(gst + ":cgst", tax.cgst);
    transaction.post(gst + ":sgst", tax.sgst);
    transaction.post(gst + ":igst", tax.igst);
    transaction.post(side == "output" ? "liabilities:tax:output" : "assets:tax:input", tax.other);
}

std::string_view incomeAccount(SupplyType supply) {
    switch (supply) {
        case SupplyType::exportLUT:
        case SupplyType::exportWithIGST:
            return "income:exports";
        case SupplyType::sezLUT:
        case SupplyType::sezWithIGST:
            return "income:SEZ";
        default:
            return "income:sales";
    }
}

/// Where money of no known bank account comes from or goes to. What came back of an expense goes where it came from.
enum class Side { received, spent };
std::string_view accountOf(PaymentMethod method, Side side) {
    switch (method) {
        case PaymentMethod::upi:
            return "assets:bank:UPI";
        case PaymentMethod::card:
            return side == Side::spent ? "liabilities:card" : "assets:bank:card";
        case PaymentMethod::bank:
            return "assets:bank:transfer";
        case PaymentMethod::cash:
            return "assets:cash";
        case PaymentMethod::pettyCash:
            return "assets:cash:petty";
        case PaymentMethod::cheque:
            return "assets:bank:cheque";
        case PaymentMethod::wallet:
            return "assets:wallet";
        case PaymentMethod::other:
            return "assets:other";
    }
    fatal("unknown way to pay");
}

bool isBooked(const Document& document) {
    return document.state == DocState::issued && document.kind != DocKind::estimate;
}

class Journal {
public:
    Journal(const Library& library, IncomeBasis basis) : library_(library), basis_(basis) {
        for (const BankTransaction& line : library.transactions) lines_.try_emplace(line.id, &line);
        for (const Document& document : library.documents)
            if (isBooked(document) && document.kind == DocKind::invoice) noteReceipts(document);
        for (const Document& document : library.documents)
            if (isBooked(document)) add(document);
        for (const Expense& expense : library.expenses) add(expense);
        std::stable_sort(transactions_.begin(), transactions_.end(),
                         [](const Transaction& a, const Transaction& b) { return a.date < b.date; });
    }
    [[nodiscard]] std::string text() const;

private:
    void add(const Document& document);
    void addPayments(const Document& invoice, const DocTotals& sums);
    void add(const Expense& expense);
    void keep(Transaction transaction);
    void noteReceipts(const Document& invoice);
    [[nodiscard]] std::optional<std::int64_t> brought(const UUID& bankLine, std::int64_t amount);
    void moveMoney(Transaction& transaction, const std::optional<UUID>& bankLine, std::string_view otherwise,
                   std::int64_t amount, std::optional<std::int64_t> banked) const;
    [[nodiscard]] const BankTransaction* lineOf(const std::optional<UUID>& bankLine) const {
        const auto line = bankLine ? lines_.find(*bankLine) : lines_.end();
        return line == lines_.end() ? nullptr : line->second;
    }
    [[nodiscard]] bool isForeign(const std::string& currency) const {
        return currency != library_.business.homeCurrency;
    }
    /// "USD 2500.00 at 83.25", or nothing for the home currency.
    [[nodiscard]] std::string abroad(const std::string& currency, std::int64_t amount, std::int64_t rateMicros) const {
        if (!isForeign(currency)) return "";
        return ", " + safe(currency) + " " + MoneyFormat::plain(amount, Currency::of(currency)) + " at " +
               MoneyFormat::fxRate(rateMicros);
    }

    const Library& library_;
    const IncomeBasis basis_;
    std::unordered_map<UUID, const BankTransaction*> lines_;
    /// What the payments of one bank line come to, in the home currency.
    struct Receipt {
        Sum own, foreign;  ///< on invoices in the home currency, and on others at their rates
        Sum before;        ///< of the foreign ones, those that are in the journal
    };
    std::unordered_map<UUID, Receipt> receipts_;
    std::vector<Transaction> transactions_;
    std::vector<std::string> leftOut_;
};

void Journal::noteReceipts(const Document& invoice) {
    if (!DocMath::isBelievable(invoice)) return;
    for (const Payment& payment : invoice.payments) {
        if (!lineOf(payment.bankTxnID)) continue;
        Receipt& receipt = receipts_[*payment.bankTxnID];
        const auto amount = Books::inHomeCurrency(library_, invoice, payment.amount);
        (isForeign(invoice.currency) ? receipt.foreign : receipt.own).add(amount.value_or(0));
    }
}

/// What the bank made of a payment in another currency: its part of what the line has beside payments in its own.
/// Nothing where that is further off than rates move, as matching has it: then a part of the line pays something else.
std::optional<std::int64_t> Journal::brought(const UUID& bankLine, std::int64_t amount) {
    constexpr std::int64_t exchangeShare = 10;
    Receipt& receipt = receipts_[bankLine];
    const std::int64_t banked = lines_.at(bankLine)->amount, foreign = receipt.foreign.value();
    if (!isBelievable(banked) || foreign < 1) return {};
    const std::int64_t rest = Checked::sub(banked, receipt.own.value());
    const std::int64_t difference = Checked::sub(rest, foreign);
    if (difference > foreign / exchangeShare || difference < -(foreign / exchangeShare)) return {};
    const std::int64_t before = MoneyMath::mulDiv(rest, receipt.before.value(), foreign);
    receipt.before.add(amount);
    return Checked::sub(MoneyMath::mulDiv(rest, receipt.before.value(), foreign), before);
}

/// The amount comes in, or goes out when negative, through the account of the statement's line, `otherwise` where there
/// is none. An account in the home currency moves by what the bank made of a foreign amount.
void Journal::moveMoney(Transaction& transaction, const std::optional<UUID>& bankLine, std::string_view otherwise,
                        std::int64_t amount, std::optional<std::int64_t> banked) const {
    const BankTransaction* line = lineOf(bankLine);
    transaction.cleared = line != nullptr;
    const BankAccount* account = line && line->accountID ? find(library_.accounts, *line->accountID) : nullptr;
    if (!account) return transaction.post(otherwise, amount);
    const bool isExact = banked && account->currency == library_.business.homeCurrency && isBelievable(*banked) &&
                         (*banked < 0) == (amount < 0);
    transaction.post("assets:bank:" + safe(account->name), isExact ? *banked : amount);
    if (isExact) transaction.post(exchangeDifference, Checked::sub(amount, *banked));
}

void Journal::add(const Document& document) {
    const std::string_view kind = Books::title(document.kind);
    const std::string number = safe(document.number.value_or(""), "without number");
    const auto home = [&](std::int64_t amount) { return Books::inHomeCurrency(library_, document, amount); };
    const DocTotals sums = DocMath::isBelievable(document) ? DocMath::sums(document) : DocTotals();
    const auto taxable = home(sums.taxable);
    if (!DocMath::isBelievable(document) || !taxable) {
        leftOut_.push_back(std::string(kind) + " " + number + " of " + document.issueDate.iso());
        return;
    }
    Transaction transaction{document.issueDate, false, number, safe(clientNameOf(library_, document)), {}, {}};
    transaction.comment = std::string(kind) + " " + number + abroad(document.currency, sums.total, document.rateMicros);
    const Document* credited =
        document.kind == DocKind::creditNote && document.linkedID ? library_.document(*document.linkedID) : nullptr;
    if (credited && credited->number) transaction.comment += " on " + safe(*credited->number);
    const int sign = document.kind == DocKind::invoice ? 1 : -1;
    const auto total = home(sums.total);
    transaction.post(owedBy(transaction.payee), total, sign);
    transaction.post(basis_ == IncomeBasis::accrual ? incomeAccount(document.supply) : deferred, taxable, -sign);
    const auto tax = [&](std::int64_t amount) { return -sign * home(amount).value_or(0); };
    postTax(transaction, "output", {tax(sums.tax.cgst), tax(sums.tax.sgst), tax(sums.tax.igst), tax(sums.tax.other)});
    transaction.post(roundOff, home(sums.roundOff), -sign);
    transaction.balance(total ? std::string(rounding) : owedBy(transaction.payee));
    keep(std::move(transaction));
    if (document.kind == DocKind::invoice) addPayments(document, sums);
}

void Journal::addPayments(const Document& invoice, const DocTotals& sums) {
    const auto home = [&](std::int64_t amount) { return Books::inHomeCurrency(library_, invoice, amount); };
    const auto share = [&](std::int64_t amount) {
        return sums.total < 1 ? 0 : MoneyMath::mulDiv(amount, sums.taxable, sums.total);
    };
    // What is cleared, and what is no longer deferred, is what the whole converts to once the last payment has come.
    std::vector<std::int64_t> clears, earns;
    std::int64_t settled = 0;
    for (const Payment& payment : invoice.payments) {
        const std::int64_t before = std::exchange(settled, Checked::add(settled, payment.settles()));
        clears.push_back(payment.settles());
        earns.push_back(Checked::sub(share(settled), share(before)));
    }
    const auto cleared = convertedParts(clears, home), earned = convertedParts(earns, home);
    for (std::size_t i = 0; i < invoice.payments.size(); ++i) {
        const Payment& payment = invoice.payments[i];
        Transaction transaction{payment.date,
                                false,
                                safe(invoice.number.value_or(""), "without number"),
                                safe(clientNameOf(library_, invoice)),
                                {},
                                {}};
        transaction.comment = "Payment for " + transaction.code +
                              abroad(invoice.currency, payment.settles(), invoice.rateMicros) +
                              (payment.reference.empty() ? "" : ", " + safe(payment.reference));
        const std::int64_t received = home(payment.amount).value_or(0);
        const bool isExchanged = isForeign(invoice.currency) && lineOf(payment.bankTxnID);
        moveMoney(transaction, payment.bankTxnID, accountOf(payment.method, Side::received), received,
                  isExchanged ? brought(*payment.bankTxnID, received) : std::nullopt);
        transaction.post("assets:tds:receivable", home(payment.tds), 1);
        transaction.post(owedBy(transaction.payee),
                         cleared ? Checked::neg((*cleared)[i]) : Checked::neg(transaction.open()));
        transaction.balance(rounding);
        if (basis_ == IncomeBasis::cash) {
            const auto income = home(share(payment.settles()));
            transaction.post(deferred, earned ? std::optional((*earned)[i]) : income, 1);
            transaction.post(incomeAccount(invoice.supply), income, -1);
            transaction.balance(rounding);
        }
        keep(std::move(transaction));
    }
}

void Journal::add(const Expense& expense) {
    const auto home = [&](std::int64_t amount) { return Expenses::inHomeCurrency(library_, expense, amount); };
    const bool isKnown = isBelievable(expense.amount) && isBelievable(expense.tax);
    const auto cost = isKnown ? home(expense.cost()) : std::nullopt;
    const std::string vendor = safe(expense.vendor, "Unknown vendor");
    if (!cost) {
        leftOut_.push_back("Expense of " + expense.date.iso() + ", " + vendor);
        return;
    }
    Transaction transaction{expense.date, false, {}, vendor, {}, {}};
    const bool isMileage = expense.kind == ExpenseKind::mileage;
    transaction.comment =
        isMileage ? MoneyFormat::quantity(expense.distanceMilli) + " " + safe(library_.business.distanceUnit, "km")
                  : "Expense" + abroad(expense.currency, expense.amount, expense.rateMicros);
    const Category* category = expense.categoryID ? library_.category(*expense.categoryID) : nullptr;
    transaction.post("expenses:" + safe(category ? category->name : "", "Uncategorised"), *cost);
    if (expense.claimTax) {
        const TaxSplit& tax = expense.taxSplit;
        const auto parts = convertedParts({tax.cgst, tax.sgst, tax.igst, tax.other}, home);
        if (parts) postTax(transaction, "input", {(*parts)[0], (*parts)[1], (*parts)[2], (*parts)[3]});
        // Tax that was never divided is claimed all the same.
        if (parts) transaction.post("assets:tax:input", home(Checked::sub(expense.tax, tax.total())), 1);
    }
    const auto paid = home(expense.amount);
    if (!paid)
        transaction.balance(accountOf(expense.method, Side::spent));
    else if (isMileage && !expense.bankTxnID)  // driven in one's own car: nobody was paid
        transaction.post("equity:owner:mileage", Checked::neg(*paid));
    else {
        const BankTransaction* line = isForeign(expense.currency) ? lineOf(expense.bankTxnID) : nullptr;
        moveMoney(transaction, expense.bankTxnID, accountOf(expense.method, Side::spent), Checked::neg(*paid),
                  line ? std::optional(line->amount) : std::nullopt);
    }
    transaction.balance(rounding);
    keep(std::move(transaction));
}

void Journal::keep(Transaction transaction) {
    if (!transaction.postings.empty()) transactions_.push_back(std::move(transaction));
}

std::string Journal::text() const {
    const Currency home = library_.home();
    std::string commodity;
    for (const char c : home.code)
        if (c >= 'A' && c <= 'Z') commodity += c;
    if (commodity.empty()) commodity = "XXX";
    std::string text = "; " + safe(library_.business.name, "Books") + "\n; Income " +
                       (basis_ == IncomeBasis::accrual ? "by the invoice’s date\n" : "by the day of payment\n");
    const auto isOpen = [](const BankTransaction& line) { return line.isOpen(); };
    if (const auto open = std::count_if(library_.transactions.begin(), library_.transactions.end(), isOpen))
        text += "; Lines of bank statements that are matched with nothing and not in this journal: " +
                std::to_string(open) + "\n";
    if (!leftOut_.empty()) text += "; Left out, without an exchange rate or with a figure that can’t be right:\n";
    for (const std::string& one : leftOut_) text += ";   " + one + "\n";

    const std::string zero = MoneyFormat::plain(0, home), point = home.exponent == 0 ? "." : "";
    text += "\ncommodity " + commodity + "\n    format " + commodity + " 1" + std::string(3, '0') + zero.substr(1) +
            point + "\n\n";
    std::set<std::string_view> accounts;
    for (const Transaction& transaction : transactions_)
        for (const Posting& posting : transaction.postings) accounts.insert(posting.account);
    for (const std::string_view account : accounts) text.append("account ").append(account) += '\n';
    for (const Transaction& transaction : transactions_) {
        text.append("\n").append(transaction.date.iso()).append(transaction.cleared ? " *" : "");
        if (!transaction.code.empty()) text.append(" (").append(transaction.code) += ')';
        text.append(" ").append(transaction.payee).append("\n    ; ").append(transaction.comment) += '\n';
        for (const Posting& posting : transaction.postings) {
            const auto width = static_cast<std::size_t>(std::count_if(posting.account.begin(), posting.account.end(),
                                                                      [](char c) { return (c & 0xC0) != 0x80; }));
            text.append("    ").append(posting.account).append(width < 40 ? 40 - width : 0, ' ').append("  ");
            text.append(commodity).append(" ").append(MoneyFormat::plain(posting.amount, home)) += '\n';
        }
    }
    return text;
}

}  // namespace

std::string journal(const Library& library, IncomeBasis basis) { return Journal(library, basis).text(); }

}  // namespace tamba::Export
