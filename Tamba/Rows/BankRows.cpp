#include "Tamba/Rows/BankRows.h"

#include "Tamba/Rows/DocumentRows.h"
#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/SearchedWord.h"
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
/// the first of them itself. Rows keep it, so it is never changed, but made of the one before.
class Matches {
public:
    Matches(const Library& library, const Matches* earlier) : library_(library) {
        const auto changed = earlier ? difference(earlier->library_.expenses, library.expenses, 500) : std::nullopt;
        if (changed) {
            spent_ = earlier->spent_;
            for (const std::size_t at : changed->gone) {
                const Expense* gone = &earlier->library_.expenses[at];
                std::erase_if(spent_, [gone](const Spent& each) { return each.expense == gone; });
            }
            for (const std::size_t at : changed->come)
                if (const Expense& come = library.expenses[at]; come.bankTxnID) {
                    const Spent spent{*come.bankTxnID, &come};
                    spent_.insert(std::upper_bound(spent_.begin(), spent_.end(), spent), spent);
                }
        } else {
            for (const Expense& expense : library.expenses)
                if (expense.bankTxnID) spent_.push_back({*expense.bankTxnID, &expense});
            std::sort(spent_.begin(), spent_.end());
        }
        if (earlier && earlier->library_.documents.sharesAllWith(library.documents)) {
            paid_ = earlier->paid_;
            return;
        }
        for (const Document& invoice : library.documents)
            for (const Payment& payment : invoice.payments)
                if (payment.bankTxnID) paid_.push_back({*payment.bankTxnID, &invoice, &payment});
        std::sort(paid_.begin(), paid_.end());
    }

    [[nodiscard]] std::string text(const UUID& line) const {
        const auto spent = std::lower_bound(spent_.begin(), spent_.end(), Spent{line, nullptr});
        const bool isSpent = spent != spent_.end() && spent->line == line;
        const auto [paid, last] = std::equal_range(paid_.begin(), paid_.end(), Paid{line, nullptr, nullptr});
        const auto count = (last - paid) + (isSpent ? 1 : 0);
        if (count > 1) return RowText::filled(RowText::translate("Rows", "%1 invoices"), {std::to_string(count)});
        if (count == 0) return {};
        return isSpent ? linkTo(library_, *spent->expense).text : linkTo(library_, *paid->invoice, *paid->payment).text;
    }
    /// What no payment takes of a line that is matched in part; else 0.
    [[nodiscard]] std::int64_t rest(const BankTransaction& line) {
        if (!line.isMatched() || line.amount < 1) return 0;
        if (!rests_) rests_ = Bank::partlyMatched(library_);
        const auto found = rests_->find(line.id);
        return found == rests_->end() ? 0 : found->second;
    }
    /// Whether lines that have not changed themselves are matched, and written, in these books as in those.
    [[nodiscard]] bool holdFor(const Library& other) const {
        return library_.expenses.sharesAllWith(other.expenses) && library_.documents.sharesAllWith(other.documents) &&
               library_.transactions.sharesAllWith(other.transactions) &&
               library_.categories.sharesAllWith(other.categories) && library_.clients.sharesAllWith(other.clients) &&
               library_.accounts.sharesAllWith(other.accounts) && library_.business == other.business;
    }

private:
    struct Spent {
        UUID line;
        const Expense* expense;
        bool operator<(const Spent& other) const { return line < other.line; }
    };
    struct Paid {
        UUID line;
        const Document* invoice;
        const Payment* payment;
        bool operator<(const Paid& other) const { return line < other.line; }
    };

    Library library_;  // keeps the records alive
    std::vector<Spent> spent_;
    std::vector<Paid> paid_;
    std::optional<std::unordered_map<UUID, std::int64_t>> rests_;  // once a row has asked
};

/// What a line is filtered, ordered and summed by.
struct Fact {
    UUID id;
    Day date;
    std::int64_t amount = 0;
    std::size_t place = 0;     ///< in the books, which hold the lines of a day as the statement did
    std::size_t currency = 0;  ///< the first of the accounts that has it; 0 the home currency, others from 1
    BankList list = BankList::open;
    bool fits = true;  ///< holds what is searched for
};
using Items = Listing<BankTransaction, Fact>;

Currency currencyOf(const Library& library, std::size_t index) {
    return index == 0 ? library.home() : Currency::of(library.accounts[index - 1].currency);
}

Fact factOf(const Library& library, const BankTransaction& line, std::size_t place) {
    Fact fact{line.id, line.date, line.amount, place, 0, listOf(line)};
    const BankAccount* account = line.accountID ? find(library.accounts, *line.accountID) : nullptr;
    if (!account || Currency::of(account->currency).code == library.home().code) return fact;
    while (Currency::of(library.accounts[fact.currency].currency).code != Currency::of(account->currency).code)
        ++fact.currency;
    ++fact.currency;
    return fact;
}

bool fits(const Library& library, const BankTransaction& line, Matches& matches, std::vector<SearchedWord>& words) {
    if (words.empty()) return true;
    const std::string name = nameOf(line), code = Bank::currency(library, line).code;
    std::optional<std::string> matched;
    return std::all_of(words.begin(), words.end(), [&](SearchedWord& word) {
        if (word.in(name) || word.in(line.text) || word.in(line.reference) || word.in(line.date) ||
            word.in(line.amount, code))
            return true;
        if (!matched) matched = matches.text(line.id);
        return word.in(*matched);
    });
}

int compare(const Items::Item& a, const Items::Item& b, BankOrder order) {
    const auto sign = [](auto x, auto y) { return x < y ? -1 : y < x ? 1 : 0; };
    switch (order) {
        case BankOrder::name:
            return Text::compareForPeople(nameOf(*a.record), nameOf(*b.record));
        case BankOrder::amount:
            return sign(a.fact.amount, b.fact.amount);
        case BankOrder::date:
            break;
    }
    return sign(a.fact.date, b.fact.date);
}

BankRow rowOf(const Library& library, const BankTransaction& line, Matches& matches) {
    const BankList list = listOf(line);
    const Currency currency = Bank::currency(library, line);
    BankRow row;
    row.id = line.id;
    row.date = line.date.formatted(dayPattern);
    row.name = nameOf(line);
    row.narration = narrationOf(line);
    row.amount = MoneyFormat::string(line.amount, currency);
    if (line.balance)
        row.balance =
            RowText::filled(RowText::translate("Rows", "Balance %1"), {MoneyFormat::string(*line.balance, currency)});
    row.matched = matches.text(line.id);
    row.status = RowText::translate("Rows", statusOf(list));
    row.tone = toneOf(list);
    if (const std::int64_t rest = matches.rest(line); rest > 0) {
        row.status = RowText::translate("Rows", "Partly matched");
        row.tone = Tone::warning;
        row.rest = row.status + " · " +
                   RowText::filled(RowText::translate("Rows", "%1 open"), {MoneyFormat::string(rest, currency)});
    }
    row.in = line.amount > 0;
    row.open = list == BankList::open;
    return row;
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

struct BankListing::State {
    std::shared_ptr<Matches> matches;
    Library library;
    BankFilter filter;
    Items listing;

    void update(const Library& now, const BankFilter& wanted);
};

void BankListing::State::update(const Library& now, const BankFilter& wanted) {
    // Lines keep their places while none comes or goes.
    const bool stays = matches && filter.order == wanted.order && filter.ascending == wanted.ascending &&
                       library.transactions.size() == now.transactions.size() &&
                       library.accounts.sharesAllWith(now.accounts) && library.business == now.business;
    const bool sameMatches = matches && matches->holdFor(now);
    if (!sameMatches) matches = std::make_shared<Matches>(now, matches.get());
    std::vector<SearchedWord> words = searchedWords(wanted.search);
    const auto factsOf = [&](const BankTransaction& line, std::size_t place) {
        Fact fact = factOf(now, line, place);
        fact.fits = fits(now, line, *matches, words);
        return fact;
    };
    const auto before = [&](const Items::Item& a, const Items::Item& b) {
        if (const int order = compare(a, b, wanted.order); order != 0) return wanted.ascending ? order < 0 : order > 0;
        // Within equals the latest comes first; by date, as chosen. Lines of one day are in the statement's order.
        const bool up = wanted.order == BankOrder::date && wanted.ascending;
        const auto key = [](const Fact& fact) { return std::tuple(fact.date, fact.place); };
        return up ? key(a.fact) < key(b.fact) : key(b.fact) < key(a.fact);
    };
    if (!stays) {
        listing.begin(now.transactions, factsOf, before);
    } else {
        listing.update(now.transactions, factsOf, before);
        // A line is also found by what it is matched to.
        if (wanted.search != filter.search || (!words.empty() && !sameMatches))
            for (auto& [line, fact] : listing.items()) fact.fits = fits(now, *line, *matches, words);
    }
    library = now;
    filter = wanted;
}

BankListing::BankListing() : state_(std::make_unique<State>()) {}
BankListing::~BankListing() = default;

BankTable BankListing::table(const Library& library, const BankFilter& filter) {
    state_->update(library, filter);
    BankTable table;
    std::vector<LazyRows<BankRow>::Key> keys;
    std::optional<std::size_t> currency;
    bool summed = true;
    std::int64_t in = 0, out = 0;
    for (const auto& [line, fact] : state_->listing.items()) {
        if (!fact.fits || (filter.days && !filter.days->contains(fact.date))) continue;
        if (filter.account && line->accountID != filter.account) continue;
        ++table.counts[static_cast<std::size_t>(fact.list)];
        ++table.counts[static_cast<std::size_t>(BankList::all)];
        if (filter.list != BankList::all && filter.list != fact.list) continue;
        keys.push_back({fact.id, line});
        std::int64_t& sum = fact.amount > 0 ? in : out;
        // Each is believable or left out, yet thousands at the limit would not fit.
        summed = summed && currency.value_or(fact.currency) == fact.currency && isBelievable(fact.amount) &&
                 !__builtin_add_overflow(sum, fact.amount, &sum);
        currency = fact.currency;
    }
    table.count = RowText::counted(keys.size(), RowText::marked("Rows", "1 line"), RowText::marked("Rows", "%1 lines"));
    if (currency && summed) {
        table.in = MoneyFormat::string(in, currencyOf(library, *currency));
        table.out = MoneyFormat::string(out, currencyOf(library, *currency));
    }
    table.rows = {std::move(keys), state_->matches, [library, matches = state_->matches](const void* line) {
                      return rowOf(library, *static_cast<const BankTransaction*>(line), *matches);
                  }};
    return table;
}

BankTable bankTable(const Library& library, const BankFilter& filter) { return BankListing().table(library, filter); }

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
