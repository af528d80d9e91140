#include "TambaCore/Base/Check.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Fixtures/Blank.h"

#include <algorithm>
#include <array>

namespace tamba::Fixtures {

namespace {

constexpr std::array vendors{"Shaniwar Workspaces LLP",
                             "Chakra Mobile Services Ltd",
                             "Vahini Broadband Pvt Ltd",
                             "Pixelgrove Software, Inc.",
                             "Aksharmala Type Foundry",
                             "Lekhani Stationers",
                             "Rang Digital Prints",
                             "Ujala Electronics",
                             "Chulha & Charcha",
                             "Kokum Kitchen",
                             "Filter House Coffee",
                             "Sangam Fuel Centre",
                             "Rickshaw Raja",
                             "कोकण उपहारगृह"};
constexpr std::string_view billText =
    "TAX INVOICE\nBill No: 4821   Date: 14/10/2026\nItem  Qty  Rate  Amount\nThali, unlimited 2 320.00 640.00\nSol "
    "kadhi 3 "
    "65.00 195.00\nPuran poli 2 95.00 190.00\nSub Total 1,025.00\nCGST @ 2.5% 25.63\nSGST @ 2.5% 25.63\nGRAND TOTAL ";
constexpr int years = 5;
constexpr std::size_t ocrLength = 600;

class LargeMaker {
public:
    explicit LargeMaker(Day today) : first_(today.addingDays(-daysBack)), library_(blank(dice_)) {}

    Library make(int expenses, int invoices, int bankLines) {
        begin(invoices);
        library_.expenses.reserve(static_cast<std::size_t>(expenses));
        library_.documents.reserve(static_cast<std::size_t>(invoices));
        library_.transactions.reserve(static_cast<std::size_t>(bankLines));
        // Bank lines pay the first expenses, one each; both sides carry the other's id.
        std::vector<UUID> lineIDs;
        for (int i = 0; i < bankLines; ++i) lineIDs.push_back(dice_.id());
        for (int i = 0; i < expenses; ++i) {
            Expense made = expense(i, spread(i, expenses));
            if (i < bankLines && i % 2 == 0) made.bankTxnID = lineIDs[static_cast<std::size_t>(i)];
            library_.expenses.append(std::move(made));
        }
        for (int i = 0; i < invoices; ++i) library_.documents.append(invoice(i, spread(i, invoices)));
        for (int i = 0; i < bankLines; ++i) {
            BankTransaction line = bankLine(i, spread(i, bankLines), lineIDs[static_cast<std::size_t>(i)]);
            if (i < expenses && i % 2 == 0) {
                const Expense& paid = library_.expenses[static_cast<std::size_t>(i)];
                line.expenseID = paid.id;
                line.date = paid.date;
                line.amount = Checked::neg(paid.amount);
            }
            library_.transactions.append(std::move(line));
        }
        return std::move(library_);
    }

private:
    static constexpr std::int64_t daysBack = 365 * years + 1;
    [[nodiscard]] Day spread(int index, int count) const { return first_.addingDays(daysBack * index / count); }
    [[nodiscard]] static Instant timeOn(Day day) {
        return std::chrono::sys_days(std::chrono::days(day.number())) + std::chrono::hours(12);
    }

    void begin(int invoices) {
        library_.onboarded = true;
        library_.business.name = "Halad & Ink Studio";
        library_.business.stateCode = "27";
        library_.business.taxID = GSTIN::make("27", "BKXPD7312L", "1");
        library_.series.update(0, [](NumberSeries& series) { series.pattern = "INV/{FY}/{#####}"; });
        for (int i = 0; i < 20 + invoices / 100; ++i) {
            Client client;
            client.id = dice_.id();
            client.name = "Client " + std::to_string(i + 1) + " Pvt Ltd";
            client.address = std::to_string(10 + i) + " Prabhat Road\nPune 411004";
            client.email = "accounts" + std::to_string(i + 1) + "@client.example";
            client.stateCode = i % 3 == 0 ? "29" : "27";
            library_.projects.append({dice_.id(), "Project " + std::to_string(i + 1), client.id, false, {}});
            library_.clients.append(std::move(client));
        }
    }
    template <class T>
    const T& any(const List<T>& list) {
        return list[static_cast<std::size_t>(dice_.below(static_cast<std::int64_t>(list.size())))];
    }

    Expense expense(int index, Day date) {
        Expense expense;
        expense.id = dice_.id();
        expense.date = date;
        expense.vendor = vendors[static_cast<std::size_t>(dice_.below(vendors.size()))];
        const std::int64_t net = 100 * (50 + dice_.below(20'000));
        expense.taxSplit = TaxSplit::compute(net, 1800, SupplyType::intraState);
        expense.tax = expense.taxSplit.total();
        expense.amount = Checked::add(net, expense.tax);
        const Category& category = any(library_.categories);
        expense.categoryID = category.id;
        expense.claimTax = category.claimsTax;
        if (index % 4 == 0) {
            const Project& project = any(library_.projects);
            expense.projectID = project.id;
            expense.clientID = project.clientID;
            expense.billable = true;
        }
        expense.method = static_cast<PaymentMethod>(dice_.below(5));
        expense.notes = index % 5 == 0 ? "Shared with the other desk" : "";
        expense.createdAt = timeOn(date);
        if (index % 3 == 0) {
            std::string& text = expense.ocrText.emplace(billText);
            while (text.size() < ocrLength) text += std::to_string(dice_.next()) + "\n";
            text.resize(ocrLength);
        }
        return expense;
    }

    Document invoice(int index, Day date) {
        const Client& client = any(library_.clients);
        Document invoice;
        invoice.id = dice_.id();
        invoice.state = DocState::issued;
        invoice.seriesID = library_.series.front().id;
        const std::string year = library_.fy(date).shortLabel();
        library_.series.update(0, [&](NumberSeries& series) {
            std::int64_t& next = series.next.try_emplace(year, 1).first->second;
            invoice.number = "INV/" + year + "/" + std::to_string(100'000 + next++).substr(1);
        });
        invoice.issueDate = date;
        invoice.dueDate = date.addingDays(15);
        invoice.clientID = client.id;
        invoice.billTo = PartySnapshot::of(client);
        invoice.seller = PartySnapshot::of(library_.business);
        invoice.placeOfSupply = client.stateCode;
        invoice.supply = client.stateCode == "27" ? SupplyType::intraState : SupplyType::interState;
        invoice.roundOff = true;
        invoice.createdAt = timeOn(date);
        std::int64_t total = 0;
        for (int i = 0; i < 4; ++i) {
            Line line;
            line.id = dice_.id();
            line.name = "Interface design, part " + std::to_string(i + 1);
            line.detail = "Screens, prototype and a round of changes";
            line.hsn = "998314";
            line.qtyMilli = 1000 * (1 + dice_.below(9));
            line.unit = "day";
            line.priceMinor = 10'000 * (50 + dice_.below(100));
            line.taxBP = 1800;
            const std::int64_t value = MoneyMath::mulDiv(line.priceMinor, line.qtyMilli, 1000);
            total = Checked::add(total, value);
            total = Checked::add(total, TaxSplit::compute(value, line.taxBP, invoice.supply).total());
            invoice.lines.push_back(std::move(line));
        }
        if (index % 5 != 4) {
            Payment payment;
            payment.id = dice_.id();
            payment.date = date.addingDays(1 + dice_.below(14));
            payment.amount = total;
            invoice.payments.push_back(std::move(payment));
        }
        return invoice;
    }

    BankTransaction bankLine(int index, Day date, const UUID& id) {
        BankTransaction line;
        line.id = id;
        line.accountID = library_.accounts.front().id;
        line.date = date;
        line.text = "UPI/DR/" + std::to_string(400'000'000'000 + index) + "/" +
                    vendors[static_cast<std::size_t>(dice_.below(vendors.size()))] + "/payment";
        line.amount = -100 * (50 + dice_.below(20'000));
        line.balance = 50'000'000 + dice_.below(10'000'000);
        line.reference = std::to_string(400'000'000'000 + index);
        line.source = "statement.csv";
        return line;
    }

    Dice dice_{20260401U};
    Day first_;
    Library library_;
};

}  // namespace

Library large(int expenses, int invoices, int bankLines, Day today) {
    return LargeMaker(today).make(expenses, invoices, bankLines);
}

}  // namespace tamba::Fixtures
