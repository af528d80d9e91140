#include "TambaCore/Fixtures/Statements.h"

#include "TambaCore/Bank/Bank.h"
#include "TambaCore/Bank/BankImport.h"
#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Fixtures/Shops.h"
#include "TambaCore/Reports/GSTReturns.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace tamba::Fixtures {

namespace {

constexpr int openDays = 150, openReceiptDays = 27;  // nobody has sat down with the lines since
constexpr int missedEvery = 7;                       // of the older ones

/// One line of a statement and what its owner made of it.
struct Row {
    Day date;
    std::string narration, reference;
    std::int64_t amount = 0;
    enum class Fate { open, expense, receipt, aside } fate = Fate::open;
    UUID expense{};
    const Receipt* receipt = nullptr;
};

std::string numeric(Day day) {
    std::array<char, 16> out{};
    std::snprintf(out.data(), out.size(), "%02d/%02d/%04d", day.d, day.m, day.y);
    return out.data();
}

/// A name as banks print it.
std::string printed(std::string_view name, std::size_t most = 28) {
    std::string text = Text::upper(name);
    std::erase_if(text, [](char c) { return c == '.' || c == ','; });
    return std::string(Text::trim(Text::prefix(text, most)));
}

class Statements {
public:
    Statements(Library library, Dice& dice, Day start, Day today)
        : library_(std::move(library)), dice_(dice), start_(start), today_(today) {}

    Library make(const std::vector<Receipt>& receipts) {
        for (const Expense& expense : library_.expenses) spent(expense);
        for (const Receipt& receipt : receipts) received(receipt);
        ownMoney();
        import(rupees_, library_.accounts[0], 68'500'000);
        import(dollars_, library_.accounts[1], 150'000);
        return std::move(library_);
    }

private:
    std::string digits(int count) {
        std::string text = std::to_string(1 + dice_.below(9));
        while (text.size() < static_cast<std::size_t>(count)) text += std::to_string(dice_.below(10));
        return text;
    }
    Row& add(std::vector<Row>& rows, Day date, std::string narration, std::string reference, std::int64_t amount) {
        rows.push_back({date, std::move(narration), std::move(reference), amount});
        return rows.back();
    }
    Row& aside(std::vector<Row>& rows, Day date, std::string narration, std::string reference, std::int64_t amount) {
        Row& row = add(rows, date, std::move(narration), std::move(reference), amount);
        // The latest one has not been looked at.
        if (date.daysUntil(today_) > 25) row.fate = Row::Fate::aside;
        return row;
    }

    void spent(const Expense& expense) {
        const bool abroad = expense.currency == "USD";
        if ((expense.currency != "INR" && !abroad) || expense.kind == ExpenseKind::mileage) return;
        const std::string who = printed(expense.vendor), number = digits(12);
        std::string narration;
        Day date = expense.date;
        switch (expense.method) {
            case PaymentMethod::upi: {
                std::string handle = Text::lower(who);
                std::erase_if(handle, [](char c) { return c < 'a' || c > 'z'; });
                narration = "UPI-" + printed(expense.vendor, 22) + "-" + handle.substr(0, 12) + "@OKGODAVARI-GODS0000" +
                            digits(3) + "-" + number + "-PAYMENT";
                break;
            }
            case PaymentMethod::card:
                narration = (abroad ? "POS DR/" : "POS 416021XXXXXX4821 ") + who;
                date = date.addingDays(dice_.below(2));
                break;
            case PaymentMethod::bank:
                if (abroad)
                    narration = "OUTWARD/" + digits(9) + "/" + who;
                else if (expense.vendorTaxID.empty())
                    narration = "IMPS-" + number + "-" + who + "-GODS-XXXXXXX" + digits(4);
                else
                    narration = "NEFT DR-KRSN0000" + digits(3) + "-" + who + "-" + digits(8);
                break;
            case PaymentMethod::cheque:
                narration = "CHQ PAID-MICR CTS-" + who;
                date = date.addingDays(3);
                break;
            default:
                return;
        }
        if (date > today_) return;
        Row& row = add(abroad ? dollars_ : rupees_, date, narration, number, Checked::neg(expense.amount));
        row.expense = expense.id;
        const bool missed = ++spent_ % missedEvery == 0;
        if (date.daysUntil(today_) > openDays && !missed) row.fate = Row::Fate::expense;
    }

    /// What the client sends: what is due on the invoices, less the tax they keep back.
    void received(const Receipt& receipt) {
        const Document* invoice = nullptr;
        std::int64_t amount = 0;
        for (const UUID& id : receipt.invoices) {
            invoice = library_.document(id);
            std::int64_t& due = due_.try_emplace(id, Books::balance(library_, *invoice)).first->second;
            const std::int64_t settled = receipt.part != 0 ? receipt.part : due;
            due = Checked::sub(due, settled);
            amount = Checked::add(amount, settled - Books::suggestedTDS(*invoice, settled, receipt.tdsBP));
        }
        const bool dollars = invoice->currency == "USD";
        if (!dollars) amount = Books::inHomeCurrency(library_, *invoice, amount).value_or(0);
        const std::string who = printed(invoice->billTo->name), number = digits(12);
        const std::string says = receipt.says == Receipt::Says::invoice ? "-" + *invoice->number : std::string();
        std::string narration;
        if (invoice->currency != "INR")
            narration = "INWARD/" + digits(9) + "/" + who + says;
        else if (receipt.method == PaymentMethod::upi)
            narration = "UPI-" + who + "-" + Text::lower(who.substr(0, who.find(' '))) + "@OKGODAVARI-GODS0000" +
                        digits(3) + "-" + number + says;
        else
            narration = (amount >= 20'000'000 ? "RTGS CR-MNDR0000" : "NEFT CR-MNDR0000") + digits(3) + "-" + who + says;
        Row& row = add(dollars ? dollars_ : rupees_, receipt.date, narration, number, amount);
        row.receipt = &receipt;
        if (receipt.date.daysUntil(today_) > openReceiptDays) row.fate = Row::Fate::receipt;
        if (dollars) converted(receipt.date.addingDays(26), amount);
    }
    /// Dollars must be sold by the end of the month after they came (FEMA, foreign currency accounts of residents).
    void converted(Day date, std::int64_t amount) {
        if (date > today_) return;
        const std::int64_t sold = Checked::sub(amount, 20'000), rate = rateOn(library_, "USD", date, today_);
        const auto rupees = MoneyMath::tryConvert(sold, Currency::of("USD"), library_.home(), rate);
        const std::string number = digits(9);
        aside(dollars_, date, "EEFC CONVERSION TO CURRENT ACCOUNT", number, Checked::neg(sold));
        aside(rupees_, date, "FX CONVERSION USD " + MoneyFormat::plain(sold, Currency::of("USD")) + " EEFC", number,
              rupees.value_or(0));
    }

    /// What is no expense: tax, cash, what the owner takes; and what no record was made of yet.
    void ownMoney() {
        for (Day month = start_; month <= today_; month = month.addingMonths(1)) {
            const Day taxDay = month.addingDays(19), drawn = month.addingDays(3);
            const auto filed = GSTReturns::gstr1(library_, Period::month(month.addingMonths(-1)));
            const std::int64_t tax = GSTReturns::gstr3b(library_, filed).setOff.cash.total();
            if (taxDay <= today_ && tax > 0)
                aside(rupees_, taxDay, "GST E-PAYMENT-CPIN " + digits(14), digits(10),
                      -MoneyMath::roundToWhole(tax, 100));
            if (month.m % 3 == 1 && drawn <= today_)
                aside(rupees_, drawn, "IMPS-" + digits(12) + "-MRUNAL DESHPANDE-GODS-XXXXXXX3307-SELF", digits(12),
                      -32'000'000);
            // Advance tax by the 15th of these months.
            const Day advance = month.addingDays(13);
            if (month.m % 3 == 0 && advance <= today_)
                aside(rupees_, advance, "DIRECT TAX PAYMENT-ADVANCE TAX", digits(14), -9'000'000);
            if (month.m % 2 == 0 && month.addingDays(16) <= today_)
                aside(rupees_, month.addingDays(16), "ATW-416021XXXXXX4821-DECCAN PUNE", {}, -600'000);
        }
        const auto ago = [this](int days) { return today_.addingDays(-days); };
        add(rupees_, ago(73), "SMS CHARGES", {}, -8'850);
        add(rupees_, ago(51), "UPI-FILTER HOUSE COFFEE-filterhouse@OKGODAVARI-GODS0000118-" + digits(12) + "-PAYMENT",
            digits(12), -39'000);
        add(rupees_, ago(21), "INTEREST CREDIT", {}, 412'000);
        add(rupees_, ago(9), "UPI-RICKSHAW RAJA-rickshawraja@OKGODAVARI-GODS0000204-" + digits(12) + "-RIDE",
            digits(12), -31'200);
        add(rupees_, ago(3), "UPI-GULLAK TEA STALL-gullaktea@OKGODAVARI-GODS0000311-" + digits(12) + "-PAYMENT",
            digits(12), -6'000);
    }

    /// The statement as the bank's file, read as any other.
    void import(std::vector<Row>& rows, const BankAccount& account, std::int64_t balance) {
        std::stable_sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.date < b.date; });
        const Currency currency = Currency::of(account.currency);
        std::string file = "Date,Narration,Chq./Ref.No.,Withdrawal Amt.,Deposit Amt.,Closing Balance\n";
        for (const Row& row : rows) {
            balance = Checked::add(balance, row.amount);
            const std::string sum = MoneyFormat::plain(row.amount < 0 ? -row.amount : row.amount, currency);
            file += numeric(row.date) + "," + row.narration + "," + row.reference + "," +
                    (row.amount < 0 ? sum + "," : "," + sum) + "," + MoneyFormat::plain(balance, currency) + "\n";
        }
        BankImport::Parsed statement = BankImport::csv(file, DateOrder::dmy, currency);
        if (statement.transactions.size() != rows.size()) fatal("a statement of the sample books was not read whole");
        for (BankTransaction& line : statement.transactions) line.id = dice_.id();
        Bank::Added added = Bank::addTransactions(std::move(library_), statement.transactions, account.id);
        if (added.skipped != 0) fatal("two lines of the sample books are the same");
        library_ = std::move(added.library);
        for (std::size_t i = 0; i < rows.size(); ++i) settle(rows[i], statement.transactions[i]);
    }
    void settle(const Row& row, const BankTransaction& line) {
        switch (row.fate) {
            case Row::Fate::open:
                return;
            case Row::Fate::expense:
                library_ = Bank::matchToExpense(std::move(library_), line.id, row.expense);
                return;
            case Row::Fate::aside:
                library_ = Bank::setIgnored(std::move(library_), line.id, true);
                return;
            case Row::Fate::receipt:
                break;
        }
        const Receipt& receipt = *row.receipt;
        const auto rest = receipt.part == 0 && receipt.tdsBP != 0 ? Bank::Remainder::asTDS : Bank::Remainder::due;
        std::vector<Bank::Share> shares;
        std::int64_t left = line.amount;
        for (const UUID& id : receipt.invoices) {
            const Document& invoice = *library_.document(id);
            const std::int64_t due = Books::balance(library_, invoice);
            const std::int64_t share =
                id == receipt.invoices.back() ? left : due - Books::suggestedTDS(invoice, due, receipt.tdsBP);
            shares.push_back({id, share, rest});
            left = Checked::sub(left, share);
        }
        library_ = Bank::splitReceipt(std::move(library_), line.id, shares);
    }

    Library library_;
    Dice& dice_;
    Day start_, today_;
    std::vector<Row> rupees_, dollars_;
    std::map<UUID, std::int64_t> due_;  // of invoices while the statement is written
    int spent_ = 0;
};

}  // namespace

Library withStatements(Library library, const std::vector<Receipt>& receipts, Dice& dice, Day start, Day today) {
    return Statements(std::move(library), dice, start, today).make(receipts);
}

}  // namespace tamba::Fixtures
