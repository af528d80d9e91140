#include "TambaCore/Fixtures/Documents.h"

#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Numbering.h"
#include "TambaCore/Fixtures/Blank.h"

#include <utility>

namespace tamba::Fixtures {

namespace {

constexpr Day issued{2026, 10, 14};

/// Books of one business with one document in the making.
class Sheet {
public:
    Sheet(std::string name, TaxRegime regime, const char* state) : name_(std::move(name)), dice_(name_) {
        library_ = blank(dice_);
        Business& business = library_.business;
        business.name = "Halad & Ink Studio";
        business.address = "12 Bhandarkar Road\nPune 411004";
        business.stateCode = state;
        business.email = "hello@haladandink.example";
        business.phone = "020 5550 0102";
        business.website = "haladandink.example";
        business.regime = regime;
        business.pan = "BKXPD7312L";
        if (isIndia(regime) && regime != TaxRegime::none) business.taxID = GSTIN::make(state, business.pan, "1");
        business.lutReference = "AD270326000417X";
        business.bank.accountName = business.name;
        business.bank.accountNumber = "000451200078";
        business.bank.bankName = "Godavari Bank";
        business.bank.ifsc = "GODS0000451";
        business.upiID = "haladandink@godavari";
        business.signatory = "Mrunal Deshpande";
        business.terms = "Payment within 15 days of the invoice date.";
        client_.id = dice_.id();
        client_.name = "Monsoon Tea Company LLP";
        client_.contact = "Ritika Apte";
        client_.email = "accounts@monsoontea.example";
        client_.address = "Fergusson College Road\nPune 411004";
        client_.stateCode = "27";
        client_.taxID = GSTIN::make("27", "ABBFM4410Q", "1");
    }

    Business& business() { return library_.business; }
    Client& client() { return client_; }
    Document& document() { return document_; }

    Sheet& client(std::string name, std::string address, std::optional<std::string> state, const char* pan,
                  std::string country = "IN", std::string currency = "INR") {
        client_.name = std::move(name);
        client_.address = std::move(address);
        client_.taxID = state && *pan ? GSTIN::make(*state, pan, "1") : pan;
        client_.stateCode = std::move(state);
        client_.country = std::move(country);
        client_.currency = std::move(currency);
        return *this;
    }
    Line& line(std::string name, std::int64_t qtyMilli, std::int64_t priceMinor, int taxBP = 1800) {
        Line line;
        line.id = dice_.id();
        line.name = std::move(name);
        line.hsn = "998391";
        line.qtyMilli = qtyMilli;
        line.unit = "day";
        line.priceMinor = priceMinor;
        line.taxBP = chargesTax(library_.business.regime) ? taxBP : 0;
        document_.lines.push_back(std::move(line));
        return document_.lines.back();
    }

    /// The document with what client and business say, issued unless it is to stay a draft.
    Sample done(DocKind kind = DocKind::invoice, DocState state = DocState::issued) {
        const Business& business = library_.business;
        Document& document = document_;
        document.id = dice_.id();
        document.kind = kind;
        document.state = state;
        document.issueDate = issued;
        document.dueDate = issued.addingDays(business.defaultDueDays);
        document.clientID = client_.id;
        const bool foreign = client_.isForeign();
        if (!foreign)
            document.placeOfSupply =
                PlaceOfSupply::defaultPOS(client_.taxID, client_.stateCode, business.supplierState().value_or(""));
        document.supply = PlaceOfSupply::supplyType(business.regime, business.supplierState(), document.placeOfSupply,
                                                    client_.country, client_.sez, document.lut);
        document.currency = client_.currency;
        if (kind != DocKind::creditNote) document.terms = business.terms;
        document.roundOff = business.roundTotals && client_.currency == "INR";
        if (client_.currency != business.homeCurrency) library_.rates = {{client_.currency, rate_, issued, {}}};
        document.rateMicros = library_.rate(client_.currency).value_or(0);
        number(document);
        library_.clients.append(client_);
        library_.documents.append(document);
        return {name_, std::move(library_), document.id};
    }
    Sheet& rate(std::int64_t micros) {
        rate_ = micros;
        return *this;
    }
    /// An invoice like the document, in the books, which the document then refers to.
    void credits(std::vector<Line> lines) {
        Document invoice = document_;
        invoice.id = dice_.id();
        invoice.state = DocState::issued;
        invoice.issueDate = issued.addingDays(-20);
        invoice.dueDate = issued.addingDays(-5);
        invoice.clientID = client_.id;
        invoice.placeOfSupply = client_.stateCode;
        invoice.roundOff = true;
        number(invoice);
        document_.linkedID = invoice.id;
        document_.lines = std::move(lines);
        library_.documents.append(std::move(invoice));
    }

private:
    void number(Document& document) {
        const NumberSeries& series = *library_.defaultSeries(document.kind);
        document.seriesID = series.id;
        if (document.state == DocState::draft) return;
        document.number = Numbering::nextNumber(library_, series, document.issueDate);
        document.billTo = PartySnapshot::of(client_);
        document.seller = PartySnapshot::of(library_.business);
        const std::string period = Numbering::periodKey(series.pattern, document.issueDate, library_.fyStart());
        library_.series.update(indexOf(library_.series, series.id), [&](NumberSeries& of) { of.next[period] = 2; });
    }

    std::string name_;
    Dice dice_;
    Library library_;
    Client client_;
    Document document_;
    std::int64_t rate_ = 0;
};

Sheet studio(std::string name) { return {std::move(name), TaxRegime::gstIndia, "27"}; }

void identityWork(Sheet& sheet) {
    sheet.line("Brand identity for the tea range", 1000, 15000000).detail =
        "Logo, colours, type\nTwo rounds of changes";
    sheet.line("Illustration", 12500, 240000).discountBP = 1000;
    Line& print = sheet.line("Printed proofs", 3000, 49950, 500);
    print.hsn = "4911";
    print.unit = "set";
}

std::vector<Sample> regimesAndSupplies() {
    std::vector<Sample> all;
    Sheet plain = studio("intrastate");
    identityWork(plain);
    plain.document().reference = "PO-2214";
    plain.document().notes = "Thank you for the tea samples.";
    all.push_back(plain.done());

    Sheet karnataka = studio("interstate-paid");
    karnataka.client("Terracotta Homes Pvt Ltd", "80 Feet Road, Indiranagar\nBengaluru 560038", "29", "AAFCT7718D");
    karnataka.line("Website design", 1000, 22000000);
    karnataka.line("Illustration", 6000, 450000);
    karnataka.document().payments = {{UUID::derived(karnataka.client().id, "payment"),
                                      issued.addingDays(9),
                                      26676000,
                                      2470000,
                                      PaymentMethod::bank,
                                      "N2610231187",
                                      std::nullopt,
                                      {}}};
    all.push_back(karnataka.done());

    Sheet dollars = studio("export-lut-usd");
    dollars.client("Bluebottle Analytics, Inc.", "Austin, TX 78701", std::nullopt, "", "US", "USD").rate(86'400'000);
    dollars.line("Dashboard design, second phase", 10000, 42000);
    dollars.document().lut = true;
    all.push_back(dollars.done());

    Sheet euros = studio("export-igst-eur");
    euros.client("Nordlicht Studio GmbH", "Große Elbstraße 9\n22767 Hamburg", std::nullopt, "DE999000451", "DE", "EUR");
    euros.rate(90'123'400).line("Type design", 1000, 123456);
    all.push_back(euros.done());

    for (const bool lut : {true, false}) {
        Sheet zone = studio(lut ? "sez-lut" : "sez-igst");
        zone.client("Indrayani Softworks Pvt Ltd", "Hinjawadi SEZ, Phase 2\nPune 411057", "27", "AAECI2093B");
        zone.client().sez = true;
        zone.line("Interface design", 5000, 1200000);
        zone.document().lut = lut;
        all.push_back(zone.done());
    }

    Sheet union_("utgst", TaxRegime::gstIndia, "04");
    union_.business().address = "Sector 17\nChandigarh 160017";
    union_.client("Rose Garden Books", "Sector 16\nChandigarh 160015", "04", "AALFR5567K");
    union_.line("Cover design", 3000, 850000);
    all.push_back(union_.done());

    Sheet exempt = studio("exempt");
    exempt.client("Sahyadri Trails", "Mahabaleshwar 412806", "27", "");
    exempt.line("Printed guide to the trails", 40000, 25000, 0).hsn = "4901";
    all.push_back(exempt.done());

    Sheet composition("composition", TaxRegime::gstComposition, "27");
    composition.line("Block printing workshop", 2000, 750000);
    all.push_back(composition.done());

    Sheet unregistered("unregistered-jpy", TaxRegime::none, "27");
    unregistered
        .client("Asagiri Design K.K.", "1-2-3 Jinnan, Shibuya-ku\nTōkyō 150-0041", std::nullopt, "", "JP", "JPY")
        .rate(565'000);
    unregistered.line("Poster series", 3000, 50000);
    all.push_back(unregistered.done());

    Sheet kuwait("sales-tax-kwd", TaxRegime::simple, "");
    Business& abroad = kuwait.business();
    abroad.stateCode.reset();
    abroad.country = "KW";
    abroad.address = "Salmiya\nKuwait";
    abroad.homeCurrency = "KWD";
    abroad.taxName = "VAT";
    abroad.taxIDLabel = "VAT no.";
    abroad.taxID = "300451200078003";
    abroad.bank.ifsc.clear();
    abroad.bank.swift = "GODSKWKW";
    abroad.bank.iban = "KW12GODS0000000000004512000780";
    kuwait.client("Pearl Harbour Cafés", "Gulf Road", std::nullopt, "", "KW", "KWD");
    kuwait.line("Menu design", 1500, 1000500, 500);
    all.push_back(kuwait.done());
    return all;
}

std::vector<Sample> kindsAndStates() {
    std::vector<Sample> all;
    Sheet draft = studio("consumer-draft");
    draft.client("Pooja Naik", "Mahabaleshwar 412806", "27", "");
    identityWork(draft);
    all.push_back(draft.done(DocKind::invoice, DocState::draft));

    Sheet gone = studio("void");
    identityWork(gone);
    gone.document().reason = "Sent to the wrong client";
    all.push_back(gone.done(DocKind::invoice, DocState::void_));

    Sheet estimate = studio("estimate");
    identityWork(estimate);
    all.push_back(estimate.done(DocKind::estimate));

    Sheet note = studio("credit-note");
    identityWork(note);
    Line returned = note.document().lines.back();
    returned.qtyMilli = 1000;
    note.credits({returned});
    note.document().reason = "One set of proofs was misprinted";
    all.push_back(note.done(DocKind::creditNote));
    return all;
}

std::string repeated(std::string_view text, int times, std::string_view between) {
    std::string result;
    for (int i = 0; i < times; ++i) result.append(i == 0 ? "" : between).append(text);
    return result;
}

std::vector<Sample> hardToLayOut() {
    std::vector<Sample> all;
    Sheet scripts = studio("hindi-tamil");
    scripts.business().name = "हलद आणि शाई स्टुडिओ";
    scripts.business().signatory = "मृणाल देशपांडे";
    scripts.client("சென்னை கைவினை நிறுவனம்", "அண்ணா சாலை\nசென்னை 600002", "33", "AABCC7788E");
    scripts.line("पैकेजिंग डिज़ाइन", 2000, 1800000).detail = "चाय के डिब्बे · तीन रंग";
    scripts.line("லோகோ வடிவமைப்பு", 1000, 2500000).detail = "தமிழ் மற்றும் ஆங்கிலம்";
    scripts.document().notes = "कृपया समय पर भुगतान करें। நன்றி.";
    all.push_back(scripts.done());

    Sheet pages = studio("two-hundred-lines");
    for (int i = 1; i <= 200; ++i) {
        Line& line = pages.line("Icon " + std::to_string(i), 1000 + 250 * (i % 4), 95000 + 137 * i, i % 7 ? 1800 : 500);
        line.hsn = i % 7 ? "998391" : "4911";
        if (i % 9 == 0) line.detail = "Three sizes, light and dark";
    }
    all.push_back(pages.done());

    Sheet descriptions = studio("long-descriptions");
    for (const char* name : {"Research", "Workshops", "Report"})
        descriptions.line(name, 1000, 4500000).detail =
            repeated("Interviews, notes and a summary of what was said", 30, "\n");
    descriptions.document().notes = repeated("Travel is billed at cost and agreed beforehand.", 20, " ");
    descriptions.business().terms = repeated("Payment within 15 days of the invoice date.", 12, " ");
    all.push_back(descriptions.done());

    Sheet names = studio("long-names");
    names.business().name = repeated("Halad & Ink", 6, " and ") + " Studio of Packaging, Type and Interface Design";
    names.business().address = repeated("12 Bhandarkar Road, behind the old post office", 4, "\n");
    names.client(repeated("Monsoon Tea", 7, ", ") + " and Sons Private Limited",
                 repeated("Fergusson College Road", 6, ", "), "27", "ABBFM4410Q");
    names.line(repeated("Brandidentityforthetearange", 8, ""), 1000, 15000000).unit = "assignment month";
    names.line(repeated("Identity for the tea range", 9, " and "), 1000, 15000000).hsn = "99839112";
    names.document().reference = repeated("PO-2214", 9, "/");
    all.push_back(names.done());

    Sheet huge = studio("huge-amounts");
    huge.client("Terracotta Homes Pvt Ltd", "Indiranagar\nBengaluru 560038", "29", "AAFCT7718D");
    huge.line("Township, all phases", 99'999'999, 84'000'000, 1800).discountBP = 1250;
    huge.line("Township, interiors", 1'234'567, 98'765'432'10, 4000);
    all.push_back(huge.done());
    return all;
}

}  // namespace

std::vector<Sample> documents() {
    std::vector<Sample> all = regimesAndSupplies();
    for (auto* more : {kindsAndStates, hardToLayOut})
        for (Sample& sample : more()) all.push_back(std::move(sample));
    return all;
}

}  // namespace tamba::Fixtures
