#include "Tamba/Rows/ImportRows.h"

#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/Sentences.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/Fields.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <unordered_map>

namespace tamba {
namespace {

using BankImport::Columns;
using BankImport::ImportError;
using BankImport::Parsed;
using BankImport::Role;

struct Use {
    ColumnUse use;
    std::string_view title;
    std::optional<Role> role;
};
constexpr std::array<Use, 15> uses{{
    {ColumnUse::unused, RowText::marked("Rows", "Not used"), {}},
    {ColumnUse::date, RowText::marked("Rows", "Date"), Role::date},
    {ColumnUse::narration, RowText::marked("Rows", "Narration"), Role::description},
    {ColumnUse::moneyOut, RowText::marked("Rows", "Money out"), Role::debit},
    {ColumnUse::moneyIn, RowText::marked("Rows", "Money in"), Role::credit},
    {ColumnUse::amount, RowText::marked("Rows", "Amount"), Role::amount},
    {ColumnUse::type, RowText::marked("Rows", "In or out"), Role::type},
    {ColumnUse::balance, RowText::marked("Rows", "Balance"), Role::balance},
    {ColumnUse::reference, RowText::marked("Rows", "Reference"), Role::reference},
    {ColumnUse::category, RowText::marked("Rows", "Category"), Role::category},
    {ColumnUse::payee, RowText::marked("Rows", "Payee"), Role::counterparty},
    {ColumnUse::furtherNarration, RowText::marked("Rows", "More narration"), {}},
    {ColumnUse::balanceType, RowText::marked("Rows", "Balance in or out"), Role::balanceType},
    {ColumnUse::currency, RowText::marked("Rows", "Currency"), Role::currency},
    {ColumnUse::state, RowText::marked("Rows", "Status"), Role::state},
}};
const Use& entry(ColumnUse use) { return uses[static_cast<std::size_t>(use)]; }

std::optional<std::size_t> number(std::string_view text) {
    std::size_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    return value;
}

std::string dayText(const BankTransaction& line) { return line.date.formatted("d MMM yyyy"); }

/// The line in a list: its money on one of the two sides.
ImportRow rowOf(const BankTransaction& line, std::size_t row, const Currency& currency) {
    const auto money = [&](std::int64_t minor) { return MoneyFormat::string(minor, currency); };
    ImportRow result;
    result.id = line.id;
    result.row = std::to_string(row);
    result.date = dayText(line);
    result.text = line.text;
    if (line.amount < 0)
        result.moneyOut = money(Checked::sub(0, line.amount));
    else
        result.moneyIn = money(line.amount);
    if (line.balance) result.balance = money(*line.balance);
    return result;
}

/// An identity for a row that made no line: its number, in a kind of its own.
UUID idOf(std::size_t row, std::uint8_t kind) {
    UUID id;
    id.bytes[0] = kind;
    for (std::size_t i = 0; i < 8; ++i) id.bytes[8 + i] = static_cast<std::uint8_t>(row >> (8 * i));
    return id;
}

std::string proofText(const BankImport::BalanceProof& proof, const Currency& currency) {
    const auto money = [&](std::int64_t minor) { return MoneyFormat::string(minor, currency); };
    const std::string opening = money(proof.opening), sum = money(proof.sum), closing = money(proof.closing);
    if (proof.closes())
        return RowText::filled(RowText::translate("Rows", "Opening %1 + lines %2 = closing %3"),
                               {opening, sum, closing});
    const std::int64_t reached = Checked::add(proof.opening, proof.sum);
    const auto apart =
        Checked::tryAdd(std::max(proof.closing, reached), Checked::sub(0, std::min(proof.closing, reached)));
    return apart
               ? RowText::filled(RowText::translate(
                                     "Rows", "Opening %1 + lines %2 = %3, but the statement closes with %4: %5 apart"),
                                 {opening, sum, money(reached), closing, money(*apart)})
               : RowText::filled(
                     RowText::translate("Rows", "Opening %1 + lines %2 = %3, but the statement closes with %4"),
                     {opening, sum, money(reached), closing});
}

}  // namespace

bool isStatement(const std::filesystem::path& file) {
    static constexpr std::array<std::string_view, 11> endings{".csv",  ".tsv",  ".txt",  ".ofx", ".qfx", ".qif",
                                                              ".xlsx", ".json", ".html", ".htm", ".xls"};
    const std::string ending = Text::lower(file.extension().string());
    return std::find(endings.begin(), endings.end(), ending) != endings.end();
}

std::size_t StatementFile::width() const {
    std::size_t widest = 0;
    if (table)
        for (const auto& row : table->rows) widest = std::max(widest, row.cells.size());
    return widest;
}

StatementFile StatementFile::of(std::string bytes, std::string name, const std::atomic<bool>* cancel) {
    StatementFile file{.name = std::move(name), .bytes = {}, .table = {}, .columns = {}, .layout = {}};
    file.table = BankImport::table(bytes, file.name, cancel);
    if (!file.table) {
        (void)BankImport::parse(bytes, file.name, DateOrder::dmy, Currency::inr(), cancel);
        file.bytes = std::move(bytes);
        return file;
    }
    try {
        file.columns = BankImport::recognise(*file.table);
    } catch (const ImportError&) {
        // A person can say what the columns are, where there are any.
        if (file.width() < 2) throw;
    }
    file.layout = BankImport::layoutKey(*file.table, file.columns);
    return file;
}

const std::vector<ColumnUse>& allColumnUses() {
    static const std::vector<ColumnUse> all = [] {
        std::vector<ColumnUse> list;
        for (const Use& each : uses) list.push_back(each.use);
        return list;
    }();
    return all;
}

std::string_view title(ColumnUse use) { return entry(use).title; }

ColumnUse useOf(const Columns& columns, std::size_t column) {
    for (const Use& each : uses)
        if (each.role && columns[*each.role] == column) return each.use;
    const auto& further = columns.furtherDescriptions;
    return std::find(further.begin(), further.end(), column) == further.end() ? ColumnUse::unused
                                                                              : ColumnUse::furtherNarration;
}

Columns withUse(Columns columns, std::size_t column, ColumnUse use) {
    for (auto& place : columns.places)
        if (place == column) place.reset();
    std::erase(columns.furtherDescriptions, column);
    if (use == ColumnUse::furtherNarration)
        columns.furtherDescriptions.push_back(column);
    else if (const auto role = entry(use).role)
        columns[*role] = column;
    return columns;
}

std::string remembered(const StatementReading& reading) {
    std::vector<std::string> words{"order=" + std::string(word(reading.order))};
    for (std::size_t i = 0; i < BankImport::roleCount; ++i)
        if (const auto& place = reading.columns.places[i])
            words.push_back(std::string(BankImport::name(static_cast<Role>(i))) + "=" + std::to_string(*place));
    for (const std::size_t place : reading.columns.furtherDescriptions)
        words.push_back("further=" + std::to_string(place));
    if (reading.columns.signs == Columns::Signs::turned) words.emplace_back("signs=turned");
    if (reading.account) words.push_back("account=" + reading.account->text());
    return Text::join(words, " ");
}

StatementReading recalled(StatementReading reading, std::string_view text, const StatementFile& file,
                          const Library& library) {
    StatementReading kept;
    kept.columns.header = reading.columns.header;
    kept.account = reading.account;
    const std::size_t width = file.width();
    for (const std::string& part : Text::split(text, ' ')) {
        const std::size_t equals = part.find('=');
        if (equals == part.npos) return reading;
        const std::string_view key = std::string_view(part).substr(0, equals);
        const std::string_view value = std::string_view(part).substr(equals + 1);
        if (key == "signs") {
            kept.columns.signs = Columns::Signs::turned;
        } else if (key == "order") {
            const auto order = fromWord<DateOrder>(value);
            if (!order) return reading;
            kept.order = *order;
        } else if (key == "account") {
            const auto id = UUID::parse(value);
            if (id && find(library.accounts, *id)) kept.account = id;
        } else {
            const auto place = number(value);
            if (!place || *place >= width) return reading;
            bool known = key == "further";
            if (known) kept.columns.furtherDescriptions.push_back(*place);
            for (std::size_t i = 0; i < BankImport::roleCount; ++i) {
                if (BankImport::name(static_cast<Role>(i)) != key) continue;
                kept.columns.places[i] = *place;
                known = true;
            }
            if (!known) return reading;
        }
    }
    return kept;
}

Parsed parsed(const StatementFile& file, const StatementReading& reading, const Currency& currency,
              const std::atomic<bool>* cancel) {
    return file.table ? BankImport::interpret(*file.table, reading.columns, reading.order, currency, cancel)
                      : BankImport::parse(file.bytes, file.name, reading.order, currency, cancel);
}

const std::vector<ImportRow>& ImportTable::list(ImportList which) const {
    switch (which) {
        case ImportList::held:
            return held;
        case ImportList::skipped:
            return skipped;
        case ImportList::breaks:
            return breaks;
        default:
            return added;
    }
}

std::set<UUID> ImportTable::anyway() const {
    std::set<UUID> ids;
    for (const ImportRow& row : held)
        if (row.anyway) ids.insert(row.id);
    return ids;
}

std::size_t ImportTable::count() const {
    return added.size() + static_cast<std::size_t>(
                              std::count_if(held.begin(), held.end(), [](const ImportRow& row) { return row.anyway; }));
}

std::size_t ImportTable::repeated() const {
    return static_cast<std::size_t>(
        std::count_if(held.begin(), held.end(), [](const ImportRow& row) { return row.repeated; }));
}

ImportTable importTable(const Library& library, const Parsed& parsed, const Currency& currency) {
    const auto money = [&](std::int64_t minor) { return MoneyFormat::string(minor, currency); };
    ImportTable result;
    const Bank::Added added = Bank::addTransactions(library, parsed.transactions, {});
    std::unordered_map<UUID, UUID> equals;
    for (const auto& skipped : added.skippedLines) equals.emplace(skipped.line.id, skipped.equal);
    std::unordered_map<UUID, const BankTransaction*> books;
    for (const BankTransaction& line : library.transactions) books.emplace(line.id, &line);
    std::unordered_map<UUID, std::size_t> rows;
    std::unordered_map<std::size_t, const BankTransaction*> lines;
    for (std::size_t i = 0; i < parsed.transactions.size(); ++i) {
        const BankTransaction& line = parsed.transactions[i];
        const std::size_t number = i < parsed.rows.size() ? parsed.rows[i] : i + 1;
        rows.emplace(line.id, number);
        lines.emplace(number, &line);
        ImportRow row = rowOf(line, number, currency);
        const auto equal = equals.find(line.id);
        if (equal == equals.end()) {
            result.added.push_back(std::move(row));
            continue;
        }
        if (const auto inBooks = books.find(equal->second); inBooks != books.end()) {
            const BankTransaction& held = *inBooks->second;
            const BankAccount* account = held.accountID ? find(library.accounts, *held.accountID) : nullptr;
            row.why = (account ? account->name + ": " : std::string()) + dayText(held) + " · " + held.text;
        } else {
            row.repeated = true;
            row.why = RowText::filled(RowText::translate("Rows", "The same as row %1 of this file"),
                                      {std::to_string(rows[equal->second])});
        }
        result.held.push_back(std::move(row));
    }
    for (const auto& skipped : parsed.skippedRows) {
        ImportRow row;
        row.id = idOf(skipped.row, 1);
        row.row = std::to_string(skipped.row);
        std::vector<std::string> filled = skipped.cells;
        std::erase(filled, std::string());
        row.text = Text::join(filled, " · ");
        row.why = Sentences::shown(skipped.reason);
        result.skipped.push_back(std::move(row));
    }
    for (const auto& one : parsed.balanceBreaks) {
        ImportRow row;
        if (const auto line = lines.find(one.row); line != lines.end()) row = rowOf(*line->second, one.row, currency);
        row.id = idOf(one.row, 2);
        row.row = std::to_string(one.row);
        row.why = RowText::filled(RowText::translate("Rows", "The balance should be %1 and is %2."),
                                  {money(one.expected), money(one.found)});
        result.breaks.push_back(std::move(row));
    }
    result.summary = RowText::counted(parsed.transactions.size(), RowText::marked("Rows", "1 line"),
                                      RowText::marked("Rows", "%1 lines"));
    const std::size_t repeated = result.repeated(), inBooks = result.held.size() - repeated;
    if (inBooks > 0)
        result.summary +=
            ", " + RowText::filled(RowText::translate("Rows", "%1 already in the books"), {std::to_string(inBooks)});
    if (repeated > 0)
        result.summary +=
            ", " + RowText::filled(RowText::translate("Rows", "%1 repeated in this file"), {std::to_string(repeated)});
    if (parsed.skipped > 0)
        result.summary +=
            ", " + RowText::counted(static_cast<std::size_t>(parsed.skipped), RowText::marked("Rows", "1 row skipped"),
                                    RowText::marked("Rows", "%1 rows skipped"));
    if (parsed.balanceProof) {
        result.proof = proofText(*parsed.balanceProof, currency);
        result.closes = parsed.balanceProof->closes();
    }
    return result;
}

Imported importStatement(Library library, const StatementEdit& edit) {
    if (!find(library.accounts, edit.account.id)) library.accounts.append(edit.account);
    Bank::Added added = Bank::addTransactions(std::move(library), edit.lines, edit.account.id);
    Imported result{std::move(added.library), added.added, added.skipped - added.repeated, added.repeated};
    for (const auto& skipped : added.skippedLines) {
        if (!edit.anyway.contains(skipped.line.id)) continue;
        result.library = Bank::addAnyway(std::move(result.library), skipped.line, edit.account.id);
        ++result.added;
        --(skipped.repeated ? result.repeated : result.held);
    }
    return result;
}

std::string outcomeText(const Imported& imported, const BankAccount& account) {
    std::string text =
        RowText::counted(static_cast<std::size_t>(imported.added), RowText::marked("Rows", "1 line added to %2"),
                         RowText::marked("Rows", "%1 lines added to %2"), account.name);
    if (imported.held > 0)
        text += " · " + RowText::counted(static_cast<std::size_t>(imported.held),
                                         RowText::marked("Rows", "1 was already in the books"),
                                         RowText::marked("Rows", "%1 were already in the books"));
    if (imported.repeated > 0)
        text += " · " + RowText::counted(static_cast<std::size_t>(imported.repeated),
                                         RowText::marked("Rows", "1 was repeated in the file"),
                                         RowText::marked("Rows", "%1 were repeated in the file"));
    return text;
}

}  // namespace tamba
