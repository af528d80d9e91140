#include "TambaCore/Documents/Clients.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <utility>

namespace tamba::Clients {
namespace {

template <class Record>
void putInto(List<Record>& list, Record record) {
    const std::size_t index = indexOf(list, record.id);
    if (index == list.size())
        list.append(std::move(record));
    else
        list.update(index, [&](Record& old) { old = std::move(record); });
}

template <class Record>
void removeFrom(List<Record>& list, const UUID& id) {
    const std::size_t index = indexOf(list, id);
    if (index < list.size()) list.erase(index);
}

template <class Record>
void setArchived(List<Record>& list, const UUID& id, bool archived) {
    const std::size_t index = indexOf(list, id);
    if (index < list.size() && list[index].archived != archived)
        list.update(index, [archived](Record& record) { record.archived = archived; });
}

template <class Record, class Uses>
std::size_t count(const List<Record>& list, Uses&& uses) {
    return static_cast<std::size_t>(std::count_if(list.begin(), list.end(), uses));
}

struct Use {
    std::size_t count;
    const char *one, *several;
};
/// "3 invoices, 1 project and 2 expenses"
std::string sentence(const std::vector<Use>& uses) {
    std::vector<std::string> pieces;
    for (const auto& [count, one, several] : uses)
        if (count > 0) pieces.push_back(std::to_string(count) + " " + (count == 1 ? one : several));
    if (pieces.size() < 2) return Text::join(pieces, "");
    const std::string last = pieces.back();
    pieces.pop_back();
    return Text::join(pieces, ", ") + " and " + last;
}

void refuseIfUsed(const std::string& name, const std::string& uses) {
    if (uses.empty()) return;
    throw BooksError(BooksError::Code::inUse, "“" + name + "” is on " + uses +
                                                  ". Archive it instead: it keeps its history and is offered for "
                                                  "nothing new.");
}

/// Adds a document to its client's account; false when a figure would be beyond belief or has no rate.
bool add(Account& account, const Library& library, const Document& document, const Books::Standing& standing) {
    const auto home = [&](std::int64_t amount) { return Books::inHomeCurrency(library, document, amount); };
    const auto total = home(standing.totals.total), paid = home(standing.paid), balance = home(standing.balance);
    if (!total || !paid || !balance) return false;
    Account sum = account;
    const bool isInvoice = document.kind == DocKind::invoice;
    sum.invoiced = Checked::add(sum.invoiced, isInvoice ? *total : Checked::neg(*total));
    if (isInvoice) {
        sum.received = Checked::add(sum.received, *paid);
        sum.owed = Checked::add(sum.owed, *balance);
        if (standing.status == DocStatus::overdue) sum.overdue = Checked::add(sum.overdue, *balance);
        ++sum.invoices;
        sum.lastInvoice = std::max(sum.lastInvoice, std::optional(document.issueDate));
    }
    for (const std::int64_t figure : {sum.invoiced, sum.received, sum.owed, sum.overdue})
        if (!isBelievable(figure)) return false;
    account = sum;
    return true;
}

/// Days from the due date to the last payment of a settled invoice.
struct Punctuality {
    std::int64_t days = 0, invoices = 0;
};
void add(Punctuality& punctuality, const Document& invoice) {
    const auto last = std::max_element(invoice.payments.begin(), invoice.payments.end(),
                                       [](const Payment& a, const Payment& b) { return a.date < b.date; });
    if (last == invoice.payments.end()) return;
    punctuality.days = Checked::add(punctuality.days, invoice.dueDate.daysUntil(last->date));
    ++punctuality.invoices;
}

}  // namespace

Library put(Library library, Client client) {
    putInto(library.clients, std::move(client));
    return library;
}
Library put(Library library, Project project) {
    putInto(library.projects, std::move(project));
    return library;
}
Library put(Library library, CatalogItem item) {
    putInto(library.items, std::move(item));
    return library;
}

std::string usesOfClient(const Library& library, const UUID& id) {
    const auto documents = [&](DocKind kind) {
        return count(library.documents, [&](const Document& d) { return d.kind == kind && d.clientID == id; });
    };
    return sentence(
        {{documents(DocKind::invoice), "invoice", "invoices"},
         {documents(DocKind::estimate), "estimate", "estimates"},
         {documents(DocKind::creditNote), "credit note", "credit notes"},
         {count(library.projects, [&](const Project& p) { return p.clientID == id; }), "project", "projects"},
         {count(library.expenses, [&](const Expense& e) { return e.clientID == id; }), "expense", "expenses"},
         {count(library.recurring, [&](const RecurringExpense& r) { return r.template_.clientID == id; }),
          "recurring expense", "recurring expenses"}});
}

std::string usesOfProject(const Library& library, const UUID& id) {
    return sentence(
        {{count(library.expenses, [&](const Expense& e) { return e.projectID == id; }), "expense", "expenses"},
         {count(library.recurring, [&](const RecurringExpense& r) { return r.template_.projectID == id; }),
          "recurring expense", "recurring expenses"}});
}

Library removeClient(Library library, const UUID& id) {
    if (const Client* client = library.client(id)) refuseIfUsed(client->name, usesOfClient(library, id));
    removeFrom(library.clients, id);
    return library;
}
Library removeProject(Library library, const UUID& id) {
    if (const Project* project = library.project(id)) refuseIfUsed(project->name, usesOfProject(library, id));
    removeFrom(library.projects, id);
    return library;
}
Library removeItem(Library library, const UUID& id) {
    removeFrom(library.items, id);
    return library;
}

Library setClientArchived(Library library, const UUID& id, bool archived) {
    setArchived(library.clients, id, archived);
    return library;
}
Library setProjectArchived(Library library, const UUID& id, bool archived) {
    setArchived(library.projects, id, archived);
    return library;
}

std::optional<std::string> taxIDProblem(const Client& client) {
    if (client.isForeign() || Text::trim(client.taxID).empty()) return {};
    if (const auto problem = GSTIN::validate(client.taxID)) return std::string(GSTIN::problemText(*problem));
    const auto registered = IndianState::of(GSTIN::stateCode(client.taxID)),
               address = IndianState::of(client.stateCode);
    if (!registered || !address || registered->code == address->code) return {};
    return "This GSTIN is of " + registered->label() + ", the address says " + address->label() + ".";
}

std::unordered_map<UUID, Account> accounts(const Library& library, Day today) {
    return accounts(library, Books::KeptStandings().update(library, today));
}

std::unordered_map<UUID, Account> accounts(const Library& library,
                                           const std::vector<std::optional<Books::Standing>>& standings) {
    std::unordered_map<UUID, Account> all;
    std::unordered_map<UUID, Punctuality> punctuality;
    for (std::size_t at = 0; at < library.documents.size(); ++at) {
        const Document& document = library.documents[at];
        if (!document.clientID) continue;
        Account& account = all[*document.clientID];
        // An invoice in the state of an accepted or declined estimate is owed by nobody.
        const bool isNote = document.kind == DocKind::creditNote && document.isIssued();
        if (!isNote && (document.kind != DocKind::invoice || document.state != DocState::issued)) continue;
        const auto& standing = standings.at(at);
        if (!standing || !add(account, library, document, *standing))
            ++account.leftOut;
        else if (standing->status == DocStatus::paid)
            add(punctuality[*document.clientID], document);
    }
    for (const auto& [client, found] : punctuality)
        if (found.invoices > 0) all[client].daysLate = MoneyMath::mulDiv(found.days, 1, found.invoices);
    return all;
}

}  // namespace tamba::Clients
