#pragma once

#include "TambaCLI/Commands.h"

#include <optional>
#include <string>

/// `tamba-cli client`, `project` and `item`: who documents are for and what is often on them. Each is named by its name
/// or the beginning of its ID. What is absent in an entry stays as it is.
namespace tamba::cli {

struct ClientEntry {
    std::optional<std::string> name, contact, email, phone, address, state, taxID, country, currency, dueDays, notes;
    std::optional<bool> sez;
};
enum class Archived : bool { hidden, shown };
int listClients(const Context& context, Archived archived);
int addClient(const Context& context, const ClientEntry& entry);
int showClient(const Context& context, const std::string& client);
int editClient(const Context& context, const std::string& client, const ClientEntry& entry);
int archiveClient(const Context& context, const std::string& client, bool archive);
int deleteClient(const Context& context, const std::string& client);

int listProjects(const Context& context);
int addProject(const Context& context, const std::string& name, const std::string& client);
int archiveProject(const Context& context, const std::string& project, bool archive);

struct ItemEntry {
    std::optional<std::string> name, detail, hsn, unit, price, tax;
};
int listItems(const Context& context);
int addItem(const Context& context, const ItemEntry& entry);
int editItem(const Context& context, const std::string& item, const ItemEntry& entry);
int deleteItem(const Context& context, const std::string& item);

}  // namespace tamba::cli
