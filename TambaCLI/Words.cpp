#include "TambaCLI/Words.h"

#include "TambaCLI/Arguments.h"
#include "TambaCore/Base/Text.h"

namespace tamba::cli {

CLI::App* Command::add(CLI::App* parent, const std::string& word, const std::string& help,
                       std::function<int(const Context&)> action) {
    CLI::App* command = parent->add_subcommand(word, help);
    command->callback([this, action = std::move(action)] { run = action; });
    return command;
}

CLI::Option* addText(CLI::App* app, const std::string& name, std::string& value, const std::string& help) {
    return app->add_option_function<std::string>(
        name, [&value](const std::string& text) { value = Text::repairedUTF8(text); }, help);
}

CLI::Option* addText(CLI::App* app, const std::string& name, std::optional<std::string>& value,
                     const std::string& help) {
    return app->add_option_function<std::string>(
        name, [&value](const std::string& text) { value = Text::repairedUTF8(text); }, help);
}

CLI::Option* addTexts(CLI::App* app, const std::string& name, std::vector<std::string>& values,
                      const std::string& help) {
    return app
        ->add_option_function<std::vector<std::string>>(
            name,
            [&values](const std::vector<std::string>& texts) {
                for (const std::string& text : texts) values.push_back(Text::repairedUTF8(text));
            },
            help)
        ->type_size(1)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

CLI::Option* addDay(CLI::App* app, const std::string& name, std::optional<Day>& value, const std::string& help) {
    return app
        ->add_option_function<std::string>(
            name, [&value](const std::string& text) { value = typedDay(text); }, help)
        ->check(CLI::Validator(
            [](const std::string& text) { return typedDay(text) ? "" : text + " is not a day such as 2026-04-01"; },
            "DAY"));
}

}  // namespace tamba::cli
