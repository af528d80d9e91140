#include "TambaCore/Bank/Candidates.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Standing.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <numeric>
#include <tuple>
#include <unordered_set>

namespace tamba::Matcher {
namespace {

using Kind = MatchSuggestion::Target::Kind;

constexpr int obviousScore = 80;
constexpr int clearLead = 15;

constexpr int sameAmount = 60, nearAmount = 40, sameDay = 20, lessEachDay = 3, vendorNamed = 20;
constexpr int numberNamed = 35, clientNamed = 20, beforeIssue = -30, leastScore = 26, mostScore = 99;

/// How the amount of a line fits an invoice.
enum class Fit { balance, part, close, total };
constexpr std::array fitScores{55, 35, 30, 45};
constexpr std::array<const char*, 4> fitReasons{"pays the balance", "part payment", "close to the balance (TDS?)",
                                                "same as invoice total"};
constexpr int score(Fit fit) { return fitScores[static_cast<std::size_t>(fit)]; }
// An invoice that the line does not name is never obvious, and one that is only close never makes another less so.
constexpr int mostUnnamed = score(Fit::balance) + clientNamed;
static_assert(mostUnnamed < obviousScore && score(Fit::close) + clientNamed < obviousScore - clearLead);
// A payment that somebody typed says itself that this money came: with the day near, the amount alone will do.
constexpr int obviousTyped = sameAmount + sameDay - 3 * lessEachDay;
// Nor does one whose client it does not name.
static_assert(score(Fit::balance) < obviousTyped - clearLead && mostUnnamed + beforeIssue < obviousTyped - clearLead &&
              score(Fit::close) + clientNamed < obviousTyped - clearLead);

/// How far an expense may be from the line: a whole unit, or 1 % of what is not small.
std::int64_t tolerance(std::int64_t spent) { return spent < 10'000 ? 100 : spent / 100; }

int expenseScore(bool exact, std::int64_t days, bool named) {
    const std::int64_t forDate = std::max<std::int64_t>(0, sameDay - lessEachDay * days);
    return (exact ? sameAmount : nearAmount) + static_cast<int>(forDate) + (named ? vendorNamed : 0);
}

std::string expenseReason(bool exact, std::int64_t days, const std::string* word) {
    std::string reason = exact ? "same amount" : "amount within 1%";
    reason += days == 0 ? ", same day" : ", " + std::to_string(days) + (days == 1 ? " day apart" : " days apart");
    return word ? reason + ", mentions " + *word : reason;
}

std::string withoutSpaces(std::string text) {
    std::erase(text, ' ');
    return text;
}

const std::string& clientName(const Library& library, const Document& invoice) {
    static const std::string none;
    if (invoice.billTo && !invoice.billTo->name.empty()) return invoice.billTo->name;
    const Client* client = invoice.clientID ? library.client(*invoice.clientID) : nullptr;
    return client ? client->name : none;
}

std::uint8_t firstByte(const std::string& text) { return static_cast<std::uint8_t>(text.front()); }

}  // namespace

struct Candidates::InvoiceMatch {
    Slot slot;
    Fit fit;
    bool namesNumber, namesClient;
    int score;
};

struct Candidates::Best {
    int score = 0, second = 0;
    std::optional<Found> found;

    void offer(int next, const Found& what) {
        if (found && next <= score) return rival(next);
        second = std::exchange(score, next);
        found = what;
    }
    void rival(int other) { second = std::max(second, other); }
    [[nodiscard]] bool isStrong() const { return found && score >= (found->payment ? obviousTyped : obviousScore); }
};

Candidates::Prices::Prices(std::vector<Priced> all, std::size_t slots)
    : sorted_(std::move(all)), next_(sorted_.size() + 1), placeOf_(slots, sorted_.size()) {
    std::sort(sorted_.begin(), sorted_.end());
    std::iota(next_.begin(), next_.end(), std::size_t{0});
    for (std::size_t at = 0; at < sorted_.size(); ++at) placeOf_[sorted_[at].slot] = at;
}

const Candidates::Priced* Candidates::Prices::first(const Priced& least) {
    auto at = static_cast<std::size_t>(std::lower_bound(sorted_.begin(), sorted_.end(), least) - sorted_.begin());
    while (at < sorted_.size() && next_[at] != at) at = next_[at] = next_[next_[at]];
    const auto moved = moved_.lower_bound(least);
    if (moved == moved_.end()) return at < sorted_.size() ? &sorted_[at] : nullptr;
    return at < sorted_.size() && sorted_[at] < *moved ? &sorted_[at] : &*moved;
}

void Candidates::Prices::remove(const Priced& one) {
    const std::size_t at = std::exchange(placeOf_[one.slot], sorted_.size());
    if (at < sorted_.size())
        next_[at] = at + 1;
    else
        moved_.erase(one);
}

Candidates::Candidates(const Library& library, const std::optional<UUID>& except)
    : library_(library), home_(library.home()), free_(library.expenses.size(), true) {
    std::unordered_set<UUID> payers, lines, linked;
    for (const Document& document : library_.documents)
        for (const Payment& payment : document.payments)
            if (payment.bankTxnID) payers.insert(*payment.bankTxnID);
    for (const BankTransaction& line : library_.transactions) {
        if (!payers.empty() && payers.contains(line.id)) lines.insert(line.id);
        if (line.expenseID && line.id != except) linked.insert(*line.expenseID);
        if (line.paymentID) linked.insert(*line.paymentID);
    }
    for (std::size_t i = 0; i < free_.size(); ++i) {
        const Expense& expense = library_.expenses[i];
        free_[i] = !expense.bankTxnID && !linked.contains(expense.id);
    }

    std::vector<std::pair<std::size_t, Slot>> numberHashes;
    const Books::Standings standings(library_, Day());
    for (std::size_t i = 0; i < library_.documents.size(); ++i) {
        const Document& document = library_.documents[i];
        if (document.kind != DocKind::invoice || document.state != DocState::issued) continue;
        const auto standing = standings.of(document);
        if (!standing) continue;
        std::vector<std::size_t> typed;
        for (std::size_t at = 0; at < document.payments.size(); ++at) {
            const Payment& payment = document.payments[at];
            if (payment.amount < 1) continue;
            if (!(payment.bankTxnID ? lines.contains(*payment.bankTxnID) : linked.contains(payment.id)))
                typed.push_back(at);
        }
        if (standing->balance < 1 && typed.empty()) continue;
        std::string number = Text::upper(document.number.value_or(""));
        const std::string squeezed = withoutSpaces(number);
        if (squeezed.empty()) {
            number.clear();
        } else {
            numberHashes.emplace_back(std::hash<std::string_view>()(squeezed), invoices_.size());
            numberLengths_.insert(squeezed.size());
            numbersBegin_[firstByte(squeezed)] = true;
        }
        invoices_.push_back({i, standing->balance, standing->totals.total, document.issueDate,
                             named(clientName(library_, document)), std::move(number), std::move(typed)});
    }
    numbered_.resize(std::bit_ceil(2 * numberHashes.size() + 1));
    for (const auto& [hash, slot] : numberHashes) {
        std::optional<Numbered>& place = numbered(hash, withoutSpaces(invoices_[slot].number));
        if (place) invoices_[slot].alike = place->slot;
        place = {hash, slot};
    }
}

std::optional<Candidates::Numbered>& Candidates::numbered(std::size_t hash, std::string_view number) {
    for (std::size_t at = hash;; ++at) {
        std::optional<Numbered>& place = numbered_[at & (numbered_.size() - 1)];
        if (!place || (place->hash == hash && withoutSpaces(invoices_[place->slot].number) == number)) return place;
    }
}

Candidates::Name Candidates::named(const std::string& name) {
    const auto [known, isNew] = nameOf_.emplace(name, names_.size());
    if (isNew) names_.emplace_back(name, std::nullopt);
    return known->second;
}

const std::string* Candidates::sharedWord(Asked& asked, Name name) {
    if (!asked.hasWords) asked.words = words(asked.line.text);
    asked.hasWords = true;
    auto& [text, itsWords] = names_[name];
    if (!itsWords) {
        const std::set<std::string> found = words(text);
        itsWords.emplace(found.begin(), found.end());
    }
    for (const std::string& word : *itsWords)
        if (asked.words.contains(word)) return &word;
    return nullptr;
}

std::optional<std::int64_t> Candidates::value(const View& view, const Expense& expense) const {
    const auto value = Expenses::inHomeCurrency(library_, expense, expense.amount);
    if (!value || view.currency.code == home_.code) return value;
    const Currency own = Currency::of(expense.currency);
    if (own.code != view.currency.code) return value;
    return MoneyMath::tryConvert(expense.amount, own, home_, view.rateMicros);
}

std::optional<std::int64_t> Candidates::value(const View& view, const Document& invoice, std::int64_t amount) const {
    const auto value = Books::inHomeCurrency(library_, invoice, amount);
    if (!value || view.currency.code == home_.code) return value;
    const Currency own = Currency::of(invoice.currency);
    if (own.code != view.currency.code) return value;
    return MoneyMath::tryConvert(amount, own, home_, view.rateMicros);
}

void Candidates::addExpenses(View& view) {
    std::vector<std::tuple<std::int64_t, std::int64_t, Name, std::size_t>> entries;
    for (std::size_t i = 0; i < free_.size(); ++i) {
        if (!free_[i]) continue;
        const Expense& expense = library_.expenses[i];
        if (const auto worth = value(view, expense))
            entries.emplace_back(expense.date.number(), *worth, named(expense.vendor), i);
    }
    std::sort(entries.begin(), entries.end());
    for (const auto& [day, worth, vendor, position] : entries) {
        std::vector<Group>& groups = view.days[day];
        if (groups.empty() || groups.back().value != worth || groups.back().vendor != vendor)
            groups.push_back({worth, vendor, {}});
        groups.back().members.push_back(position);
    }
}

Candidates::Slot Candidates::slotOf(std::size_t document) const {
    const auto found =
        std::lower_bound(invoices_.begin(), invoices_.end(), document,
                         [](const Invoice& invoice, std::size_t position) { return invoice.document < position; });
    if (found == invoices_.end() || found->document != document) fatal("no invoice that can be matched");
    return static_cast<Slot>(found - invoices_.begin());
}

Candidates::Due Candidates::due(const View& view, Slot slot) const {
    const Invoice& invoice = invoices_[slot];
    if (invoice.balance < 1) return {};
    const Document& document = library_.documents[invoice.document];
    const auto balance = value(view, document, invoice.balance), total = value(view, document, invoice.total);
    return balance && total && *balance > 0 ? Due{*balance, *total} : Due{};
}

void Candidates::addInvoices(View& view) {
    std::vector<Priced> balances, totals;
    for (Slot slot = 0; slot < invoices_.size(); ++slot) {
        const Due worth = view.due[slot] = due(view, slot);
        if (worth.balance > 0) {
            balances.push_back(priced(worth.balance, slot));
            totals.push_back(priced(worth.total, slot));
        }
        const Invoice& invoice = invoices_[slot];
        const Document& document = library_.documents[invoice.document];
        if (Currency::of(document.currency).code != view.currency.code) continue;
        for (const std::size_t at : invoice.typed) {
            const Payment& payment = document.payments[at];
            view.typed[{payment.amount, payment.date.number(), invoice.client}].push_back({slot, at});
        }
    }
    view.byBalance = Prices(std::move(balances), invoices_.size());
    view.byTotal = Prices(std::move(totals), invoices_.size());
}

void Candidates::addInvoice(View& view, Slot slot) {
    const Due worth = view.due[slot] = due(view, slot);
    if (worth.balance < 1) return;
    view.byBalance.insert(priced(worth.balance, slot));
    view.byTotal.insert(priced(worth.total, slot));
}

Candidates::Priced Candidates::priced(std::int64_t amount, Slot slot) const {
    return {amount, invoices_[slot].client, invoices_[slot].issueDate, slot};
}

void Candidates::removeInvoice(View& view, Slot slot) const {
    view.byBalance.remove(priced(view.due[slot].balance, slot));
    view.byTotal.remove(priced(view.due[slot].total, slot));
    view.due[slot] = {};
}

Candidates::View* Candidates::view(const Currency& currency) {
    const auto [place, isNew] = views_.try_emplace(currency.code);
    std::optional<View>& view = place->second;
    if (!isNew) return view ? &*view : nullptr;
    const auto rate = currency.code == home_.code ? 1'000'000 : library_.rate(currency.code);
    if (!rate || *rate < 1) return nullptr;
    view = View{currency, *rate, {}, std::vector<Due>(invoices_.size()), {}, {}, {}};
    addExpenses(*view);
    addInvoices(*view);
    return &*view;
}

std::optional<Candidates::Asked> Candidates::ask(const BankTransaction& line) {
    const BankAccount* account = line.accountID ? find(library_.accounts, *line.accountID) : nullptr;
    const Currency currency = account ? Currency::of(account->currency) : home_;
    View* seen = view(currency);
    const auto amount = seen ? MoneyMath::tryConvert(line.amount, currency, home_, seen->rateMicros) : std::nullopt;
    if (!amount) return {};
    return Asked{line, *seen, *amount};
}

std::int64_t Candidates::balance(std::size_t document) const { return invoices_[slotOf(document)].balance; }

void Candidates::take(std::size_t expense) {
    free_[expense] = false;
    const Expense& taken = library_.expenses[expense];
    for (auto& [code, view] : views_) {
        const auto worth = view ? value(*view, taken) : std::nullopt;
        if (!worth) continue;
        for (Group& group : view->days[taken.date.number()])
            if (group.value == *worth && std::erase(group.members, expense) > 0) break;
    }
}

void Candidates::settle(std::size_t document, std::int64_t amount) {
    const Slot slot = slotOf(document);
    invoices_[slot].balance = Checked::sub(invoices_[slot].balance, amount);
    for (auto& [code, view] : views_) {
        if (!view) continue;
        removeInvoice(*view, slot);
        addInvoice(*view, slot);
    }
}

void Candidates::claim(std::size_t document, std::size_t at) {
    const Slot slot = slotOf(document);
    Invoice& invoice = invoices_[slot];
    std::erase(invoice.typed, at);
    const Payment& payment = library_.documents[document].payments[at];
    for (auto& [code, view] : views_) {
        if (!view) continue;
        const auto group = view->typed.find({payment.amount, payment.date.number(), invoice.client});
        if (group != view->typed.end()) std::erase(group->second, Typed{slot, at});
    }
}

template <class Visit>
void Candidates::expensesNear(const Asked& asked, int dayWindow, Visit&& visit) {
    const std::int64_t day = asked.line.date.number();
    const std::int64_t spent = Checked::neg(asked.amount);
    const std::int64_t most = spent + tolerance(spent);
    const auto end = asked.view.days.end();
    for (auto at = asked.view.days.lower_bound(day - dayWindow); at != end && at->first <= day + dayWindow; ++at) {
        const std::vector<Group>& groups = at->second;
        auto group = std::lower_bound(groups.begin(), groups.end(), spent - tolerance(spent),
                                      [](const Group& one, std::int64_t least) { return one.value < least; });
        for (; group != groups.end() && group->value <= most; ++group)
            visit(*group, std::abs(at->first - day), group->value == spent);
    }
}

/// Open invoices whose number the text holds. Each place where a number may begin is looked up at the lengths there
/// are, which is quicker than to search the text for every number.
std::vector<Candidates::Slot> Candidates::mentioned(const std::string& squeezedText) {
    std::vector<Slot> found;
    for (std::size_t at = 0; at < squeezedText.size(); ++at) {
        if (!numbersBegin_[static_cast<std::uint8_t>(squeezedText[at])]) continue;
        for (const std::size_t length : numberLengths_) {
            if (length > squeezedText.size() - at) break;
            const std::string_view part = std::string_view(squeezedText).substr(at, length);
            const std::optional<Numbered>& place = numbered(std::hash<std::string_view>()(part), part);
            for (std::optional<Slot> slot = place ? std::optional(place->slot) : std::nullopt; slot;
                 slot = invoices_[*slot].alike)
                found.push_back(*slot);
        }
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

std::vector<Candidates::Slot> Candidates::priced(Asked& asked, std::int64_t above) {
    std::vector<Slot> found;
    const auto add = [&](Prices& open, std::int64_t most) {
        for (const Priced* at = open.first({asked.amount}); at && at->amount <= most; at = open.first(at->next()))
            found.push_back(at->slot);
    };
    add(asked.view.byBalance, asked.amount + above);
    add(asked.view.byTotal, asked.amount);
    return found;
}

bool Candidates::hasRival(Asked& asked, Prices& open, const std::vector<Slot>& mentioned) {
    for (const Priced* at = open.first({asked.amount}); at && at->amount == asked.amount;) {
        const Name client = at->client;
        if (sharedWord(asked, client))
            for (; at && at->amount == asked.amount && at->client == client && at->issueDate <= asked.line.date;
                 at = open.first(at->next()))
                if (!std::binary_search(mentioned.begin(), mentioned.end(), at->slot)) return true;
        at = open.first({asked.amount, client + 1});
    }
    return false;
}

std::vector<Candidates::InvoiceMatch> Candidates::fitting(Asked& asked, std::vector<Slot> slots,
                                                          const std::vector<Slot>& mentioned) {
    slots.insert(slots.end(), mentioned.begin(), mentioned.end());
    std::sort(slots.begin(), slots.end());
    slots.erase(std::unique(slots.begin(), slots.end()), slots.end());
    const std::int64_t amount = asked.amount;
    const std::string text = Text::upper(asked.line.text);
    std::vector<InvoiceMatch> result;
    for (const Slot slot : slots) {
        const auto [balance, total] = asked.view.due[slot];
        if (balance < 1) continue;
        const Invoice& invoice = invoices_[slot];
        InvoiceMatch match{slot, Fit::balance, std::binary_search(mentioned.begin(), mentioned.end(), slot), false, 0};
        if (amount == balance)
            match.fit = Fit::balance;
        else if (amount < balance && match.namesNumber && Text::contains(text, invoice.number))
            match.fit = Fit::part;
        else if (amount < balance && balance - amount <= balance / 10 + 100)
            match.fit = Fit::close;
        else if (amount == total)
            match.fit = Fit::total;
        else
            continue;
        match.namesClient = sharedWord(asked, invoice.client) != nullptr;
        match.score = score(match.fit) + (match.namesNumber ? numberNamed : 0) + (match.namesClient ? clientNamed : 0);
        if (asked.line.date < invoice.issueDate) match.score += beforeIssue;
        if (match.score < leastScore) continue;
        if (match.score > mostScore) match.score = 100;
        result.push_back(match);
    }
    return result;
}

std::vector<MatchSuggestion> Candidates::suggestions(const BankTransaction& line, int dayWindow) {
    std::optional<Asked> asked = ask(line);
    if (!asked) return {};
    std::vector<std::pair<std::size_t, MatchSuggestion>> found;  // with the position in the books
    if (line.amount < 0) {
        expensesNear(*asked, dayWindow, [&](const Group& group, std::int64_t days, bool exact) {
            const std::string* word = sharedWord(*asked, group.vendor);
            for (const std::size_t position : group.members)
                found.push_back({position,
                                 {{Kind::expense, library_.expenses[position].id},
                                  expenseScore(exact, days, word != nullptr),
                                  expenseReason(exact, days, word)}});
        });
    } else {
        // A balance the line is close to is at most a ninth of the line and a little above it.
        const std::int64_t above = (asked->amount + 1000) / 9 + 1;
        const auto named = mentioned(withoutSpaces(Text::upper(line.text)));
        for (const InvoiceMatch& match : fitting(*asked, priced(*asked, above), named)) {
            const std::size_t position = invoices_[match.slot].document;
            const Document& invoice = library_.documents[position];
            std::string reason = fitReasons[static_cast<std::size_t>(match.fit)];
            if (match.namesNumber) reason += ", mentions " + *invoice.number;
            if (match.namesClient) reason += ", from " + clientName(library_, invoice);
            found.push_back({position, {{Kind::invoice, invoice.id}, match.score, std::move(reason)}});
        }
    }
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
        return std::pair(-a.second.score, a.first) < std::pair(-b.second.score, b.first);
    });
    std::vector<MatchSuggestion> result;
    result.reserve(found.size());
    for (auto& [position, suggestion] : found) result.push_back(std::move(suggestion));
    return result;
}

void Candidates::offerTyped(Asked& asked, Best& best) {
    const std::int64_t day = asked.line.date.number();
    const Priced* open = asked.view.byBalance.first({asked.amount});
    const bool isOpen = open && open->amount == asked.amount;
    const auto& typed = asked.view.typed;
    for (auto at = typed.lower_bound({asked.line.amount, day - obviousDays});
         at != typed.end() && at->first.amount == asked.line.amount && at->first.day <= day + obviousDays; ++at) {
        const auto& [paid, members] = *at;
        if (members.empty()) continue;
        const bool named = sharedWord(asked, paid.client) != nullptr;
        const int score = expenseScore(true, std::abs(paid.day - day), named);
        best.offer(score, {Kind::invoice, invoices_[members.front().slot].document, members.front().payment});
        // Money of nobody in particular could as well pay an invoice that is open.
        if (members.size() > 1 || (!named && isOpen)) best.rival(score);
    }
}

void Candidates::offerInvoices(Asked& asked, Best& best) {
    const auto named = mentioned(withoutSpaces(Text::upper(asked.line.text)));
    std::vector<Slot> unpaid;  // of those
    for (const Slot slot : named) {
        const Invoice& invoice = invoices_[slot];
        const Document& document = library_.documents[invoice.document];
        const bool isOwn = Currency::of(document.currency).code == asked.view.currency.code;
        bool isTyped = false;
        for (const std::size_t at : invoice.typed) {
            const Payment& payment = document.payments[at];
            const std::int64_t days = std::abs(payment.date.daysUntil(asked.line.date));
            if (!isOwn || payment.amount != asked.line.amount || days > listDays) continue;
            isTyped = true;  // from further away a person has to tell whether it is that money
            if (days > obviousDays) continue;
            const bool isNamed = sharedWord(asked, invoice.client) != nullptr;
            best.offer(std::min(100, expenseScore(true, days, isNamed) + numberNamed),
                       {Kind::invoice, invoice.document, at});
        }
        if (!isTyped) unpaid.push_back(slot);
    }
    for (const InvoiceMatch& match : fitting(asked, {}, unpaid))
        best.offer(match.score, {Kind::invoice, invoices_[match.slot].document});
    if (!best.found && asked.line.amount > 0) offerTyped(asked, best);
    for (const auto& [open, fit] : {std::pair{&asked.view.byTotal, Fit::total}, {&asked.view.byBalance, Fit::balance}})
        if (best.isStrong() && best.score - clearLead <= score(fit) + clientNamed && hasRival(asked, *open, named))
            best.rival(score(fit) + clientNamed);
}

std::optional<Candidates::Found> Candidates::obvious(const BankTransaction& line) {
    std::optional<Asked> asked = ask(line);
    if (!asked) return {};
    Best best;
    if (line.amount < 0)
        expensesNear(*asked, obviousDays, [&](const Group& group, std::int64_t days, bool exact) {
            if (group.members.empty()) return;
            const int score = expenseScore(exact, days, sharedWord(*asked, group.vendor) != nullptr);
            best.offer(score, {Kind::expense, group.members.front()});
            if (group.members.size() > 1) best.rival(score);
        });
    else
        offerInvoices(*asked, best);
    // Scores are above 0, so that a second of 0 is none.
    return best.isStrong() && (best.second == 0 || best.second < best.score - clearLead) ? best.found : std::nullopt;
}

std::vector<MatchSuggestion> suggestions(const BankTransaction& line, const Library& library, int dayWindow) {
    return Candidates(library, line.id).suggestions(line, dayWindow);
}

}  // namespace tamba::Matcher
