#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/ReceiptExpense.h"
#include "tests/support/Refusal.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

using namespace tamba;
using tamba::testing::TemporaryFolder;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

constexpr Day today{2026, 10, 20};

Library pune() {
    Library library = Library::make();
    library.business.stateCode = "27";
    return library;
}

ReceiptGuess aGuess(const std::string& text = "Chai Point") {
    ReceiptGuess guess;
    guess.vendor = "Chai Point";
    guess.date = Day{2026, 10, 14};
    guess.total = 118'000;
    guess.text = text;
    return guess;
}

Expense made(const Library& library, const ReceiptGuess& guess) {
    return ReceiptExpense::expense(library, guess, Expense::make(today), today);
}

const Category& category(const Library& library, std::string_view name) {
    for (const Category& each : library.categories)
        if (each.name == name) return each;
    throw std::logic_error("no such category");
}

TEST(ReceiptExpense, takesOverWhatWasRead) {
    ReceiptGuess guess = aGuess("Chai Point\nTotal 1,180.00");
    guess.gstin = "27AAPFU0939F1ZV";
    const Expense blank = Expense::make(today);
    const Expense expense = ReceiptExpense::expense(pune(), guess, blank, today);
    EXPECT_EQ(expense.id, blank.id);
    EXPECT_EQ(expense.vendor, "Chai Point");
    EXPECT_EQ(expense.vendorTaxID, "27AAPFU0939F1ZV");
    EXPECT_EQ(expense.date, (Day{2026, 10, 14}));
    EXPECT_EQ(expense.amount, 118'000);
    EXPECT_EQ(expense.currency, "INR");
    EXPECT_EQ(expense.rateMicros, 1'000'000);
    EXPECT_EQ(expense.ocrText, guess.text);
    EXPECT_EQ(expense.check, std::nullopt);

    const Expense empty = made(pune(), ReceiptGuess{});
    EXPECT_EQ(empty.date, today);
    EXPECT_EQ(empty.amount, 0);
    EXPECT_EQ(empty.ocrText, std::nullopt);
}

TEST(ReceiptExpense, ourOwnNumberOnABillIsNotTheVendors) {
    Library library = pune();
    library.business.taxID = "27 aapfu0939f1zv";
    ReceiptGuess guess = aGuess();
    guess.gstin = "27AAPFU0939F1ZV";
    EXPECT_EQ(made(library, guess).vendorTaxID, "");
}

TEST(ReceiptExpense, dividesTheTaxAsReadElseByTheStates) {
    const char* here = "27AAPFU0939F1ZV";
    const char* elsewhere = "29AAGCB7383J1Z4";
    struct Case {
        std::optional<std::int64_t> tax;
        TaxSplit read;
        std::string gstin;
        TaxRegime regime;
        TaxSplit split;
    };
    const std::vector<Case> cases{
        {18'000, {9'000, 9'000, 0, 0}, elsewhere, TaxRegime::gstIndia, {9'000, 9'000, 0, 0}},
        {18'000, {0, 0, 18'000, 0}, here, TaxRegime::gstIndia, {0, 0, 18'000, 0}},
        {18'001, {0, 0, 0, 18'001}, here, TaxRegime::gstIndia, {9'000, 9'001, 0, 0}},
        {18'000, {0, 0, 0, 18'000}, elsewhere, TaxRegime::gstIndia, {0, 0, 18'000, 0}},
        {18'000, {9'000, 0, 0, 0}, elsewhere, TaxRegime::gstIndia, {0, 0, 18'000, 0}},  // does not add up
        {18'000, {9'000, 9'000, 0, 0}, here, TaxRegime::simple, {0, 0, 0, 18'000}},
        {90'000, {45'000, 45'000, 0, 0}, here, TaxRegime::gstIndia, {}},  // of 1,180.00: no rate makes that
        {-5, {-5, 0, 0, 0}, here, TaxRegime::gstIndia, {}},
        {{}, {}, here, TaxRegime::gstIndia, {}},
    };
    for (const Case& c : cases) {
        Library library = pune();
        library.business.regime = c.regime;
        ReceiptGuess guess = aGuess();
        guess.tax = c.tax;
        guess.taxSplit = c.read;
        guess.gstin = c.gstin;
        const Expense expense = made(library, guess);
        EXPECT_EQ(expense.taxSplit, c.split) << c.tax.value_or(0) << " " << c.gstin;
        EXPECT_EQ(expense.tax, c.split.total());
    }
}

TEST(ReceiptExpense, keepsTheCurrencyReadWithItsRate) {
    Library library = pune();
    library.rates.append({"USD", 83'250'000, {2026, 10, 1}, {}});
    ReceiptGuess guess = aGuess();
    guess.currency = "USD";
    EXPECT_EQ(made(library, guess).rateMicros, 83'250'000);
    EXPECT_EQ(made(library, guess).check, std::nullopt);

    guess.currency = "GBP";
    guess.doubts = {Doubt::noDate};
    EXPECT_EQ(made(library, guess).currency, "GBP");
    EXPECT_EQ(made(library, guess).rateMicros, 0);
    EXPECT_EQ(made(library, guess).check, "No date was found.");

    // Amounts are read with two decimals, whatever the home currency has.
    guess = aGuess();
    guess.tax = 18'000;
    for (const auto& [home, amount, tax] : {std::tuple{"JPY", 1'180, 180}, {"KWD", 1'180'000, 180'000}}) {
        library.business.homeCurrency = home;
        EXPECT_EQ(made(library, guess).amount, amount);
        EXPECT_EQ(made(library, guess).tax, tax);
    }
}

TEST(ReceiptExpense, takesCategoryAndVendorFromRulesElseFromTheVendorsLatestExpense) {
    Library library = pune();
    EXPECT_EQ(made(library, aGuess()).categoryID, std::nullopt);

    Expense earlier = Expense::make({2026, 9, 1});
    earlier.vendor = "CHAI POINT ";
    earlier.categoryID = category(library, "Travel").id;
    earlier.method = PaymentMethod::card;
    library.expenses.append(earlier);
    Expense expense = made(library, aGuess());
    EXPECT_EQ(expense.categoryID, category(library, "Travel").id);
    EXPECT_TRUE(expense.claimTax);
    EXPECT_EQ(expense.method, PaymentMethod::card);

    library.rules.append(CategoryRule::make("chai", category(library, "Meals").id, "Tea"));
    expense = made(library, aGuess());
    EXPECT_EQ(expense.categoryID, category(library, "Meals").id);
    EXPECT_FALSE(expense.claimTax);
    EXPECT_EQ(expense.vendor, "Tea");
}

TEST(ReceiptExpense, readsHowItWasPaid) {
    Library library = pune();
    Expense earlier = Expense::make({2026, 9, 1});
    earlier.vendor = "Chai Point";
    earlier.method = PaymentMethod::cheque;  // what an unstated method falls back to
    library.expenses.append(earlier);
    const auto unstated = PaymentMethod::cheque;
    const std::vector<std::pair<const char*, PaymentMethod>> cases{
        {"Paid by UPI", PaymentMethod::upi},
        {"UPI Scan and Pay ₹412.56", PaymentMethod::upi},
        {"Payment mode: PhonePe", PaymentMethod::upi},
        {"Visa ending •••• 4242", PaymentMethod::card},
        {"CARD XXXX1234 500.00", PaymentMethod::card},
        {"Cash", PaymentMethod::cash},
        {"CASH  RM 50.00", PaymentMethod::cash},
        {"Cash tendered 500.00", PaymentMethod::cash},
        {"Paid via Paytm wallet", PaymentMethod::wallet},
        {"Received by NEFT", PaymentMethod::bank},
        {"Cash Memo", unstated},
        {"Cashier: Asha", unstated},
        {"Memory Card 450.00", unstated},
        {"We accept UPI", unstated},
        {"UPI ID: chai@bank", unstated},
        {"Payment: Cash / Card / UPI", unstated},
        {"Thank you", unstated},
    };
    for (const auto& [text, method] : cases) EXPECT_EQ(made(library, aGuess(text)).method, method) << text;
}

TEST(ReceiptExpense, keepsABoundedTextAndTheReasonsToLook) {
    ReceiptGuess guess = aGuess();
    guess.text.clear();
    for (int i = 0; i < 30'000; ++i) guess.text += "हि";
    guess.doubts = {Doubt::otherDateOrder, Doubt::totalWithoutKeyword};
    const Expense expense = made(pune(), guess);
    EXPECT_EQ(Text::length(*expense.ocrText), 20'000u);
    EXPECT_EQ(expense.check,
              std::string(sentence(Doubt::otherDateOrder)) + " " + std::string(sentence(Doubt::totalWithoutKeyword)));
}

struct Filing : ::testing::Test {
    TemporaryFolder folder;
    LibraryStore store{folder / "Books"};

    std::filesystem::path write(const std::string& name, std::string_view bytes) {
        Files::writeAtomically(folder / name, bytes);
        return folder / name;
    }
};
using ReceiptExpenseFiling = Filing;

TEST_F(ReceiptExpenseFiling, copiesTheFilesInOrderUnderTheirOwnNames) {
    const auto mail = write("Bill.eml", "mail");
    const auto pdf = Files::writeTemporary("pdf", "बिल 2026.pdf");
    const ReceiptScanner::Result result{aGuess(), {mail, pdf}, {pdf}};
    Expense blank = Expense::make(today);
    const auto filed = ReceiptExpense::file(pune(), store, result, blank, today);
    Files::remove(pdf);

    EXPECT_EQ(filed.expenseID, blank.id);
    const Expense* expense = filed.library.expense(blank.id);
    ASSERT_NE(expense, nullptr);
    ASSERT_THAT(expense->attachments, SizeIs(2));
    EXPECT_EQ(expense->attachments[0].path, "Receipts/2026-10/2026-10-14-chai-point.eml");
    EXPECT_EQ(expense->attachments[0].originalName, "Bill.eml");
    EXPECT_EQ(expense->attachments[1].path, "Receipts/2026-10/2026-10-14-chai-point.pdf");
    EXPECT_EQ(expense->attachments[1].originalName, "बिल 2026.pdf");
    EXPECT_EQ(Files::read(*store.url(expense->attachments[1])), "pdf");
    EXPECT_EQ(expense->attachments[0].addedAt, blank.createdAt);

    // The same bytes under another name are noticed, other bytes of the same size are not.
    EXPECT_EQ(ReceiptExpense::holding(filed.library, store, write("again.jpg", "mail")), blank.id);
    EXPECT_EQ(ReceiptExpense::holding(filed.library, store, write("other.jpg", "maid")), std::nullopt);
    EXPECT_EQ(ReceiptExpense::holding(filed.library, store, folder / "missing"), std::nullopt);
}

TEST_F(ReceiptExpenseFiling, takesBackItsCopiesWhenALaterOneFails) {
    const ReceiptScanner::Result result{aGuess(), {write("a.jpg", "a"), folder / "missing.pdf"}, {}};
    EXPECT_EQ(tamba::testing::refusal<StoreError>(
                  [&] { return ReceiptExpense::file(pune(), store, result, Expense::make(today), today); }),
              StoreError::Code::notAFile);
    EXPECT_THAT(Files::names(store.receiptsFolder() / "2026-10"), IsEmpty());
    EXPECT_THAT(Files::names(store.removedFolder()), SizeIs(1));
}

}  // namespace
