#include "TambaCore/Reports/BookTables.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/BookCells.h"
#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/Reports.h"
#include "TambaCore/Reports/Sum.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace tamba::BookTables {
namespace {

using namespace BookCells;

bool isNumbered(const Document& document, DocKind kind) {
    return document.kind == kind && (document.state == DocState::issued || document.state == DocState::void_);
}

/// Issued and void ones of the period, by date and number.
std::vector<const Document*> documentsOf(const Library& library, DocKind kind, const Period& period) {
    std::vector<const Document*> result;
    for (const Document& document : library.documents)
        if (isNumbered(document, kind) && period.contains(document.issueDate)) result.push_back(&document);
    std::stable_sort(result.begin(), result.end(), [](const Document* a, const Document* b) {
        return std::tie(a->issueDate, a->number, a->id) < std::tie(b->issueDate, b->number, b->id);
    });
    return result;
}

/// Figures of a document as cells: none where they are beyond belief, 0 on a void one.
class Figures {
public:
    Figures(const Library& library, const Document& document)
        : library_(library), document_(document), isKnown_(DocMath::isBelievable(document)) {
        if (isKnown_ && document.state != DocState::void_) sums_ = DocMath::sums(document);
    }
    [[nodiscard]] const DocTotals& sums() const { return sums_; }
    [[nodiscard]] Table::Cell own(std::int64_t amount) const {
        return isKnown_ ? Table::Cell(amountOf(document_.currency, amount)) : Table::Cell();
    }
    [[nodiscard]] Table::Cell home(std::int64_t amount) const {
        return homeCell(library_, isKnown_ ? Books::inHomeCurrency(library_, document_, amount) : std::nullopt);
    }

private:
    const Library& library_;
    const Document& document_;
    bool isKnown_;
    DocTotals sums_;
};

void addFigureColumns(Table& table, const Library& library) {
    table.columns.insert(table.columns.end(), {{"Currency"}, {"Exchange rate"}});
    for (const char* title : {"Taxable", "CGST", "SGST", "IGST", "Other tax", "Round-off", "Total"})
        table.columns.push_back({title, Kind::amount});
    for (const char* title : {"Taxable", "Total"}) table.columns.push_back(homeColumn(library, title));
}

void addFigures(Table::Row& row, const Document& document, const Figures& figures) {
    const DocTotals& sums = figures.sums();
    row.cells.insert(row.cells.end(), {document.currency, rateText(document.rateMicros)});
    for (const std::int64_t amount :
         {sums.taxable, sums.tax.cgst, sums.tax.sgst, sums.tax.igst, sums.tax.other, sums.roundOff, sums.total})
        row.cells.push_back(figures.own(amount));
    for (const std::int64_t amount : {sums.taxable, sums.total}) row.cells.push_back(figures.home(amount));
}

/// Payments with their invoices, those of the period by date.
std::vector<std::pair<const Payment*, const Document*>> paymentsOf(const Library& library, const Period& period) {
    std::vector<std::pair<const Payment*, const Document*>> result;
    for (const Document& invoice : library.documents)
        if (invoice.kind == DocKind::invoice && invoice.state == DocState::issued)
            for (const Payment& payment : invoice.payments)
                if (period.contains(payment.date)) result.emplace_back(&payment, &invoice);
    std::stable_sort(result.begin(), result.end(), [](const auto& a, const auto& b) {
        return std::tie(a.first->date, a.second->number, a.first->id) <
               std::tie(b.first->date, b.second->number, b.first->id);
    });
    return result;
}

std::string taxID(const Library& library, const Document& document) {
    return GSTFigures::party(library, document).taxID;
}

std::string pan(const std::string& taxID) { return GSTIN::isValid(taxID) ? GSTIN::pan(taxID).value_or("") : ""; }

}  // namespace

std::string placeOfSupply(const Library& library, const Document& document) {
    if (GSTFigures::isExport(document.supply)) return "96 · Outside India";
    if (!isIndia(library.business.regime) || document.supply == SupplyType::simple) return "";
    return TableParts::place(GSTFigures::place(library, document));
}

Table invoices(const Library& library, const Period& period, Day today) {
    Table table;
    table.title = "Invoices";
    table.subtitle = period.label();
    table.columns = {{"Number"}, {"Date", Kind::day}, {"Due", Kind::day}, {"Client"},
                     {"GSTIN"},  {"Place of supply"}, {"Supply"},         {"Reference"}};
    addFigureColumns(table, library);
    for (const char* title : {"Received", "TDS", "Credited", "Balance"}) table.columns.push_back({title, Kind::amount});
    table.columns.push_back({"Status"});
    const Books::Standings standings(library, today);
    for (const Document* invoice : documentsOf(library, DocKind::invoice, period)) {
        const Figures figures(library, *invoice);
        const auto standing = standings.of(*invoice);
        Table::Row row;
        row.cells = {invoice->displayNumber(),
                     invoice->issueDate,
                     invoice->dueDate,
                     clientNameOf(library, *invoice),
                     taxID(library, *invoice),
                     placeOfSupply(library, *invoice),
                     std::string(title(invoice->supply)),
                     invoice->reference};
        addFigures(row, *invoice, figures);
        if (standing && invoice->state == DocState::issued)
            for (const std::int64_t amount :
                 {Checked::sub(standing->paid, standing->tds), standing->tds, standing->credited, standing->balance})
                row.cells.push_back(figures.own(amount));
        else
            row.cells.insert(row.cells.end(), 4, figures.own(0));
        row.cells.emplace_back(std::string(Books::title(Books::status(library, *invoice, today))));
        row.documentIDs = {invoice->id};
        table.rows.push_back(std::move(row));
    }
    return table;
}

Table invoiceLines(const Library& library, const Period& period) {
    Table table;
    table.title = "Invoice lines";
    table.subtitle = period.label();
    table.columns = {{"Number"},
                     {"Date", Kind::day},
                     {"Line", Kind::count},
                     {"Description"},
                     {"Detail"},
                     {"HSN/SAC"},
                     {"Quantity", Kind::quantity},
                     {"Unit"},
                     {"Currency"},
                     {"Price", Kind::amount},
                     {"Discount, %", Kind::percent},
                     {"Taxable", Kind::amount},
                     {"Rate, %", Kind::percent}};
    for (const char* title : {"CGST", "SGST", "IGST", "Other tax"}) table.columns.push_back({title, Kind::amount});
    for (const Document* invoice : documentsOf(library, DocKind::invoice, period)) {
        if (invoice->state == DocState::void_) continue;
        const Figures figures(library, *invoice);
        const bool isKnown = DocMath::isBelievable(*invoice);
        std::int64_t number = 0;
        for (const Line& line : invoice->lines) {
            const LineTotals totals = isKnown ? DocMath::line(line, invoice->supply) : LineTotals();
            Table::Row row;
            row.cells = {invoice->displayNumber(),
                         invoice->issueDate,
                         ++number,
                         line.name,
                         line.detail,
                         line.hsn,
                         line.qtyMilli,
                         line.unit,
                         invoice->currency,
                         amountOf(invoice->currency, line.priceMinor),
                         std::int64_t{line.discountBP},
                         figures.own(totals.taxable),
                         std::int64_t{line.taxBP}};
            for (const std::int64_t amount : {totals.tax.cgst, totals.tax.sgst, totals.tax.igst, totals.tax.other})
                row.cells.push_back(figures.own(amount));
            row.documentIDs = {invoice->id};
            table.rows.push_back(std::move(row));
        }
    }
    return table;
}

Table creditNotes(const Library& library, const Period& period) {
    Table table;
    table.title = "Credit notes";
    table.subtitle = period.label();
    table.columns = {{"Number"}, {"Date", Kind::day}, {"Invoice"},         {"Invoice date", Kind::day},
                     {"Client"}, {"GSTIN"},           {"Place of supply"}, {"Supply"},
                     {"Reason"}};
    addFigureColumns(table, library);
    table.columns.push_back({"Status"});
    for (const Document* note : documentsOf(library, DocKind::creditNote, period)) {
        const Document* invoice = note->linkedID ? library.document(*note->linkedID) : nullptr;
        Table::Row row;
        row.cells = {note->displayNumber(),
                     note->issueDate,
                     invoice ? invoice->displayNumber() : "",
                     invoice ? Table::Cell(invoice->issueDate) : Table::Cell(),
                     clientNameOf(library, *note),
                     taxID(library, *note),
                     placeOfSupply(library, *note),
                     std::string(title(note->supply)),
                     note->reason};
        addFigures(row, *note, Figures(library, *note));
        row.cells.emplace_back(note->state == DocState::void_ ? "Void" : "Applied");
        row.documentIDs = {note->id};
        table.rows.push_back(std::move(row));
    }
    return table;
}

Table payments(const Library& library, const Period& period) {
    std::unordered_map<UUID, const BankTransaction*> lines;
    for (const BankTransaction& line : library.transactions) lines.emplace(line.id, &line);
    Table table;
    table.title = "Payments";
    table.subtitle = period.label();
    table.columns = {{"Date", Kind::day},
                     {"Client"},
                     {"Invoice"},
                     {"Invoice date", Kind::day},
                     {"Currency"},
                     {"Exchange rate"},
                     {"Received", Kind::amount},
                     {"TDS", Kind::amount},
                     homeColumn(library, "Received"),
                     homeColumn(library, "TDS"),
                     {"Method"},
                     {"Reference"},
                     {"Bank line"}};
    for (const auto& [payment, invoice] : paymentsOf(library, period)) {
        const auto line = payment->bankTxnID ? lines.find(*payment->bankTxnID) : lines.end();
        const Figures figures(library, *invoice);
        table.rows.push_back(
            {{payment->date, clientNameOf(library, *invoice), invoice->displayNumber(), invoice->issueDate,
              invoice->currency, rateText(invoice->rateMicros), figures.own(payment->amount), figures.own(payment->tds),
              figures.home(payment->amount), figures.home(payment->tds), methodName(payment->method),
              payment->reference, line == lines.end() ? "" : line->second->date.iso() + " " + line->second->text},
             {invoice->id},
             {}});
    }
    return table;
}

Table clients(const Library& library, const Period& period) {
    struct Group {
        std::string name, taxID;
        std::int64_t invoices = 0;
        Sum taxable, invoiced, received, tds;
        std::vector<UUID> documentIDs;
    };
    std::map<std::string, Group> groups;  // by client, or by name where the document names none
    const auto groupOf = [&](const Document& document) -> Group& {
        const bool isKnown = document.clientID && library.client(*document.clientID);
        const std::string name = clientNameOf(library, document);
        Group& group = groups[isKnown ? document.clientID->text() : "name " + name];
        if (group.name.empty()) group.name = name, group.taxID = taxID(library, document);
        if (group.documentIDs.empty() || group.documentIDs.back() != document.id)
            group.documentIDs.push_back(document.id);
        return group;
    };
    for (const DocKind kind : {DocKind::invoice, DocKind::creditNote})
        for (const Document* document : documentsOf(library, kind, period)) {
            if (document->state == DocState::void_ || !DocMath::isBelievable(*document)) continue;
            const DocTotals sums = DocMath::sums(*document);
            const auto taxable = Books::inHomeCurrency(library, *document, sums.taxable),
                       total = Books::inHomeCurrency(library, *document, sums.total);
            if (!taxable || !total) continue;
            Group& group = groupOf(*document);
            if (kind == DocKind::invoice) {
                ++group.invoices;
                group.taxable.add(*taxable), group.invoiced.add(*total);
            } else {
                group.taxable.subtract(*taxable), group.invoiced.subtract(*total);
            }
        }
    for (const auto& [payment, invoice] : paymentsOf(library, period)) {
        if (!DocMath::isBelievable(*invoice)) continue;
        const auto received = Books::inHomeCurrency(library, *invoice, payment->amount),
                   tds = Books::inHomeCurrency(library, *invoice, payment->tds);
        if (!received || !tds) continue;
        Group& group = groupOf(*invoice);
        group.received.add(*received), group.tds.add(*tds);
    }
    std::vector<const Group*> sorted;
    for (const auto& [key, group] : groups) sorted.push_back(&group);
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Group* a, const Group* b) { return Text::compareForPeople(a->name, b->name) < 0; });
    const TableParts::Home home(library);
    Table table;
    table.title = "Clients";
    table.subtitle = period.label();
    table.columns = {{"Client"},
                     {"GSTIN"},
                     {"PAN"},
                     {"Invoices", Kind::count},
                     {"Taxable less credit notes", Kind::amount},
                     {"Invoiced less credit notes", Kind::amount},
                     {"Received", Kind::amount},
                     {"TDS", Kind::amount}};
    for (const Group* group : sorted)
        table.rows.push_back(
            {{group->name, group->taxID, pan(group->taxID), group->invoices, home(group->taxable.value()),
              home(group->invoiced.value()), home(group->received.value()), home(group->tds.value())},
             group->documentIDs,
             {}});
    return table;
}

Library asOf(Library library, Day day) {
    const auto isLater = [&day](const Payment& payment) { return payment.date > day; };
    List<Document> kept;
    for (std::size_t i = 0; i < library.documents.size(); ++i)
        if (library.documents[i].state == DocState::draft || library.documents[i].issueDate <= day)
            kept.append(library.documents.at(i));
    for (std::size_t i = 0; i < kept.size(); ++i)
        if (std::any_of(kept[i].payments.begin(), kept[i].payments.end(), isLater))
            kept.update(i, [&](Document& d) { std::erase_if(d.payments, isLater); });
    library.documents = std::move(kept);
    return library;
}

}  // namespace tamba::BookTables
