#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Reports/Breakdowns.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/Reports.h"
#include "TambaCore/Reports/Sum.h"
#include "TambaCore/Reports/TableParts.h"
#include "TambaCore/Reports/YearEnd.h"

#include <algorithm>
#include <utility>

namespace tamba::YearEnd {
namespace {

using SummaryPDF::Section;
using SummaryPDF::Sheet;

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

/// " · 1.8%"; nothing of nothing.
std::string share(std::int64_t part, std::int64_t whole) {
    if (part < 1 || part > whole) return "";
    return " · " + MoneyFormat::rate(10 * MoneyMath::mulDiv(part, 1000, whole));
}

/// The books of one year, with what the sections ask of them.
class Year {
public:
    Year(const Library& books, const FinancialYear& year, Day closed)
        : books_(books), period_(Period::fy(year)), reports_{books, closed} {}

    [[nodiscard]] Section business() const {
        const Business& business = books_.business;
        Section section{"Business"};
        const auto add = [&section](const char* label, const std::string& value) {
            if (!Text::trim(value).empty()) section.lines.emplace_back(label, value);
        };
        const std::string gstin = GSTIN::clean(business.taxID);
        const bool indian = isIndia(business.regime);
        const auto state = business.isIndia() ? business.supplierState() : std::nullopt;
        add("Tax", std::string(title(business.regime)));
        add(indian ? "GSTIN" : "Tax number", indian ? gstin : business.taxID);
        add("PAN", business.pan.empty() && GSTIN::isValid(gstin) ? GSTIN::pan(gstin).value_or("") : business.pan);
        add("State", state ? TableParts::place(*state) : "");
        add("Amounts in", books_.home().code);
        return section;
    }

    [[nodiscard]] Section profit() const {
        const std::int64_t invoiced = reports_.income(IncomeBasis::accrual, period_),
                           received = reports_.income(IncomeBasis::cash, period_), spent = reports_.spending(period_);
        return {"Profit and loss",
                {{"Income by invoice date", money(invoiced)},
                 {"Income by payment received", money(received)},
                 {"Expenses", money(spent)},
                 {"Profit by invoice date", money(Checked::sub(invoiced, spent))},
                 {"Profit by payment received", money(Checked::sub(received, spent))}}};
    }

    /// Gross receipts and the share of cash in them decide whether a presumptive return is open (Income-tax Act 2025,
    /// section 58).
    [[nodiscard]] Section receipts() const {
        Sum received, cash, tds;
        for (const Document* invoice : reports_.issuedInvoices())
            for (const Payment& payment : invoice->payments) {
                if (!period_.contains(payment.date) || !DocMath::isBelievable(*invoice)) continue;
                const auto amount = Books::inHomeCurrency(books_, *invoice, payment.amount),
                           deducted = Books::inHomeCurrency(books_, *invoice, payment.tds);
                if (!amount || !deducted) continue;
                received.add(*amount), tds.add(*deducted);
                if (payment.method == PaymentMethod::cash || payment.method == PaymentMethod::pettyCash)
                    cash.add(*amount);
            }
        return {"Money received",
                {{"From clients, tax included", money(received.value())},
                 {"Of this in cash", money(cash.value()) + share(cash.value(), received.value())},
                 {"Tax deducted by clients (TDS)", money(tds.value())}}};
    }

    [[nodiscard]] Section spending() const {
        constexpr std::size_t most = 10;
        Section section{"Expenses by category"};
        const auto rows = reports_.byCategory(period_);
        Sum rest;
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (i < most)
                section.lines.emplace_back(rows[i].name, money(rows[i].amount));
            else
                rest.add(rows[i].amount);
        if (rows.size() > most)
            section.lines.emplace_back(counted(rows.size() - most, "other", "others"), money(rest.value()));
        return section;
    }

    [[nodiscard]] std::vector<Section> tax(const Schemes& schemes) const {
        std::vector<Section> sections;
        if (schemes.regular) {
            const auto returned = GSTReturns::gstr3b(*schemes.regular, GSTReturns::gstr1(*schemes.regular, period_));
            const std::int64_t charged = (returned.taxed.tax + returned.zeroRated.tax).total(),
                               claimed = returned.credit.total();
            sections.push_back({"GST",
                                {{"Taxable supplies", money(returned.taxed.taxable)},
                                 {"Exports and SEZ", money(returned.zeroRated.taxable)},
                                 {"Nil-rated or exempt", money(returned.nilRated)},
                                 {"Tax charged", money(charged)},
                                 {"Tax claimed on expenses", money(claimed)},
                                 {"Charged less claimed", money(Checked::sub(charged, claimed))}}});
        }
        if (schemes.composition) {
            const auto turnover = GSTReturns::composition(*schemes.composition, period_);
            sections.push_back({schemes.regular ? "Without GST" : "Composition scheme",
                                {{"Turnover of bills of supply", money(turnover.turnover)}}});
        }
        if (books_.business.regime == TaxRegime::simple) sections.push_back(salesTax());
        return sections;
    }

    [[nodiscard]] Section owed() const {
        Section section{"Owed by clients on " + reports_.today.formatted("d MMM yyyy")};
        for (const AgingRow& row : reports_.aging()) section.lines.emplace_back(row.label, money(row.amount));
        section.lines.emplace_back("Total", money(reports_.outstanding()));
        return section;
    }

    [[nodiscard]] Section documents(std::size_t receipts, std::size_t missing) const {
        std::size_t issued = 0, voided = 0, notes = 0, drafts = 0;
        for (const Document& document : books_.documents) {
            if (document.kind == DocKind::estimate || !period_.contains(document.issueDate)) continue;
            if (document.state == DocState::draft) ++drafts;
            if (document.state == DocState::void_) ++voided;
            if (document.state == DocState::issued) ++(document.kind == DocKind::invoice ? issued : notes);
        }
        const std::string present = std::to_string(receipts - missing);
        return {"Records",
                {{"Invoices issued", std::to_string(issued)},
                 {"Credit notes issued", std::to_string(notes)},
                 {"Void", std::to_string(voided)},
                 {"Drafts, not counted", std::to_string(drafts)},
                 {"Expenses", std::to_string(reports_.expenses(period_).size())},
                 {"Receipts", missing == 0 ? present : present + " of " + std::to_string(receipts)}}};
    }

    void addNotes(std::vector<std::string>& notes, const Schemes& schemes) const {
        const LeftOut leftOut = reports_.leftOut(period_);
        constexpr auto why = " is left out: no exchange rate, or a figure that can’t be right.";
        for (const UUID& id : leftOut.documents) {
            const Document& document = *books_.document(id);
            notes.push_back(std::string(Books::title(document.kind)) + " " + document.displayNumber() + why);
        }
        for (const UUID& id : leftOut.expenses) {
            const Expense& expense = *books_.expense(id);
            notes.push_back("The expense of " + expense.date.formatted("d MMM yyyy") + ", " +
                            (expense.vendor.empty() ? "no vendor" : expense.vendor) + "," + why);
        }
        if (schemes.regular) {
            const auto outward = GSTReturns::gstr1(*schemes.regular, period_);
            for (const auto& problem : GSTReturns::problems(*schemes.regular, outward))
                notes.push_back("GST: " + problem.sentence);
            const auto returned = GSTReturns::gstr3b(*schemes.regular, outward);
            for (const std::string& note : TableParts::creditNotes(returned, books_.home()))
                notes.push_back("GST: " + note);
        }
        std::size_t bare = 0, doubtful = 0;
        for (const Expense* expense : reports_.expenses(period_)) {
            if (expense->attachments.empty() && expense->kind == ExpenseKind::regular) ++bare;
            if (expense->check) ++doubtful;
        }
        if (bare > 0) notes.push_back(counted(bare, "expense has", "expenses have") + " no receipt.");
        if (doubtful > 0)
            notes.push_back(counted(doubtful, "expense was", "expenses were") +
                            " read from a receipt and not looked at yet.");
    }

private:
    [[nodiscard]] std::string money(std::int64_t amount) const { return MoneyFormat::string(amount, books_.home()); }

    [[nodiscard]] Section salesTax() const {
        Sum charged, claimed;
        for (const Document& document : books_.documents) {
            if (document.kind == DocKind::estimate || document.state != DocState::issued ||
                !period_.contains(document.issueDate) || !DocMath::isBelievable(document))
                continue;
            const auto tax = Books::inHomeCurrency(books_, document, DocMath::sums(document).tax.total()).value_or(0);
            document.kind == DocKind::invoice ? charged.add(tax) : charged.subtract(tax);
        }
        for (const auto& row : Breakdowns::inputTax(books_, books_.fy(period_.from))) claimed.add(row.claimed.total());
        return {books_.business.displayTaxName(),
                {{"Tax charged", money(charged.value())},
                 {"Tax claimed on expenses", money(claimed.value())},
                 {"Charged less claimed", money(Checked::sub(charged.value(), claimed.value()))}}};
    }

    const Library& books_;
    Period period_;
    Reports reports_;
};

}  // namespace

Sheet summary(const Library& books, const FinancialYear& year, Day today, const std::vector<Receipt>& receipts,
              const Missing& missing) {
    const Day closed = closing(year, today);
    const Year figures(books, year, closed);
    const Schemes schemes = YearEnd::schemes(books, year);
    Sheet sheet;
    sheet.title = books.business.name.empty() ? "Books" : books.business.name;
    sheet.subtitle = "Year-end summary " + year.label() + " · " + Period::fy(year).label();
    sheet.accentHex = books.business.accentHex;
    sheet.left = {figures.business(), figures.profit(), figures.receipts(), figures.spending()};
    sheet.right = figures.tax(schemes);
    sheet.right.push_back(figures.owed());
    sheet.right.push_back(figures.documents(receipts.size(), missing.size()));
    sheet.notesTitle = "To look at";
    sheet.more = "more in Summary.txt";
    if (closed < year.end())
        sheet.notes.push_back("The year is not over: these are its figures up to " + closed.formatted("d MMM yyyy") +
                              ".");
    for (const Receipt& receipt : receipts)
        if (missing.contains(receipt.path))
            sheet.notes.push_back("The receipt of " + receipt.what + " is not where the books say: " + receipt.path);
    figures.addNotes(sheet.notes, schemes);
    return sheet;
}

std::string text(const Sheet& sheet) {
    constexpr std::size_t column = 40;
    std::string result = sheet.title + "\r\n" + sheet.subtitle + "\r\n";
    for (const auto* sections : {&sheet.left, &sheet.right})
        for (const Section& section : *sections) {
            result += "\r\n" + section.title + "\r\n";
            for (const auto& [label, value] : section.lines) {
                const std::size_t length = Text::length(label);
                result += "  " + label + std::string(length < column ? column - length : 1, ' ') + value + "\r\n";
            }
        }
    if (!sheet.notes.empty()) result += "\r\n" + sheet.notesTitle + "\r\n";
    for (const std::string& note : sheet.notes) result += "  " + note + "\r\n";
    return result;
}

}  // namespace tamba::YearEnd
