#pragma once

#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/Rows/Listing.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Model/Models.h"

#include <string>
#include <vector>

/// What the Clients screen shows, as finished texts. Pure: the books, a filter and today in, rows out.
namespace tamba {

enum class ClientOrder { name, place, owed, overdue, late };

struct ClientFilter {
    bool archived = false;    ///< archived clients, too
    std::string search = {};  ///< words that must all occur
    ClientOrder order = ClientOrder::name;
    bool ascending = true;
    bool operator==(const ClientFilter&) const = default;
};

struct ClientListRow {
    UUID id;
    std::string name, owed, overdue;
    std::string place;   ///< the state; the ISO code of a foreign country
    std::string late;    ///< "12 days late", "On time", "3 days early"; empty while nothing was paid
    std::string status;  ///< "Archived", "Check GSTIN"
    std::string hint;    ///< the whole sentence behind `status`
    Tone tone = Tone::none;
    bool operator==(const ClientListRow&) const = default;
};

struct ClientTable {
    std::vector<ClientListRow> rows;
    /// "12 clients", "₹1,23,456.00 owed", "₹20,000.00 overdue", "2 documents left out: no rate".
    std::string count, owed, overdue, leftOut;
};

/// Tables one after the other: how documents stand that have not changed is not worked out again, and a table that
/// nothing in it has changed is the same.
class ClientListing {
public:
    [[nodiscard]] ClientTable table(const Library& library, const ClientFilter& filter, Day today);

private:
    [[nodiscard]] ClientTable made(const Library& library, const ClientFilter& filter, Day today);

    Books::KeptStandings standings_;
    KeptTable<ClientTable, ClientFilter> kept_;
};
/// "12 days late", "On time", "3 days early", as settled invoices were paid on average.
[[nodiscard]] std::string lateText(std::int64_t days);

/// A document of one client.
struct ClientDocumentRow {
    UUID id;
    std::string number, date, total, status;
    Tone tone = Tone::none;
    bool operator==(const ClientDocumentRow&) const = default;
};
/// The latest first.
[[nodiscard]] std::vector<ClientDocumentRow> clientDocuments(const Library& library, const UUID& client, Day today);

}  // namespace tamba
