#include "TambaCore/Documents/Expenses.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <cstdlib>

namespace tamba::Expenses {
namespace {

std::optional<UUID> existing(const Library& library, const std::optional<UUID>& category) {
    return category && library.category(*category) ? category : std::nullopt;
}

/// Every figure of the expense can be right, so that no sum of its parts overflows.
bool isBelievable(const Expense& expense) {
    const TaxSplit& split = expense.taxSplit;
    const auto figures = {expense.amount, expense.tax, expense.rateMicros, expense.distanceMilli,   split.cgst,
                          split.sgst,     split.igst,  split.other,        expense.mileageRateMinor};
    return std::all_of(figures.begin(), figures.end(), [](std::int64_t figure) { return tamba::isBelievable(figure); });
}

Expense settled(Expense expense) {
    if (expense.kind != ExpenseKind::mileage) return expense;
    expense.amount = mileageAmount(expense.distanceMilli, expense.mileageRateMinor).value_or(0);
    expense.tax = 0;
    expense.taxSplit = {};
    return expense;
}

/// The books can say what it is worth, or will when its exchange rate is there.
bool hasValue(const Library& library, const Expense& expense) {
    return isBelievable(expense) && (expense.rateMicros < 1 || inHomeCurrency(library, expense, expense.amount));
}

BooksError tooLarge() {
    return BooksError(BooksError::Code::figures,
                      "The exchange rate or a figure of this expense is too large to be right.");
}

}  // namespace

const CategoryRule* rule(const Library& library, std::string_view text) {
    const std::string searched = Text::lower(text);
    for (const CategoryRule& rule : library.rules)
        if (!rule.contains.empty() && Text::contains(searched, Text::lower(rule.contains))) return &rule;
    return nullptr;
}

const Expense* latest(const Library& library, std::string_view vendor) {
    const std::string searched = Text::lower(Text::trim(vendor));
    if (searched.empty()) return nullptr;
    const Expense* result = nullptr;
    for (const Expense& expense : library.expenses) {
        if (result && expense.date < result->date) continue;
        if (Text::lower(Text::trim(expense.vendor)) == searched) result = &expense;
    }
    return result;
}

std::optional<UUID> suggestedCategory(const Library& library, std::string_view vendor) {
    if (const CategoryRule* fitting = rule(library, vendor))
        if (const auto category = existing(library, fitting->categoryID)) return category;
    const Expense* earlier = latest(library, vendor);
    return earlier ? existing(library, earlier->categoryID) : std::nullopt;
}

Library add(Library library, Expense expense) {
    library.expenses.append(settled(std::move(expense)));
    return library;
}

Library replace(Library library, Expense expense) {
    const std::size_t index = indexOf(library.expenses, expense.id);
    if (index == library.expenses.size()) return library;
    expense = settled(std::move(expense));
    if (!hasValue(library, expense) && hasValue(library, library.expenses[index])) throw tooLarge();
    library.expenses.update(index, [&expense](Expense& old) { old = std::move(expense); });
    return library;
}

Library remove(Library library, const UUID& id) {
    const std::size_t index = indexOf(library.expenses, id);
    if (index == library.expenses.size()) return library;
    library.expenses.erase(index);
    for (std::size_t i = 0; i < library.transactions.size(); ++i)
        if (library.transactions[i].expenseID == id)
            library.transactions.update(i, [](BankTransaction& line) { line.expenseID.reset(); });
    for (std::size_t i = 0; i < library.documents.size(); ++i) {
        const Document& document = library.documents[i];
        const auto billsIt = [&id](const Line& line) { return line.expenseID == id; };
        if (document.state != DocState::draft || std::none_of(document.lines.begin(), document.lines.end(), billsIt))
            continue;
        library.documents.update(i, [&billsIt](Document& draft) {
            for (Line& line : draft.lines)
                if (billsIt(line)) line.expenseID.reset();
        });
    }
    return library;
}

Expense withCategory(const Library& library, Expense expense, std::optional<UUID> category) {
    const Category* found = category ? library.category(*category) : nullptr;
    expense.categoryID = category;
    expense.claimTax = found && found->claimsTax && chargesTax(library.business.regime);
    return expense;
}

Expense withTax(const Library& library, Expense expense, std::int64_t tax) {
    expense.tax = tax;
    expense.taxSplit = TaxSplit::fromPaid(tax, GSTIN::stateCode(expense.vendorTaxID), library.business.supplierState(),
                                          library.business.isIndia());
    return settled(std::move(expense));
}

Expense withCurrency(const Library& library, Expense expense, std::string_view currency) {
    const Currency from = Currency::of(expense.currency);
    const Currency to = Currency::of(currency);
    expense.currency = to.code;
    expense.rateMicros = library.rate(to.code).value_or(0);
    if (from.exponent == to.exponent || !isBelievable(expense)) return expense;
    const auto asRead = [&](std::int64_t minor) { return MoneyMath::mulDiv(minor, to.scale(), from.scale()); };
    expense.amount = asRead(expense.amount);
    return withTax(library, std::move(expense), asRead(expense.tax));
}

std::optional<std::int64_t> mileageAmount(std::int64_t distanceMilli, std::int64_t rateMinor) {
    if (!tamba::isBelievable(distanceMilli) || !tamba::isBelievable(rateMinor)) return {};
    const auto amount = static_cast<__int128>(distanceMilli) * rateMinor / 1000;
    if (amount > maximumAmount || amount < -maximumAmount) return {};
    return MoneyMath::mulDiv(distanceMilli, rateMinor, 1000);
}

Expense mileage(const Library& library, Expense blank, std::int64_t distanceMilli, std::int64_t rateMinor) {
    blank.kind = ExpenseKind::mileage;
    blank.currency = library.home().code;
    blank.rateMicros = 1'000'000;
    blank.distanceMilli = distanceMilli;
    blank.mileageRateMinor = rateMinor;
    return settled(std::move(blank));
}

std::optional<std::int64_t> inHomeCurrency(const Library& library, const Expense& expense, std::int64_t amount) {
    if (!isBelievable(expense)) return {};
    if (expense.currency == library.business.homeCurrency)
        return tamba::isBelievable(amount) ? std::optional(amount) : std::nullopt;
    return MoneyMath::tryConvert(amount, Currency::of(expense.currency), library.home(), expense.rateMicros);
}

Library keepRate(Library library, std::string_view currency, std::optional<std::int64_t> rateMicros, Day day) {
    std::size_t at = 0;
    while (at < library.rates.size() && library.rates[at].currency != currency) ++at;
    const bool known = at < library.rates.size();
    if (!rateMicros && known)
        library.rates.erase(at);
    else if (rateMicros && !known)
        library.rates.append(FXRate{std::string(currency), *rateMicros, day, {}});
    else if (rateMicros && library.rates[at].rateMicros != *rateMicros)
        library.rates.update(at, [&](FXRate& kept) { kept.rateMicros = *rateMicros, kept.updated = day; });
    return library;
}

Expense convertedToHome(const Library& library, Expense expense) {
    const Currency from = Currency::of(expense.currency), home = library.home();
    if (from.code == home.code) return expense;
    if (expense.rateMicros < 1) throw BooksError(BooksError::Code::missingRate, from.code);
    const auto converted = [&](std::int64_t figure) {
        const auto value = inHomeCurrency(library, expense, figure);
        if (!value) throw tooLarge();
        return *value;
    };
    const std::string paid = from.code + " " + MoneyFormat::string(expense.amount, from, MoneyFormat::Symbol::hidden) +
                             " at " + MoneyFormat::fxRate(expense.rateMicros);
    Expense result = expense;
    result.amount = converted(expense.amount);
    result.tax = converted(expense.tax);
    // Each part is the difference between two rounded sums, so that the parts add up to the rounded whole.
    std::int64_t sum = 0, before = 0;
    for (std::int64_t TaxSplit::* part : {&TaxSplit::cgst, &TaxSplit::sgst, &TaxSplit::igst, &TaxSplit::other}) {
        sum = Checked::add(sum, expense.taxSplit.*part);
        const std::int64_t upTo = converted(sum);
        result.taxSplit.*part = Checked::sub(upTo, before);
        before = upTo;
    }
    result.mileageRateMinor = converted(expense.mileageRateMinor);
    result.currency = home.code;
    result.rateMicros = 1'000'000;
    result.notes += (result.notes.empty() ? "" : "\n") + paid;
    return settled(std::move(result));
}

std::optional<std::string> attention(const Library& library, const Expense& expense) {
    const std::string left = ", so the reports leave this expense out.";
    const bool tooFar =
        expense.kind == ExpenseKind::mileage && !mileageAmount(expense.distanceMilli, expense.mileageRateMinor);
    if (!isBelievable(expense) || tooFar) return "A figure is too large to be right" + left;
    if (!inHomeCurrency(library, expense, expense.amount)) {
        if (expense.rateMicros > 0) return "The exchange rate is too large to be right" + left;
        return "Add the exchange rate to include this in reports.";
    }
    if (expense.check) return expense.check;
    if (expense.amount == 0) return "The amount is missing.";
    const bool otherSign = expense.tax != 0 && (expense.tax < 0) != (expense.amount < 0);
    if (otherSign || std::abs(expense.tax) > std::abs(expense.amount)) return "The tax is more than the amount.";
    if (expense.taxSplit.total() != expense.tax) return "The parts of the tax don’t add up to the tax.";
    if (!existing(library, expense.categoryID)) return "The category is missing.";
    return {};
}

}  // namespace tamba::Expenses
