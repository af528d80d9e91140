#pragma once

#include "TambaCore/Documents/BooksError.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Model/Models.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

/// Operations on clients, projects and catalogue items, and what each client owes. What other records refer to is never
/// deleted: it is archived. An id that is not there changes nothing.
namespace tamba::Clients {

/// Puts a record into the books, in place of the one with the same id.
[[nodiscard]] Library put(Library library, Client client);
[[nodiscard]] Library put(Library library, Project project);
[[nodiscard]] Library put(Library library, CatalogItem item);

/// "3 invoices, 1 project and 2 expenses": who refers to it; empty when nobody does and it may be deleted.
[[nodiscard]] std::string usesOfClient(const Library& library, const UUID& id);
[[nodiscard]] std::string usesOfProject(const Library& library, const UUID& id);
/// Throw `inUse`, which says who refers to it and offers to archive it. Nothing refers to a catalogue item: lines are
/// copies.
[[nodiscard]] Library removeClient(Library library, const UUID& id);
[[nodiscard]] Library removeProject(Library library, const UUID& id);
[[nodiscard]] Library removeItem(Library library, const UUID& id);
/// An archived client or project is offered for nothing new and keeps its history.
[[nodiscard]] Library setClientArchived(Library library, const UUID& id, bool archived);
[[nodiscard]] Library setProjectArchived(Library library, const UUID& id, bool archived);

/// What is marked beside the client's tax number: an invalid GSTIN, or one of another state than `stateCode`. Nothing
/// for a foreign client or an empty number.
[[nodiscard]] std::optional<std::string> taxIDProblem(const Client& client);

/// What a client owes and how they pay. Amounts in minor units of the home currency; `leftOut` documents have no rate
/// or figures beyond belief and are in none of them.
struct Account {
    std::int64_t invoiced = 0;  ///< totals of issued invoices less issued credit notes
    std::int64_t received = 0;  ///< payments, tax deducted at source included
    std::int64_t owed = 0;      ///< sum of the balances
    std::int64_t overdue = 0;   ///< the part of `owed` that is late
    std::size_t invoices = 0;   ///< issued
    std::size_t leftOut = 0;
    std::optional<Day> lastInvoice;
    /// Whole days from due date to settling, on average over the settled invoices; negative when early; nothing while
    /// none is settled by payment.
    std::optional<std::int64_t> daysLate;
};
/// Of every client that has documents, by client id.
[[nodiscard]] std::unordered_map<UUID, Account> accounts(const Library& library, Day today);
/// For who keeps the standings: one for each document, in their order.
[[nodiscard]] std::unordered_map<UUID, Account> accounts(const Library& library,
                                                         const std::vector<std::optional<Books::Standing>>& standings);

}  // namespace tamba::Clients
