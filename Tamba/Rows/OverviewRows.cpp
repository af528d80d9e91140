#include "Tamba/Rows/OverviewRows.h"

#include "Tamba/Rows/BankRows.h"
#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Reports.h"

#include <algorithm>

namespace tamba {
namespace {

using Place = OverviewGoal::Place;

/// Overdue invoices that are named one by one; the others are told of in one line.
constexpr std::size_t namedInvoices = 5;

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
    return std::to_string(count) + ' ' + std::string(count == 1 ? one : many);
}

std::string days(std::int64_t count) { return std::to_string(count) + (count == 1 ? " day" : " days"); }

bool isEmpty(const Library& library) {
    return library.documents.empty() && library.expenses.empty() && library.transactions.empty();
}

/// Sums of many records at the edge of belief stay what a text can show.
std::int64_t difference(std::int64_t a, std::int64_t b) {
    constexpr std::int64_t most = 8'000'000'000'000'000'000;
    std::int64_t result = 0;
    return __builtin_sub_overflow(a, b, &result) ? (a < b ? -most : most) : result;
}

struct Late {
    const Document* invoice;
    std::int64_t balance;
};

class Builder {
public:
    Builder(const Library& library, Day today)
        : library_(library), today_(today), home_(library.home()), reports_{library, today} {}

    Overview build() {
        result_.empty = isEmpty(library_);
        addFigures();
        addMonths();
        addOverdue();
        addBank();
        addDrafts();
        addExpenses();
        addDates();
        return std::move(result_);
    }

private:
    [[nodiscard]] std::string amount(std::int64_t minor) const { return MoneyFormat::string(minor, home_); }

    void addFigures() {
        const auto aging = reports_.aging();
        std::size_t open = 0, late = 0;
        std::int64_t overdue = 0;
        for (std::size_t i = 0; i < aging.size(); ++i) {
            open += static_cast<std::size_t>(aging[i].count);
            if (i == 0) continue;
            late += static_cast<std::size_t>(aging[i].count);
            overdue = Checked::tryAdd(overdue, aging[i].amount).value_or(overdue);
        }
        const FinancialYear year = library_.fy(today_);
        const Period period = Period::fy(year);
        const std::int64_t income = reports_.income(IncomeBasis::accrual, period);
        const std::int64_t spent = reports_.spending(period);
        const std::int64_t profit = difference(income, spent);
        result_.figures = {
            OverviewFigure{"Owed to you",
                           amount(reports_.outstanding()),
                           open == 0 ? "All invoices are paid" : counted(open, "open invoice", "open invoices"),
                           Tone::none,
                           {.place = Place::unpaid}},
            OverviewFigure{"Overdue",
                           amount(overdue),
                           late == 0 ? "Nobody is late" : counted(late, "invoice is late", "invoices are late"),
                           late == 0 ? Tone::none : Tone::danger,
                           {.place = Place::overdue}},
            OverviewFigure{"Income this year",
                           amount(income),
                           "FY " + year.label() + ", by invoice date, without tax",
                           Tone::none,
                           {.place = Place::profitAndLoss, .days = period}},
            OverviewFigure{"Profit this year",
                           amount(profit),
                           amount(spent) + " spent",
                           profit < 0 ? Tone::danger : Tone::none,
                           {.place = Place::profitAndLoss, .days = period}}};
        if (const std::size_t count = reports_.leftOut().count())
            result_.leftOut = counted(count, "record is", "records are") +
                              " in no figure: the exchange rate is missing or an amount cannot be right";
    }

    void addMonths() {
        const Day first = today_.firstOfMonth().addingMonths(-11);
        const FinancialYear year = library_.fy(today_);
        for (const FinancialYear& each : {year.previous(), year})
            for (const MonthRow& row : reports_.months(IncomeBasis::accrual, each))
                if (first <= row.month && row.month <= today_)
                    result_.months.push_back({row.month, row.income, row.expenses});
    }

    void addOverdue() {
        const Books::Standings standings(library_, today_);
        const auto late = reports_.overdue();
        std::int64_t rest = 0;
        for (std::size_t i = 0; i < late.size(); ++i) {
            const Document& invoice = *late[i];
            const std::int64_t balance = standings.balance(invoice).value_or(0);
            if (i >= namedInvoices) {
                const auto home = Books::inHomeCurrency(library_, invoice, balance).value_or(0);
                rest = Checked::tryAdd(rest, home).value_or(rest);
                continue;
            }
            OverviewItem item{.icon = "document",
                              .title = clientNameOf(library_, invoice) + " · " + invoice.displayNumber(),
                              .tone = Tone::danger};
            item.detail = days(invoice.dueDate.daysUntil(today_)) + " late";
            if (invoice.remindersSent > 0) {
                item.detail +=
                    " · " + counted(static_cast<std::size_t>(invoice.remindersSent), "reminder", "reminders");
                if (invoice.lastReminder) item.detail += ", last on " + invoice.lastReminder->formatted("d MMM");
            }
            item.amount = MoneyFormat::string(balance, Currency::of(invoice.currency));
            item.goal = {.place = Place::document, .document = invoice.id};
            item.remind = invoice.id;
            result_.items.push_back(std::move(item));
        }
        if (late.size() > namedInvoices)
            result_.items.push_back(
                {.icon = "document",
                 .title = counted(late.size() - namedInvoices, "more invoice", "more invoices") + " overdue",
                 .amount = amount(rest),
                 .tone = Tone::danger,
                 .goal = {.place = Place::overdue}});
    }

    void addBank() {
        const std::size_t open = openLines(library_);
        if (open == 0) return;
        result_.items.push_back({.icon = "category-bank",
                                 .title = counted(open, "bank line", "bank lines") + " to match",
                                 .detail = "What they paid for, or which invoice they pay",
                                 .goal = {.place = Place::bank}});
    }

    void addDrafts() {
        struct Kind {
            DocKind kind;
            const char *one, *many;
        };
        for (const auto& [kind, one, many] : {Kind{DocKind::invoice, "draft invoice", "draft invoices"},
                                              Kind{DocKind::estimate, "draft estimate", "draft estimates"},
                                              Kind{DocKind::creditNote, "draft credit note", "draft credit notes"}}) {
            std::vector<const Document*> drafts;
            for (const Document& document : library_.documents)
                if (document.kind == kind && document.state == DocState::draft) drafts.push_back(&document);
            if (drafts.empty()) continue;
            OverviewItem item{.icon = "file", .title = counted(drafts.size(), one, many) + " not issued yet"};
            item.detail = namesOf(drafts);
            item.goal = {.place = Place::drafts, .kind = kind};
            if (drafts.size() == 1) item.goal = {.place = Place::document, .document = drafts.front()->id};
            result_.items.push_back(std::move(item));
        }
    }

    /// "For Monsoon Tea, Saffron Labs and 2 more".
    [[nodiscard]] std::string namesOf(const std::vector<const Document*>& drafts) const {
        std::vector<std::string> names;
        for (const Document* draft : drafts) {
            const std::string name = clientNameOf(library_, *draft);
            if (draft->clientID && std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
        }
        std::string text;
        for (std::size_t i = 0; i < std::min<std::size_t>(names.size(), 2); ++i)
            text += (i == 0 ? "For " : ", ") + names[i];
        if (names.size() > 2) text += " and " + std::to_string(names.size() - 2) + " more";
        return text;
    }

    void addExpenses() {
        struct Entry {
            ExpenseList list;
            const char *icon, *one, *many, *detail;
            Tone tone;
        };
        static constexpr Entry entries[] = {
            {ExpenseList::withoutRate, "exchange", "expense without an exchange rate",
             "expenses without an exchange rate", "Left out of every figure until it is there", Tone::danger},
            {ExpenseList::toCheck, "eye", "receipt to check", "receipts to check", "What was read may be wrong",
             Tone::warning},
            {ExpenseList::withoutCategory, "category-none", "expense without a category", "expenses without a category",
             "Uncategorised in the reports", Tone::none},
            {ExpenseList::billable, "billable", "expense to bill on", "expenses to bill on",
             "Billable, and on no invoice yet", Tone::none},
            {ExpenseList::withoutReceipt, "receipt", "expense without a receipt", "expenses without a receipt",
             "Nothing on file shows what was bought", Tone::none}};
        const ExpenseCounts counts = countExpenses(library_);
        for (const Entry& entry : entries) {
            const std::size_t count = counts.of(entry.list);
            if (count == 0) continue;
            OverviewItem item{.icon = entry.icon,
                              .title = counted(count, entry.one, entry.many),
                              .detail = entry.detail,
                              .tone = entry.tone,
                              .goal = {.place = Place::expenses, .list = entry.list}};
            if (entry.list == ExpenseList::billable) item.amount = amount(reports_.unbilledTotal());
            result_.items.push_back(std::move(item));
        }
    }

    void addDates() {
        for (const Deadlines::Deadline& each : Deadlines::upcoming(library_, today_)) {
            const std::int64_t away = today_.daysUntil(each.due);
            OverviewDate date;
            date.day = each.due.formatted("d");
            date.month = each.due.formatted("MMM");
            date.when = away == 0 ? "today" : away == 1 ? "tomorrow" : "in " + days(away);
            date.title = each.title;
            date.holds = each.holds;
            date.note = each.note;
            if (each.problems > 0) date.problems = counted(each.problems, "problem", "problems");
            date.tone = each.problems > 0 || away <= 3 ? Tone::warning : Tone::none;
            date.goal = {.place = Place::deadline, .days = each.period, .deadline = each.kind};
            result_.dates.push_back(std::move(date));
        }
    }

    const Library& library_;
    Day today_;
    Currency home_;
    Reports reports_;
    Overview result_;
};

}  // namespace

Overview overview(const Library& library, Day today) { return Builder(library, today).build(); }

Waiting waiting(const Library& library, Day today) {
    Waiting result;
    result.expenses = countExpenses(library);
    result.invoices = Reports{library, today}.overdue().size();
    result.bank = openLines(library);
    return result;
}

}  // namespace tamba
