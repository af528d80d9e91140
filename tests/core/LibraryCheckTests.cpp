#include "TambaCore/Model/LibraryCheck.h"
#include "tests/support/Books.h"
#include "tests/support/TemporaryFolder.h"

#include <functional>

using namespace tamba;
using namespace tamba::testing;
using LibraryCheck::Kind;
using enum Kind;

namespace {

const UUID nobody = *UUID::parse("00000000-0000-4000-8000-000000000000");
constexpr std::int64_t tooMuch = maximumAmount + 1;

/// The sound books of every case, with their files in the folder.
struct LibraryCheckTest : ::testing::Test {
    TemporaryFolder folder;
    LibraryStore store{folder.path()};
    Library sound = aLibrary();

    void SetUp() override {
        for (const Expense& expense : sound.expenses)
            for (const Attachment& attachment : expense.attachments) write(folder / attachment.path, "bill");
        write(folder / "Assets/logo.png", "logo");
        sound.business.logoFile = "logo.png";
    }
    [[nodiscard]] std::vector<LibraryCheck::Problem> problems(const Library& library) const {
        return LibraryCheck::check(library, store).problems;
    }
};

/// Changes the first record of a list.
template <class T>
auto first(List<T> Library::* list, std::type_identity_t<std::function<void(T&)>> change) {
    return [=](Library& l) { (l.*list).update(0, change); };
}
auto expense(const std::function<void(Expense&)>& change) { return first(&Library::expenses, change); }
auto document(const std::function<void(Document&)>& change) { return first(&Library::documents, change); }
auto transaction(const std::function<void(BankTransaction&)>& change) { return first(&Library::transactions, change); }

struct Case {
    const char* name;
    std::function<void(Library&)> spoil;
    Kind kind;
    const char* list;
    const char* sentence;  ///< a part of it
};

const Case cases[] = {
    // ids that refer to nothing
    {"project's client", first(&Library::projects, [](Project& p) { p.clientID = nobody; }), danglingReference,
     "projects", "The project “Rebrand” refers to a client that isn’t in the books."},
    {"expense's project", expense([](Expense& e) { e.projectID = nobody; }), danglingReference, "expenses",
     "The expense “Chai Point” of 2026-10-14 refers to a project"},
    {"expense's client", expense([](Expense& e) { e.clientID = nobody; }), danglingReference, "expenses", "a client"},
    {"expense's bank line", expense([](Expense& e) { e.bankTxnID = nobody; }), danglingReference, "expenses",
     "a bank line"},
    {"expense's invoice", expense([](Expense& e) { e.rebilledInvoiceID = nobody; }), danglingReference, "expenses",
     "an invoice"},
    {"expense billed on an estimate",
     [](Library& l) {
         l.documents.append(Document::make(DocKind::estimate, {2026, 4, 1}, {2026, 5, 1}));
         expense([&](Expense& e) { e.rebilledInvoiceID = l.documents.back().id; })(l);
     },
     danglingReference, "expenses", "an invoice"},
    {"template's project", first(&Library::recurring, [](RecurringExpense& r) { r.template_.projectID = nobody; }),
     danglingReference, "recurring", "The recurring expense “Rent” refers to a project"},
    {"draft's client",
     [](Library& l) {
         l.documents.append(Document::make(DocKind::invoice, {2026, 4, 1}, {2026, 5, 1}));
         l.documents.update(1, [](Document& d) { d.clientID = nobody; });
     },
     danglingReference, "documents", "The invoice draft of 2026-04-01 refers to a client"},
    {"draft's series",
     [](Library& l) {
         l.documents.append(Document::make(DocKind::creditNote, {2026, 4, 1}, {2026, 5, 1}));
         l.documents.update(1, [](Document& d) { d.seriesID = nobody; });
     },
     danglingReference, "documents", "The credit note draft of 2026-04-01 refers to a number series"},
    {"draft's billed expense", document([](Document& d) {
         d.state = DocState::draft;
         d.lines[0].expenseID = nobody;
     }),
     danglingReference, "documents", "an expense"},
    {"issued without a copy of its client", document([](Document& d) {
         d.billTo.reset();
         d.clientID = nobody;
     }),
     danglingReference, "documents", "The invoice “INV/26-27/001” refers to a client"},
    {"linked document", document([](Document& d) { d.linkedID = nobody; }), danglingReference, "documents",
     "an invoice"},
    {"payment's bank line", document([](Document& d) { d.payments[0].bankTxnID = nobody; }), danglingReference,
     "documents", "a bank line"},
    {"bank line's account", transaction([](BankTransaction& t) { t.accountID = nobody; }), danglingReference,
     "transactions", "The bank line “UPI/DR/1/CHAI POINT” of 2026-10-14 refers to a bank acc"},
    {"bank line's expense", transaction([](BankTransaction& t) { t.expenseID = nobody; }), danglingReference,
     "transactions", "an expense"},
    {"bank line's invoice", transaction([](BankTransaction& t) { t.invoiceID = nobody; }), danglingReference,
     "transactions", "an invoice"},
    {"bank line's payment", transaction([](BankTransaction& t) { t.paymentID = nobody; }), danglingReference,
     "transactions", "a payment"},
    {"payment of another invoice",
     [](Library& l) {
         l.documents.append(anInvoice("INV/26-27/002"));
         transaction([&](BankTransaction& t) {
             t.invoiceID = l.documents[0].id;
             t.paymentID = l.documents[1].payments[0].id;
         })(l);
     },
     danglingReference, "transactions", "a payment"},
    {"rule's category", first(&Library::rules, [](CategoryRule& r) { r.categoryID = nobody; }), danglingReference,
     "rules", "The rule “chai” refers to a category"},

    // two with one id
    {"the same expense twice", [](Library& l) { l.expenses.append(l.expenses.at(0)); }, duplicateID, "expenses",
     "Another record has the same ID as the expense “Chai Point” of 2026-10-14."},
    {"the same category twice", [](Library& l) { l.categories.append(l.categories.at(0)); }, duplicateID, "categories",
     "the category “Software & subscriptions”"},
    {"two rates of a currency", [](Library& l) { l.rates.append(l.rates.at(0)); }, duplicateID, "rates",
     "There is more than one exchange rate for USD."},
    {"the same payment on two invoices",
     [](Library& l) {
         Document other = anInvoice("INV/26-27/002");
         other.payments = l.documents[0].payments;
         l.documents.append(std::move(other));
     },
     duplicateID, "documents", "one of the invoice “INV/26-27/002”"},

    // files
    {"missing file", expense([](Expense& e) { e.attachments[0].path = "Receipts/gone.jpg"; }), missingFile, "expenses",
     "The file “Receipts/gone.jpg” of the expense “Chai Point” of 2026-10-14 is missing."},
    {"a folder for a file", expense([](Expense& e) { e.attachments[0].path = "Receipts"; }), missingFile, "expenses",
     "is missing"},
    {"climbs out", expense([](Expense& e) { e.attachments[0].path = "../../etc/passwd"; }), fileOutside, "expenses",
     "The file “../../etc/passwd” of the expense"},
    {"absolute path", expense([](Expense& e) { e.attachments[0].path = "/etc/passwd"; }), fileOutside, "expenses",
     "lies outside the books’ folder."},
    {"template's file", first(&Library::recurring, [](auto& r) { r.template_.attachments[0].path = "x.pdf"; }),
     missingFile, "recurring", "of the recurring expense “Rent”"},
    {"missing logo", [](Library& l) { l.business.logoFile = "other.png"; }, missingFile, "business",
     "The logo “other.png” of the business settings is missing."},
    {"logo outside Assets", [](Library& l) { l.business.logoFile = "../tamba.json"; }, fileOutside, "business",
     "The logo"},

    // figures
    {"month 13", [](Library& l) { l.business.fyStartMonth = 13; }, outOfRange, "business",
     "The first month of the financial year of the business settings can’t be right: 13."},
    {"month 0", [](Library& l) { l.business.fyStartMonth = 0; }, outOfRange, "business", "right: 0."},
    {"tax above 100 %", [](Library& l) { l.business.defaultTaxBP = 10001; }, outOfRange, "business", "10001"},
    {"negative mileage rate", [](Library& l) { l.business.mileageRateMinor = -1; }, outOfRange, "business", "-1"},
    {"client's days", first(&Library::clients, [](Client& c) { c.dueDays = -1; }), outOfRange, "clients",
     "The number of days to pay of the client “Saffron Labs” can’t be right: -1."},
    {"item's price", first(&Library::items, [](CatalogItem& i) { i.priceMinor = tooMuch; }), outOfRange, "items",
     "The price of the item “Logo” can’t be right: 1000000000000001."},
    {"amount", expense([](Expense& e) { e.amount = tooMuch; }), outOfRange, "expenses",
     "The amount of the expense “Chai Point” of 2026-10-14 can’t be right: 1000000000000001."},
    {"least number", expense([](Expense& e) { e.amount = INT64_MIN; }), outOfRange, "expenses",
     "right: -9223372036854775808."},
    {"tax part", expense([](Expense& e) { e.taxSplit.sgst = -tooMuch; }), outOfRange, "expenses", "part of the tax"},
    {"negative rate", expense([](Expense& e) { e.rateMicros = -1; }), outOfRange, "expenses", "exchange rate"},
    {"negative distance", expense([](Expense& e) { e.distanceMilli = -1; }), outOfRange, "expenses", "distance"},
    {"converted beyond belief", expense([](Expense& e) {
         e.currency = "USD";
         e.amount = maximumAmount;
         e.rateMicros = 2'000'000;
     }),
     outOfRange, "expenses", "exchange rate"},
    {"mileage beyond belief", expense([](Expense& e) {
         e.distanceMilli = maximumAmount;
         e.mileageRateMinor = 1001;
     }),
     outOfRange, "expenses", "distance"},
    {"anchor day 32", first(&Library::recurring, [](auto& r) { r.anchorDay = 32; }), outOfRange, "recurring",
     "The day of the month of the recurring expense “Rent”"},
    {"line's product", document([](Document& d) {
         d.lines[0].qtyMilli = maximumAmount;
         d.lines[0].priceMinor = maximumAmount;
     }),
     outOfRange, "documents", "The total of the invoice “INV/26-27/001” is too large to be right."},
    {"negative price", document([](Document& d) { d.lines[0].priceMinor = -1; }), outOfRange, "documents",
     "price of a line"},
    {"sum with tax", document([](Document& d) { d.lines[0].priceMinor = maximumAmount / 3 * 2; }), outOfRange,
     "documents", "total"},
    {"sum of quantities",
     document([](Document& d) { d.lines.assign(2, Line::make("Bits", maximumAmount / 2 + 1, 0, 0)); }), outOfRange,
     "documents", "sum of quantities"},
    {"sum of payments", document([](Document& d) { d.payments[0].amount = maximumAmount; }), outOfRange, "documents",
     "sum of payments"},
    {"number given twice", [](Library& l) { l.documents.append(anInvoice("inv/26-27/001")); }, duplicateNumber,
     "documents", "More than one invoice has the number “inv/26-27/001”."},
    {"no number", document([](Document& d) { d.number.reset(); }), missingNumber, "documents",
     "The invoice of 2026-10-01 is no draft, but has no number."},
    {"discount above 100 %", document([](Document& d) { d.lines[0].discountBP = 10001; }), outOfRange, "documents",
     "discount of a line"},
    {"payment", document([](Document& d) { d.payments[0].tds = tooMuch; }), outOfRange, "documents",
     "TDS of a payment"},
    {"counter 0", first(&Library::series, [](NumberSeries& s) { s.next["26-27"] = 0; }), outOfRange, "series",
     "The next number of the number series “Invoices”"},
    {"balance", transaction([](BankTransaction& t) { t.balance = tooMuch; }), outOfRange, "transactions", "balance"},
    {"rate of a currency", first(&Library::rates, [](FXRate& r) { r.rateMicros = -1; }), outOfRange, "rates",
     "The value of the exchange rate for USD"},
};

}  // namespace

TEST_F(LibraryCheckTest, findsNothingInSoundBooks) {
    const LibraryCheck::Report report = LibraryCheck::check(sound, store);
    EXPECT_TRUE(report.problems.empty()) << report.problems[0].sentence;
    EXPECT_EQ(report.counts.size(), 12U);
    EXPECT_EQ(report.counts[2], std::pair(std::string("categories"), std::size_t{13}));
}

TEST_F(LibraryCheckTest, namesEachKindOfProblem) {
    for (const Case& c : cases) {
        Library library = sound;
        c.spoil(library);
        const auto found = problems(library);
        ASSERT_EQ(found.size(), 1U) << c.name;
        EXPECT_EQ(found[0].kind, c.kind) << c.name;
        EXPECT_EQ(found[0].list, c.list) << c.name;
        EXPECT_THAT(found[0].sentence, ::testing::HasSubstr(c.sentence)) << c.name;
    }
}

TEST_F(LibraryCheckTest, leavesAloneWhatMayOutliveItsRecord) {
    expense([](Expense& e) {
        e.categoryID = nobody;
        e.recurringID = nobody;
    })(sound);
    sound.recurring.update(0, [](RecurringExpense& r) { r.template_.categoryID = nobody; });
    document([](Document& d) {
        d.clientID = nobody;
        d.seriesID = nobody;
        d.lines[0].expenseID = nobody;
    })(sound);
    EXPECT_TRUE(problems(sound).empty());
}
