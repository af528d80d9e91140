#include "TambaCore/Reports/YearEnd.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Reports/BundleNames.h"
#include "TambaCore/Reports/ReportTables.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <tuple>
#include <utility>

namespace tamba::YearEnd {
namespace {

/// What all files of one bundle are made from.
struct Source {
    Library books;  ///< as of the closing day
    FinancialYear year;
    Period period;
    Day today;
    std::optional<Image> logo;
    std::vector<Receipt> receipts;

    [[nodiscard]] Day closed() const { return closing(year, today); }
    [[nodiscard]] Reports reports() const { return {books, closed()}; }
    /// What the tables call each receipt.
    [[nodiscard]] BookTables::FileNames names(const Missing& missing) const {
        BookTables::FileNames names;
        for (const Receipt& receipt : receipts)
            names[receipt.path] = missing.contains(receipt.path) ? "(missing)" : receipt.name;
        return names;
    }
};
using Shared = std::shared_ptr<const Source>;

std::vector<Receipt> receiptsOf(const Library& library, const Period& period, BundleNames& names) {
    std::vector<const Expense*> expenses;
    for (const Expense& expense : library.expenses)
        if (period.contains(expense.date) && !expense.attachments.empty()) expenses.push_back(&expense);
    std::stable_sort(expenses.begin(), expenses.end(), [](const Expense* a, const Expense* b) {
        return std::tie(a->date, a->vendor, a->id) < std::tie(b->date, b->vendor, b->id);
    });
    std::vector<Receipt> receipts;
    std::set<std::string> known;
    for (const Expense* expense : expenses)
        for (const Attachment& attachment : expense->attachments) {
            if (!known.insert(attachment.path).second) continue;
            const std::string what =
                expense->date.iso() + " " + (Text::trim(expense->vendor).empty() ? "Receipt" : expense->vendor);
            const std::string extension = std::filesystem::path(attachment.path).extension().string();
            const std::string amount = MoneyFormat::string(expense->amount, Currency::of(expense->currency));
            receipts.push_back({attachment.path, names.take("Receipts/", what, extension), what + ", " + amount});
        }
    return receipts;
}

Table profitTable(const Source& source) {
    const Reports reports = source.reports();
    Table table = ReportTables::profit(reports, IncomeBasis::accrual, source.year);
    const Table cash = ReportTables::profit(reports, IncomeBasis::cash, source.year);
    using Kind = Table::Kind;
    table.columns = {{"Month", Kind::month},
                     {"Income by invoice date", Kind::amount},
                     {"Income by payment received", Kind::amount},
                     {"Expenses", Kind::amount},
                     {"Profit by invoice date", Kind::amount},
                     {"Profit by payment received", Kind::amount}};
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        auto& cells = table.rows[i].cells;
        cells = {cells[0], cells[1], cash.rows[i].cells[1], cells[2], cells[3], cash.rows[i].cells[3]};
    }
    return table;
}

class Planning {
public:
    Planning(Shared source, BundleNames names) : source_(std::move(source)), names_(std::move(names)) {}

    /// A table by the name of its file.
    void table(std::string_view name, std::function<Table(const Source&)> make) {
        add(names_.take("", name, ".csv"),
            [source = source_, make = std::move(make)](const Missing&) { return Tables::csv(make(*source)).bytes(); });
    }
    /// A table that says which receipts there are.
    void tableWithReceipts(std::string_view name,
                           Table (*make)(const Library&, const Period&, const BookTables::FileNames&)) {
        add(names_.take("", name, ".csv"), [source = source_, make](const Missing& missing) {
            return Tables::csv(make(source->books, source->period, source->names(missing))).bytes();
        });
    }
    void summary() {
        const auto sheet = [source = source_](const Missing& missing) {
            return YearEnd::summary(source->books, source->year, source->today, source->receipts, missing);
        };
        add(names_.take("", "Summary", ".txt"), [sheet](const Missing& missing) { return text(sheet(missing)); });
        add(names_.take("", "Summary", ".pdf"), [sheet, source = source_](const Missing& missing) {
            const auto noon =
                std::chrono::sys_days(std::chrono::days(source->closed().number())) + std::chrono::hours(12);
            return SummaryPDF::render(sheet(missing), source->books.business.name, noon);
        });
    }
    void bankAccounts() {
        const auto account = [this](const std::string& name, std::optional<UUID> id) {
            table("Bank - " + name, [id](const Source& source) {
                return BookTables::bankLines(source.books, source.period,
                                             id ? find(source.books.accounts, *id) : nullptr);
            });
        };
        for (const BankAccount& one : source_->books.accounts) account(one.name, one.id);
        const auto belongsNowhere = [this](const BankTransaction& line) {
            return source_->period.contains(line.date) &&
                   !(line.accountID && find(source_->books.accounts, *line.accountID));
        };
        const auto& lines = source_->books.transactions;
        if (std::any_of(lines.begin(), lines.end(), belongsNowhere)) account("no account", {});
    }
    void pages() {
        std::vector<const Document*> documents;
        for (const Document& one : source_->books.documents)
            if (one.kind != DocKind::estimate && (one.state == DocState::issued || one.state == DocState::void_) &&
                source_->period.contains(one.issueDate))
                documents.push_back(&one);
        std::stable_sort(documents.begin(), documents.end(), [](const Document* a, const Document* b) {
            return std::tie(a->issueDate, a->number, a->id) < std::tie(b->issueDate, b->number, b->id);
        });
        for (const Document* document : documents)
            add(names_.take("Invoices/", document->displayNumber(), ".pdf"),
                [source = source_, document](const Missing&) {
                    return InvoicePDF::render(source->books, *document, source->logo);
                });
    }
    void add(std::string name, std::function<std::string(const Missing&)> bytes) {
        files.push_back({std::move(name), std::move(bytes)});
    }

    std::vector<File> files;

private:
    Shared source_;
    BundleNames names_;
};

}  // namespace

Day closing(const FinancialYear& year, Day today) { return std::min(today, year.end()); }

Bundle plan(const Library& library, const FinancialYear& year, Day today, const std::optional<Image>& logo) {
    BundleNames names;
    const Period period = Period::fy(year);
    const std::string name = library.business.name.empty() ? "Books" : BundleNames::safe(library.business.name, 100);
    auto receipts = receiptsOf(library, period, names);
    const auto source = std::make_shared<const Source>(
        Source{BookTables::asOf(library, closing(year, today)), year, period, today, logo, receipts});

    Planning planning(source, std::move(names));
    planning.summary();
    planning.table("Profit and loss", profitTable);
    planning.table("Invoices", [](const Source& s) { return BookTables::invoices(s.books, s.period, s.closed()); });
    planning.table("Invoice lines", [](const Source& s) { return BookTables::invoiceLines(s.books, s.period); });
    planning.table("Credit notes", [](const Source& s) { return BookTables::creditNotes(s.books, s.period); });
    planning.table("Payments", [](const Source& s) { return BookTables::payments(s.books, s.period); });
    planning.table("TDS", [](const Source& s) { return ReportTables::tdsDeductions(s.books, s.year.startYear); });
    planning.tableWithReceipts("Expenses", BookTables::expenses);
    planning.table("Expenses by category",
                   [](const Source& s) { return ReportTables::spending(s.reports(), s.period); });
    planning.table("Mileage", [](const Source& s) { return BookTables::trips(s.books, s.period); });
    planning.tableWithReceipts("Equipment", BookTables::equipment);
    planning.table("Outstanding", [](const Source& s) { return ReportTables::owed(s.reports()); });
    planning.table("Outstanding by age", [](const Source& s) { return ReportTables::aging(s.reports()); });
    planning.table("Clients", [](const Source& s) { return BookTables::clients(s.books, s.period); });
    planning.bankAccounts();
    for (File& file : gstFiles(source->books, year)) planning.files.push_back(std::move(file));
    planning.pages();
    return {name + " " + year.label(), std::move(receipts), std::move(planning.files)};
}

}  // namespace tamba::YearEnd
