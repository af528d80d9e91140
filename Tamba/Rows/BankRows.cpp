#include "Tamba/Rows/BankRows.h"

#include "Tamba/Rows/DocumentRows.h"
#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/Sentences.h"
#include "TambaCore/Bank/Rules.h"
#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Expenses.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>

namespace tamba {
namespace {

constexpr std::string_view dayPattern = "d MMM yyyy";
using Kind = MatchSuggestion::Target::Kind;

BankList listOf(const BankTransaction& line) {
    if (line.isMatched()) return BankList::matched;
    return line.ignored ? BankList::setAside : BankList::open;
}

std::string_view statusOf(BankList list) {
    return list == BankList::matched ? "Matched" : list == BankList::setAside ? "Set aside" : "Open";
}

Tone toneOf(BankList list) {
    return list == BankList::matched ? Tone::good : list == BankList::setAside ? Tone::neutral : Tone::warning;
}

std::string nameOf(const BankTransaction& line) {
    const std::string_view counterparty = Text::trim(line.counterparty ? *line.counterparty : std::string_view());
    return std::string(counterparty.empty() ? Text::trim(line.text) : counterparty);
}

std::string narrationOf(const BankTransaction& line) {
    std::string narration(Text::trim(line.text));
    return narration == nameOf(line) ? std::string() : narration;
}

std::string categoryName(const Library& library, const Expense& expense) {
    const Category* category = expense.categoryID ? library.category(*expense.categoryID) : nullptr;
    return category ? category->name : std::string();
}

std::string joined(std::string_view first, std::string_view second) {
    return first.empty() || second.empty() ? std::string(first) + std::string(second)
                                           : std::string(first) + " · " + std::string(second);
}

BankLink linkTo(const Library& library, const Expense& expense) {
    const std::string vendor = expense.vendor.empty() ? RowText::translate("Rows", "Expense") : expense.vendor;
    return {{Kind::expense, expense.id},
            joined(vendor, categoryName(library, expense)),
            MoneyFormat::string(expense.amount, Currency::of(expense.currency))};
}

BankLink linkTo(const Library& library, const Document& invoice, const Payment& payment) {
    return {{Kind::invoice, invoice.id},
            joined(invoice.displayNumber(), clientName(library, invoice)),
            MoneyFormat::string(payment.amount, Currency::of(invoice.currency))};
}

/// What each line of the books is matched to, seen from the records: a receipt that pays several invoices names only
/// the first of them itself.
std::unordered_map<UUID, std::string> matchedTexts(const Library& library) {
    struct Found {
        std::string text;
        int count = 0;
    };
    std::unordered_map<UUID, Found> found;
    for (const Expense& expense : library.expenses)
        if (expense.bankTxnID) found[*expense.bankTxnID] = {linkTo(library, expense).text, 1};
    for (const Document& invoice : library.documents)
        for (const Payment& payment : invoice.payments) {
            if (!payment.bankTxnID) continue;
            Found& line = found[*payment.bankTxnID];
            ++line.count;
            line.text = line.count == 1
                            ? linkTo(library, invoice, payment).text
                            : RowText::filled(RowText::translate("Rows", "%1 invoices"), {std::to_string(line.count)});
        }
    std::unordered_map<UUID, std::string> texts;
    for (auto& [id, line] : found) texts.emplace(id, std::move(line.text));
    return texts;
}

struct Entry {
    const BankTransaction* line;
    Currency currency;
    std::string name, matched;
    std::int64_t rest;  // that no payment takes, of a line that is matched in part
    std::size_t position;
};

bool fits(const Entry& entry, const std::vector<std::string>& words) {
    if (words.empty()) return true;
    const BankTransaction& line = *entry.line;
    const std::string all =
        Text::lower(entry.name + '\n' + line.text + '\n' + line.reference + '\n' + entry.matched + '\n' +
                    line.date.formatted(dayPattern) + '\n' + MoneyFormat::string(line.amount, entry.currency) + '\n' +
                    MoneyFormat::plain(line.amount, entry.currency));
    return std::all_of(words.begin(), words.end(),
                       [&all](const std::string& word) { return Text::contains(all, word); });
}

int compare(const Entry& a, const Entry& b, BankOrder order) {
    const auto sign = [](auto x, auto y) { return x < y ? -1 : y < x ? 1 : 0; };
    switch (order) {
        case BankOrder::name:
            return Text::compareForPeople(a.name, b.name);
        case BankOrder::amount:
            return sign(a.line->amount, b.line->amount);
        case BankOrder::date:
            break;
    }
    return sign(a.line->date, b.line->date);
}

BankRow rowOf(const Entry& entry) {
    const BankTransaction& line = *entry.line;
    const BankList list = listOf(line);
    BankRow row;
    row.id = line.id;
    row.date = line.date.formatted(dayPattern);
    row.name = entry.name;
    row.narration = narrationOf(line);
    row.amount = MoneyFormat::string(line.amount, entry.currency);
    if (line.balance)
        row.balance = RowText::filled(RowText::translate("Rows", "Balance %1"),
                                      {MoneyFormat::string(*line.balance, entry.currency)});
    row.matched = entry.matched;
    row.status = RowText::translate("Rows", statusOf(list));
    row.tone = toneOf(list);
    if (entry.rest > 0) {
        row.status = RowText::translate("Rows", "Partly matched");
        row.tone = Tone::warning;
        row.rest =
            row.status + " · " +
            RowText::filled(RowText::translate("Rows", "%1 open"), {MoneyFormat::string(entry.rest, entry.currency)});
    }
    row.in = line.amount > 0;
    row.open = list == BankList::open;
    return row;
}

void addSums(BankTable& table, const std::vector<Entry>& entries) {
    if (entries.empty()) return;
    const Currency& currency = entries.front().currency;
    std::int64_t in = 0, out = 0;
    for (const Entry& entry : entries) {
        std::int64_t& sum = entry.line->amount > 0 ? in : out;
        // Each is believable or left out, yet thousands at the limit would not fit.
        if (entry.currency.code != currency.code || !isBelievable(entry.line->amount) ||
            __builtin_add_overflow(sum, entry.line->amount, &sum))
            return;
    }
    table.in = MoneyFormat::string(in, currency);
    table.out = MoneyFormat::string(out, currency);
}

/// What the line would leave open of an invoice, and the ways to take that.
void addInvoiceChoices(std::vector<MatchChoice>& choices, MatchChoice choice, const Library& library,
                       const BankTransaction& line, const Document& invoice) {
    const Currency currency = Currency::of(invoice.currency);
    std::int64_t rest = 0;
    try {
        const Library paid = Bank::matchToInvoice(library, line.id, invoice.id, Bank::Remainder::due);
        rest = Books::balance(paid, *paid.document(invoice.id));
    } catch (const BooksError&) {
        // Choosing it says why it is refused.
    }
    if (rest < 1) return choices.push_back(std::move(choice));
    const std::string text = MoneyFormat::string(rest, currency);
    // A rate that has moved since is the likeliest reason for a little less in another currency.
    if (Bank::currency(library, line).code != currency.code && rest <= Books::balance(library, invoice) / 10) {
        MatchChoice lost = choice;
        lost.remainder = Bank::Remainder::asExchange;
        lost.outcome = RowText::filled(RowText::translate("Rows", "%1 lost in exchange"), {text});
        choices.push_back(std::move(lost));
    }
    MatchChoice part = choice, withheld = choice;
    part.outcome = RowText::filled(RowText::translate("Rows", "%1 stays due"), {text});
    // Who pays in another currency deducts nothing for the government here.
    if (invoice.currency != "INR") return choices.push_back(std::move(part));
    withheld.remainder = Bank::Remainder::asTDS;
    withheld.outcome = RowText::filled(RowText::translate("Rows", "%1 as TDS"), {text});
    const auto& rates = Books::tdsRates();
    const std::int64_t balance = Books::balance(library, invoice);
    const auto rate = std::find_if(rates.begin(), rates.end(),
                                   [&](int each) { return Books::suggestedTDS(invoice, balance, each) == rest; });
    if (rate != rates.end()) {
        withheld.outcome += " (" + MoneyFormat::rate(*rate) + ")";
        choices.push_back(std::move(withheld));
        return choices.push_back(std::move(part));
    }
    choices.push_back(std::move(part));
    // Even from someone without a PAN no more than a fifth is deducted.
    if (rest <= DocMath::totals(invoice).total / 5) choices.push_back(std::move(withheld));
}

}  // namespace

std::string_view title(BankList list) {
    switch (list) {
        case BankList::open:
            return RowText::marked("Rows", "Open");
        case BankList::matched:
            return RowText::marked("Rows", "Matched");
        case BankList::setAside:
            return RowText::marked("Rows", "Set aside");
        case BankList::all:
            break;
    }
    return RowText::marked("Rows", "All");
}

BankTable bankTable(const Library& library, const BankFilter& filter) {
    std::vector<std::string> words;
    for (const std::string& word : Text::split(Text::lower(Text::trim(filter.search)), ' '))
        if (!word.empty()) words.push_back(word);
    const auto matched = matchedTexts(library);
    const auto rests = Bank::partlyMatched(library);
    std::unordered_map<UUID, Currency> currencies;
    for (const BankAccount& account : library.accounts) currencies.emplace(account.id, Currency::of(account.currency));
    const Currency home = library.home();

    BankTable table;
    std::vector<Entry> entries;
    for (std::size_t i = 0; i < library.transactions.size(); ++i) {
        const BankTransaction& line = library.transactions[i];
        if (filter.account && line.accountID != filter.account) continue;
        if (filter.days && !filter.days->contains(line.date)) continue;
        const auto currency = line.accountID ? currencies.find(*line.accountID) : currencies.end();
        const auto text = matched.find(line.id);
        const auto rest = rests.find(line.id);
        Entry entry{&line,
                    currency == currencies.end() ? home : currency->second,
                    nameOf(line),
                    text == matched.end() ? std::string() : text->second,
                    rest == rests.end() ? 0 : rest->second,
                    i};
        if (!fits(entry, words)) continue;
        const BankList list = listOf(line);
        ++table.counts[static_cast<std::size_t>(list)];
        ++table.counts[static_cast<std::size_t>(BankList::all)];
        if (filter.list == BankList::all || filter.list == list) entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(), [&filter](const Entry& a, const Entry& b) {
        if (const int order = compare(a, b, filter.order); order != 0) return filter.ascending ? order < 0 : order > 0;
        // Within equals the latest comes first; by date, as chosen. Lines of one day are in the statement's order.
        const bool up = filter.order == BankOrder::date && filter.ascending;
        const auto key = [](const Entry& e) { return std::tuple(e.line->date, e.position); };
        return up ? key(a) < key(b) : key(b) < key(a);
    });
    table.rows.reserve(entries.size());
    for (const Entry& entry : entries) table.rows.push_back(rowOf(entry));
    table.count =
        RowText::counted(entries.size(), RowText::marked("Rows", "1 line"), RowText::marked("Rows", "%1 lines"));
    addSums(table, entries);
    return table;
}

std::size_t openLines(const Library& library) {
    return static_cast<std::size_t>(std::count_if(library.transactions.begin(), library.transactions.end(),
                                                  [](const BankTransaction& line) { return line.isOpen(); }));
}

BankLineFacts factsOf(const Library& library, const BankTransaction& line) {
    const Currency currency = Bank::currency(library, line);
    const BankAccount* account = line.accountID ? find(library.accounts, *line.accountID) : nullptr;
    const BankList list = listOf(line);
    BankLineFacts facts;
    facts.name = nameOf(line);
    facts.narration = narrationOf(line);
    facts.amount = MoneyFormat::string(line.amount, currency);
    facts.day = Sentences::months(line.date.formatted("EEE")) + ", " + line.date.formatted(dayPattern);
    if (account) facts.account = account->name;
    facts.status = RowText::translate("Rows", statusOf(list));
    facts.tone = toneOf(list);
    facts.in = line.amount > 0;
    facts.more = joined(
        line.reference.empty() ? std::string()
                               : RowText::filled(RowText::translate("Rows", "Reference %1"), {line.reference}),
        line.balance
            ? RowText::filled(RowText::translate("Rows", "Balance %1"), {MoneyFormat::string(*line.balance, currency)})
            : std::string());
    if (line.isMatched() && line.amount > 0)
        if (const std::int64_t rest = Bank::unassigned(library, line); rest > 0) {
            facts.rest = RowText::filled(RowText::translate("Rows", "%1 of it is still to be matched"),
                                         {MoneyFormat::string(rest, currency)});
            facts.status = RowText::translate("Rows", "Partly matched");
            facts.tone = Tone::warning;
        }
    if (const auto difference = Bank::exchangeDifference(library, line))
        facts.exchange = Sentences::shown(difference->sentence);
    return facts;
}

std::vector<BankLink> linksOf(const Library& library, const BankTransaction& line) {
    std::vector<BankLink> links;
    for (const Expense& expense : library.expenses)
        if (expense.bankTxnID == line.id) links.push_back(linkTo(library, expense));
    for (const Document& invoice : library.documents)
        for (const Payment& payment : invoice.payments)
            if (payment.bankTxnID == line.id) links.push_back(linkTo(library, invoice, payment));
    return links;
}

std::vector<MatchChoice> choicesFor(const Library& library, const BankTransaction& line) {
    constexpr std::size_t keys = 9;
    std::vector<MatchChoice> choices;
    BankTransaction rest = line;
    const bool isIn = line.amount > 0;
    if (isIn) rest.amount = Bank::unassigned(library, line);
    if (line.ignored || (isIn ? rest.amount < 1 : line.isMatched())) return choices;
    for (const Bank::TypedPayment& typed : Bank::typedPayments(library, line, Matcher::listDays)) {
        const Document* invoice = library.document(typed.invoice);
        const auto payment = std::find_if(invoice->payments.begin(), invoice->payments.end(),
                                          [&typed](const Payment& each) { return each.id == typed.payment; });
        MatchChoice choice;
        choice.target = {Kind::invoice, typed.invoice};
        choice.payment = typed.payment;
        choice.title = joined(invoice->displayNumber(), clientName(library, *invoice));
        choice.amount = MoneyFormat::string(payment->amount, Currency::of(invoice->currency));
        choice.outcome =
            RowText::filled(RowText::translate("Rows", "Is the payment of %1"), {payment->date.formatted(dayPattern)});
        choice.reason = typed.days == 0 ? RowText::translate("Rows", "Recorded by hand, same day")
                                        : RowText::counted(static_cast<std::size_t>(typed.days),
                                                           RowText::marked("Rows", "Recorded by hand, 1 day apart"),
                                                           RowText::marked("Rows", "Recorded by hand, %1 days apart"));
        choice.score = 99;
        choices.push_back(std::move(choice));
    }
    for (const MatchSuggestion& suggestion : Matcher::suggestions(rest, library, Matcher::listDays)) {
        if (choices.size() >= keys) break;
        MatchChoice choice;
        choice.target = suggestion.target;
        choice.score = suggestion.score;
        choice.reason = Sentences::reasons(suggestion.reason);
        if (suggestion.target.kind == Kind::expense) {
            const Expense* expense = library.expense(suggestion.target.id);
            if (!expense) continue;
            choice.title = expense->vendor.empty() ? RowText::translate("Rows", "Expense") : expense->vendor;
            choice.detail = joined(expense->date.formatted(dayPattern), categoryName(library, *expense));
            choice.amount = MoneyFormat::string(expense->amount, Currency::of(expense->currency));
            choices.push_back(std::move(choice));
            continue;
        }
        const Document* invoice = library.document(suggestion.target.id);
        if (!invoice) continue;
        choice.title = joined(invoice->displayNumber(), clientName(library, *invoice));
        choice.detail = RowText::filled(RowText::translate("Rows", "Due %1"), {invoice->dueDate.formatted(dayPattern)});
        choice.amount = MoneyFormat::string(Books::balance(library, *invoice), Currency::of(invoice->currency));
        addInvoiceChoices(choices, std::move(choice), library, line, *invoice);
    }
    choices.resize(std::min(choices.size(), keys));
    return choices;
}

std::optional<Expense> proposedExpense(const Library& library, const BankTransaction& line) {
    if (!line.isOpen() || line.amount >= 0) return {};
    try {
        return Bank::createExpense(library, line.id).expense;
    } catch (const BooksError&) {
        return {};  // the button says why
    }
}

std::optional<RuleOffer> ruleOffer(const Library& library, const Expense& expense) {
    const auto rule = Rules::ruleFrom(library, expense);
    const Category* category = rule ? library.category(rule->categoryID) : nullptr;
    if (!category) return {};
    const BankTransaction* line = expense.bankTxnID ? find(library.transactions, *expense.bankTxnID) : nullptr;
    const CategoryRule* present = Expenses::rule(library, line ? nameOf(*line) + '\n' + line->text : expense.vendor);
    if (present && present->categoryID == rule->categoryID && (rule->vendor.empty() || present->vendor == rule->vendor))
        return {};
    return RuleOffer{*rule, RowText::filled(RowText::translate("Rows", "Always file %1 under %2"),
                                            {rule->contains, category->name})};
}

std::vector<OpenInvoice> openInvoices(const Library& library, const BankTransaction& line) {
    const Currency currency = Bank::currency(library, line);
    const Books::Standings standings(library, line.date);
    std::vector<std::pair<Day, OpenInvoice>> found;
    for (const Document& invoice : library.documents) {
        if (invoice.kind != DocKind::invoice || invoice.state != DocState::issued) continue;
        const auto own = standings.balance(invoice);
        if (!own || *own < 1) continue;
        std::optional<std::int64_t> balance;
        if (Currency::of(invoice.currency).code == currency.code)
            balance = own;
        else if (currency.code == library.home().code)
            balance = Books::inHomeCurrency(library, invoice, *own);
        if (!balance || *balance < 1) continue;
        found.push_back({invoice.issueDate,
                         {invoice.id, joined(invoice.displayNumber(), clientName(library, invoice)),
                          MoneyFormat::string(*balance, currency), *balance}});
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<OpenInvoice> invoices;
    for (auto& [day, invoice] : found) invoices.push_back(std::move(invoice));
    return invoices;
}

}  // namespace tamba
