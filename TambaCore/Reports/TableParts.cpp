#include "TambaCore/Reports/TableParts.h"

#include "TambaCore/Reports/Sum.h"

namespace tamba::TableParts {

void addSum(Table& table, std::string label, std::initializer_list<std::size_t> columns) {
    if (table.rows.size() < 2) return;
    Table::Row sum;
    sum.isSum = true;
    sum.cells.resize(table.columns.size());
    sum.cells.front() = std::move(label);
    for (const std::size_t column : columns) {
        Sum total;
        std::string currency;
        for (const Table::Row& row : table.rows) {
            if (const auto* amount = std::get_if<Table::Amount>(&row.cells[column]))
                total.add(amount->minor), currency = amount->currency;
            else if (const auto* count = std::get_if<std::int64_t>(&row.cells[column]))
                total.add(*count);
        }
        if (table.columns[column].kind == Kind::amount)
            sum.cells[column] = Table::Amount{total.value(), currency};
        else
            sum.cells[column] = total.value();
    }
    table.rows.push_back(std::move(sum));
}

void noteLeftOut(Table& table, std::size_t count) {
    if (count == 0) return;
    table.notes.push_back((count == 1 ? "1 record is" : std::to_string(count) + " records are") +
                          " left out: without an exchange rate, or with a figure that can’t be right.");
}

std::string place(std::string_view code) {
    const auto state = IndianState::of(std::string(code));
    return state ? state->label() : std::string(code);
}

}  // namespace tamba::TableParts
