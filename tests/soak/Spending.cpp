#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Recurring.h"
#include "TambaCore/Receipts/ReceiptExpense.h"
#include "tests/soak/Somebody.h"

#include <algorithm>

namespace tamba::soak {

Library Somebody::withExpense(Library library, const std::function<Expense(const Library&, Expense)>& change) {
    const Expense* present = one(library.expenses);
    if (!present) return library;
    Expense changed = change(library, *present);
    return changed == *present ? library : Expenses::replace(std::move(library), std::move(changed));
}

Library Somebody::newExpense(Library library, Day today) {
    Expense expense = Expense::make(today);
    expense.currency = library.home().code;
    return Expenses::add(std::move(library), std::move(expense));
}

Library Somebody::editExpense(Library library, Day today) {
    return withExpense(std::move(library), [&](const Library& books, Expense e) {
        switch (upTo(9)) {
            case 0:
                e.vendor = vendor();
                break;
            case 1:
            case 2:
                if (e.kind == ExpenseKind::mileage)
                    e.distanceMilli = upTo(900'000);
                else
                    e.amount = amount();
                break;
            case 3:
                e.date = around(today);
                break;
            case 4:
                return Expenses::withCategory(books, e, oneOrNone(books.categories));
            case 5:
                if (e.kind != ExpenseKind::mileage) return Expenses::withCurrency(books, e, currency());
                break;
            case 6:
                e.projectID = oneOrNone(books.projects);
                break;
            case 7:
                e.clientID = oneOrNone(books.clients);
                break;
            case 8:
                e.billable = !e.billable;
                break;
            default:
                e.notes = vendor() + "\n" + e.notes.substr(0, 40);
                e.claimTax = !e.claimTax;
        }
        return e;
    });
}

Library Somebody::editTax(Library library, Day) {
    return withExpense(std::move(library), [&](const Library& books, Expense e) {
        if (e.kind == ExpenseKind::mileage) return e;
        if (oneIn(3)) e.vendorTaxID = oneOf<std::string>({"", "27AAPFU0939F1ZV", "29AABCM1234K1Z5", "no number"});
        return Expenses::withTax(books, e, oneIn(4) ? 0 : MoneyMath::percent(e.amount, upTo(2800)));
    });
}

Library Somebody::deleteExpenses(Library library, Day) {
    for (auto n = upTo(2); n >= 0; --n)
        if (const Expense* expense = one(library.expenses)) library = Expenses::remove(library, UUID(expense->id));
    return library;
}

Library Somebody::setCategory(Library library, Day) {
    const auto category = oneOrNone(library.categories);
    for (auto n = upTo(3); n >= 0; --n)
        if (const Expense* expense = one(library.expenses))
            library = Expenses::replace(library, Expenses::withCategory(library, *expense, category));
    return library;
}

Library Somebody::newTrip(Library library, Day today) {
    Expense trip =
        Expenses::mileage(library, Expense::make(around(today)), 1 + upTo(600'000), library.business.mileageRateMinor);
    trip.billable = oneIn(2);
    return Expenses::add(std::move(library), std::move(trip));
}

Library Somebody::convertToHome(Library library, Day) {
    return withExpense(std::move(library), [](const Library& books, Expense e) {
        return e.currency == books.home().code ? e : Expenses::convertedToHome(books, std::move(e));
    });
}

Library Somebody::changeExpenseRate(Library library, Day today) {
    const Expense* expense = one(library.expenses);
    if (!expense || expense->currency == library.home().code) return library;
    Expense changed = *expense;
    changed.rateMicros = rate();
    library = Expenses::replace(std::move(library), changed);
    return Expenses::keepRate(std::move(library), changed.currency, changed.rateMicros, today);
}

Library Somebody::changeRepeats(Library library, Day today) {
    const Expense* expense = one(library.expenses);
    if (!expense) return library;
    const UUID id = expense->id;
    if (expense->recurringID && oneIn(2)) return Recurring::remove(std::move(library), UUID(*expense->recurringID));
    // Weekly ones are rare, or they would soon be all there is.
    const auto frequency =
        oneIn(6) ? Frequency::weekly : oneOf({Frequency::monthly, Frequency::quarterly, Frequency::yearly});
    return Recurring::addDue(Recurring::repeat(std::move(library), id, frequency), today, now()).library;
}

Library Somebody::changeRecurring(Library library, Day today) {
    const RecurringExpense* recurring = one(library.recurring);
    if (!recurring) return library;
    const UUID id = recurring->id;
    if (oneIn(2)) return Recurring::remove(std::move(library), id);
    return Recurring::setPaused(std::move(library), id, !recurring->paused, today);
}

std::filesystem::path Somebody::droppedFile() {
    return Files::writeTemporary("%PDF-1.4 " + std::to_string(upTo(1'000'000)), "bill.pdf");
}

Library Somebody::fileReceipt(Library library, Day today) {
    const auto cell = [this] { return std::to_string(upTo(90'000)) + "." + std::to_string(10 + upTo(89)); };
    const std::vector<std::string> lines{vendor(),
                                         "GSTIN 27AAPFU0939F1ZV",
                                         "Date: " + around(today).iso(),
                                         "CGST " + cell(),
                                         "SGST " + cell(),
                                         "Grand Total ₹ " + cell(),
                                         oneOf<std::string>({"Paid by UPI", "USD", "Visa XXXX 1234"})};
    const auto file = droppedFile();
    const ReceiptScanner::Result result{
        ReceiptParser::parse({lines.begin() + upTo(3), lines.end()}, library.business.receiptDateOrder, today),
        {file},
        {file}};
    auto filed = ReceiptExpense::file(std::move(library), store_, result, Expense::make(today), today);
    Files::remove(file);
    return filed.library;
}

Library Somebody::attachFile(Library library, Day) {
    const Expense* expense = one(library.expenses);
    if (!expense) return library;
    const auto file = droppedFile();
    library.expenses.update(indexOf(library.expenses, UUID(expense->id)), [&](Expense& e) {
        e.attachments.push_back(Attachment::make(store_.importReceipt(file, e.date, e.vendor), "bill.pdf"));
    });
    Files::remove(file);
    return library;
}

Library Somebody::removeAttachment(Library library, Day) {
    for (std::size_t i = 0; i < library.expenses.size(); ++i) {
        if (library.expenses[i].attachments.empty() || !oneIn(3)) continue;
        const Attachment attachment = library.expenses[i].attachments.front();
        library.expenses.update(i, [](Expense& e) { e.attachments.erase(e.attachments.begin()); });
        store_.removeAttachment(attachment);
        break;
    }
    return library;
}

Library Somebody::looksRight(Library library, Day) {
    for (std::size_t i = 0; i < library.expenses.size(); ++i)
        if (library.expenses[i].check && oneIn(2)) library.expenses.update(i, [](Expense& e) { e.check.reset(); });
    return library;
}

}  // namespace tamba::soak
