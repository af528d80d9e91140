#include "Tamba/Rows/ExpenseRows.h"

#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/SearchedWord.h"
#include "Tamba/Rows/Sentences.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace tamba {
namespace {

bool lacksRate(const Library& library, const Expense& expense) {
    return expense.rateMicros == 0 && expense.currency != library.business.homeCurrency;
}

bool lacksCategory(const Library& library, const Expense& expense) {
    return !expense.categoryID || !library.category(*expense.categoryID);
}

enum class Status : std::uint8_t { none, billed, billable, noRate, check, noCategory };

Status statusOf(const Library& library, const Expense& expense) {
    if (!Expenses::attention(library, expense))
        return expense.rebilledInvoiceID ? Status::billed : expense.billable ? Status::billable : Status::none;
    if (lacksRate(library, expense)) return Status::noRate;
    return !expense.check && lacksCategory(library, expense) && expense.amount != 0 ? Status::noCategory
                                                                                    : Status::check;
}

/// How a status shows: its word, the sentence behind it (none: what `attention` says), and the glyph that the list of
/// such expenses has in the sidebar.
struct StatusLook {
    const char* text;
    const char* hint;
    Tone tone;
    const char* glyph;
};
constexpr auto marked = RowText::marked;
constexpr StatusLook looks[] = {
    {"", "", Tone::none, ""},
    {marked("Rows", "Billed"), marked("Rows", "Billed on to the client."), Tone::neutral, "done"},
    {marked("Rows", "Billable"), marked("Rows", "To be billed on to the client."), Tone::neutral, "billable"},
    {marked("Rows", "No rate"), marked("Rows", "Add the exchange rate to include this in reports."), Tone::danger,
     "exchange"},
    {marked("Rows", "Check"), nullptr, Tone::warning, "eye"},
    {marked("Rows", "No category"), nullptr, Tone::neutral, "category-none"},
};
const StatusLook& lookOf(Status status) { return looks[static_cast<std::size_t>(status)]; }

std::string textOf(Status status) {
    return status == Status::none ? std::string() : RowText::translate("Rows", lookOf(status).text);
}

std::string hintOf(const Library& library, const Expense& expense, Status status) {
    if (status == Status::none) return {};
    if (const char* hint = lookOf(status).hint) return RowText::translate("Rows", hint);
    return Sentences::shown(Expenses::attention(library, expense).value_or(std::string()));
}

ExpenseRow rowOf(const Library& library, const Expense& expense) {
    const Currency currency = Currency::of(expense.currency);
    const Status status = statusOf(library, expense);
    ExpenseRow row;
    row.id = expense.id;
    row.date = expense.date.formatted("d MMM yyyy");
    row.vendor = expense.vendor;
    row.amount = MoneyFormat::string(expense.amount, currency);
    if (expense.tax != 0) row.tax = MoneyFormat::string(expense.tax, currency);
    row.method = RowText::translate("Rows", title(expense.method));
    row.status = textOf(status);
    row.hint = hintOf(library, expense, status);
    row.tone = lookOf(status).tone;
    row.glyph = lookOf(status).glyph;
    row.receipt = !expense.attachments.empty();
    if (const Category* category = expense.categoryID ? library.category(*expense.categoryID) : nullptr) {
        row.category = category->name;
        row.symbol = category->symbol;
        row.colorHex = category->colorHex;
    }
    return row;
}

/// Looks through expenses for words. What thousands of them have in common is looked through once.
class Finder {
public:
    Finder(const Library& library, std::string_view search) : library_(library) {
        for (SearchedWord& searched : searchedWords(search)) {
            Word& word = words_.emplace_back(std::move(searched));
            for (const PaymentMethod method : allMethods())
                if (word.text.in(RowText::translate("Rows", title(method)))) word.methods.insert(method);
            const auto addNames = [&word](const auto& list) {
                for (const auto& record : list)
                    if (word.text.in(record.name)) word.names.insert(record.id);
            };
            addNames(library.categories);
            addNames(library.clients);
            addNames(library.projects);
        }
    }

    [[nodiscard]] bool fits(const Expense& expense) {
        return std::all_of(words_.begin(), words_.end(), [&](Word& word) { return holds(expense, word); });
    }

private:
    struct Word {
        explicit Word(SearchedWord searched) : text(std::move(searched)) {}
        SearchedWord text;
        std::unordered_set<PaymentMethod> methods;
        std::unordered_set<UUID> names;  // of categories, clients and projects
    };

    /// What takes longest is asked last.
    [[nodiscard]] bool holds(const Expense& e, Word& word) const {
        const auto named = [&word](const std::optional<UUID>& id) { return id && word.names.contains(*id); };
        SearchedWord& text = word.text;
        return text.in(e.vendor) || word.methods.contains(e.method) || named(e.categoryID) || named(e.clientID) ||
               named(e.projectID) || text.in(e.date) || text.in(e.notes) || text.in(e.vendorTaxID) ||
               text.in(e.amount, e.currency) || text.in(textOf(statusOf(library_, e))) ||
               (e.ocrText && text.in(*e.ocrText));
    }

    const Library& library_;
    std::vector<Word> words_;
};

/// What an expense is filtered, ordered and summed by, beside the expense itself: thousands are gone through.
struct Fact {
    UUID id;
    std::int64_t home = 0;     ///< amount in the home currency; 0 where there is none
    std::int64_t claimed = 0;  ///< input tax, likewise
    Day date;
    std::uint8_t lists = 0;  ///< a bit for each `ExpenseList`
    bool counts = false;     ///< has an amount in the home currency
    bool fits = true;        ///< holds what is searched for
};
static_assert(static_cast<int>(ExpenseList::withoutReceipt) < 8);

constexpr unsigned bit(ExpenseList list) { return 1U << static_cast<unsigned>(list); }

Fact factOf(const Library& library, const Expense& expense) {
    Fact fact;
    fact.id = expense.id;
    fact.date = expense.date;
    const auto home = Expenses::inHomeCurrency(library, expense, expense.amount);
    fact.counts = home.has_value();
    fact.home = home.value_or(0);
    if (expense.claimTax) fact.claimed = Expenses::inHomeCurrency(library, expense, expense.tax).value_or(0);
    unsigned lists = 0;
    for (auto list = ExpenseList::all; list <= ExpenseList::withoutReceipt;
         list = static_cast<ExpenseList>(static_cast<int>(list) + 1))
        if (belongsTo(library, expense, list)) lists |= bit(list);
    fact.lists = static_cast<std::uint8_t>(lists);
    return fact;
}

using Items = Listing<Expense, Fact>;

int compare(const Library& library, const Items::Item& a, const Items::Item& b, ExpenseOrder order) {
    const auto sign = [](const auto& x, const auto& y) { return x < y ? -1 : y < x ? 1 : 0; };
    const auto categoryName = [&library](const Expense& expense) {
        const Category* category = expense.categoryID ? library.category(*expense.categoryID) : nullptr;
        return category ? std::string_view(category->name) : std::string_view();
    };
    switch (order) {
        case ExpenseOrder::vendor:
            return Text::compareForPeople(a.record->vendor, b.record->vendor);
        case ExpenseOrder::category:
            return Text::compareForPeople(categoryName(*a.record), categoryName(*b.record));
        case ExpenseOrder::amount:
            return sign(a.fact.home, b.fact.home);
        case ExpenseOrder::tax:
            return sign(a.record->tax, b.record->tax);
        case ExpenseOrder::method:
            return sign(a.record->method, b.record->method);
        case ExpenseOrder::status:
            return sign(textOf(statusOf(library, *a.record)), textOf(statusOf(library, *b.record)));
        case ExpenseOrder::date:
            break;
    }
    return 0;
}

/// The ids that only one of the two holds.
std::unordered_set<UUID> comeOrGone(const List<Category>& before, const List<Category>& after) {
    std::unordered_set<UUID> ids;
    for (const Category& category : before) ids.insert(category.id);
    for (const Category& category : after)
        if (ids.erase(category.id) == 0) ids.insert(category.id);
    return ids;
}

}  // namespace

struct ExpenseListing::State {
    Library library;
    ExpenseFilter filter;
    std::shared_ptr<const void> books;  // another for each value of what rows hold beside their expenses
    Items listing;

    void update(const Library& now, const ExpenseFilter& wanted);

private:
    template <class FactsOf, class Before>
    void follow(const Library& now, const ExpenseFilter& wanted, const FactsOf& factsOf, const Before& before);
};

void ExpenseListing::State::update(const Library& now, const ExpenseFilter& wanted) {
    Finder finder(now, wanted.search);
    const auto factsOf = [&](const Expense& expense, std::size_t) {
        Fact fact = factOf(now, expense);
        fact.fits = finder.fits(expense);
        return fact;
    };
    const auto before = [&](const Items::Item& x, const Items::Item& y) {
        const Items::Item *a = &x, *b = &y;
        if (const int order = compare(now, *a, *b, wanted.order); order != 0)
            return wanted.ascending ? order < 0 : order > 0;
        // Within equals the latest comes first; by date, as chosen.
        if (wanted.order != ExpenseOrder::date || !wanted.ascending) std::swap(a, b);
        if (a->fact.date != b->fact.date) return a->fact.date < b->fact.date;
        if (a->record->createdAt != b->record->createdAt) return a->record->createdAt < b->record->createdAt;
        return a->fact.id < b->fact.id;
    };
    if (!books || now.business.homeCurrency != library.business.homeCurrency) {
        listing.begin(now.expenses, factsOf, before);
        books = std::make_shared<int>();
    } else {
        follow(now, wanted, factsOf, before);
        const bool sameNames = now.categories.sharesAllWith(library.categories) &&
                               now.clients.sharesAllWith(library.clients) &&
                               now.projects.sharesAllWith(library.projects);
        const bool searches = !Text::trim(wanted.search).empty();
        if (wanted.search != filter.search || (searches && !sameNames)) {
            // What does not hold the beginning of a search does not hold the whole.
            const bool narrower =
                sameNames && !Text::trim(filter.search).empty() && wanted.search.starts_with(filter.search);
            for (auto& [expense, fact] : listing.items())
                if (!narrower || fact.fits) fact.fits = finder.fits(*expense);
        }
    }
    library = now;
    filter = wanted;
}

/// Brings the listing to the categories, the order and the expenses of now, with the facts of those alone that differ.
template <class FactsOf, class Before>
void ExpenseListing::State::follow(const Library& now, const ExpenseFilter& wanted, const FactsOf& factsOf,
                                   const Before& before) {
    bool sorted = wanted.order == filter.order && wanted.ascending == filter.ascending;
    if (!now.categories.sharesAllWith(library.categories)) {
        books = std::make_shared<int>();
        sorted = sorted && wanted.order != ExpenseOrder::category && wanted.order != ExpenseOrder::status;
        if (const auto ids = comeOrGone(library.categories, now.categories); !ids.empty())
            for (auto& [expense, fact] : listing.items())
                if (expense->categoryID && ids.contains(*expense->categoryID)) fact = factsOf(*expense, 0);
    }
    if (!sorted) std::sort(listing.items().begin(), listing.items().end(), before);
    listing.update(now.expenses, factsOf, before);
}

ExpenseListing::ExpenseListing() : state_(std::make_unique<State>()) {}
ExpenseListing::~ExpenseListing() = default;

ExpenseTable ExpenseListing::table(const Library& library, const ExpenseFilter& filter) {
    state_->update(library, filter);
    std::vector<LazyRows<ExpenseRow>::Key> keys;
    std::int64_t total = 0, tax = 0;
    std::size_t leftOut = 0;
    for (const auto& [expense, fact] : state_->listing.items()) {
        if (!fact.fits || (fact.lists & bit(filter.list)) == 0) continue;
        if (filter.days && !filter.days->contains(fact.date)) continue;
        keys.push_back({fact.id, expense});
        std::int64_t sum = 0;
        // Each is believable, yet thousands at the limit would not fit.
        if (!fact.counts || __builtin_add_overflow(total, fact.home, &sum)) {
            ++leftOut;
            continue;
        }
        total = sum;
        if (!__builtin_add_overflow(tax, fact.claimed, &sum)) tax = sum;
    }
    ExpenseTable table;
    table.count =
        RowText::counted(keys.size(), RowText::marked("Rows", "1 expense"), RowText::marked("Rows", "%1 expenses"));
    table.total = MoneyFormat::string(total, library.home());
    table.tax = MoneyFormat::string(tax, library.home());
    if (leftOut > 0)
        table.leftOut = RowText::filled(RowText::translate("Rows", "%1 left out: no rate"), {std::to_string(leftOut)});
    table.rows = {std::move(keys), state_->books,
                  [library](const void* expense) { return rowOf(library, *static_cast<const Expense*>(expense)); }};
    return table;
}

ExpenseTable expenseTable(const Library& library, const ExpenseFilter& filter) {
    return ExpenseListing().table(library, filter);
}

bool belongsTo(const Library& library, const Expense& expense, ExpenseList list) {
    switch (list) {
        case ExpenseList::all:
            return true;
        case ExpenseList::toCheck:
            return expense.check.has_value();
        case ExpenseList::withoutCategory:
            return lacksCategory(library, expense);
        case ExpenseList::withoutRate:
            return lacksRate(library, expense);
        case ExpenseList::billable:
            return expense.billable && !expense.rebilledInvoiceID;
        case ExpenseList::mileage:
            return expense.kind == ExpenseKind::mileage;
        case ExpenseList::withoutReceipt:
            return expense.kind == ExpenseKind::regular && expense.attachments.empty() && expense.amount != 0;
    }
    return false;
}

ExpenseCounts countExpenses(const Library& library) {
    using enum ExpenseList;
    ExpenseCounts counts;
    const auto count = [&counts](ExpenseList list) { ++counts.lists[static_cast<std::size_t>(list)]; };
    std::unordered_set<UUID> categories;
    for (const Category& category : library.categories) categories.insert(category.id);
    for (const Expense& expense : library.expenses) {
        const bool noCategory = !expense.categoryID || !categories.contains(*expense.categoryID);
        const bool noRate = lacksRate(library, expense);
        if (noCategory) count(withoutCategory);
        if (noRate) count(withoutRate);
        if (noCategory || noRate) ++counts.incomplete;
        for (const ExpenseList list : {all, toCheck, billable, mileage, withoutReceipt})
            if (belongsTo(library, expense, list)) count(list);
    }
    return counts;
}

std::string_view title(ExpenseList list) {
    switch (list) {
        case ExpenseList::all:
            return RowText::marked("Rows", "Expenses");
        case ExpenseList::toCheck:
            return RowText::marked("Rows", "To check");
        case ExpenseList::withoutCategory:
            return RowText::marked("Rows", "No category");
        case ExpenseList::withoutRate:
            return RowText::marked("Rows", "No rate");
        case ExpenseList::billable:
            return RowText::marked("Rows", "Billable");
        case ExpenseList::mileage:
            return RowText::marked("Rows", "Mileage");
        case ExpenseList::withoutReceipt:
            return RowText::marked("Rows", "No receipt");
    }
    return {};
}

std::string_view title(PaymentMethod method) {
    switch (method) {
        case PaymentMethod::upi:
            return RowText::marked("Rows", "UPI");
        case PaymentMethod::card:
            return RowText::marked("Rows", "Card");
        case PaymentMethod::bank:
            return RowText::marked("Rows", "Bank transfer");
        case PaymentMethod::cash:
            return RowText::marked("Rows", "Cash");
        case PaymentMethod::pettyCash:
            return RowText::marked("Rows", "Petty cash");
        case PaymentMethod::cheque:
            return RowText::marked("Rows", "Cheque");
        case PaymentMethod::wallet:
            return RowText::marked("Rows", "Wallet");
        case PaymentMethod::other:
            return RowText::marked("Rows", "Other");
    }
    return {};
}

const std::vector<PaymentMethod>& allMethods() {
    static const std::vector<PaymentMethod> methods{
        PaymentMethod::upi,       PaymentMethod::card,   PaymentMethod::bank,   PaymentMethod::cash,
        PaymentMethod::pettyCash, PaymentMethod::cheque, PaymentMethod::wallet, PaymentMethod::other};
    return methods;
}

std::string splitText(const TaxSplit& split, const Currency& currency, const Business& business) {
    std::string result;
    const auto add = [&](std::string_view name, std::int64_t amount) {
        if (amount == 0) return;
        if (!result.empty()) result += " · ";
        result += std::string(name) + ' ' + MoneyFormat::string(amount, currency);
    };
    const auto state = IndianState::of(business.supplierState());
    add("CGST", split.cgst);
    add(state && state->utgst ? "UTGST" : "SGST", split.sgst);
    add("IGST", split.igst);
    add(RowText::translate("Rows", "Other tax"), split.other);
    return result;
}

std::optional<Period> daysOf(Span span, Day day, int fyStartMonth) {
    switch (span) {
        case Span::month:
            return Period::month(day);
        case Span::quarter:
            return Period::quarter(day, fyStartMonth);
        case Span::year:
            return Period::fy(day.financialYear(fyStartMonth));
        case Span::all:
            break;
    }
    return {};
}

std::string titleOf(Span span, Day day, int fyStartMonth) {
    const auto days = daysOf(span, day, fyStartMonth);
    switch (span) {
        case Span::month:
            return Sentences::months(day.formatted("MMMM yyyy"));
        case Span::quarter:
            return Sentences::months(days->from.formatted("MMM") + "–" + days->to.formatted("MMM yyyy"));
        case Span::year:
            return RowText::filled(RowText::translate("Rows", "FY %1"), {day.financialYear(fyStartMonth).label()});
        case Span::all:
            break;
    }
    return RowText::translate("Rows", "All time");
}

Day stepped(Span span, Day day, int steps) {
    switch (span) {
        case Span::month:
            return day.firstOfMonth().addingMonths(steps);
        case Span::quarter:
            return day.firstOfMonth().addingMonths(3 * steps);
        case Span::year:
            return day.firstOfMonth().addingMonths(12 * steps);
        case Span::all:
            break;
    }
    return day;
}

}  // namespace tamba
