#include "TambaCLI/Arguments.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <algorithm>
#include <iostream>

namespace tamba::cli {
namespace {

std::string categoryName(const Library& library, const Expense& expense) {
    const Category* category = expense.categoryID ? library.category(*expense.categoryID) : nullptr;
    return category ? category->name : "Uncategorised";
}

/// The category asked for, else the one that suits the vendor, else the one called `usual`, if there is one.
std::optional<UUID> categoryOf(const Library& library, const ExpenseEntry& entry, std::string_view usual) {
    if (!entry.category.empty()) return named(library.categories, entry.category, "category").id;
    if (const auto suggested = Expenses::suggestedCategory(library, entry.vendor)) return suggested;
    for (const Category& category : library.categories)
        if (category.name == usual) return category.id;
    return std::nullopt;
}

/// An expense made from what was typed; nothing is changed yet.
Expense expenseFrom(const Library& library, const ExpenseEntry& entry, Day today) {
    Expense expense = Expense::make(entry.date.value_or(today));
    expense.vendor = Text::trim(entry.vendor);
    const Project* project = entry.project.empty() ? nullptr : &named(library.projects, entry.project, "project");
    if (project) {
        expense.projectID = project->id;
        expense.clientID = project->clientID;
    }
    if (!entry.client.empty()) expense.clientID = named(library.clients, entry.client, "client").id;
    if (entry.method) expense.method = *entry.method;
    expense.billable = entry.billable;
    expense.notes = entry.notes;

    if (!entry.mileage.empty()) {
        const std::int64_t distance = quantityOf(entry.mileage, "distance");
        if (!Expenses::mileageAmount(distance, library.business.mileageRateMinor))
            throw Refusal("“" + entry.mileage + "” is not a distance.");
        expense = Expenses::mileage(library, std::move(expense), distance, library.business.mileageRateMinor);
        return Expenses::withCategory(library, std::move(expense), categoryOf(library, entry, "Mileage"));
    }
    expense =
        Expenses::withCurrency(library, std::move(expense),
                               entry.currency.empty() ? library.business.homeCurrency : currencyCode(entry.currency));
    if (!entry.rate.empty()) {
        const std::int64_t rate = exchangeRateOf(entry.rate);
        if (expense.currency == library.business.homeCurrency)
            throw Refusal("An expense in " + expense.currency + " needs no exchange rate.");
        expense.rateMicros = rate;
    }
    const Currency currency = Currency::of(expense.currency);
    expense.amount = amountOf(entry.amount, currency);
    expense = Expenses::withCategory(library, std::move(expense), categoryOf(library, entry, ""));
    if (!entry.tax.empty()) {
        const std::int64_t tax = amountOf(entry.tax, currency);
        if (tax < std::min<std::int64_t>(expense.amount, 0) || tax > std::max<std::int64_t>(expense.amount, 0))
            throw Refusal("The tax can’t be more than the amount.");
        expense = Expenses::withTax(library, std::move(expense), tax);
    }
    return expense;
}

/// First and last day of "2026-04".
std::pair<Day, Day> monthOf(const std::string& text) {
    const auto first = Day::iso(text + "-01");
    if (!first || first->monthKey() != text) throw Refusal("“" + text + "” is not a month such as 2026-04.");
    return {*first, first->lastOfMonth()};
}

std::vector<const Expense*> filtered(const Library& library, const ExpenseFilter& filter) {
    auto [from, to] = std::pair{filter.from, filter.to};
    if (!filter.month.empty()) {
        const auto [first, last] = monthOf(filter.month);
        from = from ? std::max(*from, first) : first;
        to = to ? std::min(*to, last) : last;
    }
    const std::string vendor = Text::lower(filter.vendor);
    const bool uncategorised = Text::lower(filter.category) == "uncategorised";
    std::optional<UUID> category;
    if (!filter.category.empty() && !uncategorised)
        category = named(library.categories, filter.category, "category").id;

    std::vector<const Expense*> found;
    for (const Expense& expense : library.expenses) {
        if ((from && expense.date < *from) || (to && *to < expense.date)) continue;
        if (category && expense.categoryID != category) continue;
        if (uncategorised && expense.categoryID && library.category(*expense.categoryID)) continue;
        if (!vendor.empty() && !Text::contains(Text::lower(expense.vendor), vendor)) continue;
        if (filter.check && !Expenses::attention(library, expense)) continue;
        found.push_back(&expense);
    }
    std::stable_sort(found.begin(), found.end(), [](const auto* a, const auto* b) { return a->date < b->date; });
    return found;
}

}  // namespace

std::string expenseDetails(const Library& library, const Expense& expense) {
    const Currency currency = Currency::of(expense.currency);
    const auto amount = [&](std::int64_t minor) {
        return minor == 0 ? std::string() : MoneyFormat::string(minor, currency);
    };
    const TaxSplit& split = expense.taxSplit;
    std::vector<std::string> taxes;
    for (const auto& [name, part] :
         {std::pair{"CGST ", split.cgst}, {"SGST ", split.sgst}, {"IGST ", split.igst}, {"other ", split.other}})
        if (part != 0) taxes.push_back(name + amount(part));
    std::string tax = amount(expense.tax);
    if (!taxes.empty()) tax += " (" + Text::join(taxes, ", ") + ")";
    if (expense.claimTax && expense.tax != 0) tax += ", claimed";
    const bool mileage = expense.kind == ExpenseKind::mileage;
    const Project* project = expense.projectID ? library.project(*expense.projectID) : nullptr;
    const Client* client = expense.clientID ? library.client(*expense.clientID) : nullptr;
    const bool foreign = expense.currency != library.business.homeCurrency;

    std::vector<std::pair<std::string, std::string>> lines{
        {"Expense", expense.id.text()},
        {"Date", expense.date.formatted("d MMM yyyy")},
        {"Vendor", expense.vendor},
        {"GSTIN", expense.vendorTaxID},
        {"Amount", MoneyFormat::string(expense.amount, currency)},
        {"Rate", foreign && expense.rateMicros != 0 ? MoneyFormat::fxRate(expense.rateMicros) : ""},
        {"Distance", mileage ? MoneyFormat::quantity(expense.distanceMilli) + " " + library.business.distanceUnit +
                                   " at " + MoneyFormat::string(expense.mileageRateMinor, currency)
                             : ""},
        {"Tax", tax},
        {"Category", categoryName(library, expense)},
        {"Paid by", std::string(word(expense.method))},
        {"Project", project ? project->name : ""},
        {"Client", client ? client->name : ""},
        {"Billable", expense.billable ? "yes" : ""},
        {"Notes", expense.notes}};
    for (const Attachment& attachment : expense.attachments) lines.emplace_back("File", attachment.path);
    lines.emplace_back("Check", Expenses::attention(library, expense).value_or(""));
    return details(lines);
}

int listExpenses(const Context& context, const ExpenseFilter& filter) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const Currency home = library.home();
    const auto found = filtered(library, filter);

    std::int64_t total = 0;
    std::size_t leftOut = 0;
    for (const Expense* expense : found) {
        const auto amount = Expenses::inHomeCurrency(library, *expense, expense->amount);
        const auto sum = amount ? Checked::tryAdd(total, *amount) : std::nullopt;
        total = sum.value_or(total);
        if (!sum) ++leftOut;
    }
    if (context.json) {
        JSON records = JSON::array();
        for (const Expense* expense : found) records.item(ModelsJSON::json(*expense));
        std::cout << JSON::object()
                         .add("expenses", records)
                         .add("total", total)
                         .add("currency", home.code)
                         .add("leftOut", static_cast<std::int64_t>(leftOut))
                         .text()
                  << "\n";
        return 0;
    }
    if (found.empty()) {
        std::cout << "No expenses.\n";
        return 0;
    }
    using enum Table::Align;
    Table table(
        {{"ID"}, {"Date"}, {"Vendor"}, {"Category"}, {"Amount", right}, {"Tax", right}, {"Paid by"}, {"Check"}});
    for (const Expense* expense : found) {
        const Currency currency = Currency::of(expense->currency);
        table.add({shortID(expense->id), expense->date.iso(), expense->vendor, categoryName(library, *expense),
                   MoneyFormat::string(expense->amount, currency),
                   expense->tax == 0 ? "" : MoneyFormat::string(expense->tax, currency),
                   std::string(word(expense->method)), Expenses::attention(library, *expense).value_or("")});
    }
    std::cout << table.text() << "\n"
              << counted(found.size(), "expense", "expenses") << ", " << MoneyFormat::string(total, home) << " in all.";
    if (leftOut > 0)
        std::cout << " " << leftOut << " can’t be converted to " << home.code
                  << (leftOut == 1 ? " and is left out." : " and are left out.");
    std::cout << "\n";
    return 0;
}

int addExpense(const Context& context, const ExpenseEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const Expense expense = expenseFrom(library, entry, context.today);
    // As in the window: a new expense, then what was typed, which is refused where it is beyond belief.
    Expense blank = Expense::make(expense.date);
    blank.id = expense.id;
    const Library saved = save(session, Expenses::replace(Expenses::add(library, blank), expense));
    if (context.json)
        std::cout << ModelsJSON::json(expense) << "\n";
    else
        std::cout << expenseDetails(saved, expense);
    return 0;
}

int showExpense(const Context& context, const std::string& idPrefix) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const Expense& expense = expenseOf(library, idPrefix);
    if (context.json)
        std::cout << ModelsJSON::json(expense) << "\n";
    else
        std::cout << expenseDetails(library, expense);
    return 0;
}

}  // namespace tamba::cli
