#include "Tamba/Rows/SetUpRows.h"

#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/Sentences.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Numbering.h"

namespace tamba {
namespace {

/// The series that new invoices are numbered by; the list's size where there is none.
std::size_t invoiceSeries(const Library& library) {
    std::size_t index = 0;
    while (index < library.series.size() && library.series[index].kind != DocKind::invoice) ++index;
    return index;
}

}  // namespace

Library withSetUp(Library library, const SetUp& setUp) {
    Business& business = library.business;
    business.name = Text::trim(setUp.name);
    business.regime = setUp.regime;
    business.stateCode = setUp.stateCode;
    business.accentHex = setUp.accentHex;
    business.taxID.clear();
    if (setUp.regime != TaxRegime::none)
        business.taxID = isIndia(setUp.regime) ? GSTIN::clean(setUp.taxID) : std::string(Text::trim(setUp.taxID));
    if (isIndia(setUp.regime) && GSTIN::isValid(business.taxID)) {
        business.pan = GSTIN::pan(business.taxID).value_or("");
        business.stateCode = GSTIN::stateCode(business.taxID);
    }
    if (const std::size_t index = invoiceSeries(library); index < library.series.size()) {
        const std::string prefix(Text::trim(setUp.prefix));
        library.series.update(index, [&](NumberSeries& series) {
            series.pattern = prefix.empty() ? "{FY}/{###}" : prefix + "/{FY}/{###}";
        });
    }
    library.onboarded = true;
    return library;
}

FieldNote taxIDNote(TaxRegime regime, std::string_view typed) {
    using Kind = FieldNote::Kind;
    if (!isIndia(regime)) return {};
    const std::string id = GSTIN::clean(typed);
    if (id.empty()) return {RowText::translate("Rows", "Leave empty while you are not registered."), Kind::plain};
    if (const auto problem = GSTIN::validate(id)) return {std::string(GSTIN::problemText(*problem)), Kind::problem};
    const auto state = IndianState::of(GSTIN::stateCode(id));
    return {state ? Sentences::shown(state->label()) : std::string(), Kind::good};
}

FieldNote firstNumberNote(const Library& library, Day today) {
    const std::size_t index = invoiceSeries(library);
    if (index == library.series.size()) return {};
    const NumberSeries& series = library.series[index];
    const auto problem = Numbering::problem(library, series, today);
    return {
        RowText::filled(RowText::translate("Rows", "The first: %1"), {Numbering::nextNumber(library, series, today)}) +
            (problem ? " " + *problem : ""),
        problem ? FieldNote::Kind::problem : FieldNote::Kind::plain};
}

LookSample lookSample(Library library, Day today) {
    Client client = Client::make("Your client");
    client.address = "12 Lake Road\nPune 411001";
    client.stateCode = library.business.supplierState();
    library.clients.append(client);
    Document invoice = Books::newDocument(library, DocKind::invoice, client.id, today);
    invoice.lines = {Line::make("Design of a brochure", 1000, 4'500'000, library.business.defaultTaxBP),
                     Line::make("Print supervision", 2500, 800'000, library.business.defaultTaxBP)};
    library = Books::addDraft(std::move(library), invoice);
    try {
        library = Books::issue(library, invoice.id, today);
    } catch (const BooksError&) {
        // What keeps it from being issued, a missing GSTIN say, is said when it matters.
    }
    return {library, *library.document(invoice.id)};
}

}  // namespace tamba
