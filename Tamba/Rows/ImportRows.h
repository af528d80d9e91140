#pragma once

#include "TambaCore/Bank/Bank.h"
#include "TambaCore/Bank/BankImport.h"

#include <atomic>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// What the import sheet shows of a statement, as finished texts, and what becomes of it in the books. Pure: the file's
/// bytes, the books and what a person chose in, texts and books out.
namespace tamba {

/// By the name's extension. Other files are receipts.
[[nodiscard]] bool isStatement(const std::filesystem::path& file);

/// A statement before anybody has said what is what.
struct StatementFile {
    std::string name;
    std::string bytes;                       ///< of OFX and QIF, which are read anew in each currency
    std::optional<BankImport::Table> table;  ///< of all others
    BankImport::Columns columns;             ///< as recognised; blank where they are for a person to say
    std::string layout;                      ///< what a choice of columns is remembered by; empty without a table

    /// Throws ImportError, and Cancelled soon after another thread has set `cancel`.
    [[nodiscard]] static StatementFile of(std::string bytes, std::string name,
                                          const std::atomic<bool>* cancel = nullptr);
    [[nodiscard]] std::size_t width() const;  ///< columns of the table
};

/// What a column is used for.
enum class ColumnUse {
    unused,
    date,
    narration,
    moneyOut,
    moneyIn,
    amount,
    type,
    balance,
    reference,
    category,
    payee,
    furtherNarration,  ///< read where the narration is blank
    balanceType,
    currency,
    state,
};
[[nodiscard]] const std::vector<ColumnUse>& allColumnUses();
[[nodiscard]] std::string_view title(ColumnUse use);
[[nodiscard]] ColumnUse useOf(const BankImport::Columns& columns, std::size_t column);
/// The column that was used so before is used no more; there may be several further narrations.
[[nodiscard]] BankImport::Columns withUse(BankImport::Columns columns, std::size_t column, ColumnUse use);

/// How a statement is to be read, and where to.
struct StatementReading {
    BankImport::Columns columns;
    DateOrder order = DateOrder::dmy;
    std::optional<UUID> account;
    bool operator==(const StatementReading&) const = default;
};
/// As text, to be kept for the next file of this layout.
[[nodiscard]] std::string remembered(const StatementReading& reading);
/// The reading that was kept, with the header row of this file; as it was where that text does not fit the file or is
/// damaged. An account that is gone counts for nothing.
[[nodiscard]] StatementReading recalled(StatementReading reading, std::string_view text, const StatementFile& file,
                                        const Library& library);
/// Throws ImportError, and Cancelled.
[[nodiscard]] BankImport::Parsed parsed(const StatementFile& file, const StatementReading& reading,
                                        const Currency& currency, const std::atomic<bool>* cancel = nullptr);

/// The lists of the sheet.
enum class ImportList { added, held, skipped, breaks };

struct ImportRow {
    UUID id;  ///< of the line; of rows without one made up from their number
    std::string row, date, text, moneyOut, moneyIn, balance;
    std::string why;        ///< the line it equals, why it was skipped, what the balance should be
    bool repeated = false;  ///< its equal is in the same file
    bool anyway = false;    ///< comes in although the books hold its equal
    bool operator==(const ImportRow&) const = default;
};

struct ImportTable {
    std::vector<ImportRow> added, held, skipped, breaks;
    std::string summary;  ///< "42 lines, 3 already in the books, 1 repeated in this file, 1 row skipped"
    /// "Opening ₹100.00 + lines ₹50.00 = closing ₹150.00"; empty where the file has no balances.
    std::string proof;
    bool closes = true;

    [[nodiscard]] const std::vector<ImportRow>& list(ImportList which) const;
    [[nodiscard]] std::set<UUID> anyway() const;
    [[nodiscard]] std::size_t count() const;     ///< lines that come in
    [[nodiscard]] std::size_t repeated() const;  ///< those of `held` that the file repeats
};
[[nodiscard]] ImportTable importTable(const Library& library, const BankImport::Parsed& parsed,
                                      const Currency& currency);

/// A statement as a person wants it in the books.
struct StatementEdit {
    std::vector<BankTransaction> lines;
    std::set<UUID> anyway;
    BankAccount account;  ///< added where the books do not have it
};
struct Imported {
    Library library;
    int added = 0, held = 0, repeated = 0;
};
[[nodiscard]] Imported importStatement(Library library, const StatementEdit& edit);
/// "42 lines added to HDFC Bank · 3 were already in the books · 1 was repeated in the file"
[[nodiscard]] std::string outcomeText(const Imported& imported, const BankAccount& account);

}  // namespace tamba
