#pragma once

#include "TambaCore/Model/Models.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads the statement files that banks give out: CSV and other delimited text, HTML tables, .xlsx workbooks, OFX, QIF,
/// and the JSON of the table app. A line that comes out with a wrong sum, date or sign and no word about it is the
/// worst that can happen here: what can be read in two ways is skipped, counted and explained, never guessed.
///
///     const Parsed statement = BankImport::read("april.csv", DateOrder::dmy, Currency::inr());
///     auto [library, added, skipped, lines] = Bank::addTransactions(library, statement.transactions, account);
///
/// A table can also be corrected by hand: `table` shows its rows, `recognise` says which column is what, `interpret`
/// reads it with columns that somebody may have changed, and `layoutKey` is what such a choice is remembered by.
namespace tamba::BankImport {

/// Why a file cannot be read; `what()` is the finished sentence for the user.
class ImportError : public std::exception {
public:
    enum class Code {
        columns,  ///< a needed column is missing; `column` names it
        unknownFormat,
        noRows,
        workbook,  ///< a workbook of the old binary kind, or one with a password
        pdf,
        webPage,   ///< a web page without a table of lines
        tooLarge,  ///< more than any statement holds, packed or unpacked
    };
    explicit ImportError(Code code, std::string_view column = {});
    [[nodiscard]] Code code() const { return code_; }
    [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }

private:
    Code code_;
    std::string text_;
};

/// Thrown out of a reading that `cancel` ended.
struct Cancelled {};

/// A file as rows of cells, trimmed; rows above the header too.
struct Table {
    struct Row {
        std::size_t number = 0;  ///< as a spreadsheet counts them, from 1
        std::vector<std::string> cells;
    };
    std::string format;  ///< what the lines will be labelled with
    std::vector<Row> rows;
    std::vector<std::string> notes;  ///< what was left out of it: finished sentences
};

enum class Role {
    date,
    description,
    balance,
    reference,
    type,  ///< which way the money went
    debit,
    credit,
    amount,
    category,
    counterparty,
    balanceType,  ///< whether the balance is owed
    currency,
    state,  ///< whether the bank has carried the transaction out
};
inline constexpr std::size_t roleCount = 13;
[[nodiscard]] std::string_view name(Role role);

/// Which column is what. A person may change every part of it before the table is interpreted.
struct Columns {
    std::optional<std::size_t> header;  ///< index into the table's rows; without one all rows are data
    std::array<std::optional<std::size_t>, roleCount> places;
    std::vector<std::size_t> furtherDescriptions;                     ///< read in turn where the description is blank
    enum class Signs { asPrinted, turned } signs = Signs::asPrinted;  ///< turned: charges are printed as positive

    [[nodiscard]] std::optional<std::size_t>& operator[](Role role) { return places[static_cast<std::size_t>(role)]; }
    [[nodiscard]] const std::optional<std::size_t>& operator[](Role role) const {
        return places[static_cast<std::size_t>(role)];
    }
    bool operator==(const Columns&) const = default;
};

struct SkippedRow {
    std::size_t row = 0;
    std::vector<std::string> cells;
    std::string reason;  ///< a finished sentence
};

/// A running balance that the amount beside it does not lead to: a sign, an amount or a line is wrong or missing.
struct BalanceBreak {
    std::size_t row = 0;
    std::int64_t expected = 0, found = 0;  ///< minor units
};

/// Opening balance plus all lines against the closing balance, in minor units.
struct BalanceProof {
    std::int64_t opening = 0, sum = 0, closing = 0;
    [[nodiscard]] bool closes() const { return opening + sum == closing; }
};

/// What one file gave.
struct Parsed {
    std::vector<BankTransaction> transactions;  ///< in file order
    std::string format;                         ///< "CSV", "OFX", "QIF", "Grido", "XLSX" or "HTML"
    int skipped = 0;                            ///< rows that could not be turned into a transaction

    std::vector<std::size_t> rows;  ///< of each transaction; in OFX and QIF its number in the file
    std::vector<SkippedRow> skippedRows;
    std::vector<BalanceBreak> balanceBreaks;
    std::optional<BalanceProof> balanceProof;
    DateOrder order = DateOrder::dmy;  ///< that the dates were read with
    std::string orderReason;           ///< a finished sentence
    std::vector<std::string> notes;    ///< what else a person should know: finished sentences
    std::optional<std::size_t> headerRow;
    Columns columns;
    std::vector<std::string> columnTitles;  ///< as printed
};

/// Reads a file of any kind. Throws ImportError, FileError when the file cannot be opened, and Cancelled soon after
/// another thread has set `cancel`.
[[nodiscard]] Parsed read(const std::filesystem::path& file, DateOrder order, const Currency& currency,
                          const std::atomic<bool>* cancel = nullptr);
/// The same for bytes in memory; `fileName` is asked for its extension only.
[[nodiscard]] Parsed parse(std::string_view bytes, std::string_view fileName, DateOrder order, const Currency& currency,
                           const std::atomic<bool>* cancel = nullptr);

// One reader each, for UTF-8 text. Amounts are in minor units of `currency`. They throw ImportError; `noRows` when
// nothing in the file could be read as a line.
[[nodiscard]] Parsed csv(std::string_view text, DateOrder order, const Currency& currency);
[[nodiscard]] Parsed ofx(std::string_view text, const Currency& currency, const std::atomic<bool>* cancel = nullptr);
[[nodiscard]] Parsed qif(std::string_view text, DateOrder order, const Currency& currency,
                         const std::atomic<bool>* cancel = nullptr);
[[nodiscard]] Parsed gridoJSON(std::string_view json, DateOrder order, const Currency& currency);

/// The rows of a file that holds a table; nothing for OFX and QIF, whose lines name their parts themselves.
[[nodiscard]] std::optional<Table> table(std::string_view bytes, std::string_view fileName,
                                         const std::atomic<bool>* cancel = nullptr);
/// Finds the header row and what each column is by its titles and by what stands below them. Throws `columns`.
[[nodiscard]] Columns recognise(const Table& table);
/// The lines of the table. Throws `noRows`, and `columns` when the date or every amount has no column.
[[nodiscard]] Parsed interpret(const Table& table, const Columns& columns, DateOrder order, const Currency& currency,
                               const std::atomic<bool>* cancel = nullptr);
/// The same for every file of one layout: the header's titles in one spelling.
[[nodiscard]] std::string layoutKey(const Table& table, const Columns& columns);

/// The day a date cell holds: 2026-04-01…, else the first date that is found in the text.
[[nodiscard]] std::optional<Day> parseDate(std::string_view text, DateOrder order);
/// The payee a narration names, "UPI/DR/1/NORTHWIND/HDFC" gives "Northwind"; empty for cash, interest and charges.
[[nodiscard]] std::string cleanVendor(std::string_view narration);

}  // namespace tamba::BankImport
