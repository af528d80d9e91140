#pragma once

#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

/// How documents stand: what was paid and credited, what is still owed, and whether it is late. Derived, never stored.
/// Amounts are minor units of the document's currency. The functions for one document count 0 for what is beyond
/// belief.
namespace tamba::Books {

/// Sum of an invoice's payments, tax deducted at source included.
[[nodiscard]] std::int64_t paid(const Document& invoice);
/// Sum of the totals of the issued credit notes linked to an invoice.
[[nodiscard]] std::int64_t credits(const Library& library, const UUID& invoice);
/// total − credits − paid. Below zero when more was credited and paid than was owed: a refund is due.
[[nodiscard]] std::int64_t balance(const Library& library, const Document& invoice);
/// Invoice: draft; void; paid when the balance is below 1; overdue when the due date is before today; partial when
/// something was paid or credited; else sent. Estimate: draft, void, declined, converted when linked, accepted, expired
/// after its due date, else sent. Credit note: draft, void, else applied.
[[nodiscard]] DocStatus status(const Library& library, const Document& document, Day today);
/// "Part paid", "Overdue": as shown in a pill.
[[nodiscard]] std::string_view title(DocStatus status);
[[nodiscard]] std::string_view title(DocKind kind);  ///< "Invoice", "Estimate", "Credit note"

struct Standing {
    DocTotals totals;
    std::int64_t paid = 0;  ///< received and deducted
    std::int64_t tds = 0;   ///< the deducted part of it
    std::int64_t credited = 0;
    std::int64_t balance = 0;  ///< 0 for anything but an issued invoice
    DocStatus status = DocStatus::draft;
    std::int64_t daysLate = 0;  ///< whole days since the due date, while overdue; else 0
};

/// The standing of any document of one value of the books, each in constant time. A document whose figures are beyond
/// belief has none and is in no sum.
class Standings {
public:
    explicit Standings(const Library& library, Day today);
    [[nodiscard]] std::optional<Standing> of(const Document& document) const;
    /// The same without the lists of its totals.
    [[nodiscard]] std::optional<Standing> sumsOf(const Document& document) const;
    /// What was credited on an invoice, also beyond belief.
    [[nodiscard]] std::int64_t credits(const UUID& invoice) const;
    /// The balance of an issued invoice alone, for sums over many.
    [[nodiscard]] std::optional<std::int64_t> balance(const Document& invoice) const;

private:
    /// Nothing where the document or what was credited on it is beyond belief.
    [[nodiscard]] std::optional<std::int64_t> credited(const Document& document) const;
    std::unordered_map<UUID, std::int64_t> credits_;
    Day today_;
};

/// `Standings::sumsOf` for all documents, in their order, of one value of the books after the other: where neither a
/// document nor what was credited on it has changed, its standing is kept.
class KeptStandings {
public:
    [[nodiscard]] const std::vector<std::optional<Standing>>& update(const Library& library, Day today);

private:
    List<Document> documents_;
    Day today_;
    std::vector<std::int64_t> credits_;
    std::vector<std::optional<Standing>> standings_;
};

/// An amount of the document in minor units of the home currency, at the document's rate; nothing while that is missing
/// or where the result is beyond belief.
[[nodiscard]] std::optional<std::int64_t> inHomeCurrency(const Library& library, const Document& document,
                                                         std::int64_t amount);
/// An amount in the home currency as minor units of the document's currency, likewise.
[[nodiscard]] std::optional<std::int64_t> fromHomeCurrency(const Library& library, const Document& document,
                                                           std::int64_t amount);

}  // namespace tamba::Books
