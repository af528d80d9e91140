#include "TambaCLI/ExportCommands.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Reports/Export.h"

#include <iostream>

namespace tamba::cli {

int exportJournal(const Context& context, const JournalOptions& options) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    const auto basis = options.basis == "cash" ? IncomeBasis::cash : IncomeBasis::accrual;
    const std::string text = Export::journal(existing(session), basis);
    if (options.output.empty() || options.output == "-") {
        std::cout << text;
        return 0;
    }
    writeFile(options.output, text);
    std::cout << "Wrote " << oneLine(options.output) << ".\n";
    return 0;
}

}  // namespace tamba::cli
