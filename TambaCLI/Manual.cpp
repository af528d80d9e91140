#include "TambaCLI/CommandTree.h"
#include "TambaCore/Base/Text.h"

#include <string_view>

namespace tamba::cli {
namespace {

/// A text as roff prints it letter by letter: no escapes, no requests, hyphens that can be copied.
std::string plain(std::string_view text) {
    std::string result = Text::replaceAll(std::string(text), "\\", "\\e");
    result = Text::replaceAll(result, "-", "\\-");
    std::string lines;
    for (const std::string& line : Text::splitLines(result)) {
        if (!lines.empty()) lines += "\n";
        if (line.starts_with('.') || line.starts_with('\'')) lines += "\\&";
        lines += line;
    }
    return lines;
}
std::string bold(std::string_view text) { return "\\fB" + plain(text) + "\\fR"; }
std::string italic(std::string_view text) { return "\\fI" + plain(text) + "\\fR"; }

std::string named(const CommandOption& option) {
    if (!option.name.starts_with('-')) return italic(option.name);
    if (option.value.empty()) return bold(option.name);
    return bold(option.name) + " " + (option.choices.empty() ? italic(option.value) : bold(option.value));
}

std::string list(const std::vector<CommandOption>& options) {
    std::string text;
    for (const CommandOption& option : options)
        text += ".TP\n" + named(option) + "\n" + plain(option.help + (option.isRequired ? " (needed)" : "")) + ".\n";
    return text;
}

std::string commands(const CommandNode& node) {
    std::string text;
    for (const CommandNode& command : node.commands) {
        if (!command.commands.empty()) {
            text += commands(command);
            continue;
        }
        text += ".SS \"" + plain(command.path);
        for (const CommandOption& positional : command.positionals) text += " " + positional.name;
        text += "\"\n" + plain(command.help) + ".\n" + list(command.positionals) + list(command.options);
        if (!command.footer.empty()) text += ".PP\n.nf\n" + plain(Text::trim(command.footer)) + "\n.fi\n";
    }
    return text;
}

}  // namespace

std::string manualPage(const CommandNode& program) {
    return ".TH TAMBA\\-CLI 1 \"\" \"Tamba " TAMBA_VERSION
           "\" \"User Commands\"\n"
           ".SH NAME\ntamba\\-cli \\- the books of a freelancer, on the command line\n"
           ".SH SYNOPSIS\n.B tamba\\-cli\n.RI [ OPTION ...]\\&\n.I COMMAND\n.RI [ ARGUMENT ...]\n"
           ".SH DESCRIPTION\n"
           "The same books as those of\n.BR tamba (1),\n"
           "without a window: for scripts, for accountants, and for whoever types faster than they point. A folder of\n"
           "books is made by\n.B tamba\\-cli new\nor by the window; both may have the same folder open in turn.\n"
           ".SH OPTIONS\nThese may stand before the command or behind it.\n" +
           list(program.options) + ".SH COMMANDS\n" + commands(program) +
           ".SH EXIT STATUS\n"
           ".TP\n.B 0\nIt is done.\n"
           ".TP\n.B 1\nIt was refused, with a sentence on standard error, or\n.B check\nfound something.\n"
           ".TP\n.B 2\nThe command was not understood.\n"
           ".SH ENVIRONMENT\n"
           ".TP\n.B TAMBA_LIBRARY_DIR\nThe folder of the books, where\n.B \\-\\-library\nnames none.\n"
           ".SH FILES\n"
           ".TP\n.I ~/.local/share/Tamba\nThe books, where neither names a folder; in\n.B XDG_DATA_HOME\nif that is "
           "set.\n"
           ".SH SEE ALSO\n.BR tamba (1)\n";
}

}  // namespace tamba::cli
