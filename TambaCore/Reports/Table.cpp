#include "TambaCore/Reports/Table.h"

#include <algorithm>
#include <string_view>

namespace tamba::Tables {
namespace {

enum class For { people, programs };

std::string number(std::int64_t value, Table::Kind kind, For whom) {
    if (kind == Table::Kind::quantity) return MoneyFormat::quantity(value);
    if (kind != Table::Kind::percent) return std::to_string(value);
    std::string rate = MoneyFormat::rate(value);
    if (whom == For::programs) rate.pop_back();  // the "%"
    return rate;
}

std::string day(const Day& day, Table::Kind kind, For whom) {
    if (whom == For::people) return day.formatted(kind == Table::Kind::month ? "MMMM yyyy" : "d MMM yyyy");
    return kind == Table::Kind::month ? day.monthKey() : day.iso();
}

std::string printed(const Table::Cell& cell, Table::Kind kind, For whom) {
    if (const auto* text = std::get_if<std::string>(&cell)) return *text;
    if (const auto* date = std::get_if<Day>(&cell)) return day(*date, kind, whom);
    if (const auto* amount = std::get_if<Table::Amount>(&cell)) {
        const Currency currency = Currency::of(amount->currency);
        return whom == For::people ? MoneyFormat::string(amount->minor, currency)
                                   : MoneyFormat::plain(amount->minor, currency);
    }
    const auto* value = std::get_if<std::int64_t>(&cell);
    return value ? number(*value, kind, whom) : "";
}

/// One cell of a line: no tab or line end may look like the next cell or line, and no text may run as a formula where
/// it is pasted.
std::string pasted(const Table::Cell& cell, Table::Kind kind) {
    std::string text = shown(cell, kind);
    std::replace_if(text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    const bool runs = std::holds_alternative<std::string>(cell) && !text.empty() &&
                      std::string_view("=+-@").find(text.front()) != std::string_view::npos;
    return runs ? "'" + text : text;
}

}  // namespace

std::string shown(const Table::Cell& cell, Table::Kind kind) { return printed(cell, kind, For::people); }

std::string plain(const Table::Cell& cell, Table::Kind kind) { return printed(cell, kind, For::programs); }

CSV csv(const Table& table) {
    CSV::Row titles;
    for (const Table::Column& column : table.columns) titles.push_back(column.title);
    CSV result(std::move(titles));
    for (const Table::Row& row : table.rows) {
        if (row.isSum) continue;
        CSV::Row cells;
        for (std::size_t i = 0; i < row.cells.size(); ++i)
            cells.push_back(plain(row.cells[i], table.columns.at(i).kind));
        result.add(std::move(cells));
    }
    return result;
}

std::string text(const Table& table) {
    std::string result;
    const auto addLine = [&](auto&& cell) {
        for (std::size_t i = 0; i < table.columns.size(); ++i) result += (i > 0 ? "\t" : "") + cell(i);
        result += '\n';
    };
    addLine([&](std::size_t i) { return table.columns[i].title; });
    for (const Table::Row& row : table.rows)
        addLine([&](std::size_t i) { return i < row.cells.size() ? pasted(row.cells[i], table.columns[i].kind) : ""; });
    return result;
}

}  // namespace tamba::Tables
