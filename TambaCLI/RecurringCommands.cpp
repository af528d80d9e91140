#include "TambaCLI/Arguments.h"
#include "TambaCLI/Output.h"
#include "TambaCore/Documents/Recurring.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <iostream>

namespace tamba::cli {
namespace {

UUID recurringOf(const Library& library, const std::string& typed) {
    const RecurringExpense* found = withID(library.recurring, typed, "recurring expense");
    if (!found) throw Refusal("There is no recurring expense “" + typed + "” in these books.");
    return found->id;
}

void printRecurring(const Context& context, const Library& library) {
    if (context.json) {
        JSON records = JSON::array();
        for (const RecurringExpense& recurring : library.recurring) records.item(ModelsJSON::json(recurring));
        std::cout << records.text() << "\n";
        return;
    }
    if (library.recurring.empty()) {
        std::cout << "No recurring expenses.\n";
        return;
    }
    using enum Table::Align;
    Table table({{"ID"}, {"Vendor"}, {"Amount", right}, {"Every"}, {"Next"}, {"Ends"}, {"Paused"}});
    for (const RecurringExpense& recurring : library.recurring) {
        const Expense& expense = recurring.template_;
        table.add({shortID(recurring.id), expense.vendor,
                   MoneyFormat::string(expense.amount, Currency::of(expense.currency)),
                   std::string(word(recurring.frequency)), recurring.nextDate.iso(),
                   recurring.endDate ? recurring.endDate->iso() : "", recurring.paused ? "yes" : ""});
    }
    std::cout << table.text();
}

}  // namespace

int listRecurring(const Context& context) {
    const LibrarySession session(context.folder, LibrarySession::Access::read);
    printRecurring(context, existing(session));
    return 0;
}

int addRecurring(const Context& context, const std::string& expense, Frequency frequency) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    printRecurring(context, save(session, Recurring::repeat(library, expenseOf(library, expense).id, frequency)));
    return 0;
}

int pauseRecurring(const Context& context, const std::string& typed, bool paused) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    printRecurring(context,
                   save(session, Recurring::setPaused(library, recurringOf(library, typed), paused, context.today)));
    return 0;
}

int removeRecurring(const Context& context, const std::string& typed) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Library& library = existing(session);
    printRecurring(context, save(session, Recurring::remove(library, recurringOf(library, typed))));
    return 0;
}

int addDueRecurring(const Context& context) {
    LibrarySession session(context.folder, LibrarySession::Access::write);
    const Recurring::Added added = Recurring::addDue(existing(session), context.today, context.now);
    if (added.count > 0) save(session, added.library);
    if (context.json)
        std::cout << JSON::object().add("added", static_cast<std::int64_t>(added.count)).text() << "\n";
    else
        std::cout << "Added " << counted(added.count, "expense", "expenses") << ".\n";
    return 0;
}

}  // namespace tamba::cli
