#pragma once

#include "Tamba/AppModel.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Fixtures/Dice.h"
#include "TambaCore/Model/LibraryStore.h"

#include <string>
#include <vector>

namespace tamba::soak {

/// Somebody at the screens who does whatever comes to mind: every step is an operation that a screen or a sheet calls,
/// on records that are there, with what its fields let through. Many are refused. The same for the same seed.
class Somebody {
public:
    Somebody(std::uint64_t seed, LibraryStore store) : dice_(seed), store_(std::move(store)) {}

    struct Step {
        int weight;
        const char* name;
        Library (Somebody::*take)(Library, Day today);
        AppModel::Undo undo = AppModel::Undo::possible;
    };
    /// Some time passes without a step that begins a new history, so that there is one to go back through.
    [[nodiscard]] const Step& nextStep(bool keepHistory);

    std::int64_t upTo(std::int64_t most) { return dice_.below(most + 1); }
    bool oneIn(std::int64_t chances) { return dice_.below(chances) == 0; }

private:
    // Spending.cpp
    Library newExpense(Library library, Day today);
    Library editExpense(Library library, Day today);
    Library editTax(Library library, Day today);
    Library deleteExpenses(Library library, Day today);
    Library setCategory(Library library, Day today);
    Library newTrip(Library library, Day today);
    Library convertToHome(Library library, Day today);
    Library changeExpenseRate(Library library, Day today);
    Library changeRepeats(Library library, Day today);
    Library changeRecurring(Library library, Day today);
    Library fileReceipt(Library library, Day today);
    Library attachFile(Library library, Day today);
    Library removeAttachment(Library library, Day today);
    Library looksRight(Library library, Day today);
    // Paperwork.cpp
    Library newDraft(Library library, Day today);
    Library editDraft(Library library, Day today);
    Library editLines(Library library, Day today);
    Library billExpenses(Library library, Day today);
    Library changeDraftRate(Library library, Day today);
    Library deleteDraft(Library library, Day today);
    Library issue(Library library, Day today);
    Library pay(Library library, Day today);
    Library removePayment(Library library, Day today);
    Library draftCreditNote(Library library, Day today);
    Library issueCreditNote(Library library, Day today);
    Library voidDocument(Library library, Day today);
    Library answerEstimate(Library library, Day today);
    Library convertEstimate(Library library, Day today);
    Library duplicate(Library library, Day today);
    Library markSent(Library library, Day today);
    // Banking.cpp
    Library importStatement(Library library, Day today);
    Library matchObvious(Library library, Day today);
    Library matchLine(Library library, Day today);
    Library matchAny(Library library, Day today);
    Library splitReceipt(Library library, Day today);
    Library unmatch(Library library, Day today);
    Library setAside(Library library, Day today);
    Library createExpense(Library library, Day today);
    Library changeAccounts(Library library, Day today);
    Library changeRules(Library library, Day today);
    // Settings.cpp
    Library changeClients(Library library, Day today);
    Library changeProjects(Library library, Day today);
    Library changeItems(Library library, Day today);
    Library changeCategories(Library library, Day today);
    Library changeBusiness(Library library, Day today);
    Library changeNumbering(Library library, Day today);
    Library changeRates(Library library, Day today);

    template <class T>
    const T* one(const List<T>& list) {
        return list.empty() ? nullptr : &list[static_cast<std::size_t>(upTo(std::int64_t(list.size()) - 1))];
    }
    template <class T>
    std::optional<UUID> oneOrNone(const List<T>& list) {
        const T* record = oneIn(4) ? nullptr : one(list);
        return record ? std::optional(record->id) : std::nullopt;
    }
    template <class T>
    T oneOf(std::initializer_list<T> choices) {
        return choices.begin()[upTo(std::int64_t(choices.size()) - 1)];
    }
    /// One of a kind and state, where a few looks find one.
    const Document* document(const Library& library, DocKind kind, DocState state);
    Day around(Day today) { return today.addingDays(upTo(120) - 100); }
    /// What an amount field lets through.
    std::int64_t amount();
    std::int64_t rate() { return oneOf<std::int64_t>({83'250'000, 1, 1'000'000, 552'301, 300'000'000'000}); }
    std::string vendor();
    std::string currency() { return oneOf<std::string>({"INR", "USD", "JPY", "KWD", "EUR"}); }
    Line line(const Library& library, const Document& draft);
    Library withExpense(Library library, const std::function<Expense(const Library&, Expense)>& change);
    Library withDraft(Library library, const std::function<Document(const Library&, Document)>& change);
    /// Bytes of a small file to be dropped on the window.
    std::filesystem::path droppedFile();

    Fixtures::Dice dice_;
    LibraryStore store_;
};

}  // namespace tamba::soak
