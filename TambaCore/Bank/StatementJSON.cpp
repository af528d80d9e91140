#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Text.h"

#include <simdjson.h>

#include <algorithm>
#include <map>

/// The table app's export: a list of rows, each an object whose keys are the column names, or a list of cells.
namespace tamba::BankImport {
namespace {

namespace dom = simdjson::dom;

/// A scalar as a cell shows it; figures keep the digits they were written with.
std::string shown(dom::element value) {
    switch (value.type()) {
        case dom::element_type::STRING:
            return std::string(Text::trim(std::string_view(value)));
        case dom::element_type::NULL_VALUE:
            return {};
        case dom::element_type::DOUBLE: {
            // Three decimals can be taken for thousands in a text; a fourth cannot.
            std::string digits = simdjson::to_string(value);
            const std::size_t point = digits.find('.');
            if (point != std::string::npos && digits.size() - point == 4) digits += '0';
            return digits;
        }
        default:
            return simdjson::to_string(value);
    }
}

/// The list of rows: the whole file, or its only list.
std::optional<dom::array> rowsIn(dom::element root) {
    dom::array list;
    if (!root.get(list)) return list;
    dom::object object;
    if (root.get(object)) return std::nullopt;
    std::optional<dom::array> found;
    for (const auto member : object) {
        if (member.value.get(list)) continue;
        if (found) return std::nullopt;
        found = list;
    }
    return found;
}

}  // namespace

Table jsonTable(std::string_view json, Cancel cancel) {
    constexpr std::size_t mostColumns = 500;
    if (json.starts_with("\xEF\xBB\xBF")) json.remove_prefix(3);
    dom::parser parser;
    dom::element root;
    if (parser.parse(json.data(), json.size()).get(root)) throw ImportError(ImportError::Code::unknownFormat);
    const auto list = rowsIn(root);
    if (!list) throw ImportError(ImportError::Code::unknownFormat);

    Table table{"Grido", {{1, {}}}, {}};
    std::map<std::string, std::size_t, std::less<>> places;
    std::size_t cells = 0;
    for (const dom::element item : *list) {
        stopIf(cancel);
        dom::object object;
        dom::array values;
        Table::Row row{table.rows.size() + 1, {}};
        if (!item.get(values))
            for (const dom::element value : values) row.cells.push_back(shown(value));
        else if (!item.get(object))
            for (const auto member : object) {
                auto place = places.find(std::string_view(member.key));
                if (place == places.end()) {
                    if (places.size() == mostColumns) throw ImportError(ImportError::Code::tooLarge);
                    place = places.emplace(member.key, places.size()).first;
                    table.rows.front().cells.emplace_back(Text::trim(std::string_view(member.key)));
                }
                if (row.cells.size() <= place->second) row.cells.resize(place->second + 1);
                row.cells[place->second] = shown(member.value);
            }
        else
            row.cells.push_back(shown(item));
        cells += row.cells.size();
        if (cells > maximumCells) throw ImportError(ImportError::Code::tooLarge);
        table.rows.push_back(std::move(row));
    }
    for (Table::Row& row : table.rows) row.cells.resize(std::max(row.cells.size(), table.rows.front().cells.size()));
    return table;
}

}  // namespace tamba::BankImport
