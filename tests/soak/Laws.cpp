#include "tests/soak/Laws.h"

#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Documents/DocumentCheck.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Model/Changes.h"
#include "TambaCore/Model/LibraryCheck.h"
#include "TambaCore/Reports/Breakdowns.h"
#include "TambaCore/Reports/Reports.h"

#include <map>
#include <unordered_map>

namespace tamba::soak {
namespace {

class Laws {
public:
    explicit Laws(const Library& library) : library_(library) {}

    std::vector<Fault> run(const LibraryStore& store) {
        for (const auto& problem : LibraryCheck::check(library_, store).problems) take(problem);
        for (const auto& problem : DocumentCheck::problems(library_)) take(problem);
        for (const Document& document : library_.documents) look(document);
        for (const Expense& expense : library_.expenses) look(expense);
        lookAtBank();
        lookAtBilling();
        return std::move(faults_);
    }

private:
    void fault(const UUID& id, const std::string& sentence, bool fromMeeting = false) {
        faults_.push_back({sentence + " " + id.text(), sentence + " (" + id.text() + ")", fromMeeting});
    }
    void need(bool holds, const UUID& id, const char* sentence) {
        if (!holds) fault(id, sentence);
    }
    void take(const LibraryCheck::Problem& problem) {
        using Kind = LibraryCheck::Kind;
        const bool fromMeeting = problem.kind == Kind::duplicateNumber || problem.kind == Kind::overSettled ||
                                 problem.kind == Kind::missingFile || problem.kind == Kind::billedTwice;
        faults_.push_back({std::string(word(problem.kind)) + " " + problem.id, problem.sentence, fromMeeting});
    }

    void look(const Document& document) {
        need(document.number.has_value() == (document.state != DocState::draft), document.id, "Number and state");
        if (!DocMath::isBelievable(document)) return fault(document.id, "A document beyond belief");
        const DocTotals totals = DocMath::totals(document), sums = DocMath::sums(document);
        std::int64_t gross = 0, discount = 0, taxable = 0, byRate = 0, byCode = 0;
        TaxSplit tax, rateTax, codeTax;
        for (const LineTotals& line : totals.lines) {
            gross += line.gross, discount += line.discount, taxable += line.taxable;
            tax = tax + line.tax;
            need(line.taxable == line.gross - line.discount && line.taxable >= 0, document.id, "A line’s figures");
        }
        for (const RateGroup& group : totals.byRate) byRate += group.taxable, rateTax = rateTax + group.tax;
        for (const HSNGroup& group : totals.byHSN) byCode += group.taxable, codeTax = codeTax + group.tax;
        need(totals.subtotal == gross && totals.discount == discount && totals.taxable == taxable && totals.tax == tax,
             document.id, "The lines do not come to the document");
        need(byRate == taxable && byCode == taxable && rateTax == tax && codeTax == tax, document.id,
             "Rates or codes do not come to the document");
        need(totals.total == taxable + tax.total() + totals.roundOff && sums.total == totals.total, document.id,
             "Taxable, tax and round-off do not come to the total");
        need(std::abs(totals.roundOff) < Currency::of(document.currency).scale() &&
                 (document.roundOff || totals.roundOff == 0),
             document.id, "The round-off is no rounding");
        if (document.kind != DocKind::invoice || !document.isIssued()) return;
        const std::int64_t balance = Books::balance(library_, document),
                           credits = Books::credits(library_, document.id);
        need(balance == totals.total - credits - Books::paid(document), document.id, "The balance does not add up");
        if (balance < 0 && credits == 0) fault(document.id, "A refund without a credit note", true);
        const auto standing = standings_.of(document);
        need(standing && standing->balance == balance && standing->credited == credits, document.id,
             "Standings and balance differ");
    }

    void look(const Expense& expense) {
        const TaxSplit& split = expense.taxSplit;
        need(split == TaxSplit{} || split.total() == expense.tax, expense.id, "The parts of a tax do not come to it");
    }

    /// A line names its expense or its first payment, each of which names the line.
    void lookAtBank() {
        std::unordered_map<UUID, const BankTransaction*> lines;
        for (const BankTransaction& line : library_.transactions) lines.emplace(line.id, &line);
        std::unordered_map<UUID, std::int64_t> taken;
        for (const Expense& expense : library_.expenses) {
            if (!expense.bankTxnID) continue;
            const auto line = lines.find(*expense.bankTxnID);
            need(line != lines.end() && line->second->expenseID == expense.id, expense.id,
                 "An expense’s bank line does not name it");
        }
        std::unordered_map<UUID, const Payment*> payments;
        for (const Document& invoice : library_.documents)
            for (const Payment& payment : invoice.payments) {
                payments.emplace(payment.id, &payment);
                if (!payment.bankTxnID) continue;
                const auto line = lines.find(*payment.bankTxnID);
                need(line != lines.end() && line->second->paymentID && !line->second->expenseID, invoice.id,
                     "A payment’s bank line does not name a payment");
                if (line != lines.end() && invoice.currency == Bank::currency(library_, *line->second).code)
                    taken[line->first] += payment.amount;
            }
        const auto rests = Bank::partlyMatched(library_);
        for (const BankTransaction& line : library_.transactions) {
            need(!(line.expenseID && line.paymentID) && !(line.ignored && line.isMatched()), line.id,
                 "A bank line is two things at once");
            if (const Expense* expense = line.expenseID ? library_.expense(*line.expenseID) : nullptr)
                need(expense->bankTxnID == line.id, line.id, "A bank line’s expense does not name it");
            if (const auto paid = line.paymentID ? payments.find(*line.paymentID) : payments.end();
                paid != payments.end())
                need(paid->second->bankTxnID == line.id, line.id, "A bank line’s payment does not name it");
            const std::int64_t rest = Bank::unassigned(library_, line);
            const auto open = rests.find(line.id);
            need((open == rests.end() ? 0 : open->second) == (line.isMatched() ? rest : 0), line.id,
                 "A bank line that is matched in part");
            need(rest >= 0 && rest <= std::max<std::int64_t>(line.amount, 0), line.id, "What is left of a bank line");
            if (taken[line.id] > std::max<std::int64_t>(line.amount, 0))
                fault(line.id, "A bank line pays more than it is", true);
        }
    }

    void lookAtBilling() {
        std::unordered_map<UUID, std::set<UUID>> invoices;
        for (const Document& document : library_.documents)
            if (document.kind == DocKind::invoice && document.state != DocState::void_)
                for (const Line& line : document.lines)
                    if (line.expenseID) invoices[*line.expenseID].insert(document.id);
        for (const Expense& expense : library_.expenses) {
            const auto& billed = invoices[expense.id];
            need(expense.rebilledInvoiceID ? billed.contains(*expense.rebilledInvoiceID) : billed.empty(), expense.id,
                 "An expense’s mark and the lines that bill it disagree");
        }
    }

    const Library& library_;
    const Books::Standings standings_{library_, Day{2026, 11, 20}};
    std::vector<Fault> faults_;
};

std::string what(const Document& old, const Document* kept) {
    return kept ? Text::join(changedFields(old, *kept), "; ") : "it is gone";
}

}  // namespace

std::vector<Fault> faultsOf(const Library& library, const LibraryStore& store) { return Laws(library).run(store); }

std::vector<Fault> reportFaults(const Library& library, Day today) {
    std::vector<Fault> faults;
    const auto same = [&](std::int64_t parts, std::int64_t whole, const char* sentence) {
        if (parts != whole)
            faults.push_back(
                {sentence, std::string(sentence) + ": " + std::to_string(parts) + ", " + std::to_string(whole)});
    };
    const Reports reports{library, today};
    const FinancialYear year = library.fy(today);
    const Period period = Period::fy(year);
    for (const IncomeBasis basis : allIncomeBases()) {
        std::int64_t income = 0, spent = 0;
        for (const MonthRow& month : reports.months(basis, year)) income += month.income, spent += month.expenses;
        same(income, reports.income(basis, period), "The months do not come to the year’s income");
        same(spent, reports.spending(period), "The months do not come to the year’s spending");
    }
    std::int64_t spent = 0, earned = 0, cost = 0, owed = 0, overpaid = 0;
    for (const CategoryRow& row : reports.byCategory(period)) spent += row.amount;
    same(spent, reports.spending(period), "The categories do not come to the spending");
    for (const auto& row : Breakdowns::projects(library, period)) earned += row.income, cost += row.expenses;
    same(earned, reports.income(IncomeBasis::accrual, period), "The projects do not come to the income");
    same(cost, reports.spending(period), "The projects do not come to the spending");
    for (const AgingRow& row : reports.aging()) owed += row.amount;
    for (const Document* invoice : reports.issuedInvoices()) {
        const std::int64_t balance = Books::balance(library, *invoice);
        if (balance < 0) overpaid += Books::inHomeCurrency(library, *invoice, balance).value_or(0);
    }
    same(owed + overpaid, reports.outstanding(), "The ages do not come to what is owed");
    return faults;
}

std::set<UUID> payments(const Library& library) {
    std::set<UUID> ids;
    for (const Document& document : library.documents)
        for (const Payment& payment : document.payments) ids.insert(payment.id);
    return ids;
}

std::vector<LostPaper> lostPaper(const Library& before, const Library& after) {
    std::vector<LostPaper> faults;
    std::unordered_map<UUID, const Document*> now;
    for (const Document& document : after.documents) now.emplace(document.id, &document);
    for (const Document& old : before.documents) {
        if (!old.number) continue;
        const auto place = now.find(old.id), apart = now.find(UUID::derived(old.id, *old.number));
        // Of a draft that two machines issued with two numbers, one became a document of its own.
        const Document* kept = apart != now.end() ? apart->second : place != now.end() ? place->second : nullptr;
        if (!kept || kept->number != old.number || kept->lines != old.lines || kept->billTo != old.billTo ||
            kept->seller != old.seller || kept->issueDate != old.issueDate || kept->rateMicros != old.rateMicros ||
            kept->currency != old.currency || kept->supply != old.supply || kept->roundOff != old.roundOff)
            faults.push_back({old.id, *old.number + " is not as it was issued: " + what(old, kept)});
        else if (old.state == DocState::void_ && kept->state != DocState::void_)
            faults.push_back({old.id, *old.number + " was void and stands again", true});
    }
    return faults;
}

}  // namespace tamba::soak
