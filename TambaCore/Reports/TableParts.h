#pragma once

#include "TambaCore/Base/UUID.h"
#include "TambaCore/Model/Models.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/Table.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// What the tables of all reports have in common. Parts of `ReportTables`.
namespace tamba::TableParts {

using Kind = Table::Kind;
using From = Table::From;

/// Amounts of the home currency as cells.
class Home {
public:
    explicit Home(const Library& library) : code_(library.home().code) {}
    [[nodiscard]] Table::Amount operator()(std::int64_t minor) const { return {minor, code_}; }

private:
    std::string code_;
};

/// Adds a row that sums these columns over all rows so far; the first column bears the label. Nothing below a single
/// row or none.
void addSum(Table& table, std::string label, std::initializer_list<std::size_t> columns);
/// Notes how many records are in no figure; nothing where there are none.
void noteLeftOut(Table& table, std::size_t count);
/// What the input tax credit of a return wants to be looked at for, in sentences.
[[nodiscard]] std::vector<std::string> creditNotes(const GSTReturns::GSTR3B& summary, const Currency& currency);
/// "27 · Maharashtra"; what is no state as it stands.
[[nodiscard]] std::string place(std::string_view code);

}  // namespace tamba::TableParts
