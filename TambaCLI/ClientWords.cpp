#include "TambaCLI/ClientCommands.h"
#include "TambaCLI/Words.h"

namespace tamba::cli {
namespace {

CLI::Option* addName(CLI::App* app, std::string& name) {
    return addText(app, "NAME", name, "The name, or the beginning of the ID")->required();
}

void addFields(CLI::App* app, ClientEntry& entry) {
    addText(app, "--contact", entry.contact, "A person’s name");
    addText(app, "--email", entry.email, "E-mail address");
    addText(app, "--phone", entry.phone, "Phone");
    addText(app, "--address", entry.address, "Address, in several lines if you like");
    addText(app, "--state", entry.state, "State or its GST code (that of the GSTIN)");
    addText(app, "--gstin", entry.taxID, "GSTIN, or the tax number of a client abroad");
    addText(app, "--country", entry.country, "Country code (IN)");
    addText(app, "--currency", entry.currency, "Currency of their invoices (the home currency)");
    addText(app, "--due-days", entry.dueDays, "Days they have to pay (those of the business)");
    addText(app, "--notes", entry.notes, "Notes, for yourself");
    auto* sez = app->add_flag_callback("--sez", [&entry] { entry.sez = true; }, "In a special economic zone");
    app->add_flag_callback("--no-sez", [&entry] { entry.sez = false; }, "Not in one")->excludes(sez);
}

void addProjectCommands(CLI::App& app, Command& c) {
    auto* project = app.add_subcommand("project", "Projects, to which expenses belong")->require_subcommand(1);
    auto& name = c.options<std::string>();
    auto& client = c.options<std::string>();
    c.add(project, "list", "List projects", listProjects);
    auto* add = c.add(project, "add", "Add a project", [&](const Context& x) { return addProject(x, name, client); });
    addText(add, "NAME", name, "Its name")->required();
    addText(add, "--client", client, "For whom");
    addName(c.add(project, "archive", "Offer it for nothing new",
                  [&](const Context& x) { return archiveProject(x, name, true); }),
            name);
    addName(
        c.add(project, "restore", "Offer it again", [&](const Context& x) { return archiveProject(x, name, false); }),
        name);
}

void addItemCommands(CLI::App& app, Command& c) {
    auto* item = app.add_subcommand("item", "The catalogue: what is often on a document")->require_subcommand(1);
    auto& name = c.options<std::string>();
    auto& entry = c.options<ItemEntry>();
    const auto addItemFields = [&](CLI::App* command) {
        addText(command, "--detail", entry.detail, "Text below the name");
        addText(command, "--hsn", entry.hsn, "HSN or SAC code");
        addText(command, "--unit", entry.unit, "Unit: hour, day");
        addText(command, "--price", entry.price, "Price in the home currency");
        addText(command, "--tax", entry.tax, "Tax rate (that of the business)");
    };
    c.add(item, "list", "List the catalogue", listItems);
    auto* add = c.add(item, "add", "Add an item", [&](const Context& x) { return addItem(x, entry); });
    addText(add, "NAME", entry.name, "Its name")->required();
    addItemFields(add);
    auto* edit = c.add(item, "edit", "Change an item", [&](const Context& x) { return editItem(x, name, entry); });
    addName(edit, name);
    addText(edit, "--name", entry.name, "A new name");
    addItemFields(edit);
    addName(c.add(item, "delete", "Delete an item", [&](const Context& x) { return deleteItem(x, name); }), name);
}

}  // namespace

void addClientCommands(CLI::App& app, Command& c) {
    auto* client = app.add_subcommand("client", "Clients, what they owe and how they pay")->require_subcommand(1);
    auto& name = c.options<std::string>();
    auto& entry = c.options<ClientEntry>();
    auto& all = c.options<bool>();
    auto* list = c.add(client, "list", "List clients with what they owe",
                       [&](const Context& x) { return listClients(x, all ? Archived::shown : Archived::hidden); });
    list->add_flag("--all", all, "Archived ones too");
    auto* add = c.add(client, "add", "Add a client", [&](const Context& x) { return addClient(x, entry); });
    addText(add, "NAME", entry.name, "Their name")->required();
    addFields(add, entry);
    addName(c.add(client, "show", "Show one client", [&](const Context& x) { return showClient(x, name); }), name);
    auto* edit = c.add(client, "edit", "Change a client; issued documents keep what they say",
                       [&](const Context& x) { return editClient(x, name, entry); });
    addName(edit, name);
    addText(edit, "--name", entry.name, "A new name");
    addFields(edit, entry);
    addName(c.add(client, "archive", "Offer them for nothing new",
                  [&](const Context& x) { return archiveClient(x, name, true); }),
            name);
    addName(
        c.add(client, "restore", "Offer them again", [&](const Context& x) { return archiveClient(x, name, false); }),
        name);
    addName(c.add(client, "delete", "Delete a client that nothing refers to",
                  [&](const Context& x) { return deleteClient(x, name); }),
            name);
    addProjectCommands(app, c);
    addItemCommands(app, c);
}

}  // namespace tamba::cli
