#include "TambaCLI/ClientCommands.h"

#include "TambaCLI/Arguments.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <algorithm>
#include <iostream>

namespace tamba::cli {
namespace {

/// Refuses a name that is empty or that another record of the list has.
template <class Record>
void needFreeName(const List<Record>& list, const Record& record, const std::string& what) {
    const std::string wanted = Text::lower(Text::trim(record.name));
    if (wanted.empty()) throw Refusal("The name of the " + what + " is empty.");
    for (const Record& other : list)
        if (other.id != record.id && Text::lower(Text::trim(other.name)) == wanted)
            throw Refusal("There is a " + what + " “" + other.name + "” already.");
}

Client withEntry(Client client, const ClientEntry& entry) {
    take(client.name, entry.name);
    take(client.contact, entry.contact);
    take(client.email, entry.email);
    take(client.phone, entry.phone);
    take(client.address, entry.address);
    take(client.notes, entry.notes);
    if (entry.country) client.country = countryCode(*entry.country);
    if (entry.currency) client.currency = currencyCode(*entry.currency);
    if (entry.sez) client.sez = *entry.sez;
    if (entry.dueDays) {
        const std::int64_t days = entry.dueDays->empty() ? 0 : wholeNumberOf(*entry.dueDays, "number of days");
        if (days > 3650) throw Refusal("“" + *entry.dueDays + "” is not a number of days.");
        client.dueDays = entry.dueDays->empty() ? std::nullopt : std::optional(static_cast<int>(days));
    }
    if (entry.taxID) {
        client.taxID = client.isForeign() ? std::string(Text::trim(*entry.taxID)) : GSTIN::clean(*entry.taxID);
        if (const auto state = GSTIN::stateCode(client.taxID); state && !client.isForeign()) client.stateCode = state;
    }
    if (entry.state) client.stateCode = entry.state->empty() ? std::nullopt : std::optional(stateCode(*entry.state));
    return client;
}

std::string days(const std::optional<std::int64_t>& late) {
    if (!late) return {};
    return *late < 0 ? "−" + std::to_string(-*late) : std::to_string(*late);
}

std::string clientJSON(const Client& client, const Clients::Account& account) {
    const std::string record = ModelsJSON::json(client);
    return JSON::object()
        .item(std::string_view(record).substr(1, record.size() - 2))
        .add("invoiced", account.invoiced)
        .add("received", account.received)
        .add("owed", account.owed)
        .add("overdue", account.overdue)
        .add("invoices", static_cast<std::int64_t>(account.invoices))
        .add("leftOut", static_cast<std::int64_t>(account.leftOut))
        .add("lastInvoice", account.lastInvoice)
        .add("daysLate", account.daysLate)
        .text();
}

void printClient(const Context& context, const Library& library, const UUID& id) {
    const Client* client = library.client(id);
    if (!client) throw Refusal("Another machine has removed that client since.");
    const auto accounts = Clients::accounts(library, context.today);
    const auto found = accounts.find(id);
    const Clients::Account account = found == accounts.end() ? Clients::Account() : found->second;
    if (context.json) {
        std::cout << clientJSON(*client, account) << "\n";
        return;
    }
    const Currency home = library.home();
    const auto amount = [&](std::int64_t minor) { return minor == 0 ? "" : MoneyFormat::string(minor, home); };
    const auto state = IndianState::of(client->stateCode);
    std::cout << details({{"Client", client->name},
                          {"ID", client->id.text()},
                          {"Contact", client->contact},
                          {"E-mail", client->email},
                          {"Phone", client->phone},
                          {"Address", client->address},
                          {client->isForeign() ? "Tax number" : "GSTIN", client->taxID},
                          {"State", state ? state->label() : ""},
                          {"Country", client->isForeign() ? client->country : ""},
                          {"SEZ", client->sez ? "yes" : ""},
                          {"Currency", client->currency},
                          {"Days to pay", client->dueDays ? std::to_string(*client->dueDays) : ""},
                          {"Notes", client->notes},
                          {"Archived", client->archived ? "yes" : ""},
                          {"Invoiced", amount(account.invoiced)},
                          {"Received", amount(account.received)},
                          {"Owed", amount(account.owed)},
                          {"Overdue", amount(account.overdue)},
                          {"Pays late by", account.daysLate ? days(account.daysLate) + " days on average" : ""},
                          {"Last invoice", account.lastInvoice ? account.lastInvoice->formatted("d MMM yyyy") : ""},
                          {"Check", Clients::taxIDProblem(*client).value_or("")}});
}

int saveClient(const Context& context, LibrarySession& session, const Client& client) {
    const Library& library = existing(session);
    needFreeName(library.clients, client, "client");
    printClient(context, save(session, Clients::put(library, client)), client.id);
    return 0;
}

void printDeleted(const Context& context, const UUID& id, const std::string& name) {
    if (context.json)
        std::cout << JSON::object().add("deleted", id.text()).text() << "\n";
    else
        std::cout << "Deleted " << oneLine(name) << ".\n";
}

CatalogItem withEntry(const Library& library, CatalogItem item, const ItemEntry& entry) {
    take(item.name, entry.name);
    take(item.detail, entry.detail);
    take(item.hsn, entry.hsn);
    take(item.unit, entry.unit);
    if (entry.price) item.priceMinor = amountOf(*entry.price, library.home());
    if (item.priceMinor < 0) throw Refusal("A price can’t be below zero.");
    if (entry.tax) item.taxBP = percentOf(*entry.tax, "tax rate");
    if (item.taxBP > 10'000) throw Refusal("A tax rate can’t be above 100%.");
    return item;
}

std::string itemsText(const Library& library) {
    if (library.items.empty()) return "No items.\n";
    using enum Table::Align;
    Table table({{"ID"}, {"Item"}, {"HSN"}, {"Price", right}, {"Unit"}, {"Tax", right}});
    for (const CatalogItem& item : library.items)
        table.add({shortID(item.id), item.name, item.hsn, MoneyFormat::string(item.priceMinor, library.home()),
                   item.unit, MoneyFormat::rate(item.taxBP)});
    return table.text();
}

int saveItem(const Context& context, LibrarySession& session, const CatalogItem& item) {
    needFreeName(existing(session).items, item, "item");
    const Library saved = save(session, Clients::put(existing(session), item));
    std::cout << (context.json ? ModelsJSON::json(item) + "\n" : itemsText(saved));
    return 0;
}

std::string projectsText(const Library& library) {
    if (library.projects.empty()) return "No projects.\n";
    Table table({{"ID"}, {"Project"}, {"Client"}, {"Archived"}});
    for (const Project& project : library.projects) {
        const Client* client = project.clientID ? library.client(*project.clientID) : nullptr;
        table.add({shortID(project.id), project.name, client ? client->name : "", project.archived ? "yes" : ""});
    }
    return table.text();
}

int saveProject(const Context& context, LibrarySession& session, Library library, const Project& project) {
    const Library saved = save(session, library);
    std::cout << (context.json ? ModelsJSON::json(project) + "\n" : projectsText(saved));
    return 0;
}

}  // namespace

int listClients(const Context& context, Archived archived) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    const Currency home = library.home();
    const auto accounts = Clients::accounts(library, context.today);
    std::vector<std::pair<const Client*, Clients::Account>> clients;
    for (const Client& client : library.clients) {
        if (client.archived && archived == Archived::hidden) continue;
        const auto found = accounts.find(client.id);
        clients.emplace_back(&client, found == accounts.end() ? Clients::Account() : found->second);
    }
    std::stable_sort(clients.begin(), clients.end(), [](const auto& a, const auto& b) {
        return Text::compareForPeople(a.first->name, b.first->name) < 0;
    });
    if (context.json) {
        JSON records = JSON::array();
        for (const auto& [client, account] : clients) records.item(clientJSON(*client, account));
        std::cout << records.text() << "\n";
        return 0;
    }
    if (clients.empty()) {
        std::cout << "No clients.\n";
        return 0;
    }
    using enum Table::Align;
    Table table({{"ID"}, {"Client"}, {"Invoices", right}, {"Owed", right}, {"Overdue", right}, {"Days late", right}});
    const auto amount = [&](std::int64_t minor) { return minor == 0 ? "" : MoneyFormat::string(minor, home); };
    for (const auto& [client, account] : clients)
        table.add({shortID(client->id), client->name, std::to_string(account.invoices), amount(account.owed),
                   amount(account.overdue), days(account.daysLate)});
    std::cout << table.text();
    return 0;
}

int addClient(const Context& context, const ClientEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    Client client = Client::make("");
    client.currency = existing(session).home().code;
    return saveClient(context, session, withEntry(std::move(client), entry));
}

int showClient(const Context& context, const std::string& typed) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const Library& library = existing(session);
    printClient(context, library, named(library.clients, typed, "client").id);
    return 0;
}

int editClient(const Context& context, const std::string& typed, const ClientEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    return saveClient(context, session, withEntry(named(existing(session).clients, typed, "client"), entry));
}

int archiveClient(const Context& context, const std::string& typed, bool archive) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const UUID id = named(library.clients, typed, "client").id;
    printClient(context, save(session, Clients::setClientArchived(library, id, archive)), id);
    return 0;
}

int deleteClient(const Context& context, const std::string& typed) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const Client client = named(library.clients, typed, "client");
    save(session, Clients::removeClient(library, client.id));
    printDeleted(context, client.id, client.name);
    return 0;
}

int listProjects(const Context& context) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    JSON records = JSON::array();
    for (const Project& project : existing(session).projects) records.item(ModelsJSON::json(project));
    std::cout << (context.json ? records.text() + "\n" : projectsText(existing(session)));
    return 0;
}

int addProject(const Context& context, const std::string& name, const std::string& client) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const Project project =
        Project::make(std::string(Text::trim(name)),
                      client.empty() ? std::nullopt : std::optional(named(library.clients, client, "client").id));
    needFreeName(library.projects, project, "project");
    return saveProject(context, session, Clients::put(library, project), project);
}

int archiveProject(const Context& context, const std::string& typed, bool archive) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    Project project = named(library.projects, typed, "project");
    project.archived = archive;
    return saveProject(context, session, Clients::setProjectArchived(library, project.id, archive), project);
}

int listItems(const Context& context) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    JSON records = JSON::array();
    for (const CatalogItem& item : existing(session).items) records.item(ModelsJSON::json(item));
    std::cout << (context.json ? records.text() + "\n" : itemsText(existing(session)));
    return 0;
}

int addItem(const Context& context, const ItemEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    CatalogItem item = CatalogItem::make("");
    item.taxBP = chargesTax(library.business.regime) ? library.business.defaultTaxBP : 0;
    return saveItem(context, session, withEntry(library, std::move(item), entry));
}

int editItem(const Context& context, const std::string& typed, const ItemEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    return saveItem(context, session, withEntry(library, named(library.items, typed, "item"), entry));
}

int deleteItem(const Context& context, const std::string& typed) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    const CatalogItem item = named(library.items, typed, "item");
    save(session, Clients::removeItem(library, item.id));
    printDeleted(context, item.id, item.name);
    return 0;
}

}  // namespace tamba::cli
