#pragma once

#include "TambaCLI/Commands.h"
#include "TambaCore/Base/Text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What people type, as records and figures of the books. Each refuses, with a sentence, what it cannot make sense of.
namespace tamba::cli {

/// The one record of a list whose id begins with what was typed; null when there is none, refused when there are
/// several.
template <class Records>
[[nodiscard]] auto withID(const Records& records, std::string_view beginning, std::string_view what)
    -> decltype(&*records.begin()) {
    const std::string prefix = Text::upper(Text::trim(beginning));
    decltype(&*records.begin()) found = nullptr;
    if (prefix.empty()) return found;
    for (const auto& record : records) {
        if (!record.id.text().starts_with(prefix)) continue;
        if (found)
            throw Refusal("More than one " + std::string(what) + " begins with “" + std::string(beginning) +
                          "”. Give more of its ID.");
        found = &record;
    }
    return found;
}

/// The record that carries this name, case and blanks at the ends ignored, else the one whose id begins so; refuses
/// with the names there are.
template <class Record>
[[nodiscard]] const Record& named(const List<Record>& list, std::string_view name, std::string_view what) {
    const std::string wanted = Text::lower(Text::trim(name));
    std::vector<std::string> names;
    for (const Record& record : list) {
        if (Text::lower(Text::trim(record.name)) == wanted) return record;
        names.push_back(record.name);
    }
    if (const Record* byID = withID(list, name, what)) return *byID;
    throw Refusal("There is no " + std::string(what) + " “" + std::string(name) + "” in these books." +
                  (names.empty() ? "" : " There are: " + Text::join(names, ", ") + "."));
}

/// By its number, case ignored, or the beginning of its ID; “draft” is the only draft.
[[nodiscard]] const Document& documentOf(const Library& library, std::string_view typed);
[[nodiscard]] const Expense& expenseOf(const Library& library, std::string_view typed);

/// Puts a text that was typed into its field, without blanks at the ends.
inline void take(std::string& field, const std::optional<std::string>& typed) {
    if (typed) field = Text::trim(*typed);
}

/// Minor units; sums such as 3*1200 are worked out.
[[nodiscard]] std::int64_t amountOf(std::string_view typed, const Currency& currency);
/// Millionths, above 0.
[[nodiscard]] std::int64_t exchangeRateOf(std::string_view typed);
/// Thousandths, not negative. `what`: "quantity", "distance".
[[nodiscard]] std::int64_t quantityOf(std::string_view typed, std::string_view what);
/// Basis points of "18", "18%" or "2.5 %", not negative. `what`: "tax rate", "discount".
[[nodiscard]] int percentOf(std::string_view typed, std::string_view what);
[[nodiscard]] std::int64_t wholeNumberOf(std::string_view typed, std::string_view what);
/// A day with a year of four digits, or nothing: 26-04-01 is hardly meant for the year 26.
[[nodiscard]] std::optional<Day> typedDay(std::string_view typed);

/// In capitals.
[[nodiscard]] std::string currencyCode(std::string_view typed);
[[nodiscard]] std::string countryCode(std::string_view typed);
/// By name or code: Maharashtra, 27.
[[nodiscard]] std::string stateCode(std::string_view typed);
/// Cleaned and valid.
[[nodiscard]] std::string gstin(std::string_view typed);

/// A record's identity as lists show it: its first eight digits.
[[nodiscard]] std::string shortID(const UUID& id);

}  // namespace tamba::cli
