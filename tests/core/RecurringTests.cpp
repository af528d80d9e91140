#include "TambaCore/Documents/Recurring.h"
#include "TambaCore/Model/Changes.h"
#include "tests/support/Books.h"

namespace tamba {
namespace {

using testing::aLibrary;
using testing::anExpense;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using enum Frequency;

constexpr Instant now{std::chrono::seconds(1'790'000'000)};

/// A recurring expense, called by its vendor, in books without others.
RecurringExpense each(Library& library, const char* vendor, Frequency frequency, Day from, int anchorDay = 0) {
    Expense expense = anExpense(vendor, from);
    RecurringExpense recurring = RecurringExpense::make(expense, frequency, from);
    if (anchorDay) recurring.anchorDay = anchorDay;
    library.recurring.append(recurring);
    return recurring;
}
Library aBook() {
    Library library = aLibrary();
    library.expenses = {};
    library.recurring = {};
    return library;
}
std::vector<std::string> added(const Library& library) {
    std::vector<std::string> all;
    for (const Expense& expense : library.expenses) all.push_back(expense.date.iso() + " " + expense.vendor);
    return all;
}

TEST(Recurring, stepsAimAtTheDayTheyBeganWith) {
    const struct {
        Frequency frequency;
        Day from;
        int anchorDay;
        std::vector<const char*> days;
    } cases[] = {
        {monthly, {2026, 12, 31}, 31, {"2027-01-31", "2027-02-28", "2027-03-31", "2027-04-30", "2027-05-31"}},
        {monthly, {2028, 1, 30}, 30, {"2028-02-29", "2028-03-30"}},
        {monthly, {2026, 11, 1}, 1, {"2026-12-01", "2027-01-01"}},
        {monthly, {2026, 11, 20}, 5, {"2026-12-05"}},
        {quarterly, {2026, 11, 30}, 31, {"2027-02-28", "2027-05-31", "2027-08-31", "2027-11-30"}},
        {yearly, {2024, 2, 29}, 29, {"2025-02-28", "2026-02-28", "2027-02-28", "2028-02-29", "2029-02-28"}},
        {weekly, {2026, 12, 28}, 28, {"2027-01-04", "2027-01-11"}},
        {monthly, {2026, 1, 15}, 0, {"2026-02-01"}},
        {monthly, {2026, 1, 15}, 99, {"2026-02-28"}},
    };
    for (const auto& [frequency, from, anchorDay, days] : cases) {
        Day day = from;
        for (const char* expected : days) {
            day = Recurring::nextDate(frequency, day, anchorDay);
            EXPECT_EQ(day.iso(), expected) << from.iso();
        }
    }
}

TEST(Recurring, catchesUpAfterWeeksInDateOrderAndOnlyOnce) {
    Library library = aBook();
    each(library, "Rent", monthly, {2026, 8, 31}, 31);
    each(library, "Cleaning", weekly, {2026, 9, 14});
    const Recurring::Added first = Recurring::addDue(library, {2026, 9, 30}, now);
    EXPECT_THAT(added(first.library), ElementsAre("2026-08-31 Rent", "2026-09-14 Cleaning", "2026-09-21 Cleaning",
                                                  "2026-09-28 Cleaning", "2026-09-30 Rent"));
    EXPECT_EQ(first.count, 5U);
    EXPECT_EQ(first.library.recurring[0].nextDate, (Day{2026, 10, 31}));
    EXPECT_EQ(first.library.recurring[1].nextDate, (Day{2026, 10, 5}));
    const Recurring::Added second = Recurring::addDue(first.library, {2026, 9, 30}, now);
    EXPECT_EQ(second.count, 0U);
    EXPECT_EQ(second.library, first.library);

    // Another machine added the same from the books as they were; here they arrive with the dates set back.
    Library merged = first.library;
    merged.recurring = library.recurring;
    const Recurring::Added again = Recurring::addDue(merged, {2026, 9, 30}, now);
    EXPECT_EQ(again.count, 0U);
    EXPECT_EQ(again.library, first.library);
    EXPECT_EQ(Recurring::addDue(library, {2026, 9, 30}, now).library.expenses, first.library.expenses);
}

TEST(Recurring, whatTwoMachinesAddIsOneRecordWithoutAQuestion) {
    Library library = aBook();
    each(library, "Rent", monthly, {2026, 11, 1});
    const Library ours = Recurring::addDue(library, {2026, 11, 2}, now + std::chrono::hours(24)).library;
    const Library theirs = Recurring::addDue(library, {2026, 11, 1}, now).library;
    for (const Merged& merged : {merge(library, ours, theirs), merge(library, theirs, ours)}) {
        EXPECT_THAT(merged.conflicts, IsEmpty());
        EXPECT_EQ(merged.library, theirs) << "it is as old as the earlier of both";
    }
}

TEST(Recurring, stopsAtTheEndDateAndWaitsWhilePaused) {
    Library library = aBook();
    RecurringExpense ending = each(library, "Ending", monthly, {2026, 8, 5}), paused = ending;
    ending.endDate = Day{2026, 9, 5};
    paused.id = UUID::random();
    paused.template_.vendor = "Paused";
    paused.paused = true;
    library = Recurring::put(Recurring::put(library, ending), paused);
    ASSERT_EQ(library.recurring.size(), 2U);
    library = Recurring::addDue(library, {2026, 11, 5}, now).library;
    EXPECT_THAT(added(library), ElementsAre("2026-08-05 Ending", "2026-09-05 Ending"));

    EXPECT_EQ(Recurring::setPaused(library, paused.id, true, {2026, 11, 5}), library);
    library = Recurring::setPaused(library, paused.id, false, {2026, 11, 5});
    library = Recurring::addDue(library, {2026, 11, 5}, now).library;
    EXPECT_EQ(added(library).back(), "2026-11-05 Paused") << "what fell due meanwhile is skipped, today is not";
    EXPECT_EQ(library.expenses.size(), 3U);
    EXPECT_EQ(Recurring::setPaused(library, ending.id, false, {2026, 12, 1}).recurring[0].nextDate, (Day{2026, 10, 5}));
}

TEST(Recurring, addsAThousandAtOnceAndTheRestTheNextTime) {
    Library library = aBook();
    each(library, "Old", weekly, {1900, 1, 1});
    each(library, "Older", weekly, {1890, 1, 1});
    Recurring::Added result = Recurring::addDue(library, {2026, 11, 21}, now);
    EXPECT_EQ(result.count, 1000U);
    EXPECT_TRUE(std::is_sorted(result.library.expenses.begin(), result.library.expenses.end(),
                               [](const Expense& a, const Expense& b) { return a.date < b.date; }));
    std::size_t total = result.count;
    for (int rounds = 0; result.count > 0 && rounds < 20; ++rounds) {
        result = Recurring::addDue(std::move(result.library), {2026, 11, 21}, now);
        total += result.count;
    }
    EXPECT_EQ(total, 6621U + 7143U);
    EXPECT_EQ(result.library.expenses.size(), total);
}

TEST(Recurring, addsCopiesThatStandForThemselves) {
    Library library = aBook();
    const RecurringExpense rent = [&] {
        RecurringExpense recurring = each(library, "Hosting", monthly, {2026, 11, 1});
        Expense& expense = recurring.template_;
        expense.billable = true;
        expense.rebilledInvoiceID = expense.bankTxnID = UUID::random();
        expense.check = "No date was found.";
        expense.currency = "USD";
        expense.rateMicros = 80'000'000;
        library.recurring = {recurring};
        return recurring;
    }();
    const Expense copy = Recurring::addDue(library, {2026, 11, 1}, now).library.expenses[0];
    Expense expected = rent.template_;
    expected.id = copy.id;
    expected.date = {2026, 11, 1};
    expected.createdAt = now;
    expected.recurringID = rent.id;
    expected.rebilledInvoiceID.reset();
    expected.bankTxnID.reset();
    expected.check.reset();
    expected.ocrText.reset();
    expected.attachments.clear();
    expected.rateMicros = 83'250'000;
    EXPECT_EQ(copy, expected);
    EXPECT_NE(copy.id, rent.template_.id);
    library.rates = {};
    EXPECT_EQ(Recurring::addDue(library, {2026, 11, 1}, now).library.expenses[0].rateMicros, 80'000'000);
}

TEST(Recurring, repeatsAnExpenseThatIsTheFirst) {
    Library library = aBook();
    const Expense rent = anExpense("Rent", {2026, 10, 31});
    library.expenses.append(rent);
    EXPECT_EQ(Recurring::repeat(library, UUID::random(), monthly), library);
    library = Recurring::repeat(library, rent.id, monthly);
    ASSERT_EQ(library.recurring.size(), 1U);
    const UUID id = library.recurring[0].id;
    EXPECT_EQ(library.recurring[0].anchorDay, 31);
    EXPECT_EQ(library.recurring[0].nextDate, (Day{2026, 11, 30}));
    EXPECT_TRUE(library.recurring[0].template_.attachments.empty());
    EXPECT_EQ(library.expenses[0].recurringID, id);
    EXPECT_EQ(Recurring::repeat(library, rent.id, weekly), library) << "it comes again already";
    library.recurring.update(0, [](RecurringExpense& of) { of.nextDate = {2026, 10, 31}; });
    library = Recurring::addDue(library, {2026, 12, 1}, now).library;
    EXPECT_THAT(added(library), ElementsAre("2026-10-31 Rent", "2026-11-30 Rent"));
    library = Recurring::remove(library, id);
    EXPECT_THAT(library.recurring, IsEmpty());
    EXPECT_EQ(library.expenses.size(), 2U);
    EXPECT_EQ(Recurring::remove(library, id), library);
}

TEST(UUIDDerived, isTheSameEverywhereAndAnotherForAnotherRecord) {
    const UUID a = *UUID::parse("00112233-4455-6677-8899-AABBCCDDEEFF"),
               b = *UUID::parse("00112233-4455-6677-8899-AABBCCDDEEFE");
    EXPECT_EQ(UUID::derived(a, "2026-11-01").text(), "67F8FB28-E47F-8FF4-9AAB-1ABBC83574DC");
    EXPECT_NE(UUID::derived(b, "2026-11-01"), UUID::derived(a, "2026-11-01"));
}

}  // namespace
}  // namespace tamba
