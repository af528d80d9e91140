#include "TambaCLI/CommandTree.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <functional>
#include <string_view>

/// Each script walks the words typed so far: `at` becomes " bank import", and that and the word before the cursor say
/// what may come.
namespace tamba::cli {
namespace {

using Texts = std::vector<std::string>;

std::string quoted(std::string_view text) { return "'" + Text::replaceAll(std::string(text), "'", "'\\''") + "'"; }

void walk(const CommandNode& node, const std::function<void(const CommandNode&)>& visit) {
    visit(node);
    for (const CommandNode& command : node.commands) walk(command, visit);
}

/// " bank import" of "bank import".
std::string at(const CommandNode& node) { return node.path.empty() ? "" : " " + node.path; }
std::string lastWord(const CommandNode& node) { return node.path.substr(node.path.rfind(' ') + 1); }

/// The patterns of every command below the program.
Texts paths(const CommandNode& program) {
    Texts all;
    walk(program, [&all](const CommandNode& node) {
        if (!node.path.empty()) all.push_back(quoted(at(node)));
    });
    return all;
}

/// Words one may type there, with their help; the program's own options go with every command.
std::vector<CommandOption> offers(const CommandNode& program, const CommandNode& node) {
    std::vector<CommandOption> all;
    for (const CommandNode& command : node.commands) all.push_back({lastWord(command), {}, {}, command.help, false});
    for (const CommandOption& option : node.options) all.push_back(option);
    if (!node.path.empty()) all.insert(all.end(), program.options.begin(), program.options.end());
    return all;
}

bool isFolder(const CommandOption& option) { return option.value == "DIR"; }

struct Values {
    Texts choices;  ///< the branches of a case for options with words of their own
    Texts folders, others;
};
Values values(const CommandNode& program, const std::function<std::string(const Texts& words)>& offer) {
    Values result;
    walk(program, [&](const CommandNode& node) {
        for (const CommandOption& option : node.options) {
            if (option.value.empty()) continue;
            const std::string typed = quoted(at(node) + " " + option.name);
            const std::string pattern = node.path.empty() ? "*" + quoted(" " + option.name) : typed;
            if (!option.choices.empty())
                result.choices.push_back(pattern + ") " + offer(option.choices) + " ;;");
            else
                (isFolder(option) ? result.folders : result.others).push_back(pattern);
        }
    });
    return result;
}

std::string caseOf(const Texts& patterns, const std::string& then) {
    return patterns.empty() ? "" : "        " + Text::join(patterns, " | ") + ") " + then + " ;;\n";
}

std::string bash(const CommandNode& program) {
    const Values after =
        values(program, [](const Texts& words) { return "offered=" + quoted(Text::join(words, " ")); });
    std::string script =
        "_tamba_cli() {\n"
        "    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} at= word offered=\n"
        "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
        "        case \"$at $word\" in\n        " +
        caseOf(paths(program), "at+=\" $word\"") +
        "        esac\n"
        "    done\n"
        "    case \"$at $before\" in\n" +
        caseOf(after.folders, "compopt -o dirnames; return") + caseOf(after.others, "return");
    for (const std::string& choice : after.choices) script += "        " + choice + "\n";
    script += "        *) case \"$at\" in\n";
    walk(program, [&](const CommandNode& node) {
        Texts words;
        for (const CommandOption& offer : offers(program, node)) words.push_back(offer.name);
        script += "            " + quoted(at(node)) + ") offered=" + quoted(Text::join(words, " ")) + " ;;\n";
    });
    return script +
           "        esac ;;\n"
           "    esac\n"
           "    mapfile -t COMPREPLY < <(compgen -W \"$offered\" -- \"$current\")\n"
           "}\n"
           "complete -o default -F _tamba_cli tamba-cli\n";
}

std::string zsh(const CommandNode& program) {
    const Values after = values(program, [](const Texts& words) { return "compadd -- " + Text::join(words, " "); });
    std::string script =
        "#compdef tamba-cli\n"
        "local at= word\n"
        "local -a offered\n"
        "for word in \"${(@)words[2,CURRENT-1]}\"; do\n"
        "    case \"$at $word\" in\n" +
        caseOf(paths(program), "at+=\" $word\"") +
        "    esac\n"
        "done\n"
        "case \"$at $words[CURRENT-1]\" in\n" +
        caseOf(after.folders, "_directories") + caseOf(after.others, "_default");
    for (const std::string& choice : after.choices) script += "        " + choice + "\n";
    script += "        *) case \"$at\" in\n";
    walk(program, [&](const CommandNode& node) {
        script += "            " + quoted(at(node)) + ") offered=(";
        for (const CommandOption& offer : offers(program, node))
            script += "\n                " + quoted(offer.name + ":" + offer.help);
        script += ") ;;\n";
    });
    return script +
           "        esac\n"
           "        _describe tamba-cli offered || _default ;;\n"
           "esac\n";
}

std::string fish(const CommandNode& program) {
    std::string script =
        "function __tamba_cli_at\n"
        "    set -l at\n"
        "    for word in (commandline -opc)[2..]\n"
        "        switch \"$at $word\"\n"
        "            case " +
        Text::join(paths(program), " ") +
        "\n                set at \"$at $word\"\n"
        "        end\n"
        "    end\n"
        "    test \"$at\" = \"$argv[1]\"\n"
        "end\n";
    walk(program, [&](const CommandNode& node) {
        const std::string there = "complete -c tamba-cli -n \"__tamba_cli_at " + quoted(at(node)) + "\" ";
        for (const CommandNode& command : node.commands)
            script += there + "-f -a " + lastWord(command) + " -d " + quoted(command.help) + "\n";
        for (const CommandOption& option : node.options) {
            script += (node.path.empty() ? "complete -c tamba-cli " : there) + "-l " + option.name.substr(2);
            if (isFolder(option))
                script += " -x -a '(__fish_complete_directories)'";
            else if (!option.choices.empty())
                script += " -x -a " + quoted(Text::join(option.choices, " "));
            else if (!option.value.empty())
                script += " -r";
            script += " -d " + quoted(option.help) + "\n";
        }
    });
    return script;
}

}  // namespace

std::string completion(const CommandNode& program, Shell shell) {
    switch (shell) {
        case Shell::bash:
            return bash(program);
        case Shell::zsh:
            return zsh(program);
        case Shell::fish:
            return fish(program);
    }
    return {};
}

}  // namespace tamba::cli
