#pragma once

#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/Rows/Listing.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What the Invoices screen shows, as finished texts. Pure: the books, a filter and today in, rows out.
namespace tamba {

/// What rows can be ordered by.
enum class DocumentOrder { date, client, total, status };

/// One choice of the status filter: "Unpaid" holds sent, partly paid and overdue. No statuses: every document.
struct StatusChoice {
    std::string title;
    std::vector<DocStatus> statuses;
};
[[nodiscard]] const std::vector<StatusChoice>& statusChoices(DocKind kind);

struct DocumentFilter {
    DocKind kind = DocKind::invoice;
    std::optional<Period> days = {};       ///< nothing: all time
    std::vector<DocStatus> statuses = {};  ///< none: all
    std::string search = {};               ///< words that must all occur
    DocumentOrder order = DocumentOrder::date;
    bool ascending = false;
    bool operator==(const DocumentFilter&) const = default;
};

struct DocumentRow {
    UUID id;
    std::string number, date;
    std::string client, due;     ///< `due`: "Due 18 Nov 2026", "3 days late", "For INV/26-27/003"
    std::string total, balance;  ///< `balance`: "₹20,000.00 due"; empty where nothing is
    std::string status;
    Tone tone = Tone::neutral;
    std::string glyph;  ///< for the status where there is no room for its word
    bool late = false;
    bool operator==(const DocumentRow&) const = default;
};

struct DocumentTable {
    LazyRows<DocumentRow> rows;
    /// "12 invoices", "₹1,23,456.00", "₹20,000.00" (due), "2 left out: no rate". Sums are in the home currency and
    /// hold neither drafts nor what is void.
    std::string count, total, due, leftOut;
};
[[nodiscard]] DocumentTable documentTable(const Library& library, const DocumentFilter& filter, Day today);

/// The same tables, one after the other: how documents stand that have not changed is not worked out again, and a table
/// that nothing in it has changed is the same.
class DocumentListing {
public:
    [[nodiscard]] DocumentTable table(const Library& library, const DocumentFilter& filter, Day today);

private:
    [[nodiscard]] DocumentTable made(const Library& library, const DocumentFilter& filter, Day today);

    Books::KeptStandings standings_;
    KeptTable<DocumentTable, DocumentFilter> kept_;
};

[[nodiscard]] std::size_t countOf(const Library& library, DocKind kind);
[[nodiscard]] std::string_view pluralTitle(DocKind kind);  ///< "Invoices", "Estimates", "Credit notes"
[[nodiscard]] Tone toneOf(DocStatus status);
/// The client frozen on the document, on a draft the present one; empty without.
[[nodiscard]] std::string clientName(const Library& library, const Document& document);
/// The client as reports name it, for people: “No client” in the language of the windows where there is none.
[[nodiscard]] std::string clientTitle(const Library& library, const Document& document);

/// A line of the totals below a document's lines.
struct TotalLine {
    std::string title, amount;
    bool strong = false;
    bool operator==(const TotalLine&) const = default;
};
/// Subtotal, discount, taxable value, each tax, round-off, total; in the home currency below, where that is another.
/// What is zero is left out. Empty for figures beyond belief.
[[nodiscard]] std::vector<TotalLine> totalLines(const Library& library, const Document& document);

/// Something that has happened to a document, or hangs together with it.
struct DocumentFact {
    enum class Kind { note, payment, link };
    Kind kind = Kind::note;
    std::string text;    ///< "3 Nov 2026 · Bank transfer · N123", "Sent on 3 Nov 2026", "Credit note CN/26-27/001"
    std::string amount;  ///< empty for notes
    std::optional<UUID> id = {};  ///< of the payment or of the other document
    bool operator==(const DocumentFact&) const = default;
};
/// Payments first, then the documents it hangs together with, then what was sent and why it is void.
[[nodiscard]] std::vector<DocumentFact> documentFacts(const Library& library, const Document& document);
/// "₹20,000.00 due by 18 Nov 2026", "Paid in full", "Valid until 3 Dec 2026": one sentence about how it stands.
[[nodiscard]] std::string standingText(const Library& library, const Document& document, Day today);

}  // namespace tamba
