#pragma once

#include "TambaCLI/Commands.h"
#include "TambaCore/Model/FieldTable.h"

#include <CLI/CLI.hpp>

#include <any>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// The words of the command line, read with CLI11. Only main.cpp and the files named …Words.cpp include this, since
/// CLI11 is slow to compile; the commands themselves know nothing of it.
namespace tamba::cli {

/// What the user asked for, filled while CLI11 reads the words.
class Command {
public:
    std::string library;
    std::optional<Day> today;
    Context context;
    std::function<int(const Context&)> run;

    /// A place for what one command is told, which lives as long as this.
    template <class Options>
    Options& options() {
        return std::any_cast<Options&>(kept_.emplace_back(Options()));
    }

    CLI::App* add(CLI::App* parent, const std::string& word, const std::string& help,
                  std::function<int(const Context&)> action);

private:
    std::deque<std::any> kept_;
};

/// A text, with bytes that are no UTF-8 (a terminal in another character set sends them) repaired. The second tells a
/// text that is empty from none.
CLI::Option* addText(CLI::App* app, const std::string& name, std::string& value, const std::string& help);
CLI::Option* addText(CLI::App* app, const std::string& name, std::optional<std::string>& value,
                     const std::string& help);
CLI::Option* addTexts(CLI::App* app, const std::string& name, std::vector<std::string>& values,
                      const std::string& help);
CLI::Option* addDay(CLI::App* app, const std::string& name, std::optional<Day>& value, const std::string& help);

template <class E>
CLI::IsMember oneOf() {
    return CLI::IsMember(std::vector<std::string>(enumWords<E>.begin(), enumWords<E>.end()));
}

/// A value of an enumeration by its word in the books.
template <class E>
CLI::Option* addWord(CLI::App* app, const std::string& name, std::optional<E>& value, const std::string& help) {
    return app
        ->add_option_function<std::string>(
            name, [&value](const std::string& text) { value = fromWord<E>(text); }, help)
        ->check(oneOf<E>());
}

void addExpenseCommands(CLI::App& app, Command& c);
void addDocumentCommands(CLI::App& app, Command& c);
/// client, project, item
void addClientCommands(CLI::App& app, Command& c);
/// business, series, rate
void addSettingCommands(CLI::App& app, Command& c);
void addBankCommands(CLI::App& app, Command& c);
/// What `bank` does with lines that are in the books.
void addMatchCommands(CLI::App& bank, Command& c);
void addRuleCommands(CLI::App& app, Command& c);
/// report, gst, overview, due
void addReportCommands(CLI::App& app, Command& c);
void addExportCommands(CLI::App& app, Command& c);
/// What is made from the tree of commands; not in the help.
void addTreeCommands(CLI::App& app, Command& c);

}  // namespace tamba::cli
