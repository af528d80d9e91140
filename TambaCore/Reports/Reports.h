#pragma once

#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Profit, spending and what is owed, over one value of the books. Every figure is in minor units of the home currency:
/// each record is converted on its own at its own rate, then summed. Documents count by kind and stored state: only
/// what is issued, never drafts, void documents or estimates. A record without a rate or with figures beyond belief is
/// in no figure; `leftOut` names it. Rows carry the ids of the records they came from.
///
///     const Reports reports{library, today};
///     reports.income(IncomeBasis::cash, Period::fy(library.fy(today)));
namespace tamba {

enum class IncomeBasis { accrual, cash };
[[nodiscard]] const std::vector<IncomeBasis>& allIncomeBases();
[[nodiscard]] std::string_view word(IncomeBasis basis);      ///< "accrual", "cash"
[[nodiscard]] std::string_view title(IncomeBasis basis);     ///< "By invoice date", "By payment received"
[[nodiscard]] std::string_view footnote(IncomeBasis basis);  ///< what counts, in a sentence or two

struct MonthRow {
    Day month;  ///< its first day; the row's identity
    std::int64_t income = 0;
    std::int64_t expenses = 0;
    std::vector<UUID> documentIDs, expenseIDs;

    [[nodiscard]] std::int64_t profit() const;
    bool operator==(const MonthRow&) const = default;
};

struct CategoryRow {
    std::optional<UUID> categoryID;
    std::string name;
    std::string symbol;    ///< name of a glyph
    std::string colorHex;  ///< six hex digits
    std::int64_t amount = 0;
    int count = 0;
    std::vector<UUID> expenseIDs;

    bool operator==(const CategoryRow&) const = default;
};

struct ClientRow {
    std::string name;
    std::int64_t amount = 0;
    std::vector<UUID> documentIDs;

    bool operator==(const ClientRow&) const = default;
};

struct AgingRow {
    std::string label;  ///< the row's identity
    std::int64_t amount = 0;
    int count = 0;
    std::vector<UUID> documentIDs;

    bool operator==(const AgingRow&) const = default;
};

/// Records that are in no figure, in library order.
struct LeftOut {
    std::vector<UUID> documents, expenses;

    [[nodiscard]] std::size_t count() const { return documents.size() + expenses.size(); }
    bool operator==(const LeftOut&) const = default;
};

struct Reports {
    Library lib;
    Day today;  ///< the only "now" of any report

    /// Value above which an inter-state invoice to an unregistered buyer is reported on its own, in minor units of the
    /// home currency: ₹1,00,000.00. The present limit; `GSTRules` has it by date.
    static constexpr std::int64_t b2clThreshold = 10'000'000;

    // Pointers are valid as long as this value. All in library order unless said otherwise.
    [[nodiscard]] std::vector<const Document*> issuedInvoices() const;
    [[nodiscard]] std::vector<const Document*> issuedCredits() const;
    [[nodiscard]] std::vector<const Expense*> expenses(const Period& period) const;

    /// Accrual: taxable value of the invoices dated in the period less that of its credit notes. Cash: the taxable
    /// share of the payments of the period, tax deducted at source included; a total below 1 has no share.
    [[nodiscard]] std::int64_t income(IncomeBasis basis, const Period& period) const;
    /// What the expenses of the period cost: less the tax that is claimed back.
    [[nodiscard]] std::int64_t spending(const Period& period) const;
    /// Twelve rows, in the order of the financial year.
    [[nodiscard]] std::vector<MonthRow> months(IncomeBasis basis, const FinancialYear& year) const;
    /// Largest first. What has no category, or one that was deleted, is "Uncategorised".
    [[nodiscard]] std::vector<CategoryRow> byCategory(const Period& period) const;
    /// Taxable value of the invoices dated in the period by the client's name, largest first; credit notes play no
    /// part.
    [[nodiscard]] std::vector<ClientRow> byClient(const Period& period) const;

    /// Sum of the balances of all issued invoices; one that was overpaid lowers it.
    [[nodiscard]] std::int64_t outstanding() const;
    /// Invoices with a balance of at least 1 by days past due: not yet due (due today is not late), 1–30, 31–60, 61–90,
    /// over 90. Always five rows.
    [[nodiscard]] std::vector<AgingRow> aging() const;
    /// By due date, earliest first.
    [[nodiscard]] std::vector<const Document*> overdue() const;

    /// Billable expenses on no invoice yet.
    [[nodiscard]] std::vector<const Expense*> unbilled() const;
    /// What was paid for them, claimed tax included.
    [[nodiscard]] std::int64_t unbilledTotal() const;

    /// What the figures of a period leave out; without a period, those of all time and of what is owed.
    [[nodiscard]] LeftOut leftOut(const std::optional<Period>& period = {}) const;
};

/// The name a document's client goes by in reports: as the books have it now, else as on the document, else "No
/// client".
[[nodiscard]] std::string clientNameOf(const Library& library, const Document& document);

}  // namespace tamba
