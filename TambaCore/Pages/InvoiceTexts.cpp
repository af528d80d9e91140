#include "TambaCore/Pages/InvoiceTexts.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Standing.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace tamba::InvoiceTexts {

namespace {

bool isGST(SupplyType supply) { return supply != SupplyType::simple && supply != SupplyType::noTax; }

bool isExport(SupplyType supply) { return supply == SupplyType::exportLUT || supply == SupplyType::exportWithIGST; }

bool isIndian(const std::string& country) { return country.empty() || Text::upper(country) == "IN"; }

std::string countryName(const std::string& code) {
    icu::UnicodeString name;
    icu::Locale("", code.c_str()).getDisplayCountry(icu::Locale::getEnglish(), name);
    std::string text;
    name.toUTF8String(text);
    return text.empty() ? code : text;
}

/// A supplier without tax on his documents who is registered all the same: under the composition scheme now, or under
/// it when the document was made.
bool isComposition(const Library& library, const Document& document) {
    if (document.supply != SupplyType::noTax) return false;
    const TaxRegime regime = library.business.regime;
    return regime == TaxRegime::gstComposition ||
           (regime == TaxRegime::gstIndia && GSTIN::isValid(seller(library, document).taxID));
}

bool isNilRated(const Document& document) {
    if (document.lines.empty() || isZeroRated(document.supply)) return false;
    for (const Line& line : document.lines)
        if (line.taxBP > 0) return false;
    return true;
}

std::optional<std::string> stateOf(const PartySnapshot& party) {
    return GSTIN::isValid(party.taxID) ? GSTIN::stateCode(party.taxID) : party.stateCode;
}

std::string stateLabel(const std::string& code) {
    const auto state = IndianState::of(code);
    return state ? state->label() : code;
}

void appendLine(std::string& lines, std::string_view line) {
    line = Text::trim(line);
    if (line.empty()) return;
    if (!lines.empty()) lines += '\n';
    lines += line;
}

void appendAddress(std::string& lines, const std::string& address) {
    for (const std::string& line : Text::splitLines(address)) appendLine(lines, line);
}

void appendLabelled(std::string& lines, const std::string& label, std::string_view text) {
    if (!Text::trim(text).empty()) appendLine(lines, label + " " + std::string(Text::trim(text)));
}

/// Many addresses end with their country already.
void appendCountry(std::string& lines, const std::string& country) {
    if (!Text::lower(lines).ends_with(Text::lower(country))) appendLine(lines, country);
}

/// The state, or abroad the country.
void appendPlace(std::string& lines, const Library& library, const PartySnapshot& party) {
    if (!isIndian(party.country))
        appendCountry(lines, countryName(party.country));
    else if (const auto state = stateOf(party); state && !state->empty() && isIndia(library.business.regime))
        appendLine(lines, "State: " + stateLabel(*state));
}

/// An IBAN as ISO 13616 prints it.
std::string inFours(const std::string& text) {
    std::string grouped;
    int count = 0;
    for (const std::string_view character : Text::characters(text)) {
        if (character == " ") continue;
        if (count > 0 && count % 4 == 0) grouped += ' ';
        grouped += character;
        ++count;
    }
    return grouped;
}

std::string date(Day day) { return day.formatted("d MMM yyyy"); }

}  // namespace

PartySnapshot seller(const Library& library, const Document& document) {
    return document.seller ? *document.seller : PartySnapshot::of(library.business);
}

PartySnapshot buyer(const Library& library, const Document& document) {
    if (document.billTo) return *document.billTo;
    const Client* client = document.clientID ? library.client(*document.clientID) : nullptr;
    return client ? PartySnapshot::of(*client) : PartySnapshot{};
}

std::string sellerLines(const Library& library, const Document& document) {
    const Business& business = library.business;
    const PartySnapshot party = seller(library, document);
    std::string lines;
    appendAddress(lines, party.address);
    appendPlace(lines, library, party);
    const bool sellsAbroad = !isIndian(buyer(library, document).country) && isIndian(party.country);
    if (sellsAbroad) appendCountry(lines, "India");
    appendLabelled(lines, business.taxIDLabel.empty() ? "Tax ID" : business.taxIDLabel, party.taxID);
    // A GSTIN holds the PAN.
    if (isIndian(party.country) && GSTIN::pan(party.taxID).value_or("") != business.pan)
        appendLabelled(lines, "PAN", business.pan);
    appendLine(lines, party.email);
    appendLine(lines, business.phone);
    appendLine(lines, business.website);
    return lines;
}

std::string buyerLines(const Library& library, const Document& document) {
    const Business& business = library.business;
    const PartySnapshot party = buyer(library, document);
    std::string lines;
    appendAddress(lines, party.address);
    appendPlace(lines, library, party);
    const bool indian = isIndian(party.country) && isIndia(business.regime);
    const bool sameCountry = Text::upper(party.country) == Text::upper(business.country);
    appendLabelled(lines,
                   indian                                        ? "GSTIN"
                   : sameCountry && !business.taxIDLabel.empty() ? business.taxIDLabel
                                                                 : "Tax ID",
                   party.taxID);
    return lines;
}

std::string_view buyerLabel(const Document& document) {
    switch (document.kind) {
        case DocKind::invoice:
            return "Bill to";
        case DocKind::estimate:
            return "Prepared for";
        case DocKind::creditNote:
            return "Credit to";
    }
    return {};
}

std::string title(const Library& library, const Document& document) {
    if (document.kind == DocKind::estimate) return "Estimate";
    if (document.kind == DocKind::creditNote) return "Credit Note";
    if (isComposition(library, document)) return "Bill of Supply";
    if (!isGST(document.supply)) return "Invoice";
    return isNilRated(document) ? "Bill of Supply" : "Tax Invoice";
}

std::string placeOfSupply(const Library& library, const Document& document) {
    if (!isGST(document.supply) || title(library, document) == "Bill of Supply") return {};
    if (isExport(document.supply)) return "Outside India\n(96 · Other countries)";
    const auto code = document.placeOfSupply ? document.placeOfSupply : stateOf(seller(library, document));
    return code ? stateLabel(*code) : std::string();
}

std::vector<Labelled> details(const Library& library, const Document& document) {
    std::vector<Labelled> list{{"Date", date(document.issueDate)}};
    const auto add = [&list](std::string label, std::string_view text) {
        if (!Text::trim(text).empty()) list.push_back({std::move(label), std::string(Text::trim(text))});
    };
    if (document.kind == DocKind::invoice) add("Due", date(document.dueDate));
    if (document.kind == DocKind::estimate) add("Valid until", date(document.dueDate));
    if (document.kind == DocKind::creditNote) {
        const Document* invoice = document.linkedID ? library.document(*document.linkedID) : nullptr;
        if (invoice) {
            add("For invoice", invoice->displayNumber());
            add("Invoice date", date(invoice->issueDate));
        }
        add("Reason", document.reason);
    }
    add("Reference", document.reference);
    add("Place of supply", placeOfSupply(library, document));
    if (title(library, document) == "Tax Invoice") add("Reverse charge", "No");
    return list;
}

std::string compositionNotice(const Library& library, const Document& document) {
    if (document.kind != DocKind::invoice || !isComposition(library, document)) return {};
    return "Composition taxable person, not eligible to collect tax on supplies";
}

std::string endorsement(const Library& library, const Document& document) {
    if (document.kind != DocKind::invoice || !isZeroRated(document.supply)) return {};
    std::string text = isExport(document.supply) ? "SUPPLY MEANT FOR EXPORT"
                                                 : "SUPPLY TO SEZ UNIT OR SEZ DEVELOPER FOR AUTHORISED OPERATIONS";
    const bool paid = usesIGST(document.supply) && !chargesNoTax(document.supply);
    text += paid ? " ON PAYMENT OF INTEGRATED TAX"
                 : " UNDER BOND OR LETTER OF UNDERTAKING WITHOUT PAYMENT OF INTEGRATED TAX";
    const std::string_view reference = Text::trim(library.business.lutReference);
    if (!paid && !reference.empty()) text += "\nLUT reference (ARN): " + std::string(reference);
    return text;
}

std::vector<Tax> taxes(const Library& library, const Document& document) {
    if (chargesNoTax(document.supply) || document.supply == SupplyType::noTax) return {};
    if (document.supply == SupplyType::simple) {
        for (const Line& line : document.lines)
            if (line.taxBP > 0) return {{library.business.displayTaxName(), &TaxSplit::other}};
        return {};
    }
    if (isNilRated(document)) return {};
    if (usesIGST(document.supply)) return {{"IGST", &TaxSplit::igst}};
    const auto place =
        IndianState::of(document.placeOfSupply ? document.placeOfSupply : stateOf(seller(library, document)));
    return {{"CGST", &TaxSplit::cgst, true}, {place && place->utgst ? "UTGST" : "SGST", &TaxSplit::sgst, true}};
}

std::string rate(const Tax& tax, int rateBP) {
    constexpr std::int64_t thousandthsOfHalf = 5;  // half of a basis point is 0.005 %
    return tax.half ? MoneyFormat::quantity(rateBP * thousandthsOfHalf) + "%" : MoneyFormat::rate(rateBP);
}

bool showsHSNSummary(const Library& library, const Document& document, const DocTotals& totals) {
    if (!isIndia(library.business.regime) || document.supply == SupplyType::simple) return false;
    bool coded = false;
    for (const HSNGroup& group : totals.byHSN) coded = coded || !group.hsn.empty();
    return coded && (totals.byHSN.size() > 1 || !taxes(library, document).empty());
}

std::string inWords(std::int64_t amount, const Currency& currency) {
    const bool dollars = Text::contains(Text::lower(currency.name), "dollar");
    const bool rupees = currency.code == Currency::inr().code;
    if (currency.code.ends_with('D') && !dollars) return {};
    if (amount % currency.scale() != 0 && !rupees && !dollars && currency.code != "EUR") return {};
    return MoneyFormat::words(amount, currency);
}

std::string exchangeRate(const Library& library, const Document& document) {
    std::string rate = MoneyFormat::fxRate(document.rateMicros);
    if (const std::size_t point = rate.find('.'); point != std::string::npos && point + 2 == rate.size()) rate += '0';
    return "1 " + document.currency + " = " + library.home().symbol + rate;
}

std::vector<Labelled> bank(const Library& library, const Document& document) {
    const BankDetails& bank = library.business.bank;
    if (document.kind != DocKind::invoice || document.state == DocState::void_) return {};
    std::vector<Labelled> list;
    const auto add = [&list](const char* label, const std::string& text) {
        if (!Text::trim(text).empty()) list.push_back({label, std::string(Text::trim(text))});
    };
    add("Account name", bank.accountName);
    add("Account no.", bank.accountNumber);
    add("Bank", bank.bankName);
    add("IFSC", bank.ifsc);
    // Of no use for a transfer within India, and one more number to mistake for the account's.
    if (!isIndian(library.business.country) || document.currency != Currency::inr().code) {
        add("SWIFT", bank.swift);
        add("IBAN", inFours(bank.iban));
    }
    return list;
}

std::string_view stamp(const Library& library, const Document& document) {
    if (document.state == DocState::draft) return "DRAFT";
    if (document.state == DocState::void_) return "VOID";
    const bool paid =
        document.kind == DocKind::invoice && DocMath::isBelievable(document) && Books::balance(library, document) < 1;
    return paid ? "PAID" : "";
}

}  // namespace tamba::InvoiceTexts
