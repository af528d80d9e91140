#include "TambaCLI/ReportCommands.h"
#include "TambaCore/Reports/Deadlines.h"
#include "TambaCore/Reports/Reports.h"

#include <iostream>

namespace tamba::cli {
namespace {

using enum Table::Align;

std::int64_t count(std::size_t number) { return static_cast<std::int64_t>(number); }

}  // namespace

int showOverview(const Context& context) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Reports reports{existing(session), context.today};
    const Library& library = reports.lib;
    const Period year = Period::fy(library.fy(context.today));
    std::int64_t late = 0;
    std::size_t open = 0, lateCount = 0;
    for (const AgingRow& row : reports.aging()) {
        open += static_cast<std::size_t>(row.count);
        if (row.label == "Not yet due") continue;
        late = Checked::tryAdd(late, row.amount).value_or(late);
        lateCount += static_cast<std::size_t>(row.count);
    }
    const std::int64_t income = reports.income(IncomeBasis::accrual, year), spent = reports.spending(year);
    const std::int64_t profit = Checked::sub(income, spent);
    const std::size_t leftOut = reports.leftOut().count();
    if (context.json) {
        std::cout << JSON::object()
                         .add("currency", library.home().code)
                         .add("owed", reports.outstanding())
                         .add("openInvoices", count(open))
                         .add("overdue", late)
                         .add("overdueInvoices", count(lateCount))
                         .add("from", year.from)
                         .add("to", year.to)
                         .add("income", income)
                         .add("spending", spent)
                         .add("profit", profit)
                         .add("leftOut", count(leftOut))
                         .text()
                  << "\n";
        return 0;
    }
    const auto money = [&](std::int64_t amount) { return MoneyFormat::string(amount, library.home()); };
    Table table({{"What"}, {"Amount", right}, {"Of"}});
    table.add({"Owed", money(reports.outstanding()), counted(open, "open invoice", "open invoices")});
    table.add({"Overdue", money(late), counted(lateCount, "invoice", "invoices")});
    const std::string label = library.fy(context.today).label();
    table.add({"Income", money(income), label});
    table.add({"Spending", money(spent), label});
    table.add({"Profit", money(profit), label});
    std::cout << table.text();
    if (leftOut > 0)
        std::cout << "\nLeft out: " << counted(leftOut, "record", "records")
                  << " without an exchange rate or with a figure that can’t be right.\n";
    return 0;
}

int showDue(const Context& context, int days) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const auto deadlines = Deadlines::upcoming(library, context.today, days);
    if (context.json) {
        JSON list = JSON::array();
        for (const Deadlines::Deadline& each : deadlines)
            list.append(JSON::object()
                            .add("kind", Deadlines::word(each.kind))
                            .add("due", each.due)
                            .add("from", each.period.from)
                            .add("to", each.period.to)
                            .add("title", each.title)
                            .add("holds", each.holds)
                            .add("note", each.note)
                            .add("documents", count(each.documents))
                            .add("taxable", each.taxable)
                            .add("payable", each.payable)
                            .add("problems", count(each.problems)));
        std::cout << list.text() << "\n";
        return 0;
    }
    if (deadlines.empty()) {
        std::cout << "Nothing is due in the next " << counted(static_cast<std::size_t>(days), "day", "days") << ".\n";
        return 0;
    }
    Table table({{"Due"}, {"Days", right}, {"What"}, {"What is in it"}});
    for (const Deadlines::Deadline& each : deadlines)
        table.add({each.due.iso(), std::to_string(context.today.daysUntil(each.due)), each.title,
                   each.holds +
                       (each.problems == 0 ? "" : " · " + counted(each.problems, "problem", "problems") + " to mend")});
    std::cout << table.text();
    return 0;
}

}  // namespace tamba::cli
