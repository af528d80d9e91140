#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Bank/Rules.h"
#include "TambaCore/Documents/Standing.h"
#include "tests/support/Books.h"
#include "tests/support/Refusal.h"

#include <functional>

namespace tamba {
namespace {

using Bank::Remainder;
using testing::aBook;
using testing::aDraft;
using testing::refusal;
using Code = BooksError::Code;

constexpr Day day{2026, 10, 20};

/// Three issued invoices of ₹1,000.00, an expense of ₹500.00, a refund of ₹80.00, and lines of which each pays some.
struct MatchingTest : ::testing::Test {
    Library library = aBook();
    std::vector<UUID> invoices;
    UUID expense, refund, bigReceipt, receipt, spending, tiny;

    void SetUp() override {
        for (int i = 0; i < 3; ++i) invoices.push_back(testing::billed(library, 100'000, {2026, 10, 14}));
        expense = added(50'000);
        refund = added(-8'000);
        bigReceipt = line(250'000, "NEFT CR");
        receipt = line(90'000, "UPI/CR/1");
        spending = line(-50'000, "POS 4160 CHAI");
        tiny = line(8'000, "REFUND");
    }
    UUID added(std::int64_t amount) {
        library.expenses.append(testing::spent("Chai Point", amount, day));
        return library.expenses.back().id;
    }
    UUID line(std::int64_t amount, std::string text) {
        BankTransaction txn = BankTransaction::make(day, std::move(text), amount);
        txn.reference = "R1";
        library.transactions.append(txn);
        return txn.id;
    }
    [[nodiscard]] const BankTransaction& at(const UUID& id) const { return *find(library.transactions, id); }
    [[nodiscard]] std::int64_t balance(std::size_t i) const {
        return Books::balance(library, *library.document(invoices[i]));
    }
};

TEST_F(MatchingTest, linksBothSidesAndUnlinksThem) {
    const Library before = library;
    library = Bank::matchToExpense(library, spending, expense);
    EXPECT_EQ(at(spending).expenseID, expense);
    EXPECT_EQ(library.expense(expense)->bankTxnID, spending);
    library = Bank::matchToExpense(library, tiny, refund);
    EXPECT_EQ(library.expense(refund)->bankTxnID, tiny);

    library = Bank::matchToInvoice(library, receipt, invoices[1], Remainder::asTDS);
    const Payment& payment = library.document(invoices[1])->payments.at(0);
    EXPECT_EQ(payment.amount, 90'000);
    EXPECT_EQ(payment.tds, 10'000);
    EXPECT_EQ(payment.date, day);
    EXPECT_EQ(payment.method, PaymentMethod::upi);
    EXPECT_EQ(payment.reference, "R1");
    EXPECT_EQ(payment.bankTxnID, receipt);
    EXPECT_EQ(at(receipt).paymentID, payment.id);
    EXPECT_EQ(at(receipt).invoiceID, invoices[1]);
    EXPECT_EQ(balance(1), 0);

    for (const UUID& id : {spending, tiny, receipt}) library = Bank::unmatch(library, id);
    EXPECT_EQ(library, before);
    library = Bank::matchToInvoice(library, receipt, invoices[1], Remainder::due);
    EXPECT_EQ(balance(1), 10'000);
}

TEST_F(MatchingTest, oneReceiptPaysSeveralInvoices) {
    const std::vector<Bank::Share> shares{
        {invoices[0], 100'000}, {invoices[2], 90'000, Remainder::asTDS}, {invoices[1], 60'000}};
    const Library before = library;
    library = Bank::splitReceipt(library, bigReceipt, shares);
    EXPECT_EQ(balance(0), 0);
    EXPECT_EQ(balance(1), 40'000);
    EXPECT_EQ(balance(2), 0);
    EXPECT_EQ(library.document(invoices[2])->payments[0].tds, 10'000);
    EXPECT_EQ(Bank::unmatch(library, bigReceipt), before);

    // The line stays matched while one of its payments is there, but what the others took is free again.
    const Library split = library;
    library = Books::removePayment(library, invoices[0], library.document(invoices[0])->payments.at(0).id);
    EXPECT_EQ(Bank::unassigned(library, at(bigReceipt)), 100'000);
    EXPECT_EQ(refusal<BooksError>([&] { return Bank::splitReceipt(library, bigReceipt, {{invoices[0], 250'000}}); }),
              Code::split);
    library = Bank::matchToInvoice(library, bigReceipt, invoices[0], Remainder::due);
    EXPECT_EQ(balance(0), 0);
    EXPECT_EQ(Bank::unassigned(library, at(bigReceipt)), 0);
    EXPECT_EQ(Bank::unmatch(library, bigReceipt), before);
    library = split;
    for (const std::size_t i : {0U, 2U, 1U}) {
        EXPECT_TRUE(at(bigReceipt).isMatched());
        library = Books::removePayment(library, invoices[i], library.document(invoices[i])->payments.at(0).id);
    }
    EXPECT_EQ(library, before);
}

TEST_F(MatchingTest, aPaymentTypedBeforeIsLinkedInsteadOfMadeTwice) {
    const auto typed = [&](std::size_t invoice, std::int64_t amount, std::int64_t daysBefore) {
        Payment payment = Payment::make(day.addingDays(-daysBefore), amount, 0, PaymentMethod::cheque);
        library = Books::recordPayment(library, invoices[invoice], payment);
        return payment.id;
    };
    library.documents.update(0, [](Document& d) { d.issueDate = day.addingDays(-40); });
    const UUID far = typed(0, 60'000, 31), other = typed(0, 9'999, 2), near = typed(0, 10'000, 3);
    const UUID money = line(10'000, "CLG/SAFFRON");
    const auto found = Bank::typedPayments(library, at(money), 30);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].payment, near);
    EXPECT_EQ(found[0].days, 3);
    EXPECT_EQ(refusal<BooksError>([&] { return Bank::matchToPayment(library, money, invoices[0], far); }), Code::split);

    const Library before = library;
    library = Bank::matchToPayment(library, money, invoices[0], near);
    EXPECT_EQ(balance(0), 100'000 - 60'000 - 9'999 - 10'000);
    EXPECT_EQ(at(money).paymentID, near);
    EXPECT_EQ(Bank::unassigned(library, at(money)), 0);
    EXPECT_TRUE(Bank::typedPayments(library, at(line(10'000, "again")), 30).empty());
    EXPECT_EQ(refusal<BooksError>([&] { return Bank::matchToPayment(library, receipt, invoices[0], near); }),
              Code::split);
    EXPECT_EQ(refusal<BooksError>([&] { return Bank::matchToPayment(library, money, invoices[0], other); }),
              Code::lineMatched);
    EXPECT_EQ(refusal<BooksError>([&] { return Bank::matchToPayment(library, spending, invoices[0], other); }),
              Code::wrongDirection);
    library.transactions.erase(library.transactions.size() - 1);
    library = Bank::unmatch(library, money);
    EXPECT_EQ(library, before) << "what was typed stays";

    const UUID same = typed(0, 5'000, 0), cash = line(5'000, "UPI/SAFFRON");
    const Library typedThatDay = library;
    library = Bank::matchToPayment(library, cash, invoices[0], same);
    EXPECT_EQ(Bank::unmatch(library, cash), typedThatDay) << "also what says no more than the line";
}

TEST_F(MatchingTest, obviousLinesSeeTheLinksBeforeThem) {
    const std::string number = *library.document(invoices[0])->number;
    const UUID first = line(60'000, number + " SAFFRON"), second = line(60'000, "SAFFRON " + number);
    const auto [after, count] = Bank::autoMatch(library);
    EXPECT_EQ(count, 2) << "the expense, and the first of the two";
    EXPECT_EQ(find(after.transactions, first)->invoiceID, invoices[0]);
    EXPECT_TRUE(find(after.transactions, second)->isOpen()) << "only ₹400.00 are left to be paid";
}

TEST_F(MatchingTest, anObviousLineIsThePaymentThatWasTyped) {
    struct Typed {
        std::size_t invoice;
        std::int64_t amount, daysBefore;
    };
    enum Outcome { open, linked, paid };
    const auto number = [&](std::size_t i) { return *library.document(invoices[i])->number; };
    const struct {
        std::vector<Typed> typed;
        std::int64_t amount;
        std::string text;
        Outcome outcome;
        std::size_t which = 0;  // of the typed, or of the invoices
    } cases[] = {
        {{{0, 50'000, 2}}, 50'000, "CLG SAFFRON", linked},
        {{{0, 50'000, 6}}, 50'000, "NEFT " + number(0), linked},  // and not the other half
        {{{0, 50'000, 9}}, 50'000, "SAFFRON " + number(0), open},
        {{{0, 50'000, 31}}, 50'000, "SAFFRON " + number(0), paid, 0},
        {{{0, 50'000, 1}, {1, 50'000, 1}}, 50'000, "CLG SAFFRON", open},
        {{{0, 50'000, 1}, {1, 50'000, 1}}, 50'000, "SAFFRON " + number(1), linked, 1},
        {{{0, 100'000, 1}}, 100'000, "SAFFRON " + number(1), paid, 1},
        {{{0, 50'001, 1}}, 50'000, "CLG SAFFRON", open},
        {{{0, 70'000, 3}}, 70'000, "IMPS 77", linked},
        {{{0, 70'000, 4}}, 70'000, "IMPS 77", open},
        {{{0, 100'000, 2}}, 100'000, "IMPS 77", open},  // two more are open for that sum
        {{{0, 100'000, 2}}, 100'000, "IMPS SAFFRON", linked},
    };
    for (std::size_t i = 0; i < invoices.size(); ++i)
        library.documents.update(i, [](Document& d) { d.issueDate = day.addingDays(-40); });
    const Library before = library;
    for (const auto& c : cases) {
        library = before;
        std::vector<UUID> typed;
        for (const auto& [invoice, amount, days] : c.typed) {
            const Payment payment = Payment::make(day.addingDays(-days), amount, 0, PaymentMethod::cheque);
            library = Books::recordPayment(library, invoices[invoice], payment);
            typed.push_back(payment.id);
        }
        const UUID id = line(c.amount, c.text);
        const std::int64_t due = balance(0) + balance(1) + balance(2);
        library = Bank::autoMatch(library).library;
        const BankTransaction& after = at(id);
        EXPECT_EQ(after.isMatched(), c.outcome != open) << c.text;
        EXPECT_EQ(balance(0) + balance(1) + balance(2), due - (c.outcome == paid ? c.amount : 0)) << c.text;
        if (c.outcome == paid) {
            EXPECT_EQ(after.invoiceID, invoices[c.which]) << c.text;
        }
        if (c.outcome != linked) continue;
        EXPECT_EQ(after.paymentID, typed[c.which]) << c.text;
        EXPECT_EQ(Bank::unassigned(library, after), 0) << c.text;
        const UUID again = line(c.amount, c.text);
        const auto [more, count] = Bank::autoMatch(library);
        EXPECT_NE(find(more.transactions, again)->paymentID, typed[c.which]) << c.text;
    }
}

TEST_F(MatchingTest, refusesWhatCannotBe) {
    const UUID other = line(-50'000, "x"), nobody = UUID::random(), draft = UUID::random();
    Document drafted = aDraft(library, DocKind::invoice, {Line::make("Design", 1000, 100'000, 0)});
    drafted.id = draft;
    library = Books::addDraft(library, drafted);
    const Library linked =
        Bank::matchToInvoice(Bank::matchToExpense(library, spending, expense), receipt, invoices[0], Remainder::due);
    const auto split = [&](std::vector<Bank::Share> shares) { return Bank::splitReceipt(linked, bigReceipt, shares); };
    const struct {
        std::optional<Code> code;
        std::function<Library()> operation;
    } cases[] = {
        {Code::lineMatched, [&] { return Bank::matchToExpense(linked, spending, refund); }},
        {Code::lineMatched, [&] { return Bank::matchToInvoice(linked, receipt, invoices[1], Remainder::due); }},
        {Code::lineMatched, [&] { return Bank::createExpense(linked, spending).library; }},
        {Code::lineMatched, [&] { return Bank::setIgnored(linked, receipt, true); }},
        {Code::expenseMatched, [&] { return Bank::matchToExpense(linked, other, expense); }},
        {Code::wrongDirection, [&] { return Bank::matchToExpense(linked, other, refund); }},
        {Code::wrongDirection, [&] { return Bank::matchToExpense(library, bigReceipt, expense); }},
        {Code::wrongDirection, [&] { return Bank::matchToInvoice(linked, other, invoices[1], Remainder::due); }},
        {Code::wrongDirection, [&] { return Bank::createExpense(linked, tiny).library; }},
        {Code::overpaid, [&] { return Bank::matchToInvoice(linked, bigReceipt, invoices[1], Remainder::asTDS); }},
        {Code::notIssued, [&] { return Bank::matchToInvoice(linked, tiny, draft, Remainder::due); }},
        {Code::split, [&] { return split({}); }},
        {Code::split, [&] { return split({{invoices[1], 100'000}, {invoices[2], 100'000}}); }},
        {Code::split, [&] { return split({{invoices[1], 125'000}, {invoices[1], 125'000}}); }},
        {Code::split, [&] { return split({{invoices[1], 250'001}, {invoices[2], -1}}); }},
        {Code::overpaid, [&] { return split({{invoices[1], 100'000}, {invoices[2], 150'000}}); }},
        {{}, [&] { return Bank::matchToExpense(linked, nobody, expense); }},
        {{}, [&] { return Bank::matchToExpense(linked, other, nobody); }},
        {{}, [&] { return Bank::matchToInvoice(linked, bigReceipt, nobody, Remainder::due); }},
        {{}, [&] { return Bank::unmatch(linked, nobody); }},
        {{}, [&] { return Bank::unmatch(linked, other); }},
    };
    for (const auto& [code, operation] : cases) {
        const auto at = &operation - &cases[0].operation;
        EXPECT_EQ(refusal<BooksError>(operation), code) << at;
        EXPECT_TRUE(code || operation() == linked) << at;
    }
}

TEST_F(MatchingTest, convertsMoneyOfOtherCurrencies) {
    library.accounts.append(BankAccount::make("Dollars", "USD"));
    library.rates = {{"USD", 84'000'000, day, {}}};
    const auto inDollars = [&](const UUID& invoice, std::int64_t rate) {
        library.documents.update(indexOf(library.documents, invoice), [rate](Document& d) {
            d.currency = "USD";
            d.rateMicros = rate;
        });
    };
    const auto received = [&](std::int64_t amount, std::size_t account) {
        const UUID id = line(amount, "SWIFT");
        library.transactions.update(library.transactions.size() - 1,
                                    [&](BankTransaction& txn) { txn.accountID = library.accounts[account].id; });
        return id;
    };
    const auto paid = [&](const UUID& id, const UUID& invoice) {
        return Bank::matchToInvoice(library, id, invoice, Remainder::due).document(invoice)->payments.at(0).amount;
    };
    inDollars(invoices[0], 83'250'000);
    EXPECT_EQ(paid(received(100'000, 1), invoices[0]), 100'000);    // $1,000.00 is $1,000.00 at any rate
    EXPECT_EQ(paid(received(8'325'000, 0), invoices[0]), 100'000);  // ₹83,250.00 at the invoice's rate
    EXPECT_EQ(paid(received(4'162'500, 0), invoices[0]), 50'000);
    EXPECT_EQ(paid(received(1'000, 1), invoices[1]), 84'000);  // $10.00 at the kept rate
    inDollars(invoices[2], 1'603);  // the whole balance is ₹1.60, which alone would be 998.13
    EXPECT_EQ(paid(received(160, 0), invoices[2]), 100'000);
    library.rates = {};
    EXPECT_EQ(refusal<BooksError>(
                  [&] { return Bank::matchToInvoice(library, received(1'000, 1), invoices[1], Remainder::due); }),
              Code::missingRate);
    const auto created = Bank::createExpense(library, received(-1'000, 1)).expense.value();
    EXPECT_EQ(created.currency, "USD");
    EXPECT_EQ(created.rateMicros, 0);
    EXPECT_EQ(created.amount, 1'000);
}

TEST_F(MatchingTest, aRateBeyondBeliefStopsNothing) {
    BankAccount far = BankAccount::make("Far", "XYZ");
    library.accounts.append(far);
    library.rates.append({"XYZ", 1, day, {}});
    const UUID dear = line(maximumAmount, "WIRE");
    library.transactions.update(indexOf(library.transactions, dear),
                                [&](BankTransaction& wire) { wire.accountID = far.id, wire.invoiceID = invoices[0]; });
    Payment payment = Payment::make(day, maximumAmount, 0, PaymentMethod::bank);
    payment.bankTxnID = dear;
    library.documents.update(indexOf(library.documents, invoices[0]),
                             [&](Document& invoice) { invoice.payments.push_back(payment); });
    EXPECT_EQ(Bank::unassigned(library, at(dear)), 0);
    EXPECT_FALSE(Bank::partlyMatched(library).contains(dear));
    EXPECT_TRUE(Bank::typedPayments(library, at(dear), 7).empty());
}

TEST_F(MatchingTest, aRateThatMovedIsAGainOrALoss) {
    library.documents.update(0, [](Document& d) {
        d.currency = "USD";
        d.rateMicros = 83'000'000;
    });
    const struct {
        std::int64_t received;
        Remainder remainder;
        std::optional<Code> refused;
        std::int64_t balance;
        const char* sentence;
    } cases[] = {
        {8'300'000, Remainder::due, {}, 0, ""},
        {8'550'000, Remainder::due, {}, 0, "₹2,500.00 more than at the rate of INV/26-27/001: an exchange gain."},
        {8'550'000, Remainder::asTDS, {}, 0, "₹2,500.00 more than at the rate of INV/26-27/001: an exchange gain."},
        {8'134'000, Remainder::due, {}, 2'000, ""},
        {8'134'000,
         Remainder::asExchange,
         {},
         0,
         "₹1,660.00 less than at the rate of INV/26-27/001: an exchange loss."},
        {8'134'000, Remainder::asTDS, {}, 0, ""},
        {9'200'000, Remainder::due, Code::overpaid, 0, ""},
        {7'400'000, Remainder::asExchange, Code::split, 0, ""},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.received);
        const Library start = library;
        const UUID money = line(one.received, "SWIFT");
        const auto matched = [&] { return Bank::matchToInvoice(library, money, invoices[0], one.remainder); };
        EXPECT_EQ(refusal<BooksError>(matched), one.refused);
        if (!one.refused) {
            library = matched();
            EXPECT_EQ(balance(0), one.balance);
            EXPECT_EQ(Bank::unassigned(library, at(money)), 0);
            const auto difference = Bank::exchangeDifference(library, at(money));
            EXPECT_EQ(difference ? difference->sentence : "", one.sentence);
        }
        library = start;
    }
    EXPECT_EQ(
        refusal<BooksError>([&] { return Bank::matchToInvoice(library, receipt, invoices[1], Remainder::asExchange); }),
        Code::split);
}

TEST_F(MatchingTest, makesExpensesByTheRules) {
    const auto category = [&](std::size_t i) { return library.categories[i].id; };
    library.rules = {CategoryRule::make("swiggy", category(4), "Swiggy"), CategoryRule::make("acme", category(2), ""),
                     CategoryRule::make("old", UUID::random(), "Chai Point")};
    library.expenses.update(1, [&](Expense& e) { e.categoryID = category(5); });
    const struct {
        std::optional<std::string> counterparty;
        const char* text;
        const char* hint;
        const char* vendor;
        std::optional<UUID> category;
    } cases[] = {
        {"Bundl Tech", "POS SWIGGY", "", "Swiggy", category(4)},
        {"Acme Tea", "UPI/DR/1/ACME TEA", "Meals", "Acme Tea", category(2)},
        {"Old Mill", "x", "", "Chai Point", category(5)},  // the rule's category is gone: that of the latest expense
        {"chai point", "x", "", "chai point", category(5)},
        {"Nobody", "x", "travel ", "Nobody", category(2)},
        {"Nobody", "x", "Cakes", "Nobody", {}},
        {{}, " ATM WDL ", "", "ATM WDL", {}},
    };
    for (const auto& c : cases) {
        const UUID id = line(-11'800, c.text);
        library.transactions.update(library.transactions.size() - 1, [&](BankTransaction& txn) {
            txn.counterparty = c.counterparty;
            txn.categoryHint = c.hint;
            txn.ignored = true;
        });
        const auto [after, created] = Bank::createExpense(library, id);
        ASSERT_TRUE(created);
        EXPECT_EQ(created->vendor, c.vendor);
        EXPECT_EQ(created->categoryID, c.category) << c.text;
        EXPECT_EQ(created->claimTax, c.category && library.category(*c.category)->claimsTax);
        EXPECT_EQ(created->amount, 11'800);
        EXPECT_EQ(created->date, day);
        EXPECT_EQ(created->bankTxnID, id);
        EXPECT_EQ(*after.expense(created->id), *created);
        EXPECT_EQ(find(after.transactions, id)->expenseID, created->id);
        EXPECT_FALSE(find(after.transactions, id)->ignored);
    }
}

TEST(Rules, areMadeFromACorrection) {
    Library library = aBook();
    const UUID software = library.categories[0].id;
    const struct {
        const char *counterparty, *narration, *vendor;
        const char *contains, *renamed;  // null: no rule
    } cases[] = {
        {"The Chulha & Charcha Pvt Ltd", "UPI/DR/1/CHULHA", "the chulha & charcha pvt ltd ", "Chulha & Charcha", ""},
        {"Bundl Tech", "UPI/DR/1/BUNDL", "Swiggy", "Bundl Tech", "Swiggy"},
        {"Ref 4711 Acme Tea 99 Stall", "x", "Acme", "Acme Tea", "Acme"},
        {"24/7", "x", "24/7", "24/7", ""},
        {"", "NEFT NORTHWIND", "Northwind", "Northwind", ""},
        {"", "ATM WDL", "Cash", nullptr, nullptr},
        {"", "", " ", nullptr, nullptr},
    };
    for (const auto& c : cases) {
        BankTransaction txn = BankTransaction::make(day, c.narration, -100);
        if (*c.counterparty) txn.counterparty = c.counterparty;
        library.transactions = {txn};
        Expense corrected = Expense::make(day);
        corrected.vendor = c.vendor;
        corrected.bankTxnID = txn.id;
        EXPECT_FALSE(Rules::ruleFrom(library, corrected)) << "there is no category yet";
        corrected.categoryID = software;
        const auto rule = Rules::ruleFrom(library, corrected);
        ASSERT_EQ(rule.has_value(), c.contains != nullptr) << c.narration;
        if (!rule) continue;
        EXPECT_EQ(rule->contains, c.contains);
        EXPECT_EQ(rule->vendor, c.renamed);
        // The next line of the same kind gets what the person made of this one.
        const auto next = Bank::createExpense(Rules::put(library, *rule), txn.id).expense.value();
        EXPECT_EQ(next.categoryID, software);
        EXPECT_TRUE(!*c.renamed || next.vendor == c.renamed) << next.vendor;
    }
}

TEST(Rules, keepTheNarrowBeforeTheWide) {
    Library library = aBook();
    const UUID a = library.categories[0].id, b = library.categories[1].id;
    const auto order = [&] {
        std::string text;
        for (const CategoryRule& rule : library.rules) text += rule.contains + (rule.categoryID == a ? "=a " : "=b ");
        return text;
    };
    for (const char* text : {"uber", "amazon", "Amazon Web", " airtel "})
        library = Rules::put(library, CategoryRule::make(text, a, ""));
    EXPECT_EQ(order(), "uber=a Amazon Web=a amazon=a airtel=a ");
    library = Rules::put(library, CategoryRule::make("UBER", b, ""));
    CategoryRule renamed = library.rules[3];
    renamed.contains = "jio";
    library = Rules::put(library, renamed);
    EXPECT_EQ(order(), "UBER=b Amazon Web=a amazon=a jio=a ");
    library = Rules::move(library, library.rules[0].id, 99);
    library = Rules::move(library, library.rules[2].id, 0);
    library = Rules::remove(library, library.rules[1].id);
    library = Rules::move(Rules::remove(library, UUID::random()), UUID::random(), 0);
    EXPECT_EQ(order(), "jio=a amazon=a UBER=b ");
    EXPECT_EQ(refusal<BooksError>([&] { return Rules::put(library, CategoryRule::make(" ", a, "")); }), Code::rule);
    EXPECT_EQ(refusal<BooksError>([&] { return Rules::put(library, CategoryRule::make("x", UUID::random(), "")); }),
              Code::rule);
}

}  // namespace
}  // namespace tamba
