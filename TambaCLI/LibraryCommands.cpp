#include "TambaCLI/Arguments.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocumentCheck.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/LibraryCheck.h"

#include <algorithm>
#include <iostream>

namespace tamba::cli {
namespace {

Business businessFrom(const NewOptions& options) {
    Business business;
    business.name = Text::trim(options.name);
    if (!options.country.empty()) business.country = countryCode(options.country);
    if (!options.currency.empty()) business.homeCurrency = currencyCode(options.currency);
    if (!options.state.empty()) business.stateCode = stateCode(options.state);
    if (!options.gstin.empty()) {
        business.taxID = gstin(options.gstin);
        if (const auto state = GSTIN::stateCode(business.taxID); state && options.state.empty())
            business.stateCode = state;
    }
    if (!options.regime.empty())
        business.regime = fromWord<TaxRegime>(options.regime).value_or(business.regime);
    else if (business.country != "IN")
        business.regime = TaxRegime::simple;
    if (!options.dateOrder.empty())
        business.receiptDateOrder = fromWord<DateOrder>(options.dateOrder).value_or(business.receiptDateOrder);
    business.fyStartMonth = options.fyStartMonth;
    return business;
}

}  // namespace

const Library& existing(const LibrarySession& session) {
    if (!session.loaded())
        throw Refusal("There are no books in " + session.store().folder().string() +
                      " yet. “tamba-cli new” makes them.");
    return *session.loaded();
}

void writeFile(const std::string& name, std::string_view text) {
    try {
        Files::writeAtomically(std::filesystem::absolute(name), text);
    } catch (const FileError& error) {
        throw Refusal("“" + oneLine(name) + "” couldn’t be written: " + error.what() + ".");
    }
}

Library save(LibrarySession& session, const Library& library) {
    LibrarySession::Saved saved = session.save(library);
    if (saved.merged) std::cerr << "Another machine had changed these books; its changes were brought in.\n";
    for (const Conflict& conflict : saved.conflicts)
        std::cerr << "Both changed " << conflict.list << " " << conflict.id << " " << conflict.field << ": kept "
                  << (conflict.keptTheirs ? conflict.theirs : conflict.ours) << " over "
                  << (conflict.keptTheirs ? conflict.ours : conflict.theirs) << ".\n";
    return std::move(saved.library);
}

int makeBooks(const Context& context, const NewOptions& options) {
    const Business business = businessFrom(options);
    LibrarySession session(context.folder, LibrarySession::Access::write);
    if (session.loaded()) throw Refusal("There are books in " + context.folder.string() + " already.");
    Library library = Library::make();
    library.business = business;
    if (business.homeCurrency != "INR")
        for (std::size_t i = 0; i < library.accounts.size(); ++i)
            library.accounts.update(i, [&](BankAccount& account) { account.currency = business.homeCurrency; });
    save(session, library);
    if (context.json)
        std::cout << JSON::object().add("folder", context.folder.string()).text() << "\n";
    else
        std::cout << "Made new books in " << context.folder.string() << ".\n";
    return 0;
}

int makeSample(const Context& context, const std::filesystem::path& folder) {
    const LibrarySession session(folder, LibrarySession::Access::write);
    if (session.loaded()) throw Refusal("There are books in " + folder.string() + " already.");
    Fixtures::write(session.store(), context.today);
    if (context.json)
        std::cout << JSON::object().add("folder", folder.string()).text() << "\n";
    else
        std::cout << "Made sample books in " << folder.string() << ".\n";
    return 0;
}

int checkBooks(const Context& context) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    LibraryCheck::Report report = LibraryCheck::check(existing(session), session.store());
    for (LibraryCheck::Problem& problem : DocumentCheck::problems(*session.loaded()))
        report.problems.push_back(std::move(problem));
    if (context.json) {
        JSON counts = JSON::object();
        for (const auto& [list, count] : report.counts) counts.add(list, static_cast<std::int64_t>(count));
        JSON problems = JSON::array();
        for (const LibraryCheck::Problem& problem : report.problems)
            problems.append(JSON::object()
                                .add("kind", LibraryCheck::word(problem.kind))
                                .add("list", problem.list)
                                .add("id", problem.id)
                                .add("sentence", problem.sentence));
        std::cout << JSON::object().add("counts", counts).add("problems", problems).text() << "\n";
        return report.problems.empty() ? 0 : 1;
    }
    std::vector<std::pair<std::string, std::string>> lines;
    for (const auto& [list, count] : report.counts) lines.emplace_back(list, std::to_string(count));
    std::cout << details(lines) << "\n";
    for (const LibraryCheck::Problem& problem : report.problems) std::cout << oneLine(problem.sentence) << "\n";
    if (report.problems.empty())
        std::cout << "No problems.\n";
    else
        std::cout << "\n" << counted(report.problems.size(), "problem", "problems") << ".\n";
    return report.problems.empty() ? 0 : 1;
}

}  // namespace tamba::cli
