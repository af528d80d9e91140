#include "TambaCore/Documents/Expenses.h"
#include "tests/support/Books.h"
#include "tests/support/Refusal.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

namespace tamba {
namespace {

using testing::aLibrary;
using testing::anExpense;
using testing::anInvoice;

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();

/// A book of a business in Maharashtra under GST, with no expenses and no rules.
Library aBook() {
    Library library = aLibrary();
    library.expenses = {};
    library.rules = {};
    library.business.taxID = "27AAPFU0939F1ZV";
    return library;
}

UUID category(const Library& library, std::string_view name) {
    for (const Category& category : library.categories)
        if (category.name == name) return category.id;
    ADD_FAILURE() << "no category " << name;
    return {};
}

Expense bought(std::string vendor, Day day, std::optional<UUID> category) {
    Expense expense = anExpense(std::move(vendor), day);
    expense.categoryID = category;
    return expense;
}

TEST(Expenses, suggestACategoryFromRulesThenFromTheLatestExpense) {
    Library library = aBook();
    const UUID travel = library.categories[0].id, software = library.categories[1].id, gone = UUID::random();
    library.rules.append(CategoryRule::make("", gone, ""));
    library.rules.append(CategoryRule::make("ÉCLAIR", software, ""));
    library.rules.append(CategoryRule::make("cab", travel, ""));
    library.rules.append(CategoryRule::make("old", gone, ""));
    library.expenses.append(bought("Chai Point", {2026, 4, 9}, software));
    library.expenses.append(bought("chai point ", {2026, 4, 9}, travel));
    library.expenses.append(bought("Chai Point", {2026, 4, 1}, software));
    library.expenses.append(bought("Old Mill", {2026, 4, 1}, travel));
    library.expenses.append(bought("Lost", {2026, 4, 1}, gone));
    library.expenses.append(bought("", {2026, 4, 1}, travel));
    const struct {
        const char* vendor;
        std::optional<UUID> category;
    } cases[] = {
        {"Scabbard Éclair", software},  // the first rule, not the first word
        {"MERU CABS", travel},
        {" CHAI POINT", travel},
        {"Old Mill", travel},
        {"Old Gate", {}},
        {"Lost", {}},
        {"Chai", {}},
        {"", {}},
        {" ", {}},
    };
    for (const auto& [vendor, expected] : cases)
        EXPECT_EQ(Expenses::suggestedCategory(library, vendor), expected) << vendor;
    EXPECT_EQ(Expenses::rule(library, "UPI/DR/1/MERU CAB")->categoryID, travel);
    EXPECT_EQ(Expenses::rule(library, "nothing known"), nullptr);
}

TEST(Expenses, removedLeaveNothingThatRefersToThem) {
    Library library = aBook();
    const Expense expense = anExpense(), other = anExpense();
    library = Expenses::add(Expenses::add(library, expense), other);
    library.transactions.update(0, [&](BankTransaction& line) { line.expenseID = expense.id; });
    Document draft = anInvoice(), issued = anInvoice();
    draft.state = DocState::draft;
    draft.lines.push_back(draft.lines[0]);
    draft.lines[0].expenseID = issued.lines[0].expenseID = expense.id;
    draft.lines[1].expenseID = other.id;
    library.documents = {draft, issued};

    library = Expenses::remove(library, expense.id);
    EXPECT_EQ(library.expenses.size(), 1u);
    EXPECT_EQ(library.transactions[0].expenseID, std::nullopt);
    EXPECT_EQ(library.documents[0].lines[0].expenseID, std::nullopt);
    EXPECT_EQ(library.documents[0].lines[1].expenseID, other.id);
    EXPECT_EQ(library.documents[1], issued) << "an issued document is frozen";
}

TEST(Expenses, claimTaxWhereTheirCategoryDoes) {
    const Library library = aBook();
    const auto claims = [&](std::optional<UUID> category) {
        return Expenses::withCategory(library, anExpense(), category).claimTax;
    };
    EXPECT_TRUE(claims(category(library, "Travel")));
    EXPECT_FALSE(claims(category(library, "Mileage")));
    EXPECT_FALSE(claims({}));
    EXPECT_FALSE(claims(UUID::random()));
    EXPECT_EQ(Expenses::withCategory(library, anExpense(), category(library, "Travel")).categoryID,
              category(library, "Travel"));
    Library composition = library;
    composition.business.regime = TaxRegime::gstComposition;
    EXPECT_FALSE(Expenses::withCategory(composition, anExpense(), category(library, "Travel")).claimTax);
}

TEST(Expenses, divideTheirTaxByTheStates) {
    const struct {
        const char* vendorTaxID;
        TaxRegime regime;
        std::int64_t tax;
        TaxSplit split;
    } cases[] = {
        {"27AAAAA0000A1Z5", TaxRegime::gstIndia, 1801, {900, 901, 0, 0}},
        {"29AAAAA0000A1Z5", TaxRegime::gstIndia, 1801, {0, 0, 1801, 0}},
        {"29", TaxRegime::gstComposition, 1801, {0, 0, 1801, 0}},
        {"", TaxRegime::gstIndia, 1801, {900, 901, 0, 0}},
        {"29AAAAA0000A1Z5", TaxRegime::simple, 1801, {0, 0, 0, 1801}},
        {"29AAAAA0000A1Z5", TaxRegime::gstIndia, 0, {}},
    };
    for (const auto& [vendorTaxID, regime, tax, split] : cases) {
        Library library = aBook();
        library.business.regime = regime;
        Expense expense = anExpense();
        expense.vendorTaxID = vendorTaxID;
        expense = Expenses::withTax(library, expense, tax);
        EXPECT_EQ(expense.tax, tax);
        EXPECT_EQ(expense.taxSplit, split) << vendorTaxID;
    }
}

TEST(Expenses, takeTheRateKeptForTheirCurrency) {
    const Library library = aBook();
    const Expense dollars = Expenses::withCurrency(library, anExpense(), "usd");
    EXPECT_EQ(dollars.currency, "USD");
    EXPECT_EQ(dollars.rateMicros, 83'250'000);
    EXPECT_EQ(dollars.amount, 11800);
    EXPECT_EQ(Expenses::inHomeCurrency(library, dollars, dollars.amount), 982350);

    const Expense yen = Expenses::withCurrency(library, anExpense(), "JPY");
    EXPECT_EQ(yen.rateMicros, 0);
    EXPECT_EQ(yen.amount, 118) << "the figure stays as read";
    EXPECT_EQ(yen.tax, 18);
    EXPECT_EQ(yen.taxSplit.total(), 18);
    EXPECT_EQ(Expenses::inHomeCurrency(library, yen, yen.amount), std::nullopt);

    const Expense back = Expenses::withCurrency(library, yen, "INR");
    EXPECT_EQ(back.rateMicros, 1'000'000);
    EXPECT_EQ(back.amount, 11800);
    EXPECT_EQ(Expenses::inHomeCurrency(library, back, 500), 500);
}

TEST(Expenses, refuseAnEditThatGoesBeyondBelief) {
    Library library = aBook();
    Expense expense = anExpense();
    expense.amount = maximumAmount;
    library.expenses.append(expense);
    library.rates.append({"USD", 83'000'000, {2026, 11, 1}, {}});
    const auto refusal = [&](const Expense& edited) {
        return testing::refusal<BooksError>([&] { return Expenses::replace(library, edited); });
    };
    for (const char* currency : {"USD", "KWD"})
        EXPECT_EQ(refusal(Expenses::withCurrency(library, expense, currency)), BooksError::Code::figures) << currency;
    Expense renamed = expense;
    renamed.vendor = "Chai";
    EXPECT_EQ(refusal(renamed), std::nullopt);
    library.expenses.update(0, [](Expense& e) { e.amount = maximumAmount + 1; });
    EXPECT_EQ(refusal(renamed), std::nullopt);
    renamed.amount = maximumAmount + 1;
    EXPECT_EQ(refusal(renamed), std::nullopt) << "an absurd amount of a file keeps nobody from the rest";
}

TEST(Expenses, convertToTheHomeCurrencyForGood) {
    const Library library = aBook();
    const struct {
        const char* currency;
        std::int64_t amount, rateMicros;
        TaxSplit split;
        std::int64_t converted;
        TaxSplit convertedSplit;
        const char* note;
    } cases[] = {
        {"USD", 2'000, 83'250'000, {}, 166'500, {}, "USD 20.00 at 83.25"},
        {"USD", -123'456, 83'250'000, {}, -10'277'712, {}, "USD −1,234.56 at 83.25"},
        {"JPY", 150'000, 565'000, {0, 0, 0, 13'636}, 8'475'000, {0, 0, 0, 770'434}, "JPY 150,000 at 0.565"},
        {"KWD", 1'000'500, 272'500'000, {}, 27'263'625, {}, "KWD 1,000.500 at 272.5"},
        // 0.5 paise each, 1 paisa together: the parts still add up.
        {"USD", 118, 500'000, {9, 9, 0, 0}, 59, {5, 4, 0, 0}, "USD 1.18 at 0.5"},
        {"INR", 118, 1'000'000, {9, 9, 0, 0}, 118, {9, 9, 0, 0}, nullptr},
    };
    for (const auto& c : cases) {
        Expense expense = anExpense();
        expense.notes = "Fonts";
        expense.currency = c.currency;
        expense.rateMicros = c.rateMicros;
        expense.amount = c.amount;
        expense.taxSplit = c.split;
        expense.tax = c.split.total();
        const Expense home = Expenses::convertedToHome(library, expense);
        EXPECT_EQ(home.amount, c.converted) << c.currency;
        EXPECT_EQ(home.taxSplit, c.convertedSplit) << c.currency;
        EXPECT_EQ(home.tax, c.convertedSplit.total()) << c.currency;
        EXPECT_EQ(home.currency, "INR");
        EXPECT_EQ(home.rateMicros, 1'000'000);
        EXPECT_EQ(home.notes, c.note ? "Fonts\n" + std::string(c.note) : "Fonts");
        EXPECT_EQ(Expenses::convertedToHome(library, home), home);
    }
    Expense expense = anExpense();
    expense.currency = "USD";
    for (const auto& [rate, code] :
         {std::pair{std::int64_t{0}, BooksError::Code::missingRate}, {maximumAmount, BooksError::Code::figures}}) {
        expense.rateMicros = rate;
        expense.amount = maximumAmount;
        EXPECT_EQ(testing::refusal<BooksError>([&] { return Expenses::convertedToHome(library, expense); }), code);
    }
}

TEST(Expenses, workMileageOutFromDistanceAndRate) {
    Library library = aBook();
    Expense trip = Expenses::mileage(library, anExpense(), 12'345, 1'050);
    EXPECT_EQ(trip.kind, ExpenseKind::mileage);
    EXPECT_EQ(trip.amount, 12'962);  // 12.345 km × ₹10.50 = ₹129.6225
    EXPECT_EQ(trip.tax, 0);
    EXPECT_EQ(trip.taxSplit, TaxSplit{});
    EXPECT_EQ(Expenses::mileage(library, trip, 500, 1'001).amount, 501);  // 500.5 paise

    // A new rate of the business leaves a trip alone; a new distance takes the rate of the day it was entered.
    library = Expenses::add(library, trip);
    library.business.mileageRateMinor = 9'999;
    trip.distanceMilli = 20'000;
    trip.tax = 100;
    library = Expenses::replace(library, trip);
    EXPECT_EQ(library.expenses[0].amount, 21'000);
    EXPECT_EQ(library.expenses[0].tax, 0);

    library.business.homeCurrency = "KWD";
    EXPECT_EQ(Expenses::mileage(library, anExpense(), 1'000, 250).currency, "KWD");
    EXPECT_EQ(Expenses::mileageAmount(maximumAmount, 1000), maximumAmount);
    EXPECT_EQ(Expenses::mileageAmount(maximumAmount, 1001), std::nullopt);
    EXPECT_EQ(Expenses::mileageAmount(highest, 0), std::nullopt);
    EXPECT_EQ(Expenses::mileageAmount(1, lowest), std::nullopt);
}

TEST(Expenses, sayWhatWantsALook) {
    const Library library = aBook();
    const Expense good = bought("Chai Point", {2026, 10, 14}, library.categories[0].id);
    EXPECT_EQ(Expenses::attention(library, good), std::nullopt);
    const struct {
        std::function<void(Expense&)> spoil;
        const char* sentence;
    } cases[] = {
        {[](Expense& e) { e.amount = highest; },
         "A figure is too large to be right, so the reports leave this expense out."},
        {[](Expense& e) { e.taxSplit.cgst = lowest; },
         "A figure is too large to be right, so the reports leave this expense out."},
        {[](Expense& e) {
             e.kind = ExpenseKind::mileage;
             e.distanceMilli = e.mileageRateMinor = maximumAmount;
         },
         "A figure is too large to be right, so the reports leave this expense out."},
        {[](Expense& e) {
             e.currency = "USD";
             e.rateMicros = maximumAmount;
             e.amount = maximumAmount;
         },
         "The exchange rate is too large to be right, so the reports leave this expense out."},
        {[](Expense& e) {
             e.currency = "USD";
             e.rateMicros = 0;
             e.check = "No date was found.";
         },
         "Add the exchange rate to include this in reports."},
        {[](Expense& e) { e.check = "No date was found."; }, "No date was found."},
        {[](Expense& e) { e.amount = 0; }, "The amount is missing."},
        {[](Expense& e) { e.amount = 1799; }, "The tax is more than the amount."},
        {[](Expense& e) { e.amount = -11800; }, "The tax is more than the amount."},
        {[](Expense& e) { e.taxSplit.igst = 1; }, "The parts of the tax don’t add up to the tax."},
        {[](Expense& e) { e.categoryID.reset(); }, "The category is missing."},
        {[](Expense& e) { e.categoryID = UUID::random(); }, "The category is missing."},
    };
    for (const auto& [spoil, sentence] : cases) {
        Expense expense = good;
        spoil(expense);
        EXPECT_EQ(Expenses::attention(library, expense), sentence);
    }
    Expense refund = good;
    refund.amount = -refund.amount;
    refund.tax = -refund.tax;
    refund.taxSplit = refund.taxSplit.negated();
    EXPECT_EQ(Expenses::attention(library, refund), std::nullopt);
}

RC_GTEST_PROP(Expenses, noFigureStopsTheProgram, ()) {
    const auto figure =
        rc::gen::oneOf(rc::gen::element(lowest, highest, maximumAmount, -maximumAmount, maximumAmount + 1),
                       rc::gen::arbitrary<std::int64_t>());
    const Library library = aBook();
    Expense expense = anExpense();
    expense.currency = *rc::gen::element<std::string>("INR", "JPY", "KWD", "USD", "XXX");
    expense.amount = *figure;
    expense.rateMicros = *figure;
    expense.taxSplit = {*figure, *figure, *figure, *figure};
    expense = Expenses::withTax(library, expense, *figure);
    if (*rc::gen::arbitrary<bool>()) expense = Expenses::mileage(library, expense, *figure, *figure);
    const auto home = Expenses::inHomeCurrency(library, expense, expense.amount);
    RC_ASSERT(isBelievable(home.value_or(0)));
    RC_ASSERT(home.has_value() || Expenses::attention(library, expense).has_value());
    const auto currency = *rc::gen::element<std::string>("INR", "JPY", "KWD");
    expense = Expenses::withCurrency(library, expense, currency);
    RC_ASSERT(Expenses::add(library, expense).expenses.size() == 1);
}

}  // namespace
}  // namespace tamba
