#include "TambaCLI/SettingCommands.h"

#include "TambaCLI/Arguments.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Documents/Numbering.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Documents/UPI.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <algorithm>
#include <iostream>

namespace tamba::cli {
namespace {

std::string hexColour(const std::string& typed) {
    std::string_view digits = Text::trim(typed);
    if (digits.starts_with('#')) digits.remove_prefix(1);
    if (digits.size() != 6 || digits.find_first_not_of("0123456789abcdefABCDEF") != std::string_view::npos)
        throw Refusal("“" + typed + "” is not a colour such as 1E4A66.");
    return Text::upper(digits);
}

/// All but the logo, which is a file.
Business withEntry(Business business, const BusinessEntry& entry) {
    take(business.name, entry.name);
    take(business.address, entry.address);
    take(business.pan, entry.pan);
    take(business.email, entry.email);
    take(business.phone, entry.phone);
    take(business.website, entry.website);
    take(business.lutReference, entry.lut);
    take(business.terms, entry.terms);
    take(business.footer, entry.footer);
    take(business.signatory, entry.signatory);
    take(business.bank.accountName, entry.accountName);
    take(business.bank.accountNumber, entry.accountNumber);
    take(business.bank.bankName, entry.bankName);
    take(business.bank.ifsc, entry.ifsc);
    take(business.bank.swift, entry.swift);
    take(business.bank.iban, entry.iban);
    take(business.upiID, entry.upi);
    if (!business.upiID.empty() && entry.upi && !UPI::isValidVPA(business.upiID))
        throw Refusal(std::string(UPI::invalidVPA));
    if (entry.accent) business.accentHex = hexColour(*entry.accent);
    if (entry.regime) business.regime = *entry.regime;
    if (entry.round) business.roundTotals = *entry.round;
    if (entry.showCode) business.showUPIQR = *entry.showCode;
    if (entry.gstin) {
        business.taxID = entry.gstin->empty() ? "" : gstin(*entry.gstin);
        if (const auto state = GSTIN::stateCode(business.taxID)) business.stateCode = state;
    }
    if (entry.state) business.stateCode = entry.state->empty() ? std::nullopt : std::optional(stateCode(*entry.state));
    if (entry.dueDays) {
        const std::int64_t days = wholeNumberOf(*entry.dueDays, "number of days");
        if (days > 3650) throw Refusal("“" + *entry.dueDays + "” is not a number of days.");
        business.defaultDueDays = static_cast<int>(days);
    }
    if (entry.tax) {
        business.defaultTaxBP = percentOf(*entry.tax, "tax rate");
        if (business.defaultTaxBP > 10'000) throw Refusal("A tax rate can’t be above 100%.");
    }
    return business;
}

void printBusiness(const Context& context, const Business& business) {
    if (context.json) {
        std::cout << ModelsJSON::json(business) << "\n";
        return;
    }
    const auto state = IndianState::of(business.supplierState());
    const BankDetails& bank = business.bank;
    std::cout << details({{"Business", business.name},
                          {"Address", business.address},
                          {"State", state ? state->label() : ""},
                          {"Country", business.isIndia() ? "" : business.country},
                          {"Tax", std::string(title(business.regime))},
                          {"Usual rate", chargesTax(business.regime) ? MoneyFormat::rate(business.defaultTaxBP) : ""},
                          {business.taxIDLabel, business.taxID},
                          {"PAN", business.pan},
                          {"LUT", business.lutReference},
                          {"E-mail", business.email},
                          {"Phone", business.phone},
                          {"Website", business.website},
                          {"Home currency", business.homeCurrency},
                          {"Days to pay", std::to_string(business.defaultDueDays)},
                          {"Round totals", business.roundTotals ? "yes" : "no"},
                          {"UPI ID", business.upiID},
                          {"UPI code", business.showUPIQR ? "" : "not shown"},
                          {"Bank", bank.bankName},
                          {"Account", std::string(Text::trim(bank.accountName + " " + bank.accountNumber))},
                          {"IFSC", bank.ifsc},
                          {"SWIFT", bank.swift},
                          {"IBAN", bank.iban},
                          {"Logo", business.logoFile.value_or("")},
                          {"Accent", business.accentHex},
                          {"Signatory", business.signatory},
                          {"Terms", business.terms},
                          {"Footer", business.footer}});
}

/// The word of a kind on the command line.
std::string kindWord(DocKind kind) { return kind == DocKind::creditNote ? "credit-note" : std::string(word(kind)); }

const NumberSeries& seriesOf(const Library& library, const std::string& typed) {
    const std::string wanted = Text::lower(Text::trim(typed));
    std::vector<const NumberSeries*> found;
    for (const NumberSeries& series : library.series)
        if (kindWord(series.kind) == wanted) found.push_back(&series);
    if (found.size() > 1)
        throw Refusal("There are several series of that kind. Give the name of one or the beginning of its ID.");
    return found.empty() ? named(library.series, typed, "series") : *found.front();
}

std::string marked(const Library& library, const NumberSeries& series, Day today) {
    const auto problem = Numbering::problem(library, series, today);
    if (!problem) return {};
    // The mark of a number that is too long stands beside that number.
    return problem->starts_with("·") ? Numbering::nextNumber(library, series, today) + " " + *problem + "." : *problem;
}

void printSeries(const Context& context, const Library& library) {
    JSON records = JSON::array();
    Table table({{"ID"}, {"Kind"}, {"Name"}, {"Pattern"}, {"Next number"}, {"Check"}});
    for (const NumberSeries& series : library.series) {
        const Numbering::Next next = Numbering::next(library, series, context.today);
        const std::string record = ModelsJSON::json(series);
        records.append(JSON::object()
                           .item(std::string_view(record).substr(1, record.size() - 2))
                           .add("nextNumber", next.number)
                           .add("nextCounter", next.counter));
        table.add({shortID(series.id), std::string(Books::title(series.kind)), series.name, series.pattern, next.number,
                   marked(library, series, context.today)});
    }
    std::cout << (context.json ? records.text() + "\n" : table.text());
}

}  // namespace

int showBusiness(const Context& context) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    printBusiness(context, existing(session).business);
    return 0;
}

int setBusiness(const Context& context, const BusinessEntry& entry) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    Library library = existing(session);
    library.business = withEntry(library.business, entry);
    if (entry.logo && entry.logo->empty())
        library.business.logoFile.reset();
    else if (entry.logo)
        library.business.logoFile = session.store().importLogo(*entry.logo);
    printBusiness(context, save(session, library).business);
    return 0;
}

int listSeries(const Context& context) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    printSeries(context, existing(session));
    return 0;
}

int setSeries(const Context& context, const SeriesEntry& entry) {
    constexpr std::int64_t highest = 999'999'999;
    LibrarySession session(context.folder, LibrarySession::Access::write);
    Library library = existing(session);
    NumberSeries series = seriesOf(library, entry.series);
    if (entry.pattern) series.pattern = Text::trim(*entry.pattern);
    for (std::size_t i = 0; i < library.series.size(); ++i)
        if (library.series[i].id == series.id)
            library.series.update(i, [&](NumberSeries& changed) { changed = series; });
    if (entry.pattern && !entry.anyway)
        if (const std::string problem = marked(library, series, context.today); !problem.empty())
            throw Refusal(problem + " Use --anyway to keep it all the same.");
    if (entry.start) {
        const std::int64_t counter = wholeNumberOf(*entry.start, "number to start at");
        if (counter < 1 || counter > highest) throw Refusal("“" + *entry.start + "” is not a number to start at.");
        library = Numbering::startAt(std::move(library), series.id, context.today, counter);
    }
    printSeries(context, save(session, library));
    return 0;
}

}  // namespace tamba::cli
