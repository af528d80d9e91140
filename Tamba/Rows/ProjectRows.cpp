#include "Tamba/Rows/ProjectRows.h"

#include "Tamba/Rows/RowText.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Reports/Breakdowns.h"
#include "TambaCore/Reports/Sum.h"

#include <algorithm>
#include <tuple>

namespace tamba {
namespace {

constexpr Period allTime{{0, 1, 1}, {9999, 12, 31}};

struct Entry {
    const Project* project;
    std::string client;
    std::int64_t income = 0, expenses = 0;

    [[nodiscard]] std::int64_t profit() const {
        Sum sum;
        sum.add(income), sum.subtract(expenses);
        return sum.value();
    }
};

bool fits(const Entry& entry, const std::vector<std::string>& words) {
    const std::string all = Text::lower(entry.project->name + '\n' + entry.client);
    return std::all_of(words.begin(), words.end(),
                       [&all](const std::string& word) { return Text::contains(all, word); });
}

int compare(const Entry& a, const Entry& b, ProjectOrder order) {
    const auto sign = [](auto x, auto y) { return x < y ? -1 : y < x ? 1 : 0; };
    switch (order) {
        case ProjectOrder::client:
            return Text::compareForPeople(a.client, b.client);
        case ProjectOrder::income:
            return sign(a.income, b.income);
        case ProjectOrder::expenses:
            return sign(a.expenses, b.expenses);
        case ProjectOrder::profit:
            return sign(a.profit(), b.profit());
        case ProjectOrder::name:
            break;
    }
    return 0;
}

}  // namespace

ProjectTable projectTable(const Library& library, const ProjectFilter& filter) {
    std::vector<std::string> words;
    for (const std::string& word : Text::split(Text::lower(Text::trim(filter.search)), ' '))
        if (!word.empty()) words.push_back(word);
    const auto tallies = Breakdowns::projects(library, filter.days.value_or(allTime));
    std::vector<Entry> entries;
    for (const Project& project : library.projects) {
        if (project.archived && !filter.archived) continue;
        Entry entry{&project, {}};
        if (const Client* client = project.clientID ? library.client(*project.clientID) : nullptr)
            entry.client = client->name;
        const auto tally =
            std::find_if(tallies.begin(), tallies.end(), [&](const auto& row) { return row.projectID == project.id; });
        if (tally != tallies.end()) entry.income = tally->income, entry.expenses = tally->expenses;
        if (fits(entry, words)) entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(), [&filter](const Entry& a, const Entry& b) {
        if (const int order = compare(a, b, filter.order); order != 0) return filter.ascending ? order < 0 : order > 0;
        const int names = Text::compareForPeople(a.project->name, b.project->name);
        if (names != 0) return filter.order == ProjectOrder::name && !filter.ascending ? names > 0 : names < 0;
        return a.project->id < b.project->id;
    });

    ProjectTable table;
    const Currency home = library.home();
    const auto money = [&home](std::int64_t amount) {
        return amount == 0 ? std::string() : MoneyFormat::string(amount, home);
    };
    Sum profit;
    for (const Entry& entry : entries) {
        profit.add(entry.profit());
        table.rows.push_back({entry.project->id, entry.project->name, entry.client, money(entry.income),
                              money(entry.expenses), money(entry.profit()),
                              entry.project->archived ? RowText::translate("Rows", "Archived") : "",
                              entry.profit() < 0});
    }
    table.count =
        RowText::counted(entries.size(), RowText::marked("Rows", "1 project"), RowText::marked("Rows", "%1 projects"));
    table.profit =
        RowText::filled(RowText::translate("Rows", "%1 profit"), {MoneyFormat::string(profit.value(), home)});
    if (!tallies.empty() && !tallies.back().projectID) {
        Sum without;
        without.add(tallies.back().income), without.subtract(tallies.back().expenses);
        table.without = RowText::filled(RowText::translate("Rows", "%1 belongs to no project"),
                                        {MoneyFormat::string(without.value(), home)});
    }
    return table;
}

std::vector<ProjectRecordRow> projectRecords(const Library& library, const UUID& project,
                                             const std::optional<Period>& days) {
    struct Dated {
        Day date;
        ProjectRecordRow row;
    };
    std::vector<Dated> found;
    for (const auto& tally : Breakdowns::projects(library, days.value_or(allTime))) {
        if (tally.projectID != project) continue;
        for (const UUID& id : tally.documentIDs) {
            const Document& document = *library.document(id);
            const std::int64_t taxable = DocMath::totals(document).taxable;
            const std::int64_t signedValue = document.kind == DocKind::creditNote ? -taxable : taxable;
            found.push_back({document.issueDate,
                             {id,
                              true,
                              RowText::number(document),
                              {},
                              MoneyFormat::string(signedValue, Currency::of(document.currency))}});
        }
        for (const UUID& id : tally.expenseIDs) {
            const Expense& expense = *library.expense(id);
            found.push_back({expense.date,
                             {id,
                              false,
                              expense.vendor.empty() ? RowText::translate("Rows", "Expense") : expense.vendor,
                              {},
                              MoneyFormat::string(-expense.cost(), Currency::of(expense.currency))}});
        }
    }
    std::sort(found.begin(), found.end(),
              [](const Dated& a, const Dated& b) { return std::tie(b.date, b.row.id) < std::tie(a.date, a.row.id); });
    std::vector<ProjectRecordRow> rows;
    for (Dated& each : found) {
        each.row.date = each.date.formatted("d MMM yyyy");
        rows.push_back(std::move(each.row));
    }
    return rows;
}

}  // namespace tamba
