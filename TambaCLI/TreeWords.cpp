#include "TambaCLI/CommandTree.h"
#include "TambaCLI/Words.h"
#include "TambaCore/Base/Text.h"

#include <iostream>

namespace tamba::cli {
namespace {

CommandOption optionOf(const CLI::Option& option) {
    CommandOption result;
    result.help = option.get_description();
    result.isRequired = option.get_required();
    result.name = option.get_lnames().empty() ? option.get_name(true) : "--" + option.get_lnames().front();
    if (option.get_items_expected_max() == 0) return result;
    // "TEXT:{accrual,cash}", "TEXT:DAY", "DIR": the type, then what checks it.
    const std::string type = option.get_type_name();
    result.value = type.substr(type.rfind(':') + 1);
    if (result.value.starts_with('{') && result.value.ends_with('}'))
        result.choices = Text::split(result.value.substr(1, result.value.size() - 2), ',');
    if (!result.choices.empty()) result.value = Text::join(result.choices, "|");
    return result;
}

/// Without what is hidden.
CommandNode treeOf(const CLI::App& app, const std::string& path) {
    CommandNode node{path, app.get_description(), app.get_footer(), {}, {}, {}};
    for (const CLI::Option* option : app.get_options([](const CLI::Option*) { return true; })) {
        if (option->get_group().empty()) continue;
        if (option->check_name("--help") && !path.empty()) continue;
        (option->get_positional() ? node.positionals : node.options).push_back(optionOf(*option));
    }
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
        if (!command->get_group().empty())
            node.commands.push_back(treeOf(*command, (path.empty() ? "" : path + " ") + command->get_name()));
    return node;
}

}  // namespace

void addTreeCommands(CLI::App& app, Command& c) {
    auto& shell = c.options<Shell>();
    const std::map<std::string, Shell> shells{{"bash", Shell::bash}, {"zsh", Shell::zsh}, {"fish", Shell::fish}};
    auto* completing = c.add(&app, "completion", "Print the completion script of a shell", [&](const Context&) {
        std::cout << completion(treeOf(app, {}), shell);
        return 0;
    });
    completing->group("")->add_option("SHELL", shell)->required()->transform(CLI::CheckedTransformer(shells));
    c.add(&app, "manual", "Print the manual page", [&app](const Context&) {
         std::cout << manualPage(treeOf(app, {}));
         return 0;
     })->group("");
}

}  // namespace tamba::cli
