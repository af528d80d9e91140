#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Reports/TableParts.h"

#include <cstdint>
#include <optional>
#include <string>

/// Cells that the tables of documents and of expenses share. Parts of `BookTables`.
namespace tamba::BookCells {

using TableParts::Kind;

[[nodiscard]] inline Table::Amount amountOf(const std::string& currency, std::int64_t minor) {
    return {minor, Currency::of(currency).code};
}
/// "Total, INR"
[[nodiscard]] inline Table::Column homeColumn(const Library& library, const std::string& title) {
    return {title + ", " + library.home().code, Kind::amount};
}
/// Blank where there is no amount in the home currency.
[[nodiscard]] inline Table::Cell homeCell(const Library& library, const std::optional<std::int64_t>& amount) {
    return amount ? Table::Cell(TableParts::Home(library)(*amount)) : Table::Cell();
}
/// "83.25"; blank while the rate is missing.
[[nodiscard]] inline std::string rateText(std::int64_t rateMicros) {
    return rateMicros > 0 ? MoneyFormat::fxRate(rateMicros) : "";
}
/// "Bank transfer"
[[nodiscard]] std::string methodName(PaymentMethod method);

}  // namespace tamba::BookCells
