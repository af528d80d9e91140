#include "tests/soak/Somebody.h"

#include <algorithm>
#include <span>

namespace tamba::soak {

const Somebody::Step& Somebody::nextStep(bool keepHistory) {
    using S = Somebody;
    constexpr auto newHistory = AppModel::Undo::beginsNewHistory;
    static constexpr Step steps[] = {
        {6, "New Expense", &S::newExpense},
        {12, "Edit Expense", &S::editExpense},
        {3, "Change Tax", &S::editTax},
        {2, "Delete Expenses", &S::deleteExpenses},
        {2, "Set Category", &S::setCategory},
        {2, "New Mileage Trip", &S::newTrip},
        {2, "Convert to Home Currency", &S::convertToHome},
        {2, "Change Exchange Rate", &S::changeExpenseRate},
        {2, "Change Repeats", &S::changeRepeats},
        {2, "Change Recurring Expenses", &S::changeRecurring},
        {3, "Add Receipt", &S::fileReceipt},
        {1, "Attach File", &S::attachFile},
        {1, "Mark as Checked", &S::looksRight},
        {7, "New Document", &S::newDraft},
        {6, "Edit Document", &S::editDraft},
        {6, "Edit Lines", &S::editLines},
        {4, "Bill Expenses", &S::billExpenses},
        {1, "Change Draft’s Rate", &S::changeDraftRate},
        {2, "Delete Draft", &S::deleteDraft},
        {6, "Record Payment", &S::pay},
        {2, "Remove Payment", &S::removePayment},
        {2, "New Credit Note", &S::draftCreditNote},
        {2, "Answer Estimate", &S::answerEstimate},
        {3, "Make Invoice", &S::convertEstimate},
        {2, "Duplicate", &S::duplicate},
        {6, "Import Statement", &S::importStatement},
        {2, "Match the Obvious Ones", &S::matchObvious},
        {7, "Match Bank Line", &S::matchLine},
        {2, "Match Any Line", &S::matchAny},
        {3, "Split Receipt", &S::splitReceipt},
        {4, "Unmatch Line", &S::unmatch},
        {2, "Set Line Aside", &S::setAside},
        {3, "Create Expense", &S::createExpense},
        {1, "Change Accounts", &S::changeAccounts},
        {2, "Change Rules", &S::changeRules},
        {3, "Change Clients", &S::changeClients},
        {2, "Change Projects", &S::changeProjects},
        {1, "Change Items", &S::changeItems},
        {1, "Change Categories", &S::changeCategories},
        {1, "Change Settings", &S::changeBusiness},
        {1, "Change Numbering", &S::changeNumbering},
        {1, "Change Rates", &S::changeRates},
        {10, "Issue", &S::issue, newHistory},
        {3, "Issue Credit Note", &S::issueCreditNote, newHistory},
        {3, "Void", &S::voidDocument, newHistory},
        {2, "Mark as Sent", &S::markSent, newHistory},
        {1, "Remove Receipt", &S::removeAttachment, newHistory},
    };
    const auto counts = [&](const Step& step) { return !keepHistory || step.undo != newHistory; };
    std::int64_t sum = 0;
    for (const Step& step : steps) sum += counts(step) ? step.weight : 0;
    std::int64_t at = upTo(sum - 1);
    for (const Step& step : steps)
        if (counts(step) && (at -= step.weight) < 0) return step;
    return steps[0];
}

const Document* Somebody::document(const Library& library, DocKind kind, DocState state) {
    const Document* found = nullptr;
    for (int tries = 0; tries < 12; ++tries) {
        found = one(library.documents);
        if (!found || (found->kind == kind && found->state == state)) return found;
    }
    return found;
}

std::int64_t Somebody::amount() {
    switch (upTo(11)) {
        case 0:
            return 0;
        case 1:
            return upTo(9);
        case 2:
            return -upTo(500'000);
        case 3:
            return oneIn(6) ? maximumAmount - upTo(3) : upTo(9'000'000'000);
        default:
            return upTo(5'000'000);
    }
}

std::string Somebody::vendor() {
    return oneOf<std::string>({"Chai Point", "Saffron Cabs", "amazon web services", "Paper Boat Press", "", "ज़रा टी",
                               "Ravi & Sons <b>", "UPI/DR/1/NORTHWIND/HDFC", "=1+1", "Énergie\tBleue"});
}

}  // namespace tamba::soak
