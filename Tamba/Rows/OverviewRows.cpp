#include "Tamba/Rows/OverviewRows.h"

#include "Tamba/Rows/BankRows.h"
#include "Tamba/Rows/DocumentRows.h"
#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/Sentences.h"
#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Reports.h"

#include <algorithm>

namespace tamba {
namespace {

using Place = OverviewGoal::Place;

/// Overdue invoices that are named one by one; the others are told of in one line.
constexpr std::size_t namedInvoices = 5;

std::string days(std::int64_t count) {
    return RowText::counted(static_cast<std::size_t>(count), RowText::marked("Rows", "1 day"),
                            RowText::marked("Rows", "%1 days"));
}

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
            OverviewFigure{RowText::translate("Rows", "Owed to you"),
                           amount(reports_.outstanding()),
                           open == 0 ? RowText::translate("Rows", "All invoices are paid")
                                     : RowText::counted(open, RowText::marked("Rows", "1 open invoice"),
                                                        RowText::marked("Rows", "%1 open invoices")),
                           Tone::none,
                           {.place = Place::unpaid}},
            OverviewFigure{RowText::translate("Rows", "Overdue"),
                           amount(overdue),
                           late == 0 ? RowText::translate("Rows", "Nobody is late")
                                     : RowText::counted(late, RowText::marked("Rows", "1 invoice is late"),
                                                        RowText::marked("Rows", "%1 invoices are late")),
                           late == 0 ? Tone::none : Tone::danger,
                           {.place = Place::overdue}},
            OverviewFigure{
                RowText::translate("Rows", "Income this year"),
                amount(income),
                RowText::filled(RowText::translate("Rows", "FY %1, by invoice date, without tax"), {year.label()}),
                Tone::none,
                {.place = Place::profitAndLoss, .days = period}},
            OverviewFigure{RowText::translate("Rows", "Profit this year"),
                           amount(profit),
                           RowText::filled(RowText::translate("Rows", "%1 spent"), {amount(spent)}),
                           profit < 0 ? Tone::danger : Tone::none,
                           {.place = Place::profitAndLoss, .days = period}}};
        if (const std::size_t count = reports_.leftOut().count())
            result_.leftOut = RowText::counted(
                count,
                RowText::marked("Rows",
                                "1 record is in no figure: the exchange rate is missing or an amount cannot be right"),
                RowText::marked(
                    "Rows", "%1 records are in no figure: the exchange rate is missing or an amount cannot be right"));
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
                              .title = clientTitle(library_, invoice) + " · " + invoice.displayNumber(),
                              .tone = Tone::danger};
            item.detail =
                RowText::filled(RowText::translate("Rows", "%1 late"), {days(invoice.dueDate.daysUntil(today_))});
            if (invoice.remindersSent > 0) {
                item.detail += " · " + RowText::counted(static_cast<std::size_t>(invoice.remindersSent),
                                                        RowText::marked("Rows", "1 reminder"),
                                                        RowText::marked("Rows", "%1 reminders"));
                if (invoice.lastReminder)
                    item.detail += RowText::filled(RowText::translate("Rows", ", last on %1"),
                                                   {invoice.lastReminder->formatted("d MMM")});
            }
            item.amount = MoneyFormat::string(balance, Currency::of(invoice.currency));
            item.goal = {.place = Place::document, .document = invoice.id};
            item.remind = invoice.id;
            result_.items.push_back(std::move(item));
        }
        if (late.size() > namedInvoices)
            result_.items.push_back({.icon = "document",
                                     .title = RowText::counted(late.size() - namedInvoices,
                                                               RowText::marked("Rows", "1 more invoice overdue"),
                                                               RowText::marked("Rows", "%1 more invoices overdue")),
                                     .amount = amount(rest),
                                     .tone = Tone::danger,
                                     .goal = {.place = Place::overdue}});
    }

    void addBank() {
        const std::size_t open = openLines(library_);
        if (open == 0) return;
        result_.items.push_back({.icon = "category-bank",
                                 .title = RowText::counted(open, RowText::marked("Rows", "1 bank line to match"),
                                                           RowText::marked("Rows", "%1 bank lines to match")),
                                 .detail = RowText::translate("Rows", "What they paid for, or which invoice they pay"),
                                 .goal = {.place = Place::bank}});
    }

    void addDrafts() {
        struct Kind {
            DocKind kind;
            const char *one, *many;
        };
        for (const auto& [kind, one, many] :
             {Kind{DocKind::invoice, RowText::marked("Rows", "1 draft invoice not issued yet"),
                   RowText::marked("Rows", "%1 draft invoices not issued yet")},
              Kind{DocKind::estimate, RowText::marked("Rows", "1 draft estimate not issued yet"),
                   RowText::marked("Rows", "%1 draft estimates not issued yet")},
              Kind{DocKind::creditNote, RowText::marked("Rows", "1 draft credit note not issued yet"),
                   RowText::marked("Rows", "%1 draft credit notes not issued yet")}}) {
            std::vector<const Document*> drafts;
            for (const Document& document : library_.documents)
                if (document.kind == kind && document.state == DocState::draft) drafts.push_back(&document);
            if (drafts.empty()) continue;
            OverviewItem item{.icon = "file", .title = RowText::counted(drafts.size(), one, many)};
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
        if (names.empty()) return {};
        std::string text = names[0];
        if (names.size() > 1) text += ", " + names[1];
        if (names.size() <= 2) return RowText::filled(RowText::translate("Rows", "For %1"), {text});
        return RowText::filled(RowText::translate("Rows", "For %1 and %2 more"),
                               {text, std::to_string(names.size() - 2)});
    }

    void addExpenses() {
        struct Entry {
            ExpenseList list;
            const char *icon, *one, *many, *detail;
            Tone tone;
        };
        static constexpr Entry entries[] = {
            {ExpenseList::withoutRate, "exchange", RowText::marked("Rows", "1 expense without an exchange rate"),
             RowText::marked("Rows", "%1 expenses without an exchange rate"),
             RowText::marked("Rows", "Left out of every figure until it is there"), Tone::danger},
            {ExpenseList::toCheck, "eye", RowText::marked("Rows", "1 receipt to check"),
             RowText::marked("Rows", "%1 receipts to check"), RowText::marked("Rows", "What was read may be wrong"),
             Tone::warning},
            {ExpenseList::withoutCategory, "category-none", RowText::marked("Rows", "1 expense without a category"),
             RowText::marked("Rows", "%1 expenses without a category"),
             RowText::marked("Rows", "Uncategorised in the reports"), Tone::none},
            {ExpenseList::billable, "billable", RowText::marked("Rows", "1 expense to bill on"),
             RowText::marked("Rows", "%1 expenses to bill on"),
             RowText::marked("Rows", "Billable, and on no invoice yet"), Tone::none},
            {ExpenseList::withoutReceipt, "receipt", RowText::marked("Rows", "1 expense without a receipt"),
             RowText::marked("Rows", "%1 expenses without a receipt"),
             RowText::marked("Rows", "Nothing on file shows what was bought"), Tone::none}};
        const ExpenseCounts counts = countExpenses(library_);
        for (const Entry& entry : entries) {
            const std::size_t count = counts.of(entry.list);
            if (count == 0) continue;
            OverviewItem item{.icon = entry.icon,
                              .title = RowText::counted(count, entry.one, entry.many),
                              .detail = RowText::translate("Rows", entry.detail),
                              .tone = entry.tone,
                              .goal = {.place = Place::expenses, .list = entry.list}};
            if (entry.list == ExpenseList::billable) item.amount = amount(reports_.unbilledTotal());
            result_.items.push_back(std::move(item));
        }
    }

    [[nodiscard]] std::vector<Deadlines::Deadline> dates() const {
        using Deadlines::Deadline, Deadlines::Kind, Deadlines::upcoming;
        std::vector<Deadline> result = upcoming(library_, today_);
        const auto isQuarterly = [](const Deadline& each) { return each.kind == Kind::cmp08; };
        if (library_.business.regime != TaxRegime::gstComposition ||
            std::any_of(result.begin(), result.end(), isQuarterly))
            return result;
        // The scheme’s one return is seen to grow all through its quarter.
        const std::vector<Deadline> later = upcoming(library_, today_, 120);
        if (const auto next = std::find_if(later.begin(), later.end(), isQuarterly); next != later.end())
            result.push_back(*next);
        return result;
    }

    void addDates() {
        for (const Deadlines::Deadline& each : dates()) {
            const std::int64_t away = today_.daysUntil(each.due);
            OverviewDate date;
            date.day = each.due.formatted("d");
            date.month = Sentences::months(each.due.formatted("MMM"));
            date.when = away == 0   ? RowText::translate("Rows", "today")
                        : away == 1 ? RowText::translate("Rows", "tomorrow")
                                    : RowText::filled(RowText::translate("Rows", "in %1"), {days(away)});
            date.title = Sentences::shown(each.title);
            date.holds = Sentences::shown(each.holds);
            date.note = Sentences::shown(each.note);
            if (each.problems > 0)
                date.problems =
                    RowText::counted(static_cast<std::size_t>(each.problems), RowText::marked("Rows", "1 problem"),
                                     RowText::marked("Rows", "%1 problems"));
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

bool isQuick(const Library& library) {
    return library.documents.size() + library.expenses.size() + library.transactions.size() <= 2'000;
}

}  // namespace tamba
