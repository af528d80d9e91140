#include "TambaCore/Bank/Rules.h"

#include "TambaCore/Bank/Words.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"

#include <algorithm>
#include <string>

namespace tamba::Rules {
namespace {

/// A word that tells who was paid: neither noise nor a number of this one payment.
bool tells(std::string_view word) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return std::none_of(word.begin(), word.end(), isDigit) && !Matcher::isNoise(Text::lower(word));
}

/// The longest stretch of telling words as the name has them: "Chulha & Charcha" of "The Chulha & Charcha Pvt Ltd".
/// The whole name where no word tells ("24/7").
std::string tellingPart(std::string_view name) {
    std::string_view longest, stretch;
    for (const std::string_view word : Matcher::pieces(name)) {
        if (!tells(word)) {
            stretch = {};
            continue;
        }
        if (stretch.empty()) stretch = word;
        stretch = {stretch.data(), static_cast<std::size_t>(word.data() + word.size() - stretch.data())};
        if (stretch.size() > longest.size()) longest = stretch;
    }
    return std::string(longest.empty() ? Text::trim(name) : longest);
}

bool sameText(std::string_view a, std::string_view b) {
    return Text::lower(Text::trim(a)) == Text::lower(Text::trim(b));
}

}  // namespace

Expense applied(const Library& library, Expense expense, std::string_view narration) {
    const CategoryRule* rule = Expenses::rule(library, expense.vendor + "\n" + std::string(narration));
    if (rule && !rule->vendor.empty()) expense.vendor = rule->vendor;
    std::optional<UUID> category;
    if (rule && library.category(rule->categoryID))
        category = rule->categoryID;
    else if (const Expense* earlier = Expenses::latest(library, expense.vendor);
             earlier && earlier->categoryID && library.category(*earlier->categoryID))
        category = earlier->categoryID;
    return Expenses::withCategory(library, std::move(expense), category);
}

std::optional<CategoryRule> ruleFrom(const Library& library, const Expense& corrected) {
    if (!corrected.categoryID || !library.category(*corrected.categoryID)) return {};
    const BankTransaction* line = corrected.bankTxnID ? find(library.transactions, *corrected.bankTxnID) : nullptr;
    const std::string counterparty(line && line->counterparty ? Text::trim(*line->counterparty) : "");
    const std::string& name = counterparty.empty() ? corrected.vendor : counterparty;
    const std::string contains = tellingPart(name);
    if (contains.empty()) return {};
    // Without a counterparty, a vendor that a person typed may be nowhere in the narration.
    if (line && counterparty.empty() && !Text::contains(Text::lower(line->text), Text::lower(contains))) return {};
    const bool renamed = line && !sameText(corrected.vendor, name);
    return CategoryRule::make(contains, *corrected.categoryID,
                              renamed ? std::string(Text::trim(corrected.vendor)) : "");
}

Library put(Library library, CategoryRule rule) {
    rule.contains = Text::trim(rule.contains);
    rule.vendor = Text::trim(rule.vendor);
    if (rule.contains.empty()) throw BooksError(BooksError::Code::rule, "A rule needs a text to look for.");
    if (!library.category(rule.categoryID))
        throw BooksError(BooksError::Code::rule, "Choose the category for this rule first.");
    std::size_t index = indexOf(library.rules, rule.id);
    for (std::size_t i = 0; i < library.rules.size() && index == library.rules.size(); ++i)
        if (sameText(library.rules[i].contains, rule.contains)) index = i;
    if (index < library.rules.size()) {
        library.rules.update(index, [&rule](CategoryRule& old) {
            rule.id = old.id;
            old = rule;
        });
        return library;
    }
    const CategoryRule* wider = Expenses::rule(library, rule.contains);
    library.rules.insert(wider ? indexOf(library.rules, wider->id) : library.rules.size(), std::move(rule));
    return library;
}

Library remove(Library library, const UUID& id) {
    const std::size_t index = indexOf(library.rules, id);
    if (index < library.rules.size()) library.rules.erase(index);
    return library;
}

Library move(Library library, const UUID& id, std::size_t position) {
    const std::size_t index = indexOf(library.rules, id);
    if (index == library.rules.size()) return library;
    CategoryRule rule = library.rules[index];
    library.rules.erase(index);
    library.rules.insert(std::min(position, library.rules.size()), std::move(rule));
    return library;
}

}  // namespace tamba::Rules
