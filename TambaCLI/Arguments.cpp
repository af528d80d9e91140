#include "TambaCLI/Arguments.h"

#include <algorithm>
#include <charconv>

namespace tamba::cli {
namespace {

[[noreturn]] void refuse(std::string_view typed, std::string_view what) {
    throw Refusal("“" + std::string(typed) + "” is not " + std::string(what) + ".");
}

/// The text in capitals; a refusal unless it is so many letters.
std::string letterCode(std::string_view typed, std::size_t letters, std::string_view what) {
    std::string code = Text::upper(Text::trim(typed));
    const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
    if (code.size() != letters || !std::all_of(code.begin(), code.end(), isCapital)) refuse(typed, what);
    return code;
}

/// “a tax rate”, “an amount”
std::string withArticle(std::string_view what) {
    return (std::string_view("aeiou").find(what.front()) == std::string_view::npos ? "a " : "an ") + std::string(what);
}

/// Null when there is none.
const Document* onlyDraft(const Library& library) {
    const Document* found = nullptr;
    for (const Document& document : library.documents) {
        if (document.state != DocState::draft) continue;
        if (found) throw Refusal("There are several drafts. Give the beginning of an ID.");
        found = &document;
    }
    return found;
}

}  // namespace

const Document& documentOf(const Library& library, std::string_view typed) {
    const std::string wanted = Text::lower(Text::trim(typed));
    const Document* found = nullptr;
    for (const Document& document : library.documents) {
        if (!document.number || Text::lower(*document.number) != wanted) continue;
        if (found)
            throw Refusal("More than one document has the number “" + std::string(typed) +
                          "”. Give the beginning of its ID.");
        found = &document;
    }
    if (!found && wanted == "draft") found = onlyDraft(library);
    if (!found) found = withID(library.documents, typed, "document");
    if (!found) throw Refusal("There is no document “" + std::string(typed) + "” in these books.");
    return *found;
}

const Expense& expenseOf(const Library& library, std::string_view typed) {
    const Expense* found = withID(library.expenses, typed, "expense");
    if (!found) throw Refusal("There is no expense “" + std::string(typed) + "” in these books.");
    return *found;
}

std::int64_t amountOf(std::string_view typed, const Currency& currency) {
    const auto minor = MoneyFormat::parseSum(typed, currency);
    if (!minor) refuse(typed, "an amount");
    return *minor;
}

std::int64_t exchangeRateOf(std::string_view typed) {
    const auto rate = MoneyFormat::parseFXRate(MoneyFormat::withoutCurrencyMark(typed));
    if (!rate || *rate == 0 || !isBelievable(*rate)) refuse(typed, "an exchange rate");
    return *rate;
}

std::int64_t quantityOf(std::string_view typed, std::string_view what) {
    const auto quantity = MoneyFormat::parseQuantity(typed);
    if (!quantity || !isBelievable(*quantity)) refuse(typed, withArticle(what));
    return *quantity;
}

int percentOf(std::string_view typed, std::string_view what) {
    constexpr std::int64_t highest = 100'000'000;  // thousandths of a percent: a thousandfold is a typing error
    std::string_view figure = Text::trim(typed);
    if (figure.ends_with('%')) figure.remove_suffix(1);
    const auto thousandths = MoneyFormat::parseQuantity(figure);
    if (!thousandths || *thousandths % 10 != 0 || *thousandths > highest) refuse(typed, withArticle(what));
    return static_cast<int>(*thousandths / 10);
}

std::int64_t wholeNumberOf(std::string_view typed, std::string_view what) {
    const std::string_view figure = Text::trim(typed);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(figure.data(), figure.data() + figure.size(), value);
    if (error != std::errc() || end != figure.data() + figure.size() || value < 0) refuse(typed, withArticle(what));
    return value;
}

std::optional<Day> typedDay(std::string_view typed) {
    constexpr std::size_t year = 4, longest = 10;
    const bool hasForm = typed.size() <= longest && typed.find_first_not_of("0123456789") == year;
    return hasForm && typed[year] == '-' ? Day::iso(typed) : std::nullopt;
}

std::string currencyCode(std::string_view typed) { return letterCode(typed, 3, "a currency code such as INR or USD"); }
std::string countryCode(std::string_view typed) { return letterCode(typed, 2, "a country code such as IN or US"); }

std::string stateCode(std::string_view typed) {
    const std::string wanted = Text::lower(Text::trim(typed));
    if (const auto state = IndianState::of(wanted)) return std::string(state->code);
    for (const IndianState& state : IndianState::all())
        if (Text::lower(state.name) == wanted) return std::string(state.code);
    refuse(typed, "a state or union territory of India");
}

std::string gstin(std::string_view typed) {
    std::string cleaned = GSTIN::clean(typed);
    if (const auto problem = GSTIN::validate(cleaned)) throw Refusal(std::string(GSTIN::problemText(*problem)));
    return cleaned;
}

std::string shortID(const UUID& id) { return id.text().substr(0, 8); }

}  // namespace tamba::cli
