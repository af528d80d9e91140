#include "TambaCore/Base/Check.h"
#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/GSTRules.h"
#include "TambaCore/Reports/ReportTables.h"

#include <array>
#include <string_view>
#include <utility>

/// GSTR-1 in the sheets of the government's Excel and CSV template (version 2.2): its own titles, spellings and lists,
/// which the offline tool compares letter by letter. The tool works out CGST, SGST and IGST itself.
namespace tamba::ReportTables {
namespace {

using namespace GSTReturns;

/// Rupees and quantities: 1498.50.
std::string decimal(std::int64_t hundredths) { return MoneyFormat::plain(hundredths, Currency::inr()); }

std::string rateText(int rateBP) { return Tables::plain(std::int64_t{rateBP}, Table::Kind::percent); }

/// 14-Sep-2026: months of three letters, where British English says Sept.
std::string dateText(const Day& day) {
    static constexpr std::array months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return day.formatted("dd-") + months.at(static_cast<std::size_t>(day.m - 1)) + day.formatted("-yyyy");
}

/// "27-Maharashtra". The template's list spells four states in its own way.
std::string placeText(const std::string& code) {
    static constexpr std::pair<std::string_view, std::string_view> own[] = {
        {"01", "Jammu & Kashmir"},
        {"26", "Dadra & Nagar Haveli & Daman & Diu"},
        {"31", "Lakshdweep"},
        {"35", "Andaman & Nicobar Islands"}};
    for (const auto& [state, name] : own)
        if (state == code) return code + "-" + std::string(name);
    const auto state = IndianState::of(code);
    return state ? code + "-" + std::string(state->name) : code;
}

/// "NOS-NUMBERS", as the template's list of unit quantity codes has it; services are NA.
std::string unitText(const std::string& code) {
    static constexpr std::string_view labels[] = {"BAG-BAGS",
                                                  "BAL-BALE",
                                                  "BDL-BUNDLES",
                                                  "BKL-BUCKLES",
                                                  "BOU-BILLION OF UNITS",
                                                  "BOX-BOX",
                                                  "BTL-BOTTLES",
                                                  "BUN-BUNCHES",
                                                  "CAN-CANS",
                                                  "CBM-CUBIC METERS",
                                                  "CCM-CUBIC CENTIMETERS",
                                                  "CMS-CENTIMETERS",
                                                  "CTN-CARTONS",
                                                  "DOZ-DOZENS",
                                                  "DRM-DRUMS",
                                                  "GGK-GREAT GROSS",
                                                  "GMS-GRAMMES",
                                                  "GRS-GROSS",
                                                  "GYD-GROSS YARDS",
                                                  "KGS-KILOGRAMS",
                                                  "KLR-KILOLITRE",
                                                  "KME-KILOMETRE",
                                                  "LTR-LITRES",
                                                  "MLT-MILILITRE",
                                                  "MTR-METERS",
                                                  "MTS-METRIC TON",
                                                  "NOS-NUMBERS",
                                                  "OTH-OTHERS",
                                                  "PAC-PACKS",
                                                  "PCS-PIECES",
                                                  "PRS-PAIRS",
                                                  "QTL-QUINTAL",
                                                  "ROL-ROLLS",
                                                  "SET-SETS",
                                                  "SQF-SQUARE FEET",
                                                  "SQM-SQUARE METERS",
                                                  "SQY-SQUARE YARDS",
                                                  "TBS-TABLETS",
                                                  "TGM-TEN GROSS",
                                                  "THD-THOUSANDS",
                                                  "TON-TONNES",
                                                  "TUB-TUBES",
                                                  "UGS-US GALLONS",
                                                  "UNT-UNITS",
                                                  "YDS-YARDS"};
    for (const std::string_view label : labels)
        if (label.substr(0, 3) == code) return std::string(label);
    return code;
}

std::string invoiceType(SupplyType supply) {
    if (supply == SupplyType::sezWithIGST) return "SEZ supplies with payment";
    return supply == SupplyType::sezLUT ? "SEZ supplies without payment" : "Regular B2B";
}

std::string noteType(const Entry& entry) {
    if (!GSTFigures::isExport(entry.supply)) return "B2CL";
    return entry.supply == SupplyType::exportLUT ? "EXPWOP" : "EXPWP";
}

const std::string noCess = "0.00";

/// One row for each rate of each entry; rates stand `row`'s way.
template <class MakeRow>
CSV entriesCSV(CSV::Row titles, const std::vector<Entry>& entries, MakeRow&& makeRow) {
    CSV csv(std::move(titles));
    for (const Entry& entry : entries)
        for (const RateGroup& rate : entry.rates) csv.add(makeRow(entry, rateText(rate.rateBP), decimal(rate.taxable)));
    return csv;
}

CSV b2b(const std::vector<Entry>& entries) {
    return entriesCSV({"GSTIN/UIN of Recipient", "Receiver Name", "Invoice Number", "Invoice date", "Invoice Value",
                       "Place Of Supply", "Reverse Charge", "Applicable % of Tax Rate", "Invoice Type",
                       "E-Commerce GSTIN", "Rate", "Taxable Value", "Cess Amount"},
                      entries, [](const Entry& e, const std::string& rate, const std::string& taxable) {
                          return CSV::Row{e.gstin,
                                          e.party,
                                          e.number,
                                          dateText(e.date),
                                          decimal(e.value),
                                          placeText(e.place),
                                          "N",
                                          "",
                                          invoiceType(e.supply),
                                          "",
                                          rate,
                                          taxable,
                                          noCess};
                      });
}

CSV b2cl(const std::vector<Entry>& entries) {
    return entriesCSV(
        {"Invoice Number", "Invoice date", "Invoice Value", "Place Of Supply", "Applicable % of Tax Rate", "Rate",
         "Taxable Value", "Cess Amount", "E-Commerce GSTIN"},
        entries, [](const Entry& e, const std::string& rate, const std::string& taxable) {
            return CSV::Row{e.number, dateText(e.date), decimal(e.value), placeText(e.place), "", rate, taxable, noCess,
                            ""};
        });
}

CSV b2cs(const std::vector<ConsumerRow>& rows) {
    CSV csv({"Type", "Place Of Supply", "Rate", "Applicable % of Tax Rate", "Taxable Value", "Cess Amount",
             "E-Commerce GSTIN"});
    for (const ConsumerRow& row : rows)
        csv.add({"OE", placeText(row.place), rateText(row.rateBP), "", decimal(row.taxable), noCess, ""});
    return csv;
}

CSV exports(const std::vector<Entry>& entries) {
    return entriesCSV({"Export Type", "Invoice Number", "Invoice date", "Invoice Value", "Port Code",
                       "Shipping Bill Number", "Shipping Bill Date", "Rate", "Taxable Value", "Cess Amount"},
                      entries, [](const Entry& e, const std::string& rate, const std::string& taxable) {
                          return CSV::Row{e.supply == SupplyType::exportLUT ? "WOPAY" : "WPAY",
                                          e.number,
                                          dateText(e.date),
                                          decimal(e.value),
                                          "",
                                          "",
                                          "",
                                          rate,
                                          taxable,
                                          noCess};
                      });
}

CSV cdnr(const std::vector<Entry>& entries) {
    return entriesCSV({"GSTIN/UIN of Recipient", "Receiver Name", "Note Number", "Note Date", "Note Type",
                       "Place Of Supply", "Reverse Charge", "Note Supply Type", "Note Value",
                       "Applicable % of Tax Rate", "Rate", "Taxable Value", "Cess Amount"},
                      entries, [](const Entry& e, const std::string& rate, const std::string& taxable) {
                          return CSV::Row{e.gstin,
                                          e.party,
                                          e.number,
                                          dateText(e.date),
                                          "C",
                                          placeText(e.place),
                                          "N",
                                          invoiceType(e.supply),
                                          decimal(e.value),
                                          "",
                                          rate,
                                          taxable,
                                          noCess};
                      });
}

CSV cdnur(const std::vector<Entry>& entries) {
    return entriesCSV({"UR Type", "Note Number", "Note Date", "Note Type", "Place Of Supply", "Note Value",
                       "Applicable % of Tax Rate", "Rate", "Taxable Value", "Cess Amount"},
                      entries, [](const Entry& e, const std::string& rate, const std::string& taxable) {
                          return CSV::Row{noteType(e),
                                          e.number,
                                          dateText(e.date),
                                          "C",
                                          GSTFigures::isExport(e.supply) ? "" : placeText(e.place),
                                          decimal(e.value),
                                          "",
                                          rate,
                                          taxable,
                                          noCess};
                      });
}

CSV nilRated(const std::vector<NilRow>& rows) {
    CSV csv({"Description", "Nil Rated Supplies", "Exempted(other than nil rated/non GST supply)", "Non-GST Supplies"});
    for (const bool registered : {true, false})
        for (const SupplyType supply : {SupplyType::interState, SupplyType::intraState}) {
            std::int64_t taxable = 0;
            for (const NilRow& row : rows)
                if (row.supply == supply && row.registered == registered) taxable = row.taxable;
            std::string text = supply == SupplyType::interState ? "Inter" : "Intra";
            text.append("-State supplies to ").append(registered ? "registered" : "unregistered").append(" persons");
            csv.add({text, decimal(taxable), decimal(0), decimal(0)});
        }
    return csv;
}

CSV hsn(const std::vector<HSNRow>& rows) {
    CSV csv({"HSN", "Description", "UQC", "Total Quantity", "Total Value", "Rate", "Taxable Value",
             "Integrated Tax Amount", "Central Tax Amount", "State/UT Tax Amount", "Cess Amount"});
    for (const HSNRow& row : rows)
        csv.add({row.code, row.description, unitText(row.unit), decimal(MoneyMath::mulDiv(row.qtyMilli, 1, 10)),
                 decimal(Checked::add(row.taxable, row.tax.total())), rateText(row.rateBP), decimal(row.taxable),
                 decimal(row.tax.igst), decimal(row.tax.cgst), decimal(row.tax.sgst), noCess});
    return csv;
}

CSV documents(const std::vector<NumberRun>& runs) {
    CSV csv({"Nature of Document", "Sr. No. From", "Sr. No. To", "Total Number", "Cancelled"});
    for (const NumberRun& run : runs)
        csv.add({run.kind == DocKind::invoice ? "Invoices for outward supply" : "Credit Note", run.from, run.to,
                 std::to_string(run.used), std::to_string(run.cancelled)});
    return csv;
}

}  // namespace

std::vector<Section> gstr1Sections(const GSTR1& outward) {
    const bool split = GSTRules::value(GSTRules::Rule::hsnSplit, outward.period.to) != 0;
    std::vector<Section> sections;
    const auto add = [&sections](const char* fileName, CSV csv, bool isEmpty) {
        if (!isEmpty) sections.push_back({fileName, std::move(csv)});
    };
    add("b2b,sez,de.csv", b2b(outward.b2b), outward.b2b.empty());
    add("b2cl.csv", b2cl(outward.b2cl), outward.b2cl.empty());
    add("b2cs.csv", b2cs(outward.b2cs), outward.b2cs.empty());
    add("exp.csv", exports(outward.exports), outward.exports.empty());
    add("cdnr.csv", cdnr(outward.cdnr), outward.cdnr.empty());
    add("cdnur.csv", cdnur(outward.cdnur), outward.cdnur.empty());
    add("exemp.csv", nilRated(outward.nilRated), outward.nilRated.empty());
    add(split ? "hsn(b2b).csv" : "hsn.csv", hsn(outward.hsnB2B), outward.hsnB2B.empty());
    add("hsn(b2c).csv", hsn(outward.hsnB2C), outward.hsnB2C.empty());
    add("docs.csv", documents(outward.numbers), outward.numbers.empty());
    return sections;
}

}  // namespace tamba::ReportTables
