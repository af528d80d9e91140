#pragma once

#include "TambaCore/Base/CSV.h"
#include "TambaCore/Base/UUID.h"
#include "TambaCore/Model/Day.h"
#include "TambaCore/Model/Money.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tamba {

/// A report as people and programs see it: on a screen, on paper, on the clipboard, in a CSV file. Cells hold values,
/// not texts, so that each of these prints them its own way; every row keeps the records it was made from.
struct Table {
    enum class Kind { text, day, month, amount, count, quantity, percent };
    /// Which of a row's records make a column's figure.
    enum class From { all, documents, expenses };
    struct Column {
        std::string title;
        Kind kind = Kind::text;
        From from = From::all;
        bool isDetail = false;  ///< where there is little room, stands below the column before it

        bool operator==(const Column&) const = default;
    };
    /// Minor units of a currency.
    struct Amount {
        std::int64_t minor = 0;
        std::string currency;

        bool operator==(const Amount&) const = default;
    };
    /// Nothing, a text, a day (of `month`: its first), an amount; else a number in the column's unit: a count,
    /// thousandths for `quantity`, basis points for `percent`.
    using Cell = std::variant<std::monostate, std::string, Day, Amount, std::int64_t>;
    struct Row {
        std::vector<Cell> cells;
        std::vector<UUID> documentIDs, expenseIDs;
        bool isSum = false;  ///< sums up rows above it; left out of CSV files, which programs add up themselves

        bool operator==(const Row&) const = default;
    };

    std::string title;     ///< "Profit and loss"
    std::string subtitle;  ///< the period, and the basis where there is one
    std::vector<Column> columns;
    std::vector<Row> rows;
    std::vector<std::string> notes;  ///< finished sentences under the table

    bool operator==(const Table&) const = default;
};

namespace Tables {

/// For people: ₹1,23,456.00, 14 Oct 2026, October 2026, 12.5, 18%.
[[nodiscard]] std::string shown(const Table::Cell& cell, Table::Kind kind);
/// For programs: 123456.00, 2026-10-14, 2026-10, 12.5, 18.
[[nodiscard]] std::string plain(const Table::Cell& cell, Table::Kind kind);
/// Without sums and notes. A column of amounts in several currencies keeps each row's own decimals.
[[nodiscard]] CSV csv(const Table& table);
/// As shown, tabs between cells and a line a row, sums included: what a spreadsheet takes from the clipboard.
[[nodiscard]] std::string text(const Table& table);

}  // namespace Tables
}  // namespace tamba
