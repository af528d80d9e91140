#pragma once

#include <string>
#include <vector>

/// What can be typed after `tamba-cli`, and what is made from it: the shells' completions and the manual page, which
/// therefore know every command there is.
namespace tamba::cli {

struct CommandOption {
    std::string name;                  ///< "--basis"; of what is typed without an option, "FILE"
    std::string value;                 ///< what it takes, as the manual shows it: "DAY"; empty for a flag
    std::vector<std::string> choices;  ///< the words it takes, where there are no others
    std::string help;
    bool isRequired = false;
};

struct CommandNode {
    std::string path;  ///< "bank import"; empty for the program
    std::string help;
    std::string footer;  ///< further lines of its help
    std::vector<CommandOption> options, positionals;
    std::vector<CommandNode> commands;
};

enum class Shell { bash, zsh, fish };
/// A script that the shell sources.
[[nodiscard]] std::string completion(const CommandNode& program, Shell shell);
/// The manual page, as `man` reads it.
[[nodiscard]] std::string manualPage(const CommandNode& program);

}  // namespace tamba::cli
